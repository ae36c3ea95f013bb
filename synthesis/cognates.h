// The two other linkages that trace the same coupler curve (Roberts and Chebyschev), and Cayley's diagram of all.
#pragma once

#include <array>
#include <complex>

#include "core/number.h"
#include "core/record/synthesis.h"
#include "platform/screen.h"
#include "platform/surface.h"

namespace verlink {

/// The record's linkage becomes cognate 1, and the other two are computed. Checks entry 1 of `mnu_Cog` on the home and
/// input screens.
void SeedCognate();

/// `SeedCognate` if another linkage has come in since. Whoever reads the tables of cognates asks for this first.
void Find_Cognates();

/// The menus' marks at `CognateNumber`.
void Check_Cognates();

/// Rows 2 and 3 of both tables from row 1 of `cognates`.
void Cayley(CognateTable& cognates, CognateTable& rows);

/// Row n to the fields given; also the record's ground pivot, in the direction of its ground link, and `Delta` and
/// `DeltaStr`.
void GetCognates(const CognateTable& cognates, Integer n, Single& L2, Single& L3, Single& L4, Single& L1, Single& Rpa,
                 Single& DeltaRad);

/// What every switch to cognate n does, before a screen goes its own way: the menus' checks, `CognateNumber`, the
/// linkage through its door, with the direction of the ground link, the home screen's status and menus. The caller has
/// refused parallelograms.
void Switch_Cognate(Integer n);

/// True, after saying why, when the first linkage is a parallelogram, which has no use for cognates.
bool Refuse_Parallelogram();

/// The points of Cayley's diagram, with O2 at the origin and the ground line of cognate 1, drawn out straight, along x;
/// stored lengths.
struct Cayley_Layout {
    std::complex<double> O2, O4, O6, P;
    std::complex<double> A, B;    ///< moving joints of cognate 1, from O2
    std::complex<double> A2, B2;  ///< of cognate 2, from O2
    std::complex<double> A3, B3;  ///< of cognate 3, from O4
};
Cayley_Layout Cayley_Laid_Out(const CognateTable& rows);

/// All three cognates on `Picture1` of `frm_Cayley`, from `CayleyRows`.
void DrawCayley();

/// Where the diagram has O2, O4, O6 and the coupler point, in that order, in world coordinates of its surface.
std::array<std::complex<double>, 4> Cayley_Corners();

}  // namespace verlink
