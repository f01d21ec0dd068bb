// The block catalogue of this build: the library's directory and calibration table classes.
#include "BlockCatalogue.h"

#include "LibraryCatalogue.h"

namespace epromtool {

std::unique_ptr<BlockCatalogue> makeBlockCatalogue() {
    return std::make_unique<LibraryCatalogue>();
}

} // namespace epromtool
