// What the desktop asks of all applications: a light or a dark look, and more contrast or not; now and whenever the
// user changes it. On Linux the settings portal tells it over D-Bus, on Windows the registry. Without such a desktop
// nothing is told.
#pragma once

#include "dialogs/LookColours.h"

#include <QObject>

#include <memory>

namespace tolvan {

class DesktopLook : public QObject {
    Q_OBJECT
  public:
    // From the event loop's next round on, it tells what differs from look::kindOfDesktop.
    DesktopLook();
    ~DesktopLook() override;

  signals:
    // `kind` is not what look::kindOfDesktop says.
    void changed(look::Kind kind);

  private:
    std::unique_ptr<QObject> source_;  // hears of it from the system
};

}  // namespace tolvan
