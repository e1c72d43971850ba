// What the system is told of a window that draws its own frame (WindowFrame.h), so that it treats it as any other.
#pragma once

#include <functional>

class QWidget;

namespace tolvan::systemframe {

// Once `window` has a native window: if `resizable`, lets the system snap it to edges and halves of the screen, by
// mouse and by keys, and size it. The window goes on drawing all of itself. Where the system would open a menu of its
// own at Alt+Space, it calls `openMenu` instead. On Linux all this is so unasked.
void make(QWidget& window, bool resizable, const std::function<void()>& openMenu);

// Whether what the system draws around `window` is dark.
void setDark(QWidget& window, bool dark);

}  // namespace tolvan::systemframe
