// Record import of every block kind with a fixed layout: what is taken, what is refused and how.
#include "support/TestImages.h"

#include <HwDatablockBaseTemplate.h>
#include <HwDatablockCommonStatisticData.h>
#include <HwDatablockCwop6VcoIdent.h>
#include <HwDatablockIdent.h>
#include <HwDatablockIpcUser10000.h>
#include <HwDatablockIpcUser10040.h>
#include <HwDatablockIqOp3RfmCalibDataMisc.h>
#include <HwDatablockIqOp3RfmCalibDataMiscV20.h>
#include <HwDatablockMbrdMac.h>
#include <HwDatablockMbrdModel.h>
#include <HwDatablockMbrdSerialNumber.h>
#include <HwDatablockMbrdTimeMonitoringData.h>
#include <HwDatablockMiscIdent.h>
#include <HwDatablockModification.h>
#include <HwDatablockModification110.h>
#include <HwDatablockModification120.h>
#include <HwDatablockSAtt3OWLDCounter.h>
#include <HwDatablockSAtt6OWLDCounter.h>
#include <HwDatablockSAttCCounter.h>
#include <HwDatablockServiceData.h>
#include <HwDatablockStatistic.h>

#include "templates/HwDatablockTemplate.h"

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <vector>

using namespace Tupsim;
using namespace Tupsim::test;

