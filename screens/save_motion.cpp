// A run is played once into a film, and everything is put back.
#include <array>
#include <cmath>
#include <cstdio>
#include <optional>

#include "animation/engine.h"
#include "animation/film.h"
#include "animation/gif.h"
#include "animation/shown.h"
#include "core/linkage_model.h"
#include "files/picture_files.h"
#include "platform/desktop_services.h"
#include "platform/file_system.h"
#include "platform/guard.h"
#include "platform/picture_pixels.h"
#include "screens/filmed_run.h"
#include "screens/picture_entries.h"

namespace verlink {

using platform::kNoIndex;
using platform::Label;
using platform::PictureBox;

namespace {

constexpr char kKind[] = "motion";
/// Pixels across and down, in the order of the dialog's list.
constexpr std::array kSides{360, 540, 720, 1080};
constexpr int kUsual = 2;

/// What playing a run changes, put back at the end.
class Kept_Screen {
   public:
    Kept_Screen(platform::Screen& form, int step)
        : form_(form),
          box_(form.Get<PictureBox>("Picture1")),
          settings_(Model),
          animation_(Model),
          drive_(Model),
          step_(step),
          picture_(box_.Drawing()) {
        for (const char* name : kReadOut)
            if (auto* label = form.FindAs<Label>(name)) visible_.push_back(label->Visible);
        if (auto* header = form.FindAs<Label>("lbl_Header")) header_ = header->Caption;
    }
    ~Kept_Screen() {
        static_cast<DisplaySettings&>(Model) = settings_;
        static_cast<AnimationState&>(Model) = animation_;
        static_cast<Drive&>(Model) = drive_;
        std::size_t next = 0;
        for (const char* name : kReadOut)
            if (auto* label = form_.FindAs<Label>(name)) label->Visible = visible_[next++];
        platform::With<Label>(form_, "lbl_Header", kNoIndex, [this](Label& label) { label.Caption = header_; });
        const auto changed = box_.Drawing().Changed;
        box_.Drawing() = picture_;
        box_.Drawing().Changed = changed;
        if (changed) changed();
        if (step_ == kNoStep)
            Nothing_Shown(form_);
        else
            Position_Shown(form_, step_);
    }
    Kept_Screen(const Kept_Screen&) = delete;
    Kept_Screen& operator=(const Kept_Screen&) = delete;

   private:
    static constexpr const char* kReadOut[] = {"lbl_StepLabel", "lbl_StepNumber", "lbl_StepUnit"};

    platform::Screen& form_;
    PictureBox& box_;
    DisplaySettings settings_;
    AnimationState animation_;
    Drive drive_;
    int step_;
    platform::Picture picture_;
    std::vector<bool> visible_;
    std::string header_;
};

/// What is seen of the picture, that many pixels across.
platform::Pixels Painted(PictureBox& box, int side) {
    if (platform::Picture_Maker* maker = platform::Maker_Of(box)) {
        platform::Pixels seen = maker->Paint(static_cast<double>(side) / maker->Wide());
        return seen;
    }
    platform::PicturePixels pixels;
    const double density = side / box.Across;
    pixels.Paint(box.Drawing(), side, side, density, box.Across, box.Across, box.Through);
    return {side, side, pixels.Pixels()};
}

std::string Seconds_Text(double seconds) {
    char text[32];
    std::snprintf(text, sizeof text, "%.*f s", seconds < 10 ? 2 : 1, seconds);
    return text;
}

}  // namespace

std::optional<std::string> Filmed(platform::Screen& form, int shown, const std::vector<Film_Frame>& frames, int side) {
    const Kept_Screen kept(form, shown);
    std::optional<Gif> film;
    std::size_t next = 0;
    const auto tell = [&] {
        platform::With<Label>(form, "lbl_Header", kNoIndex, [&](Label& label) {
            label.Caption = "Saving motion:" + std::string(platform::CR) + "picture " + std::to_string(next) + " of " +
                            std::to_string(frames.size()) + platform::CR + "Escape cancels";
        });
    };
    const Frame_Taker taker([&](int step) {
        if (next < frames.size() && frames[next].step == step) {
            const platform::Pixels picture = Painted(form.Get<PictureBox>("Picture1"), side);
            if (!film) film.emplace(picture.wide, picture.high);
            film->Add(picture, frames[next].hundredths);
            ++next;
            tell();
        }
        return next < frames.size() && platform::The_Desktop().Pause(std::chrono::nanoseconds(0));
    });
    Model.RedrawFlag = "N";
    Animate(form);
    if (next < frames.size() || !film) return {};
    return film->Finish();
}

std::string Motion_Filter(const std::vector<double>& seconds) {
    std::string filter;
    for (std::size_t pace = 0; pace < seconds.size(); ++pace)
        for (const int side : kSides) {
            const std::string pixels = std::to_string(side) + " x " + std::to_string(side) + " pixels";
            filter += "Animated GIF, " + pixels + ", " + Seconds_Text(seconds[pace]) +
                      (pace + 1 < seconds.size() ? " in real time" : " as played") + "|*.gif|";
        }
    return filter;
}

void Save_Motion(platform::Screen& form, int step) {
    Guarded("Save_Motion", [&] {
        const std::vector<int> steps = Model.RunStands ? Steps_Shown(Model, Model.RunTable) : std::vector<int>();
        if (Model.Calctype < run::kByTime || steps.size() < 2) {
            platform::Tell("There is no run to be saved. Calculate one that moves first.",
                           platform::Icon::kInformation);
            return;
        }
        std::vector<double> strides;
        if (const auto real = Real_Stride(Model)) strides.push_back(*real);
        strides.push_back(Played_Stride(Model));
        std::vector<double> seconds = strides;
        for (double& whole : seconds) whole *= steps.back() + 1 - steps.front();

        constexpr int kSizes = static_cast<int>(kSides.size());
        const int entries = kSizes * static_cast<int>(strides.size());
        const auto path = platform::Ask_File(
            {.title = "Save motion",
             .filter = Motion_Filter(seconds),
             .filter_index = Entry_Taken(kKind, entries, kUsual),
             .file_name = (Model.ModelName.empty() ? std::string() : Model.ModelName + "_") + "motion.gif",
             .warn_before_overwriting = true,
             .kind = kKind},
            true);
        if (!path) return;
        const int entry = Entry_Taken(kKind, entries, kUsual) - 1;
        const auto frames = Film_Of(steps, strides[static_cast<std::size_t>(entry / kSizes)]);
        if (const auto failure = What_Failed([&] {
                if (const auto film = Filmed(form, step, frames, kSides.at(static_cast<std::size_t>(entry % kSizes))))
                    platform::Write_File(*path, *film);
            }))
            Tell_Not_Written("The motion could not be written to " + *path + ".", *failure);
    });
}

}  // namespace verlink
