#include "pages/kit/KeptColumns.h"

#include <QEvent>
#include <mutex>
#include <utility>

#include "ui/page/Job.h"

namespace quorvi {
namespace {

// Shared by the list's keeper and its jobs, of which the last one writes the last widths, in
// whichever order they come to it.
struct Kept {
    SettingsStore& settings;
    const std::string name;
    std::mutex mutex{};
    std::string text{};
};

class Keeper : public QObject {
  public:
    Keeper(CSkinListCtrl& list, SettingsStore& settings, std::string name)
        : QObject(&list), list_(list), kept_(new Kept{settings, std::move(name)}) {
        list.installEventFilter(this);
        connect(&list, &CSkinListCtrl::columnsDragged, this, &Keeper::Keep);
    }

  protected:
    bool eventFilter(QObject* object, QEvent* event) override {
        if (object == &list_ && event->type() == QEvent::Show) {
            list_.removeEventFilter(this);
            if (const auto text = kept_->settings.ReadText(kSettingsKey, kept_->name);
                text && list_.Widths().Read(*text)) {
                list_.LayColumns();
            }
        }
        return QObject::eventFilter(object, event);
    }

  private:
    void Keep() {
        {
            const std::lock_guard lock(kept_->mutex);
            kept_->text = list_.Widths().Text();
        }
        RunJob(
            this,
            [kept = kept_] {
                const std::lock_guard lock(kept->mutex);
                if (kept->text.empty()) {
                    kept->settings.Delete(kSettingsKey, kept->name);
                } else {
                    kept->settings.WriteText(kSettingsKey, kept->name, kept->text);
                }
                return true;
            },
            [](bool) {});
    }

    CSkinListCtrl& list_;
    std::shared_ptr<Kept> kept_;
};

}  // namespace

void KeepColumns(CSkinListCtrl& list, SettingsStore& settings, std::string name) {
    new Keeper(list, settings, std::move(name));
}

void KeepColumnsOf(const QWidget& dialog, SettingsStore& settings) {
    for (CSkinListCtrl* list : dialog.findChildren<CSkinListCtrl*>()) {
        KeepColumns(*list, settings, ColumnsName(dialog, *list));
    }
}

std::string ColumnsName(const QWidget& dialog, const CSkinListCtrl& list) {
    return "columns_" + dialog.objectName().section(QLatin1Char(' '), -1).toStdString() + "_" +
           list.objectName().toStdString();
}

}  // namespace quorvi
