// The status bar of the editor: the line of the caret, what the system is doing, what a command is for, and how far a
// translation has come. Its panels are named panel1 to panel4.
#pragma once

#include "platform/richtext/StyledText.h"

#include <QStatusBar>

#include <cstddef>
#include <string>
#include <string_view>

class QLabel;

namespace tolvan {

class StyledPanel;

struct CompileProgress;

// The width of the progress panel in logical pixels: it grows by the same step for each line.
double progressWidth(const CompileProgress& progress);

class EditorStatusBar : public QStatusBar {
    Q_OBJECT
  public:
    explicit EditorStatusBar(QWidget* parent);

    // All texts are font-encoded.
    void showLine(int line);
    void showMessage(std::string_view text);
    void showDescription(const QString& text);
    // A Roman word that stands for nothing, in the panel of the description; empty: none, which takes the last one
    // away.
    void showLeftOut(const std::string& word);
    // Characters that cannot be written into a program, shown as themselves in the place of the message.
    void showRefused(std::u32string_view characters);

    // In the place of descriptions, as long as it is not empty.
    void showText(const StyledText& text);

    // Drawn at once, since a translation lets no events run.
    void showProgress(double width);
    void hideProgress();

  private:
    QLabel* addPanel(const char* name, int stretch);
    void showPanels();

    QLabel* line_;
    QLabel* message_;
    QLabel* description_;
    QLabel* progress_;
    std::string leftOut_;
    StyledPanel* text_;  // stands where the description does
};

}  // namespace tolvan
