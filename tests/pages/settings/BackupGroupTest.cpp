#include <QLabel>
#include <QTest>
#include <fstream>

#include "backup/BackupReader.h"
#include "backup/DeletedItems.h"
#include "base/Places.h"
#include "base/Text.h"
#include "pages/kit/PageNumbers.h"
#include "pages/settings/SettingsPage.h"
#include "tests/pages/settings/BackupPhone.h"
#include "tests/support/ColumnDriver.h"
#include "tests/support/DialogDriver.h"
#include "tests/support/FileDialogDriver.h"
#include "tests/support/OpenedAddresses.h"
#include "ui/kit/SkinButtons.h"
#include "ui/kit/SkinChecks.h"
#include "ui/kit/SkinFields.h"
#include "ui/kit/SkinLabels.h"
#include "ui/list/SkinListCtrl.h"

namespace quorvi {
namespace {

constexpr int kPlan = 690;
constexpr int kGo = 1215;

class BackupGroupTest : public BackupPhoneTest {
  protected:
    BackupGroupTest() {
        host_.settings.WriteText(kSettingsKey, "backup_folder", ToAnsi(place_.string()));
        // All but groups and alarms.
        host_.settings.WriteNumber(kSettingsKey, "backup_left_out", 0b1111'1010);
    }
    ~BackupGroupTest() override {
        std::error_code ignored;
        std::filesystem::remove_all(ThePlaces().DeletedItems(), ignored);
    }

    void OpenAt(std::uint16_t port) {
        page_ = std::make_unique<SettingsPage>(host_, services_.At(port));
        page_->resize(760, 462);
        page_->show();
        Settle();
    }
    void Open() { OpenAt(agent_.Port()); }
    template <typename T>
    T& Of(const char* name) {
        return *page_->findChild<T*>(QString::fromLatin1(name));
    }
    QString TextOf(const char* name) { return Of<QLabel>(name).text(); }
    void Click(const char* name) { Of<QAbstractButton>(name).click(); }
    [[nodiscard]] std::vector<std::filesystem::path> Made() const {
        std::vector<std::filesystem::path> made;
        std::error_code none;
        for (const auto& entry : std::filesystem::directory_iterator(place_, none)) {
            made.push_back(entry.path());
        }
        return made;
    }
    // Begins a backup, which the phone keeps waiting for its alarms.
    void StartAndHold() {
        agent_.Hold(AgentCommand::listAlarms);
        Click("backupStart");
        ASSERT_TRUE(WaitFor([&] { return !agent_.Requests(AgentCommand::listAlarms).empty(); }));
        DrainWindow();
    }

    std::filesystem::path place_ = folder_.Path() / "backups";
    std::unique_ptr<SettingsPage> page_;
};

TEST_F(BackupGroupTest, ABackupStandsInTheFolderAndIsTheOneToRestore) {
    Open();
    Click("backupStart");
    Settle();
    ASSERT_EQ(Made().size(), 1u);
    EXPECT_EQ(Made()[0].extension(), ".zip");
    EXPECT_EQ(TextOf("backupState"),
              ToQString(u8"备份完成：") + QString::fromStdString(Made()[0].string()));
    EXPECT_EQ(TextOf("backupDetail"), ToQString(u8"联系人分组 2，闹铃 1"));
    EXPECT_EQ(Of<CSkinProgress>("backupProgress").value(), 100);
    EXPECT_EQ(Of<CSkinCombo>("restoreBackup").count(), 1);
    EXPECT_EQ(TextOf("restoreCounts"), ToQString(u8"联系人分组 2，闹铃 1"));
    EXPECT_EQ(TextOf("restoreState"), ToQString(u8"文件完整，校验通过"));
    EXPECT_TRUE(Of<QAbstractButton>("restoreAsk").isEnabled());
    EXPECT_EQ(host_.status, kReady);
}

TEST_F(BackupGroupTest, TheStatusTellsHowFarABackupIs) {
    Open();
    StartAndHold();
    EXPECT_EQ(host_.status, ToQString(u8"正在备份 50 %"));
    EXPECT_EQ(TextOf("backupState"), ToQString(u8"正在保存联系人分组 2 / 2"));
    agent_.Release();
    Settle();
    EXPECT_EQ(host_.status, kReady);
}

TEST_F(BackupGroupTest, WhatIsChosenStays) {
    Open();
    Click("backupPlain");
    Click("backupKind4");  // alarms
    Settle();
    Click("backupStart");
    Settle();
    ASSERT_EQ(Made().size(), 1u);
    EXPECT_TRUE(std::filesystem::is_directory(Made()[0]));
    EXPECT_EQ(TextOf("backupDetail"), ToQString(u8"联系人分组 2"));
    Open();
    EXPECT_TRUE(Of<SkinRadio>("backupPlain").isChecked());
    EXPECT_FALSE(Of<CSkinCheck>("backupKind4").isChecked());
    EXPECT_TRUE(Of<CSkinCheck>("backupKind1").isChecked());
}

TEST_F(BackupGroupTest, WithoutAChoiceAllIsBackedUpIntoAZipUnderTheUsersFolder) {
    host_.settings.texts.clear();
    host_.settings.numbers.clear();
    Open();
    EXPECT_TRUE(Of<SkinRadio>("backupZip").isChecked());
    for (const char* box : {"backupKind0", "backupKind3", "backupKind7"}) {
        EXPECT_TRUE(Of<CSkinCheck>(box).isChecked()) << box;
    }
    EXPECT_EQ(Of<CSkinEdit>("backupFolder").text(),
              QString::fromStdString((ThePlaces().home / "手机备份").string()));
}

TEST_F(BackupGroupTest, WithNoKindTickedNothingCanBeStarted) {
    Open();
    Click("backupKind1");
    Click("backupKind4");
    EXPECT_FALSE(Of<QAbstractButton>("backupStart").isEnabled());
    EXPECT_EQ(TextOf("backupState"), ToQString(u8"请先勾选要备份的内容"));
    Click("backupKind1");
    EXPECT_TRUE(Of<QAbstractButton>("backupStart").isEnabled());
    EXPECT_EQ(TextOf("backupState"), ToQString(u8"就绪"));
    Settle();
}

TEST_F(BackupGroupTest, AStopLeavesNothingAndSaysHowFarItCame) {
    Open();
    StartAndHold();
    EXPECT_FALSE(Of<QAbstractButton>("backupStart").isVisible());
    EXPECT_FALSE(Of<QAbstractButton>("backupKind0").isEnabled());
    Click("backupStop");
    ASSERT_TRUE(WaitFor([&] { return Of<QAbstractButton>("backupStart").isVisible(); }));
    EXPECT_EQ(TextOf("backupState"), ToQString(u8"已停止"));
    EXPECT_EQ(TextOf("backupDetail"), ToQString(u8"已读取 联系人分组 2，没有留下备份"));
    EXPECT_TRUE(Made().empty());
    EXPECT_TRUE(Of<QAbstractButton>("backupKind0").isEnabled());
    EXPECT_EQ(host_.status, kReady);
    agent_.Release();
    Settle();
}

TEST_F(BackupGroupTest, NothingIsRestoredWhileABackupIsMade) {
    std::filesystem::create_directories(place_);
    static_cast<void>(BackUp("backups/a.zip"));
    Open();
    ASSERT_TRUE(Of<QAbstractButton>("restoreAsk").isEnabled());
    StartAndHold();
    EXPECT_FALSE(Of<QAbstractButton>("restoreAsk").isEnabled());
    EXPECT_EQ(TextOf("restoreWhyNot"), ToQString(u8"备份进行中，请稍候"));
    EXPECT_FALSE(Of<CSkinListCtrl>("deletedList").isEnabled());
    agent_.Release();
    Settle();
    EXPECT_TRUE(Of<QAbstractButton>("restoreAsk").isEnabled());
    EXPECT_EQ(TextOf("restoreWhyNot"), QString());
}

TEST_F(BackupGroupTest, APhoneThatIsGoneIsToldAndLeavesNothing) {
    OpenAt(1);
    Click("backupStart");
    Settle();
    EXPECT_EQ(TextOf("backupState"), ToQString(u8"没有连接手机，请连接后重试"));
    EXPECT_EQ(Of<CSkinStateLabel>("backupState").State(), CSkinStateLabel::kRed);
    EXPECT_EQ(TextOf("backupDetail"), ToQString(u8"没有留下备份"));
    EXPECT_TRUE(Made().empty());
}

TEST_F(BackupGroupTest, AFolderThatCannotBeMadeIsTold) {
    std::ofstream(place_) << "a file in the place of the folder";
    Open();
    Click("backupStart");
    Settle();
    EXPECT_EQ(Of<CSkinStateLabel>("backupState").State(), CSkinStateLabel::kRed);
    EXPECT_FALSE(TextOf("backupState").isEmpty());
}

TEST_F(BackupGroupTest, APageThatGoesStopsItsBackup) {
    Open();
    StartAndHold();
    page_.reset();
    ASSERT_TRUE(WaitFor([] { return RunningJobs() == 0; }));
    EXPECT_TRUE(Made().empty());
    agent_.Release();
}

TEST_F(BackupGroupTest, AnotherFolderIsChosenAndItsBackupsAreFound) {
    static_cast<void>(BackUp("a.zip"));
    Open();
    EXPECT_EQ(Of<CSkinCombo>("restoreBackup").count(), 0);
    Click("backupChoose");
    AnswerFileDialog(QString::fromStdString(folder_.Path().string()));
    Settle();
    EXPECT_EQ(Of<CSkinCombo>("restoreBackup").count(), 1);
    EXPECT_EQ(host_.settings.ReadText(kSettingsKey, "backup_folder"),
              ToAnsi(folder_.Path().string()));
}

TEST_F(BackupGroupTest, WithoutABackupThereIsNoPlan) {
    Open();
    EXPECT_FALSE(Of<QAbstractButton>("restoreAsk").isEnabled());
    EXPECT_EQ(TextOf("restoreState"), ToQString(u8"还没有备份"));
}

TEST_F(BackupGroupTest, ABackupOfAnotherPlaceIsChosenByHand) {
    const auto backup = BackUp("folder");
    Open();
    Click("restoreBrowse");
    AnswerFileDialog(QString::fromStdString((backup / "manifest.json").string()));
    Settle();
    EXPECT_EQ(Of<CSkinCombo>("restoreBackup").count(), 1);
    EXPECT_EQ(TextOf("restoreState"), ToQString(u8"文件完整，校验通过"));
    Click("restoreAsk");
    Settle();
    ASSERT_NE(OpenDialog(kPlan), nullptr);
    OpenDialog(kPlan)->close();
}

TEST_F(BackupGroupTest, AFileThatIsNoBackupIsRefused) {
    std::ofstream(folder_.Path() / "a.zip") << "no archive";
    Open();
    Click("restoreBrowse");
    AnswerFileDialog(QString::fromStdString((folder_.Path() / "a.zip").string()));
    Settle();
    EXPECT_EQ(Of<CSkinCombo>("restoreBackup").count(), 0);
    EXPECT_EQ(Of<CSkinStateLabel>("restoreState").State(), CSkinStateLabel::kRed);
}

TEST_F(BackupGroupTest, ADamagedBackupIsTold) {
    std::filesystem::create_directories(place_);
    const auto backup = BackUp("backups/a");
    for (const auto& entry : std::filesystem::directory_iterator(backup)) {
        if (entry.path().filename() != "manifest.json") {
            std::fstream(entry.path(), std::ios::in | std::ios::out) << "?";
        }
    }
    Open();
    EXPECT_EQ(Of<CSkinStateLabel>("restoreState").State(), CSkinStateLabel::kRed);
    EXPECT_NE(TextOf("restoreState"), QString());
}

TEST_F(BackupGroupTest, TheNewestBackupIsChosenAndAnotherOneStaysChosen) {
    std::filesystem::create_directories(place_);
    static_cast<void>(BackUp("backups/a.zip"));
    static_cast<void>(BackUp("backups/b.zip", {BackupKind::groups}));
    Open();
    auto& backups = Of<CSkinCombo>("restoreBackup");
    ASSERT_EQ(backups.count(), 2);
    backups.setCurrentIndex(1);
    Settle();
    const QString counts = TextOf("restoreCounts");
    page_->hide();
    page_->show();  // looks again
    Settle();
    EXPECT_EQ(backups.currentIndex(), 1);
    EXPECT_EQ(TextOf("restoreCounts"), counts);
    Click("backupStart");
    Settle();
    EXPECT_EQ(backups.count(), 3);
    EXPECT_EQ(backups.currentIndex(), 0);
}

class DeletedTest : public BackupGroupTest {
  protected:
    void Keep(const GoingRows& rows, std::int64_t now) {
        ASSERT_EQ(DeletedItems(ThePlaces().DeletedItems())
                      .Keep(agent_.Port(), rows, now, StopSignal())
                      .end,
                  BackupEnd::whole);
    }
    CSkinListCtrl& List() { return Of<CSkinListCtrl>("deletedList"); }

