// What the tests of the screen of linkages for a task share.
#pragma once

#include "dynamics/units.h"
#include "platform/deed.h"
#include "screens/frm_explore.h"
#include "shell/history.h"
#include "shell/initialize.h"
#include "tests/support/fixture.h"

namespace verlink::test {

class ExploreFixture : public Fixture {
   protected:
    ExploreFixture() : form(Screen_Of_A_Fresh_Model()) {
        // What a whole search takes longer for is of no matter here.
        form.Effort.coarse = true;
        The_History().Begin();
    }
    static frm_Explore& Screen_Of_A_Fresh_Model() {
        Initialize();
        Use_Units(1);
        return dynamic_cast<frm_Explore&>(platform::Screens::Get("frm_Explore"));
    }
    void Inside(const std::function<void()>& user) {
        desktop.Expect_Screen("frm_Explore", [user](platform::Screen& screen) {
            user();
            screen.Hide();
        });
        form.ShowModal();
    }
    void Search() {
        Press(form, "cmd_Search");
        form.Await_Search();
    }
    void Leave_Box() { form.MoveFocus(&form.cmd_Search); }
    /// The one line that says what there is, or what is wrong.
    std::string Said() const { return form.lbl_Progress.Caption; }
    static design::Task With(std::vector<design::Place> positions) {
        design::Task task;
        task.positions = std::move(positions);
        return task;
    }
    /// Four positions that a linkage passes.
    static design::Task Four() { return With({{{0, 0}, 0}, {{3, 1}, 20}, {{5, 2.5}, 45}, {{6, 4.5}, 75}}); }
    static design::Task Kept() {
        design::Task task;
        std::string fault;
        EXPECT_TRUE(design::Read_Task(Model.DesignTask, task, fault)) << fault;
        return task;
    }
    frm_Explore& form;
};

}  // namespace verlink::test
