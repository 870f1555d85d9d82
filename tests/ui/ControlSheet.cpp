// Writes pictures of the whole kit in all its states, to be looked at: control_sheet DIRECTORY
// [light|dark|contrast].
// It is built in tools/.
#include <QAbstractItemView>
#include <QApplication>
#include <QGridLayout>
#include <QPainter>
#include <QPainterPath>
#include <QTest>
#include <QToolTip>
#include <QVBoxLayout>
#include <functional>

#include "tests/support/SampleList.h"
#include "ui/kit/ApplyLook.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"
#include "ui/kit/QuestionDlg.h"
#include "ui/kit/SkinButtons.h"
#include "ui/kit/SkinChecks.h"
#include "ui/kit/SkinDialog.h"
#include "ui/kit/SkinFields.h"
#include "ui/kit/SkinLabels.h"
#include "ui/kit/SkinMenu.h"
#include "ui/kit/SkinTree.h"
#include "ui/look/Look.h"

namespace quorvi {
namespace {

using look::ButtonKind;
using look::Color;
using look::Size;

enum Shown { normal, hover, pressed, focused, disabled };

// Puts a control into a state by the events that a user would cause.
void Put(QWidget* widget, Shown shown) {
    const QPoint middle = widget->rect().center();
    if (shown == disabled) {
        widget->setEnabled(false);
    } else if (shown == hover || shown == pressed) {
        widget->setAttribute(Qt::WA_UnderMouse);
        QEnterEvent enter(middle, middle, middle);
        QApplication::sendEvent(widget, &enter);
        QMouseEvent move(QEvent::MouseMove, middle, middle, Qt::NoButton, Qt::NoButton, {});
        QApplication::sendEvent(widget, &move);
        if (shown == pressed) {
            QMouseEvent down(QEvent::MouseButtonPress, middle, middle, Qt::LeftButton,
                             Qt::LeftButton, {});
            QApplication::sendEvent(widget, &down);
        }
    }
}

class Sheet : public QWidget {
  public:
    Sheet() {
        setFixedSize(1200, 900);
        auto* column = new QVBoxLayout(this);
        column->setContentsMargins(28, 24, 28, 24);
        column->setSpacing(0);
        auto* title = new QLabel(ToQString(u8"控件与状态"), this);
        title->setFont(look::font(Size::s16, true));
        column->addWidget(title);
        grid_ = new QGridLayout;
        grid_->setColumnMinimumWidth(0, 120);
        for (int i = 1; i < 6; ++i) {
            grid_->setColumnStretch(i, 1);
        }
        column->addLayout(grid_, 1);
        Row(u8"命令按钮", [] {
            auto* made = new CSkinStripButton(ToQString(u8"重新获取"));
            made->SetImage(QStringLiteral("refresh"));
            return made;
        });
        Row(u8"主按钮",
            [] { return new CSkinButton(ToQString(u8"保存"), nullptr, ButtonKind::primary); });
        Row(u8"普通按钮", [] { return new CSkinButton(ToQString(u8"取消")); });
        Row(u8"删除按钮",
            [] { return new CSkinButton(ToQString(u8"删除"), nullptr, ButtonKind::erase); });
        Row(u8"平面图标按钮",
            [] { return new CFlatImageButton(ToQString(u8"向上"), QStringLiteral("up")); });
        Row(u8"链接", [] { return new SkinLink(ToQString(u8"使用帮助")); });
        Row(u8"复选框", [] { return new CSkinCheck(ToQString(u8"未选")); });
        Row(u8"", [] {
            auto* made = new CSkinCheck(ToQString(u8"选中"));
            made->SetCheck(1);
            return made;
        });
        Row(u8"单选按钮", [] { return new SkinRadio(ToQString(u8"未选")); });
        Row(u8"", [] {
            auto* made = new SkinRadio(ToQString(u8"选中"));
            made->setChecked(true);
            return made;
        });
        Row(u8"开关", [] { return new CSkinToggle; });
        Row(u8"", [] {
            auto* made = new CSkinToggle;
            made->SetCheck(1);
            return made;
        });
        Row(u8"输入框", [] {
            auto* made = new CSkinEdit(ToQString(u8"林远舟"));
            made->setFixedSize(160, 30);
            return made;
        });
        Row(u8"下拉框", [] {
            auto* made = new CSkinCombo;
            made->addItem(ToQString(u8"公司电话"));
            made->setFixedWidth(160);
            return made;
        });
        Row(u8"搜索框", [] {
            auto* made = new CSearchEdit(ToQString(u8"搜索软件、游戏"));
            made->setFixedWidth(160);
            return made;
        });
        Row(u8"窗口按钮", [] {
            return new WindowButton(QStringLiteral("win-close"), ToQString(u8"关闭"), nullptr,
                                    ButtonKind::windowClose);
        });
        Row(u8"进度条", [] {
            auto* made = new CSkinProgress;
            made->setValue(38);
            made->setFixedWidth(160);
            return made;
        });
        Row(u8"状态标签", [this] {
            auto* made = new CSkinStateLabel;
            static constexpr std::array<std::u8string_view, 3> kTexts{u8"就绪", u8"【X】连接错误",
                                                                      u8"连接成功:)"};
            const int state = labels_++ % 3;
            made->SetState(state, ToQString(kTexts[static_cast<std::size_t>(state)]));
            return made;
        });
    }

