#include "shell/help/frmHelp.h"

#include "dialogs/Accessibility.h"
#include "dialogs/DevanagariControl.h"
#include "dialogs/Look.h"
#include "dialogs/RichTextView.h"
#include "dialogs/WindowFrame.h"
#include "editor/WholeFile.h"
#include "platform/devanagariinput/LineEditText.h"
#include "platform/encoding/Deva.h"
#include "platform/fonts/FontEncoding.h"
#include "platform/richtext/InternalText.h"
#include "platform/richtext/RtfWriter.h"
#include "platform/richtext/UnicodeText.h"
#include "translator/ProgramText.h"

#include <QBoxLayout>
#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMimeData>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QSplitter>

#include <algorithm>

namespace tolvan {
namespace {

// Colours: 1 text, 2 titles, 3 what is typed. Sizes are half points.
std::string header() {
    std::string rtf =
        "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fswiss Times New Roman;}"
        "{\\f1\\fnil Sanskrit 1.2;}}{\\colortbl;";
    for (const QColor& colour : {look::colours().text, look::colours().accent, look::colours().dimText})
        rtf += QStringLiteral("\\red%1\\green%2\\blue%3;")
                   .arg(colour.red())
                   .arg(colour.green())
                   .arg(colour.blue())
                   .toStdString();
    return rtf + '}';
}
constexpr std::string_view titleFormat = "\\cf2\\fs32 ";
constexpr std::string_view textFormat = "\\cf1\\fs22 ";
constexpr std::string_view typedFormat = "\\cf3\\fs20 ";
constexpr std::string_view newLine = "{\\line}";

constexpr std::string_view searchCaption = "zaex"_deva;

// Each line of the example as it is typed, followed by how it is shown.
std::string exampleBody(const std::vector<std::string>& example) {
    std::string body;
    for (const std::string& line : example) {
        body.append(typedFormat).append("\\f0 ").append(RtfEscape(line)).append(newLine);
        body.append(textFormat).append(rtfBody(Transliterate(line))).append(newLine);
    }
    return body;
}

std::string document(const HelpTopic& topic) {
    std::string rtf = header();
    rtf.append(titleFormat).append(rtfBody(styledText(topic.title))).append(newLine).append(textFormat);
    for (const std::string& paragraph : topic.paragraphs)
        rtf.append(newLine).append(rtfBody(styledText(paragraph))).append(newLine);
    rtf.append(newLine).append(exampleBody(topic.example));
    return rtf.append("\\par}");
}

}  // namespace

frmHelp::frmHelp(std::vector<HelpTopic> topics)
    : topics_(std::move(topics)),
      txtSearch_(new QLineEdit),
      lblNote_(devanagariControl<QLabel>("kahIhI sapfle nahI"_deva, QStringLiteral("lblNote"))),
      lstTopics_(new QListWidget),
      txtHelp_(new RichTextView),
      cmdCopy_(devanagariControl<QPushButton>("%dahr[acI àt bnv"_deva, QStringLiteral("cmdCopy"))) {
    setObjectName(QStringLiteral("frmHelp"));
    setAttribute(Qt::WA_DeleteOnClose);
    auto* const frame = new WindowFrame(*this, WindowFrame::Kind::Resizable);
    frame->setTitle(StyledText("tolvn beisk   mdt"_deva, Font::Devanagari));

    setUpSearch();
    setUpTopics();
    txtHelp_->setObjectName(QStringLiteral("txtHelp"));
    setUpLayout();
    resize(QSize(look::em(50), look::em(34)).boundedTo(screen()->availableSize()));

    connect(lstTopics_, &QListWidget::currentRowChanged, this, &frmHelp::showCurrent);
    connect(cmdCopy_, &QPushButton::clicked, this, &frmHelp::copyExample);
    connect(txtSearch_, &QLineEdit::textChanged, this, &frmHelp::search);
    connect(new QShortcut(QKeySequence::Copy, lstTopics_, nullptr, nullptr, Qt::WidgetShortcut), &QShortcut::activated,
            this, [this] { QGuiApplication::clipboard()->setMimeData(txtHelp_->toMimeData().release()); });
    connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, txtSearch_, [this] {
        txtSearch_->setFocus();
        txtSearch_->selectAll();
    });
    lstTopics_->setCurrentRow(0);
    lstTopics_->setFocus();
}

void frmHelp::setUpSearch() {
    txtSearch_->setObjectName(QStringLiteral("txtSearch"));
    txtSearch_->setAccessibleName(accessible::unicode(searchCaption));
    txtSearch_->setFont(look::controlFont(Font::Latin));
    txtSearch_->installEventFilter(this);
    new DevanagariInput(*txtSearch_, std::make_unique<LineEditText>(*txtSearch_, txtSearch_->maxLength()));
    lblNote_->setTextFormat(Qt::PlainText);
    lblNote_->hide();
}

