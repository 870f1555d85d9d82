// A user's stories with what the site has, through the window: versions, feedback, the phone
// parameters, and the weather, with a real server as the site.
#include <fmt/format.h>

#include "pages/weather/WeatherPage.h"
#include "tests/support/ControlDriver.h"
#include "tests/support/PagesOnPhone.h"
#include "tests/support/SiteServer.h"
#include "ui/kit/SkinFields.h"
#include "ui/kit/SkinLabels.h"
#include "ui/page/Job.h"

namespace quorvi {
namespace {

constexpr int kSpecs = 1;
constexpr int kUpdate = 4;
constexpr int kHelp = 6;

class OnlineStory : public PagesOnPhone {
  public:
    static void SetUpTestSuite() {
        site_ = std::make_unique<SiteServer>();
        StandUp(MakersAt({.siteRoot = site_->Root()}));
    }
    static void TearDownTestSuite() {
        PagesOnPhone::TearDownTestSuite();
        site_.reset();
    }

  protected:
    static bool WaitAllEnded() {
        return WaitFor([] { return RunningJobs() == 0; });
    }
    // Presses a button of the page with the mouse, and waits until its work is done.
    static void Use(int button) {
        ClickOn(OnPage(button));
        ASSERT_TRUE(WaitAllEnded());
    }
    // What the open message box says; it is closed then.
    static QString TakeMessage() {
        if (OpenDialog(0) == nullptr) {
            return {};
        }
        const QString text = In<QLabel>(0, 65535).text();
        Press(0, 1);
        EXPECT_TRUE(WaitForNoDialog(0));
        return text;
    }
    static QString State() { return OnPage<CSkinStateLabel>(1109).text(); }
    static void Choose(CSkinCombo& box, int index) {
        box.setFocus();
        box.setCurrentIndex(0);
        for (int i = 0; i < index; ++i) {
            QTest::keyClick(&box, Qt::Key_Down);
            ASSERT_TRUE(WaitAllEnded());
        }
        ASSERT_EQ(box.currentIndex(), index);
    }

    // The weather's page over the one that is shown: no menu leads to it.
    static WeatherPage& ShowWeather() {
        Page* const own = Window().ShownPage();
        Services services = Window().PageServices();
        const std::string root = site_->Root();
        services.deployment.weatherHost = root.substr(7, root.size() - 8);  // without http:// and /
        auto* const page = new WeatherPage(Window(), services, own);
        page->setAutoFillBackground(true);
        page->resize(own->size());
        page->show();
        return *page;
    }

