#include "editor/RomanPreview.h"

#include "dialogs/Look.h"
#include "platform/fonts/FontEncoding.h"
#include "platform/richtext/RtfWriter.h"
#include "translator/ProgramText.h"

#include <QLineEdit>

namespace tolvan {

RomanPreview::RomanPreview(QLineEdit& typed) : RichTextView(typed.parentWidget()) {
    setFixedHeight(look::em(2.2));
    connect(&typed, &QLineEdit::textChanged, this, [this](const QString& text) {
        const StyledText devanagari = ProgramText(toFontEncoded(text));
        setTextRtf(writeRtf(devanagari));
    });
}

}  // namespace tolvan
