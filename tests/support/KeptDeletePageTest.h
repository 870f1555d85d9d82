// What is kept of the delete of a list's ticked rows: the tests of every page that has one.
//
//   using AlarmDelete =
//       TickedDelete<AlarmPage, CAlarmPage::commandDelete, AgentCommand::listAlarms,
//                    AgentCommand::deleteAlarms, BackupKind::alarms, 2>;
//   INSTANTIATE_TYPED_TEST_SUITE_P(Alarms, KeptDeletePage, AlarmDelete);
#pragma once

#include <gtest/gtest.h>

#include <QLabel>
#include <cstdint>
#include <memory>

#include "tests/support/DialogDriver.h"
#include "tests/support/KeptDeletes.h"
#include "tests/support/KeyDriver.h"
#include "tests/support/ScriptedAgent.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"

namespace quorvi {

// The fixture of a page whose phone lists three rows, ListBytes, and the command of the page that
// deletes them. The first `rows` are those that the phone gives whole.
template <typename Fixture, int command, AgentCommand list, AgentCommand request, BackupKind kind,
          int rows>
struct TickedDelete : Fixture {
    static constexpr int kDelete = command;
    static constexpr AgentCommand kList = list;
    static constexpr AgentCommand kRequest = request;
    static constexpr BackupKind kKind = kind;
    static constexpr int kRows = rows;
};

template <typename OfAPage>
class KeptDeletePage : public OfAPage {
  protected:
    // The question before a delete.
    static constexpr int kQuestion = 548;
    static constexpr int kText = 1378;
    static constexpr int kNames = 4;
    static constexpr int kYes = 1215;
    static constexpr int kNo = 1021;

