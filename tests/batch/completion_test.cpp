// What bash offers behind a beginning of a call, by the file that the package installs.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <sstream>

#include "batch/option_rows.h"
#include "tests/batch/batch_fixture.h"

namespace verlink::test {

namespace {

struct Completion : BatchFixture {
    /// The offers for the last of these words, in the test's folder.
    std::set<std::string> Offers(const std::vector<std::string>& words) const {
        std::string script = ". /usr/share/bash-completion/bash_completion\n. " + std::string(VERLINK_TESTS) +
                             "/../packaging/verlink-batch.bash\ncd " + Path("") + "\n";
        std::string line = "verlink-batch", list = "verlink-batch";
        for (const std::string& word : words) {
            line += " " + word;
            // As bash takes words apart.
            const auto equals = word.find('=');
            if (equals == std::string::npos)
                list += " '" + word + "'";
            else
                list += " '" + word.substr(0, equals) + "' = '" + word.substr(equals + 1) + "'";
        }
        script += "COMP_WORDS=(" + list + ")\nCOMP_CWORD=$((${#COMP_WORDS[@]} - 1))\nCOMP_LINE='" + line +
                  "'\nCOMP_POINT=${#COMP_LINE}\nCOMP_TYPE=9\n_verlink_batch " VERLINK_BATCH
                  "\nprintf '%s\\n' \"${COMPREPLY[@]}\" > offers\n";
        Write("ask.bash", script);
        EXPECT_EQ(std::system(("bash --norc " + Path("ask.bash") + " 2>" + Path("errors")).c_str()), 0)
            << Read(Path("errors"));
        std::istringstream lines(Read(Path("offers")));
        std::set<std::string> offers;
        for (std::string offer; std::getline(lines, offer);)
            if (!offer.empty()) offers.insert(offer);
        return offers;
    }
};

using Set = std::set<std::string>;

}  // namespace

TEST_F(Completion, OffersEveryOptionAndNoOther) {
    Set options;
    for (const OptionRow& row : Option_Rows()) options.insert(row.name);
    EXPECT_EQ(Offers({"--"}), options);
    EXPECT_EQ(Offers({"a.vlk", "--cl"}), (Set{"--classify"}));
    EXPECT_EQ(Offers({"a.vlk", "--export"}), (Set{"--export-out", "--export-pdx", "--export-trq"}));
    EXPECT_EQ(Offers({"--zz"}), Set());
}

TEST_F(Completion, OffersTheValuesThatThereAre) {
    EXPECT_EQ(Offers({"--frame", ""}), (Set{"global", "local"}));
    EXPECT_EQ(Offers({"--frame=l"}), (Set{"local"}));
    EXPECT_EQ(Offers({"--example", ""}), (Set{"grashof", "hoekens", "roberts", "watts", "cheby"}));
    EXPECT_EQ(Offers({"--convert-units", ""}), (Set{"1", "2", "3", "4", "5"}));
    EXPECT_EQ(Offers({"--set", ""}), Set());
    EXPECT_EQ(Offers({"--fft", ""}), Set());
}

TEST_F(Completion, OffersModelsAndTheFilesThatAnOptionTakes) {
    for (const char* name : {"press.vlk", "notes.txt", "cam.sva", "stage.out", "load.trq"}) Write(name, "");
    EXPECT_EQ(Offers({""}), (Set{"press.vlk"}));
    EXPECT_EQ(Offers({"--dynamics", "p"}), (Set{"press.vlk"}));
    EXPECT_EQ(Offers({"--drive", ""}), (Set{"cam.sva", "stage.out"}));
    EXPECT_EQ(Offers({"--torque", ""}), (Set{"load.trq"}));
    EXPECT_EQ(Offers({"--save", ""}), (Set{"press.vlk"}));
    EXPECT_EQ(Offers({"--csv", "n"}), (Set{"notes.txt"}));
    EXPECT_EQ(Offers({"--json=n"}), (Set{"notes.txt"}));
    EXPECT_EQ(Offers({"--csv", "a", "p"}), (Set{"press.vlk"}));
}

TEST_F(Completion, EveryExampleThatIsOfferedIsThere) {
    for (const std::string& name : Offers({"--example", ""}))
        EXPECT_EQ(Run({"--example", name, "--classify"}).status, 0) << name;
}

}  // namespace verlink::test
