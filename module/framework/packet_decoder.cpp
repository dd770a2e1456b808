#include "module/framework/packet_decoder.h"

#include <memory>
#include <utility>

#include "module/framework/tickmux.h"

namespace {

void FreeItem(void* item) {
    const std::unique_ptr<ViewItem> owned(static_cast<ViewItem*>(item));
    delete[] owned->pData;
}

}  // namespace

CRTMPacketDecoder::~CRTMPacketDecoder() {
    ClearViewQueue();
}

int CRTMPacketDecoder::Init(const char* buffer) {
    m_bStopped = 0;
    InitReader in(buffer);
    return OnInit(in);
}

void CRTMPacketDecoder::SetActive(int active) {
    m_bActive = active;
    LeaveChain();
    if (active != 0) {
        EnterChain();
    }
}

// A decoder is in the chain of its key as long as it is active.
void CRTMPacketDecoder::EnterChain() {
    if (m_bHasKey && m_pLists != nullptr) {
        m_pLists->Following.Enter(*this, m_nKeyHead);
        m_bInChain = true;
    }
}

void CRTMPacketDecoder::LeaveChain() {
    if (m_bInChain) {
        m_pLists->Following.Leave(*this);
        m_bInChain = false;
    }
}

void CRTMPacketDecoder::FollowHead(uint64_t head) {
    m_nKeyHead = head;
    if (m_bInChain) {
        LeaveChain();
        EnterChain();
    }
}

void CRTMPacketDecoder::Stop() {
    SetActive(0);
    m_bChanged = 0;
    m_bStopped = 1;
    OnStop();
}

void CRTMPacketDecoder::Release() {
    SetActive(0);
    m_bChanged = 0;
    OnRelease();
}

int CRTMPacketDecoder::PutPacket(const char* packet, int length) {
    return IsPacketType(*packet) ? TakePacket(TypeIndex(*packet), packet, length) : 0;
}

void CRTMPacketDecoder::EndUnpack() {
    if (m_bChanged == 0 || m_bStopped != 0) {
        return;
    }
    m_bChanged = 0;
    OnEndUnpack();
}

void CRTMPacketDecoder::ClearViewQueue() {
    TakeAllItems(m_ViewQueue, &FreeItem);
    m_nUntold = 0;
}

void CRTMPacketDecoder::PostToView(ViewBuffer buffer) {
    if (HasWindow()) {
        Enqueue(std::move(buffer));
    }
}

void CRTMPacketDecoder::Enqueue(ViewBuffer buffer) {
    if (!buffer) {
        return;
    }
    auto* item = new (std::nothrow) ViewItem;
    if (item == nullptr) {
        return;
    }
    item->nLen = buffer.BodyLength();
    item->pData = buffer.GiveAway();
    try {
        m_ViewQueue.AddTail(item);
    } catch (...) {  // no memory: the buffer is lost
        FreeItem(item);
        return;
    }
    ++m_nUntold;
    TellWindow();
}

// Counted off before each message: the window may call back and bring more.
void CRTMPacketDecoder::TellWindow() {
    while (m_nUntold > 0) {
        --m_nUntold;
        if (SendNotifyMessageA(m_hWnd, WM_TICKMUX_VIEW, reinterpret_cast<WPARAM>(&m_ViewQueue), 0) == FALSE) {
            ++m_nUntold;
            AwaitBatchEnd();
            return;
        }
    }
}

void CRTMPacketDecoder::PostOutput() {
    if (m_Output && HasWindow()) {
        Enqueue(m_Output.Copy());
    }
}

void CRTMPacketDecoder::NotifyListChanged() {
    if (HasWindow()) {
        SendNotifyMessageA(m_hWnd, WM_TICKMUX_LIST, 0, 0);
    }
}

void CRTMPacketDecoder::PostListChanged() {
    if (HasWindow()) {
        PostMessageA(m_hWnd, WM_TICKMUX_LIST, 0, 0);
    }
}
