#include "dialogs/MarathiTexts.h"

#include <QApplication>
#include <QFontDatabase>

#include <string_view>

namespace tolvan {
namespace {

struct Text {
    std::string_view english;
    const char* marathi;
};

// In the vocabulary of the menus and boxes. The marks of mnemonics go: the keyboard has no Devanagari letters.
constexpr Text texts[] = {
    // The file dialog.
    {"Look in:", "कुठे:"},
    {"Back", "मागे"},
    {"Forward", "पुढे"},
    {"Parent Directory", "वरचा फोल्डर"},
    {"Create New Folder", "नवीन फोल्डर बनव"},
    {"List View", "यादी"},
    {"Detail View", "तपशील"},
    {"File &name:", "फाइलचे नाव:"},
    {"Files of type:", "फाइलचा प्रकार:"},
    {"Computer", "संगणक"},
    {"Open", "उघड"},
    {"&Open", "उघड"},
    {"Save", "साठव"},
    {"&Save", "साठव"},
    {"Cancel", "रद्द"},
    {"&Yes", "हो"},
    {"&No", "नाही"},
    {"&Rename", "नाव बदल"},
    {"Show &hidden files", "लपलेल्या फाइली दाखव"},
    {"&New Folder", "नवीन फोल्डर"},
    {"New Folder", "नवीन फोल्डर"},
    {"%1 already exists.\nDo you want to replace it?", "%1 ही फाइल आधीच आहे.\nतिच्या जागी नवी साठवायची का?"},
    // Its list of files.
    {"Name", "नाव"},
    {"Size", "आकार"},
    {"Type", "प्रकार"},
    {"Date Modified", "बदलल्याची वेळ"},
    {"Folder", "फोल्डर"},
    {"File", "फाइल"},
    {"%1 File", "%1 फाइल"},
    {"Sidebar", "नेहमीच्या जागा"},
    {"List of places and bookmarks", "नेहमीच्या जागांची यादी"},
    {"Files", "फाइली"},
    {"Go back", "मागे जा"},
    {"Go forward", "पुढे जा"},
    {"Go to the parent directory", "वरच्या फोल्डरमध्ये जा"},
    {"Create a New Folder", "नवीन फोल्डर बनव"},
    {"Change to list view mode", "यादी दाखव"},
    {"Change to detail view mode", "तपशील दाखव"},
    // The print dialog.
    {"Print", "छाप"},
    {"&Print", "छाप"},
    {"Printer", "प्रिंटर"},
    {"&Name:", "नाव:"},
    {"P&roperties", "मांडणी"},
    {"Printer Properties", "प्रिंटरची मांडणी"},
    {"Location:", "जागा:"},
    {"Type:", "प्रकार:"},
    {"Local file", "फाइल"},
    {"Output &file:", "फाइल:"},
    {"Print to File (PDF)", "फाइलमध्ये छाप (PDF)"},
    {"Write PDF file", "PDF साठव"},
    {"&Options >>", "अजून >>"},
    {"&Options <<", "कमी <<"},
    {"Copies", "प्रती"},
    {"Copies:", "प्रती:"},
    {"Collate", "एकेक प्रत पूर्ण"},
    {"Reverse", "शेवटचे पान आधी"},
    {"Options", "अजून"},
    {"Print range", "कोणती पाने"},
    {"Print all", "सर्व पाने"},
    {"All Pages", "सर्व पाने"},
    {"Odd Pages", "विषम पाने"},
    {"Even Pages", "सम पाने"},
    {"Page Set:", "पाने:"},
    {"Pages from", "पान"},
    {"to", "ते"},
    {"Pages", "पाने"},
    {"Selection", "निवडलेले"},
    {"Current Page", "हे पान"},
    {"Output Settings", "छपाई"},
    {"Color Mode", "रंग"},
    {"Color", "रंगीत"},
    {"Grayscale", "करडे"},
    {"Double Sided Printing", "दोन्ही बाजूंना"},
    {"Duplex Printing", "दोन्ही बाजूंना"},
    {"Off", "नाही"},
    {"None", "नाही"},
    {"Long side binding", "लांब बाजूने उलटा"},
    {"Short side binding", "आखूड बाजूने उलटा"},
    {"Long side", "लांब बाजूने"},
    {"Short side", "आखूड बाजूने"},
    {"Page", "पान"},
    {"Paper", "कागद"},
    {"Page size:", "कागदाचा आकार:"},
    {"Width:", "रुंदी:"},
    {"Height:", "उंची:"},
    {"Paper source:", "कागद कुठून:"},
    {"Orientation", "दिशा"},
    {"Portrait", "उभा"},
    {"Landscape", "आडवा"},
    {"Reverse landscape", "उलटा आडवा"},
    {"Reverse portrait", "उलटा उभा"},
    {"Margins", "समास"},
    {"Page Layout", "पानांची मांडणी"},
    {"Page order:", "पानांचा क्रम:"},
    {"Pages per sheet:", "एका कागदावर पाने:"},
    {"Job Options", "कधी"},
    {"Advanced", "अजून"},
    // Tabs that do not fit.
    {"Scroll Left", "डावीकडे"},
    {"Scroll Right", "उजवीकडे"},
    // The menu of a text field.
    {"&Undo", "रहित कर"},
    {"&Redo", "परत कर"},
    {"Cu&t", "काप"},
    {"&Copy", "प्रत"},
    {"&Paste", "जोड"},
    {"Delete", "पुस"},
    {"&Delete", "पुस"},
    {"Select All", "सर्व निवड"},
};

// To find out what every font can write, Windows opens them all, so the fonts that come with systems are looked for by
// name first.
bool canWriteDevanagari() {
    for (const char* family : {"Nirmala UI", "Mangal", "Noto Sans Devanagari", "Noto Serif Devanagari"})
        if (QFontDatabase::hasFamily(QLatin1String(family))) return true;
    return !QFontDatabase::families(QFontDatabase::Devanagari).isEmpty();
}

// Left untranslated: shortcuts are looked up by the names of their keys, some of which equal texts of the file dialog.
constexpr std::string_view keyNames = "QShortcut";

}  // namespace

QString MarathiTexts::translate(const char* context, const char* source, const char*, int) const {
    if (context == keyNames) return {};
    for (const auto& [english, marathi] : texts)
        if (english == source) return QString::fromUtf8(marathi);
    return {};
}

void MarathiTexts::installIn(QApplication& application) {
    if (canWriteDevanagari()) QApplication::installTranslator(new MarathiTexts(&application));
}

}  // namespace tolvan
