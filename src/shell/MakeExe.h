// "Make EXE": turns a program file into a stand-alone executable.
#pragma once

#include <QString>

#include <string>

namespace tolvan {

class mdlMain;

// The command of the menu: asks for saving, asks for a name, and writes. The editor must be there.
void FileMakeEXE(mdlMain& application);

// Writes the executable; failures are told. An existing file is replaced after a question. Nothing happens if there is
// no such program file. Afterwards the console is gone; the editor is a new one with the program file if it was visible
// before, and gone otherwise.
void MakeExe(mdlMain& application, const QString& sourcePath, const QString& exePath);

// What is told of a failure with this number of the script language; 0, or any other without a message, is told
// without a reason.
std::string makeExeFailureText(int number);

}  // namespace tolvan
