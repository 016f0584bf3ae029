// Conditions and whole statements as a user might send them: the engine answers with rows or
// with a TalpenaError that it knows, and the table stays as it was.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include "common/talpena_error.h"
#include "platform/sqlite/sqlite_engine.h"

using namespace talpena;

namespace {

constexpr int EngineFault = 3000;      // what no input may lead to
constexpr int QueryTooComplex = 3360;  // what no short one may: its translation would be wrong
// The parser of the engine below holds 100 symbols, and "1^-1^-1" puts seven of them there for
// three characters: 13 powers are too many for it, whatever the translation.
constexpr std::size_t Short = 32;
constexpr std::int64_t RowCount = 4;

/// A folder in memory where there is one: nothing waits for a disk.
std::string DossierEnMemoire() {
  const std::filesystem::path memory("/dev/shm");
  std::error_code none;
  const auto place =
      std::filesystem::is_directory(memory, none) ? memory : std::filesystem::temp_directory_path();
  std::string folder = (place / "talpena-fuzz-XXXXXX").string();
  if (mkdtemp(folder.data()) == nullptr) std::abort();
  return folder;
}

/// True for what may be meant as a statement: SELECT, DELETE, UPDATE, INSERT, DROP.
bool CommenceParUnMot(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t\r\n(");
  constexpr std::string_view initials = "SsDdUuIi";
  return first != std::string_view::npos && initials.find(text[first]) != std::string_view::npos;
}

/// One small table and its rows by latitude, opened once.
class World {
 public:
  World() : engine_(CreeMoteurSqlite()), folder_(DossierEnMemoire()) {
    const std::string folder = folder_.string();
    database_ = engine_->CreateDatabase(folder + "/t.mdb", {});
    TableDef table;
    table.name = "TALPENA";
    table.fields = {{"Counter", FieldType::Long, 0, false, true, false},
                    {"PERIOD", FieldType::Integer},
                    {"LATITUDE", FieldType::Single},
                    {"SEX", FieldType::Text, 1, true},
                    {"DATE", FieldType::Text, 10, true},
                    {"COMMENT", FieldType::Memo, 0, true}};
    database_->CreateTable(table);
    for (std::int64_t i = 0; i < RowCount; ++i) {
      database_->Execute("INSERT INTO TALPENA (PERIOD, LATITUDE, SEX, DATE, COMMENT) VALUES (" +
                         std::to_string(i) + ", 4.1, 'm', '1987/05/12', 'Été 12 [x]')");
    }
    sorted_ = database_->OpenRecordset("SELECT * FROM TALPENA ORDER BY LATITUDE DESC");
  }
  ~World() {
    sorted_.reset();
    database_.reset();
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }

  void Essaie(std::string_view text) {
    const std::string condition(text);
    size_ = text.size();
    Garde([&] { Parcourt("SELECT * FROM TALPENA WHERE " + condition); });
    Garde([&] {
      if (sorted_->FindFirst(condition)) sorted_->FindNext(condition);
    });
    if (!CommenceParUnMot(text)) return;
    Garde([&] { Parcourt(condition); });
    Garde([&] { Change(condition); });
  }

 private:
  void Parcourt(const std::string& source) {
    const auto rows = database_->OpenRecordset(source);
    for (; !rows->EOF_(); rows->MoveNext()) {
      for (std::size_t i = 0; i < rows->Fields().size(); ++i) rows->Get(static_cast<int>(i));
    }
  }

  /// Only what was taken can have changed the table.
  void Change(const std::string& statement) {
    {
      const Transaction transaction(*database_);
      database_->Execute(statement);
    }
    if (database_->OpenRecordset("TALPENA")->RecordCount() != RowCount) std::abort();
  }

  template <typename Body>
  void Garde(Body&& body) {
    try {
      body();
    } catch (const TalpenaError& error) {
      const bool tooComplex = error.number() == QueryTooComplex && size_ < Short;
      if (error.number() != EngineFault && !tooComplex) return;
      std::fprintf(stderr, "%s\n", error.what());
      std::abort();
    }
  }

  std::unique_ptr<TableEngine> engine_;
  std::filesystem::path folder_;
  std::unique_ptr<Database> database_;
  std::unique_ptr<Recordset> sorted_;
  std::size_t size_ = 0;  ///< of the input at hand
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static World world;
  world.Essaie({reinterpret_cast<const char*>(data), size});
  return 0;
}
