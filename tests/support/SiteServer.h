// The suite's site for tests: a real nginx on a free port of 127.0.0.1, in a folder of its own.
#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/Process.h"
#include "tests/support/TemporaryFolder.h"

namespace quorvi {

// What the server has noted of a request, once it was answered.
struct SiteRequest {
    std::string line;  // POST /feedback/apk_list.php HTTP/1.1
    std::string contentType;
    std::string accept;
    std::string body;
    std::string range;
};

// Serves files, to GET and POST alike. Runs until the object goes. Throws where no server starts.
class SiteServer {
  public:
    // `locations` is configuration of the server's own for some of its paths, in which FILES stands
    // for the folder of what Serve puts there.
    explicit SiteServer(std::string_view locations = {});

    // http://127.0.0.1:PORT/
    [[nodiscard]] std::string Root() const;

    // What it answers for a path below the root, given without its leading slash.
    void Serve(std::string_view path, std::string_view content) const;
    // Where those files are.
    [[nodiscard]] std::filesystem::path Files() const;
    // The path leads to another place, by status 301 with a body of the server's own.
    static constexpr std::string_view kMovedPath = "moved/away.php";

    // Waits until `count` requests have been answered, and gives all: those among them whose
    // answers have arrived.
    [[nodiscard]] std::vector<SiteRequest> Requests(std::size_t count) const;

  private:
    bool Start();
    [[nodiscard]] bool Answers() const;

    TemporaryFolder folder_;
    std::string locations_;
    std::uint16_t port_ = 0;
    std::unique_ptr<e2e::Process> server_;
};

}  // namespace quorvi
