#include "store/deg_header.h"

#include <gtest/gtest.h>

#include "common/talpena_error.h"
#include "fakes/memory_input.h"
#include "store/free_fields.h"

namespace talpena {
namespace {

class DegHeader : public ::testing::Test {
 protected:
  DegHeader() {
    for (const char* code : {"WGS84", "EUR-M", "NTF  "}) {
      DatumRecord datum;
      datum.code = code;
      catalogue.Datums.push_back(datum);
    }
  }

  static DegLines Ouvre(std::string_view bytes) {
    return DegLines(std::make_unique<test::MemoryInput>(bytes));
  }
  void Lit(std::string_view bytes) {
    DegLines lines = Ouvre(bytes);
    LitEnTete(entete, catalogue, lines);
  }
  template <typename Read>
  static std::pair<int, std::string> Echec(Read&& read) {
    try {
      read();
    } catch (const TalpenaError& e) {
      return {e.number(), e.description()};
    }
    return {0, "nothing was raised"};
  }
  std::string Refus(std::string_view bytes) {
    DegLines lines = Ouvre(bytes);
    return RefusDeFusion(entete, lines);
  }

  DatumCatalogue catalogue;
  DistributionHeader entete;
};

TEST_F(DegHeader, KnowsForm2ByItsFirstEightCharacters) {
  EXPECT_TRUE(EstForme2("<TALPENA 2.0>"));
  EXPECT_TRUE(EstForme2("<talpena"));
  EXPECT_TRUE(EstForme2("<TalPena of another version"));
  EXPECT_FALSE(EstForme2("<TALPEN"));
  EXPECT_FALSE(EstForme2(" <TALPENA 2.0>"));
  EXPECT_FALSE(EstForme2(""));
}

TEST_F(DegHeader, TakesDatumFieldsAndTitle) {
  Lit("NTF,rest\r\n;\r\nA, b ,12,4\r\nC,d\xE9,x\r\n<END>\r\nThe title\r\n");
  EXPECT_EQ(entete.DatumFichierCode, "NTF");
  EXPECT_EQ(entete.DatumFichier, 3);
  EXPECT_EQ(entete.FreeFieldSeparator, ";");
  EXPECT_EQ(entete.FreeFieldText, ";\r\nA, b ,12,4\r\nC,d\xC3\xA9,x");
  ASSERT_EQ(entete.FreeFieldCount, 2);
  EXPECT_EQ(entete.FreeFieldDefs[0].Code, "A");
  EXPECT_EQ(entete.FreeFieldDefs[0].Label, " b ") << "items are not trimmed";
  EXPECT_EQ(entete.FreeFieldDefs[0].Width, 12);
  EXPECT_EQ(entete.FreeFieldDefs[1].Label, "d\xC3\xA9");
  EXPECT_EQ(entete.FreeFieldDefs[1].Width, 0);
  EXPECT_EQ(entete.TitreFichier, "The title");
}

TEST_F(DegHeader, GivesAnUnknownDatumNoIndex) {
  Lit("XYZ\r\n<END>\r\nT\r\n");
  EXPECT_EQ(entete.DatumFichierCode, "XYZ");
  EXPECT_EQ(entete.DatumFichier, 0);
}

TEST_F(DegHeader, SkipsBlankLinesAmongTheDefinitions) {
  Lit("NTF\r\n/\r\n\r\na,b,1\r\n   \r\n<END>\r\nT\r\n");
  EXPECT_EQ(entete.FreeFieldText, "/\r\na,b,1");
  EXPECT_EQ(entete.FreeFieldCount, 1);
}

TEST_F(DegHeader, TakesASlashForAnEmptySeparator) {
  Lit("NTF\r\n\r\na,b,1\r\n<END>\r\nT\r\n");
  EXPECT_EQ(entete.FreeFieldSeparator, "/");
  EXPECT_EQ(entete.FreeFieldText, "\r\na,b,1");
  Lit("NTF\r\n,\r\na,b,1\r\n<END>\r\nT\r\n");
  EXPECT_EQ(entete.FreeFieldSeparator, "/") << "a comma ends the token";
}

TEST_F(DegHeader, EndsTheBlockAtAnyCase) {
  Lit("NTF\r\n/\r\na,b,1\r\n<End>\r\nT\r\n");
  EXPECT_EQ(entete.FreeFieldCount, 1);
  EXPECT_EQ(entete.TitreFichier, "T");
}

TEST_F(DegHeader, CountsNoFieldsWithoutDefinitions) {
  entete.FreeFieldDefs = {{"l", "c", 1}};
  entete.FreeFieldCount = 1;
  Lit("NTF\r\n/\r\n<END>\r\nT\r\n");
  EXPECT_EQ(entete.FreeFieldCount, 0);
  EXPECT_TRUE(entete.FreeFieldDefs.empty());
}

TEST_F(DegHeader, KeepsTheLayoutForAFileWithoutFreeFields) {
  Lit("NTF\r\n;\r\na,b,1\r\n<END>\r\nT\r\n");
  Lit("WGS84\r\n<END>\r\nU\r\n");
  EXPECT_EQ(entete.FreeFieldSeparator, ";");
  EXPECT_EQ(entete.FreeFieldCount, 1);
  EXPECT_EQ(entete.FreeFieldDefs.size(), 1U);
  EXPECT_EQ(entete.DatumFichierCode, "WGS84");
  EXPECT_EQ(entete.TitreFichier, "U");
}

TEST_F(DegHeader, TakesAnEndMarkInLowerCaseBehindTheDatumForTheSeparator) {
  Lit("NTF\r\n<end>\r\na,b,1\r\n<END>\r\nT\r\n");
  EXPECT_EQ(entete.FreeFieldSeparator, "<end>");
  EXPECT_EQ(entete.FreeFieldCount, 1);
}

TEST_F(DegHeader, ReplacesTheDefinitionsOfTheFileBefore) {
  Lit("NTF\r\n/\r\na,b,1\r\nc,d,2\r\ne,f,3\r\n<END>\r\nT\r\n");
  Lit("NTF\r\n/\r\nx,y,9\r\n<END>\r\nT\r\n");
  ASSERT_EQ(entete.FreeFieldDefs.size(), 1U);
  EXPECT_EQ(entete.FreeFieldDefs[0].Code, "x");
}

TEST_F(DegHeader, RefusesADefinitionOfTwoItems) {
  const auto [number, text] = Echec([&] { Lit("NTF\r\n/\r\na,b,1\r\nc,d\r\n<END>\r\nT\r\n"); });
  EXPECT_EQ(number, ErrorNumber::SubscriptOutOfRange);
  EXPECT_EQ(text,
            "Line 4: A field definition needs a code, a label and a width, with commas between "
            "them: \"c,d\"");
  EXPECT_EQ(entete.FreeFieldCount, 0) << "no count without its definitions";
}

TEST_F(DegHeader, RefusesAWidthBeyond16Bits) {
  EXPECT_EQ(Echec([&] { Lit("NTF\r\n/\r\na,b,32768\r\n<END>\r\nT\r\n"); }).first,
            ErrorNumber::Overflow);
}

TEST_F(DegHeader, RefusesMoreFieldsThan16BitsCount) {
  std::string bytes = "NTF\r\n/\r\n";
  for (int i = 0; i < 32767; ++i) bytes += "a,b,1\r\n";
  Lit(bytes + "<END>\r\nT\r\n");
  EXPECT_EQ(entete.FreeFieldCount, 32767);
  for (int i = 32767; i < 1'000'000; ++i) bytes += "a,b,1\r\n";
  const auto [number, text] = Echec([&] { Lit(bytes + "<END>\r\nT\r\n"); });
  EXPECT_EQ(number, ErrorNumber::Overflow);
  EXPECT_EQ(text, "Line 32770: A file may define 32767 free fields at most.");
}

TEST_F(DegHeader, RefusesDefinitionsWithoutEnd) {
  std::string bytes = "NTF\r\n/\r\n";
  for (int i = 0; i < 40; ++i) bytes += "a,b,1," + std::string(500'000, 'x') + "\r\n";
  const auto [number, text] = Echec([&] { Lit(bytes); });
  EXPECT_EQ(number, ErrorNumber::Overflow);
  EXPECT_EQ(text, "Line 36: The field definitions are longer than 16 MB.");
}

TEST_F(DegHeader, RaisesTheEndOfTheFileAtEachOfItsLines) {
  std::string bytes;
  for (const char* line : {"NTF\r\n", "/\r\n", "a,b,1\r\n", "<END>\r\n"}) {
    EXPECT_EQ(Echec([&] { Lit(bytes); }).first, ErrorNumber::InputPastEnd) << bytes;
    bytes += line;
  }
  EXPECT_EQ(Echec([&] { Lit(bytes); }).first, ErrorNumber::InputPastEnd) << "no title";
  Lit(bytes + "T");
}

TEST_F(DegHeader, OfAMergedFileGivesTextAndTitleOnly) {
  Lit("NTF\r\n;\r\na,b,1\r\n<END>\r\nT\r\n");
  DegLines lines = Ouvre("WGS84\r\n/\r\n\r\nx,y\r\n<end>\r\nU\r\n");
  LitEnTeteFusion(entete, lines);
  EXPECT_EQ(entete.FreeFieldText, "/\r\n\r\nx,y") << "blank lines and all";
  EXPECT_EQ(entete.TitreFichier, "U");
  EXPECT_EQ(entete.DatumFichierCode, "NTF");
  EXPECT_EQ(entete.FreeFieldSeparator, ";");
  EXPECT_EQ(entete.FreeFieldCount, 1);
}

TEST_F(DegHeader, OfAMergedFileWithoutFieldsRunsIntoItsEnd) {
  DegLines lines = Ouvre("WGS84\r\n<END>\r\nT\r\nrow\r\nrow\r\n");
  EXPECT_EQ(Echec([&] { LitEnTeteFusion(entete, lines); }).first, ErrorNumber::InputPastEnd);
}

TEST_F(DegHeader, ComparesTheDatumTrimmedAndInAnyCase) {
  Lit("NTF  \r\n;\r\na,b,1\r\n<END>\r\nT\r\n");
  EXPECT_EQ(Refus("ntf\r\n<END>\r\n"), "");
  EXPECT_EQ(Refus("WGS84\r\n<END>\r\n"), "Datum not compatible with current file.");
}

struct CompareCase {
  const char* name;
  const char* block;
  const char* refusal;
};

TEST_F(DegHeader, ComparesEveryDefinitionBehindTheSeparator) {
  Lit("NTF\r\n;\r\nStat.Topo, Lieu ,50\r\nX,d\xE9,x\r\n<END>\r\nT\r\n");
  const std::string refused = "Field definition not compatible with current file!\r\n";
  const CompareCase cases[] = {
      {"the same", ";\r\nStat.Topo, Lieu ,50\r\nX,d\xE9,x\r\n<END>\r\n", ""},
      {"other separator, case and blanks",
       "/\r\nSTAT.TOPO ,lieu, 50,more\r\n\r\n  \r\n x ,D\xC9,\r\n<end>\r\n", ""},
      {"no fields", "<END>\r\n", ""},
      {"fewer", ";\r\nStat.Topo, Lieu ,50\r\n<END>\r\n", ""},
      {"other code", ";\r\nStat.Loca, Lieu ,50,9\r\n<END>\r\n", "Stat.Loca, Lieu ,50"},
      {"other label", ";\r\nStat.Topo,Place,50\r\n<END>\r\n", "Stat.Topo,Place,50"},
      {"other width", ";\r\nStat.Topo,Lieu,51\r\n<END>\r\n", "Stat.Topo,Lieu,51"},
      {"second differs", ";\r\nStat.Topo,Lieu,50\r\nY,d\xE9,0\r\n<END>\r\n", "Y,d\xC3\xA9,0"},
      {"one more", ";\r\nStat.Topo,Lieu,50\r\nX,d\xE9,0\r\nZ,z,0\r\n<END>\r\n", "Z,z,0"},
  };
  for (const CompareCase& c : cases) {
    const std::string expected = *c.refusal == '\0' ? "" : refused + c.refusal;
    EXPECT_EQ(Refus(std::string("NTF\r\n") + c.block), expected) << c.name;
  }
}

TEST_F(DegHeader, RefusesToCompareADefinitionOfTwoItems) {
  Lit("NTF\r\n;\r\na,b,1\r\n<END>\r\nT\r\n");
  EXPECT_EQ(Echec([&] { Refus("NTF\r\n;\r\na,b\r\n<END>\r\n"); }).first,
            ErrorNumber::SubscriptOutOfRange);
  EXPECT_EQ(Echec([&] { Refus("NTF\r\n;\r\na,b,1\r\n"); }).first, ErrorNumber::InputPastEnd);
}

}  // namespace
}  // namespace talpena
