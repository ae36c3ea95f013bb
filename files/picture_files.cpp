// The dialog of pictures, and the one way by which they are written.
#include "files/picture_files.h"

#include <algorithm>
#include <array>
#include <cctype>

#include "platform/desktop_services.h"
#include "platform/file_system.h"
#include "platform/guard.h"
#include "platform/settings.h"

namespace verlink {

using platform::Picture_Kind;
using platform::Picture_Maker;

namespace {

constexpr char kKind[] = "picture";
/// Pixels for each on the screen, in the order of the dialog's list.
constexpr std::array kDensities{1, 2, 4};
constexpr int kUsual = 2;

std::string Filter(const Picture_Maker& maker) {
    std::string filter;
    for (const int density : kDensities)
        filter += "PNG picture, " + std::to_string(density * maker.Wide()) + " x " +
                  std::to_string(density * maker.High()) + " pixels|*.png|";
    return filter + "SVG drawing|*.svg|PDF document|*.pdf|";
}

Picture_Kind Kind_Of(const std::string& path) {
    std::string end = path.substr(std::min(path.size(), path.find_last_of('.')));
    std::ranges::transform(end, end.begin(), [](unsigned char letter) { return std::tolower(letter); });
    if (end == ".svg") return Picture_Kind::kSvg;
    return end == ".pdf" ? Picture_Kind::kPdf : Picture_Kind::kPng;
}

}  // namespace

int Entry_Taken(const std::string& kind, int entries, int usual) {
    const long kept = platform::The_Settings().Number(platform::Entry_Setting(kind)).value_or(usual);
    return kept >= 1 && kept <= entries ? static_cast<int>(kept) : usual;
}

void Write_Picture(Picture_Maker& maker, const std::string& path, double density) {
    platform::Write_File(path, maker.File(Kind_Of(path), density));
}

void Tell_Not_Written(const std::string& lost, const platform::RuntimeFailure& failure) {
    std::string text = lost;
    if (!failure.Trouble().path.empty()) text += platform::CRLF + failure.Trouble().Sentence();
    platform::Tell(text, platform::Icon::kExclamation);
}

void Save_Picture(Picture_Maker& maker, const std::string& model, const std::string& what) {
    constexpr int kEntries = static_cast<int>(kDensities.size());
    const int offered = Entry_Taken(kKind, kEntries + 2, kUsual);
    const std::string end = offered <= kEntries ? ".png" : offered == kEntries + 1 ? ".svg" : ".pdf";
    const auto path = platform::Ask_File({.title = "Save picture",
                                          .filter = Filter(maker),
                                          .filter_index = offered,
                                          .file_name = (model.empty() ? what : model + "_" + what) + end,
                                          .warn_before_overwriting = true,
                                          .kind = kKind},
                                         true);
    if (!path) return;
    // Who took vectors and then typed a name of the other kind has the usual density.
    const double density = kDensities.at(static_cast<std::size_t>(Entry_Taken(kKind, kEntries, kUsual)) - 1);
    if (const auto failure = What_Failed([&] { Write_Picture(maker, *path, density); }))
        Tell_Not_Written("The picture could not be written to " + *path + ".", *failure);
}

}  // namespace verlink
