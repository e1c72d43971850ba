#include "platform/settings/Settings.h"

#include <QFileInfo>

namespace tolvan {
namespace {

constexpr QLatin1StringView applicationName("Tolbasic");

QString path(const QString& section, const QString& key) {
    return section + QLatin1Char('/') + key;
}

}  // namespace

Settings::Settings(const QString& file) : store_(file, QSettings::IniFormat) {}

QString Settings::userFile() {
    return QSettings(QSettings::NativeFormat, QSettings::UserScope, applicationName, applicationName).fileName();
}

QString Settings::GetSetting(const QString& section, const QString& key, const QString& absent) const {
    return store_.value(path(section, key), absent).toString();
}

bool Settings::SaveSetting(const QString& section, const QString& key, const QString& value) {
    store_.setValue(path(section, key), value);
    store_.sync();
    return store_.status() == QSettings::NoError;
}

QString Settings::folder() const {
    return QFileInfo(store_.fileName()).absolutePath();
}

QString settingText(bool value) {
    return value ? QStringLiteral("True") : QStringLiteral("False");
}

bool readSetting(const QString& text, bool otherwise) {
    const QString word = text.trimmed();
    const auto is = [&word](QLatin1StringView name) { return word.compare(name, Qt::CaseInsensitive) == 0; };
    if (is(QLatin1StringView("True")) || is(QLatin1StringView("1")) || is(QLatin1StringView("-1"))) return true;
    if (is(QLatin1StringView("False")) || is(QLatin1StringView("0"))) return false;
    return otherwise;
}

}  // namespace tolvan
