// Every fault of the phone against the command of the auto-start page.
#include "tests/support/WindowFaults.h"
#include "ui/kit/SkinTree.h"

namespace quorvi {
namespace {

constexpr int kPage = 43;
constexpr int kLoadKey = 13;
constexpr int kTree = 1184;
constexpr std::size_t kRefresh = 0;

class AutoStartFaults : public WindowFaults, public testing::WithParamInterface<FaultMode> {
  protected:
    void SetUp() override {
        WindowFaults::SetUp();
        OpenFresh(kPage);
        ASSERT_GT(Texts().size(), 0);
    }

    static constexpr int kNodesOfARecord = 3;

    // Whether the number of the first event came whole, in a reply that is cut behind it.
    [[nodiscard]] bool HasEvent() const {
        return mode_.left == Left::blank || mode_.words.ends_with(" 10");
    }

    // Of the replies that leave nothing: whether they say so. Half of a length is a length of none.
    [[nodiscard]] bool SaysThatThereIsNothing() const {
        return mode_.words == "nodata" || mode_.words == "word 0" || mode_.words == kCutInLength;
    }

    static SkinTreeView& Tree() { return OnPage<SkinTreeView>(kTree); }
    static void Refresh() { Command(kRefresh); }
    // Of all nodes.
    static QStringList Texts(const QModelIndex& below = {}) {
        QStringList texts;
        for (int row = 0; row < Tree().model()->rowCount(below); ++row) {
            const QModelIndex node = Tree().model()->index(row, 0, below);
            texts.append(node.data().toString());
            texts.append(Texts(node));
        }
        return texts;
    }
    static void ExpectTree(const QStringList& texts, bool redraw, ListState state) {
        EXPECT_EQ(Texts(), texts);
        EXPECT_EQ(Tree().Redraw(), redraw);
        EXPECT_EQ(Tree().Status().Get(), state);
    }

    void ExpectLeft(Left left) const {
        switch (left) {
            case Left::whole:
                ExpectTree(whole_, true, ListState::idle);
                break;
            case Left::nothing:
                ExpectTree({}, SaysThatThereIsNothing(), ListState::idle);
                break;
            case Left::absent:
                // Kept on purpose: the redraw stays off until a later load gets further.
                ExpectTree({}, false, ListState::idle);
                break;
            case Left::blank:
            case Left::over:
                // Of a record whose event came, what else came of it is shown.
                EXPECT_EQ(Texts().size(), HasEvent() ? kNodesOfARecord : 0);
                ExpectTree(Texts(), true, ListState::idle);
                break;
            case Left::some:
                EXPECT_LT(Texts().size(), whole_.size());
                EXPECT_TRUE(Tree().Redraw());
                break;
            case Left::refused:
                ExpectTree({}, true, ListState::failed);
                break;
            case Left::cable:
                break;
        }
    }

    FaultMode mode_ = GetParam();
    QStringList whole_;
};

TEST_P(AutoStartFaults, ShowsWhatIsLeftAndAllOfItLater) {
    whole_ = Texts();
    SetLook([] {
        ExpectTree({}, false, ListState::loading);
        EXPECT_EQ(Window().LoadState().Value(kLoadKey), PageLoadState::kRunning);
        Refresh();  // is dropped, not queued
    });
    Suffer(mode_, AgentCommand::listAutoStart, &Refresh);
    ExpectLeft(mode_.left);
    EXPECT_EQ(Window().LoadState().Value(kLoadKey), PageLoadState::kEnded);
    if (mode_.means == Means::fault) {
        EXPECT_EQ(Asked(AgentCommand::listAutoStart), 1u);
    }
    if (mode_.left == Left::cable) {
        ExpectNoLink(&Refresh);
        ExpectLeft(Left::refused);
    }

    Lift();
    Refresh();
    ASSERT_TRUE(WaitIdle());
    ExpectLeft(Left::whole);
    EXPECT_EQ(Status(), Ready());
}

INSTANTIATE_TEST_SUITE_P(Each, AutoStartFaults, testing::ValuesIn(kFaultModes),
                         [](const auto& test) { return std::string(test.param.name); });

}  // namespace
}  // namespace quorvi
