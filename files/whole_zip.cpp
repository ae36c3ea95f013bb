// The directory at the end of the archive is gone through, and each entry unpacked.
#include "files/whole_zip.h"

#include <zlib.h>

#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>

namespace verlink {

namespace {

constexpr std::uint32_t kEnd = 0x06054b50, kEntry = 0x02014b50, kLocal = 0x04034b50;
constexpr std::size_t kEndSize = 22, kEntrySize = 46, kLocalSize = 30;

/// Little-endian numbers of a text; nothing beyond its end.
std::uint32_t Number(const std::string& text, std::size_t at, int bytes) {
    std::uint32_t number = 0;
    for (int byte = bytes - 1; byte >= 0; --byte) {
        const std::size_t place = at + static_cast<std::size_t>(byte);
        number = number << 8U | (place < text.size() ? static_cast<unsigned char>(text[place]) : 0U);
    }
    return number;
}

std::optional<std::string> Unpacked(const std::string& packed, std::size_t size) {
    std::string text(size, '\0');
    z_stream stream{};
    if (inflateInit2(&stream, -MAX_WBITS) != Z_OK) return {};
    // zlib reads only, though its type does not say so.
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(packed.data()));
    stream.avail_in = static_cast<uInt>(packed.size());
    stream.next_out = reinterpret_cast<Bytef*>(text.data());
    stream.avail_out = static_cast<uInt>(text.size());
    const bool whole = inflate(&stream, Z_FINISH) == Z_STREAM_END && stream.avail_out == 0;
    inflateEnd(&stream);
    return whole ? std::optional(std::move(text)) : std::nullopt;
}

/// The last element that is closed is the first that was opened.
bool Is_Whole_Xml(const std::string& text) {
    std::size_t open = text.find('<');
    while (open != std::string::npos && open + 1 < text.size() && text[open + 1] == '?')
        open = text.find('<', open + 1);
    if (open == std::string::npos) return false;
    const std::string root = text.substr(open + 1, text.find_first_of(" \t\r\n/>", open) - open - 1);
    const std::size_t end = text.find_last_not_of(" \t\r\n");
    if (text[end] != '>') return false;
    const std::string closing = "</" + root + ">";
    if (std::string_view(text).substr(0, end + 1).ends_with(closing)) return true;
    // A root that is closed at once, and nothing behind it.
    return text[end - 1] == '/' && text.find('>', open) == end;
}

bool Is_Whole_Entry(const std::string& archive, std::size_t at) {
    constexpr std::uint32_t kDeflated = 8;
    const std::uint32_t method = Number(archive, at + 10, 2), sum = Number(archive, at + 16, 4);
    const std::size_t packed = Number(archive, at + 20, 4), size = Number(archive, at + 24, 4);
    const std::size_t local = Number(archive, at + 42, 4);
    if (method != kDeflated || Number(archive, local, 4) != kLocal) return false;
    const std::size_t start = local + kLocalSize + Number(archive, local + 26, 2) + Number(archive, local + 28, 2);
    if (start + packed > archive.size()) return false;
    const auto text = Unpacked(archive.substr(start, packed), size);
    return text && crc32(0, reinterpret_cast<const Bytef*>(text->data()), static_cast<uInt>(size)) == sum &&
           Is_Whole_Xml(*text);
}

}  // namespace

bool Is_Whole_Zip_Of_Xml(const std::string& archive) {
    if (archive.size() < kEndSize) return false;
    const std::size_t end = archive.size() - kEndSize;  // there is no remark behind it
    if (Number(archive, end, 4) != kEnd) return false;
    const std::uint32_t entries = Number(archive, end + 10, 2);
    std::size_t at = Number(archive, end + 16, 4);
    for (std::uint32_t entry = 0; entry < entries; ++entry) {
        if (Number(archive, at, 4) != kEntry || !Is_Whole_Entry(archive, at)) return false;
        at += kEntrySize + Number(archive, at + 28, 2) + Number(archive, at + 30, 2) + Number(archive, at + 32, 2);
    }
    return entries > 0 && at == end;
}

}  // namespace verlink
