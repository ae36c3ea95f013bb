// The entry of verlink.
#include "desktop/program.h"

int main(int argc, char** argv) { return verlink::desktop::runProgram(argc, argv); }
