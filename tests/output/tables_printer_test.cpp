// Tables on paper: the head of each page, and the rows below it.
#include <gtest/gtest.h>

#include "platform/file_system.h"
#include "platform/printer.h"
#include "tests/output/table_fixture.h"

namespace verlink::test {

namespace {

struct TablesPrinter : Tables {
    using Lines = std::vector<std::string>;

    /// Texts that each start a zone of 14 columns.
    static std::string Zones(const std::vector<std::string>& texts) {
        std::string line;
        for (std::size_t zone = 0; zone < texts.size(); ++zone) {
            line.resize(14 * zone, ' ');
            line += texts[zone];
        }
        return line;
    }
    static Lines Head(const std::string& page) {
        return {"",
                "",
                "",
                Zones({"", "VERLINK", "File: press", "Design #3", page}),
                Zones({"", "By: Ada", "11/21/2026", "10:15:00"}),
                "",
                "",
                Zones({"", "Selected Linkage Parameters"}),
                Zones({"", ""}),
                "",
                Zones({"", "Angle", "Theta2", "Veloc CP", "Veloc CP", "Omega4", ""}),
                Zones({"", "Step", "Mag", "X", "Ang", "Mag", ""}),
                Zones({"", "Deg", "degrees", "in/sec", "deg", "rad/sec", ""}),
                "",
                ""};
    }
    /// Of the steps from the first on.
    static std::string Row(int step) {
        return Zones({"", Tenths(5 + 10 * step), Tenths(5 + 10 * step), Tenths(step), "63.4", Tenths(100 + step), ""});
    }
    static std::string Tenths(int number) {
        std::string text = std::to_string(number) + ".0";
        if (text.size() > 5) text.insert(text.size() - 5, ",");
        return text;
    }
};

}  // namespace

TEST_F(TablesPrinter, AStepIsARowBelowTheHeadWithItsAngleAndItsValues) {
    Fill_Run(3);
    Print_to_Printer();
    ASSERT_EQ(desktop.Pages.size(), 1u);
    Lines expected = Head("Page 1");
    expected.push_back(Zones({"", "5.0", "5.0", "0.0", "0.0", "100.0", ""}));
    for (int i = 1; i <= 3; ++i) expected.push_back(Row(i));
    expected.emplace_back();
    EXPECT_EQ(desktop.Pages[0], expected);
}

TEST_F(TablesPrinter, EveryPrintedStepHasARowAndNoOther) {
    Fill_Run(30);
    Model.PrintStep = 7;
    Print_to_Printer();
    ASSERT_EQ(desktop.Pages.size(), 1u);
    const std::size_t head = Head("").size();
    ASSERT_EQ(desktop.Pages[0].size(), head + 5 + 1);
    for (int row = 1; row <= 4; ++row) EXPECT_EQ(desktop.Pages[0][head + static_cast<std::size_t>(row)], Row(7 * row));
}

TEST_F(TablesPrinter, RowsOfATimeRunBeginWithTheirTimes) {
    Fill_Run(3);
    for (const int calctype : {2, 4, 5}) {
        desktop.Pages.clear();
        By_Time(calctype, 2.5, 0.5);
        Print_to_Printer();
        ASSERT_EQ(desktop.Pages.size(), 1u);
        const std::size_t head = Head("").size();
        EXPECT_EQ(desktop.Pages[0][head - 5], Zones({"", "Time", "Theta2", "Veloc CP", "Veloc CP", "Omega4", ""}));
        EXPECT_EQ(desktop.Pages[0][head - 3], Zones({"", "Sec", "degrees", "in/sec", "deg", "rad/sec", ""}));
        EXPECT_EQ(desktop.Pages[0][head + 2], Zones({"", "3.5", "25.0", "2.0", "63.4", "102.0", ""})) << calctype;
    }
}

TEST_F(TablesPrinter, ALongTableGoesOnOverPagesOfSixtyRowsEachWithItsHead) {
    Fill_Run(130);
    Print_to_Printer();
    ASSERT_EQ(desktop.Pages.size(), 3u);
    int step = 0;
    for (std::size_t page = 0; page < 3; ++page) {
        Lines expected = Head("Page " + std::to_string(page + 1));
        for (int row = 0; row < 60 && step <= 130; ++row, ++step)
            expected.push_back(step == 0 ? Zones({"", "5.0", "5.0", "0.0", "0.0", "100.0", ""}) : Row(step));
        // Two blank lines where it goes on, and the line after the last one.
        expected.insert(expected.end(), page < 2 ? 3 : 1, "");
        EXPECT_EQ(desktop.Pages[page], expected) << page;
    }
    EXPECT_EQ(step, 131);
}

TEST_F(TablesPrinter, NoHeadStandsOnAPageWithoutRows) {
    Fill_Run(119);
    Print_to_Printer();
    EXPECT_EQ(desktop.Pages.size(), 2u);
}

TEST_F(TablesPrinter, TheLargestRunIsPrintedWhole) {
    Fill_Run(2880);
    Print_to_Printer();
    EXPECT_EQ(desktop.Pages.size(), 49u);
    EXPECT_EQ(desktop.Pages.back()[3], Head("Page 49")[3]);
    EXPECT_EQ(desktop.Pages.back()[Head("").size()],
              Zones({"", "28,805.0", "28,805.0", "2,880.0", "63.4", "2,980.0", ""}));
}

TEST_F(TablesPrinter, ATransformHasARowForEachHarmonicInTheUnitOfItsFunction) {
    Fill_Run(36);
    dynamic_cast<frm_FFT&>(platform::Screens::Get("frm_FFT")).cmb_Var1.Text = "Omega4";
    Model.FFTUnitLabel = "rad/sec";
    Model.Harmonics = 4;
    for (int j = 0; j <= 36; ++j)
        for (int row = 0; row <= 3; ++row) Model.FFTResult(j, row) = 10 * j + row;
    const std::array<const char*, 4> components{"X", "Y", "Mag", "Ang"};
    for (int slot = 1; slot <= 4; ++slot) Choose(slot, "Current FFT", components[static_cast<std::size_t>(slot - 1)]);
    Print_to_Printer();
    ASSERT_EQ(desktop.Pages.size(), 1u);
    const Lines& page = desktop.Pages[0];
    const std::size_t head = Head("").size();
    EXPECT_EQ(page[8], Zones({"", "Fourier Transform of  Omega4"}));
    EXPECT_EQ(page[head - 5], Zones({"", "Harmonic", "Current FFT", "Current FFT", "Current FFT", "Current FFT", ""}));
    EXPECT_EQ(page[head - 4], Zones({"", "Number", "X", "Y", "Mag", "Ang", ""}));
    EXPECT_EQ(page[head - 3], Zones({"", "", "rad/sec", "rad/sec", "rad/sec", "deg", ""}));
    ASSERT_EQ(page.size(), head + 5 + 1);
    EXPECT_EQ(page[head + 4], Zones({"", "4", "40.0", "41.0", "42.0", "43.0", ""}));
}

TEST_F(TablesPrinter, EveryPrintStartsOnPage1) {
    Fill_Run(70);
    for (int times = 1; times <= 2; ++times) Print_to_Printer();
    ASSERT_EQ(desktop.Pages.size(), 4u);
    EXPECT_EQ(desktop.Pages[0], desktop.Pages[2]);
    EXPECT_EQ(desktop.Pages[1], desktop.Pages[3]);
}

TEST_F(TablesPrinter, NoDataFileIsTouched) {
    Fill_Run(3);
    Open_Data_File(Path("lead.dat"));
    Print_to_Printer();
    Close_Data_File();
    EXPECT_EQ(platform::Read_File(Path("lead.dat")), "");
}

TEST_F(TablesPrinter, APrinterThatRefusesIsReportedOnceAndTheNextPrintIsWhole) {
    Fill_Run(3);
    desktop.FailPrinting = platform::kPrinterError;
    desktop.Expect_Message(Failed("482   (Printer error)", "Print_to_Printer"));
    Print_to_Printer();
    EXPECT_TRUE(desktop.Pages.empty());
    desktop.FailPrinting = 0;
    Print_to_Printer();
    ASSERT_EQ(desktop.Pages.size(), 1u);
    EXPECT_EQ(desktop.Pages[0][3], Head("Page 1")[3]);
}

TEST_F(TablesPrinter, AStepOfZeroIsReportedAndNothingIsPrinted) {
    Fill_Run(3);
    Model.PrintStep = 0;
    desktop.Expect_Message(Failed("5   (Invalid procedure call or argument)", "Print_to_Printer"));
    Print_to_Printer();
    EXPECT_TRUE(desktop.Pages.empty());
}

}  // namespace verlink::test
