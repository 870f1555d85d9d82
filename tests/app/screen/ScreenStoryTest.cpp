// A user's story with the phone's screen: captured through the real adb, turned, and saved.
#include <QAbstractButton>
#include <filesystem>

#include "base/SettingsStore.h"
#include "tests/app/screen/ScreenOnPhone.h"
#include "tests/support/FileDialogDriver.h"
#include "tests/support/Process.h"
#include "tests/support/TemporaryFolder.h"

namespace quorvi {
namespace {

namespace fs = std::filesystem;

class ScreenStory : public ScreenOnPhone {
  protected:
    void SetUp() override {
        ScreenOnPhone::SetUp();
        Window().Settings().WriteText(kSettingsKey, "screen_shot", folder_.Path().native());
    }
    void TearDown() override {
        CloseFileDialog();
        ScreenOnPhone::TearDown();
    }
    void OpenWithPicture() {
        OpenPage(kScreen);
        if (List(kRotation).currentIndex() != 0) {
            Step(kRotation, Qt::Key_Home);
        }
        Capture();
        ASSERT_EQ(Shown().size(), QSize(480, 800));
    }
    // What ImageMagick says of a file: format, width and height, quality, and the model in its EXIF
    // block.
    static std::string Identified(const fs::path& file, const std::string& what) {
        const e2e::ProgramResult result =
            e2e::RunProgram({"identify", "-format", what, file.native()});
        EXPECT_EQ(result.status, 0) << result.messages;
        return result.output;
    }
    [[nodiscard]] std::vector<std::string> Files() const {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(folder_.Path())) {
            names.push_back(entry.path().filename().native());
        }
        return names;
    }
    // Saves under a name that is typed into the dialog.
    void SaveAs(const QString& name) {
        Command(kSave);
        ASSERT_TRUE(WaitFor([] { return OpenFileDialog() != nullptr; }));
        AnswerFileDialog(name);
        ASSERT_TRUE(WaitIdle());
    }

