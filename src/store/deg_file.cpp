#include "store/deg_file.h"

#include <array>
#include <utility>

#include "common/talpena_error.h"
#include "store/deg_header.h"
#include "store/deg_line_writer.h"
#include "store/period_line.h"

namespace talpena {
namespace {

/// A text in code page 1252; characters that it lacks are doubted, and "?" stands for them.
std::string Encode(const std::string& what, const std::string& text, DegSink& sink) {
  std::string bytes;
  const std::string absent = AjouteCp1252(bytes, text);
  if (!absent.empty()) {
    sink.Doute(TalpenaError(ErrorNumber::NotInCodePage,
                            what + ": the character " + absent + " is not in code page 1252."));
  }
  return bytes;
}

void LitToutesLesLignes(DegFileRows& rows, DegContents& contents) {
  std::array<Cell, DegFileRows::Columns.size()> cells;
  try {
    while (rows.Suivante(cells)) contents.lignes.push_back(rows.Ligne());
  } catch (const TalpenaError& e) {
    contents.faute = {rows.LigneEnMain(), e.number(), e.description()};
  }
}

}  // namespace

DegFileReader::DegFileReader(std::unique_ptr<InputFile> file, DegLines::LineEnd end)
    : lines_(std::move(file), end), first_(LitTexte(lines_)), form2_(talpena::EstForme2(first_)) {}

DegFileReader::Behind DegFileReader::LitSuite() {
  Behind behind;
  behind.comment = LitTexte(lines_);
  behind.periods = lines_.LitObligatoire();
  return behind;
}

void DegFileReader::LitEnTete(DistributionHeader& entete, const DatumCatalogue& catalogue) {
  if (form2_) {
    talpena::LitEnTete(entete, catalogue, lines_);
  } else {
    entete.TitreFichier = first_;
  }
  const Behind behind = LitSuite();
  LitPivots(entete, behind.periods);
  lines_.LitObligatoire();  // statistics
  lines_.LitObligatoire();  // second copy of the comment
  entete.BoxTitre = entete.TitreFichier;
  entete.Commentaire = behind.comment;
}

void DegFileReader::LitEnTeteFusion(DistributionHeader& entete) {
  if (form2_) {
    talpena::LitEnTeteFusion(entete, lines_);
  } else {
    entete.TitreFichier = first_;
  }
  const Behind behind = LitSuite();
  lines_.LitObligatoire();  // statistics
  lines_.LitObligatoire();  // second copy of the comment
  entete.BoxTitre += " - " + entete.TitreFichier;
  entete.Commentaire += "-" + behind.comment;
}

DegContents LitFichierDeg(std::unique_ptr<InputFile> file, const DatumCatalogue& catalogue) {
  DegContents contents;
  try {
    DegFileReader reader(std::move(file));
    contents.forme2 = reader.EstForme2();
    reader.LitEnTete(contents.entete, catalogue);
    DegFileRows rows = reader.Lignes(contents.entete);
    LitToutesLesLignes(rows, contents);
  } catch (const TalpenaError& e) {
    contents.faute = {0, e.number(), e.description()};
  }
  return contents;
}

void EcritEnTete(const DistributionHeader& entete, int anneeCourante, DegSink& sink) {
  const auto ligne = [&sink](std::string_view bytes) {
    sink.Tente([&] { sink.Ecrit(std::string(bytes) + "\r\n"); });
  };
  ligne("<TALPENA 2.0>");
  ligne(Encode("Datum", entete.DatumFichierCode, sink));
  if (!entete.FreeFieldText.empty()) ligne(Encode("Free fields", entete.FreeFieldText, sink));
  ligne("<END>");
  ligne(entete.BoxTitre.empty() ? "   " : Encode("Title", entete.BoxTitre, sink));
  const std::string comment = Encode("Comment", entete.Commentaire, sink);
  ligne(comment);
  if (const auto periods =
          LignePeriodes(entete.NbPivots, entete.Pivot1, entete.Pivot2, anneeCourante)) {
    ligne(*periods);
  }
  ligne(LigneStatistiques);
  ligne(comment);
}

}  // namespace talpena
