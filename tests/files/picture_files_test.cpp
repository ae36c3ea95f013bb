// The dialog that saves a picture: what it offers, what is written, and what is told when it cannot be.
#include "files/picture_files.h"

#include "platform/file_system.h"
#include "platform/settings.h"
#include "tests/support/fixture.h"

namespace verlink::test {

namespace {

using platform::Picture_Kind;

/// Writes into its files what was asked of it.
class Maker : public platform::Picture_Maker {
   public:
    int Wide() const override { return 520; }
    int High() const override { return 340; }
    std::string File(Picture_Kind kind, double density) override {
        if (fails) platform::Raise(platform::kOutOfMemory);
        const char* kinds[] = {"png", "svg", "pdf"};
        return std::string(kinds[static_cast<int>(kind)]) + " " + std::to_string(static_cast<int>(density));
    }
    platform::Pixels Paint(double) override { return {}; }
    void Copy() override {}
    bool fails = false;
};

class Picture_Files : public Fixture {
   protected:
    static void Take_Entry(int entry) {
        platform::The_Settings().Put(platform::Entry_Setting("picture"), std::to_string(entry));
    }
    /// What is in the file after the user took the entry and that name.
    std::string Saved(int entry, const std::string& name) {
        Take_Entry(entry);
        desktop.Expect_Save(Path(name));
        Save_Picture(maker, "press", "plot");
        return platform::Read_File(Path(name));
    }
    Maker maker;
};

}  // namespace

TEST_F(Picture_Files, Are_offered_in_three_densities_and_as_vectors_under_the_models_name) {
    desktop.Expect_Save({});
    Save_Picture(maker, "press", "plot");
    ASSERT_EQ(desktop.Dialogs.size(), 1U);
    const platform::FileDialog& dialog = desktop.Dialogs[0];
    EXPECT_EQ(dialog.title, "Save picture");
    EXPECT_EQ(dialog.filter,
              "PNG picture, 520 x 340 pixels|*.png|PNG picture, 1040 x 680 pixels|*.png|"
              "PNG picture, 2080 x 1360 pixels|*.png|SVG drawing|*.svg|PDF document|*.pdf|");
    EXPECT_EQ(dialog.filter_index, 2);
    EXPECT_EQ(dialog.file_name, "press_plot.png");
    EXPECT_EQ(dialog.kind, "picture");
    EXPECT_TRUE(dialog.warn_before_overwriting);
}

TEST_F(Picture_Files, A_model_without_a_name_leaves_what_the_picture_is) {
    desktop.Expect_Save({});
    Save_Picture(maker, "", "linkage");
    EXPECT_EQ(desktop.Dialogs[0].file_name, "linkage.png");
}

TEST_F(Picture_Files, Are_written_by_the_end_of_the_name_in_the_density_taken) {
    EXPECT_EQ(Saved(1, "a.png"), "png 1");
    EXPECT_EQ(Saved(2, "b.png"), "png 2");
    EXPECT_EQ(Saved(3, "c.PNG"), "png 4");
    EXPECT_EQ(Saved(4, "d.svg"), "svg 2");
    EXPECT_EQ(Saved(5, "e.pdf"), "pdf 2");
    EXPECT_EQ(Saved(3, "f.Svg"), "svg 4");
    EXPECT_EQ(Saved(5, "g.png"), "png 2") << "who took vectors and typed the other end has the usual density";
    EXPECT_EQ(Saved(1, "h"), "png 1");
}

TEST_F(Picture_Files, The_entry_taken_last_is_offered_next_with_its_end) {
    const std::pair<int, const char*> offered[] = {
        {1, "press_plot.png"}, {3, "press_plot.png"}, {4, "press_plot.svg"}, {5, "press_plot.pdf"}};
    for (const auto& [entry, name] : offered) {
        Take_Entry(entry);
        desktop.Expect_Save({});
        Save_Picture(maker, "press", "plot");
        EXPECT_EQ(desktop.Dialogs.back().filter_index, entry);
        EXPECT_EQ(desktop.Dialogs.back().file_name, name);
    }
    for (const char* nonsense : {"0", "6", "-1", "wide"}) {
        platform::The_Settings().Put(platform::Entry_Setting("picture"), nonsense);
        desktop.Expect_Save({});
        Save_Picture(maker, "press", "plot");
        EXPECT_EQ(desktop.Dialogs.back().filter_index, 2) << nonsense;
    }
}

TEST_F(Picture_Files, What_cannot_be_written_is_told_with_what_is_the_matter) {
    desktop.Expect_Save(Path("lost/plot.png"))
        .Expect_Message("The picture could not be written to " + Path("lost/plot.png") + ".\r\nThere is no folder " +
                            Path("lost") + ".",
                        platform::Answer::kOk, platform::Icon::kExclamation);
    Save_Picture(maker, "press", "plot");
    maker.fails = true;
    desktop.Expect_Save(Path("plot.png"))
        .Expect_Message("The picture could not be written to " + Path("plot.png") + ".", platform::Answer::kOk,
                        platform::Icon::kExclamation);
    Save_Picture(maker, "press", "plot");
    EXPECT_FALSE(platform::File_Exists(Path("plot.png")));
}

TEST_F(Picture_Files, Makers_are_known_by_their_control_until_they_are_taken_away) {
    platform::Screen screen("frm_Pictures");
    platform::PictureBox one(screen, "one"), other(screen, "other");
    EXPECT_EQ(platform::Maker_Of(one), nullptr);
    platform::Set_Picture_Maker(one, &maker);
    EXPECT_EQ(platform::Maker_Of(one), &maker);
    EXPECT_EQ(platform::Maker_Of(other), nullptr);
    platform::Set_Picture_Maker(one, nullptr);
    EXPECT_EQ(platform::Maker_Of(one), nullptr);
}

}  // namespace verlink::test
