// The help, its window, and the guide for teachers: every example in them runs, and what they say is so.
#include "library/LibraryWords.h"
#include "platform/encoding/Deva.h"
#include "platform/richtext/InternalText.h"
#include "platform/transliteration/ReplaceRomanChars.h"
#include "platform/transliteration/Spellings.h"
#include "shell/help/HelpFile.h"
#include "shell/help/frmHelp.h"
#include "shell/user/DrivenProcess.h"
#include "support/Folders.h"
#include "translator/LanguageWords.h"
#include "translator/MessageTable.h"
#include "transliteration/ReadBack.h"
#include "tvp/TvpProcess.h"

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPointer>
#include <QPushButton>
#include <QRegularExpression>
#include <QTest>

#include <fstream>
#include <gmock/gmock.h>
#include <set>

namespace tolvan {
namespace {

namespace fs = std::filesystem;
using testing::Contains;
using testing::ElementsAre;
using testing::StartsWith;

const std::string helpPath = programFolder() + "/Tolbasic.hlp";

std::vector<HelpTopic> shippedHelp() {
    std::ifstream file(helpPath, std::ios::binary);
    return readHelpFile(std::string(std::istreambuf_iterator<char>(file), {}));
}

// Whether a word stands in one of the lines, with no other letter beside it.
bool hasWord(const std::vector<std::string>& lines, std::string_view word) {
    const auto isLetter = [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); };
    for (const std::string& line : lines) {
        for (std::size_t at = line.find(word); at != std::string::npos; at = line.find(word, at + 1)) {
            const std::size_t end = at + word.size();
            if ((at == 0 || !isLetter(line[at - 1])) && (end == line.size() || !isLetter(line[end]))) return true;
        }
    }
    return false;
}

// What it asks for is answered with the number 7, which is a text as well.
void expectRunsAndDoesSomething(const std::vector<std::string>& example) {
    std::string roman;
    for (const std::string& line : example) roman += line + "\r\n";
    const TvpResult run = TvpProcess().runProgram({"run", "--trace", "--no-wait", "--seconds=10"}, roman, "7\n");
    EXPECT_EQ(run.status, 0) << roman << run.errors;
    EXPECT_NE(run.output + run.errors, "") << roman;
}

TEST(HelpFile, IsBuiltFromRomanLines) {
    const auto topics = readHelpFile(helpOfGuide(
        "lost\n= dAkhav\nghe #abc# dAkhav\nghe \\# \\##a#\\#\n    dAkhav #\"#a#\"#\n      ghe\n\n= korA\n"));
    ASSERT_EQ(topics.size(), 2U);
    EXPECT_EQ(topics[0].title, "daov");
    EXPECT_THAT(topics[0].paragraphs, ElementsAre("\"e {abc} daov", "\"e {#} {#a#}"));
    EXPECT_THAT(topics[0].example, ElementsAre("dAkhav #\"#a#\"#", "  ghe"));
    EXPECT_TRUE(topics[1].example.empty());
}

TEST(Help, EveryExampleRunsAndDoesSomething) {
    std::set<std::vector<std::string>> done;  // an example may stand in several topics
    for (const HelpTopic& topic : shippedHelp())
        if (!topic.example.empty() && done.insert(topic.example).second) expectRunsAndDoesSomething(topic.example);
}

// With an example that has it.
TEST(Help, HasATopicForEveryWord) {
    const std::vector<HelpTopic> topics = shippedHelp();
    const auto isTold = [&topics](std::string_view roman) {
        return std::any_of(topics.begin(), topics.end(), [&](const HelpTopic& topic) {
            return plainText(topic.title) == ReplaceRomanChars(roman) && hasWord(topic.example, roman);
        });
    };
    for (const LanguageWord& word : languageWords()) EXPECT_TRUE(isTold(word.roman)) << word.roman;
    for (const LibraryWord& word : libraryWords()) EXPECT_TRUE(isTold(word.roman)) << word.roman;
}

TEST(Help, FindsTopicsByWordsOfAllScripts) {
    const std::pair<const char*, const char*> firstFound[] = {
        {"dAkhav", "dAkhav"},
        {"DAKHA", "dAkhav"},
        {"दाखव", "dAkhav"},
        {"print", "dAkhav"},
        {"circle", "vartuL"},
        {"vartul", "vartuL"},
        {"varatul", "vartuL"},
        {"vartool", "vartuL"},
        {"wartul", "vartuL"},
        {"waratool", "vartuL"},
        {"vrtul", "vartuL"},
        {"varthul", "vartuL"},
        {"vatruL", "vartuL"},
        {"daakhav", "dAkhav"},
        {"dhakav", "dAkhav"},
        {"dakhvaa", "dAkhav"},
        {"jowar", "jovar"},
        {"nahitr", "nAhItar"},
        {"soocana", "suchanA"},
        {"aayat", "Ayat"},
        {"vargmool", "vargamUL"},
        {"वर्तुळ", "vartuL"},
        {"square root", "vargamUL"},
        {"while", "jovar tovar kar"},
        {"random", "tayAr shabd: saMkhyA"},
        {"jar", "jar"},
        {"alphabet", "akShare kashI lihAvI"},
        {"purple", "jAMbhaLA"},
        {"आकाशी", "AkAshI"},
        {"gharachA kardA", nullptr},
        {" #", nullptr},
        {"", nullptr},
    };
    const std::vector<HelpTopic> topics = shippedHelp();
    for (const auto& [text, title] : firstFound) {
        const std::vector<std::size_t> found = searchHelp(topics, text);
        EXPECT_EQ(found.empty() ? std::string() : topics[found[0]].keys[0], title == nullptr ? std::string() : title)
            << text;
    }
}

// What is typed stands in braces, since it is shown in Roman letters.
TEST(Help, ExplainsEverySpelling) {
    const HelpTopic topic = shippedHelp().at(1);
    for (const Spelling& spelling : spellings) EXPECT_TRUE(hasWord(topic.paragraphs, spelling.roman)) << spelling.roman;
}

TEST(Help, ListsTheErrorMessagesWhole) {
    const auto paragraphs = shippedHelp().back().paragraphs;
    const auto listed = [&paragraphs](const std::string& start) {
        return std::any_of(paragraphs.begin(), paragraphs.end(),
                           [&](const std::string& paragraph) { return paragraph.starts_with(start); });
    };
    for (const Message& message : messageTable())
        EXPECT_EQ(listed("{" + std::to_string(message.number) + ":}"), message.number > 0 && message.number < 32000)
            << message.number;
    EXPECT_THAT(paragraphs, Contains("{3:} %pàayaejnat nstan prt\\{yacI A\\}a"_deva));
}

TEST(Help, ShowsTheTopicsAndCopiesTheirExamples) {
    ASSERT_TRUE(showHelp(QString::fromStdString(helpPath), {}));
    ASSERT_TRUE(QTest::qWaitFor([] { return QApplication::activeWindow() != nullptr; }));
    QWidget* const window = QApplication::activeWindow();
    auto* const topics = window->findChild<QListWidget*>(QStringLiteral("lstTopics"));
    auto* const copy = window->findChild<QPushButton*>(QStringLiteral("cmdCopy"));
    auto* const text = window->findChild<QWidget*>(QStringLiteral("txtHelp"));
    ASSERT_TRUE(topics && copy && text);
    const auto shipped = shippedHelp();
    ASSERT_EQ(static_cast<std::size_t>(topics->count()), shipped.size());
    const QString first = text->property("text").toString();
    EXPECT_TRUE(first.contains(QStringLiteral("dAkhav #\"#namaskAr")));

    QTest::keyClick(topics, Qt::Key_Down);
    QTest::keyClick(topics, Qt::Key_Down);
    EXPECT_NE(text->property("text").toString(), first);
    QTest::mouseClick(copy, Qt::LeftButton);
    EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(), shipped[2].example[0] + "\n");
    QTest::keyClick(topics, Qt::Key_End);
    EXPECT_FALSE(copy->isEnabled());  // the error messages

