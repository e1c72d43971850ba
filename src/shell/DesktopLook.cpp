#include "shell/DesktopLook.h"

#include "dialogs/Look.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QFile>

namespace tolvan {
namespace {

const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString object = QStringLiteral("/org/freedesktop/portal/desktop");
const QString interface = QStringLiteral("org.freedesktop.portal.Settings");
const QString appearance = QStringLiteral("org.freedesktop.appearance");
const QString colourScheme = QStringLiteral("color-scheme");  // 1: dark, 2: light
const QString contrast = QStringLiteral("contrast");          // 1: higher

// Asking for a bus that is not there would start one.
bool hasBus() {
    return qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS") ||
           QFile::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + QStringLiteral("/bus"));
}

// The older call of the portal wraps the value twice.
QVariant unwrapped(QVariant value) {
    while (value.canConvert<QDBusVariant>()) value = value.value<QDBusVariant>().variant();
    return value;
}

}  // namespace

DesktopLook::DesktopLook() : start_(look::kindOfDesktop()) {
    if (start_ == look::Kind::Contrast || !hasBus()) return;
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) return;
    bus.connect(service, object, interface, QStringLiteral("SettingChanged"), this,
                SLOT(settingChanged(QString, QString, QDBusVariant)));
    ask(colourScheme);
    ask(contrast);
}

void DesktopLook::ask(const QString& key) {
    QDBusMessage question = QDBusMessage::createMethodCall(service, object, interface, QStringLiteral("Read"));
    question << appearance << key;
    auto* const answer = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(question), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, key, answer] {
        const QDBusPendingReply<QDBusVariant> reply = *answer;
        if (reply.isValid()) take(key, unwrapped(reply.value().variant()));
        answer->deleteLater();
    });
}

void DesktopLook::settingChanged(const QString& space, const QString& key, const QDBusVariant& value) {
    if (space == appearance) take(key, unwrapped(value.variant()));
}

void DesktopLook::take(const QString& key, const QVariant& value) {
    if (key == colourScheme && value.toUInt() > 0)
        start_ = value.toUInt() == 1 ? look::Kind::Dark : look::Kind::Light;
    else if (key == contrast)
        highContrast_ = value.toUInt() == 1;
    const look::Kind kind = highContrast_ ? look::Kind::Contrast : start_;
    if (kind != look::kindOfDesktop()) emit changed(kind);
}

}  // namespace tolvan