    // Ticks the first rows, and says yes to the delete.
    void Delete(int rows) {
        for (int row = 0; row < rows; ++row) {
            this->List().SetTicked(row, true);
        }
        this->page_->OnCommand(OfAPage::kDelete);
        PressIn(kQuestion, kYes);
    }
    // What a control of the question says.
    static QString Said(int control) {
        SkinDialog* dialog = OpenDialog(kQuestion);
        return dialog == nullptr ? QString() : FindControl<QLabel>(dialog, control)->text();
    }
    std::size_t Deletes() { return this->agent_.Requests(OfAPage::kRequest).size(); }
};

TYPED_TEST_SUITE_P(KeptDeletePage);

TYPED_TEST_P(KeptDeletePage, WhatIsDeletedIsKeptBeforeTheRequestIsSent) {
    this->OpenLoaded();
    this->agent_.Hold(TypeParam::kRequest);
    this->Delete(TypeParam::kRows);
    ASSERT_TRUE(WaitFor([&] { return this->Deletes() != 0; }));
    EXPECT_TRUE(this->kept_.IsOne(TypeParam::kKind, TypeParam::kRows));
    this->agent_.Release();
    this->WaitForLoads(2);
    EXPECT_EQ(this->kept_.List().size(), 1u);
}

TYPED_TEST_P(KeptDeletePage, WhatCannotBeKeptIsAskedAboutOnceMoreAndStaysWhenTheAnswerIsNo) {
    this->kept_.Refuse();
    this->OpenLoaded();
    this->Delete(1);
    this->Settle();
    ASSERT_NE(OpenDialog(this->kQuestion), nullptr);
    EXPECT_EQ(FindControl<QLabel>(OpenDialog(this->kQuestion), this->kText)->text(),
              ToQString(u8"要删除的内容没能先保存到电脑：路径里有一段不是文件夹，"
                        u8"请检查保存个人数据的文件夹。这样删除以后就找不回来了，还要删除吗？"));
    EXPECT_TRUE(this->page_->isEnabled());
    PressIn(this->kQuestion, this->kNo);
    this->Settle();
    EXPECT_EQ(this->Deletes(), 0u);
    EXPECT_EQ(this->Loads(), 1u);
    EXPECT_TRUE(this->List().IsTicked(0));
}

TYPED_TEST_P(KeptDeletePage, WhatCannotBeKeptIsDeletedWhenTheUserWantsItAllTheSame) {
    this->kept_.Refuse();
    this->OpenLoaded();
    this->Delete(1);
    this->Settle();
    PressIn(this->kQuestion, this->kYes);
    this->WaitForLoads(2);
    EXPECT_EQ(this->Deletes(), 1u);
}

TYPED_TEST_P(KeptDeletePage, WhatWasKeptOfADeleteThatFindsNoPhoneIsForgotten) {
    auto phone = std::make_unique<ScriptedAgent>();
    phone->AnswerPayload(TypeParam::kList, this->ListBytes());
    this->OpenAt(phone->Port()).Load();
    ASSERT_TRUE(WaitFor([&] { return this->List().RowCount() == 3; }));
    this->Settle();
    phone.reset();
    this->Delete(1);
    ASSERT_TRUE(WaitFor([&] { return this->List().State() == ListState::failed; }));
    EXPECT_TRUE(this->kept_.List().empty());
}

TYPED_TEST_P(KeptDeletePage, TheDeleteKeyIsAboutTheSelectedRowWhereNoneIsTicked) {
    this->OpenLoaded();
    this->List().SelectRow(0);
    PressKeyIn(this->List(), Qt::Key_Delete);
    EXPECT_TRUE(this->Said(this->kText).contains(QStringLiteral("【 1 】")));
    EXPECT_EQ(this->Said(this->kNames), this->List().NameOf(0));
    PressIn(this->kQuestion, this->kYes);
    this->WaitForLoads(2);
    EXPECT_EQ(this->Deletes(), 1u);
    EXPECT_TRUE(this->kept_.IsOne(TypeParam::kKind, 1));
}

TYPED_TEST_P(KeptDeletePage, TheDeleteKeyIsAboutTheTickedRowsWhereThereAreAny) {
    this->OpenLoaded();
    this->List().SelectRow(0);
    this->List().SetTicked(1, true);
    PressKeyIn(this->List(), Qt::Key_Delete);
    EXPECT_TRUE(this->Said(this->kText).contains(QStringLiteral("【 1 】")));
    EXPECT_EQ(this->Said(this->kNames), this->List().NameOf(1));
    PressIn(this->kQuestion, this->kNo);
    this->Settle();
    EXPECT_EQ(this->Deletes(), 0u);
}

TYPED_TEST_P(KeptDeletePage, TheDeleteKeyWithNothingChosenSaysThatNothingIsTicked) {
    this->OpenLoaded();
    this->List().SelectRow(-1);
    PressKeyIn(this->List(), Qt::Key_Delete);
    ASSERT_NE(OpenDialog(682), nullptr);
    OpenDialog(682)->reject();
    this->Settle();
    EXPECT_EQ(this->Deletes(), 0u);
}

TYPED_TEST_P(KeptDeletePage, F5FetchesTheListAgain) {
    this->OpenLoaded();
    PressKeyIn(this->List(), Qt::Key_F5);
    this->WaitForLoads(2);
}

REGISTER_TYPED_TEST_SUITE_P(KeptDeletePage, F5FetchesTheListAgain,
                            TheDeleteKeyIsAboutTheSelectedRowWhereNoneIsTicked,
                            TheDeleteKeyIsAboutTheTickedRowsWhereThereAreAny,
                            TheDeleteKeyWithNothingChosenSaysThatNothingIsTicked,
                            WhatIsDeletedIsKeptBeforeTheRequestIsSent,
                            WhatCannotBeKeptIsAskedAboutOnceMoreAndStaysWhenTheAnswerIsNo,
                            WhatCannotBeKeptIsDeletedWhenTheUserWantsItAllTheSame,
                            WhatWasKeptOfADeleteThatFindsNoPhoneIsForgotten);

}  // namespace quorvi
