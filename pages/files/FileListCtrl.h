// The list of the file page.
#pragma once

#include "pages/files/FileIcons.h"
#include "pages/files/FileList.h"
#include "ui/list/RecordListCtrl.h"

namespace quorvi {

class CFileListCtrl : public RecordListCtrl<FileRecord> {
    Q_OBJECT
  public:
    explicit CFileListCtrl(QWidget* parent = nullptr);

  protected:
    [[nodiscard]] Cell CellOf(const FileRecord& record, int column) const override;

  private:
    mutable FileIcons icons_;  // found when a row is first painted
};

}  // namespace quorvi
