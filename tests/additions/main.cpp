// Asks the program for the screen and the output variable that docs/architecture.md adds; see tools/test-additions.
#include <algorithm>
#include <cstdio>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "batch/headless_desktop.h"
#include "core/linkage_model.h"
#include "output/catalogue.h"
#include "output/reading.h"
#include "output/series.h"
#include "platform/screen.h"
#include "screens/register.h"

namespace {

int faults = 0;

void Expect(bool so, const char* what) {
    if (so) return;
    std::printf("not so: %s\n", what);
    ++faults;
}

bool Has(const std::vector<std::string>& names, const char* name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

void Ask_For_The_Screen() {
    using namespace verlink;
    Register_Screens();
    Expect(platform::Screens::Knows("frm_Gears"), "the screen is known by its name");
    Model.TitleSuffix = " - BANNER";
    auto& screen = platform::Screens::Get("frm_Gears");
    Expect(screen.Caption() == std::string("Gears - BANNER"), "its title has the banner");
    Expect(screen.Text("txt_Teeth").Text == std::string("20"), "its box is found by its name");
}

void Ask_For_The_Variable() {
    using namespace verlink;
    constexpr char kNew[] = "T12 Balcd";
    Load_Catalogue();
    Expect(Has(Variables_Up_To(Needs::kBalance), kNew), "lists offer the variable after a balance");
    Expect(!Has(Variables_Up_To(Needs::kForces), kNew), "and not before");
    Expect(!Has(Vectors_That_Need(Needs::kBalance), kNew), "polar plots do not offer a scalar");
    Expect(Variables_Up_To(Needs::kBalance).back() == kNew, "it stands behind those that were there");
    Model.NSteps = 1;
    for (int step = 0; step <= 1; ++step) {
        Model.RunTable.Assembled(step) = true;
        Model.RunTable.BalancedMoment(step, 0) = 7 + step;
    }
    const Output_Function function{kNew, "", false};
    Expect(Can_Be_Read(function), "it can be read");
    Expect(Series(function, Model.RunTable, 0, 1) == std::vector<double>{7, 8}, "its values are those of its array");
    Select_Variable(kNew, 1);
    Single value;
    Transform_XY(1, 1, value);
    Expect(value == 8, "plots and tables read it by its slot");
}

}  // namespace

int main() {
    verlink::HeadlessDesktop desktop(std::cerr);
    verlink::platform::Use_Desktop(&desktop);
    Ask_For_The_Screen();
    Ask_For_The_Variable();
    return faults == 0 ? 0 : 1;
}
