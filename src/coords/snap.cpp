#include "coords/snap.h"

#include <algorithm>
#include <cmath>
#include <string_view>

#include "common/numbers.h"
#include "coords/faults.h"
#include "coords/lambert.h"
#include "coords/tokens.h"

namespace talpena {
namespace {

/// Five digits of one axis, snapped.
std::string Axe(std::string_view digits, std::int16_t maille) {
  const auto head = [digits](std::size_t count) { return std::string(digits.substr(0, count)); };
  switch (maille) {
    case 1:
      return head(3) + "49";
    case 2:
      return head(2) + "499";
    case 3:
      return head(1) + (digits[1] < '5' ? "2555" : "7555");
    case 4:
      return head(1) + "4999";
    case 5: {  // an odd digit and four zeros: the middle of 20 km
      const int tenKm = digits[0] - '0';
      return std::to_string(2 * (tenKm / 2) + 1) + "0000";
    }
    case 6:
      return digits[0] < '5' ? "25555" : "75555";
    case 7:
      return "49999";
    default:
      return std::string(digits);
  }
}

}  // namespace

double CentreDeMaille(double value, double mesh) {
  if (mesh == SansMaille) return value;
  return Fini(Int(Divise(value, mesh)) * mesh + mesh / 2);
}

void CentreEnGrades(double& latitude, double& longitude) {
  double g = 0, h = 0;
  LatLonVersGradesParis(latitude, longitude, g, h);
  latitude = (Int(g / 0.2) * 0.2 + 0.1) * 0.9;
  longitude = Int((h + 0.2) / 0.4) * 0.4 * 0.9 + MeridienParis;
}

bool AjusteGrille(std::string& reference, std::int16_t maille) {
  constexpr std::size_t prefix = 2, axis = 5;
  std::string complete = reference;
  CompleteGrille(complete);
  if (complete.size() != prefix + 2 * axis) return false;
  const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
  if (!std::all_of(complete.begin() + prefix, complete.end(), isDigit)) return false;
  const std::string_view whole = complete;
  reference = complete.substr(0, prefix) + Axe(whole.substr(prefix, axis), maille) +
              Axe(whole.substr(prefix + axis, axis), maille);
  return true;
}

// The mask rounds the exact decimal value; away from its halves a product tells it as well.
double CinqDecimales(double value) {
  const double scaled = std::fabs(value) * 1e5;
  const double below = std::floor(scaled);
  constexpr double doubtful = 1e-4, largest = 1e10;
  if (!(scaled < largest) || std::fabs(scaled - below - 0.5) < doubtful) {
    return Val(Format(value, "+##.#####;-##.#####"));
  }
  return std::copysign((scaled - below > 0.5 ? below + 1 : below) / 1e5, value) + 0.0;
}

}  // namespace talpena
