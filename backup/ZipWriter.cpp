#include "backup/ZipWriter.h"

#include <zip.h>

#include <cerrno>

namespace quorvi {
namespace {

std::error_code ErrorOf(const zip_error_t* error) {
    if (zip_error_code_zip(error) == ZIP_ER_CANCELLED) {
        return std::make_error_code(std::errc::operation_canceled);
    }
    if (zip_error_code_zip(error) == ZIP_ER_EXISTS) {
        return std::make_error_code(std::errc::file_exists);
    }
    if (zip_error_system_type(error) == ZIP_ET_SYS && zip_error_code_system(error) != 0) {
        return {zip_error_code_system(error), std::generic_category()};
    }
    return std::make_error_code(std::errc::io_error);
}

bool Add(zip_t* archive, zip_source_t* source, const std::string& name) {
    if (source == nullptr) {
        return false;
    }
    const zip_int64_t index = zip_file_add(archive, name.c_str(), source, ZIP_FL_ENC_UTF_8);
    if (index < 0) {
        zip_source_free(source);
        return false;
    }
    return true;
}

// Packs what was added, and puts the file in its place.
std::error_code Close(zip_t* archive, bool added) {
    if (added && zip_close(archive) == 0) {
        return {};
    }
    const std::error_code failed = ErrorOf(zip_get_error(archive));
    zip_discard(archive);
    return failed;
}

}  // namespace

std::error_code WriteZip(const std::filesystem::path& zip, const std::filesystem::path& folder,
                         std::span<const std::string> names, const StopSignal& stop) {
    int code = 0;
    zip_t* archive = zip_open(zip.c_str(), ZIP_CREATE | ZIP_EXCL, &code);
    if (archive == nullptr) {
        return {errno, std::generic_category()};
    }
    bool added = true;
    for (const std::string& name : names) {
        added =
            added && Add(archive, zip_source_file(archive, (folder / name).c_str(), 0, -1), name);
    }
    // It asks while it packs, in zip_close.
    zip_register_cancel_callback_with_state(
        archive,
        [](zip_t*, void* state) {
            return static_cast<const StopSignal*>(state)->IsStopped() ? 1 : 0;
        },
        nullptr, const_cast<StopSignal*>(&stop));
    return Close(archive, added);
}

std::error_code WriteZip(const std::filesystem::path& zip, std::span<const ZipText> texts,
                         ExistingFile existing) {
    const int how = existing == ExistingFile::refuses ? ZIP_EXCL : ZIP_TRUNCATE;
    int code = 0;
    zip_t* archive = zip_open(zip.c_str(), ZIP_CREATE | how, &code);
    if (archive == nullptr) {
        const int system = errno;
        return code == ZIP_ER_EXISTS ? std::make_error_code(std::errc::file_exists)
                                     : std::error_code(system, std::generic_category());
    }
    bool added = true;
    for (const ZipText& text : texts) {
        added = added &&
                Add(archive, zip_source_buffer(archive, text.bytes.data(), text.bytes.size(), 0),
                    text.name);
    }
    return Close(archive, added);
}

}  // namespace quorvi
