// services.h - the terminal's framework and closed services, as far as the module calls them.
//
// On the real platform these classes come from the framework and the sibling libraries of the terminal;
// elsewhere they live in the shared library `libtickhost`, and tickhost.h sets what they answer.
#ifndef TICKMUX_HOST_SERVICES_SERVICES_H
#define TICKMUX_HOST_SERVICES_SERVICES_H

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "host/platform/platform.h"

// ------------------------------------------------------------------ the framework

// A text.
class CString {
public:
    CString() = default;
    CString(const char* text) : m_Text(text == nullptr ? "" : text) {}  // NOLINT(google-explicit-constructor)
    operator const char*() const { return m_Text.c_str(); }             // NOLINT(google-explicit-constructor)
    int GetLength() const { return static_cast<int>(m_Text.size()); }

private:
    std::string m_Text;
};

using CStringArray = std::vector<CString>;

// Thrown by AfxThrowInvalidArgException, as a pointer to an object that nobody frees.
class HOST_API CInvalidArgException {
public:
    virtual ~CInvalidArgException();
    virtual const char* what() const noexcept;
};
[[noreturn]] HOST_API void AfxThrowInvalidArgException();

// A module that extends the framework announces itself at load and withdraws at unload.
struct AFX_EXTENSION_MODULE {
    BOOL bInitialized;
    HINSTANCE hModule;
};
HOST_API BOOL AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HINSTANCE module);  // 0: refused
HOST_API void AfxTermExtensionModule(AFX_EXTENSION_MODULE& state);  // frees the module's CDynLinkLibrary

// The framework's link object of one extension module; the framework owns it from its construction on.
class HOST_API CDynLinkLibrary {
public:
    explicit CDynLinkLibrary(AFX_EXTENSION_MODULE& state);
};

// A file that is appended to. Nothing here throws; a failure gives 0 and the object stays usable.
class HOST_API CFile {
public:
    enum OpenFlags : UINT { modeWrite = 0x0001, modeCreate = 0x1000, modeNoTruncate = 0x2000 };

    CFile() = default;
    ~CFile();
    CFile(const CFile&) = delete;
    CFile& operator=(const CFile&) = delete;

    BOOL Open(const char* path, UINT flags);
    int64_t SeekToEnd();  // the file's length; -1: failed
    BOOL Write(const void* data, UINT length);
    void Close();

private:
    int m_Descriptor = -1;
};

// ------------------------------------------------------------------ QelData: login and master data

struct CodeTblStruct {
    CString szCode;
    CString szName;
    CString szMark;  // only its first character is read
};
using CodeTable = std::map<std::string, CodeTblStruct*>;

class HOST_API CQelData21 {
public:
    static const char* GetUserGrade();
    static const char* GetMenuGrade();
    static HWND GetComMgrHwnd(int which);  // -1: the communication manager's; null: none
    static const char* GetHashUserID();    // at least 19 bytes, spaces behind
    static const char* GetUserID();        // at least 19 bytes, spaces behind
    static const char* GetBaseUserID();
    static void GetInnerTr(CString& text);
    static bool IsTobrinAcc();
    // Non-zero: the arrays hold codes and names, of one length.
    static int GetIndusData(int kind, const char* industry, CStringArray& codes, CStringArray& names);
    // Kind 0: all stocks, 3: all brokers. Null: no data. The table stays the service's and unchanged
    // until the same kind is set anew.
    static const CodeTable* GetMasterData(int kind, CString& first, CString& second);
};

// One request channel.
class CWnd;
class HOST_API CQelFunc {
public:
    CQelFunc();
    ~CQelFunc();
    CQelFunc(const CQelFunc&) = delete;
    CQelFunc& operator=(const CQelFunc&) = delete;

    void SetLogInfoData(HWND window, const char* loginText, CWnd* parent);
    void SetType(char type, CString requestName);
    int SendFunc(const char* request, int length);

private:
    HWND m_hWnd = nullptr;
    CString m_LoginText;
    char m_Type = 0;
    CString m_RequestName;
};

// ------------------------------------------------------------------ Marlgrove: interest groups

struct MarlGroupItem {
    uint32_t Number;  // 1 for the first item of the group
    char szKey[11];   // board char and code, spaces behind
    char szName[65];  // zero-ended
};
static_assert(offsetof(MarlGroupItem, szKey) == 4 && offsetof(MarlGroupItem, szName) == 15);

struct CMarlGroup {
    int nGroupNo = 0;
    std::vector<MarlGroupItem> Items;  // in the file's order
};

class HOST_API CInterestTable {
public:
    CInterestTable();
    ~CInterestTable();
    CInterestTable(const CInterestTable&) = delete;
    CInterestTable& operator=(const CInterestTable&) = delete;

    void ReadAllGroup(CString path);
    const CMarlGroup* FindGroupNo(int number) const;  // null: no such group

private:
    std::map<int, CMarlGroup> m_Groups;
};

// ------------------------------------------------------------------ Brenlink: queue and folders

// What waits in a decoder's view queue. The buffer is an array of chars, the item a single object; who
// takes the item off the queue owns both.
struct ViewItem {
    void* Reserved1[2];
    char* pData;   // request tag, then the body
    int32_t nLen;  // length of the body, without the tag's two bytes
    int32_t Reserved2[3];
};
static_assert(sizeof(void*) != 4 ||
              (sizeof(ViewItem) == 28 && offsetof(ViewItem, pData) == 8 && offsetof(ViewItem, nLen) == 12));

class CRtmPtrList;

// Takes all items off a queue and gives each away, whole by itself against a thread that fetches. The
// terminal's own queue has no such call: there it is TakeAllByPosition.
HOST_API void TakeAllItems(CRtmPtrList& queue, void (*take)(void* item));

// A queue of pointers that the module fills and the host empties, each on its own thread: every call is
// whole by itself. It does not own what the pointers point to. Nodes come from blocks that the queue keeps.
// AddTail, GetHeadPosition, GetNext and RemoveAll are all that the terminal's own queue is known to have.
struct __POSITION;
using POSITION = __POSITION*;
class HOST_API CRtmPtrList {
public:
    CRtmPtrList();
    ~CRtmPtrList();
    CRtmPtrList(const CRtmPtrList&) = delete;
    CRtmPtrList& operator=(const CRtmPtrList&) = delete;

    POSITION AddTail(void* item);  // without memory it throws, as the framework's lists do; nothing is added
    POSITION GetHeadPosition() const;
    void* GetNext(POSITION& position) const;
    void RemoveAll();

    // The oldest item of a list that may be gone meanwhile, off the list; null: none.
    static void* TakeFrom(const void* list);

private:
    friend void TakeAllItems(CRtmPtrList& queue, void (*take)(void* item));

    void* RemoveHead();

    struct Node;
    struct Block;
    struct Bucket;

    Node* m_pHead = nullptr;
    Node* m_pTail = nullptr;
    Node* m_pFree = nullptr;
    Block* m_pBlocks = nullptr;
    CRtmPtrList* m_pNeighbour = nullptr;  // in its bucket
};

// TakeAllItems by the four calls that every queue has. The caller holds the map guard, and so must whoever
// fetches on a thread of its own meanwhile.
template <class Queue>
void TakeAllByPosition(Queue& queue, void (*take)(void* item)) {
    for (POSITION position = queue.GetHeadPosition(); position != nullptr;) {
        take(queue.GetNext(position));
    }
    queue.RemoveAll();
}

class HOST_API CEnvMgr {
public:
    static const char* GetBaseUserDir(const char* baseUserID);  // no separator at the end
    static const char* GetDataDir();                            // no separator at the end
};

#endif
