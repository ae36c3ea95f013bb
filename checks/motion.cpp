// What the run's table has of each step, beside the second solution.
#include "checks/motion.h"

#include <cmath>

#include "checks/worst.h"
#include "core/linkage_model.h"

namespace verlink::checks {

namespace {

constexpr double kDegrees = 180 / M_PI;
constexpr const char* kPoints[] = {"A", "B", "P"};
constexpr const char* kLinks[] = {"link 2", "link 3", "link 4"};

/// An angle brought to half a turn about 0, degrees.
double Wrapped(double degrees) { return std::remainder(degrees, 360); }

/// What the solver's first acceleration term is off by where it takes another crank acceleration than the second.
void Take_Design(const Shape& g, Step& s) {
    const double off = (s.drive.alpha2_before - s.drive.alpha2) * s.pose.A.imag();
    const double determinant = std::sin(s.pose.th4.angle - s.pose.th3.angle);
    s.design_alpha3 = off * std::cos(s.pose.th4.angle) / (g.L3 * determinant);
    s.design_alpha4 = off * std::cos(s.pose.th3.angle) / (g.L4 * determinant);
}

class Motion {
   public:
    Motion(const LinkageModel& model, const std::vector<Step>& steps)
        : m_(model),
          table_(model.RunTable),
          steps_(steps),
          shape_(Shape_Of(model, model)),
          shown_(Shown_Factor(model)) {}

    void Add(std::vector<Check>& checks) {
        for (const Step& s : steps_) {
            Close(s);
            if (!s.pose.closes) continue;
            Place(s);
            Move(s);
            Accelerate(s);
            Compare_Ratios(s);
        }
        Tell(checks);
    }

   private:
    /// Of lengths: what is expected of stored ones, shown, and the rounding of that.
    double Shown(const Estimate2& e, Vector value) const {
        return shown_ * (e.Error() + 2 * kHalfPlace * std::abs(value));
    }

    void Close(const Step& s) {
        const int n = s.number;
        const Vector A = At(table_.PointXY, n, 0) / shown_, B = At(table_.PointXY, n, 1) / shown_;
        const Vector P = At(table_.PointXY, n, 2) / shown_, O4 = shape_.L1;
        const double place = 4 * kHalfPlace * shown_;
        const double at_A = s.expected.A.Error(), at_B = s.expected.B.Error(), at_P = s.expected.P.Error();
        const auto gap = [&](double departure, double expected, double size, const char* where) {
            closure_.Add(std::abs(departure) * shown_, expected * shown_ + place * size, n, where);
        };
        gap(std::abs(A) - shape_.L2, 0, shape_.L2, "link 2");
        gap(std::abs(B - A) - shape_.L3, at_A + at_B, std::abs(A) + std::abs(B), "link 3");
        gap(std::abs(B - O4) - shape_.L4, 0, shape_.L4 + shape_.L1, "link 4");
        const double part = shape_.Rpa / shape_.L3;
        const Vector arm = (B - A) * part * Toward(shape_.delta);
        gap(std::abs(P - A - arm), at_A + at_P + part * (at_A + at_B), std::abs(P) + part * (std::abs(A) + std::abs(B)),
            "coupler point");
    }

    void Place(const Step& s) {
        const int n = s.number;
        const Vector points[] = {s.pose.A, s.pose.B, s.pose.P};
        const Estimate2 expected[] = {s.expected.A, s.expected.B, s.expected.P};
        for (int i = 1; i <= 2; ++i)
            places_.Add(std::abs(At(table_.PointXY, n, i) - points[i] * shown_), Shown(expected[i], points[i]), n,
                        kPoints[i]);
        const double angles[] = {s.pose.th2.angle, s.pose.th3.angle, s.pose.th4.angle};
        const double open[] = {s.expected.th2.error, s.expected.th3.error, s.expected.th4.error};
        for (int i = 0; i <= 2; ++i) {
            const double stored = table_.Theta(n, i);
            // A turn that is taken off or added is rounded as well.
            const double expected_angle =
                open[i] * kDegrees + 2 * kHalfPlace * (std::abs(stored) + std::abs(double{m_.Link1Angle}) + 360);
            angles_.Add(std::abs(Wrapped(stored - m_.Link1Angle - angles[i] * kDegrees)), expected_angle, n, kLinks[i]);
        }
        // Taken from the stored angles of links 3 and 4.
        const double turned = std::abs(double{table_.Theta(n, 1)}) + std::abs(double{table_.Theta(n, 2)});
        const double sine = std::abs(std::sin(angles[2] - angles[1])),
                     cosine = std::abs(std::cos(angles[2] - angles[1]));
        angles_.Add(std::abs(table_.Theta(n, 3) - std::atan2(sine, cosine) * kDegrees),
                    (open[1] + open[2]) * kDegrees + 2 * kHalfPlace * (turned + 4 * 360), n, "transmission angle");
    }

