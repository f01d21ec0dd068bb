// IQ modulator RF module level-control constants per operating state, first form (id 10301).
#pragma once

#include "HwDatablock.h"

namespace Tupsim {

// The EEPROM image of the block, field by field (tolerances and reserves in dB x 128).
struct HwSDatablockIqOp3RfmCalibDataMisc {
    unsigned short blockId;
    unsigned short blockSize;
    unsigned short checksum;
    unsigned short alignment;
    unsigned short toleranceLevPre;
    unsigned short toleranceLevAtt_15;
    unsigned short toleranceLevAtt_30_45;
    unsigned short toleranceDetAtt;
    float detFullScale;
    unsigned int countBz;
    float pmaxBz[12];
    float uiqBz[12];
    unsigned short lconReserveBz[12];
    unsigned short detReserveBz[12];
};
static_assert(sizeof(HwSDatablockIqOp3RfmCalibDataMisc) == 168, "EEPROM layout");

class EPROMDATABLOCK_EXPORT HwDatablockIqOp3RfmCalibDataMisc : public HwDatablock {
public:
    enum { BlockId = 10301, BlockSize = 168, MaxOperatingStates = 12 };

    explicit HwDatablockIqOp3RfmCalibDataMisc(bool stopConversionOnError = false);

    unsigned short getToleranceLevPre() const;
    unsigned short getToleranceLevAtt_15() const;
    unsigned short getToleranceLevAtt_30_45() const;
    unsigned short getToleranceDetAtt() const;
    float getDetFullScale() const;
    unsigned int getNumberOfOperatingStates() const;
    // Per operating state; indexes of 12 and above read as 0.
    unsigned short getPmaxBz(unsigned char index) const; // the float cut to an integer
    float getUiqBz(unsigned char index) const;
    unsigned short getLconReserveBz(unsigned char index) const;
    unsigned short getDetReserveBz(unsigned char index) const;

    void setToleranceLevPre(unsigned short value);
    void setToleranceLevAtt_15(unsigned short value);
    void setToleranceLevAtt_30_45(unsigned short value);
    void setToleranceDetAtt(unsigned short value);
    void setDetFullScale(float value);
    void setNumberOfOperatingStates(unsigned int count);
    // Per operating state; indexes of 12 and above are ignored.
    void setPmaxBz(unsigned short value, unsigned char index);
    void setUiqBz(float value, unsigned char index);
    void setLconReserveBz(unsigned short value, unsigned char index);
    void setDetReserveBz(unsigned short value, unsigned char index);

    // Imports a record read from the EEPROM: 0, or 1 when its checksum is wrong.
    int setBlock(const HwSDatablockIqOp3RfmCalibDataMisc* block);
    // Imports a record without checking it.
    void swapBlock(const HwSDatablockIqOp3RfmCalibDataMisc* block);
    void swapBlock(HwEDataFormatTyp target, unsigned short id, HwDatablock* block) {
        HwDatablock::swapBlock(target, id, block);
    }

    std::ostream& printToStream(std::ostream& out) override;
};

} // namespace Tupsim
