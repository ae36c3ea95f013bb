// Settings as JSON, and in the units of a model.
#include "study/settings.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <initializer_list>
#include <nlohmann/json.hpp>
#include <string_view>
#include <utility>

#include "core/numeric.h"
#include "core/one_line.h"
#include "dynamics/shown_length.h"

namespace verlink::study {

namespace {

using Json = nlohmann::ordered_json;

constexpr int kVersion = 1, kSystems = 5;
constexpr const char* kSpreads[] = {"normal", "uniform", "worst"};
constexpr const char* kKinds[] = {"sweep", "tolerance"};
constexpr const char* kFrames[] = {"global", "local"};

/// What is wrong with a text, by the name of a field.
struct Fault {
    std::string words;
};

class Reader {
   public:
    explicit Reader(const Json& object, std::string where = "") : object_(object), where_(std::move(where)) {}

    std::string Text(const char* name) const {
        const Json& value = At(name);
        if (!value.is_string()) throw Fault{Told(name) + " is to be a text"};
        return value.get<std::string>();
    }
    double Number(const char* name) const {
        const Json& value = At(name);
        if (!value.is_number() || !std::isfinite(value.get<double>())) throw Fault{Told(name) + " is to be a number"};
        return value.get<double>();
    }
    std::uint64_t Whole(const char* name, std::uint64_t least) const {
        const Json& value = At(name);
        if (!value.is_number_unsigned() || value.get<std::uint64_t>() < least)
            throw Fault{Told(name) + " is to be a whole number from " + std::to_string(least)};
        return value.get<std::uint64_t>();
    }
    template <std::size_t N>
    int Word(const char* name, const char* const (&words)[N]) const {
        const std::string text = Text(name);
        std::string all;
        for (std::size_t i = 0; i < N; ++i) {
            if (text == words[i]) return static_cast<int>(i);
            all += std::string(i == 0 ? "" : i + 1 < N ? ", " : " or ") + words[i];
        }
        throw Fault{Told(name) + " is to be " + all + ", not \"" + text + "\""};
    }
    void Rows(const char* name, std::size_t most, const std::function<void(std::size_t, const Reader&)>& take) const {
        const Json& rows = At(name);
        if (!rows.is_array() || rows.size() > most)
            throw Fault{Told(name) + " is to be a list of at most " + std::to_string(most)};
        for (std::size_t i = 0; i < rows.size(); ++i) {
            const std::string path = where_ + name + "[" + std::to_string(i) + "]";
            if (!rows[i].is_object()) throw Fault{"the field " + path + " is to be an object"};
            take(i, Reader(rows[i], path + "."));
        }
    }

    /// What is not known is not passed over: it would be lost with the next change.
    void Knows(std::initializer_list<std::string_view> names) const {
        for (const auto& [key, unused] : object_.items())
            if (std::ranges::find(names, key) == names.end()) throw Fault{"there is no field " + where_ + key};
    }

   private:
    const Json& At(const char* name) const {
        const auto found = object_.find(name);
        if (found == object_.end()) throw Fault{Told(name) + " is missing"};
        return *found;
    }
    std::string Told(const char* name) const { return "the field " + where_ + name; }

