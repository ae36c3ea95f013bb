// Workbooks, drawings, pictures and films of a run from the command line, as other programs read them.
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "batch/drawer.h"
#include "tests/batch/batch_fixture.h"
#include "tests/support/foreign.h"
#include "tests/support/gif_reader.h"

namespace verlink::test {

namespace {

/// "A", "Z", "AA".
std::string Letters(int column) {
    std::string letters;
    for (; column >= 0; column = column / 26 - 1) letters.insert(letters.begin(), static_cast<char>('A' + column % 26));
    return letters;
}

/// Of which a table and a workbook have other decimals.
float Stored(double value) { return static_cast<float>(value); }

struct TakenAwayFiles : BatchFixture {
    /// By "Veloc CP X", the letters of its column.
    static std::map<std::string, std::string> Columns(const Xlsx_Read& book, const std::string& sheet) {
        std::map<std::string, std::string> columns;
        for (int column = 0; column < 200; ++column) {
            const std::string at = sheet + "!" + Letters(column);
            const auto name = book.texts.find(at + "1"), component = book.texts.find(at + "2");
            if (name == book.texts.end()) break;
            columns[name->second + (component == book.texts.end() ? "" : " " + component->second)] = Letters(column);
        }
        return columns;
    }
    /// Every number of the table stands in the workbook.
    static int Expect_Same(const CsvTable& table, const Xlsx_Read& book) {
        constexpr int kFirstRow = 7;
        int compared = 0;
        auto columns = Columns(book, "Run");
        for (const std::string& head : table.Header()) {
            if (head == "Assembled" || head == "Time" || head.find("Centrode") != std::string::npos) continue;
            const auto column = columns.find(head);
            if (column == columns.end()) {
                ADD_FAILURE() << head;
                continue;
            }
            for (int row = 0; row < table.Rows(); ++row) {
                const auto cell = book.numbers.find("Run!" + column->second + std::to_string(row + kFirstRow));
                if (head != "Step" && table.At(row, "Assembled") == 0) {
                    EXPECT_EQ(cell, book.numbers.end()) << head << " " << row;
                    continue;
                }
                if (cell == book.numbers.end()) {
                    ADD_FAILURE() << head << " " << row;
                    continue;
                }
                EXPECT_EQ(Stored(cell->second), Stored(table.At(row, head))) << head << " " << row;
                ++compared;
            }
        }
        return compared;
    }
};

}  // namespace

TEST_F(TakenAwayFiles, AWorkbookHasTheNumbersOfTheTableWithUnitsStatisticsAndTheModel) {
    const Outcome ran =
        Run(ModelText().Set(kUnits, "5").Linkage({"0.2667", "0.1115", "0.25", "0.25"}, "0.1697", "-92.66"),
            {"--csv", Path("a.csv"), "--xlsx", Path("a.xlsx"), "--balance"});
    ASSERT_EQ(ran.status, 0) << ran.err;
    EXPECT_EQ(ran.out, "");
    const Xlsx_Read book = Read_Xlsx(Path("a.xlsx"));
    EXPECT_EQ(book.sheets, (std::vector<std::string>{"Run B7", "Model None"}));
    EXPECT_GT(Expect_Same(CsvTable(Read(Path("a.csv"))), book), 3000);
    auto columns = Columns(book, "Run");
    EXPECT_EQ(book.texts.at("Run!" + columns.at("Veloc CP Mag") + "3"), "mm/sec");
    EXPECT_EQ(book.texts.at("Run!" + columns.at("Veloc CP Ang") + "3"), "degrees");
    EXPECT_EQ(book.texts.at("Run!" + columns.at("Flywl Torque") + "3"), "N- m");
    EXPECT_EQ(book.texts.at("Model!A11"), "Link 4 (Rocker)");
    EXPECT_EQ(book.numbers.at("Model!B11"), 250);
    EXPECT_EQ(book.texts.at("Model!C11"), "mm");
    // Min and max are those of the rows below.
    const std::string omega = "Run!" + columns.at("Omega4");
    double least = 1e9, most = -1e9;
    for (int row = 7; book.numbers.contains(omega + std::to_string(row)); ++row) {
        least = std::min(least, book.numbers.at(omega + std::to_string(row)));
        most = std::max(most, book.numbers.at(omega + std::to_string(row)));
    }
    EXPECT_EQ(book.numbers.at(omega + "4"), least);
    EXPECT_EQ(book.numbers.at(omega + "6"), most);
}

TEST_F(TakenAwayFiles, AWorkbookLeavesTheCellsOfPositionsEmptyThatDoNotClose) {
    const Outcome ran = Run(ModelText().Linkage({"5", "4", "2", "3"}, "1", "20").Angles("-120", "120", "10"),
                            {"--csv", Path("a.csv"), "--xlsx", Path("a.xlsx")});
    ASSERT_EQ(ran.status, 0) << ran.err;
    EXPECT_GT(Expect_Same(CsvTable(Read(Path("a.csv"))), Read_Xlsx(Path("a.xlsx"))), 300);
}

TEST_F(TakenAwayFiles, AWorkbookOfATransformHasItsHarmonics) {
    const Outcome ran = Run(ModelText(), {"--fft", "Veloc CP:Ang", "--csv", Path("a.csv"), "--xlsx", Path("a.xlsx")});
    ASSERT_EQ(ran.status, 0) << ran.err;
    const CsvTable table(Read(Path("a.csv")));
    const Xlsx_Read book = Read_Xlsx(Path("a.xlsx"));
    EXPECT_EQ(book.texts.at("Transform!B1"), "Veloc CP Ang");
    EXPECT_EQ(book.texts.at("Transform!B3"), "degrees");
    const char* parts[] = {"Real", "Imag", "Mag", "Phase"};
    for (int row = 0; row < table.Rows(); ++row)
        for (int part = 0; part < 4; ++part)
            EXPECT_EQ(Stored(book.numbers.at("Transform!" + Letters(part + 1) + std::to_string(row + 4))),
                      Stored(table.At(row, parts[part])));
    EXPECT_GT(table.Rows(), 10);
    EXPECT_FALSE(book.numbers.contains("Transform!A" + std::to_string(table.Rows() + 4)));
    // Also where nothing else asks for it.
    const Outcome only = Run(ModelText(), {"--fft", "Veloc CP:Ang", "--xlsx", Path("b.xlsx")});
    ASSERT_EQ(only.status, 0);
    EXPECT_EQ(only.out, "") << "it stands in place of the table";
    const Xlsx_Read alone = Read_Xlsx(Path("b.xlsx"));
    EXPECT_EQ(alone.texts.at("Transform!B1"), "Veloc CP Ang");
    EXPECT_EQ(alone.numbers, book.numbers);
    const Outcome still = Run(ModelText().Set(kCalctype, "1"), {"--fft", "Veloc CP:Ang", "--xlsx", Path("c.xlsx")});
    EXPECT_EQ(still.status, 1);
    EXPECT_NE(still.err.find("verlink-batch: one position has no transform\n"), std::string::npos) << still.err;
}

TEST_F(TakenAwayFiles, ADrawingHasTheLinkageAtItsFirstPositionThatCloses) {
    const Outcome ran = Run(ModelText().Linkage({"5", "4", "2", "3"}, "1", "20").Angles("-120", "120", "10"),
                            {"--csv", Path("a.csv"), "--dxf", Path("a.dxf")});
    ASSERT_EQ(ran.status, 0) << ran.err;
    const CsvTable table(Read(Path("a.csv")));
    int first = 0;
    while (table.At(first, "Assembled") == 0) ++first;
    ASSERT_GT(first, 0);
    const Dxf_Read drawing = Read_Dxf(Path("a.dxf"));
    const auto crank = drawing.On("LINK_2"), point = drawing.On("COUPLER_POINT");
    ASSERT_EQ(crank.size(), 1U);
    const double angle = table.At(first, "Theta2") * std::numbers::pi / 180;
    EXPECT_NEAR(crank[0].numbers[2], 4 * std::cos(angle), 1e-5);
    EXPECT_NEAR(crank[0].numbers[3], 4 * std::sin(angle), 1e-5);
    ASSERT_EQ(point.size(), 1U);
    EXPECT_NEAR(point[0].numbers[0], table.At(first, "Coupler Pt X"), 1e-5);
    EXPECT_NEAR(point[0].numbers[1], table.At(first, "Coupler Pt Y"), 1e-5);
    // Of a crank that turns round that is where it starts.
    ASSERT_EQ(Run(ModelText(), {"--dxf", Path("b.dxf")}).status, 0);
    const auto start = Read_Dxf(Path("b.dxf")).On("LINK_2");
    ASSERT_EQ(start.size(), 1U);
    EXPECT_NEAR(start[0].numbers[2], 1.115 * std::numbers::sqrt2 / 2, 1e-5);
    EXPECT_NEAR(start[0].numbers[3], 1.115 * std::numbers::sqrt2 / 2, 1e-5);
}

TEST_F(TakenAwayFiles, APictureIsOfTheKindThatItsNameSays) {
    for (const char* name : {"a.svg", "a.pdf", "a.PNG"})
        ASSERT_EQ(Run(ModelText(), {"--picture", Path(name)}).status, 0) << name;
    ASSERT_EQ(Run(ModelText(), {"--svg", Path("b.svg")}).status, 0);
    EXPECT_EQ(Read(Path("a.svg")), Read(Path("b.svg")));
    EXPECT_EQ(Said_By("pdfinfo '" + Path("a.pdf") + "' | grep 'Page size'"),
              (std::vector<std::string>{"Page size:       700 x 700 pts"}));
    EXPECT_EQ(Said_By("identify -format '%m %w %h' '" + Path("a.PNG") + "'"),
              (std::vector<std::string>{"PNG 1400 1400"}));
    // Both show the same.
    Said_By("pdftoppm -r 72 -png -singlefile '" + Path("a.pdf") + "' '" + Path("c") + "' 2>&1");
    const auto differ = Said_By("convert '" + Path("a.PNG") + "' -resize 350x350 \\( '" + Path("c.png") +
                                "' -resize 350x350 \\) -metric RMSE -compare -format '%[distortion]' info: 2>&1");
    ASSERT_EQ(differ.size(), 1U);
    EXPECT_LT(std::stod(differ[0]), 0.1) << differ[0];
}

TEST_F(TakenAwayFiles, APictureOfAnotherKindIsRefused) {
    const Outcome ran = Run(ModelText(), {"--picture", Path("a.jpg")});
    EXPECT_EQ(ran.status, 2);
    EXPECT_TRUE(ran.err.starts_with("verlink-batch: --picture wants a name that ends in .svg, .pdf or .png, not \"" +
                                    Path("a.jpg") + "\"\n"))
        << ran.err;
}

TEST_F(TakenAwayFiles, AGraphIsAPictureOfAnyKindWhereSomebodyHasLetters) {
    Outcome ran = Run(ModelText(), {"--plot", "Omega4", "--picture", Path("a.svg"), "--svg", Path("b.svg")});
    EXPECT_EQ(ran.status, 0);
    EXPECT_EQ(Read(Path("a.svg")), Read(Path("b.svg")));
    ran = Run(ModelText(), {"--plot", "Omega4", "--picture", Path("a.PNG")});
    EXPECT_EQ(ran.status, 1);
    EXPECT_NE(ran.err.find("verlink-batch: a graph cannot be made as .png, since verlink-paper is not installed beside "
                           "this program\n"),
              std::string::npos)
        << ran.err;
    Use_Drawer([](const std::string& svg, bool pdf) { return (pdf ? "pdf of " : "png of ") + svg; });
    for (const char* name : {"a.pdf", "a.png"}) {
        EXPECT_EQ(Run(ModelText(), {"--plot", "Omega4", "--picture", Path(name)}).status, 0);
        EXPECT_EQ(Read(Path(name)), std::string(name).substr(2) + " of " + Read(Path("b.svg")));
    }
    Use_Drawer({});
}

TEST_F(TakenAwayFiles, AFilmIsTheRunInItsOwnTime) {
    const Outcome ran = Run(ModelText().Set(kOmega2, "5"), {"--motion", Path("a.gif")});
    ASSERT_EQ(ran.status, 0);
    EXPECT_EQ(ran.err, "");
    const Gif_Read film = Read_Gif(Read(Path("a.gif")));
    EXPECT_EQ(film.wide, 540);
    ASSERT_EQ(film.frames.size(), 36U + 1) << "each step of ten degrees";
    int hundredths = 0;
    for (const auto& frame : film.frames) hundredths += frame.hundredths;
    // A turn at 5 rad/s, and the last position as long as the others.
    EXPECT_NEAR(hundredths, 100 * 37 * (10 * std::numbers::pi / 180) / 5, 2);
    ASSERT_EQ(Run(ModelText().Set(kOmega2, "5").Angles("0", "10", "10"), {"--motion", Path("two.gif")}).status, 0);
    EXPECT_EQ(Read_Gif(Read(Path("two.gif"))).frames.size(), 2U) << "the fewest that move";
    ASSERT_EQ(Run(ModelText().Times("0", "0.5", "0.1"), {"--motion", Path("timed.gif")}).status, 0);
    EXPECT_EQ(Read_Gif(Read(Path("timed.gif"))).frames.size(), 6U);
    const Outcome still = Run(ModelText().Set(kCalctype, "1"), {"--motion", Path("b.gif")});
    EXPECT_EQ(still.status, 1);
    EXPECT_NE(still.err.find("verlink-batch: a run that does not move has no film\n"), std::string::npos) << still.err;
}

}  // namespace verlink::test
