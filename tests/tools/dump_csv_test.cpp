// trelvin-dump --csv against its own JSON lines: for every applied event and player the row holds
// the values of that event's line, names with commas and quotes come back whole, and a failed
// load prints the header alone.
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <utility>

#include <sys/wait.h>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "support/generated_lines.h"

namespace {

using json = nlohmann::json;
using Row = std::vector<std::string>;

// What the dump prints to standard output for `arguments`, and its exit status.
std::pair<std::string, int> RunDump(const std::string& arguments) {
    const std::string command = std::string(TRELVIN_DUMP) + " " + arguments + " 2>/dev/null";
    FILE* pipe = popen(command.c_str(), "r");
    std::string out;
    char buffer[65536];
    for (std::size_t n; (n = std::fread(buffer, 1, sizeof buffer, pipe)) > 0;) out.append(buffer, n);
    return {out, WEXITSTATUS(pclose(pipe))};
}

// Rows of CSV as RFC 4180 has them: CR LF between rows, quotes around fields with a comma, a
// quote or a line break, quotes inside doubled.
std::vector<Row> ParseCsv(const std::string& text) {
    std::vector<Row> rows;
    Row row;
    std::string field;
    bool quoted = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (quoted) {
            if (c != '"') field += c;
            else if (i + 1 < text.size() && text[i + 1] == '"') field += text[++i];
            else quoted = false;
        } else if (c == '"') {
            quoted = true;
        } else if (c == ',') {
            row.push_back(std::exchange(field, {}));
        } else if (c == '\r' && i + 1 < text.size() && text[i + 1] == '\n') {
            row.push_back(std::exchange(field, {}));
            rows.push_back(std::exchange(row, {}));
            ++i;
        } else {
            field += c;
        }
    }
    EXPECT_TRUE(field.empty() && row.empty()) << "the last row has no CR LF";
    return rows;
}

std::string Number(const json& value) { return std::to_string(value.get<long long>()); }

// The CSV of `path` row by row against its JSON lines; the rows compared.
int CompareCsvWithJson(const std::string& path) {
    const auto [csv, csvStatus] = RunDump("--csv '" + path + "'");
    const auto [lines, jsonStatus] = RunDump("'" + path + "'");
    EXPECT_EQ(std::pair(csvStatus, jsonStatus), std::pair(0, 0));
    const std::vector<Row> rows = ParseCsv(csv);
    EXPECT_FALSE(rows.empty());
    if (rows.empty()) return 0;
    EXPECT_EQ(rows[0], (Row{"index", "time", "player", "side", "moves", "nectar", "nectarPerHour", "territory",
                            "armyUnits", "hqField", "playing"}));
    std::size_t next = 1;
    std::istringstream stream(lines);
    std::string text;
    std::getline(stream, text);  // the load
    while (std::getline(stream, text)) {
        const json line = json::parse(text);
        if (!line.contains("time")) continue;  // not applied: no row
        for (const json& player : line["players"]) {
            if (next >= rows.size()) {
                ADD_FAILURE() << "no row for event " << line["index"];
                return int(next - 1);
            }
            const Row expected{Number(line["index"]),
                               line["time"],
                               player["name"],
                               player["side"],
                               Number(player["moves"]),
                               Number(player["nectar"]),
                               Number(player["nectarPerHour"]),
                               Number(player["territory"]),
                               Number(player["armyUnits"]),
                               player["hqField"],
                               player["playing"].get<bool>() ? "1" : "0"};
            EXPECT_EQ(rows[next], expected) << "row " << next;
            ++next;
        }
    }
    EXPECT_EQ(next, rows.size()) << "rows beyond the JSON lines";
    return int(next - 1);
}

class DumpCsvTest : public ::testing::Test {
protected:
    std::string write(const std::string& name, const std::string& bytes) {
        const std::string path = (directory_ / name).string();
        std::ofstream(path, std::ios::binary) << bytes;
        return path;
    }
    void TearDown() override { std::filesystem::remove_all(directory_); }

private:
    std::filesystem::path directory_ = [] {
        std::string pattern = (std::filesystem::temp_directory_path() / "dump-csv-XXXXXX").string();
        return std::filesystem::path(mkdtemp(pattern.data()));
    }();
};

TEST_F(DumpCsvTest, EveryRowHoldsTheValuesOfItsEventsJsonLine) {
    // A generated replay has every action; made hostile: failing actions, captures, a player named
    // with a comma and a quote (Windows-1250 letters besides), the world created again in the middle.
    trelvin::testing::GeneratedLines hostile({10, 8, 3, 600, 9});
    hostile.insertEvery(53, {"move;A0;Z99;5", "attack;A0;B0;5;1;3", "create_hq;\"Ha,n\xE8\"\" a\";louka;E5",
                             "buy;A4;Hovado;30000", "end;louka"});
    hostile.insert(hostile.lines.size() / 2, hostile.lines[1].substr(20));
    const int rows = CompareCsvWithJson(write("hostile.trp", hostile.text()));
    EXPECT_GT(rows, 1000);
}

TEST_F(DumpCsvTest, AFailedLoadPrintsTheHeaderAlone) {
    const std::string header =
        "index,time,player,side,moves,nectar,nectarPerHour,territory,armyUnits,hqField,playing\r\n";
    EXPECT_EQ(RunDump("--csv '" + write("broken.trp", "0;Zlomeny;2;x;2;3\r\n") + "'"), std::pair(header, 0));
}

}  // namespace
