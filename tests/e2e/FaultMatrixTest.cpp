// Every fault of the agent against every command of quorvictl that speaks to it: the program ends,
// with the status of its kind, and the same command works right after.
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

#include "base/os/SmallFile.h"
#include "tests/support/PhoneRig.h"
#include "tests/support/TemporaryFolder.h"

namespace quorvi::e2e {
namespace {

struct Asked {
    const char* name;
    std::vector<std::string> arguments;  // "FILE/x" is x in the test's folder
    const char* code;                    // the command of the agent that misbehaves
    const char* input = "";
};

void PrintTo(const Asked& asked, std::ostream* out) {
    *out << asked.name;
}

constexpr const char* kFaults[] = {
    "nodata",
    "absent",
    "close",
    "cut 2",
    "cut 4",
    "cut 9",
    "cut 33",
    "reset",
    "reset 21",
    "trickle 50 1",
    "delay 50",
    "length 3000000000 10",
    "length 4294967295 10",
    "length 1",
    "length 4",
    "length 13",
    "length 40",
    "string 0 4294967295",
    "string 0 2147483647",
    "string 1 3000000000",
    "string 2 70000",
    "word 0",
};

class FaultMatrix : public testing::TestWithParam<Asked> {
  protected:
    static void SetUpTestSuite() { rig_ = std::make_unique<PhoneRig>(1); }
    static void TearDownTestSuite() { rig_.reset(); }

    void SetUp() override {
        ASSERT_EQ(rig_->Error(), "");
        ASSERT_TRUE(
            ReplaceFile(folder_.Path() / "new.vcf", "BEGIN:VCARD\nFN:Bo\nTEL:110\nEND:VCARD\n"));
        ASSERT_TRUE(ReplaceFile(folder_.Path() / "new.html",
                                "<DL><DT><A HREF=\"http://b.example/\">B</A>"));
        Restore();
    }

    static void Restore() {
        rig_->Control(0, "faults clear");
        rig_->Control(0, "data");
        ASSERT_TRUE(rig_->WaitForDevices(1));
        ASSERT_EQ(rig_->BringAgentUp(0), "");
    }

    ProgramResult Run(std::chrono::milliseconds limit = std::chrono::seconds(20)) {
        std::vector<std::string> arguments = GetParam().arguments;
        for (std::string& argument : arguments) {
            if (argument.starts_with("FILE/")) {
                argument.replace(0, 4, folder_.Path().string());
            }
        }
        return rig_->Suite(std::move(arguments), GetParam().input, limit);
    }

    static void Misbehave(const char* words) {
        ASSERT_EQ(rig_->Control(0, std::string("fault ") + GetParam().code + " " + words), "ok\n");
    }

