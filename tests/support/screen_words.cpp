#include "tests/support/screen_words.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <limits>
#include <map>

#include "platform/charts.h"
#include "platform/controls.h"
#include "platform/graph.h"
#include "platform/grid.h"
#include "platform/overlaid_picture.h"
#include "tests/support/scripted_desktop.h"

namespace verlink::test {

using namespace platform;

namespace {

std::string Short(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.4g", std::abs(value) < 1e-9 ? 0 : value);
    return text;
}

std::string Hex(Color color) {
    char text[16];
    std::snprintf(text, sizeof text, "#%06x", static_cast<unsigned>(color));
    return text;
}

std::string Quoted(std::string text) {
    for (const auto& [letter, word] : {std::pair{'\r', "\\r"}, {'\n', "\\n"}})
        for (std::size_t at = 0; (at = text.find(letter, at)) != std::string::npos;) text.replace(at, 1, word);
    return '"' + text + '"';
}

/// The words of one control, one after the other.
class Words {
   public:
    explicit Words(std::string name) : words_{std::move(name)} {}
    void Add(const std::string& word) { words_.push_back(word); }
    void Add_If(bool so, const std::string& word) {
        if (so) Add(word);
    }
    void Name(const std::string& what, const std::string& text) { Add_If(!text.empty(), what + ' ' + Quoted(text)); }
    void Number(const std::string& what, double value, double usual = 0) {
        Add_If(value != usual, what + ' ' + Short(value));
    }
    const std::vector<std::string>& All() const { return words_; }

   private:
    std::vector<std::string> words_;
};

template <class Kind>
const Kind* As(const Control& control) {
    return dynamic_cast<const Kind*>(&control);
}

void Say_Look(Words& words, const Visual& visual) {
    words.Add_If(!visual.Enabled, "off");
    words.Add_If(!visual.Visible, "hidden");
    words.Add_If(visual.BackColor != kStyleColor, "on " + Hex(visual.BackColor));
    words.Name("tip", visual.Tip);
}

void Say_Label(Words& words, const Label& label) {
    words.Name("says", label.Caption);
    words.Add_If(label.ForeColor != kStyleColor, "in " + Hex(label.ForeColor));
    if (const std::optional<Anchor>& at = label.At.Get())
        words.Add("at " + Short(at->across) + ' ' + Short(at->down) + " towards " + Short(at->right) + ' ' +
                  Short(at->below));
}

void Say_Text(Words& words, const TextBox& box) {
    words.Name("has", box.Text);
    words.Add_If(box.Locked, "locked");
    words.Add_If(box.SelectedAll, "selected");
    words.Add_If(box.Touched(), "touched");
    words.Name("note", box.Note());
}

void Say_List(Words& words, const ComboBox& list) {
    words.Name("has", list.Text);
    words.Number("item", list.ListIndex(), -1);
    std::string items;
    for (const std::string& item : list.Items()) items += (items.empty() ? "" : "|") + item;
    words.Name("of", items);
}

void Say_Bar(Words& words, const ScrollBar& bar) {
    words.Add(Short(bar.Min()) + ".." + Short(bar.Max()) + " at " + Short(bar.Value()) + " by " +
              Short(bar.SmallChange) + ' ' + Short(bar.LargeChange));
    words.Add_If(!bar.KeepsArrows, "gives arrows");
}

/// How many points there are, between which ends they lie, and their mean.
class Extent {
   public:
    void Take(double value) {
        least_ = std::min(least_, value);
        most_ = std::max(most_, value);
        sum_ += value;
        ++count_;
    }
    std::string Said() const { return Short(least_) + ".." + Short(most_) + '/' + Short(sum_ / count_); }

   private:
    double least_ = std::numeric_limits<double>::infinity(), most_ = -least_, sum_ = 0;
    int count_ = 0;
};

/// Strokes of one kind and colour.
struct Drawn {
    int count = 0;
    Extent x, y;

