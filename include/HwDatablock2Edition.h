// Self-describing block: its header names its table shape, identifier and column types.
#pragma once

#include "DatatypeMap2Print.h"
#include "ETypeId.h"
#include "HwDatablock.h"
#include "HwSDataBlockCfg.h"
#include "IHwDatablockAccess.h"

#include <ostream>

namespace Tupsim {

// Byte order: bytes 0-11 (id, size, checksum, alignment, CRC-32) are in host order like every
// block header, as the checksums read them; the words from byte 12 on (update index, row and
// column counts) are stored most significant byte first in both data formats, as the generic
// byte-order pass reads them. Only the elements change order between the formats.
//
// Alignment word 0 selects the long header (CRC-32 at 8, update index at 12, rows at 14);
// any other value the short one (update index at 10, rows at 12) without a CRC-32.
class EPROMDATABLOCK_EXPORT HwDatablock2Edition : public HwDatablock, public IHwDatablockAccess {
public:
    HwDatablock2Edition();
    HwDatablock2Edition(const HwDatablock2Edition& other) = default;
    HwDatablock2Edition& operator=(const HwDatablock2Edition& other) = default;
    ~HwDatablock2Edition() override;

    // Slots shared with IHwDatablockAccess; they forward to HwDatablock.
    unsigned short computeChecksum() override;
    unsigned int getId() override;
    unsigned int getEepromSector() override;
    bool setData(HwDatablock* other) override;
    bool setData(QByteArray image) override;
    bool setEepromAddress(unsigned int address) override;
    bool setEepromSector(unsigned int sector) override;
    virtual std::ostream& printToStream2Edition(std::ostream& out, HwSDataBlockCfg cfg);

    // IHwDatablockAccess; the block index is ignored, this is one block.
    unsigned short getNumberOfRows(unsigned int block) override;
    unsigned short getNumberOfColumns(unsigned int block) override;
    char* getData(unsigned int block) override;
    // The size field, but never more than the image holds.
    unsigned short getBlockSize(unsigned int block) override;
    unsigned int computeChecksum32() override;
    float getUpdateIndex() override;
    bool isListFormat() override;
    void setListFormat(bool listFormat) override;

    using HwDatablock::computeChecksum;
    using HwDatablock::computeChecksum32;
    using HwDatablock::getBlockSize;
    using HwDatablock::getData;
    using HwDatablock::setData;

    ETypeId getRowIdType();
    ETypeId getColumnIdType();
    // NONE for a column outside the header.
    ETypeId getColumnType(int column);
    unsigned char getSizeOfRowIdType();
    unsigned char getSizeOfColumnIdType();

    static unsigned char size_in_byte(ETypeId type);
    static const char* getTypeString(ETypeId type);

    // Stores the CRC-32 field (host order) as far as the image reaches; always true.
    bool setChecksum32(unsigned int value);

    std::ostream& printDebugPageHeading(std::ostream& out, bool summary);
    std::ostream& printDebugPageSummary(std::ostream& out, HwSDataBlockCfg cfg);
    std::ostream& printDebugPageDetail(std::ostream& out, HwSDataBlockCfg cfg);
    std::ostream& printDebugPageComplete(std::ostream& out, HwSDataBlockCfg cfg);
    // Prints the element of `type` at `p` and returns the position after it (size_in_byte).
    unsigned char* printDataTypeToStream(std::ostream& out, unsigned char* p, ETypeId type);

protected:
    bool hasLongHeader();
    // Offset of the first column type byte in the header layout in force.
    unsigned int columnTypesOffset();
    // Offset of the first identifier or value: after the column types, padded to 4.
    unsigned int dataAreaOffset();

private:
    // Prints the first table as one of the two calibration-file forms.
    std::ostream& printTablePage(std::ostream& out, const HwSDataBlockCfg& cfg, bool detail);

    DatatypeMap2Print columnTypes;
    bool listFormat = false;
};

} // namespace Tupsim