    void PutStates() {
        for (const auto& [widget, shown] : cells_) {
            Put(widget, shown);
        }
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        for (const auto& [widget, shown] : cells_) {
            const auto* ring = dynamic_cast<const RingShape*>(widget);
            if (shown == focused && ring != nullptr && !ring->RingRect().isEmpty()) {
                look::outerRing(painter, ring->RingRect().translated(widget->pos()),
                                ring->RingRadius());
            }
        }
    }

  private:
    void Row(std::u8string_view name, const std::function<QWidget*()>& make) {
        const int row = grid_->rowCount();
        auto* label = new QLabel(ToQString(name), this);
        label->setFont(look::font(Size::s12));
        grid_->addWidget(label, row, 0);
        for (int i = 0; i < 5; ++i) {
            QWidget* made = make();
            made->setParent(this);
            grid_->addWidget(made, row, i + 1, Qt::AlignLeft | Qt::AlignVCenter);
            cells_.emplace_back(made, static_cast<Shown>(i));
        }
    }

    QGridLayout* grid_ = nullptr;
    std::vector<std::pair<QWidget*, Shown>> cells_;
    int labels_ = 0;
};

void Save(QWidget& widget, const QString& path) {
    widget.grab().save(path);
}

// The contacts list as the mock-up has it: a list of 452 beside its page's detail.
constexpr std::array<ListColumn, 5> kContactColumns{{
    {u8"头像", 60, CellKind::picture},
    {u8"联系人", 140, CellKind::twoLines, CellAlign::centre, CellAlign::left},
    {u8"收藏", 44, CellKind::star},
    {u8"上次联系时间、归属地", 150, CellKind::twoSmallLines, CellAlign::left, CellAlign::centre},
    {u8"选择", 44, CellKind::check},
}};

struct Contact {
    std::u8string_view name;
    std::string_view number;
    std::string_view time;
    std::u8string_view place;
    bool favourite;
};

class ContactsSheet : public RecordListCtrl<Contact> {
  public:
    explicit ContactsSheet(QWidget* parent)
        : RecordListCtrl(kContactColumns, look::Metric::rowTall, parent) {}

