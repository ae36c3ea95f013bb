// Functions are looked up once, and read step by step.
#include "output/series.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <optional>

#include "core/number.h"
#include "core/numeric.h"
#include "output/reading.h"

namespace verlink {

namespace {

constexpr int kAngleUnit = 1;  ///< of `UnitLabel`
constexpr double kTurn = 360;

/// Below 0 for none.
int Component_Number(const std::string& name) {
    constexpr std::array kNames{"X", "Y", "Mag", "Ang"};
    for (int number = 0; number < 4; ++number)
        if (name == kNames[static_cast<std::size_t>(number)]) return number;
    return -1;
}

Variable_Facts Facts(const Output_Function& function) { return Facts_Of(function.variable).value(); }

/// Of the crank; a position that does not close has it in the ground link's frame.
double Global_Angle(const RunResults& table, int step, double link1_angle) {
    return table.Theta(step, 0) + (table.Assembled(step) ? 0.0 : link1_angle);
}

/// The angles as they go on from step to step, without the leaps of a stored angle.
std::vector<double> Angles(const RunResults& table, int last, double link1_angle) {
    std::vector<double> angles;
    for (int step = 0; step <= last; ++step) {
        const double angle = Global_Angle(table, step, link1_angle);
        const double before = angles.empty() ? angle : angles.back();
        angles.push_back(angle + kTurn * std::round((before - angle) / kTurn));
    }
    return angles;
}

/// As many decimals as round angles take, but no more than three.
int Decimals_Of_Angles(double apart) {
    int decimals = 0;
    for (double scaled = apart; decimals < 3 && std::abs(scaled - std::round(scaled)) > 1e-4; scaled *= 10) ++decimals;
    return decimals;
}

/// As many decimals as tell neighbours apart.
int Decimals_Of_Times(double apart) {
    return apart > 0 ? std::max(1 + static_cast<int>(std::ceil(-std::log10(apart))), 2) : 2;
}

/// Of a run by angle, from its first position on.
double Turned(const Drive& drive, int step) {
    const double whole = std::abs(drive.ThetaEnd - drive.ThetaStart);
    return drive.Omega2Input == 0 ? 0 : std::min(step * drive.ThetaStep, whole);
}

double Angle_At(const Drive& drive, int step) {
    if (drive.Calctype == run::kOnePosition) return drive.ThetaZero;
    return drive.Omega2Input > 0 ? drive.ThetaStart + Turned(drive, step) : drive.ThetaEnd - Turned(drive, step);
}

double Time_At(const Drive& drive, int step) {
    if (drive.Calctype != run::kByAngle) return step * drive.TimeStep + drive.TimeStart;
    return Turned(drive, step) * kDegToRad / std::abs(drive.Omega2Input);
}

}  // namespace

bool Can_Be_Read(const Output_Function& function) {
    const auto facts = Facts_Of(function.variable);
    if (!facts || facts->group == kTransformGroup) return false;
    return !facts->vector || Component_Number(function.component) >= 0;
}

Needs Needs_Of(const Output_Function& function) { return Facts(function).needs; }

bool Has_Components(const Output_Function& function) { return Facts(function).vector; }
bool Has_Frames(const Output_Function& function) { return Facts(function).in_frames; }

std::string Words_Of(const Output_Function& function) {
    std::string words = function.variable;
    if (Has_Components(function)) words += " " + function.component;
    if (Has_Frames(function) && function.local) words += " local";
    return words;
}

std::string Unit_Of(const Output_Function& function, const UnitSystem& units) {
    if (Has_Components(function) && function.component == "Ang") return units.UnitLabel(kAngleUnit);
    return units.UnitLabel(Unit_Of_Group(Facts(function).group));
}

std::vector<double> Series(const Output_Function& function, const RunResults& table, Single link1_angle, int last) {
    const Variable_Facts facts = Facts(function);
    const Reading_Frame frame{link1_angle, facts.in_frames && function.local, kSmall};
    const int component = Component_Number(function.component), link = Frame_Link(facts.row);
    std::vector<double> values(static_cast<std::size_t>(last + 1), std::numeric_limits<double>::quiet_NaN());
    for (int step = 0; step <= last; ++step) {
        if (!table.Assembled(step)) continue;
        const auto value = Read_Run(table, facts.group, facts.row, step, link, component, frame);
        if (value) values[static_cast<std::size_t>(step)] = *value;
    }
    return values;
}

Abscissa Abscissa_In_Force(Abscissa wished, const Drive& drive) {
    const bool timeless =
        drive.Calctype == run::kOnePosition || (drive.Calctype == run::kByAngle && drive.Omega2Input == 0);
    return timeless ? Abscissa::kAngle : wished;
}

Stations Stations_Of(Abscissa wished, const Drive& drive, const RunResults& table, Single link1_angle) {
    Stations stations;
    const int last = drive.NSteps;
    const auto label = [&](double value, int decimals) { stations.labels.push_back(FNRoundStr(value, decimals)); };
    if (Abscissa_In_Force(wished, drive) == Abscissa::kTime) {
        stations.title = "Time (Sec)";
        const int decimals = Decimals_Of_Times(std::abs(Time_At(drive, 1) - Time_At(drive, 0)));
        for (int step = 0; step <= last; ++step) label(Time_At(drive, step), decimals);
        return stations;
    }
    stations.title = "Crank Angle (Deg)";
    if (drive.Calctype == run::kByAngle || drive.Calctype == run::kOnePosition) {
        const int decimals = Decimals_Of_Angles(drive.Calctype == run::kByAngle ? drive.ThetaStep : drive.ThetaZero);
        for (int step = 0; step <= last; ++step) label(Angle_At(drive, step), decimals);
    } else {
        stations.places = Angles(table, last, link1_angle);
        for (const double angle : stations.places) label(angle, 2);
    }
    return stations;
}

}  // namespace verlink
