#include "platform/process/OwnProgram.h"

#include "platform/files/windows/SystemPath.h"

#include <cstdlib>
#include <fcntl.h>
#include <io.h>
#include <shellapi.h>

namespace tolvan {

std::string ownProgramFile() {
    constexpr DWORD longest = 32768;
    std::wstring path(longest, L'\0');
    path.resize(::GetModuleFileNameW(nullptr, path.data(), longest));
    return windows::ownPath(path);
}

// The arguments of main() are in the code page of the machine, which has no Devanagari.
std::vector<std::string> commandLineWords(int, char**) {
    std::vector<std::string> words;
    int count = 0;
    wchar_t** const wide = ::CommandLineToArgvW(::GetCommandLineW(), &count);
    for (int i = 1; wide != nullptr && i < count; ++i) words.push_back(windows::narrowText(wide[i]));
    ::LocalFree(wide);
    return words;
}

std::string userCacheFolder() {
    const wchar_t* const folder = ::_wgetenv(L"LOCALAPPDATA");
    return folder != nullptr && *folder != L'\0' ? windows::ownPath(folder) + "/Tolbasic" : std::string();
}

void prepareStandardStreams() {
    for (int descriptor = 0; descriptor <= 2; ++descriptor) ::_setmode(descriptor, _O_BINARY);
    ::SetConsoleOutputCP(CP_UTF8);
}

bool isTerminal(int descriptor) {
    DWORD mode = 0;
    return ::GetConsoleMode(reinterpret_cast<HANDLE>(::_get_osfhandle(descriptor)), &mode) != 0;
}

}  // namespace tolvan
