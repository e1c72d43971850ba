// What the desktop asks of all applications: a light or a dark look, and more contrast or not. It is told over D-Bus,
// by the settings portal, now and whenever the user changes it. Without such a desktop nothing is told.
#pragma once

#include "dialogs/LookColours.h"

#include <QObject>

class QDBusVariant;

namespace tolvan {

class DesktopLook : public QObject {
    Q_OBJECT
  public:
    DesktopLook();

  signals:
    void changed(look::Kind kind);

  private slots:
    void settingChanged(const QString& space, const QString& key, const QDBusVariant& value);

  private:
    void ask(const QString& key);
    void take(const QString& key, const QVariant& value);

    look::Kind start_ = look::Kind::Light;  // without more contrast
    bool highContrast_ = false;
};

}  // namespace tolvan
