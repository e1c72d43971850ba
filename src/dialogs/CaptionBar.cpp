#include "dialogs/CaptionBar.h"

#include "dialogs/Accessibility.h"
#include "dialogs/CaptionButton.h"
#include "dialogs/Look.h"
#include "platform/encoding/Deva.h"
#include "platform/richtext/UnicodeText.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace tolvan {

CaptionBar::CaptionBar(QWidget* parent, bool resizable) : QWidget(parent) {
    using Sign = CaptionButton::Sign;
    setObjectName(QStringLiteral("captionBar"));
    accessible::setRole(*this, QAccessible::Pane);
    icon_ = new CaptionButton(Sign::Icon, this);
    icon_->setObjectName(QStringLiteral("cmdSystemMenu"));
    icon_->setAccessibleName(accessible::unicode("iofkIcI yadI"_deva));
    connect(icon_, &CaptionButton::pressed, this, [this] {
        icon_->setDown(false);
        emit menuRequested(mapToGlobal(rect().bottomLeft()));
    });
    if (resizable) {
        addButton(Sign::Minimize, "cmdMinimize", "kmIt kmI kr"_deva, SystemCommand::Minimize);
        maximize_ = addButton(Sign::Maximize, "cmdMaximize", "jaStIt jaSt kr"_deva, SystemCommand::Maximize);
    }
    addButton(Sign::Close, "cmdClose", "b<d kr"_deva, SystemCommand::Close);
}

CaptionButton* CaptionBar::addButton(CaptionButton::Sign sign, const char* name, std::string_view caption,
                                     SystemCommand command) {
    auto* button = new CaptionButton(sign, this);
    button->setObjectName(QLatin1String(name));
    button->setAccessibleName(accessible::unicode(caption));
    connect(button, &CaptionButton::clicked, this, [this, button, command] {
        emit systemCommand(button->sign() == CaptionButton::Sign::Restore ? SystemCommand::Restore : command);
    });
    buttons_.append(button);
    return button;
}

void CaptionBar::setTitle(StyledView title, const QString& name) {
    title_ = StyledText(title);
    setAccessibleName(QString::fromStdString(unicodeOf(title)) + name);
    shownTitle_ = controlText(title, name);
    updateGeometry();
    update();
}

void CaptionBar::setActive(bool active) {
    active_ = active;
    for (CaptionButton* button : buttons_) button->setActive(active);
    update();
}

void CaptionBar::setMaximized(bool maximized) {
    if (maximize_) maximize_->setSign(maximized ? CaptionButton::Sign::Restore : CaptionButton::Sign::Maximize);
}

QSize CaptionBar::sizeHint() const {
    return minimumSizeHint() + QSize(static_cast<int>(styledLineSize(shownTitle_).width()) + look::em(1), 0);
}

QSize CaptionBar::minimumSizeHint() const {
    const int line = std::max(QFontMetrics(look::controlFont(Font::Devanagari)).height(),
                              QFontMetrics(look::controlFont(Font::Latin)).height());
    return {icon_->sizeHint().width() + buttonsWidth(), std::max(icon_->sizeHint().height(), line + look::em(0.3))};
}

int CaptionBar::buttonsWidth() const {
    int width = 0;
    for (const CaptionButton* button : buttons_) width += button->sizeHint().width();
    return width;
}

void CaptionBar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), active_ ? look::colours().captionActive : look::colours().captionInactive);
    const int left = icon_->geometry().right() + 1;
    const QRectF area(left, 0, width() - left - buttonsWidth() - look::em(0.3), height());
    drawStyledLine(painter, area, shownTitle_, active_ ? look::colours().text : look::colours().dimText);
}

void CaptionBar::resizeEvent(QResizeEvent*) {
    icon_->setGeometry(0, 0, icon_->sizeHint().width(), height());
    int left = width() - buttonsWidth();
    for (CaptionButton* button : buttons_) {
        button->setGeometry(left, 0, button->sizeHint().width(), height());
        left += button->width();
    }
}

void CaptionBar::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) pressedAt_ = event->globalPosition().toPoint();
}

// The window system is asked only after a real movement: asked at once, it would swallow the double click.
void CaptionBar::mouseMoveEvent(QMouseEvent* event) {
    if (!pressedAt_) return;
    const QPoint way = event->globalPosition().toPoint() - *pressedAt_;
    if (way.manhattanLength() >= QApplication::startDragDistance()) emit dragged(*std::exchange(pressedAt_, {}));
}

void CaptionBar::mouseReleaseEvent(QMouseEvent*) {
    pressedAt_.reset();
}

void CaptionBar::mouseDoubleClickEvent(QMouseEvent* event) {
    pressedAt_.reset();
    if (event->button() == Qt::LeftButton) emit doubleClicked();
}

void CaptionBar::contextMenuEvent(QContextMenuEvent* event) {
    emit menuRequested(event->globalPos());
}

}  // namespace tolvan
