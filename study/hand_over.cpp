// By the names that the model file has for them.
#include "study/hand_over.h"

#include <algorithm>
#include <string_view>

#include "core/linkage_door.h"
#include "core/results.h"
#include "files/model_file.h"
#include "study/design.h"
#include "study/words.h"

namespace verlink::study {

namespace {

constexpr std::string_view kLinkage[] = {"L1", "L2", "L3", "L4", "Rpa", "Delta", "Link1Angle", "Link1X", "Link1Y"};
constexpr std::string_view kDrive[] = {"ThetaZero", "Omega2Input", "Alpha2"};

template <std::size_t N>
bool Among(const std::string_view (&names)[N], std::string_view name) {
    return std::ranges::find(names, name) != std::end(names);
}

}  // namespace

void Hand_Over(std::span<const int> fields, std::span<const float> values, LinkageModel& model) {
    bool drive = false, loads = false;
    Design before = Design_Of(model);
    Enter_Linkage(Road::kBoxes, [&] {
        for (std::size_t i = 0; i < fields.size(); ++i) {
            const Field& field = Fields()[static_cast<std::size_t>(fields[i])];
            Set_File_Field(field.name, Shortest(values[i]), model);
            if (Among(kLinkage, field.name) || double{field.place(before)} == values[i]) continue;
            (Among(kDrive, field.name) ? drive : loads) = true;
        }
    });
    if (drive) Run_Dropped();
    if (loads) Forces_Dropped();
    if (drive || loads) Model_Unsaved();
}

}  // namespace verlink::study
