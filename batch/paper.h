// How verlink-batch comes to set pages, for which it needs more than a run does.
#pragma once

namespace verlink {

/// Comes first in the process. verlink-batch itself sets no pages and no letters: where the arguments ask for a report,
/// or for a graph as a picture, the program beside it that can takes its place, with the same arguments. That one gets
/// ready to set them. Where it is not installed, nothing happens here.
void Get_Ready_For_Paper(int count, char** arguments);

}  // namespace verlink