    TemporaryFolder folder_;
};

// The first test of the suite, whose window has not shown the page yet.
TEST_F(ScreenStory, TheFirstVisitShowsTheScreenAndTheNextOneReadsNothing) {
    OpenPage(kScreen);
    EXPECT_EQ(Shown().size(), QSize(480, 800));
    EXPECT_EQ(Shown().pixel(0, 0), kBar);
    EXPECT_EQ(List(kSize).currentText(), QStringLiteral("480x800"));
    EXPECT_EQ(Status(), ToQString(u8"就绪"));
    const qint64 picture = Shown().cacheKey();
    OpenPage(kCalls);
    OpenPage(kScreen);
    EXPECT_EQ(Shown().cacheKey(), picture);
}

TEST_F(ScreenStory, EachRotationIsReadAnew) {
    OpenWithPicture();
    TellScreen("size 320x480x16");  // the phone is another one meanwhile
    const QRgb bar = qRgb(16, 16, 16);
    const std::pair<Qt::Key, QPoint> turns[] = {
        {Qt::Key_Down, {479, 0}}, {Qt::Key_Down, {0, 319}}, {Qt::Key_Down, {319, 479}}};
    for (const auto& [key, first] : turns) {
        Step(kRotation, key);
        const QColor pixel(Shown().pixel(first));
        EXPECT_LT(std::abs(pixel.red() - qRed(bar)), 9);
        EXPECT_LT(std::abs(pixel.green() - qGreen(bar)), 9);
        EXPECT_EQ(List(kSize).currentText(), QStringLiteral("320x480"));
    }
    EXPECT_EQ(List(kRotation).currentText(), ToQString(u8"180 度旋转"));
    EXPECT_EQ(Shown().size(), QSize(320, 480));
    Step(kRotation, Qt::Key_Home);
}

struct PhoneForm {
    const char* words;
    QRgb bar;
};

TEST_F(ScreenStory, EveryFormOfAFrameShowsTheSameScreen) {
    OpenPage(kScreen);
    const PhoneForm forms[] = {
        {"size 480x800x32 version 1 order rgb", kBar},
        {"size 480x800x32 version 1 order bgr", kBar},
        {"size 480x800x32 version 2 order rgb", kBar},
        {"size 480x800x32 version 2 waits 1", kBar},
        {"size 480x800x24 version 1 waits 0 order bgr", kBar},
        {"size 480x800x16 version 1", qRgb(16, 16, 16)},
        {"size 480x800x15 version 1 ends 1", qRgb(16, 16, 16)},
        {"size 1080x2400x32 version 2 order rgb", kBar},
    };
    for (const PhoneForm& form : forms) {
        TellScreen(form.words);
        Capture();
        const QColor pixel(Shown().pixel(0, 0));
        EXPECT_EQ(pixel.red(), qRed(form.bar)) << form.words;
        EXPECT_EQ(pixel.blue(), qBlue(form.bar)) << form.words;
        EXPECT_EQ(Status(), ToQString(u8"就绪")) << form.words;
    }
    EXPECT_EQ(List(kSize).currentText(), QStringLiteral("1080x2400"));
}

TEST_F(ScreenStory, SavedInEachFormatItIsReadBackByAnotherProgram) {
    OpenWithPicture();
    const std::pair<const char*, const char*> formats[] = {{"jpg", "JPEG 480 800"},
                                                           {"gif", "GIF 480 800"},
                                                           {"png", "PNG 480 800"},
                                                           {"bmp", "BMP3 480 800"}};
    for (const auto& [ending, said] : formats) {
        SaveAs(QStringLiteral("screen.%1").arg(QLatin1StringView(ending)));
        const fs::path file = folder_.Path() / (std::string("screen.") + ending);
        EXPECT_TRUE(Identified(file, "%m %w %h").starts_with(said)) << ending;
        EXPECT_EQ(Status(),
                  ToQString(u8"截图已保存：%1").arg(QString::fromStdString(file.native())));
    }
    // The quality of the list at the start, and the site as the model.
    EXPECT_EQ(Identified(folder_.Path() / "screen.jpg", "%Q"), "90");
    EXPECT_EQ(Identified(folder_.Path() / "screen.jpg", "%[EXIF:Model]"), "www.quorvi.example");
    // What loses nothing holds the screen as it was shown.
    for (const char* ending : {"png", "bmp"}) {
        const QImage read(
            QString::fromStdString((folder_.Path() / (std::string("screen.") + ending)).native()));
        EXPECT_EQ(read.convertToFormat(QImage::Format_RGB32),
                  Shown().convertToFormat(QImage::Format_RGB32))
            << ending;
    }
}

TEST_F(ScreenStory, ATurnedPictureIsSavedTurned) {
    OpenWithPicture();
    Step(kRotation, Qt::Key_Down);
    SaveAs(QStringLiteral("turned.png"));
    EXPECT_EQ(Identified(folder_.Path() / "turned.png", "%w %h"), "800 480");
    Step(kRotation, Qt::Key_Home);
}

TEST_F(ScreenStory, BatchSavesAskNothing) {
    OpenWithPicture();
    ClickOn(OnPage(kBatchSave));
    Command(kSave);
    ASSERT_TRUE(WaitIdle());
    EXPECT_EQ(OpenFileDialog(), nullptr);
    ASSERT_EQ(Files().size(), 1u);
    const std::string name = Files()[0];
    EXPECT_EQ(name.size(), std::string("1122-074512.jpg").size()) << name;
    EXPECT_TRUE(name.ends_with(".jpg")) << name;
    EXPECT_TRUE(Identified(folder_.Path() / name, "%m %w %h").starts_with("JPEG 480 800"));
    ClickOn(OnPage(kBatchSave));
}

TEST_F(ScreenStory, TheDashboardsLinkComesHereAndCaptures) {
    OpenWithPicture();
    const qint64 picture = Shown().cacheKey();
    OpenPage(0);
    ClickHtml(*Window().ShownPage()->findChild<CHtmlCtrlBase*>(),
              QStringLiteral("a[href='qvh:advanced']"));
    ASSERT_TRUE(WaitFor([] { return Window().MainPage() == kScreen; }));
    ASSERT_TRUE(WaitIdle());
    EXPECT_NE(Shown().cacheKey(), picture);
    EXPECT_EQ(Shown().pixel(0, 0), kBar);
}

TEST_F(ScreenStory, Message2024WithWParam2ComesHereAndCaptures) {
    OpenWithPicture();
    const qint64 picture = Shown().cacheKey();
    OpenPage(kCalls);
    Window().Post(Message::pageCommand, 2, 0);
    ASSERT_TRUE(WaitFor([] { return Window().MainPage() == kScreen; }));
    ASSERT_TRUE(WaitIdle());
    EXPECT_NE(Shown().cacheKey(), picture);
}

}  // namespace
}  // namespace quorvi
