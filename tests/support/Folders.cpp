#include "support/Folders.h"

namespace tolvan {

std::string sourceFolder() {
    return TOLVAN_SOURCE_DIR;
}

std::string programFolder() {
    return TOLVAN_BIN_DIR;
}

}  // namespace tolvan
