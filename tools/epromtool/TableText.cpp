// Writes a TableView as aligned text, CSV and JSON.
#include "TableText.h"

#include <EepromImage.h>
#include <QJsonArray>
#include <QJsonObject>
#include <algorithm>
#include <vector>

using Tupsim::TableView;

namespace epromtool {

namespace {

std::string columnHead(const TableView& view, quint32 col) {
    if (view.axis.present())
        return Tupsim::tableView::frequencyText(view.axis.hz[col]).toStdString();
    return std::to_string(col + 1);
}

std::string padLeft(const std::string& text, std::size_t width) {
    return text.size() >= width ? text : std::string(width - text.size(), ' ') + text;
}

QString heading(const TableView& view) {
    const Tupsim::TableContent& c = view.content;
    return QStringLiteral("%1 (id %2) at %3: %4*%5 of %6*%7 %8, factor %9")
        .arg(view.name, QString::number(view.id), Tupsim::hex16(static_cast<unsigned>(view.offset)),
             QString::number(c.rows), QString::number(c.cols), QString::number(c.maxRows),
             QString::number(c.maxCols), QString::fromStdString(c.rawType),
             QString::number(c.factor));
}

QString axisLine(const TableView& view) {
    if (view.axis.id == 0)
        return QStringLiteral("axis: none");
    if (!view.axis.present())
        return QStringLiteral("axis: none (%1)").arg(view.axis.problem);
    return QStringLiteral("axis: %1 (id %2), %3 points%4")
        .arg(view.axis.name, QString::number(view.axis.id), QString::number(view.axis.hz.size()),
             view.axis.ascending ? QString() : QStringLiteral(", not ascending"));
}

} // namespace

std::string tableText(const TableView& view) {
    std::string text = heading(view).toStdString() + "\n" + axisLine(view).toStdString() + "\n";
    if (view.content.hasDescriptors) {
        text += "descriptors:";
        for (const std::string& d : view.content.descriptors)
            text += " " + QString::fromStdString(d).trimmed().toStdString();
        text += "\n";
    }
    const quint32 rows = view.content.shownRows();
    const quint32 cols = view.content.shownCols();
    std::vector<std::string> heads{view.content.hasIndexes ? "index" : "row"};
    for (quint32 c = 0; c < cols; ++c)
        heads.push_back(columnHead(view, c));
    std::vector<std::size_t> width(heads.size());
    for (std::size_t c = 0; c < heads.size(); ++c)
        width[c] = heads[c].size();
    for (quint32 r = 0; r < rows; ++r) {
        width[0] = std::max<std::size_t>(width[0], view.rowLabels.at(static_cast<int>(r)).size());
        for (quint32 c = 0; c < cols; ++c)
            width[c + 1] = std::max(width[c + 1], view.cellText(r, c).size());
    }
    for (std::size_t c = 0; c < heads.size(); ++c)
        text += (c ? "  " : "") + padLeft(heads[c], width[c]);
    text += "\n";
    for (quint32 r = 0; r < rows; ++r) {
        text += padLeft(view.rowLabels.at(static_cast<int>(r)).toStdString(), width[0]);
        for (quint32 c = 0; c < cols; ++c)
            text += "  " + padLeft(view.cellText(r, c), width[c + 1]);
        text += "\n";
    }
    return text;
}

std::string tableCsv(const TableView& view) {
    const quint32 rows = view.content.shownRows();
    const quint32 cols = view.content.shownCols();
    std::string text = view.axis.present() ? "Hz" : "column";
    for (quint32 c = 0; c < cols; ++c)
        text += "," + (view.axis.present() ? view.axisText(c) : std::to_string(c + 1));
    text += "\r\n";
    for (quint32 r = 0; r < rows; ++r) {
        text += view.rowLabels.at(static_cast<int>(r)).toStdString();
        for (quint32 c = 0; c < cols; ++c)
            text += "," + view.cellText(r, c);
        text += "\r\n";
    }
    return text;
}

QJsonDocument tableJson(const QString& path, const TableView& view) {
    const Tupsim::TableContent& c = view.content;
    const quint32 rows = c.shownRows();
    const quint32 cols = c.shownCols();
    QJsonArray values;
    QJsonArray raw;
    for (quint32 r = 0; r < rows; ++r) {
        QJsonArray line;
        QJsonArray rawLine;
        for (quint32 col = 0; col < cols; ++col) {
            line.append(c.values[static_cast<std::size_t>(r) * cols + col]);
            rawLine.append(c.raw[static_cast<std::size_t>(r) * cols + col]);
        }
        values.append(line);
        raw.append(rawLine);
    }
    QJsonArray labels;
    for (const QString& label : view.rowLabels)
        labels.append(label.toInt());
    QJsonValue axis;
    if (view.axis.id != 0) {
        QJsonArray hz;
        for (double f : view.axis.hz)
            hz.append(f);
        axis = QJsonObject{
            {QStringLiteral("id"), view.axis.id},
            {QStringLiteral("name"), view.axis.name},
            {QStringLiteral("hz"), view.axis.present() ? QJsonValue(hz) : QJsonValue()},
            {QStringLiteral("ascending"), view.axis.ascending},
            {QStringLiteral("problem"),
             view.axis.problem.isEmpty() ? QJsonValue() : QJsonValue(view.axis.problem)}};
    }
    QJsonObject object{
        {QStringLiteral("image"), path},
        {QStringLiteral("offset"), view.offset},
        {QStringLiteral("id"), view.id},
        {QStringLiteral("name"), view.name},
        {QStringLiteral("shape"), QJsonArray{static_cast<qint64>(rows), static_cast<qint64>(cols)}},
        {QStringLiteral("counts"),
         QJsonArray{static_cast<qint64>(c.rows), static_cast<qint64>(c.cols)}},
        {QStringLiteral("capacity"),
         QJsonArray{static_cast<qint64>(c.maxRows), static_cast<qint64>(c.maxCols)}},
        {QStringLiteral("factor"), c.factor},
        {QStringLiteral("rawType"), QString::fromStdString(c.rawType)},
        {QStringLiteral("axis"), axis},
        {QStringLiteral("rows"), labels},
        {QStringLiteral("values"), values},
        {QStringLiteral("raw"), raw}};
    if (c.hasDescriptors) {
        QJsonArray descriptors;
        for (const std::string& d : c.descriptors)
            descriptors.append(QString::fromStdString(d));
        object[QStringLiteral("descriptors")] = descriptors;
    }
    return QJsonDocument(object);
}

} // namespace epromtool
