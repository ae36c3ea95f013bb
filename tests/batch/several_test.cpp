// Several models in one call: each as if it were alone, in files of its own or in one table.
#include <gtest/gtest.h>

#include <sstream>

#include "batch/batch.h"
#include "batch/options.h"
#include "tests/batch/batch_fixture.h"

namespace verlink::test {

namespace fs = std::filesystem;

namespace {

struct Several : BatchFixture {
    const std::string lever = Write("lever.vlk", ModelText().Content());
    const std::string watt = Write(
        "watt.vlk",
        ModelText().Linkage({"2.5", "1.25", "0.625", "1.25"}, "0.3125", "0").Angles("-60", "100", "20").Content());
    const std::string metric = Write("metric.vlk", ModelText().Set(kUnits, "5").Quote(kTitle, "mm").Content());
    const std::string broken = Write("broken.vlk", "\"SOMETHING\"\r\n\"9.0\"\r\n");

    std::string Refused(const std::vector<std::string>& arguments) const {
        const Outcome outcome = Run(arguments);
        EXPECT_EQ(outcome.status, 2);
        EXPECT_EQ(outcome.out, "");
        return outcome.err.substr(0, outcome.err.find('\n'));
    }
    /// The rows of a table with the model in front of each.
    static std::string In_Front(const std::string& model, const std::string& table, bool head) {
        std::istringstream lines(table);
        std::string all, line;
        std::getline(lines, line);
        if (head) all = "Model," + line + "\n";
        while (std::getline(lines, line)) all += model + "," + line + "\n";
        return all;
    }
};

}  // namespace

TEST_F(Several, AreEachRunAsIfTheyWereAlone) {
    const std::vector<std::string> order[] = {{lever, watt, metric}, {metric, lever, watt}, {watt, metric, lever}};
    for (const auto& models : order) {
        std::vector<std::string> arguments = models;
        for (const char* word : {"--balance", "--csv", "{name}.csv", "--svg", "{name}.svg", "--json", "{name}.json",
                                 "--export-out", "{name}.out", "--save", "saved {name}.vlk"}) {
            const bool path = std::string(word).find('{') != std::string::npos;
            arguments.push_back(path ? Path(word) : word);
        }
        const Outcome outcome = Run(arguments);
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        EXPECT_EQ(outcome.out, "");
        for (const std::string& model : models) {
            const std::string name = fs::path(model).stem();
            SCOPED_TRACE(name);
            const std::pair<const char*, std::string> files[] = {{"--csv", name + ".csv"},
                                                                 {"--svg", name + ".svg"},
                                                                 {"--json", name + ".json"},
                                                                 {"--export-out", name + ".out"},
                                                                 {"--save", "saved " + name + ".vlk"}};
            for (const auto& [option, file] : files) {
                Run({model, "--balance", "--csv", "/dev/null", option, Path("alone")});
                if (std::string(option) == "--csv") Run({model, "--balance", "--csv", Path("alone")});
                EXPECT_EQ(Read(Path(file)), Read(Path("alone"))) << option;
            }
        }
    }
}

TEST_F(Several, PrintOneTableWithTheModelInFront) {
    for (const char* option : {"--classify", "--cognates", "--balance-report", "--dynamics"}) {
        const Outcome outcome = Run({lever, metric, option});
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.out,
                  In_Front(lever, Run({lever, option}).out, true) + In_Front(metric, Run({metric, option}).out, false));
    }
    EXPECT_EQ(Run({lever, metric, "--csv", "-"}).out, Run({lever, metric}).out);
    EXPECT_EQ(CsvTable(Run({lever, watt}).out).Rows(), 37 + 9);
}

TEST_F(Several, ANameWithACommaStaysOneField) {
    const std::string odd = Write("a, \"b\".vlk", ModelText().Content());
    const CsvTable table(Run({odd, lever, "--classify"}).out);
    EXPECT_EQ(table.Text(0, "Model"), odd);
    EXPECT_EQ(table.Text(1, "Model"), lever);
}

TEST_F(Several, TheHeadComesAgainWhereItIsAnother) {
    const Outcome outcome = Run({lever, watt, "--classify", "--csv", "-"});
    std::size_t heads = 0;
    for (std::size_t at = 0; (at = outcome.out.find("Model,", at)) != std::string::npos; ++at) ++heads;
    EXPECT_EQ(heads, 4u);
    EXPECT_TRUE(outcome.out.starts_with("Model,Grashof_Code,LongText,ToggleDegrees\n" + lever +
                                        ",Y,Linkage is Grashof,\nModel,Step,Assembled,"));
}

TEST_F(Several, OneThatFailsIsToldByNameAndTheOthersAreDone) {
    const Outcome outcome = Run({lever, broken, watt, Path("none.vlk"), metric, "--csv", Path("{name}.csv")});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, broken + ":\nThis data file is not compatible with VERLINK. \nverlink-batch: " + broken +
                               " cannot be read\n" + watt + ":\nverlink-batch: " + Run({watt}).err.substr(15) +
                               Path("none.vlk") + ":\nverlink-batch: " + Path("none.vlk") +
                               " cannot be read: File not found (there is no such file)\n");
    for (const std::string& model : {lever, watt, metric})
        EXPECT_EQ(Read(Path(fs::path(model).stem().string() + ".csv")), Run({model}).out);
    EXPECT_FALSE(fs::exists(Path("broken.csv")));
}

