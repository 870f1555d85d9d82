// Reads a .zip, as another program does.
#pragma once

#include <gtest/gtest.h>
#include <zip.h>

#include <filesystem>
#include <map>
#include <string>

namespace quorvi {

// Its files by their names; none when it is no whole .zip.
[[nodiscard]] inline std::map<std::string, std::string> Unzip(const std::filesystem::path& file) {
    std::map<std::string, std::string> files;
    int code = 0;
    zip_t* zip = zip_open(file.c_str(), ZIP_RDONLY | ZIP_CHECKCONS, &code);
    if (zip == nullptr) {
        return files;
    }
    for (zip_int64_t i = 0; i < zip_get_num_entries(zip, 0); ++i) {
        const auto index = static_cast<zip_uint64_t>(i);
        zip_stat_t known;
        zip_stat_index(zip, index, 0, &known);
        std::string& text = files[known.name];
        text.resize(known.size);
        zip_file_t* entry = zip_fopen_index(zip, index, 0);
        EXPECT_EQ(zip_fread(entry, text.data(), text.size()),
                  static_cast<zip_int64_t>(text.size()));
        zip_fclose(entry);
    }
    zip_discard(zip);
    return files;
}

}  // namespace quorvi
