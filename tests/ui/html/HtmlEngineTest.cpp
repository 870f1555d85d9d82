#include <gtest/gtest.h>

#include <QSignalSpy>

#include "base/Text.h"
#include "tests/support/HtmlDriver.h"
#include "ui/html/HtmlCtrl.h"
#include "ui/html/HtmlEngine.h"

namespace quorvi {
namespace {

class SilentView : public CHtmlCtrlBase {
  public:
    explicit SilentView(HtmlEngine& engine)
        : CHtmlCtrlBase(1360, HtmlContent::local, engine, nullptr) {}

  protected:
    void OnAppCmd(const std::string& /*text*/) override {}
};

// The engine held, and released at the end whatever the test does.
class HtmlEngineHeld : public testing::Test {
  protected:
    HtmlEngineHeld() { TheHtmlEngine().Hold(); }
    ~HtmlEngineHeld() override { TheHtmlEngine().Release(); }
};

TEST_F(HtmlEngineHeld, ShownViewGetsItsBrowserAtTheRelease) {
    SilentView view(TheHtmlEngine());
    view.LoadFromText(HtmlFragment(u8"<p>text</p>"));
    view.show();
    EXPECT_EQ(view.Browser(), nullptr);
    QSignalSpy loaded(&view, &CHtmlCtrlBase::documentLoaded);
    TheHtmlEngine().Release();
    EXPECT_TRUE(WaitFor([&] { return loaded.count() == 1; }));
    EXPECT_NE(view.Browser(), nullptr);
}

TEST_F(HtmlEngineHeld, WhatWasSetBeforeTheReleaseIsAppliedInItsOrder) {
    SilentView view(TheHtmlEngine());
    view.LoadFromText(HtmlFragment(u8"<body><div id=outer>first</div></body>"));
    view.show();
    // The second change only finds its element when the first has been made.
    view.Document().SetInnerHtml("outer", HtmlFragment(u8"<i id=inner></i>"));
    view.Document().SetInnerHtml("inner", HtmlFragment(u8"second"));
    QSignalSpy loaded(&view, &CHtmlCtrlBase::documentLoaded);
    TheHtmlEngine().Release();
    ASSERT_TRUE(WaitFor([&] { return loaded.count() == 1; }));
    EXPECT_EQ(InnerHtml(view, QStringLiteral("outer")),
              QStringLiteral("<i id=\"inner\">second</i>"));
}

TEST_F(HtmlEngineHeld, ViewThatIsGoneByTheReleaseIsPassedOver) {
    auto gone = std::make_unique<SilentView>(TheHtmlEngine());
    gone->show();
    SilentView view(TheHtmlEngine());
    view.show();
    gone.reset();
    TheHtmlEngine().Release();
    EXPECT_TRUE(WaitFor([&] { return view.Browser() != nullptr; }));
}

TEST_F(HtmlEngineHeld, FocusThatAViewHadMovesIntoItsBrowser) {
    SilentView view(TheHtmlEngine());
    view.show();
    view.setFocus();
    TheHtmlEngine().Release();
    ASSERT_TRUE(WaitFor([&] { return view.Browser() != nullptr; }));
    EXPECT_EQ(view.focusProxy(), view.Browser());
}

TEST(HtmlEngine, ViewStaysEmptyWhereThereIsNoModule) {
    HtmlEngine engine("/no/such/module.so");
    SilentView view(engine);
    view.LoadFromText(HtmlFragment(u8"<p>text</p>"));
    testing::internal::CaptureStderr();
    view.show();
    EXPECT_NE(testing::internal::GetCapturedStderr().find("/no/such/module.so"), std::string::npos);
    EXPECT_EQ(view.Browser(), nullptr);
    view.SetInnerHtml("block", HtmlFragment(u8"nothing happens"));
    view.GoBack();
    EXPECT_EQ(view.Browser(), nullptr);
}

}  // namespace
}  // namespace quorvi
