// What all synthesis screens do alike: results come and go, and the ways out.
#include "screens/synthesis_screen.h"

#include <algorithm>

#include "checks/positions.h"
#include "platform/deed.h"
#include "shell/history.h"
#include "tests/screens/synthesis_screens_fixture.h"

namespace verlink::test {

namespace {

using platform::Answer;
using platform::Buttons;
using platform::Icon;
using platform::Screen;

constexpr char kPrintNote[] =
    "Note: The image on this screen may not print correctly on some printers.\r\n\r\n"
    "If this occurs, you can still get a printout of the screen by copying it to the clipboard\r\n"
    "with the key combo Alt-PrintScrn and pasting the image into a word processor,\r\n"
    "a drawing program, or a graphics package, then printing it from that program.\r\n\r\n"
    "Do you want to send it to the printer now anyway?";

struct SynthesisScreens : SynthesisScreenTest {
    void For_Each(const std::function<void(Synthesis_Screen&)>& check) {
        for (const char* name : {"frm_Synth2A", "frm_Synth2B", "frm_Synth3"}) {
            SCOPED_TRACE(name);
            Model.SynPositions = std::string(name) == "frm_Synth3" ? 2 : 1;
            check(Made<Synthesis_Screen>(name));
        }
    }
    /// Shows the screen; `user` acts on it and may leave it.
    void Show(Synthesis_Screen& form, const std::function<void()>& user) {
        desktop.Expect_Screen(form.Name(), [&](Screen& screen) {
            user();
            if (screen.Visible()) screen.Hide();
        });
        form.ShowModal();
    }
    static std::vector<platform::TextBox*> Boxes(const Screen& form) {
        std::vector<platform::TextBox*> boxes;
        for (platform::Control* control : form.Controls())
            if (auto* box = dynamic_cast<platform::TextBox*>(control)) boxes.push_back(box);
        return boxes;
    }
};

}  // namespace

TEST_F(SynthesisScreens, AnyChangeOfABoxTakesTheResultsBack) {
    For_Each([this](Synthesis_Screen& form) {
        form.Form_Activate();
        for (platform::TextBox* box : Boxes(form)) {
            if (box->Locked) continue;
            Calculate(form);
            Expect_Ways_On(form, true);
            const std::string text = box->Text;
            Type(form, box->Name(), box->Index(), text + "1");
            Expect_Ways_On(form, false);
            Type(form, box->Name(), box->Index(), text);
        }
    });
}

TEST_F(SynthesisScreens, SayAtOnceWhichPositionsAreReachedUntilABoxIsEdited) {
    For_Each([this](Synthesis_Screen& form) {
        form.Form_Activate();
        EXPECT_FALSE(form.lbl_Reach.Visible);
        Calculate(form);
        EXPECT_TRUE(form.lbl_Reach.Visible);
        EXPECT_EQ(Caption(form, "lbl_Reach"),
                  "The linkage " + Words_Of_Positions(Model, Positions_Reached(Model)) + ".");
        Type(form, "txt_P21x", platform::kNoIndex, "1");
        EXPECT_FALSE(form.lbl_Reach.Visible);
    });
}

TEST_F(SynthesisScreens, AnEditedBoxTakesTheScaleFromTheDiagramUntilTheNextCalculation) {
    For_Each([this](Synthesis_Screen& form) {
        form.Form_Activate();
        for (platform::TextBox* box : Boxes(form)) {
            if (box->Locked) continue;
            SCOPED_TRACE(box->ObjectName());
            Calculate(form);
            ASSERT_EQ(Caption(form, "lbl_Scale"), "To scale");
            const std::string text = box->Text;
            Type(form, box->Name(), box->Index(), text + "1");
            EXPECT_EQ(Caption(form, "lbl_Scale"), "Sketch, not to scale");
            Type(form, box->Name(), box->Index(), text);
            EXPECT_EQ(Caption(form, "lbl_Scale"), "Sketch, not to scale");
        }
        Calculate(form);
        EXPECT_EQ(Caption(form, "lbl_Scale"), "To scale");
    });
}

TEST_F(SynthesisScreens, ComingToABoxSelectsItsText) {
    For_Each([](Synthesis_Screen& form) {
        form.Form_Activate();
        for (platform::TextBox* box : Boxes(form)) {
            form.cmd_Calc.SetFocus();
            box->SelectedAll = false;
            box->SetFocus();
            EXPECT_TRUE(box->SelectedAll) << box->ObjectName();
        }
    });
}

TEST_F(SynthesisScreens, NextHidesTheScreenAndBringsUpTheInputScreen) {
    For_Each([this](Synthesis_Screen& form) {
        Show(form, [&] {
            Calculate(form);
            desktop.Expect_Screen("frm_Inputnew", [&](Screen& input) {
                EXPECT_FALSE(form.Visible());
                EXPECT_NEAR(Val(Box(input, "txt_Linkout", 1)), Model.L2, 5.1e-4);
                EXPECT_TRUE(input.Get<platform::OptionButton>("opt_Polar", 1).Value);
                EXPECT_TRUE(Model.Synthesized);
                input.Hide();
            });
            Press(form, "cmd_Done");
        });
    });
}

TEST_F(SynthesisScreens, AnUndoneCalculationGivesTheDataBeforeBack) {
    For_Each([this](Synthesis_Screen& form) {
        Show(form, [&] {
            platform::Deed::By_Itself();
            The_History().Begin();
            const std::string before = Box(form, "txt_P21x");
            {
                const platform::Deed whole("calculate");
                Enter_Box(form, "txt_P21x", "-0.6");
                Calculate(form);
            }
            ASSERT_EQ(Model.P21x, Single(-0.6));
            The_History().Undo();
            EXPECT_EQ(Box(form, "txt_P21x"), before);
            Expect_Ways_On(form, false);
            EXPECT_EQ(Caption(form, "lbl_Wmag", 1), "");
        });
    });
}

TEST_F(SynthesisScreens, BackKeepsWhatTheLastCalculationWroteAndTakesNothingElse) {
    For_Each([this](Synthesis_Screen& form) {
        Show(form, [&] {
            Enter_Box(form, "txt_P21x", "-0.6");
            Calculate(form);
            Enter_Box(form, "txt_P21x", "5");
            Press(form, "cmd_Cancel");
            EXPECT_FALSE(form.Visible());
        });
        EXPECT_EQ(Model.P21x, Single(-0.6));
        EXPECT_GT(std::abs(W()), 0.1);
        Show(form, [&] {
            EXPECT_EQ(Box(form, "txt_P21x"), "5") << "it waits";
            EXPECT_TRUE(form.txt_P21x.Touched());
            EXPECT_FALSE(form.cmd_Done.Enabled);
            Press(form, "cmd_Cancel");
        });
    });
}

TEST_F(SynthesisScreens, PrintAsksAndPrintsTheScreen) {
    For_Each([this](Synthesis_Screen& form) {
        Show(form, [&] {
            Press(form, "cmd_Print");  // off as long as nothing is calculated
            Calculate(form);
            desktop.Printed.clear();
            desktop.Expect_Message(kPrintNote, Answer::kNo, Icon::kQuestion, Buttons::kYesNo);
            Press(form, "cmd_Print");
            EXPECT_TRUE(desktop.Printed.empty());
            desktop.Expect_Message(kPrintNote, Answer::kYes).Expect_Printer(true);
            Press(form, "cmd_Print");
            EXPECT_EQ(desktop.Printed, std::vector<std::string>{form.Name()});
        });
    });
}

TEST_F(SynthesisScreens, ACancelledPrinterDialogIsReported) {
    For_Each([this](Synthesis_Screen& form) {
        Show(form, [&] {
            Calculate(form);
            desktop.Expect_Message(kPrintNote, Answer::kYes).Expect_Printer(false);
            desktop.Expect_Message("Error 32755   (Cancel was selected)  has occurred in " + form.Name() +
                                   ".cmd_Print\r\n\r\n");
            Press(form, "cmd_Print");
        });
    });
}

TEST_F(SynthesisScreens, CopySaysHow) {
    For_Each([this](Synthesis_Screen& form) {
        form.Form_Activate();
        Calculate(form);
        desktop.Expect_Message("Use the Alt-PrintScrn key combo to copy the screen to the clipboard", Answer::kOk,
                               Icon::kInformation, Buttons::kOk);
        Press(form, "cmd_Copy");
    });
}

TEST_F(SynthesisScreens, TheHelpLeavesTheBoxesAsTheyWere) {
    For_Each([this](Synthesis_Screen& form) {
        Show(form, [&] {
            Calculate(form);
            Enter_Box(form, "txt_P21y", "0.9");
            desktop.Expect_Screen("frm_Help", [](Screen& help) {
                EXPECT_NE(help.Get<platform::DocumentView>("WebBrowser1").Document.Get().find("synthesis_help.pdf"),
                          std::string::npos);
                help.Hide();
            });
            Pick_Menu(form, "mnu_Help");
            EXPECT_EQ(Box(form, "txt_P21y"), "0.9");
        });
    });
}

TEST_F(SynthesisScreens, AFailureIsReportedUnderTheScreensName) {
    For_Each([this](Synthesis_Screen& form) {
        form.Form_Activate();
        Enter_Box(form, "txt_P21x", "1e39");
        desktop.Expect_Message("Error 6   (Overflow)  has occurred in " + form.Name() + ".cmd_Calc\r\n\r\n");
        Press(form, "cmd_Calc");
        Expect_Ways_On(form, false);
    });
}

TEST_F(SynthesisScreens, TheLeftDyadIsDrawnInBlueAndTheRightOneInRed) {
    constexpr platform::Color kRed = 255, kBlue = 255 * 65536;
    Model.ColorRed = Model.ColorBlue = 0;  // as they are while nothing was drawn yet
    For_Each([](Synthesis_Screen& form) {
        form.Form_Activate();
        for (const platform::Color color : {kBlue, kRed})
            EXPECT_TRUE(std::ranges::any_of(form.Image1.Drawing().Primitives(), [&](const auto& drawn) {
                return drawn.alive && drawn.color == color;
            })) << color;
    });
}

TEST_F(SynthesisScreens, ANumberThatNoFieldHoldsTakesNoneOfTheOthersIn) {
    For_Each([this](Synthesis_Screen& form) {
        form.Form_Activate();
        const Single before = Model.P21x;
        Enter_Box(form, "txt_P21x", "17");
        Enter_Box(form, "txt_Alpha2", "1e39");
        desktop.Expect_Message_With("Error 6   (Overflow)");
        Press(form, "cmd_Calc");
        EXPECT_EQ(Model.P21x, before);
        EXPECT_EQ(Box(form, "txt_P21x"), "17") << "what was typed waits to be mended";
        form.Form_Activate();
    });
}

TEST_F(SynthesisScreens, ASynthesisThatWasDoneIsDrawnToScaleWhenTheScreenComesUpAgain) {
    For_Each([this](Synthesis_Screen& form) {
        form.Form_Activate();
        Calculate(form);
        ASSERT_TRUE(Model.Synthesized);
        form.Form_Activate();
        EXPECT_FALSE(Model.Synthesized) << "until it is calculated again";
        EXPECT_EQ(Caption(form, "lbl_Scale"), "To scale");
        EXPECT_EQ(Caption(form, "lbl_Wmag", 1), "");
    });
}

}  // namespace verlink::test
