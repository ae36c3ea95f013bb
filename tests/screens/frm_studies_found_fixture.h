// What a user reads off the screen of studies, whose measure is 7 times the length of the crank.
#pragma once

#include <algorithm>
#include <cmath>
#include <sstream>
#include <string>
#include <vector>

#include "core/numeric.h"
#include "core/text.h"
#include "platform/clipboard.h"
#include "tests/screens/frm_studies_fixture.h"
#include "tests/support/files.h"

namespace verlink::test {

inline constexpr char kPin[] = "max Veloc I 2,3:Mag";

class StudiesFound : public Studies {
   protected:
    StudiesFound() {
        platform::Use_Clipboard([this](const std::string& text) { copied = text; });
    }
    ~StudiesFound() override { platform::Use_Clipboard(nullptr); }

    /// Cranks of 0.5 to 1.5 inches, or as many millimetres, 0.05 apart.
    void Sweep_Cranks(const char* from = "0.5", const char* to = "1.5", const char* count = "21") {
        Put_Box("txt_From", 1, from);
        Put_Box("txt_To", 1, to);
        Put_Box("txt_Count", 1, count);
        Write(0, kPin);
    }
    /// Only the crank has a tolerance.
    void Tolerate_Crank(const std::string& plus_minus, const std::string& spread, const std::string& samples) {
        Choose_Option(form, "opt_Kind", 1);
        Put_Box("txt_PlusMinus", 1, plus_minus);
        for (int row = 2; row <= 4; ++row) Choose(form.cmb_Tolerance[row], "(none)");
        Choose(form.cmb_Spread[1], spread);
        Put_Box("txt_Samples", platform::kNoIndex, samples);
        Write(0, kPin);
    }
    /// The rows of the table that the menu copies, by column.
    std::vector<std::vector<std::string>> Copied_Rows() {
        Pick_Menu(form, "mnu_CopyTable");
        std::vector<std::vector<std::string>> rows;
        std::istringstream text(copied);
        for (std::string line; std::getline(text, line);) {
            if (line.ends_with('\r')) line.pop_back();
            rows.emplace_back();
            for (std::size_t begin = 0; begin <= line.size();) {
                const std::size_t end = std::min(line.find('\t', begin), line.size());
                rows.back().push_back(line.substr(begin, end - begin));
                begin = end + 1;
            }
        }
        return rows;
    }
    std::string Picked() { return form.lbl_Picked.Caption; }
    std::string Told() { return form.lbl_Told.Caption; }
    static std::string Four(double value) { return Text_Of(FNRound(value, 4)); }
    /// The ends of the lines that were drawn from O2.
    static bool Has_Crank_Of(const LogSurface& log, double length) {
        for (const std::string& call : log.Calls) {
            std::istringstream words(call);
            std::string what;
            double x1 = 1, y1 = 1, x2 = 0, y2 = 1;
            if (words >> what >> x1 >> y1 >> x2 >> y2; what != "Line") continue;
            const bool out = x1 == 0 && y1 == 0 && std::abs(x2 - length) < 1e-5 && std::abs(y2) < 1e-5;
            const bool back = x2 == 0 && y2 == 0 && std::abs(x1 - length) < 1e-5 && std::abs(y1) < 1e-5;
            if (out || back) return true;
        }
        return false;
    }
    std::string copied;
};

}  // namespace verlink::test
