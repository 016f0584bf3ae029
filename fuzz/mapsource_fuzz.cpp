// A MapSource text, from its first byte to the rows of all its waypoints. The first three input
// bytes give the size of the blocks in which it is read, the grid, and the options.
#include <cstdint>
#include <memory>
#include <string_view>

#include "check.h"
#include "common/msg_id.h"
#include "common/talpena_error.h"
#include "common/text.h"
#include "fakes/memory_input.h"
#include "interchange/garmin_samples.h"
#include "interchange/mapsource_reader.h"
#include "interchange/mapsource_text.h"
#include "store/table.h"

using namespace talpena;
using fuzz::Verifie;

namespace {

constexpr int columns = 7;

DistributionHeader Entete() {
  DistributionHeader entete;
  entete.FreeFieldDefs = {{"Place", "STAT.TOPO", 10}, {"Altitude", "Alti", 4}};
  entete.FreeFieldCount = 2;
  return entete;
}

objGraminImport Options(const MapSourceText& text, int choice) {
  const auto caption = [&](std::size_t column) {
    return text.captions.empty() ? std::string() : text.captions[column % text.captions.size()];
  };
  objGraminImport options;
  options.DateImport = static_cast<std::int16_t>(choice % 3);
  options.DateBegin = static_cast<std::int16_t>(choice % 5);
  options.DateField = caption(static_cast<std::size_t>(choice));
  options.AltitudeImport = static_cast<std::int16_t>(choice / 3 % 3);
  options.AltitudeLength = static_cast<std::int16_t>(choice % 11 - 1);
  options.AltitudeField = caption(static_cast<std::size_t>(choice / 7));
  return options;
}

void VerifieFiche(const ImportRecord& record, const objGraminImport& options) {
  const ImportedRow& row = record.row;
  Verifie(record.line > 0 && row.datum == "WGS84" && row.period == 1 && !row.n1 && !row.n2);
  Verifie(!row.original || row.original->size() > 4);
  Verifie(!row.original || CompteCaracteres(Rogne(*row.original)) <= Column::LargeurOriginal);
  Verifie(record.dropped == 0 || !row.original);
  Verifie(row.date.has_value() == (options.DateImport == 1) ||
          (options.DateImport == 2 && row.date && row.date->size() >= 10));
  Verifie(row.comment && row.comment->find(" - ") != std::string::npos);
}

void VerifieRows(const MapSourceText& text, int grid, const objGraminImport& options) {
  const DistributionHeader entete = Entete();
  MapSourceReader reader(text, {.grid = grid, .datum = "WGS84", .items = TousLesPoints(text)},
                         options, entete);
  std::size_t count = 0;
  ImportRecord record;
  for (; reader.Suivant(record); ++count) VerifieFiche(record, options);
  Verifie(count == text.items.Nombre() && reader.Part() == 1);
}

void VerifieTexte(const MapSourceText& text, std::size_t size) {
  Verifie(text.items.Nombre() <= size);
  Verifie(!text.wrongType || text.items.Nombre() == 0);
  const auto all = TousLesPoints(text);
  for (int column = 0; column < columns; ++column) {
    const std::string sample = TexteExemple(text, all, column);
    const auto cut = Exemple("2", "3", sample);
    Verifie(!cut || cut->size() <= sample.size());
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 3) return 0;
  const std::string_view bytes(reinterpret_cast<const char*>(data) + 3, size - 3);
  const auto open = [&] {
    return std::make_unique<test::MemoryInput>(bytes, std::size_t{1} << (data[0] % 13));
  };
  try {
    MapSourceText text;
    RempliLV(PrendImport(open(), ChercheEncodage(open())), "w.txt", text);
    VerifieTexte(text, size);
    VerifieRows(text, data[1] % 8 == 7 ? text.grid.value_or(-1) : data[1] % 8,
                Options(text, data[2]));
  } catch (const TalpenaError& e) {
    Verifie(e.number() == ErrorNumber::InputPastEnd || e.number() == ErrorNumber::Overflow ||
            e.number() == ErrorNumber::SubscriptOutOfRange ||
            e.number() == ErrorNumber::TooManyFields || e.number() == ErrorNumber::InvalidCall ||
            e.number() == ErrorNumber::FieldTooSmall);
  }
  return 0;
}
