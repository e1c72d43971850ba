// The look that the desktop asks for, over a session bus of the test's own.
#include "dialogs/Look.h"
#include "shell/DesktopLook.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QProcess>
#include <QTest>

#include <gtest/gtest.h>

namespace tolvan {
namespace {

// The desktop's settings, as their portal tells them.
class Portal : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")
  public slots:
    QDBusVariant Read(const QString&, const QString& key) {
        return QDBusVariant(QVariant::fromValue(QDBusVariant(settings[key])));
    }

  public:
    void set(QDBusConnection& bus, const QString& key, uint value) {
        settings[key] = value;
        QDBusMessage told = QDBusMessage::createSignal(QStringLiteral("/org/freedesktop/portal/desktop"),
                                                       QStringLiteral("org.freedesktop.portal.Settings"),
                                                       QStringLiteral("SettingChanged"));
        told << QStringLiteral("org.freedesktop.appearance") << key
             << QVariant::fromValue(QDBusVariant(QVariant(value)));
        bus.send(told);
    }
    QMap<QString, QVariant> settings{{QStringLiteral("color-scheme"), 1U}, {QStringLiteral("contrast"), 0U}};
};

TEST(DesktopLookTest, IsAskedForAndFollowedWhileTheApplicationRuns) {
    QProcess daemon;
    daemon.start(QStringLiteral("dbus-daemon"),
                 {QStringLiteral("--session"), QStringLiteral("--nofork"), QStringLiteral("--print-address")});
    ASSERT_TRUE(daemon.waitForReadyRead()) << "dbus is needed";
    const QString address = QString::fromUtf8(daemon.readLine().trimmed());
    qputenv("DBUS_SESSION_BUS_ADDRESS", address.toUtf8());
    QDBusConnection bus = QDBusConnection::connectToBus(address, QStringLiteral("portal"));
    Portal portal;
    ASSERT_TRUE(bus.registerService(QStringLiteral("org.freedesktop.portal.Desktop")));
    ASSERT_TRUE(bus.registerObject(QStringLiteral("/org/freedesktop/portal/desktop"), &portal,
                                   QDBusConnection::ExportAllSlots));
    ASSERT_EQ(look::kindOfDesktop(), look::Kind::Light);
    {
        DesktopLook desktop;
        QObject::connect(&desktop, &DesktopLook::changed, [](look::Kind kind) { look::setKindOfDesktop(kind); });
        const auto becomes = [](look::Kind kind) {
            return QTest::qWaitFor([kind] { return look::kindOfDesktop() == kind; });
        };
        EXPECT_TRUE(becomes(look::Kind::Dark)) << "as it is at the start";
        portal.set(bus, QStringLiteral("contrast"), 1);
        EXPECT_TRUE(becomes(look::Kind::Contrast));
        portal.set(bus, QStringLiteral("contrast"), 0);
        EXPECT_TRUE(becomes(look::Kind::Dark));
        portal.set(bus, QStringLiteral("color-scheme"), 0);
        EXPECT_TRUE(becomes(look::Kind::Light));
    }
    QDBusConnection::disconnectFromBus(QStringLiteral("portal"));
    daemon.terminate();
    daemon.waitForFinished();
}

}  // namespace
}  // namespace tolvan

#include "DesktopLookTest.moc"
