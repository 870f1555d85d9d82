// When the tour goes from stop to stop.
#include <QDialog>
#include <QLabel>
#include <QTemporaryDir>

#include "tests/app/window/MainDlgFixture.h"
#include "tests/support/AwaitTimer.h"
#include "tour/Tour.h"
#include "ui/html/HtmlFrame.h"

namespace quorvi {
namespace {

constexpr int kPageContacts = 10;
constexpr int kKeyContacts = 1;

class TourOfTheWindow : public MainDlgTest {
  protected:
    void SetUp() override { MakeWindow(); }

    void StartTour(TourPatience patience = {}, std::function<bool()> ready = {}) {
        const auto open = [this](CMainDlg& window) {
            ++opened_;
            window.Post(Message::goToPage, 1, kPageContacts);
        };
        tour_ = std::make_unique<Tour>(
            *window_, folder_.filePath(QStringLiteral("tour")),
            std::vector<TourStop>{{.name = "one", .open = open, .ready = std::move(ready)}},
            [this](int failed) { failed_ = failed; }, patience);
        tour_->Start();
    }
    [[nodiscard]] bool Opens() {
        return WaitFor([this] { return opened_ > 0; });
    }
    [[nodiscard]] bool Ends() {
        return WaitFor([this] { return failed_.has_value(); });
    }
    // Several turns of the tour, in which what must not happen would.
    static void LookOn() { AwaitTimer(std::chrono::milliseconds(250)); }

    QTemporaryDir folder_;
    int opened_ = 0;
    std::optional<int> failed_;
    std::unique_ptr<Tour> tour_;
};

TEST_F(TourOfTheWindow, WritesThePictureOfEachStop) {
    window_->Link().LinkEnded();
    StartTour();
    ASSERT_TRUE(Ends());
    EXPECT_EQ(failed_, 0);
    EXPECT_EQ(QImage(folder_.filePath(QStringLiteral("tour/one.png"))).size(), window_->size());
}

TEST(TourStops, AreThoseThatAreNamedInTheirOwnOrder) {
    const auto namesOf = [](const std::vector<std::string>& asked) {
        std::vector<std::string> names;
        for (const TourStop& stop : StopsOf({{"a", {}}, {"b", {}}, {"c", {}}}, asked)) {
            names.push_back(stop.name);
        }
        return names;
    };
    EXPECT_EQ(namesOf({}), (std::vector<std::string>{"a", "b", "c"}));
    EXPECT_EQ(namesOf({"c", "a"}), (std::vector<std::string>{"a", "c"}));
    EXPECT_TRUE(namesOf({"a", "x"}).empty());
}

TEST_F(TourOfTheWindow, APictureWaitsForWhatItsStopWaitsFor) {
    window_->Link().LinkEnded();
    bool ready = false;
    StartTour({.settle = std::chrono::milliseconds(1)}, [&ready] { return ready; });
    ASSERT_TRUE(Opens());
    LookOn();
    EXPECT_FALSE(failed_.has_value());
    ready = true;
    EXPECT_TRUE(Ends());
}

TEST_F(TourOfTheWindow, WaitsForTheLinksEndWhateverTheBannerShows) {
    StartTour();
    for (const BannerState state :
         {BannerState::working, BannerState::error, BannerState::success}) {
        window_->Link().ShowBanner(QStringLiteral("x"), state);
        LookOn();
    }
    window_->Link().LinkUp();
    LookOn();
    EXPECT_EQ(opened_, 0);
    window_->Link().LinkEnded();
    EXPECT_TRUE(Opens());
}

TEST_F(TourOfTheWindow, ALinkThatNeverEndsDoesNotKeepIt) {
    StartTour({.link = std::chrono::milliseconds(200)});
    EXPECT_TRUE(Opens());
}

TEST_F(TourOfTheWindow, AQuestionOfTheLinkDoesNotKeepIt) {
    auto* question = new QDialog(window_.get());
    question->setAttribute(Qt::WA_DeleteOnClose);
    const QPointer<QDialog> open = question;
    question->open();
    StartTour();
    ASSERT_TRUE(Ends());
    EXPECT_EQ(open, nullptr);
}

TEST_F(TourOfTheWindow, AStopWaitsForThePagesLoad) {
    window_->Link().LinkEnded();
    window_->LoadState().Set(kKeyContacts, PageLoadState::kRunning);
    StartTour({.settle = std::chrono::milliseconds(0)});
    ASSERT_TRUE(Opens());
    LookOn();
    EXPECT_FALSE(failed_);
    window_->LoadState().Set(kKeyContacts, PageLoadState::kEnded);
    EXPECT_TRUE(Ends());
}

TEST_F(TourOfTheWindow, AStopWaitsUntilAViewIsPainted) {
    window_->Link().LinkEnded();
    auto* view = new QLabel;
    auto* frame = new HtmlFrame(*view, &*window_);
    frame->resize(200, 100);
    frame->SetFilled();
    frame->show();
    StartTour({.settle = std::chrono::milliseconds(0)});
    ASSERT_TRUE(Opens());
    LookOn();
    EXPECT_FALSE(failed_);
    view->setText(QStringLiteral("painted"));
    EXPECT_TRUE(Ends());
}

TEST_F(TourOfTheWindow, ALoadThatNeverEndsDoesNotKeepIt) {
    window_->Link().LinkEnded();
    window_->LoadState().Set(kKeyContacts, PageLoadState::kRunning);
    StartTour({.load = std::chrono::milliseconds(100)});
    EXPECT_TRUE(Ends());
}

}  // namespace
}  // namespace quorvi
