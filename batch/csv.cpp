// How numbers and texts stand in a line.
#include "batch/csv.h"

#include <array>
#include <charconv>

#include "core/linkage_model.h"

namespace verlink {

std::string Shortest(Single value) {
    std::array<char, 32> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), static_cast<float>(value)).ptr;
    return {digits.data(), end};
}

std::optional<std::uint64_t> Whole_Number(std::string_view text) {
    std::uint64_t number{};
    const char* end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, number);
    return read.ec == std::errc() && read.ptr == end ? std::optional(number) : std::nullopt;
}

std::string Csv_Field(const std::string& text) {
    if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
    std::string field = "\"";
    for (const char letter : text) {
        if (letter == '"') field += '"';
        field += letter;
    }
    return field + '"';
}

std::string Csv(const std::vector<Column>& columns) {
    std::string table;
    for (const Column& column : columns) table += (table.empty() ? "" : ",") + Csv_Field(column.name);
    table += '\n';
    const std::size_t rows = columns.front().values.size();
    for (std::size_t row = 0; row < rows; ++row) {
        for (const Column& column : columns)
            table += (&column == &columns.front() ? "" : ",") + Shortest(column.values[row]);
        table += '\n';
    }
    return table;
}

int Closed_Positions() {
    int closed = 0;
    for (int step = 0; step <= Model.NSteps; ++step) closed += Model.RunTable.Assembled(step) ? 1 : 0;
    return closed;
}

}  // namespace verlink
