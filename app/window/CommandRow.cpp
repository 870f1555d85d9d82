#include "app/window/CommandRow.h"

#include <QLabel>
#include <algorithm>

#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"
#include "ui/kit/SkinButtons.h"
#include "ui/kit/SkinLabels.h"
#include "ui/look/Look.h"
#include "ui/page/Page.h"

namespace quorvi {

using look::Metric;

CommandRow::CommandRow(QWidget* parent)
    : QWidget(parent), heading_(new QLabel(this)), count_(new RemarkLabel({}, this)) {
    setObjectName(QStringLiteral("commands"));
    setFixedHeight(Metric::buttonHeight);
    heading_->setObjectName(QStringLiteral("heading"));
    heading_->setFont(look::font(look::Size::s16, true));
    heading_->setTextFormat(Qt::PlainText);
    heading_->setGeometry(0, 0, Metric::pageWidth, Metric::buttonHeight);
    count_->setObjectName(QStringLiteral("count"));
    count_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    for (std::size_t i = 0; i < kCommandCount; ++i) {
        auto* button = new CSkinStripButton(QString(), this);
        SetControlNumber(button, kButtons[i]);
        button->setGeometry(static_cast<int>(i) * (Metric::commandWidth + Metric::commandGap), 0,
                            Metric::commandWidth, Metric::buttonHeight);
        button->hide();
        connect(button, &QAbstractButton::clicked, this, [this, i] {
            for (std::size_t other = 0; other < kCommandCount; ++other) {
                if (other != i) {
                    buttons_[other]->setChecked(false);
                    buttons_[other]->update();
                }
            }
            Q_EMIT pressed(static_cast<int>(i));
        });
        buttons_[i] = button;
    }
}

// The count has what the four buttons leave.
void CommandRow::resizeEvent(QResizeEvent*) {
    const int buttons =
        static_cast<int>(kCommandCount) * (Metric::commandWidth + Metric::commandGap);
    count_->setGeometry(buttons, 0, width() - buttons, height());
}

void CommandRow::Show(const PageRow& row, bool built, const Page& page) {
    const auto commands = built ? row.commands : decltype(row.commands){};
    for (std::size_t i = 0; i < kCommandCount; ++i) {
        const CommandButton& command = commands[i];
        CSkinStripButton& button = *buttons_[i];
        button.setVisible(!command.caption.empty());
        button.setText(ToQString(command.caption));
        button.setAccessibleName(ToQString(command.caption));
        button.SetImage(ToQString(command.image));
    }
    const bool headed = std::ranges::all_of(
        commands, [](const CommandButton& command) { return command.caption.empty(); });
    heading_->setText(headed ? ToQString(ItemCaption(row).caption) : QString());
    heading_->setVisible(headed);
    disconnect(counted_);
    counted_ = connect(&page, &Page::countLineChanged, count_, &QLabel::setText);
    count_->setText(page.CountLine());
    disconnect(offered_);
    offered_ = connect(&page, &Page::commandOffered, this, [this](int index) {
        buttons_.at(static_cast<std::size_t>(index))->setFocus(Qt::OtherFocusReason);
    });
}

}  // namespace quorvi
