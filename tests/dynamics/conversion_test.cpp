// The conversion of a model from one unit system to another, with its roundings.
#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "core/parameters.h"
#include "dynamics/units.h"
#include "tests/support/fixture.h"

namespace verlink::test {

namespace {

enum class Kind { kLength, kDyad, kForce, kFriction, kTorque, kMass, kInertia };

struct Dimensional {
    std::string name;
    Single* place;
    Kind kind;
};

/// Every field that a conversion touches.
std::vector<Dimensional> Dimensional_Fields() {
    auto& m = Model;
    std::vector<Dimensional> fields = {
        {"L1", &m.L1, Kind::kLength},
        {"L2", &m.L2, Kind::kLength},
        {"L3", &m.L3, Kind::kLength},
        {"L4", &m.L4, Kind::kLength},
        {"Rpa", &m.Rpa, Kind::kLength},
        {"Link1X", &m.Link1X, Kind::kLength},
        {"Link1Y", &m.Link1Y, Kind::kLength},
        {"ForceDist3", &m.ForceDist3, Kind::kLength},
        {"ForceDist4", &m.ForceDist4, Kind::kLength},
        {"ExtForce3X", &m.ExtForce3X, Kind::kForce},
        {"ExtForce3Y", &m.ExtForce3Y, Kind::kForce},
        {"ExtForce4X", &m.ExtForce4X, Kind::kForce},
        {"ExtForce4Y", &m.ExtForce4Y, Kind::kForce},
        {"FrictionForce", &m.FrictionForce, Kind::kFriction},
        {"CamDataLength1", &m.CamDataLength1, Kind::kLength},
        {"CamDiameter", &m.CamDiameter, Kind::kLength},
        {"CamDataLength2", &m.CamDataLength2, Kind::kLength},
        {"CamCenterX", &m.CamCenterX, Kind::kLength},
        {"CamCenterY", &m.CamCenterY, Kind::kLength},
        {"P1x", &m.P1x, Kind::kLength},
        {"P1y", &m.P1y, Kind::kLength},
        {"P21x", &m.P21x, Kind::kLength},
        {"P21y", &m.P21y, Kind::kLength},
        {"P31x", &m.P31x, Kind::kLength},
        {"P31y", &m.P31y, Kind::kLength},
        {"SynS", &m.SynS, Kind::kLength},
        {"SynZ", &m.SynZ, Kind::kLength},
        {"O2x", &m.O2x, Kind::kLength},
        {"O2y", &m.O2y, Kind::kLength},
        {"O4x", &m.O4x, Kind::kLength},
        {"O4y", &m.O4y, Kind::kLength},
    };
    int dyad = 0;
    for (Single* number :
         {&m.SynW, &m.SynU, &m.SynWx, &m.SynWy, &m.SynZx, &m.SynZy, &m.SynUx, &m.SynUy, &m.SynSx, &m.SynSy})
        fields.push_back({"number " + std::to_string(++dyad) + " of the dyads", number, Kind::kDyad});
    for (int cognate = 1; cognate <= 3; ++cognate)
        for (int item = 1; item <= 5; ++item) {
            const std::string index = "(" + std::to_string(cognate) + ", " + std::to_string(item) + ")";
            fields.push_back({"Cognates" + index, &m.Cognates(cognate, item), Kind::kLength});
            fields.push_back({"CayleyRows" + index, &m.CayleyRows(cognate, item), Kind::kLength});
        }
    for (int i = 1; i <= 4; ++i) {
        const std::string index = "(" + std::to_string(i) + ")";
        fields.push_back({"CG" + index, &m.CG(i, 0), Kind::kLength});
        fields.push_back({"ExtForceMag" + index, &m.ExtForceMag(i), Kind::kForce});
        fields.push_back({"ExtTorque" + index, &m.ExtTorque(i), Kind::kTorque});
        fields.push_back({"LinkMass" + index, &m.LinkMass(i), Kind::kMass});
        fields.push_back({"LinkInertia" + index, &m.LinkInertia(i), Kind::kInertia});
    }
    return fields;
}

/// The fields that a conversion must leave alone.
std::map<std::string, Single*> Other_Fields() {
    auto& m = Model;
    std::map<std::string, Single*> fields = {
        {"Delta", &m.Delta},         {"Link1Angle", &m.Link1Angle},   {"Link1AngleRad", &m.Link1AngleRad},
        {"TimeStart", &m.TimeStart}, {"TimeEnd", &m.TimeEnd},         {"TimeStep", &m.TimeStep},
        {"ThetaZero", &m.ThetaZero}, {"Omega2Input", &m.Omega2Input}, {"Alpha2", &m.Alpha2},
        {"ForceAng3", &m.ForceAng3}, {"ForceAng4", &m.ForceAng4},     {"SynAlpha2", &m.SynAlpha2},
        {"SynBeta3", &m.SynBeta3},   {"SynSigma", &m.SynSigma},       {"CamPhase", &m.CamPhase},
        {"Delta2", &m.Delta2},       {"LineAngle", &m.LineAngle},     {"ZoomFactor", &m.ZoomFactor},
    };
    for (int i = 0; i <= 4; ++i) {
        const std::string index = std::to_string(i);
        fields["CGangle" + index] = &m.CG(i, 1);
        fields["ExtForceAng" + index] = &m.ExtForceAng(i);
    }
    for (int cognate = 1; cognate <= 3; ++cognate) {
        const std::string index = std::to_string(cognate);
        fields["CognateDegrees" + index] = &m.Cognates(cognate, 0);
        fields["CognateRadians" + index] = &m.Cognates(cognate, 6);
        fields["CayleyRadians" + index] = &m.CayleyRows(cognate, 6);
    }
    for (const int step : {0, 7, kLastStep}) {
        const std::string at = std::to_string(step);
        fields["PointXY" + at] = &m.RunTable.PointXY(step, 2, 1);
        fields["Theta" + at] = &m.RunTable.Theta(step, 1);
        fields["Omega" + at] = &m.RunTable.Omega(step, 0);
        fields["DriveTheta" + at] = &m.RunTable.DriveTheta(step);
        fields["ImportedTorque" + at] = &m.RunTable.ImportedTorque(step);
    }
    return fields;
}

/// Rounding as text: the printed decimal of the product, read back.
double By_Text(double value, int decimals) {
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "%.*f", decimals, value);
    return static_cast<double>(static_cast<float>(std::strtod(buffer, nullptr)));
}

struct Factors {
    double length, force, torque, mass, inertia;
};
constexpr double kBlob = 386.0 / 2.2046225;
constexpr Factors kInToSI{0.0254, 4.448222, 0.1129848388, kBlob, 0.0254 * 0.0254 * kBlob};
constexpr Factors kSIToIn{1 / 0.0254, 1 / 4.448222, 1 / 0.1129848388, 1 / kBlob, 1 / (0.0254 * 0.0254 * kBlob)};
constexpr Factors kInToFt{1.0 / 12, 1, 1.0 / 12, 12, 1.0 / 12};
constexpr Factors kFtToIn{12, 1, 12, 1.0 / 12, 12};

std::vector<Factors> Road(int from, int to) {
    if (from == to || (from > 2 && to > 2)) return {};
    if (from == 1) return {to == 2 ? kInToFt : kInToSI};
    if (from == 2) return to == 1 ? std::vector{kFtToIn} : std::vector{kFtToIn, kInToSI};
    return to == 1 ? std::vector{kSIToIn} : std::vector{kSIToIn, kInToFt};
}

/// Decimals of a system by kind of quantity: length, force, torque, mass, inertia.
int Decimals_Of(Kind kind, int units) {
    static constexpr int kTable[5][5] = {
        {3, 2, 2, 4, 4}, {3, 2, 3, 3, 3}, {4, 2, 3, 3, 3}, {4, 2, 3, 3, 3}, {4, 2, 3, 3, 3}};
    const auto& row = kTable[units - 1];
    switch (kind) {
        case Kind::kLength: return row[0];
        case Kind::kTorque: return row[2];
        case Kind::kMass: return row[3];
        case Kind::kInertia: return row[4];
        default: return row[1];
    }
}

double Converted(double value, Kind kind, int from, int to) {
    for (const Factors& factors : Road(from, to)) {
        const double factor = kind == Kind::kLength || kind == Kind::kDyad ? factors.length
                              : kind == Kind::kTorque                      ? factors.torque
                              : kind == Kind::kMass                        ? factors.mass
                              : kind == Kind::kInertia                     ? factors.inertia
                                                                           : factors.force;
        const double product = value * static_cast<double>(static_cast<float>(factor));
        const bool keeps_its_digits = kind == Kind::kFriction || kind == Kind::kDyad;
        value = keeps_its_digits ? static_cast<double>(static_cast<float>(product))
                                 : By_Text(product, Decimals_Of(kind, to));
    }
    return value;
}

/// As the units menu does it: the decimals of the new system first.
void Change(int from, int to) {
    Use_Units(to);
    Convert_Units(from, to);
}

}  // namespace

