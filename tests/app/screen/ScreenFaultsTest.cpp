// Every fault of the phone's screen and of the adb server against the capture page.
#include <fmt/format.h>
#include <signal.h>

#include <memory>

#include "base/Text.h"
#include "pages/screen/ScreenCapture.h"
#include "tests/app/screen/ScreenOnPhone.h"
#include "tests/support/Heartbeat.h"

namespace quorvi {
namespace {

// Beats that tell enough of a life.
constexpr int kBeats = 20;

class ScreenFaultsBase : public ScreenOnPhone {
  public:
    static void SetUpTestSuite() {
        PagesOnPhone::SetUpTestSuite();
        heart_ = std::make_unique<Heartbeat>([] { kill(Server(), SIGCONT); });
    }
    static void TearDownTestSuite() {
        heart_.reset();
        PagesOnPhone::TearDownTestSuite();
    }

  protected:
    void SetUp() override {
        ScreenOnPhone::SetUp();
        OpenPage(kScreen);
        Capture();
        ASSERT_TRUE(WaitNoPageReads());  // those on the way here
        ASSERT_EQ(Shown().size(), QSize(480, 800));
        before_ = Shown().cacheKey();
    }
    static pid_t Server() { return Desk().Rig().ServerProcess(); }
    static QString Failure(CaptureFault fault) {
        return ToQString(u8"【X】") + ToQString(CaptureFaultText(fault));
    }
    // A capture that is held up: the window goes on meanwhile.
    static void CaptureAndLiveOn() {
        Command(kRefresh);
        const int before = heart_->Beats();
        EXPECT_TRUE(WaitFor([&] { return heart_->Beats() >= before + kBeats; }));
        EXPECT_FALSE(Idle()) << "nothing was held";
        EXPECT_EQ(Picture().State(), ListState::loading);
    }
    void ExpectTheOldPicture() const {
        EXPECT_EQ(Shown().cacheKey(), before_);
        EXPECT_FALSE(heart_->HasStopped()) << "the window's thread waited";
        EXPECT_EQ(List(kSize).currentText(), QStringLiteral("480x800"));
    }
    void ExpectTheNextTryWorks() const {
        Capture();
        EXPECT_NE(Shown().cacheKey(), before_);
        EXPECT_EQ(Shown().size(), QSize(480, 800));
        EXPECT_EQ(Status(), ToQString(u8"就绪"));
    }

    static std::unique_ptr<Heartbeat> heart_;
    qint64 before_ = 0;
};

std::unique_ptr<Heartbeat> ScreenFaultsBase::heart_;

struct PhoneFault {
    const char* name;
    const char* words;
    CaptureFault fault;
};

void PrintTo(const PhoneFault& fault, std::ostream* out) {
    *out << fault.words;
}

constexpr PhoneFault kPhoneFaults[] = {
    {"Refuses", "refuse", CaptureFault::serviceRefused},
    {"Claims4GB", "size 4294967295", CaptureFault::impossibleFrame},
    {"ClaimsNothing", "size 0", CaptureFault::impossibleFrame},
    {"ClaimsNoWidth", "width 0", CaptureFault::impossibleFrame},
    {"ClaimsNoHeight", "height 0", CaptureFault::impossibleFrame},
    {"ClaimsAnotherWidth", "width 481", CaptureFault::impossibleFrame},
    {"ClaimsAnotherSize", "size 1535999", CaptureFault::impossibleFrame},
    {"EndsWithinTheVersion", "cut 2", CaptureFault::headerEnded},
    {"EndsBehindTheVersion", "cut 4", CaptureFault::headerEnded},
    {"EndsWithinTheShape", "cut 13", CaptureFault::headerEnded},
    {"EndsBehindTheShape", "cut 20", CaptureFault::headerEnded},
    {"EndsWithinTheChannels", "cut 40", CaptureFault::headerEnded},
    {"EndsBeforeThePixels", "cut 52", CaptureFault::pixelsEnded},
    {"EndsWithinAPixel", "cut 1055", CaptureFault::pixelsEnded},
    {"EndsWithinThePixels", "cut 1000052", CaptureFault::pixelsEnded},
};

class ScreenFaults : public ScreenFaultsBase, public testing::WithParamInterface<PhoneFault> {};

TEST_P(ScreenFaults, LeaveTheOldPictureAndTheNextTryWorks) {
    TellScreen(std::string("fault ") + GetParam().words);
    Capture();
    EXPECT_EQ(Status(), Failure(GetParam().fault));
    ExpectTheOldPicture();
    TellScreen("fault none");
    ExpectTheNextTryWorks();
}

INSTANTIATE_TEST_SUITE_P(Each, ScreenFaults, testing::ValuesIn(kPhoneFaults),
                         [](const auto& test) { return std::string(test.param.name); });

// A phone that says no more behind so many bytes, and the cable that is pulled then.
class ScreenHangs : public ScreenFaultsBase, public testing::WithParamInterface<int> {};

TEST_P(ScreenHangs, LeaveTheWindowAliveAndTheOldPicture) {
    TellScreen(fmt::format("fault hang {}", GetParam()));
    CaptureAndLiveOn();
    ExpectTheOldPicture();
    Tell("unplug");
    ASSERT_TRUE(WaitIdle());
    // How far the exchange had come is up to the adb server: it is told, whatever it is.
    EXPECT_TRUE(Status().startsWith(ToQString(u8"【X】"))) << Status().toStdString();
    ExpectTheOldPicture();
    Restore();
    TellScreen("fault none");
    ExpectTheNextTryWorks();
}

INSTANTIATE_TEST_SUITE_P(BeforeAndWithinTheHeaderAndThePixels, ScreenHangs,
                         testing::Values(0, 30, 500'000));

class ScreenServer : public ScreenFaultsBase {};

TEST_F(ScreenServer, WithoutThePhoneSaysFail) {
    Tell("unplug");
    ASSERT_TRUE(Desk().Rig().WaitForDevices(0));
    Capture();
    EXPECT_EQ(Status(), Failure(CaptureFault::phoneRefused));
    ExpectTheOldPicture();
    Restore();
    ExpectTheNextTryWorks();
}

TEST_F(ScreenServer, ThatHangsHoldsUpThePictureAlone) {
    ASSERT_EQ(kill(Server(), SIGSTOP), 0);
    CaptureAndLiveOn();
    ExpectTheOldPicture();
    ASSERT_EQ(kill(Server(), SIGCONT), 0);
    ASSERT_TRUE(WaitIdle());
    EXPECT_NE(Shown().cacheKey(), before_);
    EXPECT_EQ(Status(), ToQString(u8"就绪"));
}

// A suite of its own: the server does not come back.
class ScreenWithoutServer : public ScreenFaultsBase {
  protected:
    void TearDown() override {}  // the phone can be asked for nothing more
};

TEST_F(ScreenWithoutServer, IsSaidAndLeavesTheOldPicture) {
    ASSERT_EQ(kill(Server(), SIGKILL), 0);
    ASSERT_TRUE(WaitFor([] { return !Desk().Rig().AskServer("host:version"); }));
    ASSERT_TRUE(WaitNoPageReads());  // those that met the end of the server
    Capture();
    EXPECT_EQ(Status(), Failure(CaptureFault::noServer));
    ExpectTheOldPicture();
}

}  // namespace
}  // namespace quorvi
