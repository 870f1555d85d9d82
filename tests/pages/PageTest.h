// What a page's test needs: a main window that keeps what it is told, and a way to let the window's
// thread run.
#pragma once

#include <gtest/gtest.h>

#include <QDeadlineTimer>
#include <QStringList>
#include <QTest>
#include <functional>
#include <map>
#include <tuple>
#include <vector>

#include "base/SettingsStore.h"
#include "ui/Page.h"

namespace quorvi {

// Settings in memory. Not for several threads.
class MemorySettings : public SettingsStore {
  public:
    using Place = std::pair<std::string, std::string>;

    std::optional<std::string> ReadText(std::string_view key,
                                        std::string_view name) const override {
        return Find(texts, key, name);
    }
    std::optional<std::uint32_t> ReadNumber(std::string_view key,
                                            std::string_view name) const override {
        return Find(numbers, key, name);
    }
    bool WriteText(std::string_view key, std::string_view name, std::string_view text) override {
        texts[Place(key, name)] = text;
        return true;
    }
    bool WriteNumber(std::string_view key, std::string_view name, std::uint32_t value) override {
        numbers[Place(key, name)] = value;
        return true;
    }
    void Delete(std::string_view key, std::string_view name) override {
        texts.erase(Place(key, name));
        numbers.erase(Place(key, name));
    }

    std::map<Place, std::string> texts;
    std::map<Place, std::uint32_t> numbers;

  private:
    template <typename Value>
    static std::optional<Value> Find(const std::map<Place, Value>& values, std::string_view key,
                                     std::string_view name) {
        const auto found = values.find(Place(key, name));
        return found == values.end() ? std::nullopt : std::optional(found->second);
    }
};

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
    void SetTaskCount(int tasks) override { taskCount = tasks; }
    PageLoadState& LoadState() override { return loadState; }
    PageSelection& Selection() override { return selection; }
    SettingsStore& Settings() override { return settings; }

    QStringList statuses;
    QStringList balloons;
    std::vector<Posted> posted;
    int taskCount = 0;
    PageLoadState loadState;
    PageSelection selection;
    MemorySettings settings;
};

class PageTest : public testing::Test {
  protected:
    static constexpr int kPatience = 30'000;  // ms: the machine may be busy

    // Runs the window's thread until `met` holds; false when it does not in good time.
    [[nodiscard]] static bool WaitFor(const std::function<bool()>& met) {
        const QDeadlineTimer patience(kPatience);
        while (!met()) {
            if (patience.hasExpired()) {
                return false;
            }
            QTest::qWait(2);
        }
        return true;
    }

    FakeHost host_;
};

}  // namespace quorvi
