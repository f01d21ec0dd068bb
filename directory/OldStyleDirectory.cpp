// The id table of the old-style block directory: every registered id with the class that
// interprets it.
#include "directory/OldStyleDirectory.h"

#include "HwCalibTableBlocks.h"
#include "HwDatablockCommonStatisticData.h"
#include "HwDatablockCwop6VcoIdent.h"
#include "HwDatablockDacIfFullScale.h"
#include "HwDatablockDopMbrdPllDacCalibValue.h"
#include "HwDatablockEnd.h"
#include "HwDatablockFsynTcxoRefCalValue.h"
#include "HwDatablockIdent.h"
#include "HwDatablockIqOp3RfmCalibDataMisc.h"
#include "HwDatablockIqOp3RfmCalibDataMiscV20.h"
#include "HwDatablockMbrdMac.h"
#include "HwDatablockMbrdModel.h"
#include "HwDatablockMbrdSerialNumber.h"
#include "HwDatablockMbrdTimeMonitoringData.h"
#include "HwDatablockMiscIdent.h"
#include "HwDatablockModification.h"
#include "HwDatablockModification110.h"
#include "HwDatablockModification120.h"
#include "HwDatablockPymOcxoRefCalValue.h"
#include "HwDatablockSAtt3OWLDCounter.h"
#include "HwDatablockSAtt6OWLDCounter.h"
#include "HwDatablockSAttCCounter.h"
#include "HwDatablockServiceData.h"
#include "HwDatablockSsynOcxoRefCalValue.h"
#include "HwDatablockStatistic.h"
#include "HwDatablockSynexOcxoRefCalValue.h"
#include "HwOpaqueCalibBlocks.h"
#include "directory/TableCatalogue.h"
#include "templates/HwDatablockTemplate.h"
#include "templates/HwDatablockTemplateWithoutChecksum.h"

#include <memory>

