#include <QGuiApplication>

#include "tests/pages/messages/SmsComposeFixture.h"

namespace quorvi {
namespace {

TEST_F(Composer, CtrlFNarrowsTheTreeAndARecipientThatIsHiddenStaysOne) {
    OpenLoaded();
    Tick(Group(0)->child(0));  // 顾晓棠
    QTest::keySequence(QGuiApplication::focusWindow(), QKeySequence::Find);
    auto* field = dialog_->findChild<QLineEdit*>(QStringLiteral("find"));
    ASSERT_TRUE(field->hasFocus());
    QTest::keyClicks(field, QStringLiteral("yezq"));
    EXPECT_TRUE(Group(0)->isHidden());
    EXPECT_TRUE(Group(1)->isExpanded());
    EXPECT_TRUE(Group(1)->child(0)->isHidden());  // 林远舟
    Tick(Group(1));
    EXPECT_EQ(Recipients().text(), ToQString(u8"\"顾晓棠 \" <10010>;\"叶知秋 \" <15951230456>;"));
    QTest::keyClick(field, Qt::Key_Escape);
    EXPECT_TRUE(dialog_->isVisible());  // the bar alone is closed
    EXPECT_FALSE(field->isVisible());
    EXPECT_FALSE(Group(0)->isHidden());
    EXPECT_FALSE(Group(1)->isExpanded());
    EXPECT_TRUE(Tree().IsTicked(Group(0)->child(0)));
}

TEST_F(Composer, AGroupIsFoundByItsTitleAndNotByItsCount) {
    agent_.AnswerPayload(
        AgentCommand::listGroupMembers,
        MembersPayload({{5, "林远舟", "10086"}, {5, "叶知秋", "10010"}, {-1, "顾", "1"}}).Get());
    OpenLoaded();
    QTest::keySequence(QGuiApplication::focusWindow(), QKeySequence::Find);
    auto* field = dialog_->findChild<QLineEdit*>(QStringLiteral("find"));
    field->setText(QStringLiteral("2"));
    EXPECT_TRUE(Group(1)->isHidden());
    field->setText(QStringLiteral("py"));
    EXPECT_FALSE(Group(1)->isHidden());
    EXPECT_FALSE(Group(1)->child(1)->isHidden());
    EXPECT_TRUE(Group(0)->isHidden());
}

}  // namespace
}  // namespace quorvi
