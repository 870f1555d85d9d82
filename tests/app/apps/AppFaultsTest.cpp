// Every fault of the phone against the commands of the applications' page.
#include <algorithm>
#include <vector>

#include "pages/apps/AppPage.h"
#include "tests/support/ChangeFaults.h"
#include "tests/support/ListFaults.h"

namespace quorvi {
namespace {

constexpr int kApps = 30;
constexpr int kRows = 29;
constexpr int kName = 1;

class AppListFaults : public ListFaults {};

TEST_P(AppListFaults, ShowsWhatIsLeftAndAllOfItLater) {
    ExpectWhatIsLeftAndAllOfItLater();
}

constexpr AskedList kAppList{.name = "ListApplications",
                             .code = AgentCommand::listApplications,
                             .page = kApps,
                             .dialog = 0,
                             .loadKey = 8,
                             .list = 0,
                             .rows = kRows,
                             .isLong = true,
                             .neverBlank = true,
                             .rowAtMark = false};

FaultMode& ModeOf(std::vector<FaultMode>& modes, std::string_view name) {
    return *std::ranges::find(modes, name, &FaultMode::name);
}

// The mark of no data is a length to the reader of this list, behind which nothing comes. The icons
// make it long, so that it trickles in larger pieces than others.
std::vector<FaultMode> ModesOfTheList() {
    std::vector<FaultMode> modes(kFaultModes.begin(), kFaultModes.end());
    ModeOf(modes, "NoData").left = Left::over;
    ModeOf(modes, "Trickle").words = "trickle 4000 1";
    return modes;
}

INSTANTIATE_TEST_SUITE_P(Each, AppListFaults,
                         testing::Combine(testing::Values(kAppList),
                                          testing::ValuesIn(ModesOfTheList())),
                         NameOfCase<testing::TestParamInfo<ListFaults::ParamType>>);

// What the phone is: it is asked behind each list, which stands whatever becomes of it.
class IdentityFaults : public WindowFaults, public testing::WithParamInterface<FaultMode> {};

TEST_P(IdentityFaults, TheListStandsAllTheSame) {
    OpenFresh(kApps);
    const FaultMode& mode = GetParam();
    SetLook([] {
        EXPECT_TRUE(WaitFor([] { return TheList().RowCount() == kRows; }));
        EXPECT_TRUE(TheList().Redraw());
        Command(0);  // is dropped
    });
    Suffer(mode, AgentCommand::deviceSummary, [] { Command(0); });
    if (mode.left == Left::cable) {
        ExpectNoLink([] { Command(0); });
    } else if (mode.means == Means::fault) {
        EXPECT_EQ(TheList().RowCount(), kRows);
        EXPECT_TRUE(TheList().Redraw());
        EXPECT_EQ(Asked(AgentCommand::listApplications), 1u);
    }
    EXPECT_EQ(Window().LoadState().Value(8), PageLoadState::kEnded);
    Lift();
    Command(0);
    ASSERT_TRUE(WaitIdle());
    EXPECT_EQ(TheList().RowCount(), kRows);
    EXPECT_EQ(Status(), Ready());
}

INSTANTIATE_TEST_SUITE_P(Each, IdentityFaults, testing::ValuesIn(kFaultModes),
                         [](const auto& test) { return std::string(test.param.name); });

// A start: its acknowledgement is not looked at, and nothing follows it.
class AppStartFaults : public WindowFaults, public testing::WithParamInterface<FaultMode> {};

TEST_P(AppStartFaults, TheListStaysAndTheNextTryWorks) {
    OpenFresh(kApps);
    const QStringList before = NamesIn(TheList(), kName);
    auto* page = dynamic_cast<CAppPage*>(Window().ShownPage());
    const auto start = [&] { page->RunApplication("com.example.gomoku"); };
    const FaultMode& mode = GetParam();
    SetLook([] { Command(0); });  // is dropped: the page is disabled
    Suffer(mode, AgentCommand::runApplication, start);
    EXPECT_TRUE(page->isEnabled());
    EXPECT_EQ(NamesIn(TheList(), kName), before);
    EXPECT_TRUE(TheList().Redraw());
    if (mode.left == Left::cable) {
        ExpectNoLink([] { Command(0); });
    } else {
        EXPECT_EQ(Asked(AgentCommand::listApplications), 0u);
    }
    Lift();
    Tell("log clear");
    start();
    ASSERT_TRUE(WaitIdle());
    EXPECT_EQ(Asked(AgentCommand::runApplication), 1u);
    EXPECT_EQ(Status(), Ready());
}

INSTANTIATE_TEST_SUITE_P(Each, AppStartFaults, testing::ValuesIn(ModesOfAWord()),
                         [](const auto& test) { return std::string(test.param.name); });

}  // namespace
}  // namespace quorvi
