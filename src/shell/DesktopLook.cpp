#include "shell/DesktopLook.h"

#include "dialogs/Look.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QFile>
#include <QThread>

namespace tolvan {
namespace {

const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString object = QStringLiteral("/org/freedesktop/portal/desktop");
const QString interface = QStringLiteral("org.freedesktop.portal.Settings");
const QString appearance = QStringLiteral("org.freedesktop.appearance");
const QString colourScheme = QStringLiteral("color-scheme");  // 1: dark, 2: light, 0: either
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

// A bus that answers late, or never, must not hold up the start.
DesktopLook::DesktopLook() : start_(look::kindOfDesktop()) {
    if (start_ == look::Kind::Contrast || !hasBus()) return;
    connector_.reset(QThread::create([] { QDBusConnection::sessionBus(); }));
    connect(connector_.get(), &QThread::finished, this, &DesktopLook::listen);
    connector_->start();
}

DesktopLook::~DesktopLook() {
    if (connector_) connector_->wait();
}

void DesktopLook::listen() {
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) return;
    qRegisterMetaType<QDBusVariant>();  // a slot whose types are not known by name yet cannot be connected
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
    if (key == colourScheme)
        preferred_ = value.toUInt() == 1 ? look::Kind::Dark : value.toUInt() == 2 ? look::Kind::Light : start_;
    else if (key == contrast)
        highContrast_ = value.toUInt() == 1;
    const look::Kind kind = highContrast_ ? look::Kind::Contrast : preferred_;
    if (kind != look::kindOfDesktop()) emit changed(kind);
}

}  // namespace tolvan
