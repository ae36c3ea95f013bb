// What the tests of tables start from: functions that are chosen on a stand-in of the selection screen, and a run
// made by hand.
#pragma once

#include <array>
#include <functional>
#include <memory>
#include <string>

#include "core/linkage_model.h"
#include "dynamics/units.h"
#include "output/catalogue.h"
#include "output/tables.h"
#include "screens/frm_fft.h"
#include "screens/frm_printdata.h"
#include "tests/support/fixture.h"

namespace verlink::test {

/// The labels that tables read on the selection screen.
struct ChosenFunctions : platform::Screen {
    ChosenFunctions() : Screen("frm_PrintSelect") {}
    platform::ControlArray<platform::Label> lbl_Function{*this, "lbl_Function", {0, 1, 2, 3}};
    platform::ControlArray<platform::Label> lbl_Component{*this, "lbl_Component", {0, 1, 2, 3}};
};

class Tables : public Fixture {
   protected:
    Tables() {
        using platform::Screens;
        Screens::Register("frm_PrintSelect", [] { return std::make_unique<ChosenFunctions>(); });
        Screens::Register("frm_PrintData", [] { return std::make_unique<frm_PrintData>(); });
        Load_Catalogue();
        Use_Units(1);
        Model.ProgramTag = "VERLINK";
        Model.ModelName = "press";
        Model.UserName = "Ada";
        Model.DesignNumber = 3;
        Model.DateStr = "11/21/2026";
        Model.TimeStr = "10:15:00";
        Model.Calctype = 3;
        Model.PrintStep = 1;
        Model.DecimalPlaces = 1;
        Choose(1, "Theta2", "Mag");
        Choose(2, "Veloc CP", "X");
        Choose(3, "Veloc CP", "Ang");
        Choose(4, "Omega4", "Mag");
    }
    ~Tables() override {
        platform::Screens::Register("frm_PrintSelect", nullptr);
        platform::Screens::Register("frm_PrintData", nullptr);
    }

    static void Choose(int slot, const std::string& variable, const std::string& component) {
        Select_Variable(variable, slot);
        Set_Component(component, slot);
        auto& chosen = platform::Screens::Get("frm_PrintSelect");
        chosen.Get<platform::Label>("lbl_Function", slot - 1).Caption = variable;
        chosen.Get<platform::Label>("lbl_Component", slot - 1).Caption = component;
    }

    /// Steps 0 to last: the crank by 10 degrees from 5, the coupler point's velocity (i, 2 i), the rocker's speed
    /// 100 + i.
    static void Fill_Run(int last) {
        Model.NSteps = last;
        for (int i = 0; i <= last; ++i) {
            Model.RunTable.Theta(i, 0) = 5 + 10 * i;
            Model.RunTable.VelXY(i, 2, 0) = i;
            Model.RunTable.VelXY(i, 2, 1) = 2 * i;
            Model.RunTable.Omega(i, 2) = 100 + i;
        }
    }

    static void By_Time(int calctype, double start, double step) {
        Model.Calctype = calctype;
        Model.TimeStart = start;
        Model.TimeStep = step;
    }

    /// Fills the grid; the user looks at the screen and leaves.
    frm_PrintData& Show_Table(const std::function<void(frm_PrintData&)>& user = {}) {
        auto& table = dynamic_cast<frm_PrintData&>(platform::Screens::Get("frm_PrintData"));
        desktop.Expect_Screen("frm_PrintData", [&](platform::Screen& screen) {
            if (user) user(table);
            if (screen.Visible()) screen.Hide();
        });
        Multiprint(table);
        return table;
    }

    static std::string Failed(const std::string& failure, const std::string& procedure,
                              const std::string& advice = "") {
        return "Error " + failure + "  has occurred in " + procedure + "\r\n\r\n" + advice;
    }
};

}  // namespace verlink::test
