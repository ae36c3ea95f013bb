// How the last of two boxes stays ticked.
#include "screens/style_boxes.h"

namespace verlink {

using platform::CheckBox;

void Keep_One(CheckBox& first, CheckBox& second, const std::function<void()>& redraw) {
    const auto bind = [&redraw](CheckBox& box, const CheckBox& other) {
        box.OnClick = [&box, &other, redraw] {
            if (box.Value || other.Value)
                redraw();
            else
                box.Value = true;  // which is a click of its own
        };
    };
    bind(first, second);
    bind(second, first);
}

}  // namespace verlink
