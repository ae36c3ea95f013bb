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

TEST(Task_File, HasLettersAsTheyWereTyped) {
    EXPECT_NE(Task_Text(Full_Task()).find("\n  \"title\": \"A lid \\\"1\\\" \xC3\xA4\",\n"), std::string::npos);
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

TEST(Task_File, EachFieldIsRefusedForWhatItIsNot) {
    const auto positions = [](const std::string& second) {
        return Refused(kHead + R"(,"positions":[{"x":0,"y":0,"angle":0},)" + second + "]}");
    };
    EXPECT_EQ(Refused(R"({"format":5,"version":1,"kind":"motion"})"), "the field format is to be a text");
    EXPECT_EQ(Refused(R"({"format":"verlink-design","version":"1"})"), "the field version is to be a number");
    EXPECT_EQ(Refused(R"({"format":"verlink-design","version":0})"),
              "the field version is to lie between 1.0 and 1000000000.0");
    EXPECT_EQ(Refused(R"({"format":"verlink-design","version":1})"), "the field kind is missing");
    EXPECT_EQ(Refused(R"({"format":"verlink-design","version":1,"kind":"path"})"),
              "the field kind is to be one of \"motion\"");
    EXPECT_EQ(Refused_With(R"("title":5)"), "the field title is to be a text");
    EXPECT_EQ(Refused_With("\"title\":\"" + std::string(201, 'a') + "\""),
              "the field title is to have at most 200 letters");
    EXPECT_EQ(Refused_With(R"("units":0)"), "the field units is to lie between 1.0 and 5.0");
    EXPECT_EQ(Refused_With(R"("units":6)"), "the field units is to lie between 1.0 and 5.0");
    EXPECT_EQ(Refused_With(R"("relative":1)"), "the field relative is to be true or false");
    EXPECT_EQ(positions("7"), "the field positions[1] is to be an object");
    EXPECT_EQ(positions(R"({"x":1,"y":1,"angle":0,"z":1})"), "there is no field positions[1].z");
    EXPECT_EQ(positions(R"({"x":1000001,"y":1,"angle":0})"),
              "the field positions[1].x is to lie between -1000000.0 and 1000000.0");
    EXPECT_EQ(positions(R"({"x":1,"y":-1000001,"angle":0})"),
              "the field positions[1].y is to lie between -1000000.0 and 1000000.0");
    EXPECT_EQ(positions(R"({"x":1,"y":1,"angle":3601})"),
              "the field positions[1].angle is to lie between -3600.0 and 3600.0");
    EXPECT_EQ(positions(R"({"x":1,"y":1,"angle":-3601})"),
              "the field positions[1].angle is to lie between -3600.0 and 3600.0");
    EXPECT_EQ(Refused_With(R"("left":3)"), "the field left is to be an object");
    EXPECT_EQ(Refused_With(R"("left":{"other":{}})"), "there is no field left.other");
    EXPECT_EQ(Refused_With(R"("left":{"moving":{"within":[0,0,1,1],"points":[[1,1]]}})"),
              "the field left.moving has both within and points");
    EXPECT_EQ(Refused_With(R"("left":{"moving":{"within":[0,0,1]}})"),
              "the field left.moving.within is to be a list of 4");
    EXPECT_EQ(Refused_With(R"("left":{"moving":{"within":[0,1,1,0]}})"),
              "the field left.moving.within is to be left, bottom, right, top");
    EXPECT_EQ(Refused_With(R"("right":{"fixed":{"points":[]}})"),
              "the field right.fixed.points is to be a list of 1 to 64");
    EXPECT_EQ(Refused_With(R"("links":[])"), "the field links is to be an object");
    EXPECT_EQ(Refused_With(R"("links":{"longest":-1})"), "the field links.longest is to lie between 0.0 and 1000000.0");
    EXPECT_EQ(Refused_With(R"("links":{"shortest":2,"longest":2})"),
              "the field links.longest is to be more than links.shortest");
    EXPECT_EQ(Refused_With(R"("transmission":-1)"), "the field transmission is to lie between 0.0 and 90.0");
    EXPECT_EQ(Refused_With(R"("weights":{"room":1001})"), "the field weights.room is to lie between 0.0 and 1000.0");
    EXPECT_EQ(Refused_With(R"("weights":{"rounding":-1})"),
              "the field weights.rounding is to lie between 0.0 and 1000.0");
    EXPECT_EQ(Refused_With(R"("weights":{"speed":1})"), "there is no field weights.speed");
}

TEST(Task_File, TheLargestThatIsAllowedIsTaken) {
    std::string points;
    for (int i = 0; i < 64; ++i) points += (i > 0 ? ",[" : "[") + std::to_string(i) + ",1]";
    const std::string text =
        kHead + R"(,"positions":[{"x":-1000000,"y":1000000,"angle":-3600},)" +
        R"({"x":1000000,"y":-1000000,"angle":3600}],"units":5,"title":")" + std::string(200, 'a') +
        R"(","links":{"shortest":0,"longest":1000000},"transmission":90,"left":{"fixed":{"points":[)" + points +
        R"(]},"moving":{"within":[1,2,1,2]}},"weights":{"transmission":0,"proportion":0,)" +
        R"("room":0,"rounding":1000},"studies":{"any":1}})";
    Task task;
    std::string fault;
    ASSERT_TRUE(Read_Task(text, task, fault)) << fault;
    EXPECT_EQ(task.left.fixed.points.size(), 64U);
    EXPECT_EQ(task.left.fixed.points[63], (std::complex<double>(63, 1)));
    EXPECT_EQ(task.weights.rounding, 1000);
    const std::string little = R"(,"weights":{"transmission":0,"proportion":0.2,"room":0}})";
    EXPECT_TRUE(Read_Task(kHead + kPlaces + little, task, fault)) << fault;
    ASSERT_TRUE(Read_Task(text, task, fault)) << fault;
    EXPECT_EQ(task.transmission, 90);
    EXPECT_EQ(Refused(kHead + kPlaces + R"(,"left":{"fixed":{"points":[)" + points + ",[1,1]]}}}"),
              "the field left.fixed.points is to be a list of 1 to 64");
    for (const char* drive : {"left", "right", "either"}) {
        ASSERT_TRUE(Read_Task(kHead + kPlaces + R"(,"drive":")" + drive + "\"}", task, fault));
        EXPECT_EQ(static_cast<int>(task.drive), drive[0] == 'l' ? 0 : drive[0] == 'r' ? 1 : 2);
        EXPECT_NE(Task_Text(task).find("\"drive\": \"" + std::string(drive) + "\""), std::string::npos);
    }
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
