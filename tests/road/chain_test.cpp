// Two stages as users chain them: link 4 of the first drives link 2 of the second, whose torque loads the first.
#include <array>
#include <cmath>
#include <complex>
#include <filesystem>
#include <numbers>

#include "core/linkage_model.h"
#include "shell/startup.h"
#include "tests/support/fixture.h"

namespace verlink::test {
namespace {

using namespace platform;
using Complex = std::complex<double>;

constexpr int kSteps = 126;

/// The motion of a stage as its tables hold it: angles in radians, global.
struct Motion {
    std::array<double, 3> theta, omega, alpha;
};

class Chain : public Fixture {
   protected:
    static std::vector<Motion> Motions() {
        std::vector<Motion> motions;
        const auto& table = Model.RunTable;
        for (int step = 0; step <= Model.NSteps; ++step) {
            Motion motion{};
            for (int link = 0; link <= 2; ++link) {
                const auto i = static_cast<std::size_t>(link);
                motion.theta[i] = table.Theta(step, link) * std::numbers::pi / 180;
                motion.omega[i] = table.Omega(step, link);
                motion.alpha[i] = table.Alpha(step, link);
            }
            motions.push_back(motion);
        }
        return motions;
    }

    static std::vector<double> Torques() {
        std::vector<double> torques;
        for (int step = 0; step <= Model.NSteps; ++step) torques.push_back(Model.RunTable.LinkTorque(step, 0));
        return torques;
    }

    /// The power that the masses of the stage take up: the rate of their kinetic energy, link by link.
    static double Power_Of_Masses(const Motion& motion) {
        const Complex i(0, 1);
        const auto turned = [&](std::size_t link, double length, double angle) {
            const double w = motion.omega[link], a = motion.alpha[link];
            const Complex arm = std::polar(length, motion.theta[link] + angle);
            return std::pair<Complex, Complex>{i * w * arm, (i * a - w * w) * arm};
        };
        double power = 0;
        for (std::size_t link = 0; link <= 2; ++link) {
            const int number = static_cast<int>(link) + 2;
            auto [v, a] = turned(link, Model.CG(number, 0), Model.CG(number, 1));
            if (number == 3) {
                const auto [va, aa] = turned(0, Model.L2, 0);
                v += va;
                a += aa;
            }
            power += Model.LinkMass(number) * (std::conj(v) * a).real() +
                     Model.LinkInertia(number) * motion.omega[link] * motion.alpha[link];
        }
        return power;
    }

    static void Enter_First_Stage(Screen& input) {
        Choose_Option(input, "opt_Calctype", 2);
        const char* limits[] = {"0", "0.63", "0.005", "10", "0"};
        for (int box = 0; box <= 4; ++box) Type(input, "txt_initial", box, limits[box]);
        Press(input, "cmd_Calc");
        EXPECT_EQ(Model.NSteps, kSteps);
        Press(input, "cmd_Done");
    }

    static void Enter_Second_Stage(Screen& input) {
        EXPECT_EQ(input.Get<Label>("lbl_camdriven").Caption,
                  " This linkage is being driven by s-v-a data imported from the file: \r\rstage1.out");
        EXPECT_TRUE(input.Get<Label>("lbl_camdriven").Visible);
        EXPECT_FALSE(input.Text("txt_initial", 0).Visible);
        const std::pair<int, const char*> boxes[] = {{1, "1.5"}, {2, "3"}, {3, "2.75"}, {15, "2.1"}, {16, "2.8"}};
        for (const auto& [box, text] : boxes) Enter(input, "txt_Linkout", box, text);
        Enter(input, "txt_initial", 4, "30");
        input.Text("txt_Figure").Type("Second stage");
        Press(input, "cmd_Calc");
        EXPECT_EQ(Model.Delta2, 30);
        EXPECT_EQ(Model.Calctype, 5);
        // A driven run goes back to the home screen, and not on to the animation.
        Press(input, "cmd_Done");
    }

    static void Watch(Screen& animate) {
        const Label& driven = animate.Get<Label>("lbl_camdriven");
        EXPECT_TRUE(driven.Visible);
        EXPECT_EQ(driven.Caption,
                  " This linkage is being driven by s-v-a data imported from the file: \r\n\r\nstage1.out");
        EXPECT_FALSE(animate.Text("txt_initial", 0).Visible);
        Press(animate, "cmd_Animate");
        Press(animate, "cmd_Done");
    }

    static void Solve(Screen& forces) {
        Press(forces, "cmd_Solve");
        Press(forces, "cmd_Done");
    }

    void Home(Screen& home) {
        Press(home, "cmd_Input");
        const std::vector<Motion> first = Motions();
        Pick_Menu(home, "mnu_Link_Data_Export");
        EXPECT_TRUE(Model.SavedFlag);

        Pick_Menu(home, "mnu_Link_Data_Import");
        EXPECT_EQ(home.Get<Label>("lbl_Status", 0).Caption, "Imported");
        EXPECT_TRUE(home.Get<Label>("lbl_Status", 1).Visible);
        Expect_Driven_By(first);
        Press(home, "cmd_Animate");
        Press(home, "cmd_Dynamics");
        const std::vector<Motion> second = Motions();
        const std::vector<double> load = Torques();
        for (std::size_t step = 0; step <= kSteps; ++step)
            ASSERT_NEAR(load[step] * second[step].omega[0], Power_Of_Masses(second[step]), 2e-4) << step;
        Pick_Menu(home, "mnu_Export_Torque");
        Press(home, "cmd_Balance");
        Pick_Menu(home, "mnu_Saveas");

        Pick_Menu(home, "mnu_New");
        EXPECT_FALSE(Model.LinkDriven);
        Press(home, "cmd_Input");
        Press(home, "cmd_Dynamics");
        Expect_Loaded_With(load, first);

        Pick_Menu(home, "mnu_Open");
        EXPECT_EQ(Model.ModelName, "stage2");
        Expect_Driven_By(first);
        home.Hide();
    }

