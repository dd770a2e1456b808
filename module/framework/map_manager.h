// CRTMMapManager, the one owner of all decoders: registers maps, fans packets out by type char, closes
// batches, and sends subscription requests to the communication manager.
//
// Two guards, never held together. The map guard (its name set by the host) covers the map list and each
// Init, Stop and Release; the type guard covers changes of the type lists. The packet path takes neither:
// tickmux.h tells what that asks of the host.
#ifndef TICKMUX_MODULE_FRAMEWORK_MAP_MANAGER_H
#define TICKMUX_MODULE_FRAMEWORK_MAP_MANAGER_H

#include <bitset>
#include <cstddef>
#include <cstdint>
#include <memory>

#include "module/containers/plain_array.h"
#include "module/framework/guard.h"
#include "module/framework/packet_decoder.h"
#include "module/framework/subscription.h"
#include "module/framework/tickmux.h"
#include "module/wire/packets.h"

// A map name and the factory behind it, which gives a new decoder for a window, or null.
struct DecoderFactoryEntry {
    const char* pMapName;
    CRTMPacketDecoder* (*pCreate)(HWND hWnd);
};

// The factories in order of their names; the list ends at an entry without a name. It is a constant of the
// image, so it stands before anything of the module is constructed.
extern const DecoderFactoryEntry g_DecoderFactories[];

// One registered map. Its address is the handle.
struct tagMAPINFO {
    std::unique_ptr<CRTMPacketDecoder> pDecoder;  // null: the map is going
    std::bitset<kPacketTypes> posType;            // the type lists that hold the decoder
};

// Each exported member has the name, the parameters and the result by which programs find it.
class CRTMMapManager {
public:
    TICKMUX_API CRTMMapManager();
    TICKMUX_API ~CRTMMapManager();
    CRTMMapManager(const CRTMMapManager&) = delete;
    CRTMMapManager& operator=(const CRTMMapManager&) = delete;

    TICKMUX_API void SetMutexName(char* name);

    TICKMUX_API tickmux_handle RegistMapDecoder(HWND hWnd, const char* mapName);
    TICKMUX_API int UnregistMapDecoder(tickmux_handle handle);
    TICKMUX_API int InitMapDecoder(tickmux_handle handle, char* buffer);
    TICKMUX_API int StopMapDecoder(tickmux_handle handle);
    TICKMUX_API int ReleaseMapDecoder(tickmux_handle handle);
    // Enters the map in the list of each type char, unless it is there already, as far as memory goes.
    TICKMUX_API void RegistPacketType(tagMAPINFO* map, char* types);
    TICKMUX_API CRTMPacketDecoder* GetPacketDecoder(tickmux_handle handle);

    TICKMUX_API int PutRTMPacket(char* packet, int length);
    TICKMUX_API void EndRTMUnpack();

    TICKMUX_API int AddTrStcdInfo(char* code, int codeLen, char chClass, unsigned long flags);
    TICKMUX_API int DelTrStcdInfo(char* code, int codeLen, char chClass, unsigned long flags);
    TICKMUX_API int SendCancelInfo();
    TICKMUX_API int StopMapComplete();
    TICKMUX_API void ClearMap();

    // A request of a decoder; gives 1 if it went out.
    int SendCode(int32_t operation, const char* code, int codeLen, char chClass, uint32_t flags);

protected:
    TICKMUX_API int SendQuery(tagRTMTRSTCDINFO* record);

private:
    // Who takes a packet type and follows no single key, in order of registration.
    using TypeList = PlainArray<CRTMPacketDecoder*>;
    bool EnterTypeLists(tagMAPINFO& map, const char* types);
    void LeaveTypeLists(tagMAPINFO& map);
    bool EnterMapList(tagMAPINFO* map);
    void CloseGaps();
    // Who comes next on a packet's way: of those who follow its key, and of those in its type's list.
    struct Walk {
        Follower* pFollower;
        std::size_t nOther;
    };
    int PutToFollowers(Follower* follower, const char* packet, int length);
    int PutInOrder(Walk next, const char* packet, int length);
    Walk NextBehind(uint64_t serial, const char* packet, uint64_t changes) const;
    uint64_t KeyHeadOf(const char* packet) const;
    // The place of the first one that was registered behind the serial.
    static std::size_t FirstBehind(const TypeList& list, uint64_t serial);
    void Destroy(tagMAPINFO* map);

    // A walk over the maps; a window that closes a batch from within its message begins one within another.
    struct BatchEnd {
        std::size_t nNext;
        BatchEnd* pOuter;
    };

    // In order of registration; the manager owns what they point to. Null: a map that went.
    PlainArray<tagMAPINFO*> m_MapList;
    std::size_t m_nMaps = 0;
    uint64_t m_nLastSerial = 0;  // of the latest registration; a count of changes as well
    ManagerLists m_Lists;
    BatchEnd* m_pBatchEnd = nullptr;  // the innermost that runs
    NamedMutex m_Mutex;               // of the map guard
    NamedMutex m_TypeMutex;           // of the type guard
    bool m_bQueryEnabled;             // the user's grade allows subscriptions
    bool m_bClearing = false;         // all maps are going
    TypeList m_TypeList[kPacketTypes];
    uint64_t m_KeyMask[kPacketTypes] =
        {};  // of a payload's first bytes; 0 until somebody takes the type, or without key
};

extern CRTMMapManager g_RTMMapManager;

#endif
