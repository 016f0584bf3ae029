// A table as the engine knows it: its definition, how it lies in SQLite, who looks at it.
#pragma once
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/sqlite/rows/row_list.h"
#include "platform/table_engine.h"

namespace talpena::sqlite {

/// A name as it stands in a statement of SQLite.
std::string EntreGuillemets(std::string_view name);
/// A text as a literal of SQLite.
std::string Litteral(std::string_view text);

/// Names of tables and fields are equal without regard to case.
bool MemeNom(std::string_view a, std::string_view b);

enum class Storage : std::uint8_t { Integer, Real, Text, Blob };
Storage StockageDe(FieldType type);

class TableState {
 public:
  TableState(int number, TableDef definition);

  int Numero() const { return number_; }
  const TableDef& Definition() const { return definition_; }
  const std::string& Nom() const { return definition_.name; }
  const std::string& NomSql() const { return quotedName_; }
  /// The name that the table bears in SQLite, where "sqlite_" is no beginning for a user's.
  const std::string& NomInterne() const { return innerName_; }
  /// The 32-bit key of a row, quoted: the auto-increment field or a column of its own.
  const std::string& CleSql() const { return quotedKey_; }
  int ChampCle() const { return keyField_; }  ///< -1 when the key is no field
  int Champ(std::string_view name) const;     ///< -1 when absent; any letter case
  std::string ChampSql(int field) const { return EntreGuillemets(Def(field).name); }
  const FieldDef& Def(int field) const {
    return definition_.fields[static_cast<std::size_t>(field)];
  }
  /// All fields, quoted and joined by commas.
  std::string TousLesChamps() const;

  /// The statements that make the table and its indexes.
  std::vector<std::string> SqlCreation() const;

  // Every change of the table's rows.
  std::uint64_t Version() const { return version_; }
  void NoteChangement() { ++version_; }
  void NoteSuppression(RowKey key);
  void NoteSuppressions(const std::vector<RowKey>& keys);
  void NoteVidage();
  void NoteRetablissement(const std::vector<RowKey>& keys);
  void Inscrit(const std::shared_ptr<RowList>& list, bool inTransaction);

  // The highest key ever given, kept over a rollback.
  std::int64_t CleMax() const { return highestKey_; }
  void NoteCle(std::int64_t key) { highestKey_ = key > highestKey_ ? key : highestKey_; }

  void Debut();
  void Valide();
  void Annule();

 private:
  template <typename F>
  void PourListes(F&& f);

  int number_;
  TableDef definition_;
  std::string innerName_;
  std::string quotedName_;
  std::string key_;
  std::string quotedKey_;
  int keyField_ = -1;
  std::uint64_t version_ = 0;
  std::int64_t highestKey_ = 0;
  std::vector<std::weak_ptr<RowList>> lists_;
};

// Definitions are kept in the database itself, so that a reopened file knows its types.
std::string EcritDefinition(const TableDef& table);
/// UnrecognizedFormat (3343) when the text is none of EcritDefinition.
TableDef LitDefinition(std::string_view text);

}  // namespace talpena::sqlite
