// A table of another maker that is kept between openings.
#include <sys/stat.h>

#include <array>
#include <chrono>
#include <filesystem>
#include <random>
#include <string>
#include <utility>

#include "platform/foreign_format.h"
#include "platform/sqlite/engine_fixture.h"

namespace talpena::enginetest {
namespace {

namespace fs = std::filesystem;

struct MakersFile {
  std::vector<std::vector<Value>> rows{{"BRUGES", "Bruges", 51.2},      {"GHENT", "Ghent", 51.05},
                                       {"BRUSSELS", "Brussels", 50.85}, {"GHENT", "Gent", 51.0},
                                       {"ÉTANG", "Étang", 1.5},         {Value(), "nameless", 0.0}};
  int reads = 0;
};

class PlacesDatabase final : public ForeignDatabase {
 public:
  explicit PlacesDatabase(MakersFile& file) : file_(file) {}
  std::vector<TableDef> Tables() override {
    TableDef places;
    places.name = "Places";
    places.fields = {
        {"Key", FieldType::Text, 50}, {"Name", FieldType::Text, 50}, {"Lat", FieldType::Double}};
    return {places};
  }
  std::vector<QueryDef> Queries() override {
    return {{.name = "North",
             .kind = QueryDef::Select,
             .sql = "SELECT Key, Name FROM Places WHERE Lat > 51",
             .fields = {}}};
  }
  std::unique_ptr<RowSource> Rows(std::string_view) override {
    ++file_.reads;
    return std::make_unique<ListSource>(file_.rows);
  }

 private:
  MakersFile& file_;
};

class PlacesFormat final : public ForeignFormat {
 public:
  explicit PlacesFormat(MakersFile& file) : file_(file) {}
  bool Reconnait(const std::string&, std::string_view) override { return true; }
  std::unique_ptr<ForeignDatabase> Ouvre(const std::string&) override {
    return std::make_unique<PlacesDatabase>(file_);
  }

 private:
  MakersFile& file_;
};

class KeptTableTest : public EngineTest {
 public:
  KeptTableTest() {
    std::vector<std::unique_ptr<ForeignFormat>> formats;
    formats.push_back(std::make_unique<PlacesFormat>(file));
    makers = CreeMoteurSqlite(std::move(formats));
    test::EcritFichier(path, "MAKER");
    kept = {.folder = folder / "copies", .stamp = "one", .table = "Places", .field = "Key"};
  }

  std::unique_ptr<Database> Ouvre() { return makers->OpenKept(path, {}, kept); }
  Strings Noms(const std::string& where) {
    const auto base = Ouvre();
    return Colonne(*base->OpenRecordset("SELECT * FROM [" + kept.table + "] WHERE " + where +
                                        " ORDER BY [Key];"),
                   "Name");
  }
  Strings Copies() const {
    Strings names;
    if (!fs::exists(kept.folder)) return names;
    for (const auto& entry : fs::directory_iterator(kept.folder)) names.push_back(entry.path());
    return names;
  }

