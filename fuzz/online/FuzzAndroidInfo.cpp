// Reads any bytes as what the site answers about a package: no task has a file outside its folder,
// and none an address that the engine would not ask.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "download/HttpUrl.h"
#include "online/LinkResolver.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::string_view kRoot = "http://download.example/";
    const auto resolved =
        quorvi::ReadLinkAnswer({reinterpret_cast<const char*>(data), size}, kRoot);
    const bool told = !quorvi::ResolveStatus(resolved).empty();
    if (told != (resolved.outcome != quorvi::ResolveOutcome::noAnswer)) {
        std::abort();
    }
    if (resolved.outcome == quorvi::ResolveOutcome::resolved) {
        const auto file = quorvi::TaskFile("/save", resolved.task.uniqueId);
        if (!file || file->parent_path() != "/save" || !resolved.task.url.starts_with(kRoot) ||
            quorvi::ParseHttpUrl(resolved.task.url).server != "download.example") {
            std::abort();
        }
    }
    return 0;
}
