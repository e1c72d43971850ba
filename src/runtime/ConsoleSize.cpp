#include "runtime/ConsoleSize.h"

#include "platform/settings/Settings.h"

#include <QGuiApplication>
#include <QScreen>

namespace tolvan {
namespace {

constexpr QSize openingSize(800, 600);
constexpr QSize smallestSize(240, 180);
const QString section = QStringLiteral("Settings");
const QString widthKey = QStringLiteral("ConsoleWidth");
const QString heightKey = QStringLiteral("ConsoleHeight");

}  // namespace

QSize rememberedConsoleSize(QMargins frame) {
    const Settings settings(Settings::userFile());
    const QSize size(settings.GetSetting(section, widthKey).toInt(), settings.GetSetting(section, heightKey).toInt());
    const bool sensible = size.width() >= smallestSize.width() && size.height() >= smallestSize.height();
    const QScreen* const screen = QGuiApplication::primaryScreen();
    const QSize window = (sensible ? size : openingSize).grownBy(frame);
    return screen == nullptr ? window : window.boundedTo(screen->availableSize());
}

void rememberConsoleSize(QSize window, QMargins frame) {
    const QSize size = window.shrunkBy(frame);
    Settings settings(Settings::userFile());
    settings.SaveSetting(section, widthKey, QString::number(size.width()));
    settings.SaveSetting(section, heightKey, QString::number(size.height()));
}

}  // namespace tolvan
