#include "maps/clicked_rows.h"

#include <span>
#include <vector>

#include "common/numbers.h"
#include "common/text.h"
#include "platform/commands.h"
#include "store/edition.h"
#include "store/row_commands.h"
#include "store/table.h"

namespace talpena {
namespace {

std::string EnTexte(double degrees, std::string_view mask) {
  return Remplace(Format(degrees, mask), ",", ".");
}

void RemplitLigne(Recordset& row, const ClickedRow& values) {
  row.Set(Column::PERIOD, Cell::Of(std::int64_t{values.period}));
  row.Set(Column::LATITUDE, Cell::Of(Val(values.latitude)));
  row.Set(Column::LONGITUDE, Cell::Of(Val(values.longitude)));
  row.Set(Column::N1, Cell::Of(std::int64_t{1}));
  row.Set(Column::N2, Cell::Of(std::int64_t{1}));
  row.Set(Column::DATUM, Cell::Of(std::string_view("EUR-M")));
  const std::string original = "deg " + values.latitude + " " + values.longitude;
  row.Set(Column::ORIGINAL, Cell::Of(std::string_view(original)));
  if (!values.date.empty()) row.Set(Column::DATE, Cell::Of(std::string_view(values.date)));
}

void EffaceLigne(Recordset& row, const EffaceSymboleEn& efface) {
  const Cell latitude = row.Get(Column::LATITUDE), longitude = row.Get(Column::LONGITUDE);
  if (latitude.EstNull() || longitude.EstNull()) return;
  if (latitude.real == 0 && longitude.real == 0) return;
  efface(latitude.real, longitude.real);
}

}  // namespace

std::string TexteLatitude(double latitude) { return EnTexte(latitude, "+##.#####;-##.#####"); }

std::string TexteLongitude(double longitude) { return EnTexte(longitude, "+###.#####;-###.#####"); }

Bookmark AjouteLigneCliquee(StoreState& state, MainWindowView& vue, const ClickedRow& values) {
  LieTable(state.document);
  std::vector<Bookmark> chosen = vue.LignesSelectionnees();
  Edition edition(state.document, "Add on the map");
  const Bookmark added = edition.AjouteLigne([&](Recordset& row) { RemplitLigne(row, values); });
  edition.VaA(added);
  edition.Valide();
  chosen.push_back(added);
  vue.ChoisitLignes(chosen);
  return added;
}

std::optional<Bookmark> RetireLigneChoisie(StoreState& state, Platform& io, MainWindowView& vue,
                                           const EffaceSymboleEn& efface) {
  std::vector<Bookmark> chosen = vue.LignesSelectionnees();
  DataControl& data = state.document.Data1;
  if (chosen.empty() || !data.EstLie() || data.recordset().RecordCount() == 0) {
    Bip(state, io);
    return std::nullopt;
  }
  const Bookmark last = chosen.back();
  const std::int64_t position = data.recordset().AbsolutePosition();
  const auto row = data.Clone();
  row->SetBookmark(last);
  EffaceLigne(*row, efface);
  Edition edition(state.document, "Take back on the map");
  edition.SupprimeLignes(std::span(&last, 1));
  edition.VaAPosition(position);
  edition.Valide();
  chosen.pop_back();
  vue.ChoisitLignes(chosen);
  return last;
}

}  // namespace talpena
