#include "store/free_fields.h"

#include <limits>

#include "common/msg_id_errors.h"
#include "common/numbers.h"
#include "common/paths.h"
#include "common/talpena_error.h"
#include "common/text.h"
#include "platform/deg_lines.h"

namespace talpena {
namespace {

constexpr std::size_t maxFields = std::numeric_limits<std::int16_t>::max();

// clang-format off
constexpr std::array<std::string_view, 11> builtIn = {
    "STAT.TOPO,Toponyme,Nom du lieu-dit,50",
    "STAT.LOCA,Localité,Nom de la localité,50",
    "STAT.FIPS,FIPS,Code FIPS,4",
    "STAT.ALTI,Altitude,Altitude en m.,5",
    "COND.TAXPRIO,Taxon associé (fleur),Taxon associé (fleur),50",
    "COND.MICR , Microsituation, Microsituation, 5",
    "SPEC.DET , Déterminateur, Déterminateur, 10",
    "SPEC.REC , Récolteur, Récolteur, 20",
    "Spec.AUCT,Auteur de la donnée,Auteur de la donnée,20",
    "SPEC.SRC , Source, Source, 2",
    "SPEC.COLL , Collection, Collection, 10",
};
// clang-format on

}  // namespace

const std::array<std::string_view, 11>& ChampsLibresInternes() { return builtIn; }

void CommenceChampsLibres(DistributionHeader& entete, std::string_view separator) {
  entete.FreeFieldText = separator;
  entete.FreeFieldSeparator = separator.empty() ? "/" : separator;
  entete.FreeFieldDefs.clear();
  entete.FreeFieldCount = 0;
}

void AjouteTexteChampsLibres(DistributionHeader& entete, std::string_view line) {
  if (entete.FreeFieldText.size() + line.size() + 2 > MaxFreeFieldText) {
    throw TalpenaError(ErrorNumber::Overflow, "The field definitions are longer than 16 MB.",
                       {.text = MsgId::ChampsTropLongs});
  }
  entete.FreeFieldText += "\r\n";
  entete.FreeFieldText += line;
}

void AjouteChampLibre(DistributionHeader& entete, std::string_view line) {
  const std::vector<std::string> items = Decoupe(line, ',');
  if (items.size() < 3) {
    throw TalpenaError(ErrorNumber::SubscriptOutOfRange,
                       "A field definition needs a code, a label and a width, with commas "
                       "between them: \"" +
                           std::string(PremiersCaracteres(line, 80)) + "\"",
                       {.text = MsgId::DefinitionIncomplete,
                        .about = {std::string(PremiersCaracteres(line, 80))}});
  }
  if (entete.FreeFieldDefs.size() >= maxFields) {
    throw TalpenaError(ErrorNumber::Overflow, "A file may define 32767 free fields at most.",
                       {.text = MsgId::TropDeChamps});
  }
  entete.FreeFieldDefs.push_back(
      {.Label = items[1], .Code = items[0], .Width = Arrondi16(Val(items[2]))});
}

void CompteChampsLibres(DistributionHeader& entete) {
  entete.FreeFieldCount = static_cast<std::int16_t>(entete.FreeFieldDefs.size());
}

std::string CheminStandardHdr(const SharedState& state, Platform& io) {
  std::string path = AvecSeparateur(state.AppDir) + "standard.hdr";
  if (io.files.Existe(path)) return path;
  const std::string found = TrouveChemin(path).value_or("");
  return !found.empty() && io.files.Existe(found) ? found : "";
}

void LitStandardHdr(DistributionHeader& entete, FileSystem& files, const std::string& path) {
  DegLines lines(files.Ouvre(path), DegLines::LineEnd::CrOrLf);
  CommenceChampsLibres(entete, Cp1252VersUtf8(lines.LitObligatoire()));
  std::string_view line;
  while (lines.Lit(line)) {
    const std::string definition = Cp1252VersUtf8(line);
    AjouteTexteChampsLibres(entete, definition);
    AjouteChampLibre(entete, definition);
  }
  CompteChampsLibres(entete);
}

}  // namespace talpena
