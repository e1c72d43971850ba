#include "platform/picturebox/PictureBox.h"

#include <QPaintEvent>
#include <QPainter>
#include <QTimerEvent>

#include <algorithm>
#include <cmath>
#include <cstring>

namespace tolvan {
namespace {

constexpr int frameMilliseconds = 16;
// How long a finished picture may stay while the program computes the next one; not noticed as a delay.
constexpr int unfinishedMilliseconds = 100;
constexpr Pixel background = 0xFF000000U;
// So many of even the narrowest letters reach beyond any screen.
constexpr std::size_t longestText = 4096;

}  // namespace

PictureBox::PictureBox(QWidget* parent) : QWidget(parent), surface_(1, 1, background) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::StrongFocus);
}

void PictureBox::fit() {
    const double ratio = devicePixelRatioF();
    const QSize size(static_cast<int>(std::ceil(width() * ratio)), static_cast<int>(std::ceil(height() * ratio)));
    if (ratio != pixelRatio_ && pixelRatio_ > 0) {             // the window is on another screen now
        surface_.resize(surface_.width(), surface_.height());  // all rows in one piece
        const QImage before = rows(0, surface_.height());
        const QImage scaled = before.scaled(before.size() * ratio / pixelRatio_, Qt::IgnoreAspectRatio).copy();
        surface_ = PixelSurface(scaled.width(), scaled.height(), background);
        for (int y = 0; y < scaled.height(); ++y)
            std::memcpy(surface_.row(y), scaled.constScanLine(y),
                        static_cast<std::size_t>(scaled.width()) * sizeof(Pixel));
    }
    pixelRatio_ = ratio;
    if (size.width() > surface_.width() || size.height() > surface_.height())
        surface_.resize(std::max(size.width(), surface_.width()), std::max(size.height(), surface_.height()));
}

double PictureBox::device(float length) const {
    return std::floor(length * pixelRatio_ + 0.5);
}

double PictureBox::deviceEnd(float length) const {
    return std::floor((length + 1.0) * pixelRatio_ + 0.5) - 1;
}

int PictureBox::pen() const {
    return std::max(static_cast<int>(std::lround(pixelRatio_)), 1);
}

void PictureBox::changed() {
    if (!frame_.isActive()) frame_.start(frameMilliseconds, Qt::PreciseTimer, this);
}

float PictureBox::TextHeight(PictureFont& font) const {
    const double ratio = devicePixelRatioF();
    return static_cast<float>(font.lineHeight(ratio) / ratio);
}

void PictureBox::PSet(float x, float y, QColor colour) {
    surface_.fillRectangle(device(x), device(y), deviceEnd(x), deviceEnd(y), colour.rgb());
    record_.add(PictureRecord::Shape::Point, x, y, 0, 0, colour, true);
    CurrentX = x;
    CurrentY = y;
    changed();
}

void PictureBox::Line(float x1, float y1, float x2, float y2, QColor colour) {
    surface_.drawLine(device(x1), device(y1), device(x2), device(y2), pen(), colour.rgb());
    record_.add(PictureRecord::Shape::Line, x1, y1, x2, y2, colour, false);
    CurrentX = x2;
    CurrentY = y2;
    changed();
}

void PictureBox::Box(float x1, float y1, float x2, float y2, QColor colour, FillStyle fill) {
    const int edge = pen() - 1;
    const double left = device(std::min(x1, x2)), right = deviceEnd(std::max(x1, x2));
    const double top = device(std::min(y1, y2)), bottom = deviceEnd(std::max(y1, y2));
    if (fill == FillStyle::Solid) {
        surface_.fillRectangle(left, top, right, bottom, colour.rgb());
    } else {
        surface_.fillRectangle(left, top, right, top + edge, colour.rgb());
        surface_.fillRectangle(left, bottom - edge, right, bottom, colour.rgb());
        surface_.fillRectangle(left, top, left + edge, bottom, colour.rgb());
        surface_.fillRectangle(right - edge, top, right, bottom, colour.rgb());
    }
    const bool wipes = fill == FillStyle::Solid && std::min(x1, x2) <= 0 && std::min(y1, y2) <= 0 &&
                       std::max(x1, x2) >= ScaleWidth() && std::max(y1, y2) >= ScaleHeight();
    if (wipes) record_.clear();
    record_.add(PictureRecord::Shape::Box, x1, y1, x2, y2, colour, fill == FillStyle::Solid);
    CurrentX = x2;
    CurrentY = y2;
    changed();
}

