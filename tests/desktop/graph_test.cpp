// The widget of a graph: what it draws when, what is read off it, and how it is enlarged.
#include <QImage>
#include <cmath>

#include "output/graph_scale.h"
#include "tests/desktop/graph_fixture.h"

namespace verlink::test {

namespace {

TEST_F(GraphWidgetTest, Nothing_is_drawn_before_Draw) {
    Open();
    const QImage before = Shot();
    Fill(2, 360);
    graph.Background = 1;
    graph.Tip = "another property";
    Settle();
    EXPECT_EQ(Shot(), before);
    Draw();
    EXPECT_NE(Shot(), before);
}

TEST_F(GraphWidgetTest, Each_set_has_its_colour_on_each_background) {
    Open();
    Fill(4, 360);
    graph.PatternedLines = 0;
    graph.ThickLines = 1;
    for (const int background : {15, 1, 7}) {
        graph.Background = background;
        Draw();
        const QImage image = Shot();
        const Graph_Colors& colors = Colors_Of(background);
        EXPECT_GT(Pixels(image, Rgb(colors.back)), image.width() * image.height() / 2);
        for (const platform::Color curve : colors.curves) EXPECT_GT(Pixels(image, Rgb(curve)), 300) << background;
    }
}

TEST_F(GraphWidgetTest, Patterned_lines_have_gaps) {
    Open();
    Fill(2, 2880);
    graph.ThickLines = 1;
    const QRgb second = Rgb(Colors_Of(15).curves[1]);
    graph.PatternedLines = 0;
    Draw();
    const int solid = Pixels(Shot(), second);
    graph.PatternedLines = 1;
    Draw();
    const int dashed = Pixels(Shot(), second);
    EXPECT_LT(dashed, 0.85 * solid);
    EXPECT_GT(dashed, 0.4 * solid);
}

TEST_F(GraphWidgetTest, The_curve_passes_where_the_axes_say) {
    Open();
    Fill(1, 360);
    graph.ThickLines = 1;
    Draw();
    const QImage image = Shot();
    const QRgb curve = Rgb(Colors_Of(15).curves[0]);
    for (const int point : {30, 90, 150, 200, 270, 330}) {
        const QPoint at = widget->place(point, std::sin(point * 6.283185307 / 360));
        bool found = false;
        for (int dx = -1; dx <= 1; ++dx)
            for (int dy = -1; dy <= 1; ++dy)
                if (image.pixel(at + QPoint(dx, dy)) == curve) found = true;
        EXPECT_TRUE(found) << point;
    }
}

TEST_F(GraphWidgetTest, Styles_show_lines_and_sticks) {
    Open();
    Fill(1, 36);
    const auto inked = [&](int style) {
        graph.GraphStyle = style;
        Draw();
        const QImage image = Shot();
        // Halfway up a stick, and halfway up beside it on the curve's own way.
        const QColor stick = image.pixelColor(widget->place(9, 0.5));
        const QPoint between = (widget->place(3, std::sin(0.5236)) + widget->place(4, std::sin(0.6981))) / 2;
        bool line = false;
        for (int dy = -2; dy <= 2; ++dy)
            if (image.pixelColor(between + QPoint(0, dy)).lightness() < 200) line = true;
        return std::pair(stick.lightness() < 230, line);
    };
    EXPECT_EQ(inked(0), std::pair(false, true));
    EXPECT_EQ(inked(2), std::pair(true, false));
    EXPECT_EQ(inked(4), std::pair(false, true));
    EXPECT_EQ(inked(6), std::pair(true, true));
}

TEST_F(GraphWidgetTest, Marks_at_zero_stand_clear_of_the_frame) {
    Open();
    Fill(1, 15);
    graph.GraphStyle = 2;
    for (const double sign : {1.0, -1.0}) {
        for (int i = 0; i <= 15; ++i) {
            graph.ThisSet = 1;
            graph.ThisPoint = i + 1;
            graph.SetGraphData(sign * (15 - i));
        }
        Draw();
        const QRectF view = widget->view();
        const QPoint zero = widget->place(15, 0);
        const int edge = widget->place(15, sign > 0 ? view.top() : view.bottom()).y();
        EXPECT_GE(std::abs(edge - zero.y()), 5) << sign;
    }
}

TEST_F(GraphWidgetTest, The_grid_follows_its_style) {
    Open();
    Fill(1, 360);
    const QRgb grid = Rgb(Colors_Of(15).grid);
    int pixels[4];
    for (int style = 0; style <= 3; ++style) {
        graph.GridStyle = style;
        Draw();
        pixels[style] = Pixels(Shot(), grid);
    }
    EXPECT_EQ(pixels[0], 0);
    EXPECT_GT(pixels[1], 1000);
    EXPECT_GT(pixels[2], 1000);
    EXPECT_GT(pixels[3], std::max(pixels[1], pixels[2]));
}

TEST_F(GraphWidgetTest, Labels_stand_every_so_many_points_and_thin_out_when_narrow) {
    Open({1200, 500});
    Fill(1, 72);
    Draw();
    EXPECT_EQ(widget->labels(), (QStringList{"0", "12", "24", "36", "48", "60", "72"}));
    graph.LabelEvery = 24;
    Draw();
    EXPECT_EQ(widget->labels(), (QStringList{"0", "24", "48", "72"}));
    graph.LabelEvery = 2;
    widget->resize(300, 300);
    Draw();
    EXPECT_LT(widget->labels().size(), 12);
    EXPECT_EQ(widget->labels().constFirst(), "0");
}

TEST_F(GraphWidgetTest, Labels_that_fit_the_axis_are_shown_and_no_two_touch) {
    Open({900, 400});
    Fill(1, 180);
    Draw();
    EXPECT_EQ(widget->labels().size(), 16);
    const QFontMetricsF metrics(widget->font());
    for (const int width : {900, 700, 600, 500, 400, 300, 250}) {
        widget->resize(width, 400);
        Draw();
        const QStringList labels = widget->labels();
        ASSERT_GE(labels.size(), 2) << width;
        for (qsizetype i = 1; i < labels.size(); ++i) {
            const double apart = widget->place(labels[i].toInt(), 0).x() - widget->place(labels[i - 1].toInt(), 0).x();
            const double words = (metrics.horizontalAdvance(labels[i]) + metrics.horizontalAdvance(labels[i - 1])) / 2;
            EXPECT_GE(apart, words) << width << ' ' << i;
        }
    }
    // The width of the axis decides and not that of the labels of the values beside it.
    Fill(1, 15);
    graph.LabelEvery = 1;
    widget->resize(430, 300);
    Draw();
    EXPECT_EQ(widget->labels().size(), 16);
}

TEST_F(GraphWidgetTest, The_pointer_reads_the_label_and_each_value) {
    Open();
    Fill(3, 360);
    Draw();
    EXPECT_EQ(widget->readOut(widget->place(90, 0.2)),
              (QStringList{"Crank Angle (Deg) 90", "Function 1 1", "Function 2 2", "Function 3 3"}));
    EXPECT_EQ(widget->readOut(QPoint(2, 2)), QStringList());
    graph.Readings.assign(361, "90.25");
    Draw();
    EXPECT_EQ(widget->readOut(widget->place(90, 0.2)).constFirst(), "Crank Angle (Deg) 90.25");
}

TEST_F(GraphWidgetTest, Points_that_were_never_given_are_neither_drawn_nor_read) {
    Open();
    Fill(1, 36);
    Draw();
    const QImage one = Shot();
    graph.SetNumSets(3);
    Draw();
    EXPECT_EQ(Shot(), one);
    EXPECT_EQ(widget->readOut(widget->place(9, 0.2)).size(), 2);
}

TEST_F(GraphWidgetTest, The_crosshair_shows_while_the_pointer_is_over_the_plot) {
    Open();
    Fill(1, 360);
    Draw();
    const QImage before = Shot();
    const QPoint at = widget->place(100, 0.3);
    QEnterEvent enter(at, at, widget->mapToGlobal(at));
    QCoreApplication::sendEvent(Plot(), &enter);
    Plot()->setAttribute(Qt::WA_UnderMouse, true);
    QMouseEvent move(QEvent::MouseMove, at, widget->mapToGlobal(at), Qt::NoButton, Qt::NoButton, {});
    QCoreApplication::sendEvent(Plot(), &move);
    EXPECT_NE(Shot(), before);
    Plot()->setAttribute(Qt::WA_UnderMouse, false);
    EXPECT_EQ(Shot(), before);
}

TEST_F(GraphWidgetTest, The_wheel_enlarges_about_the_pointer_and_a_double_click_returns) {
    Open();
    Fill(1, 360);
    Draw();
    const QRectF whole = widget->view();
    EXPECT_EQ(whole.left(), 0);
    EXPECT_EQ(whole.right(), 360);
    const QPoint at = widget->place(90, 0.5);
    Wheel(at, 120);
    EXPECT_LT(widget->view().width(), whole.width());
    EXPECT_LT(widget->view().height(), whole.height());
    EXPECT_LE((widget->place(90, 0.5) - at).manhattanLength(), 2);
    QTest::mouseDClick(Plot(), Qt::LeftButton, {}, at);
    EXPECT_EQ(widget->view(), whole);
    Wheel(at, -240);
    EXPECT_EQ(widget->view(), whole) << "there is nothing beyond the whole";
}

TEST_F(GraphWidgetTest, A_frame_drawn_with_the_left_button_enlarges_what_is_in_it) {
    Open();
    Fill(1, 360);
    Draw();
    const QRectF whole = widget->view();
    Drag(widget->place(100, 0.8), widget->place(200, -0.4));
    EXPECT_NEAR(widget->view().left(), 100, 1);
    EXPECT_NEAR(widget->view().right(), 200, 1);
    EXPECT_NEAR(widget->view().top(), -0.4, 0.02);
    EXPECT_NEAR(widget->view().bottom(), 0.8, 0.02);
    widget->showAll();
    EXPECT_EQ(widget->view(), whole);
}

TEST_F(GraphWidgetTest, A_trembling_click_enlarges_nothing) {
    Open();
    Fill(1, 360);
    Draw();
    const QRectF whole = widget->view();
    Drag(widget->place(100, 0.2), widget->place(100, 0.2) + QPoint(5, 40));
    EXPECT_EQ(widget->view(), whole);
}

TEST_F(GraphWidgetTest, A_change_of_style_keeps_the_enlarged_part_and_new_data_do_not) {
    Open();
    Fill(1, 360);
    Draw();
    Drag(widget->place(100, 0.8), widget->place(200, -0.4));
    const QRectF part = widget->view();
    graph.GridStyle = 3;
    Draw();
    EXPECT_EQ(widget->view(), part);
    Fill(1, 180);
    Draw();
    EXPECT_EQ(widget->view().right(), 180);
}

TEST_F(GraphWidgetTest, Hovering_and_enlarging_leave_the_graph_as_it_was) {
    Open();
    Fill(2, 360);
    Draw();
    const int drawings = graph.Drawings();
    const auto value = graph.Sets()[1].values[77];
    Wheel(widget->place(90, 0.5), 240);
    Drag(widget->place(80, 0.6), widget->place(95, 0.3));
    EXPECT_EQ(graph.Drawings(), drawings);
    EXPECT_EQ(graph.Sets()[1].values[77], value);
    EXPECT_EQ(graph.ThisSet, 3);
}

TEST_F(GraphWidgetTest, Legends_of_any_number_fit_any_width) {
    Open();
    for (int sets = 0; sets <= 4; ++sets)
        for (const int width : {240, 400, 700, 1300}) {
            Fill(sets, 36);
            widget->resize(width, 300);
            Draw();
            EXPECT_FALSE(Shot().isNull()) << sets << " in " << width;
        }
}

}  // namespace

}  // namespace verlink::test
