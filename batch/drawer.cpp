// The drawer in force.
#include "batch/drawer.h"

#include <utility>

namespace verlink {

namespace {

Drawer& In_Force() {
    static Drawer drawer;
    return drawer;
}

}  // namespace

const Drawer& Drawer_In_Force() { return In_Force(); }
void Use_Drawer(Drawer drawer) { In_Force() = std::move(drawer); }

}  // namespace verlink
