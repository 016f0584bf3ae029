#include <algorithm>
#include <string>
#include <utility>

#include "common/msg_id.h"
#include "common/msg_id_errors.h"
#include "common/numbers.h"
#include "common/paths.h"
#include "common/string_table.h"
#include "common/talpena_error.h"
#include "common/text.h"
#include "coords/datum.h"
#include "coords/datum_cache.h"
#include "coords/faults.h"
#include "coords/special_datums.h"
#include "platform/commands.h"

namespace talpena {
namespace {

constexpr std::size_t LongueurCode = 5;

template <typename Element>
const Element& Choisit(const std::vector<Element>& all, std::int16_t index) {
  if (index < 1 || static_cast<std::size_t>(index) > all.size()) {
    throw TalpenaError(ErrorNumber::SubscriptOutOfRange, "Subscript out of range");
  }
  return all[static_cast<std::size_t>(index) - 1];
}

/// A number of the catalogue. Nothing passes for 0 in silence: it would move every point.
double LitNombre(Recordset& rows, int field) {
  const Cell cell = rows.Get(field);
  if (cell.EstNull()) throw TalpenaError(ErrorNumber::InvalidNull, "Invalid use of Null");
  if (cell.kind != Cell::Kind::Text) return cell.Nombre();
  if (!EstNumerique(cell.text)) throw TalpenaError(ErrorNumber::TypeMismatch, "Type mismatch");
  return Val(Remplace(cell.text, ",", "."));
}

std::int16_t LitEntier(Recordset& rows, int field) { return Arrondi16(LitNombre(rows, field)); }

/// Cut or padded with blanks to a number of characters.
std::string Ajuste(std::string_view text, std::size_t length) {
  std::string fixed(PremiersCaracteres(text, length));
  fixed.append(length - CompteCaracteres(fixed), ' ');
  return fixed;
}

void NoteCodeSpecial(DatumCatalogue& catalogue, std::string_view code, std::int16_t index) {
  const std::string upper = Majuscules(Rogne(code));
  if (upper == "WGS84") catalogue.DatumWgs84 = index;
  if (upper == CodeSpecial(SystemDatum::EurM)) catalogue.DatumEur = index;
  for (std::size_t slot = 1; slot < CodesSpeciaux.size(); ++slot) {
    if (upper == CodesSpeciaux[slot]) catalogue.DatumsSpeciaux[slot] = index;
  }
}

void NoteCodesSpeciaux(DatumCatalogue& catalogue) {
  for (std::size_t i = 0; i < catalogue.Datums.size(); ++i) {
    NoteCodeSpecial(catalogue, catalogue.Datums[i].code, Arrondi16(static_cast<double>(i + 1)));
  }
}

void LitDatums(Database& database, DatumCatalogue& catalogue) {
  const auto rows =
      database.OpenRecordset("SELECT * FROM Datum WHERE USE > 0 ORDER BY NAME, APPLIC, CODE");
  const int da = rows->FieldIndex("da"), df = rows->FieldIndex("df"), dx = rows->FieldIndex("dx"),
            dy = rows->FieldIndex("dy"), dz = rows->FieldIndex("dz"),
            ellipsoid = rows->FieldIndex("ELLI_ID"), code = rows->FieldIndex("Code"),
            name = rows->FieldIndex("Name"), application = rows->FieldIndex("Applic"),
            use = rows->FieldIndex("Use");
  rows->MoveLast();
  catalogue.Datums.reserve(static_cast<std::size_t>(rows->RecordCount()));
  for (rows->MoveFirst(); !rows->EOF_(); rows->MoveNext()) {
    DatumRecord datum;
    datum.da = LitEntier(*rows, da);
    datum.df = LitNombre(*rows, df);
    datum.dx = LitNombre(*rows, dx);
    datum.dy = LitNombre(*rows, dy);
    datum.dz = LitNombre(*rows, dz);
    datum.ellipsoid = LitEntier(*rows, ellipsoid);
    datum.code = Ajuste(rows->Get(code).Texte(), LongueurCode);
    datum.name = rows->Get(name).Texte();
    datum.application = rows->Get(application).Texte();
    datum.use = rows->Get(use).EstNull() ? std::int16_t{0} : LitEntier(*rows, use);
    const std::int16_t index = Arrondi16(static_cast<double>(catalogue.Datums.size() + 1));
    NoteCodeSpecial(catalogue, datum.code, index);
    catalogue.Datums.push_back(std::move(datum));
  }
}

void LitEllipsoides(Database& database, DatumCatalogue& catalogue) {
  constexpr std::size_t codeLength = 2;
  const auto rows = database.OpenRecordset("SELECT * FROM ELLI ORDER BY ELLI_ID");
  const int id = rows->FieldIndex("ELLI_ID"), code = rows->FieldIndex("ELLI"),
            name = rows->FieldIndex("ELLI_NAME"), a = rows->FieldIndex("A"),
            inverse = rows->FieldIndex("f_Inv");
  rows->MoveLast();
  catalogue.Ellipsoides.reserve(static_cast<std::size_t>(rows->RecordCount()));
  for (rows->MoveFirst(); !rows->EOF_(); rows->MoveNext()) {
    EllipsoidRecord ellipsoid;
    ellipsoid.id = LitEntier(*rows, id);
    ellipsoid.code = Ajuste(rows->Get(code).Texte(), codeLength);
    ellipsoid.name = rows->Get(name).Texte();
    ellipsoid.a = LitNombre(*rows, a);
    ellipsoid.inverseFlattening = LitNombre(*rows, inverse);
    catalogue.Ellipsoides.push_back(std::move(ellipsoid));
  }
}

/// Asks for the file that the setting does not lead to; keeps the answer in the setting.
std::string DemandeCatalogue(CoordState& state, Platform& io) {
  Bip(state, io);
  io.dialogues.Demande({.text = Texte(state.Langue, MsgId::DatumMdbAbsent), .icon = Icon::Stop});
  std::string path;
  try {
    path = io.dialogues.OuvreFichier(
        {.title = Texte(state.Langue, MsgId::OuEstDatumMdb), .filter = "*.mdb"});
  } catch (const TalpenaError& e) {
    if (e.number() != ErrorNumber::Cancelled) throw;
  }
  if (path.empty()) throw CatalogueRefused{};
  io.settings.Ecrit("TLP", "Datum", "DB", path);
  return path;
}

/// The program cannot work without the catalogue: who gives up its reading refuses it.
void LitCatalogue(Platform& io, const std::string& path, DatumCatalogue& catalogue) {
  try {
    const auto database = io.engine.OpenDatabase(path, true);
    LitDatums(*database, catalogue);
    LitEllipsoides(*database, catalogue);
  } catch (const TalpenaError& e) {
    if (e.number() == ErrorNumber::Cancelled) throw CatalogueRefused{};
    if (e.number() != ErrorNumber::UnrecognizedFormat) throw;
    ErrorWords words = e.words();
    words.hint = MsgId::DatumMdbAbime;
    throw TalpenaError(e.number(), e.description(), std::move(words));
  }
}

}  // namespace

const DatumRecord& DatumCatalogue::Datum(std::int16_t index) const {
  return Choisit(Datums, index);
}

const EllipsoidRecord& DatumCatalogue::Ellipsoide(std::int16_t id) const {
  return Choisit(Ellipsoides, id);
}

std::string CheminDatums(const CoordState& state, SettingsStore& settings) {
  const std::string standard = state.AppDir + SeparateurChemin() + "DATUM.MDB";
  return RendNatif(settings.Lit("TLP", "Datum", "DB", standard));
}

void ChargeDatums(CoordState& state, Platform& io) {
  state.Catalogue = {};
  ExecuteCommande(state, io, {}, [&] {
    std::string path = CheminDatums(state, io.settings);
    if (!io.files.Existe(path)) path = DemandeCatalogue(state, io);
    const KeptCatalogue kept(io, path);
    if (kept.Lit(state.Catalogue)) return NoteCodesSpeciaux(state.Catalogue);
    LitCatalogue(io, path, state.Catalogue);
    kept.Garde(state.Catalogue);
  });
}

std::int16_t ChercheDatum(const DatumCatalogue& catalogue, std::string_view code) {
  const std::string_view wanted = Rogne(code);
  const auto found = std::find_if(catalogue.Datums.begin(), catalogue.Datums.end(),
                                  [&](const DatumRecord& d) { return Rogne(d.code) == wanted; });
  if (found == catalogue.Datums.end()) return 0;
  return static_cast<std::int16_t>(found - catalogue.Datums.begin() + 1);
}

void DitDatumAbsent(const CoordState& state, Platform& io, std::string_view codes) {
  Bip(state, io);
  io.dialogues.Demande(
      {.text = Texte(state.Langue, MsgId::DatumAbsent) + "\n\n" + std::string(codes),
       .icon = Icon::Exclamation});
}

void DitDatumsAbsents(const CoordState& state, Platform& io,
                      const std::vector<std::string>& codes) {
  std::string joined;
  for (const std::string& code : codes) {
    joined += (joined.empty() ? "" : ", ") + (code.empty() ? std::string("\"\"") : code);
  }
  DitDatumAbsent(state, io, joined);
}

void ChoisitEllipsoide(DatumCatalogue& catalogue, std::int16_t datum) {
  const std::int16_t id = catalogue.Datum(datum).ellipsoid;
  const EllipsoidRecord& ellipsoid = catalogue.Ellipsoide(id);
  const double f = Divise(1, ellipsoid.inverseFlattening);
  catalogue.EllipsoideCourant = id;
  catalogue.DemiGrandAxe = ellipsoid.a;
  catalogue.Aplatissement = f;
  catalogue.DemiPetitAxe = (1 - catalogue.Aplatissement) * catalogue.DemiGrandAxe;
}

std::vector<DatumListRow> RempliListesDatums(const DatumCatalogue& catalogue) {
  std::vector<DatumListRow> rows;
  rows.reserve(catalogue.Datums.size());
  for (const DatumRecord& d : catalogue.Datums) {
    rows.push_back({std::string(Rogne(d.code)), d.name, d.application,
                    catalogue.Ellipsoide(d.ellipsoid).name, Str(d.dx), Str(d.dy), Str(d.dz)});
  }
  return rows;
}

}  // namespace talpena
