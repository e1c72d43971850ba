#include "dialogs/Look.h"

#include "dialogs/Accessibility.h"
#include "platform/fonts/FontEncoding.h"
#include "platform/fonts/Fonts.h"

#include <QApplication>
#include <QEvent>
#include <QFontMetrics>
#include <QPalette>
#include <QStyleFactory>
#include <QToolTip>
#include <QWidget>

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

Kind used = Kind::Light;
Kind desktop = Kind::Light;

QPalette palette() {
    const Colours& c = colours();
    const std::pair<QPalette::ColorRole, QColor> roles[] = {
        {QPalette::Window, c.background}, {QPalette::WindowText, c.text},
        {QPalette::Base, c.paper},        {QPalette::AlternateBase, c.footer},
        {QPalette::Text, c.text},         {QPalette::PlaceholderText, c.dimText},
        {QPalette::Button, c.paper},      {QPalette::ButtonText, c.text},
        {QPalette::Highlight, c.accent},  {QPalette::HighlightedText, c.textOnAccent},
        {QPalette::Link, c.accent},       {QPalette::ToolTipBase, c.paper},
        {QPalette::ToolTipText, c.text},
    };
    QPalette palette(c.background);
    for (const auto& [role, colour] : roles) palette.setColor(role, colour);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, c.greyedText);
    return palette;
}

// Colours are written into it by their names above; @above and @below are paddings that centre Devanagari text.
constexpr const char* styleSheetPattern = R"(
    QPushButton {
        background: @paper; color: @text; border: 2px solid @line; border-radius: 0.3em;
        padding: @above 1em @below 1em; min-width: 4em;
    }
    QPushButton:hover { background: @accentLight; border-color: @frameActive; }
    QPushButton:pressed { background: @captionActive; }
    QPushButton:default { background: @accent; color: @textOnAccent; border-color: @accent; }
    QPushButton:focus { border-color: @focus; }
    QPushButton:default:focus { border-color: @text; }
    QPushButton:disabled { background: @footer; color: @greyedText; border-color: @line; }
    QMenu { background: @paper; color: @text; border: 1px solid @frameInactive; padding: 0.2em 0; }
    QMenu::item { padding: @above 2em @below 1.2em; }
    QMenu::item:selected { background: @accentLight; color: @text; }
    QMenu::item:disabled { color: @greyedText; background: transparent; }
    QMenu::separator { height: 1px; background: @line; margin: 0.25em 0.6em; }
    QMenuBar { background: @background; border-bottom: 1px solid @line; }
    QMenuBar::item { padding: @above 0.7em @below 0.7em; background: transparent; color: @text; }
    QMenuBar::item:selected, QMenuBar::item:pressed { background: @accentLight; }
    QToolBar { background: @footer; border: none; border-bottom: 1px solid @line; padding: 0.15em; spacing: 0.1em; }
    QToolButton { border: 2px solid transparent; border-radius: 0.25em; padding: 0.2em; }
    QToolButton:hover { background: @accentLight; border-color: @line; }
    QToolButton:pressed, QToolButton:checked { background: @captionActive; }
    QToolButton:focus { border-color: @focus; }
    #qt_toolbar_ext_button { border: none; padding: 0; }
    QStatusBar { background: @footer; border-top: 1px solid @line; }
    QCheckBox::indicator, QRadioButton::indicator {
        position: relative; bottom: @drop; width: 1em; height: 1em;
        background: @paper; border: 2px solid @dimText; border-radius: 0.2em;
    }
    QRadioButton::indicator { border-radius: 0.5em; }
    QCheckBox::indicator:checked { background: @accent; border-color: @accent; image: url(:/tolvan/@tick.png); }
    QRadioButton::indicator:checked {
        background: qradialgradient(cx: 0.5, cy: 0.5, fx: 0.5, fy: 0.5, radius: 0.5,
                                    stop: 0 @accent, stop: 0.5 @accent, stop: 0.6 @paper, stop: 1 @paper);
    }
    QCheckBox::indicator:focus, QRadioButton::indicator:focus { border-color: @focus; }
    QCheckBox:focus, QRadioButton:focus { color: @accent; }
    QTabWidget::pane { border: 2px solid @line; top: -2px; }
    QTabBar::tab {
        background: @footer; color: @text; border: 2px solid @line; margin-right: 0.2em;
        padding: @above 0.9em @below 0.9em;
    }
    QTabBar::tab:selected { background: @paper; border-color: @frameActive; border-bottom-color: @paper; }
    QTabBar::tab:selected:focus { border-color: @focus; }
    QSlider::groove:horizontal { background: @dimText; height: 0.2em; border-radius: 0.1em; }
    QSlider::handle:horizontal {
        background: @accent; border: 2px solid @footer; width: 0.7em; margin: -0.4em 0; border-radius: 0.3em;
    }
    QSlider::handle:horizontal:focus { border-color: @text; }
    QListWidget { outline: none; border: 2px solid @line; }
    QListWidget:focus { border-color: @focus; }
    QLineEdit, QComboBox { background: @paper; color: @text; border: 2px solid @line; padding: 0.1em 0.3em; }
    QLineEdit:focus, QComboBox:focus { border-color: @focus; }
    QListWidget::item { padding: @drop 0.4em 0 0.4em; background: transparent; color: @text; }
    QListWidget::item:selected { background: @accent; color: @textOnAccent; }
    QSlider::groove:horizontal { height: 0.2em; background: @dimText; }
    QSlider::handle:horizontal {
        width: 0.6em; margin: -0.4em 0; background: @accent; border: 2px solid @accent; border-radius: 0.3em;
    }
    QSlider::handle:horizontal:focus { border-color: @text; }
    QSlider::handle:horizontal:disabled { background: @line; border-color: @line; }
    QScrollBar { background: @footer; }
    QScrollBar:vertical { width: 0.8em; }
    QScrollBar:horizontal { height: 0.8em; }
    QScrollBar::handle { background: @frameInactive; border-radius: 0.2em; margin: 0.15em; }
    QScrollBar::handle:vertical { min-height: 1.6em; }
    QScrollBar::handle:horizontal { min-width: 1.6em; }
    QScrollBar::handle:hover { background: @frameActive; }
    QScrollBar::add-line, QScrollBar::sub-line { width: 0; height: 0; }
    QScrollBar::add-page, QScrollBar::sub-page { background: none; }
    QDialogButtonBox { dialogbuttonbox-buttons-have-icons: 0; }
    QFileDialog QTreeView, QFileDialog QListView { border: 2px solid @line; }
    QFileDialog QTreeView:focus, QFileDialog QListView:focus { border-color: @focus; }
    QGroupBox { border: 2px solid @line; border-radius: 0.3em; margin-top: 0.8em; padding-top: 0.5em; }
    QGroupBox::title { subcontrol-origin: margin; left: 0.8em; padding: 0 0.3em; }
    QSplitter::handle:horizontal { border-left: 1px solid @line; }
    QSplitter::handle:vertical { border-top: 1px solid @line; }
    QToolTip { background: @paper; color: @text; border: 1px solid @line; padding: 0.2em; }
)";

