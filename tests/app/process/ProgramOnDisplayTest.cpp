// The program itself under X, started as a user starts it.
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <algorithm>

#include "tests/support/BuildPlaces.h"
#include "tests/support/FakeAdb.h"
#include "tests/support/QtTest.h"

namespace quorvi {
namespace {

class ProgramOnADisplay : public QtTest {
  protected:
    FakeAdb adb_{R"(env > "$dir/new" && mv "$dir/new" "$dir/environment"; exit 1)"};
    QTemporaryDir folder_;
    QProcess program_;

    void SetUp() override {
        ASSERT_EQ(QGuiApplication::platformName(), QStringLiteral("xcb"));
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("PATH"),
                           QString::fromStdString(adb_.Directory().string()) + QLatin1Char(':') +
                               qEnvironmentVariable("PATH"));
        for (const char* place : {"HOME", "XDG_RUNTIME_DIR", "XDG_CONFIG_HOME", "XDG_DATA_HOME",
                                  "XDG_CACHE_HOME", "XDG_STATE_HOME"}) {
            environment.insert(QLatin1String(place), folder_.path());
        }
        environment.remove(QStringLiteral("QT_QUICK_BACKEND"));
        program_.setProcessEnvironment(environment);
        program_.start(QStringLiteral(QUORVI_BIN_DIR "/quorvi"), QStringList());
        ASSERT_TRUE(program_.waitForStarted());
    }
    void TearDown() override {
        program_.terminate();
        EXPECT_TRUE(program_.waitForFinished());
    }

    // The files of which the program holds a part in memory.
    [[nodiscard]] QByteArray Mapped() const {
        return Read(QStringLiteral("/proc/%1/maps").arg(program_.processId()));
    }
    [[nodiscard]] bool HasProcessOfTheEngine() const {
        const QList<QByteArray> children =
            Read(QStringLiteral("/proc/%1/task/%1/children").arg(program_.processId())).split(' ');
        return std::ranges::any_of(children, [](const QByteArray& child) {
            return Read(QStringLiteral("/proc/%1/cmdline").arg(QLatin1String(child.trimmed())))
                .contains("QtWebEngineProcess");
        });
    }

    // The environment of the first program that this one has started; empty before.
    [[nodiscard]] QByteArray Inherited() const {
        return Read(QString::fromStdString((adb_.Directory() / "environment").string()));
    }

  private:
    [[nodiscard]] static QByteArray Read(const QString& path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
};

// Each is large, and nothing is drawn by them.
TEST_F(ProgramOnADisplay, LoadsNoDriverOfGraphicsAndTellsOfNone) {
    // The engine looks for them before it starts its processes.
    ASSERT_TRUE(WaitFor([&] { return HasProcessOfTheEngine(); }));
    const QByteArray mapped = Mapped();
    EXPECT_TRUE(mapped.contains("libQt6WebEngineCore"));
    EXPECT_FALSE(mapped.contains("_dri.so"));
    EXPECT_FALSE(mapped.contains("libGLX_"));
    EXPECT_FALSE(mapped.contains("libLLVM"));
    const QByteArray told = program_.readAllStandardError();
    EXPECT_FALSE(told.contains("OpenGL")) << told.toStdString();
    EXPECT_FALSE(told.contains("graphics")) << told.toStdString();
}

TEST_F(ProgramOnADisplay, WhatItStartsMayDrawByOpenGl) {
    ASSERT_TRUE(WaitFor([&] { return !Inherited().isEmpty(); }));
    EXPECT_TRUE(Inherited().contains("QT_QPA_PLATFORM="));
    EXPECT_FALSE(Inherited().contains("QT_XCB_GL_INTEGRATION="));
}

}  // namespace
}  // namespace quorvi
