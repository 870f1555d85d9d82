// The group 备份与恢复 of the settings page.
#pragma once

#include <filesystem>

#include "agent/AgentAddress.h"
#include "refdata/NumberAttribution.h"
#include "ui/kit/SkinLabels.h"
#include "ui/page/Page.h"

namespace quorvi {

class BackupPane;
class DeletedPane;
class RestorePane;

class BackupGroup : public CSkinGroupBox {
    Q_OBJECT
  public:
    BackupGroup(PageHost& host, AgentAddress agent, AttributionOf attribution,
                QWidget* parent = nullptr);

    // Reads on workers what stands on the disk: the backups, and what was deleted.
    void Refresh();
    [[nodiscard]] bool IsAtWork() const;

  private:
    void ShowPlan(const std::filesystem::path& backup);
    void ShowFiles(const std::filesystem::path& backup);

    PageHost& host_;
    AgentAddress agent_;
    BackupPane* backup_;
    RestorePane* restore_;
    DeletedPane* deleted_;
};

}  // namespace quorvi
