// What the command line says of a study, as it was written.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace verlink {

struct StudyOptions {
    std::vector<std::string> sweeps;      ///< "FIELD=FROM:TO:COUNT"
    std::optional<std::string> list;      ///< path
    std::vector<std::string> tolerances;  ///< "FIELD=PLUSMINUS[:normal|uniform|worst]"
    std::optional<std::uint64_t> samples, seed;
    std::vector<std::string> measures, keeps;
    bool sensitivity = false, summary = false, resume = false;
    std::optional<int> threads;
    std::uint64_t shard = 1, shards = 1;
    bool sharded = false;
    std::optional<std::string> merge;  ///< the file that parts are put together in

    bool Wanted() const {
        return !sweeps.empty() || list || !tolerances.empty() || samples || seed || !measures.empty() ||
               !keeps.empty() || sensitivity || summary || resume || threads || sharded;
    }
};

}  // namespace verlink
