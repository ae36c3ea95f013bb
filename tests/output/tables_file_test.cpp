// Tables in a file, byte by byte, and what happens when a file cannot be written.
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>

#include "platform/file_system.h"
#include "platform/guard.h"
#include "tests/output/table_fixture.h"

namespace verlink::test {

namespace {

/// No file of this process grows beyond a few bytes while this lives.
struct SmallDisk {
    SmallDisk() : old_handler(std::signal(SIGXFSZ, SIG_IGN)) {
        ::getrlimit(RLIMIT_FSIZE, &old_limit);
        const rlimit limit{16, old_limit.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~SmallDisk() {
        ::setrlimit(RLIMIT_FSIZE, &old_limit);
        std::signal(SIGXFSZ, old_handler);
    }
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;
    void (*old_handler)(int);
    rlimit old_limit{};
};

struct TablesFile : Tables {
    std::string Written() const {
        Open_Data_File(Path("press.dat"));
        Print_to_File();
        Close_Data_File();
        return platform::Read_File(Path("press.dat"));
    }
    /// The lines of the file from its data on.
    static std::vector<std::string> Data(const std::string& file) {
        std::vector<std::string> lines;
        for (std::size_t at = 0; at < file.size();) {
            const std::size_t end = file.find("\r\n", at);
            lines.push_back(file.substr(at, end - at));
            at = end + 2;
        }
        lines.erase(lines.begin(), lines.begin() + 11);
        return lines;
    }
};

constexpr char kHead[] =
    "VERLINK       File \tpress\t\tDesign #\t3\r\n"
    "Ada\t\t11/21/2026\t\t10:15:00\r\n"
    "\r\n"
    "   Selected Linkage Parameters\r\n"
    "   \r\n"
    "\r\n";

}  // namespace

TEST_F(TablesFile, OfAnAngleRunIsExactlyThis) {
    Fill_Run(2);
    EXPECT_EQ(Written(), std::string(kHead) +
                             "Angle\tTheta2\tVeloc CP\tVeloc CP\tOmega4\t\r\n"
                             "Step\tMag\tX\tAng\tMag\t\r\n"
                             "Deg\tdegrees\tin/sec\tdeg\trad/sec\t\r\n"
                             "\r\n"
                             "5.0\t5.0\t0.0\t0.0\t100.0\t\r\n"
                             "15.0\t15.0\t1.0\t63.4\t101.0\t\r\n"
                             "25.0\t25.0\t2.0\t63.4\t102.0\t\r\n");
}

TEST_F(TablesFile, AnAngleIsInDegrees) {
    Fill_Run(0);
    Choose(3, "Accel CP", "Ang");
    EXPECT_NE(Written().find("Deg\tdegrees\tin/sec\tdeg\trad/sec\t\r\n"), std::string::npos);
}

TEST_F(TablesFile, OfATimeRunHasItsTimeOnEveryRow) {
    for (const int calctype : {2, 4, 5}) {
        Fill_Run(3);
        By_Time(calctype, 2.5, 0.5);
        const std::string file = Written();
        EXPECT_NE(file.find("Time\tTheta2"), std::string::npos);
        EXPECT_NE(file.find("Sec\tdegrees"), std::string::npos);
        const std::vector<std::string> data = Data("\r\n" + file);
        ASSERT_EQ(data.size(), 4u);
        EXPECT_EQ(data[0].substr(0, 4), "2.5\t") << calctype;
        EXPECT_EQ(data[3], "4.0\t35.0\t3.0\t63.4\t103.0\t");
    }
}

TEST_F(TablesFile, EveryRowEndsInATabBehindTheFourthValue) {
    Fill_Run(5);
    const std::vector<std::string> data = Data("\r\n" + Written());
    ASSERT_EQ(data.size(), 6u);
    for (const std::string& line : data) {
        EXPECT_EQ(std::count(line.begin(), line.end(), '\t'), 5);
        EXPECT_EQ(line.back(), '\t');
    }
}

TEST_F(TablesFile, HasARowForEachPrintedStep) {
    Fill_Run(10);
    Model.PrintStep = 4;
    const std::vector<std::string> data = Data("\r\n" + Written());
    ASSERT_EQ(data.size(), 3u);
    EXPECT_EQ(data[2], "85.0\t85.0\t8.0\t63.4\t108.0\t");
}

TEST_F(TablesFile, DecimalPlacesOfZeroLeaveATrailingPoint) {
    Fill_Run(0);
    Model.DecimalPlaces = 0;
    EXPECT_EQ(Data("\r\n" + Written())[0], "5.\t5.\t0.\t0.\t100.\t");
}

TEST_F(TablesFile, EachColumnIsInTheFrameOfItsOwnLinkWhateverWasPlotted) {
    Fill_Run(0);
    Model.CoordSystem = 2;
    const double links[] = {90, 180, 270};
    for (int link = 0; link <= 2; ++link) Model.RunTable.Theta(0, link) = links[link];
    for (int row = 0; row <= 2; ++row) {
        Model.RunTable.VelXY(0, row, 0) = 3;
        Model.RunTable.VelXY(0, row, 1) = 4;
    }
    // Pin 2-3 belongs to link 2, pin 3-4 to link 4 and the coupler point to link 3.
    Choose(1, "Veloc I 2,3", "X");
    Choose(2, "Veloc I 3,4", "X");
    Choose(3, "Veloc CP", "X");
    Choose(4, "Veloc CP", "Y");
    for (const int plotted : {1, 2, 3}) {
        Model.PlotSlot = plotted;
        EXPECT_EQ(Data("\r\n" + Written())[0], "90.0\t4.0\t-4.0\t-3.0\t-4.0\t");
    }
}

TEST_F(TablesFile, OfATransformHasARowForEachHarmonicInTheUnitOfItsFunction) {
    Fill_Run(40);
    dynamic_cast<frm_FFT&>(platform::Screens::Get("frm_FFT")).cmb_Var1.Text = "Omega4";
    Model.Harmonics = 6;
    Model.FFTUnitLabel = "rad/sec";
    Model.FFTResult(6, 0) = 0.5;
    for (int slot = 1; slot <= 4; ++slot) Choose(slot, "Current FFT", "X");
    const std::string file = Written();
    EXPECT_NE(file.find("   Fourier Transform of  Omega4\r\n"), std::string::npos);
    EXPECT_NE(file.find("Harmonic\tCurrent FFT\tCurrent FFT\tCurrent FFT\tCurrent FFT\t\r\n"), std::string::npos);
    const std::vector<std::string> data = Data("\r\n" + file);
    EXPECT_NE(file.find("\trad/sec\trad/sec\trad/sec\trad/sec\t\r\n"), std::string::npos);
    ASSERT_EQ(data.size(), 7u);
    EXPECT_EQ(data[6], "6\t0.5\t0.5\t0.5\t0.5\t");
}

TEST_F(TablesFile, NothingIsWrittenUntilItIsClosed) {
    Fill_Run(2);
    Open_Data_File(Path("press.dat"));
    Print_to_File();
    EXPECT_FALSE(platform::File_Exists(Path("press.dat")));
    Close_Data_File();
    EXPECT_TRUE(platform::File_Exists(Path("press.dat")));
}

TEST_F(TablesFile, ClosingWithoutAnOpenFileDoesNothing) { Close_Data_File(); }

TEST_F(TablesFile, AFileThatCannotGrowIsReportedAndTheOldOneIsWhole) {
    Fill_Run(100);
    platform::Write_File(Path("press.dat"), "old");
    desktop.Expect_Message(Failed("61   (Disk full)", "the handler",
                                  " The floppy disk in the drive is full - please substitute another\r\n\r\n" +
                                      Path("press.dat") +
                                      "\rcannot be written: it would be larger than a file may be."));
    {
        const SmallDisk disk;
        Guarded("the handler", [&] { Written(); });
    }
    EXPECT_EQ(platform::Read_File(Path("press.dat")), "old");
    Close_Data_File();  // nothing of it is left to be written later
    EXPECT_EQ(platform::Read_File(Path("press.dat")), "old");
}

TEST_F(TablesFile, WithoutAnOpenFileTheFailureIsReportedUnderPrintToFile) {
    Fill_Run(2);
    desktop.Expect_Message(Failed("52   (Bad file name or number)", "Print_to_File",
                                  "The filename clicked on has a problem.  Try opening it from within the program."));
    Print_to_File();
}

TEST_F(TablesFile, AStepOfZeroIsReportedUnderPrintToFile) {
    Fill_Run(2);
    Model.PrintStep = 0;
    desktop.Expect_Message(Failed("5   (Invalid procedure call or argument)", "Print_to_File"));
    Open_Data_File(Path("press.dat"));
    Print_to_File();
    Close_Data_File();
}

}  // namespace verlink::test
