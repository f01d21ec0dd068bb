// The identification and service blocks of the demonstration image, and the whole image.
#include "SampleImage.h"

#include <HwDatablockEnd.h>
#include <HwDatablockIdent.h>
#include <HwDatablockModification.h>
#include <HwDatablockServiceData.h>
#include <HwDatablockStatistic.h>

namespace epromtool {

namespace {

// Packed as the blocks keep dates: year - 1980, month and day in 7, 4 and 5 bits.
unsigned short packedDate(int year, int month, int day) {
    return static_cast<unsigned short>(((year - 1980) << 9) | (month << 5) | day);
}

} // namespace

QByteArray SampleImage::build() {
    QByteArray image = identification() + serviceBlocks() + calibrationTables() + selfDescribing();
    Tupsim::HwDatablockEnd end;
    end.setEndBlock();
    image += end.getByteArrayData();
    // Erased EEPROM cells read 0xFF.
    if (image.size() < EepromSize)
        image += QByteArray(EepromSize - image.size(), '\xFF');
    return image;
}

QByteArray SampleImage::identification() {
    Tupsim::HwDatablockIdent ident;
    ident.setEepromSize(EepromSize);
    ident.setPartNumber(12345678); // 1234.5678
    ident.setVariant(2);
    ident.setHardwareCode(37);
    ident.setProductIndex(301); // 03.01
    ident.setSerialNumber(102345);
    ident.setProductDate(packedDate(2021, 6, 15));
    ident.setReadCode(0);
    ident.setTestInstruction(102); // 01.02
    ident.setName(QStringLiteral("RF-BOARD 6G"));
    return ident.getByteArrayData();
}

QByteArray SampleImage::serviceBlocks() {
    Tupsim::HwDatablockServiceData service(Tupsim::VARIANT_SERVICE_200);
    service.setDepartment("KS2104");
    service.setServiceDate(packedDate(2023, 11, 7));
    service.setOpTimeHours(12345);
    service.setOpTimeTurnOn(873);
    service.setRepairNumber(4711);
    service.setServiceCode(17);

    Tupsim::HwDatablockStatistic statistic;
    statistic.setOpHours(15872);

    // Action 1 in the top two bits, the circular number below.
    Tupsim::HwDatablockModification modification;
    modification.setServiceCode(0, 0x4000 | 1021);
    modification.setServiceCode(1, 0x4000 | 1187);
    modification.setServiceCode(2, 0x8000 | 64);

    return service.getByteArrayData() + statistic.getByteArrayData() +
           modification.getByteArrayData();
}

} // namespace epromtool