class Conversion : public Fixture {};

TEST_F(Conversion, EveryRoadConvertsEveryFieldAndNoOther) {
    for (int from = 1; from <= 5; ++from) {
        for (int to = 1; to <= 5; ++to) {
            if (from == to && from == 1) continue;
            double value = 3.71828;
            std::map<std::string, double> before, others;
            for (const Dimensional& field : Dimensional_Fields()) {
                *field.place = value += 1.3717;
                before[field.name] = *field.place;
            }
            for (const auto& [name, place] : Other_Fields()) {
                *place = value += 0.7321;
                others[name] = *place;
            }
            // Both forms of link 1 are to be the same place.
            *Other_Fields().at("Link1Angle") = others["Link1Angle"] = Model.Link1AngleRad = others["Link1AngleRad"] = 0;
            Model.Link1X = before["Link1X"] = before["L1"];
            Model.Link1Y = before["Link1Y"] = 0;
            Model.DecLength = Model.DecForce = Model.DecTorque = Model.DecMass = Model.DecInertia = 0;
            Change(from, to);
            for (const Dimensional& field : Dimensional_Fields())
                EXPECT_EQ(*field.place, Converted(before[field.name], field.kind, from, to))
                    << field.name << " from " << from << " to " << to;
            for (const auto& [name, place] : Other_Fields()) EXPECT_EQ(*place, others[name]) << name;
            EXPECT_EQ(Model.LinkArray(0), Model.Rpa);
            EXPECT_EQ(Model.LinkArray(2), Model.L2);
            EXPECT_EQ(Model.LinkArray(6), Model.Link1Y);
        }
    }
}

