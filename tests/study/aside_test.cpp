// A study beside: the same numbers as one by one, whatever the threads; stopped, it has what is there.
#include "study/aside.h"

#include <gtest/gtest.h>

#include <cmath>
#include <set>
#include <thread>
#include <utility>
#include <vector>

#include "platform/picture.h"
#include "study/drawing.h"
#include "study/words.h"

namespace verlink::study {

namespace {

Design Crank_Rocker() {
    Design d;
    d.PolarCoords = true;
    d.L1 = 4, d.L2 = 1, d.L3 = 3.5, d.L4 = 3, d.Rpa = 2.5, d.Delta = 20, d.Link1Angle = 10;
    d.CircuitIndex = 1;
    d.CircuitSign = -1;
    d.Calctype = 3;
    d.ThetaStart = 0, d.ThetaEnd = 360, d.ThetaStep = 10;
    d.ThetaEndRad = 360 * kDegToRad;
    d.ThetaStepRad = 10 * kDegToRad;
    d.Omega2Input = 7;
    EXPECT_EQ(Take_Limits(d), "");
    EXPECT_EQ(int{d.NSteps}, 36);
    return d;
}

/// Four linkages, all of which close.
Words Two_At_Their_Worst() {
    Words words;
    words.tolerances = {"L2=0.02:worst", "Rpa=0.05:worst"};
    words.measures = {"closes"};
    return words;
}

Study Study_In(const Words& words, const Design& design = Crank_Rocker()) {
    std::string fault;
    auto study = Study_Of(words, design, fault);
    EXPECT_TRUE(study) << fault;
    return study.value();
}

Findings To_The_End(Aside& aside) {
    Findings found;
    while (!(found = aside.Look()).ended) std::this_thread::yield();
    return found;
}

TEST(Aside, FindsWhatAWorkerFindsOneByOne) {
    Words words;
    words.sweeps = {"L2=0.5:2:17", "Delta=0:90:9"};
    words.measures = {"max Theta4"};
    words.keeps = {"min Trans Ang > 40"};
    for (const int threads : {1, 3}) {
        Aside aside;
        aside.Begin(Study_In(words), threads);
        const Findings found = To_The_End(aside);
        EXPECT_FALSE(aside.Runs());
        EXPECT_TRUE(found.Whole());
        ASSERT_EQ(found.values.size(), 17U * 9U);
        const Bench bench(Study_In(words));
        Worker worker(bench);
        std::vector<float> fields(2), measures(1);
        Number kept = 0;
        for (Number linkage = 0; linkage < found.all; ++linkage) {
            const bool keeps = worker.Solve(linkage, fields, measures);
            kept += keeps ? 1 : 0;
            if (keeps)
                EXPECT_EQ(found.values[linkage], measures[0]);
            else
                EXPECT_TRUE(Is_None(found.values[linkage]));
            EXPECT_EQ(aside.Values_Of(linkage), fields);
        }
        EXPECT_EQ(found.summary.kept, kept);
        EXPECT_LT(kept, found.all);
        const Tally& tally = found.summary.measures[0];
        EXPECT_EQ(tally.Highest().size(), 10U);
        for (const auto* extremes : {&tally.Lowest(), &tally.Highest()})
            for (const Tally::Extreme& extreme : *extremes)
                EXPECT_EQ(extreme.value, found.values.at(extreme.linkage)) << "each by its own number";
    }
}

TEST(Aside, ASpeedOfAPinIsItsRadiusTimesThatOfTheCrank) {
    Words words;
    words.tolerances = {"L2=0.03:uniform"};
    words.measures = {"max Veloc I 2,3:Mag"};
    words.samples = 20000;
    Aside aside;
    aside.Begin(Study_In(words), 2);
    const Findings found = To_The_End(aside);
    EXPECT_NEAR(found.nominal[0], 7, 1e-5);
    const Tally& tally = found.summary.measures[0];
    const double sigma = 7 * 0.03 / std::sqrt(3.0), error = sigma / std::sqrt(20000.0);
    EXPECT_NEAR(tally.Mean(), 7, 5 * error);
    EXPECT_NEAR(tally.Deviation(), sigma, 5 * error);
    EXPECT_NEAR(found.sensitivities[0][0].derivative, 7, 1e-3);
    EXPECT_FLOAT_EQ(found.sensitivities[0][0].share, 1);
    EXPECT_GT(found.seconds, 0);
    EXPECT_LT(found.seconds, 1000);
    EXPECT_TRUE(found.values.empty());
}

TEST(Aside, StoppedItHasWhatIsThereAndCanBeginAnew) {
    Words words;
    words.tolerances = {"L2=0.01", "L3=0.01"};
    words.measures = {"min Trans Ang"};
    words.samples = 1ULL << 50U;
    Aside aside;
    aside.Begin(Study_In(words), 2);
    while (aside.Look().done == 0) std::this_thread::yield();
    aside.Stop();
    const Findings found = To_The_End(aside);
    EXPECT_GT(found.done, 0U);
    EXPECT_LT(found.done, found.all);
    EXPECT_EQ(found.summary.kept, found.done);
    {
        Aside left_alone;
        left_alone.Begin(Study_In(words), 1);
    }
    aside.Begin(Study_In(words), 1);  // which would not end
    words.samples = 10;
    aside.Begin(Study_In(words), 2);
    aside.Begin(Study_In(words), 2);
    EXPECT_EQ(To_The_End(aside).done, 10U);
    aside.Begin(Study_In(words), 2);  // and is waited for as it goes
}

TEST(Aside, TheCloudHasTheCouplerPointOfTheFirstLinkages) {
    Words words = Two_At_Their_Worst();
    Aside aside;
    aside.Begin(Study_In(words), 1);
    To_The_End(aside);
    const auto cloud = aside.Cloud_At(5);
    ASSERT_EQ(cloud.size(), 4U);
    for (const Cloud_Point& point : cloud) {
        std::vector<float> fields, measures;
        ASSERT_TRUE(aside.Solve(point.linkage, fields, measures));
        Design design = Crank_Rocker();
        design.L2 = fields[0];
        design.Rpa = fields[1];
        const Joints joints = Mechanism(design).At(5).value();
        EXPECT_NEAR(point.x, joints.P.real(), 1e-6);
        EXPECT_NEAR(point.y, joints.P.imag(), 1e-6);
        // By vectors: the crank, and from its pin along the coupler.
        const Spot A = std::polar(double{fields[0]}, 50 * kDegToRad);
        EXPECT_NEAR(std::abs(joints.A - A), 0, 1e-5);
        EXPECT_NEAR(std::abs(joints.P - joints.A), fields[1], 1e-5);
        EXPECT_NEAR(std::arg((joints.P - joints.A) / (joints.B - joints.A)), 20 * kDegToRad, 1e-5);
        EXPECT_NEAR(std::abs(joints.O4 - std::polar(4.0, 10 * kDegToRad)), 0, 1e-5);
        EXPECT_NEAR(std::abs(joints.B - joints.O4), 3, 1e-5);
    }
}

TEST(Aside, TheCloudLeavesOutWhatDoesNotCloseAndStepsThatThereAreNot) {
    Words words;
    // The shorter crank goes round; with the longer one there is no linkage where it lies along the ground.
    words.tolerances = {"L2=0.5:worst"};
    words.measures = {"closes"};
    Design design = Crank_Rocker();
    design.L2 = 3, design.L3 = 1.6, design.L4 = 3, design.Link1Angle = 0;
    Aside aside;
    aside.Begin(Study_In(words, design), 1);
    To_The_End(aside);
    for (int step = 0; step <= 36; ++step) {
        std::size_t closing = 0;
        for (const double crank : {2.5, 3.5}) {
            const double apart = std::abs(std::polar(crank, step * 10 * kDegToRad) - 4.0);
            closing += apart <= 4.6 && apart >= 1.4 ? 1 : 0;
        }
        EXPECT_EQ(aside.Cloud_At(step).size(), closing) << step;
    }
    EXPECT_TRUE(aside.Cloud_At(37).empty());
    EXPECT_TRUE(aside.Cloud_At(1000).empty());
}

TEST(Aside, AMeasureAtAnAngleIsThatOfTheRunAsItPassesThere) {
    Words words;
    words.sweeps = {"L2=1:1.5:2"};
    words.measures = {"at 130 Theta4", "at 40 Coupler Pt:Y", "at 130 Coupler Pt:X"};
    Aside aside;
    aside.Begin(Study_In(words), 1);
    To_The_End(aside);
    for (const Number linkage : {0U, 1U}) {
        std::vector<float> fields, measures;
        ASSERT_TRUE(aside.Solve(linkage, fields, measures));
        Design design = Crank_Rocker();
        design.L2 = fields[0];
        const Mechanism mechanism(design);
        const Joints one = mechanism.At(13).value(), other = mechanism.At(4).value();
        EXPECT_NEAR(std::remainder(measures[0] - std::arg(one.B - one.O4) / kDegToRad, 360), 0, 1e-4);
        EXPECT_NEAR(measures[1], other.P.imag(), 1e-5);
        EXPECT_NEAR(measures[2], one.P.real(), 1e-5);
    }
}

TEST(Aside, ADeviationIsTheLargestDistanceBetweenTheCouplerPointsOfEachStep) {
    Words words;
    words.sweeps = {"L2=1.25:1.5:2"};
    words.measures = {"deviation"};
    for (const int calctype : {1, 3})
        for (const double start : {0.0, 180.0}) {
            Design design = Crank_Rocker();
            design.Calctype = calctype;
            design.ThetaZero = start;
            design.ThetaStart = start, design.ThetaEnd = start + 60;
            design.ThetaStartRad = start * kDegToRad, design.ThetaEndRad = (start + 60) * kDegToRad;
            EXPECT_EQ(Take_Limits(design), "");
            const Mechanism nominal(design);
            Aside aside;
            aside.Begin(Study_In(words, design), 1);
            const Findings found = To_The_End(aside);
            for (const Number linkage : {0U, 1U}) {
                Design moved = design;
                moved.L2 = linkage == 0 ? 1.25 : 1.5;
                const Mechanism mechanism(moved);
                double most = 0;
                for (int step = 0; step <= nominal.Last(); ++step)
                    most = std::max(most, std::abs(mechanism.At(step)->P - nominal.At(step)->P));
                EXPECT_NEAR(found.values.at(linkage), most, 1e-5) << calctype << ' ' << start;
            }
        }
}

TEST(Aside, ADeviationIsTakenWhereBothCloseAndIsNoneWhereNoStepDoes) {
    Words words;
    words.sweeps = {"L2=3:2:3"};
    words.measures = {"deviation"};
    Design design = Crank_Rocker();
    design.L2 = 3, design.L3 = design.L4 = 2;
    const Mechanism nominal(design);
    Aside aside;
    aside.Begin(Study_In(words, design), 1);
    const Findings found = To_The_End(aside);
    EXPECT_EQ(found.values.at(0), 0) << "the model itself";
    for (const Number linkage : {1U, 2U}) {
        Design moved = design;
        moved.L2 = linkage == 1 ? 2.5 : 2;
        const Mechanism mechanism(moved);
        double most = 0;
        int one = 0;
        for (int step = 0; step <= nominal.Last(); ++step) {
            one += mechanism.At(step).has_value() != nominal.At(step).has_value() ? 1 : 0;
            if (mechanism.At(step) && nominal.At(step))
                most = std::max(most, std::abs(mechanism.At(step)->P - nominal.At(step)->P));
        }
        EXPECT_GT(one, 0) << "closes alone";
        EXPECT_NEAR(found.values.at(linkage), most, 1e-5);
    }
    int closed = 0;
    for (int step = 0; step <= nominal.Last(); ++step) closed += nominal.At(step) ? 1 : 0;
    words.sweeps = {"L2=3:3:1"};
    words.measures = {"closes"};
    aside.Begin(Study_In(words, design), 1);
    EXPECT_FLOAT_EQ(To_The_End(aside).values.at(0), static_cast<float>(closed / 37.0));
    for (const char* measure : {"deviation", "deviation line"}) {
        words.sweeps = {"L2=9:9:1"};
        words.measures = {measure};
        aside.Begin(Study_In(words, design), 1);
        EXPECT_TRUE(Is_None(To_The_End(aside).values.at(0))) << measure;
    }
}

TEST(Aside, TheCloudOfALongRunHasFewerLinkagesAndNoMorePlaces) {
    Words words;
    words.tolerances = {"L2=0.02:uniform"};
    words.measures = {"closes"};
    words.samples = 330;
    Design design = Crank_Rocker();
    for (const auto& [last, most] : {std::pair{36, 330U}, {2588, 308U}}) {
        design.NSteps = last;
        Aside aside;
        aside.Begin(Study_In(words, design), 1);
        To_The_End(aside);
        EXPECT_EQ(aside.Cloud_At(0).size(), most) << "800000 places, " << last + 1 << " of each linkage";
    }
}

TEST(Aside, HasEveryLinkageWhetherOrNotTheBlocksComeOut) {
    Words words;
    words.measures = {"closes"};
    Aside aside;
    for (const Number count : {1U, 63U, 64U, 65U, 127U, 129U}) {
        words.sweeps = {"L2=0.5:1:" + std::to_string(count)};
        aside.Begin(Study_In(words), 2);
        const Findings found = To_The_End(aside);
        EXPECT_TRUE(found.Whole());
        EXPECT_EQ(found.values, std::vector<float>(count, 1)) << "all of them go round";
        EXPECT_TRUE(aside.Cloud_At(0).empty()) << "of a sweep there is none";
    }
}

TEST(Aside, TheCloudIsThatOfTheStudyBegunLast) {
    Words words = Two_At_Their_Worst();
    Aside aside;
    aside.Begin(Study_In(words), 1);
    To_The_End(aside);
    EXPECT_EQ(aside.Cloud_At(0).size(), 4U);
    // The pin of a crank that is too short is too slow.
    words.keeps = {"max Veloc I 2,3:Mag > 7"};
    aside.Begin(Study_In(words), 1);
    To_The_End(aside);
    std::vector<Number> linkages;
    for (const Cloud_Point& point : aside.Cloud_At(0)) linkages.push_back(point.linkage);
    EXPECT_EQ(linkages, (std::vector<Number>{1, 3}));
}

TEST(Aside, WhatNoSingleHoldsHasNeitherValuesNorMeasures) {
    Words words;
    words.sweeps = {"L2=1:1e39:2"};
    words.measures = {"closes"};
    Aside aside;
    aside.Begin(Study_In(words), 1);
    const Findings found = To_The_End(aside);
    ASSERT_EQ(found.values.size(), 2U);
    EXPECT_EQ(found.values[0], 1);
    EXPECT_TRUE(Is_None(found.values[1]));
    EXPECT_EQ(aside.Values_Of(0), std::vector<float>{1});
    ASSERT_EQ(aside.Values_Of(1).size(), 1U);
    EXPECT_TRUE(Is_None(aside.Values_Of(1)[0]));
    std::vector<float> fields, measures;
    EXPECT_TRUE(aside.Solve(1, fields, measures));
    EXPECT_TRUE(Is_None(fields.at(0)));
    EXPECT_TRUE(Is_None(measures.at(0)));
}

TEST(Aside, StopsBetweenBlocksOf64LinkagesOrOfEightLongRuns) {
    Words words;
    words.sweeps = {"L2=0.5:2:1000000", "Delta=0:90:1000000"};
    words.measures = {"max Theta4"};
    Design design = Crank_Rocker();
    for (const auto& [last, each] : {std::pair{36, 64U}, {359, 64U}, {360, 63U}, {2879, 8U}, {2880, 7U}}) {
        design.NSteps = last;
        Aside aside;
        aside.Begin(Study_In(words, design), 1);
        while (aside.Look().done == 0) std::this_thread::yield();
        aside.Stop();
        const Number done = To_The_End(aside).done;
        EXPECT_GT(done, 0U);
        EXPECT_EQ(done % each, 0U) << last;
    }
}

TEST(Aside, ACloudIsDrawnLargeEnoughAndPickedWhereItIsDrawn) {
    const Window window{{-5, -5}, {5, 5}};
    const std::vector<Cloud_Point> cloud{{1.01, 2, 4}, {1, 1.98, 9}};
    const Spot nominal(1, 2);
    const double enlarged = Enlargement(cloud, nominal, window);
    EXPECT_DOUBLE_EQ(enlarged, 50);
    EXPECT_EQ(Nearest_In(cloud, nominal, enlarged, {1.4, 2}), 4U);
    EXPECT_EQ(Nearest_In(cloud, nominal, enlarged, {1, 1.2}), 9U);
    EXPECT_DOUBLE_EQ(Enlargement({{9, 9, 0}}, nominal, window), 1);
    EXPECT_DOUBLE_EQ(Enlargement({{1, 2, 0}}, nominal, window), 1);
}

TEST(Aside, ACloudIsOrangeItsLinkageBlackAndThePickedOneRingedInBlue) {
    const Window window{{-5, -5}, {5, 5}};
    platform::Picture picture;
    picture.Scale(-5, 5, 5, -5);
    Draw_Cloud(picture, {{1.01, 2, 4}, {1, 1.98, 9}}, {1, 2}, 50, Number{9}, window);
    std::vector<std::pair<Spot, platform::Color>> drawn;
    for (const auto& pin : picture.Primitives()) drawn.emplace_back(Spot(pin.x1, pin.y1), pin.color);
    ASSERT_EQ(drawn.size(), 4U);
    const auto color = [](int red, int green, int blue) { return red + 256 * green + 65536 * blue; };
    EXPECT_NEAR(std::abs(drawn[0].first - Spot(1.5, 2)), 0, 1e-5);
    EXPECT_EQ(drawn[0].second, color(215, 110, 20));
    EXPECT_EQ(drawn[1].second, color(215, 110, 20));
    EXPECT_EQ(drawn[2].first, Spot(1, 2));
    EXPECT_EQ(drawn[2].second, 0);
    EXPECT_NEAR(std::abs(drawn[3].first - Spot(1, 1)), 0, 1e-5);
    EXPECT_EQ(drawn[3].second, color(0, 90, 160));
}

TEST(Aside, AMechanismHasTheColoursOfTheProgramAndAGhostIsGray) {
    const Mechanism mechanism(Crank_Rocker());
    const auto colors = [&](bool ghost) {
        platform::Picture picture;
        const Window window = Window_Of(mechanism);
        picture.Scale(window.low.real(), window.high.imag(), window.high.real(), window.low.imag());
        Draw_Mechanism(picture, mechanism, 5, window, ghost);
        std::set<platform::Color> found;
        for (const auto& one : picture.Primitives()) found.insert(one.color);
        return found;
    };
    EXPECT_EQ(colors(false), (std::set<platform::Color>{0x00FF00, 0xFF00FF, 0xFF0000}));
    EXPECT_EQ(colors(true), (std::set<platform::Color>{195 + 256 * 195 + 65536 * 205}));
}

TEST(Designs, ReachWhereTheLongestLinkIsShorterThanTheOthersTogether) {
    Design d = Crank_Rocker();
    d.L2 = d.L3 = d.L4 = 1;
    d.L1 = 2.75;
    EXPECT_TRUE(d.Derive());
    d.L1 = 3;
    EXPECT_FALSE(d.Derive());
    d.L1 = 3.25;
    EXPECT_FALSE(d.Derive());
}

TEST(Limits, OfARunAreTakenOrRefused) {
    Design d = Crank_Rocker();
    d.ThetaEnd = -10;
    EXPECT_EQ(Take_Limits(d), "the limits of the run do not ascend; the input screen has them");
    d = Crank_Rocker();
    d.ThetaStep = 0;
    EXPECT_EQ(Take_Limits(d), "the steps of the run are not positive; the input screen has them");
    d = Crank_Rocker();
    d.ThetaStepRad = 370 * kDegToRad;
    EXPECT_EQ(Take_Limits(d), "the steps of the run are larger than its range; the input screen has them");
    d = Crank_Rocker();
    d.ThetaStepRad = 0.05 * kDegToRad;
    d.ThetaStep = 0.05;
    EXPECT_EQ(Take_Limits(d), "the run has more than 2881 positions; the input screen has its steps");
    d.Calctype = 1;
    EXPECT_EQ(Take_Limits(d), "");
    d.Calctype = 0;
    EXPECT_EQ(Take_Limits(d), "there is no run yet; the input screen makes one");
    d = Crank_Rocker();
    d.ThetaEndRad = -1;
    EXPECT_EQ(Take_Limits(d), "the limits of the run do not ascend; the input screen has them");
    d.Calctype = 2;
    d.TimeStart = 0, d.TimeEnd = 1, d.TimeStep = 0.125;
    EXPECT_EQ(Take_Limits(d), "");
    EXPECT_EQ(int{d.NSteps}, 8);
}

}  // namespace

}  // namespace verlink::study
