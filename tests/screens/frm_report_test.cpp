// The screen of the report: what is chosen goes into it and is kept, and nothing but a whole file is written.
#include "screens/frm_report.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <string>
#include <vector>

#include "core/results.h"
#include "dynamics/dynacalc.h"
#include "files/model_file.h"
#include "output/catalogue.h"
#include "platform/file_system.h"
#include "platform/guard.h"
#include "platform/progress.h"
#include "platform/settings.h"
#include "report/chapters.h"
#include "report/setter.h"
#include "tests/screens/forces_fixture.h"
#include "tests/support/failing_system.h"

namespace verlink::test {

namespace {

using Names = std::vector<std::string>;

/// With a setter that keeps what it is given.
class ReportScreen : public Forces {
   protected:
    ReportScreen() {
        Load_Catalogue();
        Model.ModelName = "press";
        Use_Setter([this](const Report& report, Paper paper, const platform::Tell_Progress& tell) {
            set = report;
            on = paper;
            return tell(0.5) ? std::optional<std::string>("a whole report") : std::nullopt;
        });
    }
    ~ReportScreen() override {
        Use_Setter(nullptr);
        platform::Use_Progress(nullptr);
    }

    frm_Report& Form() { return dynamic_cast<frm_Report&>(platform::Screens::Get("frm_Report")); }
    Names Titles() const {
        Names titles;
        for (const Report_Chapter& chapter : set.value_or(Report{}).chapters) titles.push_back(chapter.title);
        return titles;
    }
    static int Box_Of(Chapter chapter) {
        return static_cast<int>(std::ranges::find(kChapters, chapter) - kChapters.begin());
    }

    /// Of one report that is made and saved.
    std::vector<double> Progress_Told() {
        std::vector<double> told;
        platform::Use_Progress([&](const std::string&, const platform::Work& work) {
            work([&](double done) {
                told.push_back(done);
                return true;
            });
        });
        Inside(Form(), [&] {
            desktop.Expect_Save(Path("a.pdf"));
            Press(Form(), "cmd_Save");
        });
        return told;
    }

    static bool Has(const Names& names, const std::string& name) {
        return std::ranges::find(names, name) != names.end();
    }

    std::optional<Report> set;
    std::optional<Paper> on;
};

/// The user's country, as the process hears of it.
class Country {
   public:
    explicit Country(const char* locale) {
        if (const char* before = std::getenv("LC_ALL")) before_ = before;
        setenv("LC_ALL", locale, 1);
    }
    ~Country() { before_ ? setenv("LC_ALL", before_->c_str(), 1) : unsetenv("LC_ALL"); }
    Country(const Country&) = delete;
    Country& operator=(const Country&) = delete;

