#include "dialogs/Look.h"
#include "dialogs/RichTextView.h"
#include "platform/encoding/Deva.h"
#include "platform/richtext/InternalText.h"
#include "platform/richtext/RtfWriter.h"
#include "support/LetterPlaces.h"

#include <QImage>
#include <QScrollBar>

#include <gtest/gtest.h>

namespace tolvan {
namespace {

using namespace std::string_view_literals;

QString shown(std::string_view rtf) {
    RichTextView view;
    view.setTextRtf(rtf);
    return view.text();
}

TEST(RichTextView, NamesOfAnyScript) {
    const QString name = QString::fromUtf8("/home/डेस्कटॉप/{é😀\\}.tvp");
    const std::string fragment =
        RtfEscape(std::u16string_view(QStringView(name).utf16(), static_cast<std::size_t>(name.size())));
    EXPECT_EQ(shown(rtfDocument("\\f1nahI\\line\\f0 " + fragment + "\\f1 nahI")),
              QStringLiteral("nahI\n%1nahI").arg(name));
    EXPECT_EQ(shown(rtfDocument("a\\u2325\\par b")), QString::fromUtf8("a\nक")) << "in the place of what follows";
    EXPECT_EQ(shown(rtfDocument("a\\u2325")), QStringLiteral("a"));
}

TEST(RichTextView, DamagedTextsAreShownAsFarAsTheyGo) {
    std::string deep;
    for (int i = 0; i < 100000; ++i) deep += '{';
    const std::string damaged[] = {"a}b",    "a{b",        "a\\",         "\\f99 a", "\\fs0 a", "\\fs99999999 a",
                                   "\\'",    "\\'4",       "\\cf77 a",    deep,      "\\u-1?",  std::string("a\0b", 3),
                                   "\\bin9", "\\fonttbl{", "\\f1\r\n\ta", "\\fs-4 a"};
    for (const std::string& fragment : damaged) {
        RichTextView view;
        view.setTextRtf(rtfDocument(fragment));
        const QSize size = view.sizeFor({300, 200});
        EXPECT_LE(size.width(), 300);
        EXPECT_LE(size.height(), 200);
        view.resize(size);
        view.grab();
        EXPECT_EQ(view.text().contains(QLatin1Char('a')), fragment.find('a') != std::string::npos) << fragment;
    }
    for (std::size_t length = 0; length < 200; ++length) shown(rtfDocument("\\f1nahI {\\cf2 a}").substr(0, length));
    for (const char* odd : {"{\\rtf1 a}", "{\\rtf1\\f7 a}", "{\\rtf1{\\fonttbl}\\f1 a}"})
        EXPECT_EQ(shown(odd), QStringLiteral("a")) << odd;
    EXPECT_EQ(shown("no rich text"), QStringLiteral("no rich text"));
}

TEST(RichTextView, AssistiveTechnologyLearnsWhereEachLetterStands) {
    RichTextView view;
    view.setTextRtf(rtfDocument("\\f1\\line " + rtfBody(styledText("daov puNha bÏ {#A} ]eÇ"_deva)) +
                                " \\u2325?\\line\\line " + rtfBody(styledText("kma£ {fi} ze5"_deva))));
    view.resize(130, 400);
    view.show();
    const QString all = expectLettersWhereDrawn(view);
    EXPECT_EQ(all, QStringLiteral("दाखव पुन्हा बद्ध #A क्षेत्र क\nकमॉ fi शे५"));
    view.resize(130, 60);
    view.scrollByKey(Qt::Key_End);
    const QString seen = expectLettersWhereDrawn(view);
    EXPECT_TRUE(all.endsWith(seen) && seen.endsWith(u'५') && seen.size() < all.size()) << qPrintable(seen);
}

// The lines in which the picture of a view has ink, as the number of gaps between them tells.
int inkedLines(RichTextView& view) {
    const QImage image = view.grab().toImage();
    int lines = 0;
    bool inkAbove = false;
    for (int y = 0; y < image.height(); ++y) {
        bool ink = false;
        for (int x = 0; x < image.width(); ++x) ink = ink || qGray(image.pixel(x, y)) < 128;
        lines += ink && !inkAbove;
        inkAbove = ink;
    }
    return lines;
}

TEST(BreakLines, AtBlanksElseBetweenTheFoldersOfAPath) {
    struct {
        QString text;
        QString lines;
    } const cases[] = {
        {QStringLiteral("a /home/asha/padhe.tvp bc /1234567890123"),
         QStringLiteral("a|/home/asha/|padhe.tvp bc|/12345678901|23")},
        // A blank at the start of a line is no place to break it, which would leave an empty line.
        {QStringLiteral(" 1234567890123"), QStringLiteral(" 12345678901|23")},
        {QStringLiteral("123456789012  1"), QStringLiteral("123456789012| 1")},
    };
    for (const auto& [text, expected] : cases) {
        std::vector<double> edges;
        for (int i = 0; i <= text.size(); ++i) edges.push_back(i);
        QStringList lines;
        for (const auto& [begin, end] : breakLines(text, edges, 12)) lines.append(text.mid(begin, end - begin));
        EXPECT_EQ(lines.join(u'|'), expected);
    }
}

TEST(RichTextView, LinesAreEven) {
    RichTextView view;
    std::string text;
    for (int i = 0; i < 9; ++i) text += "nahI ";
    view.setTextRtf(rtfDocument(text));
    const int all = view.sizeFor({100000, 1000}).width();
    const int height = view.sizeFor({all * 8 / 9, 1000}).height();
    const int width = view.sizeFor({all * 8 / 9, 1000}).width();
    EXPECT_GT(height, view.sizeFor({100000, 1000}).height());
    EXPECT_LT(width, all * 6 / 9);
}

TEST(RichTextView, TheWholeTextIsInsideTheSizeItAsksFor) {
    // Marks without a width of their own stand at the ends of words here.
    RichTextView view;
    view.setTextRtf(rtfDocument("\\f1tolvn beiskla Aae¦ 17 Cya vaKyrcne mxe gfbf AaF¦lI Aahe"_deva));
    for (int most = look::em(6.5); most < 600; most += 7) {  // the widest word fits: parts of one glyph look otherwise
        const QSize size = view.sizeFor({most, 2000});
        view.resize(size);
        const QImage exact = view.grab().toImage();
        EXPECT_EQ(view.verticalScrollBar()->maximum(), 0);
        for (int y = 0; y < exact.height(); ++y)
            ASSERT_GT(qGray(exact.pixel(exact.width() - 1, y)), 128) << "cut off at " << most;
    }
}

TEST(RichTextView, AHugeTextIsShownAtOnce) {
    for (const char* word : {"o", "nahI "}) {
        std::string text;
        while (text.size() < 300000) text += word;
        RichTextView view;
        view.setTextRtf(rtfDocument(text));
        view.resize(view.sizeFor({300, 200}));
        view.scrollByKey(Qt::Key_End);
        EXPECT_GT(inkedLines(view), 3);
    }
}

TEST(RichTextView, SizesAndColoursOfTheText) {
    const auto look = [](std::string_view fragment) {
        RichTextView view;
        view.setTextRtf(rtfDocument(fragment));
        const QSize size = view.sizeFor({1000, 1000});
        view.resize(size);
        return std::pair{size, view.grab().toImage()};
    };
    const auto normal = look("nahI"), large = look("\\fs40 nahI"), white = look("\\cf2 nahI");
    EXPECT_NEAR(large.first.height(), 2 * normal.first.height(), 3);
    EXPECT_EQ(white.first, normal.first);
    EXPECT_NE(white.second, normal.second);
    EXPECT_NE(look("\\f1 nahI").second, normal.second);
}

}  // namespace
}  // namespace tolvan
