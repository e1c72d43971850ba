// Pages on a printer that the user chooses.
#pragma once

#include "sheet/PaintedPages.h"

class QWidget;

namespace tolvan {

// Tells the user if it could not be printed. `name` is what the printer calls it.
void printPages(const PaintedPages& pages, const QString& name, QWidget* parent);

}  // namespace tolvan
