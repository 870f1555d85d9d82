#include <gtest/gtest.h>

#include "base/Text.h"
#include "pages/contacts/ContactFragment.h"

namespace quorvi {
namespace {

ContactItem Item(std::int32_t type, std::u8string_view text) {
    return {1, ContactItemOp::leave, type, Ansi(text)};
}

ContactField Field(std::u8string_view text) {
    return {true, ContactItemOp::leave, 1, Ansi(text)};
}

ContactRecord Stranger() {
    ContactRecord record;
    record.lastContact = "N/A";
    return record;
}

// The fragment of Stranger().
const std::u8string_view kHeadAndSummary =
    u8"<div class='line'><div class='l'><div class='photo'><img src='avatar_photo.png' width='50' "
    u8"height='50'/></div></div><div class='name'><b></b></div><div class='nickname'></div>"
    u8"<div class='clear'></div></div><div class='p10 summary'><div id='generals'>"
    u8"<p class='category'><b>基本信息</b></p>\t"
    u8"<div><p class='l w80 right c6'>收藏：</p><p class='entry'>&nbsp;</p><p class='l'>否</p>"
    u8"<p class='clear'></p></div>\t"
    u8"<div><p class='l w80 right c6'>联系次数：</p><p class='entry'>&nbsp;</p>"
    u8"<p class='l'>0 次</p><p class='clear'></p></div> "
    u8"<div><p class='l w80 right c6'>上次联系：</p><p class='entry'>&nbsp;</p>"
    u8"<p class='l'>N/A</p><p class='clear'></p></div> </div>";

bool Holds(const std::string& fragment, std::u8string_view piece) {
    return fragment.find(Ansi(piece)) != std::string::npos;
}

std::size_t CountOf(const std::string& fragment, std::string_view piece) {
    std::size_t count = 0;
    for (std::size_t at = 0; (at = fragment.find(piece, at)) != std::string::npos; ++at) {
        ++count;
    }
    return count;
}

TEST(ContactFragment, WholeContactIsExactToTheByte) {
    ContactRecord record;
    record.favourite = true;
    record.timesContacted = 27;
    record.lastContact = "2011-06-18 09:42:10";
    record.structured = Field(u8"林 远舟");  // never shown
    record.name = Field(u8"林远舟");
    record.nickname = Field(u8"阿舟");
    record.note = Field(u8"十月生日。");
    record.phones = {Item(2, u8"13861234567"), Item(3, u8"0519-8812 3456")};
    record.emails = {Item(1, u8"yuanzhou@example.com")};
    record.ims = {Item(4, u8"10240768")};
    record.addresses = {Item(1, u8"常州市天宁区")};
    record.websites = {Item(0, u8"http://yuanzhou.example.com")};
    record.organisations = {Item(1, u8"江南测绘研究院")};
    record.groups = {Item(0, u8"朋友"), Item(0, u8"徒步小队")};
    EXPECT_EQ(
        ContactFragment(record).Html(),
        Ansi(u8"<div class='line'><div class='l'><div class='photo'><img src='avatar_photo.png' "
             u8"width='50' height='50'/></div></div><div class='name'><b>林远舟</b></div>"
             u8"<div class='nickname'>阿舟</div><div class='clear'></div></div>"
             u8"<div class='p10 summary'><div id='generals'><p class='category'><b>基本信息</b>"
             u8"</p>\t<div><p class='l w80 right c6'>收藏：</p><p class='entry'>&nbsp;</p>"
             u8"<p class='l'>【是】</p><p class='clear'></p></div>\t"
             u8"<div><p class='l w80 right c6'>联系次数：</p><p class='entry'>&nbsp;</p>"
             u8"<p class='l'>27 次</p><p class='clear'></p></div> "
             u8"<div><p class='l w80 right c6'>上次联系：</p><p class='entry'>&nbsp;</p>"
             u8"<p class='l'>2011-06-18 09:42:10</p><p class='clear'></p></div> </div>"
             u8"<div id='pims'><p class='category'><b>联系方式</b></p>"
             u8"<div><p class='l w80 right c6'>手机：</p><p class='entry'>"
             u8"<img src='pim_call.gif'/>&nbsp;</p><p class='l'>13861234567</p>"
             u8"<p class='clear'></p></div>"
             u8"<div><p class='l w80 right c6'>公司电话：</p><p class='entry'>"
             u8"<img src='pim_call.gif'/>&nbsp;</p><p class='l'>0519-8812 3456</p>"
             u8"<p class='clear'></p></div>"
             u8"<div><p class='l w80 right c6'>个人邮箱：</p><p class='entry'>&nbsp;</p>"
             u8"<p class='l'>yuanzhou@example.com</p><p class='clear'></p></div>"
             u8"<div><p class='l w80 right c6'>QQ：</p><p class='entry'>"
             u8"<img src='pim_web.gif'/>&nbsp;</p><p class='l'>10240768</p>"
             u8"<p class='clear'></p></div></div>"
             u8"<div id='others'><p class='category'><b>其他信息</b></p>"
             u8"<div><p class='l w80 right c6'>个人地址：</p><p class='entry'>&nbsp;</p>"
             u8"<p class='l'>常州市天宁区</p><p class='clear'></p></div>"
             u8"<div><p class='l w80 right c6'>个人网页：</p><p class='entry'>&nbsp;</p>"
             u8"<p class='l'>http://yuanzhou.example.com</p><p class='clear'></p></div>"
             u8"<div><p class='l w80 right c6'>工作组织：</p><p class='entry'>&nbsp;</p>"
             u8"<p class='l'>江南测绘研究院</p><p class='clear'></p></div></div>"
             u8"<div id='groups'><p class='category'><b>分组信息</b></p>"
             u8"<div><p class='l w80 right c6'>所属分组：</p><p class='entry'>"
             u8"<img src='pim_group.gif'/>&nbsp;</p><p class='l'>朋友</p>"
             u8"<p class='clear'></p></div>"
             u8"<div><p class='l w80 right c6'>所属分组：</p><p class='entry'>"
             u8"<img src='pim_group.gif'/>&nbsp;</p><p class='l'>徒步小队</p>"
             u8"<p class='clear'></p></div></div>"
             u8"<div id='notes'><p class='category'><b>备注</b></p>"
             u8"<p class='l w280  section  c6'>十月生日。</p></div>"));
}

TEST(ContactFragment, ContactWithNothingStillHasItsSummary) {
    EXPECT_EQ(ContactFragment(Stranger()).Html(), Ansi(kHeadAndSummary));
}

TEST(ContactFragment, SummaryBlockIsNeverClosed) {
    const std::string fragment = ContactFragment(Stranger()).Html();
    EXPECT_EQ(CountOf(fragment, "<div"), CountOf(fragment, "</div>") + 1);
}

TEST(ContactFragment, EachSectionStandsAlone) {
    ContactRecord record = Stranger();
    record.ims = {Item(4, u8"1")};
    EXPECT_TRUE(Holds(ContactFragment(record).Html(), u8"<div id='pims'>"));
    EXPECT_FALSE(Holds(ContactFragment(record).Html(), u8"<div id='others'>"));
    record = Stranger();
    record.websites = {Item(0, u8"w")};
    EXPECT_TRUE(Holds(ContactFragment(record).Html(), u8"<div id='others'>"));
    EXPECT_FALSE(Holds(ContactFragment(record).Html(), u8"<div id='pims'>"));
    EXPECT_FALSE(Holds(ContactFragment(record).Html(), u8"<div id='groups'>"));
    EXPECT_FALSE(Holds(ContactFragment(record).Html(), u8"<div id='notes'>"));
}

TEST(ContactFragment, GroupWithAnEmptyNameStillGetsItsLine) {
    ContactRecord record = Stranger();
    record.groups = {Item(0, u8"")};
    EXPECT_TRUE(Holds(ContactFragment(record).Html(),
                      u8"<p class='l w80 right c6'>所属分组：</p><p class='entry'>"
                      u8"<img src='pim_group.gif'/>&nbsp;</p><p class='l'></p>"));
}

TEST(ContactFragment, UnknownMailAndUnknownImShareOneLabel) {
    ContactRecord record = Stranger();
    record.emails = {Item(99, u8"m")};
    EXPECT_TRUE(Holds(ContactFragment(record).Html(), u8">未知邮箱：</p><p class='entry'>&nbsp;"));
    record = Stranger();
    record.ims = {Item(99, u8"i")};
    EXPECT_TRUE(Holds(ContactFragment(record).Html(),
                      u8">未知邮箱：</p><p class='entry'><img src='pim_web.gif'/>&nbsp;"));
}

TEST(ContactFragment, EmptyNoteThatIsPresentHasItsSection) {
    ContactRecord record = Stranger();
    record.note = Field(u8"");
    EXPECT_EQ(ContactFragment(record).Html(),
              Ansi(kHeadAndSummary) + Ansi(u8"<div id='notes'><p class='category'><b>备注</b>"
                                           u8"</p><p class='l w280  section  c6'></p></div>"));
}

TEST(ContactFragment, TextIsNotEscaped) {
    ContactRecord record = Stranger();
    record.name = Field(u8"<i>&{}</i>");
    EXPECT_TRUE(
        Holds(ContactFragment(record).Html(), u8"<div class='name'><b><i>&{}</i></b></div>"));
}

TEST(ContactFragment, TimesAboveTwoBillionShowAsTheSignedNumberTheyAre) {
    ContactRecord record = Stranger();
    record.timesContacted = 0xFFFFFFFF;
    EXPECT_TRUE(Holds(ContactFragment(record).Html(), u8"<p class='l'>-1 次</p>"));
}

}  // namespace
}  // namespace quorvi
