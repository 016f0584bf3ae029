#include "platform/sqlite/table_state.h"

#include <algorithm>

#include "common/text.h"
#include "platform/sqlite/collation.h"
#include "platform/sqlite/errors.h"

namespace talpena::sqlite {
namespace {

std::string Double(std::string_view text, char quote) {
  std::string result(1, quote);
  for (const char c : text) {
    if (c == quote) result.push_back(quote);
    result.push_back(c);
  }
  result.push_back(quote);
  return result;
}

std::string TypeSql(Storage storage) {
  switch (storage) {
    case Storage::Integer:
      return "INTEGER";
    case Storage::Real:
      return "REAL";
    case Storage::Text:
      return std::string("TEXT COLLATE ") + CollationName;
    case Storage::Blob:
      return "BLOB";
  }
  return "BLOB";
}

bool EstNomDeSqlite(std::string_view name) { return MemeNom(name.substr(0, 7), "sqlite_"); }

}  // namespace

bool MemeNom(std::string_view a, std::string_view b) {
  const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; };
  const bool plain =
      a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(),
                                         [&](char x, char y) { return lower(x) == lower(y); });
  if (plain) return true;
  const auto isAscii = [](char c) { return static_cast<unsigned char>(c) < 0x80; };
  if (std::all_of(a.begin(), a.end(), isAscii) || std::all_of(b.begin(), b.end(), isAscii)) {
    return false;
  }
  return EgalSansCasse(a, b);
}

std::string EntreGuillemets(std::string_view name) { return Double(name, '"'); }
std::string Litteral(std::string_view text) { return Double(text, '\''); }

Storage StockageDe(FieldType type) {
  switch (type) {
    case FieldType::Boolean:
    case FieldType::Byte:
    case FieldType::Integer:
    case FieldType::Long:
      return Storage::Integer;
    case FieldType::Currency:
    case FieldType::Single:
    case FieldType::Double:
    case FieldType::Date:
      return Storage::Real;
    case FieldType::Text:
    case FieldType::Memo:
      return Storage::Text;
    case FieldType::Binary:
      return Storage::Blob;
  }
  return Storage::Blob;
}

TableState::TableState(int number, TableDef definition)
    : number_(number),
      definition_(std::move(definition)),
      innerName_((EstNomDeSqlite(definition_.name) ? "#" : "") + definition_.name),
      quotedName_(EntreGuillemets(innerName_)) {
  const auto& fields = definition_.fields;
  const auto key = std::find_if(fields.begin(), fields.end(),
                                [](const FieldDef& field) { return field.autoIncrement; });
  if (key != fields.end()) {
    keyField_ = static_cast<int>(key - fields.begin());
    key_ = key->name;
  } else {
    key_ = "#";
    while (Champ(key_) >= 0) key_ += '#';
  }
  quotedKey_ = EntreGuillemets(key_);
}

int TableState::Champ(std::string_view name) const {
  const auto& fields = definition_.fields;
  const auto found = std::find_if(fields.begin(), fields.end(), [name](const FieldDef& field) {
    return MemeNom(field.name, name);
  });
  return found == fields.end() ? -1 : static_cast<int>(found - fields.begin());
}

std::string TableState::TousLesChamps() const {
  std::string list;
  for (const FieldDef& field : definition_.fields) {
    if (!list.empty()) list += ',';
    list += EntreGuillemets(field.name);
  }
  return list;
}

std::vector<std::string> TableState::SqlCreation() const {
  const std::string keySql = quotedKey_ + " INTEGER PRIMARY KEY AUTOINCREMENT";
  std::string columns = keyField_ < 0 ? keySql : std::string();
  for (std::size_t i = 0; i < definition_.fields.size(); ++i) {
    if (!columns.empty()) columns += ", ";
    const FieldDef& field = definition_.fields[i];
    if (static_cast<int>(i) == keyField_) {
      columns += keySql;
      continue;
    }
    columns += EntreGuillemets(field.name) + " " + TypeSql(StockageDe(field.type));
    if (field.required) columns += " NOT NULL";
  }
  std::vector<std::string> statements{"CREATE TABLE " + quotedName_ + " (" + columns + ") STRICT"};
  for (const IndexDef& index : definition_.indexes) {
    std::string list;
    for (const std::string& name : index.fields) {
      const int field = Champ(name);
      if (field < 0) throw ChampIntrouvable();
      if (!list.empty()) list += ", ";
      list += ChampSql(field);
    }
    if (list.empty()) throw ArgumentInvalide();
    // The names of indexes are shared by all tables of an SQLite database.
    const std::string name = EntreGuillemets("i:" + definition_.name + ":" + index.name);
    statements.push_back(std::string("CREATE ") + (index.unique || index.primary ? "UNIQUE " : "") +
                         "INDEX " + name + " ON " + quotedName_ + " (" + list + ")");
  }
  return statements;
}

template <typename F>
void TableState::PourListes(F&& f) {
  std::erase_if(lists_, [](const std::weak_ptr<RowList>& list) { return list.expired(); });
  for (const auto& weak : lists_) {
    if (const auto list = weak.lock()) f(*list);
  }
}

void TableState::NoteSuppression(RowKey key) {
  NoteChangement();
  PourListes([key](RowList& list) { list.Supprime(key); });
}

void TableState::NoteSuppressions(const std::vector<RowKey>& keys) {
  NoteChangement();
  PourListes([&keys](RowList& list) {
    for (const RowKey key : keys) list.Supprime(key);
  });
}

void TableState::NoteVidage() {
  NoteChangement();
  PourListes([](RowList& list) { list.SupprimeTout(); });
}

void TableState::NoteRetablissement(const std::vector<RowKey>& keys) {
  NoteChangement();
  PourListes([&keys](RowList& list) {
    for (const RowKey key : keys) list.Ranime(key);
  });
}

void TableState::Inscrit(const std::shared_ptr<RowList>& list, bool inTransaction) {
  std::erase_if(lists_, [](const std::weak_ptr<RowList>& other) { return other.expired(); });
  lists_.push_back(list);
  if (inTransaction) list->Debut();
}

void TableState::Debut() {
  PourListes([](RowList& list) { list.Debut(); });
}

void TableState::Valide() {
  PourListes([](RowList& list) { list.Valide(); });
}

void TableState::Annule() {
  NoteChangement();
  PourListes([](RowList& list) { list.Annule(); });
}

}  // namespace talpena::sqlite
