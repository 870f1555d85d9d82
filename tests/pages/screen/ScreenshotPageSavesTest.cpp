// How the capture page saves its picture, and how the picture leaves it otherwise.
#include <QApplication>
#include <QClipboard>
#include <QDrag>
#include <QImageReader>
#include <QTimer>
#include <QUrl>
#include <filesystem>
#include <fstream>
#include <vector>

#include "base/Text.h"
#include "pages/screen/PictureDrag.h"
#include "pages/screen/SavePlace.h"
#include "tests/pages/screen/ScreenshotFixture.h"
#include "tests/support/FileDialogDriver.h"
#include "tests/support/OpenedAddresses.h"
#include "tests/support/PrintQt.h"

namespace quorvi {
namespace {

namespace fs = std::filesystem;

constexpr int kFormat = 1347;
constexpr int kBatchSave = 1351;

QString Shown(const fs::path& path) {
    return QString::fromStdString(path.native());
}

// The names in a folder, in their order; none of one that is not there.
std::vector<std::string> NamesIn(const fs::path& folder) {
    std::vector<std::string> names;
    std::error_code unknown;
    for (const auto& entry : fs::directory_iterator(folder, unknown)) {
        names.push_back(entry.path().filename().native());
    }
    std::ranges::sort(names);
    return names;
}

QByteArray FormatIn(const fs::path& file) {
    QImageReader reader(Shown(file));
    reader.setDecideFormatFromContent(true);
    return reader.format();
}

class ScreenshotPageSaves : public ScreenshotFixture {
  protected:
    void SetUp() override {
        ScreenshotFixture::SetUp();
        server_.Tell(ToldScreen{.width = 6, .height = 9});
        fs::create_directories(Chosen());
    }
    void TearDown() override {
        CloseFileDialog();
        ScreenshotFixture::TearDown();
        fs::current_path(workingDirectory_);
    }

    [[nodiscard]] fs::path Default() const {
        return folder_.Path() / "home" / "Documents" / u8"奎维掌上工坊";
    }
    [[nodiscard]] fs::path Chosen() const { return folder_.Path() / "chosen"; }
    void Keep(const fs::path& folder) {
        host_.settings.WriteText(kSettingsKey, "screen_shot", ToAnsi(folder.native()));
    }
    std::optional<std::string> Kept() const {
        return host_.settings.ReadText(kSettingsKey, "screen_shot");
    }

    void OpenForBatch() {
        OpenWithPicture();
        Box(kBatchSave).click();
    }
    void SaveAtOnce() {
        page_->OnCommand(CScreenshotPage::commandSave);
        Settle();
    }
    // Presses a button that opens a file dialog; the dialog.
    QFileDialog& Ask(int command) {
        page_->OnCommand(command);
        Settle();
        EXPECT_NE(OpenFileDialog(), nullptr);
        return *OpenFileDialog();
    }
    void Answer(const QString& name) {
        AnswerFileDialog(name);
        Settle();
    }
    void SaveAs(const QString& name) {
        Ask(CScreenshotPage::commandSave);
        Answer(name);
    }

