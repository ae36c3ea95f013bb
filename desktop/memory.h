// How the process keeps its memory.
#pragma once

namespace verlink::desktop {

/// Large blocks, the pixels of pictures and the tables of runs, go back to the system when they are given up, however
/// many there have been before: the process stays as small as what it holds. To be called first of all.
void returnLargeBlocks();

}  // namespace verlink::desktop
