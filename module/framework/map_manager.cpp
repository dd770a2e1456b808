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
    char address[2 * sizeof(uintptr_t) + 1] = "";
    std::to_chars(std::begin(address), std::end(address) - 1, reinterpret_cast<uintptr_t>(this), kHex);
    m_TypeMutex.SetName(address);
    // The grade is read this once; it holds as long as the module is loaded.
    const std::size_t mark = sizeof(kGradeWithoutSubscriptions) - 1;
    m_bQueryEnabled = std::strncmp(CQelData21::GetUserGrade(), kGradeWithoutSubscriptions, mark) != 0;
}

CRTMMapManager::~CRTMMapManager() {
    ClearMap();
}

// NOLINTNEXTLINE(readability-non-const-parameter): the exported name has it so
void CRTMMapManager::SetMutexName(char* name) {
    m_Mutex.SetName(name == nullptr ? "" : name);
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
        const MutexGuard guard(m_Mutex);
        if (EnterMapList(map.get())) {
            return reinterpret_cast<tickmux_handle>(map.release());
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

// False if memory fails; the lists entered so far are noted with the map all the same. Who follows one key is
// found by it, and stands in no list.
bool CRTMMapManager::EnterTypeLists(tagMAPINFO& map, const char* types) {
    const MutexGuard guard(m_TypeMutex);
    CRTMPacketDecoder& decoder = *map.pDecoder;
    if (decoder.Serial() == 0) {
        m_nLastSerial = ++m_Lists.nChanges;
        decoder.SetSerial(m_nLastSerial);
    }
    for (const char* type = types; *type != '\0'; ++type) {
        // A type that the class has no handler for never reaches it.
        if (!IsPacketType(*type) || map.posType[TypeIndex(*type)] || decoder.PayloadLength(*type) == 0) {
            continue;
        }
        if (decoder.HasKey()) {
            m_KeyMask[TypeIndex(*type)] = decoder.KeyMask(*type);
        } else if (CRTMPacketDecoder** place = m_TypeList[TypeIndex(*type)].Append()) {
            *place = &decoder;
        } else {
            return false;
        }
        map.posType.set(TypeIndex(*type));
    }
    return true;
}

void CRTMMapManager::LeaveTypeLists(tagMAPINFO& map) {
    const MutexGuard guard(m_TypeMutex);
    const CRTMPacketDecoder& decoder = *map.pDecoder;
    ++m_Lists.nChanges;
    for (std::size_t index = 0; index < map.posType.size() && !decoder.HasKey(); ++index) {
        if (map.posType[index]) {
            m_TypeList[index].RemoveAt(FirstBehind(m_TypeList[index], decoder.Serial() - 1));
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
    const MutexGuard guard(m_Mutex);
    Destroy(map.get());
    return 1;
}

// The decoder is off its record before it gives up what it has asked for: who calls back then finds a map
// that goes.
void CRTMMapManager::Destroy(tagMAPINFO* map) {
    const std::size_t place = map->pDecoder->Place();
    map->pDecoder->SetActive(0);
    map->pDecoder->Sit(nullptr, 0);
    m_Lists.Changed.Unmark(place);
    m_MapList[place] = nullptr;
    --m_nMaps;
    const std::unique_ptr<CRTMPacketDecoder> decoder = std::move(map->pDecoder);
    decoder->Release();
}

// NOLINTNEXTLINE(readability-non-const-parameter): the exported name has it so
int CRTMMapManager::InitMapDecoder(tickmux_handle handle, char* buffer) {
    if (handle == 0) {
        AfxThrowInvalidArgException();
    }
    const MutexGuard guard(m_Mutex);
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
    const MutexGuard guard(m_Mutex);
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
    const MutexGuard guard(m_Mutex);
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
        const MutexGuard guard(m_TypeMutex);
        for (TypeList& list : m_TypeList) {
            list.Clear();
        }
    }
    const MutexGuard guard(m_Mutex);
    for (std::size_t place = 0; place < m_MapList.Size(); ++place) {
        if (m_MapList[place] != nullptr) {
            const std::unique_ptr<tagMAPINFO> map(m_MapList[place]);
            Destroy(map.get());
        }
    }
    m_MapList.Clear();
    m_bClearing = false;
}

// ------------------------------------------------------------------ the map list

bool CRTMMapManager::EnterMapList(tagMAPINFO* map) {
    CloseGaps();
    if (!m_Lists.Changed.MakeRoom(m_MapList.Size() + 1)) {
        return false;
    }
    tagMAPINFO** place = m_MapList.Append();
    if (place == nullptr) {
        return false;
    }
    *place = map;
    map->pDecoder->Sit(&m_Lists, m_MapList.Size() - 1);
    m_Lists.Following.MakeRoom(++m_nMaps);
    return true;
}

// Once gaps are more than maps the maps move up; a batch end that is under way goes on with the one that
// would have been next.
void CRTMMapManager::CloseGaps() {
    constexpr std::size_t kFewGaps = 8;
    if (m_MapList.Size() - m_nMaps <= std::max(kFewGaps, m_nMaps)) {
        return;
    }
    const auto moveBatchEnds = [this](std::size_t from, std::size_t to) {
        for (BatchEnd* end = m_pBatchEnd; end != nullptr; end = end->pOuter) {
            end->nNext = end->nNext == from ? to : end->nNext;
        }
    };
    std::size_t to = 0;
    for (std::size_t from = 0; from < m_MapList.Size(); ++from) {
        moveBatchEnds(from, to);
        tagMAPINFO* const map = m_MapList[from];
        if (map == nullptr) {
            continue;
        }
        const bool changed = m_Lists.Changed.IsMarked(from);
        m_Lists.Changed.Unmark(from);
        map->pDecoder->Sit(&m_Lists, to);
        if (changed) {
            m_Lists.Changed.Mark(to);
        }
        m_MapList[to++] = map;
    }
    moveBatchEnds(m_MapList.Size(), to);
    m_MapList.Resize(to);
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