namespace {

// Header (id, size, checksum, alignment) followed by `body`, sealed.
QByteArray image(int id, int size, int alignment, const QByteArray& body) {
    return sealed(bytesOf({id, id >> 8, size, size >> 8, 0, 0, alignment, alignment >> 8}) + body);
}

QByteArray pattern(int length) {
    QByteArray out(length, '\0');
    for (int i = 0; i < length; ++i)
        out[i] = static_cast<char>(i * 37 + 11);
    return out;
}

// `bytes` with `at` set to `values`, the checksum left as it is.
QByteArray patched(QByteArray bytes, int at, std::initializer_list<int> values) {
    return bytes.replace(at, static_cast<int>(values.size()), bytesOf(values));
}

QByteArray spoiledImage(const QByteArray& bytes) {
    return patched(bytes, 4, {bytes[4] ^ 0x01});
}

struct Kind {
    const char* what;
    std::function<HwDatablock*()> make;
    std::function<int(HwDatablock&, const char*)> setBlock;
    QByteArray good, accepted;   // a record and the block's image after importing it
    std::vector<QByteArray> bad; // records refused, each with one error
    std::string text;            // the error's text
    int refusal;                 // what setBlock answers to a bad record or none
    const char* printout;        // golden text of the imported block, if any
};

template <typename Block, typename Record>
Kind kind(const char* what, std::function<Block*()> make, QByteArray good, QByteArray accepted,
          std::vector<QByteArray> bad, const char* printout = "", const char* text = nullptr,
          int refusal = 1) {
    const auto set = [](HwDatablock& block, const char* record) {
        return static_cast<Block&>(block).setBlock(
            reinterpret_cast<Record*>(const_cast<char*>(record)));
    };
    const std::string error = text != nullptr ? text : "   HwDatablock" + std::string(what);
    return {what, make,  set,     good,    accepted.isNull() ? good : accepted,
            bad,  error, refusal, printout};
}

// A kind built with the constructor arguments `Args`.
#define KIND(Name, Args, ...)                                                                      \
    kind<HwDatablock##Name, HwSDatablock##Name>(                                                   \
        #Name, [] { return new HwDatablock##Name Args; }, __VA_ARGS__)

std::vector<Kind> kinds() {
    const QByteArray model =
        image(12001, 40, 0, QByteArray("SGX-4000 Generator").leftJustified(32, '\0'));
    const QByteArray serial = image(12000, 12, 4, bytesOf({77, 0, 0, 0}));
    const QByteArray macBody = bytesOf({6, 0, 0, 0, 1, 2, 3, 4, 5, 6}).leftJustified(248, '\xff');
    const QByteArray mac = image(12004, 256, 0, macBody);
    QByteArray timeBody = QByteArray("2023-01-02").leftJustified(32, '\0') + bytesOf({2, 0, 0, 0});
    timeBody += bytesOf({0xaa, 0xbb}) + QByteArray(126, '\xff');
    const QByteArray time = image(12008, 172, 0, timeBody);
    const QByteArray vco = image(10502, 28, 0, pattern(20));
    const QByteArray service = image(205, 24, 4, pattern(16));
    const QByteArray statistic = image(300, 12, 8, bytesOf({99, 0, 0, 0}));
    const QByteArray ident = image(10, 44, 4,
                                   bytesOf({0, 0, 1, 0, 1, 0, 0, 0, 0, 255, 0x39, 0x30}) +
                                       QByteArray(10, '\xff') + "ABCDEFGHIJKLMN");
    const QByteArray resized = image(3, 40, 0, pattern(36)); // a size word against the layout
    const QByteArray miscIdent = image(10503, 44, 0,
                                       bytesOf({0, 0,    0,    0, 0x43, 0x74, 0xd7, 0, 2, 9,   201,
                                                0, 0xb7, 0x86, 1, 0,    0x81, 0x3f, 3, 0, 100, 0}) +
                                           QByteArray("STREAM OPT").leftJustified(14, '\0'));
    const QByteArray modification =
        image(110, 28, 4,
              bytesOf({0x23, 0x81, 0x01, 0x40, 0xff, 0xff}).leftJustified(18, 0) + bytesOf({5, 0}));
    const QByteArray modification110 =
        image(110, 28, 4, bytesOf({1, 0, 2, 0, 3, 0, 4, 0, 5, 0, 6, 0, 7, 0, 8, 0, 9, 0, 10, 0}));
    const QByteArray list = image(120, 16, 0, bytesOf({1, 0, 0, 0, 2, 0, 0, 0}));
    const QByteArray satt3 = image(10604, 12, 0, bytesOf({99, 0, 0, 0}));
    const QByteArray satt6 = image(11203, 12, 0, bytesOf({1, 0, 0, 0}));
    const QByteArray ipc =
        patched(image(10000, 56, 0, QByteArray("Hello").leftJustified(48, '\0')), 4, {0xad, 0x0b});
    const QByteArray ipcOther = image(10001, 12, 0, QByteArray("Hello").leftJustified(48, '\0'));
    const QByteArray ipc40 =
        (bytesOf({0x38, 0x27, 0x5e, 0}) + "ABCDEFGHIJKLMNOPQRSTUVWXYZ").leftJustified(94, '\0');
    const QByteArray sattc =
        bytesOf({0x24, 0x2c, 16, 0, 0xad, 0x0b, 0, 0, 12, 0, 0, 0, 0x80, 0x0d, 0, 0});
    const QByteArray common =
        patched(image(11312, 524, 4, bytesOf({3, 0, 0, 0, 9, 8, 7, 6}) + QByteArray(508, 0)), 4,
                {0x34, 0x12});
    const QByteArray misc = image(10301, 168, 4, pattern(160));
    const QByteArray v20 = image(10315, 116, 0, pattern(108));
    // 2 rows of 3 columns in a 4 x 10 table; another id word is taken as it is
    const QByteArray alc = image(15732, 176, 0, bytesOf({2, 0, 0, 0, 3, 0, 0, 0}) + pattern(160));
    const QByteArray vtrim = image(12310, 56, 0, bytesOf({1, 0, 0, 0, 1, 0, 0, 0}) + pattern(40));
    using AlcData = HwDatablockBaseTemplate<int, int, 4, 10>;
    using Vtrim = HwDatablockTemplate<MiscData<int, 10, 1>, int, double, 10, 1>;

    return {
        KIND(MbrdModel, (), model, {}, {spoiledImage(model)}, "ident/model.txt"),
        // alignment cleared, the record's checksum kept
        KIND(MbrdSerialNumber, (), serial, patched(serial, 6, {0}), {spoiledImage(serial)}, "",
             "   HwSDatablockMbrdSerialNumber"),
        // id and size are checked too; the length is forced to the field's 16
        KIND(MbrdMac, (), mac, patched(mac, 8, {16}),
             {image(12005, 256, 0, macBody), image(12004, 254, 0, macBody), spoiledImage(mac)}, "",
             "   HwSDatablockMbrdMac", 1040000),
        kind<HwDatablockMbrdTimeMonitoringData, HwSDatablockMbrdTimeMonitoringDataEx>(
            "MbrdTimeMonitoringData", [] { return new HwDatablockMbrdTimeMonitoringData; }, time,
            {}, {image(12004, 172, 0, timeBody)}, "", "   HwSDatablockMbrdTimeMonitoringData",
            1040000),
        KIND(Cwop6VcoIdent, (), vco, {}, {spoiledImage(vco)}),
        KIND(ServiceData, (), service, patched(service, 6, {0}), {spoiledImage(service)}),
        KIND(Statistic, (), statistic, patched(statistic, 6, {0}), {spoiledImage(statistic)}),
        KIND(Ident, (), ident, {}, {spoiledImage(ident)}, "ident/ident_id10.txt"),
        // the size is fixed, the record's checksum kept
        KIND(Ident, (), resized, patched(resized, 2, {44}), {}),
        KIND(MiscIdent, (), miscIdent, {}, {spoiledImage(miscIdent)}, "ident/miscident_opt.txt"),
        // the alignment is kept
        KIND(Modification, (), modification, {}, {spoiledImage(modification)},
             "ident/modification.txt"),
        KIND(Modification110, (), modification110, {}, {spoiledImage(modification110)},
             "ident/modification110.txt"),
        // the size word says how much is taken; below the header it is refused
        KIND(Modification120, (), list + "trailing bytes", list,
             {patched(list, 8, {9}), image(120, 6, 0, {})}),
        // id and size stay as constructed, the record's checksum is kept
        KIND(SAtt3OWLDCounter, (1), satt3, patched(satt3, 0, {0x6d}), {spoiledImage(satt3)}),
        KIND(SAtt6OWLDCounter, (1), satt6, patched(satt6, 0, {0xc4}), {spoiledImage(satt6)},
             "ident/satt6_second.txt"),
        // its own id and size pass unchecked; another id needs a good checksum and takes only
        // as many bytes as its size word
        KIND(IpcUser10000, (), ipc, {}, {}, "ident/ipc10000.txt", ""),
        KIND(IpcUser10000, (), ipcOther, ipcOther.left(12) + QByteArray(44, 0),
             {spoiledImage(ipcOther)}),
        // no checksum at all: the data start at byte 4
        KIND(IpcUser10040, (), ipc40, {}, {patched(ipc40, 2, {0x5c})}, "ident/ipc10040.txt"),
        // the record's checksum is ignored and a fresh one computed
        KIND(SAttCCounter, (VARIANT_SATTC_OVLDCOUNTER), sattc, sealed(sattc), {}),
        // unchecked; the data stop at the length, the checksum is the one sealed before they came
        KIND(CommonStatisticData, (VARIANT_POWERON_COUNT), common,
             patched(image(11312, 524, 4, bytesOf({0, 2, 0, 0}) + QByteArray(512, 0)), 8,
                     {3, 0, 0, 0, 9, 8, 7}),
             {}),
        // the table templates name the id in the error
        kind<AlcData, AlcData::HwSDatablock>(
            "table", [] { return new AlcData("RFBO_ALC_DATA", 15731, 0, 1.0, false); }, alc, {},
            {spoiledImage(alc)}, "", "15732"),
        kind<Vtrim, Vtrim::HwSDatablock>(
            "misc table", [] { return new Vtrim("PYM_DCON_VTRIM_VALUE", 12310, 0, 1.0, false); },
            vtrim, {}, {spoiledImage(vtrim)}, "", "12310"),
        KIND(IqOp3RfmCalibDataMisc, (), misc, patched(misc, 6, {0}), {patched(misc, 150, {0})}),
        KIND(IqOp3RfmCalibDataMiscV20, (), v20, {}, {patched(v20, 20, {0})}),
    };
}

} // namespace

