#include "dialogs/SystemFrame.h"

namespace tolvan {

void systemframe::make(QWidget&, bool, const std::function<void()>&) {}
void systemframe::setDark(QWidget&, bool) {}

}  // namespace tolvan
