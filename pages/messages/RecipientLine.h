// What stands below the composer's recipients field: to whom the message goes, number by number.
#pragma once

#include <QLabel>
#include <QWidget>
#include <string_view>
#include <vector>

#include "pages/messages/Recipients.h"

namespace quorvi {

// One recipient as it is shown.
struct RecipientChip {
    QString text;
    bool isNumber = true;
};

// The chips of the recipients, in two lines at most; what has no room there is counted in one more
// chip. Its text, which assistive tools read, is all that the chips say.
class RecipientChips : public QLabel {
    Q_OBJECT
  public:
    explicit RecipientChips(QWidget* parent);

    // Shows chips of `count` recipients: all of them, or kMostChips, which is more than the lines
    // can hold. Where they do not all have room, those that are no number go first.
    void SetChips(std::vector<RecipientChip> chips, std::size_t count);
    static constexpr std::size_t kMostChips = 64;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool event(QEvent* event) override;

  private:
    struct Placed {
        QRect rect;
        QString text;
        QString shown;  // `text`, as much of it as there is room for
        bool isNumber;
    };

    class Lines;

    void Place();
    // False when there was no room for all.
    bool AddTo(Lines& lines, const std::vector<RecipientChip>& chips) const;
    [[nodiscard]] std::vector<Placed> PlacedOnLines() const;
    [[nodiscard]] Placed Measured(const RecipientChip& chip) const;

    std::vector<RecipientChip> chips_;
    std::size_t count_ = 0;
    std::vector<Placed> placed_;
};

// A sentence with the number of recipients, its half about what is wrong in red, over their chips.
// Hidden while there is nobody. The window's thread.
class RecipientLine : public QWidget {
    Q_OBJECT
  public:
    explicit RecipientLine(QWidget* parent);

    // A recipient without a name gets that of the member with this number.
    void Show(const RecipientList& list, const GroupMembers& members);

  private:
    QLabel* count_;
    QLabel* fault_;
    RecipientChips* chips_;
};

// The question before a message goes to what is no number; empty when all are numbers.
[[nodiscard]] QString FaultQuestion(const RecipientList& list);

}  // namespace quorvi
