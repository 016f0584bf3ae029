#include "platform/sqlite/geopackage/geopackage_writer.h"

#include <algorithm>
#include <bit>
#include <cstdio>
#include <optional>
#include <utility>
#include <vector>

#include "common/numbers.h"
#include "common/text.h"
#include "platform/foreign/errors.h"
#include "platform/geopackage_point.h"
#include "platform/sqlite/connection.h"
#include "platform/sqlite/errors.h"
#include "platform/sqlite/geopackage/geopackage_reader.h"
#include "platform/sqlite/geopackage/geopackage_schema.h"
#include "platform/sqlite/statement.h"

namespace talpena::sqlite {
namespace {

/// Rows of a transaction, which a full disk takes back: few while there are few, so that most of
/// them stay; many later, since each transaction writes much of the index of places anew.
constexpr std::int64_t fewestAtOnce = 1000, mostAtOnce = 16000;

/// Makes the file for SQLite to fill.
const std::string& Nouveau(const std::string& path) {
  std::FILE* const file = std::fopen(path.c_str(), "wxb");
  if (file == nullptr) throw AccesRefuse(path);
  std::fclose(file);
  return path;
}

void VerifieDefinition(const TableDef& table) {
  constexpr std::size_t mostFields = 1999;  // and the number of the row
  const std::string lower = Minuscules(table.name);
  const bool control = std::any_of(table.name.begin(), table.name.end(),
                                   [](char c) { return static_cast<unsigned char>(c) < ' '; });
  if (lower.empty() || control || lower.starts_with("gpkg_") || lower.starts_with("rtree_") ||
      lower.starts_with("sqlite_")) {
    throw foreign::NomRefuse(table.name);
  }
  if (table.fields.size() > mostFields) throw foreign::TropDeColonnes();
}

struct Place {
  double x = 0, y = 0;
};

/// The point that a cell of colonneGeometrie holds.
std::optional<Place> PlaceDe(const Cell& cell) {
  constexpr std::size_t xPlace = 13, yPlace = 21;
  if (cell.text.size() != PointGeoPackage(0, 0).size()) return {};
  const auto reel = [&](std::size_t at) {
    std::uint64_t bits = 0;
    for (std::size_t i = 8; i-- > 0;) {
      bits = (bits << 8U) | static_cast<unsigned char>(cell.text[at + i]);
    }
    return std::bit_cast<double>(bits);
  };
  return Place{reel(xPlace), reel(yPlace)};
}

/// The rectangle around the points.
struct Extent {
  double minX = 0, maxX = 0, minY = 0, maxY = 0;
  bool empty = true;

  void Ajoute(Place p) {
    if (std::exchange(empty, false)) {
      minX = maxX = p.x;
      minY = maxY = p.y;
    }
    minX = std::min(minX, p.x);
    maxX = std::max(maxX, p.x);
    minY = std::min(minY, p.y);
    maxY = std::max(maxY, p.y);
  }
};

/// The rows of one table on their way into the file.
class TableFiller {
 public:
  TableFiller(Connection& connection, const TableDef& table)
      : connection_(connection), table_(table), insert_(connection.Prepare(SqlAjout(table))) {
    for (std::size_t i = 0; i < table.fields.size(); ++i) {
      if (table.fields[i].type != FieldType::Binary) continue;
      if (table.fields[i].name == colonneGeometrie) geometry_ = i;
    }
    if (!geometry_) return;
    index_ = connection.Prepare("INSERT INTO " + Entoure(NomIndexSpatial(table.name)) +
                                " VALUES (?1, ?2, ?2, ?3, ?3)");
  }

  std::int64_t Remplit(RowSource& rows) {
    std::vector<Cell> cells(table_.fields.size());
    connection_.Execute("BEGIN");
    try {
      while (rows.Suivante(cells)) {
        Ajoute(cells);
        if (++count_ < nextCommit_) continue;
        nextCommit_ = count_ + std::clamp(count_, fewestAtOnce, mostAtOnce);
        connection_.Execute("COMMIT");
        connection_.Execute("BEGIN");
      }
    } catch (...) {
      TermineSansFaute();
      throw;
    }
    Termine();
    return count_;
  }

 private:
  static std::string SqlAjout(const TableDef& table) {
    std::string sql = "INSERT INTO " + Entoure(table.name) + " VALUES (NULL";
    for (std::size_t i = 0; i < table.fields.size(); ++i) sql += ", ?" + std::to_string(i + 1);
    return sql + ")";
  }

