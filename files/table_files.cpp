// The dialogs, and what becomes of their answers.
#include "files/table_files.h"

#include <array>

#include "files/picture_files.h"
#include "platform/desktop_services.h"
#include "platform/file_system.h"
#include "platform/guard.h"
#include "platform/pictures.h"
#include "platform/settings.h"

namespace verlink {

namespace {

constexpr char kTable[] = "table", kDrawing[] = "drawing";

struct Kind {
    const char *words, *end;
};
constexpr std::array kKinds{Kind{"Spreadsheet", ".xlsx"}, Kind{"Comma-separated text", ".csv"},
                            Kind{"Tab-separated text", ".txt"}};

/// "10th", "2nd".
std::string Nth(int every) {
    const int last = every % 10, tens = every % 100 / 10;
    const char* end = tens == 1 ? "th" : last == 1 ? "st" : last == 2 ? "nd" : last == 3 ? "rd" : "th";
    return std::to_string(every) + end;
}

}  // namespace

std::string Table_Filter(int every) {
    std::string filter;
    for (const Kind& kind : kKinds) {
        const std::string pattern = std::string("|*") + kind.end + "|";
        if (every > 1) {
            filter += std::string(kind.words) + ", every step" + pattern;
            filter += std::string(kind.words) + ", every " + Nth(every) + " step" + pattern;
        } else {
            filter += kind.words + pattern;
        }
    }
    return filter;
}

void Save_Table(const Table_To_Save& table) {
    const int choices = table.every > 1 ? 2 : 1;
    constexpr int kCount = static_cast<int>(kKinds.size());
    // Where every step is the only choice, the list has one entry a kind, and none is kept.
    const int offered = choices == 1 ? 1 : Entry_Taken(kTable, choices * kCount, 1);
    const auto path =
        platform::Ask_File({.title = "Save table",
                            .filter = Table_Filter(table.every),
                            .filter_index = offered,
                            .file_name = table.name + kKinds.at(static_cast<std::size_t>((offered - 1) / choices)).end,
                            .warn_before_overwriting = true,
                            .kind = kTable},
                           true);
    if (!path) return;
    const bool every_step = choices == 1 || Entry_Taken(kTable, choices * kCount, 1) % 2 == 1;
    if (const auto failure = What_Failed([&] {
            const Sheet sheet = table.sheet(every_step ? 1 : table.every);
            platform::Write_File(*path, Sheet_File(Sheet_Kind_Of(*path), sheet, table.model, table.author));
        }))
        Tell_Not_Written("The table could not be written to " + *path + ".", *failure);
}

void Save_Drawing(const std::function<std::string()>& content, const std::string& name) {
    const auto path = platform::Ask_File({.title = "Save drawing",
                                          .filter = "DXF drawing|*.dxf|",
                                          .file_name = name + ".dxf",
                                          .warn_before_overwriting = true,
                                          .kind = kDrawing},
                                         true);
    if (!path) return;
    if (const auto failure = What_Failed([&] { platform::Write_File(*path, content()); }))
        Tell_Not_Written("The drawing could not be written to " + *path + ".", *failure);
}

}  // namespace verlink
