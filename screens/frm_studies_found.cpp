// What a study has come to: plots, the cloud on the mechanism, the table.
#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "core/numeric.h"
#include "core/text.h"
#include "output/series.h"
#include "platform/desktop_services.h"
#include "screens/frm_studies.h"
#include "study/pace.h"

namespace verlink {

using platform::Color_Map;
using platform::Histogram;
using study::Number;

namespace {

constexpr platform::Color kPaper = 0xFFFFFF;
constexpr int kBins = 40, kDecimals = 6;
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
/// Those that a table has.
constexpr std::array kShares{0.0, 0.01, 0.05, 0.25, 0.5, 0.75, 0.95, 0.99, 1.0};

std::string Short(double value) {
    return study::Is_None(static_cast<float>(value)) ? "none" : Text_Of(FNRound(value, 4));
}
bool Held(double value) { return std::fabs(value) <= std::numeric_limits<float>::max(); }
/// With the digits that a single has.
std::string Digits(double value) {
    if (std::isnan(value)) return "none";
    return Held(value) ? Text_Of(Single(value)) : Text_Of(value);
}
double Decimal(double value) { return Held(value) ? Decimal_Of(Single(value)) : value; }

const char* Name_Of_Field(int field) { return study::Fields()[static_cast<std::size_t>(field)].name; }

std::string In_Brackets(const std::string& name, const std::string& unit) {
    return unit.empty() ? name : name + " (" + unit + ")";
}

}  // namespace

std::string frm_Studies::Measure_Unit() const {
    std::string fault;
    const auto asked = study::Measure_Of(settings_.measure, settings_.local, fault);
    if (!asked || asked->statistic == study::Statistic::kCloses) return "";
    const bool distance =
        asked->statistic == study::Statistic::kDeviation || asked->statistic == study::Statistic::kLine;
    return distance ? study::Shown_Field("L2", model_.Units).unit : Unit_Of(asked->function, model_);
}

std::string frm_Studies::Measure_Title() const { return In_Brackets(settings_.measure, Measure_Unit()); }

std::string frm_Studies::Field_Title(int field) const {
    return In_Brackets(Name_Of_Field(field), study::Shown_Field(Name_Of_Field(field), model_.Units).unit);
}

void frm_Studies::Show_Found() {
    const bool sweeps = settings_.kind == Settings::Kind::kSweep, two = !settings_.sweeps[1].field.empty();
    grf_Sweep.Visible = begun_ && sweeps && !two;
    map_Sweep.Visible = begun_ && sweeps && two;
    his_Spread.Visible = bar_Share.Visible = begun_ && !sweeps;
    Show_Progress();
    lbl_Told.Caption = "";
    if (sweeps) {
        two ? Show_Map() : Show_Plot();
    } else {
        Show_Spread();
        Show_Shares();
    }
    Show_Picked();
    Show_Picture();
}

void frm_Studies::Show_Progress() {
    if (!begun_) {
        lbl_Progress.Caption = "";
        return;
    }
    const double rate = found_.seconds > 0 ? static_cast<double>(found_.done) / found_.seconds : 0;
    const std::string of = std::to_string(found_.done) + " of " + std::to_string(found_.all) + " linkages";
    const std::string fast = rate > 0 ? ", " + study::Short_Number(rate) + " a second" : "";
    std::string words;
    if (found_.Whole())
        words = std::to_string(found_.all) + (found_.all == 1 ? " linkage" : " linkages") + fast;
    else if (found_.ended)
        words = "Stopped after " + of;
    else
        words =
            of + fast +
            (rate > 0 ? ", " + study::Time_Words(static_cast<double>(found_.all - found_.done) / rate) + " left" : "");
    if (!settings_.keep.empty()) words += ", " + std::to_string(found_.summary.kept) + " kept";
    lbl_Progress.Caption = words + ".";
}

void frm_Studies::Show_Plot() {
    platform::Graph& graph = grf_Sweep;
    const std::size_t count = begun_ ? found_.values.size() : 0;
    graph.SetNumPoints(static_cast<int>(count));
    graph.Places.clear();
    graph.GraphTitle = Measure_Title();
    graph.BottomTitle.clear();
    graph.GridStyle = 3;
    graph.SetUnitText(Measure_Unit());
    if (begun_) {
        const int field = aside_.The_Bench().Moved().front();
        const study::Sweep& sweep = aside_.The_Bench().Of().plan.sweeps.front();
        const double factor = study::Shown_Field(Name_Of_Field(field), model_.Units).factor;
        const Color_Map::Axis axis{"", sweep.from * factor, sweep.to * factor, static_cast<int>(found_.all)};
        graph.BottomTitle = Field_Title(field);
        for (std::size_t i = 0; i < count; ++i) {
            const double value = axis.At(static_cast<int>(i));
            graph.Places.push_back(value);
            graph.ThisPoint = static_cast<int>(i) + 1;
            graph.SetGraphData(found_.values[i]);
            graph.SetLabelText(Digits(value));
        }
        if (found_.summary.measures.size() == 1 && found_.summary.measures[0].Spread().Count() > 0) {
            const auto& spread = found_.summary.measures[0].Spread();
            lbl_Told.Caption = "Of the model " + Short(found_.nominal[0]) + "; in the sweep from " +
                               Short(spread.Least()) + " to " + Short(spread.Greatest()) + ".";
        }
    }
    graph.Cursor = picked_ && *picked_ < count ? static_cast<int>(*picked_) + 1 : 0;
    graph.Draw();
}

void frm_Studies::Show_Map() {
    Color_Map::Content shown;
    shown.title = Measure_Title();
    const auto axis = [&](const Settings::Swept& swept) {
        const study::Shown_As as = study::Shown_Field(swept.field, model_.Units);
        return Color_Map::Axis{In_Brackets(swept.field, as.unit), swept.from * as.factor, swept.to * as.factor,
                               static_cast<int>(std::min<Number>(swept.count, kMapped))};
    };
    if (begun_) {
        shown.across = axis(settings_.sweeps[0]);
        shown.up = axis(settings_.sweeps[1]);
        shown.values.assign(found_.values.begin(), found_.values.end());
        if (found_.summary.measures.size() == 1 && found_.summary.measures[0].Spread().Count() > 0) {
            const auto& spread = found_.summary.measures[0].Spread();
            lbl_Told.Caption = "Of the model " + Short(found_.nominal[0]) + "; on the map from " +
                               Short(spread.Least()) + " to " + Short(spread.Greatest()) + ".";
        }
    }
    map_Sweep.Show(shown);
    const auto high = static_cast<Number>(std::max(shown.up.count, 1));
    map_Sweep.Picked = picked_ ? Color_Map::Cell{static_cast<int>(*picked_ / high), static_cast<int>(*picked_ % high)}
                               : Color_Map::Cell{};
}

void frm_Studies::Show_Spread() {
    Histogram::Content shown;
    shown.title = Measure_Title();
    if (!begun_ || found_.summary.measures.empty() || found_.summary.measures[0].Spread().Count() == 0) {
        his_Spread.Shown = shown;
        return;
    }
    const study::Tally& tally = found_.summary.measures[0];
    const auto& spread = tally.Spread();
    const double least = spread.Least(), most = spread.Greatest();
    const double air = most > least ? 0 : std::max(std::fabs(least) * 1e-3, 1e-6);
    shown.from = least - air;
    shown.to = most + air;
    std::vector<double> bounds;
    for (int i = 0; i <= kBins; ++i)
        bounds.push_back(i < kBins ? shown.from + (shown.to - shown.from) * i / kBins : shown.to);
    for (const auto count : spread.Between(bounds)) shown.counts.push_back(static_cast<double>(count));
    if (!study::Is_None(found_.nominal[0])) shown.lines.push_back({found_.nominal[0], "model", false});
    shown.lines.push_back({spread.Quantile(0.01), "1 %", true});
    shown.lines.push_back({spread.Quantile(0.99), "99 %", true});
    shown.lines.push_back({spread.Quantile(0.5), "50 %", true});
    his_Spread.Shown = shown;
    lbl_Told.Caption = "Of the model " + Short(found_.nominal[0]) + ", mean " + Short(tally.Mean()) +
                       ", standard deviation " + Short(tally.Deviation()) + ";  98 of 100 between " +
                       Short(spread.Quantile(0.01)) + " and " + Short(spread.Quantile(0.99)) + ".";
}

void frm_Studies::Show_Shares() {
    platform::Bars::Content shown;
    if (begun_ && !found_.sensitivities.empty()) {
        shown.title = std::string("Share of the spread") + (settings_.keep.empty() ? "" : " of all") + "; derivative";
        const auto& tolerances = aside_.The_Bench().Of().plan.tolerances;
        float most = 0;
        for (const study::Sensitivity& s : found_.sensitivities[0]) most = std::max(most, s.share);
        for (std::size_t i = 0; i < tolerances.size(); ++i) {
            const study::Sensitivity& s = found_.sensitivities[0][i];
            const std::string name = Name_Of_Field(tolerances[i].field);
            const study::Shown_As as = study::Shown_Field(name, model_.Units);
            const std::string unit = Measure_Unit().empty() ? "1" : Measure_Unit();
            const std::string share =
                study::Is_None(s.share) ? "none" : Text_Of(FNRound(double{s.share} * 100, 1)) + " %";
            shown.bars.push_back(
                {name, s.share / most, share + "   " + Short(s.derivative / as.factor) + " " + unit + "/" + as.unit});
        }
    }
    bar_Share.Shown = shown;
}

void frm_Studies::Pick(Number linkage) {
    if (!begun_ || linkage >= found_.done) return;
    picked_ = linkage;
    aside_.Solve(linkage, picked_fields_, picked_measures_);
    picked_mechanism_.reset();
    if (std::ranges::any_of(picked_fields_, study::Is_None)) return Show_Found();
    study::Design design = aside_.The_Bench().Of().design;
    const auto& moved = aside_.The_Bench().Moved();
    for (std::size_t i = 0; i < moved.size(); ++i)
        study::Fields()[static_cast<std::size_t>(moved[i])].place(design) = picked_fields_[i];
    picked_mechanism_.emplace(design);
    Show_Found();
}

void frm_Studies::Step_Pick(int by) {
    // The one before the first is beyond all others.
    Pick(picked_ ? *picked_ + static_cast<Number>(by) : 0);
}

void frm_Studies::Show_Picked() {
    cmd_Take.Enabled = picked_ && std::ranges::none_of(picked_fields_, study::Is_None);
    cmd_Before.Enabled = begun_ && found_.done > 0 && picked_ != Number{0};
    cmd_After.Enabled = begun_ && found_.done > 0 && (!picked_ || *picked_ + 1 < found_.done);
    std::string words;
    if (picked_) {
        words = "Linkage " + std::to_string(*picked_ + 1) + ": ";
        const auto& moved = aside_.The_Bench().Moved();
        for (std::size_t i = 0; i < moved.size(); ++i) {
            const study::Shown_As shown = study::Shown_Field(Name_Of_Field(moved[i]), model_.Units);
            words += (i == 0 ? "" : ", ") + std::string(Name_Of_Field(moved[i])) + " " +
                     Digits(picked_fields_[i] * shown.factor) + (shown.unit.empty() ? "" : " " + shown.unit);
        }
        const std::string unit = Measure_Unit();
        words += ";  " + settings_.measure + " " + Digits(picked_measures_[0]) + (unit.empty() ? "" : " " + unit);
    }
    lbl_Picked.Caption = words;
}

void frm_Studies::Tell_Bin(double value) {
    const Histogram::Content& shown = his_Spread.Shown;
    if (!begun_ || found_.summary.measures.empty() || shown.counts.empty()) return;
    const double wide = (shown.to - shown.from) / kBins;
    const int bin = std::clamp(static_cast<int>((value - shown.from) / wide), 0, kBins - 1);
    const double low = shown.from + bin * wide;
    double below = 0;
    for (int i = 0; i < bin; ++i) below += shown.counts[static_cast<std::size_t>(i)];
    const double all = static_cast<double>(found_.summary.measures[0].Spread().Count());
    lbl_Picked.Caption = "Between " + Short(low) + " and " + Short(low + wide) + ": " +
                         Text_Of(shown.counts[static_cast<std::size_t>(bin)]) + " linkages; below that " +
                         Text_Of(FNRound(100 * below / all, 1)) + " of 100.";
}

void frm_Studies::Show_Picture() {
    platform::Surface& surface = Picture1.Canvas();
    surface.BackColor(kPaper);
    lbl_Step.Caption = "";
    cloud_.clear();
    if (!mechanism_) return;
    surface.Scale(window_.low.real(), window_.high.imag(), window_.high.real(), window_.low.imag());
    const int step = std::min(hsc_Step.Value(), mechanism_->Last());
    study::Draw_Mechanism(surface, *mechanism_, step, window_, picked_mechanism_.has_value());
    if (picked_mechanism_) study::Draw_Mechanism(surface, *picked_mechanism_, step, window_);
    const auto& pose = mechanism_->At(step);
    if (!pose) {
        lbl_Step.Caption = "This position does not close.";
        return;
    }
    lbl_Step.Caption = "Theta2 " + Short(mechanism_->Crank(step)) + " deg";
    if (!begun_ || settings_.kind != Settings::Kind::kTolerance) return;
    cloud_ = aside_.Cloud_At(step);
    if (cloud_.empty()) return;
    enlarged_ = study::Enlargement(cloud_, pose->P, window_);
    study::Draw_Cloud(surface, cloud_, pose->P, enlarged_, picked_, window_);
    lbl_Step.Caption = lbl_Step.Caption.Get() + ";  the coupler point of " + std::to_string(cloud_.size()) +
                       " linkages, deviations " + Text_Of(enlarged_) + " times as large";
}

bool frm_Studies::Pick_In_Cloud(const platform::Touch& touch) {
    const int step = hsc_Step.Value();
    if (cloud_.empty() || !mechanism_ || !mechanism_->At(step)) return false;
    const auto nearest = study::Nearest_In(cloud_, mechanism_->At(step)->P, enlarged_, Spot(touch.x, touch.y));
    if (nearest) Pick(*nearest);
    return nearest.has_value();
}

Sheet frm_Studies::Sweep_Sheet() const {
    Sheet sheet{.name = "Study", .columns = {{.name = "Linkage", .component = "", .unit = "", .decimals = 0}}};
    const auto& moved = aside_.The_Bench().Moved();
    for (const int field : moved)
        sheet.columns.push_back({.name = Name_Of_Field(field),
                                 .component = "",
                                 .unit = study::Shown_Field(Name_Of_Field(field), model_.Units).unit,
                                 .decimals = kDecimals});
    sheet.columns.push_back(
        {.name = settings_.measure, .component = "", .unit = Measure_Unit(), .decimals = kDecimals});
    for (std::size_t i = 0; i < found_.values.size(); ++i) {
        const std::vector<float> values = aside_.Values_Of(i);
        sheet.columns.front().values.push_back(static_cast<double>(i + 1));
        for (std::size_t field = 0; field < moved.size(); ++field) {
            const double factor = study::Shown_Field(Name_Of_Field(moved[field]), model_.Units).factor;
            sheet.columns[field + 1].values.push_back(Decimal(values[field] * factor));
        }
        const float value = found_.values[i];
        sheet.columns.back().values.push_back(study::Is_None(value) ? kNaN : Decimal(value));
    }
    return sheet;
}

Sheet frm_Studies::Spread_Sheet() const {
    const auto& spread = found_.summary.measures[0].Spread();
    Sheet sheet{.name = "Study",
                .columns = {{.name = "Below", .component = "share", .unit = "%", .decimals = 0},
                            {.name = settings_.measure, .component = "", .unit = Measure_Unit(), .decimals = kDecimals},
                            {.name = "From", .component = "bin", .unit = Measure_Unit(), .decimals = kDecimals},
                            {.name = "Linkages", .component = "bin", .unit = "", .decimals = 0}}};
    const Histogram::Content& shown = his_Spread.Shown;
    for (std::size_t i = 0; i < std::max(kShares.size(), shown.counts.size()); ++i) {
        const bool share = i < kShares.size(), bin = i < shown.counts.size();
        sheet.columns[0].values.push_back(share ? 100 * kShares.at(i) : kNaN);
        sheet.columns[1].values.push_back(share ? spread.Quantile(kShares.at(i)) : kNaN);
        sheet.columns[2].values.push_back(bin ? shown.from + (shown.to - shown.from) * static_cast<double>(i) / kBins
                                              : kNaN);
        sheet.columns[3].values.push_back(bin ? shown.counts[i] : kNaN);
    }
    return sheet;
}

std::optional<Table_To_Save> frm_Studies::Table() {
    const bool sweeps = settings_.kind == Settings::Kind::kSweep;
    const bool there =
        begun_ && (sweeps ? !found_.values.empty()
                          : !found_.summary.measures.empty() && found_.summary.measures[0].Spread().Count() > 0);
    if (!there) {
        platform::Tell("There is no table to be saved. Start the study first.", platform::Icon::kInformation);
        return {};
    }
    Table_To_Save found =
        Table_Of_The_Model("study", 1, [this, sweeps](int) { return sweeps ? Sweep_Sheet() : Spread_Sheet(); });
    const auto& plan = aside_.The_Bench().Of().plan;
    found.model.push_back({"Study: linkages solved", static_cast<double>(found_.done), ""});
    found.model.push_back({"Study: linkages in all", static_cast<double>(found_.all), ""});
    if (sweeps) return found;
    const study::Tally& tally = found_.summary.measures[0];
    found.model.push_back({"Study: mean", tally.Mean(), Measure_Unit()});
    found.model.push_back({"Study: standard deviation", tally.Deviation(), Measure_Unit()});
    for (std::size_t i = 0; i < plan.tolerances.size(); ++i)
        found.model.push_back({std::string("Study: share of ") + Name_Of_Field(plan.tolerances[i].field),
                               double{found_.sensitivities[0][i].share} * 100, "%"});
    return found;
}

}  // namespace verlink
