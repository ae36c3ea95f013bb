// The graph as an SVG document, and what all pictures of a graph go by.
#include "output/graph_svg.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <regex>
#include <sstream>

#include "output/graph_scale.h"
#include "platform/screen.h"

namespace verlink::test {

namespace {

using platform::Graph;

class GraphSvgTest : public testing::Test {
   protected:
    platform::Screen screen{"frm_Test"};
    Graph graph{screen, "grf_Plot"};

    /// Points 0 to last of a function, each labelled with its number.
    template <class Function>
    void Fill(int set, int last, Function function) {
        if (graph.NumSets() < set) graph.SetNumSets(set);
        graph.SetNumPoints(last + 1);
        graph.ThisSet = set;
        for (int i = 0; i <= last; ++i) {
            graph.ThisPoint = i + 1;
            graph.SetGraphData(function(i));
            graph.SetLabelText(std::to_string(i));
        }
    }

    std::string Svg() const { return Graph_Svg(graph); }

    static int Count(const std::string& text, const std::string& part) {
        int count = 0;
        for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + part.size())) ++count;
        return count;
    }

    /// The points of each path that is drawn as a curve.
    static std::vector<std::vector<std::pair<double, double>>> Curves(const std::string& svg) {
        std::vector<std::vector<std::pair<double, double>>> curves;
        const std::regex path("<path d=\"([^\"]*)\" fill=\"none\" stroke-linejoin");
        for (std::sregex_iterator i(svg.begin(), svg.end(), path), end; i != end; ++i) {
            std::string text = (*i)[1];
            for (char& c : text)
                if (c == 'M' || c == 'L') c = ' ';
            std::istringstream in(text);
            auto& curve = curves.emplace_back();
            for (double x = 0, y = 0; in >> x >> y;) curve.emplace_back(x, y);
        }
        return curves;
    }

    /// (x, text) of the labels that are centred under the axis.
    static std::vector<std::pair<double, std::string>> Centred(const std::string& svg) {
        std::vector<std::pair<double, std::string>> labels;
        const std::regex text("<text x=\"([0-9.]*)\"[^>]*text-anchor=\"middle\"[^>]*>([^<]*)<");
        for (std::sregex_iterator i(svg.begin(), svg.end(), text), end; i != end; ++i)
            labels.emplace_back(std::stod((*i)[1]), (*i)[2]);
        return labels;
    }
};

TEST_F(GraphSvgTest, Every_point_of_a_set_is_on_its_curve_in_proportion) {
    Fill(1, 100, [](int i) { return 3 + 2 * std::sin(i * 0.1); });
    const auto curves = Curves(Svg());
    ASSERT_EQ(curves.size(), 1U);
    ASSERT_EQ(curves[0].size(), 101U);
    const double across = (curves[0][100].first - curves[0][0].first) / 100;
    const double up = (curves[0][50].second - curves[0][0].second) / (2 * std::sin(5.0));
    EXPECT_LT(up, 0) << "values grow upward";
    for (int i = 0; i <= 100; ++i) {
        EXPECT_NEAR(curves[0][static_cast<std::size_t>(i)].first, curves[0][0].first + across * i, 0.011);
        EXPECT_NEAR(curves[0][static_cast<std::size_t>(i)].second, curves[0][0].second + up * 2 * std::sin(i * 0.1),
                    0.02);
    }
}

TEST_F(GraphSvgTest, Patterns_count_only_while_lines_are_patterned) {
    graph.SetNumSets(4);
    for (int set = 1; set <= 4; ++set) {
        Fill(set, 20, [set](int i) { return set * i; });
        graph.SetPatternData(set - 1);
    }
    EXPECT_EQ(Count(Svg(), "stroke-dasharray"), 0);
    graph.PatternedLines = 1;
    EXPECT_EQ(Count(Svg(), "stroke-dasharray"), 3);
    graph.ThickLines = 1;
    EXPECT_EQ(Count(Svg(), "stroke-width=\"2.5\""), 4);
}

