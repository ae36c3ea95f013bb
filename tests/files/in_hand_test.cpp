// Which model is in hand: what of it counts, and who hears of its coming and keeping.
#include "files/in_hand.h"

#include <set>

#include "tests/files/model_files.h"

namespace verlink::test {

namespace {

struct In_Hand : ModelFiles {
    /// Whether a change of the value counts; it is put back.
    template <class Value>
    static bool Counts_As_Change(Value& place, Value other) {
        const Value was = place;
        const std::string before = What_Counts();
        place = other;
        const bool counts = What_Counts() != before;
        place = was;
        EXPECT_EQ(What_Counts(), before);
        return counts;
    }
    struct Changed {
        bool operator()(std::string* place) const { return Counts_As_Change(*place, *place + "x"); }
        bool operator()(bool* place) const { return Counts_As_Change(*place, !*place); }
        template <class Number>
        bool operator()(Number* place) const {
            Number other = *place;
            other = double(other) + 1;
            return Counts_As_Change(*place, other);
        }
    };
    static std::set<std::string> What_Does_Not_Count() {
        std::set<std::string> names;
        for (const FileField& field : File_Fields())
            if (std::string(field.name) != "Calctype" && !std::visit(Changed{}, field.place)) names.insert(field.name);
        return names;
    }
};

}  // namespace

TEST_F(In_Hand, AllOfItsFileCountsButWhatFollowsFromElse) {
    const std::set<std::string> never{"ProgramTag", "RevNumber",   "DateStr",      "TimeStr",       "Synthesized",
                                      "RedrawFlag", "FileVersion", "Grashof_Code", "Link1AngleRad", "NSteps"};
    for (const int mode : {1, 2, 3, 4, 5}) {
        Model.Calctype = mode;
        Model.NSteps = 3;
        std::set<std::string> expected = never;
        if (mode == 3)
            expected.insert("Alpha2");
        else
            expected.insert({"ThetaStartStr", "ThetaEndStr", "ThetaStepStr"});
        // With a table, or without one, its length counts as the table does.
        if (mode > 3) expected.erase("NSteps");
        EXPECT_EQ(What_Does_Not_Count(), expected) << mode;
    }
    EXPECT_TRUE(Counts_As_Change(Model.DesignTask, std::string("{}")));
    EXPECT_TRUE(Counts_As_Change(Model.StudySettings, std::string("{}")));
    Model.L2 = 0.0;
    EXPECT_FALSE(Counts_As_Change(Model.L2, Single(-0.0)));
    Model.L2 = 1e-20;
    EXPECT_TRUE(Counts_As_Change(Model.L2, Single(2e-20))) << "however small it is";
    // The same letters, divided otherwise between two texts that lie side by side.
    Model.ModelName = "press";
    Model.UserName = "ann";
    const std::string before = What_Counts();
    Model.ModelName = "pressa";
    Model.UserName = "nn";
    EXPECT_NE(What_Counts(), before);
}

TEST_F(In_Hand, ADriveCountsWhereItDrivesAndATorqueWhereItIsImported) {
    auto& table = Model.RunTable;
    Model.NSteps = 3;
    for (const int mode : {3, 4, 5})
        for (const int step : {0, 3, 4}) {
            Model.Calctype = mode;
            const bool counts = mode > 3 && step <= 3;
            EXPECT_EQ(Counts_As_Change(table.DriveTheta(step), Single(7)), counts) << mode << step;
            EXPECT_EQ(Counts_As_Change(table.Omega(step, 0), Single(7)), counts) << mode << step;
            EXPECT_EQ(Counts_As_Change(table.Alpha(step, 0), Single(7)), counts) << mode << step;
        }
    Model.Calctype = 1;
    for (const bool imported : {true, false})
        for (const int step : {0, 3, 4}) {
            Model.TorqueImported = imported;
            EXPECT_EQ(Counts_As_Change(table.ImportedTorque(step), Single(7)), imported && step <= 3) << step;
        }
    // A count beyond the table is that of the table.
    Model.TorqueImported = true;
    Model.NSteps = kLastStep + 1;
    EXPECT_TRUE(Counts_As_Change(table.ImportedTorque(kLastStep), Single(7)));
}

TEST_F(In_Hand, ComingAndKeepingAreHeardOnceAndLeaveItUnmodified) {
    std::vector<Hand> heard;
    const auto before = Watch_Hand([&](Hand hand) { heard.push_back(hand); });
    Model.L2 = 1.5;
    Model_Came();
    EXPECT_FALSE(Modified());
    EXPECT_EQ(Document_In_Hand()->times_kept, 0);
    Model.L2 = 2;
    EXPECT_TRUE(Modified());
    Model_Kept();
    EXPECT_FALSE(Modified());
    EXPECT_EQ(Document_In_Hand()->times_kept, 1);
    const auto first = Document_In_Hand();
    Model_Came_Unsaved();
    EXPECT_NE(Document_In_Hand(), first);
    EXPECT_TRUE(Modified());
    EXPECT_EQ(heard, (std::vector<Hand>{Hand::kCame, Hand::kKept, Hand::kCame}));
    Take_In_Hand(first);
    EXPECT_FALSE(Modified());
    Model_Came();
    EXPECT_NE(Document_In_Hand(), first) << "what comes has a document of its own";
    Watch_Hand({});
    Model_Kept();
    EXPECT_EQ(heard.size(), 4U);
    Watch_Hand(before);
}

TEST_F(In_Hand, WhatChangesByItselfModifiesNothingThatWasUnmodified) {
    Model_Came();
    std::string before = What_Counts();
    Model.L2 = 1.5;
    Model_Follows(before);
    EXPECT_FALSE(Modified());
    Model.L2 = 2;
    before = What_Counts();
    Model.L3 = 4;
    Model_Follows(before);
    EXPECT_TRUE(Modified());
}

}  // namespace verlink::test
