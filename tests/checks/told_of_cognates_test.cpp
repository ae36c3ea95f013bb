// Each length and angle of the cognates that is another is told by what it does to the coupler point or the loop.
#include "tests/checks/told.h"

namespace verlink::test {

namespace {

constexpr int kLengths[] = {1, 2, 3, 4, 5};

class Told_Of_Cognates : public Told {
   protected:
    /// In millimetres, and every length of all three a whole number of tenths of one: the coupler point lies between
    /// the joints, in the middle.
    void Take_Whole_Lengths() {
        Take_Linkage(1);
        Enter_Linkage(Road::kBoxes, [] {
            auto& m = Model;
            m.L1 = 0.26;
            m.L2 = 0.1;
            m.L3 = 0.25;
            m.L4 = 0.22;
            m.Rpa = 0.125;
            m.Delta = 0;
        });
        Run();
    }
    /// Both others are drawn up with their side links exchanged, so that their tables are not alike.
    void Take_Exchanged() {
        Take_Linkage(1);
        Enter_Linkage(Road::kBoxes, [] { Model.L4 = 0.26; });
        Run();
    }
    void Run() {
        Take_Angles(40, 60, 5);
        Notes notes(desktop, platform::Answer::kIgnore);
        Integer result;
        Calc_Setup(3, result);
        Find_Cognates();
    }
    static double Sum(const CognateTable& table, int n) {
        double sum = 0;
        for (const int item : kLengths) sum += table(n, item);
        return sum;
    }
    static std::string Name(int n, bool diagram) {
        return "cognate " + std::to_string(n) + (diagram ? " of the diagram" : "");
    }
    /// A length of that row is `by` more, by which the coupler point or the joint at the other side's end is off.
    static void Expect_Length_Told(CognateTable& table, int n, int item, double by, const std::string& where,
                                   double turns = 1) {
        const Single kept = table(n, item);
        table(n, item) += by;
        Expect_Failing("Cognates", where, 1000 * by, 1000 * 16 * kHalf * turns * Sum(table, n));
        table(n, item) = kept;
    }
};

}  // namespace

TEST_F(Told_Of_Cognates, OtherSideAndCouplerPointByTheirLength) {
    Take_Exchanged();
    for (const int n : {2, 3})
        for (const int item : {4, 5}) {
            Expect_Length_Told(Model.CayleyRows, n, item, 0.02, Name(n, true));
            Expect_Length_Told(Model.Cognates, n, item, 0.02, Name(n, false));
        }
}

// Beside a shorter rocker that of cognate 2 is as in the diagram: both are others then.
TEST_F(Told_Of_Cognates, WithoutExchangedSidesBothTablesAreAlike) {
    Take_Linkage(1);
    Run();
    for (const int item : {4, 5}) {
        EXPECT_EQ(Model.Cognates(2, item), Model.CayleyRows(2, item));
        Model.CayleyRows(2, item) += 0.02;
        Expect_Length_Told(Model.Cognates, 2, item, 0.02, Name(2, false));
        Model.CayleyRows(2, item) = Model.Cognates(2, item);
    }
}

TEST_F(Told_Of_Cognates, AnAngleByTheArcOfTheCouplerPoint) {
    Take_Exchanged();
    for (const int n : {2, 3})
        for (CognateTable* table : {&Model.Cognates, &Model.CayleyRows}) {
            (*table)(n, 6) += 0.1;
            Expect_Failing("Cognates", Name(n, table == &Model.CayleyRows), 1000 * (*table)(n, 5) * 2 * std::sin(0.05),
                           1000 * 16 * kHalf * Sum(*table, n));
            (*table)(n, 6) -= 0.1;
        }
}

TEST_F(Told_Of_Cognates, AnglesOfManyTurnsHaveFewerDigits) {
    Take_Exchanged();
    CognateTable& rows = Model.CayleyRows;
    rows(2, 6) += 10 * 2 * M_PI;
    Expect_Length_Told(rows, 2, 5, 0.05, Name(2, true), std::abs(rows(2, 6)) / (2 * M_PI));
    rows(2, 6) -= 20 * 2 * M_PI;
    Expect_Length_Told(rows, 2, 5, 0.05, Name(2, true), std::abs(rows(2, 6)) / (2 * M_PI));
    rows(2, 6) += 10 * 2 * M_PI;
    for (const double turns : {20.0, -40.0}) {
        Model.Cognates(1, 6) += turns * 2 * M_PI;
        Expect_Length_Told(rows, 2, 5, 0.05, Name(2, true), std::abs(Model.Cognates(1, 6)) / (2 * M_PI));
    }
}

TEST_F(Told_Of_Cognates, OfNoExtentHaveNoDirection) {
    Take_Exchanged();
    CognateTable& rows = Model.CayleyRows;
    const auto seen = [&](double part) {
        const Single kept = rows(3, 3);
        double others = 0;
        for (const int item : {1, 2, 4, 5}) others += rows(3, item);
        rows(3, 3) = part * others / (1 - part);
        const bool fails = Found("Cognates").verdict == Verdict::kFails;
        rows(3, 3) = kept;
        return fails;
    };
    EXPECT_FALSE(seen(0));
    EXPECT_FALSE(seen(0.99e-4));
    EXPECT_TRUE(seen(1.01e-4));
}

TEST_F(Told_Of_Cognates, RoundedByAChangeOfUnitsAreByDesignUpToTenPlaces) {
    Take_Whole_Lengths();
    EXPECT_EQ(Found("Cognates").verdict, Verdict::kGood);
    Single& length = Model.CayleyRows(3, 5);
    const Single kept = length;
    for (const double places : {1.0, -1.0, 9.0, -3.0}) {
        const double by = places * 1e-4;
        length = kept + by;
        const Check check = Found("Cognates");
        EXPECT_EQ(check.verdict, Verdict::kByDesign) << places;
        EXPECT_NEAR(check.worst / (1000 * std::abs(by)), 1, 1e-2);
        EXPECT_EQ(check.where, "cognate 3 of the diagram");
        EXPECT_NEAR(check.expected / (4 * 1000 * 16 * kHalf * Sum(Model.CayleyRows, 3)), 1, 1e-4);
        EXPECT_EQ(
            check.meaning,
            "Set beside each other by Roberts' triangles, the three cognates carry their coupler points along one "
            "curve, mirrored where the side links are exchanged. Lengths are rounded, as the boxes show them or as "
            "a change of units does, by so much.");
        EXPECT_EQ(check.unit, "mm");
    }
    for (const double places : {0.5, 1.25, 11.0, -11.0}) {
        length = kept + places * 1e-4;
        EXPECT_EQ(Found("Cognates").verdict, Verdict::kFails) << places;
    }
    length = kept + 1e-4;
    Model.CayleyRows(3, 6) += 2 * M_PI;
    EXPECT_EQ(Found("Cognates").verdict, Verdict::kByDesign) << "an angle need not be a whole number of places";
    Model.CayleyRows(3, 6) -= 2 * M_PI;
    for (const int item : kLengths) {
        if (item == 5) continue;
        const Single other = Model.CayleyRows(3, item);
        Model.CayleyRows(3, item) += 0.3e-4;
        EXPECT_EQ(Found("Cognates").verdict, Verdict::kFails) << item << " is not rounded";
        Model.CayleyRows(3, item) = other;
    }
}

TEST_F(Told_Of_Cognates, TheLinkageInHandIsComparedLengthByLength) {
    Take_Linkage(1);
    Run();
    for (const int n : {1, 2, 3}) {
        Model.CognateNumber = n;
        Single* const own[] = {&Model.L1, &Model.L2, &Model.L3, &Model.L4, &Model.Rpa};
        for (const int item : kLengths) *own[item - 1] = Model.Cognates(n, item);
        EXPECT_EQ(Found("Cognates").verdict, Verdict::kGood);
        for (const int item : kLengths) {
            Single& length = *own[item - 1];
            const double rounding = 1000 * 4 * kHalf * Sum(Model.Cognates, n);
            for (const double by : {0.0099, 0.00105, -0.00105}) {
                length += by;
                const Check check = Found("Cognates");
                EXPECT_EQ(check.verdict, Verdict::kFails);
                EXPECT_EQ(check.where, "the linkage in hand");
                EXPECT_NEAR(check.worst, 1000 * std::abs(by), 1e-3);
                EXPECT_NEAR(check.expected / (4 * rounding), 1, 1e-4);
                length = Model.Cognates(n, item);
            }
            for (const double by : {0.00099, -0.0005, 0.00001}) {
                length += by;
                const Check check = Found("Cognates");
                EXPECT_EQ(check.verdict, Verdict::kByDesign);
                EXPECT_EQ(check.where, "the linkage in hand");
                EXPECT_NEAR(check.worst, 1000 * std::abs(by), 1e-3);
                length = Model.Cognates(n, item);
            }
        }
    }
}

TEST_F(Told_Of_Cognates, OfALinkageThatDoesNotTurnRoundAreComparedWhereItCloses) {
    Take_Linkage(1);
    Enter_Linkage(Road::kBoxes, [] {
        Model.L1 = 0.28;
        Model.L2 = 0.16;
        Model.L3 = 0.2;
        Model.L4 = 0.18;
    });
    Run();
    EXPECT_EQ(Found("Cognates").verdict, Verdict::kGood);
}

TEST_F(Told_Of_Cognates, AreFoundAfreshWhereTheyAreDue) {
    Take_Linkage(1);
    Run();
    Model.Cognates(2, 4) *= 1.1;
    Model.CayleyRows(3, 4) *= 1.1;
    Model.CognateNumber = 2;
    Model.CognatesDue = true;
    EXPECT_EQ(Found("Cognates").verdict, Verdict::kGood);
    Model.CognatesDue = false;
    EXPECT_EQ(Found("Cognates").verdict, Verdict::kFails);
}

TEST_F(Told_Of_Cognates, AParallelogramAndACouplerPointOnAJointHaveNone) {
    Take_Linkage(1);
    Run();
    const auto has = [] {
        const std::vector<Check> checks = Checks_Of(Model);
        return std::ranges::find(checks, std::string("Cognates"), &Check::name) != checks.end();
    };
    EXPECT_TRUE(has());
    Model.Parallelogram = true;
    EXPECT_FALSE(has());
    Model.Parallelogram = false;
    Model.Rpa = 0;
    EXPECT_FALSE(has());
}

}  // namespace verlink::test
