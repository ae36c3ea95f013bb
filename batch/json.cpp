// How columns become JSON, by nlohmann's library.
#include "batch/json.h"

#include <cstdint>
#include <nlohmann/json.hpp>

namespace verlink {

namespace {

/// Keeps the order of names, and singles as they are: a double would show digits that a single does not have.
using Tree =
    nlohmann::basic_json<nlohmann::ordered_map, std::vector, std::string, bool, std::int64_t, std::uint64_t, float>;

Tree Value(const Column& column, std::size_t row, const Column* closed) {
    if (column.where_closed && closed && closed->values[row] == 0) return nullptr;
    const auto value = static_cast<float>(column.values[row]);
    // Counts are whole numbers.
    return column.unit.empty() ? Tree(static_cast<std::int64_t>(value)) : Tree(value);
}

}  // namespace

std::string Json(const Json_Heads& heads, const std::vector<Column>& columns) {
    const Column* closed = nullptr;
    for (const Column& column : columns)
        if (column.name == "Assembled") closed = &column;
    Tree tree = Tree::object();
    for (const auto& [name, text] : heads) tree[name] = text;
    const std::size_t rows = columns.empty() ? 0 : columns.front().values.size();
    tree["rows"] = rows;
    Tree& all = tree["columns"] = Tree::array();
    for (const Column& column : columns) {
        Tree values = Tree::array();
        for (std::size_t row = 0; row < rows; ++row) values.push_back(Value(column, row, closed));
        all.push_back({{"name", column.name},
                       {"unit", column.unit.empty() ? Tree(nullptr) : Tree(column.unit)},
                       {"values", std::move(values)}});
    }
    // A title may hold bytes that are no UTF-8.
    return tree.dump(-1, ' ', false, Tree::error_handler_t::replace) + '\n';
}

}  // namespace verlink
