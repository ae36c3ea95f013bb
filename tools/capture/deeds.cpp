// Reads screens for the account of a walk.
#include "tools/capture/deeds.h"

#include <sstream>

#include "platform/grid.h"

namespace verlink::capture {

namespace {

/// What a name stands for in an account.
struct Sight {
    std::string name, of;
    int at = platform::kNoIndex;
};

std::vector<Sight> Sights_In(const char* words) {
    std::vector<Sight> sights;
    std::istringstream in(words);
    for (std::string part; std::getline(in, part, ',');) {
        std::istringstream one(part);
        Sight& sight = sights.emplace_back();
        if (int at = 0; one >> sight.name >> sight.of >> at) sight.at = at;
    }
    return sights;
}

std::string Shown_In(const Screen& screen, const Sight& sight) {
    if (const auto* box = screen.FindAs<platform::TextBox>(sight.of, sight.at)) return box->Text;
    if (const auto* label = screen.FindAs<platform::Label>(sight.of, sight.at)) return label->Caption;
    return "";
}

}  // namespace

Deed Typing(const char* boxes) {
    return [boxes](Screen& s) {
        std::istringstream words(boxes);
        std::string box;
        for (std::string word; words >> word;) {
            const std::size_t equals = word.find('=');
            if (equals == std::string::npos)
                box = word;
            else
                Fill(s, box.c_str(), equals ? std::stoi(word) : platform::kNoIndex, word.substr(equals + 1).c_str());
        }
    };
}

Deed Seeing(const char* sights) {
    return [sights](Screen& s) {
        for (const Sight& sight : Sights_In(sights)) Account("saw", sight.name + " " + Shown_In(s, sight));
    };
}

Deed Seeing_Cells(const char* sights) {
    return [sights](Screen& s) {
        const auto& table = s.Get<platform::Grid>("grd_Data");
        for (const Sight& sight : Sights_In(sights)) {
            int row = 0;
            while (row < table.Rows() && Plain(table.Cell(row, 0)) != sight.of) ++row;
            if (row < table.Rows()) Account("saw", sight.name + " " + Plain(table.Cell(row, sight.at)));
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
