// The user's settings: strings, each under a section and a key. Missing and unreadable ones read as their default.
#pragma once

#include <QSettings>
#include <QString>

namespace tolvan {

class Settings {
  public:
    // In a file of its own, which need not exist yet.
    explicit Settings(const QString& file);

    // The file of the application "Tolbasic" for the user who is logged in.
    static QString userFile();

    QString GetSetting(const QString& section, const QString& key, const QString& absent = {}) const;

    // Written at once, so that another window of the application reads it. False if that failed; the value is kept as
    // long as this object lives.
    bool SaveSetting(const QString& section, const QString& key, const QString& value);

    // Where the file is, for what is to be kept beside it. The folder need not exist.
    QString folder() const;

  private:
    QSettings store_;
};

// A setting that says yes or no, as text: "True", "1" and "-1" are true, "False" and "0" false. Nothing else is either.
QString settingText(bool value);
bool readSetting(const QString& text, bool otherwise);

}  // namespace tolvan
