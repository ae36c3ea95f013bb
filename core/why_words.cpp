// Sentences about what closes and what does not.
#include "core/why_words.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "core/linkage_model.h"
#include "core/numeric.h"
#include "core/text.h"
#include "core/why.h"

namespace verlink {

namespace {

constexpr double kNearToggle = 10, kPoorTransmission = 40;
constexpr const char* kNames[] = {"Link 1", "Link 2 (Crank)", "Link 3 (Coupler)", "Link 4 (Rocker)"};

std::string Degrees(double angle, int decimals = 1) { return FNRoundStr(angle, decimals) + " deg"; }

/// The linkage in the shown unit, and how it is told.
class Telling {
   public:
    Telling(const LinkageModel& model, const Geometry& geometry)
        : links_(Links_Of(geometry)),
          ground_(geometry.Link1Angle),
          decimals_(model.DecLengthShown),
          unit_(model.UnitLabel(6)) {
        for (int link = 1; link <= 4; ++link) links_.Of(link) *= Shown_Factor(model);
    }

    const Links& Lengths() const { return links_; }
    double Local(double shown) const { return shown - ground_; }
    double Shown(double local) const { return local + ground_; }

    std::string Length(double length) const { return Number(FNRound(length, decimals_)); }
    /// Rounded to the side of a bound on which it closes.
    std::string Length(const Bound& bound) const {
        return (bound.way > 0 ? "over " : "under ") + Number(Inward(bound, decimals_, kDigits));
    }
    /// So much too short or too long.
    std::string By(double length) const {
        if (FNRound(length, decimals_) > 0) return Length(length);
        return "less than " + Number(std::pow(10, -decimals_));
    }
    /// An angle on the side of the bound on which it closes, in as many decimals as that takes.
    std::string Angle(const Bound& local) const {
        constexpr int kMostDecimals = 4;
        const Bound shown{Shown(local.value), local.way};
        for (int decimals = 1;; ++decimals) {
            const double angle = Inward(shown, decimals, -kDigits);
            const bool closes = Closing_At(links_, Local(angle)).is == Closing::Is::kClosed;
            if (closes || decimals == kMostDecimals) return Degrees(angle, decimals);
        }
    }
    std::string At_Toggle(const Bound& local) const { return At(Shown(local.value)); }
    static std::string At(double shown) { return "at Theta2 = " + Degrees(shown); }

   private:
    /// Single precision leaves a value so much beside its last decimal.
    static constexpr double kDigits = 1e-3;
    static double Inward(const Bound& bound, int decimals, double slack) {
        const double power = std::pow(10, decimals), value = bound.value * power;
        return (bound.way > 0 ? std::ceil(value - slack) : std::floor(value + slack)) / power;
    }
    std::string Number(double length) const { return Text_Of(length) + (unit_.empty() ? "" : " " + unit_); }

