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
}

TEST_F(GraphSvgTest, A_flat_graph_has_its_value_in_the_middle) {
    Fill(1, 3, [](int) { return 8; });
    EXPECT_EQ(Value_Span(graph).low, 4);
    EXPECT_EQ(Value_Span(graph).high, 12);
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

TEST(GraphScaleTest, Labels_thin_out_by_round_multiples) {
    EXPECT_EQ(Thinned(12, 361, 40), 12);
    EXPECT_EQ(Thinned(12, 361, 20), 24);
    EXPECT_EQ(Thinned(12, 2881, 30), 120);
    EXPECT_EQ(Thinned(0, 3, 10), 1);
    EXPECT_EQ(Thinned(12, 24, 2), 12) << "at 0 and 12";
    EXPECT_EQ(Thinned(12, 25, 2), 24) << "three at 0, 12 and 24 are too many";
    EXPECT_EQ(Thinned(12, 25, 3), 12);
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
