// How drawings are made and compared in tests.
#include "tests/support/drawing.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <sstream>

#include "core/parameters.h"
#include "core/runs.h"
#include "dynamics/units.h"
#include "shell/initialize.h"

namespace verlink::test {

Drawing::Drawing() {
    Initialize();
    Use_Units(1);
    Model.FigureTitle = "A linkage";
}

void Drawing::By_Angle(double start, double end, double step) {
    Model.Calctype = 3;
    Model.ThetaStart = start;
    Model.ThetaEnd = end;
    Model.ThetaStep = step;
    Derive_Angle_Limits();
    Model.NSteps = Steps_Of(start, end, step);
    Integer Result;
    Calc_Setup(Model.Calctype, Result);
}

void Drawing::By_Time(double start, double end, double step) {
    Model.Calctype = 2;
    Model.TimeStart = start;
    Model.TimeEnd = end;
    Model.TimeStep = step;
    Model.NSteps = Steps_Of(start, end, step);
    Integer Result;
    Calc_Setup(Model.Calctype, Result);
}

void Drawing::By_Cam(int steps, double by) {
    Model.Calctype = 4;
    Model.CamDirection = 1;
    Model.CamPhase = 20;
    Model.CamDataLength1 = 1.2;
    Model.CamDataLength2 = 0.25;
    Model.CamDiameter = 0.75;
    Model.CamCenterX = 1.5;
    Model.CamCenterY = -0.5;
    Model.Model5Name = "drive.sva";
    Model.NSteps = steps;
    for (int step = 0; step <= steps; ++step) {
        Model.RunTable.DriveTheta(step) = by * step;
        Model.RunTable.Omega(step, 0) = 1;
        Model.RunTable.Alpha(step, 0) = 0;
    }
    Integer Result;
    Imported_Run(Result);
}

void Drawing::Turn_Ground(double degrees) {
    Model.PolarCoords = true;
    Model.Link1Angle = degrees;
    Derive_Linkage(Leading::kInForce);
}

std::string Drawing::Row(const std::string& call, std::initializer_list<double> numbers, platform::Color color) {
    std::ostringstream row;
    row.precision(9);
    row << call;
    for (const double number : numbers) row << ' ' << number;
    if (color < 0) return row.str();
    char text[16];
    std::snprintf(text, sizeof text, " %06X", static_cast<unsigned>(color));
    return row.str() + text;
}

void Drawing::Expect_Rows(const std::vector<std::string>& rows, const std::vector<std::string>& expected) {
    const auto words_of = [](const std::string& row) {
        std::istringstream stream(row);
        std::vector<std::string> words;
        for (std::string word; stream >> word;) words.push_back(word);
        return words;
    };
    const auto agree = [](const std::string& a, const std::string& b) {
        if (a == b) return true;
        // A colour has six digits and no point.
        if (a.size() == 6 && b.size() == 6 && a.find('.') == std::string::npos && b.find('.') == std::string::npos)
            return false;
        try {
            const double x = std::stod(a);
            const double y = std::stod(b);
            return std::abs(x - y) <= 1e-5 * std::max(1.0, std::abs(y));
        } catch (const std::exception&) {
            return false;
        }
    };
    EXPECT_EQ(rows.size(), expected.size());
    for (std::size_t i = 0; i < std::min(rows.size(), expected.size()); ++i) {
        const auto a = words_of(rows[i]);
        const auto b = words_of(expected[i]);
        bool same = a.size() == b.size();
        for (std::size_t word = 0; same && word < a.size(); ++word) same = agree(a[word], b[word]);
        EXPECT_TRUE(same) << "call " << i << "\ndrawn:    " << rows[i] << "\nexpected: " << expected[i];
    }
}

std::set<Drawing::Shape> Drawing::Seen(const platform::Picture& picture) {
    std::set<Shape> seen;
    for (const auto& p : picture.Primitives())
        if (p.alive) seen.emplace(static_cast<int>(p.kind), p.color, p.x1, p.y1, p.x2, p.y2);
    return seen;
}

}  // namespace verlink::test
