#include "runtime/ConsoleSize.h"

#include "dialogs/WindowFrame.h"
#include "platform/settings/Settings.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

namespace tolvan {
namespace {

constexpr QSize openingSize(800, 600);
constexpr QSize smallestSize(240, 180);
const QString section = QStringLiteral("Settings");
const QString widthKey = QStringLiteral("ConsoleWidth");
const QString heightKey = QStringLiteral("ConsoleHeight");

}  // namespace

ConsoleSize::ConsoleSize(QWidget& window, const WindowFrame& frame) : window_(window), frame_(frame) {
    const Settings settings(Settings::userFile());
    const QSize size(settings.GetSetting(section, widthKey).toInt(), settings.GetSetting(section, heightKey).toInt());
    const bool sensible = size.width() >= smallestSize.width() && size.height() >= smallestSize.height();
    const QScreen* const screen = QGuiApplication::primaryScreen();
    opened_ = sensible ? size : openingSize;
    if (screen != nullptr) opened_ = opened_.boundedTo(screen->availableSize());  // before the sum could overflow
    opened_ = opened_.grownBy(frame.normalMargins());
    if (screen != nullptr) opened_ = opened_.boundedTo(screen->availableSize());
    window.resize(opened_);
}

void ConsoleSize::remember() {
    const bool isLarge = window_.isMaximized() || window_.isFullScreen();
    const QSize normal = isLarge ? window_.normalGeometry().size() : window_.size();
    if (normal == opened_) return;
    opened_ = normal;
    const QSize size = normal.shrunkBy(frame_.normalMargins());
    Settings settings(Settings::userFile());
    settings.SaveSetting(section, widthKey, QString::number(size.width()));
    settings.SaveSetting(section, heightKey, QString::number(size.height()));
}

}  // namespace tolvan
