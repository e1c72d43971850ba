// What the user asks for on the command line.
#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace tolvan {

struct CommandLine {
    std::optional<QString> file;  // as it was typed
    bool run = false;
};

// Options may be written in any case; those that are not known are ignored.
CommandLine parseCommandLine(const QStringList& arguments);

// The command line explained, lines separated by CR LF.
QString usageText();

}  // namespace tolvan
