#include "editor/EditorStatusBar.h"

#include "dialogs/Accessibility.h"
#include "dialogs/Look.h"
#include "dialogs/StyledLine.h"
#include "platform/encoding/Deva.h"
#include "platform/fonts/FontEncoding.h"
#include "platform/richtext/UnicodeText.h"
#include "translator/Translator.h"

#include <QLabel>
#include <QLayout>
#include <QPainter>

#include <cmath>
#include <utility>

namespace tolvan {
namespace {

constexpr std::string_view readsAsNothing = "he A]r @kqe vacta yet nahI"_deva;

constexpr double wholeWidth = 211;  // of a program with as many lines as characters

}  // namespace

// One line in the fonts of its text.
class StyledPanel : public QWidget {
  public:
    explicit StyledPanel(QWidget* parent) : QWidget(parent) {
        setMinimumWidth(1);
        accessible::setRole(*this, QAccessible::StaticText);
    }

    void setText(const StyledText& text) {
        text_ = controlText(text);
        setToolTip(QString::fromStdString(unicodeOf(text)));
        setAccessibleName(toolTip());
        setVisible(!text.empty());
        update();
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        drawStyledLine(painter, QRectF(rect()).adjusted(look::em(0.5), 0, 0, 0), text_, look::colours().text);
    }

  private:
    ControlText text_;
};

double progressWidth(const CompileProgress& progress) {
    const double step = wholeWidth / static_cast<double>(progress.characters);
    return 1 + step * static_cast<double>(progress.lines);
}

EditorStatusBar::EditorStatusBar(QWidget* parent)
    : QStatusBar(parent),
      line_(addPanel("panel1", 0)),
      message_(addPanel("panel2", 1)),
      description_(addPanel("panel3", 2)),
      progress_(addPanel("panel4", 0)),
      text_(new StyledPanel(this)) {
    setObjectName(QStringLiteral("StatusBar1"));
    setAccessibleName(accessible::unicode("iSwtI"_deva));
    setSizeGripEnabled(false);
    line_->setMinimumWidth(look::em(6));
    progress_->setAutoFillBackground(true);
    progress_->setBackgroundRole(QPalette::Highlight);
    hideProgress();
    text_->setObjectName(QStringLiteral("panelText"));
    insertWidget(3, text_, 4);
    text_->hide();
    showPanels();
}

QLabel* EditorStatusBar::addPanel(const char* name, int stretch) {
    auto* panel = new QLabel(this);
    panel->setObjectName(QLatin1String(name));
    panel->setFont(look::controlFont(Font::Devanagari));
    panel->setTextFormat(Qt::PlainText);
    panel->setContentsMargins(look::em(0.5), look::devanagariDrop(), look::em(0.5), 0);
    panel->setMinimumWidth(1);  // a long text must not make the window wider
    addWidget(panel, stretch);
    return panel;
}

void EditorStatusBar::showLine(int line) {
    line_->setText(toQString("Aae¦ "_deva) + QString::number(line));
    line_->setAccessibleName(accessible::unicode(line_->text()));
}

void EditorStatusBar::showMessage(std::string_view text) {
    message_->setTextFormat(Qt::PlainText);
    message_->setText(toQString(text));
    message_->setAccessibleName(accessible::unicode(text));
}

void EditorStatusBar::showRefused(std::u32string_view characters) {
    constexpr std::size_t most = 20;
    const std::u32string_view first = characters.substr(0, most);
    QString shown = QString::fromUcs4(first.data(), static_cast<qsizetype>(first.size()));
    if (characters.size() > most) shown += u'…';
    const std::string_view text =
        characters.size() > 1 ? "hI icNhe #we ilihta yet nahIt"_deva : "he icNh #we ilihta yet nahI"_deva;
    message_->setTextFormat(Qt::RichText);
    message_->setText(
        QStringLiteral("%1<span style=\"font-family: '%2'\">: %3</span>")
            .arg(toQString(text).toHtmlEscaped(), look::controlFont(Font::Latin).family(), shown.toHtmlEscaped()));
    message_->setAccessibleName(accessible::unicode(text) + QLatin1String(": ") + shown);
}

void EditorStatusBar::showDescription(const QString& text) {
    description_->setTextFormat(Qt::PlainText);
    description_->setText(text);
    description_->setAccessibleName(accessible::unicode(text));
    showPanels();
}

// What says nothing leaves its room to the message, which a narrow window would cut off.
void EditorStatusBar::showPanels() {
    description_->setVisible(!text_->isVisibleTo(this) && !description_->text().isEmpty());
}

void EditorStatusBar::showLeftOut(const std::string& word) {
    if (std::exchange(leftOut_, word) == word) return;
    if (word.empty()) return showDescription({});
    description_->setTextFormat(Qt::RichText);
    description_->setText(QStringLiteral("<span style='font-family: \"%1\"'>%2</span> %3")
                              .arg(look::controlFont(Font::Latin).families().join(QLatin1String("\",\"")),
                                   QString::fromStdString(word), toQString(readsAsNothing).toHtmlEscaped()));
    description_->setAccessibleName(QString::fromStdString(word) + QLatin1Char(' ') +
                                    accessible::unicode(readsAsNothing));
    showPanels();
}

void EditorStatusBar::showText(const StyledText& text) {
    text_->setText(text);
    showPanels();
}

void EditorStatusBar::showProgress(double width) {
    const int pixels = static_cast<int>(std::lround(width));
    if (progress_->isVisible() && progress_->width() == pixels) return;
    progress_->setFixedWidth(pixels);
    progress_->show();
    layout()->activate();
    repaint();
}

void EditorStatusBar::hideProgress() {
    progress_->hide();
}

}  // namespace tolvan
