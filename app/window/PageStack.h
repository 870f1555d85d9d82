// The pages of the main window: which there are, and which of them is shown.
#pragma once

#include <map>

#include "app/window/PageFactory.h"
#include "ui/page/Page.h"

class QGridLayout;

namespace quorvi {

// All pages are children of one content frame, of its size, and one of them is visible; the frame
// is never lower than that one can be. They live as long as the frame. The window's thread.
class PageStack {
  public:
    // The frame outlives the stack.
    explicit PageStack(QWidget& frame);

    // Makes the page of each dialog of the page table and the one that is never shown, all hidden.
    void Build(const PageMakers& makers, PageHost& host, const Services& services);

    // Shows the page of `row` and hides all others. Its list has the focus then, or its first
    // control, or where the keys reach none the page itself. The first page that is shown leaves
    // the focus where it is.
    void Show(const PageRow& row);
    // Whether there is more to the page of `row` than a picture.
    [[nodiscard]] bool IsBuilt(const PageRow& row) const;
    // Loads the page of `row` if it has a load key that `loads` does not hold.
    void LoadAtFirstShow(const PageRow& row, PageLoadState& loads);
    // A press of command button `index` on the page of `row`; one that is disabled hears of none.
    void RunCommand(const PageRow& row, int index);
    // Gives all pages the size that the frame has now.
    void FillFrame();

    // The page that is shown; null before the first.
    [[nodiscard]] Page* Shown() const { return shown_; }
    [[nodiscard]] Page& PageOf(const PageNumbers& page) const;
    // Null for a dialog that no page has.
    [[nodiscard]] Page* PageOfDialog(int dialog) const;

  private:
    QWidget& frame_;
    QGridLayout* layout_;         // one cell, for all
    std::map<int, Page*> pages_;  // by dialog number
    Page* shown_ = nullptr;
};

}  // namespace quorvi
