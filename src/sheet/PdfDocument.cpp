#include "sheet/PdfDocument.h"

#include "platform/fonts/FontEncoding.h"
#include "platform/fonts/Fonts.h"
#include "platform/richtext/Letters.h"
#include "platform/richtext/UnicodeText.h"

#include <QGlyphRun>
#include <QTextLayout>
#include <QtEndian>

#include <algorithm>

namespace tolvan {
namespace {

constexpr int shapingSize = 1000;  // pixels; a thousandth of it is the unit of widths

QByteArray number(double value) {
    return QByteArray::number(value, 'f', 2);
}

QByteArray hex(quint32 value) {
    return QByteArray::number(value, 16).rightJustified(4, '0');
}

QByteArray colourOf(QColor colour) {
    return number(colour.redF()) + ' ' + number(colour.greenF()) + ' ' + number(colour.blueF()) + " rg\n";
}

QByteArray utf16Of(const std::string& utf8) {
    const QString text = QString::fromStdString(utf8);
    QByteArray digits;
    for (const QChar unit : text) digits += hex(unit.unicode());
    return digits;
}

// A stream's bytes as zlib makes them.
QByteArray packed(const QByteArray& bytes) {
    return qCompress(bytes, 9).mid(4);
}

// The font's file, put together from its tables.
QByteArray fileOf(const QRawFont& font) {
    std::vector<std::pair<QByteArray, QByteArray>> tables;
    for (const char* const tag :
         {"OS/2", "cmap", "cvt ", "fpgm", "glyf", "head", "hhea", "hmtx", "loca", "maxp", "prep"})
        if (const QByteArray table = font.fontTable(tag); !table.isEmpty()) tables.emplace_back(tag, table);
    const auto put = [](QByteArray& bytes, auto value) {
        const auto big = qToBigEndian(value);
        bytes.append(reinterpret_cast<const char*>(&big), sizeof big);
    };
    QByteArray head;
    put(head, quint32{0x00010000});
    put(head, static_cast<quint16>(tables.size()));
    for (int unused = 0; unused < 3; ++unused) put(head, quint16{0});
    QByteArray body;
    const qsizetype start = 12 + 16 * std::ssize(tables);
    for (const auto& [tag, table] : tables) {
        head += tag;
        put(head, quint32{0});  // a sum that readers of PDF do not look at
        put(head, static_cast<quint32>(start + body.size()));
        put(head, static_cast<quint32>(table.size()));
        body += table;
        body.append((4 - body.size() % 4) % 4, '\0');
    }
    return head + body;
}

// Letters of one font each.
std::vector<StyledView> piecesOf(StyledView text) {
    std::vector<StyledView> pieces;
    for (StyledView letter : lettersOf(text))
        for (std::size_t i = 0; i < letter.size();) {
            std::size_t end = i + 1;
            while (end < letter.size() && letter.font(end) == letter.font(i)) ++end;
            pieces.push_back(letter.substr(i, end - i));
            i = end;
        }
    return pieces;
}

}  // namespace

// The objects of a file, numbered from 1.
class PdfDocument::File {
  public:
    int add(const QByteArray& object) {
        objects_.push_back(object);
        return static_cast<int>(objects_.size());
    }
    int addStream(const QByteArray& dictionary, const QByteArray& content) {
        const QByteArray stream = packed(content);
        return add("<<" + dictionary + " /Filter /FlateDecode /Length " + QByteArray::number(stream.size()) +
                   ">>\nstream\n" + stream + "\nendstream");
    }
    void set(int object, const QByteArray& content) { objects_[static_cast<std::size_t>(object) - 1] = content; }

    QByteArray write(int root, int information) const {
        QByteArray file = "%PDF-1.5\n%\xE2\xE3\xCF\xD3\n";
        QByteArray places;
        for (std::size_t i = 0; i < objects_.size(); ++i) {
            places += QByteArray::number(file.size()).rightJustified(10, '0') + " 00000 n \n";
            file += QByteArray::number(i + 1) + " 0 obj\n" + objects_[i] + "\nendobj\n";
        }
        const QByteArray count = QByteArray::number(objects_.size() + 1);
        const QByteArray start = QByteArray::number(file.size());
        return file + "xref\n0 " + count + "\n0000000000 65535 f \n" + places + "trailer\n<</Size " + count +
               " /Root " + reference(root) + " /Info " + reference(information) + ">>\nstartxref\n" + start +
               "\n%%EOF\n";
    }

