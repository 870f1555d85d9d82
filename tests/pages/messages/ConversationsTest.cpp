#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>

#include "base/Text.h"
#include "pages/messages/Conversations.h"
#include "tests/support/WireBytes.h"

namespace quorvi {
namespace {

class Conversations : public testing::Test {
  protected:
    Conversations() {
        setenv("TZ", "Asia/Shanghai", 1);
        tzset();
    }
};

WireBytes Start() {
    return WireBytes().U32(0);  // leading word
}

WireBytes& AddConversation(WireBytes& bytes, std::uint64_t id, std::string_view name,
                           std::string_view text) {
    return bytes
        .U64(id)             // conversation id
        .Text(name)          // name
        .Text("10086")       // number
        .U64(1308361330999)  // date
        .U32(1)              // reserved
        .U32(2)              // reserved
        .Text(text);         // last message
}

WireBytes& AddMessage(WireBytes& bytes, std::uint32_t incoming, std::string_view address,
                      std::string_view text) {
    return bytes
        .U64(99)             // message id
        .U32(incoming)       // 1 came in
        .Text(address)       // the other party
        .U64(1308361330999)  // date
        .U32(1)              // reserved
        .Text(text)          // text
        .U32(2);             // reserved
}

std::string Mark(std::string_view number) {
    return "at " + std::string(number);
}

std::vector<Conversation> Parse(const WireBytes& bytes) {
    return ParseConversations(bytes.Buffer(), Mark);
}

TEST_F(Conversations, ReadsEachFieldOfAConversation) {
    WireBytes bytes = Start();
    AddConversation(bytes, 0x700000005, "中国移动", "余额");
    const auto list = Parse(bytes);
    ASSERT_EQ(list.size(), 1u);
    const Conversation& first = list[0];
    EXPECT_EQ(first.id, 5u);  // the low 32 bits
    EXPECT_EQ(first.name, Ansi(u8"中国移动"));
    EXPECT_EQ(first.number, "10086");
    EXPECT_EQ(first.attribution, "at 10086");
    EXPECT_EQ(first.date, "2011-06-18 09:42:10");
    EXPECT_EQ(first.text, Ansi(u8"余额"));
}

TEST_F(Conversations, AnAbsentNameDropsWhatWasReadBeforeIt) {
    WireBytes bytes = Start();
    AddConversation(bytes, 1, "A", "x");
    bytes.U64(2).Absent();
    const auto list = Parse(bytes);
    EXPECT_TRUE(list.empty());
}

TEST_F(Conversations, ALengthThatPointsOutsideEndsTheRun) {
    WireBytes bytes = Start();
    AddConversation(bytes, 1, "A", "x");
    bytes.U64(2).U32(0x10000).Raw("B");
    const auto list = Parse(bytes);
    EXPECT_EQ(list.size(), 1u);
}

TEST_F(Conversations, ABlockIsTheFragmentToTheLetter) {
    WireBytes bytes = Start();
    AddConversation(bytes, 5, "Lin", "see <b>you</b>");
    EXPECT_EQ(ConversationsFragment(Parse(bytes)).Html(),
              "<li><span class=tool><a href='"
              "qvh:did=5"
              "'>" +
                  Ansi(u8"删除") +
                  "</a> </span> <span class=sender><a href='"
                  "qvh:vid=5"
                  "'>"
                  "Lin"
                  "</a></span>"
                  "<span class=location>["
                  "at 10086"
                  "]</span>"
                  "<span class='time'>"
                  "2011-06-18 09:42:10"
                  "</span>"
                  "<p class=text><span><a href='javascript:void(0)'><img src='s_checked.gif'></a> "
                  "</span><a href='"
                  "qvh:vid=5"
                  "'>"
                  "see <b>you</b>"  // unescaped, as it came
                  "</a></p></li>");
}

TEST_F(Conversations, AnIdOfMoreThan31BitsPrintsNegativeAndReadsBackAsTheSame) {
    WireBytes bytes = Start();
    AddConversation(bytes, 0xFFFFFFFE, "A", "x");
    const std::string html = ConversationsFragment(Parse(bytes)).Html();
    EXPECT_NE(html.find("qvh:vid=-2'"), std::string::npos);
    const auto link = ReadConversationLink("vid=-2");
    ASSERT_TRUE(link);
    EXPECT_EQ(link->id, 0xFFFFFFFEu);
}

TEST_F(Conversations, ADateOfZeroShowsTheLocalTimeOf1970) {
    WireBytes bytes = Start();
    bytes.U64(1).Text("A").Text("1").U64(0).U32(0).U32(0).Text("x");
    ASSERT_EQ(Parse(bytes).size(), 1u);
    EXPECT_EQ(Parse(bytes)[0].date, "1970-01-01 08:00:00");
}

TEST_F(Conversations, AConversationInWhoseIdACutReplyEndsIsDropped) {
    WireBytes bytes = Start();
    AddConversation(bytes, 1, "A", "x");
    const std::size_t first = bytes.Get().size();
    AddConversation(bytes, 0x102, "B", "y");
    const auto idsOf = [&](std::size_t came) {
        return ParseConversations(bytes.CutAfter(came), Mark);
    };
    EXPECT_EQ(idsOf(first + 7).size(), 1u);  // a link to 0x100 would lead elsewhere
    ASSERT_EQ(idsOf(first + 8).size(), 2u);
    EXPECT_EQ(idsOf(first + 8)[1].id, 0x102u);
}

TEST_F(Conversations, AMessageInWhoseAddressACutReplyEndsIsDropped) {
    WireBytes bytes = Start();
    const std::size_t head = bytes.Get().size() + 8 + 4 + 4;  // id, incoming, length
    AddMessage(bytes, 1, "10086", "x");
    const auto partyOf = [&](std::size_t came) {
        return ConversationParty(ParseConversationMessages(bytes.CutAfter(came)));
    };
    EXPECT_EQ(partyOf(head + 4), "");  // "1008" would be somebody else
    EXPECT_EQ(partyOf(head + 5), "10086");
}

TEST(ConversationLinks, ViewAndDeleteCarryTheirId) {
    const auto view = ReadConversationLink("vid=17");
    ASSERT_TRUE(view);
    EXPECT_EQ(view->action, ConversationLink::Action::view);
    EXPECT_EQ(view->id, 17u);
    const auto remove = ReadConversationLink("did=17");
    ASSERT_TRUE(remove);
    EXPECT_EQ(remove->action, ConversationLink::Action::remove);
    EXPECT_EQ(remove->id, 17u);
}

TEST(ConversationLinks, EveryOccurrenceOfTheWordIsCutOut) {
    const auto link = ReadConversationLink("vid=vid=17");
    ASSERT_TRUE(link);
    EXPECT_EQ(link->id, 17u);
}

TEST(ConversationLinks, TheNumberIsReadAsFarAsItGoes) {
    EXPECT_EQ(ReadConversationLink("vid= +17x")->id, 17u);
    EXPECT_EQ(ReadConversationLink("did=")->id, 0u);
    EXPECT_EQ(ReadConversationLink("did=x")->id, 0u);
    EXPECT_EQ(ReadConversationLink("did=1did=7")->id, 17u);
    EXPECT_EQ(ReadConversationLink("did=-1")->id, kNoConversation);
    EXPECT_EQ(ReadConversationLink("vid=-2147483648")->id, 0x80000000u);
}

TEST(ConversationLinks, ANumberBeyond32BitsStaysAtTheNearestEnd) {
    EXPECT_EQ(ReadConversationLink("vid=4294967294")->id, 0x7FFFFFFFu);
    EXPECT_EQ(ReadConversationLink("vid=-99999999999")->id, 0x80000000u);
}

TEST(ConversationLinks, TheWordIsReadToTheLetter) {
    EXPECT_FALSE(ReadConversationLink("VID=17"));
    EXPECT_FALSE(ReadConversationLink("vid:17"));
}

TEST(ConversationLinks, AnyOtherBeginningDoesNothing) {
    EXPECT_FALSE(ReadConversationLink("uid=17"));
    EXPECT_FALSE(ReadConversationLink("vid"));
    EXPECT_FALSE(ReadConversationLink(""));
    EXPECT_FALSE(ReadConversationLink(" vid=17"));
}

TEST(ConversationRequests, DeletingIsAFrameOfOneItem) {
    EXPECT_EQ(DeleteConversationRequest(0xFFFFFFFE), WireBytes()
                                                         .U32(870206)      // code
                                                         .U32(16)          // total
                                                         .U32(1)           // item count
                                                         .U32(0xFFFFFFFE)  // conversation id
                                                         .Get());
}

TEST(ConversationRequests, ReadingIsEightBytesWithNeitherTotalNorCount) {
    EXPECT_EQ(ReadConversationRequest(5), WireBytes()
                                              .U32(870202)  // code
                                              .U32(5)       // conversation id
                                              .Get());
}

TEST_F(Conversations, MessagesOfBothDirectionsAreTheFragmentToTheLetter) {
    WireBytes bytes = Start();
    AddMessage(bytes, 1, "Lin", "hello");
    AddMessage(bytes, 0, "Lin", "<i>hi</i>");
    const auto read = ParseConversationMessages(bytes.Buffer());
    EXPECT_EQ(ConversationFragment(read).Html(),
              "<div class='entry'><ul class='detail_ul'><li><strong>"
              "Lin"
              "</strong><span>["
              "2011-06-18 09:42:10" +
                  Ansi(u8"]</span></li><li><dl class='remote'><dd><span>对您说：</span>") +
                  "hello"
                  "<div></div></dd></dl></li></ul><div class='clear'></div></div>"
                  "<div class='entry'><ul class='detail_ul'><li><strong>" +
                  Ansi(u8"本机") +
                  "</strong><span>["
                  "2011-06-18 09:42:10" +
                  Ansi(u8"]</span></li><li><dl class='me'><dd><span>我说：</span>") +
                  "<i>hi</i>"
                  "<div></div></dd></dl></li></ul><div class='clear'></div></div>");
}

TEST_F(Conversations, OnlyOneIsIncoming) {
    WireBytes bytes = Start();
    AddMessage(bytes, 2, "Lin", "x");
    const auto read = ParseConversationMessages(bytes.Buffer());
    ASSERT_EQ(read.size(), 1u);
    EXPECT_FALSE(read[0].incoming);
}

TEST_F(Conversations, ThePartyIsTheFirstMessagesAddressEvenIfItWentOut) {
    WireBytes bytes = Start();
    AddMessage(bytes, 0, "10086", "first");
    AddMessage(bytes, 1, "Lin", "second");
    EXPECT_EQ(ConversationParty(ParseConversationMessages(bytes.Buffer())), "10086");
    EXPECT_EQ(ConversationParty({}), "");
}

TEST_F(Conversations, AnAbsentAddressDropsWhatWasReadBeforeIt) {
    WireBytes bytes = Start();
    AddMessage(bytes, 1, "Lin", "x");
    bytes.U64(1).U32(1).Absent();
    const auto read = ParseConversationMessages(bytes.Buffer());
    EXPECT_TRUE(read.empty());
}

TEST_F(Conversations, AMessageWhoseLengthPointsOutsideEndsTheRun) {
    WireBytes bytes = Start();
    AddMessage(bytes, 1, "Lin", "x");
    bytes.U64(1).U32(1).U32(0x10000).Raw("B");
    const auto read = ParseConversationMessages(bytes.Buffer());
    EXPECT_EQ(read.size(), 1u);
}

TEST_F(Conversations, AMessagesDateOfZeroShowsTheLocalTimeOf1970) {
    WireBytes bytes = Start();
    bytes.U64(1).U32(1).Text("A").U64(0).U32(0).Text("x").U32(0);
    const auto read = ParseConversationMessages(bytes.Buffer());
    ASSERT_EQ(read.size(), 1u);
    EXPECT_EQ(read[0].date, "1970-01-01 08:00:00");
}

TEST_F(Conversations, WhatCameOfACutReplyIsRead) {
    WireBytes bytes = Start();
    AddConversation(bytes, 1, "A", "x");
    const std::size_t came = bytes.Get().size();
    AddConversation(bytes, 2, "B", "y");
    EXPECT_EQ(ParseConversations(bytes.CutAfter(came), Mark).size(), 1u);
}

}  // namespace
}  // namespace quorvi
