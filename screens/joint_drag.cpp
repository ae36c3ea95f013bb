// In the local frame, where O2 is the origin and O4 lies on the x axis, places are complex numbers.
#include "screens/joint_drag.h"

#include <algorithm>
#include <cmath>
#include <complex>

#include "core/linkage_model.h"
#include "core/numeric.h"

namespace verlink {

namespace {

using Vector = std::complex<double>;

Vector Point_At(const LinkageModel& model, int step, int row) {
    return {model.RunTable.PointXY(step, row, 0), model.RunTable.PointXY(step, row, 1)};
}

Vector Turn(double degrees) { return std::polar(1.0, degrees * kDegToRad); }

/// How far apart two angles are, degrees, -180 to 180.
double Between(double from, double to) { return std::remainder(to - from, 360); }

/// The angle next to another one, but within a turn either way of zero.
double Next_To(double before, double angle) {
    const double next = before + Between(before, angle);
    return std::fabs(next) > 360 ? std::remainder(next, 360) : next;
}

double Degrees(Vector v) { return std::arg(v) * kRadToDeg; }

class Follower {
   public:
    Follower(const Pull& pull, const LinkageModel& model)
        : pull_(pull),
          model_(model),
          unit_(Shown_Factor(model)),
          to_(Vector(pull.to.x, pull.to.y) * Turn(-model.Link1Angle)),
          A_(Point_At(model, pull.step, 0)),
          B_(Point_At(model, pull.step, 1)),
          O4_(model.L1 * unit_, 0),
          asked_(model) {
        answer_.step = pull.step;
    }

    Followed Found() {
        switch (pull_.joint) {
            case Joint::kA: Crank(); break;
            case Joint::kB: pull_.coupler ? Coupler() : Rocker(); break;
            case Joint::kP: Coupler_Point(); break;
            case Joint::kO4: model_.PolarCoords ? Ground_By_Angle() : Ground_By_Place(); break;
        }
        if (pull_.joint != Joint::kP && (other_circuit_ || !Closes())) {
            answer_.values.clear();
            answer_.refused = asked_;
        }
        return std::move(answer_);
    }

   private:
    bool Holds(int box) const { return pull_.holds && pull_.holds(box); }

    /// A length in its box and in the linkage that is asked for.
    void Length(int box, double length, Single Geometry::*field) {
        if (Holds(box)) return;
        const int decimals = Decimals_For(pull_.fine);
        length = pull_.round > 0 ? std::round(length / pull_.round) * pull_.round : FNRound(length, decimals);
        Put(box, length, unit_, decimals, field);
    }
    /// An angle whose arm is so long.
    void Angle(int box, double degrees, double arm, Single Geometry::*field) {
        if (Holds(box)) return;
        const int decimals = Decimals_For(arm > 0 ? pull_.fine / arm * kRadToDeg : 1);
        degrees = Next_To(model_.*field, degrees);
        degrees = pull_.round > 0 ? std::round(degrees) : FNRound(degrees, decimals);
        Put(box, degrees, 1, decimals, field);
    }
    /// As it comes to the record by way of its box.
    void Put(int box, double shown, double unit, int decimals, Single Geometry::*field) {
        asked_.*field = Single(shown) / unit;
        if (asked_.*field != model_.*field) answer_.values.push_back({box, shown, decimals});
    }
    void Coupler_Point() {
        const Vector along = B_ - A_;
        const Vector arm = (to_ - A_) * (std::norm(along) > 0 ? std::conj(along / std::abs(along)) : Vector(1));
        if (std::norm(arm) == 0) return Length(4, 0, &Geometry::Rpa);
        const double length = Holds(5) ? std::max(0.0, (arm * Turn(-model_.Delta)).real()) : std::abs(arm);
        Length(4, length, &Geometry::Rpa);
        Angle(5, Degrees(arm), length, &Geometry::Delta);
    }

    void Crank() {
        answer_.step = Nearest_Position();
        const double length = (to_ * Turn(-Crank_Angle(answer_.step))).real();
        if (length > pull_.fine) Length(1, length, &Geometry::L2);
    }
    double Crank_Angle(int step) const { return model_.RunTable.Theta(step, 0) - model_.Link1Angle; }

