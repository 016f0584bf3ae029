// What the user is told that can be done about the record that ends an import.
#include "interchange/import_remedy.h"

#include <gtest/gtest.h>

#include "common/msg_id_errors.h"
#include "common/msg_id_import.h"
#include "fakes/import_texts.h"
#include "interchange/column_room.h"
#include "interchange/text_import_reader.h"

namespace talpena {
namespace {

using test::Fichier;
using enum CoordSystem;

/// Words that the import of a list would end with; none when it comes in.
ErrorWords Fin(const std::string& bytes, CoordSystem system) {
  TextImportReader reader(Fichier(bytes), system, "D    ");
  try {
    for (ImportRecord record; reader.Suivant(record);) RefuseTropLong(record);
  } catch (const TalpenaError& failure) {
    return failure.words();
  }
  return {};
}

std::string Utf16(const std::string& text, bool mark) {
  std::string bytes = mark ? "\xFF\xFE" : "";
  for (const char c : text) bytes += std::string{c, '\0'};
  return bytes;
}

const std::string good = "1,50.5,4.25,1,0,1998/07/14,Spa\r\n";

struct RemedyCase {
  const char* name;
  std::string bytes;
  CoordSystem system;
  int hint;
};

// clang-format off
const RemedyCase remedyCases[] = {
    {"a line of headings", "Period,Lat,Lon,N1,N2,Date,Comment\r\n" + good, Deg, MsgId::RemedeEnTete},
    {"in quotes", "\"Period\",\"Lat\",\"Lon\"\r\n" + good, Deg, MsgId::RemedeEnTete},
    {"with accents", "\xC3\x89poque,Lat\r\n" + good, Deg, MsgId::RemedeEnTete},
    {"of an export", ",Periode,Latitude,Longitude\r\n" + good, Deg, MsgId::RemedeEnTete},
    {"behind a comment", "*list\r\nPeriod,Lat\r\n" + good, Deg, MsgId::RemedeEnTete},
    {"words behind a record are no heading", good + "Spa,50,4,1,0,,\r\n", Deg, 0},
    {"words in the midst of the first record", "1,abc,4,0,0,d,c", Deg, 0},
    {"two comments", "*a\r\n*b\r\n" + good, Deg, MsgId::RemedeEtoiles},
    {"semicolons", "1;50,5;4,25;1;0;1998/07/14;Spa\r\n", Deg, MsgId::RemedeSeparateur},
    {"semicolons and blanks", "1 ; 50.5 ; 4.25\r\n", Deg, MsgId::RemedeSeparateur},
    {"headings with semicolons", "Period;Lat;Lon\r\n", Deg, MsgId::RemedeSeparateur},
    {"tabs", "1\t50.5\t4.25\t1\t0\t1998/07/14\tSpa\r\n", Deg, MsgId::RemedeSeparateur},
    {"UTF-16 with its mark", Utf16(good, true), Deg, MsgId::RemedeUtf16},
    {"UTF-16 without it", Utf16(good, false), Deg, MsgId::RemedeUtf16},
    {"tabs are shown as arrows", "1\t50.5", Deg, MsgId::RemedeSeparateur},
    {"a database", std::string("SQLite format 3\0\x10\0\x01\x01\0@  \0\0\0\x03\0\0\0\x07", 32), Deg, MsgId::RemedePasTexte},
    {"a workbook", std::string("PK\x03\x04\x14\0\x06\0\b\0\0\0!\0", 14) + "[Content_Types].xml", Deg, MsgId::RemedePasTexte},
    {"a NUL within a line is no database", std::string("1,50.5,4.25,1,0,1998/07/14,a\0b,c", 32), Deg, MsgId::RemedeChamps},
    {"UTF-16 with headings", Utf16("Period,Lat\r\n", true), Deg, MsgId::RemedeUtf16},
    {"doubled quotes", "1,50.5,4.25,1,0,,\"the \"\"old\"\", mill\"\r\n", Deg, MsgId::RemedeGuillemets},
    {"text behind a quote", "1,50.5,4.25,1,0,,\"a\" b, c\r\n", Deg, MsgId::RemedeGuillemets},
    {"decimal commas", "1,50,5,4,25,1,0,1998/07/14,Spa\r\n", Deg, MsgId::RemedeChamps},
    {"a comma in a comment", "1,50.5,4.25,1,0,,wood, north\r\n", Deg, MsgId::RemedeChamps},
    {"a number in quotes", "1,\"50,5\",4.25,1,0,,\r\n", Deg, MsgId::RemedeChamps},
    {"a missing field", "1,50.5,4.25,1,0,1998/07/14\r\n" + good, Deg, MsgId::RemedeChamps},
    {"the end within a record", "1,50.5,4.25,1", Deg, MsgId::RemedeChamps},
    {"an end-of-file character within a record", "1,50.5,4.25\x1A,1,0,,\r\n" + good, Deg, MsgId::RemedeCoupee},
    {"the same at the end of its line", "1,50.5,4.25,1\x1A\r\n" + good, Deg, MsgId::RemedeCoupee},
    {"the same at the very end", "1,50.5,4.25,1\x1A", Deg, MsgId::RemedeChamps},
    {"the same behind lines in quotes", "1,50.5,4.25,1,0,,\"a\r\nb\"\r\n1,abc", Deg, 0},
    {"a period too large", "40000,50.5,4.25,1,0,,\r\n", Deg, 0},
    {"nothing wrong", good, Deg, 0},
};
// clang-format on

TEST(ImportRemedy, NamesTheRemedyThatTheRecordTells) {
  for (const RemedyCase& c : remedyCases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(Fin(c.bytes, c.system).hint, c.hint);
  }
}

TEST(ImportRemedy, StaysWithAFailureThatIsThrownAgain) {
  TextImportReader reader(Fichier("Period,Lat\r\n"), Deg, "D    ");
  ImportRecord record;
  for (int i = 0; i < 2; ++i) {
    try {
      reader.Suivant(record);
      ADD_FAILURE() << "it is no record";
    } catch (const TalpenaError& failure) {
      EXPECT_EQ(failure.words().hint, MsgId::RemedeEnTete);
      EXPECT_EQ(failure.words().line, 1);
    }
  }
}

TEST(ImportRemedy, TellsThatLatitudeAndLongitudeAreExchanged) {
  EXPECT_EQ(Fin("1,151.2,-33.8,1,0,,\r\n", Deg).text, MsgId::ImportEchangees);
  EXPECT_EQ(Fin("1,151.2,-33.8,1,0,,\r\n", Dms).text, MsgId::ImportEchangees);
  EXPECT_EQ(Fin("1,151,2,-33,8,1,0,,\r\n", Deg).text, MsgId::ImportOriginalTropLong)
      << "decimal commas";
  EXPECT_EQ(Fin("1,50.5,41234,1,0,,\r\n", Deg).text, MsgId::ImportOriginalTropLong);
  EXPECT_EQ(Fin("1,1512,-33.8,1,0,,\r\n", Deg).text, MsgId::ImportOriginalTropLong);
}

TEST(ImportRemedy, ShowsAllOfAFieldThatIsNoNumber) {
  EXPECT_EQ(Fin("1,50.5,4.25,three or four ,0,,\r\n", Deg).about[1], "three or four");
  EXPECT_EQ(Fin("1\t50.5\t4.25", Deg).about[1], "1→50.5→4.25");
}

TEST(ImportRemedy, TellsThatBlanksCountWhereTheyAloneAreTooMany) {
  EXPECT_EQ(Fin("1,50.5,4.25,1,0,1998/07/14 ,Spa\r\n", Deg).text, MsgId::ImportBlancsComptent);
  EXPECT_EQ(Fin("1,50.5,4.25,1,0,14 July 1998,Spa\r\n", Deg).text, MsgId::ImportDateTropLongue);
  EXPECT_EQ(Fin("1,SK12345678" + std::string(20, ' ') + ",1,0,,\r\n", Bng).text,
            MsgId::ImportBlancsComptent);
}

/// What the reader finds odd about the only record.
int Doute(const std::string& bytes, CoordSystem system) {
  TextImportReader reader(Fichier(bytes), system, "D    ");
  ImportRecord record;
  EXPECT_TRUE(reader.Suivant(record));
  return record.doubt;
}

TEST(ImportDoubt, TextBehindAClosingQuoteIsLostAndTold) {
  EXPECT_EQ(Doute("1,50,4,1,0,,\"the \"\"old\"\" mill\"\r\n", Deg), MsgId::RemedeGuillemets);
  EXPECT_EQ(Doute("1,50,4,1,0,\"1998\" July,c\r\n", Deg), MsgId::RemedeGuillemets);
  EXPECT_EQ(Doute("1,50,4,1,0,\"1998\" ,\"c\" \r\n", Deg), 0) << "blanks are nothing";
}

TEST(ImportDoubt, IrishReferencesNeedTwoLetters) {
  for (const char* reference : {"O153346", "o153346", "O 153346"}) {
    EXPECT_EQ(Doute("1," + std::string(reference) + ",1,0,,\r\n", Itm), MsgId::IrlandaisUneLettre);
  }
  EXPECT_EQ(Doute("1,IO153346,1,0,,\r\n", Itm), 0);
  EXPECT_EQ(Doute("1,IO1,1,0,,\r\n", Itm), 0) << "left out for another reason";
  EXPECT_EQ(Doute("1,S153346,1,0,,\r\n", Bng), 0) << "no such mistake is made there";
}

}  // namespace
}  // namespace talpena
