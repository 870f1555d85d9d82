#include "tests/support/PagesOnPhone.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "base/Hex.h"
#include "base/Text.h"
#include "tests/support/AtWork.h"
#include "ui/page/Job.h"

namespace quorvi {
namespace {

constexpr int kConfirm = 548;
constexpr int kQuestion = 1378;
constexpr int kDelete = 1215;
constexpr std::size_t kRefresh = 0;  // the first command of every list page

// What an end starts begins in one of the turns right behind it.
constexpr int kQuietTurns = 3;

std::vector<SkinDialog*> OpenDialogs() {
    std::vector<SkinDialog*> dialogs;
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        auto* dialog = qobject_cast<SkinDialog*>(widget);
        if (dialog != nullptr && dialog->isVisible()) {
            dialogs.push_back(dialog);
        }
    }
    return dialogs;
}

}  // namespace

PageMakers MakersAt(const Deployment& deployment) {
    PageMakers makers = ThePageMakers();
    for (auto& [dialog, maker] : makers) {
        maker = [make = maker, deployment](PageHost& host, const Services& services,
                                           QWidget* parent) {
            Services told = services;
            told.deployment = deployment;
            return make(host, told, parent);
        };
    }
    return makers;
}

std::unique_ptr<PhoneDesk> PagesOnPhone::desk_;

void PagesOnPhone::SetUpTestSuite() {
    StandUp(ThePageMakers());
}

void PagesOnPhone::StandUp(PageMakers makers, const std::filesystem::path& taskDatabase) {
    desk_ = std::make_unique<PhoneDesk>(1, std::move(makers), taskDatabase);
    ASSERT_EQ(desk_->Error(), "");
    ASSERT_TRUE(desk_->WaitForLink());
    ASSERT_EQ(BannerOf(desk_->Window()), ToQString(u8"连接成功:)"));
}

void PagesOnPhone::TearDownTestSuite() {
    desk_.reset();
}

void PagesOnPhone::SetUp() {
    // Left by a test that failed.
    for (SkinDialog* dialog : OpenDialogs()) {
        dialog->reject();
    }
    Restore();
    Tell("data");
    ASSERT_TRUE(WaitIdle());
    Window().SetStatus(ToQString(u8"就绪"));
}

void PagesOnPhone::TearDown() {
    EXPECT_EQ(Tell("deviations"), "ok\n");
}

std::vector<std::string> PagesOnPhone::Requests(int code) {
    const std::string log = Tell("log");
    const std::string word = fmt::format("{} ", code);
    std::vector<std::string> lines;
    for (const std::string_view line : SplitAt(log, '\n')) {
        const std::size_t behindCount = line.find(' ') + 1;
        if (line.substr(behindCount).starts_with(word)) {
            lines.emplace_back(line);
        }
    }
    return lines;
}

void PagesOnPhone::Restore() {
    Tell("faults clear");
    Tell("release");
    Tell("plug");
    ASSERT_TRUE(desk_->Rig().WaitForDevices(1));
    ASSERT_EQ(desk_->Rig().BringAgentUp(0), "");
}

void PagesOnPhone::OpenPage(int page) {
    const PageRow& row = *FindPage(page);
    ClickTab(Window(), TabOf(row));
    ASSERT_TRUE(WaitFor([&] { return TabsOf(Window()).currentIndex() == TabOf(row); }));
    ClickItem(Window(), ItemOf(row));
    ASSERT_TRUE(WaitFor([&] { return Window().MainPage() == page; }));
    ASSERT_TRUE(WaitIdle());
}

void PagesOnPhone::OpenFresh(int page) {
    OpenPage(page);
    Command(kRefresh);
    ASSERT_TRUE(WaitIdle());
    Tell("log clear");
}

void PagesOnPhone::Command(std::size_t index) {
    ClickCommand(Window(), index);
    QTest::qWait(0);
}

bool PagesOnPhone::Idle() {
    const auto windows = QApplication::topLevelWidgets();
    return !Window().ShownPage()->IsAtWork() &&
           std::ranges::none_of(windows, [](const QWidget* top) { return AtWork(*top); });
}

bool PagesOnPhone::WaitIdle() {
    int quiet = 0;
    return WaitFor([&] {
        quiet = Idle() ? quiet + 1 : 0;
        return quiet > kQuietTurns;
    });
}

bool PagesOnPhone::WaitNoPageReads() {
    int quiet = 0;
    return WaitFor([&] {
        quiet = RunningJobs() == 0 ? quiet + 1 : 0;
        return quiet > kQuietTurns;
    });
}

bool PagesOnPhone::WaitForDialog(int number) {
    return WaitFor([&] { return OpenDialog(number) != nullptr; }) && WaitIdle();
}

bool PagesOnPhone::WaitForNoDialog(int number) {
    return WaitFor([&] { return OpenDialog(number) == nullptr; }) && WaitIdle();
}

void PagesOnPhone::Press(int dialog, int control) {
    ASSERT_NE(OpenDialog(dialog), nullptr) << "dialog " << dialog;
    auto* button = FindControl<QAbstractButton>(OpenDialog(dialog), control);
    ASSERT_NE(button, nullptr) << control;
    ClickOn(*button);
}

QString PagesOnPhone::ConfirmDelete() {
    const QString question =
        WaitForDialog(kConfirm) ? In<QLabel>(kConfirm, kQuestion).text() : QString();
    Press(kConfirm, kDelete);
    return question;
}

std::string Hex(const WireBytes& request) {
    return HexOf(request.Get());
}

}  // namespace quorvi
