// Contacts, messages, calls and bookmarks into files and back, from the command line through the
// real adb to the phone.
#include <gmock/gmock.h>
#include <json/json.h>

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <sstream>

#include "backup/BookmarkFile.h"
#include "backup/VCardReader.h"
#include "base/os/SmallFile.h"
#include "tests/support/PhoneRig.h"
#include "tests/support/TemporaryFolder.h"

namespace quorvi::e2e {
namespace {

using testing::HasSubstr;

class ExportImport : public testing::Test {
  protected:
    void SetUp() override {
        ASSERT_EQ(rig_.Error(), "");
        ASSERT_EQ(rig_.BringAgentUp(0), "");
    }

    [[nodiscard]] std::string File(const char* name) const {
        return (folder_.Path() / name).string();
    }
    [[nodiscard]] std::string Text(const char* name) const {
        return ReadSmallFile(File(name), 64 * kSmallFileBytes).value_or("none");
    }
    Json::Value Ask(std::vector<std::string> arguments) {
        arguments.push_back("--json");
        const ProgramResult result = rig_.Suite(std::move(arguments));
        EXPECT_EQ(result.status, 0) << result.messages;
        Json::Value value;
        std::istringstream(result.output) >> value;
        return value;
    }
    // Deletes all records that such a list has.
    void DeleteAll(const char* kind) {
        std::vector<std::string> arguments{kind, "delete"};
        for (const Json::Value& row : Ask({kind, "list"})) {
            arguments.push_back(row["id"].asString());
        }
        Ask(std::move(arguments));
    }

