// Tries a program with the cases of a task, before it is handed in.
#pragma once

#include <QString>

#include <string>

namespace tolvan {

// Runs the program, whose file has these bytes, and says for each case whether it is right, and if not, why: a text for
// ShowMessage. Windows are repainted meanwhile; what the user does waits.
std::string tryWithTask(const QString& taskFile, const std::string& program);

}  // namespace tolvan
