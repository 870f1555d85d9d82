#include "online/HttpForm.h"

#include <algorithm>

namespace quorvi {
namespace {

constexpr std::string_view kLineMark = "/r/n";

std::string WithLineMarks(std::string_view reply) {
    std::string marked;
    marked.reserve(reply.size() + kLineMark.size());
    while (!reply.empty()) {
        const std::size_t end = std::min(reply.find('\n'), reply.size());
        std::string_view line = reply.substr(0, end);
        if (end < reply.size() && line.ends_with('\r')) {
            line.remove_suffix(1);
        }
        marked.append(line).append(kLineMark);
        reply.remove_prefix(std::min(end + 1, reply.size()));
    }
    return marked;
}

}  // namespace

void CHttpForm::AddField(std::string_view name, std::string_view value) {
    body_.append(name).append("=").append(value).append("&");
}

std::string CHttpForm::Post(const std::string& url) const {
    const std::string_view body = std::string_view(body_).substr(0, body_.find('\0'));
    // The site expects three blanks behind each colon.
    const HttpReply reply = HttpPost(
        url, body, {"Content-Type:   application/x-www-form-urlencoded", "Accept:   */*"}, limits_);
    return WithLineMarks(reply.body);
}

}  // namespace quorvi
