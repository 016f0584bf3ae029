// The map on show as an encapsulated PostScript file.
#pragma once
#include <string>
#include <string_view>

#include "maps/map_context.h"
#include "platform/files.h"

namespace talpena {

/// The output channel: lines in code page 1252, ended by CR LF, gathered in blocks.
class EpsOutput {
 public:
  explicit EpsOutput(OutputFile& file) : file_(file) {}
  EpsOutput(const EpsOutput&) = delete;
  EpsOutput& operator=(const EpsOutput&) = delete;
  void Ligne(std::string_view utf8);
  void LigneBrute(std::string_view bytes);  ///< as they stand, but for the line end
  void Vide();                              ///< hands what was gathered to the file

 private:
  OutputFile& file_;
  std::string waiting_;
};

/// Save dialog, then FaitEPS. A failure is shown, a cancelled dialog is not.
void Imprime(MapContext c, int mode);

/// Writes the file, and tells so; mode 1 is colour. A failure is thrown on: the file stays, as far
/// as it came.
void FaitEPS(MapContext c, const std::string& file, int mode);

/// What stands ahead of the map's drawing: the prologue beside the map, its placeholders filled in,
/// and the definitions of the frame; `file` is the path of the output. Computes the frame.
void EcritPrologue(MapContext c, EpsOutput& eps, const std::string& file);

/// Copies a text file line by line. Lines may end with CR LF, CR or LF.
void Recopie(Platform& io, const std::string& path, EpsOutput& eps);

/// Each of 68 characters as a backslash and three octal digits of its code in ISO Latin-1; "|" as
/// the broken bar.
void ChangeAccents(std::string& text);
void ModifieCar(std::string& text, std::string_view what, std::string_view by);

/// Left and top of the frame on the page, points.
inline constexpr double PageGauche = 50;
inline constexpr double PageHaut = 800;

/// The size of the map on the page, whole points: the longer side has 500. DivisionByZero (11) for
/// a map without extent.
void CalculeCadreEPS(MapState& carte);

/// Radius on the page, in points, of a symbol whose diameter is in user units.
float RayonSurPage(const MapState& carte, float diameter);

/// Place of a projected point on the page, in points; behind CalculeCadreEPS. What a float cannot
/// hold comes out as HORS_CARTE, plus or minus.
struct PagePoint {
  float x = 0;
  float y = 0;
};
PagePoint SurPage(const MapState& carte, float X, float Y);

}  // namespace talpena
