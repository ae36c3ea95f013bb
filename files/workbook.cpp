// Tables as workbooks of spreadsheets.
#include <xlsxwriter.h>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>
#include <utility>

#include "files/sheet.h"
#include "files/whole_zip.h"
#include "platform/failure.h"
#include "platform/file_trouble.h"

namespace verlink {

namespace {

namespace fs = std::filesystem;

/// A folder for the user alone, where the workbook is put together; it goes away with what lies in it.
class Workshop {
   public:
    Workshop() {
        std::error_code none;
        folder_ = (fs::temp_directory_path(none) / "verlink-XXXXXX").string();
        if (!::mkdtemp(folder_.data())) platform::Raise_File(folder_, platform::Way::kWriting, errno);
    }
    ~Workshop() {
        std::error_code ignored;
        fs::remove_all(folder_, ignored);
    }
    Workshop(const Workshop&) = delete;
    Workshop& operator=(const Workshop&) = delete;

    std::string Folder() const { return folder_; }
    std::string Product() const { return folder_ + "/book.xlsx"; }

   private:
    std::string folder_;
};

/// How many bytes a letter has that begins so in UTF-8; 0 for none that does.
std::size_t Letter_Size(unsigned char first) {
    if (first < 0x80) return 1;
    if (first >= 0xC2 && first < 0xE0) return 2;
    if (first >= 0xE0 && first < 0xF0) return 3;
    return first >= 0xF0 && first < 0xF5 ? 4 : 0;
}

/// What a cell can hold: letters only, and not too many.
std::string Cell_Text(const std::string& text) {
    constexpr std::size_t kMost = 4000;
    std::string cell;
    for (std::size_t at = 0; at < text.size() && cell.size() < kMost;) {
        const auto first = static_cast<unsigned char>(text[at]);
        const std::size_t size = Letter_Size(first);
        bool whole = size > 0 && at + size <= text.size() && (first >= ' ' || first == '\t');
        for (std::size_t next = 1; whole && next < size; ++next)
            whole = (static_cast<unsigned char>(text[at + next]) & 0xC0U) == 0x80;
        cell += whole ? text.substr(at, size) : "?";
        at += whole ? size : 1;
    }
    return cell;
}

class Book {
   public:
    Book(const Workshop& workshop, const std::string& title, const std::string& author)
        : folder_(workshop.Folder()), path_(workshop.Product()) {
        lxw_workbook_options options{};
        options.tmpdir = folder_.data();
        book_ = workbook_new_opt(path_.c_str(), &options);
        if (!book_) platform::Raise(platform::kOutOfMemory);
        std::string kept_title = Cell_Text(title), kept_author = Cell_Text(author), program = "Made with Verlink";
        lxw_doc_properties properties{};
        properties.title = kept_title.data();
        properties.author = kept_author.data();
        properties.comments = program.data();
        workbook_set_properties(book_, &properties);
        head_ = workbook_add_format(book_);
        format_set_bold(head_);
        format_set_align(head_, LXW_ALIGN_CENTER);
        format_set_bg_color(head_, kHeadTint);
        words_ = workbook_add_format(book_);
        format_set_bold(words_);
    }
    ~Book() {
        if (book_) workbook_close(book_);
    }
    Book(const Book&) = delete;
    Book& operator=(const Book&) = delete;

    void Add_Table(const Sheet& sheet) {
        constexpr int kHeads = 3, kStatistics = 3;
        lxw_worksheet* page = Page(sheet.name);
        const int first = kHeads + (sheet.statistics ? kStatistics : 0);
        for (std::size_t i = 0; i < sheet.columns.size(); ++i) {
            const Sheet_Column& column = sheet.columns[i];
            const auto at = static_cast<lxw_col_t>(i);
            Words(page, 0, at, column.name, head_);
            Words(page, 1, at, column.component, head_);
            Words(page, 2, at, column.unit, head_);
            if (sheet.statistics) Statistics(page, kHeads, at, column);
            lxw_format* format = Decimals(column.decimals);
            for (std::size_t row = 0; row < column.values.size(); ++row)
                Number(page, static_cast<lxw_row_t>(row) + first, at, column.values[row], format);
        }
        worksheet_set_column(page, 0, static_cast<lxw_col_t>(sheet.columns.size() - 1), kWide, nullptr);
        worksheet_freeze_panes(page, static_cast<lxw_row_t>(first), 1);
    }

