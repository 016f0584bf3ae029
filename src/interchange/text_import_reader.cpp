#include "interchange/text_import_reader.h"

#include <algorithm>
#include <utility>

#include "common/line_breaks.h"
#include "common/msg_id_import.h"
#include "common/numbers.h"
#include "common/text.h"
#include "interchange/import_remedy.h"

namespace talpena {
namespace {

constexpr char commentMark = '*';
constexpr std::size_t datumWidth = 5;

/// Why a reference that is too short does not enter.
int TexteTropCourt(const ReferenceCut& cut) {
  return cut.heads[1] > 0 ? MsgId::MgrsTropCourt : MsgId::GrilleTropCourte;
}

void Pose(std::optional<std::string>& text, std::string_view value) {
  if (!text) text.emplace();
  text->assign(value);
}

/// A text of one line: only what stands in quotes can have several.
void PoseUneLigne(std::optional<std::string>& text, std::string_view value) {
  if (value.find('\n') == std::string_view::npos) return Pose(text, value);
  Pose(text, SurUneLigne(value));
}

/// An Irish reference needs two: "IO" for the square O.
bool AUneLettre(std::string_view reference) {
  const auto letter = [&](std::size_t at) {
    return at < reference.size() && reference[at] >= 'A' && reference[at] <= 'Z';
  };
  return letter(0) && !letter(1);
}

/// The tokens of a reference in one piece.
void AjouteJetons(std::string& original, std::string_view reference, const ReferenceCut& cut) {
  for (const std::size_t length : cut.heads) {
    if (length == 0) continue;
    const std::string_view head = PremiersCaracteres(reference, length);
    original += head;
    original += ' ';
    reference.remove_prefix(head.size());
  }
  original += reference;
}

}  // namespace

std::string DatumImporte(const CoordState& state, CoordSystem system) {
  const SystemDatum datum = InfoDe(system).datums.imported;
  const std::int16_t index = IndiceDatum(state, datum);
  std::string code(CodeSpecial(datum));
  if (index != 0) {
    code = state.Catalogue.Datum(index).code;
  } else if (!EstSpecial(datum)) {
    code = datum == SystemDatum::Utm ? state.DatumUtmCode : state.DatumSpheriqueCode;
  }
  code = PremiersCaracteres(code, datumWidth);
  code.append(datumWidth - std::min(CompteCaracteres(code), datumWidth), ' ');
  return code;
}

TextImportReader::TextImportReader(ImportFile file, CoordSystem system, std::string datum)
    : fields_(std::move(file)),
      info_(InfoDe(system)),
      code_(Minuscules(info_.code) + " "),
      datum_(std::move(datum)) {}

bool TextImportReader::Suivant(ImportRecord& record) {
  if (failure_) std::rethrow_exception(failure_);
  try {
    return LitFiche(record);
  } catch (const TalpenaError& failure) {
    failure_ = std::make_exception_ptr(AvecRemede(failure, fields_, !begun_));
  } catch (...) {
    failure_ = std::current_exception();
  }
  std::rethrow_exception(failure_);
}

bool TextImportReader::LitFiche(ImportRecord& record) {
  if (!VaAFiche()) return false;
  fields_.CommenceFiche();
  ImportedRow& row = record.row;
  row.period = fields_.Entier16();
  record.line = fields_.Ligne();
  Pose(row.original, code_);
  record.dropped = LitCoordonnees(*row.original);
  row.n1 = fields_.Entier32();
  row.n2 = fields_.Entier32();
  PoseUneLigne(row.date, fields_.Texte());
  Pose(row.comment, fields_.Texte());
  row.datum = datum_;
  record.doubt = record.dropped == 0 ? DouteDe(*row.original) : 0;
  return begun_ = true;
}

/// What a reader of the list would not expect of the record, though it enters.
int TextImportReader::DouteDe(const std::string& original) const {
  if (fields_.APerdu()) return MsgId::RemedeGuillemets;
  return &info_ == &InfoDe(CoordSystem::Itm) && AUneLettre(original.substr(code_.size()))
             ? MsgId::IrlandaisUneLettre
             : 0;
}

/// Over empty lines and comments to where a record begins.
bool TextImportReader::VaAFiche() {
  for (bool commented = false; fields_.Reste();) {
    if (fields_.SauteLigneVide()) {
      commented = false;
    } else if (commented || !fields_.SauteLigneDe(commentMark)) {
      return true;
    } else {
      commented = true;
    }
  }
  return false;
}

int TextImportReader::LitCoordonnees(std::string& original) {
  switch (info_.content) {
    case Content::Angles:
      LitAngles(original);
      return 0;
    case Content::Metres:
      info_.tokens == 3 ? LitFuseau(original) : LitMetres(original);
      return 0;
    case Content::Reference:
      return LitReference(original);
  }
  return 0;
}

void TextImportReader::LitAngles(std::string& original) {
  const double latitude = fields_.Simple(FieldReader::Vide::Refuse);
  const double longitude = fields_.Simple(FieldReader::Vide::Refuse);
  original += Format(latitude, "+00.00000;-00.00000");
  original += ' ';
  original += Format(longitude, "+000.00000;-000.00000");
}

void TextImportReader::LitMetres(std::string& original) {
  original += StrSimple(fields_.Simple(FieldReader::Vide::Refuse));
  original += ' ';
  original += StrSimple(fields_.Simple(FieldReader::Vide::Refuse));
}

void TextImportReader::LitFuseau(std::string& original) {
  original += Str(std::int64_t{fields_.Entier16(FieldReader::Vide::Refuse)});
  for (int i = 0; i < 2; ++i) {
    original += ' ';
    original += Str(std::int64_t{fields_.Entier32(FieldReader::Vide::Refuse)});
  }
}

int TextImportReader::LitReference(std::string& original) {
  const std::string_view given = fields_.Texte();
  const std::string line =
      given.find('\n') == std::string_view::npos ? std::string(given) : SurUneLigne(given);
  const std::string reference = info_.cut.atLeast > 0 ? Majuscules(line) : line;
  if (CompteCaracteres(reference) < info_.cut.atLeast) {
    original.clear();
    return TexteTropCourt(info_.cut);
  }
  AjouteJetons(original, reference, info_.cut);
  std::replace(original.begin(), original.end(), ',', '.');
  return 0;
}

}  // namespace talpena
