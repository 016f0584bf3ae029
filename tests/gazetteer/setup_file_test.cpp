// Set-up files of the gazetteer: both forms, damaged ones, and what does not come back.
#include "gazetteer/setup_file.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "common/msg_id_errors.h"
#include "common/msg_id_gazetteer.h"
#include "common/text.h"
#include "fakes/import_texts.h"

namespace talpena {
namespace {

SetupRead Lit(const std::string& bytes) {
  return LitSetup(PrendImport(std::make_unique<test::TextInput>(bytes), Encodage::Cp1252));
}

SetupFile Exemple() {
  return {.File = "C:\\geo\\names",
          .DbType = "dBase IV;",
          .Datum = "EUR-M",
          .Noms = {"NAMES", "SORT", "FULL", "LAT", "LON", "FIPS", "PROV", "DESI", "CNTRY", "PNAME"},
          .Option1 = {false, true},
          .Option2 = {true, false}};
}

constexpr std::string_view newer =
    "<TALPENA 2.0>\r\nC:\\geo\\names\r\ndBase IV;\r\nEUR-M\r\nNAMES\r\nSORT\r\nFULL\r\nLAT\r\n"
    "LON\r\nFIPS\r\nPROV\r\nDESI\r\nCNTRY\r\nPNAME\r\n0\r\n-1\r\n-1\r\n0\r\n";
constexpr std::string_view older =
    "C:\\geo\\names\r\ndBase "
    "IV;\r\nEUR-M\r\nNAMES\r\nSORT\r\nFULL\r\nLAT\r\nLON\r\nFIPS\r\nPROV\r\n"
    "DESI\r\n0\r\n-1\r\n-1\r\n0\r\n";

TEST(SetupFile, IsEighteenLinesByteByByte) { EXPECT_EQ(LignesSetup(Exemple()), newer); }

TEST(SetupFile, OfTheNewerFormIsReadWhole) {
  const SetupRead read = Lit(std::string(newer));
  EXPECT_FALSE(read.ancien);
  EXPECT_FALSE(read.echec);
  EXPECT_EQ(read.valeurs, SetupValue::Count);
  EXPECT_EQ(read.setup, Exemple());
}

TEST(SetupFile, OfTheOlderFormHasNoNamesOfCountryAndProvince) {
  const SetupRead read = Lit(std::string(older));
  SetupFile expected = Exemple();
  expected.Noms[8] = expected.Noms[9] = "";
  EXPECT_TRUE(read.ancien);
  EXPECT_FALSE(read.echec);
  EXPECT_EQ(read.valeurs, SetupValue::Count);
  EXPECT_EQ(read.setup, expected);
}

TEST(SetupFile, KnowsItsFirstLineInAnyCase) {
  const SetupRead read = Lit("<Talpena 2.0>\r\nC:\\a.mdb\r\n");
  EXPECT_FALSE(read.ancien);
  EXPECT_EQ(read.setup.File, "C:\\a.mdb");
}

TEST(SetupFile, ThatEndsEarlyKeepsWhatItGaveAndSaysWhere) {
  const std::vector<std::string> lines = Decoupe(std::string(newer), '\n');
  std::string bytes;
  for (std::size_t count = 0; count + 2 < lines.size(); ++count) {
    SCOPED_TRACE(count);
    const SetupRead read = Lit(bytes);
    ASSERT_TRUE(read.echec);
    EXPECT_EQ(read.echec->number(), ErrorNumber::InputPastEnd);
    EXPECT_EQ(read.echec->words().text, MsgId::SetupCoupe);
    EXPECT_EQ(read.echec->words().about, std::vector{std::to_string(count)});
    EXPECT_EQ(read.valeurs, count == 0 ? 0 : count - 1);
    EXPECT_EQ(read.setup.File, count < 2 ? "" : Exemple().File);
    EXPECT_EQ(read.setup.Noms[0], count < 5 ? "" : "NAMES");
    bytes += lines[count] + "\n";
  }
}

TEST(SetupFile, CutsAPathAtItsComma) {
  SetupFile setup = Exemple();
  setup.File = "C:\\names, old\\a.mdb";
  const SetupRead read = Lit(LignesSetup(setup));
  EXPECT_EQ(read.setup.File, "C:\\names");
  EXPECT_EQ(read.setup.DbType, "old\\a.mdb");
}

TEST(SetupFile, RefusesATextThatIsNoPathAtAll) {
  const SetupRead read = Lit(std::string(1'000'000, 'a'));
  ASSERT_TRUE(read.echec);
  EXPECT_EQ(read.echec->words().text, MsgId::SetupTexteTropLong);
  EXPECT_EQ(read.valeurs, 0U);
}

TEST(SetupFile, RefusesAnOptionThatIsNoNumber) {
  const SetupRead read = Lit(Remplace(newer, "\r\n0\r\n-1\r\n-1", "\r\nyes\r\n-1\r\n-1"));
  ASSERT_TRUE(read.echec);
  EXPECT_EQ(read.echec->number(), ErrorNumber::TypeMismatch);
  EXPECT_EQ(read.setup.Noms, Exemple().Noms);
}

struct LostCase {
  const char* name;
  std::string file;
  bool lost;
};

const LostCase lostCases[] = {
    {"plain", "/home/ann/geo.mdb", false},
    {"accents of the code page", "/home/Zoë/Flöhe.mdb", false},
    {"a blank inside", "/home/my names.mdb", false},
    {"a comma", "/home/a,b.mdb", true},
    {"a letter that the code page lacks", "/home/Łódź.mdb", true},
    {"quotes at the start", "\"a\".mdb", true},
    {"quotes inside", "/home/a\"b.mdb", false},
    {"a blank at the start", " a.mdb", true},
    {"a line break", "/home/a\nb.mdb", true},
    {"longer than any path", std::string(5000, 'a'), true},
};

TEST(SetupFile, TellsWhatWillNotComeBack) {
  for (const LostCase& c : lostCases) {
    SCOPED_TRACE(c.name);
    SetupFile setup = Exemple();
    setup.File = c.file;
    const auto lost = SetupPerdu(setup);
    EXPECT_EQ(lost.has_value(), c.lost);
    if (lost) {
      EXPECT_EQ(*lost, c.file);
    }
  }
}

/// Texts of letters that cost nothing and of those that do.
std::string TexteAuHasard(std::mt19937& random) {
  constexpr std::string_view letters[] = {"a", "Z", "\\", "/", ".", " ", "é", "ß", "'", ";", "€"};
  std::string text = "x";
  for (auto count = random() % 12; count > 0; --count)
    text += letters[random() % std::size(letters)];
  return text;
}

TEST(SetupFile, ComesBackAsItWasWritten) {
  std::mt19937 random(2011);
  for (int i = 0; i < 2000; ++i) {
    SetupFile setup;
    for (std::string* text : {&setup.File, &setup.DbType, &setup.Datum})
      *text = TexteAuHasard(random);
    for (std::string& name : setup.Noms) name = random() % 3 == 0 ? "" : TexteAuHasard(random);
    setup.Option1 = {random() % 2 == 0, random() % 2 == 0};
    setup.Option2 = {random() % 2 == 0, random() % 2 == 0};
    EXPECT_EQ(SetupPerdu(setup), std::nullopt);
    EXPECT_EQ(Lit(LignesSetup(setup)).setup, setup);
  }
}

}  // namespace
}  // namespace talpena
