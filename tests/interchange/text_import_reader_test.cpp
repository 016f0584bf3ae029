// Records of text files in the sixteen systems.
#include "interchange/text_import_reader.h"

#include <gtest/gtest.h>

#include <clocale>
#include <random>

#include "common/msg_id_errors.h"
#include "common/msg_id_import.h"
#include "common/numbers.h"
#include "common/text.h"
#include "coords/test_catalogue.h"
#include "fakes/import_texts.h"

namespace talpena {
namespace {

using test::Faute;
using test::FauteDe;
using test::Fichier;
using Texts = std::vector<std::string>;
using enum CoordSystem;

std::string Texte(const ImportRecord& record) {
  if (record.dropped != 0) return "dropped " + std::to_string(record.dropped);
  const ImportedRow& row = record.row;
  return std::to_string(row.period) + "|" + std::to_string(*row.n1) + "|" +
         std::to_string(*row.n2) + "|" + row.datum + "|" + *row.original + "|" + *row.date + "|" +
         *row.comment;
}

/// All records, and at the end the number of the failure if there was one.
Texts Fiches(const std::string& bytes, CoordSystem system = Ifb) {
  TextImportReader reader(Fichier(bytes), system, "D    ");
  Texts texts;
  const Faute fault = FauteDe([&] {
    for (ImportRecord record; reader.Suivant(record);) texts.push_back(Texte(record));
  });
  if (fault.number != 0) texts.push_back("failure " + std::to_string(fault.number));
  return texts;
}

std::string Original(CoordSystem system, const std::string& coordinates) {
  TextImportReader reader(Fichier("1," + coordinates + ",2,3,d,c"), system, "D    ");
  ImportRecord record;
  EXPECT_TRUE(reader.Suivant(record));
  EXPECT_FALSE(ImportRecord(record).row.comment->empty());
  return record.dropped != 0 ? "dropped" : *record.row.original;
}

// ---- one row of the table of systems each

struct SystemCase {
  const char* name;
  CoordSystem system;
  const char* coordinates;
  const char* original;
  const char* datum;
};

// clang-format off
const SystemCase systemCases[] = {
    {"Decimal Degrees", Deg, "50.5,-4.25", "deg +50.50000 -004.25000", "ED50S"},
    {"Degrees-minutes-secondes", Dms, "50.3015,4.1500", "dms +50.30150 +004.15000", "ED50S"},
    {"Numeric UTM", Utm, "31,642123,5628456", "utm 31 642123 5628456", "UTM47"},
    {"Alphanumeric UTM", Mgr, "31ufs1234", "mgr 31 U FS1234", "UTM47"},
    {"Grades Paris", Grp, "56.1,2.05", "grp +56.10000 +002.05000", "NTF  "},
    {"British National Grid", Bng, "sk1234", "bng SK 1234", "OGB-M"},
    {"Irish TM Grid", Itm, "it1234", "itm IT 1234", "IRL  "},
    {"Lambert belge 1972", Lmb, "150000,170000.5", "lmb 150000 170000.5", "BEL72"},
    {"IFBL", Ifb, "e4.26.33", "ifb e4.26.33", "BEL72"},
    {"Lambert France I", Lf1, "600000,1200000", "lf1 600000 1200000", "BEL72"},
    {"Lambert France II", Lf2, "600000,2200000", "lf2 600000 2200000", "BEL72"},
    {"Lambert France III", Lf3, "600000,3200000", "lf3 600000 3200000", "BEL72"},
    {"Lambert France IV", Lf4, "600000,4200000", "lf4 600000 4200000", "BEL72"},
    {"Lambert France II étendu", Lfe, "600000,2200000", "lfe 600000 2200000", "BEL72"},
    {"Lambert Nord Maroc", Nma, "500000,300000", "nma 500000 300000", "BEL72"},
    {"Lambert Sud Maroc", Sma, "500000,300000", "sma 500000 300000", "BEL72"},
};
// clang-format on

/// The shipped catalogue, with default datums that are not those of a first run.
CoordState Etat() {
  CoordState state;
  state.Catalogue = test::CatalogueDesSources();
  DatumRecord spherical, utm;
  spherical.code = "ED50S";
  utm.code = "UTM47";
  state.Catalogue.Datums.push_back(spherical);
  state.Catalogue.Datums.push_back(utm);
  state.DatumUtm = static_cast<std::int16_t>(state.Catalogue.Datums.size());
  state.DatumSpherique = static_cast<std::int16_t>(state.DatumUtm - 1);
  return state;
}

TEST(TextImportReader, BuildsOriginalAndDatumOfEachOfTheSixteenSystems) {
  const CoordState state = Etat();
  static_assert(std::size(systemCases) == CoordSystemCount);
  for (const SystemCase& c : systemCases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(Original(c.system, c.coordinates), c.original);
    EXPECT_EQ(DatumImporte(state, c.system), c.datum);
  }
}

TEST(TextImportReader, LambertFranceArrivesWithTheBelgianDatum) {
  EXPECT_EQ(DatumImporte(Etat(), Lf2), "BEL72");
}

TEST(TextImportReader, ADatumThatTheCatalogueLacksGivesItsCode) {
  CoordState state;
  state.DatumUtmCode = "NAS";
  state.DatumSpheriqueCode = "EUR-M";
  EXPECT_EQ(DatumImporte(state, Utm), "NAS  ");
  EXPECT_EQ(DatumImporte(state, Deg), "EUR-M");
  EXPECT_EQ(DatumImporte(state, Itm), "IRL  ");
  EXPECT_EQ(DatumImporte(state, Sma), "BEL72");
}

TEST(TextImportReader, TakesTheFieldsInTheirOrder) {
  EXPECT_EQ(Fiches("3,50,4,7,8,1990/05/01,\"a, b\"", Deg),
            (Texts{"3|7|8|D    |deg +50.00000 +004.00000|1990/05/01|a, b"}));
  EXPECT_EQ(Fiches("3,31,642123,5628456,7,8,1990/05/01,c", Utm),
            (Texts{"3|7|8|D    |utm 31 642123 5628456|1990/05/01|c"}));
  EXPECT_EQ(Fiches("3,G336,7,8,1990/05/01,c", Ifb), (Texts{"3|7|8|D    |ifb G336|1990/05/01|c"}));
}

// ---- numbers in ORIGINAL

struct OriginalCase {
  CoordSystem system;
  const char* coordinates;
  const char* original;
};

// clang-format off
const OriginalCase originalCases[] = {
    {Deg, "0,0", "deg +00.00000 +000.00000"},
    {Deg, "-0.5,-179.999999", "deg -00.50000 -180.00000"},
    {Deg, "50.123456789,4.123456789", "deg +50.12346 +004.12346"},  // 50.123455 as a single
    {Deg, "5.05e1,4", "deg +50.50000 +004.00000"},
    {Grp, "-1.5,200", "grp -01.50000 +200.00000"},
    {Lmb, "0,-0.25", "lmb 0 -0.25"},
    {Lmb, "150000.123,170000.987", "lmb 150000.1 170001"},
    {Lmb, "1234567.89,12345678", "lmb 1234568 12345680"},
    {Lfe, "+600000,0600001", "lfe 600000 600001"},
    {Utm, "-1,+642123,0005628456", "utm -1 642123 5628456"},
    {Utm, "31,642123.5,5628456.4", "utm 31 642124 5628456"},
};
// clang-format on

TEST(TextImportReader, WritesNumbersOf32BitsWithSevenDigits) {
  for (const OriginalCase& c : originalCases) {
    EXPECT_EQ(Original(c.system, c.coordinates), c.original) << c.coordinates;
  }
}

/// The locale of a user whose numbers have a decimal comma.
class DecimalComma {
 public:
  DecimalComma() : before_(std::setlocale(LC_ALL, nullptr)) {
    for (const char* name : {"de_DE.UTF-8", "fr_FR.UTF-8", "nl_BE.UTF-8", "de_DE", "fr_FR"}) {
      if (std::setlocale(LC_ALL, name) != nullptr) set_ = true;
    }
  }
  DecimalComma(const DecimalComma&) = delete;
  DecimalComma& operator=(const DecimalComma&) = delete;
  ~DecimalComma() { std::setlocale(LC_ALL, before_.c_str()); }
  bool EstLa() const { return set_; }

