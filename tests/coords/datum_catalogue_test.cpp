#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <string>

#include "common/msg_id.h"
#include "common/numbers.h"
#include "common/paths.h"
#include "common/string_table.h"
#include "common/talpena_error.h"
#include "common/text.h"
#include "coords/test_catalogue.h"
#include "csv_table.h"
#include "fakes/fake_files.h"
#include "fakes/fake_platform.h"
#include "fakes/fake_tables.h"

namespace talpena {
namespace {

using test::FakeAnswer;

constexpr const char* datumStatement =
    "SELECT * FROM Datum WHERE USE > 0 ORDER BY NAME, APPLIC, CODE";
constexpr const char* ellipsoidStatement = "SELECT * FROM ELLI ORDER BY ELLI_ID";

/// A row of table Datum on the first ellipsoid, its numbers all different.
std::vector<Value> Ligne(const std::string& code, Value da = std::int64_t{-251}) {
  return {std::move(da),   -1.5e-5, -87.0,          -98.5,  std::int64_t{-121},
          std::int64_t{1}, code,    "NAME " + code, "Area", std::int64_t{2}};
}

class ChargeDatumsTest : public testing::Test {
 protected:
  ChargeDatumsTest() {
    state_.AppDir = "/no/such/folder";
    Pose(standard_, {Ligne("ZZZ"), Ligne("WGS84")});
  }

  void Pose(const std::string& path, std::vector<std::vector<Value>> datums) {
    files_.Pose(path, "database");
    auto& base = tables_.bases[path];
    base[datumStatement] = {
        {"da", "df", "dx", "dy", "dz", "ELLI_ID", "Code", "Name", "Applic", "Use"},
        std::move(datums)};
    base[ellipsoidStatement] = {{"ELLI_ID", "ELLI", "ELLI_NAME", "A", "f_Inv"},
                                {{std::int64_t{1}, "IN", "International", 6378388.0, 297.0},
                                 {std::int64_t{2}, "W", "WGS", 6378137.0, 298.257223563}}};
  }

  /// The text of the only box.
  std::string Boite() const {
    return dialogues_.boxes.size() == 1 ? dialogues_.boxes[0].text : "not one box";
  }

