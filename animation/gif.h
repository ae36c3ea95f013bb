// An animated picture, written as GIF.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/pictures.h"

namespace verlink {

/// Takes one picture after another and keeps of each what differs from the one before. It plays again and again.
/// Each picture has up to 256 colours of its own: as they are where there are no more, else each becomes the most
/// frequent one of those next to it, so that plain colours stay as they are. What fails is failure 7.
class Gif {
   public:
    Gif(int wide, int high);
    ~Gif();
    Gif(const Gif&) = delete;
    Gif& operator=(const Gif&) = delete;

    /// A picture of the size of all, which stands for so many hundredths of a second.
    void Add(const platform::Pixels& picture, int hundredths);
    /// The whole file; nothing can be added after that.
    std::string Finish();

   private:
    class Coder;
    std::unique_ptr<Coder> coder_;
    std::vector<std::uint32_t> before_;
    int wide_, high_;
};

/// Up to 256 of a picture's colours, and for each of its pixels which one stands for it.
struct Few_Colors {
    std::vector<std::uint32_t> colors;
    std::vector<std::uint8_t> of_pixel;
};
Few_Colors Reduced(const std::vector<std::uint32_t>& pixels);

}  // namespace verlink
