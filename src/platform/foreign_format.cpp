#include "platform/foreign_format.h"

#include "common/talpena_error.h"
#include "common/text.h"

namespace talpena {
namespace {

[[noreturn]] void RefuseEcriture() {
  throw TalpenaError(ErrorNumber::NotSupported,
                     "Operation is not supported: tables of this format can only be read.");
}

}  // namespace

bool MemeFormat(std::string_view connect, std::string_view other) {
  return EgalSansCasse(connect.substr(0, connect.find(';')), other.substr(0, other.find(';')));
}

std::int64_t ForeignDatabase::NombreLignes(std::string_view) { return -1; }
void ForeignDatabase::CreeTable(const TableDef&) { RefuseEcriture(); }
std::int64_t ForeignDatabase::InsereLignes(std::string_view, RowSource&) { RefuseEcriture(); }

bool ForeignFormat::EstEcrit(std::string_view) const { return false; }
std::unique_ptr<ForeignDatabase> ForeignFormat::OuvrePourEcrire(const std::string&) {
  RefuseEcriture();
}
std::unique_ptr<ForeignDatabase> ForeignFormat::Cree(const std::string&, const NewDatabase&) {
  RefuseEcriture();
}

}  // namespace talpena
