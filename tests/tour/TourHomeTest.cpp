// What the tour's pictures show of a user.
#include <gtest/gtest.h>

#include "base/Places.h"
#include "tests/support/TemporaryFolder.h"
#include "tour/TourHome.h"

namespace quorvi {
namespace {

TEST(TourHome, HoldsAllThatIsTheUsers) {
    const TemporaryFolder folder;
    const std::filesystem::path home = folder.Path() / "lin";
    LiveIn(home);
    const Places places = ThePlaces();
    EXPECT_EQ(places.home, home);
    EXPECT_TRUE(std::filesystem::is_directory(home));
    for (const auto& place : {places.config, places.data, places.state, BackupFolderAtHome()}) {
        EXPECT_EQ(*place.lexically_relative(home).begin() == "..", false) << place;
    }
}

TEST(TourHome, IsAWholePathWhereAPartOfOneIsTold) {
    const TemporaryFolder folder;
    std::filesystem::current_path(folder.Path());
    LiveIn("home");
    EXPECT_EQ(ThePlaces().home, std::filesystem::absolute("home"));
    std::filesystem::current_path("/");
}

}  // namespace
}  // namespace quorvi
