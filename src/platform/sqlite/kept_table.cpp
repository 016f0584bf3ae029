#include "platform/sqlite/kept_table.h"

#include <filesystem>
#include <optional>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "platform/sqlite/imported_database.h"
#include "platform/sqlite/kept_copies.h"
#include "platform/sqlite/kept_order.h"
#include "platform/sqlite/private_file.h"
#include "platform/sqlite/savepoint.h"

namespace talpena::sqlite {
namespace {

constexpr const char* StampTable = "talpena_kept";

bool EstTexte(const TableState& table, int field) {
  return field >= 0 && StockageDe(table.Def(field).type) == Storage::Text;
}

class KeptDatabase final : public SqliteDatabase {
 public:
  KeptDatabase(const KeptTable& kept, std::string path)
      // Nobody ever changes a copy: it is not locked for each row that is looked at.
      : SqliteDatabase(std::make_shared<Connection>(path, Connection::Mode::Foreign), true),
        path_(std::move(path)) {
    if (!EstLeNotre() || LitEmpreinte() != kept.stamp) throw FormatInconnu(path_);
    ChargeDefinitions();
    if (const TableState* table = connection_->Table(kept.table)) {
      const int field = table->Champ(kept.field);
      if (EstTexte(*table, field)) order_.emplace(*connection_, *table, field);
    }
  }

  std::unique_ptr<Recordset> OpenRecordset(std::string_view source) override {
    try {
      return SqliteDatabase::OpenRecordset(source);
    } catch (const TalpenaError& error) {
      if (error.number() == ErrorNumber::UnrecognizedFormat) OteCopie(path_);
      throw;
    }
  }

 private:
  std::string LitEmpreinte() {
    Statement rows = connection_->Prepare(std::string("SELECT stamp FROM ") + StampTable);
    return rows.Avance() ? std::string(rows.Texte(0)) : std::string();
  }

  std::optional<std::vector<RowKey>> LignesConnues(const Selection& selection) override {
    return order_ ? order_->Cherche(selection) : std::nullopt;
  }

  std::string path_;
  std::optional<KeptOrder> order_;
};

class KeepingDatabase final : public ImportedDatabase {
 public:
  KeepingDatabase(std::unique_ptr<ForeignDatabase> foreign, KeptTable kept, std::string path)
      : ImportedDatabase(std::move(foreign), false,
                         std::make_shared<Connection>(path, Connection::Mode::Fresh)),
        kept_(std::move(kept)),
        path_(std::move(path)) {}
  ~KeepingDatabase() override {
    if (!placed_) OteCopie(path_);
  }
  KeepingDatabase(const KeepingDatabase&) = delete;
  KeepingDatabase& operator=(const KeepingDatabase&) = delete;

 protected:
  TableState* Trouve(std::string_view name) override {
    // A copy is never changed: no other table joins it.
    if (placed_ && !MemeNom(name, kept_.table)) throw TableIntrouvable(name);
    TableState* table = ImportedDatabase::Trouve(name);
    if (table != nullptr && !tried_ && MemeNom(name, kept_.table)) {
      tried_ = true;
      Garde(*table);
    }
    return table;
  }

 private:
  /// Without a copy the rows are here all the same: only giving up is a failure.
  void Garde(TableState& table) {
    try {
      Acheve(table);
      placed_ = PlaceCopie(kept_, path_);
    } catch (const TalpenaError& error) {
      if (error.number() == ErrorNumber::Cancelled) throw;
    }
  }

  void Acheve(TableState& table) {
    const int field = table.Champ(kept_.field);
    PointDeReprise point(*connection_);
    if (EstTexte(table, field)) {
      KeptOrder::Garde(*connection_, table, field);
    } else if (field >= 0) {
      connection_->Execute("CREATE INDEX \"tlp:equal\" ON " + table.NomSql() + " (" +
                           table.ChampSql(field) + ")");
    }
    MarqueLeNotre(*connection_);
    NoteDefinition(*connection_, table.Definition());
    connection_->Execute(std::string("CREATE TABLE ") + StampTable + " (stamp TEXT) STRICT");
    connection_->Execute(std::string("INSERT INTO ") + StampTable + " VALUES (" +
                         Litteral(kept_.stamp) + ")");
    point.Valide();
    OteJournal();
    if (EstTexte(table, field)) order_.emplace(*connection_, table, field);
  }

  /// What stood ready for taking back goes with the lock, which comes back for reading: no row that
  /// is looked at needs one of its own then.
  void OteJournal() {
    for (const char* sql :
         {"PRAGMA locking_mode = NORMAL", "PRAGMA journal_mode = DELETE",
          "SELECT 1 FROM sqlite_schema LIMIT 1", "PRAGMA locking_mode = EXCLUSIVE"}) {
      connection_->Execute(sql);
    }
  }

  std::optional<std::vector<RowKey>> LignesConnues(const Selection& selection) override {
    return order_ ? order_->Cherche(selection) : std::nullopt;
  }

  KeptTable kept_;
  std::string path_;
  bool tried_ = false;
  bool placed_ = false;
  std::optional<KeptOrder> order_;
};

bool EstLa(const std::string& path) {
  std::error_code ignored;
  return std::filesystem::exists(
      std::filesystem::path(reinterpret_cast<const char8_t*>(path.c_str())), ignored);
}

}  // namespace

std::unique_ptr<Database> OuvreCopie(const KeptTable& kept) {
  const std::string path = CheminCopie(kept);
  if (!EstLa(path)) return nullptr;
  try {
    auto copy = std::make_unique<KeptDatabase>(kept, path);
    NoteLecture(path);
    return copy;
  } catch (const TalpenaError& error) {
    if (error.number() != ErrorNumber::FileInUse) OteCopie(path);
    return nullptr;
  }
}

std::unique_ptr<Database> OuvreEnGardant(std::unique_ptr<ForeignDatabase> foreign,
                                         const KeptTable& kept) {
  std::string path;
  try {
    path = CheminNouvelleCopie(kept);
    CreeFichierPrive(path);
  } catch (const TalpenaError&) {
    return std::make_unique<ImportedDatabase>(std::move(foreign), false);
  }
  return std::make_unique<KeepingDatabase>(std::move(foreign), kept, path);
}

}  // namespace talpena::sqlite
