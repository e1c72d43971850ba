#include "platform/fonts/Fonts.h"

#include <QFontDatabase>

#include <array>

// Expands to declarations that must stand outside every namespace.
static void initialiseResources() {
    Q_INIT_RESOURCE(tolvan_fonts);
}

namespace tolvan {
namespace {

struct StandIn {
    Font font;
    QString name;
    QString family;
    QStringList files;
};

const std::array<StandIn, 2>& standIns() {
    static const std::array<StandIn, 2> table = {{
        {Font::Latin,
         QStringLiteral("Times New Roman"),
         QStringLiteral("Liberation Serif"),
         {QStringLiteral(":/fonts/LiberationSerif-Regular.ttf"), QStringLiteral(":/fonts/LiberationSerif-Bold.ttf")}},
        {Font::Devanagari,
         QStringLiteral("Sanskrit 1.2"),
         QStringLiteral("Tolvan Devanagari"),
         {QStringLiteral(":/fonts/TolvanDevanagari.ttf")}},
    }};
    return table;
}

const StandIn* standInOf(Font font) {
    for (const StandIn& standIn : standIns())
        if (standIn.font == font) return &standIn;
    return nullptr;
}

bool load(const StandIn& standIn) {
    bool loaded = true;
    for (const QString& file : standIn.files) loaded = QFontDatabase::addApplicationFont(file) >= 0 && loaded;
    return loaded && QFontDatabase::families().contains(standIn.family);
}

// The names that a stand-in answers for.
const QStringList& namesStoodInFor() {
    static const QStringList names = [] {
        initialiseResources();
        QStringList loaded;
        for (const StandIn& standIn : standIns())
            if (load(standIn)) loaded += standIn.name;
        return loaded;
    }();
    return names;
}

}  // namespace

QString fontName(Font font) {
    const StandIn* standIn = standInOf(font);
    return standIn ? standIn->name : QString();
}

bool loadStandIns() {
    return namesStoodInFor().size() == static_cast<qsizetype>(standIns().size());
}

QStringList screenFontList() {
    QStringList names = namesStoodInFor();
    names += QFontDatabase::families();
    names.removeDuplicates();
    return names;
}

QFont qtFont(Font font) {
    loadStandIns();
    QFont result;
    if (const StandIn* standIn = standInOf(font)) result.setFamilies({standIn->name, standIn->family});
    return result;
}

QFont qtFont(Font font, qreal points) {
    QFont result = qtFont(font);
    result.setPointSizeF(points);
    return result;
}

}  // namespace tolvan
