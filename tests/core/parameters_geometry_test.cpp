// Link data between the boxes of a screen and the model.
#include <array>
#include <cmath>
#include <limits>

#include "core/linkage_door.h"
#include "core/linkage_model.h"
#include "core/parameters.h"
#include "core/text.h"
#include "dynamics/units.h"
#include "shell/initialize.h"
#include "tests/support/fixture.h"

namespace verlink::test {
namespace {

using namespace platform;

constexpr char kMadePositive[] =
    "Link lengths must be positive - Have changed to positive value - Please check your data";

class ParametersGeometry : public Fixture {
   protected:
    ParametersGeometry() {
        Initialize();
        Use_Units(1);
        Put_Linkage_Geometry(input);
    }
    std::string Box(int index) { return input.Text("txt_Linkout", index).Text; }
    void Write(int index, const char* text) { input.Text("txt_Linkout", index).Type(text); }
    Screen& input = Screens::Get("frm_Inputnew");
    Screen& animate = Screens::Get("frm_Animate");
};

TEST_F(ParametersGeometry, TheBoxesOfTheMovingLinksAreReadInOrder) {
    Write(1, "1.5");
    Write(2, "3.25");
    Write(3, "2.75");
    Write(4, "0.5");
    Write(5, "30");
    Get_Linkage_Geometry(input);
    EXPECT_EQ(Model.L2, 1.5);
    EXPECT_EQ(Model.L3, 3.25);
    EXPECT_EQ(Model.L4, 2.75);
    EXPECT_EQ(Model.Rpa, 0.5);
    EXPECT_EQ(Model.Delta, 30.0);
    EXPECT_NEAR(Model.DeltaRad, M_PI / 6, 1e-6);
    EXPECT_EQ(Model.DeltaStr, "30");
    EXPECT_EQ(Model.LinkArray(0), 0.5);
    EXPECT_EQ(Model.LinkArray(2), 1.5);
    EXPECT_EQ(Model.LinkArray(3), 3.25);
    EXPECT_EQ(Model.LinkArray(4), 2.75);
    EXPECT_EQ(Model.RedrawFlag, "Y");
}

TEST_F(ParametersGeometry, ABoxThatShowsANumberRoundedStandsForTheWholeOfIt) {
    for (const bool polar : {true, false})
        for (const int units : {1, 5}) {
            SCOPED_TRACE(testing::Message() << polar << units);
            Use_Units(units);
            Model.PolarCoords = polar;
            const std::array<Single, 4> links{6.2512345, 1.5012345, 5.7512345, 4.5012345};
            Model.L1 = links[0];
            Model.L2 = links[1];
            Model.L3 = links[2];
            Model.L4 = links[3];
            Model.Rpa = 2.7182818;
            Model.Delta = 31.41593;
            Model.Link1Angle = 12.34567;
            Model.Link1X = 6.10668;
            Model.Link1Y = 1.336543;
            LoadLinkArray();
            Put_Linkage_Geometry(input);
            ASSERT_LT(Box(1).size(), 8U);
            Get_Linkage_Geometry(input);
            EXPECT_EQ(Model.L2, links[1]);
            EXPECT_EQ(Model.L3, links[2]);
            EXPECT_EQ(Model.L4, links[3]);
            EXPECT_EQ(Model.Rpa, Single(2.7182818));
            EXPECT_EQ(Model.Delta, Single(31.41593));
            if (polar) {
                EXPECT_EQ(Model.L1, links[0]);
                EXPECT_EQ(Model.Link1Angle, Single(12.34567));
            } else {
                EXPECT_EQ(Model.Link1X, Single(6.10668));
                EXPECT_EQ(Model.Link1Y, Single(1.336543));
            }
            Write(1, "2");
            Get_Linkage_Geometry(input);
            EXPECT_EQ(Model.L2, Single(2 / Shown_Factor()));
            EXPECT_EQ(Model.L3, links[2]) << "a box beside it that no hand has touched";
        }
}

TEST_F(ParametersGeometry, PuttingALinkageOnAScreenFillsEachOfItsBoxes) {
    Model.PolarCoords = true;
    Model.L1 = 6.25;
    Model.L2 = 1.5;
    Model.L3 = 5.75;
    Model.L4 = 4.5;
    Model.Rpa = 2.125;
    Model.Delta = -35;
    Model.Link1Angle = 90;
    Derive_Linkage(Leading::kInForce);
    Put_Linkage_Geometry(input);
    const std::pair<int, const char*> boxes[] = {{0, "6.25"}, {1, "1.5"}, {2, "5.75"}, {3, "4.5"},  {4, "2.125"},
                                                 {5, "-35"},  {6, "90"},  {15, "0"},   {16, "6.25"}};
    for (const auto& [box, text] : boxes) EXPECT_EQ(Box(box), text) << box;
}

TEST_F(ParametersGeometry, ABoxThatWaitsToBeTakenOverKeepsItsText) {
    Write(1, "1.5");
    Write(5, "30");
    Model.LinkArray(2) = 2;
    Model.LinkArray(3) = 7;
    Put_Linkage_Geometry(input);
    EXPECT_EQ(Box(1), "1.5");
    EXPECT_EQ(Box(5), "30");
    EXPECT_EQ(Box(2), "7") << "which nobody has typed";
}

TEST_F(ParametersGeometry, InCentimetresATyped25Stores025AndShows25) {
    Use_Units(4);
    Write(1, "25");
    Get_Linkage_Geometry(input);
    EXPECT_EQ(Model.L2, Single(0.25));
    input.Text("txt_Linkout", 1).Text = "";
    Put_Linkage_Geometry(input);
    EXPECT_EQ(Box(1), "25");
}

TEST_F(ParametersGeometry, InMillimetresLengthsAreHeldInMetres) {
    Use_Units(5);
    Write(1, "50");
    Write(15, "-12.5");
    Get_Linkage_Geometry(input);
    EXPECT_EQ(Model.L2, Single(0.05));
    EXPECT_EQ(Model.Link1X, Single(-0.0125));
}

TEST_F(ParametersGeometry, ANegativeLengthIsMadePositiveWithAMessageAndItsBoxFollows) {
    for (int box = 1; box <= 4; ++box) {
        Write(box, "-2.5");
        desktop.Expect_Message(kMadePositive, Answer::kOk, Icon::kExclamation, Buttons::kOk);
        Get_Linkage_Geometry(input);
        EXPECT_EQ(Model.LinkArray(box == 4 ? 0 : box + 1), 2.5);
        EXPECT_EQ(Box(box), "2.5");
        desktop.Verify();
    }
}

TEST_F(ParametersGeometry, ANegativeGroundLengthIsMadePositiveInPolarFormOnly) {
    Model.PolarCoords = true;
    Write(0, "-4");
    desktop.Expect_Message(kMadePositive, Answer::kOk, Icon::kExclamation);
    Get_Linkage_Geometry(input);
    EXPECT_EQ(Model.L1, 4.0);
}

TEST_F(ParametersGeometry, ANegativeLink1XIsLegalAndPointsTo180Degrees) {
    Write(15, "-2");
    Write(16, "0");
    Get_Linkage_Geometry(input);
    EXPECT_EQ(Model.Link1X, -2.0);
    EXPECT_EQ(Model.L1, 2.0);
    EXPECT_NEAR(Model.Link1Angle, 180.0, 1e-4);
    EXPECT_EQ(Box(0), "2");
    EXPECT_EQ(Box(6), "180");
    EXPECT_NEAR(Model.Link1LocalX, 2.0, 1e-6);
    EXPECT_NEAR(Model.Link1LocalY, 0.0, 1e-6);
}

TEST_F(ParametersGeometry, PolarFormRewritesTheCartesianBoxes) {
    Model.PolarCoords = true;
    Write(0, "2");
    Write(6, "30");
    Get_Linkage_Geometry(input);
    EXPECT_EQ(Box(15), "1.732");
    EXPECT_EQ(Box(16), "1");
    EXPECT_NEAR(Model.Link1X, std::sqrt(3.0), 1e-6);
    EXPECT_NEAR(Model.Link1Y, 1.0, 1e-6);
    EXPECT_NEAR(Model.Link1AngleRad, M_PI / 6, 1e-6);
    EXPECT_NEAR(Model.Link1LocalX, 2.0, 1e-6);
    EXPECT_NEAR(Model.Link1LocalY, 0.0, 1e-6);
    EXPECT_EQ(Model.LinkArray(7), Model.Link1LocalX);
}

TEST_F(ParametersGeometry, CartesianFormRewritesThePolarBoxes) {
    Write(15, "3");
    Write(16, "4");
    Get_Linkage_Geometry(input);
    EXPECT_EQ(Model.L1, 5.0);
    EXPECT_EQ(Box(0), "5");
    EXPECT_EQ(Box(6), "53.13");
}

TEST_F(ParametersGeometry, ATextThatIsNoNumberReadsAs0) {
    Write(4, "about three");
    Write(5, "12deg");
    Get_Linkage_Geometry(input);
    EXPECT_EQ(Model.Rpa, 0.0);
    EXPECT_EQ(Model.Delta, 12.0);
}

TEST_F(ParametersGeometry, ALengthTooLargeForASingleIsReportedAsAnOverflow) {
    Write(1, "1e60");
    desktop.Expect_Message_With("has occurred in Get_Linkage_Geometry");
    Get_Linkage_Geometry(input);
    EXPECT_EQ(Model.L2, Single(1.115));
}

TEST_F(ParametersGeometry, AnExactParallelogramIsOneAndTheLastSingleDigitMakesItNone) {
    Write(1, "1.5");
    Write(3, "1.5");
    Write(2, "3");
    Write(15, "3");
    Write(16, "0");
    Get_Linkage_Geometry(input);
    EXPECT_TRUE(Model.Parallelogram);
    Write(3, Text_Of(static_cast<double>(std::nextafterf(1.5f, 2.0f))).c_str());
    Get_Linkage_Geometry(input);
    EXPECT_FALSE(Model.Parallelogram);
    Write(3, "1.5");
    Get_Linkage_Geometry(input);
    EXPECT_TRUE(Model.Parallelogram);
    Write(2, Text_Of(static_cast<double>(std::nextafterf(3.0f, 4.0f))).c_str());
    Get_Linkage_Geometry(input);
    EXPECT_FALSE(Model.Parallelogram);
}

TEST_F(ParametersGeometry, TheWaysOnAreOffUntilTheNextGoodCalculation) {
    for (Screen* screen : {&input, &animate}) {
        screen->Get<CommandButton>("cmd_Animate").Enabled = true;
        screen->Get<CommandButton>("cmd_Done").Enabled = true;
        Put_Linkage_Geometry(*screen);
        Get_Linkage_Geometry(*screen);
        EXPECT_FALSE(screen->Get<CommandButton>("cmd_Animate").Enabled);
        EXPECT_FALSE(screen->Get<CommandButton>("cmd_Done").Enabled);
    }
}

TEST_F(ParametersGeometry, ALinkDrivenRunTakesItsPhaseFromTheInputScreen) {
    Model.Calctype = 5;
    input.Text("txt_initial", 4).Type("12.5");
    Put_Linkage_Geometry(animate);
    Get_Linkage_Geometry(animate);
    EXPECT_EQ(Model.Delta2, 12.5);
}

TEST_F(ParametersGeometry, OtherRunsLeaveThePhaseAlone) {
    Model.Delta2 = 3;
    input.Text("txt_initial", 4).Type("12.5");
    Get_Linkage_Geometry(input);
    EXPECT_EQ(Model.Delta2, 3.0);
}

TEST_F(ParametersGeometry, ATextInTheFormThatIsNotInForceGivesWayToThePlaceOfThePivot) {
    for (const bool polar : {true, false}) {
        Model.PolarCoords = polar;
        const int box = polar ? 15 : 0;
        Write(box, "99");
        Get_Linkage_Geometry(input);
        EXPECT_EQ(Box(box), "2.667");
        EXPECT_FALSE(input.Text("txt_Linkout", box).Touched());
        EXPECT_EQ(Model.L1, Single(2.667));
    }
}

TEST_F(ParametersGeometry, ATypedLinkMakesACognateALinkageOfItsOwn) {
    for (const std::string text : {"", "1.115", "1.25"}) {
        const bool typed = !text.empty();
        Model.CognateNumber = 3;
        Model.CognateEdit = true;
        Model.CognatesDue = false;
        if (typed) Write(1, text.c_str());
        Get_Linkage_Geometry(input);
        EXPECT_EQ(Model.CognateNumber, typed ? 1 : 3);
        EXPECT_EQ(Model.CognateEdit, !typed);
        EXPECT_EQ(Model.CognatesDue, typed);
    }
}

TEST_F(ParametersGeometry, TheClassIsThatOfTheLinkageAlsoWhereItIsTheOneOfBefore) {
    Get_Linkage_Geometry(input);
    Model.Grashof_Code = "N";  // as a file may say
    Get_Linkage_Geometry(input);
    EXPECT_EQ(Model.Grashof_Code, "Y");
}

TEST_F(ParametersGeometry, TheCircuitIsReadFromTheOptions) {
    input.Get<OptionButton>("opt_OpenCross", 1).Value = true;
    Get_Circuit(input);
    EXPECT_EQ(Model.CircuitIndex, 2);
    EXPECT_EQ(Model.CircuitSign, 1);
    EXPECT_EQ(Model.CircuitName, "Crossed");
    input.Get<OptionButton>("opt_OpenCross", 0).Value = true;
    Get_Circuit(input);
    EXPECT_EQ(Model.CircuitIndex, 1);
    EXPECT_EQ(Model.CircuitSign, -1);
    EXPECT_EQ(Model.CircuitName, "Open");
}

TEST_F(ParametersGeometry, TheCircuitsSignSetsTheOptions) {
    Model.CircuitSign = 1;
    Put_Circuit(animate);
    EXPECT_TRUE(animate.Get<OptionButton>("opt_OpenCross", 1).Value);
    EXPECT_FALSE(animate.Get<OptionButton>("opt_OpenCross", 0).Value);
    Model.CircuitSign = -1;
    Put_Circuit(animate);
    EXPECT_TRUE(animate.Get<OptionButton>("opt_OpenCross", 0).Value);
}

TEST_F(ParametersGeometry, LengthsAreShownWithTheDecimalsOfTheUnitSystem) {
    struct Shown {
        int units;
        double stored;
        const char* text;
    };
    for (const Shown& shown : {Shown{1, 1.23456, "1.235"}, Shown{2, 1.23456, "1.235"}, Shown{3, 1.23456, "1.2346"},
                               Shown{4, 0.0123456, "1.235"}, Shown{5, 0.0123456, "12.35"}}) {
        Use_Units(shown.units);
        Model.L2 = shown.stored;
        LoadLinkArray();
        Put_Linkage_Geometry(input);
        EXPECT_EQ(Box(1), shown.text) << "units " << shown.units;
    }
}

TEST_F(ParametersGeometry, AnglesAreShownWithTwoDecimals) {
    Model.Delta = 12.3456;
    Model.Link1Angle = -7.891;
    Put_Linkage_Geometry(input);
    EXPECT_EQ(Box(5), "12.35");
    EXPECT_EQ(Box(6), "-7.89");
}

TEST_F(ParametersGeometry, ASynthesizedLinkageShowsItsPivotAndItsCircuitAsAnyOther) {
    input.Text("txt_Linkout", 15).Text = "7";
    input.Text("txt_Linkout", 16).Text = "8";
    Model.Synthesized = true;
    Model.CircuitSign = 1;
    Put_Linkage_Geometry(input);
    EXPECT_EQ(Box(15), "2.667");
    EXPECT_EQ(Box(16), "0");
    EXPECT_TRUE(input.Get<OptionButton>("opt_OpenCross", 1).Value);
}

TEST_F(ParametersGeometry, ABoxThatNoHandHasTouchedGivesBackWhatTheRecordHas) {
    Model.L2 = 1.5;
    LoadLinkArray();
    input.Text("txt_Linkout", 1).Text = "9";
    input.Text("txt_Linkout", 15).Text = "";
    Get_Linkage_Geometry(input);
    EXPECT_EQ(Model.L2, 1.5);
    EXPECT_EQ(Model.Link1X, Single(2.667));
    EXPECT_EQ(Box(1), "1.5");
    EXPECT_EQ(Box(15), "2.667");
}

TEST_F(ParametersGeometry, ATypedLengthKeepsItsDigitsAlsoWhenItIsReadAgain) {
    Write(1, "1.23456");
    Get_Linkage_Geometry(input);
    EXPECT_FALSE(input.Text("txt_Linkout", 1).Touched());
    Get_Linkage_Geometry(input);
    EXPECT_EQ(Model.L2, Single(1.23456));
    EXPECT_EQ(Box(1), "1.23456");
}

TEST_F(ParametersGeometry, ALengthThatCannotBeStoredIsToldAndTheBoxGoesBack) {
    Put_Linkage_Geometry(input);
    Write(1, "1.5");
    Write(2, "1e39");
    desktop.Expect_Message("Error 6   (Overflow)  has occurred in Get_Linkage_Geometry\r\n\r\n");
    Get_Linkage_Geometry(input);
    EXPECT_EQ(Model.L2, Single(1.115)) << "all of it or nothing";
    EXPECT_EQ(Model.L3, 2.5);
    EXPECT_EQ(Box(1), "1.115");
    EXPECT_EQ(Box(2), "2.5");
}

TEST_F(ParametersGeometry, UnitsAndTheLineAngleAreShownBesideTheLengths) {
    Use_Units(5);
    Model.LineAngle = 44.6;
    Put_Linkage_Geometry(input);
    for (int label : {0, 1, 2, 3, 4, 11, 12})
        EXPECT_EQ(input.Get<Label>("lbl_Units", label).Caption, "mm") << "label " << label;
    EXPECT_EQ(animate.Text("txt_LineAngle").Text, "45");
}

TEST_F(ParametersGeometry, TheModelsOwnValuesAreDerivedFromWithoutAnyBox) {
    Model.PolarCoords = true;
    Model.L1 = 2.3456789;
    Model.Link1Angle = 30;
    Model.L2 = 1.23456789;
    Derive_Linkage(Leading::kInForce);
    EXPECT_EQ(Model.L2, Single(1.23456789));
    EXPECT_EQ(Model.LinkArray(2), Single(1.23456789));
    EXPECT_NEAR(Model.Link1X, 2.3456789 * std::sqrt(3.0) / 2, 1e-6);
    EXPECT_NEAR(Model.Link1Y, 2.3456789 / 2, 1e-6);
    Model.PolarCoords = false;
    Model.Link1X = 0;
    Model.Link1Y = -3;
    Derive_Linkage(Leading::kInForce);
    EXPECT_EQ(Model.L1, 3.0);
    EXPECT_NEAR(Model.Link1Angle, -90, 1e-4);
}

TEST_F(ParametersGeometry, CheckPositiveLeavesZeroAndPositiveNumbersInSilence) {
    Single length = 0;
    Check_Positive(length);
    EXPECT_EQ(length, 0.0);
    length = 3;
    Check_Positive(length);
    EXPECT_EQ(length, 3.0);
}

}  // namespace
}  // namespace verlink::test
