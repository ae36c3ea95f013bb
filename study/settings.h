// What a study of the screen moves and measures, and its text as it is kept beside a model.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "study/plan.h"
#include "study/words.h"

namespace verlink::study {

/// Numbers are as the model file has them, in the system `units`. Words are kept as a hand wrote them, also where they
/// name nothing; rows without a field are no rows.
struct Settings {
    static constexpr int kSweeps = 2, kTolerances = 6;
    enum class Kind { kSweep, kTolerance };

    struct Swept {
        std::string field;
        double from = 0, to = 0;
        Number count = 1;
        bool operator==(const Swept&) const = default;
    };
    struct Tolerated {
        std::string field;
        double plus_minus = 0;
        Spread spread = Spread::kNormal;
        bool operator==(const Tolerated&) const = default;
    };

    Kind kind = Kind::kSweep;
    int units = 1;
    std::array<Swept, kSweeps> sweeps;
    std::array<Tolerated, kTolerances> tolerances;
    Number samples = kSamples;
    std::uint64_t seed = 1;
    std::string measure = "min Trans Ang", keep;  ///< the latter empty for all
    bool local = false;

    bool operator==(const Settings&) const = default;
};

/// A JSON object with "version" 1. Trailing rows without a field are left out.
std::string Settings_Text(const Settings& settings);
/// False, and the fault in words with the name of the field, for a text that is none; then the settings stay.
bool Read_Settings(const std::string& text, Settings& settings, std::string& fault);

/// For a design that has none yet: a sweep of the crank, tolerances of the four lengths.
Settings Usual_Settings(const Design& design, int units);
/// Ends a tenth below and above the value that the design has, and what a good shop keeps to.
Settings::Swept Usual_Sweep(const std::string& field, Design design);
Settings::Tolerated Usual_Tolerance(const std::string& field, Design design);

/// The same in another system: limits and tolerances, and the bound of `keep`.
Settings In_Units(Settings settings, int units);

/// The words of one kind; those of the other are left out.
Words Words_Of(const Settings& settings);

/// What a hand types and reads for a number that is kept: so many times as large, in this unit.
struct Shown_As {
    Quantity quantity = Quantity::kNumber;
    double factor = 1;
    std::string unit;
};
/// Of a field, in one of the unit systems; a plain number for a name that there is not.
Shown_As Shown_Field(const std::string& field, int units);

const char* Name_Of(Spread spread);

}  // namespace verlink::study
