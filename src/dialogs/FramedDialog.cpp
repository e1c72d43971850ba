#include "dialogs/FramedDialog.h"

#include "dialogs/DevanagariControl.h"
#include "dialogs/LetterKeys.h"
#include "dialogs/Look.h"
#include "dialogs/WindowFrame.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPushButton>
#include <QVBoxLayout>

namespace tolvan {

FramedDialog::FramedDialog(std::string_view title, QWidget* parent)
    : QDialog(parent), body_(new QHBoxLayout), buttons_(new QHBoxLayout) {
    auto* frame = new WindowFrame(*this, WindowFrame::Kind::Fixed);
    frame->setTitle(StyledText(title, Font::Devanagari));

    body_->setContentsMargins(look::em(1.2), look::em(1.2), look::em(1.4), look::em(1.2));
    body_->setSpacing(look::em(1));

    auto* footer = new QWidget(this);
    footer->setAutoFillBackground(true);
    footer->setBackgroundRole(QPalette::AlternateBase);
    footer->setMinimumWidth(frame->captionBar().sizeHint().width());
    footer->setLayout(buttons_);
    buttons_->setContentsMargins(look::em(1), look::em(0.6), look::em(1), look::em(0.6));
    buttons_->setSpacing(look::em(0.6));
    buttons_->addStretch();

    auto* all = new QVBoxLayout(this);
    all->setContentsMargins({});
    all->setSpacing(0);
    all->setSizeConstraint(QLayout::SetFixedSize);
    all->addLayout(body_, 1);
    all->addWidget(footer);
}

QPushButton* FramedDialog::addButton(const char* name, std::string_view caption) {
    auto* const button = devanagariControl<QPushButton>(caption, QLatin1String(name), this);
    if (buttons_->count() == 1) {  // only the stretch is there
        button->setDefault(true);
        button->setFocus();
    }
    buttons_->addWidget(button);
    return button;
}

void FramedDialog::keyPressEvent(QKeyEvent* event) {
    if (!takeLetter(*this, *event)) QDialog::keyPressEvent(event);
}

}  // namespace tolvan
