#include "shell/DesktopLook.h"

#include "shell/linux/SettingsPortal.h"

namespace tolvan {

DesktopLook::DesktopLook() : source_(std::make_unique<SettingsPortal>(*this)) {}

DesktopLook::~DesktopLook() = default;

}  // namespace tolvan
