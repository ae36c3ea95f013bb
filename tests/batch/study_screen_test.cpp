// The screen of studies and verlink-batch say the same of the same settings.
#include <algorithm>
#include <cstdlib>
#include <thread>

#include "files/model_file.h"
#include "platform/file_system.h"
#include "screens/frm_studies.h"
#include "shell/initialize.h"
#include "tests/batch/batch_fixture.h"
#include "tests/support/fixture.h"

namespace verlink::test {

namespace {

class StudyScreen : public Fixture {
   protected:
    StudyScreen() : form(dynamic_cast<frm_Studies&>(platform::Screens::Get("frm_Studies"))) {
        Initialize();
        EXPECT_TRUE(Load_Model(platform::Read_File(sample)));
    }
    CsvTable Batch(const std::string& options) const {
        const std::string out = Path("batch.csv");
        const std::string line = std::string(VERLINK_BATCH) + " " + sample + " " + options + " > " + out;
        EXPECT_EQ(std::system(line.c_str()), 0) << line;
        return CsvTable(platform::Read_File(out));
    }
    void Screen(const study::Settings& settings) {
        Model.StudySettings = study::Settings_Text(settings);
        form.Form_Activate();
        form.cmd_Start_Click();
        while (form.Timer1.Enabled) {
            std::this_thread::yield();
            form.Timer1.Tick();
        }
        ASSERT_TRUE(form.Found().Whole()) << form.lbl_Fault.Caption.Get();
    }
    static double Of(const CsvTable& table, const std::string& what, const std::string& at) {
        for (int row = 0; row < table.Rows(); ++row)
            if (table.Text(row, "What") == what && table.Text(row, "At") == at) return table.At(row, "Value");
        ADD_FAILURE() << "no " << what << " at " << at;
        return 0;
    }

    const std::string sample = std::string(VERLINK_SAMPLES) + "/crank_rocker.vlk";
    frm_Studies& form;
};

}  // namespace

TEST_F(StudyScreen, ASweepHasTheRowsOfTheBatch) {
    study::Settings settings;
    settings.sweeps[0] = {"L2", 1, 1.2, 9};
    settings.sweeps[1] = {"L3", 2, 2.5, 6};
    settings.measure = "rms Accel CP:Mag";
    Screen(settings);
    const CsvTable rows = Batch("--sweep L2=1:1.2:9 --sweep L3=2:2.5:6 --measure 'rms Accel CP:Mag'");
    ASSERT_EQ(rows.Rows(), 54);
    const std::vector<double>& shown = form.map_Sweep.Shown().values;
    ASSERT_EQ(shown.size(), 54U);
    for (int row = 0; row < 54; ++row)
        EXPECT_EQ(static_cast<float>(shown[static_cast<std::size_t>(row)]),
                  static_cast<float>(rows.At(row, "rms Accel CP:Mag")))
            << row;
}

TEST_F(StudyScreen, TolerancesHaveTheSummaryAndTheSharesOfTheBatch) {
    study::Settings settings;
    settings.kind = study::Settings::Kind::kTolerance;
    settings.tolerances[0] = {"L2", 0.01, study::Spread::kNormal};
    settings.tolerances[1] = {"L3", 0.02, study::Spread::kNormal};
    settings.tolerances[2] = {"Link1X", 0.01, study::Spread::kUniform};
    settings.samples = 6000;
    settings.seed = 5;
    settings.keep = "max Theta4 > 149.1";
    Screen(settings);
    const std::string tolerances =
        "--tolerance L2=0.01 --tolerance L3=0.02 --tolerance Link1X=0.01:uniform --measure 'min Trans Ang' ";
    const CsvTable summary = Batch(tolerances + "--samples 6000 --seed 5 --keep 'max Theta4 > 149.1' --summary"),
                   shares = Batch(tolerances + "--sensitivity");
    const study::Summary& found = form.Found().summary;
    EXPECT_EQ(static_cast<double>(found.kept), Of(summary, "kept", ""));
    EXPECT_LT(found.kept, 6000U);
    EXPECT_FLOAT_EQ(static_cast<float>(found.measures[0].Mean()), static_cast<float>(Of(summary, "mean", "")));
    EXPECT_FLOAT_EQ(static_cast<float>(found.measures[0].Deviation()),
                    static_cast<float>(Of(summary, "standard deviation", "")));
    for (const auto& [share, at] : {std::pair{0.01, "0.01"}, {0.5, "0.5"}, {0.99, "0.99"}})
        EXPECT_FLOAT_EQ(static_cast<float>(found.measures[0].Spread().Quantile(share)),
                        static_cast<float>(Of(summary, "quantile", at)));
    ASSERT_EQ(shares.Rows(), 3);
    for (int row = 0; row < 3; ++row)
        EXPECT_EQ(form.Found().sensitivities[0][static_cast<std::size_t>(row)].share,
                  static_cast<float>(shares.At(row, "Share")));
}

}  // namespace verlink::test
