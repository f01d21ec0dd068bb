// Layout shared by the two fixed-size modification lists: ten 16-bit service codes.
#pragma once

#include "HwDatablock.h"

#include <QByteArray>
#include <QtGlobal>
#include <ostream>

namespace Tupsim {
namespace modentries {

enum : int { FirstEntry = 8, EntryCount = 10, ImageSize = 28 };

// Entry `index` (bits 15..14 action, 13..0 circular number); 0 for an index of 10 or more.
quint16 entry(const QByteArray& image, unsigned int index);
// The entry with a new action (bits 13..0 kept) or a new circular number (bits 15..14 kept).
quint16 withAction(quint16 word, unsigned int action);
quint16 withCircularNr(quint16 word, unsigned int circularNr);
// Stores entry `index` and refreshes the block's checksum; nothing for a bad index.
void storeEntry(HwDatablock& block, QByteArray& image, unsigned int index, quint16 word);

// Imports a record copy: size 28, its id, `alignment`, the ten entries one by one (each with a
// checksum refresh) and last the record's own checksum.
void copyRecord(HwDatablock& block, QByteArray& image, const QByteArray& record,
                unsigned short alignment);

// The text form, with `name` ("MODIFICATION_100") after the ID label.
void print(std::ostream& out, const QByteArray& image, const char* name);

} // namespace modentries
} // namespace Tupsim
