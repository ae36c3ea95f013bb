// What the tests of the synthesis screens share: the default linkage in inches, a user at the screen, dyads checked.
#pragma once

#include <complex>
#include <string>
#include <vector>

#include "core/linkage_model.h"
#include "core/text.h"
#include "dynamics/units.h"
#include "screens/synthesis_screen.h"
#include "shell/initialize.h"
#include "shell/startup.h"
#include "tests/support/fixture.h"

namespace verlink::test {

inline constexpr char kReport[] = " The resulting link lengths and coupler point location are:";

class SynthesisScreenTest : public Fixture {
   protected:
    SynthesisScreenTest() {
        Set_Identity();
        Initialize();
        Use_Units(1);
    }

    using Vector = std::complex<double>;

    template <class Form>
    static Form& Made(const char* name) {
        return dynamic_cast<Form&>(platform::Screens::Get(name));
    }
    void Calculate(Synthesis_Screen& form) {
        desktop.Expect_Message_With(kReport);
        Press(form, "cmd_Calc");
    }
    static void Enter_Box(Synthesis_Screen& form, const char* box, const char* text, int index = platform::kNoIndex) {
        Type(form, box, index, text);
    }

    static void Expect_Ways_On(const Synthesis_Screen& form, bool on) {
        EXPECT_EQ(form.cmd_Done.Enabled.Get(), on);
        EXPECT_EQ(form.cmd_Copy.Enabled.Get(), on);
        EXPECT_EQ(form.cmd_Print.Enabled.Get(), on);
    }
    static std::string Caption(const platform::Screen& form, const char* label, int index = platform::kNoIndex) {
        return form.Get<platform::Label>(label, index).Caption.Get();
    }
    static std::string Box(const platform::Screen& form, const char* box, int index = platform::kNoIndex) {
        return form.Text(box, index).Text.Get();
    }
    static std::vector<std::string> Captions(const platform::Screen& form, const std::string& name) {
        std::vector<std::string> all;
        for (const platform::Control* control : form.Controls())
            if (const auto* label = dynamic_cast<const platform::Label*>(control); label && label->Name() == name)
                all.push_back(label->Caption.Get());
        return all;
    }

    /// How far the dyad of the record misses a position.
    static double Miss(Vector link, Vector arm, double link_turn, double arm_turn, Vector P) {
        const auto moved = [](Vector v, double degrees) { return v * (std::polar(1.0, degrees * kRadians) - 1.0); };
        return std::abs(moved(link, link_turn) + moved(arm, arm_turn) - P);
    }
    /// Along a line by an angle in degrees, one way or the other.
    static void Expect_Along(Vector link, double degrees) {
        EXPECT_LT(std::abs((link * std::polar(1.0, -degrees * kRadians)).imag()), 1e-5 * std::abs(link)) << degrees;
        EXPECT_GT(std::abs(link), 1e-3);
    }
    static Vector W() { return {Model.SynWx, Model.SynWy}; }
    static Vector Z() { return {Model.SynZx, Model.SynZy}; }
    static Vector U() { return {Model.SynUx, Model.SynUy}; }
    static Vector S() { return {Model.SynSx, Model.SynSy}; }
    static void Expect_Both_Reach(int position, double within) {
        const Vector P = position == 2 ? Vector(Model.P21x, Model.P21y) : Vector(Model.P31x, Model.P31y);
        const double alpha = position == 2 ? Model.SynAlpha2 : Model.SynAlpha3;
        EXPECT_LT(Miss(W(), Z(), position == 2 ? Model.SynBeta2 : Model.SynBeta3, alpha, P), within);
        EXPECT_LT(Miss(U(), S(), position == 2 ? Model.SynGamma2 : Model.SynGamma3, alpha, P), within);
    }

    static constexpr double kRadians = 3.14159265358979323846 / 180;
};

}  // namespace verlink::test
