// A canvas that lists its calls instead of drawing.
#pragma once
#include <cstdint>
#include <map>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "common/talpena_error.h"
#include "platform/canvas.h"

namespace talpena::test {

/// One call that draws, with the attributes it drew by.
struct CanvasCall {
  std::string name;             ///< "PSet", "Line", "Circle", "Polyline", "Polygon", "Cls", ...
  std::vector<double> numbers;  ///< coordinates in user units; the radius last
  std::vector<PixelPoint> points;
  DrawAttributes attributs;
  std::string text;  ///< path of a picture
};

/// Pictures exist by name in `images`; any other raises FileNotFound (53). A picture that shall be
/// broken has the size 0 x 0: PathFileAccess (75).
class FakeCanvas : public Canvas {
 public:
  struct Size {
    int width = 0, height = 0;
  };
  std::vector<CanvasCall> calls;
  std::map<std::string, Size> images;
  Size pixels{800, 600};
  UserScale echelle{0, 0, 800, 600};
  int twipsPerPixel = 15;

  void ChargeImage(const std::string& path) override {
    Note("ChargeImage", {}, path);
    const auto image = images.find(path);
    if (image == images.end())
      throw TalpenaError(ErrorNumber::FileNotFound, "File not found: '" + path + "'");
    if (image->second.width == 0)
      throw TalpenaError(ErrorNumber::PathFileAccess, "Path/File access error: '" + path + "'");
    pixels = image->second;
  }
  int LargeurPixels() const override { return pixels.width; }
  int HauteurPixels() const override { return pixels.height; }
  int LargeurTwips() const override { return pixels.width * twipsPerPixel; }
  int HauteurTwips() const override { return pixels.height * twipsPerPixel; }

  void ChangeEchelle(const UserScale& scale) override {
    echelle = scale;
    Note("ChangeEchelle", {scale.left, scale.top, scale.width, scale.height});
  }
  UserScale Echelle() const override { return echelle; }

  void Cls() override { Note("Cls", std::vector<double>{}); }
  void PSet(double x, double y) override { Note("PSet", {x, y}); }
  void Line(double x1, double y1, double x2, double y2) override { Note("Line", {x1, y1, x2, y2}); }
  void Circle(double x, double y, double radius) override { Note("Circle", {x, y, radius}); }
  void Polyline(std::span<const PixelPoint> points) override { Note("Polyline", points); }
  void Polygon(std::span<const PixelPoint> points) override { Note("Polygon", points); }
  void SauveBmp(const std::string& path) override { Note("SauveBmp", {}, path); }

  /// The calls of one name, in their order.
  std::vector<CanvasCall> Appels(const std::string& name) const {
    std::vector<CanvasCall> found;
    for (const CanvasCall& call : calls) {
      if (call.name == name) found.push_back(call);
    }
    return found;
  }
  std::vector<std::string> Noms() const {
    std::vector<std::string> names;
    names.reserve(calls.size());
    for (const CanvasCall& call : calls) names.push_back(call.name);
    return names;
  }

 private:
  void Note(const char* name, std::vector<double> numbers, const std::string& text = {}) {
    calls.push_back({name, std::move(numbers), {}, Attributs, text});
  }
  void Note(const char* name, std::span<const PixelPoint> points) {
    calls.push_back({name, {}, {points.begin(), points.end()}, Attributs, {}});
  }
};

}  // namespace talpena::test
