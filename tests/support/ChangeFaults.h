// What every fault of the phone makes of a command that changes something on it: whatever comes of
// the acknowledgement, the phone has taken the command, and the list that is fetched behind it
// shows so. A feature's test says which changes there are, and lets each suffer:
//
//   class CallChangeFaults : public ChangeFaults {};
//   TEST_P(CallChangeFaults, IsTakenAndTheListBehindItTells) { ExpectTakenAndSeen(); }
#pragma once

#include <functional>
#include <optional>
#include <ostream>
#include <tuple>
#include <vector>

#include "tests/support/WindowFaults.h"

namespace quorvi {

// Where a change is made, and where it is seen.
struct ChangePlace {
    int page;
    int dialog;                    // over the page; 0: the page itself
    AgentCommand list;             // what is fetched behind a change
    int control;                   // the list, or the HTML view; 0: the page's only list
    int names;                     // the column that tells a list's rows apart
    const char* blocks = nullptr;  // selects what does so in a view; none: the control is a list
};

struct Change {
    const char* name;
    AgentCommand code;
    ChangePlace place;
    std::function<void()> begin;  // all that the user does up to the last press
    std::function<void()> end;    // the last press
    std::function<void(QStringList& shown)> change;
    // The dialog that waits for the acknowledgement and ends; 0: the place itself waits.
    int dialog = 0;
    // What of the phone is read in front of it, to be kept on the PC. The change asks once more
    // where that fails.
    std::optional<AgentCommand> reads = {};
};

inline void PrintTo(const Change& change, std::ostream* out) {
    *out << change.name;
}

class ChangeFaults : public WindowFaults,
                     public testing::WithParamInterface<std::tuple<Change, FaultMode>> {
  public:
    static constexpr int kConfirm = 548;
    static constexpr int kOk = 1215;  // the button that deletes, too

    // Steps of a change.
    static CSkinListCtrl& ListAt(const ChangePlace& place);
    static std::function<void()> Pressing(int dialog, int control);
    static void TypeIn(int dialog, int control, const QString& text);
    // Does what asks for a confirmation, and waits for the question.
    static void Ask(const std::function<void()>& how);
    // The name that each change gives, and what a change makes of the names that are shown.
    static QString NewName() { return ToQString(u8"新名字"); }
    static void Appended(QStringList& shown) { shown.append(NewName()); }
    static void FirstRenamed(QStringList& shown) { shown[0] = NewName(); }
    static void FirstGone(QStringList& shown) { shown.removeFirst(); }

  protected:
    void SetUp() override;
    void TearDown() override;

    void ExpectTakenAndSeen();

  private:
    [[nodiscard]] bool HasView() const { return change_.place.blocks != nullptr; }
    [[nodiscard]] QStringList Shown() const;
    [[nodiscard]] ListState State() const;
    void Refresh() const;
    // All that the user does behind the beginning.
    void End() const;
    void ExpectNothingFetched(const QStringList& before) const;

    Change change_ = std::get<0>(GetParam());
    FaultMode mode_ = std::get<1>(GetParam());
};

// The faults of a reply of one word, which has no ninth byte.
[[nodiscard]] std::vector<FaultMode> ModesOfAWord();

}  // namespace quorvi
