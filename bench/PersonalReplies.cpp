#include "bench/PersonalReplies.h"

#include <array>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "tests/pages/calls/CallReplies.h"
#include "tests/pages/messages/MessageReplies.h"

namespace quorvi {
namespace {

constexpr std::array<std::string_view, 12> kSurnames{"林", "叶", "顾", "沈",   "陈", "王",
                                                     "李", "周", "吴", "欧阳", "许", "何"};
constexpr std::array<std::string_view, 16> kGiven{"远", "知", "晓", "明", "子", "雨", "思", "文",
                                                  "建", "国", "舟", "秋", "棠", "杰", "涵", "敏"};
constexpr std::array<std::string_view, 16> kPhrases{
    "好的，",
    "收到，",
    "明天下午三点在老地方见，",
    "路上小心，到了给我打个电话，",
    "您尾号8821的储蓄卡账户于今日支出人民币256.00元，活期余额3,018.45元，",
    "会议改到下周二上午十点，请带上季度报表和合同的复印件，",
    "晚上一起吃饭吗？",
    "快递放在门卫那里了，",
    "妈说这个周末回家，",
    "尊敬的客户，您本月已使用流量512MB，套餐内剩余1.5GB，",
    "生日快乐！",
    "哈哈哈哈，",
    "我在地铁上，信号不太好，一会儿再说，",
    "OK, see you then. ",
    "验证码 384512，十分钟内有效，请勿告诉他人，",
    "孩子的作业写完了没有？",
};

// A pick for each call, the same in every run.
class Dice {
  public:
    // Below `end`.
    std::size_t Roll(std::size_t end) { return random_() % end; }

    template <std::size_t Size>
    std::string_view Of(const std::array<std::string_view, Size>& words) {
        return words[Roll(Size)];
    }
    // Mostly one or two phrases, now and then up to ten.
    std::string Message() {
        std::string text;
        const std::size_t phrases = Roll(6) == 0 ? 3 + Roll(8) : 1 + Roll(2);
        for (std::size_t i = 0; i < phrases; ++i) {
            text += Of(kPhrases);
        }
        return text;
    }
    std::string Mobile() { return std::to_string(13'000'000'000 + Roll(999'999'999)); }

  private:
    std::mt19937_64 random_{1};
};

// A name that no other index has within some ten thousand.
std::string NameOf(int index) {
    const auto at = static_cast<std::size_t>(index);
    std::string name(kSurnames[at % kSurnames.size()]);
    name += kGiven[at / kSurnames.size() % kGiven.size()];
    name += kGiven[at / kSurnames.size() / kGiven.size() % kGiven.size()];
    const std::size_t round = at / kSurnames.size() / kGiven.size() / kGiven.size();
    return round == 0 ? name : name + std::to_string(round + 1);
}

}  // namespace

Bytes ConversationsPayloadOf(int count) {
    Dice dice;
    std::vector<ListedConversation> conversations;
    for (int i = 0; i < count; ++i) {
        const std::string number = dice.Mobile();
        conversations.push_back({.id = static_cast<std::uint64_t>(i) + 1,
                                 .name = dice.Roll(4) == 0 ? number : NameOf(i),
                                 .number = number,
                                 .text = dice.Message()});
    }
    return ConversationsPayload(conversations).Get();
}

Bytes MessagesPayloadOf(int count) {
    Dice dice;
    std::vector<ListedMessage> messages;
    for (int i = 0; i < count; ++i) {
        messages.push_back({.incoming = dice.Roll(2) == 0 ? 1U : 0U, .text = dice.Message()});
    }
    return MessagesPayload(messages).Get();
}

Bytes GroupNamesPayloadOf(int groups) {
    WireBytes bytes;
    bytes.U32(0);  // leading word
    for (int i = 1; i <= groups; ++i) {
        bytes.U64(static_cast<std::uint64_t>(i)).Text("分组 " + std::to_string(i));
    }
    return bytes.Get();
}

Bytes GroupMembersPayloadOf(int members, int groups, int inLargest) {
    Dice dice;
    std::vector<ListedMember> listed;
    for (int i = 0; i < members; ++i) {
        const int group = i < inLargest ? 1 : 2 + i % (groups - 1);
        listed.push_back({.group = group, .name = NameOf(i), .number = dice.Mobile()});
    }
    return MembersPayload(listed).Get();
}

Bytes CallsPayloadOf(int count) {
    Dice dice;
    std::vector<ListedCall> calls;
    for (int i = 0; i < count; ++i) {
        calls.push_back({.id = static_cast<std::uint64_t>(i) + 1,
                         .number = dice.Mobile(),
                         .date = 1'308'361'330'000 + static_cast<std::uint64_t>(i) * 60'000,
                         .duration = dice.Roll(4'000),
                         .type = 1 + static_cast<std::uint32_t>(dice.Roll(3)),
                         .name = dice.Roll(3) == 0 ? std::string() : NameOf(i % 3'000)});
    }
    return CallsPayload(calls).Get();
}

}  // namespace quorvi
