#include <gmock/gmock.h>

#include "tests/support/Ask.h"

namespace quorvi::phone {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

struct Line {
    bool incoming;
    std::string text;
};

class MessageCommands : public testing::Test {
  protected:
    Outcome AskFor(const Bytes& request) { return Ask(data_, request); }

    // Ids in the order of the list.
    std::vector<std::uint32_t> Conversations() {
        std::vector<std::uint32_t> ids;
        const ReplyBuffer reply = PayloadOf(AskFor(BareRequest(AgentCommand::listConversations)));
        ReplyCursor cursor(reply);
        do {
            ids.push_back(static_cast<std::uint32_t>(cursor.TakeUInt64()));
            cursor.SkipText();
            cursor.SkipText();
            cursor.SkipBytes(8 + 4 + 4);
            cursor.SkipText();
        } while (!cursor.AtEnd());
        EXPECT_FALSE(cursor.Overran());
        return ids;
    }

    static Bytes ReadRequest(std::uint32_t id) {
        Bytes request = BareRequest(AgentCommand::readConversation);
        request.resize(8);
        PackUInt32(id, request.data() + 4);
        return request;
    }

    std::vector<Line> Read(std::uint32_t id) {
        std::vector<Line> lines;
        const ReplyBuffer reply = PayloadOf(AskFor(ReadRequest(id)));
        ReplyCursor cursor(reply);
        do {
            cursor.SkipBytes(8);
            const bool incoming = cursor.TakeUInt32() == 1;
            cursor.SkipText();
            cursor.SkipBytes(8 + 4);
            lines.push_back({incoming, std::string(*cursor.TakeUtf8())});
            cursor.SkipBytes(4);
        } while (!cursor.AtEnd());
        EXPECT_FALSE(cursor.Overran());
        return lines;
    }

    Handset handset_{DeliveredProfile(0)};
    AgentData data_{handset_};
};

TEST_F(MessageCommands, TheNewestConversationComesFirst) {
    const auto ids = Conversations();
    EXPECT_EQ(std::vector(ids.begin(), ids.begin() + 4),
              (std::vector<std::uint32_t>{12, 9, 31, 27}));
}

TEST_F(MessageCommands, AConversationBearsTheNameOfItsContact) {
    const ReplyBuffer reply = PayloadOf(AskFor(BareRequest(AgentCommand::listConversations)));
    ReplyCursor cursor(reply);
    cursor.SkipBytes(8);
    EXPECT_EQ(cursor.TakeUtf8(), "林远舟");
    EXPECT_EQ(cursor.TakeUtf8(), "13861234567");
}

TEST_F(MessageCommands, OneConversationHasAnIdPastThirtyOneBits) {
    EXPECT_THAT(Conversations(), testing::Contains(0x8000002Du));
}

TEST_F(MessageCommands, ReadsAConversationFromItsOldestMessage) {
    const auto lines = Read(9);
    ASSERT_THAT(lines, SizeIs(2));
    EXPECT_FALSE(lines[0].incoming);
    EXPECT_TRUE(lines[1].incoming);
}

TEST_F(MessageCommands, AnUnknownConversationHasNoData) {
    EXPECT_TRUE(IsNoData(AskFor(ReadRequest(4711))));
}

TEST_F(MessageCommands, ASentMessageAppearsInItsConversationsAndTheyComeFirst) {
    const Outcome outcome = AskFor(RequestBuilder(AgentCommand::sendMessage)
                                       .BeginItem()
                                       .AddRawText("+8613512340098")  // conversation 9
                                       .BeginItem()
                                       .AddRawText("13900000000")  // nobody yet
                                       .AddRawText("hello")
                                       .Take());
    EXPECT_THAT(outcome.deviations, IsEmpty());
    EXPECT_EQ(outcome.note, "to +8613512340098,13900000000: hello");
    const auto ids = Conversations();
    EXPECT_EQ(ids[0], 9u);
    EXPECT_EQ(Read(9).back().text, "hello");
    EXPECT_FALSE(Read(9).back().incoming);
    EXPECT_THAT(Read(ids[1]), SizeIs(1));
}

TEST_F(MessageCommands, AMessageWithMoreNumbersThanItHasIsNamedAndNotSent) {
    const auto before = Conversations();
    const Outcome outcome = AskFor(RequestBuilder(AgentCommand::sendMessage)
                                       .BeginItem()
                                       .BeginItem()
                                       .AddRawText("13900000000")
                                       .AddRawText("hello")
                                       .Take());
    EXPECT_THAT(outcome.deviations,
                ElementsAre("the frame ends before the fields of its 2 items do"));
    EXPECT_EQ(Conversations(), before);
}

TEST_F(MessageCommands, DeletesAConversation) {
    const auto before = Conversations();
    const Outcome outcome = AskFor(
        RequestBuilder(AgentCommand::deleteConversation).BeginItem().AddUInt32(0x8000002Du).Take());
    EXPECT_THAT(outcome.deviations, IsEmpty());
    EXPECT_EQ(Conversations().size(), before.size() - 1);
}

TEST_F(MessageCommands, AConversationOfManyMessages) {
    data_.Fill({.conversations = 5000, .messages = 300});
    EXPECT_THAT(Conversations(), SizeIs(5000));
    EXPECT_THAT(Read(1), SizeIs(300));
    EXPECT_THAT(Read(2), SizeIs(1));
}

TEST_F(MessageCommands, APhoneWithoutMessagesHasNoData) {
    data_.Fill({.conversations = 0});
    EXPECT_TRUE(IsNoData(AskFor(BareRequest(AgentCommand::listConversations))));
}

}  // namespace
}  // namespace quorvi::phone