  MakersFile file;
  std::unique_ptr<TableEngine> makers;
  std::string path = folder / "places.mdb";
  KeptTable kept;
};

TEST_F(KeptTableTest, TheMakersFileIsReadOnce) {
  EXPECT_EQ(Noms("[Key] = 'ghent'"), (Strings{"Ghent", "Gent"}));
  EXPECT_EQ(Noms("[Key] LIKE 'BRU*'"), (Strings{"Bruges", "Brussels"}));
  EXPECT_EQ(file.reads, 1);
}

TEST_F(KeptTableTest, NothingIsReadAndNothingKeptUntilATableIsNamed) {
  Ouvre();
  EXPECT_EQ(file.reads, 0);
  EXPECT_EQ(Copies(), Strings{});
}

TEST_F(KeptTableTest, ALaterSearchGivesTheSameRows) {
  for (const char* where :
       {"[Key] = 'Ghent'", "[Key] LIKE 'g*'", "[Key] LIKE 'BR?G*'", "[Key] LIKE '*S'",
        "[Key] LIKE 'étang*'", "[Key] LIKE 'etang*'", "[Key] LIKE '[BG]*'", "[Key] LIKE ''",
        "[Key] LIKE '*'", "NOT [Key] LIKE 'G*'", "[Key] NOT LIKE 'G*'", "[Name] LIKE 'G*'"}) {
    const Strings plain = Colonne(*makers->OpenDatabase(path, true)
                                       ->OpenRecordset(std::string("SELECT * FROM Places WHERE ") +
                                                       where + " ORDER BY [Key]"),
                                  "Name");
    EXPECT_EQ(Noms(where), plain) << where;  // first while it is kept, then from the copy
    EXPECT_EQ(Noms(where), plain) << where;
  }
  EXPECT_EQ(Noms("[Key] LIKE 'étang*'"), Strings{"Étang"});
}

// Letters with and without accents, one of another script, characters that do not count when texts
// are compared, and long names that differ at their ends.
std::string NomAuHasard(std::mt19937& random) {
  constexpr std::array<const char*, 14> pieces{"a",       "B",  "l",      "\u00B7", "é",
                                               "E\u0301", "Ｂ", "\u0E40", "\u0E01", "\x01",
                                               "ß",       "-",  "'",      "ǆ"};
  std::string name;
  for (auto n = random() % 5; n > 0; --n) name += pieces[random() % pieces.size()];
  return random() % 50 == 0 ? std::string(200, 'x') + name : name;
}

std::string SansApostrophe(std::string text) {
  std::erase(text, '\'');
  return text;
}

TEST_F(KeptTableTest, FindsWhatLookingAtEveryRowFinds) {
  std::mt19937 random(3);
  file.rows.clear();
  for (int i = 0; i < 700; ++i) {
    const Value key = i % 100 == 0 ? Value() : Value(NomAuHasard(random));
    file.rows.push_back({key, std::to_string(i), double(i % 7)});
  }
  const auto plain = makers->OpenDatabase(path, true);
  const auto once = Ouvre();
  for (int i = 0; i < 120; ++i) {
    const std::string text = SansApostrophe(NomAuHasard(random));
    static constexpr std::array<const char*, 4> wildcards{"*", "?*", "", "*a"};
    for (const std::string& where :
         {"[Key] = '" + text + "'", "[Key] LIKE '" + text + wildcards[random() % 4] + "'"}) {
      for (const char* order : {"[Key]", "[Name]", "[Lat]", "[Key] DESC"}) {
        const std::string select = "SELECT * FROM Places WHERE " + where + " ORDER BY " + order;
        EXPECT_EQ(Colonne(*once->OpenRecordset(select), "Name"),
                  Colonne(*plain->OpenRecordset(select), "Name"))
            << select;
      }
    }
  }
  EXPECT_EQ(file.reads, 2);
}

TEST_F(KeptTableTest, OneConnectionGoesOnWithWhatItKept) {
  const auto base = Ouvre();
  const auto search = [&](const char* where) {
    return Colonne(*base->OpenRecordset(std::string("SELECT * FROM Places WHERE ") + where),
                   "Name");
  };
  EXPECT_EQ(search("[Key] LIKE 'G*'"), (Strings{"Ghent", "Gent"}));
  EXPECT_EQ(search("[Key] LIKE 'B*'"), (Strings{"Bruges", "Brussels"}));
  EXPECT_EQ(Noms("[Key] = 'BRUGES'"), Strings{"Bruges"});  // another one reads meanwhile
  EXPECT_EQ(file.reads, 1);
}

TEST_F(KeptTableTest, AnotherStampIsReadAnew) {
  Noms("[Key] = 'GHENT'");
  file.rows = {{"GHENT", "New", 0.0}};
  kept.stamp = "two";
  EXPECT_EQ(Noms("[Key] = 'GHENT'"), Strings{"New"});
  EXPECT_EQ(file.reads, 2);
}

TEST_F(KeptTableTest, ASavedQueryIsKeptToo) {
  kept.table = "North";
  EXPECT_EQ(Noms("[Key] LIKE 'g*'"), Strings{"Ghent"});
  EXPECT_EQ(Noms("[Key] LIKE 'g*'"), Strings{"Ghent"});
  EXPECT_EQ(file.reads, 1);
}

TEST_F(KeptTableTest, NoOtherTableJoinsACopy) {
  const auto base = Ouvre();
  base->OpenRecordset("SELECT * FROM Places WHERE [Key] = 'GHENT'");
  EXPECT_EQ(FailureOf([&] { base->OpenRecordset("North"); }).number, ErrorNumber::TableNotFound);
  EXPECT_EQ(FailureOf([&] { base->Query("North"); }).number, ErrorNumber::TableNotFound);
  EXPECT_EQ(Copies().size(), 1U) << "and nothing beside it";
}

TEST_F(KeptTableTest, CopiesAreForTheUserAlone) {
  Noms("[Key] = 'GHENT'");
  struct stat status {};
  ASSERT_EQ(stat(kept.folder.c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777U, 0700U);
  ASSERT_EQ(Copies().size(), 1U);
  ASSERT_EQ(stat(Copies()[0].c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777U, 0600U);
}

TEST_F(KeptTableTest, AFolderThatOthersMayEnterIsClosedToThem) {
  fs::create_directory(kept.folder);
  fs::permissions(kept.folder, fs::perms::all);
  Noms("[Key] = 'GHENT'");
  EXPECT_EQ(fs::status(kept.folder).permissions(), fs::perms::owner_all);
}

TEST_F(KeptTableTest, ADamagedCopyIsThrownAway) {
  Noms("[Key] = 'GHENT'");
  test::EcritFichier(Copies().at(0), "no database at all");
  EXPECT_EQ(Noms("[Key] = 'GHENT'"), (Strings{"Ghent", "Gent"}));
  EXPECT_EQ(file.reads, 2);
  const std::string copy = Copies().at(0);
  fs::resize_file(copy, fs::file_size(copy) / 2);
  try {
    Noms("[Key] = 'GHENT'");
  } catch (const TalpenaError& error) {
    EXPECT_EQ(error.number(), ErrorNumber::UnrecognizedFormat);
  }
  EXPECT_EQ(Noms("[Key] = 'GHENT'"), (Strings{"Ghent", "Gent"}));
}

TEST_F(KeptTableTest, TheOldestCopiesGo) {
  Noms("[Key] = 'GHENT'");
  const auto size = static_cast<std::int64_t>(fs::file_size(Copies().at(0)));
  const std::string first = Copies().at(0);
  fs::last_write_time(first, fs::file_time_type::clock::now() - std::chrono::hours(1));
  kept.most = size * 2 + size / 2;
  for (const char* stamp : {"two", "three"}) {
    kept.stamp = stamp;
    Noms("[Key] = 'GHENT'");
  }
  EXPECT_EQ(Copies().size(), 2U);
  EXPECT_FALSE(fs::exists(first));
}

TEST_F(KeptTableTest, ACopyThatIsTooLargeIsNotKept) {
  kept.most = 100;
  EXPECT_EQ(Noms("[Key] = 'GHENT'"), (Strings{"Ghent", "Gent"}));
  EXPECT_EQ(Copies(), Strings{});
}

TEST_F(KeptTableTest, WithoutAFolderTheTableIsReadAsAnyOther) {
  test::EcritFichier(folder / "file", "");
  kept.folder = folder / "file";
  EXPECT_EQ(Noms("[Key] = 'GHENT'"), (Strings{"Ghent", "Gent"}));
  EXPECT_EQ(Noms("[Key] LIKE 'GHENT*'"), (Strings{"Ghent", "Gent"}));
  EXPECT_EQ(file.reads, 2);
}

TEST_F(KeptTableTest, WhatAKilledProgramLeftGoesBehindADay) {
  Noms("[Key] = 'GHENT'");
  const std::string old = kept.folder + "/left.new", young = kept.folder + "/other.new";
  test::EcritFichier(old, "");
  test::EcritFichier(young, "");
  fs::last_write_time(old, fs::file_time_type::clock::now() - std::chrono::hours(25));
  kept.stamp = "two";
  Noms("[Key] = 'GHENT'");
  EXPECT_FALSE(fs::exists(old));
  EXPECT_TRUE(fs::exists(young));
}

TEST_F(KeptTableTest, AMissingFileIsMissingThoughItsCopyIsThere) {
  Noms("[Key] = 'GHENT'");
  fs::remove(path);
  EXPECT_EQ(FailureOf([&] { Ouvre(); }).number, ErrorNumber::DatabaseNotFound);
}

TEST_F(KeptTableTest, AFieldThatTheTableLacksIsNoHindrance) {
  kept.field = "Nowhere";
  EXPECT_EQ(Noms("[Key] = 'GHENT'"), (Strings{"Ghent", "Gent"}));
  EXPECT_EQ(Noms("[Key] LIKE 'GH*'"), (Strings{"Ghent", "Gent"}));
  EXPECT_EQ(file.reads, 1);
}

}  // namespace
}  // namespace talpena::enginetest
