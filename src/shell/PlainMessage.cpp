#include "shell/PlainMessage.h"

#include "dialogs/MessageSign.h"
#include "platform/fonts/Fonts.h"
#include "platform/process/OwnProgram.h"

#include <QApplication>
#include <QLabel>
#include <QMessageBox>

#include <algorithm>

namespace tolvan {
namespace {

// With the sign of the other boxes: the desktop's own is a small picture that blurs on a fine screen.
void show(QMessageBox::Icon icon, const QString& caption, QString text) {
    if (tellTerminal(text.toStdString())) return;
    text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    QMessageBox box(icon, caption, text, QMessageBox::Ok);
    box.setTextFormat(Qt::PlainText);
    if (auto* const picture = box.findChild<QLabel*>(QStringLiteral("qt_msgboxex_icon_label"))) {
        MessageSign sign(icon == QMessageBox::Critical ? MessageSign::Kind::Error : MessageSign::Kind::Information,
                         nullptr);
        sign.resize(sign.sizeHint());
        picture->setPixmap(sign.grab());
    }
    box.exec();
}

}  // namespace

void showPlainMessage(std::string_view text) {
    show(QMessageBox::Information, QApplication::applicationName(),
         QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size())));
}

bool hasRequiredFonts(const QStringList& screenFonts) {
    const auto isRequired = [](const QString& name) {
        return name == fontName(Font::Latin) || name == fontName(Font::Devanagari);
    };
    return std::count_if(screenFonts.begin(), screenFonts.end(), isRequired) == 2;
}

void showFontsRequired() {
    show(QMessageBox::Critical, QStringLiteral("Font Required"),
         QStringLiteral("The fonts 'Sanskrit 1.2' and 'Times New Roman' are required for this software to run and "
                        "could not be found on this computer. Unable to start Tolbasic."));
}

}  // namespace tolvan
