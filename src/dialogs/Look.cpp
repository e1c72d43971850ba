#include "dialogs/Look.h"

#include "platform/fonts/FontEncoding.h"
#include "platform/fonts/Fonts.h"

#include <QApplication>
#include <QFontMetrics>
#include <QPalette>
#include <QStyleFactory>
#include <QToolTip>

#include <algorithm>
#include <utility>

// A static library's resources are linked only where they are asked for by name; the call must stand outside any
// namespace.
static void loadResources() {
    Q_INIT_RESOURCE(dialogs);
}

namespace tolvan::look {
namespace {

constexpr qreal devanagariScale = 1.3;

QPalette palette() {
    static constexpr std::pair<QPalette::ColorRole, QColor> colours[] = {
        {QPalette::Window, background}, {QPalette::WindowText, text},
        {QPalette::Base, paper},        {QPalette::AlternateBase, footer},
        {QPalette::Text, text},         {QPalette::PlaceholderText, dimText},
        {QPalette::Button, paper},      {QPalette::ButtonText, text},
        {QPalette::Highlight, accent},  {QPalette::HighlightedText, textOnAccent},
        {QPalette::Link, accent},       {QPalette::ToolTipBase, paper},
        {QPalette::ToolTipText, text},
    };
    QPalette palette(background);
    for (const auto& [role, colour] : colours) palette.setColor(role, colour);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, greyedText);
    return palette;
}

// Colours are written into it by their names above; @above and @below are paddings that centre Devanagari text.
constexpr const char* styleSheetPattern = R"(
    QPushButton {
        background: @paper; color: @text; border: 1px solid @line; border-radius: 0.3em;
        padding: @above 1em @below 1em; min-width: 4em;
    }
    QPushButton:hover { background: @accentLight; border-color: @frameActive; }
    QPushButton:pressed { background: @captionActive; }
    QPushButton:focus, QPushButton:default { border-color: @accent; }
    QPushButton:default { background: @accent; color: @textOnAccent; }
    QPushButton:default:hover { background: @frameActive; }
    QPushButton:disabled { background: @footer; color: @greyedText; border-color: @line; }
    QMenu { background: @paper; color: @text; border: 1px solid @frameInactive; padding: 0.2em 0; }
    QMenu::item { padding: @above 2em @below 1.2em; }
    QMenu::item:selected { background: @accentLight; }
    QMenu::item:disabled { color: @greyedText; background: transparent; }
    QMenu::separator { height: 1px; background: @line; margin: 0.25em 0.6em; }
    QMenuBar { background: @background; border-bottom: 1px solid @line; }
    QMenuBar::item { padding: @above 0.7em @below 0.7em; background: transparent; }
    QMenuBar::item:selected, QMenuBar::item:pressed { background: @accentLight; }
    QToolBar { background: @footer; border: none; border-bottom: 1px solid @line; padding: 0.15em; spacing: 0.1em; }
    QToolButton { border: 1px solid transparent; border-radius: 0.25em; padding: 0.2em; }
    QToolButton:hover { background: @accentLight; border-color: @line; }
    QToolButton:pressed, QToolButton:checked { background: @captionActive; }
    QStatusBar { background: @footer; border-top: 1px solid @line; }
    QCheckBox::indicator, QRadioButton::indicator { position: relative; bottom: @drop; }
    QListWidget { outline: none; }
    QListWidget::item { padding: @drop 0.4em 0 0.4em; background: transparent; color: @text; }
    QListWidget::item:selected { background: @accent; color: @textOnAccent; }
    QScrollBar { background: @footer; }
    QScrollBar:vertical { width: 0.8em; }
    QScrollBar:horizontal { height: 0.8em; }
    QScrollBar::handle { background: @frameInactive; border-radius: 0.2em; margin: 0.15em; }
    QScrollBar::handle:vertical { min-height: 1.6em; }
    QScrollBar::handle:horizontal { min-width: 1.6em; }
    QScrollBar::handle:hover { background: @frameActive; }
    QScrollBar::add-line, QScrollBar::sub-line { width: 0; height: 0; }
    QScrollBar::add-page, QScrollBar::sub-page { background: none; }
    QToolTip { background: @paper; color: @text; border: 1px solid @line; padding: 0.2em; }
)";

QString styleSheet() {
    const struct {
        const char* name;
        QColor colour;
    } names[] = {
        // A name that is the beginning of another one comes after it.
        {"@background", background},
        {"@paper", paper},
        {"@textOnAccent", textOnAccent},
        {"@text", text},
        {"@line", line},
        {"@accentLight", accentLight},
        {"@accent", accent},
        {"@frameActive", frameActive},
        {"@frameInactive", frameInactive},
        {"@captionActive", captionActive},
        {"@footer", footer},
        {"@greyedText", greyedText},
    };
    QString sheet = QString::fromLatin1(styleSheetPattern);
    for (const auto& [name, colour] : names) sheet.replace(QLatin1String(name), colour.name());
    const auto pixels = [](int count) { return QString::number(std::max(0, count)) + QLatin1String("px"); };
    sheet.replace(QLatin1String("@above"), pixels(em(0.3) + devanagariDrop()));
    sheet.replace(QLatin1String("@drop"), pixels(devanagariDrop()));
    sheet.replace(QLatin1String("@below"), pixels(em(0.3) - devanagariDrop()));
    return sheet;
}

}  // namespace

void apply(QApplication& application) {
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setPalette(palette());
    QToolTip::setPalette(palette());
    QApplication::setWindowIcon(applicationIcon());
    application.setStyleSheet(styleSheet());
}

QFont controlFont(Font font) {
    const qreal desktopSize = std::max(9.0, QFontInfo(QApplication::font()).pointSizeF());
    return qtFont(font, desktopSize * devanagariScale);
}

int devanagariBodyHeight() {
    return QFontMetrics(controlFont(Font::Devanagari)).tightBoundingRect(toQString("k")).height();
}

int devanagariDrop() {
    const QFontMetrics metrics(controlFont(Font::Devanagari));
    return (metrics.height() + devanagariBodyHeight()) / 2 - metrics.ascent();
}

int em() {
    return std::max(12, QFontMetrics(QApplication::font()).height());
}

QString captionText(std::string_view fontEncoded) {
    return toQString(fontEncoded).replace(QLatin1Char('&'), QLatin1String("&&"));
}

void showToolTip(QWidget& owner, QPoint global, const QString& fontEncoded) {
    const QFont font = controlFont(Font::Devanagari);
    QToolTip::showText(global,
                       QStringLiteral("<p style='white-space: pre; font-family: \"%1\"; font-size: %2pt'>%3</p>")
                           .arg(font.families().join(QLatin1String("\",\"")))
                           .arg(font.pointSizeF())
                           .arg(fontEncoded.toHtmlEscaped()),
                       &owner);
}

QIcon applicationIcon() {
    loadResources();
    QIcon icon;
    for (const int size : {16, 32, 48, 128, 256}) icon.addFile(QStringLiteral(":/tolvan/tolbasic-%1.png").arg(size));
    return icon;
}

}  // namespace tolvan::look
