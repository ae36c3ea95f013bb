// What stands around the chapters: whose report it is, what a chapter wants, its progress, drawing, names and paper.
#include <cmath>
#include <cstdlib>
#include <map>
#include <regex>

#include "core/kept_record.h"
#include "core/results.h"
#include "output/graph_svg.h"
#include "report/setter.h"
#include "report/svg_picture.h"
#include "tests/report/whole_chapters.h"

namespace verlink::test {

TEST_F(Whole_Chapters, TheBlockAndTheFootSayWhoseItIs) {
    auto& m = Model;
    m.RevNumber = "9.9";
    const auto made = [](const std::string& when) {
        return *Make_Report(Model, {{}, {}, when}, [](double) { return true; });
    };
    m.FigureTitle = m.ModelName = m.UserName = m.DateStr = "";
    m.DesignNumber = 7;
    Report report = made("");
    EXPECT_EQ(report.title, "Linkage");
    EXPECT_EQ(report.foot, "Verlink 9.9");
    EXPECT_EQ(Lines_Of({report.block}), (Lines{"Design No. | 7", "Program | Verlink 9.9"}));
    m.ModelName = "press";
    m.UserName = "Ada";
    m.DateStr = "1/2/2020";
    m.TimeStr = "10:11";
    report = made("today");
    EXPECT_EQ(report.title, "press");
    EXPECT_EQ(report.foot, "press   Verlink 9.9   today");
    EXPECT_EQ(Lines_Of({report.block}),
              (Lines{"Name | press", "Design No. | 7", "User | Ada", "Date of the model | 1/2/2020 at 10:11",
                     "Report made | today", "Program | Verlink 9.9"}));
    EXPECT_EQ(report.block.numbers, 0);
    m.FigureTitle = "Title";
    EXPECT_EQ(made("").title, "Title");
}

TEST_F(Whole_Chapters, ProgressIsToldChapterByChapter) {
    std::vector<double> told;
    Make_Report(Model, {{}, {}, ""}, [&](double done) {
        told.push_back(done);
        return true;
    });
    ASSERT_EQ(told.size(), 10U);
    for (std::size_t i = 0; i < told.size(); ++i) EXPECT_NEAR(told[i], 0.1 * double(i), 1e-12);
}

TEST_F(Whole_Chapters, EachChapterSaysWhatItWants) {
    const std::string run = "Calculate the linkage on the input screen first.";
    const std::string forces = "Solve the forces on the dynamics screen first.";
    const std::string no_balance = "Balance the linkage on the balancing screen first.";
    const std::string synthesis = "The lengths of this linkage do not come from a synthesis.";
    const auto missing = [] {
        Lines words;
        for (const Chapter chapter : kChapters) words.push_back(Missing_For(chapter, Model));
        return words;
    };
    Model.Synthesized = false;
    Model.Parallelogram = false;
    EXPECT_EQ(missing(), (Lines{"", "", "", "", forces, no_balance, no_balance, synthesis, "", ""}));
    Model.Parallelogram = true;
    EXPECT_EQ(missing()[8], "A parallelogram has no use for cognates.");
    Run_Dropped();
    EXPECT_EQ(missing(), (Lines{"", "", run, run, run, run, run, synthesis, run, run}));
    Make_The_Press();
    Model.Synthesized = true;
    EXPECT_EQ(missing(), Lines(10, ""));
    Lines names;
    for (const Chapter chapter : kChapters) names.emplace_back(Name_Of(chapter));
    EXPECT_EQ(names, (Lines{"model", "class", "drawing", "plots", "forces", "balance", "flywheel", "synthesis",
                            "cognates", "checks"}));
}

TEST_F(Whole_Chapters, UsualPlotsAreThoseThatTheRunHas) {
    const auto words = [] {
        Lines all;
        for (const Output_Function& function : Usual_Plots(Model)) {
            all.push_back(function.variable + " " + function.component);
            EXPECT_FALSE(function.local);
        }
        return all;
    };
    EXPECT_EQ(words(), (Lines{"Coupler Pt Y", "Veloc CP Mag", "Accel CP Mag", "Trans Ang "}));
    Make_The_Press();
    EXPECT_EQ(words(), (Lines{"Coupler Pt Y", "Veloc CP Mag", "Accel CP Mag", "Trans Ang ", "Torque 12 "}));
    const std::vector<Output_Function> needs{
        {"F Shk Balcd", "X", false}, {"F Shaking", "X", false}, {"Omega3", "", false}};
    EXPECT_EQ(report::There(Model, needs).size(), 3U);
    Balance_Dropped();
    ASSERT_EQ(report::There(Model, needs).size(), 2U);
    EXPECT_EQ(report::There(Model, needs)[0].variable, "F Shaking");
    EXPECT_EQ(report::There(Model, needs)[1].variable, "Omega3");
    Run_Dropped();
    EXPECT_TRUE(words().empty());
}

TEST_F(Whole_Chapters, MillimetresOfEachSystem) {
    const double millimetres[] = {25.4, 304.8, 1000, 10, 1};
    for (int units = 1; units <= 5; ++units) {
        Use_Units(units);
        EXPECT_EQ(report::Millimetres(Model), millimetres[units - 1]);
    }
}

TEST_F(Whole_Chapters, TheDrawingNamesItsAngleAndStandsAtItsScale) {
    Make_The_Press();
    By_Angle(20.126, 80.126, 10);
    const auto picture = [] { return report::Drawing_Of(Model); };
    EXPECT_TRUE(picture().caption.ends_with(". The linkage at Theta2 = 20.13 deg, with its coupler curve."));
    for (const int step : {0, 1, 2}) Model.RunTable.Assembled(step) = false;
    EXPECT_TRUE(picture().caption.ends_with(" at Theta2 = 50.13 deg, with its coupler curve."));
    for (int step = 0; step <= Model.NSteps; ++step) Model.RunTable.Assembled(step) = false;
    Model.RunTable.Theta(Model.NSteps, 0) = 11;
    Model.RunTable.Theta(Model.NSteps + 1, 0) = 22;
    EXPECT_TRUE(picture().caption.ends_with(" at Theta2 = 11 deg, with its coupler curve."));
}

TEST_F(Whole_Chapters, TheDrawingIsTheSameWhateverTheAnimationShowsAndNamesItsPins) {
    Make_The_Press();
    const auto drawn = [] {
        const Kept_Record kept(Model);
        return report::Drawing_Of(Model).svg;
    };
    Model.HideLinksFlag = Model.TraceFlag = Model.ShowCouplerLinesFlag = Model.ShowCentrodesFlag = "N";
    Model.ShowCouplerFlag = "Y";
    Model.ZoomFactor = 1;
    const std::string plain = drawn();
    for (std::string* flag :
         {&Model.HideLinksFlag, &Model.TraceFlag, &Model.ShowCouplerLinesFlag, &Model.ShowCentrodesFlag}) {
        *flag = "Y";
        EXPECT_EQ(drawn(), plain);
        *flag = "N";
    }
    Model.ShowCouplerFlag = "N";
    Model.ZoomFactor = 2.5;
    EXPECT_EQ(drawn(), plain);
    Lines names;
    const std::regex text("<text[^>]*>([^<]*)</text>");
    for (std::sregex_iterator at(plain.begin(), plain.end(), text), end; at != end; ++at) names.push_back((*at)[1]);
    std::ranges::sort(names);
    EXPECT_EQ(names, (Lines{"A", "B", "O2", "O4", "P"}));
}

TEST_F(Whole_Chapters, TheDrawingFillsItsPictureAndItsNamesStandAtTheirPins) {
    Make_The_Press();
    const Report_Picture picture = report::Drawing_Of(Model);
    const double side = std::lround(picture.wide / 25.4 * 96);
    struct Spot {
        double x, y;
    };
    const auto found = [&](const char* form) {
        std::vector<Spot> spots;
        const std::regex pattern(form);
        for (std::sregex_iterator at(picture.svg.begin(), picture.svg.end(), pattern), end; at != end; ++at)
            spots.push_back({std::stod((*at)[1]), std::stod((*at)[2])});
        return spots;
    };
    // The coupler curve is seen whole, and takes a good part of the picture.
    double left = side, right = 0;
    std::smatch curve;
    ASSERT_TRUE(std::regex_search(picture.svg, curve, std::regex("<path stroke=\"#00ff00\" d=\"([^\"]*)\"")));
    const std::string path = curve[1];
    const std::regex corner("[ML]([-0-9.]+) ([-0-9.]+)");
    for (std::sregex_iterator at(path.begin(), path.end(), corner), end; at != end; ++at) {
        left = std::min({left, std::stod((*at)[1]), std::stod((*at)[2])});
        right = std::max({right, std::stod((*at)[1]), std::stod((*at)[2])});
    }
    EXPECT_GT(left, 0.01 * side);
    EXPECT_LT(right, 0.99 * side);
    EXPECT_GT(right - left, 0.3 * side);
    const auto pins = found("<circle cx=\"([-0-9.]+)\" cy=\"([-0-9.]+)\"");
    const auto names = found("<text x=\"([-0-9.]+)\" y=\"([-0-9.]+)\"");
    ASSERT_EQ(names.size(), 5U);
    for (const Spot& name : names) {
        double nearest = side;
        for (const Spot& pin : pins) nearest = std::min(nearest, std::hypot(name.x - pin.x, name.y - pin.y));
        EXPECT_LT(nearest, 40) << name.x << " " << name.y;
    }
}

TEST_F(Whole_Chapters, PicturesHaveTheColorsOfTheProgramWhateverTheRecordHas) {
    Make_The_Press();
    Model.ColorGreen = Model.ColorMagenta = Model.ColorBlue = 0x123456;
    Model.Synthesized = true;
    const auto only = [](Chapter chapter) {
        return *Make_Report(Model, {{chapter}, {}, ""}, [](double) { return true; });
    };
    const auto synthesis = only(Chapter::kSynthesis);
    const auto& diagram = std::get<Report_Picture>(synthesis.chapters.front().pieces.back());
    for (const char* color : {"#ff00ff", "#0000ff"}) EXPECT_NE(diagram.svg.find(color), std::string::npos) << color;
    const auto report = only(Chapter::kDrawing);
    const auto& drawing = std::get<Report_Picture>(Chapter_Of(report, Chapter::kDrawing)->pieces.front());
    for (const char* color : {"#00ff00", "#ff00ff", "#0000ff"})
        EXPECT_NE(drawing.svg.find(color), std::string::npos) << color;
    EXPECT_EQ(Model.ColorGreen, 0x123456) << "looking changes nothing";
}

TEST_F(Whole_Chapters, TheDiagramOfASynthesisHasItsPositions) {
    Make_The_Press();
    Model.Synthesized = true;
    const auto named = [](int positions, const char* name) {
        Model.SynPositions = positions;
        const auto report = Made();
        const auto& diagram = std::get<Report_Picture>(Chapter_Of(report, Chapter::kSynthesis)->pieces.back());
        return diagram.svg.find(std::string(">") + name + "</text>") != std::string::npos;
    };
    for (const int positions : {1, 2, 3}) {
        EXPECT_TRUE(named(positions, "Beta2")) << positions;
        EXPECT_EQ(named(positions, "Beta3"), positions > 1);
        EXPECT_FALSE(named(positions, "Beta4"));
    }
}

TEST_F(Whole_Chapters, APlotIsAGraphOfItsRunWithLinesAtItsLabelsBothWays) {
    Make_The_Press();
    By_Angle(0, 90, 5);
    struct Sheet : platform::Screen {
        Sheet() : Screen("Own_Sheet") {}
        platform::Graph graph{*this, "grf_Own"};
    } sheet;
    platform::Graph& graph = sheet.graph;
    graph.SetNumPoints(19);
    for (int step = 0; step <= 18; ++step) {
        graph.ThisPoint = step + 1;
        graph.SetGraphData(Model.RunTable.Omega(step, 1));
        graph.SetLabelText(std::to_string(5 * step) + ".");
    }
    graph.GridStyle = 3;
    graph.LabelEvery = graph.TickEvery = 6;
    graph.BottomTitle = "Crank Angle (Deg)";
    EXPECT_EQ(report::Plot_Of(Model, {"Omega3", "", false}).svg,
              Graph_Svg(graph, int(1.45 * 165 / 25.4 * 96), int(1.45 * 52 / 25.4 * 96)));
}

TEST_F(Whole_Chapters, PlotsHaveTheirStationsUnderThem) {
    Make_The_Press();
    By_Angle(0, 90, 5);
    const auto has = [](const char* words) {
        return report::Plot_Of(Model, {"Omega3", "", false}).svg.find(std::string(">") + words + "</text>") !=
               std::string::npos;
    };
    EXPECT_TRUE(has("Crank Angle (Deg)"));
    Model.Omega2Input = 2;
    By_Time(0, 3, 0.125);
    EXPECT_TRUE(has("Time (Sec)"));
}

TEST_F(Whole_Chapters, NamesStandInThePlacesThatWereFoundForThem) {
    platform::Picture picture;
    picture.Scale(0, 10, 10, 0);
    picture.Line(1, 1, 9, 9, 0);
    const std::vector<report::Named_Place> names{{"A", {0.1, 0.2, 1, 0}}, {"O4", {0.7, 0.3, 0, 1}}};
    const Report_Picture set = report::Svg_Of(picture, 50, names, "Caption");
    EXPECT_EQ(set.wide, 50);
    EXPECT_EQ(set.high, 50);
    EXPECT_EQ(set.caption, "Caption");
    const int pixels = int(std::lround(50 / 25.4 * 96));
    EXPECT_NE(set.svg.find("width=\"" + std::to_string(pixels) + "\""), std::string::npos);
    // Letters 12 pixels high and as a rule 0.6 of that wide, with 2 around them aside and below.
    std::vector<platform::LabelWish> wishes;
    wishes.reserve(names.size());
    for (const auto& name : names) wishes.push_back({name.at, 7.2 * double(name.name.size()) + 4, 14});
    const auto places = platform::Find_Label_Places(picture, pixels, wishes);
    const std::regex text(
        "<text x=\"([^\"]*)\" y=\"([^\"]*)\" font-family=\"sans-serif\" font-size=\"12\" "
        "fill=\"#222222\">([^<]*)</text>\n");
    std::size_t i = 0;
    for (std::sregex_iterator at(set.svg.begin(), set.svg.end(), text), end; at != end; ++at, ++i) {
        EXPECT_EQ((*at)[3], names[i].name);
        EXPECT_NEAR(std::stod((*at)[1]), places[i].x + 2, 0.006);
        EXPECT_NEAR(std::stod((*at)[2]), places[i].y + 12, 0.006);
    }
    EXPECT_EQ(i, 2U);
}

TEST(Papers, AreThoseOfTheFirstLocaleThatIsSet) {
    EXPECT_EQ(Paper_For("US"), Paper::kA4) << "no country";
    for (const char* country : {"BZ", "CA", "CL", "CO", "CR", "GT", "MX", "NI", "PA", "PH", "PR", "SV", "US", "VE"})
        EXPECT_EQ(Paper_For("xx_" + std::string(country)), Paper::kLetter);
    std::map<std::string, std::string> kept;
    for (const char* name : {"LC_ALL", "LC_PAPER", "LANG"}) {
        const char* value = std::getenv(name);
        if (value) kept[name] = value;
        unsetenv(name);
    }
    EXPECT_EQ(Paper_In_Force(), Paper::kA4);
    setenv("LANG", "en_US.UTF-8", 1);
    EXPECT_EQ(Paper_In_Force(), Paper::kLetter);
    setenv("LC_PAPER", "de_DE", 1);
    EXPECT_EQ(Paper_In_Force(), Paper::kA4);
    setenv("LC_ALL", "", 1);
    EXPECT_EQ(Paper_In_Force(), Paper::kA4) << "an empty one says nothing";
    setenv("LC_ALL", "es_MX", 1);
    EXPECT_EQ(Paper_In_Force(), Paper::kLetter);
    for (const char* name : {"LC_ALL", "LC_PAPER", "LANG"}) {
        unsetenv(name);
        if (kept.contains(name)) setenv(name, kept[name].c_str(), 1);
    }
}

}  // namespace verlink::test
