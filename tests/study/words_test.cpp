// What is said of measures, bounds and fields that cannot be read.
#include <gtest/gtest.h>

#include "study/measure.h"
#include "study/study.h"

namespace verlink::study {

namespace {

std::string Fault(const std::string& measure) {
    std::string fault;
    EXPECT_FALSE(Measure_Of(measure, false, fault)) << measure;
    return fault;
}

TEST(Measure_Words, AreRead) {
    std::string fault;
    const auto at = Measure_Of(" at -12.5  Accel CP:Mag ", false, fault);
    ASSERT_TRUE(at) << fault;
    EXPECT_EQ(at->statistic, Statistic::kAt);
    EXPECT_EQ(at->angle, -12.5);
    EXPECT_EQ(at->function.variable, "Accel CP");
    EXPECT_EQ(at->component, 2);
    EXPECT_EQ(at->wanted, Wanted::kMotion);
    EXPECT_EQ(at->words, "at -12.5  Accel CP:Mag");
    EXPECT_EQ(Measure_Of("max Torque 12", false, fault)->wanted, Wanted::kForces);
    for (const char* balance : {"max F Shk Balcd:Mag", "rms Flywl Torque", "range MShk Balcd"})
        EXPECT_EQ(Measure_Of(balance, false, fault)->wanted, Wanted::kBalance) << balance;
    EXPECT_EQ(Measure_Of("min Trans Ang", false, fault)->wanted, Wanted::kAngles);
    EXPECT_EQ(Measure_Of("closes", false, fault)->wanted, Wanted::kAngles);
    for (const char* points : {"deviation", "deviation line", "range Coupler Pt"})
        EXPECT_EQ(Measure_Of(points, false, fault)->wanted, Wanted::kPoints) << points;
    EXPECT_EQ(Measure_Of("deviation line", false, fault)->statistic, Statistic::kLine);
    EXPECT_EQ(Measure_Of("range Coupler Pt", false, fault)->component, 0);
}

TEST(Measure_Words, WrongOnesAreToldWithTheNearestRightOne) {
    EXPECT_EQ(Fault("mux Theta4"), "there is no measure \"mux\"; did you mean max?");
    EXPECT_EQ(Fault("median Theta4"), "there is no measure \"median\"; did you mean mean?");
    EXPECT_EQ(Fault(""), "there is no measure \"\"");
    EXPECT_EQ(Fault("max Torque 21"), "there is no variable \"Torque 21\"; did you mean Torque 12?");
    EXPECT_EQ(Fault("max Coupler Pt:Z"), "a component is X, Y, Mag or Ang, not \"Z\"");
    EXPECT_EQ(Fault("max"), "\"max\" wants a variable, as in \"max Theta4\"");
    EXPECT_EQ(Fault("at Theta4"), "\"at Theta4\" wants an angle behind \"at\", as in \"at 90 Theta4\"");
    EXPECT_EQ(Fault("at 90"), "\"at 90\" wants a variable, as in \"max Theta4\"");
    EXPECT_EQ(Fault("closes all"), "\"closes\" is of the whole run: \"all\" is too much");
    EXPECT_EQ(Fault("deviation lin"), "\"deviation\" is of the whole run: \"lin\" is too much; did you mean line?");
    EXPECT_EQ(Fault("max Current FFT"), "a study transforms no function: it has no \"Current FFT\"");
}

TEST(Measure_Words, OfABalanceTakeARunByAngle) {
    std::string fault;
    Study study;
    study.design.Calctype = 3;
    study.design.NSteps = 36;
    study.keeps.push_back(*Keep_Of("max F Shk Balcd:Mag < 1", false, fault));
    EXPECT_EQ(Fault_Of(study), "");
    study.design.Calctype = 2;
    EXPECT_EQ(Fault_Of(study), "\"max F Shk Balcd:Mag\" takes a run by angle, which alone is balanced");
    study.measures.push_back(*Measure_Of("rms Flywl Torque", false, fault));
    study.design.Calctype = 1;
    EXPECT_EQ(Fault_Of(study), "\"rms Flywl Torque\" takes a run by angle, which alone is balanced");
}

TEST(Measure_Words, OfABoundAreNoFaultWhereTheRunHasThem) {
    std::string fault;
    Study study;
    study.design.Calctype = 2;
    study.keeps.push_back(*Keep_Of("max Theta4 < 90", false, fault));
    EXPECT_EQ(Fault_Of(study), "");
    study.keeps.push_back(*Keep_Of("max F Shk Balcd:Mag < 1", false, fault));
    EXPECT_EQ(Fault_Of(study), "\"max F Shk Balcd:Mag\" takes a run by angle, which alone is balanced");
    study.keeps.pop_back();
    study.design.torque_table = true;
    EXPECT_EQ(Fault_Of(study), "");
    study.keeps.push_back(*Keep_Of("max Torque 12 < 1", false, fault));
    EXPECT_EQ(Fault_Of(study), "\"max Torque 12\" takes a torque on link 4 that is typed, not a table of torques");
}

TEST(Keep_Words, AreReadOrTold) {
    std::string fault;
    const auto keep = Keep_Of("min Trans Ang >= 40", false, fault);
    ASSERT_TRUE(keep) << fault;
    EXPECT_EQ(keep->measure.words, "min Trans Ang");
    EXPECT_TRUE(keep->Holds(40));
    EXPECT_FALSE(keep->Holds(39.9F));
    EXPECT_EQ(Keep_Of("min Trans Ang>=40", false, fault)->bound, 40) << "blanks are free";
    EXPECT_FALSE(keep->Holds(kNone));
    EXPECT_FALSE(Keep_Of("max Theta4<7", false, fault)->Holds(7));
    EXPECT_TRUE(Keep_Of("max Theta4<=7", false, fault)->Holds(7));
    EXPECT_FALSE(Keep_Of("max Theta4<=7", false, fault)->Holds(7.01F));
    EXPECT_FALSE(Keep_Of("max Theta4>7", false, fault)->Holds(7));
    EXPECT_TRUE(Keep_Of("max Theta4>7", false, fault)->Holds(7.01F));
    EXPECT_FALSE(Keep_Of("min Trans Ang = 40", false, fault));
    EXPECT_EQ(
        fault,
        "a bound is a measure, <, <=, > or >=, and a number, as in \"min Trans Ang > 40\", not \"min Trans Ang = 40\"");
    for (const char* wrong : {"min Trans Ang > 40x", "min Trans Ang > inf", "min Trans Ang >", "min Trans Ang > x"})
        EXPECT_FALSE(Keep_Of(wrong, false, fault)) << wrong;
    EXPECT_FALSE(Keep_Of("mim Trans Ang > 40", false, fault));
    EXPECT_EQ(fault, "there is no measure \"mim\"; did you mean min?");
}

TEST(Field_Words, WrongOnesAreToldWithTheNearestRightOne) {
    Design design;
    design.PolarCoords = true;
    design.Calctype = 3;
    const auto fault_of = [&](const std::string& name) {
        std::string fault;
        EXPECT_FALSE(Field_Named(name, design, fault)) << name;
        return fault;
    };
    EXPECT_EQ(fault_of("Linkmass(3)"), "a study moves no field \"Linkmass(3)\"; did you mean LinkMass(3)?");
    EXPECT_EQ(fault_of("FigureTitle"), "a study moves no field \"FigureTitle\"");
    EXPECT_EQ(fault_of("Link1X"), "Link1X follows from L1 and Link1Angle in this model; move those");
    EXPECT_EQ(fault_of("Alpha2"), "Alpha2 does nothing in a run by angle");
    design.PolarCoords = false;
    EXPECT_EQ(fault_of("L1"), "L1 follows from Link1X and Link1Y in this model; move those");
    std::string fault;
    EXPECT_TRUE(Field_Named("CG(3, 1)", design, fault)) << fault;
}

}  // namespace

}  // namespace verlink::study
