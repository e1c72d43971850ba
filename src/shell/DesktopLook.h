// What the desktop asks of all applications: a light or a dark look, and more contrast or not. It is told over D-Bus,
// by the settings portal, now and whenever the user changes it. Without such a desktop nothing is told.
#pragma once

#include "dialogs/LookColours.h"

#include <QObject>

#include <memory>

class QDBusVariant;
class QThread;

namespace tolvan {

class DesktopLook : public QObject {
    Q_OBJECT
  public:
    DesktopLook();
    ~DesktopLook() override;

  signals:
    // `kind` is not what look::kindOfDesktop says.
    void changed(look::Kind kind);

  private slots:
    void settingChanged(const QString& space, const QString& key, const QDBusVariant& value);

  private:
    void listen();
    void ask(const QString& key);
    void take(const QString& key, const QVariant& value);

    look::Kind start_;  // found when the application started
    look::Kind preferred_ = start_;
    bool highContrast_ = false;
    std::unique_ptr<QThread> connector_;  // connects with the bus, which may take its time
};

}  // namespace tolvan
