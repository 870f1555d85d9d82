#include "tests/support/SiteServer.h"

#include <fmt/format.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <span>
#include <stdexcept>
#include <thread>

#include "base/Json.h"
#include "base/Text.h"
#include "tests/support/LoopbackPort.h"

namespace quorvi {
namespace {

constexpr int kStarts = 10;  // somebody may take the free port first
constexpr std::chrono::seconds kPatience{20};
constexpr std::chrono::milliseconds kPause{5};

constexpr std::string_view kFiles = "files";
constexpr std::string_view kLog = "requests.log";
constexpr std::string_view kOwnPath = "who-is-there";

// nginx gives a file for GET alone, and notes a body only where it hands it on: so the outer server
// hands every request on to the inner one, which answers a POST like a GET.
constexpr std::string_view kConfiguration = R"(
daemon off;
master_process off;
pid {folder}/pid;
error_log {folder}/error.log;
events {{ worker_connections 64; }}
http {{
  access_log off;
  client_body_temp_path {folder}/body;
  proxy_temp_path {folder}/proxy;
  fastcgi_temp_path {folder}/fastcgi;
  uwsgi_temp_path {folder}/uwsgi;
  scgi_temp_path {folder}/scgi;
  client_body_buffer_size 1m;
  client_max_body_size 64m;
  log_format requests escape=json
    '{{"line":"$request","type":"$http_content_type","accept":"$http_accept","body":"$request_body","range":"$http_range"}}';
  server {{
    listen 127.0.0.1:{port};
    access_log {folder}/{log} requests;
    {locations}
    location / {{ proxy_pass http://unix:{folder}/inner:; }}
    location = /{moved} {{ return 301 http://127.0.0.1:{port}/elsewhere.txt; }}
    location = /{own} {{ access_log off; return 200 '{folder}'; }}
  }}
  server {{
    listen unix:{folder}/inner;
    root {folder}/{files};
    default_type text/plain;
    error_page 405 =200 $uri;
  }}
}}
)";

}  // namespace

SiteServer::SiteServer(std::string_view locations)
    : locations_(ReplaceAll(locations, "FILES", Files().native())) {
    std::filesystem::create_directories(Files());
    for (int i = 0; i < kStarts; ++i) {
        if (Start()) {
            return;
        }
    }
    throw std::runtime_error("nginx does not start");
}

bool SiteServer::Start() {
    port_ = PortOf(ListenOn(0));
    const std::string configuration = folder_.Path() / "nginx.conf";
    std::ofstream(configuration) << fmt::format(
        kConfiguration, fmt::arg("folder", folder_.Path().native()), fmt::arg("port", port_),
        fmt::arg("log", kLog), fmt::arg("moved", kMovedPath), fmt::arg("own", kOwnPath),
        fmt::arg("files", kFiles), fmt::arg("locations", locations_));
    std::filesystem::remove(folder_.Path() / "inner");
    server_ = std::make_unique<e2e::Process>(
        std::vector<std::string>{"nginx", "-p", folder_.Path(), "-c", configuration},
        (folder_.Path() / "output").native());
    const auto until = std::chrono::steady_clock::now() + kPatience;
    while (std::chrono::steady_clock::now() < until && server_->IsRunning()) {
        if (Answers()) {
            return true;
        }
        std::this_thread::sleep_for(kPause);
    }
    return false;
}

// Whether it is this server that listens there.
bool SiteServer::Answers() const {
    const TcpSocket socket = TcpSocket::Connect(port_);
    if (!socket.IsOpen()) {
        return false;
    }
    const std::string request = fmt::format("GET /{} HTTP/1.0\r\n\r\n", kOwnPath);
    socket.Send(std::as_bytes(std::span(request)));
    std::string answer;
    std::array<std::byte, 1024> piece{};
    for (;;) {
        const auto received = socket.Receive(piece);
        if (received <= 0) {
            break;
        }
        answer.append(reinterpret_cast<const char*>(piece.data()),
                      static_cast<std::size_t>(received));
    }
    return answer.find(folder_.Path().native()) != std::string::npos;
}

std::string SiteServer::Root() const {
    return fmt::format("http://127.0.0.1:{}/", port_);
}

std::filesystem::path SiteServer::Files() const {
    return folder_.Path() / kFiles;
}

void SiteServer::Serve(std::string_view path, std::string_view content) const {
    const std::filesystem::path file = Files() / path;
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << content;
}

std::vector<SiteRequest> SiteServer::Requests(std::size_t count) const {
    const auto until = std::chrono::steady_clock::now() + kPatience;
    for (;;) {
        // The server notes a request once its answer is out, and does one thing at a time: with the
        // next answer the note of the one before is there.
        static_cast<void>(Answers());
        std::vector<SiteRequest> requests;
        std::ifstream log(folder_.Path() / kLog);
        for (std::string line; std::getline(log, line);) {
            const auto noted = ParseJson(line);
            if (!noted) {
                break;  // half written
            }
            requests.push_back({(*noted)["line"].asString(), (*noted)["type"].asString(),
                                (*noted)["accept"].asString(), (*noted)["body"].asString(),
                                (*noted)["range"].asString()});
        }
        if (requests.size() >= count || std::chrono::steady_clock::now() >= until) {
            return requests;
        }
        std::this_thread::sleep_for(kPause);
    }
}

}  // namespace quorvi
