#include "pages/settings/LookGroup.h"

#include <QHBoxLayout>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QVBoxLayout>
#include <array>
#include <utility>

#include "ui/kit/ApplyLook.h"
#include "ui/kit/QtText.h"
#include "ui/kit/SkinChecks.h"
#include "ui/kit/SkinFields.h"
#include "ui/page/Job.h"

namespace quorvi {

using look::Color;
using look::Metric;

namespace {

struct ThemeRow {
    std::u8string_view caption;
    const char16_t* name;
    const char16_t* picture;
};

// By LookChoice.
constexpr std::array<ThemeRow, 4> kThemes{{
    {u8"跟随系统", u"lookSystem", u"theme-system"},
    {u8"浅色", u"lookLight", u"theme-light"},
    {u8"深色", u"lookDark", u"theme-dark"},
    {u8"高对比度", u"lookContrast", u"theme-contrast"},
}};

// The picture of a theme over its radio button, which a click on it chooses.
class ThemePicture : public QWidget {
  public:
    ThemePicture(const char16_t* name, SkinRadio& radio)
        : name_(QString::fromUtf16(name)), radio_(radio) {
        constexpr int ring = Metric::ringGap + Metric::ringWidth;
        setFixedSize(Metric::themePictureWidth + 2 * ring, Metric::themePictureHeight + 2 * ring);
        connect(&radio, &QAbstractButton::toggled, this, qOverload<>(&QWidget::update));
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        constexpr int ring = Metric::ringGap + Metric::ringWidth;
        const QRectF picture = QRectF(rect()).adjusted(ring, ring, -ring, -ring);
        look::drawCentred(
            painter, picture,
            look::picture(name_, {Metric::themePictureWidth, Metric::themePictureHeight},
                          look::scaleOf(painter)));
        look::plate(painter, picture, Metric::radius, Qt::transparent, look::color(Color::line2));
        if (radio_.isChecked()) {
            look::plate(painter, rect(), Metric::radius + ring, Qt::transparent,
                        look::color(Color::plum6), Metric::ringWidth);
        }
    }
    void mousePressEvent(QMouseEvent* event) override {
        if (event->button() == Qt::LeftButton) {
            radio_.click();
        }
    }

  private:
    QString name_;
    SkinRadio& radio_;
};

QString SizeText(int percent) {
    return QStringLiteral("%1 %").arg(percent);
}

}  // namespace

bool WindowFits(QSize screen, int from, int percent) {
    return screen.width() * from >= Metric::windowLeastWidth * percent &&
           screen.height() * from >= Metric::windowLeastHeight * percent;
}

LookGroup::LookGroup(PageHost& host, QWidget* parent)
    : CSkinGroupBox(ToQString(u8"外观"), parent), host_(host), size_(new CSkinCombo) {
    LayOut();
    for (std::size_t i = 0; i < themes_.size(); ++i) {
        connect(themes_[i], &QAbstractButton::clicked, this,
                [this, i] { OnTheme(static_cast<LookChoice>(i)); });
    }
    connect(size_, &QComboBox::activated, this, &LookGroup::OnTextSize);
}

void LookGroup::LayOut() {
    auto* themes = new QHBoxLayout;
    themes->setSpacing(Metric::gap1);
    for (std::size_t i = 0; i < themes_.size(); ++i) {
        const ThemeRow& row = kThemes[i];
        auto* radio = new SkinRadio(ToQString(row.caption));
        radio->setObjectName(QString::fromUtf16(row.name));
        radio->setAccessibleName(radio->text());
        radio->setFont(look::font(look::Size::s12));
        themes_[i] = radio;
        auto* column = new QVBoxLayout;
        column->setSpacing(0);
        column->addWidget(new ThemePicture(row.picture, *radio), 0, Qt::AlignHCenter);
        column->addWidget(radio, 0, Qt::AlignHCenter);
        themes->addLayout(column, 1);
    }
    size_->setObjectName(QStringLiteral("textSize"));
    size_->setAccessibleName(ToQString(u8"文字大小"));
    size_->setFixedWidth(Metric::textSizeCombo);
    auto* size = new QHBoxLayout;
    size->setSpacing(Metric::gap3);
    size->addWidget(new PlainLabel(ToQString(u8"文字大小"), look::Size::s13, Color::ink));
    size->addWidget(size_);
    size->addStretch();
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins({});
    rows->setSpacing(Metric::gap2);
    rows->addLayout(themes);
    rows->addLayout(size);
    auto* remark =
        new RemarkLabel(ToQString(u8"外观立即生效；更改文字大小后，退出并重新启动才会生效"));
    remark->setWordWrap(true);
    rows->addWidget(remark);
    rows->addStretch();
}

void LookGroup::Refresh() {
    struct Chosen {
        LookChoice look;
        int percent;
    };
    ++atWork_;
    RunJob(
        this,
        [&settings = host_.Settings()] {
            return Chosen{ChosenLook(settings), ChosenTextPercent(settings)};
        },
        [this](const Chosen& chosen) {
            --atWork_;
            ShowTheme(chosen.look);
            ShowSizes(chosen.percent);
        });
}

void LookGroup::ShowTheme(LookChoice look) {
    themes_[static_cast<std::size_t>(look)]->setChecked(true);
    // The Tab key comes to what is chosen.
    for (SkinRadio* radio : themes_) {
        radio->setFocusPolicy(radio->isChecked() ? Qt::StrongFocus : Qt::ClickFocus);
    }
}

void LookGroup::ShowSizes(int chosen) {
    if (started_ == 0) {
        started_ = chosen;
    }
    size_->clear();
    for (const int percent : kTextPercents) {
        if (percent <= started_ || percent == chosen ||
            WindowFits(screen()->availableSize(), started_, percent)) {
            size_->addItem(SizeText(percent), percent);
        }
    }
    size_->setCurrentIndex(size_->findData(chosen));
}

void LookGroup::OnTheme(LookChoice look) {
    ApplyLookChoice(look);
    ShowTheme(look);
    unstored_.look = look;
    Store();
}

void LookGroup::OnTextSize(int index) {
    unstored_.percent = size_->itemData(index).toInt();
    Store();
}

// One worker at a time, so that of two choices the later one stays.
void LookGroup::Store() {
    if (storing_ || (!unstored_.look && !unstored_.percent)) {
        return;
    }
    storing_ = true;
    ++atWork_;
    RunJob(
        this,
        [&settings = host_.Settings(), choice = std::exchange(unstored_, {})] {
            if (choice.look) {
                ChooseLook(settings, *choice.look);
            }
            if (choice.percent) {
                ChooseTextPercent(settings, *choice.percent);
            }
            return true;
        },
        [this](bool) {
            storing_ = false;
            --atWork_;
            Store();
        });
}

}  // namespace quorvi
