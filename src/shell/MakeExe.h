// "Make EXE": turns a program file into a stand-alone executable.
#pragma once

#include <QString>

#include <string>

namespace tolvan {

class mdlMain;

// The command of the menu: asks for saving, asks for a name, and writes. The editor must be there.
void FileMakeEXE(mdlMain& application);

// Writes the executable; failures are told, and success where the editor is visible, which stays as it is. An existing
// file is replaced after a question, but no program file: neither the source nor any other, nor the runtime itself.
// Nothing happens if there is no such source. Afterwards the console is gone.
void MakeExe(mdlMain& application, const QString& source, const QString& executable);

// What is told of a failure with this number of the script language; 0, or any other without a message, is told
// without a reason.
std::string makeExeFailureText(int number);

}  // namespace tolvan
