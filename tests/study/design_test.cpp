// What a study can move, what follows from it, and which limits it takes.
#include "study/design.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <set>

#include "core/linkage_model.h"
#include "study/study.h"
#include "tests/support/fixture.h"

namespace verlink::study {

namespace {

Design Four_Bars() {
    Design d;
    d.PolarCoords = true;
    d.L1 = 4, d.L2 = 1, d.L3 = 3, d.L4 = 2.5, d.Rpa = 2;
    d.Calctype = 3;
    return d;
}

/// Limits of a run by angle, degrees, or by time.
Drive Limits(int calctype, double first, double last, double stride) {
    Drive drive;
    drive.Calctype = calctype;
    drive.TimeStart = drive.ThetaStart = first;
    drive.TimeEnd = drive.ThetaEnd = last;
    drive.TimeStep = drive.ThetaStep = stride;
    drive.ThetaStartRad = first * kDegToRad;
    drive.ThetaEndRad = last * kDegToRad;
    drive.ThetaStepRad = stride * kDegToRad;
    return drive;
}

}  // namespace

TEST(Designs, Link1FollowsFromTheFormInForce) {
    Design d = Four_Bars();
    d.Link1X = -3, d.Link1Y = 4, d.Link1Angle = 30;
    EXPECT_TRUE(d.Derive());
    EXPECT_EQ(d.L1, 4);
    EXPECT_EQ(d.Link1Angle, 30);
    EXPECT_NEAR(d.Link1AngleRad, M_PI / 6, 1e-7);
    d.PolarCoords = false;
    EXPECT_TRUE(d.Derive());
    EXPECT_EQ(d.L1, 5);
    EXPECT_NEAR(d.Link1Angle, 180 - std::atan2(4, 3) * 180 / M_PI, 1e-4);
    EXPECT_NEAR(d.Link1AngleRad, M_PI - std::atan2(4, 3), 1e-6);
    d.Delta = -90;
    d.Derive();
    EXPECT_NEAR(d.DeltaRad, -M_PI / 2, 1e-7);
    EXPECT_EQ(d.LinkArray(2), 1);
    EXPECT_EQ(d.LinkArray(3), 3);
    EXPECT_EQ(d.LinkArray(4), 2.5);
    d.ExtForceMag(3) = 2, d.ExtForceAng(3) = 30;
    d.Derive();
    EXPECT_NEAR(d.ExtForce3X, std::sqrt(3), 1e-6);
    EXPECT_NEAR(d.ExtForce3Y, 1, 1e-6);
}

TEST(Designs, LengthsThatCloseNowhereAreNone) {
    Design d = Four_Bars();
    Single* const lengths[] = {&d.L1, &d.L2, &d.L3, &d.L4};
    for (Single* longest : lengths) {
        for (Single* length : lengths) *length = 1;
        *longest = 2.999;
        EXPECT_TRUE(d.Derive());
        *longest = 3;
        EXPECT_FALSE(d.Derive()) << "stretched out it does not turn";
        *longest = 3.5;
        EXPECT_FALSE(d.Derive());
        *longest = 0;
        EXPECT_TRUE(d.Derive());
        *longest = -0.5;
        EXPECT_FALSE(d.Derive());
    }
    // The longest link against all three others, whichever it is.
    std::array<double, 4> each{1, 2, 3, 6.5};
    do {
        for (std::size_t i = 0; i < 4; ++i) *lengths[i] = each[i];
        EXPECT_FALSE(d.Derive());
        for (std::size_t i = 0; i < 4; ++i) *lengths[i] = std::min(each[i], 5.75);
        EXPECT_TRUE(d.Derive());
    } while (std::next_permutation(each.begin(), each.end()));
    d = Four_Bars();
    d.Rpa = 0;
    EXPECT_TRUE(d.Derive());
    d.Rpa = -1;
    EXPECT_FALSE(d.Derive());
}

TEST(Designs, EachFieldHasItsOwnPlaceStreamAndKey) {
    std::set<int> streams;
    std::set<std::string> keys{Key_Of(Four_Bars())};
    std::size_t count = 0;
    for (const Field& field : Fields()) {
        Design d = Four_Bars();
        field.place(d) += 0.125;
        EXPECT_TRUE(keys.insert(Key_Of(d)).second) << field.name;
        EXPECT_TRUE(streams.insert(field.stream).second) << field.name;
        const std::string name = field.name;
        EXPECT_EQ(Kept_In_Radians(field), name == "CG(2,1)" || name == "CG(3,1)" || name == "CG(4,1)") << name;
        ++count;
    }
    EXPECT_EQ(count, 35U);
    EXPECT_EQ(*streams.begin(), 8);
    EXPECT_EQ(*streams.rbegin(), 86);
    const auto differs = [&](auto change) {
        Design d = Four_Bars();
        change(d);
        return keys.insert(Key_Of(d)).second;
    };
    EXPECT_TRUE(differs([](Design& d) { d.ThetaStartRad = 1; }));
    EXPECT_TRUE(differs([](Design& d) { d.ThetaEndRad = 1; }));
    EXPECT_TRUE(differs([](Design& d) { d.ThetaStepRad = 1; }));
    EXPECT_TRUE(differs([](Design& d) { d.TimeStart = 1; }));
    EXPECT_TRUE(differs([](Design& d) { d.TimeStep = 1; }));
    EXPECT_TRUE(differs([](Design& d) { d.shown = 1000; }));
    EXPECT_TRUE(differs([](Design& d) { d.Calctype = 2; }));
    EXPECT_TRUE(differs([](Design& d) { d.NSteps = 17; }));
    EXPECT_TRUE(differs([](Design& d) { d.CircuitSign = 1; }));
    EXPECT_TRUE(differs([](Design& d) { d.wrap = Wrap::k180; }));
    EXPECT_TRUE(differs([](Design& d) { d.PolarCoords = false; }));
    EXPECT_FALSE(differs([](Design&) {}));
}

/// The line of the model file that a field's random numbers have.
TEST(Designs, FieldsMoveWhatTheyAreCalled) {
    Design d = Four_Bars();
    const auto field = [&](const char* name) -> const Field& {
        std::string fault;
        const auto found = Field_Named(name, d, fault);
        EXPECT_TRUE(found) << fault;
        return Fields()[static_cast<std::size_t>(found.value_or(0))];
    };
    const auto moves = [&](const char* name, int stream, const Single& place) {
        EXPECT_EQ(&field(name).place(d), &place) << name;
        EXPECT_EQ(field(name).stream, stream) << name;
    };
    moves("L2", 8, d.L2);
    moves("L3", 9, d.L3);
    moves("L4", 10, d.L4);
    moves("L1", 11, d.L1);
    moves("Rpa", 12, d.Rpa);
    moves("Delta", 13, d.Delta);
    moves("Omega2Input", 38, d.Omega2Input);
    for (const int link : {2, 3, 4}) {
        const std::string number = std::to_string(link);
        moves(("CG(" + number + ",0)").c_str(), 54 + 2 * link, d.CG(link, 0));
        moves(("CG(" + number + ", 1)").c_str(), 55 + 2 * link, d.CG(link, 1));
        moves(("LinkMass(" + number + ")").c_str(), 62 + link, d.LinkMass(link));
        moves(("LinkInertia(" + number + ")").c_str(), 65 + link, d.LinkInertia(link));
    }
    for (const int link : {3, 4}) {
        const std::string number = std::to_string(link);
        const int before = link == 3 ? 0 : 6;
        moves(("ExtForceMag(" + number + ")").c_str(), 70 + before, d.ExtForceMag(link));
        moves(("ExtForceAng(" + number + ")").c_str(), 71 + before, d.ExtForceAng(link));
        moves(("ForceDist" + number).c_str(), 72 + before, link == 3 ? d.ForceDist3 : d.ForceDist4);
        moves(("ForceAng" + number).c_str(), 73 + before, link == 3 ? d.ForceAng3 : d.ForceAng4);
        moves(("ExtTorque(" + number + ")").c_str(), 74 + before, d.ExtTorque(link));
    }
    moves("FrictionForce", 75, d.FrictionForce);
    moves("Link1Angle", 82, d.Link1Angle);
    d.Calctype = 2;
    moves("ThetaZero", 37, d.ThetaZero);
    moves("Alpha2", 39, d.Alpha2);
    d.PolarCoords = false;
    moves("Link1X", 85, d.Link1X);
    moves("Link1Y", 86, d.Link1Y);
}

TEST(Designs, AFieldThatMovesNothingSaysWhy) {
    Design d = Four_Bars();
    const auto fault = [&](const std::string& name) {
        std::string words;
        const auto found = Field_Named(name, d, words);
        EXPECT_EQ(found.has_value(), words.empty()) << name;
        return words;
    };
    EXPECT_EQ(fault("Link1X"), "Link1X follows from L1 and Link1Angle in this model; move those");
    EXPECT_EQ(fault("Link1Y"), "Link1Y follows from L1 and Link1Angle in this model; move those");
    EXPECT_EQ(fault("L1"), "");
    EXPECT_EQ(fault("Link1Angle"), "");
    EXPECT_EQ(fault("Alpha2"), "Alpha2 does nothing in a run by angle");
    EXPECT_EQ(fault("ThetaZero"), "ThetaZero does nothing in a run by angle");
    d.PolarCoords = false;
    EXPECT_EQ(fault("L1"), "L1 follows from Link1X and Link1Y in this model; move those");
    EXPECT_EQ(fault("Link1Angle"), "Link1Angle follows from Link1X and Link1Y in this model; move those");
    EXPECT_EQ(fault("Link1X"), "");
    for (const int calctype : {1, 2}) {
        d.Calctype = calctype;
        EXPECT_EQ(fault("Alpha2"), "");
        EXPECT_EQ(fault("ThetaZero"), "");
    }
    EXPECT_EQ(fault("LinkMas(2)"), "a study moves no field \"LinkMas(2)\"; did you mean LinkMass(2)?");
    EXPECT_EQ(fault("zzzzzzzzz"), "a study moves no field \"zzzzzzzzz\"");
}

TEST(Designs, LimitsGiveTheStepsOfARun) {
    const auto steps = [](Drive drive) {
        drive.NSteps = 77;
        const std::string fault = Take_Limits(drive);
        return fault.empty() ? std::to_string(int{drive.NSteps}) : fault;
    };
    const std::string where = "; the input screen has them";
    const std::string ascend = "the limits of the run do not ascend" + where;
    const std::string positive = "the steps of the run are not positive" + where;
    const std::string large = "the steps of the run are larger than its range" + where;
    const std::string many = "the run has more than 2881 positions; the input screen has its steps";
    EXPECT_EQ(steps(Limits(3, 10, 50, 10)), "4");
    EXPECT_EQ(steps(Limits(3, 10, 55, 10)), "5") << "the last one is shorter";
    EXPECT_EQ(steps(Limits(2, 0, 1, 0.25)), "4");
    EXPECT_EQ(steps(Limits(1, 5, 3, 0)), "77");
    EXPECT_EQ(steps(Limits(4, 5, 3, 0)), "77");
    EXPECT_EQ(steps(Limits(0, 0, 360, 5)), "there is no run yet; the input screen makes one");
    for (const int calctype : {2, 3}) {
        EXPECT_EQ(steps(Limits(calctype, 50, 10, 10)), ascend);
        EXPECT_EQ(steps(Limits(calctype, 50, 50, 10)), ascend);
        EXPECT_EQ(steps(Limits(calctype, 10, 50, 0)), positive);
        EXPECT_EQ(steps(Limits(calctype, 10, 50, -10)), positive);
        EXPECT_EQ(steps(Limits(calctype, 0, 360, 0.125)), "2880");
        EXPECT_EQ(steps(Limits(calctype, 0, 361, 0.125)), many);
        EXPECT_EQ(steps(Limits(calctype, 0, 40, 40)), "1");
    }
    EXPECT_EQ(steps(Limits(3, 0, 40, 40.5)), "1") << "a fiftieth more is let through";
    EXPECT_EQ(steps(Limits(3, 0, 40, 41.25)), large);
    EXPECT_EQ(steps(Limits(3, 100, 140, 50)), large) << "wherever it begins";
    EXPECT_EQ(steps(Limits(3, -20, 20, 10)), "4");
    Drive drive = Limits(3, 10, 50, 10);
    drive.ThetaStepRad = 0;
    EXPECT_EQ(steps(drive), positive);
    drive = Limits(3, 0, 40, 10);
    drive.ThetaStepRad = 0.75;
    drive.ThetaEndRad = 0.98 * drive.ThetaStepRad;
    EXPECT_EQ(steps(drive), large) << "a fiftieth more is too much by itself";
}

TEST(Designs, AModelGivesItsCircuitFactorAndWrapping) {
    test::Reset_Model();
    Model.CircuitIndex = 1;
    Model.Units = 5;
    Model.ModuloMode = "abs";
    Model.L2 = 7;
    Design d = Design_Of(Model);
    EXPECT_EQ(d.CircuitSign, -1);
    EXPECT_EQ(d.shown, 1000);
    EXPECT_EQ(d.wrap, Wrap::kAbs);
    EXPECT_EQ(d.L2, 7);
    Model.CircuitIndex = 2;
    Model.ModuloMode = "180";
    d = Design_Of(Model);
    EXPECT_EQ(d.CircuitSign, 1);
    EXPECT_EQ(d.wrap, Wrap::k180);
    Model.ModuloMode = "";
    EXPECT_EQ(Design_Of(Model).wrap, Wrap::kNone);
    for (const bool imported : {true, false}) {
        Model.TorqueImported = imported;
        EXPECT_EQ(Design_Of(Model).torque_table, imported);
    }
    test::Reset_Model();
}

TEST(Designs, AStudyThatCannotBeMadeSaysWhy) {
    Study study{Four_Bars(), {}, {}, {}};
    study.design.NSteps = 36;
    std::string fault;
    const auto at = [&](double angle) {
        return Measure_Of("at " + std::to_string(angle) + " Theta4", false, fault).value();
    };
    const auto words = [&](int calctype) {
        study.design.Calctype = calctype;
        return Fault_Of(study);
    };
    for (const int calctype : {1, 2, 3}) EXPECT_EQ(words(calctype), "");
    EXPECT_EQ(words(4), "a study takes a model that is run by angle, by time or at one position");
    study.measures = {at(30)};
    EXPECT_EQ(words(1), "");
    EXPECT_EQ(words(2), "a measure \"at\" an angle takes a run by angle or one position");
    EXPECT_EQ(words(3), "");
    study.design.NSteps = 2880;
    EXPECT_EQ(words(3), "the run and the angles of \"at\" have more than 2881 positions");
    EXPECT_EQ(words(1), "") << "which has one step, whatever stands there";
    study.measures.clear();
    for (int angle = 0; angle < 2880; ++angle) study.measures.push_back(at(0.125 * angle));
    EXPECT_EQ(words(1), "") << "and room for as many angles";
    study.measures.push_back(at(-1));
    EXPECT_EQ(words(1), "the run and the angles of \"at\" have more than 2881 positions");
    study.design.NSteps = 2878;
    study.measures = {at(30), at(30)};
    study.keeps = {{at(40), Keep::Order::kMore, 0}, {at(30), Keep::Order::kMore, 0}};
    EXPECT_EQ(words(3), "") << "two angles";
    study.design.NSteps = 2879;
    EXPECT_EQ(words(3), "the run and the angles of \"at\" have more than 2881 positions");
    study.measures.clear();
    study.keeps = {{Measure_Of("max F12 Balcd:Mag", false, fault).value(), Keep::Order::kMore, 0}};
    EXPECT_EQ(words(3), "");
    EXPECT_EQ(words(1), "\"max F12 Balcd:Mag\" takes a run by angle, which alone is balanced");
    study.keeps.clear();
    study.plan.sweeps = {{0, 1, 2, Number{1} << 30U}, {1, 1, 2, Number{1} << 24U}};
    EXPECT_EQ(words(3), "the study has more linkages than can be numbered");
}

}  // namespace verlink::study
