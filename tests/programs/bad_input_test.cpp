// What the programs say to what they cannot read or write: one line with place and remedy, the exit status,
// and whatever stood in the place of the output stands there still.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "terminal/capture.h"
#include "tests/programs/tool_runs.h"

namespace {

namespace fs = std::filesystem;

struct BadRun {
    std::string Arguments;
    std::string Line;
    int Status = 2;
};

void ExpectLines(const std::string& program, const std::vector<BadRun>& runs) {
    for (const BadRun& run : runs) {
        const Outcome outcome = RunTool(program, run.Arguments);
        EXPECT_EQ(outcome.Text, program + ": " + run.Line + "\n") << run.Arguments;
        EXPECT_EQ(outcome.Status, run.Status) << run.Arguments;
    }
}

class BadInputTest : public testing::Test {
protected:
    std::string GoodCapture() const {
        tools::CaptureWriter writer(Folder.Path("good.pcap"));
        writer.Packet(tools::ParseDate("20261120"), "?packet", 7);
        writer.Packet(tools::ParseDate("20261120"), "A short one", 11);
        writer.Close();
        return Folder.Path("good.pcap");
    }

    std::ptrdiff_t Files() const {
        return std::distance(fs::directory_iterator(Folder.Path("")), fs::directory_iterator());
    }

