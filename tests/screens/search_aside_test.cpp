// A search beside the screen: to its end, and stopped on the way.
#include "screens/search_aside.h"

#include <gtest/gtest.h>

#include <optional>
#include <thread>

namespace verlink::test {
namespace {

design::Task Some_Task() {
    design::Task task;
    task.positions = {{{0, 0}, 0}, {{4, 1}, 30}, {{6, 4}, 60}};
    return task;
}

TEST(SearchAside, ComesToItsEndWithWhatASearchFinds) {
    Search_Aside aside;
    const design::Effort effort{.best = 4, .threads = 1, .coarse = true};
    aside.Begin(Some_Task(), effort);
    const design::Found found = aside.To_Its_End(), wanted = design::Find(Some_Task(), effort);
    EXPECT_FALSE(found.stopped);
    EXPECT_FALSE(aside.Runs());
    EXPECT_EQ(aside.Part(), 1);
    ASSERT_EQ(found.solutions.size(), wanted.solutions.size());
    EXPECT_EQ(found.judged, wanted.judged);
}

TEST(SearchAside, StoppedItEndsWithWhatItHas) {
    Search_Aside aside;
    aside.Begin(Some_Task(), {.threads = 1});
    aside.Stop();
    const design::Found found = aside.To_Its_End();
    EXPECT_TRUE(found.stopped);
    EXPECT_FALSE(aside.Runs());
    EXPECT_FALSE(aside.Take());
}

TEST(SearchAside, AnotherSearchStopsTheFirst) {
    Search_Aside aside;
    aside.Begin(Some_Task(), {.threads = 1});
    const design::Effort effort{.best = 4, .threads = 1, .coarse = true};
    aside.Begin(Some_Task(), effort);
    EXPECT_EQ(aside.To_Its_End().judged, design::Find(Some_Task(), effort).judged);
}

TEST(SearchAside, AfterOneThatHasEndedAnotherBeginsAtNothing) {
    Search_Aside aside;
    const design::Effort coarse{.best = 4, .threads = 1, .coarse = true};
    aside.Begin(Some_Task(), coarse);
    aside.To_Its_End();
    aside.Begin(Some_Task(), {.threads = 1});
    EXPECT_LT(aside.Part(), 1);
    aside.Take();
    EXPECT_TRUE(aside.Runs()) << "the end of the first is not its own";
    EXPECT_TRUE(aside.Await().stopped);
    aside.Begin(Some_Task(), coarse);
    EXPECT_FALSE(aside.To_Its_End().stopped);
}

TEST(SearchAside, WhatWasTakenIsNotTakenAgainAndTheEndIsTakenOnce) {
    Search_Aside aside;
    aside.Begin(Some_Task(), {.best = 4, .threads = 1, .coarse = true});
    std::optional<design::Found> last;
    while (aside.Runs())
        if (const auto taken = aside.Take()) last = taken;
    ASSERT_TRUE(last.has_value());
    EXPECT_FALSE(last->stopped);
    EXPECT_FALSE(aside.Take());
    EXPECT_TRUE(aside.Await().solutions.empty()) << "all was taken before";
}

}  // namespace
}  // namespace verlink::test