  void Ajoute(const std::vector<Cell>& cells) {
    for (std::size_t i = 0; i < cells.size(); ++i) {
      const FieldType type = table_.fields[i].type;
      insert_.Lie(static_cast<int>(i), Valeur(cells[i], type), type == FieldType::Binary);
    }
    insert_.Execute();
    const auto place = geometry_ ? PlaceDe(cells[*geometry_]) : std::nullopt;
    if (!place) return;
    index_.Lie(0, connection_.DerniereCle());
    index_.Lie(1, Cell::Of(place->x));
    index_.Lie(2, Cell::Of(place->y));
    index_.Execute();
    extent_.Ajoute(*place);
  }

  static Cell Valeur(const Cell& cell, FieldType type) {
    if (cell.EstNull()) return cell;
    if (type == FieldType::Single) return Cell::Of(Val(Str(static_cast<float>(cell.Nombre()))));
    if (type == FieldType::Boolean) return Cell::Of(std::int64_t{cell.Nombre() != 0});
    return cell;
  }

  void Termine() {
    connection_.Execute("COMMIT");
    // From here on the bytes are handed to the disk, those of before too.
    connection_.Execute("PRAGMA synchronous = FULL");
    EcritEtendue();
  }

  /// Behind a failure: what is written stays, if there is still room for it.
  void TermineSansFaute() {
    try {
      Termine();
    } catch (const TalpenaError&) {  // the one before it is told
    }
  }

  void EcritEtendue() {
    Statement update = connection_.Prepare(
        "UPDATE gpkg_contents SET min_x = ?1, min_y = ?2, max_x = ?3, max_y = ?4, last_change = "
        "strftime('%Y-%m-%dT%H:%M:%fZ','now') WHERE table_name = ?5");
    int parameter = 0;
    for (const double edge : {extent_.minX, extent_.minY, extent_.maxX, extent_.maxY}) {
      update.Lie(parameter++, extent_.empty ? Cell::Null() : Cell::Of(edge));
    }
    update.Lie(parameter, Cell::Of(std::string_view(table_.name)));
    update.Execute();
  }

  Connection& connection_;
  const TableDef& table_;
  Statement insert_;
  Statement index_;
  std::optional<std::size_t> geometry_;
  Extent extent_;
  std::int64_t count_ = 0;
  std::int64_t nextCommit_ = fewestAtOnce;
};

class PaquetEcrit final : public ForeignDatabase {
 public:
  explicit PaquetEcrit(const std::string& path)
      : path_(path), connection_(Nouveau(path), Connection::Mode::Fresh) {
    connection_.NommeFichier(path_);
    Execute(SqlDuPaquet());
  }

  std::vector<TableDef> Tables() override { return tables_; }
  std::unique_ptr<RowSource> Rows(std::string_view table) override {
    return LitLignesGeoPackage(path_, table);
  }

  void CreeTable(const TableDef& table) override {
    VerifieDefinition(table);
    if (Trouve(table.name) != nullptr) throw TableExiste(table.name);
    Execute(SqlDeTable(table));
    tables_.push_back(table);
  }

  std::int64_t InsereLignes(std::string_view table, RowSource& rows) override {
    const TableDef* const found = Trouve(table);
    if (found == nullptr) throw TableIntrouvable(table);
    return TableFiller(connection_, *found).Remplit(rows);
  }

 private:
  const TableDef* Trouve(std::string_view name) const {
    const auto found = std::find_if(tables_.begin(), tables_.end(), [&](const TableDef& table) {
      return EgalSansCasse(table.name, name);
    });
    return found == tables_.end() ? nullptr : &*found;
  }

  /// All of them or none.
  void Execute(const std::vector<std::string>& statements) {
    connection_.Execute("BEGIN");
    try {
      for (const std::string& sql : statements) connection_.Execute(sql);
      connection_.Execute("COMMIT");
    } catch (...) {
      try {
        connection_.Execute("ROLLBACK");
      } catch (const TalpenaError&) {  // it was rolled back by itself
      }
      throw;
    }
  }

  std::string path_;
  Connection connection_;
  std::vector<TableDef> tables_;
};

}  // namespace

std::unique_ptr<ForeignDatabase> EcritGeoPackage(const std::string& path) {
  return std::make_unique<PaquetEcrit>(path);
}

}  // namespace talpena::sqlite
