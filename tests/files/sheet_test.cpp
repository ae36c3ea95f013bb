// Tables for spreadsheets: as text, and as workbooks that other programs read.
#include "files/sheet.h"

#include <sys/inotify.h>
#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <csignal>
#include <cstring>
#include <filesystem>

#include "files/table_files.h"
#include "files/whole_zip.h"
#include "platform/file_system.h"
#include "platform/guard.h"
#include "platform/pictures.h"
#include "platform/settings.h"
#include "tests/support/fixture.h"
#include "tests/support/foreign.h"

namespace verlink::test {

namespace {

Sheet A_Sheet() {
    return {.name = "Table",
            .columns = {{.name = "Crank", .component = "Angle", .unit = "deg", .values = {0, 90, 180}, .decimals = 1},
                        {.name = "Veloc I 2,3",
                         .component = "X",
                         .unit = "in/sec",
                         .values = {0.1, std::nan(""), -1234.5678},
                         .least = -1234.5678,
                         .mean = -4.5,
                         .most = 0.1,
                         .decimals = 2}},
            .statistics = true};
}

const std::vector<Sheet_Fact> kModel = {{"Model", std::string("press & \"die\""), ""}, {"Link 2", 2.5, "in"}};

class Sheets : public Fixture {
   protected:
    Xlsx_Read Written(const std::string& book) {
        platform::Write_File(Path("a.xlsx"), book);
        return Read_Xlsx(Path("a.xlsx"));
    }
    static void Take_Entry(int entry) {
        platform::The_Settings().Put(platform::Entry_Setting("table"), std::to_string(entry));
    }
    Table_To_Save Table(int every) {
        return {.sheet =
                    [this](int rows) {
                        asked = rows;
                        return A_Sheet();
                    },
                .every = every,
                .model = kModel,
                .author = "Ada",
                .name = "press_table"};
    }
    int asked = 0;
};

}  // namespace

TEST_F(Sheets, Are_whole_with_more_behind_their_names_and_never_empty) {
    std::string archive = Workbook(A_Sheet(), kModel, "Ada");
    const auto number = [&archive](std::size_t at, int bytes) {
        std::size_t value = 0;
        for (int i = bytes; i-- > 0;)
            value = 256 * value + static_cast<unsigned char>(archive[at + static_cast<std::size_t>(i)]);
        return value;
    };
    // The first entry of its directory gets a field of four bytes and a remark of three.
    const std::size_t end = archive.size() - 22, first = number(end + 16, 4);
    archive[first + 30] = 4;
    archive[first + 32] = 3;
    archive.insert(first + 46 + number(first + 28, 2), "extrawd");
    EXPECT_TRUE(Is_Whole_Zip_Of_Xml(archive));
    archive[first + 32] = 2;
    EXPECT_FALSE(Is_Whole_Zip_Of_Xml(archive));
    EXPECT_FALSE(Is_Whole_Zip_Of_Xml("PK\5\6" + std::string(18, '\0'))) << "an empty one";
}

TEST_F(Sheets, Leave_cells_empty_behind_a_shorter_column) {
    Sheet sheet = A_Sheet();
    sheet.columns[1].values = {0.5};
    std::string text = Separated_Text(sheet, ',');
    std::erase(text, '\r');
    EXPECT_TRUE(text.ends_with("\n0,0.5\n90,\n180,\n")) << text;
    for (Sheet_Column& column : sheet.columns) column.values.clear();
    EXPECT_EQ(Separated_Text(sheet, ','), "Crank Angle (deg),\"Veloc I 2,3 X (in/sec)\"\r\n") << "no rows at all";
    sheet.columns[1].values = {1, 2, 3};
    sheet.columns[0].values = {4, 5, 6};
    sheet.columns[1].values.resize(1);
    text = Separated_Text(sheet, '\t');
    EXPECT_TRUE(text.ends_with("\r\n4\t1\r\n5\t\r\n6\t\r\n")) << "what it had there is gone: " << text;
}

TEST_F(Sheets, Have_nothing_below_their_statistics_without_rows) {
    const Xlsx_Read read =
        Written(Workbook({.name = "T", .columns = {{"A", "", ""}, {"B", "", ""}}, .statistics = true}, {}, ""));
    EXPECT_EQ(read.texts.size(), 5U) << "two heads, three words, and no rows";
    EXPECT_TRUE(read.numbers.empty());
}

TEST_F(Sheets, Have_heads_of_what_there_is_with_their_quotes_doubled) {
    const Sheet sheet{.name = "T", .columns = {{"Step", "", ""}, {"12\" stroke", "", "in"}, {"Force", "X", ""}}};
    EXPECT_EQ(Separated_Text(sheet, ','), "Step,\"12\"\" stroke (in)\",Force X\r\n");
}

TEST_F(Sheets, Are_refused_with_more_columns_than_a_workbook_has) {
    const auto failed = [](std::size_t columns) {
        Sheet sheet{.name = "T", .columns = {}};
        sheet.columns.resize(columns);
        return What_Failed([&] { Workbook(sheet, {}, ""); }).has_value();
    };
    EXPECT_FALSE(failed(16384));
    EXPECT_TRUE(failed(16385));
}

TEST_F(Sheets, Hold_letters_of_one_to_four_bytes_and_no_halves_of_them) {
    const std::pair<const char*, const char*> names[] = {
        {"plain", "plain"},
        {"\x7e", "\x7e"},
        {"\x80", "?"},
        {"\xc2\xa1\xdf\xbf", "\xc2\xa1\xdf\xbf"},
        {"\xe0\xa0\x80\xef\xbf\xbd", "\xe0\xa0\x80\xef\xbf\xbd"},
        {"\xf0\x9f\x98\x80\xf4\x8f\xbf\xbf", "\xf0\x9f\x98\x80\xf4\x8f\xbf\xbf"},
        {"\xc1\x80", "??"},
        {"\xf5\x80\x80\x80", "????"},
        {"a\xe2\x82", "a??"},
        {"\xc3(", "?("},
        {"\x01", "?"}};
    std::vector<Sheet_Fact> facts;
    for (const auto& [name, kept] : names) facts.push_back({"Model", std::string(name), ""});
    const Xlsx_Read read = Written(Workbook(A_Sheet(), facts, "Ada"));
    for (const auto& [name, kept] : names) {
        bool found = false;
        for (const auto& [cell, text] : read.texts) found = found || text == kept;
        EXPECT_TRUE(found) << kept;
    }
}

TEST_F(Sheets, Have_the_shortest_decimal_that_is_the_stored_number) {
    EXPECT_EQ(Decimal_Of(0.1), 0.1);
    EXPECT_EQ(Decimal_Of(1e-38), 1e-38);
    EXPECT_EQ(Decimal_Of(-16777217.0), -16777216.0);
    for (const float value : {1.0F / 3, 2.0F / 3, 1e10F / 7, -5.4321e-12F})
        EXPECT_EQ(static_cast<float>(Decimal_Of(value)), value);
}

TEST_F(Sheets, Are_text_with_one_head_a_column_and_all_digits) {
    EXPECT_EQ(Separated_Text(A_Sheet(), ','),
              "Crank Angle (deg),\"Veloc I 2,3 X (in/sec)\"\r\n0,0.1\r\n90,\r\n180,-1234.5678\r\n");
    EXPECT_EQ(Separated_Text(A_Sheet(), '\t'),
              "Crank Angle (deg)\tVeloc I 2,3 X (in/sec)\r\n0\t0.1\r\n90\t\r\n180\t-1234.5678\r\n");
}

TEST_F(Sheets, Are_workbooks_with_numbers_frozen_heads_statistics_and_the_model) {
    const Xlsx_Read read = Written(Workbook(A_Sheet(), kModel, "Ada"));
    const std::map<std::string, std::string> about = {
        {"title", "Table"}, {"author", "Ada"}, {"remark", "Made with Verlink"}};
    EXPECT_EQ(read.about, about);
    EXPECT_EQ(read.sheets, (std::vector<std::string>{"Table B7", "Model None"}));
    const std::map<std::string, std::string> texts = {{"Table!A1", "Crank"},
                                                      {"Table!B1", "Veloc I 2,3"},
                                                      {"Table!A2", "Angle"},
                                                      {"Table!B2", "X"},
                                                      {"Table!A3", "deg"},
                                                      {"Table!B3", "in/sec"},
                                                      {"Table!A4", "Min"},
                                                      {"Table!A5", "Avg"},
                                                      {"Table!A6", "Max"},
                                                      {"Model!A1", "Model"},
                                                      {"Model!B1", "press & \"die\""},
                                                      {"Model!A2", "Link 2"},
                                                      {"Model!C2", "in"}};
    EXPECT_EQ(read.texts, texts);
    const std::map<std::string, double> numbers = {
        {"Table!B4", -1234.5678}, {"Table!B5", -4.5}, {"Table!B6", 0.1},        {"Table!A7", 0},  {"Table!A8", 90},
        {"Table!A9", 180},        {"Table!B7", 0.1},  {"Table!B9", -1234.5678}, {"Model!B2", 2.5}};
    EXPECT_EQ(read.numbers, numbers) << "a cell that has no number is empty";
    EXPECT_EQ(read.formats.at("Table!A8"), "0.0");
    EXPECT_EQ(read.formats.at("Table!B7"), "0.00");
    for (const char* cell : {"A1", "B1", "A2", "B2", "A3", "B3", "A4", "A5", "A6"})
        EXPECT_EQ(read.looks.at(std::string("Table!") + cell), "bold center FFE6EBF2") << cell;
    for (const char* cell : {"B4", "B5", "B6"}) {
        EXPECT_EQ(read.looks.at(std::string("Table!") + cell), "plain None FFEEF7F6") << cell;
        EXPECT_EQ(read.formats.at(std::string("Table!") + cell), "0.00") << cell;
    }
    for (const char* cell : {"A1", "A2"})
        EXPECT_EQ(read.looks.at(std::string("Model!") + cell), "bold None none") << cell;
    EXPECT_EQ(read.looks.size(), 14U);
    // Letters of 7 pixels and 5 of air around them, in whole pixels and parts of 256.
    EXPECT_EQ(read.widths,
              (std::vector<std::string>{"Table! 1 2 13.7109375", "Model! 1 1 33.28515625", "Model! 2 2 20.28515625"}));
}

TEST_F(Sheets, Without_statistics_begin_below_their_heads) {
    Sheet sheet = A_Sheet();
    sheet.statistics = false;
    sheet.columns[0].decimals = 0;
    sheet.columns.push_back({.name = "", .component = "", .unit = "", .values = {3}, .decimals = -1});
    const Xlsx_Read read = Written(Workbook(sheet, {}, "Ada"));
    EXPECT_EQ(read.sheets.front(), "Table B4");
    EXPECT_EQ(read.numbers.at("Table!A4"), 0);
    EXPECT_EQ(read.numbers.at("Table!A6"), 180);
    EXPECT_EQ(read.formats.at("Table!A6"), "0");
    EXPECT_EQ(read.formats.at("Table!C4"), "0") << "no fewer than none";
    EXPECT_EQ(read.widths.front(), "Table! 1 3 13.7109375");
}

TEST_F(Sheets, Are_read_by_a_spreadsheet_program_number_by_number) {
    Sheet sheet{
        .name = "Table",
        .columns = {{.name = "Step", .component = "", .unit = ""}, {.name = "Value", .component = "", .unit = "in"}}};
    for (int i = 0; i < 500; ++i) {
        sheet.columns[0].values.push_back(i);
        sheet.columns[1].values.push_back(Decimal_Of(std::sin(i) * std::pow(10, i % 13 - 6)));
    }
    platform::Write_File(Path("a.xlsx"), Workbook(sheet, {}, ""));
    Said_By("ssconvert --export-type=Gnumeric_stf:stf_assistant -O 'format=raw separator=,' '" + Path("a.xlsx") +
            "' '" + Path("a.txt") + "' 2>&1");
    std::istringstream lines(platform::Read_File(Path("a.txt")));
    std::string line;
    for (int head = 0; head < 3; ++head) std::getline(lines, line);
    for (std::size_t i = 0; i < 500; ++i) {
        ASSERT_TRUE(std::getline(lines, line));
        EXPECT_EQ(std::stod(line), sheet.columns[0].values[i]);
        EXPECT_EQ(std::stod(line.substr(line.find(',') + 1)), sheet.columns[1].values[i]) << line;
    }
}

TEST_F(Sheets, Take_words_of_any_bytes) {
    const Xlsx_Read read = Written(Workbook(
        A_Sheet(), {{"Model", std::string("\xFF<a>\x01 gr\xC3\xB6\xC3"), ""}, {"Long", std::string(50000, 'x'), ""}},
        "\xE9ve"));
    EXPECT_EQ(read.texts.at("Model!B1"), "?<a>? gr\xC3\xB6?");
    EXPECT_EQ(read.texts.at("Model!B2").size(), 4000U);
    EXPECT_EQ(read.about.at("author"), "?ve");
}

TEST_F(Sheets, Leave_nothing_of_their_making) {
    const std::string folder = Path("workshop");
    ASSERT_TRUE(platform::Make_Folder(folder));
    const int watch = ::inotify_init1(IN_NONBLOCK);
    ::inotify_add_watch(watch, folder.c_str(), IN_CREATE);
    ::setenv("TMPDIR", folder.c_str(), 1);
    Workbook(A_Sheet(), kModel, "Ada");
    ::unsetenv("TMPDIR");
    EXPECT_TRUE(std::filesystem::is_empty(folder));
    // What came there was one folder, in which all of the making was.
    std::string made(4096, '\0');
    made.resize(static_cast<std::size_t>(std::max<ssize_t>(::read(watch, made.data(), made.size()), 0)));
    ::close(watch);
    inotify_event event{};
    ASSERT_GT(made.size(), sizeof event);
    std::memcpy(&event, made.data(), sizeof event);
    EXPECT_TRUE(event.mask & IN_ISDIR);
    EXPECT_EQ(made.size(), sizeof event + event.len) << "and nothing else";
}

TEST_F(Sheets, Are_refused_where_there_is_no_room_to_make_them) {
    Sheet sheet = A_Sheet();
    sheet.columns[1].values.assign(3000, 1.0 / 3);
    const auto before = std::signal(SIGXFSZ, SIG_IGN);
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    for (const rlim_t room : {rlim_t{0}, rlim_t{600}, rlim_t{20000}, rlim_t{100000}}) {
        SCOPED_TRACE(room);
        rlimit small = limit;
        small.rlim_cur = room;
        setrlimit(RLIMIT_FSIZE, &small);
        const auto failure = What_Failed([&] { Workbook(sheet, kModel, "Ada"); });
        setrlimit(RLIMIT_FSIZE, &limit);
        EXPECT_TRUE(failure);
    }
    std::signal(SIGXFSZ, before);
    EXPECT_FALSE(What_Failed([&] { Workbook(sheet, kModel, "Ada"); }));
}

TEST_F(Sheets, Are_whole_only_with_each_byte_in_its_place) {
    const std::string book = Workbook(A_Sheet(), kModel, "Ada");
    EXPECT_TRUE(Is_Whole_Zip_Of_Xml(book));
    EXPECT_FALSE(Is_Whole_Zip_Of_Xml(book.substr(0, book.size() - 1)));
    EXPECT_FALSE(Is_Whole_Zip_Of_Xml(book.substr(1)));
    EXPECT_FALSE(Is_Whole_Zip_Of_Xml({}));
    // Within what was packed of the first entry.
    for (std::size_t at = 80; at < 120; ++at) {
        std::string broken = book;
        broken[at] = static_cast<char>(broken[at] ^ 0x55);
        EXPECT_FALSE(Is_Whole_Zip_Of_Xml(broken)) << at;
    }
}

TEST_F(Sheets, Are_offered_as_three_kinds_with_every_step_and_every_so_many) {
    desktop.Expect_Save({});
    Save_Table(Table(10));
    ASSERT_EQ(desktop.Dialogs.size(), 1U);
    const platform::FileDialog& dialog = desktop.Dialogs[0];
    EXPECT_EQ(dialog.title, "Save table");
    EXPECT_EQ(dialog.filter,
              "Spreadsheet, every step|*.xlsx|Spreadsheet, every 10th step|*.xlsx|"
              "Comma-separated text, every step|*.csv|Comma-separated text, every 10th step|*.csv|"
              "Tab-separated text, every step|*.txt|Tab-separated text, every 10th step|*.txt|");
    EXPECT_EQ(dialog.file_name, "press_table.xlsx");
    EXPECT_EQ(dialog.filter_index, 1);
    EXPECT_EQ(dialog.kind, "table");
    EXPECT_TRUE(dialog.warn_before_overwriting);
    EXPECT_EQ(asked, 0) << "nothing is made for nobody";
    EXPECT_EQ(Table_Filter(1), "Spreadsheet|*.xlsx|Comma-separated text|*.csv|Tab-separated text|*.txt|");
    EXPECT_NE(Table_Filter(2).find("every 2nd step"), std::string::npos);
    EXPECT_NE(Table_Filter(3).find("every 3rd step"), std::string::npos);
    EXPECT_NE(Table_Filter(21).find("every 21st step"), std::string::npos);
    for (const char* nth :
         {"4th", "11th", "12th", "13th", "20th", "22nd", "23rd", "101st", "111th", "112th", "113th", "211th", "1012th"})
        EXPECT_NE(Table_Filter(std::atoi(nth)).find("every " + std::string(nth) + " step"), std::string::npos) << nth;
}

TEST_F(Sheets, Are_saved_as_the_kind_of_the_name_with_the_rows_of_the_entry) {
    struct Choice {
        int entry;
        const char* name;
        int rows;
        const char* begins;
    };
    for (const Choice& choice :
         {Choice{1, "a.xlsx", 1, "PK"}, Choice{2, "b.xlsx", 10, "PK"}, Choice{3, "c.csv", 1, "Crank Angle (deg),"},
          Choice{4, "d.CSV", 10, "Crank Angle (deg),"}, Choice{6, "e.txt", 10, "Crank Angle (deg)\t"},
          Choice{1, "f.tsv", 1, "Crank Angle (deg)\t"}}) {
        SCOPED_TRACE(choice.name);
        Take_Entry(choice.entry);
        desktop.Expect_Save(Path(choice.name));
        Save_Table(Table(10));
        EXPECT_EQ(asked, choice.rows);
        EXPECT_TRUE(platform::Read_File(Path(choice.name)).starts_with(choice.begins));
    }
    Take_Entry(4);
    desktop.Expect_Save({});
    Save_Table(Table(10));
    EXPECT_EQ(desktop.Dialogs.back().file_name, "press_table.csv") << "what was taken last is offered";
    const char* ends[] = {"xlsx", "xlsx", "csv", "csv", "txt", "txt", "xlsx"};
    for (int entry = 1; entry <= 7; ++entry) {
        Take_Entry(entry);
        desktop.Expect_Save({});
        Save_Table(Table(2));
        EXPECT_EQ(desktop.Dialogs.back().file_name, std::string("press_table.") + ends[entry - 1]) << entry;
        EXPECT_EQ(desktop.Dialogs.back().filter_index, entry <= 6 ? entry : 1);
        desktop.Expect_Save({});
        Save_Table(Table(1));
        EXPECT_EQ(desktop.Dialogs.back().file_name, "press_table.xlsx") << "one entry a kind, and none is kept";
        EXPECT_EQ(desktop.Dialogs.back().filter_index, 1);
    }
    Take_Entry(4);
    desktop.Expect_Save(Path("g.csv"));
    Save_Table(Table(1));
    EXPECT_EQ(asked, 1);
    platform::The_Settings().Put(platform::Entry_Setting("table"), "");
    desktop.Expect_Save(Path("h.csv"));
    Save_Table(Table(10));
    EXPECT_EQ(asked, 1) << "where none was taken yet, every step";
}

TEST_F(Sheets, Are_of_the_kind_that_the_end_of_their_name_says) {
    for (const char* name : {"a.csv", "b.x.CSV", ".csv"}) EXPECT_EQ(Sheet_Kind_Of(name), Sheet_Kind::kCsv) << name;
    for (const char* name : {"a.txt", "a.Tsv", "a.dat"}) EXPECT_EQ(Sheet_Kind_Of(name), Sheet_Kind::kTabs) << name;
    for (const char* name : {"a.xlsx", "csv", "", "a.csv.zip", "a."})
        EXPECT_EQ(Sheet_Kind_Of(name), Sheet_Kind::kXlsx) << name;
}

TEST_F(Sheets, That_cannot_be_written_are_told_with_the_reason) {
    desktop.Expect_Save(Path("nowhere/a.csv"));
    desktop.Expect_Message("The table could not be written to " + Path("nowhere/a.csv") + ".\r\nThere is no folder " +
                               Path("nowhere") + ".",
                           platform::Answer::kOk, platform::Icon::kExclamation);
    Save_Table(Table(1));
}

}  // namespace verlink::test
