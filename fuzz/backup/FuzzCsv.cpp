// Tables from any program: whatever is read, writing it and reading it again gives the same.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "backup/Csv.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace quorvi;
    CsvReader reader({reinterpret_cast<const char*>(data), size});
    while (const auto row = reader.Next()) {
        // The heading tells the separator, which a first row of few cells may not.
        std::string csv = ",,,,\r\n";
        AppendCsvRow(*row, csv);
        CsvReader again(csv);
        static_cast<void>(again.Next());
        if (again.Next() != row) {
            std::abort();
        }
    }
    return 0;
}
