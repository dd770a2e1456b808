#include "module/decoders/orders/OrderEvent.h"

#include <algorithm>
#include <cassert>
#include <iterator>
#include <string_view>

#include "host/services/services.h"
#include "module/wire/codecs.h"

bool IsRecord(const OrderPacket& notice) {
    return std::string_view(notice.RecordKind, sizeof(notice.RecordKind)) == "01";
}

// ------------------------------------------------------------------ routes

namespace {

// clang-format off
constexpr NoticeRoute kAnswerRoutes[] = {
    {kAnswer, kRefused, kFill, kAnyAction, EventCode::Refusal, kReject, Route::Refusal},
    {kAnswer, kRefused, kConfirmation, kAnyAction, EventCode::Refusal, kReject, Route::Refusal},
    {kAnyKind, kNotNormal, kAnyState, kAnyAction, EventCode::None, kBlankWord, Route::Dropped},
    {kAnswer, kNormal, kAcceptance, kNewOrder, EventCode::NewOrder, kOpen, Route::Acceptance},
    {kAnswer, kNormal, kAcceptance, kAmendment, EventCode::Amendment, kAmendUnconfirmed, Route::Acceptance},
    {kAnswer, kNormal, kAcceptance, kCancellation, EventCode::Cancellation, kCancelUnconfirmed, Route::Acceptance},
    {kAnswer, kNormal, kAcceptance, kAnyAction, EventCode::None, kBlankWord, Route::Acceptance},
    {kAnswer, kNormal, kFill, kAnyAction, EventCode::Fill, kBlankWord, Route::Apply},
    {kAnswer, kNormal, kConfirmation, kAmendment, EventCode::Amendment, kBlankWord, Route::Apply},
    {kAnswer, kNormal, kConfirmation, kCancellation, EventCode::Cancellation, kBlankWord, Route::Apply},
    {kAnswer, kNormal, kConfirmation, kClosing, EventCode::Closing, kBlankWord, Route::Apply},
    {kAnyKind, kNormal, kAnyState, kAnyAction, EventCode::None, kBlankWord, Route::Apply},
};

constexpr NoticeRoute kSendingRoutes[] = {
    {kSendingNotice, kNormal, kAnyState, kNewOrder, EventCode::NewOrder, kSending, Route::Sending},
    {kSendingNotice, kNormal, kAnyState, kAmendment, EventCode::Amendment, kAmending, Route::Sending},
    {kSendingNotice, kNormal, kAnyState, kCancellation, EventCode::Cancellation, kWithdrawing, Route::Sending},
    {kSendingNotice, kNormal, kAnyState, kAnyAction, EventCode::None, kBlankWord, Route::Sending},
    {kAnswer, kRefused, kAnyState, kAnyAction, EventCode::Refusal, kReject, Route::Refusal},
    {kAnyKind, kNotNormal, kAnyState, kAnyAction, EventCode::None, kBlankWord, Route::Dropped},
    {kAnswer, kNormal, kFill, kAnyAction, EventCode::Fill, kBlankWord, Route::Apply},
    {kAnswer, kNormal, kAcceptance, kNewOrder, EventCode::Opening, kOpen, Route::Apply},
    {kAnswer, kNormal, kConfirmation, kAmendment, EventCode::Amendment, kAmended, Route::Apply},
    {kAnswer, kNormal, kConfirmation, kCancellation, EventCode::Cancellation, kWithdrawn, Route::Apply},
    {kAnswer, kNormal, kConfirmation, kClosing, EventCode::Closing, kBlankWord, Route::Apply},
    {kAnyKind, kNormal, kAnyState, kAnyAction, EventCode::None, kBlankWord, Route::Apply},
};
// clang-format on

bool Fits(const NoticeRoute& route, const OrderPacket& notice) {
    const bool result = route.ResultFlag == kNotNormal
                            ? notice.ResultFlag != kNormal
                            : route.ResultFlag == kAnyResult || route.ResultFlag == notice.ResultFlag;
    return result && (route.NoticeKind == kAnyKind || route.NoticeKind == notice.NoticeKind) &&
           (route.OrderState == kAnyState || route.OrderState == notice.OrderState) &&
           (route.OrderAction == kAnyAction || route.OrderAction == notice.OrderAction);
}

const NoticeRoute& FindRoute(std::span<const NoticeRoute> routes, const OrderPacket& notice) {
    const auto route = std::find_if(routes.begin(), routes.end(),
                                    [&](const NoticeRoute& known) { return Fits(known, notice); });
    assert(route != routes.end());
    return *route;
}

}  // namespace

