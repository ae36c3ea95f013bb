// The file of a task: what is taken, and what is refused with which words.
#include "design/task.h"

#include "tests/design/tasks.h"

namespace verlink::test {

namespace {

using design::Area;
using design::Task;

const std::string kHead = R"({"format":"verlink-design","version":1,"kind":"motion")";
const std::string kPlaces = R"(,"positions":[{"x":0,"y":0,"angle":0},{"x":1,"y":2,"angle":30}])";

std::string Refused(const std::string& text) {
    Task task;
    task.title = "as it was";
    std::string fault;
    EXPECT_FALSE(Read_Task(text, task, fault)) << text;
    EXPECT_EQ(task.title, "as it was");
    return fault;
}

std::string Refused_With(const std::string& fields) { return Refused(kHead + kPlaces + "," + fields + "}"); }

Task Full_Task() {
    Task task;
    task.title = "A lid \"1\" \xC3\xA4";
    task.units = 5;
    task.relative = true;
    task.positions = {{{0.1, -2}, 5}, {{1.0 / 3, 2e-7}, -30}, {{3, 4}, 45.5}};
    task.left.fixed = {Area::Is::kWithin, {-1, -2}, {3, 4.5}, {}};
    task.left.moving = {Area::Is::kPoints, {}, {}, {{1, 2}, {3, 4}}};
    task.right.fixed = {Area::Is::kPoints, {}, {}, {{5, 6}}};
    task.shortest = 0.5;
    task.longest = 12.25;
    task.transmission = 35;
    task.drive = design::Drive::kRight;
    task.full_turn = true;
    task.weights = {1, 0, 0.5, 2};
    return task;
}

}  // namespace

TEST(Task_File, ComesBackAsItWasWritten) {
    Task bare;
    bare.positions = {{{1, 2}, 3}, {{4, 5}, 6}};
    for (const Task& task : {Full_Task(), bare}) {
        Task read;
        std::string fault;
        ASSERT_TRUE(Read_Task(Task_Text(task), read, fault)) << fault;
        EXPECT_EQ(read, task);
    }
}

TEST(Task_File, LeavesOutWhatIsNotSaid) {
    Task task;
    std::string fault;
    ASSERT_TRUE(Read_Task(kHead + kPlaces + "}", task, fault)) << fault;
    EXPECT_EQ(task.positions.size(), 2U);
    EXPECT_EQ(task.positions[1], (design::Place{{1, 2}, 30}));
    EXPECT_EQ(task.drive, design::Drive::kEither);
    EXPECT_TRUE(std::isinf(task.longest));
    EXPECT_FALSE(task.relative);
}

TEST(Task_File, PositionsFromTheFirstAreTheSameInAbsolutePlaces) {
    Task task;
    task.relative = true;
    task.positions = {{{1, 2}, 10}, {{3, 4}, 20}};
    EXPECT_EQ(Absolute_Positions(task)[1], (design::Place{{4, 6}, 30}));
}

TEST(Task_File, ARefusalNamesTheField) {
    EXPECT_EQ(Refused(R"({"version":1})"), "the field format is missing");
    EXPECT_EQ(Refused(R"({"format":"else"})"), "the field format is to be one of \"verlink-design\"");
    EXPECT_EQ(Refused(R"({"format":"verlink-design","version":2})"),
              "the field version is to be 1: the task was written by a newer program");
    EXPECT_EQ(Refused(kHead + "}"), "the field positions is missing");
    EXPECT_EQ(Refused(kHead + R"(,"positions":[{"x":1,"y":1,"angle":0}]})"),
              "the field positions is to be a list of 2 to 5");
    EXPECT_EQ(Refused(kHead + R"(,"positions":[{"x":1,"y":1,"angle":0},{"x":1,"y":"2","angle":0}]})"),
              "the field positions[1].y is to be a number");
    EXPECT_EQ(Refused(kHead + R"(,"positions":[{"x":1,"y":1,"angle":0},{"x":1,"angle":0}]})"),
              "the field positions[1].y is missing");
    EXPECT_EQ(Refused_With(R"("transmision":3)"), "there is no field transmision");
    EXPECT_EQ(Refused_With(R"("a\nb\u007f":3)"), "there is no field a b ") << "in one line";
    EXPECT_EQ(Refused_With(R"("left":{"fixed":{"inside":[]}})"), "there is no field left.fixed.inside");
    EXPECT_EQ(Refused_With(R"("left":{"fixed":{"within":[0,0,-1,1]}})"),
              "the field left.fixed.within is to be left, bottom, right, top");
    EXPECT_EQ(Refused_With(R"("right":{"moving":{"points":[[1,2],[3]]}})"),
              "the field right.moving.points[1] is to be a list of 2");
    EXPECT_EQ(Refused_With(R"("links":{"shortest":3,"longest":2})"),
              "the field links.longest is to be more than links.shortest");
    EXPECT_EQ(Refused_With(R"("drive":"both")"), "the field drive is to be one of \"left\", \"right\", \"either\"");
    EXPECT_EQ(Refused_With(R"("full_turn":1)"), "the field full_turn is to be true or false");
    EXPECT_EQ(Refused_With(R"("units":2.5)"), "the field units is to be a whole number from 1 to 5");
    EXPECT_EQ(Refused_With(R"("weights":{"transmission":0,"proportion":0,"room":0})"),
              "of the field weights one weight is to be above 0");
    EXPECT_EQ(Refused("[1,2]"), "a task is to be an object");
}

TEST(Task_File, NumbersThatAreNoneOrHugeAreRefused) {
    EXPECT_EQ(Refused_With(R"("transmission":91)"), "the field transmission is to lie between 0.0 and 90.0");
    EXPECT_EQ(Refused_With(R"("transmission":1e999)"), "a number in the file is too large");
    EXPECT_EQ(Refused_With(R"("links":{"shortest":1e300})"),
              "the field links.shortest is to lie between 0.0 and 1000000.0");
    for (const char* word : {"NaN", "Infinity", "-Infinity", "nan"})
        EXPECT_EQ(Refused_With(std::string(R"("transmission":)") + word).substr(0, 31),
                  "the file is no JSON from its by");
}

TEST(Task_File, ABrokenFileIsRefusedAtAnyByte) {
    const std::string whole = Task_Text(Full_Task());
    for (std::size_t length = 0; length + 2 < whole.size(); ++length)
        EXPECT_NE(Refused(whole.substr(0, length)).find("the file is no JSON"), std::string::npos) << length;
    EXPECT_NE(Refused(std::string("\xFF\xFE\x00{", 4)), "");
    EXPECT_NE(Refused(std::string(100000, '[')), "");
}

/// Bytes that are changed, left out or doubled by chance.
TEST_F(Design, AFileThatWasSpoiltIsTakenWholeOrRefused) {
    SCOPED_TRACE(Trace());
    const std::string whole = Task_Text(Full_Task());
    int taken = 0;
    for (int i = 0; i < 3000; ++i) {
        std::string text = whole;
        for (int changes = 1 + static_cast<int>(Number(0, 3)); changes > 0; --changes) {
            const auto at = static_cast<std::size_t>(Number(0, static_cast<double>(text.size())));
            const char byte = "0123456789.eE+-,:[]{}\"\\ax\x80"[static_cast<int>(Number(0, 27))];
            const int how = static_cast<int>(Number(0, 3));
            how == 0 ? void(text[at] = byte) : how == 1 ? void(text.erase(at, 1)) : void(text.insert(at, 1, byte));
        }
        Task task, again;
        std::string fault;
        if (!Read_Task(text, task, fault)) {
            EXPECT_NE(fault, "");
            continue;
        }
        ++taken;
        ASSERT_TRUE(Read_Task(Task_Text(task), again, fault)) << fault;
        EXPECT_EQ(again, task);
    }
    EXPECT_GT(taken, 15);
}

}  // namespace verlink::test
