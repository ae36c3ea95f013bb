// The directory at the end of the archive is gone through, and each entry unpacked.
#include "files/whole_zip.h"

#include <zlib.h>

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>

namespace verlink {

namespace {

constexpr std::uint32_t kEnd = 0x06054b50, kEntry = 0x02014b50, kLocal = 0x04034b50;
constexpr std::size_t kEndSize = 22, kEntrySize = 46, kLocalSize = 30;

/// A byte of a text, and little-endian numbers of two and four; nothing beyond its end.
std::uint32_t Byte(const std::string& text, std::size_t at) {
    return static_cast<unsigned char>(text[std::min(at, text.size())]);
}
std::uint32_t Two(const std::string& text, std::size_t at) { return Byte(text, at) | Byte(text, at + 1) << 8U; }
std::uint32_t Four(const std::string& text, std::size_t at) { return Two(text, at) | Two(text, at + 2) << 16U; }

std::optional<std::string> Unpacked(const std::string& packed, std::size_t size) {
    std::string text(size, '\0');
    z_stream stream{};
    if (inflateInit2(&stream, -MAX_WBITS) != Z_OK) return {};
    // zlib reads only, though its type does not say so.
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(packed.data()));
    stream.avail_in = static_cast<uInt>(packed.size());
    stream.next_out = reinterpret_cast<Bytef*>(text.data());
    stream.avail_out = static_cast<uInt>(text.size());
    const bool whole = inflate(&stream, Z_FINISH) == Z_STREAM_END;
    inflateEnd(&stream);
    return whole ? std::optional(std::move(text)) : std::nullopt;
}

/// The last element that is closed is the first that was opened.
bool Is_Whole_Xml(const std::string& text) {
    std::size_t name = text.find('<');
    while (name != std::string::npos && text[++name] == '?') name = text.find('<', name);
    if (name == std::string::npos) return false;
    const std::string root = text.substr(name, text.find_first_of(" \t\r\n/>", name) - name);
    const std::size_t end = text.find_last_not_of(" \t\r\n");
    if (std::string_view(text).substr(0, end + 1).ends_with("</" + root + ">")) return true;
    // A root that is closed at once, and nothing behind it.
    return text.find('>', name) == end && text[end - 1] == '/';
}

bool Is_Whole_Entry(const std::string& archive, std::size_t at) {
    constexpr std::uint32_t kDeflated = 8;
    const std::uint32_t method = Two(archive, at + 10), sum = Four(archive, at + 16);
    const std::size_t packed = Four(archive, at + 20), size = Four(archive, at + 24);
    const std::size_t local = Four(archive, at + 42);
    if (method != kDeflated || Four(archive, local) != kLocal) return false;
    const std::size_t start = local + kLocalSize + Two(archive, local + 26) + Two(archive, local + 28);
    const auto text = Unpacked(archive.substr(std::min(start, archive.size()), packed), size);
    return text && crc32(0, reinterpret_cast<const Bytef*>(text->data()), static_cast<uInt>(size)) == sum &&
           Is_Whole_Xml(*text);
}

}  // namespace

bool Is_Whole_Zip_Of_Xml(const std::string& archive) {
    const std::size_t end = archive.size() - kEndSize;  // no remark is behind it, and nothing there if it is shorter
    if (Four(archive, end) != kEnd) return false;
    const std::uint32_t entries = Two(archive, end + 10);
    std::size_t at = Four(archive, end + 16);
    for (std::uint32_t entry = 0; entry < entries; ++entry) {
        if (Four(archive, at) != kEntry || !Is_Whole_Entry(archive, at)) return false;
        at += kEntrySize + Two(archive, at + 28) + Two(archive, at + 30) + Two(archive, at + 32);
    }
    return entries > 0 && at == end;
}

}  // namespace verlink
