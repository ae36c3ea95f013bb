// Pictures as files without a toolkit: what other programs see in them.
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
}

}  // namespace verlink::test
