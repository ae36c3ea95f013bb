// Pictures that leave the program: who can make one of what a control shows.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace verlink::platform {

class Control;

enum class Picture_Kind { kPng, kSvg, kPdf };

/// 0xFFRRGGBB, row by row from the top.
struct Pixels {
    int wide = 0, high = 0;
    std::vector<std::uint32_t> colors;
};

/// Makes pictures of what a control shows, as it is seen, with what lies upon it. A picture that cannot be made is
/// failure 7.
class Picture_Maker {
   public:
    virtual ~Picture_Maker() = default;
    /// Its size on the screen, logical pixels.
    virtual int Wide() const = 0;
    virtual int High() const = 0;
    /// A whole file. Each logical pixel is `density` pixels of a PNG, across and down; the others are vectors.
    virtual std::string File(Picture_Kind kind, double density) = 0;
    virtual Pixels Paint(double density) = 0;
    /// Onto the clipboard, as pixels and as vectors.
    virtual void Copy() = 0;
};

/// The maker for a control; null where there is none, as without windows.
Picture_Maker* Maker_Of(const Control& control);
/// Makes one known, or with null takes it away.
void Set_Picture_Maker(const Control& control, Picture_Maker* maker);

/// The name in the settings under which dialogs of a kind keep which entry of their list was taken last, from 1, where
/// the end of the file's name does not tell.
inline std::string Entry_Setting(const std::string& kind) { return "entry." + kind; }

}  // namespace verlink::platform
