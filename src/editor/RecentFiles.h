// The program files that were opened or saved last, kept in the user's settings, newest first.
#pragma once

#include <QString>

namespace tolvan {

class Settings;

class RecentFiles {
  public:
    static constexpr int slotCount = 4;

    // `settings` must outlive it.
    explicit RecentFiles(Settings& settings) : settings_(settings) {}

    // Of slot 1 (newest) to `slotCount`; empty where there is none.
    QString path(int slot) const;

    // Puts a path into slot 1. The path itself, spelled exactly so, leaves its old slot; a blank path changes nothing.
    void add(const QString& path);

    void clear();

  private:
    Settings& settings_;
};

}  // namespace tolvan
