// The old-style block directory: every id of the catalogue's directory with a prototype of the
// class that interprets it.
#include "directory/OldStyleDirectory.h"

#include "HwDatablock.h"
#include "core/BlockHeader.h"
#include "directory/Catalogue.h"

#include <memory>

namespace Tupsim {
namespace oldstyle {

namespace {

// A shrunk QByteArray keeps its allocation: the prototype gets a fresh copy of what is left, so
// that the memory of its full-size image is given back.
void releaseSpareCapacity(HwDatablock& prototype) {
    const QByteArray kept = prototype.getByteArrayData();
    HwDatablock holder(false);
    holder.setDataWithoutChecksumCheck(reinterpret_cast<const unsigned char*>(kept.constData()),
                                       static_cast<unsigned int>(kept.size()));
    prototype.replaceDataInList(&holder);
}

} // namespace

void fillDirectory(IdHwDatablockOldStyleClassDict& dict) {
    for (const catalogue::Entry& entry : catalogue::entries()) {
        if (!entry.inDirectory())
            continue;
        std::unique_ptr<HwDatablock> prototype(entry.make(entry.id(), entry.idString));
        if (!entry.keepImage) {
            prototype->resizeData(
                header::Size); // one object per id: each is kept small until it prints
            releaseSpareCapacity(*prototype);
        }
        if (dict.insert({entry.id(), prototype.get()}).second)
            prototype.release();
    }
}

} // namespace oldstyle
} // namespace Tupsim