TEST_F(GraphSvgTest, Titles_and_legends_are_written_and_escaped) {
    Fill(1, 4, [](int i) { return i; });
    graph.SetLegendText("Force <A> & \"B\"");
    graph.GraphTitle = "Title  (in)";
    graph.BottomTitle = "Crank Angle (Deg)";
    const std::string svg = Svg();
    EXPECT_EQ(Count(svg, ">Force &lt;A&gt; &amp; &quot;B&quot;<"), 1);
    EXPECT_EQ(Count(svg, ">Title  (in)<"), 1);
    EXPECT_EQ(Count(svg, ">Crank Angle (Deg)<"), 1);
}

TEST_F(GraphSvgTest, Labels_stand_every_so_many_points_under_their_point) {
    Fill(1, 36, [](int i) { return i; });
    graph.LabelEvery = 12;
    graph.TickEvery = 6;
    const std::string svg = Svg();
    const auto labels = Centred(svg);
    ASSERT_EQ(labels.size(), 4U);
    const auto curve = Curves(svg).at(0);
    for (std::size_t i = 0; i < labels.size(); ++i) {
        EXPECT_EQ(labels[i].second, std::to_string(12 * i));
        EXPECT_NEAR(labels[i].first, curve[12 * i].first, 0.011);
    }
}

TEST_F(GraphSvgTest, Labels_that_would_overlap_are_thinned_to_round_multiples) {
    Fill(1, 2880, [](int i) { return i; });
    graph.LabelEvery = 12;
    const auto labels = Centred(Svg());
    ASSERT_GT(labels.size(), 5U);
    ASSERT_LT(labels.size(), 30U);
    EXPECT_EQ(std::stoi(labels[1].second) % 12, 0);
}

TEST_F(GraphSvgTest, The_last_label_counts_among_those_that_would_overlap) {
    Fill(1, 4, [](int i) { return i; });
    graph.LabelEvery = 1;
    ASSERT_EQ(Centred(Svg()).size(), 5U);
    const auto curve = Curves(Svg()).at(0);
    graph.ThisPoint = 5;
    graph.SetLabelText(std::string(static_cast<std::size_t>(curve[4].first - curve[3].first) / 3, 'w'));
    EXPECT_LT(Centred(Svg()).size(), 5U);
}

TEST_F(GraphSvgTest, A_title_and_a_legend_stand_clear_of_the_frame) {
    Fill(1, 4, [](int i) { return i; });
    const auto top = [this] { return Curves(Svg()).at(0).at(4).second; };
    const double bare = top();
    graph.GraphTitle = "Title";
    const double below = top();
    graph.GraphTitle = "";
    graph.ThisSet = 1;
    graph.SetLegendText("Legend");
    EXPECT_GT(below - bare, 1.2 * 12) << "more than its own height";
    EXPECT_GT(top() - bare, 1.5 * 9);
}

TEST_F(GraphSvgTest, Sticks_begin_at_zero_and_lines_can_be_left_out) {
    Fill(1, 10, [](int i) { return 5 + i; });
    graph.GraphStyle = 2;
    std::string svg = Svg();
    EXPECT_TRUE(Curves(svg).empty());
    EXPECT_EQ(Count(svg, "stroke-opacity"), 1);
    EXPECT_EQ(Value_Span(graph).low, 0);
    graph.GraphStyle = 6;
    svg = Svg();
    EXPECT_EQ(Curves(svg).size(), 1U);
    EXPECT_EQ(Count(svg, "stroke-opacity"), 1);
    graph.GraphStyle = 0;
    EXPECT_EQ(Count(Svg(), "stroke-opacity"), 0);
}

