#include "editor/RecentFiles.h"

#include "platform/settings/Settings.h"

namespace tolvan {
namespace {

const QString section = QStringLiteral("MRU");

QString keyOf(int slot) {
    return QStringLiteral("mru%1").arg(slot);
}

}  // namespace

QString RecentFiles::path(int slot) const {
    return settings_.GetSetting(section, keyOf(slot));
}

void RecentFiles::add(const QString& path) {
    if (path.trimmed().isEmpty()) return;
    int freed = 1;
    while (freed < slotCount && this->path(freed) != path) ++freed;
    for (int slot = freed; slot > 1; --slot) settings_.SaveSetting(section, keyOf(slot), this->path(slot - 1));
    settings_.SaveSetting(section, keyOf(1), path);
}

void RecentFiles::clear() {
    for (int slot = 1; slot <= slotCount; ++slot) settings_.SaveSetting(section, keyOf(slot), {});
}

}  // namespace tolvan
