// Notices over a session bus of the test's own, on which a desktop stands that notes what it is
// asked.
#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusMessage>
#include <QVariantMap>
#include <memory>

#include "app/platform/BusNotifier.h"
#include "tests/support/WidgetTest.h"
#include "ui/kit/QtText.h"

namespace quorvi {
namespace {

const QString kName = QStringLiteral("org.freedesktop.Notifications");
const QString kPath = QStringLiteral("/org/freedesktop/Notifications");

class Desktop : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")
  public:
    static constexpr uint kId = 17;

    QStringList shown;
    QStringList actions;

    Desktop()
        : bus_(QDBusConnection::connectToBus(QDBusConnection::SessionBus,
                                             QStringLiteral("desktop"))) {
        EXPECT_TRUE(bus_.registerObject(kPath, this, QDBusConnection::ExportAllSlots));
        EXPECT_TRUE(bus_.registerService(kName));
    }
    ~Desktop() override {
        bus_.unregisterService(kName);
        bus_.unregisterObject(kPath);
        QDBusConnection::disconnectFromBus(QStringLiteral("desktop"));
    }

    void Click(uint id) {
        QDBusMessage click =
            QDBusMessage::createSignal(kPath, kName, QStringLiteral("ActionInvoked"));
        click << id << QStringLiteral("default");
        bus_.send(click);
    }

  public Q_SLOTS:
    // The names of the arguments and of the method are the protocol's.
    uint Notify(const QString& /*program*/, uint /*replaces*/, const QString& /*icon*/,
                const QString& summary, const QString& body, const QStringList& choices,
                const QVariantMap& /*hints*/, int /*timeout*/) {
        shown += {summary, body};
        actions = choices;
        return kId;
    }

  private:
    QDBusConnection bus_;
};

class DesktopNotices : public WidgetTest {
  protected:
    BusNotifier notifier_;
    int failed_ = 0;

    void Notify() {
        notifier_.Notify(QStringLiteral("title"), ToQString(u8"文字"), [this] { ++failed_; });
    }
};

TEST_F(DesktopNotices, ANoticeCarriesTitleAndText) {
    Desktop desktop;
    Notify();
    ASSERT_TRUE(WaitFor([&] { return !desktop.shown.isEmpty(); }));
    EXPECT_EQ(desktop.shown, (QStringList{QStringLiteral("title"), ToQString(u8"文字")}));
    QTest::qWait(50);
    EXPECT_EQ(failed_, 0);
}

TEST_F(DesktopNotices, WithoutADesktopTheFailureIsTold) {
    Notify();
    EXPECT_TRUE(WaitFor([&] { return failed_ == 1; }));
}

TEST_F(DesktopNotices, AClickOnANoticeOfOursIsTold) {
    Desktop desktop;
    int clicks = 0;
    notifier_.Listen([&] { ++clicks; });
    Notify();
    ASSERT_TRUE(WaitFor([&] { return !desktop.shown.isEmpty(); }));
    QTest::qWait(100);
    desktop.Click(Desktop::kId + 1);
    desktop.Click(Desktop::kId);
    EXPECT_TRUE(WaitFor([&] { return clicks == 1; }));
    QTest::qWait(20);
    EXPECT_EQ(clicks, 1);
}

}  // namespace
}  // namespace quorvi

#include "BusNotifierTest.moc"
