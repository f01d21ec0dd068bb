// Generic typed access to self-describing blocks: the walk's results and their texts.
#include "CommonDatablockAccess.h"

#include "HwDatablock.h"
#include "IHwDatablockAccess.h"
#include "IHwVariantEeprom.h"
#include "directory/ElementText.h"
#include "directory/SelfDescribingLayout.h"
#include "directory/TableWalk.h"

#include <algorithm>
#include <cstdio>
#include <sstream>

namespace Tupsim {

CommonDatablockAccess::CommonDatablockAccess(IHwDatablockAccess* access, IHwVariantEeprom* variant,
                                             bool parseNow)
    : access(access), variantEeprom(variant) {
    if (parseNow)
        parse();
}

CommonDatablockAccess::~CommonDatablockAccess() {
    delete access;
}

void CommonDatablockAccess::parse() {
    const unsigned char* bytes = nullptr;
    std::uint64_t length = 0;
    if (access != nullptr) {
        bytes = reinterpret_cast<const unsigned char*>(access->getData(0));
        length = access->getBlockSize(0);
        listBlockFormat = access->isListFormat();
    }
    TableWalk walk(bytes, length, static_cast<std::uint64_t>(padUnit));
    walk.walkImage(listBlockFormat);
    const WalkHeader& head = walk.header();
    blockId = head.id;
    checksum = head.checksum;
    alignmentByte = head.alignmentByte;
    checksum32 = head.checksum32;
    updateIndex = head.updateIndex;
    blockIndex = walk.completeBlocks();
    descriptions = std::move(walk.blocks());
}

unsigned short CommonDatablockAccess::getBlockCount() const {
    return static_cast<unsigned short>(descriptions.size() - 1);
}

const HwSBlockDescription* CommonDatablockAccess::find(unsigned int block) const {
    return block < descriptions.size() ? &descriptions[block] : nullptr;
}

const HwSBlockDescription* CommonDatablockAccess::getBlockDescription(unsigned int block) const {
    return find(block);
}

void CommonDatablockAccess::addBlock(const HwSBlockDescription& description) {
    // The last description is the table in progress; complete ones stand before it.
    if (descriptions.empty())
        descriptions.emplace_back();
    descriptions.insert(descriptions.end() - 1, description);
}

unsigned int CommonDatablockAccess::getRowCount(unsigned int block) const {
    const HwSBlockDescription* table = find(block);
    return table ? table->rowCount : 0;
}

unsigned int CommonDatablockAccess::getColCount(unsigned int block) const {
    const HwSBlockDescription* table = find(block);
    return table ? table->colCount : 0;
}

ETypeId CommonDatablockAccess::getRowIdType(unsigned int block) const {
    const HwSBlockDescription* table = find(block);
    return table ? static_cast<ETypeId>(table->rowIdType) : NONE;
}

ETypeId CommonDatablockAccess::getColumnIdType(unsigned int block) const {
    const HwSBlockDescription* table = find(block);
    return table ? static_cast<ETypeId>(table->colIdType) : NONE;
}

ETypeId CommonDatablockAccess::getDataType(unsigned int column, unsigned int block) const {
    const HwSBlockDescription* table = find(block);
    if (table == nullptr || column >= table->colTypes.size())
        return NONE;
    return static_cast<ETypeId>(table->colTypes[column]);
}

QList<ETypeId> CommonDatablockAccess::getDataTypeList(unsigned int block) const {
    QList<ETypeId> types;
    if (const HwSBlockDescription* table = find(block))
        for (quint32 type : table->colTypes)
            types.append(static_cast<ETypeId>(type));
    return types;
}

QStringList CommonDatablockAccess::getRowIdStringList(unsigned int block) const {
    const HwSBlockDescription* table = find(block);
    return table ? identifierTexts(table->rowIds, table->rowIdType, table->rowCount)
                 : QStringList();
}

QStringList CommonDatablockAccess::getColIdStringList(unsigned int block) const {
    const HwSBlockDescription* table = find(block);
    return table ? identifierTexts(table->colIds, table->colIdType, table->colCount)
                 : QStringList();
}

QStringList CommonDatablockAccess::identifierTexts(const QByteArray& ids, quint32 type,
                                                   quint32 count) const {
    QStringList texts;
    for (const QByteArray& id : layout::identifiers(ids, type, count))
        texts.append(convValue(type, id));
    return texts;
}

QStringList CommonDatablockAccess::getStringColumn(unsigned int column, unsigned int block) const {
    QStringList texts;
    const HwSBlockDescription* table = find(block);
    if (table == nullptr || column >= table->values.size())
        return texts;
    const quint32 type = column < table->colTypes.size() ? table->colTypes[column] : quint32(NONE);
    for (const QByteArray& value : table->values[column])
        texts.append(convValue(type, value));
    return texts;
}

QVector<QStringList> CommonDatablockAccess::getDataInStringVector(unsigned int block) const {
    QVector<QStringList> rows;
    const HwSBlockDescription* table = find(block);
    if (table == nullptr)
        return rows;
    // Rows actually read: a truncated image may claim far more than it holds.
    std::size_t rowsRead = 0;
    for (const auto& column : table->values)
        rowsRead = std::max(rowsRead, column.size());
    const layout::Rendering shown = layout::rendering(
        *table, table->values.size(), std::min<std::size_t>(rowsRead, table->rowCount));
    rows.resize(static_cast<int>(shown.rows));
    for (std::size_t column = 0; column < shown.columns; ++column) {
        const QStringList texts = getStringColumn(static_cast<unsigned>(column), block);
        for (std::size_t r = 0; r < shown.rows; ++r)
            rows[int(r)].append(r < std::size_t(texts.size()) ? texts[int(r)] : QString());
    }
    return rows;
}

QString CommonDatablockAccess::convValue(quint32 type, const QByteArray& bytes) const {
    std::ostringstream text;
    if (!writeElementText(text, reinterpret_cast<const unsigned char*>(bytes.constData()),
                          static_cast<std::size_t>(bytes.size()), type)) {
        std::fprintf(stderr, "CommonDatablockAccess::convValue: type (%d) not supported\n",
                     static_cast<int>(type));
        return QString();
    }
    return QString::fromLatin1(text.str().c_str(), static_cast<int>(text.str().size()));
}

unsigned int CommonDatablockAccess::getSizeInBytes(ETypeId type) {
    return layout::elementWidth(type);
}

float CommonDatablockAccess::getUpdateIndex() const {
    return static_cast<float>(updateIndex / 100.0);
}

bool CommonDatablockAccess::writeVariantBock(unsigned int index, QByteArray data) {
    auto* block = new HwDatablock(true);
    block->setData(data);
    block->setDataFormatTyp(HwDataFormatReference);
    if (variantEeprom != nullptr)
        variantEeprom->storeBlock(index, block);
    else
        delete block; // nobody to hand it to
    return true;
}

} // namespace Tupsim
