#include "pages/contacts/ContactTypes.h"

#include <algorithm>

#include "base/Text.h"

namespace quorvi {
namespace {

constexpr ContactType kPhones[] = {
    {0, u8"自定电话：", u8"自定义", 7},    // custom
    {1, u8"个人电话：", u8"个人", 0},      // home
    {2, u8"手机：", u8"手机", 1},          // mobile
    {3, u8"公司电话：", u8"公司电话", 2},  // work
    {4, u8"公司传真：", u8"公司传真", 3},  // work fax
    {5, u8"个人传真：", u8"个人传真", 4},  // home fax
    {6, u8"寻呼机：", u8"寻呼机", 5},      // pager
    {7, u8"其他电话：", u8"其他", 6},      // other
};

// The colon of one e-mail label and of one IM label is a half-width one: kept on purpose, the
// labels stay as they have always been shown (tests
// ContactTypes.EmailLabelsAreExactWithTheHalfWidthColonOfOne and
// ImLabelsAreExactWithTheHalfWidthColonOfOne).
constexpr ContactType kEmails[] = {
    {0, u8"自定邮箱：", u8"自定义", 4},  {1, u8"个人邮箱：", u8"个人", 0},
    {2, u8"工作邮箱：", u8"工作", 1},    {3, u8"其他邮箱：", u8"其他", 2},
    {4, u8"手机邮箱:", u8"手机邮箱", 3},
};

constexpr ContactType kIms[] = {
    {-1, u8"自定义IM：", u8"自定义", 9}, {0, u8"AIM：", u8"AIM", 0},
    {1, u8"MSN：", u8"MSN", 1},          {2, u8"雅虎通：", u8"雅虎通", 2},
    {3, u8"Skype:", u8"Skype", 3},       {4, u8"QQ：", u8"QQ", 4},
    {5, u8"GTalk：", u8"GTalk", 5},      {6, u8"ICQ：", u8"ICQ", 6},
    {7, u8"Jabber：", u8"Jabber", 7},    {8, u8"NetMeeting：", u8"NetMeeting", 8},
};

constexpr ContactType kAddresses[] = {
    {0, u8"自定地址："},
    {1, u8"个人地址："},
    {2, u8"工作地址："},
    {3, u8"其他地址："},
};

constexpr ContactType kOrganisations[] = {
    {0, u8"自定组织："},
    {1, u8"工作组织："},
    {2, u8"其他组织："},
};

}  // namespace

const ContactTypeTable kPhoneTypes{kPhones, u8"未知电话："};
const ContactTypeTable kEmailTypes{kEmails, u8"未知邮箱："};
// Kept on purpose: an IM of an unknown protocol is labelled as an e-mail of an unknown type (test
// ContactTypes.UnknownImIsLabelledAsAnUnknownMail).
const ContactTypeTable kImTypes{kIms, u8"未知邮箱："};
const ContactTypeTable kAddressTypes{kAddresses, u8"未知地址："};
const ContactTypeTable kOrganisationTypes{kOrganisations, u8"未知组织："};
const ContactTypeTable kWebsiteTypes{{}, u8"个人网页："};
const ContactTypeTable kGroupTypes{{}, u8"所属分组："};

std::string ContactTypeTable::Label(std::int32_t code) const {
    const auto found = std::ranges::find(types, code, &ContactType::code);
    return Ansi(found == types.end() ? otherLabel : found->label);
}

int ContactTypeTable::ComboIndex(std::int32_t code) const {
    const auto found = std::ranges::find(types, code, &ContactType::code);
    return found == types.end() ? static_cast<int>(types.size()) - 1 : found->comboIndex;
}

std::int32_t ContactTypeTable::Code(int comboIndex) const {
    const auto found = std::ranges::find(types, comboIndex, &ContactType::comboIndex);
    if (found != types.end()) {
        return found->code;
    }
    const auto last = std::ranges::max_element(types, {}, &ContactType::comboIndex);
    return last == types.end() ? 0 : last->code;
}

std::vector<std::u8string_view> ContactTypeTable::Captions() const {
    std::vector<std::u8string_view> captions(types.size());
    for (const ContactType& type : types) {
        captions[static_cast<std::size_t>(type.comboIndex)] = type.caption;
    }
    return captions;
}

}  // namespace quorvi
