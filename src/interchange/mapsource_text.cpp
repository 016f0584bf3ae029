#include "interchange/mapsource_text.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "common/msg_id_errors.h"
#include "common/talpena_error.h"
#include "common/text.h"
#include "coords/datum.h"
#include "interchange/import_lines.h"

namespace talpena {
namespace {

/// The word at the head of a line, in any case.
bool CommencePar(std::string_view line, std::string_view word) {
  return EgalSansCasse(PremiersCaracteres(line, word.size()), word);
}

std::string_view PremierElement(std::string_view line) { return line.substr(0, line.find('\t')); }

std::optional<int> GrilleDe(std::string_view name) {
  const auto* const found = std::ranges::find_if(
      GrillesGarmin, [name](std::string_view grid) { return EgalSansCasse(grid, name); });
  if (found == GrillesGarmin.end()) return {};
  return static_cast<int>(found - GrillesGarmin.begin());
}

/// One reading of a file into a text.
class Reading {
 public:
  Reading(ImportFile file, MapSourceText& text) : lines_(std::move(file)), text_(text) {}

  /// False when it is no file of the kind.
  bool Execute() {
    std::string_view line = LigneEnTete();
    if (!CommencePar(line, "GRID")) return false;
    text_.grid = GrilleDe(SecondElement(line));
    if (!LitDatum()) return false;
    if (!LitTitres()) return false;
    while (lines_.Lit(line)) PrendPoint(line);
    return true;
  }

 private:
  std::string_view LigneEnTete() {
    const std::string_view line = lines_.LitObligatoire();
    text_.header.append(line).append("\r\n");
    return line;
  }

  /// What stands behind the first tab.
  std::string_view SecondElement(std::string_view line) const {
    const std::size_t tab = line.find('\t');
    if (tab == std::string_view::npos) {
      const TalpenaError error(ErrorNumber::SubscriptOutOfRange, "Subscript out of range",
                               {.text = MsgId::LigneSansNom});
      throw error.SurLigne(lines_.Numero());
    }
    return PremierElement(line.substr(tab + 1));
  }

  /// The datum is on the second line, or else on the third.
  bool LitDatum() {
    std::string_view line = LigneEnTete();
    fiveLines_ = !CommencePar(line, "DATUM");
    if (fiveLines_) line = LigneEnTete();
    if (!CommencePar(line, "DATUM")) return false;
    text_.datum = GpsDatumVersCode(SecondElement(line));
    return true;
  }

  /// The line behind that of the datum is any text in the layout of five lines; in the other one
  /// all that is empty is passed over.
  bool LitTitres() {
    if (fiveLines_) LigneEnTete();
    std::string_view line = lines_.LitObligatoire();
    while (!fiveLines_ && Rogne(line).empty()) {
      text_.header.append(line).append("\r\n");
      line = lines_.LitObligatoire();
    }
    if (!EgalSansCasse(PremierElement(line), "HEADER")) return false;
    const std::string_view kept = SansDernier(line);
    if (!kept.empty()) text_.captions = Decoupe(kept, '\t');
    return true;
  }

  /// Without the last element: in the layout of five lines whatever it is, in the other one where
  /// it is nothing but a tab at the end of the line.
  std::string_view SansDernier(std::string_view line) const {
    const std::size_t tab = line.rfind('\t');
    if (tab == std::string_view::npos) return fiveLines_ ? std::string_view() : line;
    return fiveLines_ || tab + 1 == line.size() ? line.substr(0, tab) : line;
  }

  void PrendPoint(std::string_view line) {
    if (line.find('\t') == std::string_view::npos) return;
    if (!EgalSansCasse(PremierElement(line), "WAYPOINT")) return;
    text_.items.Ajoute(SansDernier(line), lines_.Numero());
  }

  ImportLines lines_;
  MapSourceText& text_;
  bool fiveLines_ = false;
};

}  // namespace

void RempliLV(ImportFile file, const std::string& path, MapSourceText& text) {
  text.header = path + "\r\n";
  text.wrongType = !Reading(std::move(file), text).Execute();
}

void RempliLV(FileSystem& files, const std::string& path, MapSourceText& text) {
  RempliLV(OuvreImport(files, path), path, text);
}

}  // namespace talpena
