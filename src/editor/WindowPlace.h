// The size of the editor's window and the place of its splitter, kept in the user's settings.
#pragma once

class QSplitter;
class QWidget;

namespace tolvan {

class Settings;

// Where the settings hold nothing sensible, a comfortable size with both panes equally wide; never larger than the
// screen.
void restoreWindow(const Settings& settings, QWidget& window, QSplitter& splitter);
void rememberWindow(Settings& settings, const QWidget& window, const QSplitter& splitter);

}  // namespace tolvan
