// The suite's version, the newest one, and what has changed in it.
#pragma once

#include <optional>

#include "base/Deployment.h"
#include "online/VersionNews.h"
#include "pages/kit/PageNumbers.h"
#include "pages/kit/Services.h"
#include "ui/page/FocusKeeper.h"
#include "ui/page/Page.h"
#include "ui/page/PageLoad.h"

class QLabel;

namespace quorvi {

class CSkinButton;
class CSkinProgress;
class NewsListCtrl;

// Page 4, dialog 394. It compares nothing and installs nothing: the two versions stand beside each
// other (test UpdatePageTest.WithTheNewestVersionItLooksAsEver).
class UpdatePage : public Page {
    Q_OBJECT
  public:
    static constexpr const PageNumbers& kNumbers = kUpdatePage;
    static constexpr int kList = 1081;
    static constexpr int kCheck = 1082;
    static constexpr int kProgress = 1083;
    static constexpr int kNewest = 1342;
    static constexpr int kNewestOfLog = 1032;
    static constexpr int kRunning = 1343;

    UpdatePage(PageHost& host, const Services& services, QWidget* parent = nullptr);

  private:
    [[nodiscard]] QWidget* MakeFacts();
    [[nodiscard]] QWidget* MakeHead();
    void CheckForUpdate();
    void Show(VersionNews&& news);
    void ShowNewest(const QString& version);

    Deployment site_;
    PageLoad load_{*this};
    std::optional<FocusKeeper> focus_;  // of the check that goes on, or went on last

    QLabel* running_;
    QLabel* newest_;
    CSkinButton* check_;
    CSkinProgress* progress_;
    QLabel* newestOfLog_;
    QLabel* logCaption_;
    NewsListCtrl* list_;
};

}  // namespace quorvi