    ScratchFolder Folder;
    const std::string Screens = Folder.Write("good.workspace", "RSTICK11_R 1ASII\n");
};

TEST_F(BadInputTest, CommandLines) {
    const std::string output = "--output " + Folder.Path("x.pcap") + " ";
    ExpectLines(
        "tickreplay",
        {{"one", "expected WORKSPACE and CAPTURE, got 1 argument; see --help"},
         {"a b --rows", "option --rows needs a value; see --help"},
         {"--rows 1 --rows 1x a b", "--rows \"1x\" is no number from 0 to 1000000"},
         {"--speed 0.05 a b", "--speed \"0.05\" is no number from 0.1 to 1000"},
         {"--user 12345678901234567890 a b",
          "--user \"12345678901234567890\" has 20 bytes, but there is room for 19; give a shorter one"},
         {"--user-dir /nowhere a b", "--user-dir \"/nowhere\" is no folder; make it first"},
         {"--utc-offset 7 a b", "--utc-offset \"7\" is none; give +HH:MM or -HH:MM"}});
    ExpectLines("feedgen", {{"", "no --output; name a file, or - for standard output"},
                            {output + "more", "argument \"more\" is not known here; see --help"},
                            {output + "--date 20260230",
                             "--date \"20260230\" is no day; give YYYYMMDD from 19710101 to 20991231"}});
}

TEST_F(BadInputTest, Captures) {
    const std::string good = GoodCapture();
    const std::string whole = ReadFile(good);
    const std::string cut = Folder.Write("cut.pcap", whole.substr(0, whole.size() - 3));
    // A head ends with the link type; a record begins with its time, the bytes kept and their former number.
    const std::string other = Folder.Write("other.pcap", std::string(whole).replace(20, 1, "\1"));
    const std::string snapped = Folder.Write("snapped.pcap", std::string(whole).replace(24 + 8, 1, "\5"));
    const std::string arguments = Screens + " ";
    ExpectLines(
        "tickreplay",
        {{arguments + "/nowhere",
          "/nowhere: No such file or directory; check the path, or make a capture with feedgen"},
         {arguments + Screens,
          Screens + ": not a capture (unknown file format); give a pcap file such as feedgen writes"},
         {arguments + other, other +
                                 ": link type 1 (EN10MB), expected 147 (USER0); give a capture of the packet "
                                 "stream, or set its type with editcap -T user0"},
         {arguments + snapped,
          snapped + ": record 1 holds 5 of 7 bytes; capture whole packets, without a snap length"},
         {arguments + cut,
          cut + ": record 2 cannot be read (truncated dump file; tried to read 11 captured bytes, "
                "only got 8); write the capture anew, or keep the records before this one with editcap"},
         {"--strict " + arguments + good,
          good + ": record 1: packet of unknown type 0x3f; mend the capture, or replay without --strict"},
         {"--module " + Screens + " " + arguments + good,
          Screens + ": cannot be loaded (" + Screens +
              ": file too short); build the module, or name it with --module"}});
}

TEST_F(BadInputTest, WorkspaceAndMasterLines) {
    const std::pair<std::string, std::string> cases[] = {
        {"# nothing\n", ": names no screen; add a line such as RSTICK11_R 1ASII"},
        {"RSTICK11_R 1ASII\n\nRSTICK11_R # key\n",
         ":3: no key behind \"RSTICK11_R\"; write MAP KEY [Field=value ...]"},
        {"RSTICK11_R 1ASII Date\n",
         ":1: \"Date\" is not of the form Field=value; write MAP KEY [Field=value ...]"},
        {"RSTICK11_R 1ASII Date=\"2026\n", ":1: a double quote is not closed; close it"},
        {"RSTICK11_R ASII\n",
         ":1: key \"ASII\" is no stock; give a board char 1 to 4 and a code of up to 10 characters, such as "
         "1ASII"},
        {"RSETFNAV_R 1FUND01 Base=1\n",
         ":1: unknown field \"Base\"; known: Tag, Key.Board, Key.Code, BaseValue, FirstValue, SecondValue"},
        {"RSTRDE01_R 1ASII FirstField=12 LastField=3\n",
         ":1: fields \"12\" to \"3\" are no range; give FirstField and LastField from 0 to 55, the first not "
         "above the last"},
        {"RDUMMY01_R 1ASII:A,1ASII\n",
         ":1: item \"1ASII\" does not tell packet types; write CODE:TYPES,CODE:TYPES ..., such as "
         "1ASII:ABCD,COMP:EF"},
        {"RRPASS01_R 1ASII:AE\n",
         ":1: item \"1ASII:AE\" mixes packet types of codes of several kinds; give E an item of its own"},
        {"RSTICK11_R 1ASII Price=1\n",
         ":1: field \"Price\" may be each of Head.Price, Row.Price; name one in full"},
        {"RSTICK11_R 1ASII Date=202611201\n",
         ":1: value \"202611201\" has 9 characters, but Row.Date has room for 8; shorten it"},
        {"RSTICK11_R 1ASII Repeat.Count=0\n",
         ":1: the module refuses the Init text of RSTICK11_R 1ASII; check the fields' values"},
        {"\xEF\xBB\xBFRSTICK11_R 1ASII\n", ":1: begins with a UTF-8 byte order mark; save it without"},
        {"#\n# " + std::string(300'000, 'x'),
         ":2: a line of more than 256 KiB; give a text file with one record a line"},
    };
    const std::string capture = GoodCapture();
    for (const auto& [content, line] : cases) {
        const std::string workspace = Folder.Write("bad.workspace", content);
        ExpectLines("tickreplay", {{workspace + " " + capture, workspace + line}});
    }
    EXPECT_EQ(RunTool("tickreplay", "/dev/stdin " + capture, "yes '' | ").Text,
              "tickreplay: /dev/stdin:16777217: more than 16 MiB up to here; give a smaller file\n");
    const std::string master = Folder.Write("master", "broker B01 \"a name\" 2\nbroker B02 name 3\n");
    const std::string base = Folder.Write("base", "stock A a 1\nstock B b ten\n");
    const std::string zero = "/dev/zero:1: a zero byte, which no text has; give a text file, not UTF-16";
    ExpectLines("tickreplay",
                {{"/dev/zero " + capture, zero},
                 {"--master /dev/zero a b", zero},
                 {"--master " + base + " a b",
                  base + ":2: base price \"ten\" is no number from 0 to 2147483647; mend it"},
                 {"--master " + master + " a b",
                  master + ":2: neither a stock nor a broker; write stock CODE NAME [BASE], or broker CODE "
                           "NAME MARK with a mark of 0, 1 or 2"}});
}

TEST_F(BadInputTest, OutputThatCannotBeWritten) {
    const std::string full = "No space left on device while writing; make room or ";
    ExpectLines("feedgen", {{"--output /nowhere/x",
                             "/nowhere/x: folder /nowhere: No such file or directory; choose another file"},
                            {"--output /dev/full", "/dev/full: " + full + "choose another file", 1},
                            {"--help >/dev/full", "standard output: " + full + "write elsewhere", 1},
                            {"--minutes 1 --output " + Folder.Path("x") + " >/dev/full",
                             "standard output: " + full + "write elsewhere", 1}});
    const std::string run = Screens + " " + Folder.Path("x") + " >/dev/full";
    for (const std::string options : {"--help ", "--layouts ", "--follow ", "--rows 1 "}) {
        ExpectLines("tickreplay", {{options + run, "standard output: " + full + "write elsewhere", 1}});
    }
}

// A link stays a link, and a file that others may not read stays so.
TEST_F(BadInputTest, AFormerCaptureStaysUntilTheNewOneIsWhole) {
    const std::string target = Folder.Write("day.pcap", "former");
    const std::string link = Folder.Path("link.pcap");
    fs::create_symlink("day.pcap", link);
    chmod(target.c_str(), 0640);
    const std::ptrdiff_t files = Files();
    const Outcome full = RunTool("feedgen", "--output " + link, "ulimit -f 64; ");
    EXPECT_EQ(full.Text,
              "feedgen: " + link + ": File too large while writing; make room or choose another file\n");
    for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
        const pid_t process = fork();
        if (process == 0) {
            signal(number, SIG_DFL);
            execl(TOOL_DIR "/feedgen", "feedgen", "--stocks", "1000", "--output", link.c_str(), nullptr);
            _exit(127);
        }
        for (int wait = 0; Files() == files && wait < 1000; ++wait) {
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        }
        EXPECT_EQ(Files(), files + 1);
        kill(process, number);
        int status = 0;
        waitpid(process, &status, 0);
        EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == number) << status;
        EXPECT_EQ(Files(), files) << number;
    }
    EXPECT_EQ(ReadFile(target), "former");
    EXPECT_EQ(RunTool("feedgen", "--minutes 1 --output " + link).Status, 0);
    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_GT(ReadFile(target).size(), 10'000U);
    EXPECT_EQ(fs::status(target).permissions(), static_cast<fs::perms>(0640));
    EXPECT_EQ(RunTool("feedgen", "--minutes 1 --output " + Folder.Path("new")).Status, 0);
    EXPECT_EQ(fs::status(Folder.Path("new")).permissions(), fs::status(Screens).permissions());
}

}  // namespace
