// Where the lines of a .deg file go, and who decides about what stands in doubt.
#pragma once
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "common/talpena_error.h"

namespace talpena {

class DegSink {
 public:
  virtual ~DegSink() = default;
  virtual void Ecrit(std::string_view bytes) = 0;
  /// Something cannot be written as it is. What returns goes on behind it; what throws ends the
  /// writing.
  virtual void Doute(const TalpenaError& doubt) = 0;
  /// The same for a statement without which there is nothing behind it: it is tried again.
  virtual void Insiste(const TalpenaError& failure) { Doute(failure); }
  virtual void Avance(int percent) { static_cast<void>(percent); }

  /// Runs one statement. False when it failed and the writing goes on behind it.
  template <typename Statement>
  bool Tente(Statement&& statement) {
    try {
      std::forward<Statement>(statement)();
      return true;
    } catch (const TalpenaError& failure) {
      Doute(failure);
      return false;
    }
  }

  /// Runs a statement until it works.
  template <typename Statement>
  void TenteJusquaReussite(Statement&& statement) {
    for (;;) {
      try {
        return statement();
      } catch (const TalpenaError& failure) {
        Insiste(failure);
      }
    }
  }
};

/// A file in memory, and what was doubted on the way.
class DegBytes final : public DegSink {
 public:
  std::string octets;
  std::vector<TalpenaError> doutes;

  void Ecrit(std::string_view bytes) override { octets += bytes; }
  void Doute(const TalpenaError& doubt) override { doutes.push_back(doubt); }
  void Insiste(const TalpenaError& failure) override { throw failure; }
};

}  // namespace talpena
