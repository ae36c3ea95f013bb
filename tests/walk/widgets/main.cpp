// Random walks over real widgets, on the platform that needs no display.
#include "desktop/memory.h"
#include "tests/support/offscreen.h"
#include "tests/walk/program.h"
#include "tests/walk/walk_desktop.h"
#include "tests/walk/widgets/desktop.h"

int main(int argc, char** argv) {
    verlink::desktop::returnLargeBlocks();
    const verlink::test::Offscreen offscreen(argc, argv);
    return verlink::walk::Walk_Program(argc, argv, verlink::walk::Walk_In_Windows, verlink::walk::Walk_Once);
}
