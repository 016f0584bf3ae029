// A map file, from its first byte to the scale of the canvas and the read-out over it.
#include <cmath>
#include <cstdint>
#include <string>

#include "check.h"
#include "fakes/memory_input.h"
#include "fakes/silent_map_window.h"
#include "fakes/silent_platform.h"
#include "fakes/silent_view.h"
#include "maps/grid_overlay.h"
#include "maps/map_files.h"
#include "maps/projection.h"
#include "maps/redraw.h"

namespace {

using namespace talpena;
using talpena::fuzz::Verifie;
using talpena::fuzz::VerifieTexte;

/// The one file that there is, under every name.
class OneFile final : public FileSystem {
 public:
  std::string_view bytes;
  bool Existe(const std::string&) override { return true; }
  std::unique_ptr<InputFile> Ouvre(const std::string&) override {
    return std::make_unique<test::MemoryInput>(bytes);
  }
  std::unique_ptr<OutputFile> Cree(const std::string&) override { return nullptr; }
  void Supprime(const std::string&) override {}
  void Renomme(const std::string&, const std::string&) override {}
  void Double(const std::string&, const std::string&) override {}
  std::optional<FileStamp> Empreinte(const std::string&) override { return std::nullopt; }
};

/// Keeps a scale; a picture is any path that has a name.
class ScaledCanvas final : public Canvas {
 public:
  UserScale scale{0, 0, 800, 600};
  void ChargeImage(const std::string& path) override {
    VerifieTexte(path);
    if (path.ends_with('/')) throw TalpenaError(ErrorNumber::FileNotFound, path);
  }
  int LargeurPixels() const override { return 800; }
  int HauteurPixels() const override { return 600; }
  int LargeurTwips() const override { return 12000; }
  int HauteurTwips() const override { return 9000; }
  void ChangeEchelle(const UserScale& s) override { scale = s; }
  UserScale Echelle() const override { return scale; }
  void Cls() override {}
  void PSet(double, double) override {}
  void Line(double, double, double, double) override {}
  void Circle(double, double, double) override {}
  void Polyline(std::span<const PixelPoint>) override {}
  void Polygon(std::span<const PixelPoint>) override {}
  void SauveBmp(const std::string&) override {}
};

class Hourglass final : public test::SilentView {
 public:
  bool on = false;
  void ChangeSablier(bool hourglass) override { on = hourglass; }
};

class QuietWindow final : public test::SilentMapWindow {
 public:
  void MontrePanneau(int, const std::string& text) override { VerifieTexte(text, 64); }
};

/// What no input changes.
struct Machine {
  test::SilentPlatform silent;
  OneFile files;
  Platform io{*silent.engine,     files,       silent.settings, silent.dialogues, silent.clock,
              silent.environment, silent.sound};
  StoreState state;
  Hourglass view;
};

void VerifieEchelle(const UserScale& scale) {
  Verifie(std::isfinite(scale.left) && std::isfinite(scale.top));
  Verifie(std::isfinite(scale.width) && std::isfinite(scale.height));
  Verifie(scale.width != 0 && scale.height != 0);
}

/// The read-out in the middle of the canvas and beside it.
void Survole(MapContext c) {
  const UserScale scale = c.canvas.Echelle();
  for (const double part : {0.5, 1.2}) {
    MontrePosition(c, static_cast<float>(scale.left + part * scale.width),
                   static_cast<float>(scale.top + part * scale.height));
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static Machine machine;
  machine.files.bytes = {reinterpret_cast<const char*>(data), size};
  MapState carte;
  MapOption options;
  ScaledCanvas canvas;
  QuietWindow window;
  const MapContext context{carte,         options,    canvas,       window,
                           machine.state, machine.io, machine.view, machine.view};
  InitFacteurs(carte);
  InitUtm(carte);
  const bool whole = ChargeCarte(context, "/dev/null");
  Verifie(!machine.view.on);
  Verifie(!whole || carte.CodeProjection <= 13);
  VerifieTexte(carte.FichierPS);
  VerifieEchelle(canvas.scale);
  Survole(context);
  return 0;
}
