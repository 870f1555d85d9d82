// A main window that keeps what its pages tell it.
#pragma once

#include <QStringList>
#include <tuple>
#include <vector>

#include "tests/support/MemorySettings.h"
#include "ui/kit/QtText.h"
#include "ui/page/Page.h"

namespace quorvi {

class FakeHost : public PageHost {
  public:
    using Posted = std::tuple<Message, int, int>;

    void SetStatus(const QString& text) override {
        statuses.append(text);
        status = text;
    }
    void TakeBackStatus(const QString& text) override {
        if (status == text) {
            status = ToQString(u8"就绪");
        }
    }
    void Post(Message message, int first, int second) override {
        posted.emplace_back(message, first, second);
    }
    void ShowBalloon(const QString& title, const QString& text) override {
        balloons.append(title + QLatin1Char('|') + text);
    }
    PageLoadState& LoadState() override { return loadState; }
    PageSelection& Selection() override { return selection; }
    SettingsStore& Settings() override { return settings; }

    QStringList statuses;                  // all that were set, in their order
    QString status = ToQString(u8"就绪");  // what the StatusLabel shows
    QStringList balloons;
    std::vector<Posted> posted;
    PageLoadState loadState;
    PageSelection selection;
    MemorySettings settings;
};

}  // namespace quorvi
