// Writes pictures of the whole kit in all its states: control_sheet DIRECTORY. To be looked at.
#include <QAbstractItemView>
#include <QApplication>
#include <QGridLayout>
#include <QPainter>
#include <QPainterPath>
#include <QTest>
#include <QVBoxLayout>
#include <functional>

#include "ui/ControlNumber.h"
#include "ui/Look.h"
#include "ui/QtText.h"
#include "ui/QuestionDlg.h"
#include "ui/SkinButtons.h"
#include "ui/SkinChecks.h"
#include "ui/SkinDialog.h"
#include "ui/SkinFields.h"
#include "ui/SkinLabels.h"
#include "ui/SkinMenu.h"

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
        Row(u8"链接", [] { return new CSkinLink(ToQString(u8"使用帮助")); });
        Row(u8"复选框", [] { return new CSkinCheck(ToQString(u8"未选")); });
        Row(u8"", [] {
            auto* made = new CSkinCheck(ToQString(u8"选中"));
            made->SetCheck(1);
            return made;
        });
        Row(u8"单选按钮", [] { return new CSkinRadio(ToQString(u8"未选")); });
        Row(u8"", [] {
            auto* made = new CSkinRadio(ToQString(u8"选中"));
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
            return new CWindowButton(QStringLiteral("win-close"), ToQString(u8"关闭"), nullptr,
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
    CSkinTextEdit text(ToQString(u8"喜欢地图和老相机，十月生日。"), &panel);
    text.setGeometry(20, 130, 240, 110);
    panel.show();
    QTest::qWait(20);
    Save(panel, folder + QStringLiteral("/group.png"));

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
    quorvi::look::Apply(application);
    return argc == 2 ? quorvi::Run(QString::fromLocal8Bit(argv[1])) : 2;
}
