#include "pages/specs/PhoneSpecsPage.h"

#include <QHBoxLayout>
#include <QVBoxLayout>
#include <array>
#include <optional>
#include <utility>
#include <vector>

#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"
#include "ui/kit/QuestionDlg.h"
#include "ui/kit/SkinButtons.h"
#include "ui/kit/SkinFields.h"
#include "ui/list/RecordListCtrl.h"
#include "ui/page/Job.h"
#include "ui/page/OpenOnDesktop.h"

namespace quorvi {
namespace {

using look::Color;
using look::Metric;

constexpr int kSearchText = 1001;
constexpr int kSearch = 10600;

// The web is searched for no shorter text.
constexpr int kShortestSearch = 2;

enum Column : int { columnIcon, columnCaption, columnValue };

constexpr std::array<ListColumn, 3> kColumns{{
    {u8"", Metric::specsIcon, CellKind::icon},
    {u8"类型", Metric::specsCaption},
    {.caption = u8"详细参数", .width = Metric::specsValue, .align = CellAlign::left, .name = true},
}};

// Of each row; some have none.
constexpr std::array<QStringView, kSpecCaptions.size()> kIcons{
    u"my-phone",     u"calendar",   u"",    u"",       u"",
    u"screen",       u"screenshot", u"",    u"camera", u"system-info",
    u"performance",  u"row-data",   u"gps", u"wifi",   u"gravity",
    u"battery-full", u"",           u"",
};

struct SpecRow {
    std::size_t index = 0;
    QString value = {};
};

// Fills a box again, with this entry chosen where it is there.
void Fill(CSkinCombo& box, const std::vector<std::string>& entries, std::size_t chosen) {
    const QSignalBlocker silent(box);
    box.clear();
    for (const std::string& entry : entries) {
        box.addItem(ToQString(entry));
    }
    box.setCurrentIndex(chosen < entries.size() ? static_cast<int>(chosen) : -1);
    box.setEnabled(!entries.empty());
}

}  // namespace

class SpecsListCtrl : public RecordListCtrl<SpecRow> {
  public:
    using RecordListCtrl::RecordListCtrl;

  protected:
    [[nodiscard]] Cell CellOf(const SpecRow& record, int column) const override {
        const QString caption = ToQString(kSpecCaptions.at(record.index));
        switch (column) {
            case columnIcon:
                return {.text = caption,
                        .icon = kIcons.at(record.index).toString(),
                        .iconInk = Color::ink2};
            case columnCaption:
                return {.text = caption};
            default:
                return {.text = record.value};
        }
    }
};

PhoneSpecsPage::PhoneSpecsPage(PageHost& host, QWidget* parent, std::filesystem::path file)
    : Page(host, kNumbers.dialog, parent),
      file_(std::move(file)),
      platform_(SetControlNumber(new CSkinCombo, kPlatform, ToQString(u8"平台"))),
      maker_(new CSkinCombo),
      model_(new CSkinCombo),
      searchText_(SetControlNumber(new CSkinEdit({}, this), kSearchText, ToQString(u8"机型"))),
      search_(SetControlNumber(new CSkinButton(ToQString(u8"机型搜索"), this), kSearch,
                               ToQString(u8"机型搜索"))),
      list_(SetControlNumber(new SpecsListCtrl(kColumns, Metric::rowCompact), kList,
                             ToQString(u8"手机参数"))) {
    maker_->setObjectName(QStringLiteral("maker"));
    maker_->setAccessibleName(ToQString(u8"厂商"));
    model_->setObjectName(QStringLiteral("model"));
    model_->setAccessibleName(ToQString(u8"机型"));
    for (const SpecsPlatform& platform : kSpecsPlatforms) {
        platform_->addItem(ToQString(platform.caption));
    }
    for (const auto& [box, width] :
         std::initializer_list<std::pair<CSkinCombo*, int>>{{platform_, Metric::specsPlatform},
                                                            {maker_, Metric::specsMaker},
                                                            {model_, Metric::specsModel}}) {
        box->setFixedWidth(width);
    }
    maker_->setEnabled(false);
    model_->setEnabled(false);
    searchText_->hide();
    search_->hide();

    auto* boxes = new QHBoxLayout;
    boxes->setSpacing(Metric::gap2);
    boxes->addWidget(platform_);
    boxes->addWidget(maker_);
    boxes->addWidget(model_);
    boxes->addStretch();
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins({});
    rows->setSpacing(Metric::gap3);
    rows->addLayout(boxes);
    rows->addWidget(list_, 1);

    std::vector<SpecRow> table;
    for (std::size_t i = 0; i < kSpecCaptions.size(); ++i) {
        table.push_back({.index = i});
    }
    list_->SetRecords(std::move(table));

    connect(platform_, &QComboBox::activated, this, [this](int index) {
        choice_ = {.platform = static_cast<std::size_t>(index)};
        LoadParameters();
    });
    connect(maker_, &QComboBox::activated, this, [this](int index) {
        choice_.maker = static_cast<std::size_t>(index);
        choice_.model = 0;
        LoadParameters();
    });
    connect(model_, &QComboBox::activated, this, [this](int index) {
        choice_.model = static_cast<std::size_t>(index);
        LoadParameters();
    });
    connect(search_, &QAbstractButton::clicked, this, &PhoneSpecsPage::SearchTheWeb);
}

// The file is read when somebody looks, and not while the program starts.
void PhoneSpecsPage::showEvent(QShowEvent* event) {
    Page::showEvent(event);
    if (!std::exchange(loaded_, true)) {
        LoadParameters();
    }
}

void PhoneSpecsPage::LoadParameters() {
    RunJob(
        this, [file = file_, choice = choice_] { return ReadSpecs(file, choice); },
        [this, asked = ++asked_](const std::optional<SpecsLists>& lists) {
            if (asked != asked_) {
                return;  // the user has chosen something else meanwhile
            }
            if (lists) {
                Show(*lists);
            } else {
                ShowMessage(this, QuestionDlg::Kind::error, ToQString(u8"参数-xml文件存在问题"));
            }
        });
}

void PhoneSpecsPage::Show(const SpecsLists& lists) {
    Fill(*maker_, lists.makers, choice_.maker);
    Fill(*model_, lists.models, choice_.model);
    for (std::size_t i = 0; i < lists.values.size(); ++i) {
        list_->Edit(static_cast<int>(i),
                    [&](SpecRow& row) { row.value = ToQString(lists.values[i]); });
    }
}

void PhoneSpecsPage::SearchTheWeb() {
    const QString text = searchText_->text();
    if (text.size() < kShortestSearch) {
        ShowMessage(this, QuestionDlg::Kind::warning, ToQString(u8"您输入的关键词过短"));
        return;
    }
    OpenOnDesktop(WebSearchAddress(text));
}

}  // namespace quorvi
