#include "app/window/WindowLinkFace.h"

#include <future>

#include "app/window/MainDlg.h"
#include "ui/kit/QtText.h"
#include "ui/page/Job.h"

namespace quorvi {

WindowLinkFace::WindowLinkFace(CMainDlg& window) : guard_(&window), window_(&window) {}

void WindowLinkFace::ShowBanner(std::string text, BannerState state) {
    PostToWindow(guard_, [window = window_, text = std::move(text), state] {
        window->Link().ShowBanner(ToQString(text), state);
    });
}

void WindowLinkFace::ChooseDevice(std::string_view title) {
    auto chosen = std::make_shared<std::promise<void>>();
    const std::future<void> done = chosen->get_future();
    // A post to a window that is gone drops the promise, which ends the wait as well.
    PostToWindow(guard_,
                 [window = window_, title = std::string(title), chosen = std::move(chosen)] {
                     window->RunDeviceManager(ToQString(title), [chosen] { chosen->set_value(); });
                 });
    done.wait();
}

void WindowLinkFace::Searched(FindDeviceResult result) {
    PostToWindow(guard_, [window = window_, result] { window->Link().Searched(result); });
}

void WindowLinkFace::LinkUp() {
    PostToWindow(guard_, [window = window_] { window->Link().LinkUp(); });
}

void WindowLinkFace::LinkEnded() {
    PostToWindow(guard_, [window = window_] { window->Link().LinkEnded(); });
}

}  // namespace quorvi
