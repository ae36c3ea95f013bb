// The file of settings: a first line that says what it is, then a line for each name.
#include "platform/settings.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <sstream>

#include "platform/failure.h"
#include "platform/file_system.h"
#include "platform/guard.h"

namespace verlink::platform {

namespace {

constexpr char kFirstLine[] = "Verlink settings 1";
constexpr char kFile[] = "settings";
/// Far more than anybody's settings take.
constexpr std::uintmax_t kMostBytes = 1 << 20;

/// A text in one line, and an item of a list before its tab.
std::string Escaped(const std::string& text) {
    std::string escaped;
    for (const char letter : text) switch (letter) {
            case '\\': escaped += "\\\\"; break;
            case '\n': escaped += "\\n"; break;
            case '\t': escaped += "\\t"; break;
            default: escaped += letter;
        }
    return escaped;
}

std::string Unescaped(const std::string& line) {
    std::string text;
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (line[i] != '\\' || i + 1 == line.size()) {
            text += line[i];
            continue;
        }
        ++i;
        text += line[i] == 'n' ? '\n' : line[i] == 't' ? '\t' : line[i];
    }
    return text;
}

bool Is_Name(const std::string& text) {
    const auto belongs = [](char letter) {
        return (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z') ||
               (letter >= '0' && letter <= '9') || letter == '.' || letter == '_';
    };
    return !text.empty() && std::ranges::all_of(text, belongs);
}

}  // namespace

Settings& The_Settings() {
    static Settings settings;
    return settings;
}

Settings::Kept Settings::Read(const std::string& path) {
    Kept kept;
    std::string content;
    std::error_code failed;  // which makes it as large as can be
    if (!Is_Plain_File(path) || std::filesystem::file_size(path, failed) > kMostBytes) return kept;
    if (Failure_Of([&] { content = Read_File(path); }) != 0 || content.find('\0') != std::string::npos) return kept;
    std::istringstream lines(content);
    std::string line;
    if (!std::getline(lines, line) || line != kFirstLine) return kept;
    while (std::getline(lines, line)) {
        const std::size_t sign = line.find('=');
        // A line without an end was cut off.
        if (lines.eof() || sign == std::string::npos || !Is_Name(line.substr(0, sign))) continue;
        kept[line.substr(0, sign)] = line.substr(sign + 1);
    }
    return kept;
}

void Settings::Open(const std::string& folder) {
    folder_ = folder;
    path_ = folder.empty() ? "" : folder + "/" + kFile;
    changed_.clear();
    kept_ = folder.empty() ? Kept() : Read(path_);
}

void Settings::Look_Again() {
    Kept now = Read(path_);
    for (const std::string& name : changed_) now[name] = kept_[name];
    kept_ = std::move(now);
}

std::string Settings::Text(const std::string& name) const {
    const auto found = kept_.find(name);
    return found == kept_.end() ? "" : Unescaped(found->second);
}

std::optional<long> Settings::Number(const std::string& name) const {
    const std::string text = Text(name);
    long number = 0;
    const char* const last = std::to_address(text.end());
    const auto [end, error] = std::from_chars(text.data(), last, number);
    if (error != std::errc() || end != last) return {};
    return number;
}

std::vector<std::string> Settings::List(const std::string& name) const {
    std::vector<std::string> list;
    const auto found = kept_.find(name);
    if (found == kept_.end()) return list;
    std::istringstream items(found->second);
    for (std::string item; std::getline(items, item, '\t');) list.push_back(Unescaped(item));
    return list;
}

void Settings::Put(const std::string& name, const std::string& text) {
    const std::string line = Escaped(text);
    if (Has(name) && kept_[name] == line) return;
    kept_[name] = line;
    changed_.insert(name);
}

void Settings::Put(const std::string& name, const std::vector<std::string>& list) {
    std::string line;
    for (const std::string& item : list) line += Escaped(item) + "\t";
    if (Has(name) && kept_[name] == line) return;
    kept_[name] = line;
    changed_.insert(name);
}

void Settings::Save() {
    if (path_.empty() || changed_.empty()) return;
    Look_Again();
    std::string content = std::string(kFirstLine) + "\n";
    for (const auto& [name, line] : kept_) content += name + "=" + line + "\n";
    if (Make_Folder(folder_) && Failure_Of([&] { Write_File(path_, content); }) == 0) changed_.clear();
}

}  // namespace verlink::platform
