// What was deleted in the last days, with the way back.
#pragma once

#include <QWidget>
#include <filesystem>

#include "ui/list/ListColumns.h"

namespace quorvi {

class DeletedListCtrl;

class DeletedPane : public QWidget, private ListObserver {
    Q_OBJECT
  public:
    explicit DeletedPane(QWidget* parent = nullptr);

    // Reads on a worker what is kept.
    void Refresh();
    [[nodiscard]] bool IsAtWork() const { return reading_; }
    // While a backup is made, nothing is brought back.
    void SetHeld(bool held);

  Q_SIGNALS:
    void planAsked(const std::filesystem::path& backup);
    // Of what no phone takes back: the folder in which it is kept.
    void filesAsked(const std::filesystem::path& backup);

  private:
    void OnLinkClicked(int kind, int row) override;
    void OpenRow(int row);

    bool reading_ = false;
    bool again_ = false;  // it changed while it was read
    bool held_ = false;
    DeletedListCtrl* list_;
};

}  // namespace quorvi
