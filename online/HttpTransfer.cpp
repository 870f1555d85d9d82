#include "online/HttpTransfer.h"

#include <curl/curl.h>

#include <algorithm>
#include <memory>

namespace quorvi {
namespace {

constexpr long kMostRedirects = 5;

using Curl = std::unique_ptr<CURL, decltype(&curl_easy_cleanup)>;
using Headers = std::unique_ptr<curl_slist, decltype(&curl_slist_free_all)>;

// Makes the library ready, once in a process and before any thread of ours needs it.
bool LibraryIsReady() {
    static const bool ready = curl_global_init(CURL_GLOBAL_DEFAULT) == CURLE_OK;
    return ready;
}

// What has come of a reply, and how much of it is wanted.
struct Inlet {
    std::string& text;
    std::size_t most;
};

// Anything else than `size` as the answer ends the transfer.
std::size_t Take(const char* data, std::size_t, std::size_t size, void* target) {
    auto& inlet = *static_cast<Inlet*>(target);
    const std::size_t wanted = std::min(size, inlet.most - inlet.text.size());
    inlet.text.append(data, wanted);
    return wanted;
}

Headers MakeHeaders(const std::vector<std::string>& lines) {
    Headers headers(nullptr, &curl_slist_free_all);
    for (const std::string& line : lines) {
        if (curl_slist* longer = curl_slist_append(headers.get(), line.c_str())) {
            static_cast<void>(headers.release());
            headers.reset(longer);
        }
    }
    return headers;
}

template <typename Value>
void Set(const Curl& curl, CURLoption option, Value value) {
    curl_easy_setopt(curl.get(), option, value);
}

// A transfer that asks for nothing yet; null where the library has none.
Curl MakeTransfer(const std::string& url, const HttpLimits& limits) {
    Curl curl(LibraryIsReady() ? curl_easy_init() : nullptr, &curl_easy_cleanup);
    if (curl != nullptr) {
        Set(curl, CURLOPT_URL, url.c_str());
        Set(curl, CURLOPT_PROTOCOLS_STR, "http,https");
        Set(curl, CURLOPT_HTTP_VERSION, static_cast<long>(CURL_HTTP_VERSION_1_1));
        Set(curl, CURLOPT_NOSIGNAL, 1L);
        Set(curl, CURLOPT_CONNECTTIMEOUT_MS, static_cast<long>(limits.connect.count()));
        Set(curl, CURLOPT_TIMEOUT_MS, static_cast<long>(limits.total.count()));
    }
    return curl;
}

HttpReply Run(const Curl& curl, const HttpLimits& limits) {
    HttpReply reply;
    Inlet inlet{reply.body, limits.reply};
    Set(curl, CURLOPT_WRITEFUNCTION, &Take);
    Set(curl, CURLOPT_WRITEDATA, &inlet);
    reply.whole = curl_easy_perform(curl.get()) == CURLE_OK;
    curl_easy_getinfo(curl.get(), CURLINFO_RESPONSE_CODE, &reply.status);
    return reply;
}

}  // namespace

HttpReply HttpGet(const std::string& url, const HttpLimits& limits) {
    const Curl curl = MakeTransfer(url, limits);
    if (curl == nullptr) {
        return {};
    }
    Set(curl, CURLOPT_FOLLOWLOCATION, 1L);
    Set(curl, CURLOPT_MAXREDIRS, kMostRedirects);
    Set(curl, CURLOPT_REDIR_PROTOCOLS_STR, "http,https");
    return Run(curl, limits);
}

HttpReply HttpPost(const std::string& url, std::string_view body,
                   const std::vector<std::string>& headers, const HttpLimits& limits) {
    const Curl curl = MakeTransfer(url, limits);
    if (curl == nullptr) {
        return {};
    }
    // "Expect:" keeps the library from asking whether a long body is welcome, and from waiting for
    // the answer.
    std::vector<std::string> lines = headers;
    lines.emplace_back("Expect:");
    const Headers list = MakeHeaders(lines);
    Set(curl, CURLOPT_FOLLOWLOCATION, 0L);
    Set(curl, CURLOPT_POST, 1L);
    Set(curl, CURLOPT_POSTFIELDS, body.data());
    Set(curl, CURLOPT_POSTFIELDSIZE_LARGE, static_cast<curl_off_t>(body.size()));
    Set(curl, CURLOPT_HTTPHEADER, list.get());
    return Run(curl, limits);
}

}  // namespace quorvi
