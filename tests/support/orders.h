// Order notices, rows and messages with plain defaults.
#ifndef TICKMUX_TESTS_SUPPORT_ORDERS_H
#define TICKMUX_TESTS_SUPPORT_ORDERS_H

#include <string>

#include "module/layouts/Orders.h"
#include "module/layouts/RSORDE22.h"
#include "tests/support/inquiries.h"
#include "tests/support/packets.h"

inline constexpr char kUser[] = "TRADER01";
inline constexpr char kUserField[] = "ACC001";

// An answer notice of our user: the acceptance of a new order for 100 at 1000, unless told otherwise.
class Notice : public PacketBuilder<OrderPacket> {
public:
    explicit Notice(const std::string& orderNo) {
        Fill(m_Packet.Time, "090000");
        Fill(m_Packet.RecordKind, "01");
        Code('2', '0', '1');
        m_Packet.ResultFlag = '0';
        Fill(m_Packet.UserField, kUserField);
        Fill(m_Packet.OrderNo, orderNo);
        Fill(m_Packet.Code, "ASII");
        Fill(m_Packet.UserId, kUser);
        Fill(m_Packet.DisplayText, "Astra");
        Side('1').Board("RG").Quantity(100).Price("1000");
    }
    Notice& Time(const std::string& time) { return Fill(m_Packet.Time, time), *this; }
    // NoticeKind, OrderState, OrderAction.
    Notice& Code(char kind, char state, char action) {
        m_Packet.NoticeKind = kind, m_Packet.OrderState = state, m_Packet.OrderAction = action;
        return *this;
    }
    Notice& Result(char flag) { return m_Packet.ResultFlag = flag, *this; }
    Notice& Record(const std::string& kind) { return Fill(m_Packet.RecordKind, kind), *this; }
    Notice& Parent(const std::string& orderNo) { return Fill(m_Packet.ParentOrderNo, orderNo), *this; }
    // In whole units.
    Notice& Quantity(int64_t quantity) { return Hundredths(quantity * 100); }
    Notice& Hundredths(int64_t quantity) { return Fill(m_Packet.Quantity, std::to_string(quantity)), *this; }
    Notice& Price(const std::string& price) { return Fill(m_Packet.Price, price), *this; }
    Notice& Side(char side) { return m_Packet.Side = side, *this; }
    Notice& Board(const std::string& name) { return Fill(m_Packet.BoardName, name), *this; }
    Notice& Lot(const std::string& lot) { return Fill(m_Packet.LotSize, lot), *this; }
    Notice& Item(const std::string& code) { return Fill(m_Packet.Code, code), *this; }
    Notice& Group(const std::string& code) { return Fill(m_Packet.GroupCode, code), *this; }
    Notice& Channel(const std::string& code) { return Fill(m_Packet.ChannelCode, code), *this; }
    Notice& Text(const std::string& text) { return Fill(m_Packet.DisplayText, text), *this; }
    Notice& User(const std::string& id) { return Fill(m_Packet.UserId, id), *this; }
    Notice& Field(const std::string& field) { return Fill(m_Packet.UserField, field), *this; }
};

inline Notice Accepted(const std::string& orderNo, int64_t quantity) {
    return Notice(orderNo).Quantity(quantity);
}
inline Notice Filled(const std::string& orderNo, int64_t quantity, const std::string& price) {
    return Notice(orderNo).Code('2', '1', '1').Quantity(quantity).Price(price);
}
inline Notice Amendment(const std::string& orderNo, const std::string& parent, int64_t quantity, char state) {
    return Notice(orderNo).Parent(parent).Code('2', state, '2').Quantity(quantity);
}
inline Notice Cancellation(const std::string& orderNo, const std::string& parent, int64_t quantity,
                           char state) {
    return Notice(orderNo).Parent(parent).Code('2', state, '3').Quantity(quantity);
}

