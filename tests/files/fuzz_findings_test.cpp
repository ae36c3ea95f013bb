// Files that the fuzz targets have found: each did harm once.
#include "files/drive_import.h"
#include "tests/files/model_files.h"

namespace verlink::test {

class FuzzFindings : public ModelFiles {
   protected:
    FuzzFindings() { Model.JustStarted = true; }
    static std::string Found(const std::string& name) { return Held(Fixture_File("found/" + name)); }
};

// Read as it stood, it left no unit labels, and the model saved from it could not be what it was.
TEST_F(FuzzFindings, CamDataInUnitsBelow1AreInInchesAsModelFilesAre) {
    const std::string content = Found("units_below_1.sva");
    TextReader reader(content);
    EXPECT_TRUE(Read_Cam_Data(reader));
    EXPECT_EQ(Model.Units, 1);
    EXPECT_EQ(Model.UnitLabel(6), "in");
    EXPECT_EQ(Model.NSteps, 2);
}

}  // namespace verlink::test
