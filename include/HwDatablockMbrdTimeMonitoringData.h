// Mainboard time-monitoring record: a date text and up to 128 monitoring bytes.
#pragma once

#include "HwDatablock.h"

#include <QString>
#include <QtGlobal>

namespace Tupsim {

struct HwSDatablockMbrdTimeMonitoringDataEx {
    quint16 blockId;
    quint16 blockSize;
    quint16 checksum;
    quint16 alignment;
    char date[32];    // NUL-padded
    quint32 length;   // valid monitoring bytes
    quint8 data[128]; // bytes beyond the length are 0xFF
};
static_assert(sizeof(HwSDatablockMbrdTimeMonitoringDataEx) == 172,
              "time-monitoring record is 172 bytes");

class EPROMDATABLOCK_EXPORT HwDatablockMbrdTimeMonitoringData : public HwDatablock {
public:
    HwDatablockMbrdTimeMonitoringData();

    HwSDatablockMbrdTimeMonitoringDataEx* getBlock();
    // Accepts only a record that verifies and is id 12008 of size 172; otherwise signals and
    // returns 1040000.
    int setBlock(const HwSDatablockMbrdTimeMonitoringDataEx* record);
    // Copies a record through the setters without checking it; alignment becomes 0.
    void swapBlock(const HwSDatablockMbrdTimeMonitoringDataEx* record);
    // Prints nothing: the record has no text form.
    std::ostream& printToStream(std::ostream& out) override;

    // The date text up to its first NUL, at most 32 characters.
    QString getDate();
    // Zeroes the field and copies a text shorter than 32 characters (without its NUL); a longer
    // text leaves the field as it is.
    void setDate(const char* date);
    // Stores the length, fills the 128 data bytes with 0xFF and copies the bytes (at most 128).
    void setTimeMonitoringData(const unsigned char* data, unsigned int length);
    // The data bytes (nullptr for a short image); the length word goes to `length` if given.
    unsigned char* getTimeMonitoringData(unsigned int* length);
    unsigned int getTimeMonitoringDataLength();

private:
    // Size from the record, its id and `alignment`, then date and data, then its checksum.
    void copyRecord(const QByteArray& record, unsigned short alignment);
};

} // namespace Tupsim
