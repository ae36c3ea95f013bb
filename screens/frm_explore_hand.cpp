// The hand on the pictures: bodies are moved, dots and curves are picked on, the linkage is played.
#include <algorithm>
#include <cmath>

#include "design/drawing.h"
#include "platform/guard.h"
#include "screens/frm_explore.h"

namespace verlink {

namespace {

using design::Curve;
using design::Place;
using design::Solution;

constexpr double kReach = 10;  ///< logical pixels

}  // namespace

void frm_Explore::Bind_Pictures() {
    Picture1.Magnifies = pic_Map.Magnifies = true;
    Picture1.OnHover = [this](const platform::Touch& touch) { Light_Up(touch); };
    Picture1.OnLeave = [this] { Picture1.Lit = std::nullopt; };
    Picture1.OnSeize = [this](const platform::Touch& touch) { return Seize(touch); };
    Picture1.OnDrag = [this](const platform::Touch& touch) { Drag(touch); };
    Picture1.OnRelease = [this] { Let_Go(); };
    pic_Map.OnSeize = [this](const platform::Touch& touch) { return Pick_On_Map(touch); };
    pic_Map.OnDrag = [this](const platform::Touch& touch) { Pick_On_Map(touch); };
    pic_Map.OnRelease = [] {};
    pic_Map.Keys = "Left Right";
    pic_Map.OnKey = [this](const platform::Picture_Key& key) { Walk_Along_Curve(key.key == "Left" ? -1 : 1); };
}

/// What lies under the pointer: a dot, then the curve; where neither does, the nearest dot. Once a link was picked on
/// the curve, the hand goes on along it.
bool frm_Explore::Pick_On_Map(const platform::Touch& touch) {
    const auto off = [&](const Solution& solution) { return design::Distance(Mapped(solution), {touch.x, touch.y}); };
    const auto nearest = std::ranges::min_element(shown_, {}, off);
    const bool near = !link_ && nearest != shown_.end() && off(*nearest) <= kReach * touch.pixel;
    if (!near && Pick_On_Curve(touch, Curve_Of_Map())) return true;
    if (nearest == shown_.end()) return false;
    Pick(static_cast<int>(nearest - shown_.begin()));
    return true;
}

bool frm_Explore::Pick_On_Curve(const platform::Touch& touch, Curve which) {
    if (!chk_Curves.Value) return false;
    const auto dyad = design::Nearest_Dyad(curves_, which, {touch.x, touch.y}, kReach * touch.pixel);
    if (dyad) Take_Link(*dyad);
    return dyad.has_value();
}

void frm_Explore::Take_Link(const design::Dyad& dyad) {
    Guarded("frm_Explore.Take_Link", [&] {
        constexpr std::size_t kBest = 20;
        if (search_.Runs()) search_.Await();
        picked_ = false;
        link_ = dyad;
        Take_Found(design::Find_With(task_, curves_, dyad, kBest), Looked::kWithALink);
    });
}

/// From the link that was picked, or the one of the map's dot, to another one beside it on the curve.
void frm_Explore::Walk_Along_Curve(int way) {
    if (!chk_Curves.Value || curves_.empty()) return;
    constexpr int kStep = 12;
    std::vector<design::Dyad> all;
    for (const auto& piece : curves_) all.insert(all.end(), piece.begin(), piece.end());
    const bool centres = Curve_Of_Map() == Curve::kCentres;
    const auto pivot = [&](const design::Dyad& dyad) { return centres ? dyad.fixed : dyad.moving; };
    const design::Point from = link_ ? pivot(*link_) : Chosen() ? Mapped(*Chosen()) : pivot(all.front());
    const auto at = std::ranges::min_element(
        all, {}, [&](const design::Dyad& dyad) { return design::Distance(pivot(dyad), from); });
    const auto count = static_cast<int>(all.size());
    const int next = (static_cast<int>(at - all.begin()) + way * kStep + count) % count;
    Take_Link(all[static_cast<std::size_t>(next)]);
}

design::Point frm_Explore::Spot_Of(const Grip& grip) const {
    const Place place = design::Absolute_Positions(task_)[static_cast<std::size_t>(grip.position - 1)];
    return grip.turns ? place.at + std::polar(design::Body_Size(Seen()), place.angle * design::kDegree) : place.at;
}

/// The nearest within reach of a finger; the point of a body comes before its leg's end.
frm_Explore::Grip frm_Explore::Grip_At(const platform::Touch& touch) const {
    Grip nearest;
    double least = kReach * touch.pixel;
    for (const bool turns : {false, true})
        for (int i = 1; i <= static_cast<int>(task_.positions.size()); ++i) {
            const double off = design::Distance(Spot_Of({i, turns}), {touch.x, touch.y});
            if (off >= least) continue;
            least = off;
            nearest = {i, turns};
        }
    return nearest;
}

void frm_Explore::Light_Up(const platform::Touch& touch) {
    const Grip grip = held_.position > 0 ? held_ : Grip_At(touch);
    if (grip.position == 0) {
        Picture1.Lit = std::nullopt;
        Picture1.Pointer = platform::Grip::kArrow;
        return;
    }
    const design::Point spot = Spot_Of(grip);
    const bool held = held_.position > 0;
    Picture1.Lit = platform::Light{spot.real(), spot.imag(), held};
    Picture1.Pointer = held ? platform::Grip::kClosedHand : platform::Grip::kOpenHand;
}

bool frm_Explore::Seize(const platform::Touch& touch) {
    const design::Box seen = Seen();
    const Grip grip = Grip_At(touch);
    if (grip.position == 0) return Pick_On_Curve(touch, Curve::kCirclePoints) || Pick_On_Curve(touch, Curve::kCentres);
    frozen_ = seen;
    held_ = grip;
    moved_ = false;
    Light_Up(touch);
    return true;
}

void frm_Explore::Let_Go() {
    if (held_.position == 0) return;
    held_ = {};
    Picture1.Lit = std::nullopt;
    Guarded("frm_Explore.Let_Go", [this] { moved_ ? Glance() : Show_Pose(); });
}

void frm_Explore::Play_Or_Pause() {
    playing_ = playing_ != 0 ? 0 : 1;
    cmd_Play.Caption = playing_ != 0 ? "&Pause" : "&Play";
    Listen();
}

/// There and back, in as many pulses each way.
void frm_Explore::Play_On() {
    constexpr int kPulses = 50;
    const int next = hsc_Stroke.Value() + playing_ * kStroke / kPulses;
    if (next < 0 || next > kStroke) playing_ = -playing_;
    hsc_Stroke.SetValue(std::clamp(next, 0, kStroke));
}

void frm_Explore::Listen() { Timer1.Enabled = playing_ != 0 || search_.Runs() || unseen_; }

}  // namespace verlink
