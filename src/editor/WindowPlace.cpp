#include "editor/WindowPlace.h"

#include "dialogs/Look.h"
#include "platform/settings/Settings.h"

#include <QScreen>
#include <QSplitter>
#include <QVariant>
#include <QWidget>

#include <algorithm>

namespace tolvan {
namespace {

const QString section = QStringLiteral("Settings");
const QString widthKey = QStringLiteral("EditorWidth");
const QString heightKey = QStringLiteral("EditorHeight");
const QString maximizedKey = QStringLiteral("EditorMaximized");
const QString shareKey = QStringLiteral("EditorRomanPercent");  // of the width, for the left pane
const QString zoomKey = QStringLiteral("EditorZoom");

// Properties of the editor's window: the size that placeTogether gave it, and what it was before. It counts as the
// user's choice as long as nobody changes the given one.
constexpr const char* givenSize = "tolvanGivenSize";
constexpr const char* ownSize = "tolvanOwnSize";
constexpr const char* ownMaximized = "tolvanOwnMaximized";

bool hasGivenSize(const QWidget& window) {
    return window.size() == window.property(givenSize).toSize();
}

int number(const Settings& settings, const QString& key) {
    return settings.GetSetting(section, key).toInt();
}

QSize comfortableSize() {
    return {look::em(62), look::em(40)};
}

}  // namespace

void restoreWindow(const Settings& settings, QWidget& window, QSplitter& splitter) {
    const QSize kept(number(settings, widthKey), number(settings, heightKey));
    const bool sensible = kept.width() >= look::em(20) && kept.height() >= look::em(12);
    window.resize((sensible ? kept : comfortableSize()).boundedTo(window.screen()->availableSize()));
    if (readSetting(settings.GetSetting(section, maximizedKey), false))
        window.setWindowState(window.windowState() | Qt::WindowMaximized);
    const int share = number(settings, shareKey);
    const int left = share > 5 && share < 95 ? share : 50;
    splitter.setSizes({left * 1000, (100 - left) * 1000});  // shared out in this proportion
}

void rememberWindow(Settings& settings, const QWidget& window, const QSplitter& splitter) {
    QSize size = window.isMaximized() ? window.normalGeometry().size() : window.size();
    bool isMaximized = window.isMaximized();
    if (hasGivenSize(window)) {
        size = window.property(ownSize).toSize();
        isMaximized = window.property(ownMaximized).toBool();
    }
    const QList<int> widths = splitter.sizes();
    const int whole = widths.value(0) + widths.value(1);
    settings.SaveSetting(section, widthKey, QString::number(size.width()));
    settings.SaveSetting(section, heightKey, QString::number(size.height()));
    settings.SaveSetting(section, maximizedKey, settingText(isMaximized));
    if (whole > 0) settings.SaveSetting(section, shareKey, QString::number(widths.value(0) * 100 / whole));
}

void placeTogether(QWidget& editor, QWidget& console, QWidget* below) {
    const QRect screen = editor.screen()->availableGeometry();
    const int least = std::max(look::em(27), editor.minimumSizeHint().width());
    const int forEditor = screen.width() - console.frameGeometry().width();
    if (forEditor < least || console.isMaximized()) return;
    if (!hasGivenSize(editor)) {
        editor.setProperty(ownSize, editor.isMaximized() ? editor.normalGeometry().size() : editor.size());
        editor.setProperty(ownMaximized, editor.isMaximized());
    }
    if (editor.isMaximized()) editor.setWindowState(editor.windowState() & ~Qt::WindowMaximized);
    const int width = std::min(editor.width(), forEditor);
    const int height = std::min(editor.height(), screen.height());
    const int left = std::clamp(editor.x(), screen.left(), screen.left() + forEditor - width);
    const int top = std::clamp(editor.y(), screen.top(), screen.top() + screen.height() - height);
    editor.setGeometry(left, top, width, height);
    editor.setProperty(givenSize, editor.size());
    const int lowest = std::max(screen.top(), screen.top() + screen.height() - console.height());
    console.move(left + width, below != nullptr ? screen.top() : std::clamp(top, screen.top(), lowest));
    if (below == nullptr || below->isMaximized()) return;
    const int room = screen.top() + screen.height() - console.geometry().bottom() - 1;
    below->resize(console.width(), std::max(room, std::max(below->minimumSizeHint().height(), look::em(14))));
    below->move(console.x(), screen.top() + screen.height() - below->height());
}

void raiseOver(QWidget& below, const QWidget& console) {
    if (below.frameGeometry().intersects(console.frameGeometry())) below.raise();
}

int rememberedZoom(const Settings& settings) {
    const int percent = number(settings, zoomKey);
    return percent > 0 ? percent : 100;
}

void rememberZoom(Settings& settings, int percent) {
    settings.SaveSetting(section, zoomKey, QString::number(percent));
}

}  // namespace tolvan
