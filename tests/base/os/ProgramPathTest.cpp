#include <gtest/gtest.h>

#include "base/os/ProgramPath.h"

namespace quorvi {
namespace {

TEST(ProgramPath, IsTheRunningProgramsOwnFile) {
    EXPECT_EQ(ProgramPath().filename(), "test_base");
    EXPECT_TRUE(std::filesystem::exists(ProgramPath()));
}

}  // namespace
}  // namespace quorvi
