// Reports of verlink-batch, as whoever sets pages is given them.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <optional>

#include "core/linkage_model.h"
#include "report/chapters.h"
#include "report/setter.h"
#include "tests/batch/batch_fixture.h"

namespace verlink::test {

namespace {

class Reports : public BatchFixture {
   protected:
    Reports() {
        Use_Setter([this](const Report& report, Paper, const platform::Tell_Progress& tell) {
            given = report;
            EXPECT_TRUE(tell(0.5)) << "nobody stops it";
            return set;
        });
    }
    ~Reports() override { Use_Setter({}); }

    /// What stands under the plots.
    std::vector<std::string> Captions() const {
        std::vector<std::string> captions;
        for (const Report_Chapter& chapter : given.chapters)
            for (const Report_Piece& piece : chapter.pieces)
                if (const auto* picture = std::get_if<Report_Picture>(&piece);
                    picture && chapter.title == Title_Of(Chapter::kPlots))
                    captions.push_back(picture->caption);
        return captions;
    }
    std::vector<std::string> Plotted(std::vector<std::string> options) const {
        options.insert(options.end(), {"--report", Path("r.pdf"), "--csv", Path("t.csv")});
        EXPECT_EQ(Run(ModelText(), options).status, 0);
        return Captions();
    }

    std::optional<std::string> set = "%PDF-1.7 of a test";
    Report given;
};

using Words = std::vector<std::string>;

}  // namespace

TEST_F(Reports, HaveAllChaptersOfTheRunAndAreWrittenAsTheyAreSet) {
    const Outcome outcome = Run(ModelText(), {"--report", Path("r.pdf"), "--dynamics"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(Read(Path("r.pdf")), *set);
    EXPECT_EQ(given.title, "A lever");
    Words titles;
    for (const Report_Chapter& chapter : given.chapters) titles.push_back(chapter.title);
    for (const Chapter chapter : {Chapter::kModel, Chapter::kClass, Chapter::kDrawing, Chapter::kPlots,
                                  Chapter::kForces, Chapter::kCognates, Chapter::kChecks})
        EXPECT_EQ(std::ranges::count(titles, Title_Of(chapter)), 1) << Title_Of(chapter);
    EXPECT_EQ(std::ranges::count(titles, Title_Of(Chapter::kBalance)), 0);
}

TEST_F(Reports, HaveThePlotsThatAreAskedForOrTheUsualOnes) {
    EXPECT_EQ(Plotted({"--plot", "Omega4", "--plot", "Veloc CP:Y"}), (Words{"Omega4, rad/sec", "Veloc CP Y, in/sec"}));
    EXPECT_EQ(Plotted({"--plot", "Coupler Pt", "--plot", "Veloc CP:Mag", "--frame", "local"}),
              (Words{"Coupler Pt X, in", "Veloc CP Mag local, in/sec"}))
        << "the coupler point has no choice of frame";
    Words usual;
    for (const Output_Function& function : Usual_Plots(Model)) usual.push_back(Words_Of(function));
    const Words captions = Plotted({});
    ASSERT_EQ(captions.size(), usual.size());
    for (std::size_t i = 0; i < usual.size(); ++i) EXPECT_TRUE(captions[i].starts_with(usual[i])) << captions[i];
}

TEST_F(Reports, SayWhenTheyWereMade) {
    const auto said = [this] {
        std::string all = given.foot;
        for (const auto& row : given.block.rows)
            for (const std::string& cell : row) all += " " + cell;
        return all;
    };
    ::setenv("SOURCE_DATE_EPOCH", "1000000000", 1);
    Plotted({});
    ::unsetenv("SOURCE_DATE_EPOCH");
    EXPECT_NE(said().find("09/09/2001 at 01:46:40"), std::string::npos) << said();
    Plotted({});
    EXPECT_EQ(said().find("09/09/2001"), std::string::npos);
}

TEST_F(Reports, ThatCannotBeSetFailTheCall) {
    set.reset();
    EXPECT_EQ(Run(ModelText(), {"--report", Path("r.pdf")}).status, 1);
    EXPECT_FALSE(std::filesystem::exists(Path("r.pdf")));
    Use_Setter({});
    const Outcome outcome = Run(ModelText(), {"--report", Path("r.pdf")});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err,
              "verlink-batch: no report can be made, since verlink-paper is not installed beside this program\n");
    EXPECT_FALSE(std::filesystem::exists(Path("r.pdf")));
}

}  // namespace verlink::test
