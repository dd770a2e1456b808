// What the three order lists share: the event that a notice becomes, the routes of notices, the figures and
// words of a row, and the decoder around the list.
//
// An amendment or a cancellation is an order of its own, whose ParentOrderNo names the order that it changes.
// A notice touches its own row and its direct parent only. One that finds no row may be parked until the
// notice comes that makes the row.
#ifndef TICKMUX_DECODERS_ORDERCOMMON_H
#define TICKMUX_DECODERS_ORDERCOMMON_H

#include <cstdint>
#include <span>

#include "decoders/OrderRows.h"
#include "decoders/OrderWords.h"
#include "decoders/ParkedEvents.h"
#include "framework/codecs.h"
#include "framework/init_reader.h"
#include "framework/packet_decoder.h"
#include "layouts/Orders.h"

// ------------------------------------------------------------------ notices and their routes

inline constexpr char kNoEvent = '\0';

// What a notice is taken for.
enum class Route {
    Sending,     // an order on its way
    Acceptance,  // makes the row, and lets parked events go
    Refusal,
    Apply,    // changes a row, or waits for it
    Dropped,  // nothing
};

inline constexpr char kAny = '*';
inline constexpr char kRefused = '!';  // any result but '0'

// One row of a table of routes; the first that fits a notice counts.
struct NoticeRoute {
    char NoticeKind;
    char ResultFlag;
    char OrderState;
    char OrderAction;
    char EventCode;
    Word Status;  // of a row that the notice makes
    Route Way;

    bool Fits(const OrderPacket& notice) const;
};

// Null: none fits.
const NoticeRoute* FindRoute(std::span<const NoticeRoute> routes, const OrderPacket& notice);

// Other record kinds are no orders.
bool IsRecord(const OrderPacket& notice);

// True if the board's name begins so.
bool IsBoard(const OrderPacket& notice, std::string_view name);

// ------------------------------------------------------------------ events

// The decoder's own reading of one notice.
struct OrderEvent {
    char EventCode;
    Route Way;
    int32_t Number;
    int32_t ParentNumber;
    int64_t Quantity;
    OrderRow Columns;  // a row built from it begins with these

    void TakeRoute(const NoticeRoute& route);
};

// `divisor` turns the notice's hundredths into the row's unit.
OrderEvent MakeEvent(const OrderPacket& notice, int64_t divisor);

// ------------------------------------------------------------------ rows

// A blank figure counts as 0.
template <std::size_t N>
int64_t Figure(const char (&field)[N]) {
    return AsciiToInt64(field, N);
}

// As an empty figure stands in the list: blanks, and two zero bytes at the end.
void ClearFigure(char (&field)[15]);

// The row is full of what is open; nothing open leaves the field cleared.
void PutOpenOrClear(char (&field)[15], int64_t open);

// No more shows as filled than was ordered.
void LimitFilled(OrderRow& row, int64_t filled);

// Fills add up; the word tells how much is open behind them.
const Word& FillWord(int64_t filled, int64_t open);

// ------------------------------------------------------------------ the decoder

class OrderDecoder : public CRTMPacketDecoder {
public:
    void Stop() override;
    void Release() override;

protected:
    OrderDecoder(HWND hWnd, const PacketSlots& slots);

    void ClearOrders();
    // Copies the text's rows, each to go out as changed. False: the text is not exactly that long, or memory
    // failed; the list is empty then.
    bool TakeRows(InitReader& in, int count);

    bool IsOurs(const OrderPacket& notice) const;
    OrderEntry* FindRow(int32_t number) const { return m_Rows.Find(number); }

    // The event's effect on the rows. False: it has to wait.
    virtual bool ApplyEvent(const OrderEvent& event) = 0;
    void ApplyOrPark(const OrderEvent& event);
    void DrainPending(int32_t number);

    // A message without rows yet: tag and control record stand, the repeat head counts `rows` and the record.
    ViewBuffer MakeMessage(char operation, int index, char action, int rows) const;

    RequestTag m_Tag{};
    OrderRows m_Rows;

private:
    char m_UserId[19];
    ParkedEvents<OrderEvent> m_Pending;
};

// Drops a notice that is the same as the one before it, whoever's that was.
class RepeatFilter {
public:
    RepeatFilter() { FillBlank(m_LastPacket); }
    bool IsRepeated(const OrderPacket& notice);

private:
    OrderPacket m_LastPacket;
};

// ------------------------------------------------------------------ lists of answers

// The open orders and the order list: both follow the answers to orders, from the acceptance on.
class AnsweredOrders : public OrderDecoder {
public:
    void EndUnpack() override;

protected:
    using OrderDecoder::OrderDecoder;

    // The notice has passed the filter. `own` comes before the routes that both lists share.
    int TakeNotice(const OrderPacket& notice, std::span<const NoticeRoute> own);

    virtual void ApplyAcceptance(const OrderEvent& event) = 0;
    virtual void ApplyRefusal(const OrderEvent& /*event*/) {}
    bool ApplyEvent(const OrderEvent& event) override;

    // What an event does, by its code: to the rows when it has none of its own, else to its own row and
    // perhaps the parent's. ApplyWithoutRow gives what ApplyEvent gives.
    virtual bool ApplyWithoutRow(const OrderEvent& event) = 0;
    virtual void Fill(OrderEntry& own, const OrderEvent& event) = 0;
    virtual void ConfirmAmendment(OrderEntry& own, const OrderEvent& event) = 0;
    virtual void ConfirmCancellation(OrderEntry& own, const OrderEvent& event) = 0;
    virtual void Close(OrderEntry& own) = 0;

    virtual void WriteLog(ViewBuffer& /*message*/) {}

    // The event's row, "Open" if it comes with the confirmation.
    enum class Stage { Accepted, Confirmed };
    void InsertRow(const OrderEvent& event, Stage stage);
    // An amendment or a cancellation takes its quantity out of its parent.
    void ReduceParent(const OrderEvent& event);
    // The word of an order that is accepted once more.
    void PutKindWord(OrderEntry& entry, const OrderEvent& event);
    void SendRows(char operation, int index, char action);
    void Touch(OrderEntry& entry) { m_Rows.SetMark(&entry, RowMark::Changed); }
};

#endif
