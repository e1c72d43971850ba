// What Qt says in windows of its own, in Marathi: the file dialog and the menu of a text field. They draw in the
// desktop's font, so these texts are Unicode.
#pragma once

#include <QTranslator>

class QApplication;

namespace tolvan {

class MarathiTexts : public QTranslator {
    Q_OBJECT
  public:
    using QTranslator::QTranslator;

    // A text that it does not know is left as it is.
    QString translate(const char* context, const char* source, const char* disambiguation, int count) const override;
    bool isEmpty() const override { return false; }

    // Makes the application speak Marathi, if the machine has a font to show it in.
    static void installIn(QApplication& application);
};

}  // namespace tolvan
