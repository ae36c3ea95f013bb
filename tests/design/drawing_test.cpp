// Linkages found as they are drawn: each stroke and pin against the linkage by two circles.
#include "design/drawing.h"

#include <algorithm>
#include <regex>

#include "platform/picture.h"
#include "tests/design/tasks.h"

namespace verlink::test {

namespace {

using namespace design;
using platform::Color;
using platform::Picture;
using platform::Rgb;
using Kind = Picture::Primitive::Kind;

constexpr Color kCurve = Rgb(160, 160, 160), kGhost = Rgb(190, 205, 225), kBody = Rgb(200, 120, 40),
                kCrank = Rgb(200, 40, 40), kCoupler = Rgb(30, 90, 180), kOther = Rgb(30, 130, 60),
                kGround = Rgb(40, 40, 40);

struct Stroke_Drawn {
    Point from, to;
};

std::vector<Stroke_Drawn> Strokes(const Picture& picture, Color color, Kind kind = Kind::kSegment) {
    std::vector<Stroke_Drawn> strokes;
    for (const auto& p : picture.Primitives())
        if (p.alive && p.kind == kind && p.color == color) strokes.push_back({{p.x1, p.y1}, {p.x2, p.y2}});
    return strokes;
}

bool Has(const std::vector<Stroke_Drawn>& strokes, Point from, Point to) {
    return std::ranges::any_of(
        strokes, [&](const auto& s) { return std::abs(s.from - from) < 1e-9 && std::abs(s.to - to) < 1e-9; });
}

/// Joints and coupler point with the crank turned so far.
struct Joints {
    Point A, B, P;
};
Joints Joints_At(const Known& known, double turn) {
    const Place place = *known.At(turn), first = *known.At(0);
    const Point turned = std::polar(1.0, (place.angle - first.angle) * std::acos(-1.0) / 180);
    return {place.at + (known.A - known.P) * turned, place.at + (known.B - known.P) * turned, place.at};
}

struct Drawn_Solutions : testing::Test {
    Drawn_Solutions() { Take(true); }
    void Take(bool open) {
        known = Crank_Rocker_At({1, 2}, std::polar(1.0, 0.3), open);
        task = *Task_Of(known, {0, 0.8, 2});
        solution = {Linkage_Of(known), Judge(task).Of(Linkage_Of(known)), {}, 1};
        ASSERT_TRUE(solution.judgement.Good());
    }
    Known known;
    Task task;
    Solution solution;
};

}  // namespace

TEST_F(Drawn_Solutions, HaveTheirCurveTheirPositionsAndTheLinkageAtAPartOfTheStroke) {
    for (const bool open : {true, false}) {
        SCOPED_TRACE(open);
        Take(open);
        Picture picture;
        const Box seen{{-4, -3}, {6, 7}};
        Draw_Solution(picture, task, solution, 0.25, seen);
        const auto curve = Strokes(picture, kCurve);
        ASSERT_EQ(curve.size(), 120U);
        for (std::size_t i = 0; i < curve.size(); ++i) {
            const double step = static_cast<double>(i);
            EXPECT_LT(std::abs(curve[i].from - Joints_At(known, 2 * step / 120).P), 1e-9) << i;
            EXPECT_LT(std::abs(curve[i].to - Joints_At(known, 2 * (step + 1) / 120).P), 1e-9) << i;
        }
        const auto ghosts = Strokes(picture, kGhost);
        EXPECT_EQ(ghosts.size(), 15U);
        for (const double turn : {0.0, 0.8, 2.0}) {
            const Joints j = Joints_At(known, turn);
            for (const auto& [from, to] : {std::pair(known.O2, j.A), std::pair(known.O4, j.B), std::pair(j.A, j.B),
                                           std::pair(j.A, j.P), std::pair(j.B, j.P)})
                EXPECT_TRUE(Has(ghosts, from, to)) << turn;
        }
        // A corner 8 parts in 100 of the window long, and half as wide to its left.
        const auto bodies = Strokes(picture, kBody);
        EXPECT_EQ(bodies.size(), 6U);
        for (const Place& place : task.positions) {
            const Point along = std::polar(0.8, place.angle * std::acos(-1.0) / 180);
            EXPECT_TRUE(Has(bodies, place.at, place.at + along));
            EXPECT_TRUE(Has(bodies, place.at, place.at + Point(0, 0.5) * along));
        }
        const Joints j = Joints_At(known, 0.5);
        EXPECT_EQ(Strokes(picture, kGround).size(), 1U);
        EXPECT_TRUE(Has(Strokes(picture, kGround), known.O2, known.O4));
        EXPECT_EQ(Strokes(picture, kCrank).size() + Strokes(picture, kOther).size(), 2U);
        EXPECT_TRUE(Has(Strokes(picture, kCrank), known.O2, j.A));
        EXPECT_TRUE(Has(Strokes(picture, kOther), known.O4, j.B));
        EXPECT_EQ(Strokes(picture, kCoupler).size(), 3U);
        EXPECT_TRUE(Has(Strokes(picture, kCoupler), j.A, j.B));
        EXPECT_TRUE(Has(Strokes(picture, kCoupler), j.A, j.P));
        EXPECT_TRUE(Has(Strokes(picture, kCoupler), j.B, j.P));
        const auto pins = Strokes(picture, kGround, Kind::kPin);
        EXPECT_EQ(pins.size(), 5U);
        for (const Point at : {known.O2, known.O4, j.A, j.B, j.P})
            EXPECT_TRUE(std::ranges::any_of(pins, [&](const auto& pin) {
                return std::abs(pin.from - at) < 1e-9 && std::abs(pin.to.real() - 0.12) < 1e-9;
            }));
    }
}

TEST_F(Drawn_Solutions, LeaveOutWhatTheCrankDoesNotReach) {
    Known rocker{{0, 0}, {4, 0}, std::polar(3.0, 0.5), {}, {2, 3}};
    const double d = std::abs(rocker.O4 - rocker.A);
    rocker.B = rocker.A + std::polar(1.5, std::arg(rocker.O4 - rocker.A) + std::acos((2.25 + d * d - 4) / (3 * d)));
    solution.linkage = Linkage_Of(rocker);
    solution.judgement.open = true;
    solution.judgement.crank = {0.5, 0.6, 2.5};
    // It closes while the diagonal is at most 3.5: (9 + 16 - 12.25) / 24 is the cosine.
    const double most = std::acos((9 + 16 - 12.25) / 24) - 0.5;
    Picture picture;
    Draw_Solution(picture, task, solution, 0.9, {{-1, -1}, {1, 1}});
    EXPECT_EQ(Strokes(picture, kCurve).size(), static_cast<std::size_t>(most / 2 * 120));
    EXPECT_EQ(Strokes(picture, kGround).size(), 1U);
    EXPECT_TRUE(Strokes(picture, kCrank).empty());
    EXPECT_TRUE(Strokes(picture, kGround, Kind::kPin).empty());
}

TEST_F(Drawn_Solutions, AreSeenWithTheirRoomAndTheirPositionsInASquare) {
    const auto expect = [](const Box& box, Point middle, double half) {
        EXPECT_LT(std::abs(box.low - (middle - Point(half, half))), 1e-12) << box.low << box.high;
        EXPECT_LT(std::abs(box.high - (middle + Point(half, half))), 1e-12) << box.low << box.high;
    };
    task.positions = {{{0, 0}, 0}, {{6, 1}, 10}, {{2, -4}, 20}};
    solution.judgement.room = {{-1, -2}, {5, 3}};
    expect(Seen_Of(task, solution), {2.5, -0.5}, 7 * 0.58);
    expect(Seen_Of(task), {3, -1.5}, 6 * 0.9);
    task.positions[1].at = {1, 7};
    expect(Seen_Of(task), {1, 1.5}, 11 * 0.9);
    task.positions = {{{1, 2}, 0}, {{9, 4}, 10}};
    expect(Seen_Of(task), {5, 3}, 8 * 0.9);
    task.positions = {{{0, 0}, 0}, {{1, 7}, 10}, {{2, -4}, 20}};
    task.relative = true;
    task.positions[0].at = {-3, 10};
    expect(Seen_Of(task), {-2, 11.5}, 11 * 0.9);
    EXPECT_NEAR(Body_Size({{-1, -2}, {4, 9}}), 0.4, 1e-12);
    // One place is seen in a window of a billionth of what the task is measured by, which is 1 here.
    task = {};
    task.positions = {{{0, 0}, 0}, {{0, 0}, 30}};
    expect(Seen_Of(task), {0, 0}, 0.9e-9);
}

TEST_F(Drawn_Solutions, StandAsATableOfPicturesWithTheirWords) {
    Found found;
    found.solutions.assign(6, solution);
    for (std::size_t i = 0; i < 6; ++i) {
        auto& j = found.solutions[i].judgement;
        j.score = 80.26 - static_cast<double>(i);
        j.transmission = 45.04;
        j.room = {{0, 0}, {3, 4.0004}};
    }
    for (const auto& [count, high] : {std::pair<std::size_t, const char*>{1, "368"}, {4, "368"}, {5, "720"}}) {
        Found fewer = found;
        fewer.solutions.resize(count);
        EXPECT_NE(Gallery_Svg(task, fewer).find(" height=\"" + std::string(high) + "\""), std::string::npos) << count;
    }
    const std::string svg = Gallery_Svg(task, found);
    // Pictures 280 wide with 56 for words, 16 apart, four in a row.
    const std::string head =
        "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"1200\" height=\"720\" font-family=\"sans-serif\" "
        "font-size=\"12\" fill=\"#222222\">\n<rect width=\"1200\" height=\"720\" fill=\"#ffffff\"/>\n";
    EXPECT_TRUE(svg.starts_with(head)) << svg.substr(0, head.size());
    EXPECT_TRUE(svg.ends_with("</g>\n</svg>\n"));
    std::vector<std::string> places;
    const std::regex place("<g transform=\"translate\\(([0-9 ]+)\\)\">");
    for (std::sregex_iterator at(svg.begin(), svg.end(), place), end; at != end; ++at) places.push_back((*at)[1]);
    EXPECT_EQ(places, (std::vector<std::string>{"16 16", "312 16", "608 16", "904 16", "16 368", "312 368"}));
    EXPECT_EQ(svg.find("<svg", 1), std::string::npos) << "no document within a document";
    EXPECT_NE(svg.find("<text x=\"0\" y=\"296\" font-weight=\"bold\">6  Grashof crank-rocker</text>\n"
                       "<text x=\"0\" y=\"312\">score 75.3, transmission 45 deg</text>\n"
                       "<text x=\"0\" y=\"328\">room 5 in</text>\n</g>\n"),
              std::string::npos)
        << svg.substr(svg.size() - 400);
    // Each picture is the solution in position 1 in its own window, with y upward.
    const Box seen = Seen_Of(task, found.solutions[0]);
    Picture first;
    first.BackColor(Rgb(255, 255, 255));
    first.Scale(seen.low.real(), seen.high.imag(), seen.high.real(), seen.low.imag());
    Draw_Solution(first, task, found.solutions[0], 0, seen);
    std::string own = first.Svg(280);
    own = own.substr(own.find(">\n") + 2);
    own = own.substr(0, own.rfind("</svg>"));
    own = ")\">\n" + own + "<text ";
    std::size_t times = 0;
    for (std::size_t at = svg.find(own); at != std::string::npos; at = svg.find(own, at + 1)) ++times;
    EXPECT_EQ(times, 6U);
    EXPECT_NE(Gallery_Svg(task, {}).find("height=\"368\""), std::string::npos);
}

}  // namespace verlink::test
