// Whatever line breaks the values of table and header have, a saved file reads back with as many
// rows, and with the same header.
#include <random>
#include <tuple>
#include <vector>

#include "common/line_breaks.h"
#include "common/text.h"
#include "store/deg_reader.h"
#include "store/free_fields.h"
#include "store/save_fixture.h"

namespace talpena::test {
namespace {

class Breaks : public testing::Test {
 protected:
  std::mt19937 random{11};

  std::size_t Choix(std::size_t count) {
    return std::uniform_int_distribution<std::size_t>(0, count - 1)(random);
  }
  int Nombre(int low, int high) { return std::uniform_int_distribution<int>(low, high)(random); }
  /// `longest` characters at most, every other one a break or what might be taken for one.
  std::string Texte(int longest) {
    static const std::string pieces[] = {"\r", "\n", "\r\n", "\t", " ", "\v", "\f", "a", "é", ","};
    std::string text;
    while (static_cast<int>(CompteCaracteres(text)) < longest)
      text += pieces[Choix(std::size(pieces))];
    return std::string(PremiersCaracteres(text, static_cast<std::size_t>(Nombre(1, longest))));
  }
  Rangee Ligne() {
    return {.period = 1,
            .latitude = Nombre(-90, 90),
            .longitude = Nombre(-180, 180),
            .n1 = Nombre(0, 9),
            .n2 = Nombre(0, 9),
            .sex = Texte(1),
            .datum = Texte(5),
            .original = Texte(24),
            .date = Texte(10),
            .comment = Texte(60)};
  }
};

/// A line's text as the writer lets it through.
std::string Gardee(const std::string& text) {
  return text.find_first_of("\r\n") == std::string::npos ? text : SurUneLigne(text);
}

void CommenceEnTete(DistributionHeader& entete, const std::string& title,
                    const std::string& comment) {
  entete.BoxTitre = title;
  entete.Commentaire = comment;
  entete.NbPivots = 2;
  entete.Pivot1 = 1950;
  entete.Pivot2 = 1990;
}

TEST_F(Breaks, NoValueEndsItsLine) {
  for (int round = 0; round < 40; ++round) {
    Monde first;
    std::vector<Rangee> given;
    for (int i = 0; i < 25; ++i) first.Ajoute(given.emplace_back(Ligne()));
    const std::string title = Texte(30), comment = Texte(30);
    CommenceEnTete(*Entete(first.state.document).operator->(), title, comment);
    const std::string path = first.folder / "a.deg";
    EcritDeg(first.context, path, WriteMode::Rows);
    ASSERT_EQ(first.Boites(), std::vector<std::string>());

    Monde second;
    LitDeg(second.context, path, MergeMode::Replace);
    ASSERT_EQ(second.Boites(), std::vector<std::string>());
    const DistributionHeader& read = second.state.document.Entete();
    EXPECT_EQ(read.BoxTitre, Gardee(title));
    EXPECT_EQ(read.Commentaire, Gardee(comment));
    EXPECT_EQ(std::tuple(read.NbPivots, read.Pivot1, read.Pivot2), std::tuple(2, 1950, 1990));
    ASSERT_EQ(second.NombreLignes(), 25);
    Recordset& rows = second.state.document.Data1.recordset();
    for (const Rangee& row : given) {
      const bool whole = row.comment->find('\r') == std::string::npos;
      EXPECT_EQ(rows.Get(Column::COMMENT).Texte(),
                whole ? *row.comment : AvecSautsLf(*row.comment));
      EXPECT_EQ(RogneDroite(rows.Get(Column::ORIGINAL).Texte()),
                RogneDroite(Gardee(*row.original)));
      rows.MoveNext();
    }
  }
}

TEST_F(Breaks, NoDefinitionOfAFreeFieldEndsItsLine) {
  Monde first;
  for (int i = 0; i < 3; ++i) first.Ajoute(Ligne());
  const std::string line = "A\r,Al\npha,1";
  {
    Entete entete(first.state.document);
    CommenceChampsLibres(*entete.operator->(), "/");
    AjouteTexteChampsLibres(*entete.operator->(), line);
    AjouteChampLibre(*entete.operator->(), line);
    CompteChampsLibres(*entete.operator->());
    entete->BoxTitre = "the title";
  }
  const std::string path = first.folder / "a.deg";
  EcritDeg(first.context, path, WriteMode::Rows);
  Monde second;
  LitDeg(second.context, path, MergeMode::Replace);
  EXPECT_EQ(second.NombreLignes(), 3);
  EXPECT_EQ(second.state.document.Entete().FreeFieldText, "/\r\nA ,Al pha,1");
  EXPECT_EQ(second.state.document.Entete().BoxTitre, "the title");
}

}  // namespace
}  // namespace talpena::test
