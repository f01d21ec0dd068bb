// epromtool table and report: CSV and JSON against the calibration text's numbers, the exit
// codes, and a report of hostile images.
#include "ToolHarness.h"
#include "support/TestImages.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <gtest/gtest.h>

using namespace Tupsim;
using namespace Tupsim::test;

namespace {

// The value lines of a section of the sample's calibration text: label, then the values.
QStringList sectionRows(const QString& name) {
    const QStringList lines = QString::fromUtf8(example("sample.cal")).split(QLatin1Char('\n'));
    QStringList rows;
    for (int at = lines.indexOf("ID:  " + name) + 1; at > 0 && at < lines.size(); ++at) {
        if (lines[at].isEmpty() && !rows.isEmpty())
            break;
        const QStringList words =
            lines[at].split(QRegularExpression("[:\\s]+"), Qt::SkipEmptyParts);
        if (!words.isEmpty() && words[0] != "COUNT" && !words[0].startsWith("DESCRIPTOR"))
            rows << words.join(',');
    }
    return rows;
}

} // namespace

TEST(ToolTable, CsvAndJsonCarryTheCalibrationTextsNumbersAndTheAxis) {
    ToolHarness tool;
    tool.write("sample.eeprom", example("sample.eeprom"));
    const struct {
        const char* data;
        const char* freq;
        int id;
    } cases[] = {{"RFBO_ALC_DATA", "RFBO_ALC_FREQ", 15731},
                 {"RFBO_ATT_CAL_VEC_DATA", "RFBO_ATT_CAL_VEC_FREQ", 15843},
                 {"RFBO_RFLEVEL_MAX_DATA", "RFBO_RFLEVEL_MAX_FREQ", 15716},
                 {"RFBO_EXT_CAL_VEC_USER_DATA", "RFBO_EXT_CAL_VEC_USER_FREQ", 16003}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.data);
        const ToolResult csv =
            tool.run({"table", "sample.eeprom", "--id", QString::number(c.id), "--csv"});
        EXPECT_EQ(csv.exitCode, 0);
        QStringList axis;
        for (const QString& row : sectionRows(c.freq))
            axis << row.section(',', 1);
        EXPECT_EQ(csv.out,
                  "Hz," + axis.join(',') + "\r\n" + sectionRows(c.data).join("\r\n") + "\r\n");
    }
    const ToolResult json = tool.run({"table", "sample.eeprom", "--id", "15716", "--json"});
    ASSERT_EQ(json.exitCode, 0);
    const QJsonObject table = QJsonDocument::fromJson(json.out.toUtf8()).object();
    EXPECT_EQ(table["shape"].toArray(), QJsonArray({2, 8}));
    EXPECT_EQ(table["capacity"].toArray(), QJsonArray({2, 128}));
    EXPECT_EQ(table["factor"].toDouble(), 0.01);
    EXPECT_EQ(table["rawType"].toString(), "int32");
    EXPECT_EQ(table["rows"].toArray(), QJsonArray({1, 2}));
    EXPECT_EQ(table["values"].toArray()[0].toArray()[3].toDouble(),
              1940 * 0.01); // as the class hands it out
    EXPECT_EQ(table["raw"].toArray()[0].toArray()[3].toDouble(), 1940);
    const QJsonObject axis = table["axis"].toObject();
    EXPECT_EQ(axis["name"].toString(), "RFBO_RFLEVEL_MAX_FREQ");
    EXPECT_EQ(axis["hz"].toArray().first().toDouble(), 1e6);
    EXPECT_EQ(axis["hz"].toArray().size(), 8);

    const ToolResult text = tool.run({"table", "sample.eeprom", "--id", "15731"});
    EXPECT_EQ(text.outLines().mid(0, 3),
              QStringList({"RFBO_ALC_DATA (id 15731) at 0x00a4: 4*10 of 4*10 int32, factor 1",
                           "axis: RFBO_ALC_FREQ (id 15730), 10 points",
                           "row    10 MHz   100 MHz   500 MHz     1 GHz   1.5 GHz     2 GHz     "
                           "3 GHz     4 GHz     5 GHz     6 GHz"}));

    const struct {
        QStringList arguments;
        int code;
        const char* err;
    } refusals[] = {
        {{"table", "sample.eeprom", "--id", "2"},
         2,
         "epromtool: sample.eeprom: block 2 (IDENT_2) is no calibration table\n"},
        {{"table", "sample.eeprom", "--id", "15735"},
         2,
         "epromtool: sample.eeprom: no block with id 15735\n"},
        {{"table", "sample.eeprom", "--id", "15731", "--index", "2"},
         2,
         "epromtool: sample.eeprom: no block 2 with id 15731\n"},
        {{"table", "sample.eeprom", "--id", "15731", "--csv", "--json"},
         64,
         "epromtool: table: --csv and --json exclude each other (see 'epromtool table --help')\n"},
        {{"table", "sample.eeprom"},
         64,
         "epromtool: table: missing --id N (see 'epromtool table --help')\n"},
        {{"report", "sample.eeprom", "sample.eeprom", "third"},
         64,
         "epromtool: report: unexpected argument 'third' (see 'epromtool report --help')\n"}};
    for (const auto& r : refusals) {
        SCOPED_TRACE(r.arguments.join(' ').toStdString());
        const ToolResult result = tool.run(r.arguments);
        EXPECT_EQ(result.exitCode, r.code);
        EXPECT_EQ(result.err, r.err);
        EXPECT_EQ(result.out, "");
    }
}

