#include "dialogs/frmAbout.h"

#include "dialogs/Accessibility.h"
#include "dialogs/Dialogs.h"
#include "dialogs/Look.h"
#include "dialogs/SystemInformation.h"
#include "platform/encoding/Deva.h"
#include "platform/fonts/FontEncoding.h"

#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>

namespace tolvan {
namespace {

void addLine(QVBoxLayout& lines, const QString& text, const QFont& font, QPalette::ColorRole colour) {
    auto* label = new QLabel;
    label->setTextFormat(Qt::PlainText);
    label->setText(text);
    label->setFont(font);
    const bool inCodes = font.families() == look::controlFont(Font::Devanagari).families();
    label->setAccessibleName(inCodes ? accessible::unicode(text) : text);
    label->setForegroundRole(colour);
    lines.addWidget(label);
}

QFont enlarged(QFont font, qreal factor) {
    font.setPointSizeF(font.pointSizeF() * factor);
    return font;
}

}  // namespace

frmAbout::frmAbout(QWidget* parent) : FramedDialog("tolvn beisk bÎl"_deva, parent) {
    const QFont devanagari = look::controlFont(Font::Devanagari);
    const QFont latin = look::controlFont(Font::Latin);

    auto* picture = new QLabel;
    picture->setAccessibleName(QStringLiteral("Tolvan Basic"));
    picture->setPixmap(look::applicationIcon().pixmap(look::em(5), look::em(5)));
    auto* lines = new QVBoxLayout;
    lines->setSpacing(look::em(0.2));
    addLine(*lines, toQString("tolvn beisk"_deva), enlarged(devanagari, 1.8), QPalette::Link);
    addLine(*lines, QStringLiteral("Tolvan Basic " TOLVAN_VERSION), latin, QPalette::WindowText);
    addLine(*lines, toQString("mraQIt àayaejn ilih{yasaQI"_deva), devanagari, QPalette::PlaceholderText);
    body().addWidget(picture);
    body().addLayout(lines, 1);

    connect(addButton("cmdOK", "QIk Aahe"_deva), &QPushButton::clicked, this, &QDialog::accept);
    connect(addButton("cmdSysInfo", "s<g[k maihtI"_deva), &QPushButton::clicked, this,
            &frmAbout::showSystemInformation);
}

void frmAbout::showSystemInformation() {
    if (!startSystemInformation()) ShowMessage("\\f0 System Information Is Unavailable At This Time");
}

void showAbout(QWidget* parent) {
    const QPointer<frmAbout> box = new frmAbout(parent);
    box->exec();
    delete box;
}

}  // namespace tolvan
