// The region in which a Chinese mobile number was issued, from its first seven digits.
#pragma once

#include <cstddef>
#include <filesystem>
#include <span>
#include <vector>

#include "base/Places.h"
#include "base/os/MappedMemory.h"

namespace quorvi {

// The file phone.db, carried inside the program, written into the temporary directory and mapped
// from there. No failure shows: what cannot be read has no record.
//
// An instance costs one write of 1.2 MB when it is made, and a look-up neither lock nor system
// call. Look-ups may come from any number of threads.
class CPhoneDb {
  public:
    // Takes the phone.db that stands beside the program, where there is one, and the one inside the
    // program otherwise, and writes it into the temporary folder.
    explicit CPhoneDb(const Places& places = ThePlaces());
    // Writes `resource` to phone.db in `directory`, in the place of what stands there, and opens
    // it. A resource without bytes is not written: an empty file is then what is opened. A file of
    // another user that cannot be replaced is not trusted; the resource itself is then used.
    CPhoneDb(const std::filesystem::path& directory, std::vector<std::byte> resource);
    // As above; `resource` outlives the instance.
    CPhoneDb(const std::filesystem::path& directory, std::span<const std::byte> resource);
    // Closes the file. It stays in the temporary directory.
    ~CPhoneDb() = default;
    CPhoneDb(CPhoneDb&& other) noexcept;
    CPhoneDb& operator=(CPhoneDb&& other) noexcept;

    // The telephone area code of the seven digits as a number; 0 when there is no record, or the
    // prefix lies outside 1300000 to 1899999.
    [[nodiscard]] int LookupAreaCode(int prefix) const;

  private:
    void Open(const std::filesystem::path& directory, std::span<const std::byte> resource);

    std::vector<std::byte> ownResource_;
    MappedMemory mapping_;
    std::span<const std::byte> entries_;  // mapping_, or the resource where that is not to be used
};

// The phone.db inside the program.
[[nodiscard]] std::span<const std::byte> PhoneDbResource();

// The area code that a region id stands for; 0 for 0 and for an id that the table lacks.
[[nodiscard]] int AreaCodeOfRegion(int regionId);

}  // namespace quorvi
