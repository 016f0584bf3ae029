#include "store/deg_reader.h"

#include <gtest/gtest.h>

#include "common/msg_id.h"
#include "common/string_table.h"
#include "store/deg_files.h"
#include "store/lit_deg_fixture.h"

namespace talpena {
namespace {

using test::EnTete2;
using test::FinEnTete;
using test::LitDegTest;
using test::oneField;
using test::Rangee;
using test::RangeeLue;
using Texts = std::vector<std::string>;

// ---- free fields for a form 1 file

TEST_F(LitDegTest, OffersStandardFieldsToAForm1File) {
  world.files.Pose("/app/standard.hdr", ";\r\na,b,1\r\nc,d,2\r\n");
  world.dialogues.answers = {Answer::Yes};
  world.Charge(FinEnTete() + Rangee("1", "remark"));
  ASSERT_EQ(world.dialogues.boxes.size(), 1U);
  EXPECT_EQ(world.dialogues.boxes[0].text, Texte(1000, MsgId::ChampsStandard));
  EXPECT_EQ(world.dialogues.boxes[0].buttons, Buttons::YesNo);
  EXPECT_EQ(state.document.Entete().FreeFieldText, ";\r\na,b,1\r\nc,d,2");
  EXPECT_EQ(state.document.Entete().FreeFieldCount, 2);
  EXPECT_EQ(world.Lignes(), Texts{RangeeLue("1", ";;remark")});
}

TEST_F(LitDegTest, LeavesAForm1FileWithoutFieldsOnNo) {
  world.files.Pose("/app/standard.hdr", ";\r\na,b,1\r\n");
  world.dialogues.answers = {Answer::No};
  test::Entete(state.document)->FreeFieldCount = 3;
  world.Charge(FinEnTete() + Rangee("1", "remark"));
  EXPECT_EQ(state.document.Entete().FreeFieldCount, 0);
  EXPECT_EQ(state.document.Entete().FreeFieldText, "");
  EXPECT_EQ(world.Lignes(), Texts{RangeeLue("1", "remark")});
}

TEST_F(LitDegTest, DoesNotOfferThemToForm2OrToAMerge) {
  world.files.Pose("/app/standard.hdr", ";\r\na,b,1\r\n");
  world.Charge(EnTete2() + Rangee());
  world.Charge(FinEnTete() + Rangee(), MergeMode::Merge);
  EXPECT_EQ(world.Boites(), Texts{});
}

// ---- merging

TEST_F(LitDegTest, MergesAFileOfTheSameLayout) {
  world.Charge(EnTete2("WGS84", oneField, "One", "first") + Rangee("1", "a/b"));
  const auto stamp = state.document.Fichier.EmpreinteFichier;
  state.document.Fichier.NomFichier = "/data/f.deg";
  world.Charge(EnTete2("wgs84", oneField, "Two", "second") + Rangee("2", "c/d"), MergeMode::Merge,
               "/data/g.deg");
  EXPECT_EQ(world.Boites(), Texts{});
  EXPECT_EQ(world.Lignes(), (Texts{RangeeLue("1", "a/b"), RangeeLue("2", "c/d")}));
  EXPECT_EQ(LignesLiees().size(), 2U);
  EXPECT_EQ(world.vue.boxTitre, "One - Two");
  EXPECT_EQ(world.vue.commentaire, "first-second");
  EXPECT_EQ(world.vue.titre, "Talpena - /data/g.deg");
  EXPECT_EQ(state.document.Fichier.NomFichier, "/data/f.deg");
  EXPECT_TRUE(state.document.FichierModifie());
  EXPECT_EQ(state.LastFiles[0], "/data/g.deg");
  EXPECT_EQ(state.document.Fichier.EmpreinteFichier, stamp)
      << "the open file is still the first one";
  ExpectFerme();
}

TEST_F(LitDegTest, KeepsThePeriodsOnAMerge) {
  world.Charge(EnTete2("WGS84", oneField) + Rangee("1"));
  std::string bytes = EnTete2("WGS84", oneField);
  bytes.replace(bytes.find("1950"), 4, "1960");
  world.Charge(bytes, MergeMode::Merge);
  EXPECT_EQ(state.document.Entete().Pivot1, 1950);
}

TEST_F(LitDegTest, RefusesAMergeOfAnotherDatum) {
  world.Charge(EnTete2("WGS84", oneField) + Rangee("1"));
  world.vue.calls.clear();
  world.Charge(EnTete2("NTF", oneField) + Rangee("2"), MergeMode::Merge);
  ASSERT_EQ(world.dialogues.boxes.size(), 1U);
  EXPECT_EQ(world.dialogues.boxes[0].text, "Datum not compatible with current file.");
  EXPECT_EQ(world.dialogues.boxes[0].icon, Icon::Stop);
  EXPECT_EQ(world.sound.bips, 1);
  EXPECT_EQ(world.Lignes().size(), 1U);
  EXPECT_EQ(world.vue.calls, Texts{}) << "the window shows nothing of it";
  EXPECT_EQ(state.document.Entete().FreeFieldText, "") << "a refused merge empties it";
  EXPECT_EQ(state.document.Entete().FreeFieldCount, 1);
  EXPECT_EQ(state.document.Entete().DatumFichierCode, "WGS84");
  ExpectFerme();
}

TEST_F(LitDegTest, RefusesAMergeOfOtherFields) {
  world.Charge(EnTete2("WGS84", oneField) + Rangee("1"));
  world.Charge(EnTete2("WGS84", "/\r\nSTAT.TOPO,Lieu,50,x\r\n") + Rangee("2"), MergeMode::Merge);
  ASSERT_EQ(world.dialogues.boxes.size(), 1U);
  EXPECT_EQ(world.dialogues.boxes[0].text,
            "Field definition not compatible with current file!\r\nSTAT.TOPO,Lieu,50");
  EXPECT_EQ(world.dialogues.boxes[0].icon, Icon::Stop);
  EXPECT_EQ(world.Lignes().size(), 1U);
  EXPECT_EQ(state.document.Entete().FreeFieldText, "");
  ExpectFerme();
}

TEST_F(LitDegTest, MergesForm1WithoutAnyTest) {
  world.Charge(EnTete2("NTF", oneField) + Rangee("1", "a/b"));
  world.Charge(FinEnTete("Old") + Rangee("2", "remark"), MergeMode::Merge);
  EXPECT_EQ(world.Boites(), Texts{});
  EXPECT_EQ(world.Lignes(), (Texts{RangeeLue("1", "a/b"), RangeeLue("2", "/remark")}));
  EXPECT_EQ(Rang("RecalculeCoordonnees"), -1);
  EXPECT_EQ(world.vue.boxTitre, "Title - Old");
  EXPECT_EQ(state.document.Entete().DatumFichierCode, "NTF");
  EXPECT_EQ(state.document.Entete().FreeFieldText, "");
}

TEST_F(LitDegTest, TakesDatumAndFieldsOfTheMergedFileWhereThereWereNone) {
  world.Charge(EnTete2("WGS84") + Rangee("1", "remark"));
  world.Charge(EnTete2("NTF", oneField) + Rangee("2", "c/d"), MergeMode::Merge);
  EXPECT_EQ(world.Lignes(), (Texts{RangeeLue("1", "remark"), RangeeLue("2", "c/d")}));
  EXPECT_EQ(state.document.Entete().DatumFichierCode, "NTF");
  EXPECT_EQ(world.vue.panneauDatum, "NTF");
  EXPECT_EQ(state.document.Entete().FreeFieldCount, 1);
  EXPECT_EQ(state.document.Entete().FreeFieldText, "/\r\nSTAT.TOPO,Toponyme,50");
}

TEST_F(LitDegTest, CannotMergeAForm2FileWithoutFields) {
  world.Charge(EnTete2("WGS84", oneField) + Rangee("1", "a/b"));
  world.Charge(EnTete2("WGS84") + Rangee("2"), MergeMode::Merge, "/data/g.deg");
  EXPECT_EQ(world.Boites(), Texts{"This file has no free fields, and a merge takes only files that "
                                  "have some; nothing was added to the table."});
  EXPECT_EQ(world.Lignes(), Texts{RangeeLue("1", "a/b")});
  EXPECT_EQ(state.document.Entete().FreeFieldText, "/\r\nSTAT.TOPO,Toponyme,50") << "put back";
  EXPECT_EQ(state.LastFiles[0], "/data/f.deg");
  EXPECT_EQ(world.vue.boxTitre, "Title");
  ExpectFerme();
}

TEST_F(LitDegTest, SaysTheSameOfALargeForm2FileWithoutFields) {
  world.Charge(EnTete2("WGS84", oneField) + Rangee("1", "a/b"));
  std::string rows;
  while (rows.size() < 18'000'000) rows += Rangee("2", std::string(4000, 'r'));
  world.Charge(EnTete2("WGS84") + rows, MergeMode::Merge, "/data/g.deg");
  EXPECT_EQ(world.Boites(), Texts{"This file has no free fields, and a merge takes only files that "
                                  "have some; nothing was added to the table."});
}

TEST_F(LitDegTest, KeepsTheDatumWhenAMergeFailsInTheHeader) {
  world.Charge(EnTete2("WGS84") + Rangee("1"));
  world.Charge(EnTete2("NTF") + Rangee("2"), MergeMode::Merge);
  EXPECT_EQ(world.Boites().size(), 1U);
  EXPECT_EQ(state.document.Entete().DatumFichierCode, "WGS84") << "the rows still stand on it";
  EXPECT_EQ(state.document.Entete().DatumFichier, 1);
  EXPECT_EQ(world.vue.panneauDatum, "WGS84");
}

}  // namespace
}  // namespace talpena
