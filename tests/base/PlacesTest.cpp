#include <gtest/gtest.h>
#include <unistd.h>

#include <fstream>
#include <map>

#include "base/Places.h"
#include "tests/support/TemporaryFolder.h"

namespace quorvi {
namespace {

Environment Of(std::map<std::string, std::string> values) {
    return [values](const char* name) -> std::optional<std::string> {
        const auto found = values.find(name);
        return found == values.end() ? std::nullopt : std::optional(found->second);
    };
}

void Put(const std::filesystem::path& file) {
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file) << "x";
}

TEST(Places, UsersFoldersStandBelowHomeWhenNothingElseIsSaid) {
    const Places places = PlacesOf("/opt/q/quorvi", Of({{"HOME", "/nowhere/u"}}));
    EXPECT_EQ(places.home, "/nowhere/u");
    EXPECT_EQ(places.config, "/nowhere/u/.config");
    EXPECT_EQ(places.data, "/nowhere/u/.local/share");
    EXPECT_EQ(places.state, "/nowhere/u/.local/state");
    EXPECT_EQ(places.temporary, "/tmp");
}

TEST(Places, EnvironmentMovesThemAndRelativePathsAreIgnored) {
    const Places places = PlacesOf("/opt/q/quorvi", Of({{"HOME", "/nowhere/u"},
                                                        {"XDG_CONFIG_HOME", "/c"},
                                                        {"XDG_DATA_HOME", "data"},
                                                        {"XDG_STATE_HOME", "/s"},
                                                        {"TMPDIR", "/t"}}));
    EXPECT_EQ(places.config, "/c");
    EXPECT_EQ(places.data, "/nowhere/u/.local/share");
    EXPECT_EQ(places.state, "/s");
    EXPECT_EQ(places.temporary, "/t");
}

TEST(Places, ADeploymentThatIsToldStandsInThePlaceOfTheDelivered) {
    EXPECT_EQ(PlacesOf("/opt/q/quorvi", Of({})).DeploymentFile(), "/opt/q/Data/deployment.json");
    EXPECT_EQ(
        PlacesOf("/opt/q/quorvi", Of({{"QUORVI_DEPLOYMENT", "/d/own.json"}})).DeploymentFile(),
        "/d/own.json");
    EXPECT_EQ(PlacesOf("/opt/q/quorvi", Of({{"QUORVI_DEPLOYMENT", "own.json"}})).DeploymentFile(),
              "/opt/q/Data/deployment.json");
}

TEST(Places, SettingsHaveAFolderOfTheirOwn) {
    const Places places = PlacesOf("/opt/q/quorvi", Of({{"XDG_CONFIG_HOME", "/c"}}));
    EXPECT_EQ(places.SettingsFile(), "/c/Quorvi/Quorvi.ini");
}

TEST(Places, TheLogStandsAmongTheUsersState) {
    const Places places = PlacesOf("/opt/q/quorvi", Of({{"XDG_STATE_HOME", "/s"}}));
    EXPECT_EQ(places.LogFile(), "/s/Quorvi/quorvi.log");
}

TEST(Places, WhatIsDeliveredIsLookedForBesideTheProgramFirst) {
    const TemporaryFolder prefix;
    Places places;
    places.program = prefix.Path() / "bin" / "quorvi";
    const std::filesystem::path name = "Data/deployment.json";
    // In none of the folders: its place beside the program.
    EXPECT_EQ(places.Delivered(name), prefix.Path() / "bin" / name);
    Put(prefix.Path() / "lib" / "quorvi" / name);
    EXPECT_EQ(places.Delivered(name), prefix.Path() / "lib" / "quorvi" / name);
    Put(prefix.Path() / "share" / "quorvi" / name);
    EXPECT_EQ(places.Delivered(name), prefix.Path() / "share" / "quorvi" / name);
    Put(prefix.Path() / "bin" / name);
    EXPECT_EQ(places.Delivered(name), prefix.Path() / "bin" / name);
}

TEST(Places, TasksAreKeptBesideTheProgram) {
    const TemporaryFolder folder;
    Places places;
    places.program = folder.Path() / "quorvi";
    places.data = "/nowhere/data";
    EXPECT_EQ(places.TaskDatabase(), folder.Path() / "Config.db");
}

TEST(Places, TasksAreKeptInTheUsersDataWhereTheProgramsFolderIsNotToBeWritten) {
    const TemporaryFolder folder;
    Places places;
    places.program = folder.Path() / "quorvi";
    places.data = "/nowhere/data";
    std::filesystem::permissions(folder.Path(), std::filesystem::perms{0555});
    const bool isRoot = geteuid() == 0;  // who may write everywhere
    ASSERT_TRUE(!isRoot || seteuid(1) == 0);
    const std::filesystem::path tasks = places.TaskDatabase();
    ASSERT_TRUE(!isRoot || seteuid(0) == 0);
    EXPECT_EQ(tasks, "/nowhere/data/Quorvi/Config.db");
}

TEST(Places, ThoseOfTheRunningProgramNameItsFile) {
    const Places places = ThePlaces();
    EXPECT_EQ(places.program.filename(), "test_base");
    EXPECT_TRUE(std::filesystem::exists(places.program));
    EXPECT_EQ(places.Beside("test_base"), places.program);
}

}  // namespace
}  // namespace quorvi
