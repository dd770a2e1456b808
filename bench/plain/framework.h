// The framework of the module in its plain form: a decoder base with a table of member functions, and a
// manager with a linked list of decoders for each packet type. What a host sees is the module's own.
#ifndef TICKMUX_BENCH_PLAIN_FRAMEWORK_H
#define TICKMUX_BENCH_PLAIN_FRAMEWORK_H

#include <cstdint>
#include <list>
#include <mutex>
#include <string>

#include "framework/packets.h"
#include "framework/shapes.h"
#include "host/platform.h"

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

void AddTrStcd(const char* code, int codeLen, char chClass, uint32_t flags);
void DelTrStcd(const char* code, int codeLen, char chClass, uint32_t flags);

class Decoder {
public:
    explicit Decoder(HWND window);
    virtual ~Decoder();
    Decoder(const Decoder&) = delete;
    Decoder& operator=(const Decoder&) = delete;

    virtual int Init(const char* buffer);
    virtual void Stop();
    virtual void Release();
    virtual int PutPacket(const char* packet, int length);
    virtual void EndUnpack();

    std::string GetPacketTypes() const;
    void ClearViewQueue();

    int m_bActive = 0;

protected:
    using Handler = int (Decoder::*)(const char* payload);

    template <class Derived>
    void SetSlot(char type, int length, int (Derived::*handler)(const char* payload)) {
        m_Slots[type - kFirstPacketType] = {length, static_cast<Handler>(handler)};
    }

    // The head of an Init text; zero bytes where it is shorter.
    static RequestTag TagOf(const char* buffer);
    // Both read on from where the base Init has begun: behind the tag.
    bool ReadBytes(void* dst, int n);
    // The head, and the first `maxCount` rows behind it; a row that does not come, or not whole, has spaces.
    bool ReadRepeatBlock(RepeatHead* head, void* rows, int rowSize, int maxCount);

    void AllocOutput(const RequestTag& tag, int bodyLen);

    // The buffer, with its tag, becomes the queue's; `length` is that of the body. A null buffer sends a copy
    // of the output.
    void PostToView(char* buffer, int length);
    void SendListChanged();
    void PostListChanged();

    int m_bStopped = 1;
    int m_bChanged = 0;
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

// A view buffer of spaces with the tag at its head and, at `headAt`, a repeat head with room for the rows
// behind it.
char* NewRowsBuffer(const RequestTag& tag, int headAt, int rows, int rowSize);

class Module {
public:
    using Handle = uintptr_t;

    Module() = default;
    ~Module();
    Module(const Module&) = delete;
    Module& operator=(const Module&) = delete;

    void SetMutexNameToDecoder(const char* name) { m_MutexName = name; }

    Handle RegistMap(HWND window, const char* mapName);
    int UnregistMap(Handle handle);
    int InitMap(Handle handle, const char* buffer);
    int StopMap(Handle handle);
    int ReleaseMap(Handle handle);
    int PutRTMPacketToDecoder(const char* packet, int length);
    void EndRTMUnpackToDecoder();

private:
    std::string m_MutexName;
    std::list<Decoder*> m_Maps;
    std::list<Decoder*> m_TypeLists[kPacketTypes];
};

}  // namespace plain

#endif
