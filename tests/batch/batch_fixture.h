// What the tests of verlink-batch share: model files made by hand, runs in and out of the process, tables read back.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

namespace verlink::test {

/// Lines of a model file by number.
enum Line : int {
    kTag = 1,
    kRev = 2,
    kModelName = 3,
    kDate = 6,
    kTime = 7,
    kL2 = 8,
    kL3 = 9,
    kL4 = 10,
    kL1 = 11,
    kRpa = 12,
    kDelta = 13,
    kTimeStart = 34,
    kTimeEnd = 35,
    kTimeStep = 36,
    kThetaZero = 37,
    kOmega2 = 38,
    kAlpha2 = 39,
    kThetaStart = 40,
    kThetaEnd = 41,
    kThetaStep = 42,
    kCircuit = 43,
    kCalctype = 44,
    kUnits = 45,
    kFormat = 54,
    kTitle = 56,
    kFirstMass = 58,
    kLink1Angle = 82,
    kLink1AngleRad = 83,
    kNSteps = 84,
    kLink1X = 85,
    kLink1Y = 86,
    kCamDirection = 87,
    kCamPhase = 89,
    kCamDriven = 90,
    kLinkDriven = 91,
    kPolar = 92,
    kDelta2 = 95,
};

/// The text of a model file, line by line: at first the linkage 2.667, 1.115, 2.5, 2.5 with its coupler point at
/// 1.697 and -92.66 degrees, by angle from 45 to 405 degrees in steps of 10 at 10 rad/s.
class ModelText {
   public:
    ModelText();
    ModelText& Set(int line, const std::string& value);
    ModelText& Quote(int line, const std::string& value) { return Set(line, '"' + value + '"'); }
    /// Lengths of links 1 to 4 with link 1 along x, and the coupler point.
    ModelText& Linkage(const std::vector<std::string>& links, const std::string& rpa, const std::string& delta);
    ModelText& Angles(const std::string& start, const std::string& end, const std::string& step);
    ModelText& Times(const std::string& start, const std::string& end, const std::string& step);
    /// Run type 4 or 5 with a row of angle, speed and acceleration for each step.
    ModelText& Drive(int calctype, const std::vector<std::string>& rows);
    std::string Content() const;

   private:
    std::vector<std::string> lines_;
};

/// A table of comma-separated values.
class CsvTable {
   public:
    explicit CsvTable(const std::string& text);
    int Rows() const { return static_cast<int>(rows_.size()); }
    const std::vector<std::string>& Header() const { return header_; }
    const std::string& Text(int row, const std::string& column) const;
    double At(int row, const std::string& column) const;

   private:
    std::vector<std::string> header_;
    std::vector<std::vector<std::string>> rows_;
};

struct Outcome {
    int status;
    std::string out, err;
    CsvTable Table() const { return CsvTable(out); }
};

class BatchFixture : public testing::Test {
   protected:
    BatchFixture();
    ~BatchFixture() override;

    std::string Path(const std::string& name) const { return folder_ + "/" + name; }
    /// Writes a file of the test's folder and gives its path.
    std::string Write(const std::string& name, const std::string& content) const;
    std::string Write(const ModelText& model) const { return Write("model.vlk", model.Content()); }
    static std::string Read(const std::string& path);

    /// The whole program in this process, on a fresh record.
    static Outcome Run(const std::vector<std::string>& arguments);
    Outcome Run(const ModelText& model, std::vector<std::string> options = {}) const;
    /// The executable, in a process of its own; `out` names a file or device to take its standard output.
    Outcome Spawn(const std::vector<std::string>& arguments, const std::string& out = "") const;

   private:
    std::string folder_;
};

}  // namespace verlink::test
