#include "framework/map_manager.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <memory>
#include <new>
#include <utility>

#include "framework/guard.h"
#include "framework/packet_decoder.h"
#include "host/services.h"

namespace {

constexpr char kGradeWithoutSubscriptions[] = "999";

tagMAPINFO* MapOf(tickmux_handle handle) {
    return reinterpret_cast<tagMAPINFO*>(handle);
}

template <std::size_t Room>
void CopyName(char (&dst)[Room], const char* src) {
    const std::size_t length = std::min(std::strlen(src), Room - 1);
    std::memcpy(dst, src, length);
    dst[length] = '\0';
}

int TypeIndex(char type) {
    return type - kFirstPacketType;
}

const DecoderFactoryEntry* FindFactory(const char* mapName) {
    for (const DecoderFactoryEntry* entry = g_DecoderFactories; entry->pMapName != nullptr; ++entry) {
        if (std::strcmp(entry->pMapName, mapName) == 0) {
            return entry;
        }
    }
    return nullptr;
}

}  // namespace

CRTMMapManager::CRTMMapManager() {
    // The manager's own address names the type guard.
    constexpr int kHex = 16;
    std::to_chars(m_szTypeMutexName, m_szTypeMutexName + kMutexNameRoom - 1,
                  reinterpret_cast<uintptr_t>(this), kHex);
    // The grade is read this once; it holds as long as the module is loaded.
    const std::size_t mark = sizeof(kGradeWithoutSubscriptions) - 1;
    m_bQueryEnabled = std::strncmp(CQelData21::GetUserGrade(), kGradeWithoutSubscriptions, mark) != 0;
}

CRTMMapManager::~CRTMMapManager() {
    ClearMap();
}

void CRTMMapManager::SetMutexName(const char* name) {
    CopyName(m_szMutexName, name == nullptr ? "" : name);
}

// ------------------------------------------------------------------ life of a map

tickmux_handle CRTMMapManager::RegistMapDecoder(HWND hWnd, const char* mapName) {
    const DecoderFactoryEntry* factory = mapName == nullptr ? nullptr : FindFactory(mapName);
    if (factory == nullptr) {
        return 0;
    }
    std::unique_ptr<CRTMPacketDecoder> decoder(factory->pCreate(hWnd));
    if (decoder == nullptr) {
        return 0;
    }
    std::unique_ptr<tagMAPINFO> map(new (std::nothrow) tagMAPINFO{std::move(decoder)});
    if (map == nullptr || RegistPacketType(map.get(), map->pDecoder->GetPacketTypes()) == 0) {
        return 0;
    }
    const MutexGuard guard(m_szMutexName);
    tagMAPINFO** place = m_MapList.Append();
    if (place == nullptr) {
        RemoveFromTypeLists(map->pDecoder.get());
        return 0;
    }
    *place = map.release();
    return reinterpret_cast<tickmux_handle>(*place);
}

int CRTMMapManager::RegistPacketType(tagMAPINFO* map, const char* types) {
    const MutexGuard guard(m_szTypeMutexName);
    for (const char* type = types; *type != '\0'; ++type) {
        CRTMPacketDecoder** place = m_TypeList[TypeIndex(*type)].Append();
        if (place == nullptr) {
            RemoveFromTypeLists(map->pDecoder.get());
            return 0;
        }
        *place = map->pDecoder.get();
    }
    return 1;
}

int CRTMMapManager::UnregistMapDecoder(tickmux_handle handle) {
    if (handle == 0) {
        return -1;
    }
    tagMAPINFO* map = MapOf(handle);
    {
        // Out of the type lists before it is destroyed: a decoder withdraws its subscriptions then, and the
        // communication manager that hears of it may feed packets.
        const MutexGuard guard(m_szTypeMutexName);
        RemoveFromTypeLists(map->pDecoder.get());
    }
    const MutexGuard guard(m_szMutexName);
    RemoveFromMapList(map);
    delete map;
    return 1;
}

int CRTMMapManager::InitMapDecoder(tickmux_handle handle, const char* buffer) {
    CRTMPacketDecoder* decoder = GetPacketDecoder(handle);
    const MutexGuard guard(m_szMutexName);
    decoder->ClearViewQueue();
    try {
        decoder->SetActive(decoder->Init(buffer == nullptr ? "" : buffer));
    } catch (...) {  // no memory for one of the services: an Init that failed
        decoder->SetActive(0);
    }
    return decoder->IsActive();
}

int CRTMMapManager::StopMapDecoder(tickmux_handle handle) {
    if (handle == 0) {
        return 0;
    }
    const MutexGuard guard(m_szMutexName);
    CRTMPacketDecoder* decoder = MapOf(handle)->pDecoder.get();
    decoder->ClearViewQueue();
    decoder->Stop();
    return 1;
}

int CRTMMapManager::ReleaseMapDecoder(tickmux_handle handle) {
    if (handle == 0) {
        return 0;
    }
    const MutexGuard guard(m_szMutexName);
    CRTMPacketDecoder* decoder = MapOf(handle)->pDecoder.get();
    decoder->ClearViewQueue();
    decoder->Release();
    return 1;
}

CRTMPacketDecoder* CRTMMapManager::GetPacketDecoder(tickmux_handle handle) {
    if (handle == 0) {
        AfxThrowInvalidArgException();
    }
    return MapOf(handle)->pDecoder.get();
}