    Links links_;
    double ground_;
    int decimals_;
    std::string unit_;
};

/// "they are 0.2 in too short", or what else is wrong at an angle that does not close.
std::string What_Is_Wrong(const Telling& telling, const Closing& closing) {
    if (closing.is == Closing::Is::kTooShort) return "they are " + telling.By(closing.by) + " too short";
    return std::string(closing.link == 3 ? "the coupler" : "the rocker") + " is " + telling.By(closing.by) +
           " too long";
}

std::string Cannot_Meet(const Telling& telling, const Closing& closing, double shown) {
    if (closing.is == Closing::Is::kNoLength) return std::string(kNames[closing.link - 1]) + " has no length.";
    return "Coupler and rocker cannot meet " + Telling::At(shown) + ": " + What_Is_Wrong(telling, closing) + ".";
}

/// The links meet, and yet the run has no position there.
std::string Undetermined(const Telling& telling, double shown) {
    // The angle of a position that does not close is stored to two decimals.
    constexpr double kStored = 0.006;
    const auto toggle = Nearest_Toggle(telling.Lengths(), telling.Local(shown));
    if (!toggle || std::fabs(toggle->value - telling.Local(shown)) > kStored)
        return "Coupler and rocker can meet " + Telling::At(shown) +
               ", yet the solution fails there; an angle beside it may do.";
    const std::string in_line = "Coupler and rocker are in line " + Telling::At(shown) + ", a ";
    if (toggle->way == 0) return in_line + "change point, which has no solution; the angles beside it close.";
    const Bound beside{toggle->value + 2 * kStored * toggle->way, toggle->way};
    return in_line + "toggle, which has no solution. Nearest angle that closes: " + telling.Angle(beside) + ".";
}

std::string Open_At(const Telling& telling, double shown) {
    const Closing closing = Closing_At(telling.Lengths(), telling.Local(shown));
    if (closing.is == Closing::Is::kClosed) return Undetermined(telling, shown);
    const auto nearest = Nearest_Toggle(telling.Lengths(), telling.Local(shown));
    std::string words = Cannot_Meet(telling, closing, shown);
    if (nearest && nearest->way != 0) words += " Nearest angle that closes: " + telling.Angle(*nearest) + ".";
    return words;
}

std::string Closed_At(const Telling& telling, double shown) {
    const double local = telling.Local(shown);
    const double transmission = Transmission_At(telling.Lengths(), local);
    std::string words;
    if (FNRound(transmission, 1) < kPoorTransmission)
        words = "Transmission angle " + Degrees(transmission) + ", under 40";
    const auto toggle = Nearest_Toggle(telling.Lengths(), local);
    const double way = toggle ? std::fabs(toggle->value - local) : kNearToggle;
    if (way < kNearToggle)
        words += (words.empty() ? "" : "; ") + Degrees(way) + " from the " +
                 (toggle->way == 0 ? "change point " : "toggle ") + telling.At_Toggle(*toggle);
    return words.empty() ? words : words + ".";
}

std::string Closes_Nowhere(const Telling& telling, const Longest& longest) {
    const std::string by = telling.Length(longest.excess);
    const bool beyond = by.substr(0, by.find(' ')) != "0";
    return std::string(kNames[longest.link - 1]) + " is " + (beyond ? by + " longer than" : "as long as") +
           " the other three together; it closes " + telling.Length(Bound{longest.limit, -1}) + ".";
}

/// The crank angles of a run as it is driven, global, degrees.
std::vector<double> Angles_Of_Run(const LinkageModel& model) {
    if (model.Calctype == run::kOnePosition) return {model.ThetaZero};
    std::vector<double> angles;
    for (int step = 0; step <= model.NSteps; ++step) {
        const double t = model.TimeStart + step * model.TimeStep, drive = model.RunTable.DriveTheta(step);
        if (model.Calctype == run::kByTime)
            angles.push_back((model.Alpha2 * t * t / 2 + model.Omega2Input * t) * kRadToDeg + model.ThetaZero);
        else if (!model.Imported() && model.Omega2Input > 0)
            angles.push_back(std::min<double>(model.ThetaStart + step * model.ThetaStep, model.ThetaEnd));
        else if (!model.Imported())
            // At rest every step repeats the first position.
            angles.push_back(std::max<double>(model.ThetaEnd - (model.Omega2Input == 0 ? 0 : step * model.ThetaStep),
                                              model.ThetaStart));
        else if (model.Calctype == run::kCamDriven)
            angles.push_back(model.CamDirection * drive + model.CamPhase + model.ThetaZero - model.Delta2 +
                             model.Link1Angle);
        else
            angles.push_back(drive + model.Delta2);
    }
    return angles;
}

/// "At Theta2 = 120.0 deg they are 0.2 in too short; a coupler over 2.5 in, a rocker over 3.2 in or 101.8 deg would
/// do."
std::string What_Would_Do(const Telling& telling, double local) {
    const double shown = telling.Shown(local);
    const Closing closing = Closing_At(telling.Lengths(), local);
    std::string words =
        "A" + Telling::At(shown).substr(1) + " " +
        (closing.is == Closing::Is::kTooShort ? "coupler and rocker are " + telling.By(closing.by) + " too short"
                                              : What_Is_Wrong(telling, closing));
    const auto coupler = Nearest_Length(telling.Lengths(), local, 3),
               rocker = Nearest_Length(telling.Lengths(), local, 4);
    const auto angle = Nearest_Toggle(telling.Lengths(), local);
    words += "; a coupler " + telling.Length(*coupler);
    if (angle && angle->way != 0)
        words += ", a rocker " + telling.Length(*rocker) + " or " + telling.Angle(*angle);
    else
        words += " or a rocker " + telling.Length(*rocker);
    return words + " would do.";
}

int Changed_Link(const Geometry& now, const Geometry& wished) {
    const Links before = Links_Of(now), after = Links_Of(wished);
    for (const int link : {2, 3, 4, 1})
        if (before.Of(link) != after.Of(link)) return link;
    return 0;
}

const char* Name_Of_Box(int box) {
    switch (box) {
        case 1: return "link 2";
        case 2: return "link 3";
        case 3: return "link 4";
        case 4: return "the distance to the coupler point";
        case 5: return "the angle to the coupler point";
        case 6: return "the angle of link 1";
        case 15: return "x of O4";
        case 16: return "y of O4";
        default: return "the length of link 1";
    }
}

}  // namespace

std::string Why_Shown(const LinkageModel& model, int step) {
    const auto& table = model.RunTable;
    if (!model.RunStands)
        while (step < model.NSteps && table.Assembled(step)) ++step;
    const Telling telling(model, model);
    const double shown = table.Theta(step, 0);
    if (!table.Assembled(step)) return Open_At(telling, shown);
    return Closed_At(telling, shown);
}

std::string Why_Refused(const LinkageModel& model) {
    if (model.RunStands) return "";
    const Telling telling(model, model);
    const Closing at_once = Closing_At(telling.Lengths(), 0);
    if (at_once.is == Closing::Is::kNoLength) return Cannot_Meet(telling, at_once, 0);
    if (const auto longest = Too_Long(Links_Of(model)))
        return Closes_Nowhere(telling, Longest{longest->link, longest->excess * Shown_Factor(model),
                                               longest->limit * Shown_Factor(model)});
    std::vector<double> angles = Angles_Of_Run(model);
    for (double& angle : angles) angle = telling.Local(angle);
    const auto nearest = Nearest_Miss(telling.Lengths(), angles);
    if (!nearest) return "";
    return (angles.size() > 1 ? "No position closes. " : "") + What_Would_Do(telling, angles[*nearest]);
}

std::string Why_Not_Followed(const LinkageModel& model, const Geometry& wished, int step) {
    const Telling telling(model, wished);
    const double shown = model.RunTable.Theta(step, 0), local = telling.Local(shown);
    const Closing closing = Closing_At(telling.Lengths(), local);
    if (closing.is == Closing::Is::kClosed) return "Not followed: there it would close on its other circuit.";
    if (closing.is == Closing::Is::kNoLength) return "Not followed: " + Cannot_Meet(telling, closing, shown);
    std::string words = "Not followed: ";
    const int link = Changed_Link(model, wished);
    const auto would_do = link == 0 ? std::nullopt : Nearest_Length(telling.Lengths(), local, link);
    if (link != 0) words += "with " + telling.Length(telling.Lengths().Of(link)) + " of link " + Text_Of(link) + " ";
    words += "coupler and rocker cannot meet " + Telling::At(shown);
    return words + (would_do ? "; " + telling.Length(*would_do) + " would do." : ".");
}

std::string Why_Held(std::initializer_list<int> boxes) {
    std::string words = "Not followed: ";
    for (const int box : boxes) words += (box == *boxes.begin() ? "" : " and ") + std::string(Name_Of_Box(box));
    return words + (boxes.size() > 1 ? " are locked." : " is locked.");
}

}  // namespace verlink
