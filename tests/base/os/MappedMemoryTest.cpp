#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <limits>

#include "base/os/MappedMemory.h"
#include "tests/support/TemporaryFolder.h"

namespace quorvi {
namespace {

TEST(MappedMemory, ZeroedIsZeroAndMayBeWritten) {
    MappedMemory memory = MappedMemory::Zeroed(10000);
    ASSERT_EQ(memory.Bytes().size(), 10000U);
    EXPECT_TRUE(std::all_of(memory.Bytes().begin(), memory.Bytes().end(),
                            [](std::byte byte) { return byte == std::byte{0}; }));
    memory.Writable()[9999] = std::byte{7};
    EXPECT_EQ(memory.Bytes()[9999], std::byte{7});
}

TEST(MappedMemory, MoreThanTheAddressSpaceHoldsIsEmpty) {
    EXPECT_TRUE(MappedMemory::Zeroed(std::numeric_limits<std::size_t>::max() / 2).Empty());
    EXPECT_TRUE(MappedMemory::Zeroed(0).Empty());
}

TEST(MappedMemory, AMoveHandsItOver) {
    MappedMemory first = MappedMemory::Zeroed(10);
    first.Writable()[0] = std::byte{1};
    MappedMemory second(std::move(first));
    EXPECT_EQ(second.Bytes()[0], std::byte{1});
    first = MappedMemory::Zeroed(20);
    second = std::move(first);
    EXPECT_EQ(second.Bytes().size(), 20U);
    EXPECT_EQ(second.Bytes()[0], std::byte{0});
}

TEST(MappedMemory, OfAFileOutlivesItsDescriptorAndItsName) {
    const TemporaryFolder folder;
    const std::filesystem::path file = folder.Path() / "file";
    std::ofstream(file) << "abc";
    MappedMemory memory;
    {
        const FileDescriptor descriptor(open(file.c_str(), O_RDONLY | O_CLOEXEC));
        memory = MappedMemory::OfFile(descriptor, 2);
    }
    std::filesystem::remove(file);
    ASSERT_EQ(memory.Bytes().size(), 2U);
    EXPECT_EQ(memory.Bytes()[1], std::byte{'b'});
    EXPECT_TRUE(MappedMemory::OfFile(FileDescriptor(), 2).Empty());
}

// Bytes of memory that this process holds.
std::size_t Resident() {
    std::size_t all = 0;
    std::size_t resident = 0;
    std::ifstream("/proc/self/statm") >> all >> resident;
    return resident * static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
}

TEST(MappedMemory, OfALargeLengthOnlyWhatIsWrittenToTakesMemory) {
    constexpr std::size_t kThreeGigabytes = 3'000'000'000;
    const std::size_t before = Resident();
    MappedMemory memory = MappedMemory::Zeroed(kThreeGigabytes);
    ASSERT_EQ(memory.Bytes().size(), kThreeGigabytes);
    memory.Writable()[kThreeGigabytes / 2] = std::byte{1};
    EXPECT_LT(Resident(), before + (8 << 20));
    std::ranges::fill(memory.Writable().first(16 << 20), std::byte{1});
    EXPECT_GT(Resident(), before + (14 << 20));
}

}  // namespace
}  // namespace quorvi
