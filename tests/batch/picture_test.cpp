// The picture of a run: read back from its SVG, in proportion to the linkage and its table.
#include <gtest/gtest.h>

#include <sstream>

#include "tests/batch/batch_fixture.h"
#include "tests/batch/exact_linkage.h"

namespace verlink::test {

namespace {

constexpr char kLinks[] = "#ff00ff", kPivots[] = "#0000ff", kCurve[] = "#00ff00", kAxesAndDots[] = "#000000";

struct PictureFile : BatchFixture {
    std::string Drawn(const ModelText& model, std::vector<std::string> options = {}) const {
        options.insert(options.end(), {"--csv", Path("out.csv"), "--svg", Path("out.svg")});
        status = Run(model, options).status;
        return Read(Path("out.svg"));
    }
    mutable int status = -1;

    /// The corners of the first path of a colour, in pixels with y downward; empty without one.
    static std::vector<Point> Path_In(const std::string& svg, const std::string& color) {
        const std::string opening = "<path stroke=\"" + color + "\" d=\"";
        const std::size_t begin = svg.find(opening);
        if (begin == std::string::npos) return {};
        std::string corners = svg.substr(begin + opening.size(), svg.find('"', begin + opening.size()) - begin);
        for (char& letter : corners)
            if (letter == 'M' || letter == 'L') letter = ' ';
        std::istringstream numbers(corners);
        std::vector<Point> points;
        for (double x = 0, y = 0; numbers >> x >> y;) points.emplace_back(x, y);
        return points;
    }
    static int Circles(const std::string& svg, const std::string& color) {
        int count = 0;
        std::istringstream lines(svg);
        for (std::string line; std::getline(lines, line);)
            if (line.starts_with("<circle") && line.find("stroke=\"" + color) != std::string::npos) ++count;
        return count;
    }
    /// From O2, with y upward, in pixels.
    static Point From(Point origin, Point pixel) { return std::conj(pixel - origin); }
};

}  // namespace

TEST_F(PictureFile, IsASquareOf700Pixels) {
    const std::string svg = Drawn(ModelText());
    EXPECT_EQ(status, 0);
    EXPECT_TRUE(svg.starts_with("<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"700\" height=\"700\""));
    EXPECT_TRUE(svg.ends_with("</svg>\n"));
}

TEST_F(PictureFile, ShowsTheLinkageAtStepZeroInItsProportions) {
    for (const double ground : {0.0, 25.0}) {
        ModelText model;
        model.Set(kPolar, "#TRUE#").Set(kLink1Angle, std::to_string(ground));
        const std::string svg = Drawn(model);
        const ExactLinkage lever{2.667L, 1.115L, 2.5L, 2.5L, 1.697L, -92.66L, static_cast<Exact>(ground)};
        const auto step0 = lever.At(45);
        const auto corners = Path_In(svg, kLinks);
        ASSERT_GE(corners.size(), 7u);
        const Point O2 = corners[0];
        const Exact scale = std::abs(From(O2, corners[3])) / lever.L1;
        const auto expect = [&](std::size_t corner, Point exact) {
            EXPECT_LT(static_cast<double>(std::abs(From(O2, corners[corner]) - exact * scale)), 0.1) << corner;
        };
        // Crank, coupler and rocker in one go; then the coupler's triangle.
        expect(1, step0.A);
        expect(2, step0.B);
        expect(3, Toward(lever.L1, Radians(lever.Ground)));
        expect(4, step0.A);
        expect(5, step0.P);
        expect(6, step0.B);
        for (const Point& corner : corners) {
            EXPECT_GT(corner.real(), 0);
            EXPECT_LT(corner.real(), 700);
            EXPECT_GT(corner.imag(), 0);
            EXPECT_LT(corner.imag(), 700);
        }
    }
}

TEST_F(PictureFile, ShowsTheCouplerCurveOfTheTable) {
    const std::string svg = Drawn(ModelText());
    const CsvTable table(Read(Path("out.csv")));
    const auto links = Path_In(svg, kLinks), curve = Path_In(svg, kCurve);
    ASSERT_GE(links.size(), 4u);
    ASSERT_EQ(curve.size(), 38u);  // from the start to the start, and on to each step
    const Exact scale = std::abs(links[3] - links[0]) / 2.667L;
    for (int row = 0; row < 37; ++row) {
        const Point exact(table.At(row, "Coupler Pt X"), table.At(row, "Coupler Pt Y"));
        const Point drawn = From(links[0], curve[static_cast<std::size_t>(row) + 1]);
        EXPECT_LT(static_cast<double>(std::abs(drawn - exact * scale)), 0.1) << row;
    }
}

TEST_F(PictureFile, ShowsPivotsPinsAndAxes) {
    const std::string svg = Drawn(ModelText());
    EXPECT_EQ(Circles(svg, kPivots), 4);  // a ring at each pivot
    EXPECT_EQ(Circles(svg, kLinks), 3);   // pins at A, B and P
    EXPECT_EQ(Path_In(svg, kAxesAndDots).size(), 4u);
}

TEST_F(PictureFile, ATimeRunHasDotsInsteadOfALine) {
    const std::string svg = Drawn(ModelText().Times("0", "0.5", "0.025"));
    EXPECT_TRUE(Path_In(svg, kCurve).empty());
    EXPECT_EQ(Circles(svg, kAxesAndDots), 21);
}

TEST_F(PictureFile, LeavesTheLinkageOutWhenStepZeroDoesNotClose) {
    ModelText model;
    model.Linkage({"2.5", "1.25", "0.625", "1.25"}, "0.3125", "0").Angles("-60", "0", "5");
    const std::string svg = Drawn(model);
    EXPECT_EQ(status, 0);
    EXPECT_TRUE(Path_In(svg, kLinks).empty());
    EXPECT_EQ(Circles(svg, kLinks), 0);
    EXPECT_EQ(Circles(svg, kPivots), 4);
    EXPECT_FALSE(Path_In(svg, kCurve).empty());
    EXPECT_EQ(Path_In(svg, kAxesAndDots).size(), 4u);
}

TEST_F(PictureFile, IsDrawnWholeWhateverTheModelHides) {
    ModelText hidden;
    hidden.Quote(48, "Y").Quote(46, "Y");
    EXPECT_EQ(Drawn(hidden), Drawn(ModelText()));
}

TEST_F(PictureFile, IsTheSameInInchesAndInCentimetresButForTheMargin) {
    // Only the proportions are compared: the margin counts metric lengths twice.
    ModelText metric;
    metric.Linkage({"0.2667", "0.1115", "0.25", "0.25"}, "0.1697", "-92.66").Set(kUnits, "4");
    const auto inches = Path_In(Drawn(ModelText()), kLinks), centimetres = Path_In(Drawn(metric), kLinks);
    ASSERT_EQ(inches.size(), centimetres.size());
    const Exact factor = std::abs(centimetres[3] - centimetres[0]) / std::abs(inches[3] - inches[0]);
    for (std::size_t i = 0; i < inches.size(); ++i) {
        const Point apart = (centimetres[i] - centimetres[0]) - (inches[i] - inches[0]) * factor;
        EXPECT_LT(static_cast<double>(std::abs(apart)), 0.1);
    }
}

}  // namespace verlink::test
