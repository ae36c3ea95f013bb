// A graph of up to a few sets of points over one row of labels.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/controls.h"

namespace verlink::platform {

/// Filled set by set and point by point through `ThisSet` and `ThisPoint`, both from 1, and drawn by `Draw`. Points
/// stand at equal distances along the x axis, each with a label, or at `Places`; a set has a value for each point.
class Graph : public Visual {
   public:
    Graph(Screen& owner, std::string name, int index = kNoIndex);

    /// Room for sets and points; growing or shrinking keeps what fits. Negative counts are failure 380.
    void SetNumSets(int count);
    void SetNumPoints(int count);
    int NumSets() const { return static_cast<int>(sets_.size()); }
    int NumPoints() const { return points_; }

    int ThisSet = 1;
    int ThisPoint = 1;
    /// The value of the present set at the present point; failure 380 outside the room.
    void SetGraphData(double value);
    /// The label of the present point.
    void SetLabelText(const std::string& text);
    /// The legend and the line pattern (0 solid, 1 dash, 2 dot, 3 dash dot) of the present set; the pattern counts
    /// while `PatternedLines` is 1.
    void SetLegendText(const std::string& text);
    void SetPatternData(int pattern);
    /// The unit that stands behind a value of the present set at the cursor.
    void SetUnitText(const std::string& unit);

    /// Where the points stand along the x axis, one place for each and all finite; empty for equal distances. They may
    /// turn back. The axis then has round numbers, and labels are for reading alone.
    std::vector<double> Places;
    /// What stands for the label of a point where a hand reads it, one for each; empty for the labels themselves.
    std::vector<std::string> Readings;
    std::string GraphTitle;   ///< above the graph
    std::string BottomTitle;  ///< below the x axis
    int PatternedLines = 0;
    int ThickLines = 0;   ///< 1 for thicker lines
    int TickEvery = 1;    ///< a tick every so many points
    int LabelEvery = 1;   ///< a label every so many points
    int GridStyle = 0;    ///< 0 none, 1 horizontal lines, 2 vertical, 3 both
    int GraphStyle = 4;   ///< 0 lines, 2 sticks, 4 lines, 6 both
    int Background = 15;  ///< 15 white, 1 blue, 7 gray
    int FirstColor = 0;   ///< of the first set, counted from 0; the others follow
    /// Graphs that stand under one another over one x axis: only the last is labelled, and their edges are in line.
    bool Labelled = true, InLine = false;

    /// The point that is marked with its values, from 1; 0 for none. It moves at once, without `Draw`.
    Property<int> Cursor{*this, 0};
    /// The hand seeks a point, from 1: it has clicked there, or drags to there. Where nothing takes that, a drag draws
    /// the frame of a part to be enlarged.
    std::function<void(int point)> OnSeek;
    /// The button has been let go after that.
    std::function<void()> OnSought;

    /// Percent of the screen's font; 2 bold; 1 sans serif.
    struct Font {
        int size = 100, style = 0, family = 0;
    };
    /// A font setting: goes to the texts that `FontUse` names when it is set, and reads as it was set last.
    class FontSetting {
       public:
        FontSetting(Graph& graph, int Font::*field, int start) : graph_(graph), field_(field), last_(start) {}
        FontSetting(const FontSetting&) = delete;
        FontSetting& operator=(const FontSetting&) = delete;
        FontSetting& operator=(int value);
        // NOLINTNEXTLINE(google-explicit-constructor): a setting reads as its value
        operator int() const { return last_; }

       private:
        Graph& graph_;
        int Font::*field_;
        int last_;
    };
    int FontUse = 0;  ///< what the next font settings are for: 0 titles, 4 all
    FontSetting FontSize{*this, &Font::size, 100};
    FontSetting FontStyle{*this, &Font::style, 0};
    FontSetting FontFamily{*this, &Font::family, 0};
    /// Of the titles, and of everything else.
    const Font& TitleFont() const { return title_font_; }
    const Font& TextFont() const { return text_font_; }

    /// Draws what has been set (mode 2, the only one that draws).
    void Draw();
    /// How often `Draw` was called; for those who watch.
    int Drawings() const { return drawings_; }

    struct Set {
        std::string legend, unit;
        int pattern = 0;
        std::vector<double> values;  ///< not a number where none was given: nothing is drawn there
    };
    const std::vector<Set>& Sets() const { return sets_; }
    const std::vector<std::string>& Labels() const { return labels_; }

   private:
    Set& Present();
    Font title_font_, text_font_;
    std::vector<Set> sets_{1};
    std::vector<std::string> labels_;
    int points_ = 0;
    int drawings_ = 0;
};

}  // namespace verlink::platform
