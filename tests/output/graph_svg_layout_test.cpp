// Where everything stands on the page of a graph, by what each of its parts takes of it.
#include <gtest/gtest.h>

#include <cmath>
#include <regex>
#include <sstream>

#include "output/graph_svg.h"
#include "platform/screen.h"

namespace verlink::test {

namespace {

using platform::Graph;

/// An element of the page: its words, which is all but its numbers, and its numbers in their order.
struct Element_Drawn {
    std::string words;
    std::vector<double> numbers;
};

Element_Drawn Taken_Apart(const std::string& line) {
    Element_Drawn drawn;
    // A number of a colour or a name is none.
    const std::regex number("-?[0-9]+(\\.[0-9]+)?");
    for (std::size_t at = 0; at < line.size();) {
        std::smatch found;
        const std::string rest = line.substr(at);
        const bool begins = at == 0 || std::string("\"MLH >").find(line[at - 1]) != std::string::npos;
        if (begins && std::regex_search(rest, found, number, std::regex_constants::match_continuous)) {
            drawn.numbers.push_back(std::stod(found[0]));
            drawn.words += '#';
            at += static_cast<std::size_t>(found.length());
        } else {
            drawn.words += line[at++];
        }
    }
    return drawn;
}

class GraphSvgLayout : public testing::Test {
   protected:
    platform::Screen screen{"frm_Test"};
    Graph graph{screen, "grf_Plot"};

    /// Two sets over five points, of which the second falls as the first rises.
    void Fill(double first, double stride) {
        graph.SetNumSets(2);
        graph.SetNumPoints(5);
        for (int set = 1; set <= 2; ++set)
            for (int i = 0; i < 5; ++i) {
                graph.ThisSet = set;
                graph.ThisPoint = i + 1;
                graph.SetGraphData(set == 1 ? first + stride * i : first + stride * (4 - i));
                graph.SetLabelText(std::to_string(10 * i));
            }
    }
    void Draw(int width, int height) {
        std::istringstream page(Graph_Svg(graph, width, height));
        lines_.clear();
        for (std::string line; std::getline(page, line);) lines_.push_back(line);
        next_ = 0;
    }
    /// The next element of the page.
    void Next(const std::string& words, const std::vector<double>& numbers) {
        ASSERT_LT(next_, lines_.size()) << words;
        const std::string& line = lines_[next_++];
        const Element_Drawn drawn = Taken_Apart(line);
        ASSERT_EQ(drawn.words, words) << line;
        ASSERT_EQ(drawn.numbers.size(), numbers.size()) << line;
        for (std::size_t i = 0; i < numbers.size(); ++i) EXPECT_NEAR(drawn.numbers[i], numbers[i], 0.0101) << line;
    }
    void Next_Line(double x1, double y1, double x2, double y2, const std::string& color) {
        Next("<line x1=\"#\" y1=\"#\" x2=\"#\" y2=\"#\" stroke=\"" + color + "\"/>", {x1, y1, x2, y2});
    }
    void Next_Text(double x, double y, const std::string& anchor, double size, const std::string& text,
                   bool bold = false) {
        const Element_Drawn words = Taken_Apart(">" + text);
        std::vector<double> numbers{x, y, size};
        numbers.insert(numbers.end(), words.numbers.begin(), words.numbers.end());
        Next("<text x=\"#\" y=\"#\" text-anchor=\"" + anchor + "\" font-size=\"#\"" +
                 (bold ? " font-weight=\"bold\"" : "") + " fill=\"" + kInk + words.words + "</text>",
             numbers);
    }
    void Next_Page(double width, double height) {
        Next(
            "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"#\" height=\"#\" viewBox=\"# # # #\" "
            "font-family=\"sans-serif\">",
            {width, height, 0, 0, width, height});
        Next("<rect width=\"#%\" height=\"#%\" fill=\"#ffffff\"/>", {100, 100});
    }
    void Next_Frame(double left, double top, double right, double bottom) {
        Next("<rect x=\"#\" y=\"#\" width=\"#\" height=\"#\" fill=\"none\" stroke=\"#2b3036\"/>",
             {left, top, right - left, bottom - top});
    }
    /// The rising set as it is, the falling one in dashes.
    template <class X_Of, class Y_Of>
    void Next_Curves(X_Of x_of, Y_Of y_of) {
        const std::string path = "<path d=\"M# #L# #L# #L# #L# #\" fill=\"none\" stroke-linejoin=\"round\" stroke=\"";
        std::vector<double> rising, falling;
        for (int i = 0; i <= 4; ++i) {
            rising.insert(rising.end(), {x_of(i), y_of(i)});
            falling.insert(falling.end(), {x_of(i), y_of(4 - i)});
        }
        rising.push_back(1.5);
        falling.insert(falling.end(), {1.5, 9, 4.5});
        Next(path + "#1f5fbf\" stroke-width=\"#\"/>", rising);
        Next(path + "#c23b22\" stroke-width=\"#\" stroke-dasharray=\"# #\"/>", falling);
    }
    void Expect_End() {
        Next("</svg>", {});
        EXPECT_EQ(next_, lines_.size());
    }
    static constexpr char kInk[] = "#2b3036\"", kGrid[] = "#dde1e6";

