// What a hand does to the task of the screen of linkages besides typing a number: other units and forms, texts that
// name nothing, words of a fault, turns and whole steps of a body.
#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

#include "core/numeric.h"
#include "core/text.h"
#include "tests/screens/frm_explore_fixture.h"

namespace verlink::test {

namespace {

class ExploreEdits : public ExploreFixture {
   protected:
    void Type_There(const char* box, int index, const std::string& text) {
        Type(form, box, index, text);
        Leave_Box();
    }
    bool Faulty() { return Said().starts_with("\"5000000\" is not taken"); }
};

}  // namespace

TEST_F(ExploreEdits, LimitsHaveAsManyDecimalsAsPositionsInEachUnit) {
    const std::pair<int, const char*> units[] = {
        {1, "1.2346"}, {2, "1.2346"}, {3, "1.23457"}, {4, "1.2346"}, {5, "1.235"}};
    for (const auto& [system, text] : units) {
        SCOPED_TRACE(system);
        Use_Units(system);
        design::Task task = Four();
        task.units = system;
        task.positions[1].at = {1.23456789, 1.23456789};
        task.shortest = 1.23456789;
        task.longest = 1001.23456789;
        form.Take_Task(task);
        EXPECT_EQ(form.txt_X[2].Text, text);
        EXPECT_EQ(form.txt_Y[2].Text, text);
        EXPECT_EQ(form.txt_Limit[0].Text, text);
        EXPECT_EQ(form.txt_Limit[1].Text, "100" + std::string(text));
    }
}

TEST_F(ExploreEdits, ANumberThatIsTheSameStandsAsItIsShown) {
    Inside([&] {
        Type_There("txt_X", 2, "4.000");
        EXPECT_EQ(form.txt_X[2].Text, "4");
        EXPECT_EQ(Model.DesignTask, "");
    });
}

TEST_F(ExploreEdits, AFaultIsSaidUntilItsBoxIsMendedWhateverElseIsChanged) {
    Inside([&] {
        Type_There("txt_X", 2, "5000000");
        ASSERT_TRUE(Faulty());
        Type(form, "txt_Y", 3, "5");
        EXPECT_TRUE(Faulty()) << Said();
        Leave_Box();
        EXPECT_EQ(form.The_Task().positions[2].at.imag(), 5);
        EXPECT_TRUE(Faulty()) << Said();
        form.cmb_Count.Choose(3);
        EXPECT_TRUE(Faulty()) << Said();
        form.opt_Relative[1].Click();
        EXPECT_TRUE(Faulty()) << Said();
        EXPECT_EQ(form.txt_X[2].Text, "5000000");
        Type_There("txt_X", 2, "4.5");
        EXPECT_FALSE(Faulty()) << Said();
        EXPECT_EQ(form.The_Task().positions[1].at.real(), 4.5);
    });
}

TEST_F(ExploreEdits, AFaultIsForgottenWhenTheScreenComesUpAnew) {
    Inside([&] { Type_There("txt_X", 2, "5000000"); });
    Inside([&] {
        EXPECT_FALSE(Faulty()) << Said();
        EXPECT_EQ(form.txt_X[2].Text, "4");
    });
}

TEST_F(ExploreEdits, EachWeightAloneIsEnoughForAScore) {
    for (int alone = 0; alone < 4; ++alone) {
        SCOPED_TRACE(alone);
        Inside([&] {
            form.hsc_Weight[alone].SetValue(7);
            for (int other = 0; other < 4; ++other)
                if (other != alone) form.hsc_Weight[other].SetValue(0);
            EXPECT_FALSE(Said().starts_with("Something has to count")) << Said();
            const design::Weights& w = form.The_Task().weights;
            const double weights[] = {w.transmission, w.proportion, w.room, w.rounding};
            for (int i = 0; i < 4; ++i) EXPECT_EQ(weights[i], i == alone ? 7 : 0) << i;
        });
    }
}

TEST_F(ExploreEdits, PositionsBeyondTheCountStandGreyedInTheFormThatIsChosen) {
    form.Take_Task(With({{{1, 2}, 10}, {{4, 3}, 30}, {{6, 6}, 60}, {{7, 9}, 100}}));
    Inside([&] {
        form.cmb_Count.Choose(0);
        for (const bool relative : {false, true}) {
            form.opt_Relative[relative ? 1 : 0].Click();
            const double x = relative ? 1 : 0, y = relative ? 2 : 0, angle = relative ? 10 : 0;
            EXPECT_EQ(form.txt_X[3].Text, Text_Of(6 - x));
            EXPECT_EQ(form.txt_Y[3].Text, Text_Of(6 - y));
            EXPECT_EQ(form.txt_Angle[4].Text, Text_Of(100 - angle));
            EXPECT_FALSE(form.txt_X[3].Enabled);
            EXPECT_EQ(form.txt_X[5].Text, "") << "never there";
        }
        form.cmb_Count.Choose(3);
        EXPECT_EQ(form.txt_X[5].Text, Text_Of(2 * (7 - 1) - (6 - 1))) << "a step as the last one";
        EXPECT_EQ(form.txt_Y[5].Text, Text_Of(2 * (9 - 2) - (6 - 2)));
        EXPECT_EQ(form.txt_Angle[5].Text, Text_Of(2 * 90 - 50));
    });
}

TEST_F(ExploreEdits, ACountThatIsNoneOfTheListChangesNothing) {
    Inside([&] {
        for (const char* count : {"1", "6", "0", "99", "many"}) {
            form.cmb_Count.Text = count;
            form.cmb_Count.OnClick();
            EXPECT_EQ(form.The_Task().positions.size(), 3U) << count;
        }
        EXPECT_EQ(Model.DesignTask, "");
    });
}

TEST_F(ExploreEdits, EachListSaysWhatItsTextIsNoneOf) {
    const std::pair<platform::ComboBox*, const char*> lists[] = {{&form.cmb_Count, "numbers of positions"},
                                                                 {&form.cmb_Drive, "sides"},
                                                                 {&form.cmb_Sort, "orders"},
                                                                 {&form.cmb_Class, "classes"},
                                                                 {&form.cmb_Circuit, "circuits"},
                                                                 {&form.cmb_Map, "pivots"}};
    Inside([&] {
        for (const auto& [list, what] : lists) {
            SCOPED_TRACE(what);
            const std::string before = list->Text;
            for (const bool out : {false, true}) {
                list->SetFocus();
                list->Text = "zz";
                if (!out)
                    desktop.Expect_Message("\"zz\" is not one of the " + std::string(what) +
                                           ". Please choose from the list.");
                form.MoveFocus(out ? &form.cmd_Cancel : &form.cmd_Search);
                EXPECT_EQ(list->Text, before);
            }
        }
    });
}

TEST_F(ExploreEdits, AHalfTypedEntryListsAsTheFirstOne) {
    form.Take_Task(Four());
    Inside([&] {
        Search();
        const auto map = [&] { return form.pic_Map.Drawing().Left(); };
        const std::size_t all = form.Shown().size();
        const double left = map(), best = form.Shown().front().judgement.score;
        for (platform::ComboBox* list : {&form.cmb_Sort, &form.cmb_Class, &form.cmb_Circuit, &form.cmb_Map})
            list->Text = "zz";
        form.chk_ThrownOut.Click();
        form.chk_ThrownOut.Click();
        EXPECT_EQ(form.Shown().size(), all);
        EXPECT_EQ(form.Shown().front().judgement.score, best);
        EXPECT_EQ(map(), left);
        for (platform::ComboBox* list : {&form.cmb_Sort, &form.cmb_Class, &form.cmb_Circuit, &form.cmb_Map})
            list->Choose(0);
    });
}

TEST_F(ExploreEdits, ABodyAwayFromTheOriginIsTurnedAboutItsPoint) {
    Inside([&] {
        const double size = (form.Picture1.Drawing().Right() - form.Picture1.Drawing().Left()) * 0.08;
        const design::Point at(4, 1);
        const auto end = [&](double degrees, double part) {
            return at + std::polar(part * size, degrees * M_PI / 180);
        };
        ASSERT_TRUE(form.Picture1.OnSeize({end(30, 1).real(), end(30, 1).imag(), 0, 0.01}));
        form.Picture1.OnDrag({end(75.2, 3).real(), end(75.2, 3).imag(), 0, 0.01});
        EXPECT_EQ(form.txt_Angle[2].Text, "75.2");
        const auto lit = form.Picture1.Lit.Get();
        ASSERT_TRUE(lit);
        EXPECT_NEAR(lit->x, end(75.2, 1).real(), 1e-9) << "where its leg ends, however far the hand is";
        EXPECT_NEAR(lit->y, end(75.2, 1).imag(), 1e-9);
        form.Picture1.OnRelease();
        EXPECT_EQ(Kept().positions[1].at, at);
    });
}

TEST_F(ExploreEdits, EachBodyIsHeldUntilItIsLetGo) {
    form.Take_Task(Four());
    Inside([&] {
        for (int i = 1; i <= 4; ++i) {
            SCOPED_TRACE(i);
            const design::Point at = form.The_Task().positions[static_cast<std::size_t>(i - 1)].at;
            ASSERT_TRUE(form.Picture1.OnSeize({at.real(), at.imag(), 0, 0.01}));
            form.Picture1.OnHover({at.real() + 9, at.imag() + 9, 0, 0.01});
            ASSERT_TRUE(form.Picture1.Lit.Get());
            EXPECT_TRUE(form.Picture1.Lit.Get()->held);
            EXPECT_EQ(form.Picture1.Pointer.Get(), platform::Grip::kClosedHand);
            const double left = form.Picture1.Drawing().Left();
            form.Picture1.OnDrag({at.real() - 9, at.imag(), 0, 0.01});
            EXPECT_EQ(form.Picture1.Drawing().Left(), left) << "the picture stays";
            // What is held is looked at with one round, that each move is seen at once.
            design::Effort quick;
            quick.coarse = true;
            quick.rounds = 1;
            EXPECT_EQ(form.Shown().size(), design::Find(form.The_Task(), quick).solutions.size());
            form.Picture1.OnDrag({at.real(), at.imag(), 0, 0.01});
            form.Picture1.OnRelease();
            EXPECT_FALSE(form.Picture1.Lit.Get());
            quick.rounds = 0;
            EXPECT_EQ(form.Shown().size(), design::Find(form.The_Task(), quick).solutions.size());
        }
    });
}

TEST_F(ExploreEdits, WhatABodyThatIsHeldBringsIsLookedAtOnceAndWhatItBroughtMoreClosely) {
    const auto scores = [](const std::vector<design::Solution>& solutions) {
        std::vector<double> all;
        for (const design::Solution& solution : solutions) all.push_back(solution.judgement.score);
        return all;
    };
    Inside([&] {
        for (int i = 1; i <= 3; ++i) {
            SCOPED_TRACE(i);
            const design::Point at = form.The_Task().positions[static_cast<std::size_t>(i - 1)].at;
            ASSERT_TRUE(form.Picture1.OnSeize({at.real(), at.imag(), 0, 0.01}));
            form.Picture1.OnDrag({at.real() + 0.1, at.imag(), 0, 0.01});
            design::Effort effort;
            effort.coarse = true;
            const auto closely = scores(design::Find(form.The_Task(), effort).solutions);
            effort.rounds = 1;
            const auto at_once = scores(design::Find(form.The_Task(), effort).solutions);
            ASSERT_NE(at_once, closely);
            EXPECT_EQ(scores(form.Shown()), at_once);
            form.Picture1.OnRelease();
            EXPECT_EQ(scores(form.Shown()), closely);
        }
    });
}

TEST_F(ExploreEdits, ALinkPickedOnACurveStaysUntilThePositionsAreOthers) {
    form.Take_Task(Four());
    const auto link_is_drawn = [&] {
        return std::ranges::any_of(form.pic_Map.Drawing().Primitives(), [](const auto& drawn) {
            return drawn.alive && drawn.color == 0 && drawn.kind == platform::Picture::Primitive::Kind::kSegment;
        });
    };
    Inside([&] {
        ASSERT_TRUE(form.Picture1.OnSeize({0, 0, 0, 0.01}));
        form.Picture1.OnDrag({0.1, 0, 0, 0.01});
        form.Picture1.OnRelease();
        const auto pick = [&] {
            const auto& piece = form.The_Curves().front();
            const design::Point moving = piece[piece.size() / 3].moving;
            return form.Picture1.OnSeize({moving.real(), moving.imag(), 0, 1e-9});
        };
        form.chk_Curves.Click();
        EXPECT_FALSE(pick()) << "what is not seen is not picked";
        form.chk_Curves.Click();
        EXPECT_FALSE(link_is_drawn());
        ASSERT_TRUE(pick());
        form.Picture1.OnRelease();
        EXPECT_NE(Said().find("with the link"), std::string::npos) << Said();
        EXPECT_TRUE(link_is_drawn());
        Type(form, "txt_X", 2, "3.1");
        Leave_Box();
        EXPECT_EQ(Said().find("with the link"), std::string::npos) << Said();
        EXPECT_FALSE(link_is_drawn());
    });
}

TEST_F(ExploreEdits, ABodyGoesByWholeNumbersWhereAPixelIsMoreThanTwo) {
    form.Take_Task(With({{{0, 0}, 0}, {{4000, 1000}, 30}, {{6000, 4000}, 60}}));
    Inside([&] {
        ASSERT_TRUE(form.Picture1.OnSeize({4000, 1000, 0, 4}));
        form.Picture1.OnDrag({4100.46, 1000.46, 0, 4});
        EXPECT_EQ(form.txt_X[2].Text, "4100");
        EXPECT_EQ(form.txt_Y[2].Text, "1000");
        form.Picture1.OnDrag({4000.46, 1000.46, 0, 2.1});
        EXPECT_EQ(form.txt_X[2].Text, "4000");
        form.Picture1.OnDrag({4100.46, 1000.46, 0, 1.9});
        EXPECT_EQ(form.txt_X[2].Text, "4100.5");
        form.Picture1.OnRelease();
    });
}

TEST_F(ExploreEdits, ABodyThatIsPressedAndNotMovedLeavesWhatWasFound) {
    Inside([&] {
        Search();
        const std::string said = Said();
        ASSERT_NE(said.find(" judged"), std::string::npos) << said;
        ASSERT_TRUE(form.Picture1.OnSeize({4, 1, 0, 0.01}));
        form.Picture1.OnRelease();
        EXPECT_EQ(Said(), said);
    });
}

TEST_F(ExploreEdits, AWeightBetweenTheNotchesStaysWhileItsBarDoes) {
    design::Task task = With({{{0, 0}, 0}, {{4, 1}, 30}, {{6, 4}, 60}});
    task.weights.room = 0.25;
    form.Take_Task(task);
    Inside([&] {
        ASSERT_EQ(form.hsc_Weight[2].Value(), 0);
        form.hsc_Weight[2].OnScroll();
        EXPECT_EQ(Kept().weights.room, 0.25);
        form.hsc_Weight[2].SetValue(1);
        EXPECT_EQ(Kept().weights.room, 1);
    });
}

TEST_F(ExploreEdits, TheTickOfAFullTurnIsThatOfTheTask) {
    design::Task task = With({{{0, 0}, 0}, {{4, 1}, 30}, {{6, 4}, 60}});
    for (const bool full : {true, false}) {
        task.full_turn = full;
        Model.DesignTask = design::Task_Text(task);
        Inside([&] { EXPECT_EQ(form.chk_FullTurn.Value.Get(), full); });
    }
}

TEST_F(ExploreEdits, ABodyGoesByHundredThousandthsAtTheFinest) {
    Inside([&] {
        ASSERT_TRUE(form.Picture1.OnSeize({4, 1, 0, 1e-9}));
        form.Picture1.OnDrag({4.000012345, 1.000067891, 0, 1e-9});
        form.Picture1.OnRelease();
        EXPECT_EQ(Kept().positions[1].at, design::Point(4.00001, 1.00007));
    });
}

TEST_F(ExploreEdits, ABodyIsTakenWithinTenPixels) {
    Inside([&] {
        for (const double way : {1.0, -1.0}) {
            form.Picture1.OnHover({4 + way * 0.0995, 1, 0, 0.01});
            EXPECT_TRUE(form.Picture1.Lit.Get());
            form.Picture1.OnHover({4 + way * 0.1005, 1, 0, 0.01});
            EXPECT_FALSE(form.Picture1.Lit.Get());
        }
    });
}

}  // namespace verlink::test
