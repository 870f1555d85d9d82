#include <gtest/gtest.h>

#include <array>
#include <string>
#include <utility>

#include "base/Text.h"
#include "pages/messages/ConversationIndex.h"

namespace quorvi {
namespace {

Conversation Held(std::string name, std::string number, std::string text) {
    Conversation conversation;
    conversation.name = std::move(name);
    conversation.number = std::move(number);
    conversation.text = std::move(text);
    return conversation;
}

const std::array<Conversation, 3> kThree{
    Held(Ansi(u8"林远舟"), "138-6123-4567", Ansi(u8"今晚七点见")),
    Held("10086", "10086", Ansi(u8"您的余额为 12 元")),
    Held(Ansi(u8"罗忆中"), "", "See you at 7"),
};

std::vector<int> Found(std::u16string_view typed) {
    return IndexOfConversations(kThree, {}).Find(FindQuery(typed));
}

TEST(ConversationIndex, ANameIsFoundByAnyPartOfItByPinyinAndByItsInitials) {
    EXPECT_EQ(Found(u"远"), std::vector<int>{0});
    EXPECT_EQ(Found(u"yuanzh"), std::vector<int>{0});
    EXPECT_EQ(Found(u"lyz"), (std::vector<int>{0, 2}));
}

TEST(ConversationIndex, ANumberIsFoundByItsDigits) {
    EXPECT_EQ(Found(u"1386123"), std::vector<int>{0});
    EXPECT_EQ(Found(u"0086"), std::vector<int>{1});
}

TEST(ConversationIndex, AMessageIsFoundByItsTextLetterByLetter) {
    EXPECT_EQ(Found(u"七点"), std::vector<int>{0});
    EXPECT_EQ(Found(u"YOU AT"), std::vector<int>{2});
    EXPECT_EQ(Found(u"jinwan"), std::vector<int>{});  // no pinyin of what was written
}

TEST(ConversationIndex, AConversationIsFoundByTheTextsThatWereReadOfItToo) {
    std::array<Conversation, 2> two{kThree[0], kThree[1]};
    two[0].id = 7;
    two[1].id = 9;
    const ReadTexts read{{9, {Ansi(u8"流量"), "CXLL"}}, {8, {Ansi(u8"流量")}}};
    const FindIndex index = IndexOfConversations(two, read);
    EXPECT_EQ(index.Find(FindQuery(u"流量")), std::vector<int>{1});
    EXPECT_EQ(index.Find(FindQuery(u"cxll")), std::vector<int>{1});
    EXPECT_EQ(index.Find(FindQuery(u"七点")), std::vector<int>{0});
    EXPECT_EQ(index.Find(FindQuery(u"余额")), std::vector<int>{1});
}

TEST(ConversationIndex, AMessageOfOneConversationIsFoundByItsTextAlone) {
    const std::array<ConversationMessage, 3> messages{
        ConversationMessage{true, "13861234567", "2011-06-18 09:12:44", Ansi(u8"到家了吗")},
        ConversationMessage{false, "13861234567", "2011-06-18 09:13:02", Ansi(u8"到了，138")},
        ConversationMessage{true, "13861234567", "2011-06-18 09:14:10", "OK"},
    };
    const FindIndex index = IndexOfMessages(messages);
    EXPECT_EQ(index.Find(FindQuery(u"到")), (std::vector<int>{0, 1}));
    EXPECT_EQ(index.Find(FindQuery(u"ok")), std::vector<int>{2});
    EXPECT_EQ(index.Find(FindQuery(u"138")), std::vector<int>{1});
    EXPECT_EQ(index.Find(FindQuery(u"daojia")), std::vector<int>{});
}

}  // namespace
}  // namespace quorvi
