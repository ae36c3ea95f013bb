// The library's calls, and the choice of colours.
#include "animation/gif.h"

#include <gif_lib.h>

#include <algorithm>
#include <bit>
#include <new>
#include <unordered_map>
#include <utility>

#include "platform/failure.h"

namespace verlink {

namespace {

constexpr std::size_t kMostColors = 256;
constexpr std::uint32_t kOpaque = 0xFF000000U;

struct Box {
    int left, top, wide, high;
};

/// The smallest rectangle that holds all that differs; one pixel where nothing does.
Box Changed(const std::vector<std::uint32_t>& before, const std::vector<std::uint32_t>& now, int wide, int high) {
    if (before.empty()) return {0, 0, wide, high};
    int left = wide, right = -1, top = high, bottom = -1;
    for (int y = 0; y < high; ++y) {
        const auto row = static_cast<std::ptrdiff_t>(y) * wide;
        const auto differs = std::mismatch(now.begin() + row, now.begin() + row + wide, before.begin() + row);
        if (differs.first == now.begin() + row + wide) continue;
        top = std::min(top, y);
        bottom = y;
        left = std::min(left, static_cast<int>(differs.first - now.begin() - row));
        int x = wide - 1;
        while (now[static_cast<std::size_t>(row + x)] == before[static_cast<std::size_t>(row + x)]) --x;
        right = std::max(right, x);
    }
    if (bottom < 0) return {0, 0, 1, 1};
    return {left, top, right - left + 1, bottom - top + 1};
}

/// What is left of a colour when only the upper bits of red, green and blue count.
std::uint32_t Coarse(std::uint32_t color, unsigned bits) {
    const std::uint32_t part = 0xFFU << (8U - bits) & 0xFFU;
    return color & (part << 16U | part << 8U | part);
}

}  // namespace

Few_Colors Reduced(const std::vector<std::uint32_t>& pixels) {
    std::unordered_map<std::uint32_t, std::size_t> counts;
    for (const std::uint32_t pixel : pixels) ++counts[pixel];
    struct Group {
        std::uint32_t chief{};
        std::size_t count{};
        std::uint8_t number{};
    };
    std::unordered_map<std::uint32_t, Group> groups;
    // With two bits each there are 64 at most.
    unsigned bits = 8;
    for (;; --bits) {
        groups.clear();
        for (const auto& [color, count] : counts) {
            Group& group = groups[Coarse(color, bits)];
            if (count < group.count || (count == group.count && color < group.chief)) continue;
            group.chief = color;
            group.count = count;
        }
        if (groups.size() <= kMostColors) break;
    }
    Few_Colors few;
    for (const auto& [coarse, group] : groups) few.colors.push_back(group.chief);
    std::ranges::sort(few.colors);
    for (std::size_t i = 0; i < few.colors.size(); ++i)
        groups[Coarse(few.colors[i], bits)].number = static_cast<std::uint8_t>(i);
    for (const std::uint32_t pixel : pixels) few.of_pixel.push_back(groups[Coarse(pixel, bits)].number);
    return few;
}

/// The library's file, which is written into a text.
class Gif::Coder {
   public:
    Coder(int wide, int high) : file_(EGifOpen(this, &Coder::Take, nullptr)) { Hold(file_ && Put_Head(wide, high)); }
    ~Coder() = default;
    Coder(const Coder&) = delete;
    Coder& operator=(const Coder&) = delete;

    void Put(const std::vector<std::uint32_t>& pixels, const Box& box, int hundredths) {
        Few_Colors few = Reduced(pixels);
        few.colors.resize(std::max<std::size_t>(2, std::bit_ceil(few.colors.size())), kOpaque);
        std::vector<GifColorType> colors;
        for (const std::uint32_t color : few.colors)
            colors.push_back({static_cast<GifByteType>(color >> 16U), static_cast<GifByteType>(color >> 8U),
                              static_cast<GifByteType>(color)});
        const std::unique_ptr<ColorMapObject, decltype(&GifFreeMapObject)> map(
            GifMakeMapObject(static_cast<int>(colors.size()), colors.data()), GifFreeMapObject);
        GraphicsControlBlock control{DISPOSE_DO_NOT, false, hundredths, NO_TRANSPARENT_COLOR};
        GifByteType extension[4];
        EGifGCBToExtension(&control, extension);
        GifFileType* file = file_.get();
        Hold(map && EGifPutExtension(file, GRAPHICS_EXT_FUNC_CODE, sizeof extension, extension) == GIF_OK &&
             EGifPutImageDesc(file, box.left, box.top, box.wide, box.high, false, map.get()) == GIF_OK);
        for (int y = 0; y < box.high; ++y)
            Hold(EGifPutLine(file, few.of_pixel.data() + static_cast<std::ptrdiff_t>(y) * box.wide, box.wide) ==
                 GIF_OK);
    }

    std::string Finish() {
        Hold(EGifCloseFile(file_.release(), nullptr) == GIF_OK);
        return std::move(written_);
    }

   private:
    static void Hold(bool done) {
        if (!done) platform::Raise(platform::kOutOfMemory);
    }
    /// It is played again and again.
    bool Put_Head(int wide, int high) {
        constexpr char kName[] = "NETSCAPE2.0";
        constexpr GifByteType kForever[] = {1, 0, 0};
        GifFileType* file = file_.get();
        EGifSetGifVersion(file, true);
        return EGifPutScreenDesc(file, wide, high, 8, 0, nullptr) == GIF_OK &&
               EGifPutExtensionLeader(file, APPLICATION_EXT_FUNC_CODE) == GIF_OK &&
               EGifPutExtensionBlock(file, sizeof kName - 1, kName) == GIF_OK &&
               EGifPutExtensionBlock(file, sizeof kForever, kForever) == GIF_OK &&
               EGifPutExtensionTrailer(file) == GIF_OK;
    }
    /// No exception may pass through the library.
    static int Take(GifFileType* file, const GifByteType* bytes, int count) {
        std::string& written = static_cast<Coder*>(file->UserData)->written_;
        const std::size_t before = written.size();
        try {
            written.append(reinterpret_cast<const char*>(bytes), count);
        } catch (const std::bad_alloc&) {
            // As the library sees by the count.
        }
        return static_cast<int>(written.size() - before);
    }
    struct Close {
        void operator()(GifFileType* file) const { EGifCloseFile(file, nullptr); }
    };

    std::string written_;  ///< still there when the file is closed
    std::unique_ptr<GifFileType, Close> file_;
};

Gif::Gif(int wide, int high) : coder_(std::make_unique<Coder>(wide, high)), wide_(wide), high_(high) {}
Gif::~Gif() = default;

void Gif::Add(const platform::Pixels& picture, int hundredths) {
    if (picture.wide != wide_ || picture.high != high_) platform::Raise(platform::kInvalidCall);
    const Box box = Changed(before_, picture.colors, wide_, high_);
    std::vector<std::uint32_t> part;
    for (int y = 0; y < box.high; ++y) {
        const auto row = picture.colors.begin() + static_cast<std::ptrdiff_t>(box.top + y) * wide_ + box.left;
        part.insert(part.end(), row, row + box.wide);
    }
    coder_->Put(part, box, hundredths);
    before_ = picture.colors;
}

std::string Gif::Finish() { return coder_->Finish(); }

}  // namespace verlink
