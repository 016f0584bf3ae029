// Whole .deg files, without a table, a window or anybody to ask.
#include "store/deg_file.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "common/talpena_error.h"
#include "fakes/memory_input.h"
#include "store/deg_row_writer.h"
#include "store/save_fixture.h"

namespace talpena::test {
namespace {

const std::string header =
    "<TALPENA 2.0>\r\nWGS84\r\n/\r\nSTAT.TOPO,Toponyme,50\r\n<END>\r\nMoles\r\nInvented\r\n"
    " 0000 - 1949   1950 - 1989   1990 - 2011\r\nstatistics\r\nInvented\r\n";
const std::string row =
    "1K+50.10000   4.50000   12    01990/01/01FWGS84deg +50.10000 +004.50000ponds/seen\r\n";

DegContents Lit(const std::string& bytes) {
  DatumCatalogue catalogue;
  DatumRecord datum;
  datum.code = "WGS84";
  catalogue.Datums.push_back(datum);
  return LitFichierDeg(std::make_unique<MemoryInput>(bytes), catalogue);
}

TEST(DegFile, GivesHeaderAndRows) {
  const std::string bytes = header + row + row;
  const DegContents file = Lit(bytes);
  EXPECT_FALSE(file.faute);
  EXPECT_TRUE(file.forme2);
  EXPECT_EQ(file.entete.DatumFichierCode, "WGS84");
  EXPECT_EQ(file.entete.DatumFichier, 1);
  EXPECT_EQ(file.entete.BoxTitre, "Moles");
  EXPECT_EQ(file.entete.Commentaire, "Invented");
  EXPECT_EQ(file.entete.NbPivots, 2);
  EXPECT_EQ(file.entete.Pivot2, 1990);
  ASSERT_EQ(file.lignes.size(), 2U);
  EXPECT_EQ(file.lignes[1].n1, 12);
  EXPECT_EQ(file.lignes[1].comment, "ponds/seen");
}

TEST(DegFile, OfForm1HasNoDatumAndNoFieldsOfItsOwn) {
  const std::string bytes =
      "Moles\r\nInvented\r\n 0000 - 2011   0 - 0   0 - 0\r\ns\r\nInvented\r\n1K+50.1\r\n";
  const DegContents file = Lit(bytes);
  EXPECT_FALSE(file.faute);
  EXPECT_FALSE(file.forme2);
  EXPECT_EQ(file.entete.DatumFichierCode, "EUR-M");
  EXPECT_EQ(file.entete.FreeFieldCount, 0);
  ASSERT_EQ(file.lignes.size(), 1U);
  EXPECT_EQ(file.lignes[0].datum, "EUR-M") << "a bare point";
}

TEST(DegFile, SaysOnWhichLineARowIsAtFault) {
  const std::string bytes = header + row + "1K+9E99\r\n" + row;
  const DegContents file = Lit(bytes);
  ASSERT_TRUE(file.faute);
  EXPECT_EQ(file.faute->line, 12);
  EXPECT_EQ(file.faute->number, ErrorNumber::Overflow);
  EXPECT_EQ(file.lignes.size(), 1U) << "the rows before it";
}

TEST(DegFile, ThatEndsInItsHeaderIsAFault) {
  for (const std::size_t kept : {std::size_t{0}, std::size_t{16}, header.size() - 12}) {
    const std::string bytes = header.substr(0, kept);
    const DegContents file = Lit(bytes);
    ASSERT_TRUE(file.faute) << kept;
    EXPECT_EQ(file.faute->number, ErrorNumber::InputPastEnd);
    EXPECT_TRUE(file.lignes.empty());
  }
}

TEST(DegFile, AMergeTakesTitleAndCommentBehindThoseOfTheOpenFile) {
  DistributionHeader open;
  open.BoxTitre = "Voles";
  open.Commentaire = "Old";
  open.DatumFichierCode = "NTF";
  const std::string bytes = header + row;
  DegFileReader reader(std::make_unique<MemoryInput>(bytes));
  reader.LitEnTeteFusion(open);
  EXPECT_EQ(open.BoxTitre, "Voles - Moles");
  EXPECT_EQ(open.Commentaire, "Old-Invented");
  EXPECT_EQ(open.DatumFichierCode, "NTF");
  EXPECT_EQ(open.NbPivots, 0);
}

/// The open distribution as bytes, and what was doubted.
DegBytes Ecrit(Monde& monde) {
  DegBytes bytes;
  EcritEnTete(monde.state.document.Entete(), 2011, bytes);
  const auto rows = monde.state.document.Data1.Clone();
  DegRowWriter(monde.state, *rows, bytes).EcritUneParUne();
  return bytes;
}

TEST(DegFile, ComesBackAsItWasWritten) {
  Monde monde;
  Entete(monde.state.document)->BoxTitre = "Moles";
  Entete(monde.state.document)->FreeFieldText = "/\r\nSTAT.TOPO,Toponyme,50";
  monde.AjouteToutes(
      Rangee{1, 50.5, 4.25, 12, 0, "F", "WGS84", "deg 50.5 4.25", "1931/05/02", "pond/seen"},
      Rangee{2, -10.25, -170.5, 0, 7, "M", "WGS84", "deg -10.25 -170.5", "1998/01/01", "/"});
  const DegBytes bytes = Ecrit(monde);
  EXPECT_TRUE(bytes.doutes.empty());
  const DegContents file = Lit(bytes.octets);
  EXPECT_FALSE(file.faute);
  EXPECT_EQ(file.entete.BoxTitre, "Moles");
  ASSERT_EQ(file.lignes.size(), 2U);
  EXPECT_EQ(file.lignes[0].comment, "pond/seen");
  EXPECT_EQ(file.lignes[1].longitude, -170.5F);
}

TEST(DegFile, ListsWhatCouldNotBeWrittenAsItIs) {
  Monde monde;
  Entete(monde.state.document)->BoxTitre = "α";
  monde.AjouteToutes(Rangee{.latitude = 1, .longitude = 2, .comment = "β"},
                     Rangee{.period = 1, .longitude = 2});
  const DegBytes bytes = Ecrit(monde);
  ASSERT_EQ(bytes.doutes.size(), 3U);
  EXPECT_EQ(bytes.doutes[0].number(), ErrorNumber::NotInCodePage);
  EXPECT_EQ(bytes.doutes[1].number(), ErrorNumber::NotInCodePage);
  EXPECT_EQ(bytes.doutes[2].number(), ErrorNumber::InvalidNull);
  EXPECT_EQ(Lignes(bytes.octets).at(3), "?");
}

}  // namespace
}  // namespace talpena::test
