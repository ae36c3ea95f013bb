// Pictures as files without a toolkit: what other programs see in them.
#include <zlib.h>

#include <cmath>
#include <sstream>

#include "files/picture_pdf.h"
#include "files/png.h"
#include "platform/file_system.h"
#include "tests/support/fixture.h"
#include "tests/support/foreign.h"

namespace verlink::test {

namespace {

constexpr platform::Color kRed = 255, kGreen = 255 << 8;

using Rows = std::vector<std::string>;

}  // namespace

class Pictures_Alone : public Fixture {};

TEST_F(Pictures_Alone, A_png_has_the_pixels_that_were_given) {
    const platform::Pixels pixels{3, 2, {0xFFFF0000, 0xFF00FF00, 0xFF0000FF, 0xFFFFFFFF, 0xFF000000, 0xFF123456}};
    platform::Write_File(Path("a.png"), Png_File(pixels));
    const Rows said = Said_By("convert '" + Path("a.png") + "' -depth 8 txt:- | tr -s ' ' | cut -d ' ' -f 1,3");
    EXPECT_EQ(said, (Rows{"# pixel", "0,0: #FF0000", "1,0: #00FF00", "2,0: #0000FF", "0,1: #FFFFFF", "1,1: #000000",
                          "2,1: #123456"}));
}

TEST_F(Pictures_Alone, A_pdf_is_one_page_with_all_strokes_in_their_places_and_colors) {
    platform::Picture picture;
    picture.Scale(-10, -10, 10, 10);
    picture.Line(-10, 0, 10, 0, kRed);
    picture.Pin(0, 5, 2, kGreen);
    picture.Line(-5, -5, 5, -5, 0);
    picture.Line(-5, -5, 5, -5, picture.Back());
    platform::Write_File(Path("a.pdf"), Picture_Pdf(picture, 200));
    const Rows info = Said_By("pdfinfo '" + Path("a.pdf") + "' 2>&1 | grep -E 'Pages|Page size|Error'");
    EXPECT_EQ(info, (Rows{"Pages:           1", "Page size:       200 x 200 pts"}));
    Said_By("pdftoppm -r 72 -png -singlefile '" + Path("a.pdf") + "' '" + Path("a") + "' 2>&1");
    const auto color = [&](int x, int y) {
        const std::string at = std::to_string(x) + "," + std::to_string(y);
        return Said_By("convert '" + Path("a.png") + "' -depth 8 -format '%[pixel:p{" + at + "}]' info:").at(0);
    };
    // The page is read from its top: y grows downward in the picture, too.
    EXPECT_EQ(color(50, 20), "srgb(255,255,255)");
    EXPECT_EQ(color(50, 50), "srgb(255,255,255)") << "what was erased is not there";
    EXPECT_NE(color(20, 100), "srgb(255,255,255)") << "the line across";
    EXPECT_NE(color(100, 130), "srgb(255,255,255)") << "the rim of the pin";
    EXPECT_EQ(color(100, 150), "srgb(255,255,255)") << "its middle";
}

TEST_F(Pictures_Alone, A_pdf_leaves_out_what_lies_beyond_its_window) {
    platform::Picture picture;
    picture.Scale(0, 0, 1, 1);
    picture.Line(2, 2, 3, 3, kRed);
    picture.Circle(1e9, 0, 1, kRed);
    const std::string file = Picture_Pdf(picture, 100);
    EXPECT_EQ(file.find(" l S"), std::string::npos) << file;
    picture.Line(-1000, 0.5, 1000, 0.5, kRed);
    const std::string crossed = Picture_Pdf(picture, 100);
    EXPECT_NE(crossed.find("0.000 50.000 m 100.000 50.000 l S"), std::string::npos) << crossed;
    EXPECT_EQ(crossed.find("\nS\n"), std::string::npos) << "no end of an arc that has not begun";
    picture.Line(0.25, -1000, 0.25, 1000, kRed);
    const std::string both = Picture_Pdf(picture, 100);
    EXPECT_NE(both.find("25.000 100.000 m 25.000 0.000 l S"), std::string::npos) << both;
}

TEST_F(Pictures_Alone, A_pdf_is_a_page_of_strokes_and_a_table_of_where_its_objects_are) {
    platform::Picture picture;
    picture.Scale(-1, 3, 7, -5);  // y upward: 8 wide and high
    picture.BackColor(platform::Rgb(255, 51, 0));
    picture.Line(-1, -4, 3, 3, platform::Rgb(0, 102, 255));
    picture.Line(1, 1, 5, 1, platform::Rgb(0, 102, 255));
    picture.PSet(1, -1, kRed);
    picture.Mark({0, 0, 1, 0.5}, {3, -1, -0.5, 1}, kRed);
    const std::string file = Picture_Pdf(picture, 400);
    // Round ends and corners, a stroke a four hundredth of the page wide; colours in parts of 255.
    const std::string strokes =
        "1.000 0.200 0.000 rg 0 0 400.000 400.000 re f\n1 J 1 j 1.000 w\n"
        "0.000 0.400 1.000 RG\n0.000 50.000 m 200.000 400.000 l S\n100.000 300.000 m 300.000 300.000 l S\n"
        "1.000 0.000 0.000 RG\n100.000 200.000 m 100.000 200.000 l S\n"
        "100.000 275.000 m 175.000 250.000 l S\n";
    EXPECT_NE(file.find("4 0 obj\n<< /Length " + std::to_string(strokes.size()) + " >>\nstream\n" + strokes +
                        "\nendstream\nendobj\n"),
              std::string::npos)
        << file;
    EXPECT_TRUE(file.starts_with("%PDF-1.4\n%\xE2\xE3\xCF\xD3\n1 0 obj\n<< /Type /Catalog /Pages 2 0 R >>\nendobj\n"));
    EXPECT_NE(file.find("/MediaBox [0 0 400 400]"), std::string::npos);
    // The table at the end: each object where it begins, and the table where the last line but one says.
    std::string table = "xref\n0 6\n0000000000 65535 f \n";
    for (int object = 1; object <= 5; ++object) {
        const std::string at = std::to_string(file.find("\n" + std::to_string(object) + " 0 obj\n") + 1);
        table += std::string(10 - at.size(), '0') + at + " 00000 n \n";
    }
    const std::string start = std::to_string(file.find("xref\n"));
    EXPECT_TRUE(file.ends_with("endobj\n" + table + "trailer\n<< /Size 6 /Root 1 0 R /Info 5 0 R >>\nstartxref\n" +
                               start + "\n%%EOF\n"))
        << file.substr(file.size() - 300);
}

TEST_F(Pictures_Alone, A_circle_of_a_pdf_is_a_closed_chain_on_its_rim_to_a_fiftieth_of_a_point) {
    platform::Picture picture;
    picture.Scale(0, 0, 4, 4);
    picture.Circle(2, 2, 1, kGreen);
    const std::string file = Picture_Pdf(picture, 200);
    std::istringstream words(file.substr(file.find("RG\n") + 3));
    std::vector<std::pair<double, double>> chain;
    double x = 0, y = 0;
    for (std::string verb; words >> x >> y >> verb;) {
        EXPECT_EQ(verb, chain.empty() ? "m" : "l");
        EXPECT_NEAR(std::hypot(x - 100, y - 100), 50, 0.002);
        if (!chain.empty()) {
            const double middle = std::hypot((x + chain.back().first) / 2 - 100, (y + chain.back().second) / 2 - 100);
            EXPECT_LE(50 - middle, 0.022);
            EXPECT_GE(50 - middle, 0.005) << "no more corners than that takes";
        }
        chain.emplace_back(x, y);
    }
    ASSERT_GT(chain.size(), 20U);
    EXPECT_NEAR(chain.front().first, chain.back().first, 0.002);
    EXPECT_NEAR(chain.front().second, chain.back().second, 0.002);
    words.clear();
    std::string closing;
    words >> closing;
    EXPECT_TRUE(closing == "S" || file.find(" l S\n") != std::string::npos);
}

TEST_F(Pictures_Alone, A_png_begins_and_ends_as_the_format_has_it) {
    const std::string file = Png_File({3, 258, std::vector<std::uint32_t>(3 * 258)});
    EXPECT_EQ(file.substr(0, 33 - 4), std::string("\x89PNG\r\n\x1A\n\0\0\0\x0DIHDR\0\0\0\3\0\0\1\2\x08\2\0\0\0", 29));
    // Its pixels are rows of a byte and three for each, packed, and behind them their sum, most significant byte first.
    const std::string rows(258 * (1 + 3 * 3), '\0');
    const std::size_t chunk = file.size() - 12, packed = chunk - 4 - 41;
    EXPECT_EQ(file.substr(33, 8), std::string("\0\0\0", 3) + static_cast<char>(packed) + "IDAT");
    uLong sum = adler32(0, nullptr, 0);
    sum = adler32(sum, reinterpret_cast<const Bytef*>(rows.data()), static_cast<uInt>(rows.size()));
    for (std::size_t i = 0; i < 4; ++i)
        EXPECT_EQ(static_cast<unsigned char>(file[chunk - 8 + i]), (sum >> (24 - 8 * i)) & 0xFF) << i;
    // The sums of chunks without content and of the size are published figures of CRC-32.
    EXPECT_TRUE(file.ends_with(std::string("\0\0\0\0IEND\xAE\x42\x60\x82", 12)));
}

}  // namespace verlink::test