    static std::unique_ptr<PhoneRig> rig_;
    TemporaryFolder folder_;
};

std::unique_ptr<PhoneRig> FaultMatrix::rig_;

TEST_P(FaultMatrix, EndsAndWorksRightAfter) {
    for (const char* fault : kFaults) {
        Misbehave(fault);
        const ProgramResult ill = Run();
        EXPECT_FALSE(ill.timedOut) << fault;
        EXPECT_GE(ill.status, 0) << fault << ": " << ill.messages;
        EXPECT_LE(ill.status, 3) << fault;
        Restore();
        EXPECT_EQ(Run().status, 0) << "after " << fault;
        rig_->Control(0, "data");
    }
    EXPECT_EQ(rig_->Control(0, "deviations"), "ok\n");
}

// The cable is pulled inside the reply: the forward goes with it.
TEST_P(FaultMatrix, EndsWhenTheCableIsPulledAndHasNoLinkThen) {
    Misbehave("unplug 9");
    const ProgramResult ill = Run();
    EXPECT_FALSE(ill.timedOut);
    EXPECT_GE(ill.status, 0) << ill.messages;
    const ProgramResult unlinked = Run();
    EXPECT_EQ(unlinked.status, 2);
    EXPECT_EQ(unlinked.messages, "quorvictl: 【X】连接错误\n");
    Restore();
    EXPECT_EQ(Run().status, 0);
}

TEST_P(FaultMatrix, WaitsForAStalledReplyAndWorksRightAfter) {
    for (const char* stall : {"stall", "stall 2"}) {
        Misbehave(stall);
        EXPECT_TRUE(Run(std::chrono::milliseconds(400)).timedOut) << stall;
        Restore();
        EXPECT_EQ(Run().status, 0) << "after " << stall;
        rig_->Control(0, "data");
    }
}

constexpr const char* kForm = R"({"name": "林远舟", "phones": [{"type": 2, "text": "110"}]})";
constexpr const char* kAlarm = R"({"label": "起床", "hour": 6, "minute": 40})";
constexpr const char* kBookmark = R"({"title": "天气", "url": "http://x/"})";

INSTANTIATE_TEST_SUITE_P(
    Each, FaultMatrix,
    testing::Values(
        Asked{"Info", {"info"}, "870004"}, Asked{"ContactsList", {"contacts", "list"}, "870101"},
        Asked{"ContactsShow", {"contacts", "show", "1"}, "870102"},
        Asked{"ContactsAdd", {"contacts", "add"}, "870103", kForm},
        Asked{"ContactsUpdate", {"contacts", "update", "1"}, "870104", kForm},
        Asked{"ContactsUpdateLoad", {"contacts", "update", "1"}, "870102", kForm},
        Asked{"ContactsDelete", {"contacts", "delete", "1", "2"}, "870106"},
        Asked{"ContactsDeleteList", {"contacts", "delete", "1", "2"}, "870101"},
        Asked{"ContactsDeleteKeeps", {"contacts", "delete", "1", "2"}, "870102"},
        Asked{"ContactsExportList", {"export", "contacts", "FILE/a.vcf"}, "870101"},
        Asked{"ContactsExport", {"export", "contacts", "FILE/a.csv"}, "870102"},
        Asked{"ContactsImportList", {"import", "contacts", "FILE/new.vcf"}, "870101"},
        Asked{"ContactsImport", {"import", "contacts", "FILE/new.vcf"}, "870103"},
        Asked{"GroupsList", {"groups", "list"}, "870140"},
        Asked{"GroupsAdd", {"groups", "add", "x"}, "870121"},
        Asked{"GroupsRename", {"groups", "rename", "1", "x"}, "870122"},
        Asked{"GroupsDelete", {"groups", "delete", "1"}, "870124"},
        Asked{"GroupsDeleteKeeps", {"groups", "delete", "1"}, "870150"},
        Asked{"SmsList", {"sms", "list"}, "870201"},
        Asked{"SmsShow", {"sms", "show", "12"}, "870202"},
        Asked{"SmsSend", {"sms", "send", "--to", "110", "--text", "x"}, "870204"},
        Asked{"SmsDelete", {"sms", "delete", "12"}, "870206"},
        Asked{"SmsDeleteKeeps", {"sms", "delete", "12"}, "870202"},
        Asked{"SmsExportList", {"export", "messages", "FILE/a.html"}, "870201"},
        Asked{"SmsExport", {"export", "messages", "FILE/a.txt"}, "870202"},
        Asked{"CallsList", {"calls", "list"}, "870301"},
        Asked{"CallsDelete", {"calls", "delete", "1"}, "870303"},
        Asked{"CallsClear", {"calls", "clear"}, "870304"},
        Asked{"CallsClearKeeps", {"calls", "clear"}, "870301"},
        Asked{"CallsExport", {"export", "calls", "FILE/a.csv"}, "870301"},
        Asked{"AlarmsList", {"alarms", "list"}, "870401"},
        Asked{"AlarmsAdd", {"alarms", "add"}, "870402", kAlarm},
        Asked{"AlarmsUpdate", {"alarms", "update", "1"}, "870403", kAlarm},
        Asked{"AlarmsDelete", {"alarms", "delete", "1", "2"}, "870405"},
        Asked{"BookmarksList", {"bookmarks", "list"}, "870701"},
        Asked{"BookmarksAdd", {"bookmarks", "add"}, "870702", kBookmark},
        Asked{"BookmarksUpdate", {"bookmarks", "update", "1"}, "870703", kBookmark},
        Asked{"BookmarksDelete", {"bookmarks", "delete", "1", "2"}, "870705"},
        Asked{"BookmarksExport", {"export", "bookmarks", "FILE/a.html"}, "870701"},
        Asked{"BookmarksImportList", {"import", "bookmarks", "FILE/new.html"}, "870701"},
        Asked{"BookmarksImport", {"import", "bookmarks", "FILE/new.html"}, "870702"},
        Asked{"FilesListRoot", {"files", "list"}, "870601"},
        Asked{"FilesList", {"files", "list", "/sdcard"}, "870602"},
        Asked{"AppsList", {"apps", "list"}, "870802"},
        Asked{"AppsListOfTheSite", {"apps", "list", "--site"}, "870002"},
        Asked{"AppsRun", {"apps", "run", "com.example.chat"}, "870805"},
        Asked{"ProcessesList", {"processes", "list"}, "871801"},
        Asked{"ProcessesEnd", {"processes", "end", "com.example.chat"}, "871804"},
        Asked{"ProcessesMemory", {"processes", "memory"}, "871806"},
        Asked{"CleanerScan", {"cleaner", "scan"}, "871601"},
        Asked{
            "CleanerClean", {"cleaner", "clean", "--browser-history", "com.example.bus"}, "871602"},
        Asked{"AutoStartList", {"autostart", "list"}, "871701"},
        Asked{"SettingsRead", {"settings", "read"}, "871501"},
        Asked{"SettingsWrite", {"settings", "write", "wifi", "0"}, "871502"}),
    [](const auto& test) { return test.param.name; });

}  // namespace
}  // namespace quorvi::e2e
