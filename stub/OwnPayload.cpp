#include "stub/OwnPayload.h"

#include "platform/files/FilePath.h"
#include "stub/ExecutableExtent.h"

#include <fstream>
#include <iterator>

namespace tolvan {

std::optional<Payload> payloadOf(const std::string& path) {
    std::ifstream file(filePath(path), std::ios::binary);
    const auto extent = executableExtent(file);
    if (!extent) return std::nullopt;
    file.seekg(static_cast<std::streamoff>(*extent));
    const std::string scrambled((std::istreambuf_iterator<char>(file)), {});
    return readPayload(scrambled);
}

}  // namespace tolvan