namespace Tupsim {
namespace oldstyle {

namespace {

// The generic misc-data table of N1 rows by N2 columns, factor 1.
template <unsigned int N1, unsigned int N2> HwDatablock* createMisc(int id, const char* idString) {
    return new HwDatablockTemplate<MiscData<int, N1, N2>, int, double, N1, N2>(idString, id, 0, 1.0,
                                                                               false);
}

HwDatablock* createCounterBytes(int id, const char* idString) {
    return new HwDatablockTemplateWithoutChecksum<MiscData<unsigned char, 1, 2048>, unsigned char,
                                                  double, 1, 2048>(idString, id, 0, 1.0, false);
}

struct Row {
    int first;
    int last;
    // nullptr: the rows of the calibration table catalogue whose ids lie in [first, last].
    Factory make;
    const char* idString;
    // Kept at its own size: the end block alone.
    bool keepImage;
};

constexpr Row plain(int first, int last, Factory make) {
    return {first, last, make, nullptr, false};
}
constexpr Row plain(int id, Factory make) {
    return plain(id, id, make);
}
constexpr Row misc(int id, Factory make, const char* idString) {
    return {id, id, make, idString, false};
}
constexpr Row catalogue(int first, int last) {
    return {first, last, nullptr, nullptr, false};
}

// clang-format off
constexpr Row kRows[] = {
    plain(2, 10, create<HwDatablockIdent>),
    plain(100, create<HwDatablockModification>),
    plain(110, create<HwDatablockModification110>),
    plain(120, create<HwDatablockModification120>),
    plain(200, 209, create<HwDatablockServiceData>),
    plain(299, create<HwDatablockServiceData>),
    plain(300, create<HwDatablockStatistic>),
    plain(10000, create<HwDatablockSsynOcxoRefCalValue>),
    plain(10001, create<HwDatablockSsynOpuDblCoefficient>),
    plain(10002, create<HwDatablockSsynOpuLevelFreq>),
    plain(10003, create<HwDatablockSsynOpuLevel>),
    plain(10300, create<HwDatablockIqOp3RfmHarmonic>),
    plain(10301, create<HwDatablockIqOp3RfmCalibDataMisc>),
    plain(10302, create<HwDatablockIqOp3RfmCalibDataFreq>),
    plain(10303, 10314, create<HwDatablockIqOp3RfmCalibData>),
    plain(10315, create<HwDatablockIqOp3RfmCalibDataMiscV20>),
    plain(10316, create<HwDatablockIqOp3RfmCalibDataV20>),
    plain(10500, create<HwDatablockCwOp3AmGainFreq>),
    plain(10501, create<HwDatablockCwOp3AmGainData>),
    plain(10502, create<HwDatablockCwop6VcoIdent>),
    plain(10503, 10504, create<HwDatablockMiscIdent>),
    plain(10601, create<HwDatablockSAtt3CalibDataFreq>),
    plain(10602, create<HwDatablockSAtt3CalibDataAtt>),
    plain(10603, create<HwDatablockSAtt3CalibDataTemp>),
    plain(10604, 10605, create<HwDatablockSAtt3OWLDCounter>),
    plain(10900, create<HwDatablockIqOp6PmaxBz>),
    plain(10901, create<HwDatablockIqOp6CalibDataFreq>),
    plain(10902, create<HwDatablockIqOp6CalibData>),
    // The attenuator id goes before the frequency id, and 11201 is not used.
    plain(11001, create<HwDatablockSAtt6CalibDataAtt>),
    plain(11200, create<HwDatablockSAtt6CalibDataFreq>),
    plain(11202, create<HwDatablockSAtt6CalibDataTemp>),
    plain(11203, 11204, create<HwDatablockSAtt6OWLDCounter>),
    plain(11300, 11303, create<HwDatablockSAttCCounter>),
    plain(11303, create<HwDatablockSAttCCounter>), // registered twice: the first one stays
    misc(11304, createCounterBytes, "PYM_MWIF_SATT_COUNTER"),
    catalogue(11305, 11307),
    plain(11310, 11313, create<HwDatablockCommonStatisticData>),
    plain(12000, create<HwDatablockMbrdSerialNumber>),
    plain(12001, create<HwDatablockMbrdModel>),
    plain(12004, create<HwDatablockMbrdMac>),
    plain(12008, create<HwDatablockMbrdTimeMonitoringData>),
    plain(12040, create<HwDatablockPymMwIfExtLevCalDataFreq>),
    plain(12041, create<HwDatablockPymMwIfExtLevCalData>),
    plain(12042, create<HwDatablockPymMwIfExtLevCalDataAbsCorr>),
    plain(12043, create<HwDatablockPymMwIfExtLevCalDataRelCorr>),
    plain(12044, create<HwDatablockPymAttCalDatFreq>),
    plain(12045, create<HwDatablockPymAttCalDat>),
    plain(12046, create<HwDatablockPymAttCalDatFreqSe>),
    plain(12047, create<HwDatablockPymAttCalDatSe>),
    plain(12050, 12053, create<HwDatablockMbrdExtLevCalDataFreq>),
    plain(12060, 12063, create<HwDatablockMbrdExtLevCalData>),
    plain(12070, 12071, create<HwDatablockMbrdExtLevCalDataFreq_Enh>),
    plain(12080, 12081, create<HwDatablockMbrdExtLevCalData_Enh>),
    plain(12090, 12091, create<HwDatablockMbrdExtLevCalDataFreq2Edition_Enh>),
    plain(12095, 12096, create<HwDatablockMbrdExtLevCalData2Edition_Enh>),
    plain(12100, 12103, create<HwDatablockMbrdIqImbalanceRfFreq>),
    plain(12110, 12113, create<HwDatablockMbrdIqImbalanceRfEvenAmp>),
    plain(12120, 12123, create<HwDatablockMbrdIqImbalanceRfEvenPh>),
    plain(12130, 12133, create<HwDatablockMbrdIqImbalanceRfOddAmp>),
    plain(12140, 12143, create<HwDatablockMbrdIqImbalanceRfOddPh>),
    plain(12150, 12153, create<HwDatablockMbrdExtLevCalDataFreq2Edition>),
    plain(12160, 12163, create<HwDatablockMbrdExtLevCalData2Edition>),
    plain(12170, 12173, create<HwDatablockAttCalDataFreq2Edition>),
    plain(12180, 12183, create<HwDatablockAttCalData2Edition>),
    plain(12190, 12193, create<HwDatablockCwop3DetTuneFreq>),
    plain(12200, 12203, create<HwDatablockCwop3DetTuneDac>),
    plain(12210, 12213, create<HwDatablockMbrdRfResponseLpFreq>),
    plain(12220, 12223, create<HwDatablockMbrdRfResponseIoPepInfo>),
    plain(12230, 12233, create<HwDatablockMbrdRfResponseLpAmp>),
    plain(12240, 12243, create<HwDatablockMbrdRfResponseLpPh>),
    plain(12250, 12253, create<HwDatablockMbrdRfResponseBbFreq>),
    plain(12260, 12263, create<HwDatablockMbrdRfResponseAttFreq>),
    plain(12270, 12273, create<HwDatablockMbrdRfResponseAttAmpl>),
    plain(12280, create<HwDatablockDopMbrdPllDacCalibValue>),
    plain(12290, 12291, create<HwDatablockCwopDetLinCorrFreq>),
    plain(12292, 12293, create<HwDatablockCwopDetLinCorrData>),
    misc(12300, createMisc<200, 1>, "LOOPGAIN_FREQ"),
    misc(12301, createMisc<1, 200>, "LOOPGAIN_PK"),
    misc(12302, createMisc<1, 200>, "LOOPGAIN_P_VALUE_BASE_PK"),
    misc(12303, createMisc<1, 200>, "LOOPGAIN_I_VALUE_BASE_PK"),
    misc(12304, createMisc<1, 200>, "LOOPGAIN_I_VALUE_OFFSET_PK"),
    misc(12305, createMisc<50, 1>, "LOOPGAIN_PK_LIST"),
    misc(12306, createMisc<50, 200>, "LOOPGAIN_P_VALUE_BASE_PK_LIST"),
    misc(12307, createMisc<50, 200>, "LOOPGAIN_I_VALUE_BASE_PK_LIST"),
    misc(12308, createMisc<50, 200>, "LOOPGAIN_I_VALUE_OFFSET_PK_LIST"),
    misc(12310, createMisc<10, 1>, "PYM_DCON_VTRIM_VALUE"),
    misc(12311, createMisc<1, 1>, "PYM_DCON_LEVELPRE2"),
    misc(12312, createMisc<10, 1>, "RUL_FREQCNTR_TCXO_REF_CAL_VALUE"),
    misc(12313, createMisc<100, 1>, "LIMITER_FREQUENCY_NODE_GHZ"),
    misc(12314, createMisc<100, 1>, "LIMITER_MAX_VOLTAGE"),
    misc(12315, createMisc<100, 1>, "LIMITER_MAX_VOLTAGE_PUM_ON"),
    plain(12500, create<HwDatablockDacIfFullScale>),
    plain(13000, create<HwDatablockBbinsCompFilterTabsI>),
    plain(13050, create<HwDatablockBbinsCompFilterTabsQ>),
    plain(13100, create<HwDatablockBbinsUncalibratedFirAmplitudeI>),
    plain(13101, create<HwDatablockBbinsUncalibratedFirPhiI>),
    plain(13102, create<HwDatablockBbinsUncalibratedFirAmplitudeQ>),
    plain(13103, create<HwDatablockBbinsUncalibratedFirPhiQ>),
    plain(13500, create<HwDatablockDacbFrequencyCompFreq>),
    plain(13600, create<HwDatablockDacbFrequencyCompAmp>),
    plain(13700, create<HwDatablockDacbFrequencyCompPh>),
    plain(13800, create<HwDatablockDacbFrequencyCompDt>),
    plain(13900, create<HwDatablockDacbIqImbalanceFreq>),
    plain(14000, create<HwDatablockDacbIqImbalanceAmp>),
    plain(14100, create<HwDatablockDacbIqImbalancePh>),
    plain(14200, create<HwDatablockDacbIqImbalanceSwapAmp>),
    plain(14300, create<HwDatablockDacbIqImbalanceSwapPh>),
    plain(14400, create<HwDatablockDacbFrequencyCompAmpRear>),
    plain(14500, create<HwDatablockDacbFrequencyCompPhRear>),
    plain(14600, create<HwDatablockDacbFrequencyCompDtRear>),
    plain(14700, create<HwDatablockDacbIqImbalanceRearAmp>),
    plain(14800, 14801, create<HwDatablockDacbIqImbalanceRearPh>),
    catalogue(14802, 14806),
    plain(15000, create<HwDatablockSynexOcxoRefCalValue>),
    plain(15001, create<HwDatablockFsynTcxoRefCalValue>),
    plain(15002, create<HwDatablockPymOcxoRefCalValue>),
    plain(15020, create<HwDatablockDetLimiterMaxVoltFreq>),
    plain(15021, create<HwDatablockDetLimiterMaxVoltData>),
    misc(15022, createMisc<10, 1>, "PYM_TEMPERATURE"),
    misc(15023, createMisc<10, 1>, "PYM_TEMPCORR_LEVEL"),
    misc(15024, createMisc<1, 1>, "DET_DIFF_TEMPERATURE"),
    misc(15025, createMisc<1, 1>, "DET_TEMPCORR_LOW_FREQ"),
    misc(15026, createMisc<1, 1>, "DET_TEMPCORR_HIGH_FREQ"),
    misc(15027, createMisc<10, 10>, "DET_TEMPCORR_MIN_FREQ_VALUES"),
    misc(15028, createMisc<10, 10>, "DET_TEMPCORR_MAX_FREQ_VALUES"),
    plain(15650, create<HwDatablockAduLevCoarseCalibData>),
    plain(15652, create<HwDatablockAduGainOffsetCalData>),
    catalogue(15690, 15690),
    catalogue(15700, 15852),
    catalogue(16000, 16003),
    {65535, 65535, create<HwDatablockEnd>, nullptr, true},
};
// clang-format on

// A shrunk QByteArray keeps its allocation: the prototype gets a fresh copy of what is left, so
// that the memory of its full-size image is given back.
void releaseSpareCapacity(HwDatablock& prototype) {
    const QByteArray kept = prototype.getByteArrayData();
    HwDatablock holder(false);
    holder.setDataWithoutChecksumCheck(reinterpret_cast<const unsigned char*>(kept.constData()),
                                       static_cast<unsigned int>(kept.size()));
    prototype.replaceDataInList(&holder);
}

// Makes and registers one prototype; a refused duplicate is deleted again.
void registerOne(IdHwDatablockOldStyleClassDict& dict, int id, Factory make, const char* idString,
                 bool keepImage) {
    std::unique_ptr<HwDatablock> prototype(make(id, idString));
    if (!keepImage) {
        prototype->resizeData(8); // one object per id: each is kept small until it prints
        releaseSpareCapacity(*prototype);
    }
    if (dict.insert({id, prototype.get()}).second)
        prototype.release();
}

} // namespace

void fillDirectory(IdHwDatablockOldStyleClassDict& dict) {
    std::size_t tableRows = 0;
    const CatalogueEntry* table = tableCatalogue(tableRows);
    for (const Row& row : kRows) {
        if (row.make == nullptr) {
            for (std::size_t i = 0; i < tableRows; ++i)
                if (table[i].id >= row.first && table[i].id <= row.last)
                    registerOne(dict, table[i].id, table[i].recipe.make, nullptr, false);
            continue;
        }
        for (int id = row.first; id <= row.last; ++id)
            registerOne(dict, id, row.make, row.idString, row.keepImage);
    }
}

} // namespace oldstyle
} // namespace Tupsim
