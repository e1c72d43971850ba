#include "platform/settings/Settings.h"

#include <QFileInfo>
#include <QStandardPaths>

namespace tolvan {
namespace {

constexpr QLatin1StringView applicationName("Tolbasic");

QString path(const QString& section, const QString& key) {
    return section + QLatin1Char('/') + key;
}

// Reading a pipe would wait for ever: in place of something that is no file, another one beside it is used.
QString usableFile(const QString& file) {
    const QFileInfo entry(file);
    return !entry.exists() || entry.isFile() ? file : file + QStringLiteral(".2");
}

}  // namespace

Settings::Settings(const QString& file) : store_(usableFile(file), QSettings::IniFormat) {}

QString Settings::userFile() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/%1/%1.conf").arg(applicationName);
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
