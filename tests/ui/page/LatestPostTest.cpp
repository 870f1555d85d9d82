#include <memory>
#include <thread>
#include <vector>

#include "tests/support/QtTest.h"
#include "ui/page/LatestPost.h"

namespace quorvi {
namespace {

class LatestPosts : public QtTest {
  protected:
    std::unique_ptr<QObject> page_ = std::make_unique<QObject>();
    std::vector<int> shown_;
    LatestPost<int> post_{page_.get(), [this](const int& value) { shown_.push_back(value); }};
};

TEST_F(LatestPosts, OfWhatIsToldWhileTheWindowIsBusyOnlyTheNewestIsShown) {
    std::thread([post = post_] {
        for (int i = 1; i <= 1000; ++i) {
            post(i);
        }
    }).join();
    EXPECT_TRUE(shown_.empty());
    ASSERT_TRUE(WaitFor([&] { return !shown_.empty(); }));
    EXPECT_EQ(shown_, std::vector<int>{1000});
}

TEST_F(LatestPosts, WhatIsToldAfterwardsIsShownToo) {
    post_(1);
    ASSERT_TRUE(WaitFor([&] { return shown_.size() == 1; }));
    post_(2);
    ASSERT_TRUE(WaitFor([&] { return shown_.size() == 2; }));
    EXPECT_EQ(shown_, (std::vector<int>{1, 2}));
}

TEST_F(LatestPosts, NothingIsShownOnAPageThatIsGone) {
    post_(1);
    page_.reset();
    bool later = false;
    PostToWindow(qApp, [&later] { later = true; });
    ASSERT_TRUE(WaitFor([&] { return later; }));
    EXPECT_TRUE(shown_.empty());
}

}  // namespace
}  // namespace quorvi
