// Numbers between a few words.
#include "screens/area_text.h"

#include <algorithm>
#include <cmath>
#include <sstream>
#include <vector>

#include "core/numeric.h"
#include "core/text.h"

namespace verlink {

namespace {

using design::Area;
using design::Point;

constexpr char kAnywhere[] = "anywhere", kTo[] = "to", kAt[] = "at";

std::vector<std::string> Words(std::string text) {
    std::ranges::replace(text, ',', ' ');
    std::istringstream in(text);
    std::vector<std::string> words;
    for (std::string word; in >> word;) words.push_back(word);
    return words;
}

std::string Text_Of_Point(Point point) {
    constexpr int kDecimals = 5;
    return Text_Of(FNRound(point.real(), kDecimals)) + " " + Text_Of(FNRound(point.imag(), kDecimals));
}

/// Of words from one on, pair by pair; nothing where one is no number, or one is left over.
std::optional<std::vector<Point>> Points_Of(const std::vector<std::string>& words, std::size_t from) {
    if (from == words.size() || (words.size() - from) % 2 != 0) return {};
    std::vector<Point> points;
    const auto number = [&](std::size_t at) {
        return Leading_Number(words[at]).size() == words[at].size() ? Val(words[at]) : HUGE_VAL;
    };
    for (std::size_t i = from; i < words.size(); i += 2) {
        const Point point(number(i), number(i + 1));
        if (std::abs(point.real()) > design::kLargestLength || std::abs(point.imag()) > design::kLargestLength)
            return {};
        points.push_back(point);
    }
    return points;
}

}  // namespace

std::string Area_Text(const Area& area) {
    if (area.is == Area::Is::kAnywhere) return kAnywhere;
    if (area.is == Area::Is::kWithin) return Text_Of_Point(area.low) + " " + kTo + " " + Text_Of_Point(area.high);
    std::string text;
    for (const Point point : area.points) text += (text.empty() ? std::string(kAt) + " " : ", ") + Text_Of_Point(point);
    return text;
}

std::optional<Area> Area_Of(const std::string& text) {
    std::vector<std::string> words = Words(text);
    if (words.empty() || (words.size() == 1 && words.front() == kAnywhere)) return Area{};
    Area area;
    if (words.front() == kAt) {
        const auto points = Points_Of(words, 1);
        if (!points) return {};
        area.is = Area::Is::kPoints;
        area.points = *points;
        return area;
    }
    std::erase(words, kTo);
    const auto corners = Points_Of(words, 0);
    if (!corners || corners->size() != 2) return {};
    const Point a = corners->front(), b = corners->back();
    area.is = Area::Is::kWithin;
    area.low = {std::min(a.real(), b.real()), std::min(a.imag(), b.imag())};
    area.high = {std::max(a.real(), b.real()), std::max(a.imag(), b.imag())};
    return area;
}

}  // namespace verlink
