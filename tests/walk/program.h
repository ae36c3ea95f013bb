// The program that walks, over whatever there is to walk on.
#pragma once

#include "tests/walk/shorten.h"

namespace verlink::walk {

/// Walks until so many actions are done or so much time is over, tells what was found, each kind once and as a test,
/// and at the end how much was done and checked. What comes up on a quicker stage too is shortened there. Gives back 1
/// when there was a finding.
int Walk_Program(int argc, char** argv, const Stage& stage, const Stage& quicker = {});

}  // namespace verlink::walk
