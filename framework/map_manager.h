// CRTMMapManager, the one owner of all decoders: registers maps, fans packets out by type char, closes
// batches, and sends subscription requests to the communication manager.
//
// Two guards, never held together. The map guard (its name set by the host) covers the map list and each
// Init, Stop and Release; the type guard covers changes of the type lists. The packet path takes neither:
// tickmux.h tells what that asks of the host.
#ifndef TICKMUX_FRAMEWORK_MAP_MANAGER_H
#define TICKMUX_FRAMEWORK_MAP_MANAGER_H

#include <cstddef>
#include <cstdint>
#include <memory>

#include "framework/packets.h"
#include "framework/plain_array.h"
#include "framework/subscription.h"
#include "framework/tickmux.h"

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
    std::unique_ptr<CRTMPacketDecoder> pDecoder;
};

class TICKMUX_API CRTMMapManager {
public:
    CRTMMapManager();
    ~CRTMMapManager();
    CRTMMapManager(const CRTMMapManager&) = delete;
    CRTMMapManager& operator=(const CRTMMapManager&) = delete;

    void SetMutexName(const char* name);

    tickmux_handle RegistMapDecoder(HWND hWnd, const char* mapName);
    int UnregistMapDecoder(tickmux_handle handle);
    int InitMapDecoder(tickmux_handle handle, const char* buffer);
    int StopMapDecoder(tickmux_handle handle);
    int ReleaseMapDecoder(tickmux_handle handle);
    // Enters the map in the list of each type char; 0 if memory fails, and then in none.
    int RegistPacketType(tagMAPINFO* map, const char* types);
    CRTMPacketDecoder* GetPacketDecoder(tickmux_handle handle);

    int PutRTMPacket(const char* packet, int length);
    void EndRTMUnpack();

    int AddTrStcdInfo(const char* code, int codeLen, char chClass, uint32_t flags);
    int DelTrStcdInfo(const char* code, int codeLen, char chClass, uint32_t flags);
    int SendCancelInfo();
    int StopMapComplete();
    void ClearMap();

protected:
    int SendQuery(const tagRTMTRSTCDINFO* record);

private:
    int SendCode(int32_t operation, const char* code, int codeLen, char chClass, uint32_t flags);
    void RemoveFromMapList(tagMAPINFO* map);
    void RemoveFromTypeLists(CRTMPacketDecoder* decoder);

    // A walk over the maps; a window that closes a batch from within its message begins one within another.
    struct BatchEnd {
        std::size_t nNext;
        BatchEnd* pOuter;
    };

    static constexpr std::size_t kMutexNameRoom = 20;

    PlainArray<tagMAPINFO*> m_MapList;  // in order of registration; the manager owns what they point to
    BatchEnd* m_pBatchEnd = nullptr;    // the innermost that runs
    char m_szMutexName[kMutexNameRoom] = "";
    char m_szTypeMutexName[kMutexNameRoom] = "";
    bool m_bQueryEnabled;                                     // the user's grade allows subscriptions
    PlainArray<CRTMPacketDecoder*> m_TypeList[kPacketTypes];  // who takes a type, in order of registration
};

extern CRTMMapManager g_RTMMapManager;

#endif
