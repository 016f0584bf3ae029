// The map's window as what it was told last.
#pragma once
#include <array>
#include <string>

#include "maps/map_context.h"

namespace talpena::test {

class FakeMapWindow : public MapWindow {
 public:
  bool sablier = false;
  bool eps = false;
  int ajustements = 0;
  int montres = 0;  ///< how often the canvas was brought to view
  std::string titre;
  std::array<std::string, 3> panneaux;
  std::string signature;

  void ChangeSablier(bool hourglass) override { sablier = hourglass; }
  void ActiveEps(bool enabled) override { eps = enabled; }
  void AjusteMap() override { ++ajustements; }
  void ChangeTitre(const std::string& text) override { titre = text; }
  void MontrePanneau(int panel, const std::string& text) override {
    panneaux.at(static_cast<std::size_t>(panel) - 1) = text;
  }
  void MontreCanevas() override { ++montres; }
  std::string Signature() const override { return signature; }
};

}  // namespace talpena::test
