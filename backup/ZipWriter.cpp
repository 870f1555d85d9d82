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

bool AddFile(zip_t* archive, const std::filesystem::path& file, const std::string& name) {
    zip_source_t* source = zip_source_file(archive, file.c_str(), 0, -1);
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
        added = added && AddFile(archive, folder / name, name);
    }
    // It asks while it packs, in zip_close.
    zip_register_cancel_callback_with_state(
        archive,
        [](zip_t*, void* state) {
            return static_cast<const StopSignal*>(state)->IsStopped() ? 1 : 0;
        },
        nullptr, const_cast<StopSignal*>(&stop));
    if (added && zip_close(archive) == 0) {
        return {};
    }
    const std::error_code failed = ErrorOf(zip_get_error(archive));
    zip_discard(archive);
    return failed;
}

}  // namespace quorvi
