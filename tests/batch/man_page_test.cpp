// The page for man tells of every option that there is, and of no other; its examples are calls that are taken.
#include <gtest/gtest.h>

#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "batch/options.h"
#include "platform/file_system.h"

namespace verlink::test {

namespace {

/// The page without what only man reads.
std::string Page() {
    std::string page = platform::Read_File(std::string(VERLINK_TESTS) + "/../packaging/verlink-batch.1");
    page = std::regex_replace(page, std::regex(R"(\\-)"), "-");
    return std::regex_replace(page, std::regex(R"(\\f\[?[A-Z]\]?)"), "");
}

/// A section by its title.
std::string Section(const std::string& title) {
    const std::string page = Page();
    const auto from = page.find(".SH " + title + "\n");
    EXPECT_NE(from, std::string::npos) << title;
    return page.substr(from + 1, page.find("\n.SH ", from) - from);
}

std::set<std::string> Options_In(const std::string& text) {
    const std::regex option("--[a-z]+(-[a-z]+)*");
    return {std::sregex_token_iterator(text.begin(), text.end(), option), std::sregex_token_iterator()};
}

/// The heads of the paragraphs of a section: the lines behind ".TP".
std::string Heads(const std::string& section) {
    std::istringstream lines(section);
    std::string line, heads;
    for (bool head = false; std::getline(lines, line); head = line == ".TP")
        if (head) heads += line + '\n';
    return heads;
}

}  // namespace

TEST(Man_Page, TellsOfEveryOptionOfTheUsageAndOfNoOther) {
    const std::set<std::string> usage = Options_In(Batch_Usage());
    EXPECT_GT(usage.size(), 15u);
    EXPECT_EQ(Options_In(Heads(Section("OPTIONS"))), usage);
}

TEST(Man_Page, ItsExamplesAreCallsThatAreTaken) {
    std::istringstream lines(Section("EXAMPLES"));
    int examples = 0;
    for (std::string line; std::getline(lines, line);) {
        if (line.rfind("verlink-batch ", 0) != 0) continue;
        line = line.substr(0, line.find_first_of("|>"));  // what the shell takes
        std::vector<std::string> words;
        const std::regex word("\"[^\"]*\"|'[^']*'|[^ ]+");
        for (std::sregex_iterator at(line.begin(), line.end(), word), end; at != end; ++at) {
            const std::string text = at->str();
            words.push_back(text.front() == '"' || text.front() == '\'' ? text.substr(1, text.size() - 2) : text);
        }
        words.erase(words.begin());
        BatchOptions options;
        std::string fault;
        EXPECT_TRUE(Parse_Options(words, options, fault)) << line << ": " << fault;
        ++examples;
    }
    EXPECT_GE(examples, 7);
}

}  // namespace verlink::test
