#include "store/table.h"

#include <gtest/gtest.h>

#include "store/world.h"

namespace talpena {
namespace {

class Table : public ::testing::Test {
 protected:
  test::World world;

  std::unique_ptr<Recordset> Ouvre() {
    return world.state.document.WorkingDb->OpenRecordset("TALPENA");
  }
  int EchecEcriture(std::string_view field, Cell value) {
    const auto rows = Ouvre();
    rows->AddNew();
    try {
      rows->Set(field, value);
      rows->Update();
    } catch (const TalpenaError& e) {
      return e.number();
    }
    return 0;
  }
};

TEST_F(Table, HasItsColumnsInOrder) {
  const TableDef table = world.state.document.WorkingDb->Table("TALPENA");
  const char* names[] = {"Counter", "PERIOD", "LATITUDE", "LONGITUDE", "N1",     "N2",
                         "SEX",     "DATUM",  "ORIGINAL", "DATE",      "COMMENT"};
  ASSERT_EQ(table.fields.size(), std::size(names));
  for (std::size_t i = 0; i < table.fields.size(); ++i) EXPECT_EQ(table.fields[i].name, names[i]);
  EXPECT_EQ(table.fields[Column::LATITUDE].type, FieldType::Single);
  EXPECT_EQ(table.fields[Column::ORIGINAL].size, 24);
  EXPECT_TRUE(table.fields[Column::Counter].autoIncrement);
  ASSERT_EQ(table.indexes.size(), 1U);
  EXPECT_EQ(table.indexes[0].name, "PERIOD");
  EXPECT_FALSE(table.indexes[0].unique);
  EXPECT_FALSE(table.indexes[0].primary);
}

TEST_F(Table, AcceptsARowOfNulls) {
  const auto rows = Ouvre();
  rows->AddNew();
  rows->Update();
  EXPECT_EQ(world.Lignes(), std::vector<std::string>{"-|-|-|-|-|-|-|-|-|-"});
}

TEST_F(Table, AcceptsTheEmptyTextInThreeColumnsOnly) {
  for (const char* field : {"Sex", "Date", "comment"}) {
    EXPECT_EQ(EchecEcriture(field, Cell::Of(std::string_view(""))), 0) << field;
  }
  for (const char* field : {"Datum", "Original"}) {
    EXPECT_EQ(EchecEcriture(field, Cell::Of(std::string_view(""))), ErrorNumber::ZeroLength)
        << field;
    EXPECT_EQ(EchecEcriture(field, Cell::Null()), 0) << field;
  }
}

TEST_F(Table, RefusesAPeriodBeyond16Bits) {
  EXPECT_EQ(EchecEcriture("Period", Cell::Of(std::int64_t{32767})), 0);
  EXPECT_NE(EchecEcriture("Period", Cell::Of(std::int64_t{32768})), 0);
}

TEST_F(Table, HoldsACommentOfAnyLength) {
  const std::string text(100'000, 'x');
  EXPECT_EQ(EchecEcriture("comment", Cell::Of(std::string_view(text))), 0);
}

TEST_F(Table, HoldsTwoRowsThatAreTheSame) {
  EXPECT_EQ(EchecEcriture("N1", Cell::Of(std::int64_t{5})), 0);
  EXPECT_EQ(EchecEcriture("N1", Cell::Of(std::int64_t{5})), 0);
  EXPECT_EQ(world.Lignes().size(), 2U);
}

TEST_F(Table, IsBuiltOnlyOnce) {
  EXPECT_THROW(CreateTable(*world.state.document.WorkingDb), TalpenaError);
}

TEST(TitresColonnes, FollowTheLanguageAndTheUsersLabels) {
  StoreState state;
  state.LabelNumeric1 = "Males";
  state.LabelNumeric2 = "Altitude";
  EXPECT_EQ(
      TitresColonnes(state),
      (std::array<std::string, 10>{"Period number", "Latitude", "Longitude", "Males", "Altitude",
                                   "Sex", "Datum", "Original coordinates", "Date", "Comments"}));
  state.Langue = 0;
  const auto french = TitresColonnes(state);
  EXPECT_NE(french[0], "Period number");
  EXPECT_EQ(french[3], "Males");
  EXPECT_EQ(french[5], "Sex");
}

}  // namespace
}  // namespace talpena
