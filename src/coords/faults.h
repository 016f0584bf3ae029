// Faults of arithmetic, raised where they arise: no infinity and no NaN leaves a conversion.
#pragma once
#include <cmath>

#include "common/talpena_error.h"

namespace talpena {

/// The value itself; Overflow (6) when it is infinite or not a number.
inline double Fini(double value) {
  if (!std::isfinite(value)) throw TalpenaError(ErrorNumber::Overflow, "Overflow");
  return value;
}

/// A quotient; DivisionByZero (11) when the divisor is 0.
inline double Divise(double dividend, double divisor) {
  if (divisor == 0) throw TalpenaError(ErrorNumber::DivisionByZero, "Division by zero");
  return dividend / divisor;
}

/// The value itself when a root or a logarithm of it exists; else InvalidCall (5).
inline double Positif(double value) {
  if (value < 0) throw TalpenaError(ErrorNumber::InvalidCall, "Invalid procedure call or argument");
  return value;
}

}  // namespace talpena
