// Which positions a film shows, and for how long.
#include "animation/film.h"

#include <cmath>
#include <numeric>

#include "animation/engine.h"
#include "tests/support/drawing.h"

namespace verlink::test {

namespace {

std::vector<int> Steps(int last) {
    std::vector<int> steps(static_cast<std::size_t>(last) + 1);
    std::iota(steps.begin(), steps.end(), 0);
    return steps;
}

int Sum(const std::vector<Film_Frame>& film) {
    int sum = 0;
    for (const Film_Frame& frame : film) sum += frame.hundredths;
    return sum;
}

}  // namespace

TEST(Films, Show_every_step_where_each_has_time) {
    EXPECT_EQ(Film_Of(Steps(3), 0.05), (std::vector<Film_Frame>{{0, 5}, {1, 5}, {2, 5}, {3, 5}}));
}

TEST(Films, Add_what_is_rounded_off_to_the_next_picture) {
    // 3.333 hundredths each: at 3.33, 6.67, 10, 13.33, 16.67 and 20.
    EXPECT_EQ(Film_Of(Steps(5), 1.0 / 30), (std::vector<Film_Frame>{{0, 3}, {1, 4}, {2, 3}, {3, 3}, {4, 4}, {5, 3}}));
}

TEST(Films, Leave_steps_out_that_would_stand_too_short) {
    // Rounded to hundredths the steps stand at 0 1 1 2 3 4 4 5 6 6, and the end at 7. Too little is left for step 8,
    // which stands in the place of step 5.
    const auto film = Film_Of(Steps(9), 0.0072);
    EXPECT_EQ(film, (std::vector<Film_Frame>{{0, 2}, {3, 2}, {8, 3}}));
    EXPECT_EQ(Sum(film), 7);
}

TEST(Films, Last_as_long_as_the_run) {
    for (const double stride : {0.0005, 0.0013, 0.0031, 0.0166, 0.025, 0.0333, 0.12, 1.7})
        for (const int last : {36, 361, 2880}) {
            const auto film = Film_Of(Steps(last), stride);
            EXPECT_EQ(Sum(film), std::llround((last + 1) * stride * 100)) << stride << " " << last;
            for (std::size_t i = 0; i < film.size(); ++i) {
                EXPECT_GE(film[i].hundredths, kShortestFrame) << stride << " " << last;
                if (i > 0) {
                    EXPECT_GT(film[i].step, film[i - 1].step);
                }
            }
        }
}

TEST(Films, Of_a_run_too_short_for_two_pictures_show_one) {
    EXPECT_EQ(Film_Of(Steps(3), 0.001), (std::vector<Film_Frame>{{0, 2}}));
    EXPECT_TRUE(Film_Of({}, 0.1).empty());
}

TEST(Films, Have_no_picture_that_stands_longer_than_can_be_written) {
    EXPECT_EQ(Film_Of(Steps(2), 1000), (std::vector<Film_Frame>{{0, 65535}, {1, 65535}, {2, 65535}}));
    EXPECT_EQ(Film_Of(Steps(1), 655.35), (std::vector<Film_Frame>{{0, 65535}, {1, 65535}}));
}

TEST(Films, Give_the_last_picture_its_time_from_the_one_before_where_that_has_enough) {
    // Step 2 stands at 3 hundredths, rounded, and the run ends at 4: two are left for each.
    EXPECT_EQ(Film_Of({0, 2}, 0.0125), (std::vector<Film_Frame>{{0, 2}, {2, 2}}));
    // Steps 1 at 2 and the end at 3, so that three are too few for both.
    EXPECT_EQ(Film_Of(Steps(1), 0.015), (std::vector<Film_Frame>{{1, 3}}));
    EXPECT_EQ(Film_Of({7}, 0.02), (std::vector<Film_Frame>{{7, 2}}));
}

TEST(Films, Let_the_time_of_positions_that_do_not_close_pass) {
    EXPECT_EQ(Film_Of({4, 5, 9}, 0.1), (std::vector<Film_Frame>{{4, 10}, {5, 40}, {9, 10}}));
}

TEST(Films, Have_real_time_by_the_runs_own_step_or_by_the_cranks_speed) {
    Drive drive;
    drive.Calctype = 1;
    EXPECT_FALSE(Real_Stride(drive));
    drive.TimeStep = 0.25;
    for (const int mode : {2, 4, 5}) {
        drive.Calctype = mode;
        EXPECT_EQ(Real_Stride(drive), 0.25) << mode;
    }
    drive.Calctype = 3;
    drive.ThetaStep = 90;
    EXPECT_FALSE(Real_Stride(drive)) << "the crank stands";
    for (const double omega : {2.0, -2.0}) {
        drive.Omega2 = omega;
        ASSERT_TRUE(Real_Stride(drive));
        EXPECT_NEAR(*Real_Stride(drive), 0.785398163, 1e-8) << "a quarter of a turn at 2 rad/s";
    }
}

TEST(Films, As_played_hold_each_step_as_the_screen_does) {
    DisplaySettings settings;
    settings.AnimateWait = 100;
    settings.AnimateDelay = 5000;
    EXPECT_NEAR(Played_Stride(settings), 0.05, 1e-12) << "500000 turns of 100 ns";
    settings.AnimateDelay = 32767;
    EXPECT_NEAR(Played_Stride(settings), 0.25, 1e-12) << "no frame is held for longer";
    settings.AnimateDelay = 0;
    EXPECT_NEAR(Played_Stride(settings), 1.0 / 60, 1e-12) << "no faster than a display";
}

class Films_Of_Runs : public Drawing {
   protected:
    Films_Of_Runs() { form.Picture1.Redirect(nullptr); }
    Stage form;
};

TEST_F(Films_Of_Runs, Show_the_positions_that_close_up_to_one_at_the_exact_origin) {
    By_Angle(0, 360, 40);
    EXPECT_EQ(Steps_Shown(Model, Model.RunTable), Steps(9));
    Model.RunTable.Assembled(3) = false;
    Model.RunTable.PointXY(7, 2, 0) = 0;
    Model.RunTable.PointXY(5, 2, 0) = 0;
    Model.RunTable.PointXY(6, 2, 1) = 0;
    Model.RunTable.PointXY(7, 2, 1) = 0;
    EXPECT_EQ(Steps_Shown(Model, Model.RunTable), (std::vector<int>{0, 1, 2, 4, 5, 6}));
}

TEST_F(Films_Of_Runs, A_taker_gets_each_frame_when_it_is_drawn_and_can_end_the_run) {
    By_Angle(0, 360, 40);
    std::vector<int> taken;
    {
        const Frame_Taker taker([&](int step) {
            EXPECT_GT(form.Picture1.Drawing().Alive(), 8U) << "the links are in the picture";
            taken.push_back(step);
            return step < 5;
        });
        Animate(form);
    }
    EXPECT_EQ(taken, Steps(5));
    EXPECT_TRUE(desktop.Pauses.empty()) << "nothing is held";
    Animate(form);
    EXPECT_EQ(taken.size(), 6U);
    EXPECT_EQ(desktop.Pauses.size(), 10U);
}

}  // namespace verlink::test
