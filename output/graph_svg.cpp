// How a graph is written as SVG.
#include "output/graph_svg.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "output/graph_scale.h"
#include "platform/svg.h"

namespace verlink {

using platform::Graph;
using platform::svg::Escaped;
using platform::svg::Hex;
using platform::svg::Number;

namespace {

constexpr double kPoints = 13;    ///< the font at 100 percent
constexpr double kLetter = 0.58;  ///< the mean width of a letter, in sizes of the font
constexpr double kGap = 12;

class Svg_Page {
   public:
    Svg_Page(const Graph& graph, int width, int height)
        : graph_(graph),
          colors_(Colors_Of(graph.Background)),
          width_(width),
          height_(height),
          x_(Point_Span(graph)),
          y_(Value_Span(graph)) {}

    std::string Write() {
        out_ = "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" + Number(width_) + "\" height=\"" +
               Number(height_) + "\" viewBox=\"0 0 " + Number(width_) + ' ' + Number(height_) +
               "\" font-family=\"sans-serif\">\n";
        out_ += "<rect width=\"100%\" height=\"100%\" fill=\"" + Hex(colors_.back) + "\"/>\n";
        top_ = kGap;
        Title();
        Legend();
        Frame();
        Values();
        Labels();
        out_ += "<rect x=\"" + Number(left_) + "\" y=\"" + Number(top_) + "\" width=\"" + Number(right_ - left_) +
                "\" height=\"" + Number(bottom_ - top_) + "\" fill=\"none\" stroke=\"" + Hex(colors_.ink) + "\"/>\n";
        Curves();
        return out_ + "</svg>\n";
    }

   private:
    double X(double point) const { return left_ + (point - x_.low) / x_.Width() * (right_ - left_); }
    double Y(double value) const { return bottom_ - (value - y_.low) / y_.Width() * (bottom_ - top_); }
    static double Size(const Graph::Font& font) { return kPoints * font.size / 100; }

    void Text(double x, double y, const char* anchor, const Graph::Font& font, const std::string& text,
              double scale = 1) {
        out_ += "<text x=\"" + Number(x) + "\" y=\"" + Number(y) + "\" text-anchor=\"" + anchor + "\" font-size=\"" +
                Number(Size(font) * scale) + "\"" + (font.style & 2 ? " font-weight=\"bold\"" : "") + " fill=\"" +
                Hex(colors_.ink) + "\">" + Escaped(text) + "</text>\n";
    }
    void Line(double x1, double y1, double x2, double y2, platform::Color color) {
        out_ += "<line x1=\"" + Number(x1) + "\" y1=\"" + Number(y1) + "\" x2=\"" + Number(x2) + "\" y2=\"" +
                Number(y2) + "\" stroke=\"" + Hex(color) + "\"/>\n";
    }
    /// The stroke of a set, as attributes.
    std::string Stroke(std::size_t set) const {
        const double width = graph_.ThickLines == 1 ? 2.5 : 1.5;
        std::string text =
            "stroke=\"" + Hex(colors_.curves[set % colors_.curves.size()]) + "\" stroke-width=\"" + Number(width) + '"';
        std::string dashes;
        for (const double dash : Dashes_Of(Pattern_Of(graph_, graph_.Sets()[set])))
            dashes += (dashes.empty() ? "" : " ") + Number(dash * width);
        return dashes.empty() ? text : text + " stroke-dasharray=\"" + dashes + '"';
    }

    void Title() {
        if (graph_.GraphTitle.empty()) return;
        top_ += 1.2 * Size(graph_.TitleFont());
        Text(width_ / 2, top_, "middle", graph_.TitleFont(), graph_.GraphTitle, 1.2);
        top_ += kGap;
    }

    void Legend() {
        double widest{};
        std::size_t count = 0;
        const double size = Size(graph_.TextFont());
        for (const auto& set : graph_.Sets()) {
            if (set.legend.empty()) continue;
            ++count;
            widest = std::max(widest, 48 + kLetter * size * static_cast<double>(set.legend.size()));
        }
        if (count == 0) return;
        const double room = width_ - 2 * kGap;
        const auto columns = std::clamp<std::size_t>(static_cast<std::size_t>(room / widest), 1, count);
        const double cell = std::min(room / static_cast<double>(columns), widest + 2 * kGap);
        const double start = (width_ - cell * static_cast<double>(columns)) / 2;
        std::size_t shown = 0;
        for (std::size_t i = 0; i < graph_.Sets().size(); ++i) {
            if (graph_.Sets()[i].legend.empty()) continue;
            if (shown % columns == 0) top_ += 1.5 * size;
            const double x = start + cell * static_cast<double>(shown++ % columns);
            const double middle = top_ - 0.35 * size;
            out_ += "<path d=\"M" + Number(x) + ' ' + Number(middle) + 'H' + Number(x + 32) + "\" fill=\"none\" " +
                    Stroke(i) + "/>\n";
            Text(x + 40, top_, "start", graph_.TextFont(), graph_.Sets()[i].legend);
        }
        top_ += kGap;
    }

