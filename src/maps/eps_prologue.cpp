// The head of an EPS file: the prologue that lies beside the map, and the frame of the page.
#include <string>

#include "common/free_decimal.h"
#include "common/numbers.h"
#include "common/paths.h"
#include "common/text.h"
#include "maps/eps.h"
#include "platform/deg_lines.h"

namespace talpena {
namespace {

constexpr double PageCentre = 297;
constexpr double Margin = 5;  ///< of the box, left and right of the frame

/// A number as a print statement writes it.
std::string Element(double value) { return FormeLibre(value) + " "; }

/// The frame on the page, as computed for this export.
struct Cadre {
  double w, h, right, below;

  explicit Cadre(const MapState& carte)
      : w(carte.CadreEPS[0]),
        h(carte.CadreEPS[1]),
        right(carte.CadreEPS[2]),
        below(carte.CadreEPS[3]) {}

  /// Moves the frame to the middle of the page.
  double Decalage() const { return PageCentre - w / 2 - PageGauche; }
};

std::string LigneBoite(const Cadre& cadre) {
  return "%%BoundingBox: " + Element(cadre.Decalage() + PageGauche - Margin) + " " +
         Element(cadre.below) + " " + Element(cadre.Decalage() + cadre.right + Margin) + " " +
         Element(PageHaut);
}

std::string LigneDate(Clock& clock) {
  const CalendarDate today = clock.DateCourante();
  return "%%CreationDate: " + Format(today.month, "00") + "-" + Format(today.day, "00") + "-" +
         Format(today.year, "0000");
}

/// The title is for people to read: what the code page lacks in a path does not stop the export.
std::string LigneTitre(const std::string& file) {
  return "%%Title: TLP - " + Utf8VersCp1252AvecManques(file);
}

DegLines OuvreTexte(Platform& io, const std::string& path) {
  DegLines lines(io.files.Ouvre(RendNatif(path)), DegLines::LineEnd::CrOrLf);
  lines.Limite(MaxRowLine);
  return lines;
}

void CopiePrologue(MapContext c, EpsOutput& eps, const std::string& file) {
  DegLines lines = OuvreTexte(c.io, AvecSeparateur(c.carte.DossierCarte) + "proltlp.ps");
  for (std::string_view line; lines.Lit(line);) {
    const std::string upper = Majuscules(line);
    const auto holds = [&](const char* what) { return upper.find(what) != std::string::npos; };
    if (holds("%%BOUNDINGBOX")) {
      eps.Ligne(LigneBoite(Cadre(c.carte)));
    } else if (holds("%%TITLE")) {
      eps.LigneBrute(LigneTitre(file));
    } else if (holds("%%CREATIONDATE")) {
      eps.Ligne(LigneDate(c.io.clock));
    } else {
      eps.LigneBrute(line);
    }
  }
}

void EcritCadre(const Cadre& cadre, EpsOutput& eps) {
  eps.Ligne("/Lx {50} bind def");
  eps.Ligne("/Uy {800} bind def");
  eps.Ligne("/Ux {" + Element(cadre.w) + " 50 add} bind def");
  eps.Ligne("/Ly {800" + Element(cadre.h) + "sub} bind def");
  eps.Ligne(FormeLibre(cadre.Decalage()) + " 0  translate");
  eps.Ligne("/Cadre {Lx Ly m Lx Uy l Ux Uy l Ux Ly l c clip clippath 0 setgray ec sl s} bind def");
  eps.Ligne("gsave");
  eps.Ligne("Cadre");
  eps.Ligne("/es {" + FormeLibre(0.0F) + "} def");
}

}  // namespace

void EcritPrologue(MapContext c, EpsOutput& eps, const std::string& file) {
  CalculeCadreEPS(c.carte);
  CopiePrologue(c, eps, file);
  EcritCadre(Cadre(c.carte), eps);
}

void Recopie(Platform& io, const std::string& path, EpsOutput& eps) {
  DegLines lines = OuvreTexte(io, path);
  for (std::string_view line; lines.Lit(line);) eps.LigneBrute(line);
}

}  // namespace talpena