void PictureBox::Circle(float x, float y, float radius, QColor colour, FillStyle fill) {
    if (fill == FillStyle::Solid)
        surface_.fillCircle(device(x), device(y), radius * pixelRatio_, pen(), colour.rgb());
    else
        surface_.drawCircle(device(x), device(y), radius * pixelRatio_, pen(), colour.rgb());
    record_.add(PictureRecord::Shape::Circle, x, y, radius, 0, colour, fill == FillStyle::Solid);
    CurrentX = x;
    CurrentY = y;
    changed();
}

void PictureBox::Print(std::string_view text, PictureFont& font) {
    text = text.substr(0, longestText);
    record_.addText(text, CurrentX, CurrentY + font.baseline(), font.font(), foreground_);
    double x = 0;  // device pixels from where the text starts
    while (!text.empty()) {
        const std::string_view piece = text.substr(0, PictureFont::firstPiece(text));
        const PictureFont::Run& run = font.run(piece, pixelRatio_);
        surface_.drawText(run.coverage, std::floor(CurrentX * pixelRatio_ + x + 0.5), device(CurrentY),
                          foreground_.rgb());
        x += run.advance;
        text.remove_prefix(piece.size());
    }
    CurrentX += static_cast<float>(x / pixelRatio_);
    changed();
}

void PictureBox::NewLine(PictureFont& font) {
    CurrentX = 0;
    CurrentY += TextHeight(font);
}

void PictureBox::ScrollUp(float distance) {
    const double rows = std::clamp(device(distance), 0.0, surface_.height() * 1.0);
    if (rows > 0) surface_.scrollUp(static_cast<int>(rows));
    record_.scrollUp(distance);
    changed();
}

void PictureBox::Cls() {
    surface_ = PixelSurface(1, 1, background);
    record_.clear();
    fit();
    CurrentX = 0;
    CurrentY = 0;
    changed();
}

void PictureBox::FinishPicture() {
    if (finished_.isNull() || !sinceShown_.isValid() || sinceShown_.hasExpired(frameMilliseconds)) {
        ShowNow();
        finished_ = Image();
    }
    frame_.start(unfinishedMilliseconds, Qt::PreciseTimer, this);
}

void PictureBox::ShowNow() {
    finished_ = QImage();
    if (!frame_.isActive()) return;
    frame_.stop();
    repaint();
}

// The rows must lie in one piece; the picture lives as long as they are not drawn on.
QImage PictureBox::rows(int from, int count) const {
    const auto rowBytes = static_cast<qsizetype>(sizeof(Pixel)) * surface_.width();
    QImage image(reinterpret_cast<const uchar*>(surface_.row(from)), surface_.width(), count, rowBytes,
                 QImage::Format_RGB32);
    image.setDevicePixelRatio(pixelRatio_);
    return image;
}

QImage PictureBox::Image() {
    fit();
    QImage image(size() * pixelRatio_, QImage::Format_RGB32);
    image.setDevicePixelRatio(pixelRatio_);
    QPainter painter(&image);
    paintInto(painter);
    return image;
}

void PictureBox::SetImage(const QImage& image) {
    Cls();
    const auto columns = static_cast<std::size_t>(std::min(image.width(), surface_.width()));
    for (int y = 0; y < std::min(image.height(), surface_.height()); ++y)
        std::memcpy(surface_.row(y), image.constScanLine(y), columns * sizeof(Pixel));
    changed();
}

QImage PictureBox::ShownImage() {
    return finished_.isNull() ? Image() : finished_;
}

void PictureBox::paintInto(QPainter& painter) const {
    const int upper = surface_.rowsInOnePiece(0);
    painter.drawImage(QPointF(0, 0), rows(0, upper));
    if (upper < surface_.height())
        painter.drawImage(QPointF(0, upper / pixelRatio_), rows(upper, surface_.height() - upper));
}

void PictureBox::paintEvent(QPaintEvent*) {
    fit();
    sinceShown_.start();
    QPainter painter(this);
    if (finished_.isNull()) return paintInto(painter);
    painter.drawImage(QPointF(0, 0), finished_);
}

void PictureBox::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    finished_ = QImage();
    fit();
}

void PictureBox::timerEvent(QTimerEvent* event) {
    if (event->timerId() != frame_.timerId()) return QWidget::timerEvent(event);
    frame_.stop();
    finished_ = QImage();
    update();
}

}  // namespace tolvan
