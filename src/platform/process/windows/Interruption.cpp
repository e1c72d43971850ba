#include "platform/process/Interruption.h"

#include <chrono>
#include <io.h>
#include <thread>
#include <windows.h>

namespace tolvan {
namespace {

void (*requestHandler)() = nullptr;

}  // namespace

void onRequestToEnd(void (*handler)()) {
    requestHandler = handler;
    ::SetConsoleCtrlHandler(
        [](DWORD) -> BOOL {
            requestHandler();
            return TRUE;
        },
        TRUE);
}

void endAfter(std::uint64_t milliseconds, std::string_view text, int status) {
    std::thread([milliseconds, text, status] {
        std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
        static_cast<void>(::_write(2, text.data(), static_cast<unsigned>(text.size())));
        endNow(status);
    }).detach();
}

void endNow(int status) {
    ::TerminateProcess(::GetCurrentProcess(), static_cast<UINT>(status));
    for (;;) ::Sleep(INFINITE);
}

}  // namespace tolvan
