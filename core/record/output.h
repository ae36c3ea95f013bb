// How plots, tables and the transform are set up, and the transform itself.
#pragma once

#include <string>

#include "core/array.h"
#include "core/number.h"

namespace verlink {

/// How plots and tables are made of the chosen functions.
struct OutputSettings {
    Integer PlotStyle;                 ///< 1 single window, 2 two windows, 3 four windows, 4 polar, 5 transform
    Integer PlotLayout;                ///< 1 aligned, 2 annotated
    Integer GraphWindows;              ///< 1, 2 or 4
    Single PlotYmax;                   ///< half height of the present plot
    Single PlotMid;                    ///< top + bottom of its window
    bool WindowFailed = false;         ///< the window could not be set; nothing is drawn
    Integer ReplotDelay;               ///< whole seconds before a first drawing
    StepArray<Single> PolarX, PolarY;  ///< vector tips of the present polar plot
    bool PolarVectors = false, PolarEnvelope = false;
    Integer PolarMode = 1;  ///< 1 envelope, 2 vectors, 3 both
    Integer DecimalPlaces;
    Integer OutputTarget;        ///< 0 screen, 1 printer, 2 disk file
    Integer GridRows, GridCols;  ///< size of the grid at the last fill
};

/// The last discrete Fourier transform; rows 0 real, 1 imaginary, 2 magnitude, 3 phase in degrees.
struct Transform {
    StepArray<double, 4> DFTTable;  ///< work area
    StepArray<Single, 4> FFTResult;
    Integer Harmonics = 15;  ///< harmonics shown; the last index of a transform
    Integer HalfSamples;
    Single DFTSmall;            ///< running sums below it are cut to 0
    std::string FFTUnitLabel;   ///< unit of the transformed variable
    bool FFTSelecting = false;  ///< the transform screen is up
};

}  // namespace verlink
