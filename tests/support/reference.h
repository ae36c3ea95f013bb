// The tables of tests/reference/, and the runs that they are about.
#pragma once

#include <cstdlib>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "core/parameters.h"
#include "core/runs.h"
#include "tests/support/fixture.h"

namespace verlink::test {

/// A row of a table of figures, by the names in its head.
using Row = std::map<std::string, std::string>;

inline std::vector<Row> Read_Table(const std::string& name) {
    std::ifstream file(std::string(VERLINK_TESTS) + "/reference/" + name);
    std::vector<Row> rows;
    std::vector<std::string> head;
    for (std::string line; std::getline(file, line);) {
        std::vector<std::string> cells;
        std::istringstream stream(line);
        for (std::string cell; std::getline(stream, cell, ',');) cells.push_back(cell);
        if (head.empty()) {
            head = cells;
            continue;
        }
        cells.resize(head.size());
        Row row;
        for (std::size_t i = 0; i < head.size(); ++i) row[head[i]] = cells[i];
        rows.push_back(row);
    }
    return rows;
}

inline double Number(const Row& row, const std::string& name) { return std::strtod(row.at(name).c_str(), nullptr); }

/// Makes the linkage of a row the model, and runs it.
inline void Run_Linkage(const Row& row) {
    Model.Units = static_cast<int>(Number(row, "Units"));
    Model.PolarCoords = true;
    Model.L1 = Number(row, "L1");
    Model.L2 = Number(row, "L2");
    Model.L3 = Number(row, "L3");
    Model.L4 = Number(row, "L4");
    Model.Rpa = Number(row, "Rpa");
    Model.Delta = Number(row, "Delta");
    Set_Delta(Model.Delta, Model.DeltaRad, Model.DeltaStr);
    Model.Link1Angle = Number(row, "Link1Angle");
    Model.CircuitIndex = static_cast<int>(Number(row, "Circuit"));
    Model.ModuloMode = row.at("ModuloMode");
    Model.Calctype = static_cast<int>(Number(row, "Calctype"));
    Model.ThetaZero = Number(row, "ThetaZero");
    Model.Omega2Input = Number(row, "Omega2");
    Model.Alpha2 = Number(row, "Alpha2");
    Model.TimeStart = Model.ThetaStart = Number(row, "First");
    Model.TimeEnd = Model.ThetaEnd = Number(row, "Last");
    Model.TimeStep = Model.ThetaStep = Number(row, "Increment");
    Model.ThetaStartRad = Model.ThetaStart * kDegToRad;
    Model.ThetaEndRad = Model.ThetaEnd * kDegToRad;
    Model.ThetaStepRad = Model.ThetaStep * kDegToRad;
    if (Model.ThetaStep > 0) Model.NSteps = Steps_Of(Model.ThetaStart, Model.ThetaEnd, Model.ThetaStep);
    Derive_Linkage(Leading::kInForce);
    Integer result;
    Calc_Setup(Model.Calctype, result);
}

}  // namespace verlink::test