TEST_F(Conversion, InchesToFeetAndBackLoseWhatRoundingTakes) {
    Model.L2 = 12.345;
    Change(1, 2);
    EXPECT_EQ(Model.L2, static_cast<double>(1.029F));
    Change(2, 1);
    EXPECT_EQ(Model.L2, static_cast<double>(12.348F));
}

TEST_F(Conversion, FeetToMetresRoundAtInchesFirst) {
    // 3.97917 ft is 47.75004 in, which is 47.75 at four decimals, and 47.75 in is 1.21285 m less a hair by the single
    // factor. Without the stop 1.212851 m would read 1.2129.
    Model.L2 = 3.97917;
    // 0.0123 sl is 0.001025 bl, at three decimals 0.001, and that is 0.175 kg. Without the stop 0.179.
    Model.LinkMass(2) = 0.0123;
    Change(2, 3);
    EXPECT_EQ(Model.L2, static_cast<double>(1.2128F));
    EXPECT_EQ(By_Text(static_cast<double>(3.97917F) * 12 * 0.0254, 4), static_cast<double>(1.2129F));
    EXPECT_EQ(Model.LinkMass(2), static_cast<double>(0.175F));
    EXPECT_EQ(By_Text(static_cast<double>(0.0123F) / 12 * kBlob, 3), static_cast<double>(0.179F));
}

TEST_F(Conversion, FrictionForceSurvivesARoundTripWithoutTheLossOfOtherForces) {
    Model.FrictionForce = 1.23456;
    Model.ExtForceMag(3) = 1.23456;
    Change(1, 3);
    EXPECT_EQ(Model.FrictionForce,
              static_cast<double>(static_cast<float>(static_cast<double>(1.23456F) * static_cast<double>(4.448222F))));
    EXPECT_EQ(Model.ExtForceMag(3), static_cast<double>(5.49F));
    Change(3, 1);
    EXPECT_NEAR(Model.FrictionForce, 1.23456, 1e-6);
    EXPECT_EQ(Model.ExtForceMag(3), static_cast<double>(1.23F));
}

TEST_F(Conversion, MetresToMillimetresChangeNoNumberButWhatTheInputScreenShows) {
    Change(1, 3);
    Model.L2 = 0.05;
    Model.L3 = 0.123456;
    LoadLinkArray();
    Change(3, 5);
    EXPECT_EQ(Model.L2, static_cast<double>(0.05F));
    EXPECT_EQ(Model.L3, static_cast<double>(0.123456F));
    EXPECT_EQ(Model.UnitLabel(6), "mm");
    EXPECT_EQ(Model.DecLengthShown, 2);
    auto& input = platform::Screens::Get("frm_Inputnew");
    Put_Linkage_Geometry(input);
    EXPECT_EQ(input.Text("txt_Linkout", 1).Text, "50");
    EXPECT_EQ(input.Text("txt_Linkout", 2).Text, "123.46");
    EXPECT_EQ(input.Get<platform::Label>("lbl_Units", 1).Caption, "mm");
}

