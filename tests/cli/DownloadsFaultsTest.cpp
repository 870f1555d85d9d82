// What a site, a disk or a folder can do to a download, by the whole road: a run of the queue from
// the table to the phone.
#include <sys/stat.h>
#include <unistd.h>

#include "tests/cli/DownloadsTest.h"
#include "tests/support/SmallDisk.h"

namespace quorvi::cli {
namespace {

using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;

// Where a server gives bytes too slowly, its proxy loses its patience and cuts the connection.
const std::string kFaults = R"(
    location /slow/ { alias FILES/files/; limit_rate 100k; }
    location /hasty/ { alias FILES/files/; limit_rate 10k; limit_rate_after 40k; }
    location ~ ^/cut/(.*)$ {
        proxy_pass http://127.0.0.1:$server_port/hasty/$1;
        proxy_buffering off;
        proxy_read_timeout 100ms;
    }
    location /reset/ { reset_timedout_connection on; return 444; }
    location /longer/ {
        alias FILES/files/;
        ssi on; ssi_types *; chunked_transfer_encoding off;
        add_header Content-Length 300000;
    }
    location /shorter/ {
        alias FILES/files/;
        ssi on; ssi_types *; chunked_transfer_encoding off;
        add_header Content-Length 1000;
    }
    location /whole/ { alias FILES/files/; max_ranges 0; }
    location /moved/ { rewrite ^/moved/(.*)$ /moved2/$1 permanent; }
    location /moved2/ { rewrite ^/moved2/(.*)$ /moved3/$1 permanent; }
    location /moved3/ { rewrite ^/moved3/(.*)$ /files/$1 permanent; }
    location /longhead/ { alias FILES/files/; add_header X-Long ")" +
                            std::string(1100, 'x') +
                            R"("; }
    location /nolength/ { alias FILES/files/; ssi on; ssi_types *; }
    location /broken/ { return 500 "an error"; }
)";

class DownloadsFaults : public DownloadsTest {
  protected:
    DownloadsFaults() : DownloadsTest(kFaults) {}

    // Works the queue off with one task; its events, without its package's name.
    std::vector<std::string> Work(const std::string& path, Status status) {
        if (id_ == kNoTask) {
            id_ = Add(kPackage, TaskState::waiting, path);
        }
        EXPECT_EQ(Run(&RunDownloadsRun), status) << messages_;
        std::vector<std::string> events = Events();
        for (std::string& event : events) {
            event.resize(event.size() - (std::string(kPackage).size() + 1));
        }
        return events;
    }
    void Resume() {
        EXPECT_EQ(Run(&RunDownloadsResume, {.operands = {std::to_string(id_)}, .options = {}}),
                  Status::done);
    }
    void PutPart(std::string_view content) const {
        std::ofstream(Part(kPackage), std::ios::binary) << content;
    }
    [[nodiscard]] std::string Whole() const { return ContentOf(kPackage); }
    [[nodiscard]] std::string Arrived() const { return FileContent(File(kPackage)); }
    [[nodiscard]] std::string FaultOf(std::string_view event) const {
        for (const Json::Value& line : Lines()) {
            if (line["event"].asString() == event) {
                return line["fault"].asString();
            }
        }
        return {};
    }

