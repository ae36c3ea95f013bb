// The settings of a study as text, in units, and as words.
#include "study/settings.h"

#include <gtest/gtest.h>

#include <cmath>

namespace verlink::study {

namespace {

Settings Some() {
    Settings s;
    s.kind = Settings::Kind::kTolerance;
    s.units = 5;
    s.sweeps[0] = {"L2", 0.04, 0.06, 11};
    s.sweeps[1] = {"Delta", -20, 20.5, 3};
    s.tolerances[1] = {"LinkMass(3)", 0.25, Spread::kUniform};
    s.tolerances[3] = {"no such field", 1e-7, Spread::kWorst};
    s.samples = 123456789012;
    s.seed = 18446744073709551615ULL;
    s.measure = "rms Accel CP:Mag";
    s.keep = "min Trans Ang > 40";
    s.local = true;
    return s;
}

std::string Fault_With(const std::string& text, const std::string& instead) {
    std::string all = Settings_Text(Some());
    const auto at = all.find(text);
    EXPECT_NE(at, std::string::npos) << text;
    all.replace(at, text.size(), instead);
    Settings settings, before = settings;
    std::string fault;
    EXPECT_FALSE(Read_Settings(all, settings, fault)) << all;
    EXPECT_EQ(settings, before);
    return fault;
}

TEST(StudySettings, ComeBackFromTheirText) {
    Settings settings;
    std::string fault;
    ASSERT_TRUE(Read_Settings(Settings_Text(Some()), settings, fault)) << fault;
    EXPECT_EQ(settings, Some());
    ASSERT_TRUE(Read_Settings(Settings_Text({}), settings, fault)) << fault;
    EXPECT_EQ(settings, Settings{});
}

TEST(StudySettings, WordsStandAsTheyWereWritten) {
    Settings written, read;
    written.measure = "größe \"α\"";
    EXPECT_NE(Settings_Text(written).find("\"measure\": \"größe \\\"α\\\"\""), std::string::npos);
    std::string fault;
    ASSERT_TRUE(Read_Settings(Settings_Text(written), read, fault)) << fault;
    EXPECT_EQ(read, written);
    written.measure = "\xff";
    EXPECT_NE(Settings_Text(written).find("\"measure\": \"\uFFFD\""), std::string::npos) << "but what is no text";
}

TEST(StudySettings, AreRefusedByTheNameOfTheField) {
    EXPECT_EQ(Fault_With("\"version\": 1", "\"version\": 2"), "they were written by a newer program");
    EXPECT_EQ(Fault_With("\"version\": 1,", ""), "the field version is missing");
    EXPECT_EQ(Fault_With("\"units\": 5", "\"units\": 6"), "the field units is to be a whole number from 1 to 5");
    EXPECT_EQ(Fault_With("\"kind\": \"tolerance\"", "\"kind\": \"guess\""),
              "the field kind is to be sweep or tolerance, not \"guess\"");
    EXPECT_EQ(Fault_With("\"from\": 0.04", "\"from\": \"x\""), "the field sweeps[0].from is to be a number");
    EXPECT_EQ(Fault_With("\"count\": 3", "\"count\": 0"), "the field sweeps[1].count is to be a whole number from 1");
    EXPECT_EQ(Fault_With("\"plusMinus\": 0.25", "\"plusMinus\": -1"), "the field tolerances[1].plusMinus is negative");
    EXPECT_EQ(Fault_With("\"uniform\"", "\"even\""),
              "the field tolerances[1].spread is to be normal, uniform or worst, not \"even\"");
    EXPECT_EQ(Fault_With("\"keep\": ", "\"keeps\": "), "there is no field keeps");
    EXPECT_EQ(Fault_With("\"keep\": ", "\"ke\\nep\": "), "there is no field ke ep") << "in one line";
    EXPECT_EQ(Fault_With("\"field\": \"L2\"", "\"field\": 2"), "the field sweeps[0].field is to be a text");
    EXPECT_EQ(Fault_With("\"spread\": \"worst\"", "\"spread\": \"worst\", \"why\": 1"),
              "there is no field tolerances[3].why");
    EXPECT_EQ(Fault_With("\"from\": 0.04", "\"from\": 0.04, \"why\": 1"), "there is no field sweeps[0].why");
    EXPECT_EQ(Fault_With("\"samples\": 123456789012", "\"samples\": 1.5"),
              "the field samples is to be a whole number from 1");
    EXPECT_EQ(Fault_With("{", "{{"), "they are no JSON");
    Settings settings;
    std::string fault;
    EXPECT_FALSE(Read_Settings("[]", settings, fault));
    EXPECT_EQ(fault, "they are no object");
}

TEST(StudySettings, GoWithTheUnitsOfTheModel) {
    Settings s;
    s.units = 1;
    s.sweeps[0] = {"L2", 1, 2, 11};
    s.sweeps[1] = {"Omega2Input", 10, 20, 3};
    s.tolerances[0] = {"LinkMass(2)", 0.5, Spread::kNormal};
    s.tolerances[1] = {"ExtForceMag(3)", 2, Spread::kNormal};
    s.tolerances[2] = {"no such field", 7, Spread::kNormal};
    s.keep = "range Coupler Pt:X <= 3";
    const Settings metric = In_Units(s, 5);
    EXPECT_EQ(metric.units, 5);
    EXPECT_DOUBLE_EQ(metric.sweeps[0].from, 0.0254);
    EXPECT_DOUBLE_EQ(metric.sweeps[0].to, 0.0508);
    EXPECT_EQ(metric.sweeps[1], s.sweeps[1]);
    EXPECT_NEAR(metric.tolerances[0].plus_minus, 0.5 * 175.087, 1e-3);
    EXPECT_NEAR(metric.tolerances[1].plus_minus, 8.896444, 1e-6);
    EXPECT_EQ(metric.tolerances[2], s.tolerances[2]);
    EXPECT_EQ(metric.keep, "range Coupler Pt:X <= 76.2");
    const Settings back = In_Units(metric, 1);
    EXPECT_NEAR(back.sweeps[0].to, 2, 1e-12);
    EXPECT_EQ(back.keep, s.keep);
    // Angles and ratios have no unit that changes.
    s.keep = "min Trans Ang > 40";
    EXPECT_EQ(In_Units(s, 3).keep, s.keep);
    EXPECT_EQ(In_Units(Some(), 5), Some()) << "which it has";
}

TEST(StudySettings, ABoundGoesWithTheUnitOfItsMeasure) {
    const auto in_units = [](const std::string& keep, int from, int to) {
        Settings s;
        s.units = from;
        s.keep = keep;
        return In_Units(s, to).keep;
    };
    const std::pair<const char*, const char*> metric[] = {
        {"max Veloc CP:Mag < 10", "max Veloc CP:Mag < 254"},
        {"max Accel CP:X >= 1", "max Accel CP:X >= 25.4"},
        {"deviation <= 2", "deviation <= 50.8"},
        {"deviation line > 2", "deviation line > 50.8"},
        {"max Torque 12 > 1", "max Torque 12 > 0.1129848"},
        {"max MShk Balcd > 1", "max MShk Balcd > 0.1129848"},
        {"max Flywl Torque:X > 1", "max Flywl Torque:X > 0.1129848"},
        {"max F Shaking:Mag < 2", "max F Shaking:Mag < 8.896444"},
        {"max F Shk Balcd:Mag < 2", "max F Shk Balcd:Mag < 8.896444"},
        {"max F14 Balcd:Y < 2000000", "max F14 Balcd:Y < 8896444"},
    };
    for (const auto& [inches, millimetres] : metric) EXPECT_EQ(in_units(inches, 1, 5), millimetres);
    for (const char* keep : {"closes > 0.5", "max Veloc CP:Ang > 5", "max F Shaking:Ang < 2", "max Omega4 > 3",
                             "max w4 / w2 < 0.25", "no bound at all"})
        EXPECT_EQ(in_units(keep, 1, 5), keep);
    EXPECT_EQ(in_units("max Coupler Pt:X < 24", 1, 2), "max Coupler Pt:X < 2");
    EXPECT_EQ(in_units("max Torque 12 > 0", 1, 5), "max Torque 12 > 0");
    // Where nothing changes it is as it was written.
    EXPECT_EQ(in_units("max  Theta4>07", 1, 5), "max  Theta4>07");
    EXPECT_EQ(in_units("max  Torque 12>07", 5, 5), "max  Torque 12>07");
}

TEST(StudySettings, RowsAreObjectsAndNotTooMany) {
    EXPECT_EQ(Fault_With("\"sweeps\": [", "\"sweeps\": [{},"), "the field sweeps is to be a list of at most 2");
    EXPECT_EQ(Fault_With("\"tolerances\": [", "\"tolerances\": [1,2,3,"),
              "the field tolerances is to be a list of at most 6");
    EXPECT_EQ(Fault_With("\"tolerances\": [", "\"tolerances\": [1,2,"), "the field tolerances[0] is to be an object");
    EXPECT_EQ(Fault_With("\"measure\": \"", "\"measure\": 1, \"keep\": \""), "the field measure is to be a text");
    EXPECT_EQ(Fault_With("\"units\": 5", "\"units\": 0"), "the field units is to be a whole number from 1");
    EXPECT_EQ(Fault_With("\"seed\": 18446744073709551615", "\"seed\": -1"),
              "the field seed is to be a whole number from 0");
    EXPECT_EQ(Fault_With("\"frame\": \"local\"", "\"frame\": \"l\""),
              "the field frame is to be global or local, not \"l\"");
    Settings none;
    none.seed = 0;
    none.tolerances[2] = {"L2", 0, Spread::kNormal};
    Settings read;
    std::string fault;
    ASSERT_TRUE(Read_Settings(Settings_Text(none), read, fault)) << fault;
    EXPECT_EQ(read, none);
    EXPECT_NE(Settings_Text(none).find("\"sweeps\": []"), std::string::npos) << "rows without a field are none";
    EXPECT_NE(Settings_Text(none).find("\n  \"seed\": 0,\n"), std::string::npos);
}

TEST(StudySettings, UsualRowsReachATenthAndKeepToHalfAHundredth) {
    Design design;
    design.L2 = 0.012345F;
    design.L3 = -1234.5F;
    design.L4 = 0;
    EXPECT_EQ(Usual_Sweep("L2", design), (Settings::Swept{"L2", 0.01111, 0.01358, 41}));
    EXPECT_EQ(Usual_Sweep("L3", design), (Settings::Swept{"L3", -1358, -1111, 41}));
    EXPECT_EQ(Usual_Sweep("none", design), (Settings::Swept{"none", -1, 1, 41}));
    EXPECT_EQ(Usual_Tolerance("L2", design), (Settings::Tolerated{"L2", 0.00006, Spread::kNormal}));
    EXPECT_EQ(Usual_Tolerance("L3", design), (Settings::Tolerated{"L3", 6, Spread::kNormal}));
    EXPECT_EQ(Usual_Tolerance("L4", design), (Settings::Tolerated{"L4", 0, Spread::kNormal}));
    EXPECT_EQ(Usual_Tolerance("none", design), (Settings::Tolerated{"none", 0, Spread::kNormal}));
    design.PolarCoords = true;
    const Settings usual = Usual_Settings(design, 1);
    EXPECT_EQ(usual.tolerances[1].field, "L3");
    EXPECT_EQ(usual.tolerances[2].field, "L4");
    EXPECT_EQ(usual.tolerances[3].field, "L1");
    EXPECT_EQ(usual.tolerances[4].field, "");
    EXPECT_EQ(usual.sweeps[1].field, "");
}

TEST(StudySettings, AreShownAsTheScreensShowTheirFields) {
    EXPECT_EQ(Shown_Field(" L 2", 5).unit, "mm") << "blanks do not count";
    EXPECT_EQ(Shown_Field("L2", 5).unit, "mm");
    EXPECT_DOUBLE_EQ(Shown_Field("L2", 5).factor, 1000);
    EXPECT_DOUBLE_EQ(Shown_Field("L2", 1).factor, 1);
    EXPECT_EQ(Shown_Field("CG(3,1)", 1).unit, "deg");
    EXPECT_NEAR(Shown_Field("CG(3,1)", 1).factor, 57.29578, 1e-5);
    EXPECT_DOUBLE_EQ(Shown_Field("Delta", 1).factor, 1);
    EXPECT_EQ(Shown_Field("Alpha2", 2).unit, "rad/s^2");
    EXPECT_EQ(Shown_Field("L22", 2).unit, "");
}

TEST(StudySettings, BecomeTheWordsOfOneKind) {
    Settings s = Some();
    Words words = Words_Of(s);
    EXPECT_TRUE(words.sweeps.empty());
    EXPECT_EQ(words.tolerances, (std::vector<std::string>{"LinkMass(3)=0.25:uniform", "no such field=1e-07:worst"}));
    EXPECT_EQ(words.keeps, std::vector<std::string>{"min Trans Ang > 40"});
    EXPECT_TRUE(words.local);
    s.kind = Settings::Kind::kSweep;
    s.keep.clear();
    words = Words_Of(s);
    EXPECT_EQ(words.sweeps, (std::vector<std::string>{"L2=0.04:0.06:11", "Delta=-20:20.5:3"}));
    EXPECT_TRUE(words.tolerances.empty());
    EXPECT_TRUE(words.keeps.empty());
    EXPECT_EQ(words.samples, 123456789012U);
    EXPECT_EQ(words.seed, 18446744073709551615ULL);
    EXPECT_EQ(words.measures, std::vector<std::string>{"rms Accel CP:Mag"});
}

TEST(StudySettings, BeginWithFieldsThatMoveSomething) {
    Design design;
    design.PolarCoords = false;
    design.Calctype = 3;
    design.L2 = 1.234, design.L3 = 4, design.L4 = 3, design.Link1X = 0;
    const Settings s = Usual_Settings(design, 2);
    EXPECT_EQ(s.units, 2);
    EXPECT_EQ(s.sweeps[0], (Settings::Swept{"L2", 1.111, 1.357, 41}));
    EXPECT_EQ(s.tolerances[0], (Settings::Tolerated{"L2", 0.006, Spread::kNormal}));
    EXPECT_EQ(s.tolerances[3].field, "Link1X");
    EXPECT_EQ(Usual_Sweep("Link1X", design), (Settings::Swept{"Link1X", -1, 1, 41}));
    std::string fault;
    EXPECT_TRUE(Study_Of(Words_Of(s), design, fault)) << fault;
}

}  // namespace

}  // namespace verlink::study