    void Take(const Picture::Primitive& one) {
        using Kind = Picture::Primitive::Kind;
        ++count;
        const bool round = one.kind == Kind::kCircle || one.kind == Kind::kPin;
        x.Take(one.x1 + one.dx1), y.Take(one.y1 + one.dy1);
        if (one.kind == Kind::kDot) return;
        x.Take(round ? one.x1 + one.x2 : one.x2 + one.dx2), y.Take(round ? one.y1 : one.y2 + one.dy2);
    }
};

void Say_Picture(Words& words, const PictureBox& box) {
    const Picture& picture = box.Drawing();
    words.Add("window " + Short(picture.Left()) + ' ' + Short(picture.Top()) + ' ' + Short(picture.Right()) + ' ' +
              Short(picture.Bottom()));
    std::map<std::string, Drawn> drawn;
    static constexpr const char* kKinds[] = {"line", "circle", "dot", "pin", "mark"};
    for (const Picture::Primitive& one : picture.Primitives())
        if (one.alive) drawn[std::string(kKinds[static_cast<int>(one.kind)]) + ' ' + Hex(one.color)].Take(one);
    for (const auto& [kind, all] : drawn)
        words.Add(std::to_string(all.count) + ' ' + kind + " (" + all.x.Said() + ' ' + all.y.Said() + ')');
    for (const std::string& line : box.Lines.Get()) words.Name("line", line);
    words.Name("keys", box.Keys);
    words.Add_If(box.Magnifies, "magnifies");
    words.Add_If(box.Pointer != Grip::kArrow, "grips");
}

void Say_Graph(Words& words, const Graph& graph) {
    words.Name("title", graph.GraphTitle);
    words.Name("below", graph.BottomTitle);
    words.Add("patterned " + Short(graph.PatternedLines) + " thick " + Short(graph.ThickLines) + " ticks " +
              Short(graph.TickEvery) + ' ' + Short(graph.LabelEvery) + " grid " + Short(graph.GridStyle) + " style " +
              Short(graph.GraphStyle) + " ground " + Short(graph.Background) + " colour " + Short(graph.FirstColor) +
              " font " + Short(graph.TitleFont().size) + ' ' + Short(graph.TextFont().size));
    words.Add_If(!graph.Labelled, "bare");
    words.Add_If(graph.InLine, "in line");
    words.Number("cursor", graph.Cursor);
    if (!graph.Labels().empty()) words.Add(Quoted(graph.Labels().front()) + ".." + Quoted(graph.Labels().back()));
    for (const Graph::Set& set : graph.Sets()) {
        words.Name("set", set.legend + '|' + set.unit);
        const std::size_t last = set.values.size();
        if (last > 0)
            words.Add(std::to_string(last) + ": " + Short(set.values.front()) + ".." + Short(set.values.back()));
    }
}

std::string Least_To_Most(std::vector<double> values) {
    std::erase_if(values, [](double value) { return std::isnan(value); });
    if (values.empty()) return "none";
    const auto [least, most] = std::ranges::minmax_element(values);
    double sum = 0;
    for (const double value : values) sum += value;
    return std::to_string(values.size()) + ": " + Short(*least) + ".." + Short(*most) + " sum " + Short(sum);
}

void Say_Charts(Words& words, const Control& control) {
    if (const auto* spread = As<Histogram>(control)) {
        const Histogram::Content& shown = spread->Shown;
        words.Name("title", shown.title);
        words.Add("scale " + Short(shown.from) + ' ' + Short(shown.to) + " counts " + Least_To_Most(shown.counts));
        for (const auto& line : shown.lines)
            words.Name("at " + Short(line.at) + (line.faint ? " faint" : ""), line.name);
    }
    if (const auto* bars = As<Bars>(control)) {
        words.Name("title", bars->Shown.Get().title);
        for (const auto& bar : bars->Shown.Get().bars)
            words.Add(bar.name + ' ' + Short(bar.length) + ' ' + Quoted(bar.words));
    }
    if (const auto* map = As<Color_Map>(control)) {
        const Color_Map::Content& shown = map->Shown();
        words.Name("title", shown.title);
        for (const auto* axis : {&shown.across, &shown.up})
            words.Name("by", axis->title + ' ' + Short(axis->from) + ' ' + Short(axis->to) + ' ' + Short(axis->count));
        words.Add("values " + Least_To_Most(shown.values));
        words.Add("picked " + Short(map->Picked.Get().across) + ' ' + Short(map->Picked.Get().up));
    }
}

void Say_Grid(Words& words, const Grid& grid) {
    constexpr int kFew = 6;
    words.Add(std::to_string(grid.Rows()) + " by " + std::to_string(grid.Cols()) + ", " +
              std::to_string(grid.FixedRows) + ' ' + std::to_string(grid.StatisticRows) + " fixed");
    words.Add_If(grid.Wraps, "wraps");
    for (int row = 0; row < std::min(grid.Rows(), kFew); ++row)
        for (int column = 0; column < grid.Cols(); ++column) words.Name("", grid.Cell(row, column));
    for (int column = 0; column < grid.Cols(); ++column)
        words.Add(Short(grid.ColWidth(column)) + '/' + Short(grid.ColAlignment(column)) +
                  Short(grid.FixedAlignment(column)));
}

void Say_Kind(Words& words, const Control& control) {
    if (const auto* label = As<Label>(control)) Say_Label(words, *label);
    if (const auto* frame = As<Frame>(control)) words.Name("says", frame->Caption);
    if (const auto* box = As<TextBox>(control)) Say_Text(words, *box);
    if (const auto* button = As<CommandButton>(control))
        words.Name("says", button->Caption), words.Name("keys", button->Keys);
    if (const auto* option = As<OptionButton>(control))
        words.Name("says", option->Caption), words.Add_If(option->Value, "chosen");
    if (const auto* check = As<CheckBox>(control))
        words.Name("says", check->Caption), words.Add_If(check->Value, "ticked");
    if (const auto* list = As<ComboBox>(control)) Say_List(words, *list);
    if (const auto* bar = As<ScrollBar>(control)) Say_Bar(words, *bar);
    if (const auto* picture = As<PictureBox>(control)) Say_Picture(words, *picture);
    if (const auto* graph = As<Graph>(control)) Say_Graph(words, *graph);
    if (const auto* grid = As<Grid>(control)) Say_Grid(words, *grid);
    Say_Charts(words, control);
}

void Say_Rest(Words& words, const Control& control) {
    if (const auto* timer = As<Timer>(control)) {
        words.Number("every", timer->Interval);
        words.Add_If(timer->Enabled, "runs");
    }
    if (const auto* keys = As<Shortcut>(control)) {
        words.Name("keys", keys->Keys);
        words.Add_If(!keys->Enabled, "off");
    }
    if (const auto* entry = As<MenuEntry>(control)) {
        words.Name("says", entry->Caption);
        words.Name("keys", entry->Keys);
        words.Name("tip", entry->Tip);
        words.Add_If(!entry->Enabled, "off");
        words.Add_If(!entry->Visible, "hidden");
        words.Add_If(entry->Checked, "checked");
    }
    if (const auto* reader = As<DocumentView>(control)) {
        words.Name("reads", reader->Document);
        words.Number("page", reader->Page);
        words.Number("zoom", reader->Zoom);
    }
    if (const auto* over = As<Overlaid_Picture>(control))
        words.Add(std::to_string(over->Over.Get().marks.size()) + " marks over it");
}

std::string Named(const Control* control) { return control ? control->ObjectName() : "nothing"; }

}  // namespace

std::vector<std::vector<std::string>> Words_By_Control(Screen& screen) {
    Words window(screen.Name());
    window.Name("titled", screen.Caption());
    window.Add(std::to_string(screen.Width().Get()) + " by " + std::to_string(screen.Height().Get()) + " at " +
               std::to_string(screen.Left().Get()) + ' ' + std::to_string(screen.Top().Get()));
    window.Add("Return " + Named(screen.DefaultButton) + " Escape " + Named(screen.CancelButton) + " stop " +
               Named(screen.StopButton) + " focus " + Named(screen.Focus()));
    window.Name("stops by", screen.StopKeys);
    std::vector<std::vector<std::string>> all{window.All()};
    for (const Control* control : screen.Controls()) {
        Words words("  " + control->ObjectName());
        Say_Kind(words, *control);
        if (const auto* visual = As<Visual>(*control)) Say_Look(words, *visual);
        Say_Rest(words, *control);
        all.push_back(words.All());
    }
    return all;
}

std::vector<std::string> Screen_Words(Screen& screen) {
    std::vector<std::string> lines;
    for (const std::vector<std::string>& words : Words_By_Control(screen)) {
        lines.push_back(words.front());
        for (std::size_t i = 1; i < words.size(); ++i) lines.back() += ' ' + words[i];
    }
    return lines;
}

void Expect_Words(const std::string& name, const std::vector<std::string>& lines) {
    LogSurface log;
    log.Calls = lines;
    Expect_Log(name, log);
}

}  // namespace verlink::test
