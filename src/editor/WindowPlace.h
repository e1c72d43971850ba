// The size of the editor's window, the place of its splitter and the zoom of its panes, kept in the user's settings.
#pragma once

class QSplitter;
class QWidget;

namespace tolvan {

class Settings;

// Where the settings hold nothing sensible, a comfortable size with both panes equally wide; never larger than the
// screen.
void restoreWindow(const Settings& settings, QWidget& window, QSplitter& splitter);
// A size that placeTogether gave it is not the user's: the one before is remembered.
void rememberWindow(Settings& settings, const QWidget& window, const QSplitter& splitter);

// Puts the console at the right of the editor, so that both are seen, where the screen has the room; the editor becomes
// narrower for it if need be. A third window comes below the console, as far as there is room.
void placeTogether(QWidget& editor, QWidget& console, QWidget* below = nullptr);

// Where the screen has no room for both, the third window covers the lower part of the console, which most programs
// need last.
void raiseOver(QWidget& below, const QWidget& console);

// Percent; 100 where the settings hold nothing.
int rememberedZoom(const Settings& settings);
void rememberZoom(Settings& settings, int percent);

}  // namespace tolvan
