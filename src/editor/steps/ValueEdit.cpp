#include "editor/steps/ValueEdit.h"

#include "dialogs/Accessibility.h"
#include "dialogs/Look.h"
#include "platform/devanagariinput/LineEditText.h"
#include "platform/encoding/Ascii.h"
#include "platform/encoding/Unicode.h"
#include "platform/fonts/FontEncoding.h"
#include "platform/richtext/InternalText.h"
#include "platform/transliteration/UnicodeToRoman.h"

#include <QLineEdit>

#include <algorithm>

namespace tolvan {

namespace {

// What one would type for a text; letters that are Latin stand between two "#".
std::string typedFor(std::string_view internalText) {
    std::string typed;
    for (const InternalTextRun& run : InternalTextRuns(internalText)) {
        const bool hasLetters = std::any_of(run.text.begin(), run.text.end(), isLetter);
        if (run.font == Font::Devanagari)
            typed += romanOfUnicode(unicodeOfCodes(run.text));
        else
            typed += hasLetters ? '#' + run.text + '#' : run.text;
    }
    return typed;
}

}  // namespace

QWidget* ValueEdit::createEditor(QWidget* parent, const QStyleOptionViewItem&, const QModelIndex& index) const {
    auto* const box = new QLineEdit(parent);
    box->setObjectName(QStringLiteral("txtValue"));
    constexpr int longest = 200;  // as in the input box of a program
    box->setMaxLength(longest);
    box->setFont(look::controlFont(Font::Latin));
    box->setAccessibleName(index.siblingAtColumn(0).data(Qt::DisplayRole).toString());
    new DevanagariInput(*box, std::make_unique<LineEditText>(*box, longest));
    return box;
}

void ValueEdit::setEditorData(QWidget* editor, const QModelIndex& index) const {
    auto& box = static_cast<QLineEdit&>(*editor);
    if (!box.text().isEmpty()) return;  // the model has told of a change while one types
    box.setText(toQString(typedFor(index.data(InternalTextRole).toByteArray().toStdString())));
    box.selectAll();
}

void ValueEdit::setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const {
    model->setData(index, static_cast<QLineEdit*>(editor)->text(), Qt::EditRole);
}

}  // namespace tolvan