void frmHelp::setUpTopics() {
    lstTopics_->setObjectName(QStringLiteral("lstTopics"));
    lstTopics_->setAccessibleName(accessible::unicode("mdt"_deva));
    lstTopics_->setFont(look::controlFont(Font::Devanagari));
    lstTopics_->installEventFilter(this);
    for (const HelpTopic& topic : topics_) {
        auto* const item = new QListWidgetItem(toQString(plainText(topic.title)), lstTopics_);
        item->setData(Qt::AccessibleTextRole, QString::fromStdString(unicodeOfInternalText(topic.title)));
    }
}

// The search over the topics at the left, the text over its button at the right.
void frmHelp::setUpLayout() {
    auto* const label = devanagariControl<QLabel>(searchCaption, {});
    label->setBuddy(txtSearch_);
    auto* const searchRow = new QHBoxLayout;
    searchRow->setContentsMargins(look::em(0.4), 0, look::em(0.4), 0);
    searchRow->addWidget(label);
    searchRow->addWidget(txtSearch_);
    auto* const left = new QWidget;
    auto* const topics = new QVBoxLayout(left);
    topics->setContentsMargins(0, look::em(0.4), 0, 0);
    topics->addLayout(searchRow);
    topics->addWidget(lblNote_, 0, Qt::AlignHCenter);
    topics->addWidget(lstTopics_);
    auto* const page = new QWidget;
    auto* const text = new QVBoxLayout(page);
    text->addWidget(txtHelp_, 1);
    text->addWidget(cmdCopy_, 0, Qt::AlignRight);
    auto* const splitter = new QSplitter;
    splitter->setChildrenCollapsible(false);
    splitter->addWidget(left);
    splitter->addWidget(page);
    splitter->setSizes({look::em(17), look::em(33)});
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(splitter);
    setTabOrder(txtSearch_, lstTopics_);
    setTabOrder(lstTopics_, cmdCopy_);
}

void frmHelp::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) showCurrent();
}

void frmHelp::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        txtSearch_->text().isEmpty() ? void(close()) : txtSearch_->clear();
    else
        QWidget::keyPressEvent(event);
}

// What is typed in the list looks for a topic; from the field, the arrows and Enter go to the list.
bool frmHelp::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress) return QWidget::eventFilter(watched, event);
    const auto& key = static_cast<QKeyEvent&>(*event);
    const bool isLetter = !key.text().isEmpty() && key.text()[0].isLetterOrNumber();
    if (watched == lstTopics_ && isLetter) {
        txtSearch_->setFocus();
        return QCoreApplication::sendEvent(txtSearch_, event);
    }
    const bool leaves = key.key() == Qt::Key_Down || key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
    if (watched == txtSearch_ && leaves) {
        lstTopics_->setFocus();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

// The topics that do not have it are hidden; what it fits best is shown.
void frmHelp::search() {
    const std::vector<std::size_t> found = searchHelp(topics_, txtSearch_->text().toStdString());
    const bool isAsked = !txtSearch_->text().trimmed().isEmpty();
    for (int row = 0; row < lstTopics_->count(); ++row)
        lstTopics_->setRowHidden(
            row, isAsked && std::find(found.begin(), found.end(), static_cast<std::size_t>(row)) == found.end());
    lblNote_->setVisible(isAsked && found.empty());
    if (!found.empty()) lstTopics_->setCurrentRow(static_cast<int>(found.front()));
    lstTopics_->scrollToItem(lstTopics_->currentItem());
}

void frmHelp::showTopic(const QString& title) {
    const QList<QListWidgetItem*> found = lstTopics_->findItems(title, Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (title.isEmpty() || found.isEmpty()) return;
    txtSearch_->clear();
    lstTopics_->setCurrentItem(found.constFirst());
}

const HelpTopic& frmHelp::current() const {
    return topics_.at(static_cast<std::size_t>(std::max(0, lstTopics_->currentRow())));
}

void frmHelp::showCurrent() {
    txtHelp_->setTextRtf(document(current()));
    cmdCopy_->setEnabled(!current().example.empty());
}

void frmHelp::copyExample() {
    QString text;
    for (const std::string& line : current().example) text.append(toQString(line)).append(QLatin1Char('\n'));
    QGuiApplication::clipboard()->setText(text);
}

bool showHelp(const QString& file, const QString& topic) {
    static QPointer<frmHelp> window;
    if (!window) {
        const std::optional<QByteArray> bytes = readWholeFile(file);
        std::vector<HelpTopic> topics = readHelpFile(bytes ? bytes->toStdString() : std::string());
        if (topics.empty()) return false;
        window = new frmHelp(std::move(topics));
    }
    window->showTopic(topic);
    window->show();
    window->raise();
    window->activateWindow();
    return true;
}

}  // namespace tolvan
