#include "pages/files/FilePage.h"

#include <QVBoxLayout>
#include <array>
#include <utility>

#include "pages/kit/CountLine.h"
#include "pages/kit/PageSession.h"
#include "pages/kit/ViewSentences.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"
#include "ui/kit/SkinButtons.h"
#include "ui/list/ListFind.h"
#include "ui/page/PageKeys.h"

namespace quorvi {

using look::Metric;

namespace {

constexpr int kList = 1091;
constexpr int kUp = 1048;

struct HiddenButton {
    int number;
    std::u8string_view caption;
};
constexpr std::array<HiddenButton, 10> kHiddenButtons{{
    {1047, u8"刷新"},
    {1092, u8"复制"},
    {1093, u8"剪切"},
    {1094, u8"粘贴"},
    {1095, u8"重命名"},
    {1050, u8"属性"},
    {1049, u8"删除"},
    {1053, u8"新建"},
    {10600, u8"搜索"},
    {1124, u8"位置"},
}};

}  // namespace

CFilePage::CFilePage(PageHost& host, const Services& services, QWidget* parent)
    : Page(host, kNumbers.dialog, parent),
      agent_(services.agent),
      list_(new CFileListCtrl(this)),
      rootLoad_(*this, host.LoadState(), kNumbers.loadKey),
      folderLoad_(*this) {
    SetControlNumber(list_, kList, ToQString(u8"文件"));
    ShowCount(*this, *list_);
    list_->EnableFind();
    SayWhenEmpty(*list_, u8"这个文件夹里没有文件");
    SayWhenFailed(*list_, u8"转到根目录");
    HeedKeys(*this, {.refresh = [this] { ShowAgain(); }});
    auto* up = SetControlNumber(
        new CFlatImageButton(ToQString(u8"向上"), QStringLiteral("up"), this), kUp);
    MakeHiddenButtons();

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(Metric::formGap);
    layout->addWidget(up, 0, Qt::AlignLeft);
    layout->addWidget(list_);
    setTabOrder(up, list_);

    connect(up, &QPushButton::clicked, this, &CFilePage::ShowParent);
    connect(list_, &CSkinListCtrl::rowOpened, this, &CFilePage::Open);
}

// The tool bar of what may once be done with files: laid out, and not to be used.
void CFilePage::MakeHiddenButtons() {
    for (const HiddenButton& button : kHiddenButtons) {
        SetControlNumber(new CFlatImageButton(ToQString(button.caption), {}, this), button.number)
            ->hide();
    }
}

void CFilePage::RunCommand(int index) {
    if (index == commandRoot) {
        ShowRoot();
    }
}

void CFilePage::showEvent(QShowEvent* event) {
    Page::showEvent(event);
    if (event->spontaneous()) {
        return;  // the window was brought back: no visit of the page
    }
    PostToWindow(this, [this] {  // the window then has given the page its focus
        if (isVisible() && Host().LoadState().Value(kNumbers.loadKey) == PageLoadState::kRunning) {
            ShowRoot();
        }
    });
}

void CFilePage::Open(int row) {
    // The second click of a double click may fall into a list that came between the two: in it no
    // row is selected.
    if (row != list_->CurrentRow()) {
        return;
    }
    if (const FileRecord& record = list_->At(row); record.isFolder) {
        ShowDirectory(std::string(record.path));  // the load clears the record away
    }
}

void CFilePage::ShowRoot() {
    if (!isEnabled()) {
        return;  // a folder is on its way
    }
    asked_.reset();
    rootLoad_.Start([this] { BeginLoad(); },
                    [list = list_, agent = agent_](const LoadProgress& progress) {
                        FileReply reply =
                            FetchFileRoots(AgentSession(agent), ProgressTo(progress, list));
                        FileIcons::Prepare();
                        return reply;
                    },
                    [this](FileReply&& reply) { return EndLoad(std::move(reply)); });
}

void CFilePage::ShowDirectory(const std::string& path) {
    if (!isEnabled()) {
        return;
    }
    asked_ = path;
    folderLoad_.Start([this] { BeginLoad(); },
                      [list = list_, agent = agent_, path](const LoadProgress& progress) {
                          FileReply reply =
                              FetchDirectory(AgentSession(agent), path, ProgressTo(progress, list));
                          FileIcons::Prepare();
                          return reply;
                      },
                      [this](FileReply&& reply) { return EndLoad(std::move(reply)); });
}

void CFilePage::ShowAgain() {
    if (asked_) {
        ShowDirectory(std::string(*asked_));
    } else {
        ShowRoot();
    }
}

void CFilePage::BeginLoad() {
    list_->Find()->Close();  // what was looked for was looked for in that folder
    focus_.emplace(*this);
    setEnabled(false);
    list_->Clear();
    list_->SetRedraw(false);
    list_->SetState(ListState::loading);
}

LoadEnd CFilePage::EndLoad(FileReply reply) {
    const bool connected = reply.outcome != SessionOutcome::connectFailed;
    ShowLoadOutcome(Host(), reply.outcome);
    if (reply.list.header) {
        parentPath_ = std::move(reply.list.header->parentPath);
        parentFlag_ = reply.list.header->parentFlag;
    }
    list_->SetState(connected ? ListState::idle : ListState::failed);
    list_->SetRecords(std::move(reply.list.rows));
    // No reply, or one without anything in it, ends the exchange early.
    const bool endsEarly = connected && !HasPayload(reply.outcome);
    if (!endsEarly) {
        list_->SetRedraw(true);
    }
    setEnabled(true);
    focus_->GiveBack();
    focus_.reset();
    return endsEarly ? LoadEnd::keyRunning : LoadEnd::ended;
}

}  // namespace quorvi
