// The demonstration image: identification and service blocks, calibration tables, a
// self-describing block and the end block, built through the library's own setters.
#include "SampleImage.h"

#include "CommonDatablockAccess.h"
#include "HwCalibTableBlocks.h"
#include "HwDatablockEnd.h"
#include "HwDatablockIdent.h"
#include "HwDatablockModification.h"
#include "HwDatablockServiceData.h"
#include "HwDatablockStatistic.h"
#include "blocks/ident/FieldCodec.h"

#include <cstring>
#include <initializer_list>
#include <string>

namespace Tupsim {

namespace {

using records::packedDate::pack;

QByteArray identification() {
    HwDatablockIdent ident;
    ident.setEepromSize(SampleEepromSize);
    ident.setPartNumber(12345678); // 1234.5678
    ident.setVariant(2);
    ident.setHardwareCode(37);
    ident.setProductIndex(301); // 03.01
    ident.setSerialNumber(102345);
    ident.setProductDate(pack(2021, 6, 15));
    ident.setReadCode(0);
    ident.setTestInstruction(102); // 01.02
    ident.setName(QStringLiteral("RF-BOARD 6G"));
    return ident.getByteArrayData();
}

QByteArray serviceBlocks() {
    HwDatablockServiceData service(VARIANT_SERVICE_200);
    service.setDepartment("KS2104");
    service.setServiceDate(pack(2023, 11, 7));
    service.setOpTimeHours(12345);
    service.setOpTimeTurnOn(873);
    service.setRepairNumber(4711);
    service.setServiceCode(17);

    HwDatablockStatistic statistic;
    statistic.setOpHours(15872);

    // Action 1 in the top two bits, the circular number below.
    HwDatablockModification modification;
    modification.setServiceCode(0, 0x4000 | 1021);
    modification.setServiceCode(1, 0x4000 | 1187);
    modification.setServiceCode(2, 0x8000 | 64);

    return service.getByteArrayData() + statistic.getByteArrayData() +
           modification.getByteArrayData();
}

// Sets the counts and stores the raw values row by row.
template <class Table, typename Raw>
QByteArray filled(Table& table, unsigned int rows, unsigned int cols,
                  std::initializer_list<Raw> values) {
    table.setRowCount(rows);
    table.setColCount(cols);
    unsigned int at = 0;
    for (Raw value : values) {
        table.setCalValue(value, at / cols, at % cols);
        ++at;
    }
    return table.getByteArrayData();
}

// The element bytes of a self-describing block, in host order.
template <typename T> QByteArray element(T value) {
    QByteArray bytes(static_cast<int>(sizeof value), '\0');
    std::memcpy(bytes.data(), &value, sizeof value);
    return bytes;
}

QByteArray calibrationTables() {
    // Level control: ten frequency points (units of 100 Hz) and four DAC rows.
    HwDatablockOroRfboAlcFreq alcFreq;
    HwDatablockOroRfboAlcData alcData;
    QByteArray tables = filled(alcFreq, 10, 1,
                               {100000u, 1000000u, 5000000u, 10000000u, 15000000u, 20000000u,
                                30000000u, 40000000u, 50000000u, 60000000u});
    tables += filled(alcData, 4, 10, {1812, 1820, 1835, 1851, 1866, 1880, 1902, 1925, 1949, 1977,
                                      2010, 2016, 2031, 2047, 2060, 2075, 2098, 2120, 2146, 2171,
                                      2203, 2211, 2224, 2240, 2255, 2269, 2290, 2314, 2339, 2366,
                                      2398, 2405, 2419, 2433, 2450, 2466, 2487, 2510, 2534, 2562});

    // Attenuator: five points in Hz, one row per attenuation step in hundredths of a dB,
    // each row indexed by its step in dB.
    HwDatablockTeshRfboAttCalVecFreq attFreq;
    HwDatablockTeshRfboAttCalVecData attData;
    tables +=
        filled(attFreq, 5, 1, {100000000u, 500000000u, 1000000000u, 2000000000u, 3000000000u});
    for (unsigned int row = 0; row < 4; ++row)
        attData.setIndex(static_cast<int>(row * 10), row);
    tables += filled(attData, 4, 5, {0,    -2,   -4,   -7,   -11,  1003, 1001, 998,  995,  990,
                                     2006, 2003, 1997, 1991, 1982, 3011, 3006, 2996, 2987, 2972});

    // Maximum level in hundredths of a dB at eight points, for two paths.
    HwDatablockOroRfboRfLevelMaxFreq levelFreq;
    HwDatablockOroRfboRfLevelMaxData levelData;
    tables += filled(
        levelFreq, 8, 1,
        {10000u, 1000000u, 10000000u, 20000000u, 30000000u, 40000000u, 50000000u, 60000000u});
    tables += filled(levelData, 2, 8,
                     {2050, 2025, 1980, 1940, 1890, 1825, 1760, 1700, 1850, 1830, 1790, 1745, 1700,
                      1640, 1580, 1520});

    // A user correction behind its descriptors: every descriptor one word, padded with blanks.
    HwDatablockTeshRfboExtCalVecUserFreq userFreq;
    HwDatablockTeshRfboExtCalVecUserData userData;
    tables +=
        filled(userFreq, 6, 1, {1000000u, 5000000u, 10000000u, 20000000u, 40000000u, 60000000u});
    int index = 0;
    for (const char* word : {"USER_CAL", "NRP18S", "SN_101234", "2024-03-12", "OPERATOR_QA7",
                             "PATH_RF_A", "PATH_RF_B", "TEMP_23C", "REV_2", "-"}) {
        std::string descriptor(word);
        descriptor.resize(16, ' ');
        userData.setDescriptor(index++, descriptor);
    }
    tables += filled(userData, 2, 6, {12, 8, -3, -15, -27, -41, 5, 2, -6, -18, -33, -52});
    return tables;
}

QByteArray selfDescribing() {
    // Temperature compensation: rows by temperature (tenths of a degree), columns gain
    // (hundredths of a dB), offset and a label.
    HwSBlockDescription table;
    table.rowCount = 3;
    table.colCount = 3;
    table.rowIdType = FIX16D1;
    table.colIdType = NONE;
    table.colTypes = {FIX16D2, INT32, CHAR5};
    table.rowIds = element<qint16>(150) + element<qint16>(250) + element<qint16>(350);
    table.values = {{element<qint16>(12), element<qint16>(0), element<qint16>(-15)},
                    {element<qint32>(-3), element<qint32>(0), element<qint32>(4)},
                    {QByteArray("COLD "), QByteArray("ROOM "), QByteArray("HOT  ")}};
    CommonDatablockAccess builder(nullptr, nullptr, false);
    builder.addBlock(table);
    return builder.write(20010, 105);
}

} // namespace

QByteArray sampleImage() {
    QByteArray image = identification() + serviceBlocks() + calibrationTables() + selfDescribing();
    HwDatablockEnd end;
    end.setEndBlock();
    image += end.getByteArrayData();
    // Erased EEPROM cells read 0xFF.
    if (image.size() < SampleEepromSize)
        image += QByteArray(SampleEepromSize - image.size(), '\xFF');
    return image;
}

} // namespace Tupsim
