// A program without windows that shows a map: an open table, a recording canvas and map window.
#pragma once
#include <algorithm>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "fakes/fake_canvas.h"
#include "maps/map_context.h"
#include "maps/projection.h"
#include "store/world.h"

namespace talpena::test {

/// The map's window as a list of what it was told.
class FakeMapWindow : public MapWindow {
 public:
  std::vector<std::string> calls;
  std::string titre;
  std::string signature;
  std::map<int, std::string> panneaux;  ///< of the status bar
  bool eps = true;                      ///< the button "eps" is enabled
  int ajustements = 0;                  ///< how often the window was fitted
  std::function<void()> avantLignes;    ///< it has to be on the screen

  int Compte(const std::string& call) const {
    return static_cast<int>(std::count(calls.begin(), calls.end(), call));
  }
  void ActiveEps(bool enabled) override { eps = enabled; }
  void AjusteMap() override { ++ajustements; }
  void ChangeTitre(const std::string& text) override { titre = text; }
  void MontrePanneau(int panel, const std::string& text) override { panneaux[panel] = text; }
  void MontreCanevas() override { calls.emplace_back("MontreCanevas"); }
  void QuandPeinte(const std::function<void()>& body) override {
    if (avantLignes) avantLignes();
    body();
  }
  std::string Signature() const override { return signature; }
};

struct MapWorld : World {
  MapState carte;
  MapOption options;
  FakeCanvas canvas;
  FakeMapWindow fenetre;

  MapContext Contexte() { return {carte, options, canvas, fenetre, state, io, vue, vue}; }

  /// A map in plate carrée between these limits.
  void OuvrePlate(float south, float west, float north, float east) {
    OuvreCode(5, south, west, north, east);
  }
  void OuvreCode(std::int16_t code, float south, float west, float north, float east) {
    carte.CodeProjection = code;
    carte.LatSud = south;
    carte.LatNord = north;
    carte.LonOuest = west;
    carte.LonEst = east;
    InitProjection(carte);
    InitBoite(carte);
    carte.DossierCarte = "/carto/";
    carte.FichierPS = "/carto/map.ps";
  }

  /// Puts rows into the table and binds it; empty coordinates are Null.
  struct Row {
    std::optional<double> latitude, longitude;
  };
  void Remplit(const std::vector<Row>& rows) {
    const auto table = state.document.WorkingDb->OpenRecordset("TALPENA");
    for (const Row& row : rows) {
      table->AddNew();
      if (row.latitude) table->Set(Column::LATITUDE, Cell::Of(*row.latitude));
      if (row.longitude) table->Set(Column::LONGITUDE, Cell::Of(*row.longitude));
      table->Update();
    }
    Ordonne(state.document.SqlCourant());
  }
  void Ordonne(const std::string& sql) { MontreSelect(state.document, sql); }

  /// The circles on the canvas as "x y radius", rounded to a metre.
  std::vector<std::string> Cercles() const {
    std::vector<std::string> circles;
    for (const CanvasCall& call : canvas.Appels("Circle")) {
      std::string text;
      for (const double number : call.numbers) {
        text += (text.empty() ? "" : " ") + Format(number, "0.000");
      }
      circles.push_back(text);
    }
    return circles;
  }
};

}  // namespace talpena::test
