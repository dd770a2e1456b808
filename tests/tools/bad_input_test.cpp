// What the programs say to input that they cannot use: one line with place and remedy, and the exit status.
#include <gtest/gtest.h>
#include <pcap/pcap.h>

#include <string>
#include <vector>

#include "tests/tools/tool_runs.h"
#include "tools/capture.h"
#include "tools/text.h"

namespace {

using tools::Joined;

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
    // A capture of one record that a capture writer would not write.
    std::string OddCapture(const std::string& name, int link, unsigned kept, unsigned length) const {
        pcap_t* const capture = pcap_open_dead(link, 65535);
        pcap_dumper_t* const dump = pcap_dump_open(capture, Folder.Path(name).c_str());
        const pcap_pkthdr header{{1, 0}, kept, length};
        pcap_dump(reinterpret_cast<u_char*>(dump), &header, reinterpret_cast<const u_char*>("AAAAAAAA"));
        pcap_dump_close(dump);
        pcap_close(capture);
        return Folder.Path(name);
    }

    std::string GoodCapture() const {
        tools::CaptureWriter writer(Folder.Path("good.pcap"));
        writer.Packet(tools::ParseDate("20261120"), "?packet", 7);
        writer.Packet(tools::ParseDate("20261120"), "A short one", 11);
        writer.Close();
        return Folder.Path("good.pcap");
    }

    ScratchFolder Folder;
    const std::string Screens = Folder.Write("good.workspace", "RSTICK11_R 1ASII\n");
};

TEST_F(BadInputTest, CommandLines) {
    const std::string output = "--output " + Folder.Path("x.pcap") + " ";
    const std::string master = Folder.Write("master", "broker B01 \"a name\" 2\nbroker B02 name 3\n");
    ExpectLines(
        "tickreplay",
        {{"one", "expected WORKSPACE and CAPTURE, got 1 argument; see --help"},
         {"--nix a b", "option \"--nix\" is not known here; see --help"},
         {"a b --rows", "option --rows needs a value; see --help"},
         {"--rows 1x a b", "--rows \"1x\" is no number from 0 to 1000000"},
         {"--speed 0.05 a b", "--speed \"0.05\" is no number from 0.1 to 1000"},
         {"--user-dir /nowhere a b", "--user-dir \"/nowhere\" is no folder; make it first"},
         {"--master " + master + " a b",
          master + ":2: neither a stock nor a broker; write stock CODE NAME, or broker CODE NAME MARK with a "
                   "mark of 0, 1 or 2"},
         {"--utc-offset 7 a b", "--utc-offset \"7\" is none; give +HH:MM or -HH:MM"}});
    ExpectLines("feedgen",
                {{"", "no --output; name a file, or - for standard output"},
                 {output + "more", "argument \"more\" is not known here; see --help"},
                 {output + "--date 20260230",
                  "--date \"20260230\" is no day; give YYYYMMDD from 19710101 to 20991231"},
                 {output + "--minutes 421", "--minutes \"421\" is no number from 1 to 420"},
                 {"--output /nowhere/x", "/nowhere/x: folder /nowhere: No such file or directory; choose another --output"},
                 {"--output /dev/full",
                  "/dev/full: No space left on device while writing; make room or choose another "
                  "--output",
                  1}});
}

TEST_F(BadInputTest, Captures) {
    const std::string good = GoodCapture();
    const std::string whole = ReadFile(good);
    const std::string cut = Folder.Write("cut.pcap", whole.substr(0, whole.size() - 3));
    const std::string other = OddCapture("other.pcap", DLT_EN10MB, 8, 8);
    const std::string snapped = OddCapture("snapped.pcap", DLT_USER0, 5, 8);
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
          snapped + ": record 1 holds 5 of 8 bytes; capture whole packets, without a snap length"},
         {arguments + cut,
          cut + ": record 2 cannot be read (truncated dump file; tried to read 11 captured bytes, "
                "only got 8); write the capture anew, or keep the records before this one with editcap"},
         {"--strict " + arguments + good,
          good + ": record 1: packet of unknown type 0x3f; mend the capture, or replay without --strict"},
         {"--module " + Screens + " " + arguments + good,
          Screens + ": cannot be loaded (" + Screens +
              ": file too short); build the module, or name it with --module"}});
}

TEST_F(BadInputTest, WorkspaceLines) {
    const struct {
        std::string Content;
        std::string Line;
    } cases[] = {
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
    };
    const std::string capture = GoodCapture();
    for (const auto& [content, line] : cases) {
        const std::string workspace = Folder.Write("bad.workspace", content);
        ExpectLines("tickreplay", {{Joined({workspace, capture}, " "), Joined({workspace, line}, "")}});
    }
}

}  // namespace
