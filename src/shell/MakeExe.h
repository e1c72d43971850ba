// "Make EXE": turns a program file into a stand-alone executable.
#pragma once

#include <QString>

#include <string>

namespace tolvan {

class mdlMain;

// The command of the menu: asks for saving, asks for a name, and writes. The editor must be there.
void FileMakeEXE(mdlMain& application);

// The runtimes in the installation folder: the one of this system, and others that may be there beside it, with the
// systems and the endings of their executables.
inline constexpr const char* ownRuntime = "engine.dat";
struct OtherRuntime {
    const char* file;
    const char* system;
    const char* suffix;
};
inline constexpr OtherRuntime windowsRuntime = {"engine-windows.dat", "Windows", "exe"};
inline constexpr OtherRuntime linuxRuntime = {"engine-linux.dat", "Linux", "run"};

// Writes the executable with that runtime; failures are told, and success where the editor is visible, which stays as
// it is. An existing file is replaced after a question, but no program file: neither the source nor any other, nor the
// runtime itself. Nothing happens if there is no such source. Afterwards the console is gone.
void MakeExe(mdlMain& application, const QString& source, const QString& executable, const char* runtime = ownRuntime);

// What is told of a failure with this number of the script language; 0, or any other without a message, is told
// without a reason.
std::string makeExeFailureText(int number);

}  // namespace tolvan
