// How far words are apart, and which of several was meant.
#include "core/nearest.h"

#include <gtest/gtest.h>

namespace verlink::test {

TEST(Nearest, CountsLettersPutInLeftOutExchangedAndSwapped) {
    EXPECT_EQ(Letters_Apart("", ""), 0u);
    EXPECT_EQ(Letters_Apart("", "abc"), 3u);
    EXPECT_EQ(Letters_Apart("abc", ""), 3u);
    EXPECT_EQ(Letters_Apart("csv", "csv"), 0u);
    EXPECT_EQ(Letters_Apart("cvs", "csv"), 1u);
    EXPECT_EQ(Letters_Apart("kitten", "sitting"), 3u);
    EXPECT_EQ(Letters_Apart("ca", "abc"), 3u);
    EXPECT_EQ(Letters_Apart("abcd", "acd"), 1u);
    EXPECT_EQ(Letters_Apart("acd", "abcd"), 1u);
    EXPECT_EQ(Letters_Apart("abcde", "bd"), 3u);
    EXPECT_EQ(Letters_Apart("bd", "abcde"), 3u);
    EXPECT_EQ(Letters_Apart("ab", "ba"), 1u);
    EXPECT_EQ(Letters_Apart("bacd", "abdc"), 2u);
    EXPECT_EQ(Letters_Apart("abc", "acb"), 1u);
    EXPECT_EQ(Letters_Apart("abab", "baba"), 2u);
}

TEST(Nearest, TakesTheLeastAndAllThatAreAsNear) {
    const std::vector<std::string> words{"--csv", "--svg", "--save", "--export-out", "--export-trq"};
    EXPECT_EQ(Nearest("--scv", words), "--csv");
    EXPECT_EQ(Nearest("--sav", words), "--save");
    EXPECT_EQ(Nearest("--xsvg", words), "--svg");
    EXPECT_EQ(Nearest("--sv", words), "--csv or --svg");
    EXPECT_EQ(Nearest("--ssv", words), "--csv");
    EXPECT_EQ(Nearest("-s", words), "");
    EXPECT_EQ(Nearest("--export-tr", words), "--export-trq");
    EXPECT_EQ(Nearest("--out", words), "--export-out");
    EXPECT_EQ(Nearest("--quick", words), "");
    EXPECT_EQ(Nearest("---", words), "");
    EXPECT_EQ(Nearest("", words), "");
}

TEST(Nearest, AllowsAThirdOfTheLettersToBeOthersButAlwaysOne) {
    EXPECT_EQ(Nearest("--abcdef", {"--abcdxy"}), "--abcdxy");
    EXPECT_EQ(Nearest("--abcde", {"--abcxy"}), "");
    EXPECT_EQ(Nearest("--abcde", {"--abcxe"}), "--abcxe");
    EXPECT_EQ(Nearest("--ab", {"--xb"}), "--xb");
    EXPECT_EQ(Nearest("ab", {"xy"}), "");
    EXPECT_EQ(Nearest("--xa", {"--xb", "--xc", "--xd"}), "--xb, --xc or --xd");
}

}  // namespace verlink::test
