// Makers by control.
#include "platform/pictures.h"

#include <map>

namespace verlink::platform {

namespace {

std::map<const Control*, Picture_Maker*>& Makers() {
    static std::map<const Control*, Picture_Maker*> makers;
    return makers;
}

}  // namespace

Picture_Maker* Maker_Of(const Control& control) {
    const auto found = Makers().find(&control);
    return found == Makers().end() ? nullptr : found->second;
}

void Set_Picture_Maker(const Control& control, Picture_Maker* maker) {
    if (maker)
        Makers()[&control] = maker;
    else
        Makers().erase(&control);
}

}  // namespace verlink::platform