  const std::string standard_ = std::string("/no/such/folder") + SeparateurChemin() + "DATUM.MDB";
  test::FakeTables tables_;
  test::FakeFiles files_;
  test::FakeSettings settings_;
  test::FakeDialogues dialogues_;
  test::FakeClock clock_;
  test::FakeEnvironment environment_;
  test::FakeSound sound_;
  Platform io_{tables_, files_, settings_, dialogues_, clock_, environment_, sound_};
  CoordState state_;
};

TEST_F(ChargeDatumsTest, RunsTheTwoStatementsOnTheProgramsOwnFile) {
  ChargeDatums(state_, io_);
  EXPECT_EQ(tables_.journal, (std::vector<std::string>{"OpenReadOnly " + standard_, datumStatement,
                                                       ellipsoidStatement}));
  EXPECT_EQ(settings_.read, std::vector<std::string>{"TLP/DATUM/DB"});
  EXPECT_TRUE(settings_.written.empty());
  EXPECT_TRUE(dialogues_.boxes.empty());
  EXPECT_EQ(tables_.ouverts, 0) << "recordsets and database are closed";
}

TEST_F(ChargeDatumsTest, ReadsEveryField) {
  ChargeDatums(state_, io_);
  ASSERT_EQ(state_.Catalogue.Datums.size(), 2U);
  const DatumRecord& d = state_.Catalogue.Datum(1);
  EXPECT_EQ(d.da, -251);
  EXPECT_EQ(d.df, -1.5e-5);
  EXPECT_EQ(d.dx, -87);
  EXPECT_EQ(d.dy, -98.5);
  EXPECT_EQ(d.dz, -121);
  EXPECT_EQ(d.ellipsoid, 1);
  EXPECT_EQ(d.code, "ZZZ  ");
  EXPECT_EQ(d.name, "NAME ZZZ");
  EXPECT_EQ(d.application, "Area");
  EXPECT_EQ(d.use, 2);
  ASSERT_EQ(state_.Catalogue.Ellipsoides.size(), 2U);
  const EllipsoidRecord& e = state_.Catalogue.Ellipsoide(2);
  EXPECT_EQ(e.id, 2);
  EXPECT_EQ(e.code, "W ");
  EXPECT_EQ(e.name, "WGS");
  EXPECT_EQ(e.a, 6378137);
  EXPECT_EQ(e.inverseFlattening, 298.257223563);
}

TEST_F(ChargeDatumsTest, TakesThePathOfTheSetting) {
  Pose("/other/place.mdb", {Ligne("OTHER")});
  settings_.values["TLP/DATUM/DB"] = "/other/place.mdb";
  ChargeDatums(state_, io_);
  EXPECT_EQ(tables_.journal[0], "OpenReadOnly /other/place.mdb");
  EXPECT_EQ(state_.Catalogue.Datum(1).code, "OTHER");
}

TEST_F(ChargeDatumsTest, MarksTheSpecialCodesInAnyCaseAndPadding) {
  Pose(standard_, {Ligne("mer"), Ligne(" BEL72"), Ligne("Irl  "), Ligne("OGB-M"), Ligne("NTF"),
                   Ligne("eur-m"), Ligne("wgs84"), Ligne("EUR-A")});
  ChargeDatums(state_, io_);
  EXPECT_EQ(state_.Catalogue.DatumWgs84, 7);
  EXPECT_EQ(state_.Catalogue.DatumEur, 6);
  // " BEL72" is cut to five characters, as fixed texts are, and then is another code.
  const std::array<std::int16_t, 7> slots{0, 6, 5, 4, 3, 0, 1};
  EXPECT_EQ(state_.Catalogue.DatumsSpeciaux, slots);
}

TEST_F(ChargeDatumsTest, EmptiesAnEarlierCatalogue) {
  ChargeDatums(state_, io_);
  ChargeDatums(state_, io_);
  EXPECT_EQ(state_.Catalogue.Datums.size(), 2U);
  EXPECT_EQ(state_.Catalogue.Ellipsoides.size(), 2U);
}

TEST_F(ChargeDatumsTest, TakesUse0ForNull) {
  auto row = Ligne("AAA");
  row[9] = Value();
  Pose(standard_, {row});
  ChargeDatums(state_, io_);
  EXPECT_EQ(state_.Catalogue.Datum(1).use, 0);
}

TEST_F(ChargeDatumsTest, AsksForAMissingFileAndKeepsTheAnswer) {
  settings_.values["TLP/DATUM/DB"] = "/gone/DATUM.MDB";
  Pose("/found/here.mdb", {Ligne("FOUND")});
  dialogues_.paths = {"/found/here.mdb"};
  ChargeDatums(state_, io_);
  ASSERT_EQ(dialogues_.boxes.size(), 1U);
  EXPECT_EQ(dialogues_.boxes[0].text, "The file DATUM.MDB cannot be found!");
  EXPECT_EQ(dialogues_.boxes[0].icon, Icon::Stop);
  EXPECT_EQ(dialogues_.boxes[0].buttons, Buttons::Ok);
  ASSERT_EQ(dialogues_.fileDialogs.size(), 1U);
  EXPECT_EQ(dialogues_.fileDialogs[0].title, "Where is DATUM.MDB?");
  EXPECT_EQ(dialogues_.fileDialogs[0].filter, "*.mdb");
  EXPECT_EQ(settings_.values["TLP/DATUM/DB"], "/found/here.mdb");
  EXPECT_EQ(state_.Catalogue.Datum(1).code, "FOUND");
  EXPECT_EQ(sound_.bips, 1);
}

TEST_F(ChargeDatumsTest, AsksInTheCurrentLanguageAndInSilence) {
  state_.Langue = 0;
  state_.Silence = true;
  files_ = {};
  Pose("/x.mdb", {Ligne("AAA")});
  dialogues_.paths = {"/x.mdb"};
  ChargeDatums(state_, io_);
  EXPECT_EQ(Boite(), Texte(0, MsgId::DatumMdbAbsent));
  EXPECT_NE(Boite(), Texte(1000, MsgId::DatumMdbAbsent));
  EXPECT_EQ(dialogues_.fileDialogs[0].title, Texte(0, MsgId::OuEstDatumMdb));
  EXPECT_EQ(sound_.bips, 0);
}

TEST_F(ChargeDatumsTest, GivesUpOnCancel) {
  settings_.values["TLP/DATUM/DB"] = "/gone/DATUM.MDB";
  dialogues_.paths = {""};
  EXPECT_THROW(ChargeDatums(state_, io_), CatalogueRefused);
  EXPECT_EQ(Boite(), "The file DATUM.MDB cannot be found!");
  EXPECT_TRUE(settings_.written.empty());
  EXPECT_TRUE(tables_.journal.empty());
  EXPECT_TRUE(state_.Catalogue.Datums.empty());
}

TEST_F(ChargeDatumsTest, GivesUpOnAnEmptyName) {
  struct NoName : test::FakeDialogues {
    std::string OuvreFichier(const FileDialog&) override { return {}; }
  } noName;
  files_ = {};
  Platform io{tables_, files_, settings_, noName, clock_, environment_, sound_};
  EXPECT_THROW(ChargeDatums(state_, io), CatalogueRefused);
  EXPECT_EQ(noName.boxes.back().text, "The file DATUM.MDB cannot be found!");
  EXPECT_TRUE(settings_.written.empty());
}

TEST_F(ChargeDatumsTest, ShowsTheEnginesFailure) {
  tables_.bases.clear();
  ChargeDatums(state_, io_);
  EXPECT_EQ(Boite(),
            "Error 3343\nThis file is no database that can be read, or it is damaged.\n"
            "DATUM.MDB holds the datums, without which no coordinates can be computed; put the one "
            "of the installation back in its place and start again.");
  EXPECT_EQ(dialogues_.boxes[0].icon, Icon::Exclamation);
  EXPECT_TRUE(state_.Catalogue.Datums.empty());
}

TEST_F(ChargeDatumsTest, ShowsAMissingTableAndKeepsTheDatums) {
  tables_.bases[standard_].erase(ellipsoidStatement);
  ChargeDatums(state_, io_);
  EXPECT_EQ(Boite(), "Error 3078\nThe database engine cannot find the table.");
  EXPECT_EQ(state_.Catalogue.Datums.size(), 2U);
  EXPECT_EQ(tables_.ouverts, 0);
}

TEST_F(ChargeDatumsTest, ShowsAMissingColumn) {
  tables_.bases[standard_][datumStatement].columns[0] = "other";
  ChargeDatums(state_, io_);
  EXPECT_EQ(Boite(),
            "Error 3265\nA column is missing in this table; the file is another one, or damaged.");
}

struct NumberCase {
  const char* name;
  Value da;
  const char* message;
};

TEST_F(ChargeDatumsTest, RefusesWhatIsNoNumberOfItsField) {
  const NumberCase cases[] = {
      {"Null", Value(), "Error 94\nA value is missing; fill it in."},
      {"text", "abc", "Error 13\nA text stands where a number or a date belongs; correct it."},
      {"empty text", "", "Error 13\nA text stands where a number or a date belongs; correct it."},
      {"more than 16 bits", std::int64_t{32768},
       "Error 6\nA number is too large for its place; correct it."},
      {"far more", 1e300, "Error 6\nA number is too large for its place; correct it."},
  };
  for (const NumberCase& c : cases) {
    SCOPED_TRACE(c.name);
    dialogues_.boxes.clear();
    Pose(standard_, {Ligne("GOOD"), Ligne("BAD", c.da), Ligne("NEXT")});
    ChargeDatums(state_, io_);
    EXPECT_EQ(Boite(), c.message);
    EXPECT_EQ(state_.Catalogue.Datums.size(), 1U) << "what was read stays";
  }
}

TEST_F(ChargeDatumsTest, ReadsNumbersHeldAsTextAndRoundsHalvesToEven) {
  Pose(standard_, {Ligne("AAA", "-12"), Ligne("BBB", 2.5), Ligne("CCC", "3,5")});
  ChargeDatums(state_, io_);
  ASSERT_EQ(state_.Catalogue.Datums.size(), 3U);
  EXPECT_EQ(state_.Catalogue.Datum(1).da, -12);
  EXPECT_EQ(state_.Catalogue.Datum(2).da, 2);
  EXPECT_EQ(state_.Catalogue.Datum(3).da, 4);
}

TEST_F(ChargeDatumsTest, CutsALongCodeAndPadsCharactersNotBytes) {
  Pose(standard_, {Ligne("ABCDEFG"), Ligne("\xC3\x89"
                                           "B")});
  ChargeDatums(state_, io_);
  EXPECT_EQ(state_.Catalogue.Datum(1).code, "ABCDE");
  EXPECT_EQ(state_.Catalogue.Datum(2).code,
            "\xC3\x89"
            "B   ");
}

TEST(DatumCatalogue, RefusesIndicesOutsideIt) {
  const DatumCatalogue c = test::CatalogueDesSources();
  for (const int index : {0, -1, 251, 32767, -32768}) {
    EXPECT_THROW(c.Datum(static_cast<std::int16_t>(index)), TalpenaError) << index;
  }
  EXPECT_NO_THROW(c.Datum(250));
  EXPECT_THROW(c.Ellipsoide(26), TalpenaError);
  EXPECT_NO_THROW(c.Ellipsoide(25));
  try {
    c.Datum(0);
  } catch (const TalpenaError& e) {
    EXPECT_EQ(e.number(), ErrorNumber::SubscriptOutOfRange);
    EXPECT_EQ(e.description(), "Subscript out of range");
  }
}

TEST(ChercheDatum, ComparesTrimmed) {
  const DatumCatalogue c = test::CatalogueDesSources();
  const std::int16_t ntf = ChercheDatum(c, "NTF");
  ASSERT_NE(ntf, 0);
  EXPECT_EQ(c.Datum(ntf).code, "NTF  ");
  EXPECT_EQ(ChercheDatum(c, "NTF  "), ntf);
  EXPECT_EQ(ChercheDatum(c, "  NTF"), ntf);
}

TEST(ChercheDatum, Gives0ForAnUnknownCode) {
  const DatumCatalogue c = test::CatalogueDesSources();
  EXPECT_EQ(ChercheDatum(c, "NONE"), 0);
  EXPECT_EQ(ChercheDatum(c, ""), 0);
  EXPECT_EQ(ChercheDatum(c, "ntf"), 0);
  EXPECT_EQ(ChercheDatum({}, "WGS84"), 0);
}

TEST(ChercheDatum, GivesTheFirstOfTwo) {
  DatumCatalogue c;
  c.Datums.resize(3);
  c.Datums[1].code = c.Datums[2].code = "TWICE";
  EXPECT_EQ(ChercheDatum(c, "TWICE"), 2);
}

TEST(ChoisitEllipsoide, SetsTheFourTogether) {
  DatumCatalogue c = test::CatalogueDesSources();
  ChoisitEllipsoide(c, ChercheDatum(c, "EUR-M"));
  EXPECT_EQ(c.EllipsoideCourant, 15);
  EXPECT_EQ(c.DemiGrandAxe, 6378388);
  EXPECT_EQ(c.Aplatissement, 1 / 297.0);
  EXPECT_EQ(c.DemiPetitAxe, (1 - 1 / 297.0) * 6378388);
  EXPECT_NEAR(c.DemiPetitAxe, 6356911.946, 0.001);  // as published for International 1924

  ChoisitEllipsoide(c, c.DatumWgs84);
  EXPECT_EQ(c.EllipsoideCourant, 21);
  EXPECT_NEAR(c.DemiPetitAxe, 6356752.3142, 0.0001);
}

TEST(ChoisitEllipsoide, LeavesTheCurrentOneWhenItFails) {
  DatumCatalogue c = test::CatalogueDesSources();
  ChoisitEllipsoide(c, c.DatumWgs84);
  EXPECT_THROW(ChoisitEllipsoide(c, 0), TalpenaError);
  c.Ellipsoides[14].inverseFlattening = 0;
  EXPECT_THROW(ChoisitEllipsoide(c, c.DatumEur), TalpenaError);
  EXPECT_EQ(c.EllipsoideCourant, 21);
  EXPECT_EQ(c.DemiGrandAxe, 6378137);
}

TEST(RempliListesDatums, GivesARowPerDatum) {
  const DatumCatalogue c = test::CatalogueDesSources();
  const auto rows = RempliListesDatums(c);
  ASSERT_EQ(rows.size(), 250U);
  const std::int16_t belgium = ChercheDatum(c, "BEL72");
  const DatumListRow& row = rows[static_cast<std::size_t>(belgium) - 1];
  EXPECT_EQ(row[0], "BEL72");
  EXPECT_EQ(row[1], c.Datum(belgium).name);
  EXPECT_EQ(row[2], c.Datum(belgium).application);
  EXPECT_EQ(row[3], "International 1924");
  EXPECT_EQ(row[4], "-125.8");
  EXPECT_EQ(row[5], "79.9");
  EXPECT_EQ(row[6], "-100.5");
  EXPECT_EQ(rows[static_cast<std::size_t>(ChercheDatum(c, "NTF")) - 1][0], "NTF");
  EXPECT_EQ(rows[static_cast<std::size_t>(c.DatumWgs84) - 1][4], "0");
}

// --- the figures that ship --------------------------------------------------------------------

TEST(DatumFigures, AreComplete) {
  const CatalogueSource source = test::Sources();
  EXPECT_EQ(source.datums.size(), 250U);
  ASSERT_EQ(source.ellipsoids.size(), 25U);
  for (int id = 1; id <= 25; ++id) {
    EXPECT_EQ(source.ellipsoids[static_cast<std::size_t>(id) - 1].id, id);
    EXPECT_EQ(source.ellipsoids[static_cast<std::size_t>(id) - 1].code.size(), 2U);
  }
  std::set<std::string> codes;
  for (const DatumSource& d : source.datums) {
    EXPECT_TRUE(codes.insert(d.code).second) << d.code << " stands twice";
    EXPECT_LE(d.code.size(), 5U);
    EXPECT_EQ(Majuscules(d.code), d.code);
  }
  for (const char* needed : {"WGS84", "EUR-M", "NTF", "OGB-M", "IRL", "BEL72", "MER"}) {
    EXPECT_EQ(codes.count(needed), 1U) << needed;
  }
}

TEST(DatumFigures, AgreeWithTheirEllipsoids) {
  const CatalogueSource source = test::Sources();
  for (const DatumSource& d : source.datums) {
    const EllipsoidSource& e = source.ellipsoids[static_cast<std::size_t>(d.ellipsoid) - 1];
    EXPECT_EQ(d.da, std::lround(6378137 - e.a)) << d.code;
    EXPECT_NEAR(d.df, 1 / 298.257223563 - 1 / e.fInv, 1e-13) << d.code;
  }
}

TEST(DatumFigures, HaveNothingToShiftForWgs84) {
  for (const DatumSource& d : test::Sources().datums) {
    if (d.code != "WGS84") continue;
    EXPECT_EQ(d.da, 0);
    EXPECT_EQ(d.df, 0);
    EXPECT_EQ(d.dx, 0);
    EXPECT_EQ(d.dy, 0);
    EXPECT_EQ(d.dz, 0);
    EXPECT_EQ(d.ellipsoid, 21);
  }
}

TEST(DatumFigures, KeepMgrsFromEightDatums) {
  const CatalogueSource source = test::Sources();
  const std::set<std::string> expected{"ACC", "COU", "ENW", "IND-I", "IND-P", "NTF", "TIL", "TIN"};
  std::set<std::string> refused;
  for (const DatumSource& d : source.datums) {
    EXPECT_TRUE(source.Use(d) == 1 || source.Use(d) == 2);
    if (source.Use(d) == 1) refused.insert(d.code);
  }
  EXPECT_EQ(refused, expected);
}

TEST(DatumFigures, AreThoseThatWereCollected) {
  const std::string path = std::string(TALPENA_SHARED_DATA) + "/datums.csv";
  if (!std::filesystem::exists(path)) GTEST_SKIP() << "no " << path;
  std::ifstream in(path, std::ios::binary);
  std::vector<std::string> heading;
  const auto rows = LitCsv(
      std::string{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()}, heading);
  const auto column = [&](const std::vector<std::string>& row, const char* name) {
    const auto at = std::find(heading.begin(), heading.end(), name);
    return row.at(static_cast<std::size_t>(at - heading.begin()));
  };
  const CatalogueSource source = test::Sources();
  ASSERT_EQ(rows.size(), source.datums.size());
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const DatumSource& d = source.datums[i];
    EXPECT_EQ(d.code, column(rows[i], "code"));
    EXPECT_EQ(d.name, column(rows[i], "name"));
    EXPECT_EQ(d.applic, column(rows[i], "applic"));
    EXPECT_EQ(d.dx, Val(column(rows[i], "dx"))) << d.code;
    EXPECT_EQ(d.dy, Val(column(rows[i], "dy"))) << d.code;
    EXPECT_EQ(d.dz, Val(column(rows[i], "dz"))) << d.code;
    EXPECT_EQ(d.ellipsoid, Val(column(rows[i], "ellipsoid_id"))) << d.code;
  }
}

TEST(LitCsv, ReadsQuotedFields) {
  std::vector<std::string> heading;
  const auto rows = LitCsv("a,b\r\n1,\"x, \"\"y\"\"\"\n\n,\n", heading);
  EXPECT_EQ(heading, (std::vector<std::string>{"a", "b"}));
  ASSERT_EQ(rows.size(), 2U);
  EXPECT_EQ(rows[0][1], "x, \"y\"");
  EXPECT_EQ(rows[1], (std::vector<std::string>{"", ""}));
  EXPECT_THROW(LitCsv("a,b\n1\n", heading), std::runtime_error);
  EXPECT_THROW(LitCsv("a\n\"1\n", heading), std::runtime_error);
}

}  // namespace
}  // namespace talpena
