// The rule of studies: boxes show the settings of the record, and numbers are those of its linkages.
#include "core/text.h"
#include "platform/guard.h"
#include "screens/frm_studies.h"
#include "study/words.h"
#include "tests/walk/rules.h"

namespace verlink::walk {

using namespace platform;

namespace {

using study::Settings;

Found Differs(const std::string& what, const std::string& shown, const std::string& kept) {
    if (shown == kept) return {};
    return Finding{"studies", what, "the studies show " + what + " \"" + shown + "\", the record \"" + kept + "\""};
}

std::string In_Words(double kept, const std::string& field) {
    if (field.empty()) return "";
    return Text_Of(static_cast<Single>(kept * study::Shown_Field(field, Model.Units).factor));
}

Found Boxes_Show(frm_Studies& form, const Settings& kept, const Pending& pending) {
    const auto box = [&](TextBox& one, const std::string& words) -> Found {
        if (pending.In_Hand(one) || one.Refused()) return {};
        return Differs(one.ObjectName(), one.Text, words);
    };
    for (int row = 1; row <= Settings::kSweeps; ++row) {
        const Settings::Swept& swept = kept.sweeps.at(static_cast<std::size_t>(row - 1));
        if (Found found = box(form.txt_From[row], In_Words(swept.from, swept.field))) return found;
        if (Found found = box(form.txt_To[row], In_Words(swept.to, swept.field))) return found;
    }
    for (int row = 1; row <= Settings::kTolerances; ++row) {
        const Settings::Tolerated& one = kept.tolerances.at(static_cast<std::size_t>(row - 1));
        if (Found found = box(form.txt_PlusMinus[row], In_Words(one.plus_minus, one.field))) return found;
    }
    if (Found found = box(form.txt_Samples, std::to_string(kept.samples))) return found;
    if (Found found = box(form.measure.txt_Words, kept.measure)) return found;
    return box(form.keep.txt_Words, kept.keep);
}

}  // namespace

/// Of a study that has begun, the last value of a sweep and the measure of the model are what they are when that one
/// linkage is solved anew from the record.
Found Studies_Are_Of_The_Model(Screen& top, const Pending& pending) {
    auto* form = dynamic_cast<frm_Studies*>(&top);
    if (!form) return {};
    study::Design design = study::Design_Of(Model);
    Settings kept = study::Usual_Settings(design, Model.Units);
    std::string fault;
    if (!Model.StudySettings.empty() && !study::Read_Settings(Model.StudySettings, kept, fault))
        return Finding{"studies", "settings", "the settings of the studies cannot be read: " + fault};
    kept = study::In_Units(kept, Model.Units);
    if (Found found = Boxes_Show(*form, kept, pending)) return found;
    const study::Findings& shown = form->Found();
    if (shown.nominal.empty()) return {};
    fault = study::Take_Limits(design);
    const auto study = fault.empty() ? study::Study_Of(study::Words_Of(kept), design, fault) : std::nullopt;
    if (!study) return Finding{"studies", "fault", "numbers are shown of a study that cannot be: " + fault};
    const study::Bench bench(*study);
    const auto same = [](float a, float b) { return a == b || (study::Is_None(a) && study::Is_None(b)); };
    if (!same(study::Nominal_Measures(bench)[0], shown.nominal[0]))
        return Finding{"studies", "model", "the measure of the model is another than the studies say"};
    if (shown.values.empty()) return {};
    std::vector<float> fields(bench.Moved().size()), measures(1);
    const bool holds = study::Worker(bench).Solve(shown.values.size() - 1, fields, measures);
    if (!same(holds ? measures[0] : study::kNone, shown.values.back()))
        return Finding{"studies", "value", "a linkage has another measure than the studies say"};
    return {};
}

}  // namespace verlink::walk
