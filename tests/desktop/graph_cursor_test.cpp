// The cursor of a graph, and the hand that seeks a point.
#include "desktop/graph_cursor.h"

#include "output/graph_scale.h"
#include "tests/desktop/graph_fixture.h"

namespace verlink::test {

namespace {

TEST_F(GraphWidgetTest, The_cursor_moves_without_Draw_and_goes_away_again) {
    Open();
    Fill(2, 360);
    Draw();
    const QImage without = Shot();
    graph.Cursor = 91;
    Settle();
    const QImage at_90 = Shot();
    EXPECT_NE(at_90, without);
    const QPoint on_curve = widget->place(90, 1);
    EXPECT_EQ(at_90.pixel(on_curve), Rgb(Colors_Of(15).curves[0])) << "its dot";
    graph.Cursor = 201;
    Settle();
    EXPECT_NE(Shot(), at_90);
    graph.Cursor = 0;
    Settle();
    EXPECT_EQ(Shot(), without);
}

TEST_F(GraphWidgetTest, A_click_and_a_drag_seek_points_where_somebody_takes_them) {
    Fill(1, 360);
    std::vector<int> sought;
    int let_go = 0;
    graph.OnSeek = [](int) {};
    Open();
    widget->onSeek = [&](int point) { sought.push_back(point); };
    widget->onSought = [&] { ++let_go; };
    Draw();
    const QRectF whole = widget->view();
    Drag(widget->place(100, 0), widget->place(300, 0.5));
    EXPECT_EQ(sought, (std::vector<int>{101, 201, 301}));
    EXPECT_EQ(let_go, 1);
    EXPECT_EQ(widget->view(), whole) << "no frame was drawn";
    // The wheel enlarges all the same.
    Wheel(widget->place(180, 0), 120);
    EXPECT_NE(widget->view(), whole);
    // Beside the axes nothing is sought.
    sought.clear();
    Drag({3, 3}, widget->place(100, 0));
    EXPECT_TRUE(sought.empty());
}

TEST_F(GraphWidgetTest, Points_stand_at_their_places_also_where_these_turn_back) {
    Fill(1, 4);
    graph.Places = {0, 10, 40, 90, 20};
    const double values[] = {0, 1, 2, 3, 4};
    for (graph.ThisPoint = 1; graph.ThisPoint <= 5; ++graph.ThisPoint) {
        graph.ThisSet = 1;
        graph.SetGraphData(values[graph.ThisPoint - 1]);
    }
    graph.PatternedLines = 0;
    graph.ThickLines = 1;
    std::vector<int> sought;
    graph.OnSeek = [](int) {};
    Open();
    widget->onSeek = [&](int point) { sought.push_back(point); };
    Draw();
    EXPECT_EQ(widget->view().left(), 0);
    EXPECT_EQ(widget->view().width(), 90);
    const QImage image = Shot();
    const QRgb curve = Rgb(Colors_Of(15).curves[0]);
    // Half-way from the fourth point back to the last.
    const double width = widget->place(3, 0).x() - widget->place(0, 0).x();
    const QPoint between(widget->place(0, 0).x() + qRound(width * 55 / 90), widget->place(0, 3.5).y());
    int near = 0;
    for (int dy = -2; dy <= 2; ++dy) near += image.pixel(between + QPoint(0, dy)) == curve;
    EXPECT_GT(near, 0);
    QTest::mouseClick(Plot(), Qt::LeftButton, {}, widget->place(2, 1));
    QTest::mouseClick(Plot(), Qt::LeftButton, {}, widget->place(4, 1));
    EXPECT_EQ(sought, (std::vector<int>{3, 5}));
}

TEST(CursorBoxesTest, Each_stands_at_its_height_and_none_over_another) {
    const std::vector<double> apart = desktop::cursorBoxes({50, 150, 100}, 20, 0, 300);
    EXPECT_EQ(apart, (std::vector<double>{40, 140, 90}));
    const std::vector<double> close = desktop::cursorBoxes({100, 101, 99}, 20, 0, 300);
    EXPECT_LE(close[2] + 20, close[0]);
    EXPECT_LE(close[0] + 20, close[1]);
    const std::vector<double> low = desktop::cursorBoxes({298, 299}, 20, 0, 300);
    EXPECT_EQ(low, (std::vector<double>{260, 280}));
    const std::vector<double> crowded = desktop::cursorBoxes({5, 6, 7}, 20, 0, 50);
    EXPECT_EQ(crowded[0], 0);
}

}  // namespace

}  // namespace verlink::test
