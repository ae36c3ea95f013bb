// All linkages that move a body through its positions: the task, what was found, and a look at each.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "design/curves.h"
#include "platform/screen.h"
#include "screens/frm_help.h"
#include "screens/listed_choice.h"
#include "screens/search_aside.h"

namespace verlink {

/// The task is the model's (`Tasks::DesignTask`): the screen reads it when it comes up, and writes it with each change
/// that a hand makes, which is a step of undo. The linkage changes by `cmd_Use` alone. Lengths are in the shown unit,
/// angles in degrees.
class frm_Explore : public platform::Screen {
   public:
    frm_Explore();
    void Form_Activate() override;
    void Form_QueryUnload(bool& cancel) override;

    using Label = platform::Label;
    using Button = platform::CommandButton;
    template <class Kind>
    using Array = platform::ControlArray<Kind>;

    static constexpr int kShownAtOnce = 6;
    /// Of which there is a map.
    static constexpr const char* kPivots[] = {"crank's moving pivot", "crank's fixed pivot", "other moving pivot",
                                              "other fixed pivot"};
    static constexpr int kStroke = 200;  ///< of the bar that moves the linkage

    platform::Frame fra_Positions{*this, "fra_Positions", "Positions of the Body"};
    platform::ComboBox cmb_Count{*this, "cmb_Count"};
    Array<platform::OptionButton> opt_Relative{*this, "opt_Relative", {{0, "Absolute"}, {1, "From the First"}}};
    Array<Label> lbl_Head{*this, "lbl_Head", {{0, "x"}, {1, "y"}, {2, "Angle, deg"}}};
    Array<Label> lbl_Position{*this, "lbl_Position", {{1, "1"}, {2, "2"}, {3, "3"}, {4, "4"}, {5, "5"}}};
    Array<platform::TextBox> txt_X{*this, "txt_X", {1, 2, 3, 4, 5}};
    Array<platform::TextBox> txt_Y{*this, "txt_Y", {1, 2, 3, 4, 5}};
    Array<platform::TextBox> txt_Angle{*this, "txt_Angle", {1, 2, 3, 4, 5}};

    Button cmd_Paste{*this, "cmd_Paste", "Past&e"};

    platform::Frame fra_Limits{*this, "fra_Limits", "Limits"};
    Array<Label> lbl_Area{
        *this,
        "lbl_Area",
        {{0, "Left Fixed Pivot"}, {1, "Left Moving Pivot"}, {2, "Right Fixed Pivot"}, {3, "Right Moving Pivot"}}};
    Array<platform::TextBox> txt_Area{*this, "txt_Area", {0, 1, 2, 3}};
    Array<Label> lbl_Limit{*this, "lbl_Limit", {{0, "Shortest Link"}, {1, "Longest Link"}, {2, "Transmission Angle"}}};
    Array<platform::TextBox> txt_Limit{*this, "txt_Limit", {0, 1, 2}};
    Array<Label> lbl_Unit{*this, "lbl_Unit", {0, 1, 2}, "deg"};
    Label lbl_Drive{*this, "lbl_Drive", "Crank"};
    platform::ComboBox cmb_Drive{*this, "cmb_Drive"};
    platform::CheckBox chk_FullTurn{*this, "chk_FullTurn", "Crank Turns &Fully"};

    platform::Frame fra_Weights{*this, "fra_Weights", "What Counts in the Score"};
    Array<Label> lbl_Weight{
        *this, "lbl_Weight", {{0, "Transmission"}, {1, "Proportion"}, {2, "Room"}, {3, "Rounding"}}};
    Array<platform::ScrollBar> hsc_Weight{*this, "hsc_Weight", {0, 1, 2, 3}};

    platform::PictureBox Picture1{*this, "Picture1"};
    /// At the body in each position, upon the picture.
    Array<Label> lbl_Number{*this, "lbl_Number", {{1, "1"}, {2, "2"}, {3, "3"}, {4, "4"}, {5, "5"}}};
    platform::ScrollBar hsc_Stroke{*this, "hsc_Stroke"};
    Label lbl_Stroke{*this, "lbl_Stroke"};
    Button cmd_Play{*this, "cmd_Play", "&Play"};
    Label lbl_Told{*this, "lbl_Told"};