TEST(SetBlock, EveryKindTakesAGoodRecordAndRefusesABadOneUntouched) {
    for (const Kind& k : kinds()) {
        SCOPED_TRACE(k.what);
        ServiceRecorders services;
        std::unique_ptr<HwDatablock> block(k.make()), other(k.make());
        EXPECT_FALSE(block->getStopConversionOnError());
        ASSERT_EQ(k.setBlock(*block, k.good.constData()), 0);
        EXPECT_EQ(hex(block->getByteArrayData()), hex(k.accepted));
        if (*k.printout) {
            EXPECT_EQ(printed(*block), golden(k.printout));
        }
        const QByteArray fresh = other->getByteArrayData();
        for (const QByteArray& bad : k.bad)
            EXPECT_EQ(k.setBlock(*other, bad.leftJustified(k.good.size(), '\0').constData()),
                      k.refusal)
                << hex(bad);
        ASSERT_EQ(services.errors.signalled.size(), k.bad.size());
        for (const auto& error : services.errors.signalled) {
            EXPECT_EQ(error.first, k.refusal == 1 ? 1040001 : k.refusal);
            EXPECT_EQ(error.second.toStdString(), k.text);
        }
        EXPECT_EQ(k.setBlock(*other, nullptr), k.refusal);
        EXPECT_EQ(other->getByteArrayData(), fresh);
    }
}
