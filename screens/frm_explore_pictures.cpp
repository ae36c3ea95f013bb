// What was found in pictures, large and small, and on the map.
#include <algorithm>
#include <cmath>

#include "core/numeric.h"
#include "core/text.h"
#include "design/drawing.h"
#include "dynamics/shown_length.h"
#include "screens/frm_explore.h"

namespace verlink {

namespace {

using design::Place;
using design::Solution;

constexpr platform::Color kPaper = 0xFFFFFF, kInk = 0x000000;

void Open_Window(platform::PictureBox& picture, const design::Box& seen) {
    picture.Canvas().BackColor(kPaper);
    picture.Canvas().Scale(seen.low.real(), seen.high.imag(), seen.high.real(), seen.low.imag());
}

double Side_Of(const design::Box& seen) { return seen.high.real() - seen.low.real(); }

std::string To_One_Decimal(double value) { return Text_Of(FNRound(value, 1)); }

/// There is no room for more.
const char* Short_Words(design::Class kind) {
    constexpr const char* kWords[] = {
        "crank-rocker", "double-crank", "double-rocker", "rocker-crank", "special case", "triple-rocker", ""};
    return kWords[static_cast<int>(kind)];
}

/// The way across what it takes of the plane.
std::string Size_Of(const Solution& solution, int units) {
    const ShownLength shown = Shown_Length(units);
    return Text_Of(FNRound(design::Distance(solution.judgement.room.low, solution.judgement.room.high),
                           shown.decimals > 2 ? shown.decimals - 1 : shown.decimals)) +
           " " + shown.unit;
}

/// Just within the edge.
void Frame_It(platform::Surface& surface, const design::Box& seen) {
    constexpr double kInset = 0.015;
    constexpr platform::Color kMark = 0xC86E1E;
    const design::Point inset(kInset * Side_Of(seen), kInset * Side_Of(seen));
    const design::Point low = seen.low + inset, high = seen.high - inset;
    surface.Line(low.real(), low.imag(), high.real(), low.imag(), kMark);
    surface.LineTo(high.real(), high.imag(), kMark);
    surface.LineTo(low.real(), high.imag(), kMark);
    surface.LineTo(low.real(), low.imag(), kMark);
}

/// Red for 0, green for 100.
platform::Color Color_Of(double score) {
    constexpr int kRed = 220, kGreen = 160, kFull = 255;
    const int good = std::clamp(static_cast<int>(kFull * score / 100), 0, kFull);
    return (kRed - kRed * good / kFull) + 256 * (kGreen * good / kFull);
}

}  // namespace

void frm_Explore::Show_Gallery() {
    for (int i = 0; i < kShownAtOnce; ++i)
        pic_Found[i].Visible = lbl_Found[i].Visible = first_ + i < static_cast<int>(shown_.size());
    const int count = static_cast<int>(shown_.size());
    lbl_Page.Caption = count == 0 ? ""
                                  : std::to_string(first_ + 1) + " to " +
                                        std::to_string(std::min(count, first_ + kShownAtOnce)) + " of " +
                                        std::to_string(count);
    cmd_Earlier.Enabled = first_ > 0;
    cmd_Later.Enabled = first_ + kShownAtOnce < count;
    Show_Chosen();
}

void frm_Explore::Show_Found(int place) {
    const auto number = static_cast<std::size_t>(first_ + place);
    const Solution& solution = shown_[number];
    const design::Box seen = design::Seen_Of(task_, solution);
    Open_Window(pic_Found[place], seen);
    if (&solution == Chosen()) Frame_It(pic_Found[place].Canvas(), seen);
    design::Draw_Solution(pic_Found[place].Canvas(), task_, solution, Part_Shown(solution));
    const design::Judgement& j = solution.judgement;
    lbl_Found[place].Caption = std::to_string(number + 1) + "  " +
                               (j.Good() ? Short_Words(j.kind) + ("\n" + To_One_Decimal(j.transmission)) + " deg, " +
                                               Size_Of(solution, task_.units)
                                         : design::Words_Of(j.refusal));
}

void frm_Explore::Pick(int number) {
    if (number < 0 || number >= static_cast<int>(shown_.size())) return;
    chosen_ = number;
    picked_ = true;
    first_ = chosen_ / kShownAtOnce * kShownAtOnce;
    Show_Gallery();
}

const Solution* frm_Explore::Chosen() const {
    return chosen_ < 0 ? nullptr : &shown_[static_cast<std::size_t>(chosen_)];
}

void frm_Explore::Show_Chosen() {
    const Solution* solution = Chosen();
    Allow_Roads();
    hsc_Stroke.Enabled = cmd_Play.Enabled = cmd_Use.Enabled.Get();
    if (playing_ != 0 && !cmd_Play.Enabled) Play_Or_Pause();
    Show_Map();
    Show_Pose();
    lbl_Told.Caption = "";
    if (!solution) return;
    const design::Judgement& j = solution->judgement;
    lbl_Told.Caption =
        std::to_string(chosen_ + 1) + " of " + std::to_string(shown_.size()) + ": " +
        (j.Good() ? std::string(design::Words_Of(j.kind)) + ", " + (j.open ? "open" : "crossed") +
                        " circuit, transmission angle " + To_One_Decimal(j.transmission) +
                        " deg and more, longest link " + To_One_Decimal(j.proportion) + " times the shortest, room " +
                        Size_Of(*solution, task_.units) + " across, score " + To_One_Decimal(j.score)
                  : design::Words_Of(j, task_));
}

double frm_Explore::Part_Shown(const Solution& solution) const {
    const int value = hsc_Stroke.Value();
    const design::Judgement& j = solution.judgement;
    const double first = j.crank[0], way = j.crank[task_.positions.size() - 1] - first;
    if (!j.Good() || way == 0) return 0;
    for (std::size_t i = 0; i < task_.positions.size(); ++i)
        if (const double part = (j.crank[i] - first) / way; std::lround(part * kStroke) == value) return part;
    return static_cast<double>(value) / kStroke;
}

std::string frm_Explore::Words_Of_Stroke(const Solution& solution) const {
    constexpr double kFullTurn = 360;
    const design::Judgement& j = solution.judgement;
    const std::size_t last = task_.positions.size() - 1;
    const double part = Part_Shown(solution),
                 crank = (j.crank[0] + part * (j.crank[last] - j.crank[0])) / design::kDegree;
    std::string words = "Crank at " + To_One_Decimal(crank - kFullTurn * std::floor(crank / kFullTurn)) + " deg";
    for (std::size_t i = 0; i <= last; ++i)
        if (std::abs(j.crank[i] - j.crank[0] - part * (j.crank[last] - j.crank[0])) < 1e-9)
            words += ", in position " + std::to_string(i + 1);
    return words;
}

/// The large picture and the small ones, at a place of the stroke.
void frm_Explore::Show_Pose() {
    const Solution* solution = Chosen();
    const design::Box seen = last_seen_ = Seen();
    Open_Window(Picture1, seen);
    Show_Numbers(seen);
    Show_Curves(Picture1.Canvas(), seen, true);
    Draw_Link(Picture1.Canvas());
    lbl_Stroke.Caption = solution && solution->judgement.Good() ? Words_Of_Stroke(*solution) : "";
    if (!solution) return design::Draw_Positions(Picture1.Canvas(), task_, seen);
    design::Draw_Solution(Picture1.Canvas(), task_, *solution, Part_Shown(*solution), seen);
    for (int i = 0; i < kShownAtOnce; ++i)
        if (pic_Found[i].Visible) Show_Found(i);
}

/// Behind each body's corner.
void frm_Explore::Show_Numbers(const design::Box& seen) {
    const std::vector<Place> places = design::Absolute_Positions(task_);
    for (int i = 1; i <= design::kMostPositions; ++i) {
        lbl_Number[i].Visible = i <= static_cast<int>(places.size());
        if (!lbl_Number[i].Visible) continue;
        const Place& place = places[static_cast<std::size_t>(i - 1)];
        const design::Point back = -std::polar(1.0, place.angle * design::kDegree);
        lbl_Number[i].At =
            platform::Anchor{(place.at.real() - seen.low.real()) / Side_Of(seen),
                             (seen.high.imag() - place.at.imag()) / Side_Of(seen), back.real(), -back.imag()};
    }
}

int frm_Explore::Map_Of() const {
    const auto found = std::ranges::find(kPivots, cmb_Map.Text.Get());
    return found == std::end(kPivots) ? 0 : static_cast<int>(found - kPivots);
}

design::Curve frm_Explore::Curve_Of_Map() const {
    return Map_Of() % 2 == 0 ? design::Curve::kCirclePoints : design::Curve::kCentres;
}

design::Point frm_Explore::Mapped(const Solution& solution) const {
    const design::FourBar& linkage = solution.linkage;
    const design::Point pivots[] = {linkage.crank.moving, linkage.crank.fixed, linkage.other.moving,
                                    linkage.other.fixed};
    return pivots[Map_Of()];
}

void frm_Explore::Show_Curves(platform::Surface& surface, const design::Box& seen, bool both) const {
    if (!chk_Curves.Value) return;
    for (const design::Curve curve : {design::Curve::kCentres, design::Curve::kCirclePoints})
        if (both || curve == Curve_Of_Map()) design::Draw_Curve(surface, curves_, curve, seen);
}

void frm_Explore::Draw_Link(platform::Surface& surface) const {
    if (!link_) return;
    surface.Line(link_->fixed.real(), link_->fixed.imag(), link_->moving.real(), link_->moving.imag(), kInk);
}

design::Box frm_Explore::Seen_On_Map() const {
    constexpr double kMargin = 0.6;
    design::Box seen = design::Seen_Of(task_);
    for (const Solution& solution : shown_) {
        const design::Point at = Mapped(solution);
        seen.low = {std::min(seen.low.real(), at.real()), std::min(seen.low.imag(), at.imag())};
        seen.high = {std::max(seen.high.real(), at.real()), std::max(seen.high.imag(), at.imag())};
    }
    const double side = std::max(seen.high.real() - seen.low.real(), seen.high.imag() - seen.low.imag());
    const design::Point middle = (seen.low + seen.high) / 2.0, half(kMargin * side, kMargin * side);
    return {middle - half, middle + half};
}

void frm_Explore::Show_Map() {
    constexpr double kDot = 0.016;
    if (!link_) map_seen_ = Seen_On_Map();
    const double side = Side_Of(map_seen_);
    Open_Window(pic_Map, map_seen_);
    Show_Curves(pic_Map.Canvas(), map_seen_, false);
    design::Draw_Positions(pic_Map.Canvas(), task_, map_seen_);
    Draw_Link(pic_Map.Canvas());
    for (const Solution& solution : shown_) {
        const design::Point at = Mapped(solution);
        const bool chosen = &solution == Chosen();
        pic_Map.Canvas().Pin(at.real(), at.imag(), (chosen ? 2 : 1) * kDot * side, Color_Of(solution.judgement.score));
    }
}

design::Box frm_Explore::Seen() const {
    if (held_.position > 0) return frozen_;
    const Solution* solution = Chosen();
    if (!solution && link_) return last_seen_;
    return solution ? design::Seen_Of(task_, *solution) : design::Seen_Of(task_);
}

}  // namespace verlink
