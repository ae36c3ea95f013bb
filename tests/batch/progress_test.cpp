// The line that tells how far several models are.
#include "batch/progress.h"

#include <gtest/gtest.h>

#include <sstream>

namespace verlink::test {

TEST(Progress, IsABarWithItsCountAndTheNameAtWork) {
    EXPECT_EQ(Progress_Line(0, 10, "a.vlk", 80), "[                              ] 0/10 a.vlk");
    EXPECT_EQ(Progress_Line(5, 10, "a.vlk", 80), "[###############               ] 5/10 a.vlk");
    EXPECT_EQ(Progress_Line(10, 10, "a.vlk", 80), "[##############################] 10/10 a.vlk");
    EXPECT_EQ(Progress_Line(0, 1, "a.vlk", 80), "[                              ] 0/1 a.vlk");
    EXPECT_EQ(Progress_Line(0, 0, "", 80), "[##############################] 0/0 ") << "nothing is left to do";
}

TEST(Progress, FitsItsTerminal) {
    const std::string name(300, 'x');
    for (int columns = 0; columns < 120; ++columns)
        EXPECT_LT(Progress_Line(123, 456, name, columns).size(), static_cast<std::size_t>(std::max(columns, 1)));
    EXPECT_EQ(Progress_Line(1, 2, "press.vlk", 12), "1/2 press.v");
    EXPECT_EQ(Progress_Line(1, 2, "press.vlk", 37), "[###############               ] 1/2") << "and none of the name";
    EXPECT_EQ(Progress_Line(1, 2, "press.vlk", 36), "1/2 press.vlk");
    EXPECT_EQ(Progress_Line(1, 2, "\xC3\xA4\xC3\xB6\xC3\xBC.vlk", 8), "1/2 \xC3\xA4\xC3\xB6\xC3\xBC");
}

TEST(Progress, NamesDoNotMoveTheCursor) {
    EXPECT_EQ(Progress_Line(1, 2, "a\nb\x1b[2Jc", 80), "[###############               ] 1/2 ab[2Jc");
}

TEST(Progress, IsTakenAwayForAMessageAndAtTheEnd) {
    std::ostringstream terminal;
    {
        Progress progress(terminal, 80, 2);
        progress.Clear();
        EXPECT_EQ(terminal.str(), "");
        progress.Show(0, "a");
        progress.Clear();
        EXPECT_EQ(terminal.str(), "\r[                              ] 0/2 a\x1b[K\r\x1b[K");
        progress.Show(1, "b");
    }
    EXPECT_TRUE(terminal.str().ends_with("] 1/2 b\x1b[K\r\x1b[K")) << terminal.str();
    std::ostringstream nothing;
    Progress(nothing, 0, 2).Show(0, "a");
    EXPECT_EQ(nothing.str(), "");
    std::ostringstream narrow;
    Progress(narrow, 1, 2).Show(0, "a");
    EXPECT_EQ(narrow.str(), "\r\x1b[K\r\x1b[K") << "no room but for the cursor";
}

}  // namespace verlink::test
