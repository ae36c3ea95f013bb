// What other programs make of the files that this one writes.
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace verlink::test {

/// What a command prints, line by line; a failure of the test where it fails. tools/setup installs what they need.
inline std::vector<std::string> Said_By(const std::string& command) {
    std::vector<std::string> lines;
    FILE* pipe = ::popen(command.c_str(), "r");
    if (!pipe) return lines;
    std::string said;
    std::array<char, 4096> part;
    while (const std::size_t size = std::fread(part.data(), 1, part.size(), pipe)) said.append(part.data(), size);
    EXPECT_EQ(::pclose(pipe), 0) << command << "\n" << said;
    std::istringstream text(said);
    for (std::string line; std::getline(text, line);) lines.push_back(line);
    return lines;
}

/// A script of tests/readers/, by the Python that has the system's packages.
inline std::string Reader(const std::string& script, const std::string& path) {
    return "/usr/bin/python3 '" + std::string(VERLINK_TESTS) + "/readers/" + script + "' '" + path + "' 2>&1";
}

/// An entity of a drawing.
struct Dxf_Entity {
    std::string layer, kind;
    std::vector<double> numbers;
};
struct Dxf_Read {
    std::string unit;  ///< "unit 4 AC1009"
    std::vector<Dxf_Entity> entities;
    std::vector<Dxf_Entity> On(const std::string& layer) const {
        std::vector<Dxf_Entity> found;
        for (const Dxf_Entity& entity : entities)
            if (entity.layer == layer) found.push_back(entity);
        return found;
    }
};
/// Several at once, since the reader takes longer to begin than to read.
inline std::vector<Dxf_Read> Read_Dxfs(const std::vector<std::string>& paths) {
    std::string all;
    for (const std::string& path : paths) all += (all.empty() ? "" : "' '") + path;
    std::vector<Dxf_Read> reads;
    for (const std::string& line : Said_By(Reader("dxf.py", all))) {
        if (line.starts_with("unit ")) {
            reads.push_back({line, {}});
            continue;
        }
        std::istringstream words(line);
        Dxf_Entity& entity = reads.at(reads.size() - 1).entities.emplace_back();
        words >> entity.layer >> entity.kind;
        for (double number = 0; words >> number;) entity.numbers.push_back(number);
    }
    EXPECT_EQ(reads.size(), paths.size());
    reads.resize(paths.size());
    return reads;
}
inline Dxf_Read Read_Dxf(const std::string& path) { return Read_Dxfs({path}).front(); }

/// A workbook, by "SHEET!CELL".
struct Xlsx_Read {
    std::map<std::string, std::string> about;  ///< "title", "author" and "remark"
    std::vector<std::string> sheets;           ///< name and where its heads are frozen
    std::map<std::string, double> numbers;
    std::map<std::string, std::string> formats, texts;
    std::map<std::string, std::string> looks;  ///< "bold center FFE6EBF2"
    std::vector<std::string> widths;           ///< by sheet: "Table! 1 2 13.7109375"
};
inline Xlsx_Read Read_Xlsx(const std::string& path) {
    Xlsx_Read read;
    std::string sheet;
    for (const std::string& line : Said_By(Reader("xlsx.py", path))) {
        if (read.about.size() < 3) {
            const std::size_t blank = line.find(' ');
            read.about[line.substr(0, blank)] = line.substr(blank + 1);
            continue;
        }
        if (line.starts_with("sheet ")) {
            read.sheets.push_back(line.substr(6));
            sheet = line.substr(6, line.rfind(' ') - 6) + "!";
            continue;
        }
        std::istringstream words(line);
        std::string cell, kind;
        words >> cell >> kind;
        if (cell == "width") {
            read.widths.push_back(sheet + line.substr(5));
            continue;
        }
        if (cell == "look") {
            read.looks[sheet + kind] = line.substr(cell.size() + kind.size() + 2);
            continue;
        }
        if (kind == "n") {
            words >> read.numbers[sheet + cell];
            words >> read.formats[sheet + cell];
        } else {
            read.texts[sheet + cell] = line.substr(cell.size() + 3);
        }
    }
    return read;
}

}  // namespace verlink::test
