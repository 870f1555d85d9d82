#include "app/window/PageStack.h"

#include <QGridLayout>
#include <algorithm>

#include "app/window/PlaceholderPage.h"
#include "pages/kit/KeptColumns.h"
#include "ui/list/SkinListCtrl.h"

namespace quorvi {
namespace {

// Where the keys go when a page comes to be shown.
QWidget& FirstStop(Page& page) {
    if (!page.isEnabled()) {
        return *page.window();  // a change is on its way to the phone
    }
    const auto takesKeys = [&](const QWidget& control) {
        return control.isVisibleTo(&page) && control.isEnabled();
    };
    const auto lists = page.findChildren<CSkinListCtrl*>();
    const auto list = std::ranges::find_if(lists, takesKeys,
                                           [](CSkinListCtrl* each) -> QWidget& { return *each; });
    if (list != lists.end()) {
        return **list;
    }
    for (QWidget* next = page.nextInFocusChain(); next != &page; next = next->nextInFocusChain()) {
        if (page.isAncestorOf(next) && (next->focusPolicy() & Qt::TabFocus) != 0 &&
            takesKeys(*next)) {
            return *next;
        }
    }
    return page;
}

}  // namespace

PageStack::PageStack(QWidget& frame) : frame_(frame), layout_(new QGridLayout(&frame)) {
    layout_->setContentsMargins({});
}

void PageStack::Build(const PageMakers& makers, PageHost& host, const Services& services) {
    for (const PageRow& row : kPages) {
        if (!pages_.contains(row.dialog)) {
            pages_[row.dialog] = MakePageOf(row, makers, host, services, &frame_);
        }
    }
    pages_[kDialogNeverShown] = MakeAnnouncement(host, kDialogNeverShown, &frame_);
    for (const auto& [dialog, page] : pages_) {
        KeepColumnsOf(*page, host.Settings());
        page->hide();
        layout_->addWidget(page, 0, 0);
    }
    FillFrame();
}

void PageStack::Show(const PageRow& row) {
    const bool first = shown_ == nullptr;
    shown_ = pages_.at(row.dialog);
    shown_->setGeometry(frame_.rect());
    shown_->show();
    if (!first) {
        // Before the others hide: Qt would hand on the focus of one that hides.
        FirstStop(*shown_).setFocus();
    }
    for (const auto& [dialog, page] : pages_) {
        if (page != shown_) {
            page->hide();
        }
    }
}

bool PageStack::IsBuilt(const PageRow& row) const {
    return qobject_cast<PlaceholderPage*>(pages_.at(row.dialog)) == nullptr;
}

void PageStack::LoadAtFirstShow(const PageRow& row, PageLoadState& loads) {
    if (row.loadKey != PageRow::kNoKey && !loads.Contains(row.loadKey)) {
        pages_.at(row.dialog)->Load();
    }
}

void PageStack::RunCommand(const PageRow& row, int index) {
    Page& page = *pages_.at(row.dialog);
    if (index < 0 || index >= static_cast<int>(kCommandCount)) {
        return;
    }
    switch (row.commands[static_cast<std::size_t>(index)].action) {
        case CommandAction::none:
            break;
        case CommandAction::load:
            if (page.isEnabled()) {  // as with the commands of its own
                page.Load();
            }
            break;
        case CommandAction::own:
            page.OnCommand(index);
            break;
    }
}

void PageStack::FillFrame() {
    for (const auto& [dialog, page] : pages_) {
        page->setGeometry(frame_.rect());
    }
}

Page& PageStack::PageOf(const PageNumbers& page) const {
    return *pages_.at(page.dialog);
}

Page* PageStack::PageOfDialog(int dialog) const {
    const auto found = pages_.find(dialog);
    return found == pages_.end() ? nullptr : found->second;
}

}  // namespace quorvi
