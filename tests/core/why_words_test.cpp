// The sentences of the quiet line, each with its exact text; angles and lengths are those of the law of cosines.
#include "core/why_words.h"

#include "core/classification.h"
#include "core/linkage_door.h"
#include "core/runs.h"
#include "dynamics/units.h"
#include "shell/initialize.h"
#include "tests/support/fixture.h"

namespace verlink::test {

namespace {

class WhyWordsTest : public Fixture {
   protected:
    WhyWordsTest() {
        Initialize();
        Use_Units(1);
    }

    /// Lengths in the shown unit.
    static void Make(double L1, double L2, double L3, double L4, double ground = 0) {
        const double shown = Shown_Factor();
        Model.PolarCoords = true;
        Model.L1 = L1 / shown;
        Model.L2 = L2 / shown;
        Model.L3 = L3 / shown;
        Model.L4 = L4 / shown;
        Model.Link1Angle = ground;
        Derive_Linkage(Leading::kInForce);
        Run_Dropped();
        Classify_Linkage();
    }
    static void Run(double first, double last, double increment) {
        Model.Calctype = 3;
        Model.ThetaStart = first;
        Model.ThetaEnd = last;
        Model.ThetaStep = increment;
        Model.ThetaStartRad = Model.ThetaStart * kDegToRad;
        Model.ThetaEndRad = Model.ThetaEnd * kDegToRad;
        Model.ThetaStepRad = Model.ThetaStep * kDegToRad;
        Model.NSteps = Steps_Of(Model.ThetaStart, Model.ThetaEnd, Model.ThetaStep);
        Run_Unasked(Model);
    }
    /// What is said at a position of a run that has it second.
    static std::string At(double angle) {
        Run(angle - 1, angle + 1, 1);
        return Why_Shown(Model, 1);
    }
    static std::string At_Once(double angle) {
        Model.Calctype = 1;
        Model.ThetaZero = angle;
        Run_Unasked(Model);
        return Why_Shown(Model, 0);
    }
    static void Triple_Rocker(double ground = 0) { Make(7, 4, 5, 4.5, ground); }
};

TEST_F(WhyWordsTest, Links_too_short_are_told_with_the_gap_and_the_nearest_angle_that_closes) {
    Triple_Rocker();
    Run(100, 140, 5);
    EXPECT_EQ(Why_Shown(Model, 7),
              "Coupler and rocker cannot meet at Theta2 = 135.0 deg: they are 0.727 in too short. Nearest angle that "
              "closes: 116.8 deg.");
    Run(-140, 100, 20);
    EXPECT_EQ(Why_Shown(Model, 1),
              "Coupler and rocker cannot meet at Theta2 = -120.0 deg: they are 0.144 in too short. Nearest angle that "
              "closes: -116.8 deg.");
}

TEST_F(WhyWordsTest, A_link_too_long_is_named) {
    Make(3, 3, 1, 3.5);
    Run(25, 65, 20);
    EXPECT_EQ(
        Why_Shown(Model, 1),
        "Coupler and rocker cannot meet at Theta2 = 45.0 deg: the rocker is 0.204 in too long. Nearest angle that "
        "closes: 49.3 deg.");
    Make(3, 3, 3.5, 1);
    Run(25, 65, 20);
    EXPECT_EQ(
        Why_Shown(Model, 1),
        "Coupler and rocker cannot meet at Theta2 = 45.0 deg: the coupler is 0.204 in too long. Nearest angle that "
        "closes: 49.3 deg.");
}

TEST_F(WhyWordsTest, Of_a_linkage_that_closes_nowhere_or_at_one_angle_no_other_angle_is_told) {
    Make(2, 1.5, 7.5, 2.75);
    EXPECT_EQ(At(180), "Coupler and rocker cannot meet at Theta2 = 180.0 deg: the coupler is 1.25 in too long.");
    Make(2, 1.5, 2.75, 6.25);
    EXPECT_EQ(At(170), "Coupler and rocker cannot meet at Theta2 = 170.0 deg: the rocker is 0.013 in too long.")
        << "the root of 2 2 + 1.5 1.5 + 2 2 1.5 cos 10 short of 6.25 - 2.75";
    Make(10, 1.5, 2.75, 3);
    EXPECT_EQ(At(0), "Coupler and rocker cannot meet at Theta2 = 0.0 deg: they are 2.75 in too short.");
}

TEST_F(WhyWordsTest, A_transmission_angle_counts_as_poor_by_what_is_shown_of_it) {
    // Coupler 5 and rocker 5 at right angles would bridge 7.071; the angle between them is set by the gap.
    const auto at = [](double transmission) {
        Make(1, 1 + 10 * std::sin(transmission * kDegToRad / 2), 5, 5);
        return At(0).substr(0, At(0).find(';'));
    };
    EXPECT_EQ(at(40.4), "");
    EXPECT_EQ(at(39.96), "") << "40.0 as shown";
    EXPECT_EQ(at(39.94), "Transmission angle 39.9 deg, under 40.");
}

TEST_F(WhyWordsTest, A_toggle_is_near_within_ten_degrees) {
    Make(4, 2, 4, 2);
    for (const double angle : {10.1, -10.1}) EXPECT_TRUE(At(angle).ends_with("deg, under 40.")) << At(angle);
    EXPECT_EQ(At(9.9).substr(At(9.9).find("; ")), "; 9.9 deg from the change point at Theta2 = 0.0 deg.");
    EXPECT_EQ(At(-9.9).substr(At(-9.9).find("; ")), "; 9.9 deg from the change point at Theta2 = 360.0 deg.");
}

TEST_F(WhyWordsTest, A_gap_too_small_to_be_shown_is_less_than_the_last_decimal) {
    Triple_Rocker();
    Run(110, 116.81, 6.81);
    EXPECT_EQ(Why_Shown(Model, 1),
              "Coupler and rocker cannot meet at Theta2 = 116.8 deg: they are less than 0.001 in too short. Nearest "
              "angle that closes: 116.8 deg.");
}

TEST_F(WhyWordsTest, Too_near_a_toggle_for_a_solution_an_angle_is_told_that_has_one) {
    Triple_Rocker();
    Run(110, 116.802, 6.802);
    EXPECT_FALSE(Model.RunTable.Assembled(1));
    EXPECT_EQ(
        Why_Shown(Model, 1),
        "Coupler and rocker are in line at Theta2 = 116.8 deg, a toggle, which has no solution. Nearest angle that "
        "closes: 116.7 deg.");
}

TEST_F(WhyWordsTest, A_toggle_is_told_as_one_within_what_the_stored_angle_leaves_open) {
    Triple_Rocker();
    const double toggle = std::acos((7.0 * 7 + 4 * 4 - 9.5 * 9.5) / (2 * 7 * 4)) / kDegToRad;
    Run(110, 116, 6);
    Model.RunTable.Assembled(1) = false;
    for (const double before : {0.0055, 0.0065}) {
        Model.RunTable.Theta(1, 0) = toggle - before;
        const bool in_line = Why_Shown(Model, 1).starts_with("Coupler and rocker are in line at Theta2 = 116.8 deg");
        EXPECT_EQ(in_line, before < 0.006) << Why_Shown(Model, 1);
    }
}

TEST_F(WhyWordsTest, An_angle_that_closes_has_the_decimals_that_it_takes) {
    // Crank and ground leave a gap of 8.5 and a little, which a tiny rocker bridges up to so many degrees.
    const auto told = [](double width) {
        const double rocker = 10 * 1.5 / 17 * (width * kDegToRad) * (width * kDegToRad);
        Make(10, 1.5, 8.5, rocker, width * 1.67);
        const std::string words = At_Once(90);
        return words.substr(words.rfind(": ") + 2);
    };
    // From 0.67 to 2.67 times the width.
    EXPECT_EQ(told(0.3), "0.8 deg.");
    EXPECT_EQ(told(0.03), "0.08 deg.");
    EXPECT_EQ(told(0.003), "0.008 deg.");
}

TEST_F(WhyWordsTest, Of_an_angle_on_whose_both_sides_it_does_not_close_nothing_is_told) {
    // Coupler and rocker are just longer than the gap of a thousandth that crank and ground leave in line.
    Make(8, 8 - 0x1p-10, 0x1p-11, 0x1p-11 + 0x1p-20);
    At_Once(30);
    // By the law of cosines the gap is 4.14085.
    EXPECT_EQ(Why_Refused(Model),
              "At Theta2 = 30.0 deg coupler and rocker are 4.14 in too short; a coupler over 4.141 in or a rocker over "
              "4.141 in would do.");
    EXPECT_EQ(Why_Shown(Model, 0), "Coupler and rocker cannot meet at Theta2 = 30.0 deg: they are 4.14 in too short.");
}

TEST_F(WhyWordsTest, A_linkage_on_one_pivot_is_told_of_as_any_other) {
    Make(0, 2, 3, 4);
    Run(0, 90, 45);
    EXPECT_EQ(Why_Refused(Model), "");
    if (Model.RunTable.Assembled(1)) {
        EXPECT_EQ(Why_Shown(Model, 1), "Transmission angle 29.0 deg, under 40.");
    }
}

TEST_F(WhyWordsTest, A_poor_transmission_angle_is_told_and_a_good_one_is_not) {
    Triple_Rocker();
    EXPECT_EQ(At(60), "");
    EXPECT_EQ(At(100), "");
    EXPECT_EQ(At(0), "Transmission angle 36.3 deg, under 40.");
}

TEST_F(WhyWordsTest, Near_a_toggle_it_is_told_how_near) {
    Triple_Rocker();
    EXPECT_EQ(At(114.5), "Transmission angle 17.3 deg, under 40; 2.3 deg from the toggle at Theta2 = 116.8 deg.");
    EXPECT_EQ(At(-110), "Transmission angle 30.2 deg, under 40; 6.8 deg from the toggle at Theta2 = 243.2 deg.")
        << "as the read-out has it";
    Make(3, 3, 1, 3.5);
    EXPECT_EQ(At(55), "Transmission angle 37.2 deg, under 40; 5.8 deg from the toggle at Theta2 = 49.2 deg.");
    EXPECT_EQ(At(305), "Transmission angle 37.2 deg, under 40; 5.8 deg from the toggle at Theta2 = 310.8 deg.");
}

TEST_F(WhyWordsTest, Near_a_change_point_it_is_called_one) {
    Make(4, 2, 4, 2);
    EXPECT_EQ(At(95), "");
    const std::string words = At(5);
    EXPECT_EQ(words.substr(words.find("; ")), "; 5.0 deg from the change point at Theta2 = 0.0 deg.");
    EXPECT_EQ(At_Once(0),
              "Coupler and rocker are in line at Theta2 = 0.0 deg, a change point, which has no solution; the angles "
              "beside it close.");
}

TEST_F(WhyWordsTest, Over_a_turned_ground_all_angles_are_those_of_the_read_out) {
    Triple_Rocker(30);
    Run(100, 170, 65);
    EXPECT_EQ(Why_Shown(Model, 1),
              "Coupler and rocker cannot meet at Theta2 = 165.0 deg: they are 0.727 in too short. Nearest angle that "
              "closes: 146.8 deg.");
    EXPECT_EQ(At(144.5), "Transmission angle 17.3 deg, under 40; 2.3 deg from the toggle at Theta2 = 146.8 deg.");
}

TEST_F(WhyWordsTest, Lengths_are_told_in_each_unit_system) {
    const char* told[] = {"0.727 in", "0.727 ft", "0.7273 m", "0.727 cm", "0.73 mm"};
    for (int units = 1; units <= 5; ++units) {
        SCOPED_TRACE(units);
        Use_Units(units);
        Triple_Rocker();
        Run(100, 140, 5);
        EXPECT_EQ(Why_Shown(Model, 7), "Coupler and rocker cannot meet at Theta2 = 135.0 deg: they are " +
                                           std::string(told[units - 1]) +
                                           " too short. Nearest angle that closes: 116.8 deg.");
    }
}

TEST_F(WhyWordsTest, The_angle_that_closes_does) {
    const double ground[] = {0, 30, -77.3};
    for (const double turn : ground) {
        Triple_Rocker(turn);
        const std::string words = At(135 + turn);
        const std::string told = words.substr(words.rfind(": ") + 2);
        Run(std::stod(told) - 5, std::stod(told), 5);
        EXPECT_TRUE(Model.RunTable.Assembled(1)) << told;
    }
}

TEST_F(WhyWordsTest, A_linkage_that_closes_nowhere_is_told_with_the_length_that_would_do) {
    Make(2, 1.5, 7.5, 2.75);
    Model.ThetaZero = 0;
    Run(0, 360, 10);
    EXPECT_EQ(Why_Refused(Model),
              "Link 3 (Coupler) is 1.25 in longer than the other three together; it closes under 6.25 in.");
    Make(2, 1.5, 6.75, 2.75);
    EXPECT_EQ(Why_Refused(Model),
              "Link 3 (Coupler) is 0.5 in longer than the other three together; it closes under 6.25 in.");
    Make(2, 1.5, 2.75, 6.25);
    Run(0, 360, 10);
    EXPECT_EQ(Why_Refused(Model), "Link 4 (Rocker) is as long as the other three together; it closes under 6.25 in.");
    Use_Units(5);
    Make(200, 900, 150, 75);
    Run(0, 360, 10);
    EXPECT_EQ(Why_Refused(Model),
              "Link 2 (Crank) is 475 mm longer than the other three together; it closes under 425 mm.");
}

TEST_F(WhyWordsTest, A_run_without_a_position_is_told_with_all_that_would_do) {
    Triple_Rocker();
    Run(120, 200, 20);
    EXPECT_FALSE(Model.RunStands);
    EXPECT_EQ(
        Why_Refused(Model),
        "No position closes. At Theta2 = 120.0 deg coupler and rocker are 0.144 in too short; a coupler over 5.144 "
        "in, a rocker over 4.644 in or 116.8 deg would do.");
    At_Once(125);
    EXPECT_EQ(Why_Refused(Model),
              "At Theta2 = 125.0 deg coupler and rocker are 0.355 in too short; a coupler over 5.355 in, a rocker over "
              "4.855 in or 116.8 deg would do.");
    Make(3, 3, 1, 3.5);
    Run(5, 45, 20);
    EXPECT_EQ(Why_Refused(Model),
              "No position closes. At Theta2 = 45.0 deg the rocker is 0.204 in too long; a coupler over 1.204 in, a "
              "rocker under 3.296 in or 49.3 deg would do.");
}

TEST_F(WhyWordsTest, A_slow_run_forwards_is_refused_by_its_angles_and_one_at_rest_by_its_end) {
    Triple_Rocker();
    Model.Omega2Input = 0.5;
    Run(120, 165, 20);
    EXPECT_TRUE(Why_Refused(Model).starts_with("No position closes. At Theta2 = 120.0 deg")) << Why_Refused(Model);
    Model.Omega2Input = 0;
    Run(120, 165, 20);
    EXPECT_TRUE(Why_Refused(Model).starts_with("No position closes. At Theta2 = 165.0 deg")) << Why_Refused(Model);
}

TEST_F(WhyWordsTest, A_driven_run_is_refused_by_the_angles_that_its_drive_comes_to) {
    Triple_Rocker();
    const std::string words = "No position closes. At Theta2 = 125.0 deg coupler and rocker are 0.355 in too short";
    Model.NSteps = 1;
    Model.CamDirection = -1;
    Model.CamPhase = 20;
    Model.ThetaZero = 30;
    Model.Delta2 = 5;
    Model.Calctype = 4;
    Model.RunTable.DriveTheta(0) = -100;
    Model.RunTable.DriveTheta(1) = -80;  // 80 + 20 + 30 - 5
    EXPECT_TRUE(Why_Refused(Model).starts_with(words)) << Why_Refused(Model);
    Model.Calctype = 5;
    Model.RunTable.DriveTheta(0) = 140;
    Model.RunTable.DriveTheta(1) = 120;
    EXPECT_TRUE(Why_Refused(Model).starts_with(words)) << Why_Refused(Model);
}

TEST_F(WhyWordsTest, A_run_backwards_and_one_by_time_are_refused_by_their_own_angles) {
    Triple_Rocker();
    Model.Omega2Input = -10;
    Run(120, 165, 20);
    EXPECT_TRUE(Why_Refused(Model).starts_with("No position closes. At Theta2 = 125.0 deg coupler and rocker"))
        << Why_Refused(Model) << ", 40 deg before 165";
    Model.Omega2Input = 0.1;
    Model.Alpha2 = 0;
    Model.ThetaZero = 120;
    Model.Calctype = 2;
    Model.TimeStart = 1;
    Model.TimeEnd = 2;
    Model.TimeStep = 0.5;
    Model.NSteps = 2;
    Run_Unasked(Model);
    EXPECT_TRUE(Why_Refused(Model).starts_with("No position closes. At Theta2 = 125.7 deg coupler and rocker"))
        << Why_Refused(Model) << ", 0.1 rad on";
    Model.Omega2Input = 0;
    Model.Alpha2 = 0.4;
    Run_Unasked(Model);
    EXPECT_TRUE(Why_Refused(Model).starts_with("No position closes. At Theta2 = 131.5 deg coupler and rocker"))
        << Why_Refused(Model) << ", half of 0.4 rad on";
}

TEST_F(WhyWordsTest, Nothing_is_refused_while_a_run_stands_or_some_of_it_closes) {
    Triple_Rocker();
    Run(0, 200, 20);
    EXPECT_TRUE(Model.RunStands);
    EXPECT_EQ(Why_Refused(Model), "");
    Run_Dropped();
    EXPECT_EQ(Why_Refused(Model), "");
    Make(2, 1.5, 7.5, 2.75);
    EXPECT_NE(Why_Refused(Model), "");
    Run_Holds();
    EXPECT_EQ(Why_Refused(Model), "") << "a run that stands speaks for itself";
}

TEST_F(WhyWordsTest, A_run_that_was_ended_tells_of_the_position_where_it_was) {
    Triple_Rocker();
    Run(100, 200, 10);
    Run_Dropped();
    EXPECT_EQ(Why_Shown(Model, 0),
              "Coupler and rocker cannot meet at Theta2 = 120.0 deg: they are 0.144 in too short. Nearest angle that "
              "closes: 116.8 deg.");
}

TEST_F(WhyWordsTest, Where_the_links_meet_and_the_solution_failed_all_the_same_another_angle_is_advised) {
    for (const bool rocker : {true, false}) {
        if (rocker)
            Triple_Rocker();
        else
            Make(2.667, 1.115, 2.5, 2.5);
        Run(50, 70, 10);
        Model.RunTable.Assembled(1) = false;
        EXPECT_EQ(Why_Shown(Model, 1),
                  "Coupler and rocker can meet at Theta2 = 60.0 deg, yet the solution fails there; an angle beside it "
                  "may do.");
    }
}

TEST_F(WhyWordsTest, A_run_that_was_dropped_and_closed_throughout_tells_of_its_last_position) {
    Triple_Rocker();
    Run(60, 114.5, 54.5);
    Run_Dropped();
    EXPECT_EQ(Why_Shown(Model, 0),
              "Transmission angle 17.3 deg, under 40; 2.3 deg from the toggle at Theta2 = 116.8 deg.");
}

TEST_F(WhyWordsTest, A_link_without_length_is_named) {
    Triple_Rocker();
    Run(0, 90, 45);
    Geometry wished = Model;
    wished.L2 = 0;
    EXPECT_EQ(Why_Not_Followed(Model, wished, 1), "Not followed: Link 2 (Crank) has no length.");
    Make(7, 4, 0, 4.5);
    EXPECT_EQ(Why_Refused(Model), "Link 3 (Coupler) has no length.");
}

TEST_F(WhyWordsTest, A_drag_that_is_not_followed_is_told_with_the_length_that_would_do) {
    Triple_Rocker();
    Run(60, 100, 40);
    Geometry wished = Model;
    wished.L3 = 1.2;
    EXPECT_EQ(Why_Not_Followed(Model, wished, 0),
              "Not followed: with 1.2 in of link 3 coupler and rocker cannot meet at Theta2 = 60.0 deg; over 1.583 in "
              "would do.");
    wished = Model;
    wished.L4 = 12;
    EXPECT_EQ(Why_Not_Followed(Model, wished, 0),
              "Not followed: with 12 in of link 4 coupler and rocker cannot meet at Theta2 = 60.0 deg; under 11.082 in "
              "would do.");
    wished = Model;
    wished.L1 = 8.5;
    EXPECT_EQ(Why_Not_Followed(Model, wished, 1),
              "Not followed: with 8.5 in of link 1 coupler and rocker cannot meet at Theta2 = 100.0 deg; under 7.95 in "
              "would do.");
    wished = Model;
    wished.L2 = 6;
    EXPECT_EQ(Why_Not_Followed(Model, wished, 1),
              "Not followed: with 6 in of link 2 coupler and rocker cannot meet at Theta2 = 100.0 deg; under 5.321 in "
              "would do.");
    wished = Model;
    wished.L3 = 5.5;
    EXPECT_EQ(Why_Not_Followed(Model, wished, 0), "Not followed: there it would close on its other circuit.");
}

TEST_F(WhyWordsTest, A_drag_of_the_pivot_is_told_in_the_frame_of_the_read_out) {
    Triple_Rocker(30);
    Run(90, 130, 40);
    Geometry wished = Model;
    wished.L1 = 8.5;
    EXPECT_EQ(Why_Not_Followed(Model, wished, 1),
              "Not followed: with 8.5 in of link 1 coupler and rocker cannot meet at Theta2 = 130.0 deg; under 7.95 in "
              "would do.");
    wished = Model;
    wished.Link1Angle = 0;
    EXPECT_EQ(Why_Not_Followed(Model, wished, 1),
              "Not followed: coupler and rocker cannot meet at Theta2 = 130.0 deg.");
}

TEST_F(WhyWordsTest, Locks_are_named) {
    EXPECT_EQ(Why_Held({1}), "Not followed: link 2 is locked.");
    EXPECT_EQ(Why_Held({4, 5}),
              "Not followed: the distance to the coupler point and the angle to the coupler point are locked.");
    EXPECT_EQ(Why_Held({15, 16}), "Not followed: x of O4 and y of O4 are locked.");
    EXPECT_EQ(Why_Held({0, 6}), "Not followed: the length of link 1 and the angle of link 1 are locked.");
}

}  // namespace

}  // namespace verlink::test
