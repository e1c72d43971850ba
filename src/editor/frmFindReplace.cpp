#include "editor/frmFindReplace.h"

#include "dialogs/Accessibility.h"
#include "dialogs/DevanagariControl.h"
#include "dialogs/Dialogs.h"
#include "dialogs/Look.h"
#include "editor/FindText.h"
#include "editor/RomanPreview.h"
#include "editor/panes/RomanBox.h"
#include "platform/devanagariinput/LineEditText.h"
#include "platform/encoding/Deva.h"
#include "platform/fonts/FontEncoding.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QShortcut>

namespace tolvan {
namespace {

constexpr std::string_view notFound = "\\f1zaexayla sa<igtlele zaiBdk sapfle nahI\\f0."_deva;

constexpr std::string_view wentOnFromStart = "zevqapy¡t ja^n suévatIpasUn zaexle"_deva;
constexpr std::string_view wentOnFromEnd = "suévatIpy¡t ja^n zevqapasUn zaexle"_deva;

constexpr std::string_view whereCaptions[] = {"suévatIpasUn"_deva, "#wUn puFe"_deva, "#wUn mage"_deva};

}  // namespace

frmFindReplace::frmFindReplace(RomanBox& roman, QWidget* parent)
    : FramedDialog("zaexayce Aai[ bdlayce"_deva, parent), roman_(roman) {
    setObjectName(QStringLiteral("frmFindReplace"));
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(look::em(1));
    grid->setVerticalSpacing(look::em(0.5));
    grid->setColumnStretch(1, 1);
    body().addLayout(grid, 1);
    addTextRow(*grid, "txtFind", "kay zaexayce"_deva, txtFind_);
    addTextRow(*grid, "txtReplace", "Tya@evjI"_deva, txtReplace_);
    addChoices(*grid);
    addButtons();
    auto* onwards = new QShortcut(QKeySequence(Qt::Key_F3), this);
    connect(onwards, &QShortcut::activated, this, &frmFindReplace::findNext);
}

void frmFindReplace::addTextRow(QGridLayout& grid, const char* name, std::string_view label, QLineEdit*& box) {
    const int row = grid.rowCount();
    box = new QLineEdit(this);
    box->setObjectName(QLatin1String(name));
    box->setFont(look::controlFont(Font::Latin));
    box->setMinimumWidth(look::em(22));
    auto* const typed = new DevanagariInput(*box, std::make_unique<LineEditText>(*box, box->maxLength()));
    connect(typed, &DevanagariInput::refused, this, [this] { note("he icNh ilihta yet nahI"_deva); });
    auto* shown = new RomanPreview(*box, spelledAsShown);
    shown->setObjectName(QLatin1String(name) + QLatin1String("Devnag"));
    auto* caption = devanagariControl<QLabel>(label, {}, this);
    caption->setBuddy(box);
    box->setAccessibleName(caption->accessibleName());
    grid.addWidget(caption, row, 0);
    grid.addWidget(box, row, 1);
    grid.addWidget(shown, row + 1, 1);
}

void frmFindReplace::addChoices(QGridLayout& grid) {
    auto* choices = new QHBoxLayout;
    choices->setSpacing(look::em(1));
    for (std::size_t index = 0; index < findWhere_.size(); ++index) {
        auto* choice =
            devanagariControl<QRadioButton>(whereCaptions[index], QStringLiteral("FindWhere%1").arg(index), this);
        connect(choice, &QRadioButton::clicked, this, [this] { searched_ = false; });
        choices->addWidget(choice);
        findWhere_[index] = choice;
    }
    findWhere_[FromCaret]->setChecked(true);
    choices->addStretch();
    sameCase_ = devanagariControl<QCheckBox>("lhan maeQI A]re saroI man"_deva, QStringLiteral("chkSameCase"), this);
    const int row = grid.rowCount();
    grid.addLayout(choices, row, 0, 1, 2);
    lblNote_ = devanagariControl<QLabel>({}, QStringLiteral("lblNote"), this);
    grid.addWidget(sameCase_, row + 1, 0, 1, 2);
    grid.addWidget(lblNote_, row + 2, 0, 1, 2);
}

void frmFindReplace::addButtons() {
    cmdFind_ = addButton("cmdFind", "zaex"_deva);
    connect(cmdFind_, &QPushButton::clicked, this, &frmFindReplace::cmdFind);
    connect(addButton("cmdReplace", "bdl"_deva), &QPushButton::clicked, this, &frmFindReplace::cmdReplace);
    connect(addButton("cmdReplaceAll", "svR bdl"_deva), &QPushButton::clicked, this, &frmFindReplace::cmdReplaceAll);
    connect(addButton("cmdExit", "b<d kr"_deva), &QPushButton::clicked, this, &QDialog::close);
}

void frmFindReplace::bringUp() {
    takeSelection();
    note({});
    show();
    raise();
    activateWindow();
    txtFind_->setFocus();
    txtFind_->selectAll();
    cmdFind_->setDefault(true);  // not the button that closed it, which showing it makes the default
}

// What is selected is not searched for first: it is found already. So is what the last search has found; its text stays
// as it was typed.
void frmFindReplace::takeSelection() {
    const std::string selected = roman_.selectedText();
    if (selected.empty() || selected.find('\n') != std::string::npos) return;
    searched_ = true;
    if (findForwards(selected, wanted(), 0, LetterCase::Same) == FoundText{0, selected.size()}) return;
    txtFind_->setText(toQString(selected));
}

void frmFindReplace::note(std::string_view text) {
    lblNote_->setText(toQString(text));
    lblNote_->setAccessibleName(accessible::unicode(text));
    emit noted(lblNote_->text());
}

frmFindReplace::FindWhere frmFindReplace::findWhere() const {
    for (const FindWhere where : {FromBeginning, Backwards})
        if (findWhere_[where]->isChecked()) return where;
    return FromCaret;
}

std::string frmFindReplace::wanted() const {
    return toFontEncoded(txtFind_->text());
}

void frmFindReplace::cmdFind() {
    find(findWhere(), searched_);
}

void frmFindReplace::findNext() {
    if (txtFind_->text().isEmpty()) {
        bringUp();
        return;
    }
    find(findWhere() == Backwards ? Backwards : FromCaret, true);
}

// `afterSelection`: what is selected has been found already, so going on begins after it.
void frmFindReplace::find(FindWhere where, bool afterSelection) {
    const std::string text = roman_.text();
    const LetterCase letterCase = sameCase_->isChecked() ? LetterCase::Same : LetterCase::Exact;
    const std::size_t selected = roman_.selectionStart();
    const std::size_t after = selected + (afterSelection ? roman_.selectionLength() : 0);
    const bool backwards = where == Backwards;
    const auto search = [&](std::size_t from) {
        return backwards ? findBackwards(text, wanted(), from, letterCase)
                         : findForwards(text, wanted(), from, letterCase);
    };
    auto found = search(backwards ? selected : where == FromBeginning ? 0 : after);
    const bool wentOn = !found;
    if (wentOn) found = search(backwards ? text.size() : 0);
    searched_ = true;
    note(!wentOn || !found ? std::string_view() : backwards ? wentOnFromEnd : wentOnFromStart);
    if (!found) return ShowMessage(notFound);
    roman_.select(found->start, found->length);
    uncoverSelection();
}

// Moves this window away from what was found, which would not be seen below it.
void frmFindReplace::uncoverSelection() {
    QTextCursor start = roman_.textCursor();
    start.setPosition(start.selectionStart());
    const QRect inPane = roman_.cursorRect(start) | roman_.cursorRect();
    const QRect selected(roman_.viewport()->mapToGlobal(inPane.topLeft()), inPane.size());
    if (!isVisible() || !frameGeometry().intersects(selected)) return;
    const QRect room = screen()->availableGeometry();
    const int below = selected.bottom() + look::em(0.5);
    const int above = selected.top() - look::em(0.5) - height();
    if (below + height() <= room.bottom())
        move(x(), below);
    else if (above >= room.top())
        move(x(), above);
}

void frmFindReplace::cmdReplace() {
    if (roman_.selectionLength() != 0)
        roman_.replaceSelection(replacementFor(roman_.selectedText(), wanted(), toFontEncoded(txtReplace_->text())));
    cmdFind();
}

void frmFindReplace::cmdReplaceAll() {
    roman_.replaceText(replaceAll(roman_.text(), wanted(), toFontEncoded(txtReplace_->text())));
}

}  // namespace tolvan
