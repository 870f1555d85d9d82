// How the capture page reads the phone's screen and shows it.
#include <QGroupBox>
#include <filesystem>
#include <vector>

#include "pages/screen/ShowSize.h"
#include "tests/pages/screen/ScreenshotFixture.h"
#include "tests/support/PrintQt.h"

namespace quorvi {
namespace {

// What the requests of one capture are.
const std::string kRequests = "001Ahost:transport:HT04CPL0012000cframebuffer:";

QString Failure(CaptureFault fault) {
    return ToQString(u8"【X】") + ToQString(CaptureFaultText(fault));
}

class ScreenshotPage : public ScreenshotFixture {
  protected:
    // Captures again, to the end.
    void LoadAgain() {
        page_->Load();
        Settle();
    }
    QRgb MiddleOfPicture() {
        const QImage& image = Picture().Picture()->image;
        return image.pixel(image.width() / 2, image.height() / 2);
    }
};

// ---- what stands there -------------------------------------------------------------------------

QStringList TextsOf(const CSkinCombo& list) {
    QStringList texts;
    for (int i = 0; i < list.count(); ++i) {
        texts.append(list.itemText(i));
    }
    return texts;
}

TEST_F(ScreenshotPage, NumbersAreTheControls) {
    CScreenshotPage& page = Open();
    EXPECT_EQ(page.objectName(), QStringLiteral("dialog 602"));
    EXPECT_EQ(CScreenshotPage::kNumbers.page, 44);
    EXPECT_EQ(CScreenshotPage::kNumbers.loadKey, 14);
    EXPECT_NE(FindControl<ScreenCaptureCtrl>(&page, 1353), nullptr);
    EXPECT_EQ(TextsOf(List(1348)),
              (QStringList{ToQString(u8"[ 无旋转 ]"), ToQString(u8"右旋转90度"),
                           ToQString(u8"左旋转90度"), ToQString(u8"180 度旋转")}));
    EXPECT_EQ(TextsOf(List(1347)),
              (QStringList{ToQString(u8"JPG (照片级)"), ToQString(u8"GIF (256 色)"),
                           ToQString(u8"PNG (真彩色)"), ToQString(u8"BMP (元位图)")}));
    EXPECT_EQ(TextsOf(List(1352)), (QStringList{ToQString(u8"原始画质"), ToQString(u8"90% 画质"),
                                                ToQString(u8"85% 画质"), ToQString(u8"80% 画质"),
                                                ToQString(u8"70% 画质"), ToQString(u8"60% 画质"),
                                                ToQString(u8"50% 画质")}));
    EXPECT_EQ(List(1348).currentIndex(), 0);
    EXPECT_EQ(List(1347).currentIndex(), 0);
    EXPECT_EQ(List(1352).currentIndex(), 1);
    EXPECT_EQ(List(1349).count(), 0);
    Settle();
    EXPECT_EQ(server_.Count(), 0u);  // the navigator loads it, not the page itself
}

TEST_F(ScreenshotPage, TheBoxOfAutoRefreshIsHidden) {
    Open();
    EXPECT_EQ(Box(1350).text(), ToQString(u8"自动刷新屏幕"));
    EXPECT_FALSE(Box(1350).isVisible());
    EXPECT_EQ(Box(1351).text(), ToQString(u8"启用批量保存"));
    EXPECT_TRUE(Box(1351).isVisible());
    EXPECT_FALSE(Box(1351).isChecked());
}

TEST_F(ScreenshotPage, ListsAreCalledByTheirCaptions) {
    Open();
    const std::pair<int, std::u8string_view> captions[] = {
        {1348, u8"屏幕旋转"}, {1347, u8"保存格式"}, {1352, u8"保存画质"}, {1349, u8"屏幕尺寸"}};
    for (const auto& [number, caption] : captions) {
        EXPECT_EQ(List(number).accessibleName(), ToQString(caption));
    }
}

TEST_F(ScreenshotPage, TheTabKeyGoesFromThePictureDownTheOptions) {
    CScreenshotPage& page = Open();
    std::vector<int> met;
    for (QWidget* next = page.nextInFocusChain(); next != &page; next = next->nextInFocusChain()) {
        if ((next->focusPolicy() & Qt::TabFocus) != 0 && next->isVisible()) {
            met.push_back(next->objectName().toInt());
        }
    }
    EXPECT_EQ(met, (std::vector{1353, 1348, 1347, 1352, 1349, 1351}));
}

// ---- capturing ---------------------------------------------------------------------------------

TEST_F(ScreenshotPage, ALoadCapturesAndShowsTheScreen) {
    server_.Tell(ToldScreen{.width = 48, .height = 80});
    Open().Load();
    EXPECT_TRUE(page_->IsAtWork());
    Settle();
    EXPECT_FALSE(page_->IsAtWork());
    EXPECT_EQ(server_.Asked(), std::vector{kRequests});
    EXPECT_EQ(Key(), PageLoadState::kEnded);
    EXPECT_EQ(MiddleOfPicture(), qRgb(200, 40, 60));
    EXPECT_EQ(SizeShown(), QSize(300, 500));
    EXPECT_EQ(TextsOf(List(1349)), QStringList{QStringLiteral("48x80")});
    EXPECT_EQ(List(1349).currentIndex(), 0);
    EXPECT_EQ(Picture().State(), ListState::idle);
    EXPECT_TRUE(host_.statuses.isEmpty());
}

TEST_F(ScreenshotPage, TheSizeListHoldsTheLastScreenAlone) {
    OpenWithPicture();
    server_.Tell(ToldScreen{.width = 48, .height = 80});
    LoadAgain();
    EXPECT_EQ(TextsOf(List(1349)), QStringList{QStringLiteral("48x80")});
}

TEST_F(ScreenshotPage, Message1276Captures) {
    Open();
    page_->OnMessage(Message::startCapture, 0, 0);
    Settle();
    EXPECT_EQ(server_.Count(), 1u);
    EXPECT_TRUE(Picture().Picture());
    page_->OnMessage(Message::documentLoaded, 0, 0);
    Settle();
    EXPECT_EQ(server_.Count(), 1u);
}

TEST_F(ScreenshotPage, TheFirstButtonCaptures) {
    Open().OnCommand(0);
    Settle();
    EXPECT_TRUE(Picture().Picture());
}

TEST_F(ScreenshotPage, WhileACaptureRunsAnotherIsDropped) {
    Open();
    server_.Hold();
    page_->Load();
    ASSERT_TRUE(WaitFor([&] { return server_.Count() == 1; }));
    EXPECT_EQ(Key(), PageLoadState::kRunning);
    page_->Load();
    page_->OnCommand(0);
    page_->OnMessage(Message::startCapture, 0, 0);
    server_.Release();
    Settle();
    EXPECT_EQ(server_.Count(), 1u);
    LoadAgain();
    EXPECT_EQ(server_.Count(), 2u);
}

TEST_F(ScreenshotPage, EachRotationIsACaptureOfItsOwn) {
    server_.Tell(ToldScreen{.width = 48, .height = 80});
    OpenWithPicture();
    const std::pair<int, QSize> turns[] = {
        {1, {500, 300}}, {2, {500, 300}}, {3, {300, 500}}, {0, {300, 500}}};
    std::size_t captures = 1;
    for (const auto& [rotation, size] : turns) {
        Choose(1348, rotation);
        Settle();
        EXPECT_EQ(server_.Count(), ++captures);
        EXPECT_EQ(Picture().ShownRotation(), RotationOf(rotation));
        EXPECT_EQ(SizeShown(), size);
        EXPECT_EQ(TextsOf(List(1349)), QStringList{QStringLiteral("48x80")});
    }
}

TEST_F(ScreenshotPage, ChoosingTheSameRotationAgainIsNoChange) {
    OpenWithPicture();
    Choose(1348, 0);
    Settle();
    EXPECT_EQ(server_.Count(), 1u);
}

TEST_F(ScreenshotPage, WhileACaptureRunsNoOtherRotationCanBeChosen) {
    OpenWithPicture();
    ShowActive(*page_);
    List(1348).setFocus();
    server_.Hold();
    Choose(1348, 1);
    ASSERT_TRUE(WaitFor([&] { return !List(1348).isEnabled(); }));  // it lasts: it is drawn so
    EXPECT_TRUE(List(1347).isEnabled());
    EXPECT_TRUE(List(1352).isEnabled());
    EXPECT_TRUE(Box(1351).isEnabled());
    server_.Release();
    Settle();
    EXPECT_TRUE(List(1348).isEnabled());
    EXPECT_TRUE(List(1348).hasFocus());
}

TEST_F(ScreenshotPage, ARotationChosenAtTheBeginningOfACaptureIsPutBack) {
    OpenWithPicture();
    ShowActive(*page_);
    List(1348).setFocus();
    server_.Hold();
    page_->Load();
    EXPECT_TRUE(List(1348).isEnabled());  // a quick capture paints nothing of the list
    QTest::keyClick(&List(1348), Qt::Key_Down);
    Choose(1348, 2);
    EXPECT_EQ(List(1348).currentIndex(), 0);
    server_.Release();
    Settle();
    EXPECT_EQ(server_.Count(), 2u);
    EXPECT_EQ(List(1348).currentIndex(), 0);
    Choose(1348, 2);
    Settle();
    EXPECT_EQ(List(1348).currentIndex(), 2);
    EXPECT_EQ(server_.Count(), 3u);
}

TEST_F(ScreenshotPage, OnePictureStaysWhileTheNextIsRead) {
    OpenWithPicture();
    server_.Tell(ToldScreen{.pixel = [](auto, auto) { return Pixel32(1, 2, 3); }});
    server_.Hold();
    page_->Load();
    ASSERT_TRUE(WaitFor([&] { return server_.Count() == 2; }));
    EXPECT_EQ(Picture().State(), ListState::loading);
    EXPECT_EQ(MiddleOfPicture(), qRgb(200, 40, 60));
    server_.Release();
    Settle();
    EXPECT_EQ(MiddleOfPicture(), qRgb(1, 2, 3));
    EXPECT_EQ(Picture().State(), ListState::idle);
}

// ---- the forms of a frame ----------------------------------------------------------------------

TEST_F(ScreenshotPage, A16BitFrameAndOneOfAnUnknownDepthAreBothRgb565) {
    for (const std::uint32_t bits : {16u, 8u, 15u}) {
        server_.Tell(ToldScreen{.bits = bits, .channels = Rgb565(), .pixel = [](auto, auto) {
                                    return Bytes{std::byte{0xE0}, std::byte{0x07}};  // green 63
                                }});
        OpenWithPicture();
        EXPECT_EQ(MiddleOfPicture(), qRgb(0, 255, 0)) << bits;
    }
}

TEST_F(ScreenshotPage, A24BitFrameHasItsBlueFirst) {
    server_.Tell(ToldScreen{.bits = 24, .pixel = [](auto, auto) {
                                return Bytes{std::byte{10}, std::byte{20}, std::byte{30}};
                            }});
    OpenWithPicture();
    EXPECT_EQ(MiddleOfPicture(), qRgb(30, 20, 10));
}

TEST_F(ScreenshotPage, AFrameWithRedAtZeroIsSwappedAndOneWithBlueThereIsNot) {
    const auto pixel = [](auto, auto) {
        return Bytes{std::byte{10}, std::byte{20}, std::byte{30}, std::byte{0}};
    };
    server_.Tell(ToldScreen{.channels = RedAtZero(), .pixel = pixel});
    OpenWithPicture();
    EXPECT_EQ(MiddleOfPicture(), qRgb(10, 20, 30));
    server_.Tell(ToldScreen{.channels = BlueAtZero(), .pixel = pixel});
    LoadAgain();
    EXPECT_EQ(MiddleOfPicture(), qRgb(30, 20, 10));
}

// ---- failures ----------------------------------------------------------------------------------

TEST_F(ScreenshotPage, WithoutAChosenPhoneNothingIsSentAndItSaysSo) {
    OpenWithPicture();
    services_.device.SetSerial("");
    LoadAgain();
    ASSERT_TRUE(WaitFor([&] { return server_.Count() == 2; }));  // the connection
    EXPECT_EQ(server_.Asked()[1], "");
    EXPECT_EQ(host_.status, Failure(CaptureFault::noPhone));
    EXPECT_EQ(MiddleOfPicture(), qRgb(200, 40, 60));
    EXPECT_EQ(Key(), PageLoadState::kEnded);
}

TEST_F(ScreenshotPage, WithoutAnAdbServerItSaysSoInThePlaceOfThePicture) {
    OpenAt(UnusedPort()).Load();
    Settle();
    EXPECT_EQ(host_.status, Failure(CaptureFault::noServer));
    EXPECT_EQ(Picture().State(), ListState::failed);
    EXPECT_FALSE(Picture().Picture());
    EXPECT_TRUE(List(1348).isEnabled());
    EXPECT_EQ(SizeShown(), QSize(210, 310));
}

struct Fault {
    const char* name;
    FrameServer::Answer answer;
    CaptureFault fault;
};

void PrintTo(const Fault& fault, std::ostream* out) {
    *out << fault.name;
}

FrameServer::Answer Streaming(const Bytes& stream) {
    return {.stream = stream};
}

Bytes FirstOf(std::size_t count) {
    Bytes frame = FrameOf(ToldScreen());
    frame.resize(count);
    return frame;
}

Bytes Claiming(std::uint32_t size, std::uint32_t width, std::uint32_t height) {
    return Join({Words({1, 32, size, width, height}), BlueAtZero(), Bytes(128)});
}

const std::vector<Fault> kFaults = {
    {"ClosesBehindThePhone", {.transport = ""}, CaptureFault::phoneRefused},
    {"SaysFailToThePhone", {.transport = "FAIL"}, CaptureFault::phoneRefused},
    {"CutsTheWordShort", {.transport = "OK"}, CaptureFault::phoneRefused},
    {"ClosesBehindTheService", {.service = ""}, CaptureFault::serviceRefused},
    {"SaysFailToTheService", {.service = "FAIL"}, CaptureFault::serviceRefused},
    {"ClosesBeforeTheVersion", Streaming({}), CaptureFault::headerEnded},
    {"ClosesWithinTheShape", Streaming(FirstOf(12)), CaptureFault::headerEnded},
    {"ClosesWithinTheChannels", Streaming(FirstOf(40)), CaptureFault::headerEnded},
    {"ClosesBeforeThePixels", Streaming(FirstOf(52)), CaptureFault::pixelsEnded},
    {"ClosesWithinThePixels", Streaming(FirstOf(100)), CaptureFault::pixelsEnded},
    {"Claims4GB", Streaming(Claiming(0xFFFF'FFFFU, 4, 8)), CaptureFault::impossibleFrame},
    {"ClaimsNoWidth", Streaming(Claiming(128, 0, 8)), CaptureFault::impossibleFrame},
    {"ClaimsAnotherSize", Streaming(Claiming(120, 4, 8)), CaptureFault::impossibleFrame},
};

class ScreenshotPageFault : public ScreenshotPage, public testing::WithParamInterface<Fault> {};

TEST_P(ScreenshotPageFault, LeavesTheOldPictureSaysWhyAndTheNextTryWorks) {
    server_.Tell(ToldScreen{.width = 4, .height = 8});
    OpenWithPicture();
    server_.Tell(GetParam().answer);
    LoadAgain();
    EXPECT_EQ(MiddleOfPicture(), qRgb(200, 40, 60));
    EXPECT_EQ(SizeShown(), QSize(300, 600));
    EXPECT_EQ(TextsOf(List(1349)), QStringList{QStringLiteral("4x8")});
    EXPECT_EQ(host_.status, Failure(GetParam().fault));
    EXPECT_EQ(Key(), PageLoadState::kEnded);
    EXPECT_FALSE(page_->IsAtWork());

    server_.Tell(ToldScreen{.pixel = [](auto, auto) { return Pixel32(1, 2, 3); }});
    LoadAgain();
    EXPECT_EQ(MiddleOfPicture(), qRgb(1, 2, 3));
    EXPECT_EQ(host_.status, kReady);
    EXPECT_EQ(Picture().State(), ListState::idle);
}

INSTANTIATE_TEST_SUITE_P(Server, ScreenshotPageFault, testing::ValuesIn(kFaults),
                         [](const auto& test) { return std::string(test.param.name); });

TEST_F(ScreenshotPage, APhoneThatSaysNothingEndsTheCaptureInGoodTime) {
    OpenAt(server_.Port(), std::chrono::milliseconds(50));
    server_.Hold();
    page_->Load();
    Settle();
    EXPECT_EQ(host_.status, Failure(CaptureFault::stalled));
    server_.Release();
    LoadAgain();
    EXPECT_TRUE(Picture().Picture());
    EXPECT_EQ(host_.status, kReady);
}

TEST_F(ScreenshotPage, WhatAnotherHasSaidMeanwhileStays) {
    OpenWithPicture();
    server_.Tell(FrameServer::Answer{.transport = "FAIL"});
    LoadAgain();
    host_.SetStatus(kConnectError);
    server_.Tell(ToldScreen());
    LoadAgain();
    EXPECT_EQ(host_.status, kConnectError);
}

TEST_F(ScreenshotPage, MayGoWhileThePhoneStalls) {
    Open();
    server_.Hold();
    page_->Load();
    ASSERT_TRUE(WaitFor([&] { return server_.Count() == 1; }));
    page_.reset();
    server_.Release();
    Settle();
    EXPECT_EQ(Key(), PageLoadState::kRunning);
    EXPECT_TRUE(host_.statuses.isEmpty());
}

// ---- auto refresh ------------------------------------------------------------------------------

TEST_F(ScreenshotPage, TheHiddenBoxCapturesAtOnceAndAgainAndAgain) {
    server_.Tell(ToldScreen{.width = 48, .height = 80});
    Open();
    Box(1350).click();
    ASSERT_TRUE(WaitFor([&] { return server_.Count() >= 3; }));
    EXPECT_TRUE(Picture().AutoRefresh());
    EXPECT_TRUE(Picture().Picture());
    EXPECT_EQ(Key(), std::nullopt);  // PageLoadState knows nothing of it
    EXPECT_TRUE(List(1348).isEnabled());
    Box(1350).click();
    EXPECT_FALSE(Picture().AutoRefresh());
}

TEST_F(ScreenshotPage, TurningAutoRefreshOffCapturesOnceMore) {
    Open();
    Box(1350).setChecked(true);
    Box(1350).click();
    Settle();
    EXPECT_FALSE(Picture().AutoRefresh());
    EXPECT_EQ(server_.Count(), 1u);
    EXPECT_TRUE(Picture().Picture());
}

TEST_F(ScreenshotPage, AutoRefreshKeepsTheRotationOfThePictureOnShow) {
    server_.Tell(ToldScreen{.width = 48, .height = 80});
    OpenWithPicture();
    Choose(1348, 2);
    Settle();
    Box(1350).click();
    ASSERT_TRUE(WaitFor([&] { return server_.Count() >= 4; }));
    EXPECT_EQ(Picture().ShownRotation(), Rotation::left90);
    EXPECT_EQ(Picture().PreviousRotation(), Rotation::left90);
    EXPECT_EQ(SizeShown(), QSize(500, 300));
    Box(1350).click();
}

TEST_F(ScreenshotPage, AutoRefreshGoesBesideARunningCapture) {
    Open();
    server_.Hold();
    page_->Load();
    ASSERT_TRUE(WaitFor([&] { return server_.Count() == 1; }));
    Box(1350).click();
    Box(1350).click();
    EXPECT_TRUE(page_->IsAtWork());
    server_.Release();
    Settle();
    EXPECT_EQ(server_.Count(), 2u);  // one of its own, and not two at a time
}

// Kept on purpose: only a picture that was shown asks for the next one.
TEST_F(ScreenshotPage, AutoRefreshEndsWithACaptureThatFails) {
    OpenWithPicture();
    server_.Tell(FrameServer::Answer{.transport = "FAIL"});
    Box(1350).click();
    Settle();
    EXPECT_EQ(server_.Count(), 2u);
    EXPECT_EQ(host_.status, Failure(CaptureFault::phoneRefused));
    EXPECT_TRUE(Picture().AutoRefresh());
    // The next picture, whoever asked for it, sets it going again.
    server_.Tell(ToldScreen());
    page_->Load();
    ASSERT_TRUE(WaitFor([&] { return server_.Count() >= 4; }));
    EXPECT_EQ(host_.status, kReady);
    Box(1350).click();
}

// ---- nothing is left behind --------------------------------------------------------------------

std::size_t CountIn(const char* folder) {
    std::size_t count = 0;
    for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator(folder)) {
        ++count;
    }
    return count;
}

TEST_F(ScreenshotPage, SixtyCapturesLeaveNoDescriptorAndNoThread) {
    server_.Tell(ToldScreen{.width = 480, .height = 800});
    OpenWithPicture();
    static_cast<void>(page_->grab());
    const std::size_t descriptors = CountIn("/proc/self/fd");
    const std::size_t threads = CountIn("/proc/self/task");
    for (int i = 0; i < 60; ++i) {
        Choose(1348, (i + 1) % 4);
        Settle();
        static_cast<void>(page_->grab());
    }
    EXPECT_EQ(server_.Count(), 61u);
    EXPECT_TRUE(WaitFor([&] {
        return CountIn("/proc/self/fd") <= descriptors && CountIn("/proc/self/task") <= threads;
    })) << CountIn("/proc/self/fd")
        << " descriptors, " << CountIn("/proc/self/task") << " threads; before " << descriptors
        << ", " << threads;
}

}  // namespace
}  // namespace quorvi
