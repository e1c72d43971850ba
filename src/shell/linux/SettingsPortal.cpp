#include "shell/linux/SettingsPortal.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QFile>

#include <chrono>
#include <cstdio>
#include <cstdlib>

namespace tolvan {
namespace {

const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString object = QStringLiteral("/org/freedesktop/portal/desktop");
const QString interface = QStringLiteral("org.freedesktop.portal.Settings");
const QString appearance = QStringLiteral("org.freedesktop.appearance");
const QString colourScheme = QStringLiteral("color-scheme");  // 1: dark, 2: light, 0: either
const QString contrast = QStringLiteral("contrast");          // 1: higher

constexpr std::chrono::milliseconds patience(200);  // with a bus that has not answered yet when the program ends

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

// Qt waits for its connections when the process has left main(), for a silent bus without end. By then all of our own
// is done: the process ends there with its status.
void endWithoutWaiting() {
    ::on_exit(
        [](int status, void*) {
            std::fflush(nullptr);
            std::_Exit(status);
        },
        nullptr);
}

}  // namespace

// A bus that answers late, or never, must not hold up the start.
SettingsPortal::SettingsPortal(DesktopLook& look) : look_(look) {
    if (start_ == look::Kind::Contrast || !hasBus()) return;
    connector_.reset(QThread::create([] { QDBusConnection::sessionBus(); }));
    connect(connector_.get(), &QThread::finished, this, &SettingsPortal::listen);
    connector_->start();
}

SettingsPortal::~SettingsPortal() {
    if (!connector_ || connector_->wait(QDeadlineTimer(patience))) return;
    [[maybe_unused]] const QThread* const left = connector_.release();  // one that runs must not be deleted
    endWithoutWaiting();
}

void SettingsPortal::listen() {
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) return;
    qRegisterMetaType<QDBusVariant>();  // a slot whose types are not known by name yet cannot be connected
    bus.connect(service, object, interface, QStringLiteral("SettingChanged"), this,
                SLOT(settingChanged(QString, QString, QDBusVariant)));
    ask(colourScheme);
    ask(contrast);
}

void SettingsPortal::ask(const QString& key) {
    QDBusMessage question = QDBusMessage::createMethodCall(service, object, interface, QStringLiteral("Read"));
    question << appearance << key;
    auto* const answer = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(question), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, key, answer] {
        const QDBusPendingReply<QDBusVariant> reply = *answer;
        if (reply.isValid()) take(key, unwrapped(reply.value().variant()));
        answer->deleteLater();
    });
}

void SettingsPortal::settingChanged(const QString& space, const QString& key, const QDBusVariant& value) {
    if (space == appearance) take(key, unwrapped(value.variant()));
}

void SettingsPortal::take(const QString& key, const QVariant& value) {
    if (key == colourScheme)
        preferred_ = value.toUInt() == 1 ? look::Kind::Dark : value.toUInt() == 2 ? look::Kind::Light : start_;
    else if (key == contrast)
        highContrast_ = value.toUInt() == 1;
    const look::Kind kind = highContrast_ ? look::Kind::Contrast : preferred_;
    if (kind != look::kindOfDesktop()) emit look_.changed(kind);
}

}  // namespace tolvan