    Label lbl_Map{*this, "lbl_Map", "Map of"};
    platform::ComboBox cmb_Map{*this, "cmb_Map"};
    platform::CheckBox chk_Curves{*this, "chk_Curves", "Burmester &Curves"};
    /// Of all that are in the gallery, a dot each.
    platform::PictureBox pic_Map{*this, "pic_Map"};

    Label lbl_Sort{*this, "lbl_Sort", "Sort by"};
    platform::ComboBox cmb_Sort{*this, "cmb_Sort"};
    Label lbl_Show{*this, "lbl_Show", "Show"};
    platform::ComboBox cmb_Class{*this, "cmb_Class"};
    platform::ComboBox cmb_Circuit{*this, "cmb_Circuit"};
    Label lbl_Least{*this, "lbl_Least", "Transmission from"};
    platform::TextBox txt_Least{*this, "txt_Least"};
    Label lbl_LeastUnit{*this, "lbl_LeastUnit", "deg"};
    platform::CheckBox chk_ThrownOut{*this, "chk_ThrownOut", "&Thrown Out"};
    Array<platform::PictureBox> pic_Found{*this, "pic_Found", {0, 1, 2, 3, 4, 5}};
    Array<Label> lbl_Found{*this, "lbl_Found", {0, 1, 2, 3, 4, 5}};
    Button cmd_Earlier{*this, "cmd_Earlier", "<"};
    Label lbl_Page{*this, "lbl_Page"};
    Button cmd_Later{*this, "cmd_Later", ">"};

    Label lbl_Progress{*this, "lbl_Progress"};
    Button cmd_Search{*this, "cmd_Search", "&Search"};
    Button cmd_Stop{*this, "cmd_Stop", "St&op"};
    Button cmd_Cancel{*this, "cmd_Cancel", "< &Back"};
    Button cmd_Use{*this, "cmd_Use", "&Use >"};
    platform::Timer Timer1{*this, "Timer1"};
    Help_Entry mnu_Help{*this};
    Help_Key key_Help{*this};
    Button cmd_Choices{*this, "cmd_Choices", "Use as Free C&hoices"};

    platform::Shortcut key_Before{*this, "key_Before", "Ctrl+PgUp"};
    platform::Shortcut key_Next{*this, "key_Next", "Ctrl+PgDown"};

    /// The task as it stands in the boxes, in the units of the model.
    const design::Task& The_Task() const { return task_; }
    /// Becomes the task of the model.
    void Take_Task(const design::Task& task);
    /// What is shown, in the order of the gallery.
    const std::vector<design::Solution>& Shown() const { return shown_; }
    /// The one of them that stands in the picture; null for none.
    const design::Solution* Chosen() const;
    /// Whether it was there before the focus moved.
    bool Is_Seen() const { return !unseen_; }
    /// Burmester's curves of a task of four positions.
    const design::Curves& The_Curves() const { return curves_; }
    /// How far a search goes that a hand asks for.
    design::Effort Effort = {};
    /// Waits until the search that runs has come to its end, and shows what it found.
    void Await_Search();

    void cmd_Search_Click();
    void cmd_Stop_Click();
    void cmd_Paste_Click();
    void cmd_Use_Click();
    /// The chosen linkage of two or three positions becomes what is typed on a screen of synthesis, which calculates
    /// it.
    void cmd_Choices_Click();
    void cmd_Cancel_Click();

   private:
    /// A box of the task that holds a number.
    struct Number_Box {
        platform::TextBox* box;
        std::string what;
        double least, most;
        std::function<void(design::Task&, double)> put;
    };
    /// How what is shown was found.
    enum class Looked { kAtAGlance, kSearched, kWithALink };

    void Write_Tips();
    void Tell_Of_The_Task();
    void Tell_Of_The_Pictures();
    void Bind();
    void Bind_Task();
    void Bind_Looks();
    void Bind_Pictures();
    void List_Boxes();

