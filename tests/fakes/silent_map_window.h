// A map window that shows nothing, for benchmarks, fuzzing and pictures.
#pragma once
#include <functional>
#include <string>

#include "maps/map_context.h"

namespace talpena::test {

class SilentMapWindow : public MapWindow {
 public:
  void ActiveEps(bool) override {}
  void AjusteMap() override {}
  void ChangeTitre(const std::string&) override {}
  void MontrePanneau(int, const std::string&) override {}
  void MontreCanevas() override {}
  void QuandPeinte(const std::function<void()>& body) override { body(); }
};

}  // namespace talpena::test
