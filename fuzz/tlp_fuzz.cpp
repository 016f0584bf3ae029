// A line layer on a map of any code. The first input byte gives the code, the second the size of
// the blocks in which the file is read.
#include <cstdint>
#include <cstdlib>

#include "check.h"
#include "fakes/memory_input.h"
#include "maps/canvas_sink.h"
#include "maps/layer_plot.h"
#include "maps/projection.h"

namespace {

using namespace talpena;
using talpena::fuzz::Verifie;

/// Takes shapes and looks whether their coordinates are within what a canvas can take.
class CountingCanvas final : public Canvas {
 public:
  std::size_t points = 0;

  void ChargeImage(const std::string&) override {}
  int LargeurPixels() const override { return 800; }
  int HauteurPixels() const override { return 600; }
  int LargeurTwips() const override { return 12000; }
  int HauteurTwips() const override { return 9000; }
  void ChangeEchelle(const UserScale&) override {}
  UserScale Echelle() const override { return {-20000, 10000, 40000, -20000}; }
  void Cls() override {}
  void PSet(double, double) override {}
  void Line(double, double, double, double) override {}
  void Circle(double, double, double) override {}
  void Polyline(std::span<const PixelPoint> shape) override { Compte(shape); }
  void Polygon(std::span<const PixelPoint> shape) override { Compte(shape); }
  void SauveBmp(const std::string&) override {}

 private:
  void Compte(std::span<const PixelPoint> shape) {
    Verifie(shape.size() > 1);
    points += shape.size();
    for (const PixelPoint p : shape) {
      Verifie(std::abs(p.x) <= 1 << 30 && std::abs(p.y) <= 1 << 30);
    }
  }
};

MapState Carte(int code) {
  MapState carte;
  carte.CodeProjection = static_cast<std::int16_t>(code);
  carte.LatNord = 89, carte.LatSud = -89, carte.LonEst = 180, carte.LonOuest = -180;
  carte.Parallele1 = 40, carte.Parallele2 = 60, carte.ParallelePrincipal = 45;
  carte.MeridienCentralDeg = 10;
  InitFacteurs(carte);
  InitProjection(carte);
  return carte;
}

void Dessine(std::string_view bytes, int code, std::size_t block) {
  MapState carte = Carte(code);
  CountingCanvas canvas;
  CanvasSink surface(canvas, carte.polygone);
  LayerPlot plot(carte, surface);
  LayerFile file(std::make_unique<test::MemoryInput>(bytes, block));
  std::size_t records = 0, points = 0;
  for (LayerRecord record; file.Suivant(record);) {
    ++records;
    if (!plot.Garde(record)) continue;
    for (auto some = file.Points(); !some.empty(); some = file.Points()) {
      points += some.size();
      plot.Trace(record, some);
    }
  }
  Verifie(records * 61 <= bytes.size());
  Verifie(points * 11 <= bytes.size() + 1);
  Verifie(canvas.points <= points);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 2) return 0;
  Dessine({reinterpret_cast<const char*>(data) + 2, size - 2}, data[0] % 15,
          std::size_t{1} << (data[1] % 13));
  return 0;
}