    void Frame() {
        const double size = Size(graph_.TextFont());
        bottom_ = height_ - kGap - 2 * size;
        if (!graph_.BottomTitle.empty()) bottom_ -= 1.6 * Size(graph_.TitleFont());
        ticks_ = Round_Values(y_, static_cast<int>((bottom_ - top_) / 60));
        std::size_t letters = 1;
        for (const double value : ticks_) letters = std::max(letters, Number(value).size());
        left_ = kGap + kLetter * size * static_cast<double>(letters) + 12;
        right_ = width_ - 2 * kGap;
        if (!graph_.BottomTitle.empty())
            Text((left_ + right_) / 2, height_ - kGap, "middle", graph_.TitleFont(), graph_.BottomTitle);
    }

    void Values() {
        const double size = Size(graph_.TextFont());
        for (const double value : ticks_) {
            const double y = Y(value);
            if (graph_.GridStyle & 1) Line(left_, y, right_, y, colors_.grid);
            Line(left_ - 6, y, left_, y, colors_.ink);
            Text(left_ - 9, y + 0.35 * size, "end", graph_.TextFont(), Number(value));
        }
        if (y_.low < 0 && y_.high > 0) Line(left_, Y(0), right_, Y(0), colors_.ink);
    }

    void Labels() {
        const int points = graph_.NumPoints();
        const double size = Size(graph_.TextFont());
        std::vector<double> widths;
        for (const std::string& label : graph_.Labels())
            widths.push_back(kLetter * size * static_cast<double>(label.size()));
        const int every = Labels_Every(graph_.LabelEvery, 0, points - 1, widths, X(1) - X(0), kLetter * size);
        const int tick = Thinned(graph_.TickEvery, points, static_cast<int>((right_ - left_) / 5));
        for (int i = 0; i < points; i += tick) Line(X(i), bottom_, X(i), bottom_ + 4, colors_.ink);
        for (int i = 0; i < points; i += every) {
            if (graph_.GridStyle & 2) Line(X(i), top_, X(i), bottom_, colors_.grid);
            Line(X(i), bottom_, X(i), bottom_ + 7, colors_.ink);
            Text(X(i), bottom_ + 10 + size, "middle", graph_.TextFont(), graph_.Labels()[static_cast<std::size_t>(i)]);
        }
    }

    void Curves() {
        for (std::size_t i = 0; i < graph_.Sets().size(); ++i) {
            const auto& values = graph_.Sets()[i].values;
            std::string lines, sticks;
            bool pen = false;
            for (std::size_t j = 0; j < values.size(); ++j) {
                const bool finite = std::isfinite(values[j]);
                if (!finite) {
                    pen = false;
                    continue;
                }
                const std::string at = Number(X(static_cast<double>(j))) + ' ' + Number(Y(values[j]));
                lines += (pen ? 'L' : 'M') + at;
                sticks += 'M' + Number(X(static_cast<double>(j))) + ' ' + Number(Y(0)) + 'L' + at;
                pen = true;
            }
            if (lines.empty()) continue;
            if (Draws_Sticks(graph_))
                out_ += "<path d=\"" + sticks + "\" fill=\"none\" stroke=\"" +
                        Hex(colors_.curves[i % colors_.curves.size()]) + "\" stroke-opacity=\"0.6\"/>\n";
            if (Draws_Lines(graph_))
                out_ += "<path d=\"" + lines + "\" fill=\"none\" stroke-linejoin=\"round\" " + Stroke(i) + "/>\n";
        }
    }

    const Graph& graph_;
    const Graph_Colors& colors_;
    double width_, height_;
    Span x_, y_;
    std::vector<double> ticks_;
    double left_{}, right_{}, top_{}, bottom_{};
    std::string out_;
};

}  // namespace

std::string Graph_Svg(const Graph& graph, int width, int height) { return Svg_Page(graph, width, height).Write(); }

}  // namespace verlink
