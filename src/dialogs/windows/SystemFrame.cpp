#include "dialogs/SystemFrame.h"

#include <QAbstractNativeEventFilter>
#include <QGuiApplication>
#include <QWidget>

#include <dwmapi.h>
#include <unordered_map>
#include <windows.h>

namespace tolvan {
namespace {

// Windows snaps and sizes only windows of the style that has a broad edge. They have that style here but get no room
// for the edge, of which Qt knows nothing, since to it they are frameless. And at Alt+Space Qt opens the system's menu.
class OwnFrames : public QAbstractNativeEventFilter {
  public:
    OwnFrames() { QCoreApplication::instance()->installNativeEventFilter(this); }

    void add(HWND window, std::function<void()> openMenu) { menus_[window] = std::move(openMenu); }

    bool nativeEventFilter(const QByteArray&, void* event, qintptr* result) override {
        const MSG& message = *static_cast<const MSG*>(event);
        const auto menu = menus_.find(message.hwnd);
        if (menu == menus_.end()) return false;
        switch (message.message) {
            case WM_NCCALCSIZE:  // the client area, which comes in as all of the window
            case WM_NCPAINT:
                *result = 0;
                return true;
            case WM_NCACTIVATE:  // -1: without drawing the edge in its other colour
                *result = DefWindowProcW(message.hwnd, message.message, message.wParam, -1);
                return true;
            case WM_SYSKEYDOWN:
                if (message.wParam != VK_SPACE) return false;
                std::function<void()>(menu->second)();
                return true;
            case WM_SYSCOMMAND:  // for Alt by itself, which opens no menu of the system either
                *result = 0;
                return (message.wParam & 0xFFF0) == SC_KEYMENU;
            case WM_NCDESTROY:
                menus_.erase(menu);
                return false;
            default:
                return false;
        }
    }

  private:
    std::unordered_map<HWND, std::function<void()>> menus_;
};

bool isNative(const QWidget& window) {
    return window.internalWinId() != 0 && QGuiApplication::platformName() == QLatin1String("windows");
}

HWND handleOf(const QWidget& window) {
    return reinterpret_cast<HWND>(window.internalWinId());
}

}  // namespace

void systemframe::make(QWidget& window, bool resizable, const std::function<void()>& openMenu) {
    if (!isNative(window)) return;
    static OwnFrames frames;
    frames.add(handleOf(window), openMenu);
    if (!resizable) return;
    SetWindowLongPtrW(handleOf(window), GWL_STYLE, GetWindowLongPtrW(handleOf(window), GWL_STYLE) | WS_THICKFRAME);
    SetWindowPos(handleOf(window), nullptr, 0, 0, 0, 0,
                 SWP_FRAMECHANGED | SWP_NOACTIVATE | SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOOWNERZORDER);
}

void systemframe::setDark(QWidget& window, bool dark) {
    constexpr DWORD useDarkMode = 20;  // DWMWA_USE_IMMERSIVE_DARK_MODE, which older headers lack
    const BOOL value = dark ? TRUE : FALSE;
    if (isNative(window)) DwmSetWindowAttribute(handleOf(window), useDarkMode, &value, sizeof value);
}

}  // namespace tolvan