    void Move(const Step& s) {
        const int n = s.number;
        const double w2 = s.drive.omega2;
        speeds_.Add(std::abs(table_.Omega(n, 1) - w2 * s.pose.th3.first), s.expected.omega3.error, n, kLinks[1]);
        speeds_.Add(std::abs(table_.Omega(n, 2) - w2 * s.pose.th4.first), s.expected.omega4.error, n, kLinks[2]);
        const Vector ways[] = {s.pose.A1, s.pose.B1, s.pose.P1};
        for (int i = 0; i <= 2; ++i)
            velocities_.Add(std::abs(At(table_.VelXY, n, i) - w2 * ways[i] * shown_),
                            Shown(s.expected.velocity[i], w2 * ways[i]), n, kPoints[i]);
    }

    void Accelerate(const Step& s) {
        const int n = s.number;
        const double w2 = s.drive.omega2, a2 = s.drive.alpha2;
        const double a3 = a2 * s.pose.th3.first + w2 * w2 * s.pose.th3.second + s.design_alpha3;
        const double a4 = a2 * s.pose.th4.first + w2 * w2 * s.pose.th4.second + s.design_alpha4;
        turns_.Add_By_Design(std::abs(table_.Alpha(n, 1) - a3), s.expected.alpha3.error, std::abs(s.design_alpha3), n,
                             kLinks[1]);
        turns_.Add_By_Design(std::abs(table_.Alpha(n, 2) - a4), s.expected.alpha4.error, std::abs(s.design_alpha4), n,
                             kLinks[2]);
        const Vector off_B = kQuarter * s.design_alpha4 * (s.pose.B - shape_.L1);
        const Vector off_P = kQuarter * s.design_alpha3 * (s.pose.P - s.pose.A);
        const double w4 = w2 * s.pose.th4.first;
        const Vector A = a2 * s.pose.A1 + w2 * w2 * s.pose.A2, B = a2 * s.pose.B1 + w2 * w2 * s.pose.B2 + off_B;
        const Vector P = a2 * s.pose.P1 + w2 * w2 * s.pose.P2 + off_P;
        const Vector found[] = {A, B, P, {-shape_.L4 * w4 * w4, a4 * shape_.L4}, P * Toward(-s.pose.th3.angle)};
        const double design[] = {0, std::abs(off_B), std::abs(off_P), std::abs(off_B), std::abs(off_P)};
        constexpr const char* kRows[] = {"A", "B", "P", "B along and across link 4", "P along and across link 3"};
        for (int i = 0; i <= 4; ++i)
            accelerations_.Add_By_Design(std::abs(At(table_.AccXY, n, i) - found[i] * shown_),
                                         Shown(s.expected.acceleration[i], found[i]), design[i] * shown_, n, kRows[i]);
    }

