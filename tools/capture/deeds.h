// Deeds of a hand, put together from those of walk.h, and what a walk reads off a screen.
#pragma once

#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include "tools/capture/walk.h"

namespace verlink::capture {

using Deed = std::function<void(Screen&)>;

inline Deed Pressing(const char* button) {
    return [button](Screen& s) { Press(s, button); };
}

inline Deed Menu(const char* entry, int index = platform::kNoIndex) {
    return [entry, index](Screen& s) { Choose_Entry(s, entry, index); };
}

inline Deed Picking(const char* options, int index) {
    return [options, index](Screen& s) { Pick(s, options, index); };
}

inline Deed Typing(const char* box, int index, const char* text) {
    return [box, index, text](Screen& s) { Fill(s, box, index, text); };
}

/// Words into many boxes in turn: of an array as `txt_Linkout 1=24 2=78`, one that is alone as `txt_Alpha2 =45`.
Deed Typing(const char* boxes);

/// Several entries in turn, as to switch on what is to be seen, and off again.
inline Deed Menus(std::initializer_list<const char*> entries) {
    return [entries = std::vector<const char*>(entries)](Screen& s) {
        for (const char* entry : entries) Choose_Entry(s, entry);
    };
}

inline Deed Stepping(int steps) {
    return [steps](Screen& s) {
        for (int i = 0; i < steps; ++i) Press(s, "cmd_Step");
    };
}

inline Deed Choosing(const char* list, int entry) {
    return [list, entry](Screen& s) { Choose(s, list, entry); };
}

inline Deed Ticking(const char* box, bool on, int index = platform::kNoIndex) {
    return [box, on, index](Screen& s) { Tick(s, box, on, index); };
}

inline Deed In_Turn(std::vector<Deed> deeds) {
    return [deeds = std::move(deeds)](Screen& s) {
        for (const Deed& deed : deeds) deed(s);
    };
}

inline void Add(Stops& walk, const Stops& more) { walk.insert(walk.end(), more.begin(), more.end()); }

/// The entry of a list by its words.
inline void Choose_Words(Screen& screen, const std::string& box, const std::string& words) {
    const auto& items = screen.Get<platform::ComboBox>(box).Items();
    for (int entry = 0; entry < static_cast<int>(items.size()); ++entry)
        if (Plain(items[static_cast<std::size_t>(entry)]) == words) return Choose(screen, box.c_str(), entry);
    Account("cannot choose", words);
}

/// A stop whose picture has numbers at places of widgets, and is cut to some of them.
inline Stop Marked(Stop stop, std::vector<Mark> marks, std::vector<std::string> part = {}, double lower = 1) {
    stop.marks = std::move(marks);
    if (!part.empty()) stop.part = std::move(part);
    stop.lower = lower;
    return stop;
}

/// A stop at which further pictures are taken.
inline Stop With(Stop stop, std::vector<Cut> more) {
    stop.more = std::move(more);
    return stop;
}

/// What text boxes and labels show goes into the account under names, for the manual to be compared with: as
/// `lid_told lbl_Told, lid_l1 txt_Linkout 0`.
Deed Seeing(const char* sights);

/// The same of cells of the table on the screen, by the first cell of their row and the number of their column: as
/// `line_x_min Min 1, line_x_max Max 1`.
Deed Seeing_Cells(const char* sights);

/// The same of all numbers in the lines of a picture, under the name with a number behind it.
Deed Seeing_Lines(const char* name, const char* picture);

}  // namespace verlink::capture
