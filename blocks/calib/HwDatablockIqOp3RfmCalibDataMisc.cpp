// IQ modulator RF module misc data, first form: fields, record import and text form.
#include "HwDatablockIqOp3RfmCalibDataMisc.h"

#include "blocks/calib/CalibRecord.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstdio>

namespace Tupsim {

namespace {

const unsigned kToleranceLevPre = 8;
const unsigned kToleranceLevAtt15 = 10;
const unsigned kToleranceLevAtt3045 = 12;
const unsigned kToleranceDetAtt = 14;
const unsigned kDetFullScale = 16;
const unsigned kCountBz = 20;
const unsigned kPmaxBz = 24;
const unsigned kUiqBz = 72;
const unsigned kLconReserveBz = 120;
const unsigned kDetReserveBz = 144;

// The printout walks at most as many states as an 8-bit index can name, whatever the count.
const unsigned kMaxPrintedStates = 255;

// Float to integer as the instrument's compiler does it: out of range or NaN gives INT_MIN.
int truncateToInt(float value) {
    if (std::isnan(value) || value >= 2147483648.0f || value < -2147483648.0f)
        return INT_MIN;
    return static_cast<int>(value);
}

bool validState(unsigned char index) {
    return index < HwDatablockIqOp3RfmCalibDataMisc::MaxOperatingStates;
}

std::string oneDecimal(double value) {
    char text[64];
    std::snprintf(text, sizeof text, "%.1f", value);
    return text;
}

#define REPLACEMENT_CHAR "\xEF\xBF\xBD"

const char kLabelColumn[] = ":             ";

const char kLegend[] =
    "# F" REPLACEMENT_CHAR "r das Beschreiben des RFM EEPROMS werden pro Betriebszustandalle "
    "Spalten ausgenommen Fehler und OPU3RF_LP ben" REPLACEMENT_CHAR "tigt\n"
    "# OPURF_LP=Baugruppenausgangsleistung Ausgangsleistung mit LEVELPRESET Einstellung lt. "
    "Tabelle und LCON-Absenkung=LCONRESERVE\n"
    "#\n"
    "# Fehler\t Beschreibung\n"
    "#      0\t kein Fehler\n"
    "#      1\t Iteration LPW fehlgeschlagen\n"
    "#      2\t Alle LPW au" REPLACEMENT_CHAR "erhalb des LP-Limits\n"
    "#      3\t LPW au" REPLACEMENT_CHAR "erhalb der LEVPRE-Toleranz\n"
    "#    +10\t PMAX_BZ nicht erreichbar\n"
    "#   +100\t LEVATT au" REPLACEMENT_CHAR "erhalb der Toleranz\n"
    "#  +1000\t Alle DETATT au" REPLACEMENT_CHAR "erhalb des LP-Limits\n"
    "#  +2000\t DETATT au" REPLACEMENT_CHAR "erhalb der Toleranz\n";

} // namespace

HwDatablockIqOp3RfmCalibDataMisc::HwDatablockIqOp3RfmCalibDataMisc(bool stopConversionOnError)
    : HwDatablock(stopConversionOnError) {
    image() = calib::freshImage(BlockId, BlockSize);
}

unsigned short HwDatablockIqOp3RfmCalibDataMisc::getToleranceLevPre() const {
    return calib::readField<quint16>(image(), kToleranceLevPre);
}

unsigned short HwDatablockIqOp3RfmCalibDataMisc::getToleranceLevAtt_15() const {
    return calib::readField<quint16>(image(), kToleranceLevAtt15);
}

unsigned short HwDatablockIqOp3RfmCalibDataMisc::getToleranceLevAtt_30_45() const {
    return calib::readField<quint16>(image(), kToleranceLevAtt3045);
}

unsigned short HwDatablockIqOp3RfmCalibDataMisc::getToleranceDetAtt() const {
    return calib::readField<quint16>(image(), kToleranceDetAtt);
}

float HwDatablockIqOp3RfmCalibDataMisc::getDetFullScale() const {
    return calib::readField<float>(image(), kDetFullScale);
}

unsigned int HwDatablockIqOp3RfmCalibDataMisc::getNumberOfOperatingStates() const {
    return calib::readField<quint32>(image(), kCountBz);
}

unsigned short HwDatablockIqOp3RfmCalibDataMisc::getPmaxBz(unsigned char index) const {
    if (!validState(index))
        return 0;
    // Modulo 65536, as the conversion of the cut value to 16 bits has always behaved.
    return static_cast<unsigned short>(
        truncateToInt(calib::readField<float>(image(), kPmaxBz + 4u * index)));
}

float HwDatablockIqOp3RfmCalibDataMisc::getUiqBz(unsigned char index) const {
    return validState(index) ? calib::readField<float>(image(), kUiqBz + 4u * index) : 0.0f;
}

unsigned short HwDatablockIqOp3RfmCalibDataMisc::getLconReserveBz(unsigned char index) const {
    return validState(index) ? calib::readField<quint16>(image(), kLconReserveBz + 2u * index) : 0;
}

unsigned short HwDatablockIqOp3RfmCalibDataMisc::getDetReserveBz(unsigned char index) const {
    return validState(index) ? calib::readField<quint16>(image(), kDetReserveBz + 2u * index) : 0;
}

void HwDatablockIqOp3RfmCalibDataMisc::setToleranceLevPre(unsigned short value) {
    calib::setField<quint16>(*this, image(), kToleranceLevPre, value);
}

void HwDatablockIqOp3RfmCalibDataMisc::setToleranceLevAtt_15(unsigned short value) {
    calib::setField<quint16>(*this, image(), kToleranceLevAtt15, value);
}

void HwDatablockIqOp3RfmCalibDataMisc::setToleranceLevAtt_30_45(unsigned short value) {
    calib::setField<quint16>(*this, image(), kToleranceLevAtt3045, value);
}

void HwDatablockIqOp3RfmCalibDataMisc::setToleranceDetAtt(unsigned short value) {
    calib::setField<quint16>(*this, image(), kToleranceDetAtt, value);
}

void HwDatablockIqOp3RfmCalibDataMisc::setDetFullScale(float value) {
    calib::setField<float>(*this, image(), kDetFullScale, value);
}

void HwDatablockIqOp3RfmCalibDataMisc::setNumberOfOperatingStates(unsigned int count) {
    calib::setField<quint32>(*this, image(), kCountBz, count);
}

void HwDatablockIqOp3RfmCalibDataMisc::setPmaxBz(unsigned short value, unsigned char index) {
    if (validState(index))
        calib::setField<float>(*this, image(), kPmaxBz + 4u * index, value);
}

void HwDatablockIqOp3RfmCalibDataMisc::setUiqBz(float value, unsigned char index) {
    if (validState(index))
        calib::setField<float>(*this, image(), kUiqBz + 4u * index, value);
}

void HwDatablockIqOp3RfmCalibDataMisc::setLconReserveBz(unsigned short value, unsigned char index) {
    if (validState(index))
        calib::setField<quint16>(*this, image(), kLconReserveBz + 2u * index, value);
}

void HwDatablockIqOp3RfmCalibDataMisc::setDetReserveBz(unsigned short value, unsigned char index) {
    if (validState(index))
        calib::setField<quint16>(*this, image(), kDetReserveBz + 2u * index, value);
}

int HwDatablockIqOp3RfmCalibDataMisc::setBlock(const HwSDatablockIqOp3RfmCalibDataMisc* block) {
    HwSDatablockIqOp3RfmCalibDataMisc record;
    if (!calib::acceptRecord(*this, block, &record, BlockSize,
                             "   HwDatablockIqOp3RfmCalibDataMisc"))
        return 1;
    swapBlock(&record);
    return 0;
}

void HwDatablockIqOp3RfmCalibDataMisc::swapBlock(const HwSDatablockIqOp3RfmCalibDataMisc* block) {
    // Tolerances; full scale, count and both float arrays; both reserve arrays (all 12 states).
    calib::importRecord(*this, image(), block, BlockSize, {{8, 2, 4}, {16, 4, 26}, {120, 2, 24}});
}

std::ostream& HwDatablockIqOp3RfmCalibDataMisc::printToStream(std::ostream& out) {
    const unsigned count = getNumberOfOperatingStates();
    const unsigned states = std::min(count, kMaxPrintedStates);
    out << "# Anzahl der Betriebszust" REPLACEMENT_CHAR "nde, ganzzahlig, Standard 8\n";
    out << "ID:              IQOP3_RFM_CALIB_DATA_MISC\n";
    out << "COUNT_BZ:        " << count << '\n';
    out << "# IQMod. Basisbandspannung (V), diff. gemessen an IX/INX und QX/QNX am 80pol St., BZ "
           "Werte, 3 Nachkomma,  (=halbe differentielle AMIQ-Leerlaufspannung)\n\n";
    for (unsigned i = 0; i < states; ++i)
        out << "UIQ_BZ" << i + 1 << kLabelColumn << getUiqBz(i) << "\t V\n";
    out << "\n# Maximale Ausgangsleistung (dBm) des Betriebszustandes x, BZ Werte, 3 Nachkomma\n";
    for (unsigned i = 0; i < states; ++i) {
        const float stored = validState(i) ? calib::readField<float>(image(), kPmaxBz + 4u * i) : 0;
        out << "PMAX_BZ" << i + 1 << kLabelColumn
            << oneDecimal((truncateToInt(stored) - 0.5) * 0.0078125) << "\t dBm\n";
    }
    out << "\n# Reserve (dB) des LCON PIN D" REPLACEMENT_CHAR
           "mpfungsgliedes zum Vollausschlag, BZ Werte, 3 Nachkomma\n";
    for (unsigned i = 0; i < states; ++i)
        out << "LCON_RESERVE_BZ" << i + 1 << kLabelColumn << (getLconReserveBz(i) >> 7)
            << "\t dB\n";
    out << "\n# Vollausschlag des Detektorwandlers (Definition LCM), bei der Kalibrierung als "
           "Vollausschlag definiert (65535)\n";
    out << "DET_FULL_SCALE" << kLabelColumn << getDetFullScale() << "\t V\n";
    out << "\n# minimale Detektorreserve (dB) zum Vollauschlag des Detektors bei PMAX_BZx, BZ "
           "Werte, 3 Nachkomma\n";
    for (unsigned i = 0; i < states; ++i)
        out << "DET_RESERVE_BZ" << i + 1 << kLabelColumn << getDetReserveBz(i) << "\t dB\n";
    out << "\n# +/-Toleranz (dB) des LEVEL PRESET Step Attenuators., 3 Nachkomma\n";
    out << "TOLERANZ_LEVPRE" << kLabelColumn << (getToleranceLevPre() >> 7) << "\t dB\n";
    out << "\n# +/-Toleranz (dB) des Level Attenuators., 3 Nachkomma\n";
    out << "TOLERANZ_LEVATT_15" << kLabelColumn << oneDecimal(getToleranceLevAtt_15() * 0.0078125)
        << "\t dB\n";
    out << "TOLERANZ_LEVATT_30_45:          " << oneDecimal(getToleranceLevAtt_30_45() * 0.0078125)
        << "\t dB\n";
    out << "\n# +/-Toleranz (dB) des Detektor Step Attenuators., 3 Nachkomma\n";
    out << "TOLERANZ_DETATT" << kLabelColumn << (getToleranceDetAtt() >> 7) << "\t dB\n\n";
    out << kLegend << '\n';
    return out;
}

} // namespace Tupsim