    /// The poles 1-2, 1-4 and 2-4 lie on the ground link; 2-4 on the coupler as well.
    void Compare_Ratios(const Step& s) {
        const int n = s.number;
        if (s.drive.omega2 == 0) return;
        const Vector A = At(table_.PointXY, n, 0) / shown_, B = At(table_.PointXY, n, 1) / shown_;
        // From O2 and from O4 to pole 2-4, both times the rise of the coupler.
        const double from_O2 = Cross(A, B), from_O4 = from_O2 - shape_.L1 * (B - A).imag();
        const double at_A = s.expected.A.Error(), at_B = s.expected.B.Error();
        const double open = at_A * (std::abs(B) + shape_.L1) + at_B * (std::abs(A) + shape_.L1) +
                            4 * kHalfPlace * (std::abs(A) + shape_.L1) * std::abs(B);
        const Estimate ratio = Estimate(from_O2, open) / Estimate(from_O4, open);
        const Estimate speed{0, s.expected.omega4.error / std::abs(s.drive.omega2)};
        ratios_.Add(std::abs(table_.OmegaRatio(n) - from_O2 / from_O4),
                    ratio.error + speed.error + 2 * kHalfPlace * std::abs(ratio.value), n, "");
        const Estimate advantage = Estimate(from_O4, open) / Estimate(from_O2, open);
        const Estimate by_speeds = s.drive.omega2 / s.expected.omega4;
        advantages_.Add(std::abs(table_.MechAdvantage(n) - from_O4 / from_O2),
                        advantage.error + by_speeds.error + 2 * kHalfPlace * std::abs(advantage.value), n, "");
    }

    void Tell(std::vector<Check>& checks) const {
        const std::string late = "In a driven run one term takes the crank's acceleration of the step before.";
        const auto tell = [&](const Worst& worst, const char* meaning, const std::string& design = "") {
            if (worst.Any()) checks.push_back(worst.Told(m_, meaning, design));
        };
        tell(closure_, "Links and coupler point have their lengths between the joints that were solved.");
        tell(places_, "B and P lie where the triangle of diagonal, coupler and rocker has them, on the circuit named.");
        tell(angles_, "The angles stored are those of the links in that triangle, the transmission angle included.");
        tell(speeds_, "Links 3 and 4 turn as fast as that triangle changes with the crank.");
        tell(velocities_, "A, B and P move as that triangle moves them.");
        tell(turns_, "Links 3 and 4 are sped up as the triangle's second derivative has it.", late);
        tell(accelerations_, "A, B and P are accelerated as that triangle moves them.", late);
        tell(ratios_, "The ratio of speeds is that of the distances of pole 2-4 from O2 and O4.");
        tell(advantages_, "The mechanical advantage is the inverse ratio of these distances.");
    }

    const LinkageModel& m_;
    const RunResults& table_;
    const std::vector<Step>& steps_;
    Shape shape_;
    double shown_;
    Worst closure_{"Loop closure", m_.UnitLabel(6)}, places_{"Positions", m_.UnitLabel(6)};
    Worst angles_{"Angles", m_.UnitLabel(1)}, speeds_{"Angular speeds", m_.UnitLabel(2)};
    Worst velocities_{"Velocities", m_.UnitLabel(4)}, turns_{"Angular accelerations", m_.UnitLabel(3)};
    Worst accelerations_{"Accelerations", m_.UnitLabel(5)}, ratios_{"Ratio of speeds", m_.UnitLabel(7)};
    Worst advantages_{"Mechanical advantage", m_.UnitLabel(8)};
};

}  // namespace

std::vector<Step> Checked_Steps(const LinkageModel& model) {
    const RunResults& table = model.RunTable;
    const Shape shape = Shape_Of(model, model);
    const double shown = Shown_Factor(model);
    std::vector<Step> steps;
    double before = model.Alpha2;
    for (int n = 0; n <= model.NSteps; ++n) {
        if (!table.Assembled(n)) {
            // A position that failed behind its speeds has left its acceleration to the next.
            if (At(table.VelXY, n, 2) != Vector{}) before = table.Alpha(n, 0);
            continue;
        }
        Step s;
        s.number = n;
        const double alpha2 = table.Alpha(n, 0);
        const Vector A = At(table.PointXY, n, 0) / shown;
        s.drive = {std::arg(A), table.Omega(n, 0), alpha2, model.Imported() ? before : alpha2,
                   table.Theta(n, 0) / kDegrees};
        before = alpha2;
        s.pose = Pose_At(shape, s.drive.th2);
        s.expected = Expected_At(shape, s.drive);
        if (s.drive.alpha2_before != alpha2) Take_Design(shape, s);
        steps.push_back(s);
    }
    return steps;
}

void Add_Motion(const LinkageModel& model, const std::vector<Step>& steps, std::vector<Check>& checks) {
    Motion(model, steps).Add(checks);
}

}  // namespace verlink::checks
