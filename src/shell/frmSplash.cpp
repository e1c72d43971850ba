#include "shell/frmSplash.h"

#include "dialogs/Accessibility.h"
#include "dialogs/Look.h"
#include "platform/encoding/Deva.h"
#include "platform/fonts/FontEncoding.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QPainter>
#include <QScreen>
#include <QTime>
#include <QTimer>

// A static library's resources are linked only where they are asked for by name; the call must stand outside any
// namespace.
static void loadResources() {
    Q_INIT_RESOURCE(shell);
}

namespace tolvan {
namespace {

QPixmap logoPicture() {
    loadResources();
    return QPixmap(QStringLiteral(":/tolvan/logo.png"));
}

}  // namespace

frmSplash::frmSplash() : QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint), logo_(logoPicture()) {
    setObjectName(QStringLiteral("frmSplash"));
    setWindowTitle(QStringLiteral("Tolvan Basic"));
    setAccessibleName(accessible::unicode("taelvn beisk"_deva));
    const QSize logo = logo_.deviceIndependentSize().toSize();
    setFixedSize(logo.width(), logo.height() + look::em(4));
    move(screen()->availableGeometry().center() - rect().center());
    setFocusPolicy(Qt::StrongFocus);
}

void frmSplash::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), look::colours().background);
    painter.drawPixmap(0, 0, logo_);
    const QRect below = rect().adjusted(look::em(1.2), height() - look::em(4), -look::em(1.2), -look::em(1));
    QFont name = look::controlFont(Font::Devanagari);
    name.setPointSizeF(name.pointSizeF() * 1.8);
    painter.setFont(name);
    painter.setPen(look::colours().accent);
    painter.drawText(below, Qt::AlignLeft | Qt::AlignVCenter, toQString("taelvn beisk"_deva));
    painter.setFont(look::controlFont(Font::Latin));
    painter.setPen(look::colours().dimText);
    painter.drawText(below, Qt::AlignRight | Qt::AlignVCenter, QStringLiteral("Tolvan Basic " TOLVAN_VERSION));
    painter.setPen(look::colours().frameActive);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

// A splash window is not given the keyboard unless it asks.
void frmSplash::showEvent(QShowEvent*) {
    activateWindow();
    setFocus();
}

void frmSplash::keyPressEvent(QKeyEvent*) {
    close();
}

void frmSplash::mousePressEvent(QMouseEvent*) {
    close();
}

Seconds secondsSinceMidnight() {
    return static_cast<Seconds>(QTime::currentTime().msecsSinceStartOfDay()) / 1000.0F;
}

void waitForSplash(const frmSplash& splash, Seconds start, const std::function<Seconds()>& clock) {
    constexpr Seconds longest = 2.0F;
    QTimer wake;  // so that the wait ends in time when nothing else happens
    wake.start(20);
    while (splash.isVisible() && clock() - start < longest)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

}  // namespace tolvan