    QTest::keyClicks(topics, QStringLiteral("pri"));  // goes into the field
    auto* const search = window->findChild<QLineEdit*>(QStringLiteral("txtSearch"));
    EXPECT_EQ(search->text(), QStringLiteral("pri"));
    EXPECT_EQ(topics->currentItem()->data(Qt::AccessibleTextRole).toString(), QStringLiteral("दाखव"));
    QTest::keyClicks(search, QStringLiteral("zzzz"));
    EXPECT_TRUE(window->findChild<QLabel*>(QStringLiteral("lblNote"))->isVisible());
    QTest::keyClick(search, Qt::Key_Escape);
    EXPECT_FALSE(topics->isRowHidden(0));
    showHelp({}, topics->item(5)->text());
    EXPECT_EQ(topics->currentRow(), 5);
    const QPointer<QWidget> closed = window;
    QTest::keyClick(window, Qt::Key_Escape);
    EXPECT_TRUE(QTest::qWaitFor([&closed] { return closed.isNull(); }));
}

TEST(Help, AFileWithoutHelpIsRefused) {
    const TemporaryFolder folder;
    folder.write("empty.hlp", "no title here\r\n");
    EXPECT_FALSE(showHelp(QString::fromStdString(folder / "empty.hlp"), {}));
    EXPECT_FALSE(showHelp(QString::fromStdString(folder / "none.hlp"), {}));
}

