#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "link/AdbPath.h"
#include "tests/support/FakeAdb.h"

namespace quorvi {
namespace {

TEST(AdbPath, ExecutableBesideTheProgramComesFirst) {
    const TemporaryFolder directory;
    EXPECT_EQ(AdbPathIn(directory.Path()), "adb");
    std::ofstream(directory.Path() / "adb") << "#!/bin/sh\n";
    EXPECT_EQ(AdbPathIn(directory.Path()), (directory.Path() / "adb").string());
}

TEST(AdbPath, DirectoryOfThatNameIsNoExecutable) {
    const TemporaryFolder directory;
    std::filesystem::create_directory(directory.Path() / "adb");
    EXPECT_EQ(AdbPathIn(directory.Path()), "adb");
}

}  // namespace
}  // namespace quorvi
