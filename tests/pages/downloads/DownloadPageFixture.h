// What the tests of the download page share: a table, a real server, an adb that does as it is
// told, and a page on the offscreen platform.
#pragma once

#include <gmock/gmock.h>

#include <QContextMenuEvent>
#include <QLabel>
#include <algorithm>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "base/Text.h"
#include "pages/downloads/DownloadPage.h"
#include "pages/kit/QueuePackage.h"
#include "tests/download/TaskRows.h"
#include "tests/support/ControlDriver.h"
#include "tests/support/DialogDriver.h"
#include "tests/support/FakeAdb.h"
#include "tests/support/MenuDriver.h"
#include "tests/support/PageTest.h"
#include "tests/support/PrintQt.h"
#include "tests/support/SiteServer.h"
#include "tests/support/TemporaryFolder.h"
#include "ui/kit/ControlNumber.h"
#include "ui/kit/SkinTree.h"

namespace quorvi {

enum DownloadColumn { columnIcon, columnName, columnType, columnProgress, columnState, columnTick };

class DownloadPageTest : public PageTest {
  protected:
    static constexpr int kTree = 1222;

    // `adb`: by default it installs what is there.
    explicit DownloadPageTest(std::string_view adb = R"(test -f "$5" && echo Success)")
        : adb_(adb) {
        services_.taskStore = std::make_shared<TaskStore>(data_.Path() / "Config.db");
        services_.installer = PackageInstaller(adb_.Environment());
        services_.device.SetSerial("HT04");
        services_.deployment.siteRoot = site_.Root();
        services_.deployment.downloadRoot = site_.Root();
        host_.settings.WriteText("Software\\Quorvi", "DownloadPath", ToAnsi(save_.Path().native()));
    }
    void TearDown() override {
        if (made_) {
            made_->taskQueue.StopCurrent();
            EXPECT_TRUE(WaitFor([this] { return made_->taskQueue.IsIdle(); }));
        }
        Settle();
    }

    // A row of the table, which the page does not know of yet.
    std::int32_t Add(const std::string& package, TaskState state = TaskState::waiting,
                     std::string_view path = "files") {
        site_.Serve(package + ".apk", ContentOf(package));
        CDownloadTask task = TaskOf(package, save_.Path().native());
        task.title = Ansi(u8"应用") + package;
        task.url = site_.Root() + std::string(path) + "/" + package + ".apk";
        task.state = state;
        EXPECT_EQ(services_.taskStore->InsertTask(task), StoreResult::done);
        return services_.taskStore->FindTaskByUniqueId(package).id;
    }
    static std::string ContentOf(const std::string& package) {
        std::string content;
        while (content.size() < 200'000) {
            content += package;
        }
        return content;
    }
    void PutFile(const std::string& package) const {
        std::ofstream(File(package)) << ContentOf(package);
    }
    [[nodiscard]] std::filesystem::path File(const std::string& package) const {
        return save_.Path() / (package + ".apk");
    }

    // Makes the page, and waits until it shows what the table holds.
    CDownloadPage& Open() {
        made_ = std::make_unique<Services>(services_.At(0));
        page_ = std::make_unique<CDownloadPage>(host_, *made_, nullptr, [this] { return Disks(); });
        page_->resize(760, 462);
        page_->show();
        Settle();
        return *page_;
    }
    [[nodiscard]] std::vector<FixedDisk> Disks() const {
        return {{.place = disk_.Path(), .freeBytes = 1'000ULL << 20}};
    }
    [[nodiscard]] TaskQueue& Queue() { return made_->taskQueue; }
    // Until nothing is downloaded, installed or on its way to the window any more.
    void WaitUntilIdle() {
        ASSERT_TRUE(WaitFor([this] { return Queue().IsIdle() && RunningJobs() == 0; }));
        Settle();
        ASSERT_TRUE(WaitFor([this] { return Queue().IsIdle() && RunningJobs() == 0; }));
        Settle();
    }

    [[nodiscard]] DownloadListCtrl& List() { return *page_->findChild<DownloadListCtrl*>(); }
    [[nodiscard]] CSkinTree& Tree() { return *FindControl<CSkinTree>(page_.get(), kTree); }
    [[nodiscard]] QString Shown(int row, int column) { return List().CellAt(row, column).text; }
    // The packages of the rows that are shown.
    [[nodiscard]] std::vector<std::string> Packages() {
        std::vector<std::string> packages;
        for (const DownloadRow& row : List().Records()) {
            packages.push_back(row.task.uniqueId);
        }
        return packages;
    }
    [[nodiscard]] TaskState StateOf(std::int32_t id) const {
        const auto row = services_.taskStore->LoadTaskForDownload(id);
        return row ? row->state : static_cast<TaskState>(-1);
    }

    // Presses the node that stands at a position among those that can be seen.
    void ClickNode(int position) {
        QTreeWidgetItem* node = Tree().topLevelItem(0);
        for (int i = 0; i < position; ++i) {
            node = Tree().itemBelow(node);
        }
        ASSERT_NE(node, nullptr);
        QTest::mouseClick(Tree().viewport(), Qt::LeftButton, {},
                          Tree().visualItemRect(node).center());
        Settle();
    }
    CSkinMenu& OpenMenu(int row) { return *OpenRowMenu(*page_, List(), row, columnName); }
    // Chooses from the menu of a row.
    void Choose(int row, int command) {
        ChooseFrom(&OpenMenu(row), command);
        Settle();
    }
    void Command(int command) {
        page_->OnCommand(command);
        Settle();
    }

    FakeAdb adb_;
    SiteServer site_{R"(
        location /files/ { alias FILES/; }
        location /slow/ { alias FILES/; limit_rate 50k; }
    )"};
    TemporaryFolder data_;
    TemporaryFolder save_;
    TemporaryFolder disk_;
    std::unique_ptr<Services> made_;
    std::unique_ptr<CDownloadPage> page_;
};

}  // namespace quorvi
