// A main window that keeps what its pages tell it.
#pragma once

#include <QStringList>
#include <tuple>
#include <vector>

#include "tests/support/MemorySettings.h"
#include "ui/page/Page.h"

namespace quorvi {

class FakeHost : public PageHost {
  public:
    using Posted = std::tuple<Message, int, int>;

    void SetStatus(const QString& text) override { statuses.append(text); }
    void Post(Message message, int first, int second) override {
        posted.emplace_back(message, first, second);
    }
    void ShowBalloon(const QString& title, const QString& text) override {
        balloons.append(title + QLatin1Char('|') + text);
    }
    PageLoadState& LoadState() override { return loadState; }
    PageSelection& Selection() override { return selection; }
    SettingsStore& Settings() override { return settings; }

    QStringList statuses;
    QStringList balloons;
    std::vector<Posted> posted;
    PageLoadState loadState;
    PageSelection selection;
    MemorySettings settings;
};

}  // namespace quorvi
