#include <gtest/gtest.h>

#include "ui/kit/PressMachine.h"

namespace quorvi {
namespace {

using State = PressMachine::State;

TEST(PressMachine, APressAndReleaseInsideIsAClick) {
    PressMachine machine;
    machine.Move(true);
    EXPECT_EQ(machine.Current(), State::hover);
    machine.Down();
    EXPECT_EQ(machine.Current(), State::pressed);
    EXPECT_TRUE(machine.Up(true));
    EXPECT_EQ(machine.Current(), State::normal);
}

TEST(PressMachine, APressDraggedOutAndReleasedDoesNothing) {
    PressMachine machine;
    machine.Down();
    machine.Move(false);
    EXPECT_EQ(machine.Current(), State::hover);
    EXPECT_FALSE(machine.Up(false));
    EXPECT_EQ(machine.Current(), State::normal);
}

TEST(PressMachine, APressDraggedOutAndBackIsPressedAgain) {
    PressMachine machine;
    machine.Down();
    machine.Move(false);
    machine.Move(false);
    EXPECT_EQ(machine.Current(), State::hover);
    machine.Move(true);
    EXPECT_EQ(machine.Current(), State::pressed);
    EXPECT_TRUE(machine.Up(true));
}

TEST(PressMachine, MovesInsideWhilePressedKeepThePress) {
    PressMachine machine;
    machine.Down();
    machine.Move(true);
    machine.Move(true);
    EXPECT_EQ(machine.Current(), State::pressed);
    EXPECT_TRUE(machine.Up(true));
}

TEST(PressMachine, AReleaseWithoutAPressIsNoClick) {
    PressMachine machine;
    machine.Move(true);
    EXPECT_FALSE(machine.Up(true));
}

TEST(PressMachine, AMoveOutsideWithoutAPressChangesNothing) {
    PressMachine machine;
    machine.Move(false);
    EXPECT_EQ(machine.Current(), State::normal);
    machine.Move(true);
    machine.Move(false);
    EXPECT_EQ(machine.Current(), State::hover);
}

TEST(PressMachine, LeavingMakesItNormal) {
    PressMachine machine;
    machine.Move(true);
    machine.Leave();
    EXPECT_EQ(machine.Current(), State::normal);
}

// The state is normal after a click although the cursor is still there; the next move hovers.
TEST(PressMachine, AfterAClickTheNextMoveHovers) {
    PressMachine machine;
    machine.Down();
    EXPECT_TRUE(machine.Up(true));
    EXPECT_EQ(machine.Current(), State::normal);
    machine.Move(true);
    EXPECT_EQ(machine.Current(), State::hover);
}

TEST(PressMachine, APressThatLostTheMouseIsOver) {
    PressMachine machine;
    machine.Down();
    machine.Leave();
    machine.Move(true);
    EXPECT_EQ(machine.Current(), State::hover);
    EXPECT_FALSE(machine.Up(true));
}

}  // namespace
}  // namespace quorvi
