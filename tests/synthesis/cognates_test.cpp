// The table of cognates, the record as one of them, and when the table is made anew.
#include "synthesis/cognates.h"

#include "core/classification.h"
#include "tests/core/linkages.h"
#include "tests/support/reference.h"
#include "tests/synthesis/synthesis_fixture.h"

namespace verlink::test {

namespace {

const std::vector<std::string> kItems{"L1", "L2", "L3", "L4", "Rpa", "DeltaRad"};

struct Cognates : Synthesis {
    CognateTable cognates, rows;

    void Take(std::initializer_list<double> first) {
        int item = 0;
        for (const double value : first) cognates(1, ++item) = value;
        Cayley(cognates, rows);
    }
    static void Expect_Row(const CognateTable& table, int row, std::initializer_list<double> expected) {
        int item = 0;
        for (const double value : expected) {
            ++item;
            EXPECT_NEAR(table(row, item), value, 1e-6) << "row " << row << ", item " << item;
        }
    }
    static void Expect_Linkage(double L1, double L2, double L3, double L4, double Rpa) {
        EXPECT_NEAR(Model.L1, L1, 1e-6);
        EXPECT_NEAR(Model.L2, L2, 1e-6);
        EXPECT_NEAR(Model.L3, L3, 1e-6);
        EXPECT_NEAR(Model.L4, L4, 1e-6);
        EXPECT_NEAR(Model.Rpa, Rpa, 1e-6);
    }
    static void Expect_Checked(int cognate) {
        for (const char* screen : {"frm_HomeScreen", "frm_Inputnew"})
            for (int entry = 1; entry <= 3; ++entry)
                EXPECT_EQ(platform::Screens::Get(screen).Get<platform::MenuEntry>("mnu_Cog", entry).Checked.Get(),
                          entry == cognate)
                    << screen << ' ' << entry;
    }
};

}  // namespace

TEST_F(Cognates, AreThoseOfAComputationToFortyDigits) {
    const auto table = Read_Table("cognates.csv");
    EXPECT_GE(table.size(), 50u);
    for (const Row& row : table) {
        for (int item = 1; item <= 6; ++item)
            cognates(1, item) = Number(row, kItems[static_cast<std::size_t>(item - 1)]);
        Cayley(cognates, rows);
        for (const int n : {2, 3})
            for (int item = 1; item <= 6; ++item) {
                const std::string name = std::to_string(n) + " " + kItems[static_cast<std::size_t>(item - 1)];
                const std::pair<const CognateTable&, std::string> tables[] = {{rows, "Row"}, {cognates, "Cognate"}};
                for (const auto& [computed, kind] : tables) {
                    const double exact = Number(row, kind + name), found = computed(n, item);
                    const double apart = found - exact;
                    if (item == 6) {
                        EXPECT_NEAR(std::remainder(apart, 2 * std::numbers::pi), 0, 2e-6) << kind << name;
                    } else {
                        EXPECT_NEAR(apart, 0, 1e-6 * std::max(1.0, exact)) << kind << name;
                    }
                }
            }
        for (int item = 1; item <= 6; ++item) EXPECT_EQ(rows(1, item), cognates(1, item));
    }
}

TEST_F(Cognates, HaveTheShorterSideLinkAsTheirCrankAndKeepTheAngleOfTheTable) {
    // The coupler triangle is 3, 4, 5 with its right angle at B.
    Take({6, 1, 3, 4, 5, std::atan2(4, 3)});
    const double d = std::atan2(4, 3), h = std::numbers::pi / 2 - d, g = std::numbers::pi / 2;
    Expect_Row(rows, 1, {6, 1, 3, 4, 5, d});
    Expect_Row(rows, 2, {10, 20.0 / 3, 5.0 / 3, 5, 4.0 / 3, h});
    Expect_Row(rows, 3, {8, 4, 16.0 / 3, 4.0 / 3, 4, g});
    Expect_Row(cognates, 2, {10, 5, 5.0 / 3, 20.0 / 3, 1, d});
    Expect_Row(cognates, 3, {8, 4.0 / 3, 16.0 / 3, 4, 20.0 / 3, h});
    // With crank and rocker the other way round the second keeps its side links, the third has equal ones no more.
    Take({6, 4, 3, 1, 5, d});
    Expect_Row(cognates, 2, {10, 5.0 / 3, 20.0 / 3, 5, 16.0 / 3, h});
    Expect_Row(cognates, 3, {8, 4, 4.0 / 3, 16.0 / 3, 1, g});
}

TEST_F(Cognates, OfAPointOnTheJointHaveNoCouplerBetweenTheirSideLinks) {
    Take({4, 1, 3, 2, 0, 0.5});
    const double h = std::numbers::pi - 0.5;
    Expect_Row(rows, 2, {4.0 / 6 * 0, 0, 0, 0, 1, h});
    Expect_Row(rows, 3, {4, 3, 2, 1, 2, 0});
    Expect_Row(cognates, 2, {0, 0, 0, 0, 1, 0.5});
    Expect_Row(cognates, 3, {4, 1, 2, 3, 0, h});
}

TEST_F(Cognates, OfAPointOnTheOtherJointAreTheLinkageAgainAndAPoint) {
    Take({4, 1, 3, 2, 3, 0});
    Expect_Row(rows, 2, {4, 2, 1, 3, 0, std::numbers::pi});
    Expect_Row(rows, 3, {0, 0, 0, 0, 2, 0});
    Expect_Row(cognates, 2, {4, 2, 1, 3, 0, std::numbers::pi});
    Expect_Row(cognates, 3, {0, 0, 0, 0, 2, std::numbers::pi});
}

TEST_F(Cognates, OfACouplerWithoutLengthHaveNoneBeyondThoseOfItsPoint) {
    Take({4, 1, 0, 3, 2, 0.25});
    // The point is as far from B as from A.
    Expect_Row(rows, 2, {2, 0, 0, 2, 0});
    Expect_Row(rows, 3, {2, 2, 0, 0, 3});
    Expect_Row(cognates, 2, {2, 0, 0, 2, 0});
    Expect_Row(cognates, 3, {2, 0, 0, 2, 0});
}

TEST_F(Cognates, OfALinkageWithoutMovingLinksAreReportedAndZero) {
    for (int item = 1; item <= 6; ++item) cognates(2, item) = cognates(3, item) = 7;
    desktop.Expect_Message("Error 11   (Division by zero)  has occurred in Cayley\r\n\r\n");
    Take({4, 0, 0, 0, 1, 0.5});
    Expect_Row(cognates, 2, {0, 0, 0, 0, 0, 0});
    Expect_Row(cognates, 3, {0, 0, 0, 0, 0, 0});
}

TEST_F(Cognates, AreSeededFromTheRecord) {
    Model.CognateNumber = 3;
    Model.CognateEdit = true;
    Take_Lengths(4, 1, 3, 2.5);
    Take_Coupler_Point(2, 33.37);
    SeedCognate();
    Expect_Row(Model.Cognates, 1, {4, 1, 3, 2.5, 2, Model.DeltaRad});
    EXPECT_GT(Model.Cognates(3, 3), 0);
    EXPECT_NEAR(Model.Delta, 33.37, 1e-5);
    EXPECT_EQ(Model.DeltaStr, "33.4");
    EXPECT_EQ(Model.CognateNumber, 1);
    EXPECT_FALSE(Model.CognateEdit);
    Expect_Checked(1);
}

TEST_F(Cognates, AreSeededAtTheStart) {
    Expect_Row(Model.Cognates, 1, {2.667, 1.115, 2.5, 2.5, 1.697});
    Expect_Row(Model.CayleyRows, 1, {2.667, 1.115, 2.5, 2.5, 1.697});
    EXPECT_GT(Model.Cognates(2, 1), 1);
    Expect_Checked(1);
}

TEST_F(Cognates, BecomeTheRecordWithTheGroundInItsDirection) {
    Model.Link1Angle = 30;
    Model.Link1Y = 5;
    GetCognates(Model.Cognates, 2, Model.L2, Model.L3, Model.L4, Model.L1, Model.Rpa, Model.DeltaRad);
    EXPECT_EQ(Model.L1, Model.Cognates(2, 1));
    EXPECT_EQ(Model.L2, Model.Cognates(2, 2));
    EXPECT_EQ(Model.L3, Model.Cognates(2, 3));
    EXPECT_EQ(Model.L4, Model.Cognates(2, 4));
    EXPECT_EQ(Model.Rpa, Model.Cognates(2, 5));
    EXPECT_EQ(Model.DeltaRad, Model.Cognates(2, 6));
    EXPECT_NEAR(Model.Delta, Degrees(Model.Cognates(2, 6)), 1e-4);
    EXPECT_NEAR(Model.Link1X, Model.L1 * std::sqrt(0.75), 1e-6);
    EXPECT_NEAR(Model.Link1Y, Model.L1 / 2, 1e-6);
    EXPECT_EQ(Model.Link1Angle, 30);
    Model.Link1Angle = 0;
    GetCognates(Model.Cognates, 2, Model.L2, Model.L3, Model.L4, Model.L1, Model.Rpa, Model.DeltaRad);
    EXPECT_EQ(Model.Link1X, Model.L1);
    EXPECT_EQ(Model.Link1Y, 0);
}

TEST_F(Cognates, ShowTheirAngleWithOneDecimal) {
    Single length, angle;
    cognates(2, 6) = Radians(20);
    GetCognates(cognates, 2, length, length, length, length, length, angle);
    EXPECT_EQ(Model.DeltaStr, "20.0");
}

TEST_F(Cognates, AnEntryBeyondTheTableIsReported) {
    desktop.Expect_Message("Error 9   (Subscript out of range)  has occurred in GetCognates\r\n\r\n");
    Single length;
    GetCognates(cognates, 4, length, length, length, length, length, length);
}

TEST_F(Cognates, ASwitchDropsTheResults) {
    Run_Holds();
    Forces_Hold();
    Balance_Holds();
    Model.Synthesized = true;
    auto& save = platform::Screens::Get("frm_HomeScreen").Get<platform::MenuEntry>("mnu_Save");
    save.Enabled = true;
    Switch_Cognate(3);
    EXPECT_FALSE(save.Enabled.Get()) << "there is nothing calculated to be saved";
    EXPECT_EQ(Model.CognateNumber, 3);
    EXPECT_TRUE(Model.CognateEdit);
    EXPECT_EQ(Model.L1, Model.Cognates(3, 1));
    EXPECT_EQ(Model.LinkArray(1), Model.L1);
    EXPECT_EQ(Model.LinkArray(0), Model.Rpa);
    EXPECT_FALSE(Model.Calculated || Model.DynamicsDone || Model.BalanceDone || Model.Synthesized);
    Expect_Checked(3);
    const auto& status = platform::Screens::Get("frm_HomeScreen").Get<platform::Label>("lbl_Status", 7);
    EXPECT_EQ(status.Caption.Get(), "Cognate 3");
    EXPECT_FALSE(status.Visible.Get());
}

TEST_F(Cognates, OfALinkageThatIsNewAreThoseOfItself) {
    Enter_Linkage(Road::kBoxes, [] {
        Model.PolarCoords = true;
        Model.L1 = 3;
        Model.Rpa = 2;
    });
    ASSERT_TRUE(Model.CognatesDue);
    // Its ground is as much longer as the coupler point is further from the crank's pin than the other pin is.
    Switch_Cognate(2);
    EXPECT_NEAR(Model.L1, 3 * 2 / 2.5, 1e-6);
}

TEST_F(Cognates, GoingBackToTheFirstGivesTheLinkageAsItWas) {
    Model.Link1Angle = 20;
    const CognateTable before = Model.Cognates;
    Switch_Cognate(3);
    Switch_Cognate(2);
    Switch_Cognate(1);
    Expect_Linkage(2.667, 1.115, 2.5, 2.5, 1.697);
    EXPECT_NEAR(Model.Delta, -92.66, 1e-5);
    EXPECT_NEAR(Model.Link1X, Model.L1 * std::cos(Radians(20)), 1e-6);
    EXPECT_NEAR(Model.Link1Y, Model.L1 * std::sin(Radians(20)), 1e-6);
    EXPECT_EQ(Model.Link1Angle, 20);
    EXPECT_FALSE(Model.CognateEdit);
    Expect_Checked(1);
    for (int n = 1; n <= 3; ++n)
        for (int item = 1; item <= 6; ++item) EXPECT_EQ(Model.Cognates(n, item), before(n, item));
}

TEST_F(Cognates, GoingBackToTheFirstKeepsTheLastDigitOfItsAngle) {
    int lost = 0;
    for (double angle = -179.1; angle < 180; angle += 3.7) {
        Model.Delta = angle;
        Model.DeltaRad = Model.Delta * kDegToRad;
        const double before = Model.Delta;
        lost += Stored(Model.DeltaRad * kRadToDeg) != before;
        SeedCognate();
        Switch_Cognate(2);
        Switch_Cognate(1);
        EXPECT_EQ(Model.Delta, before);
    }
    EXPECT_GT(lost, 0) << "which radians do not hold";
}

TEST_F(Cognates, OfAParallelogramAreRefusedWithNothingTouched) {
    Model.Parallelogram = true;
    Run_Holds();
    desktop.Expect_Message(
        "Your present linkage is a parallelogram,\rwhich has an infinity of cognates\r"
        "all of which have circular coupler curves.\r\rCognate switching and the Cayley diagram are\r"
        "not available for parallelogram linkages\ras they have no value in this case.\r",
        platform::Answer::kOk, platform::Icon::kInformation, platform::Buttons::kOk);
    EXPECT_TRUE(Refuse_Parallelogram());
    EXPECT_TRUE(Model.Calculated);
    EXPECT_EQ(Model.CognateNumber, 1);
    Expect_Linkage(2.667, 1.115, 2.5, 2.5, 1.697);
}

TEST_F(Cognates, OfAnyOtherLinkageAreNotRefused) { EXPECT_FALSE(Refuse_Parallelogram()); }

TEST_F(Cognates, FollowTheLinkageThatTheInputScreenCalculates) {
    desktop.Expect_Screen("frm_Inputnew", [](platform::Screen& screen) {
        Enter(screen, "txt_Linkout", 1, "1.25");
        EXPECT_EQ(Model.Cognates(1, 2), 1.25);
        screen.Hide();
    });
    platform::Screens::Get("frm_Inputnew").ShowModal();
}

TEST_F(Cognates, StayWhileTheInputScreenCalculatesOneOfTheOthers) {
    Switch_Cognate(3);  // whose crank turns around
    const double crank = Model.Cognates(3, 2);
    desktop.Expect_Screen("frm_Inputnew", [&](platform::Screen& screen) {
        EXPECT_EQ(Model.Cognates(1, 2), Stored(1.115));
        EXPECT_EQ(Model.CognateNumber, 3);
        EXPECT_NEAR(Model.L2, crank, 1e-3);
        // Until it is edited: then it is a linkage of its own.
        Enter(screen, "txt_Linkout", 4, "2");
        EXPECT_NEAR(Model.Cognates(1, 2), crank, 1e-3);
        EXPECT_EQ(Model.Cognates(1, 5), 2);
        EXPECT_EQ(Model.CognateNumber, 1);
        Expect_Checked(1);
        screen.Hide();
    });
    platform::Screens::Get("frm_Inputnew").ShowModal();
}

TEST_F(Cognates, FollowTheLinkageThatTheAnimateScreenRecalculates) {
    desktop.Expect_Screen("frm_Inputnew", [](platform::Screen& screen) { Press(screen, "cmd_Done"); })
        .Expect_Screen("frm_Animate", [](platform::Screen& screen) {
            Enter(screen, "txt_Linkout", 3, "2.25");
            EXPECT_EQ(Model.Cognates(1, 4), 2.5);
            Press(screen, "cmd_Recalc");
            EXPECT_EQ(Model.Cognates(1, 4), 2.25);
            screen.Hide();
        });
    platform::Screens::Get("frm_Inputnew").ShowModal();
}

TEST_F(Cognates, OfACamDrivenLinkageStay) {
    Model.Calctype = 4;
    Model.CamDriven = true;
    Model.CamDirection = 1;
    Model.NSteps = 2;
    Model.L2 = 1.25;
    Model.DiskFile = true;
    LoadLinkArray();
    desktop.Expect_Screen("frm_Inputnew", [](platform::Screen& screen) {
        EXPECT_EQ(Model.Cognates(1, 2), Stored(1.115));
        screen.Hide();
    });
    platform::Screens::Get("frm_Inputnew").ShowModal();
}

TEST_F(Cognates, OfANewModelAreThoseOfTheDefaultLinkage) {
    Switch_Cognate(2);
    New_Model();
    EXPECT_EQ(Model.CognateNumber, 1);
    EXPECT_FALSE(Model.CognateEdit);
    Expect_Row(Model.Cognates, 1, {2.667, 1.115, 2.5, 2.5, 1.697});
    Expect_Checked(1);
}

}  // namespace verlink::test
