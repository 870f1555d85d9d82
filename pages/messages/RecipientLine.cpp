#include "pages/messages/RecipientLine.h"

#include <QHBoxLayout>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "base/Text.h"
#include "ui/kit/PlainTip.h"
#include "ui/kit/QtText.h"
#include "ui/kit/SkinLabels.h"
#include "ui/look/Look.h"

namespace quorvi {

using look::Color;
using look::Metric;
using look::Size;

namespace {

constexpr int kLines = 2;
// Parts that the question before a send names one by one.
constexpr std::size_t kNamedParts = 3;
constexpr qsizetype kNamedCharacters = 24;  // of each of them

QString Words(const Recipient& recipient) {
    const QString number = ToShownQString(Trim(recipient.number));
    return number.isEmpty() ? ToQString(u8"空白") : number;
}

RecipientChip ChipOf(const Recipient& recipient, const GroupMembers& members) {
    if (!recipient.isNumber) {
        return {Words(recipient), false};
    }
    const std::string_view name = recipient.name.empty()
                                      ? NameOfNumber(Trim(recipient.number), members)
                                      : std::string_view(recipient.name);
    const QString number = Words(recipient);
    return {name.empty() ? number : ToShownQString(name) + QLatin1Char(' ') + number, true};
}

std::size_t CountFaults(const RecipientList& list) {
    return static_cast<std::size_t>(
        std::ranges::count(list.recipients, false, &Recipient::isNumber));
}

QLabel* MakeLabel(Color color, QWidget* parent) {
    auto* label = new PlainLabel({}, Size::s12, color, parent);
    label->setFixedHeight(Metric::textLine);
    return label;
}

}  // namespace

// ---- the chips ---------------------------------------------------------------------------------

// The lines that the chips stand on, filled from left to right.
class RecipientChips::Lines {
  public:
    explicit Lines(int width) : width_(width) {}

    // False when there was no room.
    bool Add(Placed chip);
    // Behind the last one, or in place of as many as that takes.
    void AddLast(Placed chip);

    std::vector<Placed> placed;

  private:
    int width_;
    int x_ = 0;
    int line_ = 0;
};

RecipientChips::RecipientChips(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setFont(look::font(Size::s12));
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

void RecipientChips::SetChips(std::vector<RecipientChip> chips, std::size_t count) {
    chips_ = std::move(chips);
    count_ = count;
    Place();
}

RecipientChips::Placed RecipientChips::Measured(const RecipientChip& chip) const {
    const int mark = chip.isNumber ? Metric::chipPadding
                                   : Metric::chipIconInset + Metric::chipIcon + Metric::gap1;
    const int room = std::max(0, width() - mark - Metric::chipPadding);
    const QString shown = fontMetrics().elidedText(chip.text, Qt::ElideRight, room);
    const int wide = mark + fontMetrics().horizontalAdvance(shown) + Metric::chipPadding;
    return {QRect(0, 0, wide, Metric::chipHeight), chip.text, shown, chip.isNumber};
}

bool RecipientChips::Lines::Add(Placed chip) {
    if (x_ > 0 && x_ + chip.rect.width() > width_) {
        x_ = 0;
        ++line_;
    }
    if (line_ == kLines) {
        return false;
    }
    chip.rect.moveTopLeft({x_, line_ * (Metric::chipHeight + Metric::chipLineGap)});
    x_ += chip.rect.width() + Metric::chipGap;
    placed.push_back(std::move(chip));
    return true;
}

void RecipientChips::Lines::AddLast(Placed chip) {
    line_ = kLines - 1;
    x_ = placed.empty() ? 0 : placed.back().rect.right() + 1 + Metric::chipGap;
    while (!placed.empty() && x_ + chip.rect.width() > width_) {
        x_ = placed.back().rect.left();
        placed.pop_back();
    }
    static_cast<void>(Add(std::move(chip)));
}

bool RecipientChips::AddTo(Lines& lines, const std::vector<RecipientChip>& chips) const {
    return std::ranges::all_of(
        chips, [&](const RecipientChip& chip) { return lines.Add(Measured(chip)); });
}

std::vector<RecipientChips::Placed> RecipientChips::PlacedOnLines() const {
    Lines whole(width());
    if (AddTo(whole, chips_) && chips_.size() == count_) {
        return whole.placed;
    }
    // Those that are no number go first: it is they that the user has to see.
    std::vector<RecipientChip> order = chips_;
    std::stable_partition(order.begin(), order.end(),
                          [](const RecipientChip& chip) { return !chip.isNumber; });
    Lines lines(width());
    static_cast<void>(AddTo(lines, order));
    lines.AddLast(Measured({ToQString(u8"等 %1 个").arg(count_), true}));
    return lines.placed;
}

void RecipientChips::Place() {
    placed_ = PlacedOnLines();
    QStringList words;
    for (const Placed& chip : placed_) {
        words.append(chip.isNumber ? chip.text : chip.text + ToQString(u8"（不是号码）"));
    }
    setText(words.join(ToQString(u8"，")));
    setFixedHeight(placed_.empty() ? 0 : placed_.back().rect.bottom() + 1);
    update();
}

void RecipientChips::resizeEvent(QResizeEvent* event) {
    QLabel::resizeEvent(event);
    if (event->size().width() != event->oldSize().width()) {
        Place();
    }
}

void RecipientChips::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setFont(font());
    for (const Placed& chip : placed_) {
        look::plate(painter, chip.rect, Metric::chipHeight / 2.0,
                    look::color(chip.isNumber ? Color::rowHover : Color::redSoft), Qt::transparent);
        QRect words = chip.rect.adjusted(Metric::chipPadding, 0, 0, 0);
        const QColor ink = look::color(chip.isNumber ? Color::ink : Color::red);
        if (!chip.isNumber) {
            const QRectF icon(chip.rect.left() + Metric::chipIconInset, chip.rect.top(),
                              Metric::chipIcon, Metric::chipHeight);
            look::drawIcon(painter, icon, u"error", Metric::chipIcon, ink);
            words.setLeft(chip.rect.left() + Metric::chipIconInset + Metric::chipIcon +
                          Metric::gap1);
        }
        painter.setPen(ink);
        painter.drawText(words, Qt::AlignVCenter | Qt::AlignLeft, chip.shown);
    }
}

bool RecipientChips::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        const auto chip = std::ranges::find_if(
            placed_, [&](const Placed& placed) { return placed.rect.contains(help->pos()); });
        if (chip != placed_.end() && chip->shown != chip->text) {
            ShowPlainTip(help->globalPos(), chip->text, this);
        } else {
            QToolTip::hideText();
        }
        return true;
    }
    return QLabel::event(event);
}

