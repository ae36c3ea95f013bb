// Chapters as lines of text, for tests that read them whole.
#pragma once

#include <algorithm>

#include "core/text.h"
#include "report/pieces.h"
#include "tests/report/report_fixture.h"

namespace verlink::test {

using Lines = std::vector<std::string>;

inline std::string Joined(const std::vector<std::string>& words) {
    std::string line;
    for (const std::string& word : words) line += (&word == &words.front() ? "" : " | ") + word;
    return line;
}

/// Headings, texts and the rows of tables; of a picture its caption.
inline Lines Lines_Of(const std::vector<Report_Piece>& pieces) {
    Lines lines;
    for (const Report_Piece& piece : pieces) {
        if (const auto* heading = std::get_if<Report_Heading>(&piece)) lines.push_back("# " + heading->words);
        if (const auto* text = std::get_if<Report_Text>(&piece)) lines.push_back(text->words);
        if (const auto* picture = std::get_if<Report_Picture>(&piece)) lines.push_back("[" + picture->caption + "]");
        const auto* table = std::get_if<Report_Table>(&piece);
        if (!table) continue;
        if (!table->heads.empty()) lines.push_back(Joined(table->heads));
        for (const auto& row : table->rows) lines.push_back(Joined(row));
    }
    return lines;
}

class Whole_Chapters : public Reports {
   protected:
    static Lines Lines_In(Chapter chapter, const std::vector<Output_Function>& plots = {}) {
        const auto report = Make_Report(Model, {{chapter}, plots, ""}, [](double) { return true; });
        return report && !report->chapters.empty() ? Lines_Of(report->chapters.front().pieces) : Lines{};
    }
    static Lines From(const Lines& lines, const std::string& first) {
        return {std::ranges::find(lines, first), lines.end()};
    }
    static void Take_Linkage(int units) {
        Use_Units(units);
        auto& m = Model;
        m.L1 = 2.66666F;
        m.L2 = 1.115F;
        m.L3 = 2.5;
        m.L4 = 2.25;
        m.Rpa = 1.69712F;
        m.Delta = -92.666F;
        m.Link1Angle = 12.346F;
        m.Link1X = 2.6049F;
        m.Link1Y = 0.5702F;
        m.CircuitName = "Crossed";
        m.Omega2Input = 12.5;
        m.Alpha2 = -3.75;
        m.TimeStart = 0.25;
        m.TimeEnd = 1.5;
        m.TimeStep = 0.125;
        m.ThetaZero = 33.5;
        m.ThetaStartStr = "10";
        m.ThetaEndStr = "350";
        m.ThetaStepStr = "2.5";
        m.Delta2 = 4.5;
        m.Model5Name = "other.vlk";
    }
};

}  // namespace verlink::test