TEST_F(GraphSvgTest, The_grid_follows_its_style) {
    Fill(1, 10, [](int i) { return i; });
    const std::string grid = "stroke=\"#dde1e6\"";
    int lines[4];
    for (int style = 0; style <= 3; ++style) {
        graph.GridStyle = style;
        lines[style] = Count(Svg(), grid);
    }
    EXPECT_EQ(lines[0], 0);
    EXPECT_GT(lines[1], 0);
    EXPECT_EQ(lines[2], 11) << "one upon each label";
    EXPECT_EQ(lines[3], lines[1] + lines[2]);
}

TEST_F(GraphSvgTest, Zero_has_its_line_where_values_of_both_signs_are_in_view_and_nowhere_else) {
    const std::regex across("<line x1=\"([0-9.]*)\" y1=\"([0-9.]*)\" x2=\"([0-9.]*)\" y2=\"([0-9.]*)\"");
    for (const auto& [from, to, lines] :
         {std::tuple{-0.4, 0.5, 1}, {0.2, 0.9, 0}, {8.0, 12.0, 0}, {-0.9, -0.2, 0}, {-12.0, -8.0, 0}}) {
        Fill(1, 10, [from = from, to = to](int i) { return from + (to - from) * i / 10; });
        const std::string svg = Svg();
        int found = 0;
        for (std::sregex_iterator i(svg.begin(), svg.end(), across), end; i != end; ++i)
            found += std::stod((*i)[3]) - std::stod((*i)[1]) > 100;
        EXPECT_EQ(found, lines) << from;
    }
}

TEST_F(GraphSvgTest, Gaps_of_values_that_are_no_numbers_break_the_curve) {
    Fill(1, 10, [](int i) { return i == 5 ? std::numeric_limits<double>::quiet_NaN() : i; });
    const std::string svg = Svg();
    EXPECT_EQ(svg.find("nan"), std::string::npos);
    EXPECT_EQ(Curves(svg).at(0).size(), 10U);
    EXPECT_EQ(Count(svg.substr(svg.find("stroke-linejoin") - 400), "M"), 2);
}

TEST_F(GraphSvgTest, A_graph_without_points_is_an_empty_frame) {
    const std::string svg = Svg();
    EXPECT_EQ(Count(svg, "<path"), 0);
    EXPECT_EQ(Count(svg, "<svg"), 1);
    EXPECT_EQ(Count(svg, "</svg>"), 1);
}

TEST_F(GraphSvgTest, Fonts_go_to_the_titles_or_to_all_texts) {
    graph.FontUse = 4;
    graph.FontSize = 90;
    graph.FontStyle = 2;
    graph.FontUse = 0;
    graph.FontSize = 120;
    EXPECT_EQ(graph.TextFont().size, 90);
    EXPECT_EQ(graph.TitleFont().size, 120);
    EXPECT_EQ(graph.TitleFont().style, 2);
    EXPECT_EQ(graph.FontSize, 120);
    graph.BottomTitle = "Time (Sec)";
    EXPECT_EQ(Count(Svg(), "font-size=\"15.6\" font-weight=\"bold\""), 1);
    graph.FontUse = 4;
    graph.FontStyle = 1;
    EXPECT_EQ(Count(Svg(), "font-weight"), 0) << "another style than bold";
}

TEST_F(GraphSvgTest, The_axis_has_half_a_point_of_room_beside_one_point_and_beside_sticks) {
    Fill(1, 0, [](int) { return 1; });
    EXPECT_EQ(Point_Span(graph).low, -0.5);
    EXPECT_EQ(Point_Span(graph).high, 0.5);
    for (const int last : {1, 9, 50, 51, 400}) {
        Fill(1, last, [](int i) { return i; });
        graph.GraphStyle = 4;
        EXPECT_EQ(Point_Span(graph).low, 0);
        EXPECT_EQ(Point_Span(graph).high, last);
        for (const int sticks : {2, 6}) {
            graph.GraphStyle = sticks;
            const double beside = last > 50 ? last / 100.0 : 0.5;
            EXPECT_NEAR(Point_Span(graph).low, -beside, 1e-12) << last;
            EXPECT_NEAR(Point_Span(graph).high, last + beside, 1e-12) << last;
        }
    }
}

