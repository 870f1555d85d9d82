#include <gtest/gtest.h>

#include "base/HtmlFragment.h"
#include "base/Text.h"

namespace quorvi {
namespace {

std::string ForeignPartsOf(const HtmlFragment& fragment) {
    std::string parts;
    for (const HtmlFragment::Range& part : fragment.ForeignParts()) {
        parts += '[' + fragment.Html().substr(part.begin, part.end - part.begin) + ']';
    }
    return parts;
}

TEST(HtmlFragment, HoldsItsPiecesInOrder) {
    const HtmlFragment fragment =
        HtmlFragment(u8"<b>").Foreign("<i>name").Own(u8"</b>删除 ").Text("7").Foreign("text");
    EXPECT_EQ(fragment.Html(), "<b><i>name</b>" + Ansi(u8"删除") + " 7text");
    EXPECT_EQ(ForeignPartsOf(fragment), "[<i>name][text]");
}

TEST(HtmlFragment, EscapesWhatTheProgramPutsIn) {
    EXPECT_EQ(HtmlFragment().Text("<SP> & 'a' \"b\"").Html(),
              "&lt;SP&gt; &amp; &#39;a&#39; &quot;b&quot;");
    EXPECT_EQ(HtmlFragment().Text(Ansi(u8"<SP号码>")).Html(), "&lt;SP" + Ansi(u8"号码") + "&gt;");
    EXPECT_TRUE(HtmlFragment().Text("<b>").ForeignParts().empty());
}

TEST(HtmlFragment, PhonesTextsStayTheBytesThatCame) {
    const std::string text = "<b>&amp;\0\r\n\xFF";
    EXPECT_EQ(HtmlFragment().Foreign(text).Html(), text);
}

TEST(HtmlFragment, KnowsTheForeignPartsOfWhatIsAppended) {
    const HtmlFragment inner = HtmlFragment(u8"<p>").Foreign("one").Own(u8"</p>");
    HtmlFragment outer = HtmlFragment(u8"<div>").Foreign("zero");
    outer.Append(inner).Append(inner).Append({}).Own(u8"</div>");
    EXPECT_EQ(outer.Html(), "<div>zero<p>one</p><p>one</p></div>");
    EXPECT_EQ(ForeignPartsOf(outer), "[zero][one][one]");
}

}  // namespace
}  // namespace quorvi
