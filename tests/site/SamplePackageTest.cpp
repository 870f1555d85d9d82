#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <zlib.h>

#include "site/SamplePackage.h"

namespace quorvi::site {
namespace {

std::uint32_t NumberAt(const std::string& bytes, std::size_t at, std::size_t width) {
    std::uint32_t number = 0;
    for (std::size_t i = width; i-- > 0;) {
        number = number << 8 | static_cast<unsigned char>(bytes.at(at + i));
    }
    return number;
}

TEST(SamplePackage, IsAZipArchiveOfExactlySoManyBytes) {
    for (const std::size_t bytes : {kLeastPackageBytes, std::size_t{4097}, std::size_t{98'304}}) {
        const std::string archive = MakeSamplePackage("com.example.one", bytes);
        ASSERT_EQ(archive.size(), bytes);
        EXPECT_EQ(archive.substr(0, 4), "PK\x03\x04");
        // The end: 22 bytes, of which from the 10th on the entries, the directory's size and place.
        const std::size_t end = bytes - 22;
        EXPECT_EQ(archive.substr(end, 4), "PK\x05\x06");
        EXPECT_EQ(NumberAt(archive, end + 10, 2), 2u);
        const std::uint32_t directory = NumberAt(archive, end + 16, 4);
        EXPECT_EQ(directory + NumberAt(archive, end + 12, 4), end);
        EXPECT_EQ(archive.substr(directory, 4), "PK\x01\x02");
    }
}

TEST(SamplePackage, EachEntryHasTheSumThatItsHeadTells) {
    const std::string archive = MakeSamplePackage("com.example.one", 10'000);
    std::size_t at = 0;
    for (int i = 0; i < 2; ++i) {
        ASSERT_EQ(archive.substr(at, 4), "PK\x03\x04");
        const std::uint32_t sum = NumberAt(archive, at + 14, 4);
        const std::uint32_t size = NumberAt(archive, at + 18, 4);
        EXPECT_EQ(NumberAt(archive, at + 22, 4), size);  // stored as it is
        const std::size_t begin = at + 30 + NumberAt(archive, at + 26, 2);
        EXPECT_EQ(crc32(0, reinterpret_cast<const Bytef*>(archive.data() + begin), size), sum);
        at = begin + size;
    }
}

TEST(SamplePackage, IsAnApplicationsOwnAndStaysTheSame) {
    const auto bus = SamplePackage("com.example.bus");
    const auto notes = SamplePackage("com.example.notes");
    ASSERT_NE(bus, nullptr);
    ASSERT_NE(notes, nullptr);
    EXPECT_EQ(bus->size(), 2'640u * 1024);
    EXPECT_NE(bus->substr(2000, 1000), notes->substr(2000, 1000));
    EXPECT_EQ(*bus, MakeSamplePackage("com.example.bus", bus->size()));
    EXPECT_EQ(SamplePackage("com.example.bus"), bus);
    EXPECT_EQ(SamplePackage("com.example.unknown"), nullptr);
    EXPECT_EQ(SamplePackage("../com.example.bus"), nullptr);
    EXPECT_EQ(SamplePackage(""), nullptr);
}

struct RangeCase {
    std::int64_t first;
    std::int64_t last;
    std::size_t begin;
    std::size_t length;
};

TEST(PartOf, ARangeIsCutToTheFile) {
    for (const RangeCase& one : {
             RangeCase{0, -1, 0, 100},    // bytes=0-
             RangeCase{60, -1, 60, 40},   // bytes=60-
             RangeCase{99, -1, 99, 1},    // the last byte
             RangeCase{10, 19, 10, 10},   // bytes=10-19
             RangeCase{10, 10, 10, 1},    // a single byte
             RangeCase{90, 999, 90, 10},  // beyond the end
             RangeCase{-1, 30, 70, 30},   // bytes=-30, the last thirty
             RangeCase{-1, 999, 0, 100},  // more than there are
         }) {
        const Part part = PartOf(one.first, one.last, 100);
        EXPECT_EQ(part.first, one.begin) << one.first << ' ' << one.last;
        EXPECT_EQ(part.length, one.length) << one.first << ' ' << one.last;
    }
}

TEST(PartOf, WhatTheFileDoesNotHaveIsOfNoLength) {
    for (const RangeCase& one :
         {RangeCase{100, -1, 0, 0}, RangeCase{100, 200, 0, 0}, RangeCase{INT64_MAX, -1, 0, 0},
          RangeCase{9, 8, 0, 0}, RangeCase{-1, 0, 0, 0}, RangeCase{-1, -1, 0, 0}}) {
        EXPECT_EQ(PartOf(one.first, one.last, 100).length, 0u) << one.first << ' ' << one.last;
    }
    EXPECT_EQ(PartOf(0, -1, 0).length, 0u);
}

}  // namespace
}  // namespace quorvi::site
