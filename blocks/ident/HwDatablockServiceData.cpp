// Service record of a module.
#include "HwDatablockServiceData.h"

#include "blocks/ident/BlockFields.h"

namespace Tupsim {

namespace {
enum : int {
    Department = 8,
    DepartmentWidth = 6,
    ServiceDate = 14,
    OpTime = 16,
    RepairNumber = 20,
    ServiceCode = 22,
    ImageSize = 24
};
enum : unsigned int { HoursMask = 0x3FFFF, TurnOnShift = 18 };
} // namespace

HwDatablockServiceData::HwDatablockServiceData(HwEVariantEepromDatablock id) : HwDatablock(false) {
    image() = blockfields::freshImage(id, ImageSize);
    image().replace(Department, DepartmentWidth, "000000", DepartmentWidth);
}

HwSDatablockServiceData* HwDatablockServiceData::getBlock() {
    return blockfields::recordView<HwSDatablockServiceData>(image());
}

int HwDatablockServiceData::setBlock(const HwSDatablockServiceData* record) {
    if (!blockfields::acceptRecord(*this, record, sizeof *record, "   HwDatablockServiceData"))
        return 1;
    swapBlock(record);
    return 0;
}

void HwDatablockServiceData::swapBlock(const HwSDatablockServiceData* record) {
    const QByteArray raw = blockfields::recordCopy(record, sizeof *record);
    if (raw.isEmpty())
        return;
    blockfields::importHeader(*this, raw, ImageSize, 0);
    setDepartment(raw.constData() + Department);
    setServiceDate(blockfields::recordField<quint16>(*this, raw, ServiceDate));
    setOpTime(blockfields::recordField<quint32>(*this, raw, OpTime));
    setRepairNumber(blockfields::recordField<quint16>(*this, raw, RepairNumber));
    setServiceCode(blockfields::recordField<quint16>(*this, raw, ServiceCode));
    blockfields::keepRecordChecksum(*this, raw);
}

void HwDatablockServiceData::swapOwnImage() {
    blockfields::swapOwnImage<HwSDatablockServiceData>(*this);
}

std::ostream& HwDatablockServiceData::printToStream(std::ostream& out) {
    const unsigned int slot = getId() - 200;
    const unsigned int hours = getOpTimeHours();
    out << "# Das sind die Servicedaten Service 200\n";
    // Ids outside 200..209 have no name.
    out << "ID:              " << (slot < 10 ? blockfields::format("SERVICE_%u", 200 + slot) : "")
        << "\n";
    out << "DEPARTMENT:      " << blockfields::fieldText(image(), Department, DepartmentWidth)
        << "\n";
    out << "SERVICEDATE:     "
        << blockfields::format("%u-%02u-%02u", getServiceDateYear(), getServiceDateMonth(),
                               getServiceDateDay())
        << "\n";
    out << "OPHOURS:         " << blockfields::format("%05u/%06u", hours / 1000000, hours % 1000000)
        << "\n";
    out << "REPAIRNUMBER:    " << blockfields::format("%u", unsigned{getRepairNumber()}) << "\n";
    out << "SERVICECODE:     " << blockfields::format("%u", unsigned{getServiceCode()}) << "\n";
    out << "\n";
    return out;
}

unsigned int HwDatablockServiceData::getServiceDataId() {
    return getId();
}

const char* HwDatablockServiceData::getDepartment() {
    if (!bytes::fits(static_cast<std::uint64_t>(imageLength()), Department, DepartmentWidth))
        return nullptr;
    return image().constData() + Department;
}

void HwDatablockServiceData::setDepartment(const char* department) {
    if (department != nullptr && bytes::copyIn(image(), Department, department, DepartmentWidth))
        refreshChecksum();
}

unsigned short HwDatablockServiceData::getServiceDate() {
    return bytes::getLE<quint16>(image(), ServiceDate);
}

unsigned int HwDatablockServiceData::getServiceDateYear() {
    return 1980u + (getServiceDate() >> 9);
}

unsigned int HwDatablockServiceData::getServiceDateMonth() {
    return (getServiceDate() >> 5) & 0xFu;
}

unsigned int HwDatablockServiceData::getServiceDateDay() {
    return getServiceDate() & 0x1Fu;
}

void HwDatablockServiceData::setServiceDate(unsigned short date) {
    if (blockfields::store<quint16>(image(), ServiceDate, date))
        refreshChecksum();
}

void HwDatablockServiceData::setServiceDateDay(unsigned int day) {
    setOpTime((getOpTime() & ~0x1Fu) | (day & 0x1Fu));
}

void HwDatablockServiceData::setServiceDateMonth(unsigned int month) {
    setOpTime((getOpTime() & ~0x1E0u) | ((month & 0xFu) << 5));
}

void HwDatablockServiceData::setServiceDateYear(unsigned int year) {
    setOpTime((getOpTime() & ~0xFE00u) | (((year - 1980u) << 9) & 0xFE00u));
}

unsigned int HwDatablockServiceData::getOpTime() {
    return bytes::getLE<quint32>(image(), OpTime);
}

unsigned int HwDatablockServiceData::getOpTimeHours() {
    return getOpTime() & HoursMask;
}

unsigned int HwDatablockServiceData::getOpTimeTurnOn() {
    return getOpTime() >> TurnOnShift;
}

void HwDatablockServiceData::setOpTime(unsigned int opTime) {
    if (blockfields::store<quint32>(image(), OpTime, opTime))
        refreshChecksum();
}

void HwDatablockServiceData::setOpTimeHours(unsigned int hours) {
    setOpTime((getOpTime() & ~HoursMask) | (hours & HoursMask));
}

void HwDatablockServiceData::setOpTimeTurnOn(unsigned int turnOn) {
    setOpTime((getOpTime() & HoursMask) | (turnOn << TurnOnShift));
}

unsigned short HwDatablockServiceData::getRepairNumber() {
    return bytes::getLE<quint16>(image(), RepairNumber);
}

unsigned short HwDatablockServiceData::getServiceCode() {
    return bytes::getLE<quint16>(image(), ServiceCode);
}

void HwDatablockServiceData::setRepairNumber(unsigned short number) {
    if (blockfields::store<quint16>(image(), RepairNumber, number))
        refreshChecksum();
}

void HwDatablockServiceData::setServiceCode(unsigned short code) {
    if (blockfields::store<quint16>(image(), ServiceCode, code))
        refreshChecksum();
}

} // namespace Tupsim