    const Json& object_;
    std::string where_;
};

Settings Taken(const Json& json) {
    if (!json.is_object()) throw Fault{"they are no object"};
    const Reader all(json);
    if (all.Whole("version", 1) > kVersion) throw Fault{"they were written by a newer program"};
    all.Knows({"version", "units", "kind", "sweeps", "tolerances", "samples", "seed", "measure", "keep", "frame"});
    Settings s;
    const std::uint64_t units = all.Whole("units", 1);
    if (units > kSystems) throw Fault{"the field units is to be a whole number from 1 to 5"};
    s.units = static_cast<int>(units);
    s.kind = static_cast<Settings::Kind>(all.Word("kind", kKinds));
    all.Rows("sweeps", Settings::kSweeps, [&](std::size_t i, const Reader& row) {
        row.Knows({"field", "from", "to", "count"});
        s.sweeps.at(i) = {row.Text("field"), row.Number("from"), row.Number("to"), row.Whole("count", 1)};
    });
    all.Rows("tolerances", Settings::kTolerances, [&](std::size_t i, const Reader& row) {
        row.Knows({"field", "plusMinus", "spread"});
        const double plus_minus = row.Number("plusMinus");
        if (plus_minus < 0) throw Fault{"the field tolerances[" + std::to_string(i) + "].plusMinus is negative"};
        s.tolerances.at(i) = {row.Text("field"), plus_minus, static_cast<Spread>(row.Word("spread", kSpreads))};
    });
    s.samples = all.Whole("samples", 1);
    s.seed = all.Whole("seed", 0);
    s.measure = all.Text("measure");
    s.keep = all.Text("keep");
    s.local = all.Word("frame", kFrames) == 1;
    return s;
}

const Field* Field_Of(std::string name) {
    std::erase(name, ' ');
    const auto fields = Fields();
    const auto found = std::ranges::find(fields, name, [](const Field& field) { return std::string(field.name); });
    return found == fields.end() ? nullptr : &*found;
}

/// The factor from one system's kept numbers to another's.
double Kept_Factor(Quantity quantity, int from, int to) {
    // Units are told by name: what the first system shows is found in the list of the other.
    const auto shown = [&](int units) {
        const auto all = Typed_Units(quantity, units);
        return std::ranges::find(all, 1.0, &TypedUnit::factor)->name;
    };
    if (quantity == Quantity::kNumber) return 1;
    const std::string unit = shown(from);
    const auto all = Typed_Units(quantity, to);
    return std::ranges::find(all, unit, &TypedUnit::name)->factor;
}

/// What the values of a measure are of, in the unit that tables have them in.
Quantity Quantity_Of(const Measure& measure) {
    if (measure.statistic == Statistic::kDeviation || measure.statistic == Statistic::kLine) return Quantity::kLength;
    constexpr int kAngleOfVector = 3;
    if (measure.facts.vector && measure.component == kAngleOfVector) return Quantity::kNumber;
    switch (measure.facts.group) {
        case 4:
        case 5:
        case 6: return Quantity::kLength;
        case 9:
        case 12:
        case 18: return Quantity::kTorque;
        case 10:
        case 11: return Quantity::kForce;
        default: return Quantity::kNumber;
    }
}

/// To so many digits.
double To_Digits(double value, int digits) {
    if (value == 0 || !std::isfinite(value)) return 0;
    const double power = std::floor(std::log10(std::fabs(value))) - digits + 1, unit = std::pow(10, power);
    // By a division where the unit is a part of one: 0.1 is the nearest number to a tenth then.
    return std::signbit(power) ? std::round(value / unit) / std::round(1 / unit) : std::round(value / unit) * unit;
}

}  // namespace

const char* Name_Of(Spread spread) { return kSpreads[static_cast<std::size_t>(spread)]; }

std::string Settings_Text(const Settings& s) {
    Json json{{"version", kVersion}, {"units", s.units}, {"kind", kKinds[static_cast<std::size_t>(s.kind)]}};
    const auto rows = [](const auto& all, const auto& of) {
        Json list = Json::array();
        std::size_t count = all.size();
        while (count > 0 && all[count - 1].field.empty()) --count;
        for (std::size_t i = 0; i < count; ++i) list.push_back(of(all[i]));
        return list;
    };
    json["sweeps"] = rows(s.sweeps, [](const Settings::Swept& row) {
        return Json{{"field", row.field}, {"from", row.from}, {"to", row.to}, {"count", row.count}};
    });
    json["tolerances"] = rows(s.tolerances, [](const Settings::Tolerated& row) {
        return Json{{"field", row.field}, {"plusMinus", row.plus_minus}, {"spread", Name_Of(row.spread)}};
    });
    json["samples"] = s.samples;
    json["seed"] = s.seed;
    json["measure"] = s.measure;
    json["keep"] = s.keep;
    json["frame"] = kFrames[s.local ? 1 : 0];
    constexpr int kIndent = 2;
    return json.dump(kIndent, ' ', false, Json::error_handler_t::replace) + '\n';
}

bool Read_Settings(const std::string& text, Settings& settings, std::string& fault) {
    const Json json = Json::parse(text, nullptr, false);
    if (json.is_discarded()) {
        fault = "they are no JSON";
        return false;
    }
    try {
        settings = Taken(json);
    } catch (const Fault& found) {
        fault = In_One_Line(found.words);
        return false;
    }
    return true;
}

namespace {

/// 0 for what is no field.
double Value_Of(const std::string& name, Design& design) {
    const Field* field = Field_Of(name);
    return field ? double{field->place(design)} : 0;
}

}  // namespace

Settings::Swept Usual_Sweep(const std::string& field, Design design) {
    constexpr double kPart = 0.1;
    constexpr Number kCount = 41;
    constexpr int kDigits = 4;
    const double value = Value_Of(field, design);
    const double reach = value == 0 ? 1 : kPart * std::fabs(value);
    return {field, To_Digits(value - reach, kDigits), To_Digits(value + reach, kDigits), kCount};
}

Settings::Tolerated Usual_Tolerance(const std::string& field, Design design) {
    constexpr double kPart = 0.005;
    const double value = Value_Of(field, design);
    return {field, To_Digits(kPart * std::fabs(value), 1), Spread::kNormal};
}

Settings Usual_Settings(const Design& design, int units) {
    Settings settings;
    settings.units = units;
    settings.sweeps[0] = Usual_Sweep("L2", design);
    const char* fields[] = {"L2", "L3", "L4", design.PolarCoords ? "L1" : "Link1X"};
    std::size_t row = 0;
    for (const char* field : fields) settings.tolerances.at(row++) = Usual_Tolerance(field, design);
    return settings;
}

Settings In_Units(Settings s, int units) {
    const int from = std::exchange(s.units, units);
    const auto factor = [&](const std::string& name) {
        const Field* field = Field_Of(name);
        return field ? Kept_Factor(field->kept, from, units) : 1.0;
    };
    for (Settings::Swept& row : s.sweeps) {
        row.from *= factor(row.field);
        row.to *= factor(row.field);
    }
    for (Settings::Tolerated& row : s.tolerances) row.plus_minus *= factor(row.field);
    std::string fault;
    if (const auto keep = Keep_Of(s.keep, s.local, fault)) {
        constexpr int kDigits = 7;
        const double by = Kept_Factor(Quantity_Of(keep->measure), from, units);
        const std::string order = s.keep.substr(s.keep.find_first_of("<>")).substr(0, 2);
        if (by != 1)
            s.keep = keep->measure.words + " " + (order.back() == '=' ? order : order.substr(0, 1)) + " " +
                     Shortest(To_Digits(keep->bound * by, kDigits));
    }
    return s;
}

Words Words_Of(const Settings& s) {
    Words words;
    if (s.kind == Settings::Kind::kSweep) {
        for (const Settings::Swept& row : s.sweeps)
            if (!row.field.empty())
                words.sweeps.push_back(row.field + "=" + Shortest(row.from) + ":" + Shortest(row.to) + ":" +
                                       std::to_string(row.count));
    } else {
        for (const Settings::Tolerated& row : s.tolerances)
            if (!row.field.empty())
                words.tolerances.push_back(row.field + "=" + Shortest(row.plus_minus) + ":" + Name_Of(row.spread));
    }
    words.samples = s.samples;
    words.seed = s.seed;
    words.measures = {s.measure};
    if (!s.keep.empty()) words.keeps = {s.keep};
    words.local = s.local;
    return words;
}

Shown_As Shown_Field(const std::string& name, int units) {
    const Field* field = Field_Of(name);
    if (!field) return {};
    Shown_As shown{field->kept, 1, ""};
    if (field->kept == Quantity::kKeptLength) {
        shown.quantity = Quantity::kLength;
        shown.factor = Shown_Length(units).factor;
    }
    if (Kept_In_Radians(*field)) shown.factor = kRadToDeg;
    const auto all = Typed_Units(shown.quantity, units);
    const auto own = std::ranges::find(all, 1.0, &TypedUnit::factor);
    if (own != all.end()) shown.unit = own->name;
    return shown;
}

}  // namespace verlink::study
