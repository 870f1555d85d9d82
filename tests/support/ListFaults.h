// What every fault of the phone leaves of a list that one command fills. A feature's test names its
// lists and lets each suffer:
//
//   class CallListFaults : public ListFaults {};
//   TEST_P(CallListFaults, ShowsWhatIsLeftAndAllOfItLater) { ExpectWhatIsLeftAndAllOfItLater(); }
#pragma once

#include <ostream>
#include <tuple>

#include "tests/support/WindowFaults.h"

namespace quorvi {

struct AskedList {
    const char* name;
    AgentCommand code;
    int page;
    int dialog;               // over the page; 0: the page itself
    int loadKey;              // PageRow::kNoKey: none
    int list;                 // 0: the page's only one
    int rows;                 // of the phone as it is delivered
    bool isLong = false;      // 64 KiB or more: half of its length's word is not zero
    int names = 1;            // its column of names
    bool neverBlank = false;  // what comes of its first record in 33 bytes is not shown
    int fixedRows = 0;        // of `rows`, those that stand however it ends
    // Its first record is a header without a row, whose text may be absent; and where nothing is
    // left of a reply the load key stays at 0.
    bool headed = false;
    bool rowAtMark = true;  // where the first text of a record is absent, its row has begun
};

inline void PrintTo(const AskedList& asked, std::ostream* out) {
    *out << asked.name;
}

class ListFaults : public WindowFaults,
                   public testing::WithParamInterface<std::tuple<AskedList, FaultMode>> {
  protected:
    void SetUp() override;
    void TearDown() override;

    void ExpectWhatIsLeftAndAllOfItLater();

  private:
    [[nodiscard]] CSkinListCtrl& List() const;
    void Refresh() const;
    void ExpectKey(int value) const;
    void ExpectRows(int rows, bool redraw, ListState state = ListState::idle) const;
    void ExpectNoSelection() const;
    void ExpectLeft(Left left) const;
    [[nodiscard]] static Left LeftOf(const AskedList& asked, const FaultMode& mode);

    AskedList asked_ = std::get<0>(GetParam());
    FaultMode mode_ = std::get<1>(GetParam());
    Left left_ = LeftOf(asked_, mode_);
};

}  // namespace quorvi
