// What the windows write: pictures, prints, and what the desktop is told of the program; old or new, whatever fails.
#include <QPrinter>
#include <QSvgRenderer>

#include "desktop/printing.h"
#include "files/picture_files.h"
#include "platform/file_system.h"
#include "platform/guard.h"
#include "tests/desktop/graph_fixture.h"
#include "tests/support/failing_system.h"

namespace verlink::test {

namespace {

using namespace platform;

struct WindowWriter {
    const char* name;
    void (*write)(desktop::GraphWidget& widget, const Graph& graph, const std::string& path);
};

QPrinter& Printer_To(const std::string& path) {
    static QPrinter printer;
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(QString::fromStdString(path));
    return printer;
}

void Save_Graph(desktop::GraphWidget&, const Graph& graph, const std::string& path) {
    Write_Picture(*Maker_Of(graph), path, 2);
}

constexpr WindowWriter kWriters[] = {
    {"a.png", Save_Graph},
    {"a.svg", Save_Graph},
    {"a.pdf", Save_Graph},
    {"screen.pdf",
     [](desktop::GraphWidget& widget, const Graph&, const std::string& path) {
         desktop::printWidget(Printer_To(path), widget, QStringLiteral("Printed today."));
     }},
    {"table.pdf",
     [](desktop::GraphWidget&, const Graph&, const std::string& path) {
         desktop::printPages(Printer_To(path), {{"a line"}, {"another page"}}, QStringLiteral("Printed today."));
     }},
};

class WindowWriters : public GraphWidgetTest, public testing::WithParamInterface<WindowWriter> {
   protected:
    WindowWriters() {
        Open({400, 300});
        Fill(2, 36);
        Draw();
    }
};

}  // namespace

TEST_P(WindowWriters, Leave_the_old_file_or_the_new_one_whole_and_tell_whichever_call_fails) {
    ASSERT_TRUE(Make_Folder(Path("out")));
    const std::string path = Path("out/") + GetParam().name;
    std::vector<std::string> told;
    const auto write = [&] {
        if (const auto failure = What_Failed([&] { GetParam().write(*widget, graph, path); }))
            told.push_back(failure->Trouble().Words());
    };
    const int calls = Expect_Whole_Whatever_Fails(
        {.path = path, .old = "an old picture", .write = write, .told = [&] { return std::exchange(told, {}); }});
    EXPECT_GE(calls, 10);
}

INSTANTIATE_TEST_SUITE_P(All, WindowWriters, testing::ValuesIn(kWriters), [](const auto& writer) {
    std::string name = writer.param.name;
    std::replace(name.begin(), name.end(), '.', '_');
    return name;
});

/// Entry, type and icon, which go together.
class DesktopFiles : public DesktopTest {
   protected:
    DesktopFiles() : path_(qgetenv("PATH")) { qputenv("PATH", "/nowhere"); }  // without the desktop's own tools
    ~DesktopFiles() override { qputenv("PATH", path_); }
    std::vector<std::string> Files() const {
        return {Path("data/mime/packages/verlink.xml"), Path("data/applications/verlink.desktop"),
                Path("data/icons/hicolor/scalable/apps/verlink.svg")};
    }
    std::vector<std::string> Held() const {
        std::vector<std::string> held;
        for (const std::string& file : Files()) held.push_back(File_Exists(file) ? Read_File(file) : "");
        return held;
    }
    void Put_Old() {
        for (const std::string& file : Files()) {
            Make_Folder(file.substr(0, file.rfind('/')));
            Write_File(file, "old");
        }
    }

   private:
    QByteArray path_;
};

TEST_F(DesktopFiles, Are_old_or_new_each_whichever_call_fails_and_the_failure_names_one) {
    const auto told = [&] {
        const auto failure = What_Failed([&] { qt.Register_File_Type({"Verlink", "vlk", "/opt/verlink"}); });
        EXPECT_TRUE(!failure || failure->Number() == 75);
        return failure ? failure->Trouble().Words() : std::string();
    };
    Put_Old();
    EXPECT_EQ(told(), "");
    const std::vector<std::string> fresh = Held();
    int failures = 0;
    for (int which = 1;; ++which) {
        SCOPED_TRACE(which);
        Put_Old();
        std::string failed, words;
        {
            FailingSystem system(which);
            words = told();
            failed = system.Failed();
        }
        if (failed.empty()) break;
        const std::vector<std::string> held = Held();
        bool all = true;
        for (std::size_t i = 0; i < held.size(); ++i) {
            EXPECT_TRUE(held[i] == "old" || held[i] == fresh[i]) << Files()[i];
            all = all && held[i] == fresh[i];
            for (const auto& entry :
                 std::filesystem::directory_iterator(std::filesystem::path(Files()[i]).parent_path()))
                EXPECT_EQ(entry.path().string(), Files()[i]) << "something was left";
        }
        if (words.empty()) {
            EXPECT_TRUE(all) << failed;
            continue;
        }
        ++failures;
        EXPECT_NE(words.find("Input/output error"), std::string::npos) << words;
        EXPECT_EQ(words.find(Path("data/")), 0U) << words;
        EXPECT_EQ(told(), "") << "the next time it works";
        EXPECT_EQ(Held(), fresh);
    }
    EXPECT_GT(failures, 20);
}

}  // namespace verlink::test