   private:
    std::vector<std::string> lines_;
    std::size_t next_ = 0;
};

}  // namespace

TEST_F(GraphSvgLayout, TitlesLegendsValuesLabelsAndCurvesStandClearOfEachOther) {
    Fill(0, 1);
    graph.GraphTitle = "Omega4";
    graph.BottomTitle = "Crank";
    graph.GridStyle = 3;
    graph.PatternedLines = 1;
    for (int set = 1; set <= 2; ++set) {
        graph.ThisSet = set;
        graph.SetLegendText(set == 1 ? "one" : "other");
        graph.SetPatternData(set - 1);
    }
    Draw(640, 420);
    // Letters are 13 high and 0.58 of that wide; parts are 12 apart. The title is larger by a fifth.
    const double size = 13, letter = 0.58 * size, gap = 12;
    Next_Page(640, 420);
    const double title = gap + 1.2 * size;
    Next_Text(320, title, "middle", 1.2 * size, "Omega4");
    // Both legends fit beside each other: a stroke of 32, 8 of air, and as much room as the longer one takes.
    const double legend = title + gap + 1.5 * size, cell = 48 + 5 * letter + 2 * gap, start = 320 - cell;
    for (int set = 0; set < 2; ++set) {
        const double x = start + cell * set, y = legend - 0.35 * size;
        if (set == 0)
            Next("<path d=\"M# #H#\" fill=\"none\" stroke=\"#1f5fbf\" stroke-width=\"#\"/>", {x, y, x + 32, 1.5});
        else
            Next("<path d=\"M# #H#\" fill=\"none\" stroke=\"#c23b22\" stroke-width=\"#\" stroke-dasharray=\"# #\"/>",
                 {x, y, x + 32, 1.5, 6 * 1.5, 3 * 1.5});
        Next_Text(x + 40, legend, "start", size, set == 0 ? "one" : "other");
    }
    const double top = legend + gap, bottom = 420 - gap - 2 * size - 1.6 * size;
    // Of the values each has one letter; 12 are left for the tick and its air.
    const double left = gap + letter + 12, right = 640 - 2 * gap;
    Next_Text((left + right) / 2, 420 - gap, "middle", size, "Crank");
    // 0 to 4, with 6 in 100 of air on both sides.
    const auto y_of = [&](double value) { return bottom - (value + 0.24) / 4.48 * (bottom - top); };
    const auto x_of = [&](double point) { return left + point / 4 * (right - left); };
    for (int value = 0; value <= 4; ++value) {
        Next_Line(left, y_of(value), right, y_of(value), kGrid);
        Next_Line(left - 6, y_of(value), left, y_of(value), "#2b3036");
        Next_Text(left - 9, y_of(value) + 0.35 * size, "end", size, std::to_string(value));
    }
    Next_Line(left, y_of(0), right, y_of(0), "#2b3036");
    for (int i = 0; i <= 4; ++i) Next_Line(x_of(i), bottom, x_of(i), bottom + 4, "#2b3036");
    for (int i = 0; i <= 4; ++i) {
        Next_Line(x_of(i), top, x_of(i), bottom, kGrid);
        Next_Line(x_of(i), bottom, x_of(i), bottom + 7, "#2b3036");
        Next_Text(x_of(i), bottom + 10 + size, "middle", size, std::to_string(10 * i));
    }
    Next_Frame(left, top, right, bottom);
    Next_Curves(x_of, y_of);
    Expect_End();
}

TEST_F(GraphSvgLayout, WithoutTitlesTheFrameTakesTheirRoomAndSticksStandOnZero) {
    Fill(-40, 15);
    graph.GraphStyle = 2;
    graph.LabelEvery = 2;
    graph.TickEvery = 2;
    graph.FontUse = 4;
    graph.FontSize = 150;
    graph.FontStyle = 2;
    Draw(400, 300);
    const double size = 1.5 * 13, letter = 0.58 * size, gap = 12;
    Next_Page(400, 300);
    const double top = gap, bottom = 300 - gap - 2 * size, left = gap + 3 * letter + 12, right = 400 - 2 * gap;
    // -40 to 20, with 3.6 of air on both sides; the sticks of the first and the last point have half a point.
    const auto y_of = [&](double value) { return bottom - (value + 43.6) / 67.2 * (bottom - top); };
    const auto x_of = [&](double point) { return left + (point + 0.5) / 5 * (right - left); };
    for (const int value : {-40, -20, 0, 20}) {
        Next_Line(left - 6, y_of(value), left, y_of(value), "#2b3036");
        Next_Text(left - 9, y_of(value) + 0.35 * size, "end", size, std::to_string(value), true);
    }
    Next_Line(left, y_of(0), right, y_of(0), "#2b3036");
    for (const int i : {0, 2, 4}) Next_Line(x_of(i), bottom, x_of(i), bottom + 4, "#2b3036");
    for (const int i : {0, 2, 4}) {
        Next_Line(x_of(i), bottom, x_of(i), bottom + 7, "#2b3036");
        Next_Text(x_of(i), bottom + 10 + size, "middle", size, std::to_string(10 * i), true);
    }
    Next_Frame(left, top, right, bottom);
    for (const char* color : {"#1f5fbf", "#c23b22"}) {
        std::vector<double> numbers;
        for (int i = 0; i <= 4; ++i) {
            const double value = color[1] == '1' ? -40 + 15 * i : 20 - 15 * i;
            numbers.insert(numbers.end(), {x_of(i), y_of(0), x_of(i), y_of(value)});
        }
        numbers.push_back(0.6);
        Next(std::string("<path d=\"M# #L# #M# #L# #M# #L# #M# #L# #M# #L# #\" fill=\"none\" stroke=\"") + color +
                 "\" stroke-opacity=\"#\"/>",
             numbers);
    }
    Expect_End();
}

TEST_F(GraphSvgLayout, ThereIsAboutAValueForEachSixtyPixelsOfTheFrame) {
    Fill(0, 1);
    graph.GraphTitle = "large";
    graph.FontUse = 0;
    graph.FontSize = 300;
    const std::string page = Graph_Svg(graph, 640, 300);
    // The frame is 191 high, from 71 to 262: of 0 to 4 every other one.
    std::vector<std::string> values;
    for (std::size_t at = 0; (at = page.find("text-anchor=\"end\"", at)) != std::string::npos; ++at) {
        const std::size_t begin = page.find('>', at) + 1;
        values.push_back(page.substr(begin, page.find('<', begin) - begin));
    }
    EXPECT_EQ(values, (std::vector<std::string>{"0", "2", "4"}));
}

TEST_F(GraphSvgLayout, LegendsThatDoNotFitBesideEachOtherStandInRows) {
    Fill(0, 1);
    graph.SetNumSets(4);
    for (int set = 1; set <= 4; ++set) {
        graph.ThisSet = set;
        graph.ThisPoint = 1;
        graph.SetGraphData(set);
        if (set != 2) graph.SetLegendText("legend number " + std::string(1, static_cast<char>('a' + set)));
    }
    graph.ThickLines = 1;
    Draw(400, 300);
    Next_Page(400, 300);
    // Of 15 letters each, two beside each other in 376, and the third below; the second set has none.
    const double size = 13, cell = 48 + 15 * 0.58 * size + 24, start = 200 - cell, first = 12 + 1.5 * size;
    const char* const colors[] = {"#1f5fbf", "#1e7f4f", "#7a4ba8"};
    const char* const texts[] = {"legend number b", "legend number d", "legend number e"};
    for (int i = 0; i < 3; ++i) {
        const double x = start + cell * (i % 2), y = first + (i == 2 ? 1.5 * size : 0);
        Next(std::string("<path d=\"M# #H#\" fill=\"none\" stroke=\"") + colors[i] + "\" stroke-width=\"#\"/>",
             {x, y - 0.35 * size, x + 32, 2.5});
        Next_Text(x + 40, y, "start", size, texts[i]);
    }
}

}  // namespace verlink::test
