// Service record of a module.
#include "HwDatablockServiceData.h"

#include "blocks/ident/BlockFields.h"
#include "blocks/ident/FieldCodec.h"

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
using records::opTime::HoursMask;
using records::opTime::TurnOnShift;
using S = HwDatablockServiceData;
using R = HwSDatablockServiceData;
using records::Codec;

// The department is given as text; the setter takes exactly six bytes, so it is padded with NULs.
void setDepartment(HwDatablock& block, const records::Value& value, unsigned) {
    QByteArray padded = value.text.left(DepartmentWidth);
    padded.append(QByteArray(DepartmentWidth - padded.size(), '\0'));
    static_cast<S&>(block).setDepartment(padded.constData());
}

const records::FieldRow kRows[] = {
    {"DEPARTMENT", Department, DepartmentWidth, Codec::Text, &setDepartment},
    {"SERVICEDATE", ServiceDate, sizeof(R::serviceDate), Codec::Date,
     records::through<&S::setServiceDate>},
    {"OPHOURS", OpTime, sizeof(R::opTime), Codec::Hours, records::through<&S::setOpTimeHours>},
    {"REPAIRNUMBER", RepairNumber, sizeof(R::repairNumber), Codec::Number,
     records::through<&S::setRepairNumber>},
    {"SERVICECODE", ServiceCode, sizeof(R::serviceCode), Codec::Number,
     records::through<&S::setServiceCode>},
};
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
    out << "# Das sind die Servicedaten Service 200\n";
    // Ids outside 200..209 have no name.
    out << "ID:              " << (slot < 10 ? blockfields::format("SERVICE_%u", 200 + slot) : "")
        << "\n";
    out << "DEPARTMENT:      " << blockfields::fieldText(image(), Department, DepartmentWidth)
        << "\n";
    out << "SERVICEDATE:     " << records::packedDate::text(getServiceDate()) << "\n";
    out << "OPHOURS:         " << records::hoursText(getOpTimeHours()) << "\n";
    out << "REPAIRNUMBER:    " << blockfields::format("%u", unsigned{getRepairNumber()}) << "\n";
    out << "SERVICECODE:     " << blockfields::format("%u", unsigned{getServiceCode()}) << "\n";
    out << "\n";
    return out;
}

const records::RecordSchema& HwDatablockServiceData::recordSchema() {
    static const records::RecordSchema schema = records::schemaOver<S>(kRows, ImageSize);
    return schema;
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
    return records::packedDate::year(getServiceDate());
}

unsigned int HwDatablockServiceData::getServiceDateMonth() {
    return records::packedDate::month(getServiceDate());
}

unsigned int HwDatablockServiceData::getServiceDateDay() {
    return records::packedDate::day(getServiceDate());
}

void HwDatablockServiceData::setServiceDate(unsigned short date) {
    if (blockfields::store<quint16>(image(), ServiceDate, date))
        refreshChecksum();
}

void HwDatablockServiceData::setServiceDateDay(unsigned int day) {
    setOpTime(records::packedDate::withDay(getOpTime(), day));
}

void HwDatablockServiceData::setServiceDateMonth(unsigned int month) {
    setOpTime(records::packedDate::withMonth(getOpTime(), month));
}

void HwDatablockServiceData::setServiceDateYear(unsigned int year) {
    setOpTime(records::packedDate::withYear(getOpTime(), year));
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
