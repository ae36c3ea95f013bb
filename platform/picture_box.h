// The drawing surface of a screen, and the hand on it.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/control.h"
#include "platform/glass.h"
#include "platform/picture.h"
#include "platform/surface.h"

namespace verlink::platform {

/// Where the hand is on a picture.
struct Touch {
    double x = 0, y = 0;  ///< world, as the `Surface` has it
    int keys = 0;         ///< that are held: 1 shift, 2 control, 4 alt
    double pixel = 0;     ///< how much of the world one logical pixel is, as magnified
};

/// A key on a picture: its name as `Shortcut` has it, but for the keys that are held with it.
struct Picture_Key {
    std::string key;
    int keys = 0;
    double pixel = 0;
};

/// A ring upon a picture around what a hand can take or has taken; of one size on the screen.
struct Light {
    double x = 0, y = 0;  ///< world
    bool held = false;
    bool operator==(const Light&) const = default;
};

/// What the mouse's pointer looks like.
enum class Grip { kArrow, kOpenHand, kClosedHand };

/// A square drawing surface on a screen. The program draws on `Canvas()`; the desktop paints `Drawing()`, and over it
/// the text lines from the top left corner down, in a font of one width. On paper and in files it stands whole and
/// without a light, however it is looked at.
class PictureBox : public Visual {
   public:
    PictureBox(Screen& owner, std::string name, int index = kNoIndex);
    Property<std::vector<std::string>> Lines{*this, {}};
    /// A line of text below those that are there.
    void Print(const std::string& line);
    Surface& Canvas() { return log_ ? *log_ : static_cast<Surface&>(picture_); }
    Picture& Drawing() { return picture_; }
    const Picture& Drawing() const { return picture_; }
    /// Sends the calls elsewhere (a test's log); null brings them back.
    void Redirect(Surface* log) { log_ = log; }
    /// A move of the mouse: buttons (1 left, 2 right, 4 middle), keys (1 shift, 2 control, 4 alt), world position.
    std::function<void(int button, int shift, double x, double y)> OnMouseMove;
    std::function<void()> OnClick;
    std::function<void()> OnDblClick;

    // A hand that takes what is drawn. None of these is raised while a run plays.
    /// The pointer has come here with no button down.
    std::function<void(const Touch&)> OnHover;
    /// The pointer has gone from the picture.
    std::function<void()> OnLeave;
    /// The left button goes down. True: something is taken, and each move until the release is an `OnDrag`.
    std::function<bool(const Touch&)> OnSeize;
    std::function<void(const Touch&)> OnDrag;
    /// The left button is let go after something was taken, or the hand was interrupted.
    std::function<void()> OnRelease;
    Property<Grip> Pointer{*this, Grip::kArrow};
    Property<std::optional<Light>> Lit{*this, std::nullopt};
    /// Keys that it takes while it has the focus, as `Shortcut` has them.
    Property<std::string> Keys{*this, ""};
    std::function<void(const Picture_Key&)> OnKey;

    // How closely it is looked at.
    /// The wheel, the middle button and a drag on what cannot be taken zoom and move the picture under its glass.
    bool Magnifies = false;
    Property<Glass> Through{*this, {}};
    /// Told by the desktop: logical pixels across.
    double Across = 480;
    /// How much of the world one logical pixel is, as magnified: for what keeps its size on the screen.
    double Pixel() const;
    /// `Pixel` has become another, by the glass or the window.
    std::function<void()> OnPixel;

   private:
    Picture picture_;
    Surface* log_ = nullptr;
};

}  // namespace verlink::platform
