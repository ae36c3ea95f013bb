// Tables on paper: the head, and why nothing else gets there.
#include <gtest/gtest.h>

#include "platform/file_system.h"
#include "platform/printer.h"
#include "tests/output/table_fixture.h"

namespace verlink::test {

namespace {

struct TablesPrinter : Tables {
    using Lines = std::vector<std::string>;

    void Expect_Failure_Of_The_Lead_Cell() {
        desktop.Expect_Message(
            Failed("52   (Bad file name or number)", "Print_to_Printer",
                   "The filename clicked on has a problem.  Try opening it from within the program."),
            platform::Answer::kOk, platform::Icon::kInformation);
    }
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
};

}  // namespace

TEST_F(TablesPrinter, TheHeadReachesThePaperAndTheRowsFailAtTheirLeadCell) {
    Fill_Run(36);
    Expect_Failure_Of_The_Lead_Cell();
    Print_to_Printer();
    ASSERT_EQ(desktop.Pages.size(), 1u);
    Lines expected = Head("Page 1");
    expected.emplace_back();
    EXPECT_EQ(desktop.Pages[0], expected);
}

TEST_F(TablesPrinter, TheHeadOfATransformNamesTheFunction) {
    Fill_Run(36);
    dynamic_cast<frm_FFT&>(platform::Screens::Get("frm_FFT")).cmb_Var1.Text = "Omega4";
    Model.FFTFunction = true;
    Expect_Failure_Of_The_Lead_Cell();
    Print_to_Printer();
    ASSERT_EQ(desktop.Pages.size(), 1u);
    EXPECT_EQ(desktop.Pages[0][8], Zones({"", "Fourier Transform of  Omega4"}));
}

TEST_F(TablesPrinter, EveryPrintStartsOnPage1) {
    Fill_Run(3);
    for (int times = 1; times <= 2; ++times) {
        Expect_Failure_Of_The_Lead_Cell();
        Print_to_Printer();
    }
    ASSERT_EQ(desktop.Pages.size(), 2u);
    EXPECT_EQ(desktop.Pages[0], desktop.Pages[1]);
}

TEST_F(TablesPrinter, AfterTheFirstPageEachFurtherRowStartsANewPage) {
    Fill_Run(62);
    Open_Data_File(Path("lead.dat"));  // takes the lead cells, so that the rows go on
    Print_to_Printer();
    Close_Data_File();
    ASSERT_EQ(desktop.Pages.size(), 5u);
    const std::size_t head = Head("").size();
    const auto row = [](int i) {
        return Zones(
            {std::to_string(5 + 10 * i) + ".0", std::to_string(i) + ".0", "63.4", std::to_string(100 + i) + ".0", ""});
    };
    EXPECT_EQ(desktop.Pages[0][head + 1], row(1));
    EXPECT_EQ(desktop.Pages[0].size(), head + 60 + 3);  // rows, two blank lines, and the line after them
    for (std::size_t page = 1; page <= 3; ++page) {
        Lines expected = Head("Page " + std::to_string(page + 1));
        expected.push_back(row(59 + static_cast<int>(page)));
        expected.insert(expected.end(), 3, "");
        EXPECT_EQ(desktop.Pages[page], expected) << page;
    }
    Lines last = Head("Page 5");
    last.emplace_back();
    EXPECT_EQ(desktop.Pages[4], last);
    EXPECT_EQ(platform::Read_File(Path("lead.dat")).substr(0, 8), "5.0\t5.0\t");
}

TEST_F(TablesPrinter, APrinterThatRefusesIsReportedToo) {
    Fill_Run(3);
    desktop.FailPrinting = platform::kPrinterError;
    Expect_Failure_Of_The_Lead_Cell();
    desktop.Expect_Message(Failed("482   (Printer error)", "Print_to_Printer"));
    Print_to_Printer();
    EXPECT_TRUE(desktop.Pages.empty());
}

}  // namespace verlink::test