 private:
  std::string before_;
  bool set_ = false;
};

TEST(TextImportReader, OriginalCarriesPointsWhereTheUsersNumbersHaveCommas) {
  const DecimalComma locale;
  if (!locale.EstLa()) GTEST_SKIP() << "no locale with a decimal comma is installed";
  EXPECT_EQ(Original(Deg, "50.5,4.25"), "deg +50.50000 +004.25000");
  EXPECT_EQ(Original(Lmb, "150000.5,0.25"), "lmb 150000.5 0.25");
}

TEST(TextImportReader, ACommaInAReferenceBecomesAPoint) {
  EXPECT_EQ(Original(Ifb, "\"e4,26\""), "ifb e4.26");
  EXPECT_EQ(Original(Bng, "\"sk12,34\""), "bng SK 12.34");
}

// ---- references

TEST(TextImportReader, DropsAnMgrsReferenceShorterThanFiveCharacters) {
  const std::string dropped = "dropped " + std::to_string(MsgId::MgrsTropCourt);
  EXPECT_EQ(Fiches("1,31uf,2,3,d,c\r\n1,,2,3,d,c\r\n1,31ufs,2,3,d,c", Mgr),
            (Texts{dropped, dropped, "1|2|3|D    |mgr 31 U FS|d|c"}));
}

TEST(TextImportReader, DropsAGridReferenceShorterThanFourCharacters) {
  const std::string dropped = "dropped " + std::to_string(MsgId::GrilleTropCourte);
  for (const CoordSystem system : {Bng, Itm}) {
    const std::string code = Minuscules(InfoDe(system).code);
    EXPECT_EQ(Fiches("1,sk1,2,3,d,c\r\n1,sk12,2,3,d,c", system),
              (Texts{dropped, "1|2|3|D    |" + code + " SK 12|d|c"}));
  }
}

TEST(TextImportReader, CountsCharactersNotBytes) {
  EXPECT_EQ(Original(Bng, "\xC3\xA9\xC3\xA9\xC3\xA9"), "dropped");
  EXPECT_EQ(Original(Bng, "\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9"),
            "bng \xC3\x89\xC3\x89 \xC3\x89\xC3\x89");
}

TEST(TextImportReader, AOneDigitMgrsZoneIsCutAsAllOthers) {
  EXPECT_EQ(Original(Mgr, "9UXA12"), "mgr 9U X A12");
}

TEST(TextImportReader, AnIfblReferenceStaysAsItIsAlsoWhenItIsEmpty) {
  EXPECT_EQ(Original(Ifb, "e4 26"), "ifb e4 26");
  EXPECT_EQ(Original(Ifb, ""), "ifb ");
}

// ---- comments, empty lines, the end

TEST(TextImportReader, SkipsAFirstLineWithAStar) {
  EXPECT_EQ(Fiches("* period, square\r\n1,G3,2,3,d,c\r\n"), (Texts{"1|2|3|D    |ifb G3|d|c"}));
}

TEST(TextImportReader, TakesTheSecondOfTwoCommentLinesAsARecord) {
  EXPECT_EQ(Fiches("*1\r\n*2\r\n1,G3,2,3,d,c\r\n"), (Texts{"failure 13"}));
}

TEST(TextImportReader, SkipsCommentsBetweenRecords) {
  EXPECT_EQ(Fiches("*\r\n1,G3,2,3,d,c\r\n* x\r\n2,G3,2,3,d,c\r\n*\r\n"),
            (Texts{"1|2|3|D    |ifb G3|d|c", "2|2|3|D    |ifb G3|d|c"}));
}

TEST(TextImportReader, AStarBehindABlankIsNoComment) {
  EXPECT_EQ(Fiches(" *\r\n"), (Texts{"failure 13"}));
}

TEST(TextImportReader, PassesOverEmptyLines) {
  EXPECT_EQ(Fiches("\r\n\n  \r1,G3,2,3,d,c\r\n\r\n \r\n2,G3,2,3,d,c"),
            (Texts{"1|2|3|D    |ifb G3|d|c", "2|2|3|D    |ifb G3|d|c"}));
}

TEST(TextImportReader, ACommentMayFollowAnEmptyLine) {
  EXPECT_EQ(Fiches("*a\r\n\r\n*b\r\n1,G3,2,3,d,c"), (Texts{"1|2|3|D    |ifb G3|d|c"}));
}

TEST(TextImportReader, ReadsAFinalLineWithoutAnEnd) {
  EXPECT_EQ(Fiches("1,G3,2,3,d,c"), (Texts{"1|2|3|D    |ifb G3|d|c"}));
}

TEST(TextImportReader, TrailingEmptyLinesEndTheFileWell) {
  for (const char* end : {"\r\n", "\r\n\r\n", "\r\n   \r\n", "\n\x1A", "\r\n  "}) {
    EXPECT_EQ(Fiches("1,G3,2,3,d,c" + std::string(end)), (Texts{"1|2|3|D    |ifb G3|d|c"}));
  }
}

TEST(TextImportReader, AnEmptyFileHasNoRecords) {
  for (const char* bytes : {"", "\r\n", "*", "* only a remark\r\n", "\x1A", "\xEF\xBB\xBF"}) {
    EXPECT_EQ(Fiches(bytes), Texts()) << bytes;
  }
}

// ---- records and lines

TEST(TextImportReader, AShortLineTakesTheRestOfItsRecordFromTheNext) {
  EXPECT_EQ(Fiches("1,G3,2\r\n3,d,c\r\n2,G3,2,3,d,c"),
            (Texts{"1|2|3|D    |ifb G3|d|c", "2|2|3|D    |ifb G3|d|c"}));
}

TEST(TextImportReader, TheSurplusOfALineBeginsTheNextRecord) {
  EXPECT_EQ(Fiches("1,G3,2,3,d,c,2,G4,2\r\n3,e,f"),
            (Texts{"1|2|3|D    |ifb G3|d|c", "2|2|3|D    |ifb G4|e|f"}));
}

TEST(TextImportReader, ACommaBehindTheLastFieldIsNoSurplus) {
  EXPECT_EQ(Fiches("1,G3,2,3,d,c,\r\n2,G3,2,3,d,c,  \r\n"),
            (Texts{"1|2|3|D    |ifb G3|d|c", "2|2|3|D    |ifb G3|d|c"}));
}

TEST(TextImportReader, EmptyPeriodAndNumbersRead0AndEmptyTextsAreEmpty) {
  EXPECT_EQ(Fiches(",G3,,,,\r\n"), (Texts{"0|0|0|D    |ifb G3||"}));
}

TEST(TextImportReader, SeparateFieldsForLetterEastingAndNorthingDoNotFit) {
  EXPECT_EQ(Fiches("1,SK,12,34,2,3,d,c", Bng).front().substr(0, 7), "dropped");
}

TEST(TextImportReader, AMillionCommasAreRecordsThatDoNotEnter) {
  const Texts records = Fiches(std::string(1000000, ','), Mgr);
  EXPECT_EQ(records.size(), 166667U);
  EXPECT_EQ(Fiches(std::string(1000000, ','), Deg), (Texts{"failure 13"}));
}

TEST(TextImportReader, BreaksWithinQuotesAreLfInCommentsAndBlanksElsewhere) {
  EXPECT_EQ(Fiches("1,\"G\r\n3\",2,3,\"19\r90\",\"a\r\nb\"\r\n"),
            (Texts{"1|2|3|D    |ifb G 3|19 90|a\nb"}));
}

TEST(TextImportReader, TellsTheLineOnWhichEachRecordBegins) {
  TextImportReader reader(Fichier("*\r\n\r\n1,G3,2\r\n3,d,c\r\n2,G3,2,3,d,c"), Ifb, "");
  ImportRecord record;
  std::vector<std::int64_t> lines;
  while (reader.Suivant(record)) lines.push_back(record.line);
  EXPECT_EQ(lines, (std::vector<std::int64_t>{3, 5}));
  EXPECT_EQ(reader.Part(), 1);
}

// ---- what ends an import

struct EndCase {
  const char* name;
  CoordSystem system;
  const char* bytes;
  Faute expected;
};

// clang-format off
const EndCase endCases[] = {
    {"a period of 40000", Ifb, "40000,G3,2,3,d,c", {ErrorNumber::Overflow, 1, MsgId::ChampTropGrand, {"1", "40000"}}},
    {"a heading", Ifb, "Period,IFBL,N1,N2,Date,Comment", {ErrorNumber::TypeMismatch, 1, MsgId::ChampSansNombre, {"1", "Period"}}},
    {"no latitude", Deg, "1,,4,2,3,d,c", {ErrorNumber::TypeMismatch, 1, MsgId::ChampVide, {"2"}}},
    {"no longitude", Grp, "1,50,,2,3,d,c", {ErrorNumber::TypeMismatch, 1, MsgId::ChampVide, {"3"}}},
    {"no x", Lmb, "1,,4,2,3,d,c", {ErrorNumber::TypeMismatch, 1, MsgId::ChampVide, {"2"}}},
    {"no y", Sma, "1,4,,2,3,d,c", {ErrorNumber::TypeMismatch, 1, MsgId::ChampVide, {"3"}}},
    {"no zone", Utm, "1,,6,5,2,3,d,c", {ErrorNumber::TypeMismatch, 1, MsgId::ChampVide, {"2"}}},
    {"no easting", Utm, "1,31,,5,2,3,d,c", {ErrorNumber::TypeMismatch, 1, MsgId::ChampVide, {"3"}}},
    {"no northing", Utm, "1,31,6,,2,3,d,c", {ErrorNumber::TypeMismatch, 1, MsgId::ChampVide, {"4"}}},
    {"a zone of 40000", Utm, "1,40000,6,5,2,3,d,c", {ErrorNumber::Overflow, 1, MsgId::ChampTropGrand, {"2", "40000"}}},
    {"an easting of ten digits", Utm, "1,31,6000000000,5,2,3,d,c", {ErrorNumber::Overflow, 1, MsgId::ChampTropGrand, {"3", "6000000000"}}},
    {"n1 beyond 32 bits", Ifb, "1,G3,2147483648,3,d,c", {ErrorNumber::Overflow, 1, MsgId::ChampTropGrand, {"3", "2147483648"}}},
    {"semicolons", Ifb, "1;G3;2;3;d;c", {ErrorNumber::TypeMismatch, 1, MsgId::ChampSansNombre, {"1", "1;G3;2;3;d;c"}}},
    {"tabs", Ifb, "1\tG3\t2", {ErrorNumber::TypeMismatch, 1, MsgId::ChampSansNombre, {"1", "1→G3→2"}}},
    {"a record cut by the end", Ifb, "\r\n1,G3,2,3,d\r\n", {ErrorNumber::InputPastEnd, 2, MsgId::FicheCoupee, {"6"}}},
    {"a quote that is not closed", Ifb, "1,G3,2,3,d,\"c\r\n", {ErrorNumber::InputPastEnd, 1, MsgId::GuillemetOuvert, {"6"}}},
};
// clang-format on

TEST(TextImportReader, NamesLineFieldAndTextOfWhatEndsTheImport) {
  for (const EndCase& c : endCases) {
    SCOPED_TRACE(c.name);
    TextImportReader reader(Fichier(c.bytes), c.system, "");
    ImportRecord record;
    EXPECT_EQ(FauteDe([&] { reader.Suivant(record); }), c.expected);
    EXPECT_EQ(FauteDe([&] { reader.Suivant(record); }), c.expected) << "again";
  }
}

// ---- any record

/// A record of random fields and what it has to read as.
struct AnyRecord {
  std::string written, read;
};

AnyRecord FicheQuelconque(std::mt19937& random) {
  const auto number = [&](std::int64_t low, std::int64_t high) {
    return std::uniform_int_distribution<std::int64_t>(low, high)(random);
  };
  const auto text = [&](bool quoted) {
    std::string made;
    const std::string letters = quoted ? "ab ,;*'/" : "ab;*'/.";
    for (auto n = number(0, 12); n > 0; --n) {
      made += letters[static_cast<std::size_t>(number(0, static_cast<int>(letters.size()) - 1))];
    }
    return made;
  };
  const auto period = number(-32768, 32767), n1 = number(INT32_MIN, INT32_MAX), n2 = number(0, 99);
  const double latitude = static_cast<double>(number(-9000000, 9000000)) / 100000;
  const double longitude = static_cast<double>(number(-18000000, 18000000)) / 100000;
  const std::string date = text(false), comment = text(true);
  const std::string separator = number(0, 1) == 0 ? "," : " ,  ";
  return {Str(period) + separator + Str(latitude) + separator + Str(longitude) + separator +
              Str(n1) + separator + Str(n2) + "," + date + ",\"" + comment + "\"",
          Str(period) + "|" + Str(n1) + "|" + Str(n2) + "|D    |deg " +
              Format(static_cast<float>(latitude), "+00.00000;-00.00000") + " " +
              Format(static_cast<float>(longitude), "+000.00000;-000.00000") + "|" + date + "|" +
              comment};
}

TEST(TextImportReader, ReadsBackAnyRecordThatCanBeWritten) {
  std::mt19937 random(11);
  std::string bytes;
  Texts expected;
  for (int i = 0; i < 2000; ++i) {
    const AnyRecord record = FicheQuelconque(random);
    bytes += record.written + (i % 3 == 0 ? "\r\n" : i % 3 == 1 ? "\n" : "\r");
    expected.push_back(record.read);
  }
  EXPECT_EQ(Fiches(bytes, Deg), expected);
}

}  // namespace
}  // namespace talpena