TEST_F(Conversion, ToTheMetricSystemsFeetAndInchesGoAlike) {
    for (const int to : {3, 4, 5}) {
        Model.L2 = 1;
        Change(1, to);
        EXPECT_EQ(Model.L2, static_cast<double>(0.0254F)) << to;
        Model.L2 = 1;
        Change(2, to);
        EXPECT_EQ(Model.L2, static_cast<double>(0.3048F)) << to;
    }
}

TEST_F(Conversion, FromInchesToInchesTheFactorsOfTheLastConversionApplyOnceMore) {
    Use_Units(1);
    Factors_Ft_To_In();
    Model.L2 = 2;
    Convert_Units(1, 1);
    EXPECT_EQ(Model.L2, 24);
    Model.L2 = 2;
    Convert_Units(2, 2);
    EXPECT_EQ(Model.L2, 2);
    EXPECT_EQ(Model.LinkArray(2), 2) << "the lengths are packed on every road";
}

TEST_F(Conversion, AnImportedTorqueIsConvertedOverItsRunAndKeepsItsDigits) {
    Use_Units(1);
    Model.TorqueImported = true;
    Model.NSteps = 2;
    for (int step = 0; step <= 3; ++step) Model.RunTable.ImportedTorque(step) = 1.2345678 + step;
    Change(1, 2);
    for (int step = 0; step <= 3; ++step) {
        const double before = static_cast<double>(static_cast<float>(1.2345678 + step));
        EXPECT_NEAR(Model.RunTable.ImportedTorque(step), step <= 2 ? before / 12 : before, 1e-7) << step;
    }
}

TEST_F(Conversion, OfNumbersThatTheNewUnitsCannotHoldLeavesTheModelAsItWas) {
    const auto whole = [](int from, int to) {
        Use_Units(from);
        Model.L2 = 2;
        Model.PolarCoords = true;
        Model.LinkMass(4) = from == 2 && to == 1 ? 1.0 : 3e38;
        Model.ExtForceMag(2) = from == 2 ? 1.0 : 3e38;
        if (from == 2 && to == 1) Model.ExtTorque(3) = 3e38;
        const Single length = Model.L2, load = Model.ExtForceMag(2);
        const bool converted = Convert_Units(from, to);
        EXPECT_EQ(Model.L2, length);
        EXPECT_EQ(Model.ExtForceMag(2), load);
        return converted;
    };
    for (const auto& [from, to] : {std::pair{1, 2}, {1, 3}, {2, 1}}) {
        desktop.Expect_Message_With("Error 6   (Overflow)  has occurred in Do_Conversion");
        EXPECT_FALSE(whole(from, to)) << from << " to " << to;
    }
}

TEST_F(Conversion, IsToldAsDoneWhereItIsAndWhereThereIsNothingToDo) {
    for (int from = 1; from <= 5; ++from)
        for (int to = 1; to <= 5; ++to) EXPECT_TRUE(Convert_Units(from, to)) << from << " to " << to;
}

TEST_F(Conversion, AnUnknownSystemConvertsNothing) {
    Use_Units(1);
    Factors_Ft_To_In();
    Model.L2 = 2;
    for (const int units : {0, 6, -3}) {
        Convert_Units(units, 1);
        Convert_Units(1, units);
        Convert_Units(2, units);
        Convert_Units(3, units);
    }
    EXPECT_EQ(Model.L2, 2);
}

TEST_F(Conversion, AFailureLeavesWhatIsConvertedConverted) {
    Use_Units(1);
    Model.L2 = 2;
    Model.Link1X = 1e38;
    Model.ForceDist3 = 3;
    Model.LinkMass(2) = 5;
    desktop.Expect_Message("Error 6   (Overflow)  has occurred in Do_Conversion\r\n\r\n", platform::Answer::kOk,
                           platform::Icon::kInformation);
    Do_Conversion(12, 1, 1, 1, 1);
    EXPECT_EQ(Model.L2, 24);
    EXPECT_EQ(Model.Link1X, static_cast<double>(1e38F));
    EXPECT_EQ(Model.ForceDist3, 3);
    EXPECT_EQ(Model.LinkMass(2), 5);
}

}  // namespace verlink::test
