// Tables as JSON: the same numbers as in the table of values between commas, with units and gaps.
#include "batch/json.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <nlohmann/json.hpp>

#include "tests/batch/batch_fixture.h"

namespace verlink::test {

namespace {

using Tree = nlohmann::json;

struct Json_Table : BatchFixture {
    static Tree Column_Of(const Tree& tree, const std::string& name) {
        for (const Tree& column : tree.at("columns"))
            if (column.at("name") == name) return column;
        ADD_FAILURE() << "no column " << name;
        return {};
    }
    static std::string Unit(const Tree& tree, const std::string& name) {
        const Tree unit = Column_Of(tree, name).at("unit");
        return unit.is_null() ? "null" : unit.get<std::string>();
    }
    Tree Of(const ModelText& model, std::vector<std::string> options = {}) const {
        options.insert(options.end(), {"--json", "-"});
        const Outcome outcome = Run(model, options);
        return Tree::parse(outcome.out);
    }
};

}  // namespace

TEST(Json, IsOneObjectWithNullForGaps) {
    EXPECT_EQ(Json({{"model", "a \"b\""}}, {{"Step", "", {0, 1}},
                                            {"Assembled", "", {1, 0}},
                                            {"Time", "sec", {0, 0.1}},
                                            {"x", "in", {-1.5, 1e-12}},
                                            {"y", "in", {0.1, 2}, true}}),
              "{\"model\":\"a \\\"b\\\"\",\"rows\":2,\"columns\":["
              "{\"name\":\"Step\",\"unit\":null,\"values\":[0,1]},"
              "{\"name\":\"Assembled\",\"unit\":null,\"values\":[1,0]},"
              "{\"name\":\"Time\",\"unit\":\"sec\",\"values\":[0.0,0.1]},"
              "{\"name\":\"x\",\"unit\":\"in\",\"values\":[-1.5,1e-12]},"
              "{\"name\":\"y\",\"unit\":\"in\",\"values\":[0.1,null]}]}\n");
}

TEST(Json, TakesBytesThatAreNoText) {
    EXPECT_EQ(Json({{"title", "a\xFF"}}, {}), "{\"title\":\"a\xEF\xBF\xBD\",\"rows\":0,\"columns\":[]}\n");
}

TEST_F(Json_Table, HasTheNumbersOfTheOtherTableToTheLastBit) {
    ModelText model;
    model.Angles("0", "360", "2.5");
    const CsvTable table = Run(model, {"--balance", "--csv", "-"}).Table();
    const Tree tree = Of(model, {"--balance"});
    ASSERT_EQ(tree.at("rows"), table.Rows());
    ASSERT_EQ(tree.at("columns").size(), table.Header().size());
    for (std::size_t at = 0; at < table.Header().size(); ++at) {
        const Tree& column = tree.at("columns")[at];
        EXPECT_EQ(column.at("name"), table.Header()[at]);
        for (int row = 0; row < table.Rows(); ++row)
            EXPECT_EQ(column.at("values")[static_cast<std::size_t>(row)].get<float>(),
                      static_cast<float>(table.At(row, table.Header()[at])))
                << table.Header()[at] << " in row " << row;
    }
}

TEST_F(Json_Table, TellsWhatItIsOf) {
    const Tree tree = Of(ModelText(), {"--frame", "local"});
    EXPECT_EQ(tree.at("program"), "verlink-batch 9.0");
    EXPECT_EQ(tree.at("model"), "model");
    EXPECT_EQ(tree.at("title"), "A lever");
    EXPECT_EQ(tree.at("frame"), "local");
    EXPECT_EQ(Tree::parse(Run({"--example", "watts", "--json", "-"}).out).at("model"), "watts");
}

TEST_F(Json_Table, EachColumnHasItsUnit) {
    ModelText model;
    model.Linkage({"0.2667", "0.1115", "0.25", "0.25"}, "0.1697", "-92.66");
    const std::pair<const char*, std::vector<const char*>> systems[] = {
        {"1", {"in", "in", "in/sec", "lb", "lb-in"}}, {"2", {"ft", "ft", "ft/sec", "lb", "lb-ft"}},
        {"3", {"m", "m", "m/sec", "N", "N-m"}},       {"4", {"cm", "m", "cm/sec", "N", "N- m"}},
        {"5", {"mm", "m", "mm/sec", "N", "N- m"}},
    };
    for (const auto& [units, expected] : systems) {
        SCOPED_TRACE(units);
        const Tree tree = Of(model.Set(kUnits, units), {"--balance"});
        EXPECT_EQ(Unit(tree, "Coupler Pt X"), expected[0]);
        EXPECT_EQ(Unit(tree, "Fixed Centrode Y"), expected[1]);
        EXPECT_EQ(Unit(tree, "Veloc CP Mag"), expected[2]);
        EXPECT_EQ(Unit(tree, "Force 12 X"), expected[3]);
        for (const char* torque : {"Torque 12", "M Shaking", "MShk Balcd", "Flywl Torque"})
            EXPECT_EQ(Unit(tree, torque), expected[4]) << torque;
        for (const char* angle : {"Theta2", "Trans Ang", "Coupler Pt Ang", "Veloc CP Ang", "Force 12 Ang"})
            EXPECT_EQ(Unit(tree, angle), "degrees") << angle;
        EXPECT_EQ(Unit(tree, "Omega4"), "rad/sec");
        EXPECT_EQ(Unit(tree, "Alpha4"), "rad/sec^2");
        EXPECT_EQ(Unit(tree, "T4 / T2"), "ratio");
        EXPECT_EQ(Unit(tree, "Step"), "null");
        EXPECT_EQ(Unit(tree, "Assembled"), "null");
    }
}

TEST_F(Json_Table, PositionsThatDoNotCloseAreGaps) {
    ModelText model;
    model.Linkage({"2.5", "1.25", "0.625", "1.25"}, "0.3125", "0").Angles("-60", "100", "20");
    const Tree tree = Of(model);
    const Tree closed = Column_Of(tree, "Assembled").at("values");
    int gaps = 0;
    for (const Tree& column : tree.at("columns")) {
        const std::string name = column.at("name");
        const bool always = name == "Step" || name == "Assembled";
        for (std::size_t row = 0; row < closed.size(); ++row) {
            EXPECT_EQ(column.at("values")[row].is_null(), !always && closed[row] == 0) << name << " in row " << row;
            gaps += closed[row] == 0 ? 1 : 0;
        }
    }
    EXPECT_GT(gaps, 0);
}

TEST_F(Json_Table, TimesOfPositionsThatDoNotCloseStandThere) {
    ModelText model;
    model.Linkage({"2.5", "1.25", "0.625", "1.25"}, "0.3125", "0").Times("0", "2", "0.5");
    const Tree tree = Of(model);
    EXPECT_EQ(Unit(tree, "Time"), "sec");
    EXPECT_EQ(Column_Of(tree, "Time").at("values"), Tree({0.0, 0.5, 1.0, 1.5, 2.0}));
    const Tree closed = Column_Of(tree, "Assembled").at("values");
    EXPECT_EQ(std::count(closed.begin(), closed.end(), 0), 4);
}

TEST_F(Json_Table, HoldsATransform) {
    const CsvTable table = Run(ModelText(), {"--fft", "Veloc CP:Mag"}).Table();
    const Tree tree = Of(ModelText(), {"--fft", "Veloc CP:Mag"});
    EXPECT_EQ(tree.at("transformed"), "Veloc CP Mag");
    EXPECT_EQ(Unit(tree, "Mag"), "in/sec");
    EXPECT_EQ(Unit(tree, "Phase"), "degrees");
    EXPECT_EQ(Unit(tree, "Harmonic"), "null");
    const Tree values = Column_Of(tree, "Real").at("values");
    ASSERT_EQ(values.size(), static_cast<std::size_t>(table.Rows()));
    for (int row = 0; row < table.Rows(); ++row)
        EXPECT_EQ(values[static_cast<std::size_t>(row)].get<float>(), static_cast<float>(table.At(row, "Real")));
    EXPECT_EQ(Unit(Of(ModelText(), {"--fft", "Veloc CP:Ang"}), "Mag"), "degrees");
    EXPECT_EQ(Of(ModelText(), {"--fft", "Omega4"}).at("transformed"), "Omega4");
}

TEST_F(Json_Table, StandsInPlaceOfThePrintedTableOrBesideItsFile) {
    const Outcome alone = Run(ModelText(), {"--json", Path("a.json")});
    EXPECT_EQ(alone.status, 0);
    EXPECT_EQ(alone.out, "");
    const Outcome beside = Run(ModelText(), {"--json", Path("b.json"), "--csv", Path("b.csv")});
    EXPECT_EQ(beside.out, "");
    EXPECT_EQ(Read(Path("a.json")), Read(Path("b.json")));
    EXPECT_EQ(Read(Path("b.csv")), Run(ModelText()).out);
    EXPECT_EQ(Run(ModelText().Set(kCalctype, "1"), {"--fft", "Omega4", "--json", "-"}).err,
              "verlink-batch: one position has no transform\n");
}

TEST_F(Json_Table, IsReadByPython) {
    const std::string path = Write(ModelText().Quote(kTitle, "T\xC3\xBCr \\ \xFF"));
    ASSERT_EQ(Run({path, "--json", Path("a.json")}).status, 0);
    const std::string read = "python3 -c \"import json; t = json.load(open(\\\"" + Path("a.json") +
                             "\\\")); print(t[\\\"rows\\\"], len(t[\\\"columns\\\"]))\" > " + Path("told");
    ASSERT_EQ(std::system(read.c_str()), 0);
    EXPECT_EQ(Read(Path("told")), "37 " + std::to_string(Run({path}).Table().Header().size()) + "\n");
}

}  // namespace verlink::test
