// Every default, in the order in which they depend on each other, and File New.
#include "shell/initialize.h"

#include "core/linkage_door.h"
#include "core/linkage_model.h"
#include "core/model_on_screens.h"
#include "core/runs.h"
#include "files/in_hand.h"
#include "output/catalogue.h"
#include "platform/desktop_services.h"
#include "platform/guard.h"
#include "synthesis/cognates.h"
#include "synthesis/examples.h"

namespace verlink {

namespace {

void Set_Limits() {
    Model.ThetaStepRad = 5 * kDegToRad;
    Model.ThetaZero = 0;
    Model.TimeStart = 0;
    Model.TimeEnd = 5;
    Model.TimeStep = 0.05;
}

void Set_Settings() {
    Model.Calctype = run::kByAngle;
    Model.CurrentStep = 0;
    Model.Units = 1;
    Model.PrintStep = 10;
    Model.AnimateDelay = 16383;
    Model.Cycles = 1;
    Model.AnimateWait = 10;
    Model.ZoomFactor = 1;
    Model.LineAngle = 90;
    Model.PolarCoords = false;
}

}  // namespace

void Initialize() {
    Guarded("Initialize", [] {
        Model.ScreenReturn = true;
        Model.Omega2 = 10;
        Model.Alpha2 = -5;
        Set_Limits();
        Set_Settings();
        Load_Catalogue();
        auto& m = Model;
        static_cast<MassProperties&>(m) = {};
        Testlinkage();
        SeedCognate();
        // The start is in degrees here and the end in radians, so that the count is far below zero.
        m.NSteps = Steps_Of(m.ThetaStartRad, m.ThetaEndRad, m.ThetaStepRad);
        m.ModuloMode = "abs";
        m.ModelName = "Model_1";
        m.DesignNumber = 1;
        m.DateStr = platform::The_Desktop().Date_Text();
        m.TimeStr = platform::The_Desktop().Time_Text();
        static_cast<Tasks&>(m) = {};
        Model_Came();
    });
}

void New_Model() {
    Guarded("New_Model", [] {
        Initialize();
        Clear_RunTable();
        Enter_Linkage(Road::kNew, [] {});
        Model.FigureTitle.clear();
        Model_Came();
        Set_Menus();
        Refresh_Status();
    });
}

}  // namespace verlink