TEST_F(GraphSvgTest, Curves_have_a_little_air_and_sticks_stand_on_the_edge) {
    for (const double sign : {1.0, -1.0}) {
        Fill(1, 4, [&](int i) { return sign * (10 + i); });
        graph.GraphStyle = 4;
        Span span = Value_Span(graph);
        EXPECT_NEAR(span.low, sign > 0 ? 10 - 0.24 : -14 - 0.24, 1e-12);
        EXPECT_NEAR(span.high, sign > 0 ? 14 + 0.24 : -10 + 0.24, 1e-12);
        for (const int sticks : {2, 6}) {
            graph.GraphStyle = sticks;
            span = Value_Span(graph);
            EXPECT_NEAR(span.low, sign > 0 ? 0 : -14 - 0.84, 1e-12);
            EXPECT_NEAR(span.high, sign > 0 ? 14 + 0.84 : 0, 1e-12);
        }
    }
    const double beyond = std::numeric_limits<double>::infinity();
    Fill(1, 4, [&](int i) { return i == 2 ? 1.5 : i == 3 ? beyond : i == 4 ? -beyond : 1; });
    graph.GraphStyle = 2;
    EXPECT_NEAR(Value_Span(graph).high, 1.5 * 1.06, 1e-12);
    Fill(1, 4, [](int i) { return i - 1; });
    EXPECT_NEAR(Value_Span(graph).low, -1 - 0.24, 1e-12);
}

TEST_F(GraphSvgTest, Legends_stand_beside_each_other_where_both_fit_between_the_margins) {
    // A legend takes 48 pixels and 0.58 of its font's 13 for each letter; of 600 pixels 576 are between the margins.
    for (const int letters : {31, 32, 33, 34}) {
        for (const int set : {1, 2}) {
            Fill(set, 3, [](int i) { return i; });
            graph.SetLegendText(std::string(static_cast<std::size_t>(letters), 'm'));
        }
        const std::string svg = Graph_Svg(graph, 600, 300);
        const std::regex legend("y=\"([0-9.]*)\"[^>]*>m+<");
        std::vector<std::string> heights;
        for (std::sregex_iterator i(svg.begin(), svg.end(), legend), end; i != end; ++i) heights.push_back((*i)[1]);
        ASSERT_EQ(heights.size(), 2U);
        const double wide = 48 + 0.58 * 13 * letters;
        EXPECT_EQ(heights[0] == heights[1], 2 * wide <= 576) << letters;
    }
}

TEST_F(GraphSvgTest, Values_stand_about_sixty_pixels_apart) {
    Fill(1, 5, [](int i) { return i; });
    const std::regex value("text-anchor=\"end\"[^>]*>([^<]*)<");
    // 50 pixels of the height are above and below the frame: three sixties, and one pixel less than that.
    for (const auto& [height, wanted] : {std::pair(230, "0 2 4 "), std::pair(229, "0 5 ")}) {
        const std::string svg = Graph_Svg(graph, 600, height);
        std::string values;
        for (std::sregex_iterator i(svg.begin(), svg.end(), value), end; i != end; ++i) values += (*i)[1].str() + ' ';
        EXPECT_EQ(values, wanted) << height;
    }
}

TEST_F(GraphSvgTest, Labels_thin_out_where_the_first_is_too_wide_for_the_second) {
    const auto second = [&](std::size_t letters) {
        Fill(1, 10, [](int i) { return i; });
        graph.ThisPoint = 1;
        graph.SetLabelText(std::string(letters, '0'));
        return Centred(Graph_Svg(graph, 600, 300)).at(1).second;
    };
    EXPECT_EQ(second(1), "1");
    // About 54 pixels are between two points, and 7.54 in a letter.
    EXPECT_EQ(second(11), "1");
    EXPECT_EQ(second(13), "2");
}