QString styleSheet() {
    const Colours& c = colours();
    const struct {
        const char* name;
        QColor colour;
    } names[] = {
        // A name that is the beginning of another one comes after it.
        {"@background", c.background},
        {"@paper", c.paper},
        {"@textOnAccent", c.textOnAccent},
        {"@text", c.text},
        {"@line", c.line},
        {"@accentLight", c.accentLight},
        {"@accent", c.accent},
        {"@focus", c.focus},
        {"@frameActive", c.frameActive},
        {"@frameInactive", c.frameInactive},
        {"@captionActive", c.captionActive},
        {"@footer", c.footer},
        {"@greyedText", c.greyedText},
        {"@dimText", c.dimText},
    };
    QString sheet = QString::fromLatin1(styleSheetPattern);
    for (const auto& [name, colour] : names) sheet.replace(QLatin1String(name), colour.name());
    const auto pixels = [](int count) { return QString::number(std::max(0, count)) + QLatin1String("px"); };
    sheet.replace(QLatin1String("@tick"), QLatin1String(used == Kind::Light ? "tick-light" : "tick-dark"));
    sheet.replace(QLatin1String("@above"), pixels(em(0.3) + devanagariDrop()));
    sheet.replace(QLatin1String("@drop"), pixels(devanagariDrop()));
    sheet.replace(QLatin1String("@below"), pixels(em(0.3) - devanagariDrop()));
    return sheet;
}

}  // namespace

const Colours& colours() {
    return coloursOf(used);
}

Kind kind() {
    return used;
}

Kind kindOfDesktop() {
    return desktop;
}

void setKindOfDesktop(Kind kind) {
    desktop = kind;
}

void apply(QApplication& application) {
    const QColor window = QGuiApplication::palette().color(QPalette::Window);
    const QColor text = QGuiApplication::palette().color(QPalette::WindowText);
    if (contrast(window, Qt::black) < contrast(window, Qt::white))
        desktop = window == Qt::black && contrast(window, text) > 18 ? Kind::Contrast : Kind::Dark;
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setWindowIcon(applicationIcon());
    accessible::install();
    used = desktop;
    QApplication::setPalette(palette());
    QToolTip::setPalette(palette());
    application.setStyleSheet(styleSheet());
}

void use(Kind kind) {
    if (std::exchange(used, kind) == kind) return;
    QApplication::setPalette(palette());
    QToolTip::setPalette(palette());
    qApp->setStyleSheet(styleSheet());
    // Widgets that a style sheet reaches are not told of another palette.
    for (QWidget* widget : QApplication::allWidgets()) {
        QEvent change(QEvent::PaletteChange);
        QCoreApplication::sendEvent(widget, &change);
        widget->update();
    }
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
