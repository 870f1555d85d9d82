#include <gmock/gmock.h>

#include <QFileDialog>
#include <QLabel>
#include <QPlainTextEdit>
#include <fstream>

#include "base/Places.h"
#include "log/LogFile.h"
#include "pages/settings/DiagnosisDlg.h"
#include "pages/settings/SettingsPage.h"
#include "tests/support/DialogDriver.h"
#include "tests/support/EnvironmentVariable.h"
#include "tests/support/FileDialogDriver.h"
#include "tests/support/LoopbackPort.h"
#include "tests/support/PageTest.h"
#include "tests/support/PrintQt.h"
#include "tests/support/QtTest.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/ToldAdb.h"
#include "tests/support/Unzip.h"
#include "ui/kit/SkinButtons.h"

namespace quorvi {
namespace {

using testing::HasSubstr;

constexpr int kDialog = 691;
constexpr int kPreview = 3;
constexpr int kSave = 1215;
constexpr int kClose = 1021;

constexpr std::string_view kLine =
    "2026-11-22T09:30:12.345Z quorvi[4711] link.search result=found ms=812\n";

class DiagnosisGroupTest : public PageTest {
  public:
    static void SetUpTestSuite() { QtTest::SetUpTestSuite(); }

  protected:
    DiagnosisGroupTest() {
        adb_.Print("version", "Android Debug Bridge version 1.0.41\nVersion 28.0.2-debian\n");
        EXPECT_EQ(LogFile(ThePlaces().LogFile()).Append(kLine), std::error_code());
        page_ = std::make_unique<SettingsPage>(host_, services_.At(UnusedPort()));
        page_->resize(760, 462);
        page_->show();
        Settle();
    }
    ~DiagnosisGroupTest() override {
        CloseFileDialog();
        std::error_code ignored;
        std::filesystem::remove_all(ThePlaces().LogFile().parent_path(), ignored);
    }

    CSkinButton& Button(const char* name) {
        return *page_->findChild<CSkinButton*>(QString::fromLatin1(name));
    }
    void Click(const char* name) {
        Button(name).click();
        Settle();
    }
    [[nodiscard]] std::string Target() const { return (folder_.Path() / "report.zip").native(); }
    [[nodiscard]] QString TargetText() const { return QString::fromStdString(Target()); }
    static std::string Preview() {
        auto* text = FindControl<QPlainTextEdit>(OpenDialog(kDialog), kPreview);
        return text->toPlainText().toStdString();
    }
    // Waits until a file dialog is there, and answers it.
    void SaveAs(const QString& name) {
        ASSERT_TRUE(WaitFor([] { return OpenFileDialog() != nullptr; }));
        AnswerFileDialog(name);
        Settle();
    }

    TemporaryFolder folder_;
    cli::ToldAdb adb_;
    EnvironmentVariable server_{"ANDROID_ADB_SERVER_PORT", std::to_string(UnusedPort())};
    std::unique_ptr<SettingsPage> page_;
};

TEST_F(DiagnosisGroupTest, TellsHowLargeTheLogIs) {
    EXPECT_EQ(page_->findChild<QLabel*>(QStringLiteral("diagnosisSize"))->text(),
              ToQString(u8"日志 70 字节"));
}

TEST_F(DiagnosisGroupTest, ShowsAllThatWillBeInIt) {
    Click("diagnosisShow");
    ASSERT_NE(OpenDialog(kDialog), nullptr);
    const std::string preview = Preview();
    EXPECT_THAT(preview, HasSubstr("versions.txt: 软件和系统的版本，"));
    EXPECT_THAT(preview, HasSubstr("\nadb: 1.0.41\nadb 的发行版本: 28.0.2-debian\n"));
    EXPECT_THAT(preview, HasSubstr("\nscreen.txt\nQt: " + std::string(qVersion()) +
                                   "\n显示方式: offscreen\n屏幕 1: "));
    EXPECT_THAT(preview, HasSubstr("，缩放 1.00，"));
    EXPECT_THAT(preview, HasSubstr(kLine));
    PressIn(kDialog, kClose);
    Settle();
    EXPECT_EQ(OpenFileDialog(), nullptr);
    EXPECT_EQ(host_.status, kReady);
}

TEST_F(DiagnosisGroupTest, WhatWasShownIsSavedWhereItsUserSays) {
    Click("diagnosisShow");
    ASSERT_NE(OpenDialog(kDialog), nullptr);
    const std::string preview = Preview();
    ASSERT_EQ(LogFile(ThePlaces().LogFile()).Append(kLine), std::error_code());
    PressIn(kDialog, kSave);
    SaveAs(TargetText());
    EXPECT_EQ(host_.status, ToQString(u8"已保存诊断信息：") + TargetText());
    const auto files = Unzip(Target());
    EXPECT_EQ(files.size(), 4U);
    for (const auto& [name, text] : files) {
        EXPECT_THAT(preview, HasSubstr(text)) << name;
    }
    EXPECT_EQ(files.at("quorvi.log"), kLine);
}

TEST_F(DiagnosisGroupTest, SavesWithoutShowingItFirst) {
    Click("diagnosisSave");
    EXPECT_EQ(OpenDialog(kDialog), nullptr);
    ASSERT_NE(OpenFileDialog(), nullptr);
    SaveAs(TargetText());
    EXPECT_EQ(Unzip(Target()).size(), 4U);
}

TEST_F(DiagnosisGroupTest, AFileThatItsUserGaveUpIsReplaced) {
    std::ofstream(Target()) << "somebody's";
    Click("diagnosisSave");
    ASSERT_NE(OpenFileDialog(), nullptr);
    // The dialog's own question is not what is tested here.
    OpenFileDialog()->setOption(QFileDialog::DontConfirmOverwrite);
    SaveAs(TargetText());
    EXPECT_EQ(Unzip(Target()).size(), 4U);
}

TEST_F(DiagnosisGroupTest, AFileThatCannotBeWrittenIsToldInTheStatus) {
    Click("diagnosisSave");
    ASSERT_TRUE(WaitFor([] { return OpenFileDialog() != nullptr; }));
    SaveAs(QStringLiteral("/proc/report.zip"));
    EXPECT_TRUE(host_.status.startsWith(ToQString(u8"【X】诊断信息没有保存：")))
        << host_.status.toStdString();
}

TEST_F(DiagnosisGroupTest, ItsButtonsRestWhileItIsGathered) {
    Button("diagnosisSave").setFocus();
    Button("diagnosisSave").click();
    EXPECT_FALSE(Button("diagnosisShow").isEnabled());
    EXPECT_FALSE(Button("diagnosisSave").isEnabled());
    EXPECT_TRUE(page_->IsAtWork());
    Settle();
    EXPECT_TRUE(Button("diagnosisShow").isEnabled());
    EXPECT_FALSE(page_->IsAtWork());
}

TEST_F(DiagnosisGroupTest, APageThatGoesWhileItIsGatheredIsNoDanger) {
    Button("diagnosisShow").click();
    page_.reset();
    Settle();
    EXPECT_EQ(OpenDialog(kDialog), nullptr);
}

}  // namespace
}  // namespace quorvi