    /// Link 2 of this stage moves as link 4 of the other did, 30 degrees ahead, and the linkage is closed.
    static void Expect_Driven_By(const std::vector<Motion>& first) {
        ASSERT_EQ(Model.NSteps, kSteps);
        const auto& xy = Model.RunTable.PointXY;
        for (int step = 0; step <= kSteps; ++step) {
            const Motion& driving = first[static_cast<std::size_t>(step)];
            ASSERT_TRUE(Model.RunTable.Assembled(step));
            ASSERT_NEAR(Model.RunTable.Omega(step, 0), driving.omega[2], 1e-5);
            ASSERT_NEAR(Model.RunTable.Alpha(step, 0), driving.alpha[2], 1e-4);
            // The points are seen from the ground link, whose angle is that of 2.1 and 2.8.
            const double local = driving.theta[2] + std::numbers::pi / 6 - std::atan2(2.8, 2.1);
            ASSERT_NEAR(xy(step, 0, 0), 1.5 * std::cos(local), 5e-6);
            ASSERT_NEAR(xy(step, 0, 1), 1.5 * std::sin(local), 5e-6);
            ASSERT_NEAR(std::hypot(xy(step, 1, 0) - xy(step, 0, 0), xy(step, 1, 1) - xy(step, 0, 1)), 3, 5e-6);
            ASSERT_NEAR(std::hypot(xy(step, 1, 0) - 3.5, xy(step, 1, 1)), 2.75, 5e-6);
        }
    }

    /// The crank puts in what the masses take up, less what the load on link 4 does.
    static void Expect_Loaded_With(const std::vector<double>& load, const std::vector<Motion>& first) {
        const std::vector<Motion> now = Motions();
        const std::vector<double> driving = Torques();
        double most = 0;
        for (std::size_t step = 0; step <= kSteps; ++step) {
            ASSERT_EQ(now[step].theta[2], first[step].theta[2]);
            const double at_load = load[step] * now[step].omega[2];
            most = std::max(most, std::abs(at_load));
            ASSERT_NEAR(driving[step] * now[step].omega[0] + at_load, Power_Of_Masses(now[step]), 2e-3) << step;
        }
        EXPECT_GT(most, 10) << "the load is to be felt";
    }
};

TEST_F(Chain, MotionGoesForwardAndTorqueGoesBack) {
    const std::string out = Path("stage1.out"), torque = Path("stage2.trq"), model = Path("stage2.vlk");
    desktop.Expect_Screen("frm_Title", [](Screen& title) { Press(title, "cmd_Start"); })
        .Expect_Screen("frm_User",
                       [](Screen& user) {
                           Type(user, "txt_UserName", kNoIndex, "A designer");
                           Press(user, "cmd_Done");
                       })
        .Expect_Message_With("Your default path for saved files is: ")
        .Expect_Screen("frm_HomeScreen", [this](Screen& home) { Home(home); })
        // The first stage, and its motion.
        .Expect_Screen("frm_Inputnew", Enter_First_Stage)
        .Expect_Screen("frm_Animate", [](Screen& animate) { Press(animate, "cmd_Done"); })
        .Expect_Save(out)
        .Expect_Message("The angular data for link 4 of this linkage has been written to " + out +
                            "\rThis file can be imported to program Verlink or Corvex\r"
                            "and used as input data to drive the next stage of a multibar linkage.",
                        Answer::kOk, Icon::kInformation)
        // The second stage, driven by it, and its torque. The motion that was exported is not the model.
        .Expect_Message("The current data has not been saved.  Do you want to save it before resetting?", Answer::kNo)
        .Expect_Open(out)
        .Expect_Message("File " + out + " of Linkage output data successfully read.")
        .Expect_Screen("frm_Inputnew", Enter_Second_Stage)
        .Expect_Screen("frm_Animate", Watch)
        .Expect_Screen("frm_MassProp", Solve)
        .Expect_Save(torque)
        .Expect_Message("You must calculate the linkage for a constant Omega2 in order to balance it.", Answer::kOk,
                        Icon::kInformation)
        .Expect_Save(model)
        .Expect_Message("File was successfully written to \r" + model)
        // The first stage again, with the torque of the second as its load.
        .Expect_Message("Please confirm your order to reset all variables to their default values")
        .Expect_Screen("frm_Inputnew", Enter_First_Stage)
        .Expect_Screen("frm_Animate", [](Screen& animate) { Press(animate, "cmd_Done"); })
        .Expect_Screen("frm_MassProp",
                       [](Screen& forces) {
                           Tick(forces, "chk_Torque", true);
                           Solve(forces);
                       })
        .Expect_Open(torque)
        .Expect_Message("File " + torque + " of Torque data successfully read.", Answer::kOk, Icon::kInformation)
        // The second stage out of its file, with its drive.
        .Expect_Message("The current data has not been saved.  Do you want to save it before resetting?", Answer::kNo)
        .Expect_Open(model)
        .Expect_Message("File " + model + " successfully read.")
        .Expect_Screen("frm_Inputnew", [](Screen& input) {
            EXPECT_EQ(input.Text("txt_initial", 4).Text, "30");
            Press(input, "cmd_Calc");
            Press(input, "cmd_Done");
        });
    Sub_Main("");
}

}  // namespace
}  // namespace verlink::test
