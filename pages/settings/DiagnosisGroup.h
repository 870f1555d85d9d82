// The group 诊断信息 of the settings page.
#pragma once

#include <QString>
#include <functional>
#include <memory>

#include "report/Report.h"
#include "ui/kit/SkinLabels.h"
#include "ui/page/Page.h"

namespace quorvi {

class CSkinButton;
class RemarkLabel;

// Shows what a report would hold, and saves it where its user says.
class DiagnosisGroup : public CSkinGroupBox {
    Q_OBJECT
  public:
    explicit DiagnosisGroup(PageHost& host, QWidget* parent = nullptr);

    // Reads on a worker how large the log is.
    void Refresh();
    [[nodiscard]] bool IsAtWork() const { return atWork_ > 0; }

  private:
    using Gathered = std::shared_ptr<const Report>;

    void LayOut();
    // Collects a report on a worker; the group is disabled meanwhile.
    void Gather(std::function<void(const Gathered& report)> then);
    void Show(const Gathered& report);
    // What was shown is what is saved.
    void AskAndSave(const Gathered& report);
    void Save(const Gathered& report, const QString& file);

    PageHost& host_;
    CSkinButton* show_;
    CSkinButton* save_;
    RemarkLabel* size_;
    QString folder_;  // where the last dialog ended
    int atWork_ = 0;  // workers
};

}  // namespace quorvi
