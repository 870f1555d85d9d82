// Nothing that a phone holds gets into the report: everything is read from it first, and then
// looked for.
#include <gmock/gmock.h>
#include <json/json.h>

#include <algorithm>
#include <set>
#include <sstream>

#include "tests/support/PhoneRig.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/Unzip.h"

namespace quorvi::e2e {
namespace {

using testing::ContainsRegex;
using testing::HasSubstr;
using testing::Not;

// Shorter ones, and the counts and codes among them, may stand anywhere by chance.
constexpr std::size_t kShortestTold = 6;

void AddTexts(const Json::Value& value, std::set<std::string>& texts) {
    if (value.isString() && value.asString().size() >= kShortestTold) {
        texts.insert(value.asString());
    }
    if (value.isArray() || value.isObject()) {
        for (const Json::Value& part : value) {
            AddTexts(part, texts);
        }
    }
}

class ReportStory : public testing::Test {
  protected:
    void SetUp() override {
        ASSERT_EQ(rig_.Error(), "");
        ASSERT_EQ(rig_.BringAgentUp(0), "");
    }
    // Takes the texts of a command's answer.
    Json::Value Read(std::vector<std::string> arguments) {
        arguments.push_back("--json");
        const ProgramResult result = rig_.Suite(std::move(arguments));
        EXPECT_EQ(result.status, 0) << result.messages;
        Json::Value value;
        std::istringstream(result.output) >> value;
        AddTexts(value, texts_);
        return value;
    }

    PhoneRig rig_{1};
    TemporaryFolder folder_;
    std::set<std::string> texts_;
};

TEST_F(ReportStory, NothingThatThePhoneHoldsIsInIt) {
    for (const char* list : {"contacts", "groups", "calls", "alarms", "bookmarks", "apps"}) {
        Read({list, "list"});
    }
    for (const Json::Value& conversation : Read({"sms", "list"})) {
        Read({"sms", "show", conversation["id"].asString()});
    }
    Read({"contacts", "show", "4"});
    Read({"info"});
    ASSERT_EQ(rig_.Suite({"contacts", "delete", "4"}).status, 0);
    EXPECT_GT(texts_.size(), 200U);
    EXPECT_TRUE(std::ranges::any_of(texts_, [](const std::string& text) {
        return text.size() == 11 && text.starts_with("13");
    }));

    const std::string target = (folder_.Path() / "report.zip").native();
    const ProgramResult made = rig_.Suite({"report", target});
    ASSERT_EQ(made.status, 0) << made.messages;
    auto files = Unzip(target);
    // The commands did get into the log, and the phone into adb's facts.
    EXPECT_THAT(files["quorvi.log"], ContainsRegex("session command=870101 outcome=complete "));
    EXPECT_THAT(files["quorvi.log"], ContainsRegex("session command=870106 outcome=complete "));
    EXPECT_THAT(files["adb.txt"], HasSubstr("adb 列出的手机: 1\n"));
    EXPECT_THAT(files["adb.txt"], HasSubstr("可以使用"));
    texts_.insert(rig_.Serial(0));
    // The kind of a number and the name of an application: words that the report has of its own.
    for (const char* word : {"手机", "桌面"}) {
        texts_.erase(word);
    }
    for (const auto& [name, content] : files) {
        for (const std::string& text : texts_) {
            EXPECT_THAT(content, Not(HasSubstr(text))) << name;
        }
    }
}

}  // namespace
}  // namespace quorvi::e2e
