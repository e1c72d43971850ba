// The part of frmExec that draws for a program, and that saves and copies the picture.
#include "dialogs/Dialogs.h"
#include "platform/encoding/Deva.h"
#include "platform/filenames/FileName.h"
#include "platform/files/ReplaceFile.h"
#include "runtime/frmExec.h"

#include <QBuffer>
#include <QClipboard>
#include <QFileDialog>
#include <QGuiApplication>

namespace tolvan {
namespace {

using FillStyle = PictureBox::FillStyle;

FillStyle styleOf(ConsoleOperations::Fill fill) {
    return fill == ConsoleOperations::Fill::Solid ? FillStyle::Solid : FillStyle::Transparent;
}

QByteArray pngOf(const QImage& picture) {
    QByteArray png;
    QBuffer buffer(&png);
    picture.save(&buffer, "PNG");
    return png;
}

// What is empty could not be made.
bool writeFile(const QByteArray& content, const QString& path) {
    const std::string_view bytes(content.constData(), static_cast<std::size_t>(content.size()));
    return !bytes.empty() && replaceFile(fileBytes(path), bytes) == 0;
}

}  // namespace

QColor frmExec::colourOf(std::optional<Colour> colour) const {
    if (!colour) return display_->foreground();
    const Colour value = *colour;
    return QColor(static_cast<int>(value & 0xFF), static_cast<int>(value >> 8 & 0xFF),
                  static_cast<int>(value >> 16 & 0xFF));
}

ConsoleOperations::Point frmExec::startOf(std::optional<Point> start) const {
    return start.value_or(Point{display_->CurrentX, display_->CurrentY});
}

void frmExec::DrawPoint(Point at, std::optional<Colour> colour) {
    hasDrawn_ = true;
    keep({.kind = ConsoleLog::Kind::Point, .x1 = at.x, .y1 = at.y, .colour = colourOf(colour).rgb()});
    display_->PSet(at.x, at.y, colourOf(colour));
}

void frmExec::DrawLine(std::optional<Point> start, Point end, std::optional<Colour> colour) {
    hasDrawn_ = true;
    const Point from = startOf(start);
    keep({.kind = ConsoleLog::Kind::Line,
          .x1 = from.x,
          .y1 = from.y,
          .x2 = end.x,
          .y2 = end.y,
          .colour = colourOf(colour).rgb()});
    display_->Line(from.x, from.y, end.x, end.y, colourOf(colour));
}

void frmExec::DrawBox(std::optional<Point> start, Point end, std::optional<Colour> colour, Fill fill) {
    hasDrawn_ = true;
    const Point from = startOf(start);
    keep({.kind = ConsoleLog::Kind::Box,
          .x1 = from.x,
          .y1 = from.y,
          .x2 = end.x,
          .y2 = end.y,
          .colour = colourOf(colour).rgb(),
          .isSolid = fill == Fill::Solid});
    display_->Box(from.x, from.y, end.x, end.y, colourOf(colour), styleOf(fill));
}

void frmExec::DrawCircle(Point centre, float radius, std::optional<Colour> colour, Fill fill) {
    hasDrawn_ = true;
    keep({.kind = ConsoleLog::Kind::Circle,
          .x1 = centre.x,
          .y1 = centre.y,
          .x2 = radius,
          .colour = colourOf(colour).rgb(),
          .isSolid = fill == Fill::Solid});
    display_->Circle(centre.x, centre.y, radius, colourOf(colour), styleOf(fill));
}

float frmExec::DisplayWidth() const {
    return display_->ScaleWidth();
}

float frmExec::DisplayHeight() const {
    return display_->ScaleHeight();
}

void frmExec::SavePicture() {
    const QImage picture = display_->ShownImage();  // as it is now, whatever the program draws meanwhile
    const QByteArray svg = display_->Svg();
    const QString png = QStringLiteral("PNG (*.png)");
    const QString kinds = svg.isEmpty() ? png : png + QStringLiteral(";;SVG (*.svg)");
    QString kind = png;
    QString path =
        QFileDialog::getSaveFileName(this, QStringLiteral("चित्र साठव"), QStringLiteral("tolbasic"), kinds, &kind);
    if (path.isEmpty()) return;
    const bool isNamed = path.endsWith(QStringLiteral(".png"), Qt::CaseInsensitive) ||
                         path.endsWith(QStringLiteral(".svg"), Qt::CaseInsensitive);
    if (!isNamed) path += kind == png ? QStringLiteral(".png") : QStringLiteral(".svg");
    const bool asSvg = path.endsWith(QStringLiteral(".svg"), Qt::CaseInsensitive) && !svg.isEmpty();
    if (!writeFile(asSvg ? svg : pngOf(picture), path)) ShowMessage("\\f1icÇ saQvta Aale nahI"_deva);
}

void frmExec::CopyPicture() {
    QGuiApplication::clipboard()->setImage(display_->ShownImage());
}

}  // namespace tolvan
