// Reads self-describing blocks, or lists of them packed in one image, without knowing their class.
#pragma once

#include "ETypeId.h"
#include "EpromDatablockGlobal.h"
#include "HwSBlockDescription.h"

#include <QByteArray>
#include <QList>
#include <QStringList>
#include <QVector>
#include <vector>

namespace Tupsim {

class IHwDatablockAccess;
class IHwVariantEeprom;

class EPROMDATABLOCK_EXPORT CommonDatablockAccess {
public:
    // Takes ownership of `access`; `variant` stays the caller's.
    CommonDatablockAccess(IHwDatablockAccess* access, IHwVariantEeprom* variant, bool parseNow);
    ~CommonDatablockAccess();
    CommonDatablockAccess(const CommonDatablockAccess&) = delete;
    CommonDatablockAccess& operator=(const CommonDatablockAccess&) = delete;

    // Walks the access's image once and records every table in it.
    void parse();

    // Complete tables: one less than the descriptions held, the last being the one in progress.
    unsigned short getBlockCount() const;
    // 0 for a block that is not held (the counts are those the header claims).
    unsigned int getRowCount(unsigned int block) const;
    unsigned int getColCount(unsigned int block) const;
    ETypeId getRowIdType(unsigned int block) const;
    ETypeId getColumnIdType(unsigned int block) const;
    ETypeId getDataType(unsigned int column, unsigned int block) const;
    QList<ETypeId> getDataTypeList(unsigned int block) const;
    QStringList getRowIdStringList(unsigned int block) const;
    QStringList getColIdStringList(unsigned int block) const;
    // The values of one column as texts, row by row.
    QStringList getStringColumn(unsigned int column, unsigned int block) const;
    // One list per row read, with the text of every column.
    QVector<QStringList> getDataInStringVector(unsigned int block) const;
    // The description of a table; nullptr for a block that is not held.
    const HwSBlockDescription* getBlockDescription(unsigned int block) const;
    // Appends a complete table, to be written by write().
    void addBlock(const HwSBlockDescription& description);

    // Bytes one element takes in the image: 16 and 17 count 2, a STRING 1 per character.
    static unsigned int getSizeInBytes(ETypeId type);

    unsigned short getId() const { return blockId; }
    void setBlockId(unsigned short id) { blockId = id; }
    float getUpdateIndex() const;
    void setUpdateIndex(unsigned short index) { updateIndex = index; }
    bool isListBlockFormat() const { return listBlockFormat; }
    void setListBlockFormat(bool listFormat) { listBlockFormat = listFormat; }
    IHwVariantEeprom* getVariantEepromPtr() const { return variantEeprom; }

    // Hands a new block holding `data` (format 0) to the store at `index`; always true.
    bool writeVariantBock(unsigned int index, QByteArray data);

    // A long-header image of the complete tables held, with both checksums computed, in
    // format 0; empty when the tables do not fit a block of 65535 bytes.
    QByteArray write(unsigned short id, unsigned short updateIndex) const;

private:
    const HwSBlockDescription* find(unsigned int block) const;
    QStringList identifierTexts(const QByteArray& ids, quint32 type, quint32 count) const;
    QString convValue(quint32 type, const QByteArray& bytes) const;

    IHwDatablockAccess* access;
    quint16 blockId = 0;
    quint16 checksum = 0;
    quint8 alignmentByte = 0; // byte 7 of the image
    qint32 padUnit = 4;       // identifier and value runs start on multiples of this
    quint32 checksum32 = 0;
    quint16 updateIndex = 0; // hundredths
    quint32 blockIndex = 0;  // the table being walked
    bool listBlockFormat = false;
    IHwVariantEeprom* variantEeprom;
    std::vector<HwSBlockDescription> descriptions;
};

} // namespace Tupsim
