#include "bench/plain/framework.h"

#include <algorithm>
#include <cstring>

#include "bench/plain/codecs.h"
#include "bench/plain/factories.h"
#include "framework/guard.h"
#include "framework/subscription_record.h"
#include "framework/tickmux.h"
#include "host/services.h"

namespace plain {

// ------------------------------------------------------------------ view queue

void ViewQueue::AddTail(ViewItem* item) {
    const std::lock_guard<std::mutex> lock(m_Lock);
    m_Items.push_back(item);
}

ViewItem* ViewQueue::RemoveHead() {
    const std::lock_guard<std::mutex> lock(m_Lock);
    if (m_Items.empty()) {
        return nullptr;
    }
    ViewItem* item = m_Items.front();
    m_Items.pop_front();
    return item;
}

bool TakeViewItem(void* queue, char** data, int* length) {
    ViewItem* item = static_cast<ViewQueue*>(queue)->RemoveHead();
    if (item == nullptr) {
        return false;
    }
    *data = item->pData;
    *length = item->nLen;
    delete item;
    return true;
}

// ------------------------------------------------------------------ subscriptions

static void SendCode(int operation, const char* code, int codeLen, char chClass, uint32_t flags) {
    static const bool enabled = strncmp(CQelData21::GetUserGrade(), "999", 3) != 0;
    tagRTMTRSTCDINFO record;
    memset(record.szCode, ' ', sizeof(record.szCode));
    if (memcmp(code, record.szCode, static_cast<size_t>(codeLen)) == 0) {
        return;
    }
    record.nOperation = operation;
    record.chClass = chClass;
    memcpy(record.szCode, code, static_cast<size_t>(codeLen));
    record.nCodeLen = codeLen;
    record.dwFlags = flags;
    HWND manager = CQelData21::GetComMgrHwnd(-1);
    if (enabled && manager != nullptr) {
        COPYDATASTRUCT data = {TICKMUX_COPYDATA_SUBSCRIPTION, sizeof(record), &record};
        SendMessageA(manager, WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&data));
    }
}

void AddTrStcd(const char* code, int codeLen, char chClass, uint32_t flags) {
    SendCode(kAddCode, code, codeLen, chClass, flags);
}

void DelTrStcd(const char* code, int codeLen, char chClass, uint32_t flags) {
    SendCode(kDeleteCode, code, codeLen, chClass, flags);
}

// ------------------------------------------------------------------ decoder

Decoder::Decoder(HWND window) : m_hWnd(window) {}

Decoder::~Decoder() {
    delete[] m_pOutput;
    ClearViewQueue();
}

int Decoder::Init(const char* buffer) {
    m_pInit = buffer + sizeof(RequestTag);
    m_nInitRemain = static_cast<int>(strlen(buffer)) - static_cast<int>(sizeof(RequestTag));
    m_bStopped = 0;
    return 1;
}

void Decoder::Stop() {
    m_bActive = 0;
    m_bChanged = 0;
    m_bStopped = 1;
}

void Decoder::Release() {
    m_bActive = 0;
    m_bChanged = 0;
}

int Decoder::PutPacket(const char* packet, int length) {
    const int index = *packet - kFirstPacketType;
    if (index < 0 || index >= kPacketTypes || m_Slots[index].Length != length - 1) {
        return 0;
    }
    if (m_Slots[index].OnPacket != nullptr && m_bStopped == 0) {
        m_bChanged |= (this->*m_Slots[index].OnPacket)(packet + 1);
    }
    return 1;
}

void Decoder::EndUnpack() {
    if (m_bChanged != 0 && m_bStopped == 0) {
        PostToView(nullptr, 0);
        m_bChanged = 0;
    }
}

std::string Decoder::GetPacketTypes() const {
    std::string types;
    for (int index = 0; index < kPacketTypes; ++index) {
        if (m_Slots[index].OnPacket != nullptr) {
            types += static_cast<char>(kFirstPacketType + index);
        }
    }
    return types;
}

void Decoder::ClearViewQueue() {
    while (ViewItem* item = m_ViewQueue.RemoveHead()) {
        delete[] item->pData;
        delete item;
    }
}

RequestTag Decoder::TagOf(const char* buffer) {
    RequestTag tag = {};
    memcpy(&tag, buffer, std::min(strlen(buffer), sizeof(tag)));
    return tag;
}

bool Decoder::ReadBytes(void* dst, int n) {
    if (m_nInitRemain < n) {
        return false;
    }
    memcpy(dst, m_pInit, static_cast<size_t>(n));
    m_pInit += n;
    m_nInitRemain -= n;
    return true;
}

bool Decoder::ReadRepeatBlock(RepeatHead* head, void* rows, int rowSize, int maxCount) {
    memset(rows, ' ', static_cast<size_t>(rowSize) * static_cast<size_t>(maxCount));
    if (!ReadBytes(head, sizeof(*head))) {
        return false;
    }
    const int count = std::min(AsciiToLong(head->Count, sizeof(head->Count)), maxCount);
    const int size = AsciiToLong(head->Size, sizeof(head->Size));
    for (int i = 0; i < count; ++i) {
        if (size < 0 || m_nInitRemain < size) {
            m_nInitRemain = 0;
            return false;
        }
        memcpy(static_cast<char*>(rows) + static_cast<ptrdiff_t>(i) * rowSize, m_pInit,
               static_cast<size_t>(std::min(size, rowSize)));
        m_pInit += size;
        m_nInitRemain -= size;
    }
    return true;
}

