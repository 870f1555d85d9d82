#include "pages/update/UpdatePage.h"

#include <QHBoxLayout>
#include <QVBoxLayout>
#include <array>
#include <utility>

#include "base/Version.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"
#include "ui/kit/QuestionDlg.h"
#include "ui/kit/SkinButtons.h"
#include "ui/kit/SkinLabels.h"
#include "ui/kit/SkinPanels.h"
#include "ui/list/RecordListCtrl.h"

namespace quorvi {
namespace {

using look::Color;
using look::Metric;
using look::Size;

// The progress bar's whole length.
constexpr int kWhole = 10;

enum Column : int { columnIcon, columnKind, columnText };

constexpr std::array<ListColumn, 3> kColumns{{
    {u8"", Metric::newsIcon, CellKind::icon},
    {u8"更新类型", Metric::newsKind},
    {.caption = u8"详细内容", .width = Metric::newsText, .align = CellAlign::left, .name = true},
}};

// By NewsKind.
constexpr std::array<QStringView, 4> kIcons{u"row-added", u"row-improved", u"row-fixed",
                                            u"row-data"};

}  // namespace

class NewsListCtrl : public RecordListCtrl<NewsRow> {
  public:
    using RecordListCtrl::RecordListCtrl;

  protected:
    [[nodiscard]] Cell CellOf(const NewsRow& record, int column) const override {
        switch (column) {
            case columnIcon:
                return {.text = ToQString(record.caption),
                        .icon = kIcons.at(static_cast<std::size_t>(record.kind)).toString()};
            case columnKind:
                return {.text = ToQString(record.caption)};
            default:
                return {.text = ToQString(record.text)};
        }
    }
};

UpdatePage::UpdatePage(PageHost& host, const Services& services, QWidget* parent)
    : Page(host, kNumbers.dialog, parent),
      site_(services.deployment),
      running_(SetControlNumber(
          new PlainLabel(QString::fromLatin1(ProductVersion().data(),
                                             static_cast<qsizetype>(ProductVersion().size())),
                         Size::s16, Color::ink),
          kRunning)),
      newest_(
          SetControlNumber(new PlainLabel(ToQString(u8"未知"), Size::s16, Color::ink), kNewest)),
      check_(SetControlNumber(
          new CSkinButton(ToQString(u8"检查更新"), nullptr, look::ButtonKind::primary), kCheck,
          ToQString(u8"检查更新"))),
      progress_(SetControlNumber(new CSkinProgress, kProgress, ToQString(u8"检查进度"))),
      newestOfLog_(SetControlNumber(new PlainLabel({}, Size::s13, Color::plum7, nullptr, true),
                                    kNewestOfLog)),
      logCaption_(new PlainLabel({}, Size::s13, Color::plum7, nullptr, true)),
      list_(SetControlNumber(new NewsListCtrl(kColumns, Metric::rowCompact), kList,
                             ToQString(u8"更新日志"))) {
    check_->SetImage(QStringLiteral("refresh"));
    progress_->setRange(0, kWhole);
    progress_->setValue(0);
    list_->SetEmptyText(ToQString(u8"还没有更新日志"),
                        ToQString(u8"点“检查更新”，看看最新版本带来了什么"));
    list_->SetFailedText(ToQString(u8"没有得到更新日志"),
                         ToQString(u8"请检查网络连接，再点“检查更新”"));
    ShowNewest({});

    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins({});
    rows->setSpacing(0);
    rows->addWidget(MakeFacts());
    rows->addWidget(MakeHead());
    rows->addWidget(list_, 1);
    connect(check_, &QAbstractButton::clicked, this, &UpdatePage::CheckForUpdate);
}

QWidget* UpdatePage::MakeFacts() {
    const auto fact = [](QLayout* row, const QString& icon, std::u8string_view caption,
                         QLabel* value) {
        auto* words = new QVBoxLayout;
        words->setSpacing(0);
        words->addWidget(new RemarkLabel(ToQString(caption)));
        words->addWidget(value);
        row->addWidget(new PlateLabel(icon));
        row->addItem(words);
    };
    auto* line = new QHBoxLayout;
    line->setSpacing(Metric::gap3);
    fact(line, QStringLiteral("window"), u8"当前版本", running_);
    line->addSpacing(Metric::newsFactGap);
    fact(line, QStringLiteral("upgrade"), u8"最新版本", newest_);
    line->addStretch();
    check_->setFixedWidth(Metric::newsCheck);
    line->addWidget(check_);

    auto* panel = new SkinPanel;
    panel->setFixedHeight(Metric::newsPanel);
    auto* rows = new QVBoxLayout(panel);
    rows->setContentsMargins(Metric::gap5, Metric::gap4, Metric::gap5, Metric::gap4);
    rows->setSpacing(Metric::gap4);
    rows->addLayout(line);
    rows->addWidget(progress_);
    return panel;
}

// The version, and behind it what the list below is.
QWidget* UpdatePage::MakeHead() {
    auto* head = new QWidget;
    head->setFixedHeight(Metric::newsHead);
    auto* line = new QHBoxLayout(head);
    line->setContentsMargins(0, Metric::gap3, 0, Metric::newsHeadFoot);
    line->setSpacing(Metric::gap1);
    line->addWidget(newestOfLog_);
    line->addWidget(logCaption_);
    line->addStretch();
    return head;
}

void UpdatePage::CheckForUpdate() {
    load_.Start(
        [this] {
            focus_.emplace(*this);
            check_->setEnabled(false);
            list_->Clear();
            list_->SetState(ListState::loading);
        },
        [site = site_] { return FetchVersionNews(site); },
        [this](VersionNews&& news) { Show(std::move(news)); });
}

void UpdatePage::Show(VersionNews&& news) {
    const bool nothing = news.rows.empty();
    list_->SetRecords(std::move(news.rows));
    list_->SetState(news.broken && nothing ? ListState::failed : ListState::idle);
    if (!news.newest.empty()) {
        ShowNewest(ToQString(news.newest));
    }
    check_->setEnabled(true);
    focus_->GiveBack();
    if (news.broken) {
        ShowMessage(this, QuestionDlg::Kind::error, ToQString(u8"xml文件存在问题"));
    } else {
        progress_->setValue(kWhole);
    }
}

void UpdatePage::ShowNewest(const QString& version) {
    newestOfLog_->setText(version);
    newestOfLog_->setVisible(!version.isEmpty());
    logCaption_->setText(ToQString(version.isEmpty() ? u8"更新日志" : u8"版更新日志"));
    if (!version.isEmpty()) {
        newest_->setText(version);
    }
}

}  // namespace quorvi
