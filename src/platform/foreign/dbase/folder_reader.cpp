#include "platform/foreign/dbase/folder_reader.h"

#include <algorithm>
#include <utility>

#include "common/talpena_error.h"
#include "common/text.h"
#include "platform/foreign/dbase/header.h"
#include "platform/foreign/errors.h"

namespace talpena::dbase {
namespace {

constexpr std::string_view codePageEnd = ".cpg";

/// What a short file beside the table holds; empty when there is none.
std::string LitPage(const std::string& path) {
  constexpr std::size_t longest = 64;
  const auto beside = FichierVoisin(path, codePageEnd);
  if (!beside) return {};
  const auto bytes = OuvreOctets(*beside);
  std::string content(longest, '\0');
  content.resize(bytes->Lit(0, content));
  return content;
}

std::shared_ptr<const BytesAt> OuvreMemos(const std::string& path, MemoKind kind) {
  if (kind == MemoKind::None) return {};
  const auto beside = FichierVoisin(path, kind == MemoKind::Fpt ? ".fpt" : ".dbt");
  return beside ? OuvreOctets(*beside) : nullptr;
}

/// Most names are in ASCII, whatever the code page.
bool NomsSimples(const Header& header) {
  return std::ranges::all_of(header.columns, [](const Column& c) { return EstAscii(c.name); });
}

/// What a table that cannot be read is to a list: not there.
bool EstPasse(const TalpenaError& error) {
  return error.number() == ErrorNumber::UnrecognizedFormat ||
         error.number() == ErrorNumber::DatabaseNotFound ||
         error.number() == ErrorNumber::PermissionDenied;
}

}  // namespace

bool EstTable(const std::string& path) {
  try {
    return LitEnTete(*OuvreOctets(path)).has_value();
  } catch (const TalpenaError&) {
    return false;
  }
}

FolderReader::FolderReader(const std::string& path, const LimitesDbase& limits,
                           std::shared_ptr<const WorkBeat> attente)
    : folder_(path, tableEnd), limits_(limits), attente_(std::move(attente)) {}

TableReader FolderReader::Ouvre(const std::string& path) const {
  TableBytes bytes{.path = path, .rows = OuvreOctets(path)};
  const auto header = LitEnTete(*bytes.rows);
  if (!header) throw foreign::FormatInconnu(path);
  bytes.memos = OuvreMemos(path, header->memos);
  bytes.codePage = LitPage(path);
  return {std::move(bytes), limits_, attente_};
}

TableDef FolderReader::Definition(const TableFile& file) const {
  TableReader alone({.path = file.path, .rows = OuvreOctets(file.path)}, limits_, attente_);
  if (NomsSimples(alone.Tete())) return alone.Definition(file.table);
  return Ouvre(file.path).Definition(file.table);
}

std::vector<TableDef> FolderReader::Tables() const {
  const std::vector<TableFile> files = folder_.Tables();
  std::vector<TableDef> tables;
  for (const TableFile& file : files) {
    try {
      tables.push_back(Definition(file));
    } catch (const TalpenaError& error) {
      if (folder_.EstUnSeul() || !EstPasse(error)) throw;
    }
  }
  return tables;
}

std::vector<TableDef> FolderReader::Illisibles() const {
  std::vector<TableDef> tables;
  for (const TableFile& file : folder_.Tables()) {
    try {
      Definition(file);
    } catch (const TalpenaError& error) {
      if (!EstPasse(error)) throw;
      tables.push_back({.name = file.table, .fields = {}, .indexes = {}});
    }
  }
  return tables;
}

TableReader FolderReader::Trouve(std::string_view table) const {
  for (const TableFile& file : folder_.Tables()) {
    if (EgalSansCasse(file.table, table)) return Ouvre(file.path);
  }
  throw foreign::TableIntrouvable(table);
}

std::unique_ptr<RowSource> FolderReader::Rows(std::string_view table) const {
  return Trouve(table).Lignes();
}

std::int64_t FolderReader::NombreLignes(std::string_view table) const {
  return Trouve(table).Tete().rows;
}

}  // namespace talpena::dbase
