// The reader of the manual under the hand: pages, contents, sizes, references and the way back, words to be found.
#include <gtest/gtest.h>

#include "platform/settings.h"
#include "screens/frm_help.h"
#include "screens/help_documents.h"
#include "tests/support/fixture.h"

namespace verlink::test {

namespace {

using platform::DocumentView;
using platform::Screen;
using platform::Screens;

class HelpReader : public Fixture {
   protected:
    HelpReader() { reader.Open(balance); }
    /// What the desktop tells of a document that it has read.
    void Told(int pages, double scale = 1, std::vector<DocumentView::Heading> headings = {}) {
        view.Pages = pages;
        view.Scale = scale;
        view.Headings = std::move(headings);
        view.OnChange();
    }
    /// The desktop finds them as soon as words are sought.
    void Found_In(const std::vector<DocumentView::Place>& everywhere) {
        view.Watcher = [this, everywhere] {
            const bool sought = !view.Sought.Get().empty();
            view.Everywhere = sought ? everywhere : std::vector<DocumentView::Place>();
            view.Finds = 0;
            for (const DocumentView::Place& place : view.Everywhere)
                if (place.document == view.Document.Get()) view.Finds = place.finds;
        };
    }
    /// A test may have discarded the screens.
    ~HelpReader() override {
        for (const platform::Screen* screen : Screens::Made())
            if (screen == &reader) view.Watcher = nullptr;
    }
    std::string Finds() { return reader.lbl_Finds.Caption; }

