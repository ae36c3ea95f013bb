// The whole of verlink, from its start to its end.
#pragma once

namespace verlink::desktop {

/// What the process gives back. `argv` names a model or none, and what Qt takes.
int runProgram(int argc, char** argv);

}  // namespace verlink::desktop
