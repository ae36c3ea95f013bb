// A reader for numbers, sums and units, by descent.
#include "core/typed_value.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <string_view>

#include "core/number.h"
#include "core/text.h"
#include "platform/guard.h"

namespace verlink {

namespace {

constexpr int kDeepest = 40;  ///< brackets within brackets

bool Is_Mark(char c) { return c == '-' || c == '^' || c == '*' || c == '.'; }
char Small(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

/// Whether commas part a number as they part thousands: up to three digits, then three each.
bool Parts_Thousands(std::string_view number) {
    const std::size_t point = std::min(number.find('.'), number.size());
    std::string_view whole = number.substr(0, point);
    std::size_t comma = whole.find(',');
    if (comma == 0 || comma > 3 || whole.front() == '0' || number.find(',', point) != std::string_view::npos)
        return false;
    while (comma != std::string_view::npos) {
        whole.remove_prefix(comma + 1);
        comma = whole.find(',');
        if (std::min(comma, whole.size()) != 3) return false;
    }
    return true;
}

class Reader {
   public:
    Reader(std::string_view text, const TypedForm& form) : text_(text), form_(form) {}

    /// The value of the text as a whole; nothing when there is more to it than can be read.
    std::optional<double> Whole() {
        double sum = 0, sign = 1;
        int with_unit = 0, terms = 0;
        for (bool more = true; more; ++terms) {
            const std::optional<double> term = Product(0);
            if (!term) return {};
            const std::optional<double> factor = Unit();
            sum += sign * *term * factor.value_or(1);
            with_unit += factor ? 1 : 0;
            more = Take("+-");
            sign = text_[at_ - 1] == '-' ? -1 : 1;
        }
        const bool all = at_ == text_.size() && (with_unit == 0 || with_unit == terms);
        return all && std::isfinite(sum) ? std::optional(sum) : std::nullopt;
    }
    /// Whether it ended at a comma that has two meanings.
    bool Either_Way() const { return either_way_; }

   private:
    char Next() const { return Char_At(text_, at_); }
    void Skip_Blanks() {
        while (Is_Blank(Next())) ++at_;
    }
    bool Take(std::string_view any) {
        Skip_Blanks();
        if (at_ == text_.size() || any.find(Next()) == std::string_view::npos) return false;
        ++at_;
        return true;
    }

    std::optional<double> Sum(int depth) {
        std::optional<double> sum = Product(depth);
        while (sum && Take("+-")) {
            const bool minus = text_[at_ - 1] == '-';
            const std::optional<double> term = Product(depth);
            sum = term ? std::optional(minus ? *sum - *term : *sum + *term) : std::nullopt;
        }
        return sum;
    }

    std::optional<double> Product(int depth) {
        std::optional<double> product = Factor(depth);
        while (product && Take("*/")) {
            const bool over = text_[at_ - 1] == '/';
            const std::optional<double> factor = Factor(depth);
            if (!factor || (over && *factor == 0)) return {};
            product = over ? *product / *factor : *product * *factor;
        }
        return product;
    }

    std::optional<double> Factor(int depth) {
        const double sign = Take("+-") && text_[at_ - 1] == '-' ? -1 : 1;
        std::optional<double> value;
        if (Take("(")) {
            if (depth < kDeepest) value = Sum(depth + 1);
            if (!Take(")")) value.reset();
        } else {
            value = Number();
        }
        return value ? std::optional(sign * *value) : std::nullopt;
    }

    std::optional<double> Number() {
        const std::size_t first = at_;
        while (Is_Digit(Next()) || Next() == ',' || Next() == '.') ++at_;
        std::optional<std::string> digits = With_Point(text_.substr(first, at_ - first));
        if (!digits) return {};
        const std::size_t behind = at_;
        if (std::string_view("eEdD").find(Next()) != std::string_view::npos) {
            ++at_;
            if (Next() == '+' || Next() == '-') ++at_;
            if (!Is_Digit(Next())) at_ = behind;
            while (Is_Digit(Next())) ++at_;
        }
        std::optional<double> value;
        const std::string number = *digits + std::string(text_.substr(behind, at_ - behind));
        (void)Failure_Of([&] { value = Number_Of(number); });
        return value;
    }

    /// The digits with a point for a decimal comma, and without commas between thousands.
    std::optional<std::string> With_Point(std::string_view digits) {
        std::string plain(digits);
        const auto commas = std::count(plain.begin(), plain.end(), ',');
        if (commas == 0) return plain;
        const bool thousands = Parts_Thousands(digits);
        if (commas == 1 && plain.find('.') == std::string::npos) {
            either_way_ = thousands && !form_.grouped;
            if (either_way_ || plain.back() == ',') return {};
            if (!thousands) {
                plain[plain.find(',')] = '.';
                return plain;
            }
        }
        std::erase(plain, ',');
        return thousands ? std::optional(plain) : std::nullopt;
    }

    /// The factor of the longest unit that stands here, which is passed over.
    std::optional<double> Unit() {
        std::optional<double> factor;
        std::size_t end = at_;
        for (const TypedUnit& unit : form_.units)
            if (const std::size_t behind = Behind(unit.name); behind > end) {
                end = behind;
                factor = unit.factor;
            }
        at_ = end;
        return factor;
    }

    /// Where the text goes on behind that unit; here, when it does not stand here.
    std::size_t Behind(std::string_view unit) const {
        std::size_t at = at_;
        for (const char wanted : unit) {
            const std::size_t before = at;
            while (Is_Blank(Char_At(text_, at))) ++at;
            const char found = Char_At(text_, at);
            if (Is_Mark(wanted))
                at = Is_Mark(found) ? at + 1 : before;
            else if (Small(found) == Small(wanted))
                ++at;
            else
                return at_;
        }
        return at;
    }

    std::string_view text_;
    const TypedForm& form_;
    std::size_t at_ = 0;
    bool either_way_ = false;
};

/// A number as the program itself writes it.
bool Is_Plain(const std::string& text, bool grouped) {
    std::string dense = text;
    std::erase_if(dense, Is_Blank);
    const long failure = Failure_Of([&] { (void)Number_Of(dense); });
    if (failure != platform::kTypeMismatch) return true;
    const std::size_t sign = dense.front() == '-' || dense.front() == '+' ? 1 : 0;
    return grouped && Parts_Thousands(std::string_view(dense).substr(sign)) &&
           Failure_Of([&] { (void)Number_Of(Ungrouped(dense)); }) == 0;
}

platform::Reading The_Beginning(const std::string& text, const TypedForm& form, bool either_way) {
    const std::string_view from(text.data() + text.find_first_not_of(" \t\r\n"));
    const std::string number(Leading_Number(from));
    if (number.empty()) return {form.strict ? text : "0", false, "This is no number."};
    return {form.strict ? text : number, false,
            "Only the beginning, " + number + ", could be read" +
                (either_way ? ": the comma may part thousands or be a decimal point." : ".")};
}

}  // namespace

platform::Reading Read_Typed(const std::string& text, const TypedForm& form) {
    if (text.find_first_not_of(" \t\r\n") == std::string::npos || Is_Plain(text, form.grouped)) return {text, true, ""};
    Reader reader(text, form);
    if (const std::optional<double> value = reader.Whole()) {
        std::string shown;
        if (Failure_Of([&] { shown = Text_Of(Single(*value)); }) == 0) return {shown, true, ""};
    }
    return The_Beginning(text, form, reader.Either_Way());
}

}  // namespace verlink
