#include "store/deg_header.h"

#include "common/msg_id_errors.h"
#include "common/numbers.h"
#include "common/talpena_error.h"
#include "common/text.h"
#include "coords/datum.h"
#include "store/free_fields.h"

namespace talpena {
namespace {

constexpr std::string_view endMark = "<END>";
constexpr std::size_t comparedItems = 3;

/// The line up to its first comma.
std::string LitJeton(DegLines& lines) {
  const std::string_view line = lines.LitObligatoire();
  return Cp1252VersUtf8(line.substr(0, line.find(',')));
}

bool EstFin(std::string_view line) { return EgalSansCasse(line, endMark); }

/// Raises the failure of a definition again, saying on which line it stands.
void AjouteDefinition(DistributionHeader& entete, const std::string& line, std::int64_t number) {
  try {
    AjouteTexteChampsLibres(entete, line);
    AjouteChampLibre(entete, line);
  } catch (const TalpenaError& e) {
    throw e.SurLigne(number);
  }
}

/// True when a definition line says the same as the field at its place in the open file.
bool MemeDefinition(const DistributionHeader& entete, std::size_t index,
                    const std::vector<std::string>& items) {
  if (index >= entete.FreeFieldDefs.size()) return false;
  const FreeFieldDef& field = entete.FreeFieldDefs[index];
  const auto same = [](std::string_view a, std::string_view b) {
    return EgalSansCasse(Rogne(a), Rogne(b));
  };
  return same(items[0], field.Code) && same(items[1], field.Label) && Val(items[2]) == field.Width;
}

}  // namespace

bool EstForme2(std::string_view firstLine) {
  return EgalSansCasse(firstLine.substr(0, 8), "<TALPENA");
}

std::string LitTexte(DegLines& lines) { return Cp1252VersUtf8(lines.LitObligatoire()); }

void LitEnTete(DistributionHeader& entete, const DatumCatalogue& catalogue, DegLines& lines) {
  entete.DatumFichierCode = LitJeton(lines);
  entete.DatumFichier = ChercheDatum(catalogue, entete.DatumFichierCode);
  const std::string token = LitJeton(lines);
  // Only the exact mark ends the block here, and the layout then stays that of the file before.
  // Held by DegHeader.KeepsTheLayoutForAFileWithoutFreeFields.
  if (token != endMark) {
    CommenceChampsLibres(entete, token);
    for (std::string line = LitTexte(lines); !EstFin(line); line = LitTexte(lines)) {
      if (!Rogne(line).empty()) AjouteDefinition(entete, line, lines.Numero());
    }
    CompteChampsLibres(entete);
  }
  entete.TitreFichier = LitTexte(lines);
}

void LitEnTeteFusion(DistributionHeader& entete, DegLines& lines) {
  LitTexte(lines);
  entete.FreeFieldText = LitTexte(lines);
  // The mark of a file without free fields is taken for their separator, so such a file is read to
  // its end and is not merged. Held by LitDegTest.CannotMergeAForm2FileWithoutFields.
  const bool sansChamps = EstFin(entete.FreeFieldText);
  try {
    for (std::string line = LitTexte(lines); !EstFin(line); line = LitTexte(lines)) {
      AjouteTexteChampsLibres(entete, line);
    }
  } catch (const TalpenaError& e) {
    if (!sansChamps) throw;
    throw TalpenaError(e.number(), e.description(), {.text = MsgId::FusionSansChamps});
  }
  entete.TitreFichier = LitTexte(lines);
}

std::string RefusDeFusion(const DistributionHeader& entete, DegLines& lines) {
  if (!EgalSansCasse(Rogne(LitJeton(lines)), Rogne(entete.DatumFichierCode))) {
    return "Datum not compatible with current file.";
  }
  if (LitTexte(lines) == endMark) return {};
  std::size_t index = 0;
  for (std::string line = LitTexte(lines); !EstFin(line); line = LitTexte(lines)) {
    if (Rogne(line).empty()) continue;
    const std::vector<std::string> items = Decoupe(line, ',');
    if (items.size() < comparedItems) {
      throw TalpenaError(ErrorNumber::SubscriptOutOfRange,
                         "a field definition has fewer than three items.",
                         {.text = MsgId::DefinitionIncomplete, .about = {line}})
          .SurLigne(lines.Numero());
    }
    if (!MemeDefinition(entete, index++, items)) {
      return "Field definition not compatible with current file!\r\n" + items[0] + "," + items[1] +
             "," + items[2];
    }
  }
  return {};
}

}  // namespace talpena
