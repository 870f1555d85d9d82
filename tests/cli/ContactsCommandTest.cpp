// quorvictl contacts against an agent on the suite's own port.
#include <gtest/gtest.h>

#include "base/Json.h"
#include "base/Text.h"
#include "pages/contacts/ContactForm.h"
#include "tests/support/AgentFixture.h"
#include "tests/support/Fed.h"
#include "tests/support/GbkChosen.h"
#include "tests/support/RunProgram.h"

namespace quorvi::cli {
namespace {

Bytes Item(std::uint64_t id, std::uint32_t type, std::string_view text) {
    return Join({LongWord(id), Word(type), Text(text)});
}

// The reply to the reading of a contact.
Bytes Contact() {
    return Join({
        Word(0),             // leading word
        LongWord(7),         // contact id
        Word(1),             // favourite
        LongWord(0),         // last contact
        LongWord(27),        // times contacted
        Word(0),             // has photo
        Word(0),             // structured flag
        Word(1),             // name flag
        LongWord(70),        // name row id
        Word(0),             // reserved
        Text("林远舟"),      // name
        Word(0),             // nickname flag
        Word(0),             // note flag
        Word(1),             // phones
        Item(80, 2, "111"),  //
        Word(0),             // groups
        Word(0),             // e-mails
        Word(1),             // ims
        Item(81, 3, "sky"),  //
        Word(1),             // websites
        Item(82, 0, "w"),    //
        Word(0),             // addresses
        Word(0),             // organisations
    });
}

class ContactsCommand : public AgentFixture {};

constexpr std::string_view kForm = R"({"favourite": true, "name": "林", "phones":
    [{"type": 1, "text": "111"}, {}, {"type": 99, "text": "333"}],
    "im": {"text": "10240768"}, "organisation": "院"})";

// The same form as the editor holds it.
ContactForm Form() {
    ContactForm form;
    form.favourite = true;
    form.name = Ansi(u8"林");
    form.phones[0] = {1, "111"};
    form.phones[2] = {99, "333"};
    form.im.text = "10240768";
    form.organisation = Ansi(u8"院");
    return form;
}

TEST_F(ContactsCommand, ListGivesEachRowWithItsAttribution) {
    START_OR_SKIP({.bytes = Framed(Join({
                       Word(0),         // leading word
                       LongWord(7),     // contact id
                       LongWord(9),     // second id
                       Text("林远舟"),  // name
                       Word(1),         // favourite
                       Text("10086"),   // number
                       LongWord(0),     // last contact
                       Word(0),         // reserved
                       Word(1),         // has photo
                       LongWord(4),     // photo length
                       Word(0),         // photo
                   }))});
    const Ended ended = Out("contacts list --json");
    EXPECT_EQ(ended.status, 0);
    const auto rows = ParseJson(ended.output);
    ASSERT_TRUE(rows && rows->isArray() && rows->size() == 1u);
    const Json::Value& row = (*rows)[0];
    EXPECT_EQ(row["id"].asUInt(), 7u);
    EXPECT_EQ(row["name"].asString(), "林远舟");
    EXPECT_EQ(row["number"].asString(), "10086");
    EXPECT_EQ(row["attribution"].asString(), "中国移动");
    EXPECT_EQ(row["favourite"], Json::Value(true));
    EXPECT_EQ(row["last_contact"].asString(), "N/A");
    EXPECT_EQ(row["photo_bytes"].asUInt(), 4u);
    EXPECT_EQ(row.size(), 7u);  // and nothing else
    EXPECT_EQ(Request(0), Word(870101));
}

TEST_F(ContactsCommand, PhoneWithoutContactsGivesAnEmptyList) {
    START_OR_SKIP({.bytes = Word(NoDataMark)});
    const Ended ended = Out("contacts list --json");
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ended.output, "[]\n");
}

