#include "site/SampleServer.h"

#include <fmt/format.h>
#include <httplib.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <optional>
#include <string_view>
#include <thread>
#include <utility>

#include "base/os/StopSignal.h"
#include "site/Forms.h"
#include "site/Pages.h"
#include "site/SamplePackage.h"

namespace quorvi::site {
namespace {

constexpr const char* kLoopback = "127.0.0.1";
constexpr std::string_view kDownloadPath = "/download/";
constexpr std::string_view kPackageEnd = ".apk";
constexpr std::string_view kPackageType = "application/vnd.android.package-archive";

// A connection takes a thread, and is closed behind its one request: on loopback a new one costs
// nothing, and a browser that keeps six of them open keeps nobody else waiting.
constexpr std::size_t kThreads = 32;
constexpr time_t kSilentSeconds = 2;
constexpr time_t kPatienceSeconds = 10;
constexpr std::size_t kPieceBytes = 32 << 10;
constexpr std::size_t kLongestLogged = 200;

constexpr int kPartial = 206;
constexpr int kNotFound = 404;
constexpr int kNoSuchMethod = 405;
constexpr int kTooLarge = 413;
constexpr int kRangeRefused = 416;

// What others sent stands in a log as printable ASCII.
std::string Printable(std::string_view text) {
    std::string printable(text.substr(0, kLongestLogged));
    std::ranges::replace_if(
        printable, [](char c) { return c < ' ' || c > '~'; }, '?');
    return printable;
}

void Give(const Answer& answer, httplib::Response& response) {
    response.status = answer.status;
    if (!answer.location.empty()) {
        response.set_header("Location", std::string(answer.location));
    }
    response.set_content(answer.body, std::string(answer.type));
}

}  // namespace

class SampleServer::Impl {
  public:
    explicit Impl(ServerOptions options) : options_(std::move(options)) {
        server_.new_task_queue = [] { return new httplib::ThreadPool(kThreads); };
        // The library's own options would let two sites listen on one port.
        server_.set_socket_options([](socket_t socket) {
            const int on = 1;
            setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
        });
        server_.set_keep_alive_max_count(1);
        server_.set_keep_alive_timeout(kSilentSeconds);
        server_.set_read_timeout(kPatienceSeconds);
        server_.set_write_timeout(kPatienceSeconds);
        server_.set_payload_max_length(kMostFormBytes);
        server_.set_pre_routing_handler(
            [this](const httplib::Request& request, httplib::Response& response) {
                return Route(request, response);
            });
        // The reader, since the library itself takes no form of more than eight kilobytes.
        server_.Post(
            "/feedback/([a-z_]{1,40})\\.php",
            [](const httplib::Request& request, httplib::Response& response,
               const httplib::ContentReader& reader) { TakeForm(request, response, reader); });
        if (options_.log) {
            server_.set_logger(
                [this](const httplib::Request& request, const httplib::Response& response) {
                    options_.log(fmt::format("{} {} {}", Printable(request.method),
                                             Printable(request.target), response.status));
                });
        }
    }

    ~Impl() {
        stop_.Stop();
        server_.stop();
        if (thread_.joinable()) {
            thread_.join();
        }
    }
    Impl(const Impl&) = delete;
    Impl& operator=(const Impl&) = delete;

    std::string Start() {
        if (options_.port != 0) {
            port_ = server_.bind_to_port(kLoopback, options_.port) ? options_.port : -1;
        } else {
            port_ = server_.bind_to_any_port(kLoopback);
        }
        if (port_ <= 0) {
            return fmt::format("cannot listen on port {} of {}", options_.port, kLoopback);
        }
        thread_ = std::thread([this] { server_.listen_after_bind(); });
        // It could not be stopped before it runs.
        while (!server_.is_running()) {
            std::this_thread::yield();
        }
        return {};
    }

    [[nodiscard]] std::uint16_t Port() const { return static_cast<std::uint16_t>(port_); }

  private:
    using Handled = httplib::Server::HandlerResponse;

