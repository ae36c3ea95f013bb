// Reads screens for the account of a walk.
#include "tools/capture/deeds.h"

#include <sstream>

#include "platform/grid.h"

namespace verlink::capture {

namespace {

std::string Shown_In(const Screen& screen, const Sight& sight) {
    if (const auto* box = screen.FindAs<platform::TextBox>(sight.control, sight.index)) return box->Text;
    if (const auto* label = screen.FindAs<platform::Label>(sight.control, sight.index)) return label->Caption;
    return "";
}

}  // namespace

Deed Seeing(std::vector<Sight> sights) {
    return [sights = std::move(sights)](Screen& s) {
        for (const Sight& sight : sights) Account("saw", std::string(sight.name) + " " + Shown_In(s, sight));
    };
}

Deed Seeing_Cells(std::vector<Cell_Sight> sights) {
    return [sights = std::move(sights)](Screen& s) {
        const auto& table = s.Get<platform::Grid>("grd_Data");
        for (const Cell_Sight& sight : sights) {
            int row = 0;
            while (row < table.Rows() && Plain(table.Cell(row, 0)) != sight.row) ++row;
            if (row < table.Rows())
                Account("saw", std::string(sight.name) + " " + Plain(table.Cell(row, sight.column)));
        }
    };
}

Deed Seeing_Lines(const char* name, const char* picture) {
    return [name, picture](Screen& s) {
        int count = 0;
        for (const std::string& line : s.Get<platform::PictureBox>(picture).Lines.Get()) {
            std::istringstream words(line);
            for (std::string word; words >> word;)
                if (word.find_first_not_of("-.0123456789") == std::string::npos &&
                    word.find_first_of("0123456789") != std::string::npos)
                    Account("saw", name + std::to_string(++count) + " " + word);
        }
    };
}

}  // namespace verlink::capture