  protected:
    [[nodiscard]] Cell CellOf(const Contact& record, int column) const override {
        switch (column) {
            case 1:
                return {.text = ToQString(record.name),
                        .second = ToQString(record.number),
                        .secondInk = Color::statedGrey};
            case 2:
                return {.value = record.favourite ? 1 : 0};
            case 3:
                return {.text = ToQString(record.time),
                        .second = ToQString(record.place),
                        .secondInk = Color::red};
            default:
                return {};
        }
    }
};

void SaveLists(const QString& folder) {
    QWidget window;
    window.setFixedSize(940, 500);
    ContactsSheet contacts(&window);
    contacts.setGeometry(8, 8, 452, 462);
    contacts.SetRecords({{u8"林远舟", "13861234567", "2011-06-18 09:42:10", u8"江苏常州", true},
                         {u8"顾晓棠", "13512340098", "2011-06-17 21:15:36", u8"广东深圳", true},
                         {u8"何思远", "13980012345", "2011-06-12 22:11:08", u8"四川成都", false},
                         {u8"沈一鸣", "13758880001", "2011-06-16 15:28:47", u8"浙江杭州", false},
                         {u8"许清和许清和许清和许清和", "01065551234", "N/A", u8"北京", false},
                         {u8"叶知秋", "15951230456", "2011-05-30 11:02:19", u8"江苏南京", false},
                         {u8"周子衿", "13811112222", "2011-06-15 08:03:19", u8"北京", true},
                         {u8"韩冬", "13811112223", "2011-06-15 08:03:19", u8"北京", true}});
    contacts.SetTicked(2, true);
    contacts.SetTicked(5, true);
    contacts.SelectRow(0);
    ContactsSheet focus(&window);
    focus.setGeometry(472, 8, 452, 462);
    focus.SetRecords(contacts.Records());
    window.show();
    focus.setFocus(Qt::TabFocusReason);
    FocusRing::Show();
    focus.SelectRow(2);
    QTest::mouseMove(contacts.viewport(), contacts.CellRect(2, 1).center());
    QTest::qWait(50);
    Save(window, folder + QStringLiteral("/lists.png"));

    QWidget states;
    states.setFixedSize(1416, 340);
    look::SetLessMotion(true);
    int x = 4;
    for (const ListState state : {ListState::idle, ListState::loading, ListState::failed}) {
        auto* list = new ContactsSheet(&states);
        list->setGeometry(x, 10, 452, 320);
        list->SetState(state);
        list->SetEmptyText(ToQString(u8"列表是空的"),
                           ToQString(u8"手机上没有联系人，或者还没有获取"));
        list->SetFailedText(ToQString(u8"没有连上手机"),
                            ToQString(u8"请检查数据线，然后点“重新获取”"));
        x += 472;
    }
    states.show();
    QTest::qWait(50);
    Save(states, folder + QStringLiteral("/list-states.png"));

    SampleListCtrl apps;
    apps.setFixedSize(760, 462);
    apps.SetRecords(SampleRecords(40));
    apps.show();
    QTest::qWait(20);
    Save(apps, folder + QStringLiteral("/list-kinds.png"));
    SampleListCtrl compact(nullptr, look::Metric::rowCompact);
    compact.setFixedSize(760, 200);
    compact.SetRecords(SampleRecords(4));
    compact.show();
    QTest::qWait(20);
    Save(compact, folder + QStringLiteral("/list-compact.png"));
}

void SaveTrees(const QString& folder) {
    QWidget window;
    window.setFixedSize(460, 240);
    CSkinTree tasks(&window);
    tasks.setGeometry(8, 8, 176, 220);
    tasks.SetNodes({{ToQString(u8"未完成的任务"),
                     QStringLiteral("tasks"),
                     {{ToQString(u8"正在下载"), QStringLiteral("play")},
                      {ToQString(u8"安装转换"), QStringLiteral("app-manager")}}},
                    {ToQString(u8"已完成的任务"),
                     QStringLiteral("success"),
                     {{ToQString(u8"已经完成"), QStringLiteral("select-all")}}}});
    tasks.expandAll();
    tasks.setCurrentItem(tasks.topLevelItem(0));
    CSkinTree people(&window, CSkinTree::Ticks::each);
    people.setGeometry(200, 8, 240, 220);
    people.SetNodes({{ToQString(u8"朋友 [4]"),
                      {},
                      {{ToQString(u8"顾晓棠 [13512340098]")},
                       {ToQString(u8"林远舟 [13861234567]")},
                       {ToQString(u8"叶知秋 [15951230456]")},
                       {ToQString(u8"周子衿周子衿周子衿 [13811112222]")}}},
                     {ToQString(u8"同事 [12]"), {}, {{ToQString(u8"韩冬 [13811112223]")}}},
                     {ToQString(u8"家人 [5]"), {}, {{ToQString(u8"何思远 [13980012345]")}}}});
    people.topLevelItem(0)->setExpanded(true);
    people.SetTicked(people.topLevelItem(0)->child(1), true);
    people.SetTicked(people.topLevelItem(2), true);
    people.setCurrentItem(people.topLevelItem(0)->child(1));
    window.show();
    QTest::qWait(50);
    Save(window, folder + QStringLiteral("/trees.png"));
}

int Run(const QString& folder) {
    Sheet sheet;
    sheet.show();
    QTest::qWait(50);
    sheet.PutStates();
    Save(sheet, folder + QStringLiteral("/controls.png"));

    CConfirmDeleteDlg confirm(ToQString(u8"您真的要删除选择的【 2 】条联系人吗？"));
    confirm.show();
    QTest::qWait(50);
    Save(confirm, folder + QStringLiteral("/dialog-confirm-delete.png"));
    CNothingCheckedDlg nothing;
    nothing.show();
    QTest::qWait(50);
    Save(nothing, folder + QStringLiteral("/dialog-nothing.png"));

    QWidget panel;
    panel.setFixedSize(400, 260);
    CSkinGroupBox box(ToQString(u8"常规设置"), &panel);
    box.setGeometry(20, 20, 360, 90);
    auto* inside = new QHBoxLayout(&box);
    inside->addWidget(new CSkinToggle);
    inside->addWidget(new CSkinToggle);
    SkinTextEdit text(ToQString(u8"喜欢地图和老相机，十月生日。"), &panel);
    text.setGeometry(20, 130, 240, 110);
    panel.show();
    QTest::qWait(20);
    Save(panel, folder + QStringLiteral("/group.png"));

    SaveLists(folder);
    SaveTrees(folder);

    CSkinMenu menu;
    menu.SetStrip({QStringLiteral("find-target"), QStringLiteral("play"), QStringLiteral("pause"),
                   QStringLiteral("delete")});
    menu.AddItem(CSkinMenu::normal, 1, 0, ToQString(u8"查找目标"));
    menu.setActiveAction(menu.AddItem(CSkinMenu::normal, 2, 1, ToQString(u8"继续下载")));
    menu.AddItem(CSkinMenu::disabled, 3, 2, ToQString(u8"暂停下载"));
    menu.AddItem(CSkinMenu::normal, 4, 3, ToQString(u8"删除任务"));
    menu.popup(QPoint(10, 10));
    QTest::qWait(50);
    Save(menu, folder + QStringLiteral("/menu.png"));
    menu.close();

    QToolTip::showText(QPoint(40, 40), ToQString(u8"最小化"));
    QTest::qWait(50);
    for (QWidget* each : QApplication::topLevelWidgets()) {
        if (each->inherits("QTipLabel")) {
            Save(*each, folder + QStringLiteral("/tip.png"));
        }
    }

    CSkinCombo combo;
    combo.addItems({ToQString(u8"个人"), ToQString(u8"手机"), ToQString(u8"公司电话")});
    combo.setFixedWidth(188);
    combo.setCurrentIndex(1);
    combo.show();
    QTest::qWait(20);
    combo.showPopup();
    QTest::qWait(50);
    Save(*combo.view()->window(), folder + QStringLiteral("/drop.png"));
    return 0;
}

}  // namespace
}  // namespace quorvi

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    quorvi::ApplyLook(application);
    const auto look = quorvi::LookOfName(argc == 3 ? argv[2] : "light");
    if ((argc != 2 && argc != 3) || !look) {
        return 2;
    }
    quorvi::ApplyLookChoice(*look);
    return quorvi::Run(QString::fromLocal8Bit(argv[1]));
}
