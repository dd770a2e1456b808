#include <gtest/gtest.h>

#include <chrono>
#include <ctime>
#include <filesystem>
#include <string>
#include <thread>

#include "host/platform/platform.h"
#include "host/services/services.h"
#include "host/tickhost.h"
#include "tests/support/scratch_folder.h"

namespace {

class Host : public testing::Test {
protected:
    void TearDown() override { tickhost_reset(); }
};

}  // namespace

TEST_F(Host, GivesTextsInTheirForm) {
    const std::string blank(19, ' ');
    const struct {
        const char* Name;
        const char* (*Get)();
        std::string Default, Given, Expected;
    } cases[] = {
        {"UserGrade", CQelData21::GetUserGrade, "", "999", "999"},
        {"MenuGrade", CQelData21::GetMenuGrade, "", "1", "1"},
        {"HashUserID", CQelData21::GetHashUserID, blank, "longer than nineteen bytes",
         "longer than nineteen bytes"},
        {"UserID", CQelData21::GetUserID, blank, "someone", "someone            "},
        {"UserDir", [] { return CEnvMgr::GetBaseUserDir("base"); }, ".", "users\\", "users"},
        {"DataDir", CEnvMgr::GetDataDir, ".", "/", ""},
    };
    for (const auto& one : cases) {
        EXPECT_EQ(one.Get(), one.Default);
        EXPECT_EQ(tickhost_set_text(one.Name, nullptr), 0);
        EXPECT_EQ(tickhost_set_text(one.Name, one.Given.c_str()), 1);
        EXPECT_EQ(one.Get(), one.Expected);
    }
    EXPECT_EQ(tickhost_set_text("userid", "x"), 0);

    // A text that was given out stays while another thread sets new ones.
    std::thread setter([] {
        for (int number = 0; number < 1000; ++number) {
            tickhost_set_text("UserID", std::to_string(number).c_str());
        }
    });
    for (int round = 0; round < 1000; ++round) {
        EXPECT_EQ(std::string(CQelData21::GetUserID()).size(), 19U);
    }
    setter.join();
}

TEST_F(Host, GivesTablesAndPassesRequestsOn) {
    CStringArray codes;
    CStringArray names;
    CString word;
    EXPECT_EQ(CQelData21::GetIndusData(0, "0020", codes, names), 0);
    EXPECT_EQ(CQelData21::GetMasterData(3, word, word), nullptr);
    const char* const given[] = {"A1", "B2", nullptr};
    tickhost_set_industry(5, 3, given, nullptr);
    EXPECT_EQ(CQelData21::GetIndusData(0, "0020", codes, names), 5);
    ASSERT_TRUE(codes.size() == 3 && names.size() == 3);
    EXPECT_STREQ(codes[1], "B2");
    tickhost_set_master(3, 2, given, given, nullptr);
    const CodeTable* const brokers = CQelData21::GetMasterData(3, word, word);
    ASSERT_TRUE(brokers != nullptr && brokers->size() == 2);
    EXPECT_STREQ(brokers->at("B2")->szName, "B2");
    tickhost_set_master(3, -1, nullptr, nullptr, nullptr);
    EXPECT_EQ(CQelData21::GetMasterData(3, word, word), nullptr);

    auto* const window = reinterpret_cast<HWND>(uintptr_t{1});
    tickhost_set_communication_manager(window);
    EXPECT_EQ(CQelData21::GetComMgrHwnd(-1), window);
    std::string sent;
    CQelFunc channel;
    channel.SetLogInfoData(window, "login", nullptr);
    channel.SetType('A', "K1");
    channel.SendFunc("dropped", 7);
    tickhost_set_function_sink(
        [](void* context, HWND, const char* login, char type, const char* name, const char* text,
           int length) {
            *static_cast<std::string*>(context) +=
                std::string(login) + type + name + std::string(text, text + length);
        },
        &sent);
    channel.SendFunc("request", 3);
    channel.SendFunc("request", -1);
    EXPECT_EQ(sent, "loginAK1req");
}

TEST_F(Host, HoldsItsClocksOrFollowsTheMachines) {
    const tickhost_time held{2024, 2, 29, 23, 59, 58, 7};  // a Thursday
    tickhost_set_local_time(&held);
    SYSTEMTIME time{};
    GetLocalTime(&time);
    EXPECT_TRUE(time.wYear == 2024 && time.wDay == 29 && time.wDayOfWeek == 4 && time.wMilliseconds == 7);
    tickhost_set_tick_count(1, 0xFFFFFFFF);
    EXPECT_EQ(GetTickCount(), 0xFFFFFFFF);
    tickhost_set_local_time(nullptr);
    tickhost_set_system_time(nullptr);
    tickhost_set_tick_count(0, 7);
    const DWORD ticks = GetTickCount();
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    EXPECT_GE(GetTickCount() - ticks, 20U);
    const time_t now = std::time(nullptr);
    GetSystemTime(&time);
    const auto minutes = static_cast<int>(now / 60 % 1440);
    EXPECT_LE((time.wHour * 60 + time.wMinute - minutes + 1440) % 1440, 1);
}

TEST_F(Host, AppendsToFilesOnDriveC) {
    const ScratchFolder folder;
    tickhost_set_text("DriveC", folder.Path("").c_str());
    EXPECT_TRUE(CreateDirectoryA("c:\\logs\\", nullptr));
    EXPECT_FALSE(CreateDirectoryA("C:\\logs", nullptr)) << "it is there";

    constexpr UINT kAppend = CFile::modeCreate | CFile::modeNoTruncate | CFile::modeWrite;
    for (const std::string expected : {"one", "oneone"}) {
        CFile file;
        EXPECT_EQ(file.SeekToEnd(), -1);
        ASSERT_TRUE(file.Open("c:logs\\log.txt", kAppend));
        EXPECT_EQ(file.SeekToEnd(), static_cast<int64_t>(expected.size()) - 3);
        EXPECT_TRUE(file.Write("one", 3));
        EXPECT_EQ(folder.Read("logs/log.txt"), expected) << "there before it is closed";
    }
    CFile file;
    EXPECT_FALSE(file.Open("c:\\logs", kAppend));
    ASSERT_TRUE(file.Open("C:/logs\\log.txt", CFile::modeCreate | CFile::modeWrite));
    file.Close();
    EXPECT_EQ(folder.Read("logs/log.txt"), "");
    tickhost_set_text("DriveC", "c:\\no such folder");
    EXPECT_FALSE(file.Open("c:log.txt", kAppend)) << "drive C on drive C is a folder of that name";
    if (std::filesystem::exists("/dev/full")) {
        ASSERT_TRUE(file.Open("/dev/full", CFile::modeWrite));
        EXPECT_FALSE(file.Write("x", 1));
    }
}

TEST_F(Host, LinksAModuleUnlessItRefuses) {
    AFX_EXTENSION_MODULE state{};
    auto* const module = reinterpret_cast<HINSTANCE>(&state);
    tickhost_refuse_attach(1);
    EXPECT_FALSE(AfxInitExtensionModule(state, module));
    tickhost_reset();
    ASSERT_TRUE(AfxInitExtensionModule(state, module));
    EXPECT_EQ(state.hModule, module);
    new CDynLinkLibrary(state);
    AfxTermExtensionModule(state);
    EXPECT_FALSE(state.bInitialized);
    EXPECT_THROW(AfxThrowInvalidArgException(), CInvalidArgException*);
}
