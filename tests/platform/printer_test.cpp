// Printed lines are made of zones of 14 columns, and of pages.
#include "platform/printer.h"

#include <gtest/gtest.h>

#include "tests/support/fixture.h"

namespace verlink::test {

using platform::Printer;

namespace {

struct PrinterTest : Fixture {
    Printer printer;
};

}  // namespace

TEST_F(PrinterTest, StartsOnPage1WithAnEmptyLine) {
    EXPECT_EQ(printer.Page(), 1);
    ASSERT_EQ(printer.Pages().size(), 1u);
    EXPECT_EQ(printer.Pages()[0], std::vector<std::string>{""});
}

TEST_F(PrinterTest, ACommaMovesToTheNextMultipleOf14Columns) {
    printer.Print("").Zone().Print("VERLINK").Zone().Print("x").EndLine();
    EXPECT_EQ(printer.Pages()[0][0], "              VERLINK       x");
}

TEST_F(PrinterTest, ATextThatFillsItsZoneGoesOnInTheOneAfterTheNext) {
    printer.Print("fourteen char.").Zone().Print("x").EndLine();
    EXPECT_EQ(printer.Pages()[0][0], "fourteen char." + std::string(14, ' ') + "x");
    printer.Print("thirteen char").Zone().Print("x").EndLine();
    EXPECT_EQ(printer.Pages()[0][1], "thirteen char x");
}

TEST_F(PrinterTest, LettersBeyondAsciiCountAsOneColumnEach) {
    printer.Print("J\xC3\xBCrgen").Zone().Print("x").EndLine();
    EXPECT_EQ(printer.Pages()[0][0], "J\xC3\xBCrgen        x");
}

TEST_F(PrinterTest, WithoutACommaTextsFollowEachOther) {
    printer.Print("File: ").Print("press").EndLine();
    EXPECT_EQ(printer.Pages()[0], (std::vector<std::string>{"File: press", ""}));
}

TEST_F(PrinterTest, ANewPageIsCountedAndBeginsWithAnEmptyLine) {
    printer.Print("first").EndLine();
    printer.NewPage();
    EXPECT_EQ(printer.Page(), 2);
    printer.Print("second").EndLine();
    ASSERT_EQ(printer.Pages().size(), 2u);
    EXPECT_EQ(printer.Pages()[1], (std::vector<std::string>{"second", ""}));
}

TEST_F(PrinterTest, EndDocHandsThePagesToTheDesktopAndStartsAnew) {
    printer.Print("first").EndLine();
    printer.NewPage();
    printer.Print("second");
    printer.EndDoc();
    ASSERT_EQ(desktop.Pages.size(), 2u);
    EXPECT_EQ(desktop.Pages[0], (std::vector<std::string>{"first", ""}));
    EXPECT_EQ(desktop.Pages[1], std::vector<std::string>{"second"});
    EXPECT_EQ(printer.Page(), 1);
    EXPECT_EQ(printer.Pages()[0], std::vector<std::string>{""});
}

TEST_F(PrinterTest, ARefusalOfThePrinterIsRaisedAndNothingIsKeptForTheNextPrint) {
    desktop.FailPrinting = platform::kPrinterError;
    printer.Print("lost").EndLine();
    long number = 0;
    try {
        printer.EndDoc();
    } catch (const platform::RuntimeFailure& failure) {
        number = failure.Number();
    }
    EXPECT_EQ(number, 482);
    EXPECT_EQ(printer.Pages()[0], std::vector<std::string>{""});
}

}  // namespace verlink::test
