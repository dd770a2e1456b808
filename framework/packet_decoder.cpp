#include "framework/packet_decoder.h"

#include <utility>

#include "framework/tickmux.h"

namespace {

void FreeItem(ViewItem* item) {
    delete[] item->pData;
    delete item;
}

}  // namespace

CRTMPacketDecoder::~CRTMPacketDecoder() {
    ClearViewQueue();
}

int CRTMPacketDecoder::Init(const char* /*buffer*/) {
    m_bStopped = 0;
    return 1;
}

void CRTMPacketDecoder::Stop() {
    m_bActive = 0;
    m_bChanged = 0;
    m_bStopped = 1;
}

void CRTMPacketDecoder::Release() {
    m_bActive = 0;
    m_bChanged = 0;
}

void CRTMPacketDecoder::EndUnpack() {
    if (m_bChanged != 0 && m_bStopped == 0) {
        // Cleared first, so that a change made from within the window's message is sent too.
        m_bChanged = 0;
        PostOutput();
    }
}

void CRTMPacketDecoder::ClearViewQueue() {
    // One by one, since the window's thread may be taking items at the same time.
    while (auto* item = static_cast<ViewItem*>(m_ViewQueue.RemoveHead())) {
        FreeItem(item);
    }
}

void CRTMPacketDecoder::PostToView(ViewBuffer buffer) {
    if (!buffer || !HasWindow()) {
        return;
    }
    auto* item = new (std::nothrow) ViewItem;
    if (item == nullptr) {
        return;
    }
    item->nLen = buffer.BodyLength();
    item->pData = buffer.GiveAway();
    if (m_ViewQueue.AddTail(item) == nullptr) {
        FreeItem(item);
        return;
    }
    SendNotifyMessageA(m_hWnd, WM_TICKMUX_VIEW, reinterpret_cast<WPARAM>(&m_ViewQueue), 0);
}

void CRTMPacketDecoder::PostOutput() {
    if (m_Output && HasWindow()) {
        PostToView(m_Output.Copy());
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
