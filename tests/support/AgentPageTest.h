// What the tests of a page with a load key share: the page, and an agent that answers it as the
// test says.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "tests/support/PageTest.h"
#include "tests/support/ScriptedAgent.h"

namespace quorvi {

// Of a page whose load is one `kList`.
template <typename P, AgentCommand kList>
class AgentPageTest : public PageTest {
  protected:
    // Makes the page, not shown and not loaded.
    P& MakeAt(std::uint16_t port) {
        page_ = std::make_unique<P>(host_, services_.At(port));
        page_->resize(760, 462);
        return *page_;
    }

    std::optional<int> Key() { return host_.loadState.Value(P::kNumbers.loadKey); }
    std::size_t Loads() { return agent_.Requests(kList).size(); }
    void WaitForLoads(std::size_t count) {
        ASSERT_TRUE(WaitFor([&] { return Loads() == count && Key() == PageLoadState::kEnded; }));
    }
    // Loads, lets the page go while the phone holds its reply, and waits until the worker has ended
    // and what it handed over has been dropped: the load never comes to its end.
    void GoWhileThePhoneStalls() {
        agent_.Hold(kList);
        MakeAt(agent_.Port()).Load();
        ASSERT_TRUE(WaitFor([&] { return Loads() == 1; }));
        page_.reset();
        ASSERT_EQ(Key(), PageLoadState::kRunning);
        agent_.Release();
        Settle();
        EXPECT_EQ(Key(), PageLoadState::kRunning);
        EXPECT_TRUE(host_.statuses.isEmpty());
    }

    ScriptedAgent agent_;
    std::unique_ptr<P> page_;
};

}  // namespace quorvi
