#include "editor/panes/EmptyHint.h"

#include "dialogs/Accessibility.h"
#include "dialogs/Look.h"
#include "dialogs/StyledLine.h"
#include "editor/panes/RomanBox.h"
#include "platform/richtext/UnicodeText.h"
#include "translator/ProgramText.h"

#include <QEvent>
#include <QPainter>

namespace tolvan {
namespace {

constexpr const char* lines[] = {
    "ithe #Roman# akShare lihA",
    "#F5#: prAyojan surU kar   #F1#: madat",
    "#Ctrl+O#: tayAr udAharaNe",
};

}  // namespace

EmptyHint::EmptyHint(RomanBox& roman) : QWidget(roman.viewport()), roman_(roman) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    accessible::setRole(*this, QAccessible::StaticText);
    QStringList texts;
    for (const char* line : lines) texts += QString::fromStdString(unicodeOf(Transliterate(line)));
    setAccessibleName(texts.join(u'\n'));
    roman.viewport()->installEventFilter(this);
    connect(&roman, &RomanBox::textChanged, this, &EmptyHint::follow);
    connect(&roman, &RomanBox::zoomChanged, this, &EmptyHint::follow);
    follow();
}

void EmptyHint::follow() {
    setGeometry(roman_.viewport()->rect());
    setVisible(roman_.document()->isEmpty());
}

bool EmptyHint::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize) follow();
    return QWidget::eventFilter(watched, event);
}

void EmptyHint::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    QRectF area(look::em(0.5), roman_.firstVisibleTop() + 1.5 * roman_.lineHeight(), width() - look::em(1),
                roman_.lineHeight());
    for (const char* line : lines) {
        drawStyledLine(painter, area, controlText(Transliterate(line)), look::colours().dimText);
        area.translate(0, roman_.lineHeight());
    }
}

}  // namespace tolvan
