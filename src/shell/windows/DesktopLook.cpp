#include "shell/DesktopLook.h"

#include "dialogs/Look.h"

#include <QAbstractNativeEventFilter>
#include <QCoreApplication>
#include <QSettings>

#include <windows.h>

namespace tolvan {
namespace {

// The registry has no value before Windows 10, and where nobody ever chose one.
bool isDark() {
    const QSettings choice(
        QStringLiteral("HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Themes\\Personalize"),
        QSettings::NativeFormat);
    return choice.value(QStringLiteral("AppsUseLightTheme"), 1).toUInt() == 0;
}

bool isHighContrast() {
    HIGHCONTRASTW setting = {};
    setting.cbSize = sizeof setting;
    return SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof setting, &setting, 0) != 0 &&
           (setting.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

look::Kind systemKind() {
    if (isHighContrast()) return look::Kind::Contrast;
    return isDark() ? look::Kind::Dark : look::Kind::Light;
}

// Every window is told that some setting of the system has changed.
class SystemSettings : public QObject, public QAbstractNativeEventFilter {
  public:
    explicit SystemSettings(DesktopLook& look) : look_(look) {
        QCoreApplication::instance()->installNativeEventFilter(this);
        tellLater();
    }

    bool nativeEventFilter(const QByteArray&, void* message, qintptr*) override {
        if (static_cast<const MSG*>(message)->message == WM_SETTINGCHANGE) tellLater();
        return false;  // Qt reads it, too
    }

  private:
    void tellLater() { QMetaObject::invokeMethod(this, &SystemSettings::tell, Qt::QueuedConnection); }
    void tell() {
        if (const look::Kind kind = systemKind(); kind != look::kindOfDesktop()) emit look_.changed(kind);
    }

    DesktopLook& look_;
};

}  // namespace

DesktopLook::DesktopLook() : source_(std::make_unique<SystemSettings>(*this)) {}

DesktopLook::~DesktopLook() = default;

}  // namespace tolvan
