// The suite laid out under a prefix, as a package or a user installs it.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

#include "tests/support/WaitFor.h"

namespace quorvi {
namespace {

constexpr int kLimitMs = 60'000;
// The package stays small.
constexpr qint64 kMostGuidePictures = 1'500'000;
constexpr const char* kModule = "lib/quorvi/libquorvi_browser.so";

struct Ended {
    int status = -1;
    QString output;  // of both streams
};

Ended RunToEnd(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program, arguments);
    if (!process.waitForFinished(kLimitMs) || process.exitStatus() != QProcess::NormalExit) {
        return {-1, process.errorString()};
    }
    return {process.exitCode(), QString::fromUtf8(process.readAll())};
}

class Install : public testing::Test {
  protected:
    static void SetUpTestSuite() {
        folder_ = std::make_unique<QTemporaryDir>();
        InstallInto(Prefix());
    }
    static void InstallInto(const QString& prefix) {
        const Ended installed =
            RunToEnd(QStringLiteral(QUORVI_CMAKE),
                     {QStringLiteral("--install"), QStringLiteral(QUORVI_BUILD_DIR),
                      QStringLiteral("--prefix"), prefix});
        ASSERT_EQ(installed.status, 0) << installed.output.toStdString();
    }
    static void TearDownTestSuite() { folder_.reset(); }

