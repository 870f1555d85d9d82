// A user's story with a backup: through the settings page onto the disk, and from there back to a
// phone that has lost everything.
#include <QLabel>

#include "tests/support/PagesOnPhone.h"

namespace quorvi {
namespace {

constexpr int kSettings = 3;
constexpr int kContactList = 1067;
constexpr int kContactName = 1;

// Numbers of the dialog with the plan and its controls.
constexpr int kPlan = 690;
constexpr int kGo = 1215;
constexpr int kClose = 1021;
constexpr int kState = 1220;

class BackupStory : public PagesOnPhone {
  protected:
    template <typename Control>
    static Control& Named(const char* name) {
        return *Window().ShownPage()->findChild<Control*>(QString::fromLatin1(name));
    }
    static QString TextOf(const char* name) { return Named<QLabel>(name).text(); }
    static void ClickOn(const char* name) { Named<QAbstractButton>(name).click(); }
    // What the contacts that the phone lists are called, sorted. A restore calls one without a name
    // by its number, as the phone takes none without a name.
    static QStringList Contacts() {
        OpenFresh(kContacts);
        return ContactsShown();
    }
    // The same, as the page shows them without being told to read them again.
    static QStringList ContactsShown() {
        OpenPage(kContacts);
        auto& list = OnPage<CSkinListCtrl>(kContactList);
        QStringList names;
        for (int row = 0; row < list.RowCount(); ++row) {
            const Cell contact = list.CellAt(row, kContactName);
            names.append(contact.text.isEmpty() ? contact.second : contact.text);
        }
        names.sort();
        return names;
    }
    static void BackUp() {
        OpenPage(kSettings);
        ClickOn("backupStart");
        ASSERT_TRUE(WaitIdle());
        ASSERT_TRUE(TextOf("backupState").startsWith(ToQString(u8"备份完成：")))
            << TextOf("backupState").toStdString();
    }
    static void Plan() {
        OpenPage(kSettings);
        ClickOn("restoreAsk");
        ASSERT_TRUE(WaitForDialog(kPlan));
        ASSERT_TRUE(WaitIdle());
    }
    static QString PlanState() { return In<QLabel>(kPlan, kState).text(); }
    static void ClosePlan() {
        Press(kPlan, kClose);
        ASSERT_TRUE(WaitForNoDialog(kPlan));
    }
};

TEST_F(BackupStory, WhatWasBackedUpComesBackToAnEmptiedPhone) {
    const QStringList before = Contacts();
    ASSERT_GT(before.size(), 10);
    BackUp();

    // ---- on the phone that it came from, nothing is to be done
    Plan();
    EXPECT_EQ(PlanState(), ToQString(u8"没有要写入的内容，不用恢复"));
    ClosePlan();

    // ---- the phone loses its contacts, alarms and bookmarks
    Tell("data contacts 0 alarms 0 bookmarks 0");
    ASSERT_TRUE(Contacts().isEmpty());

    // ---- and gets them back
    Plan();
    EXPECT_EQ(PlanState(), ToQString(u8"还没有写入任何内容"));
    Press(kPlan, kGo);
    ASSERT_TRUE(WaitFor([] {
        return PlanState().startsWith(ToQString(u8"恢复完成")) || In(kPlan, kGo).isVisible();
    }));
    EXPECT_TRUE(PlanState().startsWith(ToQString(u8"恢复完成"))) << PlanState().toStdString();
    ClosePlan();
    EXPECT_EQ(ContactsShown(), before);

    // ---- twice the same restore changes nothing
    Plan();
    EXPECT_EQ(PlanState(), ToQString(u8"没有要写入的内容，不用恢复"));
    ClosePlan();
}

}  // namespace
}  // namespace quorvi
