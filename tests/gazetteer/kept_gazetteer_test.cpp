// Searches in gazetteers on the disk while they change, break or vanish, and with copies that do.
#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <string>
#include <utility>

#include "fakes/file_limit.h"
#include "gazetteer/kept_world.h"
#include "gazetteer/place_name.h"

namespace talpena {
namespace {

namespace fs = std::filesystem;
using test::KeptWorld;
using test::ListedRows;
using Names = std::vector<std::string>;
using Rows = std::vector<std::vector<Value>>;

struct KeptGazetteer : testing::Test, KeptWorld {
  std::string path = dossier / "geo.mdb";

  /// An Access file with these rows, set up.
  void Fait(Rows rows, FieldType key = FieldType::Text) {
    fs::remove(path);
    TableDef table = TableDeLieux("Places");
    table.fields[0].type = key;
    table.fields[0].allowZeroLength = true;
    const auto base = engine->CreateForeignDatabase(path, "", {});
    base->CreateTable(table);
    ListedRows source(std::move(rows));
    base->InsertRows("Places", std::array<std::string_view, 5>{"KEY", "NAME", "LAT", "LON", "FIPS"},
                     source);
    Regle(path, "", "Places");
  }
  static std::vector<Value> Lieu(const std::string& key, const std::string& name) {
    return {key, name, 50.5, 4.5, "BE03"};
  }
  void Abime(const std::string& file, std::uintmax_t from) {
    std::string bytes = test::LitFichier(file);
    for (std::size_t i = from; i < bytes.size(); ++i) bytes[i] = static_cast<char>(i * 37);
    test::EcritFichier(file, bytes);
  }
};

struct FormatCase {
  const char* name;
  std::string_view connect;
};
constexpr FormatCase formatCases[] = {
    {"geo.mdb", ""}, {"dbase", "dBase IV;"}, {"paradox", "Paradox 4.X;"}};

TEST_F(KeptGazetteer, IsReadOnceInEachFormatAndNothingIsWrittenBesideIt) {
  std::size_t copies = 0;
  for (const FormatCase& c : formatCases) {
    SCOPED_TRACE(c.name);
    Regle(Cree(c.name, c.connect, {"Places"}), std::string(c.connect), "Places");
    const Names before = dossier.Noms();
    EXPECT_EQ(Trouve("saintghislain"), Names{"Saint-Ghislain"});
    EXPECT_EQ(Copies().size(), ++copies);
    EXPECT_EQ(Trouve("s", GeoSearch::Approximate), Names{"Saint-Ghislain"});
    query.base.Ferme();
    EXPECT_EQ(Trouve("MO", GeoSearch::Approximate), Names{"Mons"});
    EXPECT_EQ(Copies().size(), copies);
    EXPECT_EQ(dossier.Noms(), before);
  }
}

TEST_F(KeptGazetteer, ATableThatChangedOnTheDiskIsReadAnewWithoutAQuestion) {
  Fait({Lieu("GENT", "Gent")});
  EXPECT_EQ(Trouve("gent"), Names{"Gent"});
  Fait({Lieu("GENT", "Gent anew"), Lieu("GENT", "Gent too")});
  EXPECT_EQ(Trouve("gent"), (Names{"Gent anew", "Gent too"}));
}

TEST_F(KeptGazetteer, AnotherFieldToSearchIsAnotherSearch) {
  Fait({Lieu("GENT", "Gand")});
  EXPECT_EQ(Trouve("gand"), Names{});
  state.GeoResearchField = "NAME";
  EXPECT_EQ(Trouve("gand"), Names{"Gand"});
}

// What is typed is no pattern in an exact search, and one in an approximate search.
TEST_F(KeptGazetteer, WildcardsCountInTheApproximateSearchOnly) {
  Fait({Lieu("A*B", "star"), Lieu("AXB", "x"), Lieu("A?C", "question"), Lieu("A[B]", "bracket"),
        Lieu("A5", "five"), Lieu("A#", "hash")});
  EXPECT_EQ(Trouve("a*b"), Names{"star"});
  EXPECT_EQ(Trouve("a?c"), Names{"question"});
  EXPECT_EQ(Trouve("a[b]"), Names{"bracket"});
  EXPECT_EQ(Trouve("a#"), Names{"hash"});
  EXPECT_EQ(Trouve("a#", GeoSearch::Approximate), Names{"five"});
  EXPECT_EQ(Trouve("a[x]", GeoSearch::Approximate), Names{"x"});
  EXPECT_EQ(Trouve("*b", GeoSearch::Approximate), (Names{"bracket", "star", "x"}));
  EXPECT_EQ(Trouve("??b", GeoSearch::Approximate), (Names{"bracket", "star", "x"}));
}

TEST_F(KeptGazetteer, AnOpenBracketIsToldAndTheFormStays) {
  Fait({Lieu("GENT", "Gent")});
  Echoue("gent[", 93, GeoSearch::Approximate);
  EXPECT_EQ(query.suite, GeoAfter::Closes);
}

TEST_F(KeptGazetteer, AnApostropheIsToldAndTheFormStays) {
  Fait({Lieu("L'ETANG", "L'Étang")});
  Cherche("l'etang");
  EXPECT_EQ(query.suite, GeoAfter::Closes);
  Echoue("l'", 3075);
}

TEST_F(KeptGazetteer, AVanishedFileOpensTheSetupThoughItsCopyIsThere) {
  Fait({Lieu("GENT", "Gent")});
  EXPECT_EQ(Trouve("gent"), Names{"Gent"});
  fs::remove(path);
  Echoue("gent", ErrorNumber::DatabaseNotFound);
  EXPECT_EQ(setups, 1);
  EXPECT_EQ(query.suite, GeoAfter::Stays);
}

TEST_F(KeptGazetteer, ADamagedOrHalfWrittenFileIsToldAndTheFormStays) {
  Fait({Lieu("GENT", "Gent")});
  const std::string whole = test::LitFichier(path);
  for (const std::size_t size : {std::size_t{0}, std::size_t{100}, whole.size() / 2}) {
    test::EcritFichier(path, whole.substr(0, size));
    Echoue("gent", ErrorNumber::UnrecognizedFormat);
    EXPECT_EQ(query.suite, GeoAfter::Closes);
  }
  test::EcritFichier(path, whole);
  Abime(path, 4096);
  Echoue("gent", ErrorNumber::UnrecognizedFormat);
  test::EcritFichier(path, whole);
  EXPECT_EQ(Trouve("gent"), Names{"Gent"}) << "once it is whole again";
}

TEST_F(KeptGazetteer, AFolderInTheFilesPlaceIsToldAndTheFormStays) {
  Fait({Lieu("GENT", "Gent")});
  fs::remove(path);
  fs::create_directory(path);
  Echoue("gent", ErrorNumber::UnrecognizedFormat);
}

TEST_F(KeptGazetteer, ADamagedCopyIsThrownAwayAndTheFileReadAgain) {
  Rows rows;
  for (int i = 0; i < 3000; ++i) rows.push_back(Lieu("KEY" + std::to_string(i), "Place"));
  Fait(rows);
  for (const std::uintmax_t from :
       {std::uintmax_t{0}, std::uintmax_t{4096}, std::uintmax_t{50000}}) {
    EXPECT_EQ(Trouve("key7"), Names{"Place"});
    query.base.Ferme();
    ASSERT_EQ(Copies().size(), 1U);
    Abime(Copies()[0], from);
    EXPECT_EQ(Trouve("key", GeoSearch::Approximate).size(), 3000U);
    EXPECT_EQ(Trouve("key2999"), Names{"Place"});
    query.base.Ferme();
  }
}

TEST_F(KeptGazetteer, WithoutAFolderForCopiesPlacesAreFoundAllTheSame) {
  Fait({Lieu("GENT", "Gent")});
  environment.prive = "";
  EXPECT_EQ(Trouve("gent"), Names{"Gent"});
  query.base.Ferme();
  test::EcritFichier(dossier / "file", "");
  environment.prive = dossier / "file";
  EXPECT_EQ(Trouve("gent"), Names{"Gent"});
}

// The copy grows beyond the limit, the engine's own memory takes the rows.
TEST_F(KeptGazetteer, OnAFullDiskPlacesAreFoundAllTheSame) {
  Rows rows;
  for (int i = 0; i < 3000; ++i) rows.push_back(Lieu("KEY" + std::to_string(i), "Place"));
  Fait(rows);
  auto* const former = std::signal(SIGXFSZ, SIG_IGN);
  {
    const test::FileLimit limit(16384);
    EXPECT_EQ(Trouve("key2999"), Names{"Place"});
    EXPECT_EQ(Trouve("key", GeoSearch::Approximate).size(), 3000U);
  }
  std::signal(SIGXFSZ, former);
  EXPECT_EQ(Copies(), Names{});
}

TEST_F(KeptGazetteer, TwoProgramsAtOnceFindTheSamePlaces) {
  Fait({Lieu("GENT", "Gent"), Lieu("GENTBRUGGE", "Gentbrugge")});
  const std::unique_ptr<TableEngine> other = CreeMoteurSqlite(test::FormatsDeGazetteer());
  Platform second{*other, *files, settings, dialogues, clock, environment, sound};
  OpenGazetteer theirs;
  const auto theirCount = [&] {
    return theirs.Ouvre(state, second)
        .OpenRecordset(InstructionRecherche(state, GeoSearch::Approximate, "gent"))
        ->RecordCount();
  };
  theirs.Ouvre(state, second);  // both find no copy, and make one each
  EXPECT_EQ(Trouve("gent"), Names{"Gent"});
  EXPECT_EQ(theirCount(), 2);
  EXPECT_EQ(Trouve("gent", GeoSearch::Approximate), (Names{"Gent", "Gentbrugge"}));
  EXPECT_EQ(theirCount(), 2);
  EXPECT_EQ(Copies().size(), 1U);
  theirs.Ferme();
  EXPECT_EQ(theirCount(), 2) << "from the copy";
}

TEST_F(KeptGazetteer, ANameOfAMillionCharactersIsFoundAndShownCut) {
  constexpr std::size_t million = 1'000'000;
  Fait({Lieu(std::string(million, 'X'), "long"), Lieu("GENT", "Gent"),
        Lieu(std::string(million, 'X') + "Y", "longer")},
       FieldType::Memo);
  EXPECT_EQ(Trouve("gent"), Names{"Gent"});
  EXPECT_EQ(Trouve("xx", GeoSearch::Approximate), (Names{"long", "longer"}));
  Echoue(std::string(million, 'x'), 3360);
  state.GeoFullNameField = "KEY";
  EXPECT_EQ(Trouve("xx", GeoSearch::Approximate), Names(2, std::string(LongestPlaceName, 'X')));
}

TEST_F(KeptGazetteer, EqualNamesKeepTheOrderOfTheFile) {
  constexpr int many = 20'000;
  Rows rows;
  for (int i = 0; i < many; ++i) rows.push_back(Lieu("SAME", std::to_string(i)));
  Fait(std::move(rows));
  Cherche("same");
  EXPECT_EQ(query.lblNbre, std::to_string(many));
  for (const std::size_t i : {0U, 1U, 9'999U, 19'999U}) {
    EXPECT_EQ(query.ListView1.Item(i).Texte(PlaceColumn::Name), std::to_string(i));
  }
}

TEST_F(KeptGazetteer, ACoordinateOfAnyTypeIsReadAsFarAsItIsANumber) {
  Fait({Lieu("12.5", "dot"), Lieu("12,5 N", "comma"), Lieu("north", "words"), Lieu("", "empty")});
  state.GeoResearchField = "FIPS";
  state.GeoLatitudeField = "KEY";
  const Names expected{"+12.5000", "+12.5000", "+00.0000", ""};
  Cherche("be03");
  ASSERT_EQ(query.ListView1.Nombre(), expected.size());
  for (std::size_t i = 0; i < expected.size(); ++i) {
    EXPECT_EQ(query.ListView1.Item(i).Texte(PlaceColumn::Latitude), expected[i]);
  }
}

TEST_F(KeptGazetteer, TablesWithAwkwardNamesAreSearched) {
  for (const char* name : {"Order Details", "Table", "Umsätze", "SELECT"}) {
    const std::string file = std::string(name) + ".mdb";
    Regle(Cree(file, "", {name}), "", name);
    EXPECT_EQ(Trouve("mons"), Names{"Mons"}) << name;
    state.GeoTable = "[" + std::string(name) + "]";
    EXPECT_EQ(Trouve("mons"), Names{"Mons"}) << name;
  }
}

TEST_F(KeptGazetteer, GivingUpWhileTheTableIsReadShowsNothingAndKeepsNothing) {
  Rows rows;
  for (int i = 0; i < 20'000; ++i) rows.push_back(Lieu("KEY" + std::to_string(i), "Place"));
  Fait(std::move(rows));
  vue.abandonDans = 1;
  Cherche("key7");
  EXPECT_EQ(dialogues.boxes.size(), 0U);
  EXPECT_EQ(query.ListView1.Nombre(), 0U);
  EXPECT_EQ(query.suite, GeoAfter::Stays);
  EXPECT_FALSE(vue.barre);
  EXPECT_EQ(Trouve("key7"), Names{"Place"}) << "the next search reads it";
  EXPECT_FALSE(vue.progression.empty()) << "and says how far it is";
  EXPECT_EQ(Copies().size(), 1U);
}

/// An engine that knows no path.
class NoPaths final : public TableEngine {
 public:
  std::unique_ptr<Database> CreateDatabase(const std::string&, const NewDatabase&) override {
    return Refuse();
  }
  std::unique_ptr<Database> OpenDatabase(const std::string&, bool, std::string_view) override {
    return Refuse();
  }
  std::unique_ptr<Database> CreateForeignDatabase(const std::string&, std::string_view,
                                                  const NewDatabase&) override {
    return Refuse();
  }

 private:
  static std::unique_ptr<Database> Refuse() { throw TalpenaError(3044, "not a valid path"); }
};

TEST_F(KeptGazetteer, APathWithoutSenseOpensTheSetupToo) {
  NoPaths none;
  Platform other{none, *files, settings, dialogues, clock, environment, sound};
  GazetteerContext c{{state, other, vue, vue, vue}, gazetteer, *this};
  Fait({Lieu("GENT", "Gent")});
  query.txt = "gent";
  cmd_Click(c, query, GeoSearch::Exact);
  ASSERT_EQ(dialogues.boxes.size(), 1U);
  EXPECT_TRUE(dialogues.boxes[0].text.ends_with(" 3044")) << dialogues.boxes[0].text;
  EXPECT_EQ(setups, 1);
  EXPECT_EQ(query.suite, GeoAfter::Stays);
}

TEST_F(KeptGazetteer, ANumberMayBeTheFieldThatIsSearched) {
  Fait({Lieu("A", "a"), Lieu("B", "b")});
  state.GeoResearchField = "LAT";
  EXPECT_EQ(Trouve("50.5"), (Names{"a", "b"}));
  EXPECT_EQ(Trouve("50", GeoSearch::Approximate), (Names{"a", "b"}));
}

}  // namespace
}  // namespace talpena
