// A study as it is written: fields, spreads, measures and bounds in words, read against a design.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "study/study.h"

namespace verlink::study {

inline constexpr Number kSamples = 10000;  ///< where nothing is said

struct Words {
    std::vector<std::string> sweeps;      ///< "FIELD=FROM:TO:COUNT"
    std::vector<std::string> tolerances;  ///< "FIELD=PLUSMINUS[:normal|uniform|worst]"
    List list;
    Number samples = kSamples;
    std::uint64_t seed = 1;
    std::vector<std::string> measures, keeps;
    bool local = false;  ///< the frame of vectors that can be taken in either
    /// What the first two are called where one cannot be read.
    std::string sweep_called = "a sweep", tolerance_called = "a tolerance";
};

/// Nothing, and the fault in words, when something cannot be read or asks for what there is not.
std::optional<Study> Study_Of(const Words& words, Design design, std::string& fault);

/// Rows of values under a row of fields, separated by commas. False, and the fault in words, for a content that is
/// none; `called` is what it came from.
bool Take_List(const std::string& content, const std::string& called, const Design& design, List& list,
               std::string& fault);

/// The shortest digits that are read as the same number.
std::string Shortest(double value);
std::string Shortest(float value);

}  // namespace verlink::study
