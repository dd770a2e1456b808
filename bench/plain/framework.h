// The way of a packet as one writes it first: screens with a table of member functions, a linked list of them
// for each packet type, and queues of buffers that windows are told of. Screens are opened, fed and closed;
// they ask nobody for packets.
#ifndef TICKMUX_BENCH_PLAIN_FRAMEWORK_H
#define TICKMUX_BENCH_PLAIN_FRAMEWORK_H

#include <cstdint>
#include <list>
#include <mutex>
#include <string>

#include "host/platform/platform.h"
#include "module/wire/packets.h"
#include "module/wire/shapes.h"

namespace plain {

struct ViewItem {
    char* pData;  // request tag, then the body
    int nLen;     // of the body
};

// What waits for the window.
class ViewQueue {
public:
    void AddTail(ViewItem* item);
    ViewItem* RemoveHead();  // null: empty

private:
    std::mutex m_Lock;
    std::list<ViewItem*> m_Items;
};

// For the window: one item off the queue of a message. False: it is empty. The data is freed with delete[].
bool TakeViewItem(void* queue, char** data, int* length);

class Screen {
public:
    explicit Screen(HWND window) : m_hWnd(window) {}
    virtual ~Screen();
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;

    virtual int Init(const char* buffer) = 0;
    void PutPacket(const char* packet, int length);
    virtual void EndUnpack() = 0;  // of a batch with changes

    std::string GetPacketTypes() const;

    int m_bActive = 0;
    int m_bChanged = 0;

protected:
    using Handler = int (Screen::*)(const char* payload);

    template <class Derived>
    void SetSlot(char type, int length, int (Derived::*handler)(const char* payload)) {
        m_Slots[type - kFirstPacketType] = {length, static_cast<Handler>(handler)};
    }

    // Takes the request tag; what follows is read on from there.
    void Begin(const char* buffer);
    bool ReadBytes(void* dst, int n);
    // The head, and the first `maxCount` rows behind it; a row that does not come has spaces.
    bool ReadRepeatBlock(RepeatHead* head, void* rows, int rowSize, int maxCount);

    void AllocOutput(int bodyLen);

    // The buffer, with its tag, becomes the queue's; `length` is that of the body. A null buffer sends a copy
    // of the output.
    void PostToView(char* buffer, int length);
    // A view buffer of spaces with the tag and, at `headAt`, a repeat head with room for the rows behind it.
    char* NewRowsBuffer(int headAt, int rows, int rowSize) const;

    RequestTag m_Tag{};
    const char* m_pInit = nullptr;  // what the Init text has not yet given
    int m_nInitRemain = 0;
    char* m_pOutput = nullptr;  // request tag, then the body
    int m_nOutputLen = 0;

private:
    struct Slot {
        int Length;
        Handler OnPacket;
    };

    HWND m_hWnd;
    Slot m_Slots[kPacketTypes] = {};
    ViewQueue m_ViewQueue;
};

Screen* NewCRSITST01(HWND window);
Screen* NewCRSODER01(HWND window);
Screen* NewCRSTICK11(HWND window);
Screen* NewCRSTRDE01(HWND window);

class Module {
public:
    using Handle = uintptr_t;

    Handle RegistMap(HWND window, const char* mapName);
    void UnregistMap(Handle handle);
    int InitMap(Handle handle, const char* buffer);
    void PutRTMPacketToDecoder(const char* packet, int length);
    void EndRTMUnpackToDecoder();

private:
    std::list<Screen*> m_Screens;
    std::list<Screen*> m_TypeLists[kPacketTypes];
};

}  // namespace plain

#endif
