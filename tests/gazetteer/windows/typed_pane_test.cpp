#include <gtest/gtest.h>

#include <QTabWidget>
#include <filesystem>
#include <string>
#include <vector>

#include "gazetteer/windows/geo_query_machine.h"

namespace talpena {
namespace {

using Lines = std::vector<std::string>;

test::GazetteerRow Place(const char* name, double latitude, double longitude) {
  return {
      .key = "KEY", .name = name, .latitude = latitude, .longitude = longitude, .country = "BE"};
}

class TypedPlaces : public ::testing::Test {
 protected:
  TypedPlaces() {
    m.Fait({Place("Mons", 50.45, 3.95), Place("L'Étang", 49.5, 5.5), Place("Marimont", 50.47, 4.29),
            Place("Montigny", 50.38, 4.05), Place("Le Mont", 49.9, 5.2),
            Place("Mon-Repos", 50.6, 4.4)});
  }

  /// Another gazetteer in the place of the first.
  void Refait(const std::vector<test::GazetteerRow>& places) {
    std::filesystem::remove(m.path);
    m.Fait(places);
    m.files.Pose(m.path, "of another size");
  }

  /// A file with one record here, and the form on a new one.
  void Fichier(const char* latitude, const char* longitude) {
    m.Montre({{"WGS84", "deg", latitude, longitude}});
    m.ecran = {};
  }

