#include <gtest/gtest.h>

#include "tests/support/OwnPlaces.h"

// Of every test program that brings no main of its own.
int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    const quorvi::OwnPlaces places;
    return RUN_ALL_TESTS();
}
