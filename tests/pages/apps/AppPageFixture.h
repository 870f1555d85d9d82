// What the tests of the applications' page share: a phone with three applications, a site, and adb.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "pages/apps/AppPage.h"
#include "tests/pages/apps/AppReplies.h"
#include "tests/support/AgentPageTest.h"
#include "tests/support/ControlDriver.h"
#include "tests/support/FakeAdb.h"
#include "tests/support/LoopbackAgent.h"
#include "tests/support/ScriptedSite.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/QtText.h"

namespace quorvi {

enum AppColumn {
    columnIcon,
    columnName,
    columnCategory,
    columnRating,
    columnVersion,
    columnHint,
    columnInstalled,
    columnTick
};

// The reply of command 870002.
inline Bytes IdentityPayload(std::uint32_t client, std::uint32_t api, const std::string& model) {
    return WireBytes()
        .U32(0)       // leading word
        .U32(client)  // version of the agent
        .U32(api)     // API level of the phone
        .Text(model)
        .Get();
}

class AppPageTest : public AgentPageTest<CAppPage, AgentCommand::listApplications> {
  protected:
    // Says that anything is gone, but for com.fails; com.stuck does not end by itself.
    explicit AppPageTest(
        const char* adbScript =
            "if [ \"$2\" = com.stuck ]; then echo $$ > \"$dir/stuck\"; await never; fi\n"
            "if [ \"$2\" = com.fails ]; then echo Failure; else echo Success; fi")
        : adb_(adbScript) {}

    void SetUp() override {
        ListApps({{.name = "掌上词典", .package = "com.a", .version = "2.1.0"},
                  {.name = "简记便签", .package = "com.b", .icon = "", .installed = 0},
                  {.name = "星图天气", .package = "com.c", .size = (1ULL << 32) + 532}});
        agent_.AnswerPayload(AgentCommand::deviceSummary, IdentityPayload(7, 10, "HTC Desire"));
        agent_.AnswerAcknowledged(AgentCommand::runApplication);
        site_.AnswerPage("[]");
    }
    void ListApps(const std::vector<ListedApp>& apps) {
        agent_.AnswerPayload(AgentCommand::listApplications, AppsPayload(apps).Get());
    }

    CAppPage& OpenAt(std::uint16_t port) {
        services_.deployment.siteRoot = site_.Root();
        page_ = std::make_unique<CAppPage>(host_, services_.At(port), nullptr, adb_.Environment());
        page_->resize(760, 462);
        page_->show();
        return *page_;
    }
    // Loads, and waits until the site has answered and what it said is shown.
    CAppPage& OpenLoaded() {
        OpenAt(agent_.Port()).Load();
        Settle();
        return *page_;
    }
    void LoadAgain() {
        page_->Load();
        Settle();
    }

    AppListCtrl& List() { return *page_->findChild<AppListCtrl*>(); }
    Cell At(int row, int column) { return List().CellAt(row, column); }
    QString Shown(int row, int column) { return At(row, column).text; }
    QString Spoken(int row, int column) {
        return List().model()->index(row, column).data(Qt::AccessibleTextRole).toString();
    }
    std::size_t Identified() { return agent_.Requests(AgentCommand::deviceSummary).size(); }

    FakeAdb adb_;
    ScriptedSite site_;
};

}  // namespace quorvi