  test::GeoQueryMachine m;
};

TEST_F(TypedPlaces, BeginWithTheSecondLetter) {
  m.Avec([&] {
    m.Tape("m");
    EXPECT_EQ(m.Noms("lstTape"), Lines());
    EXPECT_TRUE(m.Libelle("lblTape").starts_with("From the second letter on"))
        << m.Libelle("lblTape");
    m.Tape("mo");
    EXPECT_EQ(m.Noms("lstTape"), (Lines{"Mon-Repos", "Mons", "Montigny", "Le Mont", "Marimont"}));
    EXPECT_FALSE(m.Controle<QLabel>("lblTape")->isVisible());
  });
}

TEST_F(TypedPlaces, ThoseOfAnotherSpellingComeLastAndAreLabelled) {
  m.Avec([&] {
    m.Tape("monr");
    EXPECT_EQ(m.Noms("lstTape"), (Lines{"Mon-Repos"}));
    EXPECT_EQ(m.Noms("lstTape", 4), (Lines{"similar spelling"}));
    m.Tape("mont");
    EXPECT_EQ(m.Noms("lstTape", 4), (Lines{"", "contains it", "contains it"}));
  });
}

TEST_F(TypedPlaces, AQuoteNeedsNoStatement) {
  m.Avec([&] {
    m.Tape("l'ét");
    EXPECT_EQ(m.Noms("lstTape"), (Lines{"L'Étang"}));
    m.Tape("letan");
    EXPECT_EQ(m.Noms("lstTape"), (Lines{"L'Étang"}));
  });
  EXPECT_TRUE(m.dialogues.boxes.empty());
}

TEST_F(TypedPlaces, TheNearestToTheRecordsOfTheFileGoFirstWithTheirDistance) {
  Fichier("50.38", "4.05");
  m.Avec([&] {
    m.Tape("mo");
    EXPECT_EQ(m.Noms("lstTape"), (Lines{"Montigny", "Mons", "Mon-Repos", "Marimont", "Le Mont"}));
    EXPECT_EQ(m.Noms("lstTape", 1), (Lines{"0.0", "11", "35", "20", "98"}));
    EXPECT_EQ(m.Libelle("lblProche"), "Nearest record of the file: 0.0 km");
  });
}

TEST_F(TypedPlaces, TheNearestToThePointOfTheRecordGoFirst) {
  Fichier("50.38", "4.05");
  m.ecran.ChampLatitude = "+50.6";
  m.ecran.ChampLongitude = "+4.4";
  m.Avec([&] {
    m.Tape("mo");
    EXPECT_EQ(m.Noms("lstTape"), (Lines{"Mon-Repos", "Montigny", "Mons", "Marimont", "Le Mont"}));
    EXPECT_EQ(m.Noms("lstTape", 1).front(), "35") << "to the record of the file";
  });
}

TEST_F(TypedPlaces, ARecordThatWasAddedCountsAtTheNextOpening) {
  Fichier("50.38", "4.05");
  m.Avec([&] { m.Tape("mo"); });
  m.Montre({{"WGS84", "deg", "50.6", "4.4"}});
  m.Avec([&] { EXPECT_EQ(m.Noms("lstTape", 1).front(), "0.0"); });
}

TEST_F(TypedPlaces, ArrowDownAndEnterTakeAPlaceIntoTheRecord) {
  m.Ligne();
  EXPECT_TRUE(m.Avec([&] {
    m.Tape("mont");
    QTest::keyClick(m.Controle<QLineEdit>("txt"), Qt::Key_Down);
    EXPECT_EQ(m.Libelle("PicName"), "Montigny");
    QTest::keyClick(m.Liste("lstTape"), Qt::Key_Down);
    EXPECT_EQ(m.Libelle("PicName"), "Le Mont");
    QTest::keyClick(m.Liste("lstTape"), Qt::Key_Return);
    EXPECT_FALSE(m.form->isVisible());
  }));
  EXPECT_EQ(m.ecran.ChampLibre.substr(0, 7), "Le Mont");
  EXPECT_EQ(m.ecran.lblDatum, "WGS84");
}

TEST_F(TypedPlaces, AGazetteerThatChangesIsReadAnewAtTheNextLetter) {
  m.files.Pose(m.path, "as it is");
  m.Avec([&] {
    m.Tape("mons");
    EXPECT_EQ(m.Noms("lstTape"), (Lines{"Mons"}));
    Refait({Place("Monsanto", 40.0, -7.1), Place("Mons", 50.45, 3.95)});
    m.Tape("monsa");
    EXPECT_TRUE(QTest::qWaitFor([&] { return m.Tapes()->EstAuRepos(); }));
    EXPECT_EQ(m.Noms("lstTape"), (Lines{"Monsanto"}));
  });
}

TEST_F(TypedPlaces, NoneIsTakenFromAGazetteerThatChangedMeanwhile) {
  m.files.Pose(m.path, "as it is");
  m.Ligne();
  m.Avec([&] {
    m.Tape("mons");
    Refait({Place("Mons", 43.6, 6.7)});
    QTest::keyClick(m.Liste("lstTape"), Qt::Key_Return);
    EXPECT_TRUE(m.form->isVisible());
    EXPECT_EQ(m.ecran.ChampLibre, "") << "the place of before";
  });
}

TEST_F(TypedPlaces, APlaceWithoutAUsablePointIsNotTakenAndSaysSo) {
  m.Ligne();
  Refait({Place("Mons", 123.4, 3.95), Place("Monsanto", 40.0, -7.1)});
  m.Avec([&] {
    m.Tape("mons");
    QTest::keyClick(m.Liste("lstTape"), Qt::Key_Return);
    EXPECT_TRUE(m.form->isVisible());
    EXPECT_EQ(m.Libelle("lblTape"), "This place has no usable point: nothing was filled in.");
    EXPECT_EQ(m.ecran.ChampLibre, "");
    QTest::keyClick(m.Liste("lstTape"), Qt::Key_Down);
    EXPECT_FALSE(m.Controle<QLabel>("lblTape")->isVisible());
  });
}

TEST_F(TypedPlaces, ASearchThatFindsNothingSaysWhereNamesLikeItStand) {
  m.Avec([&] {
    m.Cherche("mon", "cmd_0");
    EXPECT_EQ(m.Libelle("lblNbre"), "0");
    EXPECT_EQ(m.Libelle("lblAilleurs"),
              "Nothing is written like this in the search field of the table. Names like it stand "
              "under “While typing”.");
    m.Cherche("key", "cmd_0");
    EXPECT_FALSE(m.Controle<QLabel>("lblAilleurs")->isVisible());
  });
}

TEST_F(TypedPlaces, TheButtonsFillAListOfTheirOwn) {
  m.Avec([&] {
    m.Tape("key");
    m.Cherche("key", "cmd_0");
    EXPECT_EQ(m.Controle<QTabWidget>("onglets")->currentIndex(), 1);
    EXPECT_EQ(m.Noms().size(), 6U);
    m.Tape("mons");
    EXPECT_EQ(m.Controle<QTabWidget>("onglets")->currentIndex(), 0);
    EXPECT_EQ(m.Noms("lstTape"), (Lines{"Mons"}));
    EXPECT_EQ(m.Noms().size(), 6U) << "the search's list stays as it was";
    EXPECT_EQ(m.Libelle("lblNbre"), "6");
  });
}

TEST_F(TypedPlaces, AGazetteerThatIsNotThereIsToldInALineAlone) {
  m.state.GeoFile = m.working / "nowhere.mdb";
  m.Avec([&] {
    EXPECT_EQ(m.Libelle("lblTape"), "The gazetteer cannot be read: Setup says where it is.");
    m.Tape("mons");
    EXPECT_EQ(m.Noms("lstTape"), Lines());
  });
  EXPECT_TRUE(m.dialogues.boxes.empty());
  m.state.GeoFile = m.path;
  m.Avec([&] { EXPECT_EQ(m.Noms("lstTape"), (Lines{"Mons"})) << "read at the next opening"; });
}

TEST_F(TypedPlaces, AnotherSetUpIsReadAtOnce) {
  m.Avec([&] {
    m.state.GeoFullNameField = "Country_Name";
    QTest::mouseClick(m.Controle<QPushButton>("cmdSetup"), Qt::LeftButton);
    EXPECT_TRUE(QTest::qWaitFor([&] { return m.Tapes()->EstAuRepos(); }));
    m.Tape("be");
    EXPECT_EQ(m.Noms("lstTape").size(), 6U);
  });
}

}  // namespace
}  // namespace talpena
