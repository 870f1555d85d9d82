#include "pages/screen/ScreenshotPage.h"

#include <QDrag>
#include <QHBoxLayout>
#include <QShortcut>
#include <utility>

#include "link/DeviceContext.h"
#include "pages/screen/SavePlace.h"
#include "pages/screen/ScreenOptions.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"
#include "ui/page/PageKeys.h"

namespace quorvi {

using look::Metric;

namespace {

std::tm TheLocalTime() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return local;
}

}  // namespace

CScreenshotPage::CScreenshotPage(PageHost& host, const Services& services, ScreenMeans means,
                                 QWidget* parent)
    : Page(host, kNumbers.dialog, parent),
      adb_(means.adb),
      stall_(means.stall),
      places_(std::move(means.places)),
      now_(means.now ? std::move(means.now) : TheLocalTime),
      device_(services.device),
      load_(*this, host.LoadState(), kNumbers.loadKey),
      autoLoad_(*this),
      said_(host),
      picture_(SetControlNumber(new ScreenCaptureCtrl(this), kPicture)),
      options_(new ScreenOptions(this)),
      saves_(new PictureSaves(host, said_, *this, places_, now_)) {
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(Metric::gap3);
    layout->addWidget(picture_, 1);
    layout->addWidget(options_, 0, Qt::AlignTop);
    connect(options_, &ScreenOptions::rotationChanged, this, &CScreenshotPage::Refresh);
    connect(options_, &ScreenOptions::autoRefreshClicked, this, [this](bool on) {
        picture_->SetAutoRefresh(on);
        CaptureForAutoRefresh(picture_->ShownRotation());
    });
    connect(picture_, &ScreenCaptureCtrl::refreshDue, this,
            &CScreenshotPage::CaptureForAutoRefresh);
    HeedKeys(*this, {.refresh = [this] { Refresh(); }});
    // Wherever in the window the keys are, but for a field that has a text to copy.
    connect(new QShortcut(QKeySequence::Copy, this), &QShortcut::activated, this,
            &CScreenshotPage::Copy);
    connect(picture_, &ScreenCaptureCtrl::dragged, this, &CScreenshotPage::Drag);
    picture_->SetObserver(this);
    picture_->SetReady();
}

CScreenshotPage::~CScreenshotPage() {
    picture_->SetObserver(nullptr);
}

bool CScreenshotPage::IsAtWork() const {
    return load_.Running() || autoLoad_.Running() || saves_->AtWork();
}

void CScreenshotPage::RunCommand(int index) {
    switch (index) {
        case commandRefresh:
            Refresh();
            break;
        case commandSave:
            Save();
            break;
        case commandChooseFolder:
            saves_->ChooseFolder();
            break;
        case commandOpenFolder:
            saves_->OpenFolder();
            break;
        default:
            break;
    }
}

void CScreenshotPage::OnMessage(Message message, int /*first*/, int /*second*/) {
    if (message == Message::startCapture) {
        Refresh();
    }
}

// ---- capturing ---------------------------------------------------------------------------------

void CScreenshotPage::Refresh() {
    load_.Start(
        [this] {
            options_->LockRotation();
            picture_->SetState(ListState::loading);
        },
        CaptureOf(options_->ChosenRotation()),
        [this](Captured&& captured) {
            options_->UnlockRotation();
            picture_->SetState(Show(std::move(captured)));
        });
}

// What auto refresh asks for goes beside the other captures, and PageLoadState knows nothing of it.
// It has a worker of its own all the same: a phone that does not answer would hold up the window.
// One that runs already is enough, since its picture asks for the next. One that fails asks for no
// other: kept on purpose (ScreenshotPage.AutoRefreshEndsWithACaptureThatFails).
void CScreenshotPage::CaptureForAutoRefresh(Rotation rotation) {
    autoLoad_.Start(CaptureOf(rotation), [this](Captured&& captured) {
        const ListState state = Show(std::move(captured));
        picture_->SetState(load_.Running() ? ListState::loading : state);
    });
}

// What a worker does: reads the screen of the phone that is chosen then, and turns it.
std::function<CScreenshotPage::Captured()> CScreenshotPage::CaptureOf(Rotation rotation) const {
    return [adb = adb_, stall = stall_, &device = device_, rotation,
            room = picture_->RoomFor(rotation)] {
        Capture capture = CaptureScreen(adb, device.Serial(), stall, room);
        Captured captured{capture.fault, {}};
        if (capture.frame) {
            captured.picture =
                PictureOf(*std::move(capture.frame), rotation, std::move(capture.reduced));
        }
        return captured;
    };
}

ListState CScreenshotPage::Show(Captured&& captured) {
    if (captured.picture) {
        copy_.reset();
        said_.TakeBack();
        picture_->Show(*std::move(captured.picture));
        return ListState::idle;
    }
    const QString why = ToQString(CaptureFaultText(captured.fault));
    said_.Say(ToQString(u8"【X】") + why);
    picture_->SetFailedText(why);
    return ListState::failed;
}

void CScreenshotPage::OnScreenSize(int width, int height) {
    options_->ShowScreenSize(width, height);
}

// ---- what becomes of the picture ---------------------------------------------------------------

void CScreenshotPage::Save() {
    if (!picture_->Picture()) {
        return;
    }
    const SaveWish wish{*picture_->Picture(), options_->FormatIndex(), options_->QualityIndex()};
    if (options_->SavesWithoutAsking()) {
        saves_->SaveAtOnce(wish);
    } else {
        saves_->AskAndSave(wish);
    }
}

void CScreenshotPage::Copy() {
    if (picture_->Picture()) {
        picture_->Copy();
        said_.Say(ToQString(u8"截图已复制，可以粘贴到别的程序里"));
    }
}

void CScreenshotPage::Drag() {
    if (!picture_->Picture()) {
        return;
    }
    if (!copy_) {
        copy_.emplace(*picture_->Picture(), BatchName(now_(), SaveFormat::png), places_);
    }
    auto* drag = new QDrag(picture_);
    drag->setMimeData(new DraggedPicture(*copy_));
    drag->setPixmap(picture_->DragPixmap());
    drag->exec(Qt::CopyAction);
}

}  // namespace quorvi