TEST(Help, TheEditorsCommandShowsItWhereTheFileIs) {
    {
        DrivenProcess process;
        const DrivenResult result =
            process.run(programFolder() + "/tolbasic", {},
                        {"frmSplash leave", "frmEditor command HelpHelp", "frmHelp close", "frmEditor close"});
        EXPECT_EQ(result.status, 0) << result.errors;
        EXPECT_THAT(result.windows,
                    ElementsAre(StartsWith("frmSplash|"), StartsWith("frmEditor|"), StartsWith("frmHelp|")));
    }
    {  // a program without the help beside it
        DrivenProcess process;
        const std::string lonely = process.folder() / "tolbasic";
        fs::copy_file(programFolder() + "/tolbasic", lonely);
        const DrivenResult result =
            process.run(lonely, {}, {"frmSplash leave", "frmEditor command HelpHelp", "frmEditor close"});
        EXPECT_EQ(result.status, 0) << result.errors;
        EXPECT_THAT(result.windows, ElementsAre(StartsWith("frmSplash|"), StartsWith("frmEditor|")));
    }
}

std::vector<std::string> guideLines() {
    std::ifstream file(sourceFolder() + "/docs/guide.md");
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);) lines.push_back(line);
    return lines;
}

// Indented lines that follow one another are an example.
std::vector<std::vector<std::string>> examples() {
    constexpr std::string_view indent = "    ";
    std::vector<std::vector<std::string>> found;
    bool inside = false;
    for (const std::string& line : guideLines()) {
        const bool isExample = line.starts_with(indent);
        if (isExample && !inside) found.emplace_back();
        if (isExample) found.back().push_back(line.substr(indent.size()));
        inside = isExample;
    }
    return found;
}

TEST(Guide, EveryExampleRunsAndDoesSomething) {
    for (const auto& example : examples()) expectRunsAndDoesSomething(example);
    EXPECT_GE(examples().size(), 10U);
}

TEST(Guide, HasEveryWordInAnExampleOrATable) {
    for (const LanguageWord& word : languageWords()) EXPECT_TRUE(hasWord(guideLines(), word.roman)) << word.roman;
    for (const LibraryWord& word : libraryWords()) EXPECT_TRUE(hasWord(guideLines(), word.roman)) << word.roman;
}

// Wherever Devanagari follows what is typed for it, they are the same: `ch`, `c` च, or | `te` | ते |.
TEST(Guide, ShowsWhatIsTypedAsItComesOut) {
    const QRegularExpression pair(
        QStringLiteral("((?:`[A-Za-z ]+`(?:, )?)+)(?: \\| | )([\\x{900}-\\x{97F}][\\x{900}-\\x{97F}, ]*)"));
    const QRegularExpression notALetter(QStringLiteral("[`, ]+"));
    int words = 0;
    for (const std::string& line : guideLines()) {
        for (const QRegularExpressionMatch& match : pair.globalMatch(QString::fromStdString(line))) {
            const QStringList typed = match.captured(1).split(notALetter, Qt::SkipEmptyParts);
            const QStringList shown = match.captured(2).split(notALetter, Qt::SkipEmptyParts);
            for (qsizetype i = 0; i < typed.size(); ++i, ++words) {
                const QString& devanagari = shown[std::min(i, shown.size() - 1)];  // one for several spellings
                EXPECT_EQ(soundsOf(typed[i].toStdString()), devanagari.toStdString()) << line;
            }
        }
    }
    EXPECT_GT(words, 120);
    for (const Spelling& spelling : spellings) EXPECT_TRUE(hasWord(guideLines(), spelling.roman)) << spelling.roman;
}

}  // namespace
}  // namespace tolvan
