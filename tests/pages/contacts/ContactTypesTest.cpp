#include <gtest/gtest.h>

#include "base/Text.h"
#include "pages/contacts/ContactTypes.h"

namespace quorvi {
namespace {

using Captions = std::vector<std::u8string_view>;

TEST(ContactTypes, PhoneLabelsAreExact) {
    const std::u8string_view labels[] = {
        u8"自定电话：", u8"个人电话：", u8"手机：",   u8"公司电话：",
        u8"公司传真：", u8"个人传真：", u8"寻呼机：", u8"其他电话：",
    };
    for (int code = 0; code < 8; ++code) {
        EXPECT_EQ(kPhoneTypes.Label(code), Ansi(labels[code])) << code;
    }
    EXPECT_EQ(kPhoneTypes.Label(8), Ansi(u8"未知电话："));
    EXPECT_EQ(kPhoneTypes.Label(-1), Ansi(u8"未知电话："));
}

TEST(ContactTypes, EmailLabelsAreExactWithTheHalfWidthColonOfOne) {
    const std::u8string_view labels[] = {u8"自定邮箱：", u8"个人邮箱：", u8"工作邮箱：",
                                         u8"其他邮箱：", u8"手机邮箱:"};
    for (int code = 0; code < 5; ++code) {
        EXPECT_EQ(kEmailTypes.Label(code), Ansi(labels[code])) << code;
    }
}

TEST(ContactTypes, ImLabelsAreExactWithTheHalfWidthColonOfOne) {
    const std::u8string_view labels[] = {u8"AIM：",  u8"MSN：",    u8"雅虎通：",
                                         u8"Skype:", u8"QQ：",     u8"GTalk：",
                                         u8"ICQ：",  u8"Jabber：", u8"NetMeeting："};
    for (int code = 0; code < 9; ++code) {
        EXPECT_EQ(kImTypes.Label(code), Ansi(labels[code])) << code;
    }
}

TEST(ContactTypes, UnknownImIsLabelledAsAnUnknownMail) {
    EXPECT_EQ(kEmailTypes.Label(5), Ansi(u8"未知邮箱："));
    EXPECT_EQ(kImTypes.Label(9), Ansi(u8"未知邮箱："));
    EXPECT_EQ(kImTypes.Label(-2), Ansi(u8"未知邮箱："));
    EXPECT_EQ(kImTypes.Label(-1), Ansi(u8"自定义IM："));
}

TEST(ContactTypes, AddressAndOrganisationLabelsAreExact) {
    EXPECT_EQ(kAddressTypes.Label(0), Ansi(u8"自定地址："));
    EXPECT_EQ(kAddressTypes.Label(1), Ansi(u8"个人地址："));
    EXPECT_EQ(kAddressTypes.Label(2), Ansi(u8"工作地址："));
    EXPECT_EQ(kAddressTypes.Label(3), Ansi(u8"其他地址："));
    EXPECT_EQ(kAddressTypes.Label(4), Ansi(u8"未知地址："));
    EXPECT_EQ(kOrganisationTypes.Label(0), Ansi(u8"自定组织："));
    EXPECT_EQ(kOrganisationTypes.Label(1), Ansi(u8"工作组织："));
    EXPECT_EQ(kOrganisationTypes.Label(2), Ansi(u8"其他组织："));
    EXPECT_EQ(kOrganisationTypes.Label(3), Ansi(u8"未知组织："));
}

TEST(ContactTypes, WebsitesAndGroupsHaveOneLabel) {
    EXPECT_EQ(kWebsiteTypes.Label(0), Ansi(u8"个人网页："));
    EXPECT_EQ(kWebsiteTypes.Label(7), Ansi(u8"个人网页："));
    EXPECT_EQ(kGroupTypes.Label(0), Ansi(u8"所属分组："));
}

TEST(ContactTypes, CombosHoldTheCaptionsInTheirOrder) {
    EXPECT_EQ(kPhoneTypes.Captions(), (Captions{u8"个人", u8"手机", u8"公司电话", u8"公司传真",
                                                u8"个人传真", u8"寻呼机", u8"其他", u8"自定义"}));
    EXPECT_EQ(kEmailTypes.Captions(),
              (Captions{u8"个人", u8"工作", u8"其他", u8"手机邮箱", u8"自定义"}));
    EXPECT_EQ(kImTypes.Captions(),
              (Captions{u8"AIM", u8"MSN", u8"雅虎通", u8"Skype", u8"QQ", u8"GTalk", u8"ICQ",
                        u8"Jabber", u8"NetMeeting", u8"自定义"}));
}

TEST(ContactTypes, CodeAndComboIndexLeadToEachOther) {
    const int phoneCodes[] = {1, 2, 3, 4, 5, 6, 7, 0};
    for (int index = 0; index < 8; ++index) {
        EXPECT_EQ(kPhoneTypes.Code(index), phoneCodes[index]);
        EXPECT_EQ(kPhoneTypes.ComboIndex(phoneCodes[index]), index);
    }
    const int emailCodes[] = {1, 2, 3, 4, 0};
    for (int index = 0; index < 5; ++index) {
        EXPECT_EQ(kEmailTypes.Code(index), emailCodes[index]);
        EXPECT_EQ(kEmailTypes.ComboIndex(emailCodes[index]), index);
    }
    const int imCodes[] = {0, 1, 2, 3, 4, 5, 6, 7, 8, -1};
    for (int index = 0; index < 10; ++index) {
        EXPECT_EQ(kImTypes.Code(index), imCodes[index]);
        EXPECT_EQ(kImTypes.ComboIndex(imCodes[index]), index);
    }
}

TEST(ContactTypes, CodeOutsideTheTableShowsAsTheLastEntry) {
    EXPECT_EQ(kPhoneTypes.ComboIndex(8), 7);
    EXPECT_EQ(kPhoneTypes.ComboIndex(-1), 7);
    EXPECT_EQ(kEmailTypes.ComboIndex(5), 4);
    EXPECT_EQ(kImTypes.ComboIndex(9), 9);
    EXPECT_EQ(kImTypes.ComboIndex(-2), 9);
}

TEST(ContactTypes, IndexOutsideTheComboGivesTheCodeOfTheLastEntry) {
    for (const int index : {-1, 10, 1000}) {
        EXPECT_EQ(kPhoneTypes.Code(index), 0) << index;
        EXPECT_EQ(kEmailTypes.Code(index), 0) << index;
        EXPECT_EQ(kImTypes.Code(index), -1) << index;
    }
}

}  // namespace
}  // namespace quorvi
