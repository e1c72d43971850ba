// What the right mouse button and the menu key bring up in the two panes: what can be done with the text there.
#pragma once

namespace tolvan {

class CommandBars;
class ProgramBox;
class RomanBox;

// The items are those of the bars, which must outlive the panes' menus; the panes own these.
void addPaneMenus(RomanBox& roman, ProgramBox& program, const CommandBars& bars);

}  // namespace tolvan