    const std::string balance = Help_Document("mnu_BalanceHelp"), theory = Help_Document("mnu_TheoryHelp"),
                      card = Help_Document("mnu_CardHelp");
    frm_Help& reader = static_cast<frm_Help&>(Screens::Get("frm_Help"));
    DocumentView& view = reader.WebBrowser1;
};

}  // namespace

TEST_F(HelpReader, WithoutADocumentNothingCanBeTurnedSoughtOrResized) {
    view.Page = 3;
    Told(0);
    EXPECT_EQ(reader.txt_Page.Text.Get(), "");
    EXPECT_EQ(reader.lbl_Pages.Caption.Get(), "");
    for (const platform::Visual* control : std::initializer_list<const platform::Visual*>{
             &reader.txt_Page, &reader.cmd_PageBefore, &reader.cmd_PageAfter, &reader.cmb_Contents, &reader.cmd_Smaller,
             &reader.cmd_Larger, &reader.cmd_FitWidth, &reader.txt_Find, &reader.cmd_FindBefore, &reader.cmd_FindAfter,
             &reader.cmd_Back, &reader.cmb_Finds})
        EXPECT_FALSE(control->Enabled) << control->Name();
    Told(4);
    for (const platform::Visual* control :
         std::initializer_list<const platform::Visual*>{&reader.txt_Page, &reader.cmb_Contents, &reader.cmd_Smaller,
                                                        &reader.cmd_Larger, &reader.cmd_FitWidth, &reader.txt_Find})
        EXPECT_TRUE(control->Enabled) << control->Name();
    EXPECT_FALSE(reader.cmd_FindAfter.Enabled) << "there are no words yet";
    EXPECT_EQ(reader.CancelButton, &reader.cmd_Close);
}

TEST_F(HelpReader, PagesAreTurnedOneByOneFromTheFirstToTheLast) {
    Told(3);
    EXPECT_EQ(reader.txt_Page.Text.Get(), "1");
    EXPECT_EQ(reader.lbl_Pages.Caption.Get(), "of 3");
    EXPECT_FALSE(reader.cmd_PageBefore.Enabled);
    EXPECT_TRUE(reader.cmd_PageAfter.Enabled);
    Press(reader, "cmd_PageAfter");
    EXPECT_EQ(view.Page.Get(), 2);
    EXPECT_EQ(reader.txt_Page.Text.Get(), "2");
    EXPECT_TRUE(reader.cmd_PageBefore.Enabled);
    EXPECT_TRUE(reader.cmd_PageAfter.Enabled);
    Press(reader, "cmd_PageAfter");
    EXPECT_EQ(view.Page.Get(), 3);
    EXPECT_FALSE(reader.cmd_PageAfter.Enabled);
    reader.cmd_PageAfter.OnClick();
    EXPECT_EQ(view.Page.Get(), 3);
    Press(reader, "cmd_PageBefore");
    EXPECT_EQ(view.Page.Get(), 2);
    reader.cmd_PageBefore.OnClick();
    reader.cmd_PageBefore.OnClick();
    EXPECT_EQ(view.Page.Get(), 1);
    Told(0);
    reader.cmd_PageAfter.OnClick();
    EXPECT_EQ(view.Page.Get(), 1);
}

TEST_F(HelpReader, ANumberThatIsTypedIsThePageUnlessThereIsNoSuchPage) {
    Told(9);
    Enter(reader, "txt_Page", platform::kNoIndex, "9");
    EXPECT_EQ(view.Page.Get(), 9);
    Enter(reader, "txt_Page", platform::kNoIndex, "1");
    EXPECT_EQ(view.Page.Get(), 1);
    for (const char* none : {"0", "10", "-2", "x"}) {
        Type(reader, "txt_Page", platform::kNoIndex, none);
        reader.txt_Find.SetFocus();
        EXPECT_EQ(view.Page.Get(), 1) << none;
        EXPECT_EQ(reader.txt_Page.Text.Get(), "1") << none;
    }
    Type(reader, "txt_Page", platform::kNoIndex, "4");
    EXPECT_TRUE(reader.txt_Page.SelectedAll);
    view.OnChange();
    EXPECT_EQ(reader.txt_Page.Text.Get(), "4") << "what is being typed stays";
    reader.txt_Find.SetFocus();
    EXPECT_EQ(view.Page.Get(), 4);
}

TEST_F(HelpReader, ContentsAreSetInBelowTheirChaptersAndLeadToTheirHeadings) {
    Told(4, 1, {{1, "Balance", "balance"}, {2, "Weights", "weights"}, {3, "Two links", "two"}, {4, "Which", "which"}});
    EXPECT_EQ(reader.cmb_Contents.Items(),
              (std::vector<std::string>{"Balance", "Weights", "    Two links", "        Which"}));
    EXPECT_EQ(reader.cmb_Contents.ListIndex(), 0);
    EXPECT_EQ(view.Document.Get(), balance) << "being filled is no choice";
    reader.cmb_Contents.Choose(2);
    EXPECT_EQ(view.Document.Get(), balance + "#two");
    EXPECT_EQ(reader.Focus(), &view);
    // The desktop takes the name off when it is there.
    view.Document = balance;
    view.OnChange();
    EXPECT_EQ(reader.cmb_Contents.ListIndex(), 2) << "the list is not filled anew";
    reader.cmb_Contents.Choose(0);
    EXPECT_EQ(view.Document.Get(), balance + "#balance");
    reader.cmb_Contents.Choose(3);
    EXPECT_EQ(view.Document.Get(), balance + "#balance#which");
}

TEST_F(HelpReader, PagesAreShownAQuarterLargerOrSmallerWithinLimits) {
    Told(4, 1);
    Press(reader, "cmd_Larger");
    EXPECT_DOUBLE_EQ(view.Zoom.Get(), 1.25);
    Press(reader, "cmd_Smaller");
    EXPECT_DOUBLE_EQ(view.Zoom.Get(), 0.8) << "by what is in force";
    Told(4, 4.5);
    Press(reader, "cmd_Larger");
    EXPECT_DOUBLE_EQ(view.Zoom.Get(), 5);
    Told(4, 0.26);
    Press(reader, "cmd_Smaller");
    EXPECT_DOUBLE_EQ(view.Zoom.Get(), 0.25);
    Press(reader, "cmd_FitWidth");
    EXPECT_EQ(view.Zoom.Get(), 0);
}

TEST_F(HelpReader, AReferenceLeadsThereAndBackToThePageItWasClickedOn) {
    Told(9);
    view.Page = 5;
    EXPECT_FALSE(reader.cmd_Back.Enabled);
    view.Find = 2;
    view.OnLink(theory + "#dyads");
    EXPECT_EQ(view.Document.Get(), theory + "#dyads");
    EXPECT_EQ(view.Find.Get(), 0);
    EXPECT_TRUE(reader.cmd_Back.Enabled);
    view.Page = 7;
    view.OnLink(card);
    view.Find = 3;
    Press(reader, "cmd_Back");
    EXPECT_EQ(view.Document.Get(), theory + "#dyads");
    EXPECT_EQ(view.Page.Get(), 7);
    EXPECT_EQ(view.Find.Get(), 0);
    Press(reader, "cmd_Back");
    EXPECT_EQ(view.Document.Get(), balance);
    EXPECT_EQ(view.Page.Get(), 5);
    EXPECT_FALSE(reader.cmd_Back.Enabled);
    reader.cmd_Back.OnClick();
    EXPECT_EQ(view.Document.Get(), balance);
}

TEST_F(HelpReader, OpeningAnotherTimeBeginsAtTheFirstPageWithNoWayBackAndNothingSought) {
    Told(9);
    view.OnLink(theory);
    view.Page = 4;
    view.Sought = "crank";
    view.Find = 2;
    reader.Open(theory);
    EXPECT_EQ(view.Page.Get(), 1);
    EXPECT_EQ(view.Sought.Get(), "");
    EXPECT_EQ(view.Find.Get(), 0);
    EXPECT_FALSE(reader.cmd_Back.Enabled);
    view.Page = 4;
    reader.Open(balance);
    EXPECT_EQ(view.Document.Get(), balance);
}

TEST_F(HelpReader, TheKeyForHelpOpensThePageOfTheReaderItselfWithAWayBack) {
    Told(9);
    EXPECT_TRUE(reader.Press_Keys("F1"));
    EXPECT_EQ(view.Document.Get(), Screen_Help(reader));
    Press(reader, "cmd_Back");
    EXPECT_EQ(view.Document.Get(), balance);
}

TEST_F(HelpReader, FindGoesThroughTheFindsOfADocumentForwardsAndBackwards) {
    Told(9);
    Found_In({{balance, "Balance", 3}});
    Type(reader, "txt_Find", platform::kNoIndex, "crank");
    EXPECT_TRUE(reader.cmd_FindAfter.Enabled);
    EXPECT_TRUE(reader.cmd_FindBefore.Enabled);
    EXPECT_EQ(Finds(), "") << "nothing was sought yet";
    Press(reader, "cmd_FindBefore");
    EXPECT_EQ(view.Find.Get(), 3) << "the last is before the first";
    EXPECT_EQ(Finds(), "3 of 3");
    Press(reader, "cmd_FindAfter");
    EXPECT_EQ(view.Find.Get(), 1) << "round the end";
    EXPECT_FALSE(reader.cmd_Back.Enabled) << "it never left the document";
    Press(reader, "cmd_FindAfter");
    EXPECT_EQ(Finds(), "2 of 3");
    Press(reader, "cmd_FindBefore");
    EXPECT_EQ(Finds(), "1 of 3");
    Press(reader, "cmd_FindBefore");
    EXPECT_EQ(Finds(), "3 of 3");
    Enter(reader, "txt_Find", platform::kNoIndex, "crank");
    EXPECT_EQ(view.Find.Get(), 1) << "Return is the next one";
    Enter(reader, "txt_Find", platform::kNoIndex, "rocker");
    EXPECT_EQ(view.Sought.Get(), "rocker");
    EXPECT_EQ(view.Find.Get(), 1) << "other words begin anew";
    Type(reader, "txt_Find", platform::kNoIndex, "");
    EXPECT_EQ(Finds(), "");
    EXPECT_FALSE(reader.cmd_FindAfter.Enabled);
}

TEST_F(HelpReader, WhatStandsNowhereIsSaid) {
    Told(9);
    Found_In({});
    Enter(reader, "txt_Find", platform::kNoIndex, "xyzzy");
    EXPECT_EQ(Finds(), "Not found");
    EXPECT_EQ(view.Find.Get(), 0);
    EXPECT_FALSE(reader.cmb_Finds.Enabled);
    EXPECT_EQ(view.Document.Get(), balance);
}

TEST_F(HelpReader, WhereTheDesktopTellsOfNoOtherDocumentsTheOneInViewIsSoughtThrough) {
    Told(9);
    view.Watcher = [this] { view.Finds = view.Sought.Get().empty() ? 0 : 2; };
    Enter(reader, "txt_Find", platform::kNoIndex, "crank");
    EXPECT_EQ(Finds(), "1 of 2");
    Press(reader, "cmd_FindAfter");
    Press(reader, "cmd_FindAfter");
    EXPECT_EQ(Finds(), "1 of 2");
    Press(reader, "cmd_FindBefore");
    EXPECT_EQ(Finds(), "2 of 2");
    EXPECT_TRUE(reader.cmb_Finds.Items().empty());
    EXPECT_FALSE(reader.cmb_Finds.Enabled);
}

TEST_F(HelpReader, ADocumentWithoutAFindLeadsToTheNextThatHasOneAndBackToWhereTheSearchBegan) {
    Told(9);
    view.Page = 5;
    Found_In({{theory, "Theory", 2}, {card, "Card", 4}});
    Enter(reader, "txt_Find", platform::kNoIndex, "crank");
    const std::string first = view.Document;
    EXPECT_TRUE(first == theory || first == card) << first;
    EXPECT_EQ(view.Find.Get(), 1);
    EXPECT_TRUE(reader.cmb_Finds.Enabled);
    const int finds = first == theory ? 2 : 4;
    for (int i = 1; i < finds; ++i) Press(reader, "cmd_FindAfter");
    EXPECT_EQ(view.Document.Get(), first);
    Press(reader, "cmd_FindAfter");
    EXPECT_EQ(view.Document.Get(), first == theory ? card : theory);
    EXPECT_EQ(view.Find.Get(), 1);
    Press(reader, "cmd_FindBefore");
    EXPECT_EQ(view.Document.Get(), first);
    EXPECT_EQ(view.Find.Get(), finds) << "backwards at its last one";
    Press(reader, "cmd_Back");
    EXPECT_EQ(view.Document.Get(), balance) << "not through all steps of the search";
    EXPECT_EQ(view.Page.Get(), 5);
    EXPECT_FALSE(reader.cmd_Back.Enabled);
    EXPECT_EQ(Finds(), "6 found") << "none of them is in view";
    EXPECT_EQ(reader.cmb_Finds.ListIndex(), -1);
    Press(reader, "cmd_FindBefore");
    EXPECT_NE(view.Document.Get(), balance);
    EXPECT_EQ(view.Find.Get(), view.Finds) << "backwards at the last one of the document before";
}

TEST_F(HelpReader, FromADocumentOfNoLibraryTheSearchGoesToTheFirstFindOrTheLast) {
    Told(9);
    const std::string strange = balance + "x";
    for (const bool on : {true, false}) {
        view.Find = 0;
        view.Document = strange;
        Found_In({{card, "Card", 4}, {theory, "Theory", 2}});
        Type(reader, "txt_Find", platform::kNoIndex, on ? "crank" : "rocker");
        Press(reader, on ? "cmd_FindAfter" : "cmd_FindBefore");
        EXPECT_EQ(view.Document.Get(), on ? card : theory);
        EXPECT_EQ(view.Find.Get(), on ? 1 : 2);
    }
}

TEST_F(HelpReader, ADocumentOfTheFindsIsChosenAtItsFirst) {
    Told(9);
    Found_In({{balance, "Balance", 3}, {theory, "Theory", 2}, {card, "Card", 4}});
    Enter(reader, "txt_Find", platform::kNoIndex, "crank");
    EXPECT_EQ(reader.cmb_Finds.Items(), (std::vector<std::string>{"Balance (3)", "Theory (2)", "Card (4)"}));
    reader.cmb_Finds.Choose(2);
    EXPECT_EQ(view.Document.Get(), card);
    EXPECT_EQ(Finds(), "6 of 9");
    EXPECT_EQ(reader.Focus(), &view);
    reader.cmb_Finds.Choose(1);
    EXPECT_EQ(Finds(), "4 of 9");
    Press(reader, "cmd_Back");
    EXPECT_EQ(view.Document.Get(), balance);
    EXPECT_EQ(Finds(), "9 found");
}

TEST_F(HelpReader, AScreenThatComesUpAgainIsNotOpenedTwice) {
    desktop.Expect_Screen("frm_Help", [](Screen&) {});
    reader.ShowBeside();
    EXPECT_EQ(reader.Focus(), &view);
    Tick(reader, "chk_Follow", true);
    Screen& dynamics = Screens::Get("frm_MassProp");
    const auto show = [&] {
        desktop.Expect_Screen("frm_MassProp", [](Screen& screen) { screen.Hide(); });
        dynamics.ShowModal();
    };
    show();
    EXPECT_EQ(view.Document.Get(), Screen_Help(dynamics));
    view.OnLink(theory);
    show();
    EXPECT_EQ(view.Document.Get(), theory) << "the user has gone on from there";
    Tick(reader, "chk_Follow", false);
    Tick(reader, "chk_Follow", true);
    show();
    EXPECT_EQ(view.Document.Get(), Screen_Help(dynamics));
    reader.Hide();
    view.Document = theory;
    desktop.Expect_Screen("frm_Quit", [](Screen& screen) { screen.Hide(); });
    Screens::Get("frm_Quit").ShowModal();
    EXPECT_EQ(view.Document.Get(), theory) << "who is closed does not follow";
}

TEST_F(HelpReader, WhoIsAskedToFollowGoesToTheScreenOnTopAtOnce) {
    desktop.Expect_Screen("frm_Help", [](Screen&) {});
    reader.ShowBeside();
    desktop.Expect_Screen("frm_MassProp", [this](Screen& dynamics) {
        EXPECT_EQ(view.Document.Get(), balance);
        Tick(reader, "chk_Follow", true);
        EXPECT_EQ(view.Document.Get(), Screen_Help(dynamics));
        dynamics.Hide();
    });
    Screens::Get("frm_MassProp").ShowModal();
    Screens::Discard();
    desktop.Expect_Screen("frm_Quit", [](Screen& screen) { screen.Hide(); });
    Screens::Get("frm_Quit").ShowModal();
}

TEST_F(HelpReader, AScreenIsFollowedAgainAfterAnotherDocumentWasOpened) {
    desktop.Expect_Screen("frm_Help", [](Screen&) {});
    reader.ShowBeside();
    Tick(reader, "chk_Follow", true);
    Screen& dynamics = Screens::Get("frm_MassProp");
    for (int i = 0; i < 2; ++i) {
        desktop.Expect_Screen("frm_MassProp", [](Screen& screen) { screen.Hide(); });
        dynamics.ShowModal();
        EXPECT_EQ(view.Document.Get(), Screen_Help(dynamics)) << i;
        reader.Open(theory);
    }
}

TEST_F(HelpReader, ThePageOfAnotherDocumentIsLeftToTheDesktop) {
    Told(9);
    view.Page = 4;
    reader.Open(theory);
    EXPECT_EQ(view.Page.Get(), 4) << "the old document does not turn before it goes";
}

TEST_F(HelpReader, AHeadingThatIsNoMoreLeadsNowhere) {
    Told(4, 1, {{1, "Balance", "balance"}, {2, "Weights", "weights"}});
    view.Headings.pop_back();
    reader.cmb_Contents.Choose(1);
    EXPECT_EQ(view.Document.Get(), balance);
    Found_In({{balance, "Balance", 1}, {theory, "Theory", 1}});
    Enter(reader, "txt_Find", platform::kNoIndex, "crank");
    view.Everywhere.pop_back();
    reader.cmb_Finds.Choose(1);
    EXPECT_EQ(view.Document.Get(), balance) << "nor does a document that has no find any more";
}

TEST_F(HelpReader, ADocumentOfOnePageIsOneToo) {
    Told(1);
    EXPECT_EQ(reader.txt_Page.Text.Get(), "1");
    EXPECT_EQ(reader.lbl_Pages.Caption.Get(), "of 1");
    EXPECT_TRUE(reader.txt_Find.Enabled);
    EXPECT_FALSE(reader.cmd_PageAfter.Enabled);
}

TEST_F(HelpReader, BeforeTheFirstFindOfADocumentStandsTheLastOfTheDocumentBefore) {
    Told(9);
    Found_In({{balance, "Balance", 3}, {theory, "Theory", 2}});
    Type(reader, "txt_Find", platform::kNoIndex, "crank");
    Press(reader, "cmd_FindBefore");
    EXPECT_EQ(view.Document.Get(), balance);
    EXPECT_EQ(Finds(), "3 of 5") << "a search that begins backwards begins with the last";
    Press(reader, "cmd_FindBefore");
    Press(reader, "cmd_FindBefore");
    EXPECT_EQ(Finds(), "1 of 5");
    Press(reader, "cmd_FindBefore");
    EXPECT_EQ(view.Document.Get(), theory);
    EXPECT_EQ(Finds(), "5 of 5");
    view.OnLink(balance);
    EXPECT_EQ(Finds(), "5 found") << "a reference leads to a document and to none of its finds";
}

TEST_F(HelpReader, FromADocumentOutsideTheManualTheFirstOrTheLastOfAllIsNext) {
    const std::string first = Help_Document("mnu_CopyHelp");
    Told(9);
    Found_In({{first, "Copy", 2}, {card, "Card", 3}});
    for (const bool forwards : {true, false}) {
        reader.Open("helpfiles/other.pdf");
        Type(reader, "txt_Find", platform::kNoIndex, "crank");
        Press(reader, forwards ? "cmd_FindAfter" : "cmd_FindBefore");
        EXPECT_EQ(view.Document.Get(), forwards ? first : card);
        EXPECT_EQ(view.Find.Get(), forwards ? 1 : 3);
    }
}

TEST_F(HelpReader, TheSameWordsAreSoughtAnewWhereOtherDocumentsAreToBeLookedThrough) {
    Told(9);
    Found_In({{balance, "Balance", 3}});
    Enter(reader, "txt_Find", platform::kNoIndex, "crank");
    view.OnLink(Help_Document("mnu_Manual"));
    int emptied = 0;
    const auto told = view.Watcher;
    view.Watcher = [&] {
        told();
        emptied += view.Sought.Get().empty() ? 1 : 0;
    };
    Press(reader, "cmd_FindAfter");
    EXPECT_GT(emptied, 0) << "the desktop hears of words that change";
    EXPECT_EQ(view.Sought.Get(), "crank");
    EXPECT_TRUE(view.Library.empty());
}

TEST_F(HelpReader, TheNextDocumentIsTheNextOfTheMenu) {
    const std::string before = Help_Document("mnu_GlossaryHelp"), after = Help_Document("mnu_WorkedHelp");
    Told(9);
    reader.Open(card);
    Found_In({{before, "Glossary", 2}, {after, "Worked", 3}});
    Enter(reader, "txt_Find", platform::kNoIndex, "crank");
    EXPECT_EQ(view.Document.Get(), after);
    reader.Open(card);
    Type(reader, "txt_Find", platform::kNoIndex, "crank");
    Press(reader, "cmd_FindBefore");
    EXPECT_EQ(view.Document.Get(), before);
    EXPECT_EQ(view.Find.Get(), 2);
}

TEST_F(HelpReader, AFindOfOneDocumentIsNeverThatOfTheNext) {
    Told(9);
    Found_In({{balance, "Balance", 1}, {theory, "Theory", 1}});
    Enter(reader, "txt_Find", platform::kNoIndex, "crank");
    ASSERT_EQ(view.Find.Get(), 1);
    std::vector<int> finds;
    const auto told = view.Watcher;
    view.Watcher = [&] {
        told();
        if (view.Document.Get() == theory) finds.push_back(view.Find.Get());
    };
    Press(reader, "cmd_FindAfter");
    ASSERT_FALSE(finds.empty());
    EXPECT_EQ(finds.front(), 0);
    EXPECT_EQ(finds.back(), 1);
}

TEST_F(HelpReader, GoesBesideTheProgramAtOnceAndTheMenuMarksIt) {
    const auto marked = [this] { return reader.mnu_Beside.Checked.Get(); };
    Pick_Menu(reader, "mnu_Shrink");
    EXPECT_FALSE(marked());
    Pick_Menu(reader, "mnu_Beside");
    EXPECT_TRUE(marked());
    EXPECT_EQ(reader.Width().Get(), 25600 * 4 / 10);
    EXPECT_EQ(reader.Height().Get(), 14400 - 400);
    EXPECT_EQ(reader.Left().Get(), 25600 - 25600 * 4 / 10);
    EXPECT_EQ(reader.Top().Get(), 0);
    Pick_Menu(reader, "mnu_Full");
    EXPECT_FALSE(marked());
    Pick_Menu(reader, "mnu_Beside");
    Pick_Menu(reader, "mnu_Shrink");
    EXPECT_FALSE(marked());
}

}  // namespace verlink::test
