// What the tests of the model file share: the program as it is once started, and files as lists of lines.
#pragma once

#include <string>
#include <vector>

#include "core/text.h"
#include "dynamics/units.h"
#include "files/model_file.h"
#include "shell/initialize.h"
#include "shell/startup.h"
#include "tests/support/files.h"
#include "tests/support/fixture.h"

namespace verlink::test {

class ModelFiles : public Fixture {
   protected:
    ModelFiles() {
        Set_Identity();
        Initialize();
        Use_Units(1);
    }

    /// The default linkage over a full turn, as a user would have it calculated.
    static void Take_Full_Turn() {
        Model.ThetaStartStr = "0";
        Model.ThetaEndStr = "360";
        Model.ThetaStepStr = "5";
        Model.NSteps = 72;
    }

    /// Queues what a user sees when a file has been read: the message, and the input screen, which is left again.
    void Expect_Read(const std::string& path) {
        desktop.Expect_Message("File " + path + " successfully read.", platform::Answer::kOk,
                               platform::Icon::kInformation);
        desktop.Expect_Screen("frm_Inputnew", [](platform::Screen& screen) { screen.Hide(); });
    }
};

/// The lines of a file without their CR LF; line n of the file is entry n - 1.
inline std::vector<std::string> Lines(const std::string& content) {
    std::vector<std::string> lines;
    for (std::size_t at = 0; at < content.size();) {
        const std::size_t end = content.find("\r\n", at);
        lines.push_back(content.substr(at, end - at));
        at = end == std::string::npos ? content.size() : end + 2;
    }
    return lines;
}

inline std::string Joined(const std::vector<std::string>& lines) {
    std::string content;
    for (const std::string& line : lines) content += line + "\r\n";
    return content;
}

/// The content of a file with one line replaced; lines count from 1.
inline std::string With_Line(const std::string& content, int line, const std::string& text) {
    auto lines = Lines(content);
    lines.at(static_cast<std::size_t>(line - 1)) = text;
    return Joined(lines);
}

/// The value of a field as text, a boolean as "true" or "false".
inline std::string Text_At(const FileField& field) {
    struct {
        std::string operator()(const std::string* place) const { return *place; }
        std::string operator()(const Single* place) const { return Text_Of(*place); }
        std::string operator()(const Integer* place) const { return Text_Of(*place); }
        std::string operator()(const Long* place) const { return Text_Of(*place); }
        std::string operator()(const bool* place) const { return *place ? "true" : "false"; }
    } text;
    return std::visit(text, field.place);
}

}  // namespace verlink::test
