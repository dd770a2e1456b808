// The closed services: login and master data, request channels, folders.
#include "host/services/services.h"

#include <atomic>
#include <deque>
#include <memory>
#include <utility>

#include "host/platform/guarded.h"
#include "host/services/exports.h"
#include "host/services/resets.h"
#include "host/services/settings.h"

namespace {

// A table of the service, with the rows that it points to.
struct Master {
    CodeTable Table;
    std::deque<CodeTblStruct> Rows;
};

struct Services {
    std::atomic<HWND> CommunicationManager = nullptr;
    std::atomic<bool> TobrinAccount = false;

    std::mutex Lock;  // of what follows
    int IndustryResult = 0;
    CStringArray IndustryCodes;
    CStringArray IndustryNames;
    std::map<int, std::unique_ptr<Master>> Masters;
    tickhost_function_sink Sink = nullptr;
    void* SinkContext = nullptr;
};

Services& TheServices() {
    static auto* const services = new Services;
    return *services;
}

// Without codes there is nothing to count.
int Entries(int count, const char* const* codes) {
    return codes == nullptr ? 0 : count;
}

// The n-th text of a list that may be missing, or lack entries.
const char* TextAt(const char* const* texts, int index) {
    return texts == nullptr || texts[index] == nullptr ? "" : texts[index];
}

CStringArray Copy(int count, const char* const* texts) {
    CStringArray copies;
    for (int index = 0; index < count; ++index) {
        copies.emplace_back(TextAt(texts, index));
    }
    return copies;
}

}  // namespace

// ------------------------------------------------------------------ CQelData21

const char* CQelData21::GetUserGrade() {
    return SettingText(Setting::UserGrade);
}

const char* CQelData21::GetMenuGrade() {
    return SettingText(Setting::MenuGrade);
}

HWND CQelData21::GetComMgrHwnd(int /*which*/) {
    return TheServices().CommunicationManager;
}

const char* CQelData21::GetHashUserID() {
    return SettingText(Setting::HashUserID);
}

const char* CQelData21::GetUserID() {
    return SettingText(Setting::UserID);
}

const char* CQelData21::GetBaseUserID() {
    return SettingText(Setting::BaseUserID);
}

void CQelData21::GetInnerTr(CString& text) {
    text = SettingText(Setting::InnerTr);
}

bool CQelData21::IsTobrinAcc() {
    return TheServices().TobrinAccount;
}

int CQelData21::GetIndusData(int /*kind*/, const char* /*industry*/, CStringArray& codes,
                             CStringArray& names) {
    Services& services = TheServices();
    const std::lock_guard hold(services.Lock);
    codes = services.IndustryCodes;
    names = services.IndustryNames;
    return services.IndustryResult;
}

const CodeTable* CQelData21::GetMasterData(int kind, CString& /*first*/, CString& /*second*/) {
    Services& services = TheServices();
    const std::lock_guard hold(services.Lock);
    const auto found = services.Masters.find(kind);
    return found == services.Masters.end() ? nullptr : &found->second->Table;
}

// ------------------------------------------------------------------ CQelFunc

CQelFunc::CQelFunc() = default;

CQelFunc::~CQelFunc() = default;

void CQelFunc::SetLogInfoData(HWND window, const char* loginText, CWnd* /*parent*/) {
    m_hWnd = window;
    m_LoginText = loginText;
}

void CQelFunc::SetType(char type, CString requestName) {
    m_Type = type;
    m_RequestName = std::move(requestName);
}

int CQelFunc::SendFunc(const char* request, int length) {
    if (request == nullptr || length < 0) {
        return 0;
    }
    tickhost_function_sink sink = nullptr;
    void* context = nullptr;
    {
        Services& services = TheServices();
        const std::lock_guard hold(services.Lock);
        sink = services.Sink;
        context = services.SinkContext;
    }
    if (sink == nullptr) {
        return 0;
    }
    sink(context, m_hWnd, m_LoginText, m_Type, m_RequestName, request, length);
    return 1;
}

// ------------------------------------------------------------------ CEnvMgr

const char* CEnvMgr::GetBaseUserDir(const char* /*baseUserID*/) {
    return SettingText(Setting::UserDir);
}

const char* CEnvMgr::GetDataDir() {
    return SettingText(Setting::DataDir);
}

// ------------------------------------------------------------------ what they answer

void tickhost_set_communication_manager(HWND window) {
    TheServices().CommunicationManager = window;
}

void tickhost_set_tobrin_account(int on) {
    TheServices().TobrinAccount = on != 0;
}

void tickhost_set_industry(int result, int count, const char* const* codes, const char* const* names) {
    OrRefuse(0, [&] {
        CStringArray newCodes = Copy(Entries(count, codes), codes);
        CStringArray newNames = Copy(Entries(count, codes), names);
        Services& services = TheServices();
        const std::lock_guard hold(services.Lock);
        services.IndustryResult = result;
        services.IndustryCodes.swap(newCodes);
        services.IndustryNames.swap(newNames);
        return 1;
    });
}

void tickhost_set_master(int kind, int count, const char* const* codes, const char* const* names,
                         const char* const* marks) {
    OrRefuse(0, [&] {
        std::unique_ptr<Master> master;
        if (count >= 0) {
            master = std::make_unique<Master>();
            for (int index = 0; index < Entries(count, codes); ++index) {
                const char* const code = TextAt(codes, index);
                CodeTblStruct& row = master->Rows.emplace_back(
                    CodeTblStruct{code, TextAt(names, index), TextAt(marks, index)});
                master->Table.emplace(code, &row);  // the first of two rows with one code counts
            }
        }
        Services& services = TheServices();
        const std::lock_guard hold(services.Lock);
        if (master == nullptr) {
            services.Masters.erase(kind);
        } else {
            services.Masters[kind] = std::move(master);
        }
        return 1;
    });
}

void tickhost_set_function_sink(tickhost_function_sink sink, void* context) {
    Services& services = TheServices();
    const std::lock_guard hold(services.Lock);
    services.Sink = sink;
    services.SinkContext = context;
}

void ResetServices() {
    Services& services = TheServices();
    services.CommunicationManager = nullptr;
    services.TobrinAccount = false;
    const std::lock_guard hold(services.Lock);
    services.IndustryResult = 0;
    services.IndustryCodes.clear();
    services.IndustryNames.clear();
    services.Masters.clear();
    services.Sink = nullptr;
    services.SinkContext = nullptr;
}
