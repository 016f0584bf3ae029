#include "store/erase_column.h"

#include <algorithm>
#include <array>

#include "common/msg_id.h"
#include "common/string_table.h"
#include "common/text.h"
#include "platform/busy.h"
#include "platform/commands.h"
#include "store/edition.h"
#include "store/table.h"

namespace talpena {
namespace {

/// What is emptied, by grid column. Not the columns' own fields from the Sex column on, and none
/// for the last: users know the command so. Held by EraseColumn.EmptiesTheFieldOfTheTable.
constexpr std::array fields = {Column::PERIOD,   Column::LATITUDE, Column::LONGITUDE,
                               Column::N1,       Column::N2,       Column::DATUM,
                               Column::ORIGINAL, Column::DATE,     Column::COMMENT};

constexpr bool EstNombre(int field) { return field <= Column::N2; }

std::vector<int> Champs(ColumnRange columns) {
  std::vector<int> chosen;
  for (int column = columns.first; column <= columns.last; ++column) {
    const auto i = static_cast<std::size_t>(column);
    if (i < fields.size()) chosen.push_back(fields[i]);
  }
  return chosen;
}

void EffaceChamps(CommandContext c, Edition& edition, const std::vector<int>& chosen) {
  if (chosen.empty()) return;
  std::vector<Cell> empty;
  empty.reserve(chosen.size());
  for (const int field : chosen) {
    empty.push_back(EstNombre(field) ? Cell::Of(std::int64_t{0}) : Cell::Of(std::string_view()));
  }
  Busy busy(c.attente);
  busy.GrilleGelee().Barre();
  edition.RemplitLignes(chosen, empty,
                        [&](std::int64_t done, std::int64_t total) { busy.Avance(done, total); });
}

/// Whether the order or the filter of the grid may depend on one of the fields.
bool Concerne(const DataControl& data, const std::vector<FieldDef>& fieldDefs,
              const std::vector<int>& chosen) {
  const std::string source = Majuscules(data.RecordSource);
  return std::any_of(chosen.begin(), chosen.end(), [&](int field) {
    const std::string& name = fieldDefs[static_cast<std::size_t>(field)].name;
    return source.find(Majuscules(name)) != std::string::npos;
  });
}

ColumnRange ColonnesAEffacer(MainWindowView& vue) {
  const std::optional<ColumnRange> chosen = vue.ColonnesSelectionnees();
  if (chosen) return *chosen;
  const int column = vue.ColonneCourante();
  vue.SelectionneColonnes({column, column});
  return {column, column};
}

void EffaceColonne(CommandContext c) {
  Document& document = c.document();
  if (!document.Data1.EstLie()) return;
  const ColumnRange columns = ColonnesAEffacer(c.vue);
  Bip(c.state, c.io);
  if (c.io.dialogues.Demande({.text = Texte(c.state.Langue, MsgId::EffaceCellules),
                              .icon = Icon::Question,
                              .buttons = Buttons::YesNo,
                              .defaultButton = Answer::No}) != Answer::Yes) {
    return;
  }
  const std::vector<int> chosen = Champs(columns);
  Edition edition(document, "Erase column", Edition::Etendue::Entiere);
  EffaceChamps(c, edition, chosen);
  edition.MarqueModifie();
  edition.Valide();
  if (Concerne(document.Data1, document.Data1.recordset().Fields(), chosen)) {
    document.MontreLignes(RowsShown(document.LignesMontrees()));
  }
  c.vue.PlaceFocusGrille();
}

}  // namespace

void MnuEraseCol_Click(CommandContext c) {
  ExecuteCommande(c.state, c.io, {}, [&] { EffaceColonne(c); });
}

}  // namespace talpena
