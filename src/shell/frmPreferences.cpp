#include "shell/frmPreferences.h"

#include "dialogs/Accessibility.h"
#include "dialogs/DevanagariControl.h"
#include "dialogs/Dialogs.h"
#include "dialogs/Look.h"
#include "editor/RecentFiles.h"
#include "editor/RomanPreview.h"
#include "editor/frmEditor.h"
#include "platform/encoding/Deva.h"
#include "platform/fonts/FontEncoding.h"
#include "shell/SettingsReader.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>
#include <QTabWidget>

namespace tolvan {
namespace {

constexpr std::string_view clearQuestion = "\\f1nu®yac vaprleLya )a#lI—cI yadI pusaycI ka\\f0?"_deva;

template <class Control>
Control* addControl(std::string_view caption, const QString& name, QLayout& layout) {
    auto* control = devanagariControl<Control>(caption, name);
    layout.addWidget(control);
    return control;
}

QVBoxLayout* addPageLayout(QWidget* page) {
    auto* layout = new QVBoxLayout(page);
    layout->setContentsMargins(look::em(1), look::em(1), look::em(1), look::em(1));
    layout->setSpacing(look::em(0.6));
    return layout;
}

}  // namespace

frmPreferences::frmPreferences(frmEditor& editor) : FramedDialog("tolvn beisk invfI"_deva, &editor), editor_(editor) {
    setObjectName(QStringLiteral("frmPreferences"));
    auto* tabs = new QTabWidget(this);
    tabs->setObjectName(QStringLiteral("SSTab1"));
    tabs->setFont(look::controlFont(Font::Devanagari));
    tabs->setMinimumWidth(look::em(26));
    const auto add = [tabs](QWidget* page, std::string_view caption) {
        const int number = tabs->addTab(page, look::captionText(caption));
        tabs->tabBar()->setAccessibleTabName(number, accessible::unicode(caption));
        page->setAccessibleName(accessible::unicode(caption));
    };
    add(runPage(), "samaNy"_deva);
    add(programPage(), "àayaejnabÎl"_deva);
    add(lookPage(), "êp"_deva);
    body().addWidget(tabs, 1);
    addButtons();
    txtCaption_->setText(toQString(editor_.document().caption()));
    appliedCaption_ = txtCaption_->text();
}

QWidget* frmPreferences::runPage() {
    auto* page = new QWidget;
    QVBoxLayout& layout = *addPageLayout(page);
    for (const auto& [key, caption, value] : preferences()) {
        boxes_ += addControl<QCheckBox>(caption, QLatin1String("chk") + QLatin1String(key), layout);
        boxes_.last()->setChecked(editor_.state().*value);
    }
    layout.addStretch();
    auto* clear = addControl<QPushButton>("nu®ya )a$il<cI yadI pus"_deva, QStringLiteral("cmdClearMRU"), layout);
    clear->setAutoDefault(false);
    layout.setAlignment(clear, Qt::AlignLeft);
    connect(clear, &QPushButton::clicked, this, &frmPreferences::cmdClearMRU);
    return page;
}

QWidget* frmPreferences::programPage() {
    auto* page = new QWidget;
    QVBoxLayout& layout = *addPageLayout(page);
    auto* label = addControl<QLabel>("àayaejnace nav"_deva, QStringLiteral("lblCaption"), layout);
    txtCaption_ = new QLineEdit(page);
    txtCaption_->setObjectName(QStringLiteral("txtCaption"));
    txtCaption_->setFont(look::controlFont(Font::Latin));
    label->setBuddy(txtCaption_);
    txtCaption_->setAccessibleName(label->accessibleName());
    auto* shown = new RomanPreview(*txtCaption_);
    shown->setObjectName(QStringLiteral("lblCaptionDevnag"));
    layout.addWidget(txtCaption_);
    layout.addWidget(shown);
    layout.addStretch();
    return page;
}

QWidget* frmPreferences::lookPage() {
    auto* page = new QWidget;
    QVBoxLayout& layout = *addPageLayout(page);
    addControl<QLabel>("iofKya<ce r<g"_deva, QStringLiteral("lblLook"), layout);
    for (const LookChoice& choice : lookChoices()) {
        looks_ +=
            addControl<QRadioButton>(choice.caption, QLatin1String("optLook") + QLatin1String(choice.value), layout);
        looks_.last()->setChecked(editor_.state().Look == choice.kind);
    }
    layout.addStretch();
    return page;
}

void frmPreferences::addButtons() {
    connect(addButton("cmdOK", "QIk Aahe"_deva), &QPushButton::clicked, this, [this] {
        apply();
        accept();
    });
    connect(addButton("cmdApply", "Aamlat Aa["_deva), &QPushButton::clicked, this, &frmPreferences::apply);
    connect(addButton("cmdCancel", "rÎ"_deva), &QPushButton::clicked, this, &QDialog::reject);
}

void frmPreferences::apply() {
    EditorState& state = editor_.state();
    auto box = boxes_.cbegin();
    for (const Preference& preference : preferences()) state.*preference.value = (*box++)->isChecked();
    auto choice = lookChoices().begin();
    for (const QRadioButton* button : looks_) {
        if (button->isChecked()) state.Look = choice->kind;
        ++choice;
    }
    savePreferences(editor_.settings(), state);
    applyCaption();
    readPreferences(editor_.settings(), state);
    editor_.applyPreferences();
    look::use(state.Look.value_or(look::kindOfDesktop()));
}

// A caption that the box cannot show as it is stays unless the user has changed it.
void frmPreferences::applyCaption() {
    if (txtCaption_->text() == appliedCaption_) return;
    appliedCaption_ = txtCaption_->text();
    editor_.document().setCaption(toFontEncoded(appliedCaption_));
}

void frmPreferences::cmdClearMRU() {
    if (AskQuestion(clearQuestion) == Answer::Yes) RecentFiles(editor_.settings()).clear();
    editor_.MruManage({});
}

void showPreferences(frmEditor& editor) {
    const QPointer<frmPreferences> preferences = new frmPreferences(editor);
    preferences->exec();
    delete preferences;
}

}  // namespace tolvan
