// The strokes of an overlay as text, call by call.
#pragma once

#include <cmath>
#include <cstdio>
#include <string>
#include <vector>

#include "platform/overlay.h"
#include "tests/support/scripted_desktop.h"

namespace verlink::test {

/// Letters are 7 pixels wide and lines 14 high.
class OverlayLog : public platform::Overlay_Pen {
   public:
    using Point = platform::Point;
    using Color = platform::Color;
    struct Call {
        std::string kind;
        std::vector<double> numbers;
        std::string words;
    };
    std::vector<Call> Calls;

    void Line(Point from, Point to, Stroke stroke, Color color) override {
        const char* const kinds[] = {"Line", "Dashes", "Faint"};
        Calls.push_back({kinds[static_cast<int>(stroke)], {from.x, from.y, to.x, to.y}, Of(color)});
    }
    void Circle(Point centre, double radius, Color color) override {
        Calls.push_back({"Circle", {centre.x, centre.y, radius}, Of(color)});
    }
    void Triangle(Point a, Point b, Point c, Color color) override {
        Calls.push_back({"Triangle", {a.x, a.y, b.x, b.y, c.x, c.y}, Of(color)});
    }
    void Paper(Point corner, double wide, double high) override {
        Calls.push_back({"Paper", {corner.x, corner.y, wide, high}, ""});
    }
    void Text(Point corner, const std::string& text, Color color) override {
        Calls.push_back({"Text", {corner.x, corner.y}, Of(color) + " " + text});
    }
    double Text_Wide(const std::string& text) override { return 7.0 * static_cast<double>(text.size()); }
    double Text_High() override { return 14; }

    /// Rows for `Expect_Log`; places to a hundredth of a pixel.
    std::vector<std::string> Rows() const {
        std::vector<std::string> rows;
        for (const Call& call : Calls) {
            std::string row = call.kind;
            for (const double number : call.numbers) {
                char text[40];
                std::snprintf(text, sizeof text, " %.2f", std::round(number * 100) / 100 + 0.0);
                row += text;
            }
            rows.push_back(call.words.empty() ? row : row + " " + call.words);
        }
        return rows;
    }
    /// The texts alone.
    std::vector<std::string> Texts() const {
        std::vector<std::string> texts;
        for (const Call& call : Calls)
            if (call.kind == "Text") texts.push_back(call.words.substr(7));
        return texts;
    }

   private:
    static std::string Of(Color color) {
        char text[16];
        std::snprintf(text, sizeof text, "%06X", static_cast<unsigned>(color));
        return text;
    }
};

}  // namespace verlink::test
