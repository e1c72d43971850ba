// Loaded before a program (LD_PRELOAD), it stands for a disk that takes nothing of an executable and gives no reason.
#include <array>
#include <dlfcn.h>
#include <string>
#include <string_view>
#include <unistd.h>

namespace {

bool isExecutable(int descriptor) {
    std::array<char, 4096> path;
    const std::string link = "/proc/self/fd/" + std::to_string(descriptor);
    const ssize_t size = ::readlink(link.c_str(), path.data(), path.size());
    return size > 0 && std::string_view(path.data(), static_cast<std::size_t>(size)).ends_with(".exe");
}

}  // namespace

extern "C" ssize_t write(int descriptor, const void* bytes, size_t count) {
    using Write = ssize_t (*)(int, const void*, size_t);
    static const auto next = reinterpret_cast<Write>(::dlsym(RTLD_NEXT, "write"));
    return isExecutable(descriptor) ? 0 : next(descriptor, bytes, count);
}
