// Corners, rings and words.
#include "screens/positions_over.h"

namespace verlink {

namespace {

using design::Point;
using Kind = platform::Overlay::Mark::Kind;

constexpr platform::Color kBody = 0x005AC8;
constexpr double kLeg = 0.08;  ///< part of the window

}  // namespace

void Lay_Over(platform::Overlay& over, const LinkageModel& model, const std::vector<design::Wanted>& wanted) {
    const double factor = Shown_Factor(model), leg = kLeg * (double{model.AnimMax} - model.AnimMin);
    const auto drawn = [&](Point at) { return platform::Point{at.real(), model.FlipSum - at.imag()}; };
    for (const design::Wanted& position : wanted) {
        const bool passed = position.is == design::Wanted::Is::kPassed;
        const Kind line = passed ? Kind::kLine : Kind::kDashes;
        const Point at = position.at * factor, along = std::polar(leg, position.angle * design::kDegree);
        over.marks.push_back({line, drawn(at), drawn(at + along), kBody});
        over.marks.push_back({line, drawn(at), drawn(at + design::Left_Of(along) / 2.0), kBody});
        if (passed) over.marks.push_back({Kind::kRing, drawn(at), {}, kBody});
        const Point away = -along - design::Left_Of(along);
        over.names.push_back({std::to_string(position.number), drawn(at), {away.real(), -away.imag()}, kBody, 0});
    }
    for (const std::string& line : design::Words_Of(model, wanted))
        over.legend.push_back({.text = line, .color = kBody});
}

}  // namespace verlink
