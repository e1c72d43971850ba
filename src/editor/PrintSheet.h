// The sheet of a program on a printer that the user chooses.
#pragma once

#include "sheet/Sheet.h"

class QWidget;

namespace tolvan {

// Tells the user if it could not be printed. `name` is what the printer calls it.
void printSheet(const Sheet& sheet, const QString& name, QWidget* parent);

}  // namespace tolvan
