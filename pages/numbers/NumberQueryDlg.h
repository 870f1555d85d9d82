// Dialog 433: asks for the region of a mobile number by its first digits. No page leads to it yet.
#pragma once

#include <QLabel>
#include <functional>

#include "refdata/NumberQuery.h"
#include "ui/kit/SkinDialog.h"
#include "ui/kit/SkinFields.h"

namespace quorvi {

class NumberQueryDlg : public SkinDialog {
    Q_OBJECT
  public:
    // Makes the database of one query; called on a worker's thread.
    using MakePhoneDb = std::function<CPhoneDb()>;
    using OpenAddress = std::function<void(const QString& address)>;

    explicit NumberQueryDlg(QWidget* parent = nullptr);
    // `open` is given the address of a web search for a place that is clicked.
    NumberQueryDlg(MakePhoneDb makeDb, OpenAddress open, QWidget* parent = nullptr);

  private:
    void CutText();
    void Query();
    void Show(const NumberAnswer& answer);
    void SearchPlace();
    [[nodiscard]] QWidget* MakeQuestion();
    [[nodiscard]] QWidget* MakeAnswer();

    MakePhoneDb makeDb_;
    OpenAddress open_;
    CSkinEdit* number_;
    CSkinButton* query_;
    QWidget* answer_ = nullptr;
    QLabel* heading_;
    SkinLink* place_;
    QLabel* areaCode_;
    QLabel* postalCode_;
};

}  // namespace quorvi