TEST(ToolReport, HostileImagesStillGiveAReportWithTheirProblems) {
    ToolHarness tool;
    tool.write("sample.eeprom", example("sample.eeprom"));
    for (const BrokenChain& c : brokenChains()) {
        SCOPED_TRACE(c.what);
        tool.write("broken.bin", c.image);
        const ToolResult result =
            tool.run({"report", "broken.bin", "sample.eeprom", "-o", "r.html"});
        EXPECT_EQ(result.exitCode, 2);
        const QString html = QString::fromUtf8(tool.read("r.html"));
        EXPECT_TRUE(html.endsWith("</body></html>\n"));
        EXPECT_TRUE(html.contains(QStringLiteral("<li>%1: %2</li>")
                                      .arg(hex4(c.offset), QString(c.problem).toHtmlEscaped())));
        EXPECT_EQ(html.count("<div class=\"table\""), 8);
    }
    // A field holding markup is shown as text.
    QByteArray image = example("sample.eeprom");
    const int name = image.indexOf("RF-BOARD 6G");
    image.replace(name, 8, "<b>&x</b");
    tool.write("markup.eeprom", image);
    const ToolResult result = tool.run({"report", "markup.eeprom"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_TRUE(result.out.contains("&lt;b&gt;&amp;x&lt;/b"));
    EXPECT_FALSE(result.out.contains("<b>&x"));
}

TEST(ToolReport, PlotsTickAtRoundValuesCountTheirPointsAndDashTheSecondImage) {
    ToolHarness tool;
    tool.write("sample.eeprom", example("sample.eeprom"));
    ASSERT_EQ(tool.run({"report", "sample.eeprom", "sample.eeprom", "-o", "r.html"}).exitCode, 0);
    const QString html = QString::fromUtf8(tool.read("r.html"));
    // RFBO_ALC_DATA spans 1812 to 2562: a tick every 200 from 2000.
    const int alc = html.indexOf("data-name=\"RFBO_ALC_DATA\"");
    QStringList ticks;
    const QRegularExpression tick(R"(text-anchor="end">([^<]*)<)");
    for (auto it = tick.globalMatch(html.mid(alc, html.indexOf("</svg>", alc) - alc));
         it.hasNext();)
        ticks << it.next().captured(1);
    EXPECT_EQ(ticks, QStringList({"2000", "2200", "2400"}));
    // Every line counts its points; the second image's lines alone are dashed.
    const QRegularExpression line(
        R"re(<polyline class="line" data-label="[^"]*\((A|B)\)" )re"
        R"re(data-points="(\d+)" points="([^"]*)"[^>]*?( stroke-dash|/>))re");
    int lines = 0;
    for (auto it = line.globalMatch(html); it.hasNext(); ++lines) {
        const QRegularExpressionMatch m = it.next();
        EXPECT_EQ(m.captured(2).toInt(), m.captured(3).split(' ', Qt::SkipEmptyParts).size());
        EXPECT_EQ(m.captured(4) == "/>", m.captured(1) == "A") << m.captured(0).toStdString();
    }
    EXPECT_EQ(lines, 32); // 16 lines of 8 tables in each image
}
