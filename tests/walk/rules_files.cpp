// The rule of files: what is saved and opened in a program that has just started is the same model.
#include <algorithm>
#include <cmath>

#include "core/runs.h"
#include "core/text.h"
#include "files/model_file.h"
#include "platform/unheard.h"
#include "shell/initialize.h"
#include "shell/startup.h"
#include "tests/walk/aside.h"
#include "tests/walk/record.h"
#include "tests/walk/rules.h"

namespace verlink::walk {

namespace {

/// The fields of the file as texts of the file.
Words Fields() {
    Words words;
    TextReader reader("");
    for (const FileField& field : File_Fields()) {
        TextWriter writer;
        std::visit([&](const auto* place) { writer.Put(*place); }, field.place);
        words.emplace_back(field.name, writer.Content());
    }
    return words;
}

/// Does every number of the file come back with all its bits?
bool Exact() {
    for (const FileField& field : File_Fields())
        if (const auto* place = std::get_if<Single*>(&field.place))
            if (Single(Val(Text_Of(**place))) != **place) return false;
    return true;
}

/// A program that has just started, with that content opened.
bool Open_Afresh(const std::string& content) {
    const auto fresh = std::make_unique<LinkageModel>();
    Put_Record(*fresh);
    Set_Identity();
    // What is opened aside comes into nobody's hand.
    const platform::Unheard aside;
    Initialize();
    return Load_Model(content);
}

/// The same motion, as far as seven digits of the data tell it: positions near a toggle are left out, where a length's
/// last digit moves the linkage far, and linkages with a link so short that it does anywhere.
std::string Parted(const LinkageModel& before) {
    const auto [shortest, longest] =
        std::minmax({double{before.L1}, double{before.L2}, double{before.L3}, double{before.L4}});
    if (shortest < 1e-3 * longest) return "";
    const double size = before.L1 + before.L2 + before.L3 + before.L4 + before.Rpa;
    for (int step = 0; step <= before.NSteps && step <= kLastStep; ++step) {
        if (!before.RunTable.Assembled(step) || !Model.RunTable.Assembled(step)) continue;
        if (std::abs(std::sin(before.RunTable.Theta(step, 3) * kDegToRad)) < 0.05) continue;
        for (int point = 0; point <= 2; ++point)
            for (int axis = 0; axis <= 1; ++axis) {
                const double then = before.RunTable.PointXY(step, point, axis);
                const double now = Model.RunTable.PointXY(step, point, axis);
                if (std::abs(then - now) > 1e-3 * size * (before.Units == 4 ? 100 : before.Units == 5 ? 1000 : 1))
                    return "PointXY(" + std::to_string(step) + "," + std::to_string(point) + "," +
                           std::to_string(axis) + ") is " + Word_Of(then) + ", opened " + Word_Of(now);
            }
    }
    return "";
}

}  // namespace

/// A calculated model (no other can be saved) that is saved, and opened in a fresh record, has the same fields and
/// gives the same run, to the bit where its numbers have no more than the seven digits that a file holds.
/// Except: whether angles are shown from 0 or from -180 degrees is a setting of the program and no part of a model.
Found Saved_And_Opened_Is_The_Same(const Aside& aside) {
    aside.Again();
    if (!Model.Calculated) return {};
    const LinkageModel& before = aside.Before();
    Model.Cycles = std::max<int>(Model.Cycles, 1);  // a file with less than one cycle has one
    const std::string content = File_Content();
    const Words fields = Fields();
    const bool exact = Exact();
    if (!Open_Afresh(content)) return Finding{"files", "not opened", "what was saved cannot be opened"};
    const Difference difference = Compare(fields, Fields());
    if (difference.Any()) return Finding{"files", "fields " + difference.names, difference.values};
    if (Model.NSteps != before.NSteps)
        return Finding{"files", "number of steps",
                       std::to_string(before.NSteps) + " steps, opened " + std::to_string(Model.NSteps)};
    Model.ModuloMode = before.ModuloMode;
    Integer Result = kRetrying;
    if (Model.Calctype < 4)
        Calc_Setup(Model.Calctype, Result);
    else
        Imported_Run(Result);
    const Difference run = Compare_Results(before.RunTable, Model.RunTable, before.NSteps, Results::kMotion);
    if (!run.Any()) return {};
    if (exact && !before.NoConnectSeen) return Finding{"files", "run", run.values};
    const std::string parted = Parted(before);
    if (parted.empty()) return {};
    return Finding{"files", "run", parted};
}

}  // namespace verlink::walk
