// Reads an animated picture back by the library, as any program that shows it does.
#pragma once

#include <gif_lib.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

namespace verlink::test {

struct Gif_Read {
    struct Frame {
        int hundredths;
        std::vector<std::uint32_t> pixels;          ///< 0xFFRRGGBB of the whole picture, as it stands then
        int left = 0, top = 0, wide = 0, high = 0;  ///< of what the file has of it
        int colors = 0;
        bool plain = false;  ///< stays for the next, waits for nobody and lets nothing shine through
    };
    int wide = 0, high = 0;
    std::string version;
    int bits = 0;  ///< of a colour's channel
    bool again_and_again = false;
    std::vector<Frame> frames;

    int Hundredths() const {
        int sum = 0;
        for (const Frame& frame : frames) sum += frame.hundredths;
        return sum;
    }
};

inline Gif_Read Read_Gif(const std::string& bytes) {
    struct Source {
        const std::string& bytes;
        std::size_t at = 0;
    } source{bytes};
    const auto give = [](GifFileType* file, GifByteType* to, int count) {
        auto& from = *static_cast<Source*>(file->UserData);
        const std::size_t given = std::min(static_cast<std::size_t>(count), from.bytes.size() - from.at);
        std::memcpy(to, from.bytes.data() + from.at, given);
        from.at += given;
        return static_cast<int>(given);
    };
    Gif_Read read;
    int error = 0;
    GifFileType* file = DGifOpen(&source, give, &error);
    if (!file || DGifSlurp(file) != GIF_OK) {
        ADD_FAILURE() << "no GIF: " << error;
        if (file) DGifCloseFile(file, &error);
        return read;
    }
    read.wide = file->SWidth;
    read.high = file->SHeight;
    read.version = bytes.substr(0, 6);
    read.bits = file->SColorResolution;
    std::vector<std::uint32_t> canvas(static_cast<std::size_t>(read.wide) * static_cast<std::size_t>(read.high), 0);
    for (int i = 0; i < file->ImageCount; ++i) {
        const SavedImage& image = file->SavedImages[i];
        for (int e = 0; e + 1 < image.ExtensionBlockCount; ++e) {
            const ExtensionBlock &name = image.ExtensionBlocks[e], &times = image.ExtensionBlocks[e + 1];
            if (name.Function != APPLICATION_EXT_FUNC_CODE) continue;
            const GifByteType forever[] = {1, 0, 0};
            read.again_and_again = name.ByteCount == 11 && std::memcmp(name.Bytes, "NETSCAPE2.0", 11) == 0 &&
                                   times.ByteCount == 3 && std::memcmp(times.Bytes, forever, 3) == 0;
        }
        GraphicsControlBlock control{};
        EXPECT_EQ(DGifSavedExtensionToGCB(file, i, &control), GIF_OK);
        const GifImageDesc& place = image.ImageDesc;
        const ColorMapObject* map = place.ColorMap ? place.ColorMap : file->SColorMap;
        for (int y = 0; y < place.Height; ++y)
            for (int x = 0; x < place.Width; ++x) {
                const GifColorType& color = map->Colors[image.RasterBits[y * place.Width + x]];
                canvas[static_cast<std::size_t>((place.Top + y) * read.wide + place.Left + x)] =
                    0xFF000000U | static_cast<std::uint32_t>(color.Red) << 16U |
                    static_cast<std::uint32_t>(color.Green) << 8U | color.Blue;
            }
        const bool plain = control.DisposalMode == DISPOSE_DO_NOT && !control.UserInputFlag &&
                           control.TransparentColor == NO_TRANSPARENT_COLOR;
        read.frames.push_back({control.DelayTime, canvas, place.Left, place.Top, place.Width, place.Height,
                               map->ColorCount, plain && !place.Interlace});
    }
    DGifCloseFile(file, &error);
    return read;
}

/// How far two colours are apart in the channel where they are furthest.
inline int Apart(std::uint32_t one, std::uint32_t other) {
    int most = 0;
    for (const unsigned shift : {0U, 8U, 16U})
        most =
            std::max(most, std::abs(static_cast<int>(one >> shift & 0xFFU) - static_cast<int>(other >> shift & 0xFFU)));
    return most;
}

}  // namespace verlink::test
