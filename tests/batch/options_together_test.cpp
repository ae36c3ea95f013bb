// Which options of verlink-batch go together, and which of several faults is told.
#include <gtest/gtest.h>

#include "batch/option_rows.h"
#include "batch/options.h"

namespace verlink::test {

namespace {

using Words = std::vector<std::string>;

std::string Fault_Of(const Words& arguments) {
    BatchOptions options;
    std::string fault;
    const bool taken = Parse_Options(arguments, options, fault);
    EXPECT_EQ(taken, fault.empty());
    return fault;
}

Words With(Words first, const Words& more) {
    first.insert(first.end(), more.begin(), more.end());
    return first;
}

}  // namespace

TEST(Options_Together, EachThatTakesOneValueIsGivenOnce) {
    for (const char* option :
         {"--drive", "--torque", "--design", "--save", "--sweep-list", "--merge", "--csv", "--json", "--xlsx", "--svg",
          "--picture", "--motion", "--report", "--dxf", "--export-out", "--export-trq", "--export-pdx"}) {
        EXPECT_EQ(Fault_Of({option, "a", option, "b"}), option + std::string(" is given twice"));
        EXPECT_EQ(Fault_Of({"m", option, ""}), option + std::string(" wants a path"));
    }
    for (const char* option : {"--best", "--samples", "--seed", "--threads", "--convert-units"})
        EXPECT_EQ(Fault_Of({option, "5", option, "5"}), option + std::string(" is given twice"));
}

TEST(Options_Together, ADesignTakesNothingOfARun) {
    const Words design{"--design", "t.vld"};
    const Words others[] = {{"--set", "L2=1"},    {"--drive", "a.sva"},     {"--torque", "a.trq"},
                            {"--frame", "local"}, {"--convert-units", "2"}, {"--fft", "Omega4"},
                            {"--plot", "Omega4"}, {"--dynamics"},           {"--balance"},
                            {"--check"},          {"--classify"},           {"--cognates"},
                            {"--balance-report"}, {"--json", "a"},          {"--xlsx", "a"},
                            {"--picture", "a"},   {"--motion", "a"},        {"--report", "a"},
                            {"--dxf", "a"},       {"--export-out", "a"},    {"--export-trq", "a"},
                            {"--export-pdx", "a"}};
    for (const Words& other : others) EXPECT_EQ(Fault_Of(With(design, other)), other[0] + " does not go with --design");
    EXPECT_EQ(Fault_Of(With(design, {"--csv", "a", "--svg", "b", "--save", "c", "--best", "1"})), "");
    EXPECT_EQ(Fault_Of(With(design, {"--best", "1000"})), "");
    EXPECT_EQ(Fault_Of(With(design, {"--best", "1001"})), "--best wants a whole number from 1 to 1000, not \"1001\"");
    EXPECT_EQ(Fault_Of({"m", "--best", "3", "--convert-units", "2"}), "--best goes with --design");
}

TEST(Options_Together, OfSeveralFaultsTheFirstIsTold) {
    const std::string picture = "--picture wants a name that ends in .svg, .pdf or .png, not \"a.jpg\"";
    EXPECT_EQ(Fault_Of({"m", "--picture", "a.jpg", "--torque", "b"}), picture);
    EXPECT_EQ(Fault_Of({"m", "--picture", "a.jpg", "--drive", "b"}), picture);
    EXPECT_EQ(Fault_Of({"m", "--picture", "svg"}),
              "--picture wants a name that ends in .svg, .pdf or .png, not \"svg\"");
    EXPECT_EQ(Fault_Of({"m", "--plot", "a", "--convert-units", "2"}), "--convert-units goes with --save");
    EXPECT_EQ(Fault_Of({"m", "--drive", "b", "--export-trq", "c"}), "--drive wants an .sva or an .out file, not \"b\"");
    EXPECT_EQ(Fault_Of({"m", "--export-trq", "c", "--torque", "b"}), "--export-trq goes with --dynamics or --balance");
    EXPECT_EQ(Fault_Of({"m", "--torque", "b", "--measure", "closes"}),
              "--torque goes with --dynamics, --balance or --save");
    EXPECT_EQ(Fault_Of({"m", "--fft", "a", "--classify", "--dynamics"}), "--fft where nothing is run goes with --csv");
}

TEST(Options_Together, ATransformAndAPlotGoWithWhatShowsThem) {
    for (const char* result : {"--csv", "--json"})
        EXPECT_EQ(Fault_Of({"m", "--fft", "a", "--classify", result, "t"}), "");
    for (const char* result : {"--svg", "--report"}) EXPECT_EQ(Fault_Of({"m", "--plot", "a", result, "t"}), "");
    EXPECT_EQ(Fault_Of({"m", "--plot", "a", "--picture", "t.svg"}), "");
    EXPECT_EQ(Fault_Of({"m", "--plot", "a", "--csv", "t"}), "--plot goes with --svg, --picture or --report");
}

TEST(Options_Together, AStudyNamesWhatItLacks) {
    const std::string neither = "a study wants --sweep or --tolerance, and a --measure",
                      no = "a study wants a --measure";
    const std::pair<Words, std::string> lacking[] = {
        {{"--sweep", "L2=1:2:3"}, no}, {{"--tolerance", "L2=1"}, no}, {{"--keep", "closes > 0"}, no},
        {{"--summary"}, neither},      {{"--samples", "5"}, neither}, {{"--shard", "1/2"}, neither},
        {{"--threads", "2"}, neither}, {{"--resume"}, neither},       {{"--sensitivity"}, neither}};
    for (const auto& [words, fault] : lacking) EXPECT_EQ(Fault_Of(With({"m"}, words)), fault) << words[0];
    const Words measured{"m", "--measure", "closes"};
    for (const char* shard : {"1/1", "2/2", "007/10"}) EXPECT_EQ(Fault_Of(With(measured, {"--shard", shard})), "");
    for (const char* shard : {"0/1", "1:1", "2/1"})
        EXPECT_EQ(Fault_Of(With(measured, {"--shard", shard})),
                  "--shard wants K/N, K from 1 to N, not \"" + std::string(shard) + "\"; did you mean 1/1?");
    for (const char* shard : {"", "/", "1/", "/1", "1/0", "x/1"})
        EXPECT_EQ(Fault_Of(With(measured, {"--shard", shard})),
                  "--shard wants K/N, K from 1 to N, not \"" + std::string(shard) + "\"");
    EXPECT_EQ(Fault_Of(With(measured, {"--tolerance", "L2=1", "--samples", "9007199254740992", "--seed", "0"})), "");
}

TEST(Options_Together, PartsArePutTogetherByThemselves) {
    const Words merge{"--merge", "o", "a", "b"};
    EXPECT_EQ(Fault_Of(merge), "");
    const Words others[] = {{"--csv", "t"}, {"--svg", "t"}, {"--save", "t"}, {"--summary"}, {"--measure", "closes"}};
    for (const Words& other : others)
        EXPECT_EQ(Fault_Of(With(merge, other)), "--merge goes with parts alone") << other[0];
    EXPECT_EQ(Fault_Of({"--merge", "o", "--example", "watts"}), "--merge goes with parts alone");
    EXPECT_EQ(Fault_Of({"--merge", "o"}), "--merge wants the parts behind it");
}

TEST(Options_Together, ResultsAreMadeInTheirOwnOrderWhateverTheCall) {
    BatchOptions options;
    std::string fault;
    ASSERT_TRUE(Parse_Options({"m", "--dxf", "1", "--csv", "2", "--export-out", "3", "--svg", "4", "--json", "5"},
                              options, fault));
    std::string order;
    for (const WantedResult& result : options.results) order += result.path;
    EXPECT_EQ(order, "25413");
}

TEST(Options_Together, AModelBehindAnotherOfNoNameIsNoModel) {
    EXPECT_EQ(Fault_Of({"--design", "t", "m.vlk"}), "--design stands in place of a model: \"m.vlk\" is one too many");
    EXPECT_EQ(Fault_Of({"m", "--", ""}), "no model is given");
    EXPECT_EQ(Fault_Of({"m", "--", "--"}), "") << "behind two hyphens everything is a model";
}

}  // namespace verlink::test
