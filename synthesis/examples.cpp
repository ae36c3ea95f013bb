// The built-in linkages, as plain data.
#include "synthesis/examples.h"

#include "core/linkage_door.h"
#include "core/linkage_model.h"
#include "core/text.h"
#include "dynamics/units.h"
#include "platform/guard.h"
#include "platform/screen.h"

namespace verlink {

namespace {

struct Example {
    const char *ModelName, *FigureTitle, *Grashof_Code;
    double L1, L2, L3, L4, Rpa, Delta;
    int CircuitIndex;
    double Omega2Input, ThetaStart, ThetaEnd, ThetaStep;
};

const char kCrankRocker[] = "A Grashof Crank-Rocker Linkage";
const char kRoberts[] = "Roberts Straight Line Linkage - Non-Grashof Triple Rocker";
const char kWatts[] = "Watts Straight Line Linkage - Non-Grashof Triple Rocker";
const char kChebychev[] = "Chebychev Straight Line Linkage - Grashof Double Rocker";
const char kHoeken[] = "Hoecken Straight Line Linkage - Grashof Crank Rocker";
constexpr int kOpen = 1, kCrossed = 2;

enum BuiltIn { kDefault, kSynthesisTest, kGrashofTest, kRobertsLine, kWattsLine, kChebychevLine, kHoekensLine };

// clang-format off
/// In the order of `BuiltIn`.
constexpr Example kExamples[] = {
//   name        title         code  L1     L2     L3     L4    Rpa     Delta    circuit   w2  from to   step
    {"Testlink", kCrankRocker, "Y",  2.667, 1.115, 2.5,   2.5,  1.697,  -92.66,  kOpen,    10, 45,  405, 10},
    {"Testlink", kCrankRocker, "Y",  9.375, 2,     8.625, 7,    4.376,  39.5,    kOpen,    10, 0,   360, 10},
    {"Testlink", kCrankRocker, "Y",  18,    6,     16,    12,   14.42,  33.7,    kOpen,    10, 45,  405, 10},
    {"Roberts",  kRoberts,     "N",  2,     1,     1,     1,    1.5,    -70.529, kOpen,    1,  49,  69,  2},
    {"Watts",    kWatts,       "N",  2.5,   1.25,  0.625, 1.25, 0.3125, 0,       kOpen,    1,  -40, 20,  2},
    {"Chebychv", kChebychev,   "Y",  2,     2.5,   1,     2.5,  0.5,    0,       kCrossed, 1,  37,  90,  1},
    {"Hoeckens", kHoeken,      "Y",  2,     1,     2.5,   2.5,  5,      0,       kOpen,    10, 0,   360, 10},
};
// clang-format on

/// What the synthesis screens open on: a field, and its value with each linkage that has synthesis data.
struct Dyads {
    Single SynthesisData::*field;
    double test, roberts, chebychev, hoekens;
};

// clang-format off
using Data = SynthesisData;
constexpr Dyads kDyads[] = {
//                     test     Roberts  Chebychev  Hoeken
    {&Data::P21x,      -0.575,  -0.244,  -1.12,     43.8},
    {&Data::P21y,      0.803,   0.013,   0,         -9.13},
    {&Data::P31x,      -1.928,  -0.542,  -1.784,    58.38},
    {&Data::P31y,      0.553,   0.029,   -0.003,    -19.04},
    {&Data::SynAlpha2, -8.686,  -11.34,  97.41,     -23.15},
    {&Data::SynAlpha3, -10.961, -22.19,  158.18,    -36.07},
    {&Data::SynBeta2,  45,      11.97,   26,        25},
    {&Data::SynBeta3,  90,      23.97,   52,        50},
    {&Data::SynGamma2, 3.355,   2.78,    36.05,     -19.1},
    {&Data::SynGamma3, 14.972,  9.96,    43.89,     -22.82},
    {&Data::O2x,       -2.264,  -1.712,  -1.784,    -50},
    {&Data::O2y,       -5.279,  0,       -2.003,    -122.74},
    {&Data::O4x,       7.111,   0.288,   0.22,      0},
    {&Data::O4y,       -5.279,  0,       -2.003,    -122.74},
    {&Data::SynTheta,  30,      29,      38,        0},
    {&Data::SynTheta2, 120,     75,      90,        50},
    {&Data::SynPhi,    83,      -60,     0,         0},
};
// clang-format on

/// Of links 2, 3, 4; angles are radians.
struct Masses {
    double LinkMass[3], distance[3], angle[3], LinkInertia[3];
};

constexpr Masses kDefaultMasses{
    {0.003, 0.006, 0.006}, {0.5, 0.9, 1.0}, {0, -0.8726646261111112, 0}, {0.028, 0.22, 0.129}};
constexpr Masses kGrashofTestMasses{{0.003, 0.006, 0.006},
                                    {3.36, 9.17, 4.05},
                                    {0.46600291034333335, 0.2705260340944444, -0.17453292522222222},
                                    {0.028, 0.22, 0.129}};

void Fill(const Example& example) {
    Model.ModelName = example.ModelName;
    Model.FigureTitle = example.FigureTitle;
    Model.Grashof_Code = example.Grashof_Code;
    Model.Link1Angle = 0;
    Model.L1 = example.L1;
    Model.L2 = example.L2;
    Model.L3 = example.L3;
    Model.L4 = example.L4;
    Model.Rpa = example.Rpa;
    Model.Delta = example.Delta;
    Model.CircuitIndex = example.CircuitIndex;
    Model.Omega2Input = example.Omega2Input;
    Model.ThetaStartStr = Text_Of(Single(example.ThetaStart));
    Model.ThetaEndStr = Text_Of(Single(example.ThetaEnd));
    Model.ThetaStepStr = Text_Of(Single(example.ThetaStep));
    Model.ThetaStartRad = example.ThetaStart * kDegToRad;
    Model.ThetaEndRad = example.ThetaEnd * kDegToRad;
}

void Put(const Example& example) {
    Enter_Linkage(Road::kExample, [&example] { Fill(example); });
}

void Put_Dyads(double Dyads::*linkage) {
    for (const Dyads& row : kDyads) Model.*row.field = row.*linkage;
}

void Put_Right_Angles(double Sigma, double Xi) {
    Model.SynSigma = Sigma;
    Model.SynXi = Xi;
}

/// What the two Grashof test linkages have beyond the dyads of the synthesis test.
void Put_Test_Vectors() {
    Put_Right_Angles(100.77, 194.98);
    Model.SynS = 5.969534;
    Model.SynZ = 4.3072429;
}

void Put(const Masses& masses) {
    for (int link = 2; link <= 4; ++link) {
        const int i = link - 2;
        Model.LinkMass(link) = masses.LinkMass[i];
        Model.CG(link, 0) = masses.distance[i];
        Model.CG(link, 1) = masses.angle[i];
        Model.LinkInertia(link) = masses.LinkInertia[i];
    }
    Model.ExtTorque(3) = 0;
    Model.ExtTorque(4) = 0;
}

void Put_Initial(int index, double value) {
    platform::With<platform::TextBox>("frm_Inputnew", "txt_initial", index,
                                      [&](platform::TextBox& box) { box.Text = Text_Of(Single(value)); });
}

void Put_Initial_Values() {
    Put_Initial(0, Val(Model.ThetaStartStr));
    Put_Initial(1, Val(Model.ThetaEndStr));
    Put_Initial(2, Val(Model.ThetaStepStr));
    Put_Initial(3, Model.Omega2Input);
}

/// A linkage whose step in radians holds the number of degrees.
void Put_With_Step(const Example& example) {
    Put(example);
    Model.ThetaStepRad = example.ThetaStep;
}

void Put_Straight_Line(const Example& example) {
    Put_With_Step(example);
    Put_Initial_Values();
}

}  // namespace

void Testlinkage() {
    Guarded("Testlinkage", [] {
        const Example& linkage = kExamples[kDefault];
        Put(linkage);
        Model.ThetaStart = linkage.ThetaStart;
        Model.ThetaEnd = linkage.ThetaEnd;
        Model.ThetaStep = linkage.ThetaStep;
        Model.ThetaStartRad = linkage.ThetaStart;  // unconverted, and the step in radians is left as it was
        Put(kDefaultMasses);
        Put_Dyads(&Dyads::test);
        Put_Test_Vectors();
        Put_Initial_Values();
    });
}

void Testlinkagevlnk() {
    Guarded("Testlinkagevlnk", [] {
        Put_With_Step(kExamples[kSynthesisTest]);
        Put_Dyads(&Dyads::test);
        Set_Default_Masses(4);
        Put_Initial_Values();
    });
}

void Testlinkage_old() {
    Guarded("Testlinkage_old", [] {
        Put_With_Step(kExamples[kGrashofTest]);
        Put(kGrashofTestMasses);
        Put_Dyads(&Dyads::test);
        Put_Test_Vectors();
        Put_Initial_Values();
    });
}

void Roberts() {
    Guarded("Roberts", [] {
        Put_Dyads(&Dyads::roberts);
        Put_Right_Angles(101.5, -88.73);
        Put_Straight_Line(kExamples[kRobertsLine]);
    });
}

void Watts() {
    Guarded("Watts", [] {
        Model.SynTheta2 = 20;  // the rest of the synthesis data stays
        Put_Straight_Line(kExamples[kWattsLine]);
    });
}

void Chebychev() {
    Guarded("Chebychev", [] {
        Put_Dyads(&Dyads::chebychev);
        Put_Right_Angles(99.29, -68.46);
        Put_Straight_Line(kExamples[kChebychevLine]);
    });
}

void Hoekens() {
    Guarded("Hoekens", [] {
        Put_Dyads(&Dyads::hoekens);
        Put_Right_Angles(101.5, 78.43);
        Put_Straight_Line(kExamples[kHoekensLine]);
        Use_Units(1);
    });
}

void Set_Default_Masses(Integer n) {
    Guarded("Set_Default_Masses", [&] {
        Model.LinkMass(2) = 0.003;
        Model.LinkMass(3) = 0.01;
        Model.LinkMass(4) = 0.006;
        Model.ExtTorque(4) = 0;
        for (int link = 2; link <= n; ++link) {
            Model.LinkInertia(link) = 2 * Model.LinkMass(link);
            Model.CG(link, 0) = 0.5 * Model.LinkArray(link);
            Model.CG(link, 1) = 0;
        }
        Model.CG(3, 0) = Model.Rpa;
        Model.CG(3, 1) = Model.DeltaRad;
    });
}

}  // namespace verlink
