// The chooser of the plot type: options, pictures, and the way to the screens behind it.
#include "screens/frm_plottype.h"

#include <cmath>
#include <map>
#include <set>

#include "tests/screens/plot_select_fixture.h"

namespace verlink::test {
namespace {

using platform::PictureBox;
using platform::Screen;
using platform::Screens;

class PlotTypeTest : public SelectionScreenTest {
   protected:
    frm_PlotType& form = dynamic_cast<frm_PlotType&>(Screens::Get("frm_PlotType"));
    static constexpr std::array<const char*, 4> kSelections{"frm_PlotSelect1", "frm_PlotSelect2", "frm_PlotSelect3",
                                                            "frm_PlotSelect4"};
    /// The layout of each picture.
    static constexpr std::array<int, 8> kLayouts{0, 1, 1, 2, 2, 2, 2, 3};
    PictureBox& Picture(std::size_t index) { return form.Get<PictureBox>("Picture" + std::to_string(index + 1)); }
};

}  // namespace

TEST_F(PlotTypeTest, CaptionsStandAsDesigned) {
    EXPECT_EQ(form.Caption().Get(), "Select Plot Type");
    const std::array<const char*, 4> captions{"Single Window - One to Four Functions", "Two Windows - Two Functions",
                                              "Four Windows - Four Functions", "Polar Plot - One to Four Functions"};
    for (int layout = 0; layout < 4; ++layout) {
        EXPECT_EQ(form.fra_PickPlot[layout].Caption.Get(), captions[static_cast<std::size_t>(layout)]);
        EXPECT_EQ(form.opt_PickPlot[layout].Caption.Get(), "Select");
    }
    EXPECT_EQ(form.cmd_PickPlotDone.Caption.Get(), "&Next >");
    EXPECT_EQ(form.cmd_CancelPickPlot.Caption.Get(), "< &Back");
}

TEST_F(PlotTypeTest, GoingOnNeedsAChoice) {
    form.Form_Activate();
    EXPECT_FALSE(form.cmd_PickPlotDone.Enabled);
    for (const auto& option : form.opt_PickPlot) EXPECT_FALSE(option->Value);
    Choose_Option(form, "opt_PickPlot", 2);
    EXPECT_TRUE(form.cmd_PickPlotDone.Enabled);
}

TEST_F(PlotTypeTest, EachOptionLeadsToItsScreenAndSetsTheStyle) {
    for (int layout = 0; layout < 4; ++layout) {
        const char* selection = kSelections[static_cast<std::size_t>(layout)];
        desktop.Expect_Screen("frm_PlotType", [layout](Screen& screen) {
            Choose_Option(screen, "opt_PickPlot", layout);
            Press(screen, "cmd_PickPlotDone");
        });
        desktop.Expect_Screen(selection, [this](Screen& screen) {
            EXPECT_FALSE(form.Visible());
            EXPECT_EQ(screen.Left().Get(), (desktop.Size.width - screen.Width()) / 2);
            screen.Hide();
        });
        form.ShowModal();
        EXPECT_EQ(Model.PlotStyle, layout + 1);
    }
}

TEST_F(PlotTypeTest, AClickOnAPictureSelectsItsLayout) {
    for (std::size_t picture = 0; picture < 8; ++picture) {
        form.cmd_PickPlotDone.Enabled = false;
        Picture(picture).OnClick();
        EXPECT_TRUE(form.opt_PickPlot[kLayouts[picture]].Value) << picture;
        EXPECT_TRUE(form.cmd_PickPlotDone.Enabled) << picture;
        EXPECT_EQ(Model.PlotStyle, 0);
    }
}

TEST_F(PlotTypeTest, ADoubleClickOnAPictureGoesOnAtOnce) {
    for (std::size_t picture = 0; picture < 8; ++picture) {
        desktop.Expect_Screen(kSelections[static_cast<std::size_t>(kLayouts[picture])],
                              [](Screen& screen) { screen.Hide(); });
        Picture(picture).OnDblClick();
        EXPECT_EQ(Model.PlotStyle, kLayouts[picture] + 1);
    }
}

TEST_F(PlotTypeTest, TheSketchesShowAxesAndAsManyCurvesAsAWindowHas) {
    for (std::size_t picture = 0; picture < 8; ++picture) {
        std::set<platform::Color> colors;
        for (const auto& primitive : Picture(picture).Drawing().Primitives()) colors.insert(primitive.color);
        // The axes, and the curves of the window; the polar one has its vectors and its path.
        EXPECT_EQ(colors.size(), picture == 0 ? 5u : picture == 7 ? 3u : 2u) << picture;
        EXPECT_GT(Picture(picture).Drawing().Alive(), 70u);
    }
}

TEST_F(PlotTypeTest, EachWindowOfASketchHasItsAxesWithQuarterTicksAndItsOwnCurveOverOneTurn) {
    const std::set<int> curves[] = {{0, 1, 2, 3}, {0}, {1}, {0}, {1}, {2}, {3}};
    const platform::Color colors[] = {30 + 256 * 80 + 65536 * 200, 200 + 256 * 50 + 65536 * 50,
                                      30 + 256 * 140 + 65536 * 70, 150 + 256 * 60 + 65536 * 160};
    for (std::size_t picture = 0; picture < 7; ++picture) {
        SCOPED_TRACE(picture);
        const auto& drawn = Picture(picture).Drawing();
        EXPECT_EQ(drawn.Left(), -0.12);
        EXPECT_EQ(drawn.Right(), 1.08);
        int ticks = 0, axes = 0;
        std::map<platform::Color, std::vector<std::pair<double, double>>> paths;
        for (const auto& one : drawn.Primitives()) {
            const bool segment = one.kind == platform::Picture::Primitive::Kind::kSegment;
            if (one.color == 128 * (1 + 256 + 65536)) {
                axes += (one.x1 == 0 && one.x2 == 0) || (one.y1 == 0 && one.y2 == 0 && one.x2 == 1);
                ticks += one.x1 == one.x2 && one.x1 > 0 && std::fmod(one.x1, 0.25) == 0 && one.y1 == -one.y2;
            } else if (segment) {
                paths[one.color].emplace_back(one.x2, one.y2);
            }
        }
        EXPECT_EQ(axes, 2);
        EXPECT_EQ(ticks, 4);
        ASSERT_EQ(paths.size(), curves[picture].size());
        for (const int number : curves[picture]) {
            const auto& path = paths[colors[number]];
            ASSERT_EQ(path.size(), 72U) << number;
            // A wave and its second harmonic, a quarter as high, which go on where they began.
            const double shift = 0.9 * number;
            for (std::size_t piece = 1; piece <= 72; ++piece) {
                const double angle = 2 * M_PI * static_cast<double>(piece) / 72;
                EXPECT_NEAR(path[piece - 1].first, static_cast<double>(piece) / 72, 1e-9);
                EXPECT_NEAR(path[piece - 1].second,
                            -0.55 * std::sin(angle + shift) - 0.25 * std::sin(2 * angle - 1.7 * shift), 1e-9);
            }
        }
    }
}

TEST_F(PlotTypeTest, ThePolarSketchIsWithinItsCircleAndOnBothOfItsAxes) {
    const auto& drawn = Picture(7).Drawing();
    EXPECT_EQ(drawn.Left(), -1.15);
    EXPECT_EQ(drawn.Right(), 1.15);
    int level = 0, upright = 0, circles = 0, path = 0;
    for (const auto& one : drawn.Primitives()) {
        level += one.x1 == -1 && one.x2 == 1 && one.y1 == 0 && one.y2 == 0;
        upright += one.x1 == 0 && one.x2 == 0 && one.y1 == -1 && one.y2 == 1;
        if (one.kind != platform::Picture::Primitive::Kind::kSegment) {
            circles += one.x2 == 1;
            continue;
        }
        if (one.color != 30 + 256 * 80 + 65536 * 200) continue;
        ++path;
        // The locus reaches farthest where twice its angle is 0.7.
        const double angle = std::atan2(-one.y2, one.x2);
        EXPECT_NEAR(std::hypot(one.x2, one.y2), 0.62 + 0.3 * std::cos(2 * angle - 0.7), 1e-9);
    }
    EXPECT_EQ(level, 1);
    EXPECT_EQ(upright, 1);
    EXPECT_GE(circles, 1);
    EXPECT_EQ(path, 72);
}

TEST_F(PlotTypeTest, PicturesAreForWhatTheirOptionIsFor) {
    for (std::size_t picture = 0; picture < 8; ++picture)
        EXPECT_EQ(Picture(picture).Tip.Get(), form.opt_PickPlot[kLayouts[picture]].Tip.Get()) << picture;
    EXPECT_EQ(form.opt_PickPlot[0].Tip.Get(), "Up to four functions in one graph");
    EXPECT_EQ(form.opt_PickPlot[3].Tip.Get(), "A vector as a locus about the origin");
}

TEST_F(PlotTypeTest, ThePolarSketchHasAVectorInEachEighthOfATurn) {
    std::set<long> eighths;
    for (const auto& one : Picture(7).Drawing().Primitives()) {
        const double reach = std::hypot(one.x2, one.y2);
        if (one.kind != platform::Picture::Primitive::Kind::kSegment || one.x1 != 0 || one.y1 != 0 || reach == 1)
            continue;
        const double turn = std::atan2(-one.y2, one.x2) / (2 * M_PI);
        EXPECT_NEAR(8 * turn, std::round(8 * turn), 1e-3);
        eighths.insert((std::lround(8 * turn) + 8) % 8);
    }
    EXPECT_EQ(eighths.size(), 8U);
}

TEST_F(PlotTypeTest, BackLeavesForTheHomeScreen) {
    desktop.Expect_Screen("frm_PlotType", [](Screen& screen) { Press(screen, "cmd_CancelPickPlot"); });
    form.ShowModal();
    EXPECT_FALSE(form.Visible());
}

TEST_F(PlotTypeTest, HelpOpensThePageOfThePlots) {
    desktop.Expect_Screen("frm_Help", [](Screen& help) {
        EXPECT_EQ(help.Get<platform::DocumentView>("WebBrowser1").Document.Get(),
                  "helpfiles/linkages/linkage_plot_help.pdf");
        help.Hide();
    });
    form.mnu_Help.Click();
}

TEST_F(PlotTypeTest, TheHomeScreenOpensTheChooserOnceThereAreResults) {
    auto& home = Screens::Get("frm_HomeScreen");
    Run_Dropped();
    home.Form_Activate();
    EXPECT_FALSE(home.Get<platform::CommandButton>("cmd_Plot").Enabled);
    EXPECT_FALSE(home.Get<platform::CommandButton>("cmd_Print").Enabled);
    Run_Holds();
    home.Form_Activate();
    Model.ScreenReturn = false;
    desktop.Expect_Screen("frm_PlotType", [](Screen& screen) {
        EXPECT_TRUE(Model.ScreenReturn);
        screen.Hide();
    });
    Press(home, "cmd_Plot");
    desktop.Expect_Screen("frm_PrintSelect", [](Screen& screen) {
        EXPECT_TRUE(Model.ScreenReturn);
        screen.Hide();
    });
    Press(home, "cmd_Print");
}

}  // namespace verlink::test
