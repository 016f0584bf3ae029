// A .wpt file, from its first byte to the rows. The first input byte gives the size of the blocks
// in which it is read and the free fields of the open distribution.
#include <cstdint>
#include <memory>
#include <string_view>

#include "check.h"
#include "common/talpena_error.h"
#include "fakes/memory_input.h"
#include "interchange/wpt_reader.h"
#include "store/table.h"

using namespace talpena;
using fuzz::Verifie;

namespace {

CoordState Etat() {
  CoordState state;
  DatumCatalogue& c = state.Catalogue;
  c.Ellipsoides = {{1, "IN", "one", 6378388, 297}, {2, "XX", "two", 6378137, 298.257223563}};
  c.Datums = {{0, 0, 0, 0, 0, 2, "WGS84", "", "", 1},
              {-251, -0.000014192702, -87, -98, -121, 1, "EUR-M", "", "", 2}};
  c.DatumWgs84 = 1;
  c.DatumEur = 2;
  state.DatumSpherique = 2;
  return state;
}

DistributionHeader Entete(int fields) {
  DistributionHeader entete;
  entete.FreeFieldDefs.resize(static_cast<std::size_t>(fields));
  entete.FreeFieldCount = static_cast<std::int16_t>(fields);
  return entete;
}

void VerifieFiche(const ImportRecord& record, std::int64_t before) {
  const ImportedRow& row = record.row;
  Verifie(record.line > before && record.dropped == 0);
  Verifie(row.period == 1 && row.n1 == 1 && row.n2 == 1 && row.datum == "EUR-M");
  Verifie(row.original && EstAscii(*row.original) && row.original->starts_with("deg "));
  Verifie(row.original->size() <= Column::LargeurOriginal);
  Verifie(row.date && CompteCaracteres(*row.date) <= 10);
  Verifie(row.comment && CompteCaracteres(*row.comment) <= 56);
}

void Lit(ImportFile file, int fields) {
  static const CoordState state = Etat();
  const DistributionHeader entete = Entete(fields);
  WptReader reader(std::move(file), state, entete);
  if (!reader.LitEnTete()) return;
  ImportRecord record;
  for (std::int64_t line = 0; reader.Suivant(record); line = record.line) {
    VerifieFiche(record, line);
  }
  Verifie(reader.Part() >= 0 && reader.Part() <= 1);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const std::string_view bytes(reinterpret_cast<const char*>(data) + 1, size - 1);
  const auto open = [&] {
    return std::make_unique<test::MemoryInput>(bytes, std::size_t{1} << (data[0] % 13));
  };
  try {
    Lit(PrendImport(open(), ChercheEncodage(open())), data[0] / 13 % 4);
  } catch (const TalpenaError& e) {
    Verifie(e.number() == ErrorNumber::InputPastEnd || e.number() == ErrorNumber::Overflow ||
            e.number() == ErrorNumber::DivisionByZero || e.number() == ErrorNumber::InvalidCall ||
            e.number() == ErrorNumber::FieldTooSmall);
  }
  return 0;
}