std::span<const NoticeRoute> AnswerRoutes() {
    return kAnswerRoutes;
}

std::span<const NoticeRoute> SendingRoutes() {
    return kSendingRoutes;
}

// ------------------------------------------------------------------ events

namespace {

// A notice's text up to a zero byte; the field is blank behind it.
template <std::size_t N, std::size_t M>
void PutText(char (&dst)[N], const char (&src)[M]) {
    static_assert(N >= M);
    std::copy(src, std::find(src, src + M, '\0'), dst);
}

// The sides have colours of their own: side 1 is '2', not the '1' of a rise.
void PutSide(OrderRow& row, char side) {
    row.SideFlag = side;
    if (side == kSide1) {
        row.SideColor[0] = '2';
        row.SideFlag = kSide1Row;
    } else if (side == kSide2) {
        row.SideColor[0] = '4';
        row.SideFlag = kSide2Row;
    }
}

// True if the board's name begins so.
bool IsBoard(const OrderPacket& notice, std::string_view name) {
    return std::string_view(notice.BoardName, sizeof(notice.BoardName)).starts_with(name);
}

}  // namespace

OrderEvent BuildEvent(const OrderPacket& notice, std::span<const NoticeRoute> routes, int64_t divisor) {
    const NoticeRoute& route = FindRoute(routes, notice);
    OrderEvent event{};
    event.EventCode = route.EventCode;
    event.Way = route.Way;
    event.OrderNo = ToLong(notice.OrderNo);
    event.ParentOrderNo = ToLong(notice.ParentOrderNo);
    event.Quantity = AsciiToInt64(notice.Quantity, sizeof(notice.Quantity)) / divisor;

    OrderRow& row = event.Columns;
    FillBlank(row);
    PutText(row.Time, notice.Time);
    PutText(row.DisplayText, notice.DisplayText);
    PutText(row.Code, notice.Code);
    PutSide(row, notice.Side);
    row.BoardFlag = IsBoard(notice, "TN") ? kBoardTN : kOtherBoard;
    PutText(row.BoardName, notice.BoardName);
    PutText(row.OrderPrice, notice.Price);
    Put(row.OrderQty, event.Quantity);
    PutText(row.UserId, notice.UserId);
    PutWord(row.Status, route.StatusWord);
    PutText(row.OrderNo, notice.OrderNo);
    return event;
}

int64_t DivisorOfBoard(const OrderPacket& notice) {
    return IsBoard(notice, "NG") || IsBoard(notice, "ADV") ? 1 : 100;
}

int64_t DivisorOfLot(const OrderPacket& notice) {
    if (IsBlank(notice.LotSize)) {
        return 100;
    }
    const int32_t lot = ToLong(notice.LotSize);
    return lot == 0 ? 1 : lot;
}

// ------------------------------------------------------------------ channels

namespace {

struct ChannelRule {
    std::string_view Code;  // empty: any other
    char Mark;
};

constexpr ChannelRule kChannels[] = {
    {"33", 'H'}, {"M1", 'M'}, {"M2", 'M'}, {"M3", 'M'}, {"00", 'D'},
    {"03", 'D'}, {"21", 'A'}, {"T1", 'T'}, {"", 'H'},
};

}  // namespace

// On channel 03 some users of one menu have a mark of their own.
char ChannelMarkOf(const OrderPacket& notice) {
    const std::string_view code(notice.ChannelCode, sizeof(notice.ChannelCode));
    if (code == "03" && *CQelData21::GetMenuGrade() == '1' && notice.UserId[0] == '3') {
        return 'W';
    }
    return std::find_if(std::begin(kChannels), std::end(kChannels),
                        [code](const ChannelRule& rule) { return rule.Code.empty() || rule.Code == code; })
        ->Mark;
}
