// The paper of a country, and the setter.
#include "report/setter.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <utility>

namespace verlink {

namespace {

Setter& In_Force() {
    static Setter setter;
    return setter;
}

}  // namespace

Paper Paper_For(const std::string& locale) {
    constexpr const char* kLetterCountries[] = {"BZ", "CA", "CL", "CO", "CR", "GT", "MX",
                                                "NI", "PA", "PH", "PR", "SV", "US", "VE"};
    const std::size_t line = locale.find('_');
    if (line == std::string::npos) return Paper::kA4;
    const std::string country = locale.substr(line + 1, locale.find_first_of(".@", line) - line - 1);
    return std::ranges::find(kLetterCountries, country) != std::end(kLetterCountries) ? Paper::kLetter : Paper::kA4;
}

Paper Paper_In_Force() {
    for (const char* name : {"LC_ALL", "LC_PAPER", "LANG"}) {
        const char* locale = std::getenv(name);  // NOLINT(concurrency-mt-unsafe): one thread
        if (locale && *locale) return Paper_For(locale);
    }
    return Paper::kA4;
}

const Setter& Setter_In_Force() { return In_Force(); }
void Use_Setter(Setter setter) { In_Force() = std::move(setter); }

}  // namespace verlink