    std::int64_t now_ = std::time(nullptr);
};

TEST_F(DeletedTest, WhatWasDeletedIsListedAndABookmarkOpensItsPlan) {
    BookmarkRow bookmark;
    bookmark.title = "weather";
    bookmark.url = "http://x.example/";
    Keep(std::vector{bookmark}, now_);
    agent_.AnswerNoData(AgentCommand::listBookmarks);
    Open();
    ASSERT_EQ(List().RowCount(), 1);
    EXPECT_EQ(List().CellAt(0, 1).text, ToQString(u8"书签"));
    EXPECT_EQ(List().CellAt(0, 2).text, QStringLiteral("weather"));
    EXPECT_EQ(List().CellAt(0, 4).text, ToQString(u8"恢复"));
    Q_EMIT List().rowOpened(0);
    Settle();
    ASSERT_NE(OpenDialog(kPlan), nullptr);
    EXPECT_EQ(OpenDialog(kPlan)->findChild<CSkinListCtrl*>()->CellAt(0, 2).text,
              QStringLiteral("weather"));
    OpenDialog(kPlan)->close();
}

TEST_F(DeletedTest, AColumnOfAPlanThatWasDraggedIsAsWideInTheNext) {
    constexpr int kName = 2;
    BookmarkRow bookmark;
    bookmark.title = "weather";
    Keep(std::vector{bookmark}, now_);
    agent_.AnswerNoData(AgentCommand::listBookmarks);
    Open();
    int dragged = 0;
    for (const bool again : {false, true}) {
        Q_EMIT List().rowOpened(0);
        Settle();
        ASSERT_NE(OpenDialog(kPlan), nullptr);
        auto& plan = *OpenDialog(kPlan)->findChild<CSkinListCtrl*>();
        if (again) {
            EXPECT_EQ(plan.columnWidth(kName), dragged);
        } else {
            const int told = plan.columnWidth(kName);
            DragColumn(plan, kName, 40);
            dragged = plan.columnWidth(kName);
            EXPECT_EQ(dragged, told + 40);
        }
        OpenDialog(kPlan)->close();
        Settle();
    }
}

TEST_F(DeletedTest, WhatWasBroughtBackIsReadByThePagesWhenTheyAreShownAgain) {
    BookmarkRow bookmark;
    bookmark.title = "weather";
    Keep(std::vector{bookmark}, now_);
    agent_.AnswerNoData(AgentCommand::listBookmarks);
    agent_.AnswerAcknowledged(AgentCommand::addBookmark);
    for (const PageNumbers& page : {kContactsPage, kAlarmsPage, kBookmarksPage, kCallsPage}) {
        host_.loadState.Set(page.loadKey, PageLoadState::kEnded);
    }
    Open();
    Q_EMIT List().rowOpened(0);
    Settle();
    EXPECT_TRUE(host_.loadState.Contains(kBookmarksPage.loadKey));  // nothing is written yet
    PressIn(kPlan, kGo);
    Settle();
    for (const PageNumbers& page : {kContactsPage, kAlarmsPage, kBookmarksPage}) {
        EXPECT_FALSE(host_.loadState.Contains(page.loadKey)) << page.page;
    }
    EXPECT_TRUE(host_.loadState.Contains(kCallsPage.loadKey));
    OpenDialog(kPlan)->close();
}

TEST_F(DeletedTest, CallsCannotGoBackAndTheirFilesAreShown) {
    OpenedAddresses opened({QStringLiteral("file")});
    Keep(std::vector<CallLogRow>(21), now_);
    const std::filesystem::path kept =
        DeletedItems(ThePlaces().DeletedItems()).List(now_)[0].backup;
    ASSERT_TRUE(std::filesystem::exists(kept / "calls.csv"));
    Open();
    ASSERT_EQ(List().RowCount(), 1);
    EXPECT_EQ(List().CellAt(0, 4).text, ToQString(u8"查看文件"));
    EXPECT_EQ(List().CellAt(0, 4).note,
              ToQString(u8"手机不接收短信和通话记录的恢复，打开文件夹可以查看删除的内容"));
    QTest::mouseClick(List().viewport(), Qt::LeftButton, {}, List().LinkRect(0, 4).center());
    EXPECT_EQ(opened.taken,
              QStringList{QStringLiteral("file://") + QString::fromStdString(kept.string())});
    EXPECT_EQ(OpenDialog(kPlan), nullptr);
}

TEST_F(DeletedTest, WhatIsDeletedMeanwhileStandsThereWhenThePageIsShownAgain) {
    Open();
    EXPECT_EQ(List().RowCount(), 0);
    page_->hide();
    Keep(std::vector<CallLogRow>(1), now_);
    page_->show();
    Settle();
    EXPECT_EQ(List().RowCount(), 1);
}

}  // namespace
}  // namespace quorvi
