#include "store/find.h"

#include "common/msg_id.h"
#include "common/numbers.h"
#include "common/string_table.h"
#include "common/text.h"
#include "platform/busy.h"
#include "platform/commands.h"

namespace talpena {
namespace {

/// A number as a condition can hold it. "31 5337" and "1E999" are looked for as texts.
bool EstNombreCherche(std::string_view x) {
  const std::string_view text = Rogne(x);
  if (text.find_first_of(" \t\r\n") != std::string_view::npos || !EstNumerique(text)) return false;
  try {
    Val(Remplace(text, ",", "."));
    return true;
  } catch (const TalpenaError&) {
    return false;
  }
}

/// Moves the data control by `find`, and the grid with it; tells when nothing was found.
template <typename Find>
void Trouve(CommandContext c, const std::string& x, Find find) {
  bool found = false;
  if (c.document().Data1.EstLie()) {
    Busy busy(c.attente);
    busy.Annulable();
    found = find(c.document().Data1.recordset());
  }
  if (found) {
    c.state.RechercheAboutie = true;
    c.document().Data1.SignalePosition();
    c.vue.PlaceFocusGrille();
    return;
  }
  Bip(c.state, c.io);
  c.io.dialogues.Demande({.text = x + " introuvable!", .icon = Icon::Exclamation});
}

void Cherche(CommandContext c) {
  const std::string x =
      c.io.dialogues.Saisie({.prompt = Texte(c.state.Langue, MsgId::TexteAChercher),
                             .title = Texte(c.state.Langue, MsgId::Chercher)});
  if (x.empty()) return;
  const std::string condition = CritereDeRecherche(x);
  Trouve(c, x, [&](Recordset& rows) {
    const bool found = rows.FindFirst(condition);
    c.state.TexteCherche = x;
    c.state.CritereCherche = condition;
    return found;
  });
}

void ChercheSuivant(CommandContext c) {
  if (c.state.CritereCherche.empty()) return;
  Trouve(c, c.state.TexteCherche,
         [&](Recordset& rows) { return rows.FindNext(c.state.CritereCherche); });
}

}  // namespace

std::string CritereDeRecherche(std::string_view text) {
  const std::string x(text);
  const std::string like = " LIKE '*" + x + "*'";
  if (!EstNombreCherche(x)) {
    return "SEX" + like + " OR DATUM = '" + x + "' OR ORIGINAL" + like + " OR DATE like '*" + x +
           "*' OR COMMENT like '*" + x + "*'";
  }
  const std::string number = Remplace(x, ",", ".");
  return "PERIOD = " + number + " OR Latitude = " + number + " OR LONGITUDE = " + number +
         " OR N1 = " + number + " OR N2 = " + number + " OR SEX = " + number + " OR DATUM = '" + x +
         "' OR ORIGINAL = '" + x + "' OR DATE like '*" + x + "*' OR COMMENT like '*" + x + "*'";
}

void mnuChercher_Click(CommandContext c, int index) {
  ExecuteCommande(c.state, c.io, {}, [&] { index == 0 ? Cherche(c) : ChercheSuivant(c); });
}

}  // namespace talpena
