// Drawings as DXF: what other programs find in them.
#include "files/dxf.h"

#include <cmath>

#include "files/table_files.h"
#include "platform/failure.h"
#include "platform/file_system.h"
#include "platform/guard.h"
#include "tests/support/fixture.h"
#include "tests/support/foreign.h"

namespace verlink::test {

namespace {

using Spot = Dxf::Spot;
using Numbers = std::vector<double>;

class Drawings : public Fixture {
   protected:
    Dxf_Read Written(const Dxf& drawing) {
        platform::Write_File(Path("a.dxf"), drawing.Content());
        return Read_Dxf(Path("a.dxf"));
    }
    Dxf dxf{Dxf_Unit::kMillimetre, "press", 0.5};
};

}  // namespace

TEST_F(Drawings, Hold_lines_circles_points_and_paths_on_their_layers) {
    dxf.Layer("LINKS", 5);
    dxf.Line({1, 2}, {-3.25, 4});
    dxf.Circle({0.5, -1}, 2.5);
    dxf.Layer("CURVE", 6);
    dxf.Path({Spot(0, 0), Spot(1, 0.125), Spot(2, 3)});
    dxf.Point({7, 8});
    const Dxf_Read read = Written(dxf);
    EXPECT_EQ(read.unit, "unit 4 AC1009");
    ASSERT_EQ(read.entities.size(), 4U);
    const auto links = read.On("LINKS"), curve = read.On("CURVE");
    ASSERT_EQ(links.size(), 2U);
    EXPECT_EQ(links[0].kind, "LINE");
    EXPECT_EQ(links[0].numbers, (Numbers{1, 2, -3.25, 4}));
    EXPECT_EQ(links[1].kind, "CIRCLE");
    EXPECT_EQ(links[1].numbers, (Numbers{0.5, -1, 2.5}));
    EXPECT_EQ(curve[0].kind, "POLYLINE");
    EXPECT_EQ(curve[0].numbers, (Numbers{0, 0, 0, 1, 0.125, 2, 3})) << "open";
    EXPECT_EQ(curve[1].kind, "POINT");
    EXPECT_EQ(curve[1].numbers, (Numbers{7, 8}));
}

TEST_F(Drawings, Are_in_inches_where_that_is_the_unit) {
    EXPECT_EQ(Written(Dxf(Dxf_Unit::kInch, "", 1)).unit, "unit 1 AC1009");
}

TEST_F(Drawings, Close_a_path_that_comes_back_to_its_start) {
    dxf.Layer("CURVE", 6);
    dxf.Path({Spot(0, 0), Spot(1, 0), Spot(1, 1), Spot(1e-7, 0)});
    const Dxf_Read read = Written(dxf);
    ASSERT_EQ(read.entities.size(), 1U);
    EXPECT_EQ(read.entities[0].numbers, (Numbers{1, 0, 0, 1, 0, 1, 1}));
}

TEST_F(Drawings, Close_a_path_wherever_it_lies_and_none_that_ends_across_the_origin) {
    dxf.Layer("CURVE", 6);
    dxf.Path({Spot(5, 5), Spot(6, 5), Spot(6, 6), Spot(5, 5)});
    dxf.Path({Spot(5, 5), Spot(6, 5), Spot(6, 6), Spot(-5, -5)});
    dxf.Path({Spot(5, 5), Spot(6, 5), Spot(5, 5)});
    const Dxf_Read read = Written(dxf);
    ASSERT_EQ(read.entities.size(), 3U);
    EXPECT_EQ(read.entities[0].numbers, (Numbers{1, 5, 5, 6, 5, 6, 6}));
    EXPECT_EQ(read.entities[1].numbers, (Numbers{0, 5, 5, 6, 5, 6, 6, -5, -5}));
    EXPECT_EQ(read.entities[2].numbers, (Numbers{0, 5, 5, 6, 5, 5, 5})) << "there and back";
}

TEST_F(Drawings, Are_saved_where_the_user_says_with_a_warning_before_another_file_goes) {
    desktop.Expect_Save({});
    Save_Drawing([]() -> std::string { platform::Raise(platform::kOverflow); }, "press");
    desktop.Expect_Save(Path("b.dxf"));
    Save_Drawing([this] { return dxf.Content(); }, "press");
    EXPECT_EQ(platform::Read_File(Path("b.dxf")), dxf.Content());
    ASSERT_EQ(desktop.Dialogs.size(), 2U);
    EXPECT_EQ(desktop.Dialogs[1].title, "Save drawing");
    EXPECT_EQ(desktop.Dialogs[1].filter, "DXF drawing|*.dxf|");
    EXPECT_EQ(desktop.Dialogs[1].file_name, "press.dxf");
    EXPECT_TRUE(desktop.Dialogs[1].warn_before_overwriting);
    EXPECT_EQ(desktop.Dialogs[1].kind, "drawing");
    desktop.Expect_Save(Path("nowhere/b.dxf"));
    desktop.Expect_Message("The drawing could not be written to " + Path("nowhere/b.dxf") + ".\r\nThere is no folder " +
                               Path("nowhere") + ".",
                           platform::Answer::kOk, platform::Icon::kExclamation);
    Save_Drawing([this] { return dxf.Content(); }, "press");
}

TEST_F(Drawings, Have_no_path_of_one_point) {
    dxf.Layer("CURVE", 6);
    dxf.Path({Spot(1, 1)});
    dxf.Path({});
    EXPECT_TRUE(Written(dxf).entities.empty());
}

TEST_F(Drawings, Keep_eight_decimals_and_no_exponents) {
    dxf.Layer("P", 1);
    dxf.Point({1e-9, -1234567.123456789});
    dxf.Point({-1e-12, 1e14});
    const std::string content = dxf.Content();
    EXPECT_NE(content.find("10\r\n0.0\r\n20\r\n-1234567.12345679\r\n"), std::string::npos) << content;
    EXPECT_NE(content.find("10\r\n0.0\r\n20\r\n100000000000000.0\r\n"), std::string::npos) << content;
}

TEST_F(Drawings, Refuse_what_is_no_number) {
    dxf.Layer("P", 1);
    for (const double bad : {std::nan(""), HUGE_VAL, 1e16}) {
        const auto failure = What_Failed([&] { dxf.Point({bad, 0}); });
        ASSERT_TRUE(failure);
        EXPECT_EQ(failure->Number(), platform::kOverflow);
    }
}

TEST_F(Drawings, Name_their_model_and_unit_in_plain_letters) {
    const std::string content = Dxf(Dxf_Unit::kInch, "pr\xC3\xA4zis\nx", 1).Content();
    EXPECT_TRUE(content.starts_with("999\r\npr??zis?x\r\n999\r\nLengths are in inches\r\n")) << content.substr(0, 80);
}

TEST_F(Drawings, Are_pairs_of_code_and_value_from_the_first_remark_to_the_end) {
    dxf.Layer("LINKS", 5);
    dxf.Line({-1, 2}, {3, -4.5});
    dxf.Circle({0.25, 0}, 2);
    dxf.Layer("CURVE", 6);
    dxf.Point({7, 8});
    dxf.Path({Spot(0, 0), Spot(1, 0)});
    // Codes of the release of 1992: 0 begins, 2 names, 8 is the layer, 10 and 20 are the place, 11 and 21 the end.
    const std::string expected =
        "999,press,999,Lengths are in millimetres,"
        "0,SECTION,2,HEADER,9,$ACADVER,1,AC1009,9,$INSUNITS,70,4,9,$MEASUREMENT,70,1,9,$EXTMIN,10,-1.0,20,-4.5,30,0.0,"
        "9,$EXTMAX,10,7.0,20,8.0,30,0.0,9,$PDMODE,70,3,9,$PDSIZE,40,0.5,0,ENDSEC,"
        "0,SECTION,2,TABLES,0,TABLE,2,LTYPE,70,1,0,LTYPE,2,CONTINUOUS,70,0,3,Solid line,72,65,73,0,40,0.0,0,ENDTAB,"
        "0,TABLE,2,LAYER,70,2,0,LAYER,2,LINKS,70,0,62,5,6,CONTINUOUS,0,LAYER,2,CURVE,70,0,62,6,6,CONTINUOUS,0,ENDTAB,"
        "0,ENDSEC,0,SECTION,2,ENTITIES,"
        "0,LINE,8,LINKS,10,-1.0,20,2.0,11,3.0,21,-4.5,0,CIRCLE,8,LINKS,10,0.25,20,0.0,40,2.0,"
        "0,POINT,8,CURVE,10,7.0,20,8.0,"
        "0,POLYLINE,8,CURVE,66,1,10,0.0,20,0.0,30,0.0,70,0,0,VERTEX,8,CURVE,10,0.0,20,0.0,"
        "0,VERTEX,8,CURVE,10,1.0,20,0.0,0,SEQEND,8,CURVE,0,ENDSEC,0,EOF,";
    std::string content;
    for (const char letter : dxf.Content())
        if (letter != '\r') content += letter == '\n' ? ',' : letter;
    EXPECT_EQ(content, expected);
    const std::string inches = Dxf(Dxf_Unit::kInch, "", 1).Content();
    EXPECT_NE(inches.find("$INSUNITS\r\n70\r\n1\r\n9\r\n$MEASUREMENT\r\n70\r\n0\r\n"), std::string::npos) << inches;
}

TEST_F(Drawings, Close_a_path_whose_ends_are_a_hundred_thousandth_of_its_extent_apart) {
    const auto closed = [](const std::vector<Spot>& path) {
        Dxf drawing(Dxf_Unit::kInch, "", 1);
        drawing.Path(path);
        return drawing.Content().find("70\r\n1\r\n0\r\nVERTEX") != std::string::npos;
    };
    // It extends 5 or 0.05, from its start to (3, 4) or a hundredth of that, wherever that is.
    for (const double size : {1.0, 0.01})
        for (const double apart : {4.9e-5, 5.1e-5})
            for (const Spot start : {Spot(0, 0), Spot(100, 70)})
                EXPECT_EQ(closed({start, start + size, start + Spot(3, 4) * size, start + apart * size}), apart < 5e-5)
                    << apart << " of " << size;
    EXPECT_TRUE(closed(std::vector(4, Spot(2, 1)))) << "a point that does not move";
}

TEST_F(Drawings, Refuse_a_number_from_a_one_with_fifteen_zeros_on) {
    EXPECT_FALSE(What_Failed([&] { dxf.Point({0, 0.9999e15}); }));
    EXPECT_TRUE(What_Failed([&] { dxf.Point({0, 1e15}); }));
    EXPECT_TRUE(What_Failed([&] { dxf.Circle({0, 0}, -1.2e15); }));
    EXPECT_FALSE(What_Failed([&] { dxf.Line({-0.9999e15, 0}, {0, 0}); }));
}

TEST_F(Drawings, Have_letters_from_the_blank_to_the_tilde_in_their_remark) {
    EXPECT_TRUE(Dxf(Dxf_Unit::kInch, " ~\x1f\x7f", 1).Content().starts_with("999\r\n ~??\r\n"));
}

}  // namespace verlink::test
