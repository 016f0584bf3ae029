#include "interchange/rehearsed_rows.h"

#include <gtest/gtest.h>

#include "common/text.h"

namespace talpena {
namespace {

using Fate = RehearsedRow::Fate;

RehearsedRow Row(std::int64_t line, Fate fate = Fate::Entre) {
  RehearsedRow row;
  row.line = line;
  row.fate = fate;
  row.period = 7;
  row.original = "deg +50.00000 +004.00000";
  row.date = "1998/07/14";
  row.comment = "Liège";
  row.datum = "BEL72";
  row.point = {ReadPoint::Outcome::Point, 50, 4, {}};
  return row;
}

TEST(RehearsedRows, GiveBackWhatWasPutIn) {
  RehearsedRows rows;
  ASSERT_TRUE(rows.Ajoute(Row(12)));
  RehearsedRow other = Row(13, Fate::SansPoint);
  other.datum = "XXX";
  other.point = {ReadPoint::Outcome::Faute, 0, 0, {FauteDeLigne::Cause::Latitude, 91.5}};
  ASSERT_TRUE(rows.Ajoute(other));
  ASSERT_EQ(rows.Nombre(), 2);
  const RehearsedRow first = rows.Ligne(0), second = rows.Ligne(1);
  EXPECT_EQ(first.line, 12);
  EXPECT_EQ(first.period, 7);
  EXPECT_EQ(first.original, "deg +50.00000 +004.00000");
  EXPECT_EQ(first.date, "1998/07/14");
  EXPECT_EQ(first.comment, "Liège");
  EXPECT_EQ(first.datum, "BEL72");
  EXPECT_EQ(first.point.latitude, 50);
  EXPECT_EQ(first.point.longitude, 4);
  EXPECT_EQ(second.fate, Fate::SansPoint);
  EXPECT_EQ(second.datum, "XXX");
  EXPECT_EQ(second.point.faute.cause, FauteDeLigne::Cause::Latitude);
  EXPECT_EQ(second.point.faute.degres, 91.5);
}

TEST(RehearsedRows, CutLongTextsAtACharacter) {
  RehearsedRows rows;
  RehearsedRow row = Row(1);
  for (int i = 0; i < 200; ++i) row.comment += "é";
  rows.Ajoute(row);
  const std::string comment = rows.Ligne(0).comment;
  EXPECT_LE(comment.size(), 200U);
  EXPECT_TRUE(comment.ends_with("é…")) << comment;
  EXPECT_TRUE(EstUtf8(comment));
}

TEST(RehearsedRows, KeepNoMoreThanTheyHaveRoomForAndProblemsLongest) {
  RehearsedRows rows(1000);
  int kept = 0;
  while (rows.Ajoute(Row(++kept))) {
  }
  const std::int64_t plain = rows.Nombre();
  EXPECT_GT(plain, 5);
  EXPECT_LT(plain, 25);
  EXPECT_TRUE(rows.Ajoute(Row(1000, Fate::Omise)));
  while (rows.Ajoute(Row(1000, Fate::Omise))) {
  }
  EXPECT_LT(rows.Nombre(), 2 * plain);
  EXPECT_EQ(rows.NonGardees(), 2);
}

TEST(RehearsedRows, FindTheNextProblem) {
  RehearsedRows rows;
  rows.Ajoute(Row(1));
  rows.Ajoute(Row(2));
  rows.Ajoute(Row(3, Fate::Omise));
  EXPECT_EQ(rows.ProchainProbleme(0), 2);
  rows.MarqueLoin(1, true);
  EXPECT_EQ(rows.ProchainProbleme(0), 1);
  EXPECT_EQ(rows.ProchainProbleme(2), 2);
  EXPECT_EQ(rows.ProchainProbleme(3), -1);
  EXPECT_EQ(rows.ProchainProbleme(9), -1);
  rows.MarqueLoin(1, false);
  EXPECT_EQ(rows.ProchainProbleme(0), 2);
}

}  // namespace
}  // namespace talpena
