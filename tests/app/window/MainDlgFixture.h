// The main window on doubles, with probes for pages.
#pragma once

#include <utility>
#include <vector>

#include "tests/support/MainDoubles.h"
#include "tests/support/WidgetTest.h"
#include "tests/support/WindowDriver.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"

namespace quorvi {

// A page that notes what it is told.
class ProbePage : public Page {
  public:
    int loads = 0;
    std::vector<int> commands;
    std::vector<std::pair<Message, int>> messages;
    QStringList drops;
    QStringList searches;
    int loadKey = PageRow::kNoKey;

    using Page::Page;
    void Load() override {
        ++loads;
        if (loadKey != PageRow::kNoKey) {
            Host().LoadState().Set(loadKey, PageLoadState::kEnded);
        }
    }
    void RunCommand(int index) override { commands.push_back(index); }
    void OnMessage(Message message, int, int second) override {
        messages.emplace_back(message, second);
    }
    void OnDropFiles(const QStringList& paths) override { drops += paths; }
    void OnSearch(const QString& text) override { searches.append(text); }
};

// Every feature page is a probe.
[[nodiscard]] inline PageMakers ProbePages() {
    PageMakers makers;
    for (const PageRow& row : kPages) {
        if (row.role == PageRole::feature) {
            makers[row.dialog] = [&row](PageHost& host, const Services&, QWidget* parent) {
                auto* page = new ProbePage(host, row.dialog, parent);
                page->loadKey = row.loadKey;
                return page;
            };
        }
    }
    return makers;
}

[[nodiscard]] inline ProbePage& ProbeOf(const CMainDlg& window, int page) {
    return dynamic_cast<ProbePage&>(*window.PageOfDialog(FindPage(page)->dialog));
}

class MainDlgTest : public WidgetTest, protected MainDoubles {
  protected:
    template <typename Window = CMainDlg>
    Window& MakeWindow(bool hidden = false) {
        Window& made = MakeWindowOf<Window>(ProbePages(), hidden);
        Settle();
        return made;
    }

    [[nodiscard]] ProbePage& Probe(int page) const { return ProbeOf(*window_, page); }
    void Send(Message message, int first = 0, int second = 0) {
        window_->Post(message, first, second);
        Settle();
    }
    // The dialog numbers of the pages that can be seen.
    [[nodiscard]] std::vector<int> VisiblePages() const {
        std::vector<int> dialogs;
        const auto pages = window_->findChildren<Page*>();
        for (const Page* page : pages) {
            if (page->isVisibleTo(window_.get())) {
                dialogs.push_back(page->objectName().section(QLatin1Char(' '), 1).toInt());
            }
        }
        return dialogs;
    }
    template <typename Control = QWidget>
    [[nodiscard]] Control& Find(int control) const {
        return *FindControl<Control>(window_.get(), control);
    }
    void Click(int control) {
        ClickOn(Find(control));
        Settle();
    }
    [[nodiscard]] QString StatusText() const { return StatusOf(*window_); }
    [[nodiscard]] QString BannerText() const { return BannerOf(*window_); }
};

}  // namespace quorvi