// ---- the sentence ------------------------------------------------------------------------------

RecipientLine::RecipientLine(QWidget* parent)
    : QWidget(parent),
      count_(MakeLabel(Color::ink2, this)),
      fault_(MakeLabel(Color::red, this)),
      chips_(new RecipientChips(this)) {
    auto* sentence = new QHBoxLayout;
    sentence->setSpacing(0);
    sentence->addWidget(count_);
    sentence->addWidget(fault_);
    sentence->addStretch(1);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins({});
    column->setSpacing(Metric::gap1);
    column->addLayout(sentence);
    column->addWidget(chips_);
    hide();
}

void RecipientLine::Show(const RecipientList& list, const GroupMembers& members) {
    const std::size_t all = list.recipients.size();
    const std::size_t faults = CountFaults(list);
    QStringList wrong;
    if (faults > 0) {
        wrong.append(ToQString(u8"%1 处不是号码").arg(faults));
    }
    if (list.cut) {
        wrong.append(ToQString(u8"空着的一处后面的不会发送"));
    }
    const QString comma = ToQString(u8"，");
    const bool any = faults < all;
    count_->setText(ToQString(u8"将发给 %1 个号码").arg(all - faults) +
                    (wrong.isEmpty() ? QString() : comma));
    count_->setVisible(any);
    fault_->setText(wrong.join(comma));
    fault_->setVisible(!wrong.isEmpty());

    std::vector<const Recipient*> first;
    for (const bool isNumber : {false, true}) {
        for (const Recipient& recipient : list.recipients) {
            if (recipient.isNumber == isNumber && first.size() < RecipientChips::kMostChips) {
                first.push_back(&recipient);
            }
        }
    }
    std::ranges::sort(first);  // they stand in one vector, in the order of the field
    std::vector<RecipientChip> chips;
    for (const Recipient* recipient : first) {
        chips.push_back(ChipOf(*recipient, members));
    }
    chips_->SetChips(std::move(chips), all);
    setVisible(all > 0 || list.cut);
}

QString FaultQuestion(const RecipientList& list) {
    const std::size_t faults = CountFaults(list);
    if (faults == 0) {
        return {};
    }
    QStringList named;
    for (const Recipient& recipient : list.recipients) {
        if (!recipient.isNumber && static_cast<std::size_t>(named.size()) < kNamedParts) {
            const QString words = Words(recipient);
            named.append(ToQString(u8"“%1”").arg(words.size() > kNamedCharacters
                                                     ? words.left(kNamedCharacters) + QChar(0x2026)
                                                     : words));
        }
    }
    const QString parts = named.join(ToQString(u8"、"));
    const QString what = faults > kNamedParts
                             ? ToQString(u8"%1等 %2 处").arg(parts, QString::number(faults))
                             : parts;
    return ToQString(u8"收件人中的%1不是号码，手机发不到那里。仍然要发送吗？").arg(what);
}

}  // namespace quorvi
