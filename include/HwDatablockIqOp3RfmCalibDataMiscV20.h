// IQ modulator RF module level-control constants, version 2.0 (id 10315).
#pragma once

#include "HwDatablock.h"

namespace Tupsim {

// The EEPROM image of the block: LOW/MED/HIGH/OVR operating states, CW and IQ paths, NORM and
// OVR level modes.
struct HwSDatablockIqOp3RfmCalibDataMiscV20 {
    unsigned short blockId;
    unsigned short blockSize;
    unsigned short checksum;
    unsigned short alignment;
    float lmaxLow;
    float lmaxMed;
    float lmaxHigh;
    float lmaxOvr;
    float lcalSensLow;
    float lcalSensMed;
    float lcalSensHigh;
    float lcalSensOvr;
    float vcalSensLow;
    float vcalSensMed;
    float vcalSensHigh;
    float vcalSensOvr;
    float lrangeCwNorm;
    float lrangeCwOvr;
    float lrangeIqNorm;
    float lrangeIqOvr;
    float uiq;
    float lconReserveCwNorm;
    float lconReserveCwOvr;
    float lconReserveIqNorm;
    float lconReserveIqOvr;
    float lpreCalLevCwNorm;
    float lpreCalLevCwOvr;
    float lpreCalLevIqNorm;
    float lpreCalLevIqOvr;
    short detattLow;
    short detattMed;
    short detattHigh;
    short detattOvr;
};
static_assert(sizeof(HwSDatablockIqOp3RfmCalibDataMiscV20) == 116, "EEPROM layout");

class EPROMDATABLOCK_EXPORT HwDatablockIqOp3RfmCalibDataMiscV20 : public HwDatablock {
public:
    enum { BlockId = 10315, BlockSize = 116 };

    explicit HwDatablockIqOp3RfmCalibDataMiscV20(bool stopConversionOnError = false);

    float getLmaxLow() const { return floatAt(8); }
    void setLmaxLow(float value) { storeFloat(8, value); }
    float getLmaxMed() const { return floatAt(12); }
    void setLmaxMed(float value) { storeFloat(12, value); }
    float getLmaxHigh() const { return floatAt(16); }
    void setLmaxHigh(float value) { storeFloat(16, value); }
    float getLmaxOvr() const { return floatAt(20); }
    void setLmaxOvr(float value) { storeFloat(20, value); }
    float getLcalSensLow() const { return floatAt(24); }
    void setLcalSensLow(float value) { storeFloat(24, value); }
    float getLcalSensMed() const { return floatAt(28); }
    void setLcalSensMed(float value) { storeFloat(28, value); }
    float getLcalSensHigh() const { return floatAt(32); }
    void setLcalSensHigh(float value) { storeFloat(32, value); }
    float getLcalSensOvr() const { return floatAt(36); }
    void setLcalSensOvr(float value) { storeFloat(36, value); }
    float getVcalSensLow() const { return floatAt(40); }
    void setVcalSensLow(float value) { storeFloat(40, value); }
    float getVcalSensMed() const { return floatAt(44); }
    void setVcalSensMed(float value) { storeFloat(44, value); }
    float getVcalSensHigh() const { return floatAt(48); }
    void setVcalSensHigh(float value) { storeFloat(48, value); }
    float getVcalSensOvr() const { return floatAt(52); }
    void setVcalSensOvr(float value) { storeFloat(52, value); }
    float getLrangeCwNorm() const { return floatAt(56); }
    void setLrangeCwNorm(float value) { storeFloat(56, value); }
    float getLrangeCwOvr() const { return floatAt(60); }
    void setLrangeCwOvr(float value) { storeFloat(60, value); }
    float getLrangeIqNorm() const { return floatAt(64); }
    void setLrangeIqNorm(float value) { storeFloat(64, value); }
    float getLrangeIqOvr() const { return floatAt(68); }
    void setLrangeIqOvr(float value) { storeFloat(68, value); }
    float getUiq() const { return floatAt(72); }
    void setUiq(float value) { storeFloat(72, value); }
    float getLconReserveCwNorm() const { return floatAt(76); }
    void setLconReserveCwNorm(float value) { storeFloat(76, value); }
    float getLconReserveCwOvr() const { return floatAt(80); }
    void setLconReserveCwOvr(float value) { storeFloat(80, value); }
    float getLconReserveIqNorm() const { return floatAt(84); }
    void setLconReserveIqNorm(float value) { storeFloat(84, value); }
    float getLconReserveIqOvr() const { return floatAt(88); }
    void setLconReserveIqOvr(float value) { storeFloat(88, value); }
    float getLpreCalLevCwNorm() const { return floatAt(92); }
    void setLpreCalLevCwNorm(float value) { storeFloat(92, value); }
    float getLpreCalLevCwOvr() const { return floatAt(96); }
    void setLpreCalLevCwOvr(float value) { storeFloat(96, value); }
    float getLpreCalLevIqNorm() const { return floatAt(100); }
    void setLpreCalLevIqNorm(float value) { storeFloat(100, value); }
    float getLpreCalLevIqOvr() const { return floatAt(104); }
    void setLpreCalLevIqOvr(float value) { storeFloat(104, value); }
    short getDetattLow() const { return shortAt(108); }
    void setDetattLow(short value) { storeShort(108, value); }
    short getDetattMed() const { return shortAt(110); }
    void setDetattMed(short value) { storeShort(110, value); }
    short getDetattHigh() const { return shortAt(112); }
    void setDetattHigh(short value) { storeShort(112, value); }
    short getDetattOvr() const { return shortAt(114); }
    void setDetattOvr(short value) { storeShort(114, value); }

    // Imports a record read from the EEPROM: 0, or 1 when its checksum is wrong.
    int setBlock(const HwSDatablockIqOp3RfmCalibDataMiscV20* block);
    // Imports a record without checking it.
    void swapBlock(const HwSDatablockIqOp3RfmCalibDataMiscV20* block);
    void swapBlock(HwEDataFormatTyp target, unsigned short id, HwDatablock* block) {
        HwDatablock::swapBlock(target, id, block);
    }

    std::ostream& printToStream(std::ostream& out) override;

private:
    float floatAt(unsigned offset) const;
    void storeFloat(unsigned offset, float value);
    short shortAt(unsigned offset) const;
    void storeShort(unsigned offset, short value);
};

} // namespace Tupsim
