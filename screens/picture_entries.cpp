// What the entries do.
#include "screens/picture_entries.h"

#include "core/linkage_model.h"
#include "files/picture_files.h"
#include "platform/guard.h"
#include "platform/pictures.h"

namespace verlink {

Picture_Entries::Picture_Entries(platform::MenuEntry& menu, platform::PictureBox& picture)
    : mnu_ViewPictureLine(menu, "mnu_ViewPictureLine", ""),
      mnu_SavePicture(menu, "mnu_SavePicture", "Save Picture..."),
      mnu_CopyPicture(menu, "mnu_CopyPicture", "Copy Picture") {
    mnu_SavePicture.Tip = "Write what is seen of the picture as PNG, SVG or PDF";
    mnu_CopyPicture.Tip = "Put what is seen of the picture on the clipboard";
    mnu_SavePicture.OnClick = [&picture] {
        Guarded("Save_Picture", [&] {
            if (auto* maker = platform::Maker_Of(picture)) Save_Picture(*maker, Model.ModelName, kLinkagePicture);
        });
    };
    mnu_CopyPicture.OnClick = [&picture] {
        Guarded("Copy_Picture", [&] {
            if (auto* maker = platform::Maker_Of(picture)) maker->Copy();
        });
    };
}

Motion_Entry::Motion_Entry(platform::MenuEntry& menu)
    : mnu_SaveMotion(menu, "mnu_SaveMotion", "Save Motion..."), shown_(menu.Owner(), nullptr) {
    mnu_SaveMotion.Tip = "Write the run as an animated picture, as it is shown here";
    mnu_SaveMotion.OnClick = [this] { Save_Motion(mnu_SaveMotion.Owner(), shown_.Step()); };
}

}  // namespace verlink
