// A run saved as a film on the animate screen: its pictures and its time, and that nothing is left of the making.
#include <cmath>
#include <cstdio>

#include "animation/film.h"
#include "files/picture_files.h"
#include "platform/file_system.h"
#include "platform/picture_pixels.h"
#include "platform/settings.h"
#include "screens/picture_entries.h"
#include "tests/screens/frm_animate_fixture.h"
#include "tests/support/gif_reader.h"

namespace verlink::test {

namespace {

class Motion : public AnimateScreen {
   protected:
    Motion() { Model.ModelName = "press"; }

    static void Take_Entry(int entry) {
        platform::The_Settings().Put(platform::Entry_Setting("motion"), std::to_string(entry));
    }
    /// What the user saves, read back.
    Gif_Read Saved(int entry) {
        Take_Entry(entry);
        desktop.Expect_Save(Path("run.gif"));
        Pick_Menu(form, "mnu_SaveMotion");
        return Read_Gif(platform::Read_File(Path("run.gif")));
    }
    struct Look {
        std::set<Shape> drawn;
        std::string number, header;
        bool number_shown;
        int bar, current;
        double least, most;
        bool operator==(const Look&) const = default;
    };
    Look Seen_Now() {
        return {Seen(form.Picture1.Drawing()),
                form.lbl_StepNumber.Caption,
                form.lbl_Header.Caption,
                form.lbl_StepNumber.Visible,
                form.hsc_step.Value(),
                Model.CurrentStep,
                Model.AnimMin,
                Model.AnimMax};
    }
    std::vector<std::uint32_t> Painted(int side) {
        platform::PicturePixels pixels;
        pixels.Paint(form.Picture1.Drawing(), side, side, side / form.Picture1.Across, form.Picture1.Across,
                     form.Picture1.Across);
        return pixels.Pixels();
    }
    /// Each picture for its time, and as the run shows that position.
    void Expect_As_Painted(const Gif_Read& film) {
        const auto plan = Film_Of(Steps_Shown(Model, Model.RunTable), *Real_Stride(Model));
        ASSERT_EQ(film.frames.size(), plan.size());
        std::vector<std::vector<std::uint32_t>> painted;
        const Frame_Taker taker([&](int) {
            painted.push_back(Painted(film.wide));
            return true;
        });
        Animate(form);
        ASSERT_EQ(painted.size(), 37U);
        for (std::size_t i = 0; i < plan.size(); ++i) {
            EXPECT_EQ(film.frames[i].hundredths, plan[i].hundredths) << i;
            const std::vector<std::uint32_t>& wanted = painted[static_cast<std::size_t>(plan[i].step)];
            int most = 0;
            for (std::size_t p = 0; p < wanted.size(); ++p)
                most = std::max(most, Apart(film.frames[i].pixels[p], wanted[p]));
            EXPECT_LT(most, 16) << i;
        }
        EXPECT_NE(painted[0], painted[9]);
    }
};

}  // namespace

TEST_F(Motion, Is_offered_under_the_models_name_in_four_sizes_in_real_time_and_as_played) {
    Model.Omega2 = Model.Omega2Input = 10;
    Model.AnimateWait = 100;
    After_First_Picture([&] {
        form.hsc_speed.SetValue(32767 - 5000);
        desktop.Expect_Save({});
        Pick_Menu(form, "mnu_SaveMotion");
    });
    const platform::FileDialog& dialog = desktop.Dialogs.back();
    EXPECT_EQ(dialog.title, "Save motion");
    EXPECT_EQ(dialog.file_name, "press_motion.gif");
    EXPECT_EQ(dialog.kind, "motion");
    EXPECT_EQ(dialog.filter_index, 2);
    EXPECT_TRUE(dialog.warn_before_overwriting);
    // 37 steps of 10 degrees at 10 rad/s, and of 50 ms.
    EXPECT_EQ(dialog.filter,
              "Animated GIF, 360 x 360 pixels, 0.65 s in real time|*.gif|"
              "Animated GIF, 540 x 540 pixels, 0.65 s in real time|*.gif|"
              "Animated GIF, 720 x 720 pixels, 0.65 s in real time|*.gif|"
              "Animated GIF, 1080 x 1080 pixels, 0.65 s in real time|*.gif|"
              "Animated GIF, 360 x 360 pixels, 1.85 s as played|*.gif|"
              "Animated GIF, 540 x 540 pixels, 1.85 s as played|*.gif|"
              "Animated GIF, 720 x 720 pixels, 1.85 s as played|*.gif|"
              "Animated GIF, 1080 x 1080 pixels, 1.85 s as played|*.gif|");
}

TEST_F(Motion, From_ten_seconds_on_is_told_by_tenths) {
    // 37 steps of 10 degrees at 1 rad/s are 6.458 s.
    for (const auto& [omega, told] :
         {std::pair{1.0, ", 6.46 s in real time"}, {0.6, ", 10.8 s in real time"}, {0.5, ", 12.9 s in real time"}}) {
        Model.Omega2 = Model.Omega2Input = omega;
        After_First_Picture([&] {
            desktop.Expect_Save({});
            Pick_Menu(form, "mnu_SaveMotion");
        });
        EXPECT_NE(desktop.Dialogs.back().filter.find(told), std::string::npos) << desktop.Dialogs.back().filter;
    }
}

TEST_F(Motion, Of_a_run_by_time_lasts_as_long_as_that_runs) {
    By_Time(0, 1, 0.25);
    After_First_Picture([&] {
        desktop.Expect_Save({});
        Pick_Menu(form, "mnu_SaveMotion");
    });
    EXPECT_NE(desktop.Dialogs.back().filter.find(", 1.25 s in real time"), std::string::npos)
        << desktop.Dialogs.back().filter;
}

TEST_F(Motion, Leaves_each_label_of_the_position_as_it_was_shown) {
    By_Angle(0, 10, 10);
    Model.Omega2 = 4;
    After_First_Picture([&] {
        form.lbl_StepLabel.Visible = form.lbl_StepUnit.Visible = false;
        form.lbl_StepNumber.Visible = true;
        Saved(1);
        EXPECT_FALSE(form.lbl_StepLabel.Visible);
        EXPECT_TRUE(form.lbl_StepNumber.Visible);
        EXPECT_FALSE(form.lbl_StepUnit.Visible);
    });
}

TEST_F(Motion, Of_two_positions_has_two_pictures) {
    By_Angle(0, 10, 10);
    Model.Omega2 = 0.5;
    After_First_Picture([&] {
        const Gif_Read film = Saved(1);
        EXPECT_EQ(film.frames.size(), 2U);
        // 10 degrees at half a radian per second are 0.349 s.
        EXPECT_EQ(film.Hundredths(), 70);
    });
}

TEST_F(Motion, Lasts_from_the_first_position_that_closes_to_the_last) {
    // The crank opens the chain where it points away from the other pivot.
    Model.L1 = 4, Model.L2 = 3, Model.L3 = 2, Model.L4 = 2.5;
    By_Angle(180, 390, 10);
    Model.Omega2 = 1;
    const std::vector<int> steps = Steps_Shown(Model, Model.RunTable);
    ASSERT_GT(steps.size(), 1U);
    ASSERT_GT(steps.front(), 0);
    After_First_Picture([&] {
        desktop.Expect_Save({});
        Pick_Menu(form, "mnu_SaveMotion");
    });
    char told[64];
    std::snprintf(told, sizeof told, ", %.2f s in real time", (steps.back() - steps.front() + 1) * M_PI / 18);
    EXPECT_NE(desktop.Dialogs.back().filter.find(told), std::string::npos) << desktop.Dialogs.back().filter;
}

TEST_F(Motion, Has_nothing_of_what_stood_in_the_picture) {
    Model.Omega2 = 4;
    After_First_Picture([&] {
        const Gif_Read before = Saved(1);
        for (int i = 0; i < 12; ++i) Press(form, "cmd_Step");
        ASSERT_EQ(Model.RedrawFlag, "Y") << "the steps keep the picture";
        const Gif_Read after = Saved(1);
        ASSERT_EQ(after.frames.size(), before.frames.size());
        for (std::size_t i = 0; i < before.frames.size(); ++i)
            EXPECT_EQ(after.frames[i].pixels, before.frames[i].pixels) << i;
    });
}

TEST_F(Motion, Of_a_crank_that_stands_is_offered_as_played_alone) {
    Model.Omega2 = 0;
    After_First_Picture([&] {
        desktop.Expect_Save({});
        Pick_Menu(form, "mnu_SaveMotion");
    });
    EXPECT_EQ(desktop.Dialogs.back().filter.find("real time"), std::string::npos);
    EXPECT_EQ(std::ranges::count(desktop.Dialogs.back().filter, '|'), 8);
}

TEST_F(Motion, Shows_each_position_for_its_time_as_it_is_painted) {
    Model.Omega2 = 4;
    After_First_Picture([&] {
        const Gif_Read film = Saved(1);
        EXPECT_EQ(film.wide, 360);
        EXPECT_EQ(film.high, 360);
        EXPECT_TRUE(film.again_and_again);
        // 10 degrees at 4 rad/s are 4.363 hundredths.
        ASSERT_EQ(film.frames.size(), 37U);
        EXPECT_EQ(film.Hundredths(), 161);
        Expect_As_Painted(film);
    });
}

TEST_F(Motion, Leaves_out_positions_that_would_stand_too_short_and_shows_the_others_as_they_are) {
    Model.Omega2 = 20;
    After_First_Picture([&] {
        const Gif_Read film = Saved(1);
        // 10 degrees at 20 rad/s are 0.873 hundredths: every second or third of 37 positions stands for two of them.
        EXPECT_EQ(film.frames.size(), 16U);
        EXPECT_EQ(film.Hundredths(), 32);
        Expect_As_Painted(film);
    });
}

TEST_F(Motion, Leaves_screen_picture_position_and_model_as_they_were) {
    Model.Omega2 = 4;
    After_First_Picture([&] {
        form.chk_Trace.Value = true;
        for (int i = 0; i < 5; ++i) Press(form, "cmd_Step");
        const Look before = Seen_Now();
        const Position_Ear ear(form, nullptr);
        const bool saved = Model.SavedFlag;
        Position_Shown(form, 5);
        Saved(1);
        EXPECT_EQ(Seen_Now(), before);
        EXPECT_EQ(ear.Step(), 5) << "who goes along with the drawing is told";
        EXPECT_EQ(Model.SavedFlag, saved) << "a film is no model file";
        const std::string number = Number();
        Press(form, "cmd_Step");
        EXPECT_NE(Number(), number) << "stepping goes on from there";
    });
}

TEST_F(Motion, Tells_how_far_it_is_while_the_run_goes_by) {
    Model.Omega2 = 4;
    After_First_Picture([&] {
        std::vector<std::string> told;
        const std::string before = form.lbl_Header.Caption;
        form.lbl_Header.Watcher = [&] { told.push_back(form.lbl_Header.Caption); };
        Saved(1);
        form.lbl_Header.Watcher = nullptr;
        EXPECT_NE(std::ranges::find(told, "Saving motion:\rpicture 1 of 37\rEscape cancels"), told.end());
        EXPECT_NE(std::ranges::find(told, "Saving motion:\rpicture 36 of 37\rEscape cancels"), told.end());
        EXPECT_EQ(told.back(), before);
    });
}

TEST_F(Motion, That_the_user_stops_leaves_no_file_and_nothing_else) {
    Model.Omega2 = 4;
    After_First_Picture([&] {
        for (int i = 0; i < 5; ++i) Press(form, "cmd_Step");
        const Look before = Seen_Now();
        desktop.StopAtPause = desktop.Pauses.size() + 12;
        desktop.Expect_Save(Path("run.gif"));
        Pick_Menu(form, "mnu_SaveMotion");
        EXPECT_EQ(desktop.Pauses.size(), desktop.StopAtPause) << "it ends there";
        EXPECT_FALSE(platform::File_Exists(Path("run.gif")));
        EXPECT_EQ(Seen_Now(), before);
    });
}

TEST_F(Motion, That_cannot_be_written_is_told_and_leaves_no_file) {
    Model.Omega2 = 4;
    After_First_Picture([&] {
        const Look before = Seen_Now();
        desktop.Expect_Save(Path("lost/run.gif"))
            .Expect_Message("The motion could not be written to " + Path("lost/run.gif") + ".\r\nThere is no folder " +
                                Path("lost") + ".",
                            platform::Answer::kOk, platform::Icon::kExclamation);
        Pick_Menu(form, "mnu_SaveMotion");
        EXPECT_FALSE(platform::File_Exists(Path("lost/run.gif")));
        EXPECT_EQ(Seen_Now(), before);
    });
}

TEST_F(Motion, A_cancelled_dialog_plays_nothing) {
    After_First_Picture([&] {
        const Look before = Seen_Now();
        const std::size_t pauses = desktop.Pauses.size();
        desktop.Expect_Save({});
        Pick_Menu(form, "mnu_SaveMotion");
        EXPECT_EQ(desktop.Pauses.size(), pauses);
        EXPECT_EQ(Seen_Now(), before);
    });
}

TEST_F(Motion, Of_one_position_or_without_a_run_is_refused_in_a_sentence) {
    constexpr char kNone[] = "There is no run to be saved. Calculate one that moves first.";
    After_First_Picture([&] {
        Type(form, "txt_Linkout", 1, "1.3");
        form.MoveFocus(&form.cmd_Recalc);
        ASSERT_FALSE(Model.RunStands);
        desktop.Expect_Message(kNone, platform::Answer::kOk, platform::Icon::kInformation);
        Pick_Menu(form, "mnu_SaveMotion");
    });
    Model.Calctype = 1;
    desktop.Expect_Message(kNone);
    Save_Motion(form, 0);
}

TEST_F(Motion, Ends_with_its_last_picture_however_many_cycles_are_played) {
    Model.Omega2 = 4;
    After_First_Picture([&] {
        Type(form, "txt_Cycles", platform::kNoIndex, "3");
        desktop.Pauses.clear();
        EXPECT_EQ(Saved(1).frames.size(), 37U);
        EXPECT_EQ(desktop.Pauses.size(), 36U) << "one between two pictures";
    });
}

TEST_F(Motion, Shows_a_trace_and_the_glass_as_they_are_seen) {
    Model.Omega2 = 4;
    After_First_Picture([&] {
        const Gif_Read plain = Saved(1);
        form.Picture1.Through = platform::Glass{.factor = 3, .across = 0.4, .down = 0.6};
        const Gif_Read close = Saved(1);
        form.Picture1.Through = platform::Glass{};
        form.chk_Trace.Value = true;
        const Gif_Read trace = Saved(1);
        ASSERT_EQ(close.frames.size(), 37U);
        ASSERT_EQ(trace.frames.size(), 37U);
        EXPECT_NE(close.frames[20].pixels, plain.frames[20].pixels);
        const auto inked = [](const Gif_Read::Frame& frame) {
            return std::ranges::count_if(frame.pixels, [](std::uint32_t pixel) { return pixel != 0xFFFFFFFF; });
        };
        EXPECT_GT(inked(trace.frames[20]), 2 * inked(plain.frames[20])) << "every position so far";
    });
}

}  // namespace verlink::test
