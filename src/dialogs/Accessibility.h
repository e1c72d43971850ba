// What assistive technology is told. Inside, text is in font codes; everything it reads is Unicode.
//
// Widgets get a name with setAccessibleName; menu items, windows and texts, which cannot be named like that, have
// interfaces of their own here.
#pragma once

#include "platform/richtext/StyledText.h"

#include <QAccessibleWidget>
#include <QString>

#include <string_view>
#include <vector>

namespace tolvan::accessible {

// Once, after the application object exists.
void install();

QString unicode(std::string_view codes);
// The text of a control in the Devanagari font, as toQString made it of codes.
QString unicode(const QString& shown);

// How many characters text in codes has in Unicode.
int unicodeSize(StyledView codes);

// The role of a widget that Qt knows nothing about.
void setRole(QWidget& widget, QAccessible::Role role);

// A line of a text as its widget draws it; lengths in the widget's coordinates.
struct DrawnLine {
    int start = 0;  // of its first character, in the whole text in Unicode
    StyledText codes;
    std::vector<double> edges;  // where each code starts, and where the last one ends
    double top = 0;
    double height = 0;
};

// A text that is only read. Positions are those of the Unicode text, from 0.
class ReadText : public QAccessibleWidget, public QAccessibleTextInterface {
  public:
    ReadText(QWidget& widget, QAccessible::Role role);

    virtual QString content() const = 0;
    // Those that are in view, from the top down. Characters elsewhere have no place on the screen.
    virtual std::vector<DrawnLine> drawnLines() const { return {}; }

    QString text(QAccessible::Text which) const override;
    QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    void selection(int number, int* start, int* end) const override;
    int selectionCount() const override { return 0; }
    void addSelection(int start, int end) override { setSelection(0, start, end); }
    void removeSelection(int) override { setSelection(0, 0, 0); }
    void setSelection(int, int, int) override {}
    int cursorPosition() const override { return 0; }
    void setCursorPosition(int) override {}
    QString text(int start, int end) const override;
    int characterCount() const override;
    // That of the letter, which may be drawn from several characters.
    QRect characterRect(int offset) const override;
    int offsetAtPoint(const QPoint& point) const override;
    void scrollToSubstring(int, int) override {}
    QString attributes(int offset, int* start, int* end) const override;
};

// Whether anybody listens; what is only for them need not be made else.
inline bool isUsed() {
    return QAccessible::isActive();
}

// That text was put at the end of a widget's own text, which has been that long before.
void announce(QWidget& widget, int position, const QString& text);

// Takes the events that Qt sends of the text of a widget, whose positions count font codes; `caret`, where there is
// one, gives the caret's place in the Unicode text, and is told on.
void replaceTextEvents(QWidget& widget, int (*caret)(QWidget& widget));

}  // namespace tolvan::accessible