    static std::unique_ptr<SiteServer> site_;
};

std::unique_ptr<SiteServer> OnlineStory::site_;

TEST_F(OnlineStory, ACheckForUpdatesIsMadeTwiceInARow) {
    OpenPage(kUpdate);
    Use(1082);
    EXPECT_EQ(TakeMessage(), ToQString(u8"xml文件存在问题"));
    site_->Serve("update.xml",
                 "<root><item type='version'><v>1.2</v></item>"
                 "<item type='detail'><add>first</add><fix>second</fix></item></root>");
    for (int i = 0; i < 2; ++i) {
        Use(1082);
        EXPECT_EQ(TakeMessage(), QString());
        EXPECT_EQ(OnPage<QLabel>(1342).text(), QStringLiteral("1.2"));
        EXPECT_EQ(TheList().RowCount(), 2);
    }
}

TEST_F(OnlineStory, AFeedbackIsRefusedAtEachRuleAndThenSent) {
    site_->Serve("feedback/feedback.php", "ok");
    OpenPage(kHelp);
    ASSERT_TRUE(WaitAllEnded());
    // The phone has said what it is.
    EXPECT_EQ(OnPage<CSkinEdit>(1082).text(), QStringLiteral("Aurora S2"));
    EXPECT_EQ(OnPage<CSkinEdit>(1084).text(), QStringLiteral("Android 2.3.3"));
    Type(OnPage(1084), QStringLiteral("2"));
    Type(OnPage(1082), QStringLiteral("A"));
    Use(1030);
    EXPECT_EQ(State(), ToQString(u8"您的反馈内容过少"));
    Type(OnPage(1076), ToQString(u8"很好用的"));
    Use(1030);
    EXPECT_EQ(State(), ToQString(u8"请输入有效的固件版本"));
    Type(OnPage(1084), QStringLiteral("2.3"));
    Use(1030);
    EXPECT_EQ(State(), ToQString(u8"请输入有效的机型"));
    Type(OnPage(1082), QStringLiteral("Aurora"));
    const std::size_t before = site_->Requests(0).size();
    Use(1030);
    EXPECT_EQ(State(), ToQString(u8"感谢您的支持，反馈信息我们已收到 :)"));
    const auto requests = site_->Requests(before + 1);
    ASSERT_EQ(requests.size(), before + 1);
    EXPECT_NE(requests.back().body.find("\"Model\" : \"Aurora\""), std::string::npos);
    EXPECT_NE(requests.back().body.find("\"Client\" : 1,"), std::string::npos);
}

TEST_F(OnlineStory, ACityIsChangedAndKept) {
    for (const auto& [file, city] : {std::pair("101010100", "北京"), {"101210701", "温州"}}) {
        site_->Serve(fmt::format("data/{}.html", file),
                     fmt::format(R"({{"weatherinfo":{{"city":"{}","fchh":"08",)"
                                 R"("temp1":"29℃~21℃","weather1":"多云"}}}})",
                                 city));
    }
    OpenPage(kUpdate);
    const std::unique_ptr<WeatherPage> page(&ShowWeather());
    page->StartWeatherUpdate();
    ASSERT_TRUE(WaitAllEnded());
    auto& city = *FindControl<QAbstractButton>(page.get(), 1127);
    EXPECT_EQ(city.text(), ToQString(u8"北京"));
    ClickOn(city);
    ASSERT_TRUE(WaitForDialog(569));
    const auto box = [](const char* name) -> CSkinCombo& {
        return *OpenDialog(569)->findChild<CSkinCombo*>(QString::fromLatin1(name));
    };
    const int province = box("province").findText(ToQString(u8"浙江"));
    ASSERT_GT(province, 0);
    Choose(box("province"), province);
    Choose(box("city"), 1);
    EXPECT_EQ(box("city").currentText(), ToQString(u8"温州"));
    Press(569, 1);
    ASSERT_TRUE(WaitForNoDialog(569));
    ASSERT_TRUE(WaitAllEnded());
    EXPECT_EQ(city.text(), ToQString(u8"温州"));
    EXPECT_EQ(page->findChild<CSkinListCtrl*>(QStringLiteral("forecastList"))->RowCount(), 6);
    EXPECT_EQ(Status(), ToQString(u8"就绪"));

    // Whoever opens the page again finds the city there.
    const std::unique_ptr<WeatherPage> again(&ShowWeather());
    again->StartWeatherUpdate();
    ASSERT_TRUE(WaitAllEnded());
    EXPECT_EQ(FindControl<QAbstractButton>(again.get(), 1127)->text(), ToQString(u8"温州"));
}

TEST_F(OnlineStory, APlatformAMakerAndAModelAreChosen) {
    OpenPage(kSpecs);
    ASSERT_TRUE(WaitAllEnded());
    auto& platform = OnPage<CSkinCombo>(1004);
    auto& maker = *Window().ShownPage()->findChild<CSkinCombo*>(QStringLiteral("maker"));
    auto& model = *Window().ShownPage()->findChild<CSkinCombo*>(QStringLiteral("model"));
    Choose(platform, 1);
    EXPECT_EQ(maker.currentText(), ToQString(u8"胡杨"));
    platform.setFocus();
    QTest::keyClick(&platform, Qt::Key_Up);
    ASSERT_TRUE(WaitAllEnded());
    Choose(maker, 1);
    EXPECT_EQ(model.currentText(), QStringLiteral("Y5"));
    Choose(model, 1);
    EXPECT_EQ(TheList().CellAt(0, 2).text, ToQString(u8"云帆 Y8"));
}

}  // namespace
}  // namespace quorvi
