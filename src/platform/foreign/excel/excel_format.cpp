#include "platform/foreign/excel/excel_format.h"

#include <string>
#include <utility>

#include "platform/foreign/errors.h"
#include "platform/foreign/excel/biff_workbook.h"
#include "platform/foreign/excel/biff_writer.h"
#include "platform/foreign/excel/sheet_writer.h"
#include "platform/foreign/excel/workbook_database.h"
#include "platform/foreign/excel/xlsx_workbook.h"
#include "platform/foreign/excel/xlsx_writer.h"

namespace talpena {
namespace {

using excel::ByteSource;
using excel::SheetFormat;
using excel::SheetWriter;
using excel::Workbook;

/// What the two kinds of workbooks have in common: a file of sheets, written one at a time.
class WorkbookFormat : public ForeignFormat {
 public:
  WorkbookFormat(std::string_view connect, const LimitesExcel& limits)
      : limites_(limits), connect_(connect) {}

  void SuitAttente(const WorkBeat& attente) override { *attente_ = attente; }

  bool Reconnait(const std::string&, std::string_view connect) override {
    return EstEcrit(connect);
  }

  std::unique_ptr<ForeignDatabase> Ouvre(const std::string& path) override {
    return excel::CreeBaseDeClasseur(
        Classeur(std::make_shared<excel::FileBytes>(path, limites_.octetsLus, attente_)));
  }

  bool EstEcrit(std::string_view connect) const override { return MemeFormat(connect, connect_); }

  std::unique_ptr<ForeignDatabase> OuvrePourEcrire(const std::string& path) override {
    return excel::CreeBaseDeFeuille(
        {.limits = Limites(),
         .cree = [this, path](const TableDef& table,
                              const std::string& sheet) { return Feuille(path, table, sheet); },
         .ouvre = [this, path] { return Ouvre(path); }});
  }

  std::unique_ptr<ForeignDatabase> Cree(const std::string& path,
                                        const NewDatabase& settings) override {
    if (settings != NewDatabase{}) throw foreign::DefinitionRefusee();
    return OuvrePourEcrire(path);
  }

 protected:
  LimitesExcel limites_;

 private:
  virtual std::unique_ptr<Workbook> Classeur(std::shared_ptr<ByteSource> file) = 0;
  virtual excel::SheetLimits Limites() const = 0;
  virtual std::unique_ptr<SheetWriter> Feuille(const std::string& path, const TableDef& table,
                                               const std::string& sheet) = 0;

  std::string_view connect_;
  std::shared_ptr<WorkBeat> attente_ = std::make_shared<WorkBeat>();
};

class FormatExcel final : public WorkbookFormat {
 public:
  explicit FormatExcel(const LimitesExcel& limits) : WorkbookFormat(Connect::Excel5, limits) {}

 private:
  std::unique_ptr<Workbook> Classeur(std::shared_ptr<ByteSource> file) override {
    return excel::OuvreClasseurBiff(std::move(file));
  }
  excel::SheetLimits Limites() const override { return excel::limitsBiff5; }
  std::unique_ptr<SheetWriter> Feuille(const std::string& path, const TableDef& table,
                                       const std::string& sheet) override {
    return excel::CreeFeuilleBiff5(path, limites_.octetsEcrits, table, sheet);
  }
};

class FormatXlsx final : public WorkbookFormat {
 public:
  explicit FormatXlsx(const LimitesExcel& limits) : WorkbookFormat(Connect::Excel12, limits) {}

 private:
  std::unique_ptr<Workbook> Classeur(std::shared_ptr<ByteSource> file) override {
    return excel::OuvreClasseurXlsx(std::move(file));
  }
  excel::SheetLimits Limites() const override { return excel::limitsXlsx; }
  std::unique_ptr<SheetWriter> Feuille(const std::string& path, const TableDef& table,
                                       const std::string& sheet) override {
    return excel::CreeFeuilleXlsx(path, table, sheet);
  }
};

}  // namespace

std::unique_ptr<ForeignFormat> CreeFormatExcel(const LimitesExcel& limits) {
  return std::make_unique<FormatExcel>(limits);
}

std::unique_ptr<ForeignFormat> CreeFormatXlsx(const LimitesExcel& limits) {
  return std::make_unique<FormatXlsx>(limits);
}

}  // namespace talpena
