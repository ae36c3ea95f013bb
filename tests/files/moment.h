// What a file could change, kept so that it can be seen that one has changed nothing.
#pragma once

#include <algorithm>
#include <array>
#include <map>
#include <memory>
#include <string>

#include "platform/screen.h"
#include "screens/edit_menu.h"
#include "tests/walk/record.h"

namespace verlink::test {

/// The record in words, all steps of its table, and the screens that have been made.
class Moment {
   public:
    Moment() : record_(Words()), table_(std::make_unique<RunResults>(Model.RunTable)) {
        // A test may have changed the record behind the screens' back.
        Show_What_Is_Done();
        for (const char* name : kScreens)
            if (const platform::Screen* screen = platform::Screens::Find(name)) screens_[name] = Words_Of(*screen);
    }

    /// What is not as it was, with both values; empty when all is.
    std::string Changed() const {
        std::string changed = walk::Compare(record_, Words()).values;
        changed += walk::Compare_Results(*table_, Model.RunTable, kLastStep, walk::Results::kAll).values;
        if (!Same(table_->DriveTheta, Model.RunTable.DriveTheta)) changed += " DriveTheta";
        if (!Same(table_->ImportedTorque, Model.RunTable.ImportedTorque)) changed += " ImportedTorque";
        for (const auto& [name, words] : screens_) {
            const std::string on_it = walk::Compare(words, Words_Of(platform::Screens::Get(name))).values;
            if (!on_it.empty()) changed += " " + name + ": " + on_it;
        }
        return changed;
    }

   private:
    static constexpr std::array kScreens = {"frm_HomeScreen", "frm_Inputnew", "frm_MassProp", "frm_Animate"};

    static walk::Words Words() {
        walk::Words words = walk::Record_Words();
        const auto add = [&](const char* name, bool so) { words.emplace_back(name, so ? "yes" : "no"); };
        add("RunStands", Model.RunStands);
        add("CognatesDue", Model.CognatesDue);
        add("LinkImportPending", Model.LinkImportPending);
        for (const auto* text : {&Model.FileTag, &Model.FileRev, &Model.FileFormat, &Model.ProgramTag})
            words.emplace_back("identity " + std::to_string(words.size()), *text);
        for (int kind = 1; kind <= 18; ++kind)
            words.emplace_back("UnitLabel " + std::to_string(kind), Model.UnitLabel(kind));
        words.emplace_back("decimals", std::to_string(int{Model.DecLength} * 10 + Model.DecLengthShown));
        return words;
    }
    static walk::Words Words_Of(const platform::Screen& screen) { return walk::Screen_Words(screen); }
    static bool Same(const StepArray<Single>& a, const StepArray<Single>& b) {
        for (int step = 0; step <= kLastStep; ++step)
            if (a(step) != b(step)) return false;
        return true;
    }

    walk::Words record_;
    std::unique_ptr<const RunResults> table_;
    std::map<std::string, walk::Words> screens_;
};

}  // namespace verlink::test