void Decoder::AllocOutput(const RequestTag& tag, int bodyLen) {
    delete[] m_pOutput;
    m_nOutputLen = bodyLen;
    m_pOutput = new char[sizeof(tag) + static_cast<size_t>(bodyLen)];
    memset(m_pOutput, ' ', sizeof(tag) + static_cast<size_t>(bodyLen));
    memcpy(m_pOutput, &tag, sizeof(tag));
}

void Decoder::PostToView(char* buffer, int length) {
    if (IsWindow(m_hWnd) == FALSE) {
        delete[] buffer;
        return;
    }
    auto* item = new ViewItem;
    if (buffer != nullptr) {
        item->pData = buffer;
        item->nLen = length;
    } else {
        const size_t size = sizeof(RequestTag) + static_cast<size_t>(m_nOutputLen);
        item->pData = new char[size];
        memcpy(item->pData, m_pOutput, size);
        item->nLen = m_nOutputLen;
    }
    m_ViewQueue.AddTail(item);
    SendNotifyMessageA(m_hWnd, WM_TICKMUX_VIEW, reinterpret_cast<WPARAM>(&m_ViewQueue), 0);
}

void Decoder::SendListChanged() {
    if (IsWindow(m_hWnd) != FALSE) {
        SendNotifyMessageA(m_hWnd, WM_TICKMUX_LIST, 0, 0);
    }
}

void Decoder::PostListChanged() {
    if (IsWindow(m_hWnd) != FALSE) {
        PostMessageA(m_hWnd, WM_TICKMUX_LIST, 0, 0);
    }
}

char* NewRowsBuffer(const RequestTag& tag, int headAt, int rows, int rowSize) {
    const int size = headAt + static_cast<int>(sizeof(RepeatHead)) + rows * rowSize;
    auto* buffer = new char[static_cast<size_t>(size)];
    memset(buffer, ' ', static_cast<size_t>(size));
    memcpy(buffer, &tag, sizeof(tag));
    auto* head = reinterpret_cast<RepeatHead*>(buffer + headAt);
    LongToAscii(rows, head->Count, sizeof(head->Count));
    LongToAscii(rowSize, head->Size, sizeof(head->Size));
    return buffer;
}

// ------------------------------------------------------------------ module

static Decoder* DecoderOf(Module::Handle handle) {
    return reinterpret_cast<Decoder*>(handle);
}

Module::~Module() {
    while (!m_Maps.empty()) {
        UnregistMap(reinterpret_cast<Handle>(m_Maps.front()));
    }
}

Module::Handle Module::RegistMap(HWND window, const char* mapName) {
    Decoder* decoder = CreateDecoder(window, mapName);
    if (decoder == nullptr) {
        return 0;
    }
    for (const char type : decoder->GetPacketTypes()) {
        m_TypeLists[type - kFirstPacketType].push_back(decoder);
    }
    const MutexGuard guard(m_MutexName.c_str());
    m_Maps.push_back(decoder);
    return reinterpret_cast<Handle>(decoder);
}

int Module::UnregistMap(Handle handle) {
    if (handle == 0) {
        return -1;
    }
    const MutexGuard guard(m_MutexName.c_str());
    Decoder* decoder = DecoderOf(handle);
    for (const char type : decoder->GetPacketTypes()) {
        m_TypeLists[type - kFirstPacketType].remove(decoder);
    }
    m_Maps.remove(decoder);
    delete decoder;
    return 1;
}

int Module::InitMap(Handle handle, const char* buffer) {
    const MutexGuard guard(m_MutexName.c_str());
    Decoder* decoder = DecoderOf(handle);
    decoder->ClearViewQueue();
    decoder->m_bActive = decoder->Init(buffer);
    return decoder->m_bActive;
}

int Module::StopMap(Handle handle) {
    if (handle == 0) {
        return 0;
    }
    const MutexGuard guard(m_MutexName.c_str());
    DecoderOf(handle)->ClearViewQueue();
    DecoderOf(handle)->Stop();
    return 1;
}

int Module::ReleaseMap(Handle handle) {
    if (handle == 0) {
        return 0;
    }
    const MutexGuard guard(m_MutexName.c_str());
    DecoderOf(handle)->ClearViewQueue();
    DecoderOf(handle)->Release();
    return 1;
}

int Module::PutRTMPacketToDecoder(const char* packet, int length) {
    const int index = *packet - kFirstPacketType;
    if (index >= 0 && index < kPacketTypes) {
        for (Decoder* decoder : m_TypeLists[index]) {
            if (decoder->m_bActive != 0) {
                decoder->PutPacket(packet, length);
            }
        }
    }
    return 1;
}

void Module::EndRTMUnpackToDecoder() {
    for (Decoder* decoder : m_Maps) {
        decoder->EndUnpack();
    }
}

}  // namespace plain