// The row that such a notice makes, figure by figure as the screen shows it.
class ExpectedRow {
public:
    explicit ExpectedRow(const std::string& orderNo) {
        FillBlank(m_Row);
        Fill(m_Row.Time, "090000");
        Fill(m_Row.DisplayText, "Astra");
        Fill(m_Row.Code, "ASII");
        Fill(m_Row.SideColor, "2");
        m_Row.SideFlag = '1';
        m_Row.BoardFlag = '0';
        Fill(m_Row.BoardName, "RG");
        Fill(m_Row.OrderPrice, "1000");
        Fill(m_Row.UserId, kUser);
        Fill(m_Row.OrderNo, orderNo);
        Ordered("100").Status("Open");
    }
    ExpectedRow& Named(const std::string& text) { return Fill(m_Row.DisplayText, text), *this; }
    ExpectedRow& Item(const std::string& code) { return Fill(m_Row.Code, code), *this; }
    ExpectedRow& At(const std::string& time) { return Fill(m_Row.Time, time), *this; }
    ExpectedRow& Ordered(const std::string& figure) { return Fill(m_Row.OrderQty, Right(figure, 15)), *this; }
    ExpectedRow& Open(const std::string& figure) { return Fill(m_Row.UnfilledQty, Right(figure, 15)), *this; }
    ExpectedRow& NothingOpen() { return Open(std::string(2, '\0')); }
    ExpectedRow& Filled(const std::string& quantity, const std::string& price) {
        Fill(m_Row.FilledQty, Right(quantity, 15));
        Fill(m_Row.FillPrice, price);
        return *this;
    }
    ExpectedRow& Price(const std::string& price) { return Fill(m_Row.OrderPrice, price), *this; }
    ExpectedRow& Status(const std::string& word) { return Fill(m_Row.Status, word), *this; }
    ExpectedRow& Board(const std::string& name, char flag) {
        m_Row.BoardFlag = flag;
        return Fill(m_Row.BoardName, name), *this;
    }
    ExpectedRow& Side(const std::string& tag, char flag) {
        m_Row.SideFlag = flag;
        return Fill(m_Row.SideColor, tag), *this;
    }
    ExpectedRow& Channel(char mark) { return m_Row.ChannelMark = mark, *this; }
    operator std::string() const { return Text(m_Row); }  // NOLINT(google-explicit-constructor): its bytes

private:
    OrderRow m_Row;
};

// The filters of the inquiry; blank lets everything through, and so does '0' for the status.
class FilteredInquiry {
public:
    FilteredInquiry() { FillBlank(m_Init), Fill(m_Init.UserField, kUserField), Status('0'); }
    FilteredInquiry& Group(const std::string& filter) { return Fill(m_Init.GroupFilter, filter), *this; }
    FilteredInquiry& Code(const std::string& filter) { return Fill(m_Init.CodeFilter, filter), *this; }
    FilteredInquiry& Status(char filter) { return m_Init.StatusFilter = filter, *this; }
    FilteredInquiry& Side(char filter) { return m_Init.SideFilter = filter, *this; }
    FilteredInquiry& Board(const std::string& filter) { return Fill(m_Init.BoardFilter, filter), *this; }
    FilteredInquiry& With(const std::string& row) { return m_Rows.push_back(row), *this; }
    operator std::string() const {  // NOLINT(google-explicit-constructor): stands for its text
        FilteredOrdersInit init = m_Init;
        Fill(init.Repeat.Count, Right(std::to_string(m_Rows.size()), 4));
        return "O1" + Text(init) + Joined(m_Rows);
    }

private:
    FilteredOrdersInit m_Init;
    Rows m_Rows;
};

// Operation, index and action: "U  -12" is an update with new rows.
inline std::string Message(const std::string& control, const Rows& rows) {
    return "O1" +
           Block(std::to_string(rows.size() + 1), "171", Left(control, sizeof(OrderControl)) + Joined(rows));
}

// Status words in code page 949.
inline constexpr char kAcceptedWord[] = "\xC1\xA2\xBC\xF6\xBF\xCF\xB7\xE1";
inline constexpr char kAmendUnconfirmedWord[] = "\xC1\xA4\xC8\xAE\xC0\xCE\xC0\xFC";
inline constexpr char kCancelUnconfirmedWord[] = "\xC3\xEB\xC8\xAE\xC0\xCE\xC0\xFC";
inline constexpr char kAmendConfirmedWord[] = "\xC1\xA4\xC1\xA4\xC8\xAE\xC0\xCE";
inline constexpr char kCancelConfirmedWord[] = "\xC3\xEB\xBC\xD2\xC8\xAE\xC0\xCE";
inline constexpr char kBeingFilledWord[] = "\xC3\xBC\xB0\xE1\xC1\xDF";
inline constexpr char kFillingCompleteWord[] = "\xC3\xBC\xB0\xE1\xBF\xCF\xB7\xE1";
inline constexpr char kBeingSentWord[] = "\xBC\xDB\xBD\xC5\xC1\xDF";
inline constexpr char kAcceptanceRefusedWord[] = "\xC1\xA2\xBC\xF6\xB0\xC5\xBA\xCE";

#endif
