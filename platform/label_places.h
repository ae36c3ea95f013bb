// Where labels stand upon a picture, so that they cover neither its lines nor each other.
#pragma once

#include <span>
#include <vector>

#include "platform/glass.h"

namespace verlink::platform {

class Picture;

/// A place upon a picture in parts of its width and height, from its top left corner, and the direction from there in
/// which a label had better stand; `right` and `below` need not be of length 1.
struct Anchor {
    double across = 0, down = 0;
    double right = 0, below = 0;
    bool operator==(const Anchor&) const = default;
};

/// A label that wants a place; its size in pixels.
struct LabelWish {
    Anchor at;
    double width = 0, height = 0;
};

/// The top left corner of a label, pixels from the picture's.
struct LabelPlace {
    double x = 0, y = 0;
};

/// Places for all labels upon a picture of `side` pixels: each near its anchor, within the picture as far as it is
/// large enough, clear of the others, and clear of what is drawn where there is room. The same input gives the same
/// places. Under a glass the anchors are parts of what is seen, and so are the places.
std::vector<LabelPlace> Find_Label_Places(const Picture& picture, double side, std::span<const LabelWish> wishes,
                                          const Glass& glass = {});

}  // namespace verlink::platform
