// The model in tables: linkage, drive, masses and loads, and its class.
#include <algorithm>
#include <array>

#include "core/classification.h"
#include "core/numeric.h"
#include "core/text.h"
#include "core/toggle.h"
#include "core/why_words.h"
#include "dynamics/mass_properties.h"
#include "platform/screen.h"
#include "report/pieces.h"

namespace verlink::report {

namespace {

constexpr char kSpeed[] = "rad/s", kAcceleration[] = "rad/s^2", kSeconds[] = "sec";
const char* Run_Words(int calctype) {
    constexpr std::array kWords{"One Position", "Time Steps", "Angle Steps", "Cam Driven", "Link Driven"};
    return kWords.at(static_cast<std::size_t>(std::clamp(calctype, run::kOnePosition, run::kLinkDriven) - 1));
}

Report_Table Linkage_Table(const LinkageModel& model) {
    Report_Table table;
    const auto length = [&](const char* what, Single stored) {
        table.rows.push_back({what, Length_Text(model, stored), model.UnitLabel(6)});
    };
    const auto angle = [&](const char* what, Single degrees) {
        table.rows.push_back({what, Angle_Text(degrees), kDegrees});
    };
    length("Link 1 (Ground)", model.L1);
    length("Link 2 (Crank)", model.L2);
    length("Link 3 (Coupler)", model.L3);
    length("Link 4 (Rocker)", model.L4);
    length("Dist to Coupler Pt", model.Rpa);
    angle("Angle to Coupler Pt", model.Delta);
    angle("Angle of Link 1", model.Link1Angle);
    length("Pivot O4, x", model.Link1X);
    length("Pivot O4, y", model.Link1Y);
    table.rows.push_back({"Circuit", model.CircuitName, ""});
    return table;
}

Report_Table Drive_Table(const LinkageModel& model) {
    Report_Table table;
    const auto row = [&](const char* what, const std::string& text, const char* unit) {
        table.rows.push_back({what, text, unit});
    };
    const int mode = model.Calctype;
    row("Calculation Mode", Run_Words(mode), "");
    if (mode == run::kByAngle) {
        row("Min Theta", model.ThetaStartStr, kDegrees);
        row("Max Theta", model.ThetaEndStr, kDegrees);
        row("Delta Theta", model.ThetaStepStr, kDegrees);
        row("Omega2", Text_Of(model.Omega2Input), kSpeed);
    } else if (mode != run::kOnePosition) {
        row("Start Time", Text_Of(model.TimeStart), kSeconds);
        row("End Time", Text_Of(model.TimeEnd), kSeconds);
        row("Delta Time", Text_Of(model.TimeStep), kSeconds);
    }
    if (mode == run::kOnePosition || mode == run::kByTime) {
        row("Theta Zero", Text_Of(model.ThetaZero), kDegrees);
        row(mode == run::kByTime ? "Omega Zero" : "Omega2", Text_Of(model.Omega2Input), kSpeed);
        row("Alpha2", Text_Of(model.Alpha2), kAcceleration);
    }
    if (model.Imported()) row("Driven by", model.Model5Name, "");
    if (mode == run::kLinkDriven) row("Delta 2", Text_Of(model.Delta2), kDegrees);
    return table;
}

/// The boxes of the dynamics screen, by link.
struct Mass_Boxes : platform::Screen {
    using Boxes = platform::ControlArray<platform::TextBox>;
    Mass_Boxes() : Screen("Report_Masses") {}
    Boxes txt_Mass{*this, "txt_Mass", {2, 3, 4}}, txt_Inertia{*this, "txt_Inertia", {2, 3, 4}},
        txt_DistCG{*this, "txt_DistCG", {2, 3, 4}}, txt_AngCG{*this, "txt_AngCG", {2, 3, 4}},
        txt_MagForce{*this, "txt_MagForce", {3, 4}}, txt_AngForce{*this, "txt_AngForce", {3, 4}},
        txt_DistP{*this, "txt_DistP", {3, 4}}, txt_AngP{*this, "txt_AngP", {3, 4}},
        txt_Torque{*this, "txt_Torque", {3, 4}}, txt_Frict{*this, "txt_Frict", {3}};
};

Report_Table Mass_Table(const LinkageModel& model) {
    Mass_Boxes boxes;
    Put_Mass_Properties(boxes, model, model);
    if (model.TorqueImported) boxes.txt_Torque[4].Text = "from " + model.TorqueFileName;
    Report_Table table{{"", "Link 2", "Link 3", "Link 4", "Unit"}, {}, 1, 3};
    const auto row = [&](const char* what, Mass_Boxes::Boxes& of, const std::string& unit) {
        Row texts{what};
        for (int link = 2; link <= 4; ++link) texts.push_back(of.Has(link) ? of[link].Text.Get() : "");
        texts.push_back(unit);
        table.rows.push_back(texts);
    };
    row("Mass of Link", boxes.txt_Mass, model.UnitLabel(14));
    row("Mass Moment of Inertia about CG", boxes.txt_Inertia, model.UnitLabel(15));
    row("Distance to CG from Pivot", boxes.txt_DistCG, model.UnitLabel(6));
    row("Angle to CG in LRCS", boxes.txt_AngCG, model.UnitLabel(1));
    row("Force Magnitude", boxes.txt_MagForce, model.UnitLabel(10));
    row("Angle of Force in GCS", boxes.txt_AngForce, model.UnitLabel(1));
    row("Distance to Force Point from CG", boxes.txt_DistP, model.UnitLabel(6));
    row("Angle to Force Point in LRCS", boxes.txt_AngP, model.UnitLabel(1));
    row("Torque on Link", boxes.txt_Torque, model.UnitLabel(9));
    row("Friction Force on Link", boxes.txt_Frict, model.UnitLabel(10));
    return table;
}

bool Any_Mass_Or_Load(const MassProperties& loads) {
    bool any = loads.FrictionForce != 0;
    for (int link = 2; link <= 4; ++link)
        any = any || loads.LinkMass(link) != 0 || loads.LinkInertia(link) != 0 || loads.ExtForceMag(link) != 0 ||
              loads.ExtTorque(link) != 0;
    return any;
}

std::string Positions_Words(const LinkageModel& model) {
    const int all = model.NSteps + 1;
    int closed = 0;
    for (int step = 0; step < all; ++step) closed += model.RunTable.Assembled(step) ? 1 : 0;
    const std::string of = Text_Of(all) + (all == 1 ? " position" : " positions");
    return closed == all ? of + ", which all close" : of + ", of which " + Text_Of(closed) + " close";
}

}  // namespace

std::string Length_Text(const LinkageModel& model, Single stored) {
    return Text_Of(FNRound(stored * Shown_Factor(model), model.DecLengthShown));
}

std::string Angle_Text(Single degrees) {
    constexpr int kAngleDecimals = 2;
    return Text_Of(FNRound(degrees, kAngleDecimals));
}

Pieces Model_Pieces(const LinkageModel& model) {
    Pieces pieces{Report_Heading{"Linkage"}, Linkage_Table(model), Report_Heading{"Drive"}, Drive_Table(model)};
    if (Any_Mass_Or_Load(model)) {
        pieces.emplace_back(Report_Heading{"Masses and loads"});
        pieces.emplace_back(Mass_Table(model));
        pieces.emplace_back(Report_Text{
            "LRCS: local rotating coordinate system of the link, along its line of centers. GCS: global coordinate "
            "system."});
    }
    return pieces;
}

Pieces Class_Pieces(const LinkageModel& model) {
    Report_Table table;
    table.numbers = 0;
    table.rows.push_back({"Grashof Condition", Grashof_Long_Text()});
    if (model.Grashof_Code == "N") {
        const char* frame = model.Link1Angle == 0 ? " deg" : " deg to link 1";
        table.rows.push_back({"Toggles at +/-", FNRoundStr(Toggle_Angle(model), 1) + frame});
    }
    if (model.Parallelogram) table.rows.push_back({"Shape", "Parallelogram"});
    table.rows.push_back({"Circuit", model.CircuitName});
    Pieces pieces;
    if (model.RunStands) table.rows.push_back({"Calculated", Positions_Words(model)});
    pieces.emplace_back(table);
    if (model.RunStands) pieces.emplace_back(Extremes(model, {{"Trans Ang", "", false}}));
    if (const std::string why = Why_Refused(model); !why.empty()) pieces.emplace_back(Report_Text{why});
    return pieces;
}

}  // namespace verlink::report
