// The chunks that such a file is made of.
#include "files/png.h"

#include <zlib.h>

#include <cstdint>

#include "platform/failure.h"

namespace verlink {

namespace {

std::string Big_Endian(std::uint32_t number) {
    std::string bytes;
    for (int shift = 24; shift >= 0; shift -= 8) bytes += static_cast<char>(number >> static_cast<unsigned>(shift));
    return bytes;
}

std::string Chunk(const std::string& name, const std::string& content) {
    const std::string summed = name + content;
    const auto sum = crc32(0, reinterpret_cast<const Bytef*>(summed.data()), static_cast<uInt>(summed.size()));
    return Big_Endian(static_cast<std::uint32_t>(content.size())) + summed +
           Big_Endian(static_cast<std::uint32_t>(sum));
}

std::string Packed(const std::string& bytes) {
    uLongf size = compressBound(bytes.size());
    std::string packed(size, '\0');
    if (compress(reinterpret_cast<Bytef*>(packed.data()), &size, reinterpret_cast<const Bytef*>(bytes.data()),
                 bytes.size()) != Z_OK)
        platform::Raise(platform::kOutOfMemory);
    packed.resize(size);
    return packed;
}

}  // namespace

std::string Png_File(const platform::Pixels& pixels) {
    std::string rows;
    std::size_t at = 0;
    for (int y = 0; y < pixels.high; ++y) {
        rows += '\0';  // no filter
        for (int x = 0; x < pixels.wide; ++x, ++at)
            for (const unsigned shift : {16U, 8U, 0U}) rows += static_cast<char>(pixels.colors[at] >> shift);
    }
    const std::string eight_bits_of_three_colors("\x08\x02\0\0\0", 5);
    return "\x89PNG\r\n\x1A\n" +
           Chunk("IHDR", Big_Endian(static_cast<std::uint32_t>(pixels.wide)) +
                             Big_Endian(static_cast<std::uint32_t>(pixels.high)) + eight_bits_of_three_colors) +
           Chunk("IDAT", Packed(rows)) + Chunk("IEND", "");
}

}  // namespace verlink
