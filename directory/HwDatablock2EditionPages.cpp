// Debug pages of the self-describing block: heading, summary, and the two calibration-file forms.
#include "HwDatablock2Edition.h"

#include "directory/ElementText.h"
#include "directory/SelfDescribingLayout.h"
#include "directory/TableWalk.h"
#include "directory/TextColumns.h"

#include <algorithm>
#include <sstream>

namespace Tupsim {

namespace {

const char* const HashRow = "##################################################\n";

std::string elementText(const QByteArray& bytes, quint32 type) {
    std::ostringstream text;
    printElement(text, reinterpret_cast<const unsigned char*>(bytes.constData()),
                 static_cast<std::size_t>(bytes.size()), type);
    return text.str();
}

template <typename T> std::string textOf(const T& value) {
    std::ostringstream text;
    text << value;
    return text.str();
}

} // namespace

std::ostream& HwDatablock2Edition::printDebugPageHeading(std::ostream& out, bool summary) {
    out << HashRow << "         D E B U G - I N F O R M A T I O N        \n"
        << "         EEPROM / FLASH                           \n"
        << (summary ? "         Block Summary                            \n"
                    : "         Block Details                            \n")
        << HashRow << "\n";
    return out;
}

std::ostream& HwDatablock2Edition::printDebugPageSummary(std::ostream& out, HwSDataBlockCfg cfg) {
    out << "############# NEW CONCEPT #####################################\n"
        << "SECTOR:     " << cfg.sector << "\n";
    const std::string name =
        cfg.blockName.isEmpty() ? "USER_" + textOf(getId()) : cfg.blockName.toStdString();
    // The minimum widths keep the heading as it has always been spaced.
    printColumns(out,
                 {{"Block Id:", "Block Name:", "Update Index:", "Date:"},
                  {textOf(getId()), name, textOf(getUpdateIndex()), cfg.date.toStdString()}},
                 {19, 21, 23, 0});
    out << "\n";
    return out;
}

std::ostream& HwDatablock2Edition::printDebugPageDetail(std::ostream& out, HwSDataBlockCfg cfg) {
    return printTablePage(out, cfg, true);
}

std::ostream& HwDatablock2Edition::printDebugPageComplete(std::ostream& out, HwSDataBlockCfg cfg) {
    return printTablePage(out, cfg, false);
}

std::ostream& HwDatablock2Edition::printTablePage(std::ostream& out, const HwSDataBlockCfg& cfg,
                                                  bool detail) {
    out << "############# NEW CONCEPT  #####################################\n";
    if (detail)
        out << "# SECTOR:              " << cfg.sector << "\n"
            << "# DATABLOCKADDRESS:  0x" << QString::number(quint32(cfg.address), 16).toStdString()
            << "\n"
            << "BLOCK ID:           USER_" << getId() << "\n"
            << "UPDATE INDEX:       " << textOf(getUpdateIndex()) << "\n";
    else
        out << "ID:                 USER_" << getId() << "\n"
            << "UPDATE_INDEX:       " << textOf(getUpdateIndex()) << "\n";
    out << "ROWS:               " << getNumberOfRows(0) << "\n"
        << "COLUMNS:            " << getNumberOfColumns(0) << "\n"
        << "ROW_ID_TYPE:        " << getTypeString(getRowIdType()) << "\n"
        << "COLUMN_ID_TYPE:     " << getTypeString(getColumnIdType()) << "\n"
        << "#=======================================================================\n";

    // The first table, as far as the image holds it.
    TableWalk walk(reinterpret_cast<const unsigned char*>(image().constData()),
                   static_cast<std::uint64_t>(imageLength()), layout::PadUnit);
    walk.walkTables(columnTypesOffset() - 6);
    const HwSBlockDescription& table = walk.blocks().front();
    const std::size_t columns = table.colTypes.size();
    columnTypes.clear();
    for (std::size_t c = 0; c < columns; ++c)
        columnTypes.insert(unsigned(c), static_cast<ETypeId>(table.colTypes[c]));

    std::vector<std::vector<std::string>> lines;
    if (detail) {
        lines.push_back({"# COL"});
        const QList<QByteArray> ids = layout::identifiers(table.colIds, table.colIdType, columns);
        for (std::size_t c = 0; c < columns; ++c)
            lines.back().push_back(table.colIdType == NONE ? textOf(c)
                                   : c < std::size_t(ids.size())
                                       ? elementText(ids[int(c)], table.colIdType)
                                       : std::string());
    }
    const QStringList descriptions = cfg.columnDescriptions.split(cfg.descriptionSeparator);
    lines.push_back({"DESC:"});
    lines.push_back({"TYPE:"});
    for (std::size_t c = 0; c < columns; ++c) {
        lines[lines.size() - 2].push_back(
            c < std::size_t(descriptions.size()) ? descriptions[int(c)].toStdString() : "");
        lines.back().push_back(getTypeString(columnTypes.typeOf(unsigned(c))));
    }

    const QList<QByteArray> rowIds =
        layout::identifiers(table.rowIds, table.rowIdType, table.rowCount);
    std::size_t rowsRead = std::size_t(rowIds.size());
    for (const auto& values : table.values)
        rowsRead = std::max(rowsRead, values.size());
    const layout::Rendering shown =
        layout::rendering(table, columns, std::min<std::size_t>(rowsRead, table.rowCount));
    for (std::size_t r = 0; r < shown.rows; ++r) {
        // Without row identifiers the row number stands in their place.
        lines.push_back({table.rowIdType == NONE ? textOf(r)
                         : r < std::size_t(rowIds.size())
                             ? elementText(rowIds[int(r)], table.rowIdType)
                             : std::string()});
        for (std::size_t c = 0; c < shown.columns; ++c) {
            const bool held = c < table.values.size() && r < table.values[c].size();
            lines.back().push_back(held ? elementText(table.values[c][r], table.colTypes[c]) : "");
        }
    }
    printColumns(out, lines, {detail ? std::size_t(13) : std::size_t(0)});
    out << "\n";
    return out;
}

} // namespace Tupsim
