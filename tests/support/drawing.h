// Drawings in tests: a bare screen to draw on, a linkage that has run, and calls compared number by number.
#pragma once

#include <set>
#include <string>
#include <tuple>
#include <vector>

#include "platform/screen.h"
#include "tests/support/fixture.h"

namespace verlink::test {

/// The least that the drawing procedures need of a screen.
struct Stage : platform::Screen {
    Stage() : Screen("frm_Stage") { Picture1.Redirect(&log); }
    platform::PictureBox Picture1{*this, "Picture1"};
    platform::CheckBox chk_autoscale{*this, "chk_autoscale", "Autoscale"};
    platform::ScrollBar hsc_step{*this, "hsc_step"};
    platform::Label lbl_Header{*this, "lbl_Header"};
    platform::Label lbl_StepLabel{*this, "lbl_StepLabel"};
    platform::Label lbl_StepNumber{*this, "lbl_StepNumber"};
    platform::Label lbl_StepUnit{*this, "lbl_StepUnit"};
    platform::ControlArray<platform::TextBox> txt_initial{*this, "txt_initial", {{0, ""}, {1, ""}, {2, ""}}};
    LogSurface log;
};

/// The default linkage in inches.
class Drawing : public Fixture {
   protected:
    Drawing();
    /// Runs by crank angle, degrees, or by time, seconds; the record's geometry is taken as it stands.
    static void By_Angle(double start, double end, double step);
    static void By_Time(double start, double end, double step);
    /// Replays a cam drive of `steps` + 1 positions, `by` degrees apart, with a follower of arm 1.2.
    static void By_Cam(int steps, double by);
    static void Turn_Ground(double degrees);

    /// One row of a log; a colour below zero is none.
    static std::string Row(const std::string& call, std::initializer_list<double> numbers, platform::Color color = -1);
    /// Compares rows word by word; numbers agree to five digits, or as well near zero.
    static void Expect_Rows(const std::vector<std::string>& rows, const std::vector<std::string>& expected);

    using Shape = std::tuple<int, platform::Color, double, double, double, double>;
    /// What is to be seen on a picture, in any order.
    static std::set<Shape> Seen(const platform::Picture& picture);
};

}  // namespace verlink::test
