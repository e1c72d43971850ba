// The desktop's settings portal, on the session bus: how the user wants applications to look.
#pragma once

#include "dialogs/Look.h"
#include "shell/DesktopLook.h"

#include <QObject>
#include <QString>
#include <QThread>
#include <QVariant>

#include <memory>

class QDBusVariant;

namespace tolvan {

// Asks it and hears of changes, and tells `look`. Without a bus nothing happens; one that does not answer holds up
// neither the start of the application nor its end.
class SettingsPortal : public QObject {
    Q_OBJECT
  public:
    explicit SettingsPortal(DesktopLook& look);
    ~SettingsPortal() override;

  private slots:
    void settingChanged(const QString& space, const QString& key, const QDBusVariant& value);

  private:
    void listen();
    void ask(const QString& key);
    void take(const QString& key, const QVariant& value);

    DesktopLook& look_;
    look::Kind start_ = look::kindOfDesktop();  // found when the application started
    look::Kind preferred_ = start_;
    bool highContrast_ = false;
    std::unique_ptr<QThread> connector_;  // connects with the bus, which may take its time
};

}  // namespace tolvan
