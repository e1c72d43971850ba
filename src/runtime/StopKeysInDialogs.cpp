#include "runtime/StopKeysInDialogs.h"

#include "runtime/ProgramRun.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>

namespace tolvan {

bool isCtrlC(const QKeyEvent& key) {
    return key.text() == QStringLiteral("\x03") ||
           (key.key() == Qt::Key_C && key.modifiers().testFlag(Qt::ControlModifier));
}

bool isStopKey(const QKeyEvent& key) {
    return key.key() == Qt::Key_F4 || isCtrlC(key);
}

StopKeysInDialogs::StopKeysInDialogs(ProgramRun& run) : run_(run) {
    qApp->installEventFilter(this);
}

bool StopKeysInDialogs::eventFilter(QObject* watched, QEvent* event) {
    QWidget* const dialog = QApplication::activeModalWidget();
    if (event->type() != QEvent::KeyPress || dialog == nullptr || !run_.IsRunning() ||
        !isStopKey(*static_cast<QKeyEvent*>(event)))
        return QObject::eventFilter(watched, event);
    run_.stop();
    dialog->close();
    return true;
}

}  // namespace tolvan
