// The commands of the editor as data: menus, toolbar, shortcuts. A key is the name of the slot of frmEditor that does
// the command. Captions are font-encoded; "-" is a separator.
#pragma once

#include "platform/encoding/Deva.h"

#include <cstdint>
#include <span>
#include <string_view>

namespace tolvan {

enum class WhileRunning { Allowed, Greyed };  // greyed: it would change the text

struct MenuItem {
    const char* key;
    std::string_view caption;
    WhileRunning whileRunning = WhileRunning::Allowed;
};

struct Menu {
    const char* key;
    std::string_view caption;
    std::string_view description;  // shown in the status bar
    const char* accessKey;         // opens it; a letter of the keyboard, since the caption has none
    std::span<const MenuItem> items;
};

std::span<const Menu> editorMenus();

struct ToolButton {
    const char* key;  // null: a separator
    std::string_view caption;
    std::string_view toolTip;
};

std::span<const ToolButton> toolButtons();

// What a running program is doing. Some keys mean something else meanwhile.
enum class When : std::uint8_t {
    Always,
    Idle,      // no program runs
    Busy,      // one does
    OnTheWay,  // one does, and does not stand still
    AtRest,    // none does, or it stands still
};

struct Shortcut {
    const char* key;
    const char* keys;  // as QKeySequence reads it
    When when = When::Always;
};

// The first of a command that holds now is shown in its menu item.
std::span<const Shortcut> shortcuts();

// Keys that begin with it are no commands but show or hide the bar that the rest of the key names.
inline constexpr std::string_view toolBarPrefix = "Toolbar_";
inline constexpr const char* toolBarKey = "Toolbar_general";

}  // namespace tolvan