    static QByteArray reference(int object) { return QByteArray::number(object) + " 0 R"; }

    int addFont(const UsedFont& font, const QByteArray& name);
    int addImage(const QImage& image);

  private:
    std::vector<QByteArray> objects_;
};

// A font whose codes are glyphs together with what they stand for.
int PdfDocument::File::addFont(const UsedFont& font, const QByteArray& name) {
    QByteArray glyphs;
    QByteArray widths;
    QByteArray meanings;
    int meaningCount = 0;
    for (std::size_t code = 0; code < font.glyphs.size(); ++code) {
        const Glyph& glyph = font.glyphs[code];
        glyphs += QByteArray::fromHex(hex(glyph.index));
        widths += number(glyph.width * shapingSize) + ' ';
        if (glyph.utf8.empty()) continue;
        // At most a hundred stand together.
        meanings +=
            "1 beginbfchar\n<" + hex(static_cast<quint32>(code)) + "> <" + utf16Of(glyph.utf8) + ">\nendbfchar\n";
        ++meaningCount;
    }
    const QByteArray mapHead =
        "/CIDInit /ProcSet findresource begin 12 dict begin begincmap /CMapType 2 def /CMapName /Meaning def\n"
        "1 begincodespacerange <0000> <FFFF> endcodespacerange\n";
    const int map = addStream("", mapHead + meanings + "endcmap end end\n");
    const QByteArray file = fileOf(font.raw);
    const int fontFile = addStream(" /Length1 " + QByteArray::number(file.size()), file);
    const int description = add("<</Type /FontDescriptor /FontName /" + name +
                                " /Flags 4 /FontBBox [-1000 -1000 2000 2000] /ItalicAngle 0 "
                                "/Ascent 900 /Descent -300 /CapHeight 700 /StemV 80 /FontFile2 " +
                                reference(fontFile) + ">>");
    const int glyphMap = addStream("", glyphs);
    const int descendant =
        add("<</Type /Font /Subtype /CIDFontType2 /BaseFont /" + name +
            " /CIDSystemInfo <</Registry (Adobe) /Ordering (Identity) /Supplement 0>> /FontDescriptor " +
            reference(description) + " /CIDToGIDMap " + reference(glyphMap) + " /W [0 [" + widths + "]]>>");
    return add("<</Type /Font /Subtype /Type0 /BaseFont /" + name + " /Encoding /Identity-H /DescendantFonts [" +
               reference(descendant) + "] /ToUnicode " + reference(map) + ">>");
}

int PdfDocument::File::addImage(const QImage& image) {
    const QImage plain = image.convertToFormat(QImage::Format_RGB888);
    QByteArray pixels;
    for (int y = 0; y < plain.height(); ++y)
        pixels.append(reinterpret_cast<const char*>(plain.constScanLine(y)), qsizetype{3} * plain.width());
    return addStream(" /Type /XObject /Subtype /Image /ColorSpace /DeviceRGB /BitsPerComponent 8 /Width " +
                         QByteArray::number(plain.width()) + " /Height " + QByteArray::number(plain.height()),
                     pixels);
}

PdfDocument::PdfDocument(QSizeF page) : size_(page) {
    for (const Font font : {Font::Latin, Font::Devanagari}) {
        QFont shaping = qtFont(font);
        shaping.setPixelSize(shapingSize);
        shaping.setHintingPreference(QFont::PreferNoHinting);
        usedFont(font).raw = QRawFont::fromFont(shaping);
    }
}

void PdfDocument::newPage() {
    pages_.emplace_back();
    current_ = pages_.size() - 1;
}

// In a PDF y grows upwards.
QByteArray PdfDocument::placeOf(QPointF point) const {
    return number(point.x()) + ' ' + number(size_.height() - point.y());
}

int PdfDocument::codeOf(UsedFont& font, const Glyph& glyph) {
    const auto [place, isNew] = font.codes.try_emplace(glyph, static_cast<int>(font.glyphs.size()));
    if (isNew) font.glyphs.push_back(glyph);
    return place->second;
}

PdfDocument::Letter PdfDocument::shape(std::string_view codes, Font font) {
    UsedFont& used = usedFont(font);
    QFont shaping = qtFont(font);
    shaping.setPixelSize(shapingSize);
    shaping.setHintingPreference(QFont::PreferNoHinting);
    QTextLayout layout(toQString(codes), shaping);
    layout.beginLayout();
    QTextLine line = layout.createLine();
    layout.endLayout();
    std::string meaning = unicodeOf(StyledText(codes, font));
    Letter letter;
    letter.width = line.horizontalAdvance() / shapingSize;
    for (const QGlyphRun& run : layout.glyphRuns()) {
        const double top = line.ascent();
        for (qsizetype i = 0; i < run.glyphIndexes().size(); ++i) {
            const QPointF place = run.positions()[i] - QPointF(0, top);
            const double width = letter.glyphs.empty() ? letter.width : 0;
            const int code = codeOf(used, {run.glyphIndexes()[i], std::exchange(meaning, {}), width});
            letter.glyphs.push_back({code, place / shapingSize});
        }
    }
    return letter;
}

const PdfDocument::Letter& PdfDocument::letterOf(std::string_view codes, Font font) {
    std::map<std::string, Letter>& letters = usedFont(font).letters;
    const auto known = letters.find(std::string(codes));
    return known != letters.end() ? known->second : letters.emplace(codes, shape(codes, font)).first->second;
}

void PdfDocument::drawText(QPointF baseline, StyledView text, double points, QColor colour) {
    page() += "BT\n" + colourOf(colour);
    Font font = Font::Other;
    for (const StyledView piece : piecesOf(text)) {
        if (piece.font(0) != font) {
            font = piece.font(0);
            page() += (font == Font::Devanagari ? "/F1 " : "/F0 ") + number(points) + " Tf\n";
        }
        const Letter& letter = letterOf(piece.text(), font);
        for (const PlacedGlyph& glyph : letter.glyphs)
            page() += "1 0 0 1 " + placeOf(baseline + glyph.place * points) + " Tm <" +
                      hex(static_cast<quint32>(glyph.code)) + "> Tj\n";
        baseline.rx() += letter.width * points;
    }
    page() += "ET\n";
}

double PdfDocument::width(StyledView text, double points) {
    double width = 0;
    for (const StyledView piece : piecesOf(text)) width += letterOf(piece.text(), piece.font(0)).width * points;
    return width;
}

void PdfDocument::fillRectangle(const QRectF& area, QColor colour) {
    page() += colourOf(colour) + placeOf(area.bottomLeft()) + ' ' + number(area.width()) + ' ' + number(area.height()) +
              " re f\n";
}

void PdfDocument::drawImage(const QRectF& area, const QImage& image) {
    page() += "q " + number(area.width()) + " 0 0 " + number(area.height()) + ' ' + placeOf(area.bottomLeft()) +
              " cm /I" + QByteArray::number(images_.size()) + " Do Q\n";
    images_.push_back(image);
}

QByteArray PdfDocument::bytes(const QByteArray& title) const {
    File file;
    const int latin = file.addFont(fonts_[0], "AAAAAA+Latin");
    const int devanagari = file.addFont(fonts_[1], "AAAAAB+Devanagari");
    QByteArray images;
    for (std::size_t i = 0; i < images_.size(); ++i)
        images += "/I" + QByteArray::number(i) + ' ' + File::reference(file.addImage(images_[i])) + ' ';
    const int resources = file.add("<</Font <</F0 " + File::reference(latin) + " /F1 " + File::reference(devanagari) +
                                   ">> /XObject <<" + images + ">>>>");
    const int tree = file.add({});
    QByteArray kids;
    for (const QByteArray& content : pages_) {
        const int stream = file.addStream("", content);
        kids += File::reference(file.add("<</Type /Page /Parent " + File::reference(tree) + " /MediaBox [0 0 " +
                                         number(size_.width()) + ' ' + number(size_.height()) + "] /Resources " +
                                         File::reference(resources) + " /Contents " + File::reference(stream) + ">>")) +
                ' ';
    }
    file.set(tree, "<</Type /Pages /Count " + QByteArray::number(pages_.size()) + " /Kids [" + kids + "]>>");
    const int root = file.add("<</Type /Catalog /Pages " + File::reference(tree) + ">>");
    const int information = file.add("<</Title <FEFF" + utf16Of(title.toStdString()) + "> /Producer (Tolvan Basic)>>");
    return file.write(root, information);
}

}  // namespace tolvan
