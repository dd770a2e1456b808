#include "bench/plain/framework.h"

#include <algorithm>
#include <cstring>

#include "bench/plain/codecs.h"
#include "module/framework/tickmux.h"

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

// ------------------------------------------------------------------ screen

Screen::~Screen() {
    delete[] m_pOutput;
    while (ViewItem* item = m_ViewQueue.RemoveHead()) {
        delete[] item->pData;
        delete item;
    }
}

void Screen::PutPacket(const char* packet, int length) {
    const Slot& slot = m_Slots[*packet - kFirstPacketType];
    if (slot.Length == length - 1 && slot.OnPacket != nullptr) {
        m_bChanged |= (this->*slot.OnPacket)(packet + 1);
    }
}

std::string Screen::GetPacketTypes() const {
    std::string types;
    for (int index = 0; index < kPacketTypes; ++index) {
        if (m_Slots[index].OnPacket != nullptr) {
            types += static_cast<char>(kFirstPacketType + index);
        }
    }
    return types;
}

void Screen::Begin(const char* buffer) {
    m_pInit = buffer;
    m_nInitRemain = static_cast<int>(strlen(buffer));
    ReadBytes(&m_Tag, sizeof(m_Tag));
}

bool Screen::ReadBytes(void* dst, int n) {
    if (m_nInitRemain < n) {
        return false;
    }
    memcpy(dst, m_pInit, static_cast<size_t>(n));
    m_pInit += n;
    m_nInitRemain -= n;
    return true;
}

bool Screen::ReadRepeatBlock(RepeatHead* head, void* rows, int rowSize, int maxCount) {
    memset(rows, ' ', static_cast<size_t>(rowSize) * static_cast<size_t>(maxCount));
    if (!ReadBytes(head, sizeof(*head)) || AsciiToLong(head->Size, sizeof(head->Size)) != rowSize) {
        return false;
    }
    const int count = std::min(AsciiToLong(head->Count, sizeof(head->Count)), maxCount);
    return ReadBytes(rows, std::max(count, 0) * rowSize);
}

void Screen::AllocOutput(int bodyLen) {
    delete[] m_pOutput;
    m_nOutputLen = bodyLen;
    m_pOutput = new char[sizeof(m_Tag) + static_cast<size_t>(bodyLen)];
    memset(m_pOutput, ' ', sizeof(m_Tag) + static_cast<size_t>(bodyLen));
    memcpy(m_pOutput, &m_Tag, sizeof(m_Tag));
}

void Screen::PostToView(char* buffer, int length) {
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

char* Screen::NewRowsBuffer(int headAt, int rows, int rowSize) const {
    const int size = headAt + static_cast<int>(sizeof(RepeatHead)) + rows * rowSize;
    auto* buffer = new char[static_cast<size_t>(size)];
    memset(buffer, ' ', static_cast<size_t>(size));
    memcpy(buffer, &m_Tag, sizeof(m_Tag));
    auto* head = reinterpret_cast<RepeatHead*>(buffer + headAt);
    LongToAscii(rows, head->Count, sizeof(head->Count));
    LongToAscii(rowSize, head->Size, sizeof(head->Size));
    return buffer;
}

// ------------------------------------------------------------------ module

static Screen* NewScreen(HWND window, const std::string& map) {
    return map == "RSITST01_R"   ? NewCRSITST01(window)
           : map == "RSODER01_R" ? NewCRSODER01(window)
           : map == "RSTICK11_R" ? NewCRSTICK11(window)
           : map == "RSTRDE01_R" ? NewCRSTRDE01(window)
                                 : nullptr;
}

Module::Handle Module::RegistMap(HWND window, const char* mapName) {
    Screen* screen = NewScreen(window, mapName);
    if (screen != nullptr) {
        m_Screens.push_back(screen);
        for (const char type : screen->GetPacketTypes()) {
            m_TypeLists[type - kFirstPacketType].push_back(screen);
        }
    }
    return reinterpret_cast<Handle>(screen);
}

void Module::UnregistMap(Handle handle) {
    auto* screen = reinterpret_cast<Screen*>(handle);
    m_Screens.remove(screen);
    for (const char type : screen->GetPacketTypes()) {
        m_TypeLists[type - kFirstPacketType].remove(screen);
    }
    delete screen;
}

int Module::InitMap(Handle handle, const char* buffer) {
    auto* screen = reinterpret_cast<Screen*>(handle);
    screen->m_bActive = screen->Init(buffer);
    return screen->m_bActive;
}

void Module::PutRTMPacketToDecoder(const char* packet, int length) {
    const int index = *packet - kFirstPacketType;
    if (index < 0 || index >= kPacketTypes) {
        return;
    }
    for (Screen* screen : m_TypeLists[index]) {
        if (screen->m_bActive != 0) {
            screen->PutPacket(packet, length);
        }
    }
}

void Module::EndRTMUnpackToDecoder() {
    for (Screen* screen : m_Screens) {
        if (screen->m_bChanged != 0) {
            screen->EndUnpack();
            screen->m_bChanged = 0;
        }
    }
}

}  // namespace plain
