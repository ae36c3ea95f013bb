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

class StudiesFound : public Studies {
   protected:
    StudiesFound() {
        platform::Use_Clipboard([this](const std::string& text) { copied = text; });
    }
    ~StudiesFound() override { platform::Use_Clipboard(nullptr); }

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