void CRTMMapManager::ClearMap() {
    {
        const MutexGuard guard(m_szTypeMutexName);
        for (PlainArray<CRTMPacketDecoder*>& list : m_TypeList) {
            list.Clear();
        }
    }
    const MutexGuard guard(m_szMutexName);
    while (!m_MapList.Empty()) {
        tagMAPINFO* map = m_MapList[0];
        RemoveFromMapList(map);
        delete map;
    }
}

// A window may close screens from within a batch end, which then goes on with the one that follows.
void CRTMMapManager::RemoveFromMapList(tagMAPINFO* map) {
    tagMAPINFO** const first = m_MapList.Data();
    const auto place = static_cast<std::size_t>(std::find(first, first + m_MapList.Size(), map) - first);
    m_MapList.Remove(map);
    for (BatchEnd* end = m_pBatchEnd; end != nullptr; end = end->pOuter) {
        end->nNext -= place < end->nNext ? 1 : 0;
    }
}

void CRTMMapManager::RemoveFromTypeLists(CRTMPacketDecoder* decoder) {
    for (const char* type = decoder->GetPacketTypes(); *type != '\0'; ++type) {
        m_TypeList[TypeIndex(*type)].Remove(decoder);
    }
}

// ------------------------------------------------------------------ the packet path

int CRTMMapManager::PutRTMPacket(const char* packet, int length) {
    // The shortest payload is longer than a key's head: what is shorter fits no slot.
    constexpr auto kShortest = static_cast<int>(1 + KeyFilter::kHeadSize);
    if (packet == nullptr || length < kShortest || *packet < kFirstPacketType || *packet > kLastPacketType) {
        return 1;
    }
    uint64_t head = 0;
    std::memcpy(&head, packet + 1, sizeof(head));
    // By index, since a window that is told of a row may open a screen, which makes the list longer. Whether
    // somebody comes next is asked before the call: the last one stays the last for this packet.
    const PlainArray<CRTMPacketDecoder*>& list = m_TypeList[TypeIndex(*packet)];
    bool more = !list.Empty();
    for (std::size_t i = 0; more && i < list.Size(); ++i) {
        more = i + 1 < list.Size();
        CRTMPacketDecoder* decoder = list[i];
        if (decoder->Awaits(head)) {
            decoder->PutPacket(packet, length);
        }
    }
    return 1;
}

void CRTMMapManager::EndRTMUnpack() {
    BatchEnd end{0, m_pBatchEnd};
    m_pBatchEnd = &end;
    for (std::size_t next = 0; next < m_MapList.Size();) {
        CRTMPacketDecoder* decoder = m_MapList[next++]->pDecoder.get();
        if (decoder->HasChanged()) {
            end.nNext = next;
            decoder->EndUnpack();
            next = end.nNext;
        }
    }
    m_pBatchEnd = end.pOuter;
}

// ------------------------------------------------------------------ subscription requests

int CRTMMapManager::AddTrStcdInfo(const char* code, int codeLen, char chClass, uint32_t flags) {
    return SendCode(kAddCode, code, codeLen, chClass, flags);
}

int CRTMMapManager::DelTrStcdInfo(const char* code, int codeLen, char chClass, uint32_t flags) {
    return SendCode(kDeleteCode, code, codeLen, chClass, flags);
}

int CRTMMapManager::SendCode(int32_t operation, const char* code, int codeLen, char chClass, uint32_t flags) {
    tagRTMTRSTCDINFO record;
    FillBlank(record.szCode);
    const int length = std::clamp(codeLen, 0, static_cast<int>(sizeof(record.szCode)));
    std::memcpy(record.szCode, code, static_cast<std::size_t>(length));
    if (IsBlank(record.szCode)) {
        return 0;
    }
    record.nOperation = operation;
    record.chClass = chClass;
    record.nCodeLen = length;
    record.dwFlags = flags;
    return SendQuery(&record);
}

int CRTMMapManager::SendCancelInfo() {
    tagRTMTRSTCDINFO record{};
    CancelRecord cancel{};
    cancel.nOperation = kCancelAll;
    std::memcpy(cancel.HashUserID, CQelData21::GetHashUserID(), sizeof(cancel.HashUserID));
    std::memcpy(&record, &cancel, sizeof(record));
    return SendQuery(&record);
}

int CRTMMapManager::StopMapComplete() {
    return SendCancelInfo();
}

int CRTMMapManager::SendQuery(const tagRTMTRSTCDINFO* record) {
    if (!m_bQueryEnabled) {
        return 0;
    }
    HWND manager = CQelData21::GetComMgrHwnd(-1);
    if (manager == nullptr) {
        return 0;
    }
    tagRTMTRSTCDINFO sent = *record;
    COPYDATASTRUCT data{TICKMUX_COPYDATA_SUBSCRIPTION, sizeof(sent), &sent};
    SendMessageA(manager, WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&data));
    return 1;
}

int AddTrStcd(const char* code, int codeLen, char chClass, uint32_t flags) {
    return g_RTMMapManager.AddTrStcdInfo(code, codeLen, chClass, flags);
}

int DelTrStcd(const char* code, int codeLen, char chClass, uint32_t flags) {
    return g_RTMMapManager.DelTrStcdInfo(code, codeLen, chClass, flags);
}