    /// The position that closes and whose crank points nearest to where the hand is; of several alike the one nearest
    /// to what is shown.
    int Nearest_Position() const {
        constexpr double kAlike = 1e-3;
        if (model_.Calctype == run::kOnePosition || std::abs(to_) <= pull_.fine) return pull_.step;
        const double wished = Degrees(to_);
        int nearest = pull_.step;
        double least = std::fabs(Between(Crank_Angle(nearest), wished));
        for (int step = 0; step <= model_.NSteps; ++step) {
            if (!model_.RunTable.Assembled(step)) continue;
            const double off = std::fabs(Between(Crank_Angle(step), wished));
            const bool nearer_by = std::abs(step - pull_.step) < std::abs(nearest - pull_.step);
            if (off > least + kAlike || (off > least - kAlike && !nearer_by)) continue;
            nearest = step;
            least = std::min(off, least);
        }
        return nearest;
    }

    void Rocker() {
        const Vector arm = to_ - A_;
        if (Holds(3) || std::abs(arm) <= pull_.fine) return;
        const Vector B = A_ + arm / std::abs(arm) * std::abs(B_ - A_);
        Mind_Circuit(B);
        Length(3, std::abs(B - O4_), &Geometry::L4);
    }

    void Coupler() {
        const Vector arm = to_ - O4_;
        if (Holds(2) || std::abs(arm) <= pull_.fine) return;
        const Vector B = O4_ + arm / std::abs(arm) * std::abs(B_ - O4_);
        Mind_Circuit(B);
        Length(2, std::abs(B - A_), &Geometry::L3);
    }

    /// On the other side of the line from A to O4 the links close on the other circuit.
    void Mind_Circuit(Vector B) {
        const auto side = [&](Vector b) { return (std::conj(O4_ - A_) * (b - A_)).imag(); };
        other_circuit_ = side(B) * side(B_) < 0;
    }

    void Ground_By_Place() {
        Length(15, pull_.to.x, &Geometry::Link1X);
        Length(16, pull_.to.y, &Geometry::Link1Y);
        const double x = asked_.Link1X, y = asked_.Link1Y;
        asked_.L1 = std::hypot(x, y);
        if (x != 0 || y != 0) asked_.Link1Angle = std::atan2(y, x) * kRadToDeg;
    }

    void Ground_By_Angle() {
        const Vector to(pull_.to.x, pull_.to.y);
        if (std::abs(to) <= pull_.fine) return;
        const double length = Holds(6) ? (to * Turn(-model_.Link1Angle)).real() : std::abs(to);
        if (length > 0) Length(0, length, &Geometry::L1);
        Angle(6, Degrees(to), length, &Geometry::Link1Angle);
    }

    /// Does it close at the position that is to be shown, with a hair to spare?
    bool Closes() const {
        const double global = model_.RunTable.Theta(answer_.step, 0);
        const double local = global - (model_.Calctype == run::kCamDriven ? model_.Link1Angle : asked_.Link1Angle);
        const double L3 = asked_.L3, L4 = asked_.L4;
        const double reach = std::abs(double{asked_.L2} * Turn(local) - double{asked_.L1});
        const double hair = 1e-6 * (asked_.L1 + asked_.L2 + L3 + L4);
        return reach >= std::fabs(L3 - L4) + hair && reach <= L3 + L4 - hair;
    }

    const Pull& pull_;
    const LinkageModel& model_;
    double unit_;  ///< shown units in a stored one
    Vector to_, A_, B_, O4_;
    Geometry asked_;
    Followed answer_;
    bool other_circuit_ = false;
};

}  // namespace

std::optional<platform::Point> Place_Of(Joint joint, const LinkageModel& model, int step) {
    if (step < 0 || step > model.NSteps || !model.RunTable.Assembled(step)) return {};
    const Vector local =
        joint == Joint::kO4 ? Vector(model.L1 * Shown_Factor(model)) : Point_At(model, step, static_cast<int>(joint));
    const Vector global = local * Turn(model.Link1Angle);
    return platform::Point{global.real(), global.imag()};
}

Followed Follow(const Pull& pull, const LinkageModel& model) { return Follower(pull, model).Found(); }

int Decimals_For(double fine, int least) {
    constexpr int kMost = 6;
    return std::clamp(static_cast<int>(std::ceil(-std::log10(std::max(fine, 1e-9)))), least, kMost);
}

double Round_Up_1_2_5(double value) {
    const double decade = std::pow(10, std::floor(std::log10(value)));
    for (const double part : {1.0, 2.0, 5.0})
        if (value <= part * decade * (1 + 1e-9)) return part * decade;
    return 10 * decade;
}

}  // namespace verlink
