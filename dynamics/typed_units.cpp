// Names and sizes of the units, and the binding of boxes to them.
#include "dynamics/typed_units.h"

#include <algorithm>
#include <utility>

#include "core/number.h"
#include "dynamics/units.h"

namespace verlink {

namespace {

constexpr double kFootToMetre = 12 * kInchToMetre;
constexpr double kSlugToKg = kBlobToKg / 12;

/// A unit in those of its quantity that metres, kilograms and newtons make; for angles degrees. The systems that show
/// it are told as digits.
struct Row {
    Quantity quantity;
    const char* name;
    double size;
    const char* shown_by;
};

constexpr Row kRows[] = {
    {Quantity::kAngle, "deg", 1, "12345"},
    {Quantity::kAngle, "degrees", 1, ""},
    {Quantity::kAngle, "\u00B0", 1, ""},
    {Quantity::kAngle, "rad", kRadToDeg, ""},
    {Quantity::kTime, "s", 1, "12345"},
    {Quantity::kTime, "sec", 1, ""},
    {Quantity::kSpeed, "rad/s", 1, "12345"},
    {Quantity::kSpeed, "rad/sec", 1, ""},
    {Quantity::kAcceleration, "rad/s^2", 1, "12345"},
    {Quantity::kAcceleration, "rad/sec^2", 1, ""},
    {Quantity::kLength, "in", kInchToMetre, "1"},
    {Quantity::kLength, "ft", kFootToMetre, "2"},
    {Quantity::kLength, "m", 1, "3"},
    {Quantity::kLength, "cm", 0.01, "4"},
    {Quantity::kLength, "mm", 0.001, "5"},
    {Quantity::kKeptLength, "in", kInchToMetre, "1"},
    {Quantity::kKeptLength, "ft", kFootToMetre, "2"},
    {Quantity::kKeptLength, "m", 1, "345"},
    {Quantity::kKeptLength, "cm", 0.01, ""},
    {Quantity::kKeptLength, "mm", 0.001, ""},
    {Quantity::kForce, "lb", kPoundToNewton, "12"},
    {Quantity::kForce, "N", 1, "345"},
    {Quantity::kTorque, "lb-in", kInchPoundToNewtonMetre, "1"},
    {Quantity::kTorque, "in-lb", kInchPoundToNewtonMetre, ""},
    {Quantity::kTorque, "lb-ft", 12 * kInchPoundToNewtonMetre, "2"},
    {Quantity::kTorque, "ft-lb", 12 * kInchPoundToNewtonMetre, ""},
    {Quantity::kTorque, "N-m", 1, "345"},
    {Quantity::kTorque, "N-cm", 0.01, ""},
    {Quantity::kTorque, "N-mm", 0.001, ""},
    {Quantity::kMass, "bl", kBlobToKg, "1"},
    {Quantity::kMass, "sl", kSlugToKg, "2"},
    {Quantity::kMass, "kg", 1, "345"},
    {Quantity::kInertia, "in-lb-s^2", kInchToMetre* kInchToMetre* kBlobToKg, "1"},
    {Quantity::kInertia, "ft-lb-s^2", 12 * kInchToMetre* kInchToMetre* kBlobToKg, "2"},
    {Quantity::kInertia, "ft-lb-^2", 12 * kInchToMetre* kInchToMetre* kBlobToKg, ""},
    {Quantity::kInertia, "kg-m^2", 1, "345"},
    {Quantity::kMassLength, "bl-in", kBlobToKg* kInchToMetre, "1"},
    {Quantity::kMassLength, "sl-ft", kSlugToKg* kFootToMetre, "2"},
    {Quantity::kMassLength, "kg-m", 1, "345"},
};

bool Shown_By(const Row& row, int Units) {
    return std::string_view(row.shown_by).find(static_cast<char>('0' + Units)) != std::string_view::npos;
}

}  // namespace

std::vector<TypedUnit> Typed_Units(Quantity quantity, int Units) {
    const auto* shown =
        std::ranges::find_if(kRows, [&](const Row& row) { return row.quantity == quantity && Shown_By(row, Units); });
    std::vector<TypedUnit> units;
    for (const Row& row : kRows)
        if (row.quantity == quantity && shown != std::end(kRows)) units.push_back({row.name, row.size / shown->size});
    return units;
}

void Reads_As(platform::TextBox& box, const UnitSystem& system, std::function<Quantity()> quantity, TypedForm form) {
    box.Reads = [&system, quantity = std::move(quantity), form = std::move(form)](const std::string& typed) {
        TypedForm now = form;
        now.units = Typed_Units(quantity(), system.Units);
        return Read_Typed(typed, now);
    };
}

void Reads_As(platform::TextBox& box, const UnitSystem& system, Quantity quantity, TypedForm form) {
    Reads_As(
        box, system, [quantity] { return quantity; }, std::move(form));
}

}  // namespace verlink
