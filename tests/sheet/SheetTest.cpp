// The sheets that are handed in on paper, as a reader of PDF files sees them.
#include "host/TemporaryFolder.h"
#include "platform/richtext/InternalText.h"
#include "sheet/Sheet.h"
#include "support/Folders.h"

#include <cstdlib>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tolvan {
namespace {

using testing::HasSubstr;

struct SheetTest : testing::Test {
    // The text of a file's pages, which form feeds part, without blanks at the margins.
    std::string textOf(const std::string& file) {
        const std::string command = "pdftotext " + file + " " + (folder / "text") + " 2>/dev/null";
        EXPECT_EQ(std::system(command.c_str()), 0) << "poppler-utils is needed";
        return folder.read("text");
    }
    std::string textOf(const Sheet& sheet) {
        PdfDocument document(sheetSize);
        addSheet(sheet, document);
        folder.write("sheet.pdf", document.bytes("sheet").toStdString());
        return textOf(folder / "sheet.pdf");
    }

    TemporaryFolder folder;
};

TEST_F(SheetTest, HasTextThatIsFoundAndCopied) {
    Sheet sheet;
    sheet.name = "सीता काळे (Sita)";
    sheet.className = "आठवी अ";
    sheet.roll = "१७";
    sheet.date = "22-11-2026";
    sheet.caption = "kshetraphaL";
    sheet.roman = "suchanA rAShTrAche kArya\r\ndAkhav #\"x < y\"#\r\njar prakRitI barobar 1 tar\r\n";
    sheet.printed = {styledText("kml{ - 5%}")};
    sheet.withRoman = sheet.withFindings = true;
    const std::string text = textOf(sheet);
    for (const char* const part :
         {"सीता काळे (Sita)", "आठवी अ", "१७", "22-11-2026", "क्षेत्रफळ", "सुचना राष्ट्राचे कार्य", "\"x < y\"",
          "जर प्रकृती बरोबर १ तर", "prakRitI", "या शब्दाची जोडी नाही", "कमल - 5%", "पान १ / १"})
        EXPECT_THAT(text, HasSubstr(part));
}

TEST_F(SheetTest, BreaksPagesBetweenLinesAndNumbersThem) {
    Sheet sheet;
    sheet.caption = "lAMb";
    for (int i = 0; i < 100; ++i) sheet.roman += "dAkhav " + std::to_string(i) + "\r\n";
    sheet.roman += "dAkhav #\"" + std::string(400, 'w') + "\"#\r\n";
    sheet.picture = QImage(800, 600, QImage::Format_RGB32);
    sheet.picture.fill(Qt::black);
    const std::string text = textOf(sheet);
    for (const char* const part : {"पान १ / ४", "पान ४ / ४", "दाखव ९९", "काय काढले"}) EXPECT_THAT(text, HasSubstr(part));
    EXPECT_EQ(std::count(text.begin(), text.end(), 'w'), 400);
}

TEST_F(SheetTest, AreMadeOfAWholeClass) {
    const std::string made = folder / "class.pdf";
    const std::string command = programFolder() + "/tvp-sheet --task " + sourceFolder() + "/docs/classroom/task " +
                                sourceFolder() + "/docs/classroom/class " + made;
    EXPECT_EQ(std::system(command.c_str()), 0);
    const std::string text = textOf(made);
    EXPECT_EQ(std::count(text.begin(), text.end(), '\f'), 5) << "a page for each hand-in, the empty one too";
    for (const char* const part : {"chitrA", "काय छापले", "वेळेत प्रायोजन संपले नाही", "बाहेरची फाइल"})
        EXPECT_THAT(text, HasSubstr(part));
    EXPECT_NE(std::system((programFolder() + "/tvp-sheet " + folder.path() + " " + made + " 2>/dev/null").c_str()), 0);
}

}  // namespace
}  // namespace tolvan
