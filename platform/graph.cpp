// How a graph keeps its sets and labels.
#include "platform/graph.h"

#include <limits>

namespace verlink::platform {

namespace {

constexpr double kNothing = std::numeric_limits<double>::quiet_NaN();

}  // namespace

Graph::Graph(Screen& owner, std::string name, int index) : Visual(owner, std::move(name), index) {
    Tip = "Wheel or frame to enlarge, double click for the whole, right click for the picture";
}

void Graph::SetNumSets(int count) {
    if (count < 0) Raise(kInvalidProperty);
    sets_.resize(static_cast<std::size_t>(count));
    for (Set& set : sets_) set.values.resize(static_cast<std::size_t>(points_), kNothing);
}

void Graph::SetNumPoints(int count) {
    if (count < 0) Raise(kInvalidProperty);
    points_ = count;
    labels_.resize(static_cast<std::size_t>(count));
    for (Set& set : sets_) set.values.resize(static_cast<std::size_t>(count), kNothing);
}

Graph::Set& Graph::Present() {
    if (ThisSet < 1 || ThisSet > NumSets()) Raise(kInvalidProperty);
    return sets_[static_cast<std::size_t>(ThisSet - 1)];
}

void Graph::SetGraphData(double value) {
    if (ThisPoint < 1 || ThisPoint > points_) Raise(kInvalidProperty);
    Present().values[static_cast<std::size_t>(ThisPoint - 1)] = value;
}

void Graph::SetLabelText(const std::string& text) {
    if (ThisPoint < 1 || ThisPoint > points_) Raise(kInvalidProperty);
    labels_[static_cast<std::size_t>(ThisPoint - 1)] = text;
}

void Graph::SetLegendText(const std::string& text) { Present().legend = text; }
void Graph::SetPatternData(int pattern) { Present().pattern = pattern; }
void Graph::SetUnitText(const std::string& unit) { Present().unit = unit; }

Graph::FontSetting& Graph::FontSetting::operator=(int value) {
    last_ = value;
    graph_.title_font_.*field_ = value;
    if (graph_.FontUse == 4) graph_.text_font_.*field_ = value;
    return *this;
}

void Graph::Draw() {
    ++drawings_;
    Notify();
}

}  // namespace verlink::platform
