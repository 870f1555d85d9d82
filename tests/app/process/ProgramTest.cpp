// The program itself, started as a user starts it.
#include <signal.h>
#include <sys/resource.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <optional>

#include "app/process/ProcessEnd.h"
#include "base/LookChoice.h"
#include "base/Places.h"
#include "base/SettingsFile.h"
#include "tests/support/BuildPlaces.h"
#include "tests/support/EnvironmentVariable.h"
#include "tests/support/WidgetTest.h"

namespace quorvi {
namespace {

constexpr int kStartLimitMs = 20000;

// Processes whose command line holds a text.
std::vector<pid_t> ProcessesWith(const QByteArray& text) {
    std::vector<pid_t> found;
    const QStringList entries = QDir(QStringLiteral("/proc")).entryList(QDir::Dirs);
    for (const QString& entry : entries) {
        bool isNumber = false;
        const int pid = entry.toInt(&isNumber);
        QFile line(QStringLiteral("/proc/%1/cmdline").arg(pid));
        if (isNumber && line.open(QIODevice::ReadOnly) && line.readAll().contains(text)) {
            found.push_back(pid);
        }
    }
    return found;
}

class Program : public WidgetTest {
  protected:
    QTemporaryDir folder_;

    void SetUp() override {
        // An adb whose every command never ends.
        QFile adb(folder_.filePath(QStringLiteral("adb")));
        ASSERT_TRUE(adb.open(QIODevice::WriteOnly));
        adb.write("#!/bin/sh\nexec sleep 1000 " + Mark() + "\n");
        adb.close();
        adb.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        QDir(folder_.path()).mkdir(QStringLiteral("run"));
        QFile::setPermissions(Runtime(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    // A number that no other process's command line holds.
    [[nodiscard]] static QByteArray Mark() { return "77" + QByteArray::number(::getpid()); }
    [[nodiscard]] QString Runtime() const { return folder_.filePath(QStringLiteral("run")); }

    std::unique_ptr<QProcess> Start(const QStringList& arguments,
                                    const QString& program = QStringLiteral(QUORVI_BIN_DIR
                                                                            "/quorvi")) const {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("PATH"),
                           folder_.path() + QLatin1Char(':') + qEnvironmentVariable("PATH"));
        environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), Runtime());
        environment.insert(QStringLiteral("XDG_CONFIG_HOME"), folder_.path());
        environment.remove(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"));
        environment.remove(QStringLiteral("QT_SCALE_FACTOR"));
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        auto process = std::make_unique<QProcess>();
        process->setProcessEnvironment(environment);
        process->setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process->setChildProcessModifier([] {
            const rlimit noCore = {0, 0};
            ::setrlimit(RLIMIT_CORE, &noCore);
        });
        process->start(program, arguments);
        EXPECT_TRUE(process->waitForStarted());
        return process;
    }
    // Waits until a started program can be found and its adb command hangs.
    void WaitUntilUp() const {
        ASSERT_TRUE(WaitFor([&] {
            return !QDir(Runtime())
                        .entryList({QStringLiteral("Quorvi*")}, QDir::System | QDir::AllEntries)
                        .isEmpty() &&
                   !ProcessesWith(Mark()).empty();
        }));
    }
};

TEST_F(Program, EndsWhileAnAdbCommandNeverEnds) {
    const auto program = Start({});
    WaitUntilUp();
    program->terminate();
    ASSERT_TRUE(program->waitForFinished(kStartLimitMs));
    EXPECT_EQ(program->exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(program->exitCode(), 0);
    EXPECT_TRUE(WaitFor([] { return ProcessesWith(Mark()).empty(); }));
}

// A crash would leave no end.
TEST_F(Program, ItsStartAndItsEndStandInTheLog) {
    const EnvironmentVariable state("XDG_STATE_HOME",
                                    folder_.filePath(QStringLiteral("state")).toStdString());
    const auto program = Start({});
    WaitUntilUp();
    const QByteArray self = "quorvi[" + QByteArray::number(program->processId()) + "] ";
    program->terminate();
    ASSERT_TRUE(program->waitForFinished(kStartLimitMs));
    QFile log(folder_.filePath(QStringLiteral("state/Quorvi/quorvi.log")));
    ASSERT_TRUE(log.open(QIODevice::ReadOnly));
    const QByteArray lines = log.readAll();
    EXPECT_TRUE(lines.contains(self + "start version=")) << lines.toStdString();
    EXPECT_TRUE(lines.contains(" platform=offscreen hidden=no\n")) << lines.toStdString();
    EXPECT_TRUE(lines.contains(self + "end status=0\n")) << lines.toStdString();
}

// Its libraries are large: the window would wait for them.
TEST_F(Program, TheBrowserEngineIsNoneOfItsLibrariesAndIsLoadedAfterwards) {
    constexpr const char* kEngine = "libQt6WebEngineCore";
    QProcess loader;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("LD_TRACE_LOADED_OBJECTS"), QStringLiteral("1"));
    loader.setProcessEnvironment(environment);
    loader.start(QStringLiteral(QUORVI_BIN_DIR "/quorvi"), QStringList());
    ASSERT_TRUE(loader.waitForFinished());
    const QByteArray libraries = loader.readAllStandardOutput();
    EXPECT_TRUE(libraries.contains("libQt6Widgets"));
    EXPECT_FALSE(libraries.contains(kEngine));

    const auto program = Start({});
    EXPECT_TRUE(WaitFor([&] {
        QFile maps(QStringLiteral("/proc/%1/maps").arg(program->processId()));
        return maps.open(QIODevice::ReadOnly) && maps.readAll().contains(kEngine);
    }));
    program->terminate();
    EXPECT_TRUE(program->waitForFinished());
}

// The program beside another module, which notes what it finds when it is loaded.
class NotedProgram : public Program {
  protected:
    QByteArray Note() {
        const QString program = folder_.filePath(QStringLiteral("quorvi"));
        const QString note = folder_.filePath(QStringLiteral("note"));
        EXPECT_TRUE(QFile::copy(QStringLiteral(QUORVI_BIN_DIR "/quorvi"), program));
        EXPECT_TRUE(QFile::copy(QStringLiteral(NOTED_ENGINE),
                                folder_.filePath(QStringLiteral("libquorvi_browser.so"))));
        const EnvironmentVariable file("QUORVI_NOTED_ENGINE", note.toStdString());
        const auto started = Start({}, program);
        const auto noted = [&] {
            QFile written(note);
            return written.open(QIODevice::ReadOnly) ? written.readAll() : QByteArray();
        };
        EXPECT_TRUE(WaitFor([&] { return !noted().isEmpty(); }));
        started->terminate();
        EXPECT_TRUE(started->waitForFinished());
        return noted();
    }
};

TEST_F(NotedProgram, TheBrowserEngineIsLoadedWhenTheWindowStandsOnTheScreen) {
    EXPECT_EQ(Note(), "window 1");
}

TEST_F(NotedProgram, TheSizeOfTextThatWasChosenIsTheScaleOfItsWindow) {
    Places places = ThePlaces();
    places.config = folder_.path().toStdString();
    SettingsFile settings(places.SettingsFile());
    ChooseTextPercent(settings, 150);
    ASSERT_EQ(ChosenTextPercent(settings), 150);
    EXPECT_EQ(Note(), "window 1.5");
}

TEST_F(Program, ASecondStartEndsWithZeroAndTheFirstGoesOn) {
    const auto first = Start({});
    WaitUntilUp();
    const auto second = Start({QStringLiteral("quorvi://open/12")});
    ASSERT_TRUE(second->waitForFinished(kStartLimitMs));
    EXPECT_EQ(second->exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(second->exitCode(), 0);
    EXPECT_EQ(first->state(), QProcess::Running);
    EXPECT_EQ(ProcessesWith(Mark()).size(), 1U);
    first->terminate();
    EXPECT_TRUE(first->waitForFinished());
}

TEST_F(Program, ASecondStartFindsTheFirstByAnyNameOfItsDisplays) {
    std::optional<EnvironmentVariable> wayland(std::in_place, "WAYLAND_DISPLAY", "quorvi-none");
    std::optional<EnvironmentVariable> x(std::in_place, "DISPLAY", ":987");
    const auto first = Start({});
    WaitUntilUp();
    wayland.emplace("WAYLAND_DISPLAY", "");
    x.emplace("DISPLAY", ":987.0");
    const auto second = Start({});
    EXPECT_TRUE(second->waitForFinished(kStartLimitMs));
    EXPECT_EQ(second->exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(first->state(), QProcess::Running);
    for (const auto& program : {first.get(), second.get()}) {
        program->terminate();
        program->waitForFinished();
    }
}

TEST_F(Program, AProgramThatWasKilledDoesNotKeepTheNextFromStarting) {
    const auto killed = Start({});
    WaitUntilUp();
    killed->kill();
    ASSERT_TRUE(killed->waitForFinished());
    for (const pid_t pid : ProcessesWith(Mark())) {
        ::kill(pid, SIGKILL);
    }
    const auto next = Start({QStringLiteral("/hide")});
    WaitUntilUp();
    EXPECT_EQ(next->state(), QProcess::Running);
    next->terminate();
    EXPECT_TRUE(next->waitForFinished());
}

TEST_F(Program, AFaultShowsTheApologyAndEndsTheProcessByItsSignal) {
    const auto program = Start({});
    WaitUntilUp();
    ::kill(static_cast<pid_t>(program->processId()), SIGSEGV);
    ASSERT_TRUE(program->waitForFinished(kStartLimitMs));
    EXPECT_EQ(program->exitStatus(), QProcess::CrashExit);
    EXPECT_EQ(program->exitCode(), SIGSEGV);
    // Not waited for: it runs before the program ends.
    const std::vector<pid_t> apologies =
        ProcessesWith(QByteArray(QUORVI_BIN_DIR "/quorvi") + '\0' + kApologyOption);
    EXPECT_EQ(apologies.size(), 1U);
    for (const pid_t pid : apologies) {
        ::kill(pid, SIGKILL);
    }
    for (const pid_t pid : ProcessesWith(Mark())) {
        ::kill(pid, SIGKILL);
    }
}

}  // namespace
}  // namespace quorvi
