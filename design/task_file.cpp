// The file of a task: JSON, read field by field so that what is wrong is told by its name.
#include <cmath>
#include <initializer_list>
#include <nlohmann/json.hpp>
#include <string_view>

#include "core/one_line.h"
#include "design/task.h"

namespace verlink::design {

namespace {

using Json = nlohmann::ordered_json;

const char kFormat[] = "verlink-design", kMotion[] = "motion";
constexpr int kVersion = 1;
constexpr std::size_t kMostPoints = 64;
constexpr std::size_t kLongestTitle = 200;

/// What is wrong, in a line.
struct Fault {
    std::string words;
};
[[noreturn]] void Refuse(const std::string& words) { throw Fault{words}; }

/// A value of the file with the name by which it is told.
class Field {
   public:
    Field(const Json& value, std::string name) : value_(&value), name_(std::move(name)) {}

    /// A part by its key; none where it is not there.
    bool Has(const char* key) const { return value_->contains(key); }
    Field operator[](const char* key) const {
        if (!Has(key)) Refuse("the field " + Below(key) + " is missing");
        return {(*value_)[key], Below(key)};
    }
    Field operator[](std::size_t index) const { return {(*value_)[index], name_ + '[' + std::to_string(index) + ']'}; }
    std::size_t Size() const { return value_->size(); }
    const std::string& Name() const { return name_; }

    /// An object with no other keys than these.
    const Field& Object(std::initializer_list<std::string_view> keys) const {
        if (!value_->is_object()) Refuse(Told() + " is to be an object");
        for (const auto& [key, unused] : value_->items())
            if (std::ranges::find(keys, key) == keys.end()) Refuse("there is no field " + Below(key));
        return *this;
    }
    const Field& List(std::size_t fewest, std::size_t most) const {
        if (value_->is_array() && Size() >= fewest && Size() <= most) return *this;
        const std::string least = std::to_string(fewest);
        Refuse(Told() + " is to be a list of " + (fewest == most ? least : least + " to " + std::to_string(most)));
    }
    double Number(double least, double most) const {
        if (!value_->is_number()) Refuse(Told() + " is to be a number");
        const double number = value_->get<double>();
        if (!(number >= least && number <= most))
            Refuse(Told() + " is to lie between " + Json(least).dump() + " and " + Json(most).dump());
        return number;
    }
    double Coordinate() const { return Number(-kLargestLength, kLargestLength); }
    bool Truth() const {
        if (!value_->is_boolean()) Refuse(Told() + " is to be true or false");
        return value_->get<bool>();
    }
    std::string Text() const {
        if (!value_->is_string()) Refuse(Told() + " is to be a text");
        return value_->get<std::string>();
    }
    /// The index of a text among some.
    std::size_t One_Of(std::initializer_list<std::string_view> words) const {
        const std::string text = Text();
        const auto found = std::ranges::find(words, text);
        if (found != words.end()) return static_cast<std::size_t>(found - words.begin());
        std::string all;
        for (const std::string_view word : words) all += (all.empty() ? "\"" : ", \"") + std::string(word) + '"';
        Refuse(Told() + " is to be one of " + all);
    }

   private:
    std::string Told() const { return name_.empty() ? "a task" : "the field " + name_; }
    std::string Below(const std::string& key) const { return name_.empty() ? key : name_ + '.' + key; }