    const fs::path workingDirectory_ = fs::current_path();
};

// ---- with a question ---------------------------------------------------------------------------

TEST_F(ScreenshotPageSaves, WithoutAPictureASaveDoesNothing) {
    Open().OnCommand(CScreenshotPage::commandSave);
    Settle();
    EXPECT_EQ(OpenFileDialog(), nullptr);
    Box(kBatchSave).click();
    SaveAtOnce();
    EXPECT_FALSE(fs::exists(Default()));
    EXPECT_TRUE(host_.statuses.isEmpty());
}

TEST_F(ScreenshotPageSaves, TheSaveDialogHasItsTitleAndItsFilters) {
    OpenWithPicture();
    Keep(Chosen());
    Choose(kFormat, 2);
    QFileDialog& dialog = Ask(CScreenshotPage::commandSave);
    EXPECT_EQ(dialog.windowTitle(), ToQString(u8"保存截图文件"));
    EXPECT_EQ(dialog.nameFilters(),
              (QStringList{ToQString(u8"JPG图片 (*.jpg)"), ToQString(u8"GIF图片 (*.gif)"),
                           ToQString(u8"PNG图片 (*.png)"), ToQString(u8"BMP图片 (*.bmp)")}));
    EXPECT_EQ(dialog.selectedNameFilter(), ToQString(u8"PNG图片 (*.png)"));
    EXPECT_EQ(dialog.directory().path(), Shown(Chosen()));
    EXPECT_EQ(dialog.selectedFiles(), QStringList{Shown(Chosen() / "1122-074512.png")});
    EXPECT_TRUE(dialog.isModal());
}

TEST_F(ScreenshotPageSaves, ASaveThatIsGivenUpWritesNothing) {
    OpenWithPicture();
    Keep(Chosen());
    Ask(CScreenshotPage::commandSave).reject();
    Settle();
    EXPECT_TRUE(NamesIn(Chosen()).empty());
    EXPECT_TRUE(host_.statuses.isEmpty());
}

TEST_F(ScreenshotPageSaves, TheEndingThatIsTypedDecidesOverTheFormatList) {
    OpenWithPicture();
    Keep(Chosen());
    Choose(kFormat, 0);  // jpg
    for (const char* ending : {"jpg", "gif", "png", "bmp"}) {
        SaveAs(QStringLiteral("a.%1").arg(QLatin1StringView(ending)));
        const fs::path file = Chosen() / (std::string("a.") + ending);
        EXPECT_EQ(FormatIn(file), (ending == std::string("jpg") ? "jpeg" : ending)) << ending;
        EXPECT_EQ(QImageReader(Shown(file)).size(), QSize(6, 9)) << ending;
        EXPECT_EQ(host_.status, ToQString(u8"截图已保存：%1").arg(Shown(file)));
    }
}

TEST_F(ScreenshotPageSaves, TheEndingCountsInCapitalsToo) {
    OpenWithPicture();
    Keep(Chosen());
    SaveAs(QStringLiteral("a.PNG"));
    EXPECT_EQ(FormatIn(Chosen() / "a.PNG"), "png");
}

TEST_F(ScreenshotPageSaves, ANameWithAnUnknownEndingWritesNothingAndSaysNothing) {
    OpenWithPicture();
    Keep(Chosen());
    for (const QString& name : {QStringLiteral("a.tif"), QStringLiteral("b.jpeg")}) {
        SaveAs(name);
    }
    EXPECT_TRUE(NamesIn(Chosen()).empty());
    EXPECT_TRUE(host_.statuses.isEmpty());
}

TEST_F(ScreenshotPageSaves, ANameWithoutAnEndingGetsThatOfTheFilter) {
    OpenWithPicture();
    Keep(Chosen());
    Choose(kFormat, 3);
    SaveAs(QStringLiteral("a"));
    EXPECT_EQ(NamesIn(Chosen()), std::vector<std::string>{"a.bmp"});
    QFileDialog& dialog = Ask(CScreenshotPage::commandSave);
    dialog.selectNameFilter(ToQString(u8"GIF图片 (*.gif)"));
    Q_EMIT dialog.filterSelected(ToQString(u8"GIF图片 (*.gif)"));
    Answer(QStringLiteral("b"));
    EXPECT_EQ(FormatIn(Chosen() / "b.gif"), "gif");
}

TEST_F(ScreenshotPageSaves, ThePictureIsSavedAsItIsTurned) {
    OpenWithPicture();
    Keep(Chosen());
    Choose(ScreenOptions::kRotation, 1);
    Settle();
    SaveAs(QStringLiteral("a.png"));
    EXPECT_EQ(QImageReader(Shown(Chosen() / "a.png")).size(), QSize(9, 6));
}

TEST_F(ScreenshotPageSaves, ThePictureThatWasOnShowAtThePressIsSaved) {
    OpenWithPicture();
    Keep(Chosen());
    Ask(CScreenshotPage::commandSave);
    server_.Tell(ToldScreen{.width = 12, .height = 5});
    page_->Load();
    Settle();
    Answer(QStringLiteral("a.png"));
    EXPECT_EQ(QImageReader(Shown(Chosen() / "a.png")).size(), QSize(6, 9));
}

TEST_F(ScreenshotPageSaves, ASaveThatFailedSaysWhyInTheStatus) {
    OpenWithPicture();
    Keep(Chosen());
    // A folder in the file's place.
    fs::create_directories(Chosen() / "1122-074512.jpg" / "full");
    Box(kBatchSave).click();
    SaveAtOnce();
    EXPECT_TRUE(host_.status.startsWith(ToQString(u8"【X】截图没有保存：")))
        << host_.status.toStdString();
    EXPECT_GT(host_.status.size(), ToQString(u8"【X】截图没有保存：").size());
    EXPECT_FALSE(page_->IsAtWork());
    // The next one works.
    now_.tm_sec = 13;
    SaveAtOnce();
    EXPECT_EQ(FormatIn(Chosen() / "1122-074513.jpg"), "jpeg");
    EXPECT_EQ(host_.status, ToQString(u8"截图已保存：%1").arg(Shown(Chosen() / "1122-074513.jpg")));
}

TEST_F(ScreenshotPageSaves, TheNextPictureTakesBackWhatWasSaidOfTheLastSave) {
    OpenWithPicture();
    Box(kBatchSave).click();
    SaveAtOnce();
    EXPECT_NE(host_.status, kReady);
    page_->Load();
    Settle();
    EXPECT_EQ(host_.status, kReady);
}

// ---- without a question ------------------------------------------------------------------------

TEST_F(ScreenshotPageSaves, ABatchSaveAsksNothingAndMakesTheDefaultFolder) {
    OpenForBatch();
    SaveAtOnce();
    EXPECT_EQ(OpenFileDialog(), nullptr);
    EXPECT_EQ(NamesIn(Default()), std::vector<std::string>{"1122-074512.jpg"});
}

TEST_F(ScreenshotPageSaves, ABatchSaveTakesTheFormatOfTheList) {
    Keep(Chosen());
    OpenForBatch();
    for (int format = 0; format < 4; ++format) {
        Choose(kFormat, format);
        SaveAtOnce();
    }
    EXPECT_EQ(NamesIn(Chosen()), (std::vector<std::string>{"1122-074512.bmp", "1122-074512.gif",
                                                           "1122-074512.jpg", "1122-074512.png"}));
    EXPECT_FALSE(fs::exists(Default()));
}

TEST_F(ScreenshotPageSaves, TwoBatchSavesWithinOneSecondLeaveOneFile) {
    Keep(Chosen());
    OpenForBatch();
    SaveAtOnce();
    server_.Tell(ToldScreen{.width = 12, .height = 5});
    page_->Load();
    Settle();
    SaveAtOnce();
    EXPECT_EQ(NamesIn(Chosen()), std::vector<std::string>{"1122-074512.jpg"});
    EXPECT_EQ(QImageReader(Shown(Chosen() / "1122-074512.jpg")).size(), QSize(12, 5));
}

TEST_F(ScreenshotPageSaves, AFolderThatIsGoneGivesWayToTheDefaultOne) {
    Keep(folder_.Path() / "gone");
    OpenForBatch();
    SaveAtOnce();
    EXPECT_EQ(NamesIn(Default()), std::vector<std::string>{"1122-074512.jpg"});
    EXPECT_FALSE(fs::exists(folder_.Path() / "gone"));
}

TEST_F(ScreenshotPageSaves, PressesThatComeFastAreSavedOneAfterTheOther) {
    Keep(Chosen());
    OpenForBatch();
    for (int format = 0; format < 4; ++format) {
        Choose(kFormat, format);
        page_->OnCommand(CScreenshotPage::commandSave);
        EXPECT_TRUE(page_->IsAtWork());
    }
    Settle();
    EXPECT_EQ(NamesIn(Chosen()).size(), 4u);
    EXPECT_FALSE(page_->IsAtWork());
}

TEST_F(ScreenshotPageSaves, ThePageMayGoWhileItSaves) {
    Keep(Chosen());
    OpenForBatch();
    page_->OnCommand(CScreenshotPage::commandSave);
    page_.reset();
    Settle();
    EXPECT_TRUE(host_.statuses.isEmpty());
}

// ---- the folder --------------------------------------------------------------------------------

TEST_F(ScreenshotPageSaves, TheFolderDialogHasItsTitleAndTheStoredFolder) {
    Keep(Chosen());
    Open();
    QFileDialog& dialog = Ask(CScreenshotPage::commandChooseFolder);
    EXPECT_EQ(dialog.windowTitle(), ToQString(u8"奎维掌上工坊 截图保存目录"));
    EXPECT_EQ(dialog.fileMode(), QFileDialog::Directory);
    EXPECT_EQ(dialog.directory().path(), Shown(Chosen()));
}

TEST_F(ScreenshotPageSaves, WithoutAStoredFolderTheDialogHasTheDefaultOne) {
    Open();
    EXPECT_EQ(Ask(CScreenshotPage::commandChooseFolder).directory().path(), Shown(Default()));
}

TEST_F(ScreenshotPageSaves, AChosenFolderIsKeptAndTheWorkingDirectoryChanges) {
    Open();
    Ask(CScreenshotPage::commandChooseFolder);
    Answer(Shown(Chosen()));
    EXPECT_EQ(Kept(), ToAnsi(Chosen().native()));
    EXPECT_EQ(fs::current_path(), fs::canonical(Chosen()));
    page_->Load();
    Settle();
    Box(kBatchSave).click();
    SaveAtOnce();
    EXPECT_EQ(NamesIn(Chosen()), std::vector<std::string>{"1122-074512.jpg"});
}

TEST_F(ScreenshotPageSaves, AChoiceThatIsGivenUpChangesNothing) {
    Open();
    Ask(CScreenshotPage::commandChooseFolder).reject();
    Settle();
    EXPECT_EQ(Kept(), std::nullopt);
    EXPECT_EQ(fs::current_path(), workingDirectory_);
}

TEST_F(ScreenshotPageSaves, AFolderWhoseNameTheCodePageCannotHoldIsSaidNotToBeKept) {
    const QString name = QString::fromUcs4(U"\U0001F4F7");  // a camera
    ASSERT_FALSE(FitsCodePage(name));
    const fs::path folder = folder_.Path() / name.toStdString();
    fs::create_directories(folder);
    Open();
    Ask(CScreenshotPage::commandChooseFolder);
    Answer(Shown(folder));
    EXPECT_EQ(Kept(), std::nullopt);
    EXPECT_TRUE(host_.status.startsWith(ToQString(u8"【X】"))) << host_.status.toStdString();
    EXPECT_EQ(fs::current_path(), fs::canonical(folder));
}

TEST_F(ScreenshotPageSaves, TheFolderIsOpenedOnTheDesktop) {
    const OpenedAddresses opened({QStringLiteral("file")});
    Open().OnCommand(CScreenshotPage::commandOpenFolder);
    Settle();
    EXPECT_TRUE(fs::is_directory(Default()));
    const fs::path odd = folder_.Path() / "a b#50%?";
    fs::create_directories(odd);
    Keep(odd);
    page_->OnCommand(CScreenshotPage::commandOpenFolder);
    Settle();
    ASSERT_EQ(opened.taken.size(), 2);
    EXPECT_EQ(QUrl(opened.taken[0]).toLocalFile(), Shown(Default()));
    EXPECT_EQ(QUrl(opened.taken[1]).toLocalFile(), Shown(odd));
}

// ---- copied ------------------------------------------------------------------------------------

TEST_F(ScreenshotPageSaves, CtrlCCopiesThePictureWhereverTheKeysAre) {
    Open();
    ShowActive(*page_);
    QApplication::clipboard()->setText(QStringLiteral("before"));
    QTest::keyClick(page_.get(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("before"));  // there is none
    EXPECT_TRUE(host_.statuses.isEmpty());
    page_->Load();
    Settle();
    for (QWidget* keys : {static_cast<QWidget*>(&Picture()), static_cast<QWidget*>(&List(kFormat)),
                          static_cast<QWidget*>(page_.get())}) {
        QApplication::clipboard()->clear();
        keys->setFocus();
        QTest::keyClick(keys, Qt::Key_C);
        EXPECT_TRUE(QApplication::clipboard()->image().isNull());
        QTest::keyClick(keys, Qt::Key_C, Qt::ControlModifier);
        EXPECT_EQ(QApplication::clipboard()->image().size(), QSize(6, 9));
    }
    EXPECT_EQ(host_.status, ToQString(u8"截图已复制，可以粘贴到别的程序里"));
}

// ---- dragged out -------------------------------------------------------------------------------

class PictureDragged : public ScreenshotPageSaves {
  protected:
    [[nodiscard]] Places TheirPlaces() const {
        Places places;
        places.temporary = folder_.Path() / "temporary";
        return places;
    }
    [[nodiscard]] std::vector<std::string> Folders() const {
        return NamesIn(TheirPlaces().temporary);
    }
    PictureCopy MakeCopy() { return {*Picture().Picture(), "1122-074512.png", TheirPlaces()}; }
};

TEST_F(PictureDragged, IsAPngFileInAFolderThatOnlyThisUserOpens) {
    OpenWithPicture();
    const DraggedPicture dragged(MakeCopy());
    EXPECT_EQ(dragged.formats(), QStringList{QStringLiteral("text/uri-list")});
    EXPECT_TRUE(dragged.hasUrls());
    ASSERT_EQ(dragged.urls().size(), 1);
    const fs::path file = dragged.urls().constFirst().toLocalFile().toStdString();
    EXPECT_EQ(file.filename(), "1122-074512.png");
    EXPECT_EQ(FormatIn(file), "png");
    EXPECT_EQ(QImageReader(Shown(file)).size(), QSize(6, 9));
    EXPECT_EQ(fs::status(file.parent_path()).permissions(), fs::perms::owner_all);
}

TEST_F(PictureDragged, IsGoneWithItsLastCopy) {
    OpenWithPicture();
    std::optional<PictureCopy> copy = MakeCopy();
    Settle();
    {
        const DraggedPicture dragged(*copy);
        copy.reset();
        EXPECT_EQ(Folders().size(), 1u);
        EXPECT_EQ(dragged.urls().size(), 1);
    }
    EXPECT_TRUE(WaitFor([&] { return Folders().empty(); }));
}

TEST_F(PictureDragged, TakesAwayWhatProcessesLeftThatAreNoMore) {
    OpenWithPicture();
    const fs::path temporary = TheirPlaces().temporary;
    fs::create_directories(temporary / "quorvi-screen-999999999-abcdef" / "old");
    fs::create_directories(temporary / "quorvi-screen-1-abcdef");  // of a process that lives
    fs::create_directories(temporary / "quorvi-screen-abcdef");    // of none
    fs::create_directories(temporary / "another");
    fs::create_directory_symlink(temporary / "another",
                                 temporary / "quorvi-screen-999999999-linked");
    const PictureCopy copy = MakeCopy();
    EXPECT_NE(copy.Path(DraggedPicture::kLongestWait), QString());
    const std::vector<std::string> left = Folders();
    EXPECT_EQ(std::ranges::count(left, "quorvi-screen-999999999-abcdef"), 0);
    for (const char* stays : {"quorvi-screen-1-abcdef", "quorvi-screen-abcdef", "another",
                              "quorvi-screen-999999999-linked"}) {
        EXPECT_EQ(std::ranges::count(left, stays), 1) << stays;
    }
}

TEST_F(PictureDragged, TheFileIsThereAsLongAsItsPictureIsOnShow) {
    OpenWithPicture();
    static_cast<void>(page_->grab());
    // The drag runs the window's events until it ends.
    int drags = 0;
    QTimer end;
    end.callOnTimeout([&] {
        if (!Folders().empty()) {
            ++drags;
            end.stop();
            QDrag::cancel();
        }
    });
    for (int drag = 1; drag <= 2; ++drag) {
        end.start();
        Q_EMIT Picture().dragged();
        Settle();
        EXPECT_EQ(drags, drag);
        EXPECT_EQ(Folders().size(), 1u);  // one file, however often it is dragged
    }
    page_->Load();
    Settle();
    EXPECT_TRUE(WaitFor([&] { return Folders().empty(); }));
}

TEST_F(PictureDragged, WithoutAFileThereIsNoAddress) {
    OpenWithPicture();
    Places nowhere;
    nowhere.temporary = folder_.Path() / "gone";
    const DraggedPicture dragged(PictureCopy(*Picture().Picture(), "a.png", nowhere));
    EXPECT_TRUE(dragged.urls().isEmpty());
}

}  // namespace
}  // namespace quorvi
