// The byte-by-byte walk over a self-describing image that records each table it holds.
#pragma once

#include "HwSBlockDescription.h"

#include <QtGlobal>
#include <cstdint>
#include <vector>

namespace Tupsim {

// Header fields met before the first table. The host-order words (bytes 0-11) are gathered
// most significant byte first, each byte taken as signed, and then byte-reversed: a byte of
// 0x80 or more after the first one borrows one from the bytes before it (01 80 reads 0x8000).
struct WalkHeader {
    quint16 id = 0;
    quint16 size = 0;
    quint16 checksum = 0;
    quint8 alignmentByte = 0; // byte 7, the second byte of the alignment word
    quint32 checksum32 = 0;
    quint16 updateIndex = 0;
};

class TableWalk {
public:
    enum State : int {
        Id = 0,
        Size = 1,
        Checksum = 2,
        Alignment = 3,
        ListEntry = 4,
        Checksum32 = 5,
        UpdateIndex = 6,
        Rows = 7,
        Columns = 8,
        RowIdType = 9,
        ColumnIdType = 10, // then the column types, one byte each
        PadAfterColumnTypes = 11,
        RowIds = 12,
        PadAfterRowIds = 13,
        ColumnIds = 14,
        PadAfterColumnIds = 15,
        IdText = 16, // a STRING identifier, up to and including its zero
        Values = 17
    };

    // Called with each complete element, identifiers and values alike: its offset in the image,
    // its width in bytes (a STRING's with its zero) and its type code.
    using ElementVisitor = void (*)(void* context, std::uint64_t offset, std::uint64_t width,
                                    quint32 type);

    TableWalk(const unsigned char* bytes, std::uint64_t length, std::uint64_t padUnit);

    // Hands every complete element to `visitor` instead of recording it; the tables then keep
    // their shape and types only. Bytes before the walk's position may change meanwhile.
    void visitElements(ElementVisitor visitor, void* context);

    // Walks the whole image from the block id on. In list format the image after the alignment
    // word is a list of 4-byte entries of one UINT32 column.
    void walkImage(bool listFormat);
    // Walks tables only, the first row count at `offset`.
    void walkTables(std::uint64_t offset);

    const WalkHeader& header() const { return head; }
    // Every table met; the last one is the table in progress when the image ended.
    std::vector<HwSBlockDescription>& blocks() { return tables; }
    unsigned int completeBlocks() const { return blockIndex; }

private:
    void run(std::uint64_t start, State first);
    void enter(State next);
    void beginField(std::uint64_t width);
    void beginOpenField();
    bool beginIdentifier();
    void beginValue();
    enum class Sweep { Bytewise, Cut, Complete };
    Sweep sweepFixedRows();
    bool skipsToFieldEnd() const;
    void step(unsigned char byte);
    void gather(unsigned char byte);
    void numberDone();
    void identifierByte(unsigned char byte, bool last);
    void valueByte(unsigned char byte, bool last);
    void elementDone(quint32 type);
    void columnTypesDone();
    HwSBlockDescription& current() { return tables.back(); }

    const unsigned char* p;
    std::uint64_t length;
    std::uint64_t padUnit;
    std::uint64_t pos = 0; // index of the next byte
    std::uint64_t fieldEnd = 1;
    std::uint64_t fieldStart = 0;
    ElementVisitor visitor = nullptr;
    void* visitorContext = nullptr;
    State state = Id;
    bool listFormat = false;
    quint64 gathered = 0;
    std::uint64_t fieldWidth = 0;

    bool rowIdsNow = true;             // the identifiers being read are the row identifiers
    std::uint64_t idsLeft = 0;         // identifiers still to read
    std::vector<quint32> sizedColumns; // columns whose values take bytes
    std::vector<quint32> sizedTypes;   // their types, for a sweep
    std::uint64_t row = 0;
    std::size_t sizedIndex = 0;
    QByteArray field;

    WalkHeader head;
    std::vector<HwSBlockDescription> tables;
    unsigned int blockIndex = 0;
};

// The generic byte-order pass over a self-describing image: one walk of its layout that reverses
// each element as it meets it (fixed-length texts and STRINGs stay as they are). Reversing is its
// own inverse, so the same pass serves both directions.
void reverseElements(unsigned char* image, std::uint64_t length);

} // namespace Tupsim