    PhoneRig rig_{1};
    TemporaryFolder folder_;
};

// The cards as new contacts are: without what those cannot be sent, and with a name.
std::vector<ContactCard> ComparableCards(const std::string& file) {
    std::vector<ContactCard> cards;
    for (ReadCard& read : ReadVCards(file).cards) {
        read.card.groups.clear();
        read.card.photo.clear();
        if (read.card.name.empty()) {
            read.card.name = read.card.phones.at(0).text;
        }
        cards.push_back(std::move(read.card));
    }
    std::ranges::sort(cards, {}, &ContactCard::name);
    return cards;
}

// The bookmarks as an import brings them to the phone.
std::vector<FileBookmark> ComparableBookmarks(const std::string& file) {
    std::vector<FileBookmark> bookmarks = ReadBookmarkFile(file).bookmarks;
    std::erase_if(bookmarks, [](const FileBookmark& one) { return !IsWebAddress(one.url); });
    for (FileBookmark& bookmark : bookmarks) {
        if (bookmark.title.empty()) {
            bookmark.title = bookmark.url;
        }
    }
    return bookmarks;
}

TEST_F(ExportImport, ContactsComeBackToAnEmptiedPhone) {
    const auto count = Ask({"contacts", "list"}).size();
    ASSERT_GT(count, 0u);
    const Json::Value exported = Ask({"export", "contacts", File("a.vcf")});
    EXPECT_EQ(exported["exported"].asUInt(), count);
    EXPECT_EQ(exported["skipped_count"], 0);

    DeleteAll("contacts");
    const Json::Value planned = Ask({"import", "contacts", File("a.vcf"), "--dry-run"});
    EXPECT_EQ(planned["added"].asUInt(), count);
    EXPECT_EQ(Ask({"contacts", "list"}).size(), 0u);

    const Json::Value imported = Ask({"import", "contacts", File("a.vcf")});
    EXPECT_EQ(imported["added"].asUInt(), count);
    EXPECT_EQ(Ask({"contacts", "list"}).size(), count);
    Ask({"export", "contacts", File("b.vcf")});
    EXPECT_EQ(ComparableCards(Text("b.vcf")), ComparableCards(Text("a.vcf")));
    EXPECT_EQ(rig_.Control(0, "deviations"), "ok\n");
}

TEST_F(ExportImport, ImportingToThePhoneThatContactsCameFromChangesNothing) {
    const Json::Value before = Ask({"contacts", "list"});
    for (const char* file : {"a.vcf", "a.csv"}) {
        Ask({"export", "contacts", File(file)});
        const Json::Value imported = Ask({"import", "contacts", File(file)});
        EXPECT_EQ(imported["added"], 0) << file;
        EXPECT_EQ(imported["there"].asUInt(), before.size()) << file;
    }
    EXPECT_EQ(Ask({"contacts", "list"}), before);
}

TEST_F(ExportImport, BookmarksComeBackToAnEmptiedPhone) {
    const auto count = Ask({"bookmarks", "list"}).size();
    Ask({"export", "bookmarks", File("a.html")});
    DeleteAll("bookmarks");
    // One of the phone's bookmarks has no address.
    const Json::Value imported = Ask({"import", "bookmarks", File("a.html")});
    EXPECT_EQ(imported["added"].asUInt() + imported["skipped_count"].asUInt(), count);
    EXPECT_EQ(imported["skipped_count"], 1);
    EXPECT_EQ(Ask({"import", "bookmarks", File("a.html")})["added"].asUInt(), 0u);
    Ask({"export", "bookmarks", File("b.html")});
    EXPECT_EQ(ComparableBookmarks(Text("b.html")), ComparableBookmarks(Text("a.html")));
    EXPECT_EQ(rig_.Control(0, "deviations"), "ok\n");
}

TEST_F(ExportImport, MessagesAndCallsGoIntoEachFormat) {
    for (const char* file : {"m.txt", "m.csv", "m.html", "m.json"}) {
        EXPECT_GT(Ask({"export", "messages", File(file)})["exported"].asUInt(), 0u) << file;
    }
    Json::Value messages;
    std::istringstream(Text("m.json")) >> messages;
    EXPECT_EQ(messages.size(), Ask({"sms", "list"}).size());
    EXPECT_THAT(Text("m.html"), HasSubstr("<article class=\"in\">"));

    const std::string id = messages[0]["id"].asString();
    const Json::Value one = Ask({"export", "messages", File("one.json"), "--conversation", id});
    EXPECT_EQ(one["exported"].asUInt(), messages[0]["messages"].size());

    const auto calls = Ask({"calls", "list"}).size();
    EXPECT_EQ(Ask({"export", "calls", File("c.csv")})["exported"].asUInt(), calls);
    EXPECT_EQ(Ask({"export", "calls", File("c.json")})["exported"].asUInt(), calls);
}

TEST_F(ExportImport, AFormatThatIsNotKnownIsSaidBeforeThePhoneIsAsked) {
    const ProgramResult exported = rig_.Suite({"export", "calls", File("a.vcf")});
    EXPECT_EQ(exported.status, 1);
    EXPECT_THAT(exported.messages, HasSubstr("扩展名应为 csv、json"));
    EXPECT_EQ(rig_.Suite({"export", "alarms", File("a.csv")}).status, 1);
    EXPECT_EQ(rig_.Suite({"import", "calls", File("a.csv")}).status, 1);
    EXPECT_EQ(rig_.Suite({"import", "contacts", File("none.vcf")}).status, 1);
    EXPECT_EQ(rig_.Suite({"export", "calls", File("a.csv"), "--conversation", "1"}).status, 1);
    EXPECT_TRUE(std::filesystem::is_empty(folder_.Path()));
}

TEST_F(ExportImport, APhoneThatBreaksTheLinkLeavesNoFile) {
    EXPECT_EQ(rig_.Control(0, "fault 870102 close"), "ok\n");
    const ProgramResult result = rig_.Suite({"export", "contacts", File("a.vcf")});
    EXPECT_EQ(result.status, 2);
    EXPECT_TRUE(std::filesystem::is_empty(folder_.Path()));
}

}  // namespace
}  // namespace quorvi::e2e