    void Add_Model(const std::vector<Sheet_Fact>& facts) {
        lxw_worksheet* page = Page("Model");
        lxw_row_t row = 0;
        for (const Sheet_Fact& fact : facts) {
            Words(page, row, 0, fact.what, words_);
            if (const auto* number = std::get_if<double>(&fact.value))
                Number(page, row, 1, *number, nullptr);
            else
                Words(page, row, 1, std::get<std::string>(fact.value), nullptr);
            Words(page, row++, 2, fact.unit, nullptr);
        }
        worksheet_set_column(page, 0, 0, 2.5 * kWide, nullptr);
        worksheet_set_column(page, 1, 1, 1.5 * kWide, nullptr);
    }

    /// The file, for as long as the workshop is there.
    std::string Finished() {
        const lxw_error error = workbook_close(std::exchange(book_, nullptr));
        if (error == LXW_NO_ERROR && !failed_) {
            std::ifstream file(path_, std::ios::binary);
            std::string book(std::istreambuf_iterator<char>(file), {});
            if (Is_Whole_Zip_Of_Xml(book)) return book;
        }
        platform::Refuse_File(folder_, platform::Way::kWriting,
                              "a workbook that is made there does not come out whole");
    }

   private:
    static constexpr lxw_color_t kHeadTint = 0xE6EBF2, kStatisticsTint = 0xEEF7F6;
    static constexpr double kWide = 13;

    lxw_worksheet* Page(const std::string& name) {
        lxw_worksheet* page = workbook_add_worksheet(book_, name.c_str());
        if (!page) platform::Raise(platform::kInvalidCall);
        return page;
    }

    lxw_format* Decimals(int decimals) {
        lxw_format* format = workbook_add_format(book_);
        const std::string zeros(static_cast<std::size_t>(std::max(decimals, 0)), '0');
        format_set_num_format(format, zeros.empty() ? "0" : ("0." + zeros).c_str());
        return format;
    }

    void Statistics(lxw_worksheet* page, int row, lxw_col_t at, const Sheet_Column& column) {
        const double values[] = {column.least, column.mean, column.most};
        constexpr const char* kNames[] = {"Min", "Avg", "Max"};
        lxw_format* format = Decimals(column.decimals);
        format_set_bg_color(format, kStatisticsTint);
        for (int i = 0; i < 3; ++i) {
            if (at == 0)
                Words(page, static_cast<lxw_row_t>(row + i), at, kNames[i], head_);
            else
                Number(page, static_cast<lxw_row_t>(row + i), at, values[i], format);
        }
    }

    void Words(lxw_worksheet* page, lxw_row_t row, lxw_col_t at, const std::string& text, lxw_format* format) {
        const std::string cell = Cell_Text(text);
        Hold(cell.empty() ? worksheet_write_blank(page, row, at, format)
                          : worksheet_write_string(page, row, at, cell.c_str(), format));
    }

    void Number(lxw_worksheet* page, lxw_row_t row, lxw_col_t at, double value, lxw_format* format) {
        if (std::isfinite(value)) Hold(worksheet_write_number(page, row, at, value, format));
    }

    void Hold(lxw_error error) { failed_ = failed_ || error != LXW_NO_ERROR; }

    std::string folder_, path_;
    lxw_workbook* book_ = nullptr;
    lxw_format *head_ = nullptr, *words_ = nullptr;
    bool failed_ = false;
};

}  // namespace

std::string Workbook(const Sheet& sheet, const std::vector<Sheet_Fact>& model, const std::string& author) {
    const Workshop workshop;
    Book book(workshop, sheet.name, author);
    book.Add_Table(sheet);
    book.Add_Model(model);
    return book.Finished();
}

}  // namespace verlink
