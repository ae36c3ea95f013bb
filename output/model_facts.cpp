// Which facts there are, in which order and units.
#include "output/model_facts.h"

#include <utility>

#include "core/text.h"

namespace verlink {

namespace {

constexpr char kDegrees[] = "deg";

class Facts {
   public:
    explicit Facts(const LinkageModel& model) : m_(model) {}

    std::vector<Sheet_Fact> All() {
        Identity();
        Linkage();
        Drive();
        Masses();
        Loads();
        return std::move(facts_);
    }

   private:
    void Words(const std::string& what, const std::string& words) { facts_.push_back({what, words, ""}); }
    void Number(const std::string& what, Single value, const std::string& unit) {
        facts_.push_back({what, Decimal_Of(value), unit});
    }
    void Length(const std::string& what, Single stored) {
        Number(what, Single(stored * Shown_Factor(m_)), m_.UnitLabel(6));
    }
    void Angle(const std::string& what, Single degrees) { Number(what, degrees, kDegrees); }

    void Identity() {
        Words("Model", m_.ModelName);
        Words("Title", m_.FigureTitle);
        Number("Design #", Single(m_.DesignNumber), "");
        Words("By", m_.UserName);
        Words("Date", m_.DateStr);
        Words("Time", m_.TimeStr);
        Words("Program", "Verlink " + m_.RevNumber);
    }

    void Linkage() {
        Length("Link 1 (Ground)", m_.L1);
        Length("Link 2 (Crank)", m_.L2);
        Length("Link 3 (Coupler)", m_.L3);
        Length("Link 4 (Rocker)", m_.L4);
        Length("Dist. from I 2,3 to Coupler Pt", m_.Rpa);
        Angle("Angle from Link 3 to Coupler Pt", m_.Delta);
        Length("O4 from O2, X", m_.Link1X);
        Length("O4 from O2, Y", m_.Link1Y);
        Angle("Angle of Link 1", m_.Link1Angle);
        Words("Circuit", m_.CircuitName);
    }

    void Drive() {
        const bool by_angle = m_.Calctype == run::kByAngle;
        constexpr const char* kRuns[] = {"One position", "Time steps", "Angle steps", "Cam driven", "Link driven"};
        const int kind = m_.Calctype;
        if (kind >= 1 && kind <= 5) Words("Run", kRuns[kind - 1]);
        if (by_angle) {
            Angle("Min Theta", m_.ThetaStart);
            Angle("Max Theta", m_.ThetaEnd);
            Angle("Delta Theta", m_.ThetaStep);
            Number("Omega2", m_.Omega2Input, m_.UnitLabel(2));
            return;
        }
        if (kind != run::kOnePosition) {
            Number("Start Time", m_.TimeStart, "sec");
            Number("End Time", m_.TimeEnd, "sec");
            Number("Delta Time", m_.TimeStep, "sec");
        }
        if (m_.Imported()) return;
        Angle("Theta2 at the start", m_.ThetaZero);
        Number("Omega2 at the start", m_.Omega2Input, m_.UnitLabel(2));
        Number("Alpha2", m_.Alpha2, m_.UnitLabel(3));
    }

    /// The screens write that of the foot system without its s.
    std::string Inertia_Unit() const {
        constexpr int kFeet = 2;
        return m_.Units == kFeet ? "ft-lb-s^2" : m_.UnitLabel(15);
    }

    void Masses() {
        for (int link = 2; link <= 4; ++link) {
            const std::string of = " of Link " + Text_Of(link);
            Number("Mass" + of, m_.LinkMass(link), m_.UnitLabel(14));
            Number("Inertia" + of, m_.LinkInertia(link), Inertia_Unit());
            Length("CG Distance" + of, m_.CG(link, 0));
            Angle("CG Angle" + of, Single(m_.CG(link, 1) * kRadToDeg));
        }
    }

    void Loads() {
        for (int link = 3; link <= 4; ++link) {
            const std::string on = " on Link " + Text_Of(link);
            Number("Force" + on, m_.ExtForceMag(link), m_.UnitLabel(10));
            Angle("Direction of Force" + on, m_.ExtForceAng(link));
            Length("Distance of Force" + on, link == 3 ? m_.ForceDist3 : m_.ForceDist4);
            Angle("Angle of its Point" + on, link == 3 ? m_.ForceAng3 : m_.ForceAng4);
            if (link == 4 && m_.TorqueImported)
                Words("Torque" + on, "from " + m_.TorqueFileName);
            else
                Number("Torque" + on, m_.ExtTorque(link), m_.UnitLabel(9));
        }
        Number("Friction on Link 3", m_.FrictionForce, m_.UnitLabel(10));
    }

    const LinkageModel& m_;
    std::vector<Sheet_Fact> facts_;
};

}  // namespace

std::vector<Sheet_Fact> Model_Facts(const LinkageModel& model) { return Facts(model).All(); }

}  // namespace verlink
