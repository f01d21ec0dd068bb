// Service record of a module: department, date, operating time, repair number and service code.
#pragma once

#include "HwDatablock.h"
#include "HwEVariantEepromDatablock.h"

#include <QtGlobal>

namespace Tupsim {

namespace records {
struct RecordSchema;
}

struct HwSDatablockServiceData {
    quint16 blockId;
    quint16 blockSize;
    quint16 checksum;
    quint16 alignment;
    char department[6];
    quint16 serviceDate; // bits 15..9 year - 1980, 8..5 month, 4..0 day
    quint32 opTime;      // bits 31..18 turn-ons, 17..0 hours
    quint16 repairNumber;
    quint16 serviceCode;
};
static_assert(sizeof(HwSDatablockServiceData) == 24, "service record is 24 bytes");

class EPROMDATABLOCK_EXPORT HwDatablockServiceData : public HwDatablock {
public:
    // One block per service slot, ids 200 to 209.
    explicit HwDatablockServiceData(HwEVariantEepromDatablock id = VARIANT_NONE);

    HwSDatablockServiceData* getBlock();
    // Imports a verified record; 1 (error 1040001 signalled) when its checksum fails.
    int setBlock(const HwSDatablockServiceData* record);
    // Copies a record through the setters without checking it; alignment becomes 0.
    void swapBlock(const HwSDatablockServiceData* record);
    // Byte-swaps the own image with this block's rule, whatever its length.
    void swapOwnImage();
    std::ostream& printToStream(std::ostream& out) override;
    // The named fields of the block, in printing order.
    static const records::RecordSchema& recordSchema();

    unsigned int getServiceDataId();
    // The six department bytes (not NUL-terminated); nullptr for a short image.
    const char* getDepartment();
    // Copies exactly six bytes.
    void setDepartment(const char* department);

    // The service date at offset 14.
    unsigned short getServiceDate();
    unsigned int getServiceDateYear();
    unsigned int getServiceDateMonth();
    unsigned int getServiceDateDay();
    void setServiceDate(unsigned short date);
    // These three act on the operating-time word, not on the service date; kept so on purpose.
    void setServiceDateDay(unsigned int day);
    void setServiceDateMonth(unsigned int month);
    void setServiceDateYear(unsigned int year);

    unsigned int getOpTime();
    unsigned int getOpTimeHours();
    unsigned int getOpTimeTurnOn();
    void setOpTime(unsigned int opTime);
    void setOpTimeHours(unsigned int hours);
    void setOpTimeTurnOn(unsigned int turnOn);

    unsigned short getRepairNumber();
    unsigned short getServiceCode();
    void setRepairNumber(unsigned short number);
    void setServiceCode(unsigned short code);
};

} // namespace Tupsim