   private:
    std::optional<std::string> before_;
};

}  // namespace

TEST_F(ReportScreen, WritesTheReportAndGoesBack) {
    Inside(Form(), [&] {
        desktop.Expect_Save(Path("press_report.pdf"));
        Press(Form(), "cmd_Save");
        EXPECT_FALSE(Form().Visible());
    });
    EXPECT_EQ(platform::Read_File(Path("press_report.pdf")), "a whole report");
    ASSERT_EQ(desktop.Dialogs.size(), 1U);
    EXPECT_EQ(desktop.Dialogs[0].title, "Save report");
    EXPECT_EQ(desktop.Dialogs[0].file_name, "press_report.pdf");
    EXPECT_EQ(desktop.Dialogs[0].filter, "PDF document|*.pdf|");
    EXPECT_TRUE(desktop.Dialogs[0].warn_before_overwriting);
    EXPECT_EQ(Titles(),
              (Names{"Data of the model", "Classification and limits", "Drawing", "Plots", "Cognates", "Checks"}));
    EXPECT_EQ(set->foot, "press   Verlink " + Model.RevNumber + "   11/21/2026 at 10:15:00");
}

TEST_F(ReportScreen, ACancelledDialogLeavesTheScreenAndNoFile) {
    Inside(Form(), [&] {
        desktop.Expect_Save(std::nullopt);
        Press(Form(), "cmd_Save");
        EXPECT_TRUE(Form().Visible());
        EXPECT_FALSE(set.has_value());
    });
}

TEST_F(ReportScreen, WorkThatIsEndedLeavesTheFileOfBefore) {
    platform::Write_File(Path("a.pdf"), "an older report");
    for (const double patience : {0.1, 0.5}) {
        platform::Use_Progress([&](const std::string& what, const platform::Work& work) {
            EXPECT_EQ(what, "Making the report");
            work([&](double done) { return done < patience; });
        });
        Inside(Form(), [&] {
            desktop.Expect_Save(Path("a.pdf"));
            Press(Form(), "cmd_Save");
            EXPECT_TRUE(Form().Visible());
        });
        EXPECT_EQ(platform::Read_File(Path("a.pdf")), "an older report");
    }
}

TEST_F(ReportScreen, ProgressOnlyGoesForward) {
    const std::vector<double> told = Progress_Told();
    ASSERT_GT(told.size(), 5U);
    EXPECT_TRUE(std::ranges::is_sorted(told));
    EXPECT_GE(told.front(), 0);
    EXPECT_LE(told.back(), 1);
}

TEST_F(ReportScreen, MakingItIsTwoFifthsOfTheWayAndSettingTheRest) {
    const std::vector<double> told = Progress_Told();
    ASSERT_GT(told.size(), 5U);
    const std::size_t made = told.size() - 1;
    for (std::size_t i = 0; i < made; ++i)
        EXPECT_NEAR(told[i], 0.4 * static_cast<double>(i) / static_cast<double>(made), 1e-12);
    EXPECT_NEAR(told.back(), 0.4 + 0.6 * 0.5, 1e-12);
}

TEST_F(ReportScreen, OfAModelWithoutANameIsSavedByTheKeysAsReport) {
    Model.ModelName.clear();
    Inside(Form(), [&] {
        desktop.Expect_Save(std::nullopt);
        EXPECT_TRUE(Form().Press_Keys("Ctrl+S"));
    });
    EXPECT_EQ(desktop.Dialogs.at(0).file_name, "report.pdf");
    EXPECT_EQ(desktop.Dialogs.at(0).kind, "report");
}

TEST_F(ReportScreen, IsSetOnThePaperOfTheCountryAndSaysWhichThatIs) {
    struct Case {
        const char* locale;
        Paper paper;
        std::string name;
    };
    for (const Case& in : {Case{"en_US.UTF-8", Paper::kLetter, "Letter"}, Case{"de_DE.UTF-8", Paper::kA4, "A4"}}) {
        const Country country(in.locale);
        Inside(Form(), [&] {
            EXPECT_EQ(Form().lbl_Note.Caption.Get(), "The report is a PDF document, on " + in.name + " paper.");
            desktop.Expect_Save(Path("a.pdf"));
            Press(Form(), "cmd_Save");
        });
        EXPECT_EQ(on, in.paper) << in.locale;
    }
}

TEST_F(ReportScreen, IsSavedOnlyWhereSomethingSetsIt) {
    Inside(Form(), [&] { EXPECT_TRUE(Form().cmd_Save.Enabled); });
    Use_Setter(nullptr);
    Inside(Form(), [&] { EXPECT_FALSE(Form().cmd_Save.Enabled); });
}

TEST_F(ReportScreen, OffersTheFunctionsThatHaveResultsAndPlotsTheUsualOnes) {
    const Names usual{"Coupler Pt Y", "Veloc CP Mag", "Accel CP Mag", "Trans Ang", "(none)", "(none)"};
    const auto chosen = [this] {
        Names texts;
        for (const auto& box : Form().cmb_Plot) texts.push_back(box->Text);
        return texts;
    };
    Inside(Form(), [&] {
        EXPECT_EQ(chosen(), usual);
        for (const auto& box : Form().cmb_Plot) {
            EXPECT_TRUE(box->Enabled);
            EXPECT_EQ(box->Items().front(), "(none)");
            EXPECT_TRUE(Has(box->Items(), "T4 / T2"));
            EXPECT_FALSE(Has(box->Items(), "Torque 12"));
        }
    });
    Solve_Forces(Model);
    Inside(Form(), [&] {
        Names with_torque = usual;
        with_torque[4] = "Torque 12";
        EXPECT_EQ(chosen(), with_torque);
        EXPECT_TRUE(Has(Form().cmb_Plot[6].Items(), "Torque 12"));
        EXPECT_FALSE(Has(Form().cmb_Plot[6].Items(), "MShk Balcd"));
        EXPECT_EQ(std::ranges::count(Form().cmb_Plot[6].Items(), "(none)"), 1) << "filled anew, not twice";
        EXPECT_EQ(Form().chk_Chapter[Box_Of(Chapter::kForces)].Tip, "Whether the report has this chapter");
    });
    Balance_Holds();
    Inside(Form(), [&] { EXPECT_TRUE(Has(Form().cmb_Plot[6].Items(), "MShk Balcd")); });
}

TEST_F(ReportScreen, AChapterIsKeptWithoutPlotsThatNobodyChose) {
    platform::The_Settings().Open(Path(""));
    Inside(Form(), [&] {
        Form().chk_Chapter[Box_Of(Chapter::kCognates)].Click();
        EXPECT_FALSE(platform::The_Settings().Has("report.plots"));
        const Names kept = platform::The_Settings().List("report.chapters");
        EXPECT_EQ(kept.size(), kChapters.size() - 1);
        EXPECT_FALSE(Has(kept, Name_Of(Chapter::kCognates)));
        Form().cmb_Plot[1].Choose(0);
        EXPECT_EQ(platform::The_Settings().List("report.plots"),
                  (Names{"(none)", "Veloc CP Mag", "Accel CP Mag", "Trans Ang", "(none)", "(none)"}));
    });
}

TEST_F(ReportScreen, TheWayBackAsksForNoFunction) {
    Inside(Form(), [&] {
        Form().MoveFocus(&Form().cmb_Plot[1]);
        Form().cmb_Plot[1].Text = "zz";
        Form().MoveFocus(&Form().cmd_Cancel);
        Press(Form(), "cmd_Cancel");
        EXPECT_FALSE(Form().Visible());
    });
}

TEST_F(ReportScreen, AFailingDiskIsToldAndLeavesTheFileOfBefore) {
    platform::Write_File(Path("a.pdf"), "an older report");
    Inside(Form(), [&] {
        desktop.Expect_Save(Path("none/a.pdf"));
        desktop.Expect_Message_With("The report could not be written to " + Path("none/a.pdf") + ".");
        Press(Form(), "cmd_Save");
        EXPECT_TRUE(Form().Visible());
    });
    // Whichever call fails: it is the same one for any file that is written.
    const std::string path = Path("a.pdf");
    int failures = 0;
    for (int which = 1;; ++which) {
        SCOPED_TRACE(which);
        bool fails, reached;
        {
            const FailingSystem system(which);
            fails = What_Failed([&] { platform::Write_File(path, "another"); }).has_value();
            reached = !system.Failed().empty();
        }
        if (!reached) break;
        platform::Write_File(path, "an older report");
        Inside(Form(), [&] {
            const FailingSystem system(which);
            desktop.Expect_Save(path);
            if (fails) desktop.Expect_Message_With("The report could not be written to " + path + ".");
            Press(Form(), "cmd_Save");
        });
        // Once it has taken the old one's place, what fails still is told.
        const std::string held = platform::Read_File(path);
        EXPECT_TRUE(held == "a whole report" || (fails && held == "an older report")) << held;
        failures += fails ? 1 : 0;
    }
    EXPECT_GT(failures, 5);
}

TEST_F(ReportScreen, ChaptersWithoutResultsAreGrayAndSayWhy) {
    Inside(Form(), [&] {
        const auto& forces = Form().chk_Chapter[Box_Of(Chapter::kForces)];
        EXPECT_EQ(forces.Caption, "Forces and torques");
        EXPECT_FALSE(forces.Enabled);
        EXPECT_TRUE(forces.Value);
        EXPECT_EQ(forces.Tip, "Solve the forces on the dynamics screen first.");
        EXPECT_TRUE(Form().chk_Chapter[Box_Of(Chapter::kDrawing)].Enabled);
    });
    Solve_Forces(Model);
    Inside(Form(), [&] { EXPECT_TRUE(Form().chk_Chapter[Box_Of(Chapter::kForces)].Enabled); });
    Run_Dropped();
    Inside(Form(), [&] {
        EXPECT_FALSE(Form().chk_Chapter[Box_Of(Chapter::kDrawing)].Enabled);
        EXPECT_FALSE(Form().cmb_Plot[1].Enabled);
    });
}

TEST_F(ReportScreen, ChaptersAndPlotsAreKeptFromSessionToSession) {
    platform::The_Settings().Open(Path(""));
    Inside(Form(), [&] {
        EXPECT_EQ(Form().cmb_Plot[1].Text, "Coupler Pt Y");
        Form().chk_Chapter[Box_Of(Chapter::kCognates)].Click();
        const auto& items = Form().cmb_Plot[2].Items();
        Form().cmb_Plot[2].Choose(static_cast<int>(std::ranges::find(items, "Omega4") - items.begin()));
    });
    platform::Screens::Discard();
    platform::The_Settings().Open(Path(""));
    Inside(Form(), [&] {
        EXPECT_FALSE(Form().chk_Chapter[Box_Of(Chapter::kCognates)].Value);
        EXPECT_TRUE(Form().chk_Chapter[Box_Of(Chapter::kForces)].Value);
        EXPECT_EQ(Form().cmb_Plot[2].Text, "Omega4");
        EXPECT_EQ(Form().cmb_Plot[1].Text, "Coupler Pt Y");
        desktop.Expect_Save(Path("a.pdf"));
        Press(Form(), "cmd_Save");
    });
    EXPECT_EQ(Titles(), (Names{"Data of the model", "Classification and limits", "Drawing", "Plots", "Checks"}));
}

TEST_F(ReportScreen, APlotOfAnotherLinkageStaysChosenAndIsLeftOut) {
    platform::The_Settings().Open(Path(""));
    platform::The_Settings().Put("report.plots", Names{"Torque 12", "Omega4", "no such thing"});
    Inside(Form(), [&] {
        EXPECT_EQ(Form().cmb_Plot[1].Text, "Torque 12");
        desktop.Expect_Message_With("\"no such thing\" is not one of the functions. Please choose from the list.");
        Press(Form(), "cmd_Save");
        EXPECT_FALSE(set.has_value());
        Form().cmb_Plot[3].Choose(0);
        desktop.Expect_Save(Path("a.pdf"));
        Press(Form(), "cmd_Save");
    });
    ASSERT_TRUE(set.has_value());
    EXPECT_EQ(platform::The_Settings().List("report.plots").front(), "Torque 12");
    for (const Report_Chapter& chapter : set->chapters) {
        if (chapter.title != "Plots") continue;
        EXPECT_EQ(std::get<Report_Table>(chapter.pieces.front()).rows.size(), 1U);
        EXPECT_EQ(chapter.pieces.size(), 2U);
    }
}

TEST_F(ReportScreen, ChangesNothingOfTheModel) {
    const std::string before = File_Content();
    Inside(Form(), [&] {
        desktop.Expect_Save(Path("a.pdf"));
        Press(Form(), "cmd_Save");
    });
    EXPECT_EQ(File_Content(), before);
    EXPECT_TRUE(Model.RunStands);
}

}  // namespace verlink::test
