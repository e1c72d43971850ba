#include "editor/RomanPreview.h"

#include "dialogs/Look.h"
#include "platform/fonts/FontEncoding.h"
#include "platform/richtext/RtfWriter.h"
#include "translator/ProgramText.h"

#include <QLineEdit>

namespace tolvan {

RomanPreview::RomanPreview(QLineEdit& typed, Spelling spelling) : RichTextView(typed.parentWidget()) {
    setFixedHeight(look::em(2.2));
    connect(&typed, &QLineEdit::textChanged, this, [this, spelling](const QString& text) {
        const std::string roman = toFontEncoded(text);
        const StyledText devanagari = ProgramText(spelling != nullptr ? spelling(roman) : roman);
        setTextRtf(writeRtf(devanagari));
    });
}

}  // namespace tolvan
