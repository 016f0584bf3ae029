#include "platform/foreign/excel/excel_format.h"

#include <algorithm>
#include <string>
#include <utility>

#include "common/talpena_error.h"
#include "platform/foreign/excel/biff_workbook.h"
#include "platform/foreign/excel/biff_writer.h"
#include "platform/foreign/excel/sheet_writer.h"
#include "platform/foreign/excel/workbook_database.h"
#include "platform/foreign/errors.h"

namespace talpena {
namespace {

class FormatExcel final : public ForeignFormat {
 public:
  explicit FormatExcel(const LimitesExcel& limits) : limites_(limits) {}

  void SuitAttente(const WorkBeat& attente) override { *attente_ = attente; }

  bool Reconnait(const std::string&, std::string_view connect) override {
    return EstEcrit(connect);
  }

  std::unique_ptr<ForeignDatabase> Ouvre(const std::string& path) override {
    auto file = std::make_shared<excel::FileBytes>(path, limites_.octetsLus);
    return excel::CreeBaseDeClasseur(excel::OuvreClasseurBiff(std::move(file)), attente_);
  }

  bool EstEcrit(std::string_view connect) const override {
    return MemeFormat(connect, Connect::Excel5);
  }

  std::unique_ptr<ForeignDatabase> OuvrePourEcrire(const std::string& path) override {
    return excel::CreeBaseDeFeuille(
        {.limits = excel::limitsBiff5,
         .cree =
             [path, most = limites_.octetsEcrits](const TableDef& table, const std::string& sheet) {
               return excel::CreeFeuilleBiff5(path, most, table, sheet);
             },
         .ouvre = [this, path] { return Ouvre(path); }});
  }

  std::unique_ptr<ForeignDatabase> Cree(const std::string& path,
                                        const NewDatabase& settings) override {
    if (settings != NewDatabase{}) throw foreign::DefinitionRefusee();
    return OuvrePourEcrire(path);
  }

 private:
  LimitesExcel limites_;
  std::shared_ptr<WorkBeat> attente_ = std::make_shared<WorkBeat>();
};

}  // namespace

std::unique_ptr<ForeignFormat> CreeFormatExcel(const LimitesExcel& limits) {
  return std::make_unique<FormatExcel>(limits);
}

}  // namespace talpena
