#include "editor/steps/frmPass.h"

#include "dialogs/Accessibility.h"
#include "dialogs/Look.h"
#include "platform/encoding/Deva.h"
#include "platform/fonts/FontEncoding.h"

#include <QBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>

#include <algorithm>
#include <string>

namespace tolvan {

frmPass::frmPass(int line, int pass, QWidget* parent)
    : FramedDialog(std::string("Aae¦ "_deva) + std::to_string(line), parent), txtPass_(new QSpinBox(this)) {
    setObjectName(QStringLiteral("frmPass"));
    constexpr std::string_view caption = "iktVya ve¦I wa<bayce"_deva;
    auto* const label = new QLabel(look::captionText(caption), this);
    label->setFont(look::controlFont(Font::Devanagari));
    label->setAccessibleName(accessible::unicode(caption));
    label->setBuddy(txtPass_);
    constexpr int most = 1'000'000;
    constexpr int usual = 2;  // at the first a program stands anyway
    txtPass_->setObjectName(QStringLiteral("txtPass"));
    txtPass_->setFont(look::controlFont(Font::Devanagari));
    txtPass_->setAccessibleName(label->accessibleName());
    txtPass_->setRange(1, most);
    txtPass_->setValue(pass > 0 ? pass : usual);
    txtPass_->selectAll();
    body().addWidget(label);
    body().addSpacing(look::em(0.7));
    body().addWidget(txtPass_);
    connect(addButton("cmdOK", "QIk Aahe"_deva), &QPushButton::clicked, this, &QDialog::accept);
    connect(addButton("cmdCancel", "rÎ"_deva), &QPushButton::clicked, this, &QDialog::reject);
    txtPass_->setFocus();
}

int frmPass::pass() const {
    return txtPass_->value();
}

}  // namespace tolvan
