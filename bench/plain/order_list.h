// What the three order lists share, written straight down: a std::list of rows, each with its mark, and a
// std::list of parked events. Every lookup walks the list and reads each row's number.
#ifndef TICKMUX_BENCH_PLAIN_ORDER_LIST_H
#define TICKMUX_BENCH_PLAIN_ORDER_LIST_H

#include <cstdint>
#include <cstring>
#include <list>
#include <string>

#include "bench/plain/codecs.h"
#include "bench/plain/framework.h"
#include "framework/packets.h"
#include "layouts/Orders.h"

namespace plain {

// Status words in code page 949.
inline const char kAcceptedWord[] = "\xC1\xA2\xBC\xF6\xBF\xCF\xB7\xE1";           // 접수완료
inline const char kAcceptanceRefusedWord[] = "\xC1\xA2\xBC\xF6\xB0\xC5\xBA\xCE";  // 접수거부
inline const char kAmendUnconfirmedWord[] = "\xC1\xA4\xC8\xAE\xC0\xCE\xC0\xFC";   // 정확인전
inline const char kCancelUnconfirmedWord[] = "\xC3\xEB\xC8\xAE\xC0\xCE\xC0\xFC";  // 취확인전
inline const char kAmendConfirmedWord[] = "\xC1\xA4\xC1\xA4\xC8\xAE\xC0\xCE";     // 정정확인
inline const char kCancelConfirmedWord[] = "\xC3\xEB\xBC\xD2\xC8\xAE\xC0\xCE";    // 취소확인
inline const char kAmendSyllable[] = "\xC1\xA4";                                  // 정
inline const char kCancelSyllable[] = "\xC3\xEB";                                 // 취
inline const char kFillWord[] = "\xC3\xBC\xB0\xE1";                               // 체결
inline const char kBeingFilledWord[] = "\xC3\xBC\xB0\xE1\xC1\xDF";                // 체결중
inline const char kFillingCompleteWord[] = "\xC3\xBC\xB0\xE1\xBF\xCF\xB7\xE1";    // 체결완료
inline const char kBeingSentWord[] = "\xBC\xDB\xBD\xC5\xC1\xDF";                  // 송신중
inline const char kRefusedWord[] = "\xB0\xC5\xBA\xCE";                            // 거부

enum RowMark { kUnmarked = 0, kChangedRow = 1, kNewRow = 2 };

struct ListedOrder {
    OrderRow Row;
    int Mark;
};

// One notice, its texts zero-ended.
struct OrderEvent {
    char EventCode;  // 0: none
    bool IsSending;
    char Time[7];
    char DisplayText[13];
    char ParentOrderNo[8];
    char Code[13];
    char Side;
    char BoardFlag;
    char BoardName[6];
    char Quantity[24];
    char Price[16];
    const char* StatusWord;
    char OrderNo[8];
    char UserId[21];
    char ChannelMark;
};

// Blanks, and the text at their head.
void PutText(char* dst, size_t width, const char* text);
void PutStatus(OrderRow& row, const char* word);
std::string StatusOf(const OrderRow& row);
bool BeginsWith(const std::string& text, const char* head);

int64_t ReadQuantity(const char (&field)[15]);
void WriteQuantity(char (&field)[15], int64_t value);
void ClearQuantity(char (&field)[15]);

// A fill's word, by what is filled and what is open behind it.
const char* WordAfterFill(int64_t filled, int64_t open);

class OrderList : public Decoder {
public:
    ~OrderList() override { ClearOrders(); }
    void Stop() override;
    void Release() override;
    void EndUnpack() override;

protected:
    using Rows = std::list<ListedOrder*>;

    explicit OrderList(HWND window);

    void ClearOrders();
    // What the text has left must be these rows.
    bool ReadRows(int count);

    bool IsOurs(const OrderPacket& notice) const;
    // Also remembers the notice for the next one.
    bool IsRepeated(const OrderPacket& notice);

    static OrderEvent MakeEvent(const OrderPacket& notice, int64_t divisor);
    static void BuildRow(OrderRow& row, const OrderEvent& event);

    ListedOrder* FindRow(const char* orderNo) const;
    int IndexOf(const ListedOrder* wanted) const;
    ListedOrder* AddRowAtTop();

    virtual int ApplyEvent(const OrderEvent& event) = 0;
    void DrainPending(const char* orderNo);

    virtual void SendRows(char operation, int index, char action);
    virtual void WriteLog(const char* /*buffer*/, int /*length*/) {}
    char* NewMessage(char operation, int index, char action, int rows) const;
    // As the view is told, without the tag.
    static int MessageLength(int rows);

    // The two lists that begin with an order's acceptance.
    void ApplyNotice(const OrderPacket& notice, OrderEvent& event);
    virtual void ApplyAcceptance(const OrderEvent& /*event*/) {}
    void InsertRow(const OrderEvent& event, bool isConfirmed);
    void ReduceParent(const OrderEvent& event);
    static void ApplyKindRule(ListedOrder& order, const OrderEvent& event);
    static int64_t DivisorOf(const OrderPacket& notice);

    RequestTag m_Tag{};
    Rows m_Rows;
    std::list<OrderEvent*> m_Pending;

private:
    char m_UserId[20];
    char m_LastPacket[sizeof(OrderPacket)];
};

}  // namespace plain

#endif