    static constexpr const char* kPackage = "com.a";
    std::int32_t id_ = kNoTask;
};

#define ARRIVES ElementsAre("started", "complete", "install_started", "install_ended")
#define FAILS ElementsAre("started", "failed")

TEST_F(DownloadsFaults, ASlowFileArrives) {
    EXPECT_THAT(Work("slow/FILE", Status::done), ARRIVES);
    EXPECT_TRUE(Arrived() == Whole());
}

TEST_F(DownloadsFaults, AFileThatIsCutAgainAndAgainArrivesInTheEnd) {
    EXPECT_THAT(Work("cut/FILE", Status::noLink), FAILS);
    EXPECT_EQ(StateOf(id_), TaskState::failed);
    std::uintmax_t before = 0;
    int runs = 1;
    for (; StateOf(id_) != TaskState::done && runs < 20; ++runs) {
        EXPECT_FALSE(std::filesystem::exists(File(kPackage)));
        const auto size = std::filesystem::file_size(Part(kPackage));
        ASSERT_GT(size, before);
        before = size;
        Resume();
        Run(&RunDownloadsRun);
    }
    EXPECT_GT(runs, 2);
    EXPECT_TRUE(Arrived() == Whole());
}

TEST_F(DownloadsFaults, AConnectionThatIsResetFailsWithoutAFile) {
    EXPECT_THAT(Work("reset/FILE", Status::noLink), Contains("failed"));
    EXPECT_FALSE(Arrived() == Whole());
}

TEST_F(DownloadsFaults, ALengthThatIsTooLongFailsAndKeepsThePart) {
    EXPECT_THAT(Work("longer/FILE", Status::noLink), FAILS);
    EXPECT_EQ(StateOf(id_), TaskState::failed);
    EXPECT_FALSE(std::filesystem::exists(File(kPackage)));
    EXPECT_TRUE(FileContent(Part(kPackage)) == Whole());
}

TEST_F(DownloadsFaults, ALengthThatIsTooShortEndsTheFileThere) {
    EXPECT_THAT(Work("shorter/FILE", Status::done), ARRIVES);
    EXPECT_TRUE(Arrived() == Whole().substr(0, 1000));
}

TEST_F(DownloadsFaults, AWholeAnswerToARangeIsTakenLikeAPart) {
    PutPart(Whole().substr(0, 1000));
    EXPECT_THAT(Work("whole/FILE", Status::done), ARRIVES);
    EXPECT_TRUE(Arrived() == Whole().substr(0, 1000) + Whole());
}

TEST_F(DownloadsFaults, AChainOfRedirectsArrives) {
    EXPECT_THAT(Work("moved/FILE", Status::done), ARRIVES);
    EXPECT_TRUE(Arrived() == Whole());
    EXPECT_EQ(site_.Requests(4).size(), 4U);
}

TEST_F(DownloadsFaults, APartThatIsWholeAlreadyIsRefusedAndArrives) {
    PutPart(Whole());
    EXPECT_THAT(Work("files/FILE", Status::noLink), Contains("failed"));
    EXPECT_EQ(StateOf(id_), TaskState::done);
    EXPECT_TRUE(Arrived() == Whole());
}

TEST_F(DownloadsFaults, APartThatIsTooLongIsRefusedAndGetsThePageOfTheRefusal) {
    PutPart(Whole() + "too long");
    EXPECT_THAT(Work("files/FILE", Status::noLink), Contains("failed"));
    EXPECT_TRUE(Arrived().starts_with(Whole() + "too long<html>"));
}

TEST_F(DownloadsFaults, TheRestOfALongHeadBeginsTheFile) {
    EXPECT_THAT(Work("longhead/FILE", Status::done), Contains("complete"));
    EXPECT_FALSE(Arrived().starts_with(Whole().substr(0, 100)));
    EXPECT_NE(Arrived().find(Whole().substr(0, 1000)), std::string::npos);
}

TEST_F(DownloadsFaults, WithoutALengthTheFileIsEmpty) {
    EXPECT_THAT(Work("nolength/FILE", Status::done), ARRIVES);
    EXPECT_TRUE(std::filesystem::exists(File(kPackage)));
    EXPECT_EQ(Arrived(), "");
}

TEST_F(DownloadsFaults, AServersErrorIsToldAndItsPageWritten) {
    EXPECT_THAT(Work("broken/FILE", Status::noLink), Contains("failed"));
    EXPECT_EQ(Arrived(), "an error");
}

TEST_F(DownloadsFaults, ASiteThatIsNotThereIsTold) {
    id_ = Add(kPackage);
    TaskStore(table_).DeleteTask(id_);
    CDownloadTask task = TaskOf(kPackage, save_.Path().native());
    task.url = "http://127.0.0.1:1/a.apk";
    TaskStore(table_).InsertTask(task);
    EXPECT_THAT(Work("", Status::noLink), Each(testing::AnyOf("started", "failed")));
    EXPECT_EQ(FaultOf("failed"), "no_connection");
    EXPECT_THAT(text_, HasSubstr("连接不到服务器"));
}

TEST_F(DownloadsFaults, AFolderThatMayNotBeWrittenIsTold) {
    if (geteuid() == 0) {
        // Nothing keeps root from writing into a folder, but for one that is none.
        std::filesystem::remove(save_.Path());
        std::ofstream(save_.Path()) << "no folder";
    } else {
        std::filesystem::permissions(save_.Path(), std::filesystem::perms::owner_read);
    }
    EXPECT_THAT(Work("files/FILE", Status::noLink), FAILS);
    EXPECT_EQ(FaultOf("failed"), "cannot_write");
    EXPECT_EQ(StateOf(id_), TaskState::failed);
    EXPECT_THAT(text_, HasSubstr("无法写入保存目录"));
    std::filesystem::permissions(save_.Path(), std::filesystem::perms::owner_all);
}

TEST_F(DownloadsFaults, APartThatIsALinkIsNotFollowed) {
    const auto secret = data_.Path() / "secret";
    std::ofstream(secret) << "of the user";
    std::filesystem::create_symlink(secret, Part(kPackage));
    EXPECT_THAT(Work("files/FILE", Status::noLink), FAILS);
    EXPECT_EQ(FaultOf("failed"), "cannot_write");
    EXPECT_EQ(FileContent(secret), "of the user");
    EXPECT_FALSE(std::filesystem::exists(File(kPackage)));
}

TEST_F(DownloadsFaults, ATargetThatIsALinkIsReplacedAndNotFollowed) {
    const auto secret = data_.Path() / "secret";
    std::ofstream(secret) << "of the user";
    std::filesystem::create_symlink(secret, File(kPackage));
    EXPECT_THAT(Work("files/FILE", Status::done), ARRIVES);
    EXPECT_EQ(FileContent(secret), "of the user");
    EXPECT_FALSE(std::filesystem::is_symlink(File(kPackage)));
    EXPECT_TRUE(Arrived() == Whole());
}

class DownloadsFullDisk : public DownloadsTest {
  protected:
    // Threads and adb have it from its making on.
    SmallDisk disk_{512 << 10};
};

TEST_F(DownloadsFullDisk, ADownloadIsToldAndGoesOnOnceThereIsRoom) {
    if (!disk_.IsThere()) {
        GTEST_SKIP() << "no namespace to mount in";
    }
    const auto id = Add("com.a");
    TaskStore(table_).DeleteTask(id);
    CDownloadTask task = TaskOf("com.a", disk_.Path().native());
    task.url = site_.Root() + "files/com.a.apk";
    ASSERT_EQ(TaskStore(table_).InsertTask(task), StoreResult::done);
    std::ofstream(disk_.Path() / "com.a.tmp") << ContentOf("com.a").substr(0, 10);
    disk_.Fill();
    EXPECT_EQ(Run(&RunDownloadsRun), Status::noLink);
    EXPECT_THAT(Events(), ElementsAre("started com.a", "failed com.a"));
    EXPECT_THAT(text_, HasSubstr("磁盘空间不足"));
    const auto row = TaskStore(table_).FindTaskByUniqueId("com.a");
    EXPECT_EQ(StateOf(row.id), TaskState::failed);
    disk_.Empty();
    EXPECT_EQ(Run(&RunDownloadsResume, {.operands = {std::to_string(row.id)}, .options = {}}),
              Status::done);
    EXPECT_EQ(Run(&RunDownloadsRun), Status::done);
    EXPECT_TRUE(FileContent(disk_.Path() / "com.a.apk") == ContentOf("com.a"));
}

// The same row would come again without end.
TEST_F(DownloadsFullDisk, ATableThatCannotBeWrittenEndsTheRun) {
    if (!disk_.IsThere()) {
        GTEST_SKIP() << "no namespace to mount in";
    }
    table_ = disk_.Path() / "Config.db";
    Add("com.a");
    // A write-ahead file that is there could take the change.
    RunSql(table_, "PRAGMA wal_checkpoint(TRUNCATE)");
    disk_.Fill();
    EXPECT_EQ(Run(&RunDownloadsRun, {}, false), Status::noLink);
    EXPECT_THAT(messages_, HasSubstr("磁盘空间不足，无法保存任务"));
    disk_.Empty();
    EXPECT_EQ(Run(&RunDownloadsRun), Status::done);
}

}  // namespace
}  // namespace quorvi::cli
