// One place as the list shows it.
#include "gazetteer/place_item.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "gazetteer/place_name.h"

namespace talpena {
namespace {

std::string Nettoie(std::string text) {
  GeoFormat(text);
  return text;
}

TEST(GeoFormat, RemovesTheTagsOfTheSixFonts) {
  EXPECT_EQ(Nettoie("<B3>Moskva</B3>"), "Moskva");
  EXPECT_EQ(Nettoie("<N1>a</N1><I6>b</I6>"), "ab");
}

TEST(GeoFormat, KnowsCapitalLettersAndItsSixFontsOnly) {
  for (const char* text : {"<b1>x", "<B7>x", "<B0>x", "<C1>x", "<B 1>x", "<B1x"}) {
    EXPECT_EQ(Nettoie(text), text);
  }
}

TEST(GeoFormat, MakesHyphensOfSlashesBehindTheTags) {
  EXPECT_EQ(Nettoie("Aa/Bb</B2>"), "Aa-Bb");
  EXPECT_EQ(Nettoie("</B9>"), "<-B9>");
}

// "<B<B1>1>" loses the inner tag; what is left together is a tag of the same turn and stays.
TEST(GeoFormat, RemovesEachTagInOneTurn) {
  EXPECT_EQ(Nettoie("<B<B1>1>"), "<B1>");
  EXPECT_EQ(Nettoie("<B<B1>2>"), "");
}

TEST(GeoFormat, TakesALongNameInItsStride) {
  const std::string name(1'000'000, '<');
  EXPECT_EQ(Nettoie(name), name);
}

TEST(NumeroPolice, IsTheDigitOfTheFirstTag) {
  EXPECT_EQ(NumeroPolice("Paris"), 1);
  EXPECT_EQ(NumeroPolice("a <B3>x<B4>"), 3);
  EXPECT_EQ(NumeroPolice("<B9>"), 9);
  for (const char* name : {"</B3>", "<", "<B", "<Bx>"}) EXPECT_EQ(NumeroPolice(name), 0) << name;
}

TEST(Icons, FollowTheFeatureCode) {
  EXPECT_EQ(IconeDe("STM"), "STM");
  EXPECT_EQ(IconeDe(" stmi "), "STM");
  for (const char* code : {"MT", "MTS", "MTSU", "MTU", "HLL"}) EXPECT_EQ(IconeDe(code), "MT");
  for (const char* code :
       {"PPL", "POPL", "LCTY", "PPLX", "PPLW", "PPLA", "PPLC", "PPLL", "PPLR", "PPLS"}) {
    EXPECT_EQ(IconeDe(code), "PPL") << code;
  }
  EXPECT_EQ(IconeDe("FRST"), "FRST");
  EXPECT_EQ(IconeDe("FRM"), "FRM");
  for (const char* code : {"", "PPLQ", "LK"}) EXPECT_EQ(IconeDe(code), "") << code;
}

/// A row name, latitude, longitude, fips, province, feature, country, province name.
struct Row {
  Cell name = Cell::Of(std::string_view("Name"));
  Cell latitude = Cell::Of(1.0), longitude = Cell::Of(2.0);
  Cell fips{}, province{}, feature{}, country{}, provinceName{};
};

constexpr PlaceFields AllFields{0, 1, 2, 3, 4, 5, 6, 7, 1};

PlaceItem Item(const Row& row, PlaceFields fields = AllFields) {
  const std::vector<Cell> cells{row.name,     row.latitude, row.longitude, row.fips,
                                row.province, row.feature,  row.country,   row.provinceName};
  return FaitItem(fields, cells);
}

Cell Texte(std::string_view text) { return Cell::Of(text); }

TEST(PlaceItem, AFontTagChoosesTheFontAndIsNotShown) {
  const PlaceItem item = Item({.name = Texte(" <B3>Kyiv/Kiev</B3> ")});
  EXPECT_EQ(item.Texte(PlaceColumn::Name), "Kyiv-Kiev");
  EXPECT_EQ(item.Texte(PlaceColumn::Font), "3");
}

TEST(PlaceItem, ALongNameIsCutAtTwoHundredCharacters) {
  std::string name;
  for (int i = 0; i < 500'000; ++i) name += "é";
  EXPECT_EQ(Item({.name = Texte(name)}).Texte(PlaceColumn::Name), name.substr(0, 400));
}

TEST(PlaceItem, RawCoordinatesHaveEightCharacters) {
  const PlaceItem item = Item({.latitude = Cell::Of(50.12345), .longitude = Cell::Of(-4.98765)});
  EXPECT_EQ(item.Texte(PlaceColumn::Latitude), "+50.1234");
  EXPECT_EQ(item.Texte(PlaceColumn::Longitude), "-004.987");
}

struct DmsCase {
  double value;
  std::int16_t type;
  const char* latitude;
  const char* longitude;
};

// By hand: degrees are what stands before the last four digits, minutes and seconds two each.
constexpr DmsCase dmsCases[] = {
    {503015, 0, "50°30'15\"N", "50°30'15\"E "},
    {-1234, 0, "00°12'34\"S", "00°12'34\"W "},
    {0, 0, "00°00'00\"N", "00°00'00\"E "},
    {-503015, 0, "50°30'15\"S", "50°30'15\"W "},
    {505955, 0, "50°60'55\"N", "50°60'55\"E "},
    {1234.5, 0, "00°12'34\"N", "00°12'34\"E "},
    {1235.5, 0, "00°12'36\"N", "00°12'36\"E "},
    {1794500, 0, "179°45'00\"", "179°45'00\"E"},
    {50.5, 1, "50°30'00\"N", "50°30'00\"E "},
    {-0.25, 1, "00°15'00\"S", "00°15'00\"W "},
    {3.82, 1, "03°49'11\"N", "03°49'11\"E "},  // 229.2 minutes are a little less in 32 bits
    {0, 1, "00°00'00\"N", "00°00'00\"E "},
    {1e30, 1, "", ""},
    {50.5, 2, "", ""},
};

TEST(PlaceItem, CoordinatesShowDegreesMinutesSecondsAndALetter) {
  for (const DmsCase& c : dmsCases) {
    PlaceFields fields = AllFields;
    fields.coordType = c.type;
    const PlaceItem item =
        Item({.latitude = Cell::Of(c.value), .longitude = Cell::Of(c.value)}, fields);
    EXPECT_EQ(item.Texte(PlaceColumn::LatitudeDms), c.latitude) << c.value;
    EXPECT_EQ(item.Texte(PlaceColumn::LongitudeDms), c.longitude) << c.value;
  }
}

TEST(PlaceItem, SecondsRoundTheMinutesShown) {
  EXPECT_EQ(TexteDmsDuLieu(503055, 0, "NS"), "50°31'55\"N");
}

TEST(PlaceItem, ATextColumnIsReadAsANumber) {
  const PlaceItem item = Item({.latitude = Texte(" 50,5 N"), .longitude = Texte("abc")});
  EXPECT_EQ(item.Texte(PlaceColumn::Latitude), "+50.5000");
  EXPECT_EQ(item.Texte(PlaceColumn::Longitude), "+000.000");
}

TEST(PlaceItem, ACoordinateThatIsNoneLeavesItsColumnsEmpty) {
  for (const Cell& cell : {Cell::Null(), Texte("  "), Texte("1E999"),
                           Cell::Of(std::numeric_limits<double>::infinity())}) {
    const PlaceItem item = Item({.latitude = cell});
    EXPECT_EQ(item.Texte(PlaceColumn::Latitude), "");
    EXPECT_EQ(item.Texte(PlaceColumn::LatitudeDms), "");
    EXPECT_EQ(item.Texte(PlaceColumn::Longitude), "+002.000");
  }
}

TEST(PlaceItem, NullsAreEmptyTexts) {
  const PlaceItem item = Item({.name = Cell::Null()});
  EXPECT_EQ(item.Texte(PlaceColumn::Name), "");
  EXPECT_EQ(item.Texte(PlaceColumn::Fips), "    ");
  EXPECT_EQ(item.Texte(PlaceColumn::Feature), "");
  EXPECT_EQ(item.Texte(PlaceColumn::Country), "");
  EXPECT_EQ(item.icon, "");
}

TEST(PlaceItem, TheFeatureHasFiveCharacters) {
  const PlaceItem item = Item({.feature = Texte("ppl")});
  EXPECT_EQ(item.Texte(PlaceColumn::Feature), "ppl  ");
  EXPECT_EQ(item.icon, "PPL");
  EXPECT_EQ(Item({.feature = Texte("LONGER")}).Texte(PlaceColumn::Feature), "LONGE");
}

struct FipsCase {
  const char* fips;
  const char* province;
  const char* text;
};

TEST(PlaceItem, FipsIsTheCountryAndTheProvince) {
  for (const FipsCase& c : {FipsCase{"BE", "04", "BE04"},
                            {"BE07", "1", "BE1 "},
                            {"B", "", "B   "},
                            {" BE ", " 2 ", "BE2 "},
                            {"", "12", "  12"},
                            {"BEL", "123", "BE12"}}) {
    EXPECT_EQ(Item({.fips = Texte(c.fips), .province = Texte(c.province)}).Texte(PlaceColumn::Fips),
              c.text);
  }
}

TEST(PlaceItem, WithoutAProvinceFieldFipsOfFourCharactersHasBoth) {
  PlaceFields fields = AllFields;
  fields.province = -1;
  for (const auto& [fips, text] : {std::pair{"BE04", "BE04"},
                                   {"BE", "BE  "},
                                   {"B", "B   "},
                                   {"BE041", "BE  "},
                                   {"BEX", "BE  "},
                                   {"", "    "}}) {
    EXPECT_EQ(Item({.fips = Texte(fips)}, fields).Texte(PlaceColumn::Fips), text);
  }
  fields.fips = -1;
  EXPECT_EQ(Item({.fips = Texte("BE04")}, fields).Texte(PlaceColumn::Fips), "    ");
}

}  // namespace
}  // namespace talpena
