// What a study reads of words and lists, the fields that it can move, and times in words.
#include <gtest/gtest.h>

#include "files/model_file.h"
#include "study/pace.h"
#include "study/tally.h"
#include "study/words.h"
#include "tests/support/fixture.h"

namespace verlink::study {

namespace {

class Reading : public test::Fixture {
   protected:
    Reading() {
        design.PolarCoords = true;
        design.L1 = 4, design.L2 = 1, design.L3 = 3, design.L4 = 2.5;
        words.measures = {"max Theta4"};
    }
    std::string Fault() {
        std::string fault;
        EXPECT_FALSE(Study_Of(words, design, fault));
        return fault;
    }
    std::string Fault_Of_List(const std::string& content) {
        List list;
        std::string fault;
        EXPECT_FALSE(Take_List(content, "a.csv", design, list, fault)) << content;
        return fault;
    }
    Design design;
    Words words;
};

TEST_F(Reading, ASweepHasTwoEndsAndACount) {
    words.sweeps = {"L2=1:2:11"};
    std::string fault;
    const auto study = Study_Of(words, design, fault);
    ASSERT_TRUE(study) << fault;
    ASSERT_EQ(study->plan.sweeps.size(), 1U);
    EXPECT_EQ(study->plan.sweeps[0].from, 1);
    EXPECT_EQ(study->plan.sweeps[0].to, 2);
    EXPECT_EQ(study->plan.sweeps[0].count, 11U);
    for (const char* wrong : {"L2=x:2:11", "L2=1:x:11", "L2=1:2:x", "L2=1:2:0", "L2=1:2", "L2=1:2:3:4", "L2",
                              "L2=", "L2=inf:2:11", "L2=1:nan:11"}) {
        words.sweeps = {wrong};
        EXPECT_EQ(Fault(), std::string("a sweep wants FIELD=FROM:TO:COUNT, as in L2=1:2:11, not \"") + wrong + "\"");
    }
    words.sweeps = {"L2=1:2:3", "L3=1:2:3", "L2=2:3:4"};
    EXPECT_EQ(Fault(), "L2 is swept twice");
    words.sweeps = {"L2=1:2:3", "Figure=1:2:3"};
    EXPECT_EQ(Fault(), "a study moves no field \"Figure\"");
}

TEST_F(Reading, AToleranceHasAWidthAndPerhapsAKind) {
    words.tolerances = {"L2=0.5", "L3=0:uniform", "L4=0.25:worst"};
    std::string fault;
    const auto study = Study_Of(words, design, fault);
    ASSERT_TRUE(study) << fault;
    const auto& tolerances = study->plan.tolerances;
    ASSERT_EQ(tolerances.size(), 3U);
    EXPECT_EQ(tolerances[0].plus_minus, 0.5);
    EXPECT_EQ(tolerances[0].spread, Spread::kNormal);
    EXPECT_EQ(tolerances[1].plus_minus, 0);
    EXPECT_EQ(tolerances[1].spread, Spread::kUniform);
    EXPECT_EQ(tolerances[2].spread, Spread::kWorst);
    for (const char* wrong : {"L2=x", "L2=-0.5", "L2=0.5:worst:3", "L2", "L2=", "L2=inf"}) {
        words.tolerances = {wrong};
        EXPECT_EQ(Fault(), std::string("a tolerance wants FIELD=PLUSMINUS, as in L2=0.01, not \"") + wrong + "\"");
    }
    words.tolerances = {"L2=1:normal"};
    EXPECT_EQ(Study_Of(words, design, fault)->plan.tolerances[0].spread, Spread::kNormal);
    words.tolerances = {"L2=1", "L2=2"};
    EXPECT_EQ(Fault(), "L2 has two tolerances");
    words.tolerances = {"L2=1", "Figure=2"};
    EXPECT_EQ(Fault(), "a study moves no field \"Figure\"");
}

TEST_F(Reading, AKindOfSpreadThatThereIsNotIsToldWithTheNearestOne) {
    for (const auto& [wrong, meant] : {std::pair{"norml", "; did you mean normal?"},
                                       {"worse", "; did you mean worst?"},
                                       {"uniforn", "; did you mean uniform?"},
                                       {"x", ""},
                                       {"", ""}}) {
        words.tolerances = {std::string("L2=0.5:") + wrong};
        EXPECT_EQ(Fault(), std::string("a tolerance is normal, uniform or worst, not \"") + wrong + "\"" + meant);
    }
}

TEST_F(Reading, AMeasureOrABoundThatCannotBeReadIsToldAndThereIsNoStudy) {
    words.measures = {"max Theta4", "mux Theta4"};
    EXPECT_EQ(Fault(), "there is no measure \"mux\"; did you mean max?");
    words.measures = {"max Theta4"};
    words.keeps = {"min Trans Ang > 40", "mim Trans Ang > 40"};
    EXPECT_EQ(Fault(), "there is no measure \"mim\"; did you mean min?");
}

TEST_F(Reading, SamplesAndSeedAreThoseThatWereAsked) {
    words.tolerances = {"L2=0.5"};
    std::string fault;
    EXPECT_EQ(Study_Of(words, design, fault)->plan.samples, 10000U);
    EXPECT_EQ(Study_Of(words, design, fault)->plan.seed, 1U);
    words.samples = 12;
    words.seed = 34;
    EXPECT_EQ(Study_Of(words, design, fault)->plan.samples, 12U);
    EXPECT_EQ(Study_Of(words, design, fault)->plan.seed, 34U);
}

TEST_F(Reading, AListIsFieldsOverRowsOfAsManyNumbers) {
    List list;
    std::string fault;
    ASSERT_TRUE(Take_List("\"L2\",L3\r\n\r\n1,2\r\n\n3,4.5\n", "a.csv", design, list, fault)) << fault;
    EXPECT_EQ(fault, "");
    EXPECT_EQ(list.fields.size(), 2U);
    EXPECT_EQ(list.rows, (std::vector<std::vector<double>>{{1, 2}, {3, 4.5}}));
    words.list = list;
    const auto study = Study_Of(words, design, fault);
    ASSERT_TRUE(study) << fault;
    EXPECT_EQ(study->plan.list.rows, list.rows);
    EXPECT_EQ(study->plan.Count(), 2U);
    words.list = {};
    EXPECT_EQ(Fault_Of_List("L2,L3\n"), "a.csv has no rows");
    EXPECT_EQ(Fault_Of_List(""), "a.csv has no rows");
    EXPECT_EQ(Fault_Of_List("L2,Figure\n1,2\n"), "a study moves no field \"Figure\"");
    EXPECT_EQ(Fault_Of_List("L2,L3\n1,inf\n"), "a.csv, line 2: there are to be 2 numbers, not \"1,inf\"");
    EXPECT_EQ(Fault_Of_List("L2,L3\n1\n"), "a.csv, line 2: there are to be 2 numbers, not \"1\"");
    EXPECT_EQ(Fault_Of_List("L2,L3\n1,2\n\n1,2,x\n"), "a.csv, line 4: there are to be 2 numbers, not \"1,2,x\"");
}

TEST_F(Reading, EveryFieldHasTheLineAndTheValueOfTheModelFile) {
    for (const FileField& field : File_Fields())
        if (auto* const* place = std::get_if<Single*>(&field.place)) **place = 100 + field.line;
    Design of_the_model = Design_Of(Model);
    int found = 0;
    for (const Field& field : Fields())
        for (const FileField& stored : File_Fields()) {
            if (std::string(stored.name) != field.name) continue;
            ++found;
            EXPECT_EQ(field.stream, stored.line) << field.name;
            EXPECT_EQ(field.place(of_the_model), 100 + stored.line) << field.name;
        }
    EXPECT_EQ(found, static_cast<int>(Fields().size()));
}

TEST(Time_Words, AreTheTwoLargestUnits) {
    EXPECT_EQ(Time_Words(0), "0 s");
    EXPECT_EQ(Time_Words(58.2), "59 s");
    EXPECT_EQ(Time_Words(60), "1 min 0 s");
    EXPECT_EQ(Time_Words(3599), "59 min 59 s");
    EXPECT_EQ(Time_Words(3600), "1 h 0 min");
    EXPECT_EQ(Time_Words(3600 + 59 * 60), "1 h 59 min");
    EXPECT_EQ(Time_Words(86399), "23 h 59 min");
    EXPECT_EQ(Time_Words(86400), "1 d 0 h");
    EXPECT_EQ(Time_Words(86400 + 23 * 3600), "1 d 23 h");
    EXPECT_EQ(Time_Words(2 * 86400 + 5 * 3600 + 59), "2 d 5 h");
}

TEST(Short_Numbers, HaveTwoOrThreeDigits) {
    EXPECT_EQ(Short_Number(7), "7");
    EXPECT_EQ(Short_Number(999.4), "999");
    EXPECT_EQ(Short_Number(999.5), "1.0k");
    EXPECT_EQ(Short_Number(9940), "9.9k");
    EXPECT_EQ(Short_Number(9950), "10k");
    EXPECT_EQ(Short_Number(9960), "10k");
    EXPECT_EQ(Short_Number(2.5e6), "2.5M");
    EXPECT_EQ(Short_Number(3e12), "3000G");
}

}  // namespace

}  // namespace verlink::study
