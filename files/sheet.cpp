// Tables as text.
#include "files/sheet.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <cmath>

namespace verlink {

namespace {

/// "Veloc CP X (in/sec)".
std::string Head_Of(const Sheet_Column& column) {
    std::string head = column.name;
    if (!column.component.empty()) head += " " + column.component;
    if (!column.unit.empty()) head += " (" + column.unit + ")";
    return head;
}

/// A cell of a text, in quotes where it would come apart.
std::string Cell_Of(const std::string& text, char separator) {
    if (text.find_first_of(std::string("\"\r\n") + separator) == std::string::npos) return text;
    std::string cell = "\"";
    for (const char letter : text) {
        if (letter == '"') cell += '"';
        cell += letter;
    }
    return cell + '"';
}

std::string Shortest_Text(double value) {
    if (!std::isfinite(value)) return {};
    std::array<char, 32> digits;
    return {digits.data(), std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr};
}

}  // namespace

double Decimal_Of(Single value) {
    std::array<char, 32> digits;
    const auto* end = std::to_chars(digits.data(), digits.data() + digits.size(), static_cast<float>(value)).ptr;
    double decimal{};
    std::from_chars(digits.data(), end, decimal);
    return decimal;
}

Sheet_Kind Sheet_Kind_Of(const std::string& path) {
    std::string end = path.substr(std::min(path.size(), path.find_last_of('.')));
    std::ranges::transform(end, end.begin(), [](unsigned char letter) { return std::tolower(letter); });
    if (end == ".csv") return Sheet_Kind::kCsv;
    return end == ".txt" || end == ".tsv" || end == ".dat" ? Sheet_Kind::kTabs : Sheet_Kind::kXlsx;
}

std::string Separated_Text(const Sheet& sheet, char separator) {
    std::string text;
    std::size_t rows = 0;
    for (const Sheet_Column& column : sheet.columns) {
        if (&column != &sheet.columns.front()) text += separator;
        text += Cell_Of(Head_Of(column), separator);
        rows = std::max(rows, column.values.size());
    }
    text += "\r\n";
    for (std::size_t row = 0; row < rows; ++row) {
        for (const Sheet_Column& column : sheet.columns) {
            if (&column != &sheet.columns.front()) text += separator;
            if (row < column.values.size()) text += Shortest_Text(column.values[row]);
        }
        text += "\r\n";
    }
    return text;
}

std::string Sheet_File(Sheet_Kind kind, const Sheet& sheet, const std::vector<Sheet_Fact>& model,
                       const std::string& author) {
    switch (kind) {
        case Sheet_Kind::kCsv: return Separated_Text(sheet, ',');
        case Sheet_Kind::kTabs: return Separated_Text(sheet, '\t');
        default: return Workbook(sheet, model, author);
    }
}

}  // namespace verlink
