// Files of drive data made by hand.
#pragma once

#include <string>
#include <vector>

namespace verlink::test {

inline std::string Text_Of_Lines(const std::vector<std::string>& lines) {
    std::string content;
    for (const std::string& line : lines) content += line + "\r\n";
    return content;
}

/// The lines of an .sva file: by default a cam-driven four-bar in inches with masses and four rows.
struct CamFile {
    std::string links = "4", direction = "-1", phase = "15", length1 = "3.5", diameter = "2", length2 = "0.25";
    std::vector<std::string> times = {"0.5", "2", "0.5"};
    std::string tag = "\"Fourbar\"";
    std::string units = "1";
    std::string delta2 = "7", circuit = "-1";
    std::vector<std::string> lengths = {"1.25", "4", "3", "3.75"};  ///< links 2, 3, 4, 1
    std::string ground_angle = "53.1301";
    std::vector<std::string> places = {"2.25", "3", "-6", "2.5"};  ///< of O4 and of the cam
    std::string mass_flag = "-1";
    std::vector<std::vector<std::string>> masses = {
        {"0.5", "0.75", "0.625", "0.25"}, {"1.5", "1.75", "2", "-0.5"}, {"2.5", "2.75", "1.5", "0.125"}};
    std::vector<std::string> rows = {"0,1,2", "10.5,-1.5,2.5", "20,2,-3", "30,4,0"};

    std::vector<std::string> Lines() const {
        std::vector<std::string> lines = {links, direction, phase, length1, diameter, length2};
        const auto add = [&](const std::vector<std::string>& more) {
            lines.insert(lines.end(), more.begin(), more.end());
        };
        const auto skipped = [&](int count) {
            for (int i = 0; i < count; ++i) lines.push_back("\"skipped, " + std::to_string(i) + "\"");
        };
        add(times);
        add({tag, units});
        skipped(7);
        if (std::stoi(links) >= 4) {
            add({delta2, circuit});
            add(lengths);
            lines.push_back(ground_angle);
            add(places);
            skipped(9);
            lines.push_back(mass_flag);
            for (const auto& link : masses) add(link);
            skipped(30);
        }
        lines.push_back(std::to_string(rows.size()));
        add(rows);
        return lines;
    }
    std::string Content() const { return Text_Of_Lines(Lines()); }
};

/// An .out file with these rows below its 16 header lines.
inline std::string LinkFile(const std::vector<std::string>& rows, const std::string& last = "") {
    std::vector<std::string> lines = {last.empty() ? std::to_string(rows.size() - 1) : last, "0", "1", "0.5"};
    lines.resize(16, "");
    lines.insert(lines.end(), rows.begin(), rows.end());
    return Text_Of_Lines(lines);
}

}  // namespace verlink::test
