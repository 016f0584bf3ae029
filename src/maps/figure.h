// The figure of the earth of the vector maps, and the constants as these projections use them: not
// the full digits of pi, so that a click inverts a drawn point with the same rounding.
#pragma once

namespace talpena::Figure {

inline constexpr double A = 6378388.0;           ///< semi-major axis of the International ellipsoid
inline constexpr double B = 6356911.9461279465;  ///< semi-minor axis
inline constexpr double E2 = (A * A - B * B) / (A * A);

inline constexpr double Pi = 3.1415926535;
inline constexpr double PiSur2 = 1.57079632675;
inline constexpr double PiSur4 = 0.785398163375;
inline constexpr double TroisPiSur2 = 4.71238898025;
inline constexpr double DeuxPi = 6.283185307;

}  // namespace talpena::Figure
