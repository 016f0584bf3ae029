// Snapping a point to the centre of its grid cell. Pure: numbers and texts in and out.
#pragma once
#include <cstdint>
#include <string>

namespace talpena {

/// The mesh of an axis that means "leave it as it is".
inline constexpr double SansMaille = 999;

/// Centre of the cell that a value lies in, cells counted from 0 and downwards on the negative
/// side: with a mesh of 0.5, -0.1 becomes -0.25. SansMaille gives the value back. A mesh of 0
/// raises DivisionByZero (11).
double CentreDeMaille(double value, double mesh);

/// Centre of the cell of 0.2 by 0.4 Paris grades. A latitude cell starts on a multiple of 0.2, a
/// longitude cell is centred on a multiple of 0.4. Decimal degrees in and out.
void CentreEnGrades(double& latitude, double& longitude);

/// Snaps a grid reference, two letters and up to ten digits, to a metric mesh: MailleChoisie 1 to
/// 7 for 100 m, 1, 5, 10, 20, 50 and 100 km. The reference is completed first; false, with the
/// reference as it was, when it cannot be brought to ten digits. Any other mesh only completes.
bool AjusteGrille(std::string& reference, std::int16_t maille);

/// A coordinate as it is stored: what "+##.#####;-##.#####" writes, read back, that is rounded to
/// five decimals, halves away from zero.
double CinqDecimales(double value);

}  // namespace talpena
