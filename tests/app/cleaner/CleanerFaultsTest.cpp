// Every fault of the phone against the commands of the cleaner's page.
#include <QLabel>

#include "tests/support/ChangeFaults.h"
#include "tests/support/ListFaults.h"

namespace quorvi {
namespace {

constexpr int kCleaner = 42;
constexpr int kFixedRows = 3;
constexpr int kRows = 14;
constexpr int kItem = 1;

constexpr int kState = 1109;

class CleanListFaults : public ListFaults {};

TEST_P(CleanListFaults, ShowsWhatIsLeftAndAllOfItLater) {
    ExpectWhatIsLeftAndAllOfItLater();
    EXPECT_EQ(OnPage<QLabel>(kState).text(), ToQString(u8"扫描完成"));
}

constexpr AskedList kCleanList{.name = "ScanForCleaning",
                               .code = AgentCommand::scanForCleaning,
                               .page = kCleaner,
                               .dialog = 0,
                               .loadKey = 12,
                               .list = 0,
                               .rows = kRows,
                               .isLong = false,
                               .neverBlank = true,
                               .fixedRows = kFixedRows};

INSTANTIATE_TEST_SUITE_P(Each, CleanListFaults,
                         testing::Combine(testing::Values(kCleanList),
                                          testing::ValuesIn(kFaultModes)),
                         NameOfCase<testing::TestParamInfo<ListFaults::ParamType>>);

// Whatever comes of the acknowledgement, the phone has taken the command, and the next scan tells.
class CleanFaults : public WindowFaults, public testing::WithParamInterface<FaultMode> {};

TEST_P(CleanFaults, IsTakenAndTheNextScanTells) {
    OpenFresh(kCleaner);
    const QStringList before = NamesIn(TheList(), kItem);
    ASSERT_EQ(before.size(), kRows);
    TheList().TickAll(false);
    ClickCell(TheList(), kFixedRows, 5);

    const FaultMode& mode = GetParam();
    const bool taken = mode.means == Means::fault;
    SetLook([] { Command(0); });  // is dropped: the page is disabled
    Suffer(mode, AgentCommand::clean, [] { Command(1); });
    EXPECT_EQ(NamesIn(TheList(), kItem), before);
    EXPECT_TRUE(TheList().Redraw());
    EXPECT_EQ(OnPage<QLabel>(kState).text(), ToQString(u8"扫描完成"));
    if (mode.left == Left::cable) {
        ExpectNoLink([] { Command(0); });
    } else {
        EXPECT_EQ(Asked(AgentCommand::clean), taken ? 1u : 0u);
        EXPECT_EQ(Asked(AgentCommand::scanForCleaning), 0u);
    }

    Lift();
    Command(0);
    ASSERT_TRUE(WaitIdle());
    QStringList after = before;
    if (taken) {
        after.removeAt(kFixedRows);
    }
    EXPECT_EQ(NamesIn(TheList(), kItem), after);
    EXPECT_EQ(Status(), Ready());
}

INSTANTIATE_TEST_SUITE_P(Each, CleanFaults, testing::ValuesIn(ModesOfAWord()),
                         [](const auto& test) { return std::string(test.param.name); });

}  // namespace
}  // namespace quorvi
