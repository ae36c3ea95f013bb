// Counterweights, flywheel, synthesis and cognates in tables.
#include <algorithm>
#include <array>

#include "core/numeric.h"
#include "core/text.h"
#include "dynamics/flywheel.h"
#include "report/pieces.h"
#include "report/svg_picture.h"
#include "synthesis/cognates.h"
#include "synthesis/dyad_diagram.h"

namespace verlink::report {

namespace {

Report_Table Weights(const LinkageModel& model) {
    constexpr int kDecimals = 3, kAngleDecimals = 2;
    const std::string length = model.Units > 3 ? "m" : model.UnitLabel(6), mass = model.UnitLabel(14);
    const auto rounded = [](double value) { return Text_Of(FNRound(value, kDecimals)); };
    Report_Table table{{"Counterweight", "Link 2", "Link 4", "Unit"}, {}, 1, 2};
    const auto row = [&](const char* what, auto text, const std::string& unit) {
        table.rows.push_back({what, text(2), text(4), unit});
    };
    row(
        "MR product needed", [&](int link) { return FNRoundStr(model.MRNeeded(link), kDecimals); },
        mass + "-" + length);
    row(
        "at angle", [&](int link) { return FNRoundStr(model.MRAngle(link) * kRadToDeg, kAngleDecimals); },
        model.UnitLabel(1));
    row(
        "Mass", [&](int link) { return rounded(model.BerkMass(link)); }, mass);
    row(
        "Radius", [&](int link) { return rounded(model.BerkRadius(link) * Shown_Factor(model)); }, model.UnitLabel(6));
    row(
        "MR product", [&](int link) { return rounded(model.BerkMass(link) * model.BerkRadius(link)); },
        mass + "-" + length);
    return table;
}

/// A stored length and an angle as the boxes of the synthesis screens show them, and as their read-outs do.
class Synthesis_Texts {
   public:
    explicit Synthesis_Texts(const LinkageModel& model) : model_(model) {}

    Report_Table Given() const {
        const LinkageModel& m = model_;
        Report_Table table;
        const auto length = [&](const char* what, Single stored) {
            const std::string text = FNRoundStr(stored * Shown_Factor(m), m.DecLengthShown);
            table.rows.push_back({what, text, m.UnitLabel(6)});
        };
        const auto angle = [&](const char* what, Single degrees) {
            table.rows.push_back({what, FNRoundStr(degrees, kBoxDecimals), kDegrees});
        };
        length("P21x", m.P21x);
        length("P21y", m.P21y);
        angle("Alpha2", m.SynAlpha2);
        if (Three()) {
            length("P31x", m.P31x);
            length("P31y", m.P31y);
            angle("Alpha3", m.SynAlpha3);
        }
        if (Specified()) {
            length("O2x", m.O2x);
            length("O2y", m.O2y);
            length("O4x", m.O4x);
            length("O4y", m.O4y);
            length("P1x", m.P1x);
            length("P1y", m.P1y);
        }
        return table;
    }

    Report_Table Dyads() const {
        const LinkageModel& m = model_;
        Report_Table table;  // of which the first numbers alone stand in a column of numbers
        table.heads = {"Left dyad", "", "Right dyad", "", "Unit"};
        const auto row = [&](const char* left, const std::string& left_text, const char* right,
                             const std::string& right_text, const std::string& unit) {
            table.rows.push_back({left, left_text, right, right_text, unit});
        };
        row("Beta2", Turn(m.SynBeta2), "Gamma2", Turn(m.SynGamma2), kDegrees);
        if (Three()) row("Beta3", Turn(m.SynBeta3), "Gamma3", Turn(m.SynGamma3), kDegrees);
        row("W mag", Length(m.SynW), "U mag", Length(m.SynU), m.UnitLabel(6));
        row("Theta", Direction(m.SynTheta), "Sigma", Direction(m.SynSigma), kDegrees);
        row("Z mag", Length(m.SynZ), "S mag", Length(m.SynS), m.UnitLabel(6));
        row("Phi", Direction(m.SynPhi), "Xi", Direction(m.SynXi), kDegrees);
        return table;
    }

    const char* Kind() const {
        if (Specified()) return "Three positions with specified fixed pivots";
        if (Three()) return "Three positions with unspecified fixed pivots";
        return model_.SynMethod == 2 ? "Two positions, magnitude and angle of a vector assumed"
                                     : "Two positions, three angles assumed";
    }
    bool Three() const { return model_.SynPositions > 1; }

   private:
    static constexpr int kBoxDecimals = 2, kFoundDecimals = 3;
    bool Specified() const { return model_.SynPositions == 3; }

    std::string Length(Single stored) const {
        return Text_Of(FNRound(Shown_Factor(model_) * stored, model_.DecLengthShown));
    }
    /// Those that come out of specified pivots have a decimal more.
    std::string Turn(Single degrees) const { return FNRoundStr(degrees, Specified() ? kFoundDecimals : kBoxDecimals); }
    /// Of three positions they come out; of two they are typed, or come out to as many decimals.
    std::string Direction(Single degrees) const {
        return Three() ? Text_Of(FNRound(degrees, kFoundDecimals)) : FNRoundStr(degrees, kBoxDecimals);
    }