    const Json* value_;
    std::string name_;
};

Point Point_Of(const Field& field) {
    field.List(2, 2);
    return {field[std::size_t{0}].Coordinate(), field[1].Coordinate()};
}

Area Area_Of(const Field& field) {
    field.Object({"within", "points"});
    Area area;
    if (field.Has("within") && field.Has("points")) Refuse("the field " + field.Name() + " has both within and points");
    if (field.Has("within")) {
        const Field within = field["within"].List(4, 4);
        area.is = Area::Is::kWithin;
        area.low = {within[std::size_t{0}].Coordinate(), within[1].Coordinate()};
        area.high = {within[2].Coordinate(), within[3].Coordinate()};
        if (area.low.real() > area.high.real() || area.low.imag() > area.high.imag())
            Refuse("the field " + within.Name() + " is to be left, bottom, right, top");
    }
    if (field.Has("points")) {
        const Field points = field["points"].List(1, kMostPoints);
        area.is = Area::Is::kPoints;
        for (std::size_t i = 0; i < points.Size(); ++i) area.points.push_back(Point_Of(points[i]));
    }
    return area;
}

Side Side_Of(const Field& field) {
    field.Object({"fixed", "moving"});
    Side side;
    if (field.Has("fixed")) side.fixed = Area_Of(field["fixed"]);
    if (field.Has("moving")) side.moving = Area_Of(field["moving"]);
    return side;
}

Weights Weights_Of(const Field& field) {
    field.Object({"transmission", "proportion", "room", "rounding"});
    Weights weights;
    const auto take = [&](const char* key, double& weight) {
        constexpr double kLargestWeight = 1000;
        if (field.Has(key)) weight = field[key].Number(0, kLargestWeight);
    };
    take("transmission", weights.transmission);
    take("proportion", weights.proportion);
    take("room", weights.room);
    take("rounding", weights.rounding);
    if (weights.transmission + weights.proportion + weights.room + weights.rounding > 0) return weights;
    Refuse("of the field " + field.Name() + " one weight is to be above 0");
}

std::vector<Place> Positions_Of(const Field& field) {
    field.List(kFewestPositions, kMostPositions);
    std::vector<Place> places;
    for (std::size_t i = 0; i < field.Size(); ++i) {
        const Field place = field[i].Object({"x", "y", "angle"});
        places.push_back(
            {{place["x"].Coordinate(), place["y"].Coordinate()}, place["angle"].Number(-kLargestAngle, kLargestAngle)});
    }
    return places;
}

void Take_Links(const Field& field, Task& task) {
    field.Object({"shortest", "longest"});
    if (field.Has("shortest")) task.shortest = field["shortest"].Number(0, kLargestLength);
    if (field.Has("longest")) task.longest = field["longest"].Number(0, kLargestLength);
    if (task.longest <= task.shortest) Refuse("the field links.longest is to be more than links.shortest");
}

void Take_Head(const Field& file, Task& task) {
    file["format"].One_Of({kFormat});
    if (file["version"].Number(1, 1e9) != kVersion)
        Refuse("the field version is to be 1: the task was written by a newer program");
    file["kind"].One_Of({kMotion});
    if (file.Has("title")) task.title = file["title"].Text();
    if (task.title.size() > kLongestTitle) Refuse("the field title is to have at most 200 letters");
    if (file.Has("units")) {
        const double units = file["units"].Number(1, 5);
        if (units != std::floor(units)) Refuse("the field units is to be a whole number from 1 to 5");
        task.units = static_cast<int>(units);
    }
}

Task Task_Of(const Field& file) {
    file.Object({"format", "version", "kind", "title", "units", "relative", "positions", "left", "right", "links",
                 "transmission", "drive", "full_turn", "weights", "studies"});
    constexpr double kRightAngle = 90;
    Task task;
    Take_Head(file, task);
    if (file.Has("relative")) task.relative = file["relative"].Truth();
    task.positions = Positions_Of(file["positions"]);
    if (file.Has("left")) task.left = Side_Of(file["left"]);
    if (file.Has("right")) task.right = Side_Of(file["right"]);
    if (file.Has("links")) Take_Links(file["links"], task);
    if (file.Has("transmission")) task.transmission = file["transmission"].Number(0, kRightAngle);
    if (file.Has("drive")) task.drive = static_cast<Drive>(file["drive"].One_Of({"left", "right", "either"}));
    if (file.Has("full_turn")) task.full_turn = file["full_turn"].Truth();
    if (file.Has("weights")) task.weights = Weights_Of(file["weights"]);
    return task;
}

Json Json_Of(Point point) { return {point.real(), point.imag()}; }

Json Json_Of(const Area& area) {
    Json json = Json::object();
    if (area.is == Area::Is::kWithin)
        json["within"] = {area.low.real(), area.low.imag(), area.high.real(), area.high.imag()};
    if (area.is == Area::Is::kPoints) {
        json["points"] = Json::array();
        for (const Point point : area.points) json["points"].push_back(Json_Of(point));
    }
    return json;
}

Json Json_Of(const Side& side) { return {{"fixed", Json_Of(side.fixed)}, {"moving", Json_Of(side.moving)}}; }

Json Json_Of(const Weights& weights) {
    return {{"transmission", weights.transmission},
            {"proportion", weights.proportion},
            {"room", weights.room},
            {"rounding", weights.rounding}};
}

}  // namespace

std::string Task_Text(const Task& task) {
    constexpr const char* kDrives[] = {"left", "right", "either"};
    Json file{{"format", kFormat}, {"version", kVersion}, {"kind", kMotion}};
    file["title"] = task.title;
    file["units"] = task.units;
    file["relative"] = task.relative;
    file["positions"] = Json::array();
    for (const Place& place : task.positions)
        file["positions"].push_back({{"x", place.at.real()}, {"y", place.at.imag()}, {"angle", place.angle}});
    file["left"] = Json_Of(task.left);
    file["right"] = Json_Of(task.right);
    file["links"]["shortest"] = task.shortest;
    if (std::isfinite(task.longest)) file["links"]["longest"] = task.longest;
    file["transmission"] = task.transmission;
    file["drive"] = kDrives[static_cast<int>(task.drive)];
    file["full_turn"] = task.full_turn;
    file["weights"] = Json_Of(task.weights);
    return file.dump(2, ' ', false, Json::error_handler_t::replace) + '\n';
}

bool Read_Task(const std::string& text, Task& task, std::string& fault) {
    try {
        const Json file = Json::parse(text);
        task = Task_Of({file, ""});
        return true;
    } catch (const Json::out_of_range&) {
        fault = "a number in the file is too large";
    } catch (const Json::parse_error& error) {
        fault = "the file is no JSON from its byte " + std::to_string(error.byte) + " on";
    } catch (const Fault& wrong) {
        fault = In_One_Line(wrong.words);
    }
    return false;
}

}  // namespace verlink::design
