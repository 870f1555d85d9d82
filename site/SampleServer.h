// The sample site: a store, its downloads, and the services that the suite asks, on one port of
// 127.0.0.1. Start here to have one inside a test:
//
//   SampleServer site;
//   ASSERT_EQ(site.Start(), "");
//   FetchVersionNews(site.Told({}));
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "base/Deployment.h"

namespace quorvi::site {

struct ServerOptions {
    std::uint16_t port = 0;  // 0: any free one
    // How fast a download goes, so that it can be seen; 0: as fast as it is taken.
    std::uint32_t kilobytesASecond = 0;
    // Is told each request that was answered, in a line of ASCII; on any thread.
    std::function<void(const std::string& line)> log = nullptr;
};

// Answers on threads of its own until the object goes, which ends the downloads, too. Its users see
// to it that no two threads use the object at once.
class SampleServer {
  public:
    explicit SampleServer(ServerOptions options = {});
    ~SampleServer();
    SampleServer(const SampleServer&) = delete;
    SampleServer& operator=(const SampleServer&) = delete;

    // Empty, or why it doesn't listen. Once it has returned, requests are answered. Called once.
    [[nodiscard]] std::string Start();

    // Behind Start.
    [[nodiscard]] std::uint16_t Port() const;
    // With this site in the place of the deployment's own.
    [[nodiscard]] Deployment Told(Deployment deployment) const;

  private:
    class Impl;
    std::unique_ptr<Impl> impl_;
};

}  // namespace quorvi::site
