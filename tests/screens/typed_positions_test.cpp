// Positions typed on a screen of synthesis, compared with those of the task.
#include "screens/typed_positions.h"

#include <gtest/gtest.h>

#include "core/linkage_model.h"

namespace verlink::test {

namespace {

using design::Area;
using design::Point;
using design::Task;

Area At_Point(Point point) { return {Area::Is::kPoints, {}, {}, {point}}; }

/// Three positions from the first, with both fixed pivots.
Typed_Positions Some_Typed() {
    Typed_Positions typed;
    typed.moved = {{{4, 1}, 30}, {{6, 4}, 60}};
    typed.pivots = {{-1, -2}, {3, -2}, {0.5, 1.5}};
    return typed;
}

Task Task_Of(const Typed_Positions& typed) {
    Task task;
    task.title = "A lid";
    task.positions.resize(1);
    return With_Positions(task, typed).value();
}

}  // namespace

TEST(TypedPositions, TakeThePlaceOfThoseOfTheTask) {
    const Typed_Positions typed = Some_Typed();
    const Task task = Task_Of(typed);
    EXPECT_TRUE(task.relative);
    EXPECT_EQ(task.title, "A lid");
    EXPECT_EQ(task.positions, (std::vector<design::Place>{{{0.5, 1.5}, 0}, typed.moved[0], typed.moved[1]}));
    EXPECT_EQ(task.left.fixed, At_Point({-1, -2}));
    EXPECT_EQ(task.right.fixed, At_Point({3, -2}));
    EXPECT_FALSE(With_Positions(task, typed)) << "there they are";
}

TEST(TypedPositions, WhatIsOffByMoreThanSinglePrecisionIsAnother) {
    const Task task = Task_Of(Some_Typed());
    // Of lengths up to the 7.2 of the last position, and of its angle of 60 degrees and one.
    for (const auto& [off, another] : {std::pair{0.5e-6, false}, {2e-5, true}, {1e-3, true}}) {
        SCOPED_TRACE(off);
        Typed_Positions typed = Some_Typed();
        typed.moved[1].at += Point(off, 0);
        EXPECT_EQ(With_Positions(task, typed).has_value(), another);
        typed = Some_Typed();
        typed.moved[0].at -= Point(0, off);
        EXPECT_EQ(With_Positions(task, typed).has_value(), another);
        typed = Some_Typed();
        typed.moved[1].angle += 10 * off;
        EXPECT_EQ(With_Positions(task, typed).has_value(), another);
        for (Point Typed_Positions::Pivots::*pivot :
             {&Typed_Positions::Pivots::O2, &Typed_Positions::Pivots::O4, &Typed_Positions::Pivots::P1})
            for (const Point by : {Point(off, 0), Point(0, -off)}) {
                typed = Some_Typed();
                *typed.pivots.*pivot += by;
                EXPECT_EQ(With_Positions(task, typed).has_value(), another);
            }
    }
}

TEST(TypedPositions, AnAngleIsComparedWithinItsOwnPrecisionAndThatOfADegree) {
    Typed_Positions typed = Some_Typed();
    typed.moved[0].angle = 0;
    const Task task = Task_Of(typed);
    typed.moved[0].angle = 0.9e-6;
    EXPECT_FALSE(With_Positions(task, typed));
    typed.moved[0].angle = 1.5e-6;
    EXPECT_TRUE(With_Positions(task, typed));
}

TEST(TypedPositions, FewerPositionsOrOtherPivotsAreAnotherTask) {
    const Task task = Task_Of(Some_Typed());
    Typed_Positions typed = Some_Typed();
    typed.moved.pop_back();
    ASSERT_TRUE(With_Positions(task, typed));
    EXPECT_EQ(With_Positions(task, typed)->positions.size(), 2U);
    typed = Some_Typed();
    std::swap(typed.pivots->O2, typed.pivots->O4);
    EXPECT_FALSE(With_Positions(task, typed)) << "the crank may stand at the right";
    typed.pivots->O4 = typed.pivots->O2;
    EXPECT_TRUE(With_Positions(task, typed)) << "one of two pivots";
}

TEST(TypedPositions, WithoutPivotsThePlacesOfTheFirstPositionAndOfThePivotsStay) {
    Task task = Task_Of(Some_Typed());
    Typed_Positions typed = Some_Typed();
    typed.pivots.reset();
    EXPECT_FALSE(With_Positions(task, typed)) << "whatever the pivots are";
    typed.moved[0].angle = 31;
    const Task other = With_Positions(task, typed).value();
    EXPECT_EQ(other.positions[0], task.positions[0]);
    EXPECT_EQ(other.left, task.left);
    EXPECT_EQ(other.right, task.right);
}

TEST(TypedPositions, PivotsOfATaskThatMayLieElsewhereAreNotThoseTyped) {
    Task task = Task_Of(Some_Typed());
    task.left.fixed.points.emplace_back(0, 0);
    EXPECT_TRUE(With_Positions(task, Some_Typed())) << "one of several";
    task.left.fixed = {Area::Is::kWithin, {-1, -2}, {-1, -2}, {{-1, -2}}};
    EXPECT_TRUE(With_Positions(task, Some_Typed()));
    task.left.fixed = {};
    EXPECT_TRUE(With_Positions(task, Some_Typed()));
}

}  // namespace verlink::test