    // Answers all but the forms, whose body has yet to be read.
    Handled Route(const httplib::Request& request, httplib::Response& response) {
        if (request.method == "POST") {
            return Handled::Unhandled;
        }
        if (request.method != "GET" && request.method != "HEAD") {
            Give({.status = kNoSuchMethod, .type = kText}, response);
            return Handled::Handled;
        }
        const std::string_view path = request.path;
        if (path.starts_with(kDownloadPath) && path.ends_with(kPackageEnd)) {
            const auto name = path.substr(kDownloadPath.size());
            GivePackage(name.substr(0, name.size() - kPackageEnd.size()), request, response);
            return Handled::Handled;
        }
        const std::string_view target = request.target;
        const std::size_t query = std::min(target.find('?'), target.size() - 1) + 1;
        DropRanges(request);
        Give(AnswerPage(path, target.substr(query)), response);
        return Handled::Handled;
    }

    // The library would cut the answer by these ranges a second time, and runs over its end where
    // one ends behind it. The request is its own variable, which is no constant.
    static std::vector<std::pair<ssize_t, ssize_t>> DropRanges(const httplib::Request& request) {
        return std::exchange(const_cast<httplib::Request&>(request).ranges, {});
    }

    void GivePackage(std::string_view package, const httplib::Request& request,
                     httplib::Response& response) {
        const auto ranges = DropRanges(request);
        const auto archive = SamplePackage(package);
        if (archive == nullptr) {
            Give({.status = kNotFound, .type = kText}, response);
            return;
        }
        Part part{0, archive->size()};
        if (!ranges.empty()) {
            // One part at a time.
            part = ranges.size() > 1
                       ? Part{}
                       : PartOf(ranges.front().first, ranges.front().second, archive->size());
            if (part.length == 0) {
                response.set_header("Content-Range", fmt::format("bytes */{}", archive->size()));
                Give({.status = kRangeRefused, .type = kText}, response);
                return;
            }
            response.status = kPartial;
            response.set_header("Content-Range",
                                fmt::format("bytes {}-{}/{}", part.first,
                                            part.first + part.length - 1, archive->size()));
        }
        response.set_header("Accept-Ranges", "bytes");
        response.set_content_provider(
            part.length, std::string(kPackageType),
            [this, archive, first = part.first](std::size_t offset, std::size_t length,
                                                httplib::DataSink& sink) {
                const std::size_t piece = std::min(length, kPieceBytes);
                return sink.write(archive->data() + first + offset, piece) && Pace(piece);
            });
    }

    // Waits as long as so many bytes may take; false when the site ends.
    [[nodiscard]] bool Pace(std::size_t bytes) const {
        if (options_.kilobytesASecond > 0) {
            constexpr std::size_t kMillisecondsAKilobyte = 1000;
            stop_.WaitFor(std::chrono::milliseconds(bytes * kMillisecondsAKilobyte /
                                                    (options_.kilobytesASecond * 1024ULL)));
        }
        return !stop_.IsStopped();
    }

    static void TakeForm(const httplib::Request& request, httplib::Response& response,
                         const httplib::ContentReader& reader) {
        std::string body;
        const bool whole = reader([&body](const char* bytes, std::size_t count) {
            if (body.size() + count > kMostFormBytes) {
                return false;
            }
            body.append(bytes, count);
            return true;
        });
        if (!whole) {
            Give({.status = kTooLarge, .type = kText}, response);
            return;
        }
        Give(AnswerForm(request.matches[1].str(), body), response);
    }

    const ServerOptions options_;
    StopSignal stop_;
    httplib::Server server_;
    int port_ = 0;
    std::thread thread_;
};

SampleServer::SampleServer(ServerOptions options)
    : impl_(std::make_unique<Impl>(std::move(options))) {}

SampleServer::~SampleServer() = default;

std::string SampleServer::Start() {
    return impl_->Start();
}

std::uint16_t SampleServer::Port() const {
    return impl_->Port();
}

Deployment SampleServer::Told(Deployment deployment) const {
    const std::string host = fmt::format("{}:{}", kLoopback, Port());
    deployment.siteRoot = fmt::format("http://{}/", host);
    deployment.storeRoot = fmt::format("http://{}/store/", host);
    deployment.downloadRoot = fmt::format("http://{}{}", host, kDownloadPath);
    deployment.weatherHost = host;
    return deployment;
}

}  // namespace quorvi::site
