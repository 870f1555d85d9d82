// The table of the phone's system information.
#pragma once

#include <cstdint>

#include "pages/kit/PageNumbers.h"
#include "pages/kit/Services.h"
#include "pages/phoneinfo/SystemInfo.h"
#include "ui/page/Page.h"
#include "ui/page/PageLoad.h"

namespace quorvi {

class SystemInfoListCtrl;

// Page 40, dialog 135. Its rows stand from the start; a load fills in what they tell. A phone that
// tells nothing leaves them as they are.
class CSystemInfoPage : public Page {
    Q_OBJECT
  public:
    static constexpr const PageNumbers& kNumbers = kSystemInfoPage;
    static constexpr int kList = 1362;  // number of the list control

    CSystemInfoPage(PageHost& host, const Services& services, QWidget* parent = nullptr);

    void Load() override;

  private:
    void Show(const SystemInfoReply& reply);

    AgentAddress agent_;
    PageLoad load_;
    SystemInfoListCtrl* list_;
};

}  // namespace quorvi
