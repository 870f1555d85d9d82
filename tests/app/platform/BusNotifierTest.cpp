// Notices over a session bus of the test's own, on which a desktop stands that notes what it is
// asked.
#include <QDBusConnection>
#include <QDBusConnectionInterface>
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
    static constexpr uint kFirstId = 17;

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
        return next_++;
    }

  private:
    QDBusConnection bus_;
    uint next_ = kFirstId;
};

class DesktopNotices : public WidgetTest {
  protected:
    BusNotifier notifier_;
    int failed_ = 0;

    void Notify() {
        notifier_.Notify(QStringLiteral("title"), ToQString(u8"文字"), [this] { ++failed_; });
    }
    // Until the desktop's answer to the notices so far has come.
    [[nodiscard]] bool AreShown(int notices) {
        return WaitFor([&] { return notifier_.Shown() == notices || failed_ > 0; });
    }
};

TEST_F(DesktopNotices, ANoticeCarriesTitleAndText) {
    Desktop desktop;
    Notify();
    ASSERT_TRUE(AreShown(1));
    EXPECT_EQ(desktop.shown, (QStringList{QStringLiteral("title"), ToQString(u8"文字")}));
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
    ASSERT_TRUE(AreShown(1));
    // The bus answers this after it has taken the notifier's wish to hear of clicks.
    static_cast<void>(QDBusConnection::sessionBus().interface()->isServiceRegistered(kName));
    desktop.Click(Desktop::kFirstId + 100);
    desktop.Click(Desktop::kFirstId);
    // The desktop's answer to a second notice comes behind both clicks.
    Notify();
    ASSERT_TRUE(AreShown(2));
    EXPECT_EQ(clicks, 1);
}

}  // namespace
}  // namespace quorvi

#include "BusNotifierTest.moc"