TEST_F(GraphSvgTest, Ticks_stand_at_least_five_pixels_apart) {
    const std::regex tick("<line x1=\"([0-9.]*)\" y1=\"([0-9.]*)\" x2=\"([0-9.]*)\" y2=\"([0-9.]*)\"");
    graph.TickEvery = 1;
    for (const int last : {50, 90, 100, 104, 108, 115, 130, 200, 300}) {
        Fill(1, last, [](int i) { return i; });
        const std::string svg = Graph_Svg(graph, 600, 300);
        std::vector<double> places;
        for (std::sregex_iterator i(svg.begin(), svg.end(), tick), end; i != end; ++i)
            if (std::abs(std::stod((*i)[4]) - std::stod((*i)[2]) - 4) < 1e-3) places.push_back(std::stod((*i)[1]));
        ASSERT_GE(places.size(), 2U);
        const double apart = places[1] - places[0], all = (places.back() - places.front()) / last;
        EXPECT_GT(apart, 4.98) << last;
        const int every = static_cast<int>(std::lround(apart / all));
        EXPECT_TRUE(every == 1 || every == 2 || every == 5) << every;
        // The next finer ones would stand closer than that.
        EXPECT_LT(every == 1 ? 0 : apart * (every == 5 ? 2 : 1) / every, 5.1) << last;
    }
}

TEST_F(GraphSvgTest, A_flat_graph_has_its_value_in_the_middle) {
    Fill(1, 3, [](int) { return 8; });
    EXPECT_EQ(Value_Span(graph).low, 4);
    EXPECT_EQ(Value_Span(graph).high, 12);
    Fill(1, 3, [](int) { return -0.5; });
    EXPECT_EQ(Value_Span(graph).low, -0.75);
    EXPECT_EQ(Value_Span(graph).high, -0.25);
    Fill(1, 3, [](int) { return 0; });
    EXPECT_EQ(Value_Span(graph).low, -1);
    EXPECT_EQ(Value_Span(graph).high, 1);
    Fill(1, 3, [](int) { return std::nan(""); });
    EXPECT_EQ(Value_Span(graph).low, -1);
    EXPECT_EQ(Value_Span(graph).high, 1);
}

TEST(GraphScaleTest, Round_values_are_few_and_within) {
    for (const Span span : {Span{0, 1}, Span{-3.7, 12.2}, Span{1e-12, 7e-12}, Span{-4e9, 1e9}}) {
        const std::vector<double> values = Round_Values(span, 6);
        EXPECT_GE(values.size(), 3U);
        EXPECT_LE(values.size(), 9U);
        for (const double value : values) {
            EXPECT_GE(value, span.low);
            EXPECT_LE(value, span.high);
        }
    }
}

TEST(GraphScaleTest, Round_values_are_about_as_many_as_are_wanted) {
    using Values = std::vector<double>;
    for (const int none : {-1, 0, 1}) EXPECT_EQ(Round_Values({0, 10}, none), (Values{0, 10})) << none;
    EXPECT_EQ(Round_Values({0, 10}, 2), (Values{0, 5, 10}));
    EXPECT_EQ(Round_Values({0, 70}, 10), (Values{0, 10, 20, 30, 40, 50, 60, 70}));
    EXPECT_EQ(Round_Values({-4, 10}, 7), (Values{-4, -2, 0, 2, 4, 6, 8, 10}));
    EXPECT_EQ(Round_Values({0.5, 9.5}, 9), (Values{1, 2, 3, 4, 5, 6, 7, 8, 9}));
    // A step may be smaller by a fifth than an even share.
    EXPECT_EQ(Round_Values({0, 12.4}, 10).size(), 13U);
    EXPECT_EQ(Round_Values({0, 12.6}, 10).size(), 7U);
    for (const double none : {0.0, -1.0, std::nan(""), std::numeric_limits<double>::infinity()})
        EXPECT_TRUE(Round_Values({0, none}, 5).empty()) << none;
}