    const LinkageModel& model_;
};

}  // namespace

Pieces Balance_Pieces(const LinkageModel& model) {
    std::vector<Output_Function> functions{{"F Shaking", "Mag", false}};
    for (const Output_Function& function : Functions_Of(Needs::kBalance))
        if (function.variable != "Flywl Torque") functions.push_back(function);
    return {Weights(model),
            Report_Text{"Full balance of the shaking force by counterweights on links 2 and 4. Angles are in the local "
                        "rotating coordinate systems of the links. \"Balcd\" is with the counterweights."},
            Extremes(model, functions)};
}

Pieces Flywheel_Pieces(const LinkageModel& model) {
    PulseAreas negative, positive;
    Integer pulses, first;
    Single average;
    const TorqueTable& torque = model.RunTable.BalancedMoment;
    Average2(
        0, model.NSteps, [&](int step, int row) { return torque(step, row); }, "I_Pointer", 0, average);
    Flywheel([&](int step) { return torque(step, 0); }, 0, model.NSteps, model.ThetaStepRad, average, negative,
             positive, pulses, first);
    const std::string unit = model.UnitLabel(9);
    const bool negative_first = first == -1;
    Report_Table table{
        {"Order", negative_first ? "Neg Area" : "Pos Area", negative_first ? "Pos Area" : "Neg Area"}, {}, 0, 3};
    const PulseAreas &left = negative_first ? negative : positive, &right = negative_first ? positive : negative;
    const int rows = std::min<int>(kMostPulses, Integer((pulses + 1) / 2.0));
    for (int i = 1; i <= rows; ++i)
        table.rows.push_back({Text_Of(i), Text_Of(FNRound(left(i), 1)), Text_Of(FNRound(right(i), 1))});
    return {Report_Text{"Areas of the balanced crank torque's pulses about its average, in order over one cycle, in "
                        "energy units of " +
                        unit + " - radians."},
            table,
            Report_Text{"Average torque: " + Text_Of(FNRound(average, 2)) + " " + unit +
                        ". The driving torque as the flywheel leaves it:"},
            Extremes(model, {{"Torque 12", "", false}, {"Flywl Torque", "Mag", false}})};
}

Pieces Cognate_Pieces(const LinkageModel& model) {
    constexpr int kDecimals = 3, kAngleDecimals = 2;
    CognateTable cognates = model.Cognates, rows = model.CayleyRows;
    if (model.CognatesDue) {
        const std::array<Single, 6> first{model.L1, model.L2, model.L3, model.L4, model.Rpa, model.DeltaRad};
        for (int item = 1; item <= 6; ++item) cognates(1, item) = first[static_cast<std::size_t>(item - 1)];
        Cayley(cognates, rows);
        cognates(1, 0) = model.Delta;
        for (const int n : {2, 3}) cognates(n, 0) = cognates(n, 6) * kRadToDeg;
    }
    Report_Table table{{"", "Cognate 1", "Cognate 2", "Cognate 3", "Unit"}, {}, 1, 3};
    const char* lengths[] = {"Link 1 (Ground)", "Link 2 (Crank)", "Link 3 (Coupler)", "Link 4 (Rocker)",
                             "Dist to Coupler Pt"};
    for (int item = 1; item <= 5; ++item) {
        Row row{lengths[item - 1]};
        for (int n = 1; n <= 3; ++n) row.push_back(FNRoundStr(cognates(n, item) * Shown_Factor(model), kDecimals));
        row.push_back(model.UnitLabel(6));
        table.rows.push_back(row);
    }
    Row angles{"Angle to Coupler Pt"};
    for (int n = 1; n <= 3; ++n) angles.push_back(FNRoundStr(cognates(n, 0), kAngleDecimals));
    angles.emplace_back(kDegrees);
    table.rows.push_back(angles);
    return {Report_Text{"Three linkages trace the same coupler curve; the one in hand is cognate " +
                        Text_Of(model.CognateNumber) + "."},
            table};
}

Pieces Synthesis_Pieces(const LinkageModel& model) {
    const Synthesis_Texts texts(model);
    Pieces pieces{Report_Text{std::string(texts.Kind()) + "."}, Report_Heading{"Given"}, texts.Given(),
                  Report_Heading{"Dyads"}, texts.Dyads()};
    constexpr int kAngleDecimals = 2;
    pieces.emplace_back(Report_Text{"Angle of the ground link: " + Text_Of(FNRound(model.Link1Angle, kAngleDecimals)) +
                                    " " + kDegrees + "."});
    pieces.emplace_back(Dyad_Picture(Dyads_In_Force(texts.Three() ? 3 : 2)));
    return pieces;
}

}  // namespace verlink::report
