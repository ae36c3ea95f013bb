// How sweeps, tolerances and lists of values are read, and what is said of those that cannot be.
#include "study/words.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>
#include <utility>

#include "core/nearest.h"

namespace verlink::study {

namespace {

std::vector<std::string> Split(const std::string& text, char mark) {
    std::vector<std::string> parts{""};
    for (const char letter : text)
        if (letter == mark)
            parts.emplace_back();
        else
            parts.back() += letter;
    return parts;
}

template <class T>
std::optional<T> Read(const std::string& text) {
    T number{};
    const char* end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, number);
    if (read.ec != std::errc() || read.ptr != end) return std::nullopt;
    if constexpr (std::is_floating_point_v<T>)
        if (!std::isfinite(number)) return std::nullopt;
    return number;
}

/// The field in front of the first equals sign.
std::optional<int> Field_Of(const std::string& text, const Design& design, std::string& fault) {
    return Field_Named(text.substr(0, text.find('=')), design, fault);
}

bool Take_Sweep(const std::string& text, const std::string& called, const Design& design, Plan& plan,
                std::string& fault) {
    const auto parts = Split(text.substr(std::min(text.find('=') + 1, text.size())), ':');
    std::optional<double> from, to;
    std::optional<Number> count;
    if (text.find('=') != std::string::npos && parts.size() == 3) {
        from = Read<double>(parts[0]);
        to = Read<double>(parts[1]);
        count = Read<Number>(parts[2]);
    }
    if (!from || !to || !count || *count == 0) {
        fault = called + " wants FIELD=FROM:TO:COUNT, as in L2=1:2:11, not \"" + text + "\"";
        return false;
    }
    const auto field = Field_Of(text, design, fault);
    if (!field) return false;
    for (const Sweep& other : plan.sweeps)
        if (other.field == *field) {
            fault = std::string(Fields()[static_cast<std::size_t>(*field)].name) + " is swept twice";
            return false;
        }
    plan.sweeps.push_back({*field, *from, *to, *count});
    return true;
}

std::optional<Spread> Spread_Named(const std::string& name, std::string& fault) {
    if (name == "normal") return Spread::kNormal;
    if (name == "uniform") return Spread::kUniform;
    if (name == "worst") return Spread::kWorst;
    const std::string meant = Nearest(name, {"normal", "uniform", "worst"});
    fault = "a tolerance is normal, uniform or worst, not \"" + name + "\"" +
            (meant.empty() ? "" : "; did you mean " + meant + "?");
    return std::nullopt;
}

bool Take_Tolerance(const std::string& text, const std::string& called, const Design& design, Plan& plan,
                    std::string& fault) {
    const bool equals = text.find('=') != std::string::npos;
    const auto parts = Split(equals ? text.substr(text.find('=') + 1) : "", ':');
    const auto plus_minus = Read<double>(parts[0]);
    if (!plus_minus || *plus_minus < 0 || parts.size() > 2) {
        fault = called + " wants FIELD=PLUSMINUS, as in L2=0.01, not \"" + text + "\"";
        return false;
    }
    const auto field = Field_Of(text, design, fault);
    if (!field) return false;
    const auto spread = parts.size() < 2 ? Spread::kNormal : Spread_Named(parts[1], fault);
    if (!spread) return false;
    for (const Tolerance& other : plan.tolerances)
        if (other.field == *field) {
            fault = std::string(Fields()[static_cast<std::size_t>(*field)].name) + " has two tolerances";
            return false;
        }
    plan.tolerances.push_back({*field, *plus_minus, *spread});
    return true;
}

/// Cells of a line, without quotes about them.
std::vector<std::string> Cells(std::string line) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    std::vector<std::string> cells{""};
    bool quoted = false;
    for (const char letter : line) {
        if (letter == '"')
            quoted = !quoted;
        else if (letter == ',' && !quoted)
            cells.emplace_back();
        else
            cells.back() += letter;
    }
    return cells;
}

template <class T>
std::string Digits(T value) {
    char digits[sizeof "-1.7976931348623157e+308"];
    return {digits, std::to_chars(digits, std::end(digits), value).ptr};
}

}  // namespace

bool Take_List(const std::string& content, const std::string& called, const Design& design, List& list,
               std::string& fault) {
    int number = 0;
    for (const std::string& line : Split(content, '\n')) {
        ++number;
        if (line.empty() || line == "\r") continue;
        const std::vector<std::string> cells = Cells(line);
        if (list.fields.empty()) {
            for (const std::string& cell : cells) {
                const auto field = Field_Named(cell, design, fault);
                if (!field) return false;
                list.fields.push_back(*field);
            }
            continue;
        }
        std::vector<double> row;
        for (const std::string& cell : cells)
            if (const auto value = Read<double>(cell)) row.push_back(*value);
        if (row.size() != list.fields.size() || cells.size() != row.size()) {
            fault = called + ", line " + std::to_string(number) + ": there are to be " +
                    std::to_string(list.fields.size()) + " numbers, not \"" + line + "\"";
            return false;
        }
        list.rows.push_back(std::move(row));
    }
    if (list.rows.empty()) fault = called + " has no rows";
    return !list.rows.empty();
}

std::optional<Study> Study_Of(const Words& words, Design design, std::string& fault) {
    Study study{std::move(design), {}, {}, {}};
    Plan& plan = study.plan;
    for (const std::string& text : words.sweeps)
        if (!Take_Sweep(text, words.sweep_called, study.design, plan, fault)) return std::nullopt;
    plan.list = words.list;
    for (const std::string& text : words.tolerances)
        if (!Take_Tolerance(text, words.tolerance_called, study.design, plan, fault)) return std::nullopt;
    plan.samples = words.samples;
    plan.seed = words.seed;
    for (const std::string& text : words.measures) {
        const auto measure = Measure_Of(text, words.local, fault);
        if (!measure) return std::nullopt;
        study.measures.push_back(*measure);
    }
    for (const std::string& text : words.keeps) {
        const auto keep = Keep_Of(text, words.local, fault);
        if (!keep) return std::nullopt;
        study.keeps.push_back(*keep);
    }
    fault = Fault_Of(study);
    return fault.empty() ? std::optional(std::move(study)) : std::nullopt;
}

std::string Shortest(double value) { return Digits(value); }
std::string Shortest(float value) { return Digits(value); }

}  // namespace verlink::study
