// makehelp GUIDE HELP: builds the help file from the guide, whose last topic is that of the error messages.
#include "shell/help/HelpFile.h"

#include <cstdlib>
#include <fstream>
#include <iostream>
#include <iterator>

int main(int count, char** arguments) {
    if (count != 3) {
        std::cerr << "Usage: makehelp GUIDE HELP\n";
        return EXIT_FAILURE;
    }
    std::ifstream guide(arguments[1], std::ios::binary);
    const std::string text((std::istreambuf_iterator<char>(guide)), {});
    std::ofstream help(arguments[2], std::ios::binary);
    help << tolvan::buildHelpFile(text) << std::flush;
    if (!text.empty() && help) return EXIT_SUCCESS;
    std::cerr << "makehelp: cannot read " << arguments[1] << " or write " << arguments[2] << '\n';
    return EXIT_FAILURE;
}
