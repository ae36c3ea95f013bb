// The command line of verlink-batch: what is taken, and what is refused with which words.
#include "batch/options.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "batch/option_rows.h"

namespace verlink::test {

namespace {

BatchOptions Parsed(const std::vector<std::string>& arguments) {
    BatchOptions options;
    std::string fault;
    EXPECT_TRUE(Parse_Options(arguments, options, fault)) << fault;
    EXPECT_EQ(fault, "");
    return options;
}

/// Where a result goes; "none" when it is not wanted.
std::string Path(const BatchOptions& options, const std::string& option) {
    const std::string* path = options.Result(option);
    return path ? *path : "none";
}

std::string Refused(const std::vector<std::string>& arguments) {
    BatchOptions options;
    std::string fault;
    EXPECT_FALSE(Parse_Options(arguments, options, fault));
    return fault;
}

}  // namespace

TEST(Options, TheModelAloneIsRunToStandardOutput) {
    const BatchOptions options = Parsed({"press.vlk"});
    EXPECT_EQ(options.models, std::vector<std::string>{"press.vlk"});
    EXPECT_TRUE(options.Run_Wanted());
    EXPECT_FALSE(options.Without_Run());
    EXPECT_FALSE(!options.results.empty() || options.save || options.convert_units);
}

TEST(Options, StandInAnyOrder) {
    const BatchOptions options = Parsed({"--svg", "a.svg", "--set", "L2=1.2", "m.vlk", "--csv", "a.csv", "--classify",
                                         "--convert-units", "5", "--save", "b.vlk"});
    EXPECT_EQ(options.models, std::vector<std::string>{"m.vlk"});
    EXPECT_EQ(Path(options, "--csv"), "a.csv");
    EXPECT_EQ(Path(options, "--svg"), "a.svg");
    EXPECT_EQ(options.save, "b.vlk");
    EXPECT_EQ(options.convert_units, 5);
    EXPECT_TRUE(options.classify);
    EXPECT_TRUE(options.Run_Wanted());
}

TEST(Options, AnExampleStandsInPlaceOfTheModel) {
    const BatchOptions options = Parsed({"--cognates", "--example", "watts"});
    EXPECT_TRUE(options.models.empty());
    EXPECT_EQ(options.example, "watts");
    EXPECT_TRUE(options.cognates);
}

TEST(Options, SetIsRepeatedAndKeptInOrder) {
    const BatchOptions options = Parsed({"m", "--set", "CG(3,1)=0.5", "--set", "FigureTitle=a = b", "--set", "L2="});
    ASSERT_EQ(options.sets.size(), 3u);
    EXPECT_EQ(options.sets[0], std::pair(std::string("CG(3,1)"), std::string("0.5")));
    EXPECT_EQ(options.sets[1], std::pair(std::string("FigureTitle"), std::string("a = b")));
    EXPECT_EQ(options.sets[2], std::pair(std::string("L2"), std::string("")));
}

TEST(Options, ClassifyOrSaveAloneWantNoRun) {
    EXPECT_FALSE(Parsed({"m", "--classify"}).Run_Wanted());
    EXPECT_FALSE(Parsed({"m", "--save", "o"}).Run_Wanted());
    EXPECT_FALSE(Parsed({"m", "--cognates"}).Run_Wanted());
    EXPECT_TRUE(Parsed({"m", "--cognates", "--svg", "t"}).Run_Wanted());
    EXPECT_TRUE(Parsed({"m", "--classify", "--csv", "t"}).Run_Wanted());
    EXPECT_TRUE(Parsed({"m", "--save", "o", "--svg", "t"}).Run_Wanted());
}

TEST(Options, HelpAndVersionNeedNoModel) {
    EXPECT_TRUE(Parsed({"--help"}).help);
    EXPECT_TRUE(Parsed({"--version"}).version);
    EXPECT_TRUE(Parsed({"a", "b", "--nonsense", "--help"}).help);
}

TEST(Options, RefusalsNameWhatIsWrong) {
    EXPECT_EQ(Refused({}), "no model is given");
    EXPECT_EQ(Refused({""}), "no model is given");
    EXPECT_EQ(Refused({"a.vlk", ""}), "no model is given");
    EXPECT_EQ(Refused({"a.vlk", "--example", "watts"}),
              "--example stands in place of a model: \"a.vlk\" is one too many");
    EXPECT_EQ(Refused({"--example", "watts", "--example", "cheby"}), "--example is given twice");
    EXPECT_EQ(Refused({"--example"}), "--example wants a value behind it");
    EXPECT_EQ(Refused({"a.vlk", "--colour"}), "there is no option --colour");
    EXPECT_EQ(Refused({"a.vlk", "-c"}), "there is no option -c");
    EXPECT_EQ(Refused({"a.vlk", "--csv"}), "--csv wants a value behind it");
    EXPECT_EQ(Refused({"a.vlk", "--svg"}), "--svg wants a value behind it");
    EXPECT_EQ(Refused({"a.vlk", "--save"}), "--save wants a value behind it");
    EXPECT_EQ(Refused({"a.vlk", "--set"}), "--set wants a value behind it");
    EXPECT_EQ(Refused({"a.vlk", "--csv", ""}), "--csv wants a path");
    EXPECT_EQ(Refused({"a.vlk", "--csv", "x", "--csv", "y"}), "--csv is given twice");
    EXPECT_EQ(Refused({"a.vlk", "--set", "L2"}), "--set wants FIELD=VALUE, not \"L2\"");
    EXPECT_EQ(Refused({"a.vlk", "--set", "=1"}), "--set wants FIELD=VALUE, not \"=1\"");
}

TEST(Options, AValueMayStandBehindAnEqualsSign) {
    const BatchOptions options = Parsed({"--csv=a b.csv", "--set=FigureTitle=a = b", "--set=L2=", "--convert-units=5",
                                         "--save=-", "--frame=local", "--fft=Accel CP:Mag", "m.vlk"});
    EXPECT_EQ(Path(options, "--csv"), "a b.csv");
    ASSERT_EQ(options.sets.size(), 2u);
    EXPECT_EQ(options.sets[0], std::pair(std::string("FigureTitle"), std::string("a = b")));
    EXPECT_EQ(options.sets[1], std::pair(std::string("L2"), std::string("")));
    EXPECT_EQ(options.convert_units, 5);
    EXPECT_EQ(options.save, "-");
    EXPECT_TRUE(options.Local());
    EXPECT_EQ(options.fft->label, "Accel CP");
    EXPECT_EQ(Refused({"--csv=", "m.vlk"}), "--csv wants a path");
    EXPECT_EQ(Refused({"--frame=", "m.vlk"}), "--frame wants global or local, not \"\"");
    EXPECT_EQ(Refused({"--csv=x", "--csv", "y", "m"}), "--csv is given twice");
    EXPECT_EQ(Refused({"m", "--dynamics=no"}), "--dynamics takes no value");
}

TEST(Options, WhatStandsBehindAnOptionIsItsValueWhateverItLooksLike) {
    const BatchOptions options =
        Parsed({"m", "--set", "-L2=-1", "--csv", "--svg", "--svg", "-", "--save", "[a,b]", "--drive", "--x=.out"});
    EXPECT_EQ(options.sets[0], std::pair(std::string("-L2"), std::string("-1")));
    EXPECT_EQ(Path(options, "--csv"), "--svg");
    EXPECT_EQ(Path(options, "--svg"), "-");
    EXPECT_EQ(options.save, "[a,b]");
    EXPECT_EQ(options.drive, "--x=.out");
    EXPECT_EQ(Path(Parsed({"m", "--csv", "--save="}), "--csv"), "--save=");
}

TEST(Options, BehindTwoHyphensStandsTheModel) {
    EXPECT_EQ(Parsed({"--csv", "t", "--", "--odd.vlk"}).models, std::vector<std::string>{"--odd.vlk"});
    EXPECT_EQ(Parsed({"--", "--csv="}).models, std::vector<std::string>{"--csv="});
    EXPECT_EQ(Parsed({"[a]"}).models, std::vector<std::string>{"[a]"});
    EXPECT_EQ(Parsed({"-"}).models, std::vector<std::string>{"-"});
    EXPECT_EQ(Refused({"--"}), "no model is given");
    EXPECT_EQ(Refused({"-1"}), "there is no option -1");
}

TEST(Options, AWrongOptionNamesTheNearestRightOne) {
    const std::pair<const char*, const char*> meant[] = {{"--cvs", "--csv"},
                                                         {"-csv", "--csv"},
                                                         {"--cvs=table.csv", "--csv"},
                                                         {"--clasify", "--classify"},
                                                         {"--dynamic", "--dynamics"},
                                                         {"--frames", "--frame"},
                                                         {"--conv", "--convert-units"},
                                                         {"--trq", "--export-trq"},
                                                         {"--ballance-raport", "--balance-report"},
                                                         {"--exmaple", "--example"},
                                                         {"--CSV", nullptr},
                                                         {"--colour", nullptr},
                                                         {"--nonsense", nullptr}};
    for (const auto& [wrong, right] : meant) {
        const std::string name = std::string(wrong).substr(0, std::string(wrong).find('='));
        EXPECT_EQ(Refused({"m", wrong}),
                  "there is no option " + name + (right ? "; did you mean " + std::string(right) + "?" : ""));
    }
    EXPECT_EQ(Refused({"m", "--export"}),
              "there is no option --export; did you mean --export-out, --export-trq or --export-pdx?");
}

TEST(Options, TheFirstFaultIsTheOneThatIsTold) {
    EXPECT_EQ(Refused({"m", "--frame", "up", "--convert-units", "9"}), "--frame wants global or local, not \"up\"");
    EXPECT_EQ(Refused({"m", "--convert-units", "9", "--frame", "up"}),
              "--convert-units wants a unit system from 1 to 5, not \"9\"");
}

TEST(Options, TheHelpHasEveryOptionOnceInAGroup) {
    const std::string help = Batch_Help();
    for (const char* group : {"Model:", "Forces:", "Results of a run:", "Functions and frames:", "Saving:"})
        EXPECT_NE(help.find("\n\n" + std::string(group) + "\n  --"), std::string::npos) << group;
    int options = 0;
    for (const OptionRow& row : Option_Rows()) {
        const std::string head = "\n  " + row.name + (row.value.empty() ? "" : " " + row.value) + " ";
        const auto at = help.find(head);
        EXPECT_NE(at, std::string::npos) << head;
        EXPECT_EQ(help.find(head, at + 1), std::string::npos) << head;
        ++options;
    }
    EXPECT_GT(options, 18);
    std::size_t longest = 0, from = 0;
    for (std::size_t end; (end = help.find('\n', from)) != std::string::npos; from = end + 1)
        longest = std::max(longest, end - from);
    EXPECT_LE(longest, 90u);
    EXPECT_TRUE(help.starts_with(Batch_Usage()));
}

TEST(Options, TheHelpEndsWithWhatHoldsForAllOfThem) {
    const std::string help = Batch_Help();
    const std::size_t last = help.find("\n  --version ");
    for (const char* words : {"A FILE of - is standard output.", "In every FILE {name} stands for", "A FUNCTION is",
                              "The table has a header line", "Of a transform, harmonic 0 is the mean;",
                              "Exit status: 0 done, 1 when", " 2 for wrong usage, 3 when"}) {
        const std::size_t at = help.find(words);
        EXPECT_NE(at, std::string::npos) << words;
        EXPECT_GT(at, last) << words;
    }
    EXPECT_NE(help.find("Messages go to standard error.", help.find("Exit status")), std::string::npos);
}

TEST(Options, AFunctionIsALabelAndPerhapsAComponent) {
    const BatchOptions options = Parsed({"m", "--fft", "Accel CP:Mag", "--frame", "local", "--plot", "w4 / w2",
                                         "--plot", "Veloc I 2,3:Y", "--svg", "a.svg"});
    EXPECT_TRUE(options.Local());
    EXPECT_EQ(options.fft->label, "Accel CP");
    EXPECT_EQ(options.fft->component, "Mag");
    ASSERT_EQ(options.plots.size(), 2u);
    EXPECT_EQ(options.plots[0].label, "w4 / w2");
    EXPECT_EQ(options.plots[0].component, "X");
    EXPECT_EQ(options.plots[1].label, "Veloc I 2,3");
    EXPECT_EQ(options.plots[1].component, "Y");
    EXPECT_FALSE(Parsed({"m"}).Local());
    EXPECT_FALSE(Parsed({"m", "--frame", "global"}).Local());
}

TEST(Options, RefusalsOfFramesAndFunctionsNameWhatIsWrong) {
    EXPECT_EQ(Refused({"m", "--frame"}), "--frame wants a value behind it");
    EXPECT_EQ(Refused({"m", "--frame", "Local"}), "--frame wants global or local, not \"Local\"");
    EXPECT_EQ(Refused({"m", "--frame", "local", "--frame", "local"}), "--frame is given twice");
    EXPECT_EQ(Refused({"m", "--fft"}), "--fft wants a value behind it");
    EXPECT_EQ(Refused({"m", "--fft", ""}), "--fft wants LABEL or LABEL:COMPONENT, not \"\"");
    EXPECT_EQ(Refused({"m", "--fft", ":X"}), "--fft wants LABEL or LABEL:COMPONENT, not \":X\"");
    EXPECT_EQ(Refused({"m", "--fft", "Omega4:"}), "a component is X, Y, Mag or Ang, not \"\"");
    EXPECT_EQ(Refused({"m", "--fft", "Omega4:Z"}), "a component is X, Y, Mag or Ang, not \"Z\"");
    EXPECT_EQ(Refused({"m", "--fft", "Omega4", "--fft", "Omega3"}), "--fft is given twice");
    EXPECT_EQ(Refused({"m", "--fft", "Omega4", "--save", "o"}), "--fft where nothing is run goes with --csv");
    EXPECT_EQ(Refused({"m", "--fft", "Omega4", "--classify"}), "--fft where nothing is run goes with --csv");
    EXPECT_EQ(Refused({"m", "--plot", "Omega4"}), "--plot goes with --svg, --picture or --report");
    EXPECT_TRUE(Parsed({"m", "--plot", "Omega4", "--report", "a.pdf"}).plots.size() == 1);
    EXPECT_EQ(Refused({"m", "--svg", "s", "--plot", "a", "--plot", "b", "--plot", "c", "--plot", "d", "--plot", "e"}),
              "--plot is given more than four times");
}

TEST(Options, ForcesAndBalanceWantARun) {
    EXPECT_FALSE(Parsed({"m"}).Forces_Wanted());
    EXPECT_TRUE(Parsed({"m", "--dynamics"}).dynamics);
    EXPECT_TRUE(Parsed({"m", "--balance"}).Forces_Wanted());
    EXPECT_TRUE(Parsed({"m", "--balance-report"}).balance_report);
    EXPECT_FALSE(Parsed({"m", "--balance-report"}).Run_Wanted());
    for (const char* option : {"--dynamics", "--balance"})
        for (const std::vector<std::string>& beside :
             {std::vector<std::string>{"--classify"}, {"--balance-report"}, {"--save", "o"}}) {
            std::vector<std::string> arguments{"m", option};
            arguments.insert(arguments.end(), beside.begin(), beside.end());
            EXPECT_EQ(Refused(arguments),
                      "--dynamics or --balance where nothing is run goes with --csv, --svg or an export");
            arguments.insert(arguments.end(), {"--csv", "t"});
            EXPECT_TRUE(Parsed(arguments).Forces_Wanted());
        }
}

TEST(Options, ImportsAndExportsGoWithWhatUsesThem) {
    const BatchOptions options = Parsed({"m", "--drive", "a.sva", "--torque", "b.trq", "--dynamics", "--export-out",
                                         "c", "--export-trq", "d", "--export-pdx", "e"});
    EXPECT_EQ(options.drive, "a.sva");
    EXPECT_EQ(options.torque, "b.trq");
    EXPECT_EQ(Path(options, "--export-out"), "c");
    EXPECT_EQ(Path(options, "--export-trq"), "d");
    EXPECT_EQ(Path(options, "--export-pdx"), "e");
    EXPECT_TRUE(Parsed({"m", "--classify", "--export-out", "c"}).Run_Wanted());
    EXPECT_FALSE(Parsed({"m", "--save", "o", "--drive", "a.OUT", "--torque", "b"}).Run_Wanted());
    EXPECT_TRUE(Parsed({"m", "--save", "o", "--dynamics", "--export-trq", "d"}).Forces_Wanted());
    for (const char* bad : {"a.vlk", "sva", "a.sva.txt", "a.out~"})
        EXPECT_EQ(Refused({"m", "--drive", bad}),
                  "--drive wants an .sva or an .out file, not \"" + std::string(bad) + "\"");
    EXPECT_EQ(Refused({"m", "--export-trq", "d"}), "--export-trq goes with --dynamics or --balance");
    EXPECT_EQ(Refused({"m", "--torque", "b"}), "--torque goes with --dynamics, --balance or --save");
    for (const char* option : {"--drive", "--torque", "--export-out", "--export-trq", "--export-pdx"}) {
        EXPECT_EQ(Refused({"m", option}), std::string(option) + " wants a value behind it");
        EXPECT_EQ(Refused({"m", option, ""}), std::string(option) + " wants a path");
        EXPECT_EQ(Refused({"m", option, "x", option, "y"}), std::string(option) + " is given twice");
    }
}

TEST(Options, WhatIsTakenHasNoFault) {
    const std::vector<std::string> paths{"--csv", "--svg", "--save", "--drive", "--torque", "--design"};
    std::size_t taken = 0;
    for (const OptionRow& row : Option_Rows()) {
        if (std::ranges::find(paths, row.name) == paths.end()) continue;
        BatchOptions options;
        std::string fault;
        EXPECT_TRUE(row.take("a", options, fault)) << row.name;
        EXPECT_EQ(fault, "") << row.name;
        EXPECT_FALSE(row.take("b", options, fault)) << row.name;
        EXPECT_EQ(fault, row.name + " is given twice");
        ++taken;
    }
    EXPECT_EQ(taken, paths.size());
}

TEST(Options, EachJobHasItsModelAlone) {
    const std::vector<BatchOptions> jobs = Jobs_Of(Parsed({"in/a.vlk", "b.vlk", "--csv", "{name}/{name}.csv"}));
    ASSERT_EQ(jobs.size(), 2U);
    EXPECT_EQ(jobs[0].model, "in/a.vlk");
    EXPECT_EQ(jobs[1].model, "b.vlk");
    for (const BatchOptions& job : jobs) EXPECT_TRUE(job.models.empty());
    EXPECT_EQ(Path(jobs[0], "--csv"), "a/a.csv");
    EXPECT_EQ(Path(jobs[1], "--csv"), "b/b.csv");
}

TEST(Options, ConvertingGoesWithSavingAndASystemFromOneToFive) {
    EXPECT_EQ(Refused({"a.vlk", "--convert-units", "3"}), "--convert-units goes with --save");
    for (const char* bad : {"0", "6", "-1", "1.5", "", "12", "x"})
        EXPECT_EQ(Refused({"a.vlk", "--save", "o", "--convert-units", bad}),
                  "--convert-units wants a unit system from 1 to 5, not \"" + std::string(bad) + "\"");
    EXPECT_EQ(Refused({"a.vlk", "--save", "o", "--convert-units", "1", "--convert-units", "2"}),
              "--convert-units is given twice");
    EXPECT_EQ(Refused({"a.vlk", "--save", "o", "--convert-units"}), "--convert-units wants a value behind it");
    for (int units = 1; units <= 5; ++units)
        EXPECT_EQ(Parsed({"a.vlk", "--save", "o", "--convert-units", std::to_string(units)}).convert_units, units);
}

}  // namespace verlink::test