TEST(GraphScaleTest, Labels_thin_out_by_round_multiples) {
    EXPECT_EQ(Thinned(12, 361, 40), 12);
    EXPECT_EQ(Thinned(12, 361, 20), 24);
    EXPECT_EQ(Thinned(12, 2881, 30), 120);
    EXPECT_EQ(Thinned(0, 3, 10), 1);
    EXPECT_EQ(Thinned(12, 24, 2), 12) << "at 0 and 12";
    EXPECT_EQ(Thinned(12, 25, 2), 24) << "three at 0, 12 and 24 are too many";
    EXPECT_EQ(Thinned(12, 25, 3), 12);
    EXPECT_EQ(Thinned(1, 100001, 101), 1000);
    EXPECT_EQ(Thinned(1, 500001, 101), 5000);
    EXPECT_EQ(Thinned(7, 1 << 20, 2), 1 << 20) << "no round multiple is enough, and the first stands alone";
    EXPECT_EQ(Thinned(1, 1, 0), 1);
}

TEST(GraphScaleTest, Labels_that_stand_clear_of_each_other_all_stay) {
    const std::vector<double> narrow(16, 10.0);
    EXPECT_EQ(Labels_Every(1, 0, 15, narrow, 16, 6), 1);
    EXPECT_EQ(Labels_Every(1, 0, 15, narrow, 15.9, 6), 2);
    EXPECT_EQ(Labels_Every(1, 0, 15, narrow, 3.3, 6), 5);
    EXPECT_EQ(Labels_Every(0, 0, 15, narrow, 0.5, 6), 20) << "the first alone";
    // Only those that are in view count, each by its own width.
    std::vector<double> widths(181, 10.0);
    for (std::size_t i = 100; i <= 180; ++i) widths[i] = 30;
    EXPECT_EQ(Labels_Every(12, 0, 180, widths, 2, 6), 24);
    EXPECT_EQ(Labels_Every(12, 0, 96, widths, 2, 6), 12);
    EXPECT_EQ(Labels_Every(12, 0, 180, widths, 3, 6), 12);
    widths[12] = 1000;
    EXPECT_EQ(Labels_Every(12, 13, 96, widths, 2, 6), 12) << "the one before is out of view";
    EXPECT_EQ(Labels_Every(12, 12, 96, widths, 2, 6), 24);
    EXPECT_EQ(Labels_Every(12, 0, -1, {}, 3, 6), 12);
    EXPECT_EQ(Labels_Every(1, 0, 6000, std::vector<double>(6001, 1e6), 1, 6), 6001) << "no multiple is enough";
}

TEST(GraphScaleTest, Curves_and_texts_are_readable_on_each_background) {
    const auto light = [](platform::Color color) {
        double sum = 0;
        const double weights[] = {0.2126, 0.7152, 0.0722};
        for (int i = 0; i < 3; ++i) {
            const double part = ((color >> (8 * i)) & 0xFF) / 255.0;
            sum += weights[i] * (part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4));
        }
        return sum;
    };
    const auto contrast = [&](platform::Color a, platform::Color b) {
        const double one = light(a) + 0.05, other = light(b) + 0.05;
        return std::max(one, other) / std::min(one, other);
    };
    for (const int other : {0, 8, 14}) EXPECT_EQ(&Colors_Of(other), &Colors_Of(15)) << other;
    EXPECT_NE(Colors_Of(1).back, Colors_Of(15).back);
    EXPECT_NE(Colors_Of(7).back, Colors_Of(15).back);
    for (const int background : {15, 1, 7}) {
        const Graph_Colors& colors = Colors_Of(background);
        EXPECT_GT(contrast(colors.back, colors.ink), 7) << background;
        for (const platform::Color curve : colors.curves) EXPECT_GT(contrast(colors.back, curve), 4.5) << background;
    }
}

}  // namespace

}  // namespace verlink::test
