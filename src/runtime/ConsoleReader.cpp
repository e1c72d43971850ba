#include "runtime/ConsoleReader.h"

#include "dialogs/Accessibility.h"
#include "platform/richtext/UnicodeText.h"
#include "runtime/ConsoleText.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace tolvan {
namespace {

constexpr std::size_t mostLines = 500;
constexpr std::chrono::milliseconds together{100};

QString unicodeOfLine(const std::string& line) {
    return QString::fromStdString(unicodeOfInternalText(line));
}

class ConsoleInterface : public accessible::ReadText {
  public:
    ConsoleInterface(QWidget& display, const ConsoleReader& reader)
        : ReadText(display, QAccessible::Terminal), reader_(reader) {}
    QString content() const override { return reader_.content(); }
    int cursorPosition() const override { return characterCount(); }

  private:
    const ConsoleReader& reader_;
};

QAccessibleInterface* consoleInterface(const QString& className, QObject* object) {
    if (className != QLatin1String("tolvan::PictureBox")) return nullptr;
    const auto* const reader = object->findChild<ConsoleReader*>({}, Qt::FindDirectChildrenOnly);
    auto& widget = static_cast<QWidget&>(*object);
    if (reader != nullptr) return new ConsoleInterface(widget, *reader);
    return new QAccessibleWidget(&widget, QAccessible::StaticText);
}

}  // namespace

ConsoleReader::ConsoleReader(PictureBox& display, const ConsoleText& text)
    : QObject(&display), display_(display), text_(text) {
    [[maybe_unused]] static const bool installed = (QAccessible::installFactory(consoleInterface), true);
    timer_.setSingleShot(true);
    timer_.setInterval(together);
    connect(&timer_, &QTimer::timeout, this, &ConsoleReader::announce);
}

QString ConsoleReader::content() const {
    return contentFrom(0);
}

// Without the lines before `first`.
QString ConsoleReader::contentFrom(std::size_t first) const {
    const PrintedLines& lines = text_.lines();
    const std::size_t oldest = lines.end() - std::min(lines.end() - lines.begin(), mostLines);
    QStringList texts;
    for (std::size_t line = std::max(first, oldest); line < lines.end(); ++line) texts += unicodeOfLine(lines[line]);
    if (!told_.isEmpty()) texts += told_;
    return texts.join(u'\n');
}

QString ConsoleReader::lastLine() const {
    const PrintedLines& lines = text_.lines();
    return lines.empty() ? QString() : unicodeOfLine(lines[lines.end() - 1]);
}

void ConsoleReader::printed() {
    if (text_.lines().end() < announced_) {
        announced_ = 0;
        told_.clear();
    }
    if (accessible::isUsed() && !timer_.isActive()) timer_.start();
}

void ConsoleReader::tell(const std::vector<std::string>& sentences) {
    QStringList texts;
    for (const std::string& sentence : sentences) texts += unicodeOfLine(sentence);
    told_ = texts.join(u'\n');
    printed();
}

void ConsoleReader::announce() {
    const QString news = contentFrom(std::exchange(announced_, text_.lines().end()));
    accessible::announce(display_, static_cast<int>(content().size() - news.size()), news);
}

}  // namespace tolvan
