#include "runtime/ConsoleReader.h"

#include "platform/richtext/UnicodeText.h"
#include "runtime/ConsoleText.h"
#include "runtime/MessageStrip.h"
#include "runtime/ScrollBack.h"

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
    std::vector<accessible::DrawnLine> drawnLines() const override { return reader_.drawnLines(); }
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

ConsoleReader::ConsoleReader(PictureBox& display, ConsoleText& text, MessageStrip& strip, const ScrollBack* scrollBack,
                             const QWidget* cover)
    : QObject(&display), display_(display), text_(text), strip_(strip), scrollBack_(scrollBack), cover_(cover) {
    [[maybe_unused]] static const bool installed = (QAccessible::installFactory(consoleInterface), true);
    timer_.setSingleShot(true);
    timer_.setInterval(together);
    connect(&timer_, &QTimer::timeout, this, &ConsoleReader::announce);
}

QString ConsoleReader::content() const {
    return contentFrom(0);
}

std::size_t ConsoleReader::oldestLine() const {
    const PrintedLines& lines = text_.lines();
    return lines.end() - std::min(lines.end() - lines.begin(), mostLines);
}

// Without the lines before `first`.
QString ConsoleReader::contentFrom(std::size_t first) const {
    const PrintedLines& lines = text_.lines();
    QStringList texts;
    for (std::size_t line = std::max(first, oldestLine()); line < lines.end(); ++line)
        texts += unicodeOfLine(lines[line]);
    if (strip_.isTelling()) texts += strip_.content();
    return texts.join(u'\n');
}

QString ConsoleReader::lastLine() const {
    const PrintedLines& lines = text_.lines();
    return lines.empty() ? QString() : unicodeOfLine(lines[lines.end() - 1]);
}

std::vector<accessible::DrawnLine> ConsoleReader::drawnLines() const {
    if (cover_ != nullptr && !cover_->isHidden()) return {};
    const bool isScrolledBack = scrollBack_ != nullptr && scrollBack_->isShown();
    const bool hasStrip = strip_.isTelling() && !isScrolledBack;
    const auto bottom = static_cast<float>(hasStrip ? strip_.y() : display_.height());
    const PrintedLines& lines = text_.lines();
    std::vector<accessible::DrawnLine> drawn;
    int start = 0;
    for (std::size_t line = oldestLine(); line < lines.end(); ++line) {
        const float top = isScrolledBack ? scrollBack_->topOf(line) : text_.topOf(line);
        if (top + text_.LineHeight() > 0 && top < bottom) {
            const std::vector<InternalTextRun> runs = ConsoleText::visibleRuns(lines[line]);
            std::vector<double> edges;
            for (const float edge : text_.edges(runs)) edges.push_back(ConsoleText::leftMargin + edge);
            drawn.push_back({start, styledText(runs), std::move(edges), top, text_.LineHeight()});
        }
        start += static_cast<int>(unicodeOfLine(lines[line]).size()) + 1;
    }
    if (!hasStrip) return drawn;
    for (accessible::DrawnLine& line : strip_.drawnLines()) {
        line.start += start;
        drawn.push_back(std::move(line));
    }
    return drawn;
}

void ConsoleReader::printed() {
    announced_ = text_.lines().end() < announced_ ? 0 : announced_;
    if (accessible::isUsed() && !timer_.isActive()) timer_.start();
}

void ConsoleReader::announce() {
    const QString news = contentFrom(std::exchange(announced_, text_.lines().end()));
    accessible::announce(display_, static_cast<int>(content().size() - news.size()), news);
}

}  // namespace tolvan
