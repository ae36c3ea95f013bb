// The short forms of asking the desktop: folders that are remembered, words that nobody is to hear, work that is shown.
#include <gtest/gtest.h>

#include <functional>

#include "platform/desktop_services.h"
#include "platform/failure.h"
#include "platform/graph.h"
#include "platform/pictures.h"
#include "platform/progress.h"
#include "platform/settings.h"
#include "platform/unheard.h"
#include "tests/support/scripted_desktop.h"

namespace verlink::test {
namespace {

using namespace platform;

class ServicesTest : public testing::Test {
   protected:
    ServicesTest() { The_Settings().Open(""); }
    ~ServicesTest() override { The_Settings().Open(""); }
    static FileDialog Of_Kind(const std::string& kind) {
        FileDialog dialog;
        dialog.title = "A File";
        dialog.kind = kind;
        return dialog;
    }
    ScriptedDesktop desktop;
};

TEST_F(ServicesTest, TheFolderOfEachKindOfFileIsRemembered) {
    desktop.Expect_Open("/home/ann/models/press.vlk").Expect_Save("/home/ann/tables/press.txt");
    EXPECT_EQ(Ask_File(Of_Kind("model"), false), "/home/ann/models/press.vlk");
    EXPECT_EQ(desktop.Dialogs.back().folder, "");
    EXPECT_EQ(Ask_File(Of_Kind("table"), true), "/home/ann/tables/press.txt");
    EXPECT_EQ(desktop.Dialogs.back().folder, "");
    desktop.Expect_Save({}).Expect_Open("/elsewhere/a");
    EXPECT_EQ(Ask_File(Of_Kind("model"), true), std::nullopt);
    EXPECT_EQ(desktop.Dialogs.back().folder, "/home/ann/models");
    FileDialog of_none = Of_Kind("");
    of_none.folder = "/mine";
    EXPECT_EQ(Ask_File(of_none, false), "/elsewhere/a");
    EXPECT_EQ(desktop.Dialogs.back().folder, "/mine") << "of no kind, so nothing is remembered";
    EXPECT_EQ(The_Settings().Text("folder.model"), "/home/ann/models") << "a cancelled dialog leaves it";
    EXPECT_EQ(The_Settings().Text("folder.table"), "/home/ann/tables");
    EXPECT_FALSE(The_Settings().Has("folder."));
}

TEST_F(ServicesTest, ADialogOfAScreenAsksForAllThatItWasFilledWith) {
    Screen screen("frm_Form");
    CommonDialog dialog(screen, "CommonDialog1");
    dialog.DialogTitle = "Open a Model";
    dialog.Filter = "Models|*.vlk|";
    dialog.FilterIndex = 2;
    dialog.FileName = "press.vlk";
    dialog.OverwritePrompt = true;
    dialog.Kind = "model";
    desktop.Expect_Open("/a/b.vlk");
    dialog.ShowOpen();
    const FileDialog& asked = desktop.Dialogs.back();
    EXPECT_EQ(asked.title, "Open a Model");
    EXPECT_EQ(asked.filter, "Models|*.vlk|");
    EXPECT_EQ(asked.filter_index, 2);
    EXPECT_EQ(asked.file_name, "press.vlk");
    EXPECT_FALSE(asked.warn_before_overwriting) << "nothing is overwritten by opening";
    EXPECT_EQ(asked.kind, "model");
    EXPECT_EQ(dialog.FileName, "/a/b.vlk");
    dialog.OverwritePrompt = false;
    desktop.Expect_Save("/a/c.vlk").Expect_Printer(true);
    dialog.ShowSave();
    EXPECT_FALSE(desktop.Dialogs.back().warn_before_overwriting);
    EXPECT_NO_THROW(dialog.ShowPrinter());
}

TEST_F(ServicesTest, WordsAreToldWithTheirIconUnlessNobodyIsToHearThem) {
    desktop.Expect_Message("Done.", Answer::kOk, Icon::kInformation, Buttons::kOk);
    Tell("Done.", Icon::kInformation);
    {
        const Unheard outer;
        {
            const Unheard inner;
            Tell("not heard");
        }
        EXPECT_TRUE(Unheard::On());
        Tell("not heard either");
    }
    EXPECT_FALSE(Unheard::On());
    desktop.Expect_Message("Again?", Answer::kYes, Icon::kQuestion, Buttons::kYesNo)
        .Expect_Message("Really?", Answer::kNo, Icon::kExclamation, Buttons::kYesNo);
    EXPECT_TRUE(Ask_Yes("Again?"));
    EXPECT_FALSE(Ask_Yes("Really?", Icon::kExclamation));
    desktop.Verify();
}

TEST(ServicesAlone, WithoutADesktopNothingCanBeAsked) {
    Use_Desktop(nullptr);
    EXPECT_THROW(The_Desktop(), std::logic_error);
}

TEST(ProgressTest, WhoShowsItDoesTheWorkAndWhereNobodyDoesItGoesOnToItsEnd) {
    int done = 0;
    const Work work = [&](const Tell_Progress& tell) {
        while (done < 5 && tell(done / 5.0)) ++done;
    };
    With_Progress("Counting", work);
    EXPECT_EQ(done, 5);
    done = 0;
    std::string shown;
    Use_Progress([&](const std::string& what, const Work& wanted) {
        shown = what;
        wanted([](double part) { return part < 0.5; });
    });
    With_Progress("Counting", work);
    Use_Progress(nullptr);
    EXPECT_EQ(shown, "Counting");
    EXPECT_EQ(done, 3);
    done = 0;
    With_Progress("Counting", work);
    EXPECT_EQ(done, 5);
}

TEST(FailureTest, WordsSayWhatTheMatterIsWithWhichFile) {
    const FileTrouble trouble{"/home/ann/press.vlk", true, "the disk is full"};
    EXPECT_EQ(trouble.Words(), "/home/ann/press.vlk\rcannot be written: the disk is full.");
    EXPECT_EQ(trouble.Sentence(), "The disk is full.");
    EXPECT_EQ((FileTrouble{"a", false, "it is a folder"}).Words(), "a\rcannot be read: it is a folder.");
    EXPECT_EQ(Failure_Description(6), "Overflow");
    EXPECT_EQ(Failure_Description(12), "Application-defined or object-defined error");
    try {
        Raise(kDivisionByZero);
    } catch (const RuntimeFailure& failure) {
        EXPECT_EQ(failure.Number(), 11);
        EXPECT_STREQ(failure.what(), "Division by zero");
        return;
    }
    FAIL() << "nothing was raised";
}

TEST(PictureMakers, AreKnownForTheirControlUntilTheyAreTakenAway) {
    struct : Picture_Maker {
        int Wide() const override { return 4; }
        int High() const override { return 3; }
        std::string File(Picture_Kind, double) override { return {}; }
        Pixels Paint(double) override { return {}; }
        void Copy() override {}
    } maker;
    Screen screen("frm_Stage");
    const PictureBox one(screen, "Picture1"), other(screen, "Picture2");
    EXPECT_EQ(Maker_Of(one), nullptr);
    Set_Picture_Maker(one, &maker);
    EXPECT_EQ(Maker_Of(one), &maker);
    EXPECT_EQ(Maker_Of(other), nullptr);
    Set_Picture_Maker(one, nullptr);
    EXPECT_EQ(Maker_Of(one), nullptr);
}

TEST(GraphFonts, ASettingGoesToTheTitlesOrToAllTextsAsFontUseSays) {
    Screen screen("frm_Stage");
    Graph graph(screen, "grf_Plot");
    graph.FontSize = 120;
    graph.FontStyle = 2;
    graph.FontFamily = 1;
    EXPECT_EQ(graph.TitleFont().size, 120);
    EXPECT_EQ(graph.TitleFont().style, 2);
    EXPECT_EQ(graph.TitleFont().family, 1);
    EXPECT_EQ(graph.TextFont().size, 100);
    EXPECT_EQ(graph.TextFont().style, 0);
    EXPECT_EQ(graph.TextFont().family, 0);
    EXPECT_EQ(graph.FontSize, 120);
    graph.FontUse = 4;
    graph.FontSize = 80;
    EXPECT_EQ(graph.TitleFont().size, 80);
    EXPECT_EQ(graph.TextFont().size, 80);
    EXPECT_EQ(graph.TextFont().style, 0);
    EXPECT_EQ(graph.Tip.Get(), "Wheel or frame to enlarge, double click for the whole, right click for the picture");
    graph.SetUnitText("rad/sec");
    EXPECT_EQ(graph.Sets()[0].unit, "rad/sec");
}

}  // namespace
}  // namespace verlink::test