TEST_F(ContactsCommand, ShowGivesTheRecordWithItsLabels) {
    START_OR_SKIP({.bytes = Framed(Contact())});
    const Ended ended = Out("contacts show 7 --json");
    EXPECT_EQ(ended.status, 0);
    const auto record = ParseJson(ended.output);
    ASSERT_TRUE(record && record->isObject());
    EXPECT_EQ((*record)["id"].asUInt(), 7u);
    EXPECT_EQ((*record)["favourite"], Json::Value(true));
    EXPECT_EQ((*record)["name"].asString(), "林远舟");
    EXPECT_EQ((*record)["last_contact"].asString(), "N/A");
    EXPECT_EQ((*record)["times_contacted"].asUInt(), 27u);
    const Json::Value& phone = (*record)["phones"][0];
    EXPECT_EQ(phone["id"].asUInt(), 80u);
    EXPECT_EQ(phone["type"].asInt(), 2);
    EXPECT_EQ(phone["label"].asString(), "手机：");
    EXPECT_EQ(phone["text"].asString(), "111");
    EXPECT_EQ((*record)["ims"][0]["label"].asString(), "Skype:");
    EXPECT_EQ((*record)["websites"][0]["label"].asString(), "个人网页：");
    for (const char* list : {"groups", "emails", "addresses", "organisations"}) {
        EXPECT_TRUE((*record)[list].isArray() && (*record)[list].empty()) << list;
    }
    EXPECT_EQ(Request(0), ReadContactRequest(7));
}

TEST_F(ContactsCommand, ShowForPeopleHasTheLabelsOfTheDetailView) {
    START_OR_SKIP({.bytes = Framed(Contact())});
    const Ended ended = Out("contacts show 7");
    EXPECT_EQ(ended.status, 0);
    EXPECT_NE(ended.output.find("手机："), std::string::npos);
    EXPECT_NE(ended.output.find("林远舟"), std::string::npos);
}

TEST_F(ContactsCommand, ContactThatIsNotThereIsStatusThree) {
    START_OR_SKIP({.bytes = Word(NoDataMark)});
    const Ended ended = Out("contacts show 7 --json");
    EXPECT_EQ(ended.status, 3);
    EXPECT_EQ(ended.output, "");
    EXPECT_EQ(Out(Fed("contacts update 7", "{}")).status, 3);
    EXPECT_EQ(agent_->Exchanges(2).size(), 2u);  // nothing was sent to change it
}

TEST_F(ContactsCommand, WithoutALinkEveryCommandIsStatusTwo) {
    EXPECT_EQ(Out("contacts list --json").status, 2);
    EXPECT_EQ(Out("contacts show 7 --json").status, 2);
    EXPECT_EQ(Out("contacts delete 7").status, 2);
    EXPECT_EQ(Out(Fed("contacts add", kForm)).status, 2);
    EXPECT_EQ(Out(Fed("contacts update 7", kForm)).status, 2);
}

TEST_F(ContactsCommand, AddSendsTheVeryBytesOfTheEditor) {
    START_OR_SKIP({.bytes = Word(1)});
    EXPECT_EQ(Out(Fed("contacts add", kForm)).status, 0);
    EXPECT_EQ(Request(0), AddContactRequest(RecordToAdd(Form()).value()));
}

TEST_F(ContactsCommand, CharactersThatTheCodePageLacksAreSavedWithAWarning) {
    const GbkChosen user;
    START_OR_SKIP({.bytes = Word(1)});
    const std::string line =
        Fed("contacts add", R"({"name": "A", "phones": [{"text": "\ud83c\udf88"}]})");
    EXPECT_EQ(Err(line).output, "quorvictl: 有些字符无法保存，会变成“?”\n");
    ContactForm form;
    form.name = "A";
    form.phones[0].text = "?";
    EXPECT_EQ(Request(0), AddContactRequest(RecordToAdd(form).value()));
    EXPECT_EQ(Err(Fed("contacts add", kForm)).output, "");
}

