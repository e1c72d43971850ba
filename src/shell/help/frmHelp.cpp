#include "shell/help/frmHelp.h"

#include "dialogs/Look.h"
#include "dialogs/RichTextView.h"
#include "dialogs/WindowFrame.h"
#include "editor/WholeFile.h"
#include "platform/encoding/Deva.h"
#include "platform/fonts/FontEncoding.h"
#include "platform/richtext/InternalText.h"
#include "platform/richtext/RtfWriter.h"
#include "translator/ProgramText.h"

#include <QBoxLayout>
#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QListWidget>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QSplitter>

namespace tolvan {
namespace {

// Colours: 1 text, 2 titles, 3 what is typed. Sizes are half points.
constexpr std::string_view header =
    "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fswiss Times New Roman;}{\\f1\\fnil Sanskrit 1.2;}}"
    "{\\colortbl;\\red34\\green38\\blue46;\\red36\\green90\\blue168;\\red107\\green112\\blue122;}";
constexpr std::string_view titleFormat = "\\cf2\\fs32 ";
constexpr std::string_view textFormat = "\\cf1\\fs22 ";
constexpr std::string_view typedFormat = "\\cf3\\fs20 ";
constexpr std::string_view newLine = "{\\line}";

StyledText styled(std::string_view internalText) {
    StyledText text;
    for (const InternalTextRun& run : InternalTextRuns(internalText)) text.append(run.text, run.font);
    return text;
}

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
    std::string rtf(header);
    rtf.append(titleFormat).append(rtfBody(styled(topic.title))).append(newLine).append(textFormat);
    for (const std::string& paragraph : topic.paragraphs)
        rtf.append(newLine).append(rtfBody(styled(paragraph))).append(newLine);
    rtf.append(newLine).append(exampleBody(topic.example));
    return rtf.append("\\par}");
}

}  // namespace

frmHelp::frmHelp(std::vector<HelpTopic> topics)
    : topics_(std::move(topics)),
      lstTopics_(new QListWidget),
      txtHelp_(new RichTextView),
      cmdCopy_(new QPushButton(look::captionText("%dahr[acI àt bnv"_deva))) {
    setObjectName(QStringLiteral("frmHelp"));
    setAttribute(Qt::WA_DeleteOnClose);
    auto* const frame = new WindowFrame(*this, WindowFrame::Kind::Resizable);
    frame->setTitle(StyledText("tolvn beisk   mdt"_deva, Font::Devanagari));

    lstTopics_->setObjectName(QStringLiteral("lstTopics"));
    lstTopics_->setFont(look::controlFont(Font::Devanagari));
    for (const HelpTopic& topic : topics_) lstTopics_->addItem(toQString(plainText(topic.title)));
    txtHelp_->setObjectName(QStringLiteral("txtHelp"));
    cmdCopy_->setObjectName(QStringLiteral("cmdCopy"));
    cmdCopy_->setFont(look::controlFont(Font::Devanagari));

    auto* const page = new QWidget;
    auto* const column = new QVBoxLayout(page);
    column->addWidget(txtHelp_, 1);
    column->addWidget(cmdCopy_, 0, Qt::AlignRight);
    auto* const splitter = new QSplitter;
    splitter->setChildrenCollapsible(false);
    splitter->addWidget(lstTopics_);
    splitter->addWidget(page);
    splitter->setSizes({look::em(14), look::em(36)});
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(splitter);
    resize(QSize(look::em(50), look::em(34)).boundedTo(screen()->availableSize()));

    connect(lstTopics_, &QListWidget::currentRowChanged, this, &frmHelp::showCurrent);
    connect(cmdCopy_, &QPushButton::clicked, this, &frmHelp::copyExample);
    lstTopics_->setCurrentRow(0);
    lstTopics_->setFocus();
}

void frmHelp::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        close();
    else
        QWidget::keyPressEvent(event);
}

void frmHelp::showTopic(const QString& title) {
    const QList<QListWidgetItem*> found = lstTopics_->findItems(title, Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (!title.isEmpty() && !found.isEmpty()) lstTopics_->setCurrentItem(found.constFirst());
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
