// The widths of a list's columns, in the settings.
#include <QTest>

#include "pages/kit/KeptColumns.h"
#include "tests/support/ColumnDriver.h"
#include "tests/support/MemorySettings.h"
#include "tests/support/PageTest.h"
#include "tests/support/SampleList.h"
#include "ui/kit/ControlNumber.h"
#include "ui/list/SkinHeader.h"

namespace quorvi {
namespace {

class KeptColumns : public PageTest {
  protected:
    static constexpr const char* kName = "columns_132_1067";

    struct Shown {
        explicit Shown(SettingsStore& settings) {
            list.resize(760, 300);
            KeepColumns(list, settings, kName);
            list.show();
        }
        void Drag(int by) { DragColumn(list, sampleName, by); }
        SampleListCtrl list;
    };
    // What is kept of a list that was dragged by so much.
    static std::string TextOf(int by) {
        SampleListCtrl list;
        list.resize(760, 300);
        list.show();
        DragColumn(list, sampleName, by);
        return list.Widths().Text();
    }
    [[nodiscard]] std::optional<std::string> Text() const {
        return host_.settings.ReadText(kSettingsKey, kName);
    }
};

TEST_F(KeptColumns, WhatIsDraggedIsRestoredInTheNextList) {
    int dragged = 0;
    {
        Shown shown(host_.settings);
        shown.Drag(-30);
        dragged = shown.list.columnWidth(sampleLink);
        EXPECT_EQ(dragged, 110);
        Settle();
    }
    const Shown next(host_.settings);
    EXPECT_EQ(next.list.columnWidth(sampleLink), dragged);
}

TEST_F(KeptColumns, AToldWidthLeavesNothingInTheSettings) {
    Shown shown(host_.settings);
    shown.Drag(-30);
    Settle();
    EXPECT_TRUE(Text().has_value());
    auto& head = *static_cast<CSkinHeader*>(shown.list.horizontalHeader());
    QTest::mouseDClick(head.viewport(), Qt::LeftButton, {}, head.GripRect(sampleName).center());
    Settle();
    EXPECT_FALSE(Text().has_value());
}

TEST_F(KeptColumns, WhatIsNoneOfItsWidthsIsPassedOver) {
    host_.settings.WriteText(kSettingsKey, kName, "1 2 3");
    const Shown shown(host_.settings);
    EXPECT_EQ(shown.list.columnWidth(sampleLink), 80);
}

TEST_F(KeptColumns, AllListsOfADialogAreKept) {
    QWidget dialog;
    SetDialogNumber(dialog, 132);
    dialog.resize(760, 600);
    SampleListCtrl first(&dialog);
    SampleListCtrl second(&dialog);
    for (SampleListCtrl* list : {&first, &second}) {
        SetControlNumber(list, list == &first ? 1067 : 1068, QStringLiteral("x"));
        list->resize(760, 300);
    }
    host_.settings.WriteText(kSettingsKey, kName, TextOf(-30));
    host_.settings.WriteText(kSettingsKey, "columns_132_1068", TextOf(-20));
    KeepColumnsOf(dialog, host_.settings);
    dialog.show();
    EXPECT_EQ(first.columnWidth(sampleLink), 110);
    EXPECT_EQ(second.columnWidth(sampleLink), 100);
}

TEST_F(KeptColumns, EachListHasANameOfItsOwn) {
    QWidget dialog;
    SetDialogNumber(dialog, 132);
    SampleListCtrl list;
    SetControlNumber(&list, 1067, QStringLiteral("x"));
    EXPECT_EQ(ColumnsName(dialog, list), kName);
    QWidget another;
    SetDialogNumber(another, 690);
    EXPECT_EQ(ColumnsName(another, list), "columns_690_1067");
}

}  // namespace
}  // namespace quorvi
