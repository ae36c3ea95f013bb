// What the hand reads off aligned and polar plots: the values of the run at the places where they are drawn.
#include <cmath>

#include "output/cartesian.h"
#include "output/polar.h"
#include "screens/frm_myplot2.h"
#include "screens/frm_myplot4.h"
#include "screens/frm_plot1.h"
#include "tests/output/plotting.h"

namespace verlink::test {

namespace {

using platform::Plot_Reading;

class Plot_Readings : public Plotting {
   protected:
    Plot_Readings() {
        Turn_Ground(20);
        By_Angle(0, 360, 10);
        // The boxes answer only on a screen that is up.
        polar.chk_Envelope.OnClick = polar.chk_Vectors.OnClick = nullptr;
    }
    void Choose_Polar() {
        Select_Variable("Veloc CP", 1);
        chosen.lbl_Function[0].Caption = "Veloc CP";
        Model.PlotCount = 1;
    }
    frm_Myplot2 aligned;
    frm_MyPlot4 polar;
};

}  // namespace

TEST_F(Plot_Readings, Of_an_aligned_window_are_angle_and_value_of_each_step_where_the_curve_goes) {
    Choose(1, "Omega4", "Mag");
    Choose(2, "Theta3", "Mag");
    MyPlot(aligned, chosen, 2);
    for (int window = 0; window < 2; ++window) {
        SCOPED_TRACE(window);
        const Plot_Reading& reading = aligned.pct_Plot[window].Reading();
        EXPECT_FALSE(reading.polar);
        EXPECT_EQ(reading.across, "Crank Angle (Deg)");
        EXPECT_EQ(reading.color, Model.ColorBlue);
        ASSERT_EQ(reading.labels.size(), 37U);
        EXPECT_EQ(reading.labels[9], "90");
        ASSERT_EQ(reading.values.size(), 1U);
        EXPECT_EQ(reading.values[0].name, window ? "Theta3 Mag" : "Omega4 Mag");
        EXPECT_EQ(reading.values[0].unit, aligned.pnl_PlotUnits[window].Caption.Get());
        EXPECT_FALSE(reading.values[0].unit.empty());
        for (int step = 0; step <= 36; ++step) {
            const auto i = static_cast<std::size_t>(step);
            const double value = window ? Model.RunTable.Theta(step, 1) : Model.RunTable.Omega(step, 2);
            EXPECT_EQ(reading.values[0].at[i], value) << step;
            EXPECT_EQ(reading.y[i], value) << step;
            EXPECT_NEAR(reading.x[i], 10 * step, 1e-3) << step;
        }
    }
}

TEST_F(Plot_Readings, Tell_the_place_of_a_point_with_all_its_digits_where_the_axis_rounds) {
    By_Angle(0.25, 90.25, 2.5);
    Choose(1, "Omega4", "Mag");
    Choose(2, "Theta3", "Mag");
    MyPlot(aligned, chosen, 2);
    EXPECT_EQ(aligned.pct_Plot[1].Reading().labels[1], "2.75");
    frm_Plot1 graphs;
    Plot_Setup(graphs, 1);
    MultiPlot(graphs, chosen);
    const platform::Graph& graph = graphs.grf_Plot[0];
    ASSERT_EQ(graph.Readings.size(), 37U);
    EXPECT_EQ(graph.Readings[36], "90.25");
    EXPECT_EQ(graph.Labels()[36], "90.");
    By_Time(0, 0.01, 0.0025);
    Plot_Setup(graphs, 1);
    EXPECT_EQ(graph.Readings, (std::vector<std::string>{"0", "0.0025", "0.005", "0.0075", "0.01"}));
}

TEST_F(Plot_Readings, Tell_times_to_the_millionth_and_angles_to_the_ten_thousandth) {
    By_Time(0, 1, 0.125);
    Model.TimeStep = 0.1234567;
    frm_Plot1 graphs;
    Plot_Setup(graphs, 1);
    EXPECT_EQ(graphs.grf_Plot[0].Readings.at(1), "0.123457");
    By_Angle(0, 90, 10);
    Model.RunTable.Theta(1, 0) = 10.12346F;
    Plot_Setup(graphs, 1);
    EXPECT_EQ(graphs.grf_Plot[0].Readings.at(1), "10.1235");
}

TEST_F(Plot_Readings, Of_a_window_that_is_left_empty_are_none) {
    Choose(1, "Omega4", "Mag");
    Choose(2, "Omega4", "Mag");
    MyPlot(aligned, chosen, 2);
    EXPECT_FALSE(aligned.pct_Plot[0].Reading().Empty());
    for (int i = 0; i <= Model.NSteps; ++i) Model.RunTable.Omega(i, 2) = 3e38;
    for (int window = 0; window < 2; ++window) desktop.Expect_Message_With("exceeds the capacity of this window");
    MyPlot(aligned, chosen, 2);
    EXPECT_TRUE(aligned.pct_Plot[0].Reading().Empty());
}

TEST_F(Plot_Readings, Of_a_polar_plot_are_magnitude_and_angle_of_each_tip) {
    Choose_Polar();
    MyPolarPlotSetup(polar);
    MyPolarPlot(polar, chosen);
    const Plot_Reading& reading = polar.pct_Plot.Reading();
    EXPECT_TRUE(reading.polar);
    EXPECT_EQ(reading.across, "Theta2");
    EXPECT_EQ(reading.color, Model.ColorBlue) << "as the vectors";
    ASSERT_EQ(reading.labels.size(), 37U);
    EXPECT_EQ(reading.labels[9], "90 deg");
    ASSERT_EQ(reading.values.size(), 2U);
    EXPECT_EQ(reading.values[0].name, "Mag");
    EXPECT_EQ(reading.values[1].name, "Ang");
    EXPECT_EQ(reading.values[1].unit, "deg");
    for (std::size_t i = 0; i < 37; ++i) {
        const double mag = reading.values[0].at[i], ang = reading.values[1].at[i] * 3.14159265358979 / 180;
        EXPECT_NEAR(mag, std::hypot(reading.x[i], reading.y[i]), 1e-5 * mag) << i;
        EXPECT_NEAR(mag * std::cos(ang), reading.x[i], 1e-4 * mag) << i;
        EXPECT_NEAR(mag * std::sin(ang), reading.y[i], 1e-4 * mag) << i;
        EXPECT_NEAR(reading.x[i], Velocity(static_cast<int>(i)).x, 1e-4) << i;
        EXPECT_NEAR(reading.y[i], Velocity(static_cast<int>(i)).y, 1e-4) << i;
    }
}

TEST_F(Plot_Readings, Of_a_polar_plot_that_shows_one_vector_are_those_of_that_one) {
    Choose_Polar();
    MyPolarPlotSetup(polar);
    MyPolarPlot(polar, chosen);
    const double x = polar.pct_Plot.Reading().x[4];
    MyPolarStep(polar, 4);
    ASSERT_EQ(polar.pct_Plot.Reading().labels, std::vector<std::string>{"40 deg"});
    EXPECT_EQ(polar.pct_Plot.Reading().x[0], x);
    MyPolarPlotSetup(polar);
    EXPECT_TRUE(polar.pct_Plot.Reading().Empty()) << "nothing is drawn any more";
}

}  // namespace verlink::test