TEST_F(ContactsCommand, UpdateReadsTheContactAndSendsTheDifference) {
    START_OR_SKIP({.bytes = Framed(Contact())});
    EXPECT_EQ(Out(Fed("contacts update 7", kForm)).status, 0);
    EXPECT_EQ(Request(0), ReadContactRequest(7));
    const auto loaded = ParseContact(ReplyBuffer::Holding(Contact()));
    EXPECT_EQ(Request(1), UpdateContactRequest(RecordToUpdate(loaded.value(), Form())));
}

TEST_F(ContactsCommand, UpdateOfAContactThatWasNotReadWholeSendsNothing) {
    Bytes cut = Framed(Contact());
    cut.resize(cut.size() - 1);
    START_OR_SKIP({.bytes = cut, .end = Answer::End::close});
    const std::string line = Fed("contacts update 7", kForm);
    EXPECT_EQ(Out(line).status, 2);
    EXPECT_EQ(Err(line).output, "quorvictl: 连接中断，资料没有读全\n");
    EXPECT_EQ(Request(0), ReadContactRequest(7));
    EXPECT_EQ(Request(1), ReadContactRequest(7));
    EXPECT_EQ(Out("contacts show 7").status, 0);  // what came is shown
}

TEST_F(ContactsCommand, DeleteNamesTheContactsInTheirOrder) {
    START_OR_SKIP({.bytes = Word(NoDataMark)});
    const Ended ended = Out("contacts delete 9 3 --json");
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(DeleteBehindEmptyList(), Join({Word(870106), Word(20), Word(2), Word(9), Word(3)}));
    const auto document = ParseJson(ended.output);
    ASSERT_TRUE(document);
    EXPECT_EQ((*document)["deleted"].size(), 2u);
}

TEST_F(ContactsCommand, AddWithoutANameIsRefusedWithTheEditorsText) {
    START_OR_SKIP({.bytes = Word(1)});
    EXPECT_EQ(Out(Fed("contacts add", "{\"nickname\": \"A\"}")).status, 1);
    EXPECT_EQ(Err(Fed("contacts add --json", "{\"name\": \"\"}")).output,
              "quorvictl: 错误: 联系人姓名不能为空\n");
}

TEST_F(ContactsCommand, MalformedFormIsRefusedAndItsMemberNamed) {
    const std::pair<std::string_view, std::string_view> forms[] = {
        {R"({"name": 5})", "name"},
        {R"({"favourite": "yes"})", "favourite"},
        {R"({"nmae": "A"})", "nmae"},
        {R"({"phones": {}})", "phones"},
        {R"({"phones": [{}, {}, {}, {}]})", "phones"},
        {R"({"phones": [{}, {"type": "mobile"}]})", "phones[1].type"},
        {R"({"phones": [7]})", "phones[0]"},
        {R"({"im": {"type": 1.5}})", "im.type"},
        {R"({"im": {"type": 99999999999}})", "im.type"},
        {R"({"email": {"txt": "a"}})", "email.txt"},
        {R"({"email": "a"})", "email"},
        {R"({"website": null})", "website"},
        {"[]", "JSON"},
        {"{", "JSON"},
        {"", "JSON"},
    };
    for (const auto& [form, member] : forms) {
        const std::string line = Fed("contacts add", form);
        EXPECT_EQ(Out(line).status, 1) << form;
        EXPECT_NE(Err(line).output.find(member), std::string::npos) << form;
    }
}

TEST_F(ContactsCommand, IdThatIsNoNumberIsWrongUsage) {
    for (const char* arguments : {"contacts show x", "contacts show", "contacts delete",
                                  "contacts delete 1 x", "contacts show 4294967296"}) {
        EXPECT_EQ(Out(arguments).status, 1) << arguments;
    }
    EXPECT_EQ(Out(Fed("contacts update x", kForm)).status, 1);
}

}  // namespace
}  // namespace quorvi::cli
