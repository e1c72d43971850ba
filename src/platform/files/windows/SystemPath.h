// Between this project's paths and error numbers and those of Windows.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <windows.h>

namespace tolvan::windows {

// UTF-16 of UTF-8, and back. Nothing for what is no UTF-8; half a pair comes back as U+FFFD.
std::optional<std::wstring> wideText(std::string_view text);
std::string narrowText(std::wstring_view text);

// The path as the calls that end in W take it, absolute and of any length. Nothing, with errno, for what is no path to
// a file (FileNames.h).
std::optional<std::wstring> systemPath(std::string_view path);

// What a call gave, for instance "\\?\C:\a", as this project writes it: "C:/a".
std::string ownPath(std::wstring_view path);

// The errno of an error of the system, or of the call that has just failed.
int errorNumber(DWORD error);
int lastErrorNumber();

// Closes it in the end.
class Handle {
  public:
    explicit Handle(HANDLE handle = INVALID_HANDLE_VALUE) : handle_(handle) {}
    Handle(Handle&& other) noexcept : handle_(other.release()) {}
    Handle& operator=(Handle&& other) noexcept;
    ~Handle() { close(); }

    bool isOpen() const { return handle_ != INVALID_HANDLE_VALUE; }
    HANDLE get() const { return handle_; }
    HANDLE release();
    void close();

  private:
    HANDLE handle_;
};

}  // namespace tolvan::windows