    /// The task of the model, or the one to begin with.
    void Take_Kept();
    void Show_Kept();
    void Keep();
    /// From the task into the boxes, but for those that a hand has touched.
    void Fill();
    void Fill_Positions();
    /// Boxes that a hand has touched, into the task; one that holds nothing fit is told and stays as it is.
    bool Read();
    std::string Read_Number(const Number_Box& number, design::Task& task) const;
    std::string Read_Area(int place, design::Task& task) const;
    void Task_Changed();
    void Edit(const std::function<void(design::Task&)>& change);
    void Take_Edited(const design::Task& task);
    void Choose_Count();
    void Choose_Form();
    void Choose_Weight(int weight);
    void Enable_Rows();

    void Pulse();
    /// A coarse search, at once.
    void Glance();
    void Take_Found(const design::Found& found, Looked looked);
    /// The list by filter and order, from what was found.
    void List_Shown();
    bool Passes(const design::Solution& solution) const;
    double Least_Transmission() const;
    void Score_Anew();
    void Choose_Again(const std::optional<design::Solution>& before);
    void Say();
    std::string Words_Of_Found() const;
    void Show_Gallery();
    void Show_Found(int place);
    void Pick(int number);
    void Show_Chosen();
    void Show_Pose();
    void Show_Numbers(const design::Box& seen);
    std::string Words_Of_Stroke(const design::Solution& solution) const;
    void Show_Map();
    void Show_Curves(platform::Surface& surface, const design::Box& seen, bool both) const;
    bool Pick_On_Map(const platform::Touch& touch);
    bool Pick_On_Curve(const platform::Touch& touch, design::Curve which);
    void Take_Link(const design::Dyad& dyad);
    void Walk_Along_Curve(int way);
    /// The pivot that the map is of, and its curve.
    int Map_Of() const;
    design::Curve Curve_Of_Map() const;
    design::Point Mapped(const design::Solution& solution) const;
    void Draw_Link(platform::Surface& surface) const;
    design::Box Seen_On_Map() const;
    /// The part of the plane that the large picture shows; it stays while a hand has something there.
    design::Box Seen() const;
    /// How far along the stroke the linkage is shown, 0 to 1; at a position exactly where the bar is as near as can be.
    double Part_Shown(const design::Solution& solution) const;

    bool Seize(const platform::Touch& touch);
    void Drag(const platform::Touch& touch);
    void Let_Go();
    void Light_Up(const platform::Touch& touch);
    struct Grip {
        int position = 0;    ///< from 1; 0 for none
        bool turns = false;  ///< the end of the body's leg, which turns it
    };
    Grip Grip_At(const platform::Touch& touch) const;
    design::Point Spot_Of(const Grip& grip) const;
    void Play_Or_Pause();
    void Play_On();
    void Listen();
    /// Nothing goes on behind a screen that is not there.
    void Leave();
    void Bind_Roads();
    void Allow_Roads();
    /// What leaving a box changes. The press that left it must not take on a linkage that was not there to be seen.
    void Leave_Box(const std::function<void()>& take);

    design::Task task_;
    std::vector<design::Place> spare_;  ///< where positions beyond the count were last, in the global frame
    std::string kept_fault_;            ///< why the model's task cannot be read
    std::string fault_;                 ///< of a box
    std::vector<Number_Box> numbers_;
    Search_Aside search_;
    design::Found found_;
    Looked looked_ = Looked::kAtAGlance;
    design::Curves curves_;
    std::optional<design::Dyad> link_;  ///< picked on a curve
    std::vector<design::Solution> shown_;
    int chosen_ = -1, first_ = 0;
    bool picked_ = false;  ///< by a hand, which wants to go on seeing it
    bool unseen_ = false;  ///< the chosen one came up with the focus that moves
    int playing_ = 0;      ///< the way of the stroke, 0 where nothing plays
    bool filling_ = false;
    /// Of map and large picture, kept while a link is looked for on a curve.
    design::Box map_seen_{}, last_seen_{};
    Grip held_;
    bool moved_ = false;  ///< since it was seized
    design::Box frozen_;
    std::vector<std::unique_ptr<Listed_Choice>> lists_;
};

}  // namespace verlink
