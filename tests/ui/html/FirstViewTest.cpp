#include <QApplication>

#include "tests/support/HtmlDriver.h"

namespace quorvi {
namespace {

class Owner : public HtmlListener {
  public:
    void OnAppCmd(const std::string& /*text*/) override {}
};

// The user would see it go and come back.
TEST(FirstView, WindowStaysOnTheScreenAsItsFirstViewComes) {
    TheHtmlEngine().Hold();
    QWidget window;
    window.resize(640, 480);
    Owner owner;
    CHtmlCtrlFix view(1360, HtmlContent::local, owner, &window);
    view.LoadFromText(HtmlFragment(u8"<p>text</p>"));
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    const WId onScreen = window.winId();

    QSignalSpy loaded(&view, &CHtmlCtrlBase::documentLoaded);
    TheHtmlEngine().Release();
    ASSERT_TRUE(WaitFor([&] { return loaded.count() == 1; }));
    EXPECT_TRUE(view.Browser()->isVisible());
    EXPECT_EQ(window.winId(), onScreen);
}

}  // namespace
}  // namespace quorvi

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    quorvi::PrepareHtmlViews();
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
