// Texts that nobody would enter, for every list of the phone: markup and scripts, control
// characters, bytes that are no UTF-8, a megabyte.
#pragma once

#include <string>
#include <vector>

#include "base/Utf8.h"

namespace quorvi::phone {

[[nodiscard]] inline std::vector<std::string> HostileTexts() {
    constexpr std::size_t kMegabyte = 1'000'000;
    return {
        "<script>document.title='owned'</script><b>bold",
        "</li></ul><img src=x onerror=alert(1)><a href='qvh:did=12'>qvh</a>",
        "%s%n%d %1$s",
        std::string("zero \0 inside", 13),
        "\x01\x02\x1b[31m\t\r\n\x7f",
        "../../../../etc/passwd\\..\\x",
        "\xff\xfe\xc0\xaf broken \xe4\xb8",
        Utf8(u8"\u202e右到左\u202c \u200b\ufeff"),
        std::string(kMegabyte, 'x'),
    };
}

}  // namespace quorvi::phone
