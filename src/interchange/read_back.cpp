#include "interchange/read_back.h"

#include <algorithm>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "common/grouped_number.h"
#include "common/msg_id_export.h"
#include "common/numbers.h"
#include "common/talpena_error.h"
#include "common/text.h"

namespace talpena {
namespace {

bool EstTexte(FieldType type) { return type == FieldType::Text || type == FieldType::Memo; }

/// What a value is shown by where it differs.
std::string Extrait(const Cell& cell, FieldType type) {
  constexpr std::size_t longest = 60;
  if (type == FieldType::Binary) return cell.EstNull() ? "" : "...";
  const bool single = type == FieldType::Single && cell.kind == Cell::Kind::Real;
  const std::string whole = single ? Str(static_cast<float>(cell.real)) : cell.Texte();
  const std::string_view shown = PremiersCaracteres(whole, longest);
  return std::string(shown) + (shown.size() < whole.size() ? "..." : "");
}

class ReadBack {
 public:
  ReadBack(CommandContext c, const DatabaseTarget& target, const DatabasePlace& place,
           DatabaseRows& rows, const std::function<void(double)>& avance)
      : langue_(c.state.Langue), target_(target), rows_(rows), avance_(avance) {
    database_ = c.io.engine.OpenDatabase(place.Chemin(), true, target.connect);
    database_->SuitImport([this](std::int64_t done, std::int64_t) { Avance(done, 0); });
    // In brackets it is a name whatever its words: a table may be called "select it".
    table_ = database_->OpenRecordset("[" + NomDeTable(place.table) + "]");
  }

  void Compare() {
    rows_.Recommence([this](std::int64_t done) { Avance(done, 0.5); });
    std::vector<Cell> written(rows_.Colonnes().size());
    std::vector<Cell> read(table_->Fields().size());
    table_->MoveFirst();
    table_->AnnonceParcours({});
    while (rows_.Suivante(written)) {
      if (rows_.Rangee() > 1 && !table_->EOF_()) table_->MoveNext();
      if (table_->EOF_() || read.size() < written.size()) throw AutreNombre();
      table_->LitLigne(read);
      CompareLigne(written, read);
    }
    if (table_->RecordCount() != rows_.Total()) throw AutreNombre();
  }

 private:
  /// The reader may know the table by the name that the format could keep of it.
  std::string NomDeTable(const std::string& wanted) const {
    const std::vector<std::string> names = database_->TableNames();
    const auto same = std::find_if(names.begin(), names.end(), [&](const std::string& name) {
      return EgalSansCasse(name, wanted);
    });
    return same != names.end() || names.empty() ? wanted : names.front();
  }

  void Avance(std::int64_t done, double start) {
    const auto total = static_cast<double>(std::max<std::int64_t>(rows_.Total(), 1));
    avance_(start + 0.5 * std::min(static_cast<double>(done) / total, 1.0));
  }

  void CompareLigne(const std::vector<Cell>& written, const std::vector<Cell>& read) const {
    for (std::size_t i = 0; i < written.size(); ++i) {
      const FieldDef& field = rows_.Colonnes()[i].field;
      if (!EstRendu(field.type, written[i], read[i])) throw AutreValeur(field, written[i], read[i]);
    }
  }

  /// A text that is empty is Null to some formats, and a number is read as the widest there is.
  bool EstRendu(FieldType type, const Cell& written, const Cell& read) const {
    if (EstTexte(type) || type == FieldType::Binary) {
      return EstTexteRendu(written.text, read);
    }
    if (written.EstNull() || read.EstNull()) return written.EstNull() == read.EstNull();
    if (read.kind == Cell::Kind::Text) return false;
    if (type == FieldType::Single) {
      return static_cast<float>(written.Nombre()) == static_cast<float>(read.Nombre());
    }
    return written.Nombre() == read.Nombre();
  }

  bool EstTexteRendu(std::string_view written, const Cell& read) const {
    if (read.kind != Cell::Kind::Text && !read.EstNull()) return false;
    return written == read.text ||
           (target_.losesEndBlanks && RogneDroite(written) == RogneDroite(read.text));
  }

  TalpenaError AutreValeur(const FieldDef& field, const Cell& written, const Cell& read) const {
    const std::string row = NombreGroupe(langue_, rows_.Rangee());
    return {ErrorNumber::DeviceFault,
            "Device I/O error: row " + row + ", " + field.name + " does not come back as written",
            {.text = MsgId::ValeurRelue,
             .about = {row, field.name, Extrait(read, field.type), Extrait(written, field.type)}}};
  }

  TalpenaError AutreNombre() const {
    const std::string there = NombreGroupe(langue_, table_->RecordCount());
    const std::string wanted = NombreGroupe(langue_, rows_.Total());
    return {ErrorNumber::DeviceFault,
            "Device I/O error: " + there + " rows come back, " + wanted + " were written",
            {.text = MsgId::NombreRelu, .about = {there, wanted}}};
  }

  std::int16_t langue_;
  const DatabaseTarget& target_;
  DatabaseRows& rows_;
  const std::function<void(double)>& avance_;
  std::unique_ptr<Database> database_;
  std::unique_ptr<Recordset> table_;
};

}  // namespace

void RelitBase(CommandContext c, const DatabaseTarget& target, const DatabasePlace& place,
               DatabaseRows& rows, const std::function<void(double)>& avance) {
  ReadBack(c, target, place, rows, avance).Compare();
}

}  // namespace talpena
