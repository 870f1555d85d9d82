// What is delivered holds nothing of what takes its pictures.
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "tests/support/BuildPlaces.h"

namespace quorvi {
namespace {

// Texts that a program with the tour in it holds, stripped or not: names in the classes' tables,
// and what the tour tells and takes.
const std::vector<std::string> kMarks = {"quorvi::Tour", "quorvi::TourAgent",
                                         "tour: ", "usage: quorvi-tour"};

std::vector<std::string> MarksIn(const std::string& program) {
    std::ostringstream held;
    held << std::ifstream(program, std::ios::binary).rdbuf();
    const std::string bytes = held.str();
    EXPECT_FALSE(bytes.empty()) << program;
    std::vector<std::string> found;
    for (const std::string& mark : kMarks) {
        if (bytes.find(mark) != std::string::npos) {
            found.push_back(mark);
        }
    }
    return found;
}

TEST(DeliveredProgram, HoldsNothingOfTheTour) {
    EXPECT_EQ(MarksIn(QUORVI_BIN_DIR "/quorvi"), std::vector<std::string>{});
}

TEST(DeliveredProgram, TheMarksOfTheTourStandInItsOwnProgram) {
    EXPECT_EQ(MarksIn(QUORVI_TOUR), kMarks);
}

}  // namespace
}  // namespace quorvi
