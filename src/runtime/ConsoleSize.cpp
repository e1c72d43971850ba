#include "runtime/ConsoleSize.h"

#include <QGuiApplication>
#include <QScreen>
#include <QSettings>

namespace tolvan {
namespace {

constexpr QSize openingSize(800, 600);
constexpr QSize smallestSize(240, 180);
const QString widthKey = QStringLiteral("Settings/ConsoleWidth");
const QString heightKey = QStringLiteral("Settings/ConsoleHeight");

}  // namespace

QSize rememberedConsoleSize(QMargins frame) {
    const QSettings settings;
    const QSize size(settings.value(widthKey).toInt(), settings.value(heightKey).toInt());
    const bool sensible = size.width() >= smallestSize.width() && size.height() >= smallestSize.height();
    const QScreen* const screen = QGuiApplication::primaryScreen();
    const QSize window = (sensible ? size : openingSize).grownBy(frame);
    return screen == nullptr ? window : window.boundedTo(screen->availableSize());
}

void rememberConsoleSize(QSize window, QMargins frame) {
    const QSize size = window.shrunkBy(frame);
    QSettings settings;
    settings.setValue(widthKey, QString::number(size.width()));
    settings.setValue(heightKey, QString::number(size.height()));
}

}  // namespace tolvan
