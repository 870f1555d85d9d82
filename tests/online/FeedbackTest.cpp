#include <gtest/gtest.h>

#include "base/ByteText.h"
#include "base/Text.h"
#include "base/os/KernelRelease.h"
#include "online/CheckSum.h"
#include "online/Feedback.h"
#include "tests/online/SiteFaults.h"
#include "tests/support/SiteServer.h"

namespace quorvi {
namespace {

FeedbackForm WholeForm() {
    return {.model = Ansi(u8"奎维 Q1"),
            .firmware = "2.2",
            .content = Ansi(u8"很好用 & 很快"),
            .email = "one@quorvi.example",
            .qq = "10001"};
}

// At a site that would take it, if it were asked.
FeedbackOutcome Send(const FeedbackForm& form, std::string_view reply = "ok") {
    const SiteServer site;
    site.Serve("feedback/feedback.php", reply);
    return SendFeedback({.siteRoot = site.Root()}, form, 20);
}

TEST(FeedbackDocumentTest, HasItsMembersByName) {
    FeedbackForm form = WholeForm();
    form.platform = FeedbackPlatform::ophone;
    EXPECT_EQ(FeedbackDocument(form, 20, 61),
              "{\n"
              "   \"CheckSum\" : \"" +
                  FeedbackCheckSum("Ophone", "很好用 & 很快") +
                  "\",\n"
                  "   \"Client\" : 20,\n"
                  "   \"Content\" : \"很好用 & 很快\",\n"
                  "   \"Email\" : \"one@quorvi.example\",\n"
                  "   \"Model\" : \"奎维 Q1\",\n"
                  "   \"Pc\" : 61,\n"
                  "   \"Platform\" : \"Ophone\",\n"
                  "   \"QQ\" : \"10001\",\n"
                  "   \"Rom\" : \"2.2\"\n"
                  "}\n");
}

TEST(SendFeedbackTest, PostsTheDocumentAsItsField) {
    const SiteServer site;
    site.Serve("feedback/feedback.php", "ok");
    EXPECT_EQ(SendFeedback({.siteRoot = site.Root()}, WholeForm(), 20), FeedbackOutcome::received);
    EXPECT_EQ(site.Requests(1).at(0).body,
              "feedback=" + FeedbackDocument(WholeForm(), 20, KernelReleaseNumber()) + "&");
}

TEST(SendFeedbackTest, TheLettersOkAnywhereInTheReplyAreEnough) {
    EXPECT_EQ(Send(WholeForm(), "a token"), FeedbackOutcome::received);
    EXPECT_EQ(Send(WholeForm(), "OK"), FeedbackOutcome::failed);
    EXPECT_EQ(Send(WholeForm(), "<html>o k</html>"), FeedbackOutcome::failed);
}

TEST(SendFeedbackTest, LooksAtTheContentFirst) {
    FeedbackForm form;
    EXPECT_EQ(Send(form), FeedbackOutcome::contentTooShort);
    form.content = "four";
    EXPECT_EQ(Send(form), FeedbackOutcome::firmwareTooShort);
    form.firmware = "22";
    EXPECT_EQ(Send(form), FeedbackOutcome::modelTooShort);
    form.model = "Q1";
    EXPECT_EQ(Send(form), FeedbackOutcome::received);
}

TEST(SendFeedbackTest, AContentOfThreeCharactersIsRefusedWithoutARequest) {
    const SiteServer site;
    site.Serve("feedback/feedback.php", "ok");
    FeedbackForm form = WholeForm();
    form.content = Ansi(u8"很好用");
    EXPECT_EQ(SendFeedback({.siteRoot = site.Root()}, form, 0), FeedbackOutcome::contentTooShort);
    form.content = Ansi(u8"很好用!");
    EXPECT_EQ(SendFeedback({.siteRoot = site.Root()}, form, 0), FeedbackOutcome::received);
    EXPECT_EQ(site.Requests(1).size(), 1U);
}

TEST(SendFeedbackTest, OneCharacterIsNoFirmwareAndNoModel) {
    FeedbackForm form = WholeForm();
    form.firmware = "2";
    EXPECT_EQ(Send(form), FeedbackOutcome::firmwareTooShort);
    form = WholeForm();
    form.model = Ansi(u8"奎");
    EXPECT_EQ(Send(form), FeedbackOutcome::modelTooShort);
}

TEST(WasSentTest, ARefusedFormWasNot) {
    EXPECT_FALSE(WasSent(FeedbackOutcome::contentTooShort));
    EXPECT_FALSE(WasSent(FeedbackOutcome::firmwareTooShort));
    EXPECT_FALSE(WasSent(FeedbackOutcome::modelTooShort));
    EXPECT_TRUE(WasSent(FeedbackOutcome::failed));
    EXPECT_TRUE(WasSent(FeedbackOutcome::received));
}

TEST(FeedbackTextTest, OfEachOutcome) {
    EXPECT_EQ(FeedbackText(FeedbackOutcome::contentTooShort), Ansi(u8"您的反馈内容过少"));
    EXPECT_EQ(FeedbackText(FeedbackOutcome::firmwareTooShort), Ansi(u8"请输入有效的固件版本"));
    EXPECT_EQ(FeedbackText(FeedbackOutcome::modelTooShort), Ansi(u8"请输入有效的机型"));
    EXPECT_EQ(FeedbackText(FeedbackOutcome::failed), Ansi(u8"提交失败，请稍后再试 :("));
    EXPECT_EQ(FeedbackText(FeedbackOutcome::received),
              Ansi(u8"感谢您的支持，反馈信息我们已收到 :)"));
}

class FeedbackFaults : public testing::TestWithParam<SiteFault> {};

TEST_P(FeedbackFaults, AreAFailedPost) {
    const SiteFault& fault = GetParam();
    LoopbackAgent site({.bytes = ToBytes(fault.answer), .end = fault.end});
    EXPECT_EQ(SendFeedback({.siteRoot = fmt::format("http://127.0.0.1:{}/", site.Port())},
                           WholeForm(), 0, fault.limits),
              FeedbackOutcome::failed);
}

// The site would say "thank you, all is ok": the half of it that comes has no such word.
INSTANTIATE_TEST_SUITE_P(Site, FeedbackFaults,
                         testing::ValuesIn(SiteFaults("thank you, all is ok")), NameOfFault);

TEST(AndroidVersionOfTest, KnowsEachLevelUpToToday) {
    EXPECT_EQ(AndroidVersionOf(1), "Android 1.0");
    EXPECT_EQ(AndroidVersionOf(3), "Android 1.5");
    EXPECT_EQ(AndroidVersionOf(8), "Android 2.2");
    EXPECT_EQ(AndroidVersionOf(10), "Android 2.3.3");
    EXPECT_EQ(AndroidVersionOf(15), "Android 4.0.3");
    EXPECT_EQ(AndroidVersionOf(19), "Android 4.4");
    EXPECT_EQ(AndroidVersionOf(21), "Android 5.0");
    EXPECT_EQ(AndroidVersionOf(23), "Android 6.0");
    EXPECT_EQ(AndroidVersionOf(24), "Android 7.0");
    EXPECT_EQ(AndroidVersionOf(27), "Android 8.1");
    EXPECT_EQ(AndroidVersionOf(28), "Android 9");
    EXPECT_EQ(AndroidVersionOf(32), "Android 12L");
    EXPECT_EQ(AndroidVersionOf(35), "Android 15");
    EXPECT_EQ(AndroidVersionOf(36), "Android 16");
    EXPECT_EQ(AndroidVersionOf(37), "Android 17");
}

TEST(AndroidVersionOfTest, ALevelThatIsNotKnownShowsItsNumber) {
    EXPECT_EQ(AndroidVersionOf(38), "API 38");
    EXPECT_EQ(AndroidVersionOf(0), "API 0");
    EXPECT_EQ(AndroidVersionOf(-7), "API -7");
}

}  // namespace
}  // namespace quorvi
