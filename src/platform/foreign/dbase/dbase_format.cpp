#include "platform/foreign/dbase/dbase_format.h"

#include <algorithm>
#include <filesystem>
#include <list>
#include <string>
#include <system_error>
#include <utility>

#include "common/talpena_error.h"
#include "common/text.h"
#include "platform/foreign/dbase/columns.h"
#include "platform/foreign/dbase/folder_reader.h"
#include "platform/foreign/dbase/table_writer.h"
#include "platform/foreign/errors.h"
#include "platform/foreign/folder_of_tables.h"

namespace talpena {
namespace {

using namespace dbase;

/// A folder, or one file of it, for reading.
class DossierLu : public ForeignDatabase {
 public:
  explicit DossierLu(FolderReader reader) : reader_(std::move(reader)) {}

  std::vector<TableDef> Tables() override { return reader_.Tables(); }
  std::vector<TableDef> SystemTables() override { return reader_.Illisibles(); }
  std::unique_ptr<RowSource> Rows(std::string_view table) override { return reader_.Rows(table); }
  std::int64_t NombreLignes(std::string_view table) override { return reader_.NombreLignes(table); }

 protected:
  const FolderOfTables& Dossier() const { return reader_.Dossier(); }

 private:
  FolderReader reader_;
};

/// The same, and tables may be made in it.
class DossierEcrit final : public DossierLu {
 public:
  DossierEcrit(FolderReader reader, Product product, const LimitesDbase& limits)
      : DossierLu(std::move(reader)), product_(product), limits_(limits) {}

  void CreeTable(const TableDef& table) override {
    VerifieNomDeTable(table.name);
    if (!table.indexes.empty()) throw foreign::NonEcrit("an index of a table in such a folder");
    if (Dossier().FichierDe(table.name)) throw foreign::TableExiste(table.name);
    made_.emplace_back(product_, Dossier(), table, limits_);
  }

  std::int64_t InsereLignes(std::string_view table, RowSource& rows) override {
    const auto made = std::ranges::find_if(made_, [&](const TableWriter& writer) {
      return EgalSansCasse(writer.Definition().name, table);
    });
    if (made == made_.end()) throw foreign::TableIntrouvable(table);
    made->Ajoute(rows);
    return made->Lignes();
  }

 private:
  Product product_;
  LimitesDbase limits_;
  std::list<TableWriter> made_;
};

/// The folder that a path for tables to be made in means.
std::string DossierPourEcrire(const std::string& path) {
  std::string folder = FolderOfTables(path, tableEnd).Dossier();
  std::error_code ignored;
  if (!std::filesystem::is_directory(std::filesystem::path(folder), ignored)) {
    throw TalpenaError(ErrorNumber::PathNotFound, "Path not found: '" + folder + "'.",
                       {.about = {folder}});
  }
  return folder;
}

class FormatDbase final : public ForeignFormat {
 public:
  FormatDbase(Product product, std::string_view connect, const LimitesDbase& limits)
      : product_(product), connect_(connect), limits_(limits) {}

  void SuitAttente(const WorkBeat& attente) override { *attente_ = attente; }

  bool Reconnait(const std::string& path, std::string_view connect) override {
    return MemeFormat(connect, connect_) || (connect.empty() && EstTable(path));
  }

  std::unique_ptr<ForeignDatabase> Ouvre(const std::string& path) override {
    return std::make_unique<DossierLu>(FolderReader(path, limits_, attente_));
  }

  bool EstEcrit(std::string_view connect) const override { return MemeFormat(connect, connect_); }

  std::unique_ptr<ForeignDatabase> OuvrePourEcrire(const std::string& path) override {
    return std::make_unique<DossierEcrit>(FolderReader(DossierPourEcrire(path), limits_, attente_),
                                          product_, limits_);
  }

 private:
  Product product_;
  std::string_view connect_;
  LimitesDbase limits_;
  std::shared_ptr<WorkBeat> attente_ = std::make_shared<WorkBeat>();
};

}  // namespace

std::unique_ptr<ForeignFormat> CreeFormatDbase(const LimitesDbase& limits) {
  return std::make_unique<FormatDbase>(Product::DbaseIV, Connect::DBase4, limits);
}

std::unique_ptr<ForeignFormat> CreeFormatFoxPro(const LimitesDbase& limits) {
  return std::make_unique<FormatDbase>(Product::FoxPro25, Connect::FoxPro25, limits);
}

}  // namespace talpena
