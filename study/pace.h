// How fast something goes, in words.
#pragma once

#include <string>

namespace verlink::study {

/// Three digits, with k, M or G behind them.
std::string Short_Number(double number);
/// A time of so many seconds, rounded up, in its two largest units.
std::string Time_Words(double seconds);

}  // namespace verlink::study
