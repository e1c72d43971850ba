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

// Such a program has no console; the one that started it may have one, which it has to ask for.
bool tellTerminal(std::string_view line) {
    const std::string text = std::string(line) + "\r\n";
    DWORD written = 0;
    const HANDLE sentTo = ::GetStdHandle(STD_OUTPUT_HANDLE);
    if (sentTo != nullptr && ::GetFileType(sentTo) != FILE_TYPE_UNKNOWN &&
        ::WriteFile(sentTo, text.data(), static_cast<DWORD>(text.size()), &written, nullptr) != 0)
        return true;
    if (::AttachConsole(ATTACH_PARENT_PROCESS) == 0) return false;
    const HANDLE console =
        ::CreateFileW(L"CONOUT$", GENERIC_READ | GENERIC_WRITE, FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr);
    const std::wstring wide = windows::wideText(text).value_or(std::wstring());
    const bool told = ::WriteConsoleW(console, wide.data(), static_cast<DWORD>(wide.size()), &written, nullptr) != 0;
    ::CloseHandle(console);
    ::FreeConsole();
    return told;
}

}  // namespace tolvan
