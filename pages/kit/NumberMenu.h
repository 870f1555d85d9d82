// What the menu of a row offers for the number in it.
#pragma once

#include <QStringList>
#include <string>

#include "pages/kit/Services.h"
#include "ui/page/Page.h"

namespace quorvi {

class CSkinMenu;

// Copies a number, opens the composer with it, or the editor of a new contact with it: the SMS page
// and the contacts page do that, over whichever page is shown. A member of a page. The window's
// thread.
class NumberMenu {
  public:
    // Commands of a page's menu.
    enum Command { commandCopy = 111, commandWrite, commandAdd };

    NumberMenu(PageHost& host, const Services& services);

    // The images of its items.
    [[nodiscard]] static QStringList Icons();
    // Appends its items, whose first image is the strip's `image`; disabled for a number that is
    // empty.
    static void AddItems(CSkinMenu& menu, int image, const std::string& number);
    // Does what the command of an item says with a number, which is ANSI; false for any other
    // command.
    bool Take(int command, const std::string& number) const;

  private:
    PageHost& host_;
    WaitingNumbers toWriteTo_;
    WaitingNumbers toAdd_;
};

}  // namespace quorvi
