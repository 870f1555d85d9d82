#include "online/HttpForm.h"

#include <curl/curl.h>

#include <algorithm>
#include <memory>
#include <type_traits>

namespace quorvi {
namespace {

constexpr std::string_view kLineMark = "/r/n";

using Curl = std::unique_ptr<CURL, decltype(&curl_easy_cleanup)>;
using Headers = std::unique_ptr<curl_slist, decltype(&curl_slist_free_all)>;

// Makes the library ready, once in a process and before any thread of ours needs it.
bool LibraryIsReady() {
    static const bool ready = curl_global_init(CURL_GLOBAL_DEFAULT) == CURLE_OK;
    return ready;
}

// What has come of a reply, and how much of it is wanted.
struct Reply {
    std::string text;
    std::size_t most;
};

// Anything else than `size` as the answer ends the transfer.
std::size_t Take(const char* data, std::size_t, std::size_t size, void* target) {
    auto& reply = *static_cast<Reply*>(target);
    const std::size_t wanted = std::min(size, reply.most - reply.text.size());
    reply.text.append(data, wanted);
    return wanted;
}

// The two headers have three blanks behind the colon, which the site expects. "Expect:" keeps the
// library from asking whether a long body is welcome, and from waiting for the answer.
Headers MakeHeaders() {
    Headers headers(nullptr, &curl_slist_free_all);
    for (const char* line :
         {"Content-Type:   application/x-www-form-urlencoded", "Accept:   */*", "Expect:"}) {
        if (curl_slist* longer = curl_slist_append(headers.get(), line)) {
            static_cast<void>(headers.release());
            headers.reset(longer);
        }
    }
    return headers;
}

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
    if (!LibraryIsReady()) {
        return {};
    }
    const Curl curl(curl_easy_init(), &curl_easy_cleanup);
    if (curl == nullptr) {
        return {};
    }
    const Headers headers = MakeHeaders();
    Reply reply{{}, limits_.reply};
    const auto set = [&curl](CURLoption option, auto value) {
        curl_easy_setopt(curl.get(), option, value);
    };
    set(CURLOPT_URL, url.c_str());
    set(CURLOPT_PROTOCOLS_STR, "http,https");
    set(CURLOPT_HTTP_VERSION, static_cast<long>(CURL_HTTP_VERSION_1_1));
    set(CURLOPT_FOLLOWLOCATION, 0L);
    set(CURLOPT_NOSIGNAL, 1L);
    set(CURLOPT_POST, 1L);
    set(CURLOPT_POSTFIELDS, body_.c_str());
    set(CURLOPT_POSTFIELDSIZE_LARGE,
        static_cast<curl_off_t>(std::min(body_.find('\0'), body_.size())));
    set(CURLOPT_HTTPHEADER, headers.get());
    set(CURLOPT_CONNECTTIMEOUT_MS, static_cast<long>(limits_.connect.count()));
    set(CURLOPT_TIMEOUT_MS, static_cast<long>(limits_.total.count()));
    set(CURLOPT_WRITEFUNCTION, &Take);
    set(CURLOPT_WRITEDATA, &reply);
    curl_easy_perform(curl.get());  // whatever became of it, what came is the reply
    return WithLineMarks(reply.text);
}

}  // namespace quorvi
