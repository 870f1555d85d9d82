#include <QLineEdit>
#include <fstream>

#include "base/Text.h"
#include "pages/downloads/DownloadSettingsDlg.h"
#include "tests/support/ControlDriver.h"
#include "tests/support/DialogDriver.h"
#include "tests/support/MemorySettings.h"
#include "tests/support/OpenedAddresses.h"
#include "tests/support/PageTest.h"
#include "tests/support/PrintQt.h"
#include "tests/support/TemporaryFolder.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/SkinChecks.h"

namespace quorvi {
namespace {

constexpr int kDialog = 685;
constexpr int kFolder = 1383;
constexpr int kChange = 1216;
constexpr int kOpen = 1217;
constexpr int kFree = 1387;
constexpr int kInstalls = 1382;
constexpr int kOk = 1215;

class DownloadSettings : public PageTest {
  protected:
    void OpenIt() {
        (new DownloadSettingsDlg(settings_, [this] {
            return std::vector<FixedDisk>{{.place = disk_.Path(), .freeBytes = 1ULL << 40}};
        }))->Open();
        Settle();
    }
    void TearDown() override {
        if (SkinDialog* dialog = OpenDialog(kDialog)) {
            dialog->reject();
        }
        Settle();
    }
    template <typename Control = QWidget>
    [[nodiscard]] static Control& Find(int control) {
        return *FindControl<Control>(OpenDialog(kDialog), control);
    }
    [[nodiscard]] QString Free() {
        Settle();
        return Find<QLabel>(kFree).text();
    }
    void Type(const std::filesystem::path& folder) {
        Find<QLineEdit>(kFolder).setText(QString::fromStdString(folder.native()));
        Settle();
    }
    void PressOk() {
        PressIn(kDialog, kOk);
        Settle();
    }
    void Store(const std::filesystem::path& folder) {
        settings_.WriteText("Software\\Quorvi", "DownloadPath", ToAnsi(folder.native()));
    }
    [[nodiscard]] std::optional<std::string> Stored() {
        return settings_.ReadText("Software\\Quorvi", "DownloadPath");
    }
    [[nodiscard]] static QString Shown(const std::filesystem::path& path) {
        return QString::fromStdString(path.native());
    }

    TemporaryFolder disk_;
    MemorySettings settings_;
};

TEST_F(DownloadSettings, ShowsTheStoredFolder) {
    Store(disk_.Path());
    OpenIt();
    EXPECT_EQ(Find<QLineEdit>(kFolder).text(), Shown(disk_.Path()));
}

TEST_F(DownloadSettings, WithoutAStoredFolderItShowsTheChosenOne) {
    OpenIt();
    EXPECT_EQ(Find<QLineEdit>(kFolder).text(), Shown(disk_.Path() / "QuorviDownload"));
}

TEST_F(DownloadSettings, ShowsTheFreeMegabytesOfTheFolderInTheField) {
    Store(disk_.Path());
    OpenIt();
    EXPECT_TRUE(Free().endsWith(QStringLiteral(" MB")));
    EXPECT_GT(Free().chopped(3).toULongLong(), 0u);
    Type("nowhere");
    EXPECT_EQ(Free(), ToQString(u8"未知"));
}

TEST_F(DownloadSettings, OkMakesTheFolderStoresItAndCloses) {
    OpenIt();
    Type(disk_.Path() / "a" / "b");
    PressOk();
    EXPECT_EQ(OpenDialog(kDialog), nullptr);
    EXPECT_TRUE(std::filesystem::is_directory(disk_.Path() / "a" / "b"));
    EXPECT_EQ(Stored(), (disk_.Path() / "a" / "b").native());
}

TEST_F(DownloadSettings, WhereTheFolderCannotBeMadeTheDialogStays) {
    Store(disk_.Path());
    std::ofstream(disk_.Path() / "file") << "x";
    OpenIt();
    Type(disk_.Path() / "file" / "below");
    PressOk();
    ASSERT_NE(OpenDialog(kDialog), nullptr);
    EXPECT_TRUE(Find(kOk).isEnabled());
    EXPECT_TRUE(Find(kFolder).hasFocus());
    EXPECT_EQ(Stored(), disk_.Path().native());
}

TEST_F(DownloadSettings, OpensTheStoredFolderAndNotTheTypedOne) {
    const OpenedAddresses opened({QStringLiteral("file")});
    Store(disk_.Path());
    OpenIt();
    Type("/somewhere/else");
    PressIn(kDialog, kOpen);
    Settle();
    EXPECT_EQ(opened.taken, QStringList(QStringLiteral("file://") + Shown(disk_.Path())));
}

TEST_F(DownloadSettings, AStoredFolderThatIsGoneIsNotOpened) {
    const OpenedAddresses opened({QStringLiteral("file")});
    OpenIt();
    Store("/nowhere/at/all");
    PressIn(kDialog, kOpen);
    Settle();
    EXPECT_TRUE(opened.taken.isEmpty());
}

TEST_F(DownloadSettings, ThatInstallationFollowsIsAFactThatCannotBeChanged) {
    OpenIt();
    EXPECT_EQ(Find<CSkinCheck>(kInstalls).GetCheck(), 1);
    EXPECT_FALSE(Find(kInstalls).isEnabled());
    EXPECT_EQ(Find<CSkinCheck>(kInstalls).text(), ToQString(u8"下载完成后，自动安装应用到手机"));
    PressOk();
    EXPECT_EQ(settings_.texts.size() + settings_.numbers.size(), 1u);
}

TEST_F(DownloadSettings, TheWayOutStoresNothing) {
    Store(disk_.Path());
    OpenIt();
    Type(disk_.Path() / "other");
    QTest::keyClick(OpenDialog(kDialog), Qt::Key_Escape);
    Settle();
    EXPECT_EQ(OpenDialog(kDialog), nullptr);
    EXPECT_EQ(Stored(), disk_.Path().native());
    EXPECT_FALSE(std::filesystem::exists(disk_.Path() / "other"));
}

TEST_F(DownloadSettings, ItsControlsHaveTheirNumbers) {
    OpenIt();
    for (const int control : {kFolder, kChange, kOpen, kFree, kInstalls, kOk}) {
        EXPECT_NE(FindControl(OpenDialog(kDialog), control), nullptr) << control;
    }
}

}  // namespace
}  // namespace quorvi
