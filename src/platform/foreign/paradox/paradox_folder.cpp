#include "platform/foreign/paradox/paradox_folder.h"

#include <algorithm>
#include <exception>
#include <list>
#include <optional>
#include <utility>
#include <vector>

#include "common/msg_id_errors.h"
#include "common/talpena_error.h"
#include "common/text.h"
#include "platform/foreign/errors.h"
#include "platform/foreign/folder_of_tables.h"
#include "platform/foreign/paradox/head.h"
#include "platform/foreign/paradox/row_reader.h"
#include "platform/foreign/paradox/table_writer.h"

namespace talpena::paradox {
namespace {

constexpr std::string_view tableExtension = ".db", memoExtension = ".mb";

TalpenaError TableProtegee(const std::string& path) {
  return {ErrorNumber::UnrecognizedFormat,
          "Unrecognized database format '" + path + "': the table has a password.",
          {.text = MsgId::TableProtegee, .about = {path}}};
}

Input OuvreEntree(const std::string& path) { return {path, OuvreOctets(path)}; }

TableHead LitTeteLisible(const std::string& path) {
  TableHead head = LitTete(OuvreEntree(path));
  if (head.protege) throw TableProtegee(path);
  return head;
}

TableDef DefinitionDe(const TableFile& file) {
  TableDef definition{.name = file.table, .fields = {}, .indexes = {}};
  for (const Column& column : LitTeteLisible(file.path).columns) {
    definition.fields.push_back(Definition(column));
  }
  return definition;
}

class DossierParadox final : public ForeignDatabase {
 public:
  DossierParadox(const std::string& path, const ParadoxLimits& limits)
      : folder_(path, tableExtension), limits_(limits) {}

  /// Looks at all tables. When none can be read it raises why the first one cannot.
  void Lit() {
    std::exception_ptr first;
    for (TableFile& file : folder_.Tables()) {
      try {
        definitions_.push_back(DefinitionDe(file));
        files_.push_back(std::move(file));
      } catch (const TalpenaError&) {
        if (!first) first = std::current_exception();
        illisibles_.push_back({.name = file.table, .fields = {}, .indexes = {}});
      }
    }
    if (files_.empty() && first) std::rethrow_exception(first);
  }

  std::vector<TableDef> Tables() override {
    std::vector<TableDef> tables = definitions_;
    for (const TableWriter& table : written_) tables.push_back(table.Definition());
    return tables;
  }
  std::vector<TableDef> SystemTables() override { return illisibles_; }
  std::unique_ptr<RowSource> Rows(std::string_view table) override;
  std::int64_t NombreLignes(std::string_view table) override {
    return LitTeteLisible(FichierDe(table)).records;
  }
  void CreeTable(const TableDef& table) override;
  std::int64_t InsereLignes(std::string_view table, RowSource& rows) override;

 private:
  TableWriter* Ecrite(std::string_view name) {
    const auto found = std::ranges::find_if(
        written_, [&](const TableWriter& t) { return EgalSansCasse(t.Definition().name, name); });
    return found == written_.end() ? nullptr : &*found;
  }
  std::string FichierDe(std::string_view name) {
    if (const TableWriter* const written = Ecrite(name)) return written->Chemin();
    const auto found = std::ranges::find_if(
        files_, [&](const TableFile& file) { return EgalSansCasse(file.table, name); });
    if (found == files_.end()) throw foreign::TableIntrouvable(name);
    return found->path;
  }

  FolderOfTables folder_;
  ParadoxLimits limits_;
  std::vector<TableDef> definitions_;
  std::vector<TableDef> illisibles_;  ///< names of those that cannot be read
  std::vector<TableFile> files_;
  std::list<TableWriter> written_;
};

std::unique_ptr<RowSource> DossierParadox::Rows(std::string_view table) {
  const std::string path = FichierDe(table);
  TableHead head = LitTeteLisible(path);
  std::optional<MemoReader> memos;
  if (const auto beside = FichierVoisin(path, memoExtension)) {
    memos.emplace(OuvreEntree(*beside), limits_.octetsMemo);
  }
  return std::make_unique<RowReader>(OuvreEntree(path), std::move(head), std::move(memos), path);
}

void DossierParadox::CreeTable(const TableDef& table) {
  VerifieNomDeTable(table.name);
  if (Ecrite(table.name) != nullptr || folder_.FichierDe(table.name)) {
    throw foreign::TableExiste(table.name);
  }
  const TablePlace place{.table = folder_.Place(table.name, tableExtension),
                         .memos = folder_.Place(table.name, memoExtension)};
  written_.emplace_back(table, place, limits_);
}

std::int64_t DossierParadox::InsereLignes(std::string_view table, RowSource& rows) {
  TableWriter* const written = Ecrite(table);
  if (written == nullptr) throw foreign::TableIntrouvable(table);
  std::vector<Cell> cells(written->Definition().fields.size());
  try {
    while (rows.Suivante(cells)) written->Ajoute(cells);
  } catch (...) {
    written->Acheve();
    throw;
  }
  written->Acheve();
  return written->Lignes();
}

}  // namespace

bool EstTable(const std::string& path) {
  try {
    LitTete(OuvreEntree(path));
    return true;
  } catch (const TalpenaError&) {
    return false;
  }
}

std::unique_ptr<ForeignDatabase> OuvreDossier(const std::string& path,
                                              const ParadoxLimits& limits) {
  auto folder = std::make_unique<DossierParadox>(path, limits);
  folder->Lit();
  return folder;
}

std::unique_ptr<ForeignDatabase> OuvreDossierPourEcrire(const std::string& path,
                                                        const ParadoxLimits& limits) {
  auto folder = std::make_unique<DossierParadox>(path, limits);
  try {
    folder->Lit();
  } catch (const TalpenaError& error) {
    if (error.number() != ErrorNumber::UnrecognizedFormat &&
        error.number() != ErrorNumber::DatabaseNotFound) {
      throw;
    }
  }
  return folder;
}

}  // namespace talpena::paradox
