#include "module/framework/map_manager.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <memory>
#include <new>
#include <utility>

#include "host/services/services.h"
#include "module/framework/guard.h"
#include "module/framework/packet_decoder.h"

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

bool IsPacketType(char type) {
    return type >= kFirstPacketType && type <= kLastPacketType;
}

std::size_t TypeIndex(char type) {
    return static_cast<std::size_t>(type - kFirstPacketType);
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

// NOLINTNEXTLINE(readability-non-const-parameter): the exported name has it so
void CRTMMapManager::SetMutexName(char* name) {
    CopyName(m_szMutexName, name == nullptr ? "" : name);
}

// ------------------------------------------------------------------ life of a map

tickmux_handle CRTMMapManager::RegistMapDecoder(HWND hWnd, const char* mapName) {
    const DecoderFactoryEntry* factory = mapName == nullptr ? nullptr : FindFactory(mapName);
    if (factory == nullptr || m_bClearing) {
        return 0;
    }
    std::unique_ptr<CRTMPacketDecoder> decoder(factory->pCreate(hWnd));
    if (decoder == nullptr) {
        return 0;
    }
    std::unique_ptr<tagMAPINFO> map(new (std::nothrow) tagMAPINFO{std::move(decoder), {}});
    if (map == nullptr) {
        return 0;
    }
    if (EnterTypeLists(*map, map->pDecoder->GetPacketTypes())) {
        const MutexGuard guard(m_szMutexName);
        if (tagMAPINFO** place = m_MapList.Append()) {
            *place = map.release();
            return reinterpret_cast<tickmux_handle>(*place);
        }
    }
    LeaveTypeLists(*map);
    return 0;
}

void CRTMMapManager::RegistPacketType(tagMAPINFO* map, char* types) {
    if (map->pDecoder != nullptr) {
        EnterTypeLists(*map, types);
    }
}

// False if memory fails; the lists entered so far are noted with the map all the same.
bool CRTMMapManager::EnterTypeLists(tagMAPINFO& map, const char* types) {
    const MutexGuard guard(m_szTypeMutexName);
    for (const char* type = types; *type != '\0'; ++type) {
        if (!IsPacketType(*type) || map.posType[TypeIndex(*type)]) {
            continue;
        }
        CRTMPacketDecoder** place = m_TypeList[TypeIndex(*type)].Append();
        if (place == nullptr) {
            return false;
        }
        *place = map.pDecoder.get();
        map.posType.set(TypeIndex(*type));
    }
    return true;
}

void CRTMMapManager::LeaveTypeLists(tagMAPINFO& map) {
    const MutexGuard guard(m_szTypeMutexName);
    for (std::size_t index = 0; index < map.posType.size(); ++index) {
        if (map.posType[index]) {
            m_TypeList[index].Remove(map.pDecoder.get());
        }
    }
}

int CRTMMapManager::UnregistMapDecoder(tickmux_handle handle) {
    if (handle == 0) {
        return -1;
    }
    const std::unique_ptr<tagMAPINFO> map(MapOf(handle));
    // Out of the type lists before it is destroyed: a decoder withdraws its subscriptions then, and the
    // communication manager that hears of it may feed packets.
    LeaveTypeLists(*map);
    const MutexGuard guard(m_szMutexName);
    Destroy(map.get());
    return 1;
}

// The decoder is off its record before it gives up what it has asked for: who calls back then finds a map
// that goes.
void CRTMMapManager::Destroy(tagMAPINFO* map) {
    RemoveFromMapList(map);
    const std::unique_ptr<CRTMPacketDecoder> decoder = std::move(map->pDecoder);
    decoder->Release();
}

// NOLINTNEXTLINE(readability-non-const-parameter): the exported name has it so
int CRTMMapManager::InitMapDecoder(tickmux_handle handle, char* buffer) {
    if (handle == 0) {
        AfxThrowInvalidArgException();
    }
    const MutexGuard guard(m_szMutexName);
    CRTMPacketDecoder* decoder = MapOf(handle)->pDecoder.get();
    if (decoder == nullptr || m_bClearing) {
        return 0;  // who hears of a map that goes must not have it ask for anything anew
    }
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
    if (decoder == nullptr) {
        return 0;
    }
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
    if (decoder == nullptr) {
        return 0;
    }
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
    m_bClearing = true;
    {
        const MutexGuard guard(m_szTypeMutexName);
        for (PlainArray<CRTMPacketDecoder*>& list : m_TypeList) {
            list.Clear();
        }
    }
    const MutexGuard guard(m_szMutexName);
    while (!m_MapList.Empty()) {
        const std::unique_ptr<tagMAPINFO> map(m_MapList[0]);
        Destroy(map.get());
    }
    m_bClearing = false;
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

// ------------------------------------------------------------------ the packet path

// NOLINTNEXTLINE(readability-non-const-parameter): the exported name has it so
int CRTMMapManager::PutRTMPacket(char* packet, int length) {
    // The shortest payload is longer than a key's head: what is shorter fits no slot.
    constexpr auto kShortest = static_cast<int>(1 + KeyFilter::kHeadSize);
    if (packet == nullptr || length < kShortest || !IsPacketType(*packet)) {
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
            decoder->CRTMPacketDecoder::PutPacket(packet, length);
        }
    }
    return 1;
}

void CRTMMapManager::EndRTMUnpack() {
    BatchEnd end{0, m_pBatchEnd};
    m_pBatchEnd = &end;
    for (std::size_t next = 0; next < m_MapList.Size();) {
        CRTMPacketDecoder* decoder = m_MapList[next++]->pDecoder.get();
        if (decoder->AwaitsBatchEnd()) {
            end.nNext = next;
            decoder->EndBatch();
            next = end.nNext;
        }
    }
    m_pBatchEnd = end.pOuter;
}

// ------------------------------------------------------------------ subscription requests

int CRTMMapManager::AddTrStcdInfo(char* code, int codeLen, char chClass, unsigned long flags) {
    return SendCode(kAddCode, code, codeLen, chClass, static_cast<uint32_t>(flags));
}

int CRTMMapManager::DelTrStcdInfo(char* code, int codeLen, char chClass, unsigned long flags) {
    return SendCode(kDeleteCode, code, codeLen, chClass, static_cast<uint32_t>(flags));
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

// NOLINTNEXTLINE(readability-non-const-parameter): the exported name has it so
int CRTMMapManager::SendQuery(tagRTMTRSTCDINFO* record) {
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
    return g_RTMMapManager.SendCode(kAddCode, code, codeLen, chClass, flags);
}

int DelTrStcd(const char* code, int codeLen, char chClass, uint32_t flags) {
    return g_RTMMapManager.SendCode(kDeleteCode, code, codeLen, chClass, flags);
}
