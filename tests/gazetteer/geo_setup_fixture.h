// The set-up of the gazetteer over gazetteers on the disk.
#pragma once
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "gazetteer/geo_setup.h"
#include "gazetteer/setup_world.h"

namespace talpena::test {

using Texts = std::vector<std::string>;

struct SetupFixture : testing::Test, SetupWorld, GeoSetupDialogs {
  std::string datum;    ///< what frmDatum answers
  std::string datumVu;  ///< what it was opened on
  GeoSetup setup{context, *this};

  std::string MontreDatums(const std::string& code) override {
    datumVu = code;
    return datum;
  }
  const GeoSetupForm& Form() const { return setup.Form(); }
  const Texts& Entrees(GeoList list) const { return Form().Liste(list).entrees; }
  std::string Choisi(GeoList list) const { return Form().Liste(list).Texte(); }
  void Clique(GeoList list, const std::string& text) {
    GeoChoices choices = Form().Liste(list);
    choices.Choisit(text);
    setup.cmb_Click(list, choices.choix);
  }
  GeoSuite Bouton(GeoCommand command) { return setup.Command1_Click(command); }
  void Change(const std::string& path) {
    dialogues.paths.push_back(path);
    Bouton(GeoCommand::Change);
  }
  void OuvreCfg(const std::string& bytes) {
    EcritFichier(dossier / "my.cfg", bytes);
    dialogues.paths.push_front(dossier / "my.cfg");
    Bouton(GeoCommand::Open);
  }
  Texts Boites() {
    Texts texts;
    for (const MessageBox& box : dialogues.boxes) texts.push_back(box.text);
    dialogues.boxes.clear();
    return texts;
  }
  /// Access file with the tables Places and Other, set up.
  std::string Access() {
    const std::string path = Cree("geo.mdb", "", {"Places", "Other"});
    Regle(path, "", "Places");
    return path;
  }
  static std::string Cfg(const std::string& file, const std::string& connect,
                         const std::string& table,
                         const std::string& options = "-1\r\n0\r\n0\r\n-1\r\n") {
    return "<TALPENA 2.0>\r\n" + file + "\r\n" + connect + "\r\nEUR-M\r\n" + table +
           "\r\nKEY\r\nNAME\r\nLAT\r\nLON\r\nFIPS\r\n\r\n\r\n\r\n\r\n" + options;
  }
};

}  // namespace talpena::test
