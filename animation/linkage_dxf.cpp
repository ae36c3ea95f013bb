// What of a run lies on which layer.
#include "animation/linkage_dxf.h"

#include <cmath>
#include <utility>

#include "core/joints.h"
#include "files/drawing_scale.h"

namespace verlink {

namespace {

// The numbers of colours.
constexpr int kRed = 1, kGreen = 3, kBlue = 5, kMagenta = 6, kBlack = 7, kGray = 8;

/// Parts of all links together.
constexpr double kFar = 10, kPivot = 0.006;

class Linkage_Drawing {
   public:
    explicit Linkage_Drawing(const LinkageModel& model)
        : model_(model),
          turn_(std::polar(Drawing_Factor(model), model.Link1Angle * kDegToRad)),
          stored_turn_(std::polar(Drawing_Factor_Of_Stored(model), model.Link1Angle * kDegToRad)),
          reach_((double{model.L1} + model.L2 + model.L3 + model.L4) * Drawing_Factor_Of_Stored(model)),
          dxf_(Drawing_Unit(model), Drawing_Remark(model), 2 * kPivot * reach_) {}

    std::string Drawn(int step) {
        const bool closes = Closes(step);
        Links(step, closes);
        if (closes) Poles(step);
        Curve("COUPLER_CURVE", kMagenta, [this](int i, Spot& spot) {
            spot = At(i, 2);
            return Closes(i);
        });
        Curve("FIXED_CENTRODE", kBlack, [this](int i, Spot& spot) {
            spot = Stored(model_.RunTable.FixedCentrode, i);
            return Has_Pole(i);
        });
        if (Closes(0))
            Curve("MOVING_CENTRODE", kRed, [this](int i, Spot& spot) {
                spot = Stored(model_.RunTable.MovingCentrode, i);
                return Has_Pole(i);
            });
        return dxf_.Content();
    }

   private:
    bool Closes(int step) const { return step >= 0 && step <= model_.NSteps && model_.RunTable.Assembled(step); }

    /// A joint by its row of the table.
    Spot At(int step, int row) const {
        const auto& points = model_.RunTable.PointXY;
        return turn_ * Spot(points(step, row, 0), points(step, row, 1));
    }
    template <class Table>
    Spot Stored(const Table& table, int step) const {
        return stored_turn_ * Spot(table(step, 0, 0), table(step, 0, 1));
    }
    Spot O4() const { return stored_turn_ * Spot(model_.L1, 0); }
    Joints Joints_At(int step) const { return {{}, O4(), At(step, 0), At(step, 1), At(step, 2)}; }

    bool Near(Spot spot) const { return std::abs(spot) <= kFar * reach_; }
    bool Has_Pole(int step) const {
        if (!Closes(step)) return false;
        const auto pole = Pole_13(Joints_At(step));
        return pole && !pole->at_infinity && Near(pole->at);
    }

    void Links(int step, bool closes) {
        const Joints at = closes ? Joints_At(step) : Joints{{}, O4(), {}, {}, {}};
        dxf_.Layer("LINK_1", kGray);
        dxf_.Line(at.O2, at.O4);
        if (closes) {
            dxf_.Layer("LINK_2", kBlue);
            dxf_.Line(at.O2, at.A);
            dxf_.Layer("LINK_3", kGreen);
            dxf_.Path({at.A, at.B, at.P, at.A});
            dxf_.Layer("LINK_4", kRed);
            dxf_.Line(at.O4, at.B);
        }
        dxf_.Layer("PIVOTS", kBlack);
        for (const Spot pivot : {at.O2, at.O4}) dxf_.Circle(pivot, kPivot * reach_);
        if (!closes) return;
        for (const Spot joint : {at.A, at.B}) dxf_.Circle(joint, kPivot * reach_);
        dxf_.Layer("COUPLER_POINT", kMagenta);
        dxf_.Point(at.P);
    }

    void Poles(int step) {
        const Joints at = Joints_At(step);
        dxf_.Layer("POLES", kRed);
        for (const auto& pole : {Pole_13(at), Pole_24(at)})
            if (pole && !pole->at_infinity && Near(pole->at)) dxf_.Point(pole->at);
    }

    /// `find` puts the point of a step and says whether there is one.
    template <class Find>
    void Curve(const char* layer, int color, Find find) {
        dxf_.Layer(layer, color);
        std::vector<Spot> stretch;
        for (int step = 0; step <= model_.NSteps; ++step) {
            Spot spot;
            if (find(step, spot)) {
                stretch.push_back(spot);
                continue;
            }
            dxf_.Path(std::exchange(stretch, {}));
        }
        dxf_.Path(std::move(stretch));
    }

    const LinkageModel& model_;
    Spot turn_, stored_turn_;  ///< from the frame of the ground link
    double reach_;             ///< all links together, units of the drawing
    Dxf dxf_;
};

}  // namespace

std::string Linkage_Dxf(const LinkageModel& model, int step) { return Linkage_Drawing(model).Drawn(step); }

}  // namespace verlink
