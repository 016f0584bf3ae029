#include "interchange/import_remedy.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <string>
#include <string_view>

#include "common/msg_id_errors.h"
#include "common/msg_id_import.h"

namespace talpena {
namespace {

/// Every other byte of plain text is NUL in it; the first line may be nothing but its mark.
bool SembleUtf16(std::string_view line) {
  if (line.starts_with("\xFF\xFE") || line.starts_with("\xFE\xFF")) return true;
  std::array<std::size_t, 2> nuls{};  // in even and in odd places
  for (std::size_t i = 0; i < line.size(); ++i) nuls.at(i % 2) += line[i] == '\0' ? 1U : 0U;
  const std::size_t most = std::max(nuls[0], nuls[1]);
  return std::min(nuls[0], nuls[1]) == 0 && most > 0 && 3 * most >= line.size();
}

/// A database, a workbook, a picture. A NUL among many letters is a slip of a list.
bool SembleBinaire(std::string_view line) {
  constexpr std::size_t few = 4, oneIn = 16;
  const auto controls = static_cast<std::size_t>(
      std::ranges::count_if(line, [](unsigned char c) { return c < ' ' && c != '\t'; }));
  return controls >= few && controls * oneIn >= line.size();
}

/// What stands where a number should; "" when it is something else that failed.
std::string_view SansNombre(const TalpenaError& failure) {
  const ErrorWords& words = failure.words();
  if (words.text != MsgId::ChampSansNombre || words.about.size() < 2) return {};
  return words.about[1];
}

/// Words, in quotes or not. Bytes above 127 are letters with accents.
bool CommenceParUneLettre(std::string_view text) {
  if (text.starts_with('"')) text.remove_prefix(1);
  if (text.empty()) return false;
  const auto first = static_cast<unsigned char>(text.front());
  return first > 127 || std::isalpha(first) != 0;
}

/// The first field of the list; headings of an export have an empty one before it.
bool EstEnTete(std::string_view text, const FieldReader& fields) {
  const bool leading = fields.Champ() == 1 || fields.LigneCourante().starts_with(',');
  return leading && CommenceParUneLettre(text);
}

int Remede(const TalpenaError& failure, const FieldReader& fields, bool first) {
  const std::string_view text = SansNombre(failure);
  if (SembleUtf16(fields.LigneCourante())) return MsgId::RemedeUtf16;
  if (SembleBinaire(fields.LigneCourante())) return MsgId::RemedePasTexte;
  const bool ended = failure.words().text == MsgId::FicheCoupee;
  if (ended && fields.LigneCoupee() != 0) return MsgId::RemedeCoupee;
  if (text.find(';') != std::string_view::npos || text.find(TabMontree) != std::string_view::npos) {
    return MsgId::RemedeSeparateur;
  }
  if (first && EstEnTete(text, fields)) return MsgId::RemedeEnTete;
  if (text.starts_with('*')) return MsgId::RemedeEtoiles;
  if (fields.LigneAPerdu()) return MsgId::RemedeGuillemets;
  const bool counted =
      fields.EstDecalee() || fields.EstSurPlusieurs() || text.starts_with('"') || ended;
  return counted ? MsgId::RemedeChamps : 0;
}

}  // namespace

TalpenaError AvecRemede(const TalpenaError& failure, const FieldReader& fields, bool first) {
  // A failure of the file itself names no field.
  const int text = failure.words().text;
  const bool ofField = text == MsgId::ChampSansNombre || text == MsgId::ChampTropGrand ||
                       text == MsgId::ChampVide || text == MsgId::FicheCoupee;
  const int hint = ofField ? Remede(failure, fields, first) : 0;
  return hint == 0 ? failure : failure.AvecConseil(hint);
}

}  // namespace talpena
