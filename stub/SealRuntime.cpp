// Part of the build: writes the checksum of a runtime into its file.
#include "stub/RuntimeSeal.h"

#include <cstdlib>
#include <fstream>
#include <iostream>

int main(int count, char** arguments) {
    if (count != 3) {
        std::cerr << "usage: sealruntime FILE MARK\n";
        return EXIT_FAILURE;
    }
    std::fstream file(arguments[1], std::ios::binary | std::ios::in | std::ios::out);
    const auto check = tolvan::checkRuntime(file, arguments[2]);
    if (check) {
        file.seekp(static_cast<std::streamoff>(check->place));
        file.write(reinterpret_cast<const char*>(&check->checksum), sizeof check->checksum);
        file.flush();
    }
    if (check && file) return EXIT_SUCCESS;
    std::cerr << "sealruntime: " << arguments[1] << " is no runtime, or cannot be written\n";
    return EXIT_FAILURE;
}
