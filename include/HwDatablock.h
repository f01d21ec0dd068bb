// Base of every datablock kind: one block image with its header, checksums and data format.
#pragma once

#include "HwEDataFormatTyp.h"
#include "HwEDatablockClassTyp.h"
#include "HwObject.h"

#include <QByteArray>
#include <QtGlobal>
#include <ostream>

namespace Tupsim {

class EPROMDATABLOCK_EXPORT HwDatablock : public HwObject {
public:
    explicit HwDatablock(bool stopConversionOnError);
    HwDatablock(const HwDatablock& other);
    HwDatablock& operator=(const HwDatablock& other);
    ~HwDatablock() override;

    // Virtual slots, in this order.
    virtual unsigned short computeChecksum(unsigned short* words, unsigned short size);
    virtual unsigned short computeChecksum();
    virtual unsigned int getId();
    virtual unsigned short getBlockSize();
    virtual unsigned short getChecksum();
    virtual unsigned short getAlignment();
    virtual char* getData();
    virtual QByteArray getByteArrayData();
    virtual unsigned int getEepromAddress();
    virtual unsigned int getEepromSector();
    virtual HwEDataFormatTyp getDataFormatTyp();
    virtual HwEDatablockClassTyp getDatablockClassTyp();
    virtual unsigned int getMagicIdentifierEventCount();
    virtual bool getStopConversionOnError();
    virtual void replaceDataInList(HwDatablock* other);
    virtual bool verifyChecksum(unsigned short* words, unsigned short size, bool);
    virtual bool verifyChecksum();
    virtual void setBlockId(unsigned short id);
    virtual void setBlockSize(unsigned short size);
    virtual void setBlockSizeWithoutCalcChecksumm(unsigned short size);
    virtual void setChecksum(unsigned short checksum);
    virtual void setAlignment(unsigned short alignment);
    virtual bool setData(const unsigned char* bytes, unsigned int length);
    virtual bool setData(HwDatablock* other);
    virtual bool setData(QByteArray image);
    virtual bool setDataWithoutChecksumCheck(const unsigned char* bytes, unsigned int length);
    virtual bool setDataWithoutChecksumCheck(HwDatablock* other);
    virtual bool setHwDatablockFirmwareConform(HwDatablock* source);
    virtual bool setEepromAddress(unsigned int address);
    virtual bool setEepromSector(unsigned int sector);
    virtual bool setDataFormatTyp(HwEDataFormatTyp format);
    virtual bool setDatablockClassTyp(HwEDatablockClassTyp type);
    virtual void resizeData(unsigned int length);
    virtual std::ostream& printToStream(std::ostream& out);

    // CRC-32 over bytes 0..3 and 12..end of a buffer read in this block's data format.
    unsigned int computeChecksum32(unsigned char* bytes, unsigned int length);
    // CRC-32 of the own image over its block size (bounded by the image length).
    unsigned int computeChecksum32();
    bool verifyChecksum32(unsigned char* bytes, unsigned int length);
    bool verifyChecksum32();
    unsigned int getChecksum32();

    // Converts this block's own image with the generic pass; id and block are not used.
    void swapBlock(HwEDataFormatTyp target, unsigned short id, HwDatablock* block);
    // Converts `block` to `target` with the generic pass or the per-id conversion.
    void swapDataTo(HwEDataFormatTyp target, unsigned short id, HwDatablock* block);

    // Byte-order hooks towards a big-endian host; identity on a little-endian host.
    static unsigned short swapIfPpc(unsigned short value);
    static unsigned long swapLongIfPpc(unsigned long value);
    static void SwapIntel2Ppc(char& value);
    static void SwapIntel2Ppc(short& value);
    static void SwapIntel2Ppc(unsigned short& value);
    static void SwapIntel2Ppc(int& value);
    static void SwapIntel2Ppc(unsigned int& value);
    static void SwapIntel2Ppc(unsigned long& value);
    static void SwapIntel2Ppc(float& value);
    static void SwapIntel2Ppc(double& value);
    static void SwapCharString(char* text, unsigned int length);

    void setDatablockToCorrupt(bool corrupt);
    bool isDatablockCorrupt() const { return corrupt; }
    static void printHexDump(char* bytes, unsigned int length);

    // Registers the library's error definitions with the error manager, once per process.
    static void registerErrors();

protected:
    // Image length as a signed size, for bound checks in derived classes.
    qsizetype imageLength() const { return data.size(); }
    QByteArray& image() { return data; }
    const QByteArray& image() const { return data; }
    // Stores computeChecksum() through setChecksum(): what every setter does last.
    void refreshChecksum();

private:
    // The generic converter of self-describing images, in place.
    void swapBlock(HwEDataFormatTyp target, char* bytes, unsigned short length);

    bool stopConversionOnError;
    unsigned int eepromAddress;
    unsigned int eepromSector;
    HwEDataFormatTyp dataFormat;
    HwEDatablockClassTyp datablockClassTyp;
    bool corrupt;
    QByteArray data;

    static const unsigned int sTable[256];
    static const char eventCountIdentifier[17];
};

} // namespace Tupsim
