// What the program takes for granted of the machine that it is built for. Elsewhere nothing is assumed: numbers go into
// files digit by digit or byte by byte (PNG, GIF, the look into a workbook), never as memory lies, so the order of a
// machine's bytes does not matter; the words of pixels are the machine's own, as the toolkit's are; vector instructions
// stand behind __SSE2__ and __AVX2__, each beside plain code for other machines.
#include <cfloat>
#include <climits>
#include <limits>

namespace verlink {

// Stores round to IEEE singles and expressions are doubles: what the bits of a run depend on.
static_assert(std::numeric_limits<float>::is_iec559 && std::numeric_limits<float>::digits == 24);
static_assert(std::numeric_limits<double>::is_iec559 && std::numeric_limits<double>::digits == 53);
// An expression has no more digits than its type: the x87 of 32-bit machines rounds elsewhere. Those take -mfpmath=sse.
static_assert(FLT_EVAL_METHOD == 0);
// Halves are rounded to even, and overflow is infinite, until somebody checks.
static_assert(std::numeric_limits<double>::round_style == std::round_to_nearest);
// Bytes of 8 bits, and whole numbers in two's complement, as C++20 has it.
static_assert(CHAR_BIT == 8 && sizeof(int) == 4);
// Studies count linkages in 64 bits whatever the machine. Twips and failures are `long`, which 32 bits hold.
static_assert(sizeof(long) >= 4);
// Nothing is known of that asks for more than 32 bits of address; nobody has tried them.
static_assert(sizeof(void*) == 8, "32-bit machines have not been tried; take this line out and run the tests");

}  // namespace verlink
