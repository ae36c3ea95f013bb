// Saving and copying the picture of a screen from its menu View, and saving its run as a film.
#pragma once

#include <string>
#include <vector>

#include "animation/shown.h"
#include "platform/screen.h"

namespace verlink {

/// Behind the other entries of the menu, after a line.
class Picture_Entries {
   public:
    Picture_Entries(platform::MenuEntry& menu, platform::PictureBox& picture);

    platform::MenuEntry mnu_ViewPictureLine;
    platform::MenuEntry mnu_SavePicture;
    platform::MenuEntry mnu_CopyPicture;
};

/// Behind those.
class Motion_Entry {
   public:
    /// The screen has `Picture1`, `lbl_Header` and what a run goes by.
    explicit Motion_Entry(platform::MenuEntry& menu);

    platform::MenuEntry mnu_SaveMotion;

   private:
    Position_Ear shown_;
};

/// What files of a picture are called behind the model's name.
inline constexpr char kLinkagePicture[] = "linkage", kDiagramPicture[] = "diagram", kPlotPicture[] = "plot";

/// Asks where to, and writes the run as it is shown on the screen as an animated picture: in real time where the run
/// has one, or as it plays, by the entry that the user takes. The run goes by on the screen meanwhile, and `lbl_Header`
/// tells how far it is; what stops a run that plays stops this, and then no file is written. Afterwards all is as it
/// was, and the position `step` is shown.
void Save_Motion(platform::Screen& form, int step);

/// The list of the dialog: "words|pattern|" for each size, in real time if there is one, and as played.
std::string Motion_Filter(const std::vector<double>& seconds);

}  // namespace verlink
