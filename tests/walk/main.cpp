// Random walks over the screens without windows.
#include "tests/walk/program.h"
#include "tests/walk/walk_desktop.h"

int main(int argc, char** argv) { return verlink::walk::Walk_Program(argc, argv, verlink::walk::Walk_Once); }
