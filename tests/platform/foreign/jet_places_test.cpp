// Where an Access file lies and what its catalogue says of a table: a folder that nobody may write,
// a file that another program has open, tables that are linked, hidden or the maker's own.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <unistd.h>

#include <cstdint>
#include <set>
#include <string>
#include <string_view>

#include "platform/foreign/isolated_process.h"
#include "platform/foreign/jet_files.h"
#include "platform/foreign/written_files.h"
#include "platform/sqlite/sqlite_engine.h"

namespace talpena {
namespace {

using namespace test;
using namespace std::string_view_literals;

/// A written file with the table "Bees" and two rows.
std::string FichierEcrit(const TempFolder& folder) {
  const std::string path = folder / "bees.mdb";
  const WrittenFile file(path);
  const TableDef table{
      .name = "Bees", .fields = {Champ("N", FieldType::Long)}, .indexes = {}, .attributes = 0};
  MadeRows rows = Source({{std::int64_t{1}}, {std::int64_t{2}}});
  file.Ecrit(table, rows);
  return path;
}

std::set<std::string> Contenu(const fs::path& folder) {
  std::set<std::string> names;
  for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
    names.insert(entry.path().filename().string());
  }
  return names;
}

/// Reads all that there is to read, through the engine.
void LitTout(const std::string& path) {
  std::vector<std::unique_ptr<ForeignFormat>> formats;
  formats.push_back(CreeFormatJet());
  const auto engine = CreeMoteurSqlite(std::move(formats));
  const auto database = engine->OpenDatabase(path, true);
  EXPECT_FALSE(database->TableNames().empty());
  for (const std::string& name : database->TableNames()) database->OpenRecordset("[" + name + "]");
  EXPECT_FALSE(database->Tables().empty());
  database->Queries();
}

TEST(JetPlaces, NothingIsWrittenBesideAFile) {
  const TempFolder folder;
  const std::string path = FichierEcrit(folder);
  const std::string before = Lis(path);
  const auto time = fs::last_write_time(path);
  fs::permissions(path, fs::perms::owner_read | fs::perms::group_read);
  fs::permissions(folder.path(), fs::perms::owner_read | fs::perms::owner_exec);
  LitTout(path);
  fs::permissions(folder.path(), fs::perms::owner_all);
  EXPECT_EQ(Contenu(folder.path()), std::set<std::string>{"bees.mdb"});
  EXPECT_EQ(Lis(path), before);
  EXPECT_EQ(fs::last_write_time(path), time);
}

TEST(JetPlaces, RealFilesAreReadWhereTheyLie) {
  NEEDS_SHARED_DATA();
  const std::set<std::string> before = Contenu(mdbFolder);
  for (const std::string& name : before) {
    SCOPED_TRACE(name);
    LitTout((mdbFolder / name).string());
  }
  EXPECT_EQ(Contenu(mdbFolder), before);
}

// Both kinds of lock that programs know here, over the whole file and for nobody else.
TEST(JetPlaces, AFileThatAnotherProgramHoldsIsRead) {
  const TempFolder folder;
  const std::string path = FichierEcrit(folder);
  ProcessusIsole holder(
      [&](Tuyau& out) {
        const int fd = open(path.c_str(), O_RDWR | O_CLOEXEC);
        struct flock range {};
        range.l_type = F_WRLCK;
        const bool held = fd >= 0 && flock(fd, LOCK_EX) == 0 && fcntl(fd, F_SETLK, &range) == 0;
        out.Ecrit(held ? "Y" : "N");
        out.Vide();
        pause();
      },
      {});
  char held = 'N';
  ASSERT_TRUE(holder.Lit(&held, 1) && held == 'Y');
  LitTout(path);
}

TEST(JetPlaces, NoHandleIsLeftOpen) {
  const TempFolder folder;
  const std::string path = FichierEcrit(folder);
  const auto handles = [] { return Contenu("/proc/self/fd").size(); };
  const std::size_t before = handles();
  LitTout(path);
  {
    const auto database = CreeFormatJet()->Ouvre(path);
    const auto rows = database->Rows("Bees");
    std::vector<Cell> cells(1);
    EXPECT_TRUE(rows->Suivante(cells)) << "one row, and no more";
  }
  EXPECT_EQ(handles(), before);
}

/// The row of the catalogue that was added last stands first on its page: its parent is the list of
/// tables, then come its type and, 18 bytes on, its flags.
std::string AvecEntree(std::string file, char type, std::uint32_t flags) {
  constexpr std::size_t page = 14 * std::size_t{4096};
  const std::size_t parent = file.find("\1\0\0\x0F\1\0"sv, page);
  EXPECT_LT(parent, page + 4096);
  file[parent + 4] = type;
  for (std::size_t i = 0; i < 4; ++i) file[parent + 22 + i] = static_cast<char>(flags >> 8 * i);
  return file;
}

struct CatalogueCase {
  const char* name;
  char type;
  std::uint32_t flags;
  std::size_t tables;
  std::size_t system;  ///< beside the maker's own four
};

constexpr CatalogueCase catalogueCases[] = {
    {"as it was written", 1, 0, 1, 0},
    {"hidden", 1, TableAttribute::Hidden, 1, 0},
    {"the maker's own", 1, 0x80000000, 0, 1},
    {"the maker's own, another bit", 1, 2, 0, 1},
    {"linked to another file", 6, 0x200000, 0, 0},
    {"linked to a server", 4, 0x100000, 0, 0},
};

TEST(JetPlaces, TablesAreListedByWhatTheCatalogueSays) {
  const TempFolder folder;
  const std::string path = FichierEcrit(folder);
  const std::string whole = Lis(path);
  for (const CatalogueCase& c : catalogueCases) {
    SCOPED_TRACE(c.name);
    std::ofstream(path, std::ios::binary) << AvecEntree(whole, c.type, c.flags);
    const auto database = CreeFormatJet()->Ouvre(path);
    const std::vector<TableDef> tables = database->Tables();
    EXPECT_EQ(tables.size(), c.tables);
    EXPECT_EQ(database->SystemTables().size(), 4 + c.system);
    if (tables.empty()) {
      EXPECT_EQ(Numero([&] { database->Rows("Bees"); }), ErrorNumber::TableNotFound);
    } else {
      EXPECT_EQ(tables.front().attributes, c.flags);
      EXPECT_EQ(LitLignes(*database, "Bees", 1).size(), 2U);
    }
  }
}

}  // namespace
}  // namespace talpena
