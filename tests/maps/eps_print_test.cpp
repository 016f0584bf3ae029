// EPS files as a printer reads them: through Ghostscript, with the prologue that ships.
#include <gtest/gtest.h>

#include "maps/eps_world.h"
#include "maps/ghostscript.h"

namespace talpena {
namespace {

using test::EpsWorld;
using test::ExigeImprimable;
using test::Interprete;
using test::Interpreted;

class EpsPrintTest : public ::testing::Test {
 protected:
  EpsPrintTest() {
    w.PrendVraiPrologue();
    // Land, a border and a river, as drawings of maps use the operators.
    w.files.Pose("/carto/map.ps",
                 "gsave coul {.93 .9 .82 setrgbcolor} {.9 sg} ifelse\n"
                 "60 560 m 300 580 l 540 600 l 520 780 l 80 790 l c fill grestore\n"
                 ".4 sl coul {.2 .4 .8 setrgbcolor} {.5 sg} ifelse\n"
                 "100 570 m 200 650 l 180 700 l s\n");
    w.Remplit({{5, 5}, {5.2, 5.3}, {9.9, 19.9}, {0, 0}, {2.5, 12.25}, {3, -170}});
  }
  EpsWorld w;
};

TEST_F(EpsPrintTest, ColourAndBlackPagesPrint) {
  for (const int mode : {1, 0}) {
    const std::string eps = w.Exporte(mode);
    const Interpreted page = ExigeImprimable(eps);
    // The frame fills its box but for the margins.
    EXPECT_NEAR(page.ink.left, 47, 1);
    EXPECT_NEAR(page.ink.right, 547, 1);
    EXPECT_NEAR(page.ink.top, 800, 1);
    EXPECT_NEAR(page.ink.bottom, 550, 1);
  }
}

TEST_F(EpsPrintTest, AHighNarrowMapPrints) {
  w.OuvrePlate(-50, 0, 50, 10);
  ExigeImprimable(w.Exporte());
}

TEST_F(EpsPrintTest, AMapOfOddWidthPrints) {
  w.OuvrePlate(0, 0, 50, 25.1F);
  ExigeImprimable(w.Exporte());
}

TEST_F(EpsPrintTest, ThePageWithItsGridPrints) {
  w.carte.Pas = 1;
  w.carte.Grille = true;
  ExigeImprimable(w.Exporte());
}

TEST_F(EpsPrintTest, RowsBehindTheGlobeDoNotKeepThePageFromPrinting) {
  w.OuvreCode(13, -90, -180, 90, 180);
  w.state.document.WorkingDb->Execute("UPDATE TALPENA SET LONGITUDE = 180 WHERE Counter < 4");
  const std::string eps = w.Exporte();
  EXPECT_NE(eps.find("E+37"), std::string::npos);
  ExigeImprimable(eps);
  w.state.document.WorkingDb->Execute("UPDATE TALPENA SET LATITUDE = -5 WHERE Counter < 4");
  w.OuvreCode(11, 89, -180, 90, 180);
  EXPECT_NE(w.Exporte().find("E+38"), std::string::npos);
  ExigeImprimable(w.Exporte());
}

TEST_F(EpsPrintTest, SymbolsWithoutExtentPrint) {
  w.options.SymbolDiameter = 0;
  ExigeImprimable(w.Exporte(1));
  ExigeImprimable(w.Exporte(0));
}

TEST_F(EpsPrintTest, APageWithoutRowsPrints) {
  w.state.document.WorkingDb->Execute("DELETE FROM TALPENA");
  w.state.document.Data1.Refresh();
  ExigeImprimable(w.Exporte());
}

TEST_F(EpsPrintTest, ASignaturePrints) {
  for (const char* signature : {"A", "Institut d'été, Zürich ½ | ©"}) {
    w.fenetre.signature = signature;
    ExigeImprimable(w.Exporte());
  }
}

TEST_F(EpsPrintTest, ATitleWithAccentsPrints) {
  w.files.dossiers.clear();
  ExigeImprimable(w.Exporte(1, "/out/Talpa européenne (été).eps"));
}

/// Placed in a document, the page leaves the stacks of its interpreter as they were.
TEST_F(EpsPrintTest, ThePageLeavesNothingInTheDocumentThatHoldsIt) {
  const test::TempFolder folder;
  const std::string path = folder / "document.ps";
  w.files.Pose("/carto/map.ps", "1 2 3 (left over) clear 4 5\n");
  test::EcritFichier(path,
                     "%!PS\n/dictionaries countdictstack def 11 22\n" + w.Exporte() +
                         "\ncountdictstack dictionaries eq {(same dictionaries\\n) print} if\n"
                         "count 2 eq {(same operands\\n) print} if\n"
                         "add 33 eq {(same sum\\n) print} if\n"
                         "/sc1 where {pop (sc1 is known\\n) print} if\n");
  const Interpreted result = Interprete(path);
  EXPECT_EQ(result.exitCode, 0) << result.said;
  EXPECT_EQ(result.strange, "same dictionaries\nsame operands\nsame sum\n");
  EXPECT_EQ(result.pages, 1);
}

/// Two maps one after the other.
TEST_F(EpsPrintTest, TwoPagesFollowEachOther) {
  const test::TempFolder folder;
  const std::string path = folder / "two.ps";
  test::EcritFichier(path, w.Exporte(1) + w.Exporte(0));
  const Interpreted result = Interprete(path);
  EXPECT_EQ(result.exitCode, 0) << result.said;
  EXPECT_EQ(result.strange, "");
  EXPECT_EQ(result.pages, 2);
}

}  // namespace
}  // namespace talpena
