#include "store/free_fields.h"

#include <gtest/gtest.h>

#include "store/world.h"

namespace talpena {
namespace {

TEST(ChampsLibres, BuiltInAreElevenLinesAsTheyStand) {
  const auto& lines = ChampsLibresInternes();
  EXPECT_EQ(lines[1], "STAT.LOCA,Localit\xC3\xA9,Nom de la localit\xC3\xA9,50");
  EXPECT_EQ(lines[5], "COND.MICR , Microsituation, Microsituation, 5");
  EXPECT_EQ(lines[10], "SPEC.COLL , Collection, Collection, 10");
  DistributionHeader entete;
  for (const auto line : lines) AjouteChampLibre(entete, line);
  CompteChampsLibres(entete);
  EXPECT_EQ(entete.FreeFieldCount, 11);
  for (const FreeFieldDef& field : entete.FreeFieldDefs) EXPECT_EQ(field.Width, 0) << field.Code;
}

TEST(ChampsLibres, HoldCodeLabelAndWidthOfALine) {
  DistributionHeader entete;
  AjouteChampLibre(entete, " X.Y ,a label , 25 mm,9,8,7");
  ASSERT_EQ(entete.FreeFieldDefs.size(), 1U);
  EXPECT_EQ(entete.FreeFieldDefs[0].Code, " X.Y ");
  EXPECT_EQ(entete.FreeFieldDefs[0].Label, "a label ");
  EXPECT_EQ(entete.FreeFieldDefs[0].Width, 25);
  EXPECT_EQ(entete.FreeFieldCount, 0) << "counted by whoever adds the last one";
  EXPECT_EQ(entete.FreeFieldText, "");
}

TEST(ChampsLibres, NeedThreeItems) {
  DistributionHeader entete;
  for (const char* line : {"", "a", "a,b"}) {
    try {
      AjouteChampLibre(entete, line);
      ADD_FAILURE() << line;
    } catch (const TalpenaError& e) {
      EXPECT_EQ(e.number(), ErrorNumber::SubscriptOutOfRange);
    }
  }
  EXPECT_NO_THROW(AjouteChampLibre(entete, ",,"));
}

class StandardHdr : public ::testing::Test {
 protected:
  test::World world;

  void Lit(const std::string& bytes) {
    world.files.Pose("/app/standard.hdr", bytes);
    DistributionHeader entete;
    LitStandardHdr(entete, world.files, "/app/standard.hdr");
    *test::Entete(world.state.document).operator->() = entete;
  }
};

TEST_F(StandardHdr, IsLookedForInTheFolderOfTheProgram) {
  EXPECT_EQ(CheminStandardHdr(world.state, world.io), "");
  world.files.Pose("/app/standard.hdr", "");
  EXPECT_EQ(CheminStandardHdr(world.state, world.io), "/app/standard.hdr");
}

TEST_F(StandardHdr, GivesSeparatorAndDefinitions) {
  for (const char* bytes : {";\r\na,b,1\r\nc,d\xE9,2,9\r\n", ";\na,b,1\nc,d\xE9,2,9"}) {
    test::Entete(world.state.document)->FreeFieldDefs = {{"old", "old", 1}};
    Lit(bytes);
    EXPECT_EQ(world.state.document.Entete().FreeFieldSeparator, ";");
    EXPECT_EQ(world.state.document.Entete().FreeFieldText, ";\r\na,b,1\r\nc,d\xC3\xA9,2,9");
    EXPECT_EQ(world.state.document.Entete().FreeFieldCount, 2);
    ASSERT_EQ(world.state.document.Entete().FreeFieldDefs.size(), 2U);
    EXPECT_EQ(world.state.document.Entete().FreeFieldDefs[1].Label, "d\xC3\xA9");
  }
}

TEST_F(StandardHdr, WithoutDefinitionsGivesNoFields) {
  Lit("/\r\n");
  EXPECT_EQ(world.state.document.Entete().FreeFieldCount, 0);
  EXPECT_EQ(world.state.document.Entete().FreeFieldText, "/");
}

TEST_F(StandardHdr, FailsWhenEmptyOrBroken) {
  EXPECT_THROW(Lit(""), TalpenaError);
  EXPECT_THROW(Lit("/\r\na,b,1\r\n\r\n"), TalpenaError) << "a blank line is no definition";
}

}  // namespace
}  // namespace talpena
