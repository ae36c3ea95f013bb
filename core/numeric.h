// Helper functions of the calculations, with the program's own behaviour at the end points.
#pragma once

#include <functional>
#include <span>
#include <string>

#include "core/number.h"

namespace verlink {

/// Arc cosine in radians. With t = 1 - x^2 rounded to single: 0 with `MathDomainError` set when t is below 0; 1, at
/// either end, when t is 0; else pi/2 - atan(x / sqrt(t)).
double FNArcCos(Single x);
/// Arc sine in radians; the same, with 0 at either end.
double FNArcSin(Single x);

/// Direction of (x, y) in radians, -pi/2 to 3 pi/2; 0 at the origin.
double Atan2(Single x, Single y);
/// The same in degrees.
double Atan2D(Single x, Single y);

/// Length and direction of (x, y); the angle in degrees, -90 to 270.
void Cart_to_Polar(Single x, Single y, Single& magnitude, Single& angle);

/// (x, y) turned by sign times angle, degrees.
void Rotate(Single x, Single y, Single angle, Integer sign, Single& xr, Single& yr);

/// The side opposite the included angle C, radians, of sides a and b; a message, and `side` as it was, when the
/// square is below 0.
void CosineLaw_Angle(Single a, Single b, Single C, Single& side);
/// The angle opposite side b, radians, from side a and its angle A; a message, and B as it was, when sin A or a is 0.
void LawofSines(Single a, Single b, Single A, Single& B);

/// One correction by m, no true remainder: x when x <= m, else x - m for positive x and x + m otherwise.
void Modulo(Single x, Single m, Single& r);

/// Solves A x = B by Gaussian elimination with partial pivoting on the rows; x replaces B, A is destroyed. A holds
/// N x N numbers row by row, B holds N; the messages count rows from 1. Flag is 0 when done, or the column whose
/// pivots are all 0, with a message. A zero last pivot skips its division in silence.
void SimQ(Integer& N, std::span<double> A, std::span<double> B, Integer& Flag);

/// Floor of value + 1/2 in the last decimal; decimals 0 to 5, any other acts as 6.
double FNRound(double value, int decimals);
/// The value by a pattern: below 0 "0.00E+#", 0 "#,###,###,##0.", 1 to 4 so many decimals, from 5 up
/// "#,###,###,##0.000 000".
std::string FNRoundStr(double value, int decimals);

/// An element of an array by its subscript, for the reductions below.
using Element = std::function<Single(int)>;
using Element2 = std::function<Single(int, int)>;

/// Largest and smallest element from First to Last.
void MaxMin1(const Element& Arr, int First, int Last, Single& MaxVal, Single& MinVal);
/// The same over Arr(Row, i); the index of an extreme is written only when it is not at First.
void MaxMin2(const Element2& Arr, int Row, int First, int Last, Single& MaxVal, Single& MinVal, Integer& MaxIndex,
             Integer& MinIndex);
/// Mean of Arr(i, K) for Order "I_Pointer", of Arr(K, i) for "Pointer_I"; nothing is summed for any other.
void Average2(int First, int Last, const Element2& Arr, const std::string& Order, int K, Single& Result);
/// The largest magnitude in either array.
void GlobalMax(const Element& ArrA, const Element& ArrB, int First, int Last, Single& Result);
/// Root mean square by the trapezoid rule, divided by the count of points; the element itself when Last is 0.
void Rms2(int First, int Last, const Element2& Arr, int Col, Single& Result);

/// Intersection of the line through points 1 and 2 with that through 3 and 4. A vertical line counts with slope
/// 1000000; Flag is 1 with a Message for vertical or parallel lines, and (X, Y) is (0, 0) for parallel ones.
void Line_Intersect(Single x1, Single y1, Single x2, Single y2, Single x3, Single y3, Single x4, Single y4, Single& X,
                    Single& Y, Integer& Flag, std::string& Message);

/// The file's name without folder and three-letter extension; folders end at a backslash or at the platform's own
/// separator. Empty when the fourth character from the end is no point.
std::string StripFilename(const std::string& Path);

}  // namespace verlink
