// By the names that the model file has for them.
#include "study/hand_over.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string>
#include <string_view>

#include "core/linkage_door.h"
#include "core/results.h"
#include "files/model_file.h"
#include "study/design.h"

namespace verlink::study {

namespace {

constexpr std::string_view kLinkage[] = {"L1", "L2", "L3", "L4", "Rpa", "Delta", "Link1Angle", "Link1X", "Link1Y"};
constexpr std::string_view kDrive[] = {"ThetaZero", "Omega2Input", "Alpha2"};

template <std::size_t N>
bool Among(const std::string_view (&names)[N], std::string_view name) {
    return std::ranges::find(names, name) != std::end(names);
}

std::string Digits(float value) {
    constexpr std::size_t kMost = 32;
    std::array<char, kMost> digits{};
    return {digits.data(), std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr};
}

}  // namespace

void Hand_Over(std::span<const int> fields, std::span<const float> values, LinkageModel& model) {
    bool drive = false, loads = false;
    Design before = Design_Of(model);
    Enter_Linkage(Road::kBoxes, [&] {
        for (std::size_t i = 0; i < fields.size(); ++i) {
            const Field& field = Fields()[static_cast<std::size_t>(fields[i])];
            Set_File_Field(field.name, Digits(values[i]), model);
            if (Among(kLinkage, field.name) || double{field.place(before)} == values[i]) continue;
            (Among(kDrive, field.name) ? drive : loads) = true;
        }
    });
    if (drive) Run_Dropped();
    if (loads) Forces_Dropped();
    if (drive || loads) Model_Unsaved();
}

}  // namespace verlink::study