    // With a blank in it, as folders of users have.
    [[nodiscard]] static QString Prefix() { return folder_->filePath(QStringLiteral("the suite")); }
    [[nodiscard]] static QString In(const char* path) {
        return Prefix() + QLatin1Char('/') + QString::fromLatin1(path);
    }
    [[nodiscard]] static QByteArray Contents(const QString& path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    [[nodiscard]] static QByteArray Entry() {
        return Contents(In("share/applications/quorvi.desktop"));
    }

    static std::unique_ptr<QTemporaryDir> folder_;
};

std::unique_ptr<QTemporaryDir> Install::folder_;

TEST_F(Install, LaysOutAllThatTheSuiteIsMadeOf) {
    for (const char* file :
         {"bin/quorvi", "bin/quorvictl", "bin/quorvi-phone", "bin/quorvi-site", kModule,
          "share/quorvi/Data/deployment.json", "share/quorvi/Data/guide.html",
          "share/quorvi/com.quorvi.Quorvi.apk", "share/applications/quorvi.desktop",
          "share/icons/hicolor/scalable/apps/quorvi.svg", "share/doc/quorvi/README.md",
          "share/doc/quorvi/copyright", "share/doc/quorvi/changelog.gz",
          "share/man/man1/quorvi.1.gz", "share/man/man1/quorvictl.1.gz",
          "share/man/man1/quorvi-phone.1.gz", "share/bash-completion/completions/quorvictl",
          "share/metainfo/com.quorvi.Quorvi.metainfo.xml"}) {
        EXPECT_TRUE(QFile::exists(In(file))) << file;
    }
}

// A browser shows an empty frame for a picture that is not there.
TEST_F(Install, TheGuideHasEachPictureThatItNamesAndNoOther) {
    const QString guide = QString::fromUtf8(Contents(In("share/quorvi/Data/guide.html")));
    QStringList named;
    const QRegularExpression picture(QStringLiteral("src(?:set)?=\"guide/([^\"]+)\""));
    for (auto found = picture.globalMatch(guide); found.hasNext();) {
        named.append(found.next().captured(1));
    }
    named.sort();
    const QFileInfoList installed =
        QDir(In("share/quorvi/Data/guide")).entryInfoList(QDir::Files, QDir::Name);
    QStringList names;
    qint64 bytes = 0;
    for (const QFileInfo& file : installed) {
        names.append(file.fileName());
        bytes += file.size();
        EXPECT_FALSE(QImage(file.filePath()).isNull()) << file.fileName().toStdString();
    }
    EXPECT_GE(names.size(), 4);
    EXPECT_EQ(names, named);
    EXPECT_LE(bytes, kMostGuidePictures);
}

TEST_F(Install, BringsNoToolOfTheDevelopers) {
    EXPECT_EQ(QDir(In("bin")).entryList(QDir::Files, QDir::Name),
              (QStringList{QStringLiteral("quorvi"), QStringLiteral("quorvi-phone"),
                           QStringLiteral("quorvi-site"), QStringLiteral("quorvictl")}));
}

TEST_F(Install, DesktopEntryIsValid) {
    const Ended ended = RunToEnd(QStringLiteral("desktop-file-validate"),
                                 {In("share/applications/quorvi.desktop")});
    EXPECT_EQ(ended.status, 0) << ended.output.toStdString();
    EXPECT_TRUE(ended.output.isEmpty()) << ended.output.toStdString();
}

TEST_F(Install, SoftwareCentresCanReadWhatTheSuiteIs) {
    const Ended ended = RunToEnd(QStringLiteral("appstreamcli"),
                                 {QStringLiteral("validate"), QStringLiteral("--no-net"),
                                  In("share/metainfo/com.quorvi.Quorvi.metainfo.xml")});
    EXPECT_EQ(ended.status, 0) << ended.output.toStdString();
}

TEST_F(Install, ManualsAreThoseOfEachProgram) {
    for (const char* name : {"quorvi", "quorvictl", "quorvi-phone", "quorvi-site"}) {
        const Ended ended =
            RunToEnd(QStringLiteral("gzip"),
                     {QStringLiteral("-dc"),
                      In("share/man/man1/") + QLatin1String(name) + QStringLiteral(".1.gz")});
        EXPECT_EQ(ended.status, 0) << name;
        EXPECT_TRUE(ended.output.contains(QStringLiteral(".SH 名称"))) << name;
    }
}

TEST_F(Install, DesktopEntryStartsTheInstalledProgramAndOpensItsLinks) {
    EXPECT_TRUE(Entry().contains("\nExec=\"" + In("bin/quorvi").toUtf8() + "\" %u\n"))
        << Entry().constData();
    EXPECT_TRUE(Entry().contains("\nMimeType=x-scheme-handler/quorvi;\n"));
    EXPECT_TRUE(Entry().contains("\nIcon=quorvi\n"));
}

// Some openers of desktops take quotes for a part of the program's name.
TEST_F(Install, DesktopEntryQuotesOnlyAPathThatNeedsIt) {
    const QString plain = folder_->filePath(QStringLiteral("plain-1.0_+a"));
    InstallInto(plain);
    const QByteArray entry = Contents(plain + QStringLiteral("/share/applications/quorvi.desktop"));
    EXPECT_TRUE(entry.contains("\nExec=" + plain.toUtf8() + "/bin/quorvi %u\n"))
        << entry.constData();
}

TEST_F(Install, CommandLineFindsTheDataThatCameWithIt) {
    const Ended help = RunToEnd(In("bin/quorvictl"), {QStringLiteral("--help")});
    EXPECT_EQ(help.status, 0);
    EXPECT_TRUE(help.output.contains(QStringLiteral("number"))) << help.output.toStdString();

    const Ended number =
        RunToEnd(In("bin/quorvictl"), {QStringLiteral("number"), QStringLiteral("13912345678")});
    EXPECT_EQ(number.status, 0) << number.output.toStdString();
    EXPECT_TRUE(number.output.contains(QStringLiteral("江苏"))) << number.output.toStdString();
    // A program without its deployment.json says so.
    EXPECT_FALSE(number.output.contains(QStringLiteral("deployment.json")))
        << number.output.toStdString();
}

// The program loads the module once its window has been painted.
TEST_F(Install, WindowShowsAndItsViewsFindTheirModule) {
    QTemporaryDir own;
    QFile adb(own.filePath(QStringLiteral("adb")));
    ASSERT_TRUE(adb.open(QIODevice::WriteOnly));
    adb.write("#!/bin/sh\nexit 1\n");
    adb.close();
    adb.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);

    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("PATH"),
                       own.path() + QLatin1Char(':') + qEnvironmentVariable("PATH"));
    for (const char* folder : {"HOME", "XDG_RUNTIME_DIR", "XDG_CONFIG_HOME", "XDG_DATA_HOME"}) {
        environment.insert(QString::fromLatin1(folder), own.path());
    }
    environment.remove(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"));
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));

    QProcess program;
    program.setProcessEnvironment(environment);
    program.setProcessChannelMode(QProcess::MergedChannels);
    program.start(In("bin/quorvi"), QStringList());
    ASSERT_TRUE(program.waitForStarted());
    const QString maps = QStringLiteral("/proc/%1/maps").arg(program.processId());
    EXPECT_TRUE(WaitFor([&] { return Contents(maps).contains(In(kModule).toUtf8()); }))
        << program.readAll().constData();
    EXPECT_EQ(program.state(), QProcess::Running);
    program.terminate();
    EXPECT_TRUE(program.waitForFinished(kLimitMs));
    EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(program.exitCode(), 0);
    EXPECT_FALSE(program.readAll().contains("deployment.json"));
}

}  // namespace
}  // namespace quorvi

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    const QCoreApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
