// The app store: a web site in a page of the window.
#pragma once

#include <string>

#include "pages/kit/PageNumbers.h"
#include "pages/kit/Services.h"
#include "ui/html/HtmlCtrl.h"
#include "ui/page/Page.h"

namespace quorvi {

class HtmlFrame;

// Page 20, dialog 322. The site reaches nothing of the program but the door for downloads, by a
// private link that the user clicks.
class StorePage : public Page, private HtmlListener {
    Q_OBJECT
  public:
    static constexpr const PageNumbers& kNumbers = kStorePage;
    static constexpr int kView = 1371;
    enum Command : int { commandBack, commandHome };

    StorePage(PageHost& host, const Services& services, QWidget* parent = nullptr);

    // Goes to the store's first page. The key of this page says that it is loaded for as long as
    // the call takes, kept on purpose: how far the site has come is shown by the running bar.
    void Load() override;
    // Message::openStoreItem.
    void OnMessage(Message message, int first, int second) override;
    void OnSearch(const QString& text) override;

  private:
    void RunCommand(int index) override;
    void Visit(const std::string& address);
    void OnAppCmd(const std::string& text) override;
    void OnVisit(HtmlVisit visit) override;

    Services services_;
    CHtmlCtrlFix* view_;
    HtmlFrame* frame_;
};

}  // namespace quorvi
