// What each control of the screen is for, in a line.
#include "screens/frm_explore.h"

namespace verlink {

void frm_Explore::Write_Tips() {
    Tell_Of_The_Task();
    Tell_Of_The_Pictures();
    cmb_Sort.Tip = "What stands first among those found";
    cmb_Class.Tip = "Shows linkages of this class alone";
    cmb_Circuit.Tip = "Shows linkages on this circuit alone";
    txt_Least.Tip = "Shows linkages whose transmission angle stays at this or above, degrees";
    chk_ThrownOut.Tip = "Shows linkages that fit the positions and do not do it, and says why";
    for (const auto& picture : pic_Found)
        picture->Tip = "One of the linkages found; a click shows it large, Ctrl+Page Down shows the next";
    cmd_Earlier.Tip = "Those before; Ctrl+Page Up shows the linkage before";
    cmd_Later.Tip = "Those that follow; Ctrl+Page Down shows the next linkage";
    cmd_Search.Tip = "Search for all linkages that do the task";
    cmd_Stop.Tip = "End the search and keep what is there";
    cmd_Cancel.Tip = "Go back to the home screen; the linkage in hand stays";
    cmd_Use.Tip = "Take the linkage that is shown, with its circuit, its positions and the range of its crank";
    cmd_Choices.Tip = "Put what gives this linkage into the boxes of the synthesis of two or three positions";
}

void frm_Explore::Tell_Of_The_Task() {
    cmb_Count.Tip = "How many positions the body is to go through, 2 to 5";
    opt_Relative[0].Tip = "Positions are typed from the origin of the plane";
    opt_Relative[1].Tip = "Positions behind the first are typed from it, their angles too";
    for (int i = 1; i <= design::kMostPositions; ++i) {
        const std::string at = " of position " + std::to_string(i);
        txt_X[i].Tip = "X" + at + ", where the body's point is, in the length unit shown";
        txt_Y[i].Tip = "Y" + at + ", where the body's point is, in the length unit shown";
        txt_Angle[i].Tip = "Angle" + at + ", how the body lies, degrees counterclockwise";
    }
    const char* pivots[] = {"left fixed pivot", "left moving pivot", "right fixed pivot", "right moving pivot"};
    for (int i = 0; i < 4; ++i)
        txt_Area[i].Tip = std::string("Place of the ") + pivots[i] +
                          (i % 2 == 1 ? ", with the body in position 1" : "") +
                          ": \"anywhere\", \"0 0 to 4 3\" for a rectangle, or \"at 1 2, 3 4\" for points";
    txt_Limit[0].Tip = "Shortest link that is taken, in the length unit shown; 0 for any";
    txt_Limit[1].Tip = "Longest link that is taken, in the length unit shown; empty for any";
    txt_Limit[2].Tip = "Smallest transmission angle that is taken on the stroke, degrees, 0 to 90";
    cmb_Drive.Tip = "Side that is driven: its link is the crank";
    chk_FullTurn.Tip = "Only linkages whose crank can turn fully";
    const char* merits[] = {"a large transmission angle", "links of like lengths", "little room on the way",
                            "positions that are met by rounded lengths"};
    for (int i = 0; i < 4; ++i) hsc_Weight[i].Tip = std::string("Weight of ") + merits[i] + " in the score, 0 to 10";
    cmd_Paste.Tip =
        "Take positions from a spreadsheet: lines of x, y and angle that were copied there, typed as the option says";
}

void frm_Explore::Tell_Of_The_Pictures() {
    Picture1.Tip =
        "The linkage that is shown, and the body at its positions; seize a body to move it, or the end of its long leg "
        "to turn it; the wheel zooms, a double click fits";
    hsc_Stroke.Tip = "Moves the linkage from the first position to the last";
    cmd_Play.Tip = "Let the linkages go through the positions and back, and pause them";
    cmb_Map.Tip = "Which pivot of the linkages the map shows";
    pic_Map.Tip =
        "Where that pivot of each linkage lies: green for the best score, red for the least; a click picks, on a curve "
        "a link, and Left and Right go along the curve";
}

}  // namespace verlink
