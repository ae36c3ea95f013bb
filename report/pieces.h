// What the chapters are made of; each says what the screens say, in the same words and numbers.
#pragma once

#include <string>
#include <vector>

#include "core/linkage_model.h"
#include "output/series.h"
#include "report/report.h"

namespace verlink::report {

using Pieces = std::vector<Report_Piece>;
using Row = std::vector<std::string>;

/// A stored length and an angle in degrees, as the input screen shows them.
std::string Length_Text(const LinkageModel& model, Single stored);
std::string Angle_Text(Single degrees);

inline constexpr char kDegrees[] = "deg";  ///< as tables have it

Pieces Model_Pieces(const LinkageModel& model);
Pieces Class_Pieces(const LinkageModel& model);
Pieces Balance_Pieces(const LinkageModel& model);
Pieces Flywheel_Pieces(const LinkageModel& model);
Pieces Cognate_Pieces(const LinkageModel& model);
/// Each with its verdict, and in a sentence what those mean that are not good.
Pieces Check_Pieces(const LinkageModel& model);
/// With the diagram of the dyads, drawn with the record in force.
Pieces Synthesis_Pieces(const LinkageModel& model);

/// Least, mean and largest value of functions over the positions that close, and where they are: rounded as in the
/// windows of plots.
Report_Table Extremes(const LinkageModel& model, const std::vector<Output_Function>& functions);
/// A graph of one function over the run.
Report_Picture Plot_Of(const LinkageModel& model, const Output_Function& function);
/// What of these the run has.
std::vector<Output_Function> There(const LinkageModel& model, const std::vector<Output_Function>& functions);
/// All functions of the last solve for forces: of vectors the magnitude.
std::vector<Output_Function> Functions_Of(Needs needs);

/// How large a drawing stands on paper: millimetres for each of the model's.
struct Drawing_Scale {
    double factor = 1;
    std::string words;  ///< "1 : 2"
};
/// The largest of 1, 2 and 5 times a power of ten, up or down, by which `extent`, millimetres, is no more than `room`.
Drawing_Scale Scale_For(double extent, double room);
/// In one of the lengths that the model shows.
double Millimetres(const UnitSystem& units);

/// The linkage at its first position that closes with its coupler curve, to scale; drawn with the record in force.
Report_Picture Drawing_Of(LinkageModel& model);

}  // namespace verlink::report
