// How measures and bounds are read, and what is said of those that cannot be.
#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <vector>

#include "core/nearest.h"
#include "study/measure.h"

namespace verlink::study {

namespace {

struct Kind {
    const char* word;
    Statistic statistic;
};
constexpr std::array kKinds{
    Kind{"min", Statistic::kMin},       Kind{"max", Statistic::kMax},
    Kind{"mean", Statistic::kMean},     Kind{"rms", Statistic::kRms},
    Kind{"range", Statistic::kRange},   Kind{"at", Statistic::kAt},
    Kind{"closes", Statistic::kCloses}, Kind{"deviation", Statistic::kDeviation},
};
constexpr std::array kComponents{"X", "Y", "Mag", "Ang"};
std::string Trimmed(const std::string& text) {
    const auto first = text.find_first_not_of(' '), last = text.find_last_not_of(' ');
    return first == std::string::npos ? std::string() : text.substr(first, last - first + 1);
}

/// The first word; the rest stays in `text`.
std::string Next_Word(std::string& text) {
    const auto end = std::min(text.find(' '), text.size());
    std::string word = text.substr(0, end);
    text = Trimmed(text.substr(end));
    return word;
}

std::string Meant(const std::string& word, const std::vector<std::string>& words) {
    const std::string near = Nearest(word, words);
    return near.empty() ? "" : "; did you mean " + near + "?";
}

std::optional<double> Number_In(const std::string& text) {
    double number{};
    const char* end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, number);
    if (read.ec != std::errc() || read.ptr != end || !std::isfinite(number)) return std::nullopt;
    return number;
}

Wanted Wanted_For(const Variable_Facts& facts) {
    switch (facts.needs) {
        case Needs::kForces: return Wanted::kForces;
        case Needs::kBalance: return Wanted::kBalance;
        case Needs::kRun: break;
    }
    constexpr int kAngles = 1, kPoints = 6;
    if (facts.group == kAngles) return Wanted::kAngles;
    return facts.group == kPoints ? Wanted::kPoints : Wanted::kMotion;
}

/// The variable and its component behind the statistic.
bool Take_Variable(const std::string& text, Measure& measure, std::string& fault) {
    const auto colon = text.rfind(':');
    Output_Function& function = measure.function;
    function.variable = Trimmed(text.substr(0, colon));
    function.component = colon == std::string::npos ? "X" : Trimmed(text.substr(colon + 1));
    const auto facts = Facts_Of(function.variable);
    if (!facts) {
        fault = "there is no variable \"" + function.variable + "\"" +
                Meant(function.variable, Variables_Up_To(Needs::kBalance));
        return false;
    }
    // It is of a function that its screen chose.
    if (facts->group == kTransformGroup) {
        fault = "a study transforms no function: it has no \"" + function.variable + "\"";
        return false;
    }
    const auto component = std::ranges::find(kComponents, function.component);
    if (component == kComponents.end()) {
        fault = "a component is X, Y, Mag or Ang, not \"" + function.component + "\"";
        return false;
    }
    measure.facts = *facts;
    measure.component = static_cast<int>(component - kComponents.begin());
    measure.wanted = Wanted_For(*facts);
    return true;
}

/// The angle of "at 90 Theta4".
bool Take_Angle(std::string& rest, Measure& measure, std::string& fault) {
    const std::string word = Next_Word(rest);
    const auto angle = Number_In(word);
    if (angle)
        measure.angle = *angle;
    else
        fault = "\"" + measure.words + "\" wants an angle behind \"at\", as in \"at 90 Theta4\"";
    return angle.has_value();
}

}  // namespace

std::optional<Measure> Measure_Of(const std::string& text, bool local, std::string& fault) {
    Measure measure;
    measure.words = Trimmed(text);
    measure.function.local = local;
    std::string rest = measure.words;
    const std::string word = Next_Word(rest);
    const auto kind = std::ranges::find_if(kKinds, [&](const Kind& each) { return word == each.word; });
    if (kind == kKinds.end()) {
        std::vector<std::string> words(std::size(kKinds));
        std::ranges::transform(kKinds, words.begin(), &Kind::word);
        fault = "there is no measure \"" + word + "\"" + Meant(word, words);
        return std::nullopt;
    }
    measure.statistic = kind->statistic;
    if (measure.statistic == Statistic::kDeviation && rest == "line") {
        measure.statistic = Statistic::kLine;
        measure.wanted = Wanted::kPoints;
        return measure;
    }
    if (measure.statistic == Statistic::kDeviation) measure.wanted = Wanted::kPoints;
    if (measure.statistic == Statistic::kCloses || measure.statistic == Statistic::kDeviation) {
        if (rest.empty()) return measure;
        fault = "\"" + word + "\" is of the whole run: \"" + rest + "\" is too much" + Meant(rest, {"line"});
        return std::nullopt;
    }
    if (measure.statistic == Statistic::kAt && !Take_Angle(rest, measure, fault)) return std::nullopt;
    if (rest.empty()) {
        fault = "\"" + measure.words + "\" wants a variable, as in \"max Theta4\"";
        return std::nullopt;
    }
    if (!Take_Variable(rest, measure, fault)) return std::nullopt;
    return measure;
}

std::optional<Keep> Keep_Of(const std::string& text, bool local, std::string& fault) {
    const auto sign = text.find_first_of("<>");
    const bool with_equal = sign != std::string::npos && text[sign + 1] == '=';
    const auto bound =
        sign == std::string::npos ? std::nullopt : Number_In(Trimmed(text.substr(sign + (with_equal ? 2 : 1))));
    if (!bound) {
        fault =
            "a bound is a measure, <, <=, > or >=, and a number, as in \"min Trans Ang > 40\", not \"" + text + "\"";
        return std::nullopt;
    }
    const auto measure = Measure_Of(text.substr(0, sign), local, fault);
    if (!measure) return std::nullopt;
    using Order = Keep::Order;
    const Order less = with_equal ? Order::kAtMost : Order::kLess, more = with_equal ? Order::kAtLeast : Order::kMore;
    return Keep{*measure, text[sign] == '<' ? less : more, *bound};
}

}  // namespace verlink::study
