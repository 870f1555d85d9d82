#include <QTest>
#include <atomic>
#include <future>
#include <memory>
#include <vector>

#include "tests/support/QtTest.h"
#include "ui/page/PageLoad.h"

namespace quorvi {
namespace {

constexpr int kKey = 4;

class PageLoading : public QtTest {
  protected:
    PageLoadState state_;
    std::unique_ptr<QObject> page_ = std::make_unique<QObject>();
    PageLoad load_{*page_, state_, kKey};
    std::promise<void> gate_;
    std::shared_future<void> open_{gate_.get_future()};
};

TEST_F(PageLoading, KeyIsZeroWhileTheWorkerRunsAndOneAfterTheHandOver) {
    int shown = 0;
    EXPECT_FALSE(state_.Contains(kKey));
    ASSERT_TRUE(load_.Start(
        [open = open_] {
            open.wait();
            return 7;
        },
        [&](int result) {
            shown = result;
            EXPECT_EQ(state_.Value(kKey), 0);
            EXPECT_TRUE(load_.Running());
        }));
    EXPECT_TRUE(load_.Running());
    ASSERT_TRUE(WaitFor([&] { return state_.Contains(kKey); }));
    EXPECT_EQ(state_.Value(kKey), 0);
    gate_.set_value();
    ASSERT_TRUE(WaitFor([&] { return !load_.Running(); }));
    EXPECT_EQ(shown, 7);
    EXPECT_EQ(state_.Value(kKey), 1);
}

TEST_F(PageLoading, ASecondStartWhileOneRunsDoesNothingAtAll) {
    int begun = 0;
    int shown = 0;
    const auto begin = [&] { ++begun; };
    const auto show = [&](int) { ++shown; };
    ASSERT_TRUE(load_.Start(
        begin,
        [open = open_] {
            open.wait();
            return 1;
        },
        show));
    EXPECT_FALSE(load_.Start(
        begin, [] { return 2; }, show));
    gate_.set_value();
    ASSERT_TRUE(WaitFor([&] { return !load_.Running(); }));
    EXPECT_EQ(begun, 1);
    EXPECT_EQ(shown, 1);
    ASSERT_TRUE(load_.Start(
        begin, [] { return 3; }, show));
    ASSERT_TRUE(WaitFor([&] { return !load_.Running(); }));
    EXPECT_EQ(shown, 2);
}

TEST_F(PageLoading, ProgressArrivesInOrderBeforeTheResult) {
    std::vector<int> seen;
    ASSERT_TRUE(load_.Start([&] { seen.push_back(0); },
                            [&seen](const LoadProgress& progress) {
                                progress([&seen] { seen.push_back(1); });
                                progress([&seen] { seen.push_back(2); });
                                return 3;
                            },
                            [&](int result) { seen.push_back(result); }));
    ASSERT_TRUE(WaitFor([&] { return !load_.Running(); }));
    EXPECT_EQ(seen, (std::vector{0, 1, 2, 3}));
}

TEST_F(PageLoading, ResultIsMovedToThePage) {
    std::unique_ptr<int> got;
    ASSERT_TRUE(load_.Start([] { return std::make_unique<int>(5); },
                            [&](std::unique_ptr<int>&& result) { got = std::move(result); }));
    ASSERT_TRUE(WaitFor([&] { return !load_.Running(); }));
    ASSERT_TRUE(got);
    EXPECT_EQ(*got, 5);
}

TEST_F(PageLoading, ALoadThatKeepsItsKeyRunningLetsOnlyTheBusyFlagFall) {
    ASSERT_TRUE(load_.Start([] { return 1; }, [](int) { return LoadEnd::keyRunning; }));
    ASSERT_TRUE(WaitFor([&] { return !load_.Running(); }));
    EXPECT_EQ(state_.Value(kKey), 0);
}

TEST_F(PageLoading, ALoaderWithoutAKeyLeavesTheStateAlone) {
    PageLoad detail(*page_);
    ASSERT_TRUE(detail.Start([] { return 1; }, [](int) {}));
    ASSERT_TRUE(WaitFor([&] { return !detail.Running(); }));
    EXPECT_FALSE(state_.Contains(kKey));
}

TEST_F(PageLoading, AHandOverToAPageThatIsGoneIsDropped) {
    const auto shown = std::make_shared<bool>(false);
    ASSERT_TRUE(load_.Start(
        [open = open_](const LoadProgress& progress) {
            open.wait();
            progress([] { FAIL() << "progress reached a page that is gone"; });
            return 1;
        },
        [shown](int) { *shown = true; }));
    page_.reset();
    gate_.set_value();
    // Until the hand-over has been dropped, or made.
    ASSERT_TRUE(WaitFor([&] { return shown.use_count() == 1; }));
    EXPECT_FALSE(*shown);
}

}  // namespace
}  // namespace quorvi