TEST_F(Several, TwoThatWouldWriteOneFileAreRefusedBeforeAnythingIsWritten) {
    fs::create_directory(Path("sub"));
    const std::string twin = Write("sub/lever.vlk", ModelText().Content());
    EXPECT_EQ(Refused({lever, watt, "--csv", Path("a.csv")}), "verlink-batch: --csv of " + watt + " and --csv of " +
                                                                  lever + " are one file, " + Path("a.csv") +
                                                                  "; {name} in it stands for the name of each model");
    EXPECT_EQ(Refused({lever, watt, twin, "--csv", Path("{name}.csv")}),
              "verlink-batch: --csv of " + twin + " and --csv of " + lever + " are one file, " + Path("lever.csv"));
    EXPECT_EQ(Refused({lever, watt, "--save", Path("{name}.vlk")}),
              "verlink-batch: --save of " + lever + " and the model " + lever + " are one file, " + lever);
    // Over the input of another.
    const std::string other = Write("watt copy.vlk", ModelText().Content());
    EXPECT_EQ(Refused({watt, other, "--save", Path("{name} copy.vlk")}),
              "verlink-batch: --save of " + watt + " and the model " + other + " are one file, " + other);
    EXPECT_FALSE(fs::exists(Path("a.csv")));
    EXPECT_FALSE(fs::exists(Path("lever.csv")));
    EXPECT_FALSE(fs::exists(Path("watt.csv")));
    EXPECT_EQ(Run({lever, watt, "--csv", "/dev/null", "--svg", "/dev/null"}).status, 0);
}

TEST_F(Several, AFolderThatIsNotThereIsToldOnceBeforeAnythingIsRun) {
    const Outcome outcome = Run({lever, watt, metric, "--csv", Path("out/{name}.csv"), "--svg", Path("{name}.svg")});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, "verlink-batch: " + Path("out/lever.csv") +
                               " cannot be written: Path not found (there is no folder " + Path("out") + ")\n");
    EXPECT_FALSE(fs::exists(Path("lever.svg")));
    const Outcome two = Run({lever, watt, "--svg", Path("{name}.svg"), "--csv", Path("out/{name}.csv")});
    EXPECT_EQ(two.status, 1);
    EXPECT_EQ(two.err, outcome.err);
    EXPECT_FALSE(fs::exists(Path("lever.svg")));
}

TEST_F(Several, OneModelAndAnExampleHaveANameToo) {
    EXPECT_EQ(Run({lever, "--csv", Path("{name} {name}.csv")}).status, 0);
    EXPECT_EQ(Read(Path("lever lever.csv")), Run({lever}).out);
    EXPECT_EQ(Run({"--example", "watts", "--csv", Path("{name}.csv")}).status, 0);
    EXPECT_TRUE(fs::exists(Path("watts.csv")));
}

TEST_F(Several, ImportsGoByNameAsWell) {
    Run({lever, "--export-out", Path("lever.out")});
    Run({metric, "--export-out", Path("metric.out")});
    const Outcome both = Run({lever, metric, "--drive", Path("{name}.out")});
    EXPECT_EQ(both.status, 0);
    EXPECT_EQ(both.out, In_Front(lever, Run({lever, "--drive", Path("lever.out")}).out, true) +
                            In_Front(metric, Run({metric, "--drive", Path("metric.out")}).out, false));
}

TEST_F(Several, ATerminalShowsHowFarTheyAre) {
    const auto told = [&](std::vector<std::string> arguments, Terminal terminal) {
        std::ostringstream out, err;
        Batch_Main(arguments, out, err, terminal);
        return err.str();
    };
    const std::vector<std::string> files{lever, broken, metric, "--csv", Path("{name}.csv")};
    const std::string shown = told(files, {300, true});
    EXPECT_TRUE(shown.starts_with("\r[                              ] 0/3 " + lever + "\x1b[K")) << shown;
    EXPECT_NE(shown.find("\r\x1b[K" + broken + ":\nThis data file"), std::string::npos) << shown;
    EXPECT_TRUE(shown.ends_with("] 2/3 " + metric + "\x1b[K\r\x1b[K")) << shown;
    EXPECT_EQ(told(files, {}).find('\r'), std::string::npos);
    // Not among rows that go to the same terminal, and not for one.
    EXPECT_EQ(told({lever, metric}, {80, true}), "");
    EXPECT_EQ(told({lever, metric, "--csv", "-"}, {80, true}), "");
    EXPECT_NE(told({lever, metric}, {80, false}), "");
    EXPECT_EQ(told({lever, "--csv", Path("a.csv")}, {80, true}), "");
}

}  // namespace verlink::test
