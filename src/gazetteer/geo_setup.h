// The set-up of the gazetteer: which file, table and fields it is made of. What frmGeoSetup does
// without its controls.
#pragma once
#include <array>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "gazetteer/setup_file.h"
#include "platform/table_engine.h"
#include "store/command_context.h"

namespace talpena {

/// A list of choice, with nothing chosen at first.
struct GeoChoices {
  std::vector<std::string> entrees;
  int choix = -1;  ///< position of the entry that is chosen; -1 for none

  /// That entry; "" when none is chosen.
  std::string Texte() const {
    return choix < 0 ? std::string() : entrees[static_cast<std::size_t>(choix)];
  }
  /// Chooses the entry that equals a text; none where there is no such.
  void Choisit(std::string_view text);
  /// Chooses the entry at a position; none where there is no such.
  void Choisit(int position);

  friend bool operator==(const GeoChoices&, const GeoChoices&) = default;
};

/// What stands in the controls.
struct GeoSetupForm {
  std::string lblFile;
  std::string lblDbType;
  std::string lblDatum;
  PerGeoList<GeoChoices> cmb;
  int Option1 = -1;  ///< the index that is on: 0 locality, 1 FIPS; -1 for none
  int Option2 = -1;  ///< 0 DDMMSS, 1 decimal degrees

  GeoChoices& Liste(GeoList list) { return cmb[static_cast<std::size_t>(list)]; }
  const GeoChoices& Liste(GeoList list) const { return cmb[static_cast<std::size_t>(list)]; }
};

/// The dialogs that the set-up opens.
class GeoSetupDialogs {
 public:
  virtual ~GeoSetupDialogs() = default;
  /// frmDatum, on a code; "" when it was left by Cancel.
  virtual std::string MontreDatums(const std::string& code) = 0;
};

/// Command1, by its indexes.
enum class GeoCommand { Change, Ok, Escape, Save, Open };

/// What the dialog does behind a button.
struct GeoSuite {
  bool ferme = false;              ///< closes
  std::optional<GeoList> focus{};  ///< the list that has to be filled
};

/// The dialog over the members Geo* of the settings. They take the place of the controls at Ok
/// alone, but for the datum (at cmdChangeDatum) and what Open reads (at once).
class GeoSetup {
 public:
  GeoSetup(CommandContext c, GeoSetupDialogs& dialogs) : c_(c), dialogs_(dialogs) {}

  /// Fills the controls from the settings.
  void Charge();
  /// Opens the file and lists its tables and select queries. A file that cannot be opened is told
  /// and leaves every list empty.
  void MapGeo();

  // What happens to the controls. A list is chosen from by its position, -1 for none.
  void cmb_Click(GeoList list, int index);
  void Option1_Click(int index);
  void Option2_Click(int index) { form_.Option2 = index; }
  GeoSuite Command1_Click(GeoCommand command);
  void cmdChangeDatum_Click();

  const GeoSetupForm& Form() const { return form_; }
  /// The fields of the chosen table or query; none when none is chosen or it cannot be read.
  const std::vector<FieldDef>& Champs() const { return champs_; }
  /// What the controls say.
  SetupFile Releve() const;

 private:
  struct Source {
    std::string nom;
    bool requete = false;
    bool abimee = false;  ///< nothing is known but its name
  };

  void OuvreBase();
  std::string OuvreDossier(std::string_view extension);
  std::unique_ptr<Database> Ouvre(const std::string& connect);
  void ListeTables();
  void MapFieldGeo();
  void LitChamps();
  void OuvreAbimee(const std::string& table);
  void RempliChamps();
  void AppliqueRegleFips();
  void DitEchec(const TalpenaError& error);
  void ControleDisque();

  void Change();
  GeoSuite Accepte();
  void Sauve();
  void OuvreSetup();
  bool TrouveFichier(SetupFile& setup, const std::string& path);
  void Prend(const SetupRead& read);

  CommandContext c_;
  GeoSetupDialogs& dialogs_;
  GeoSetupForm form_;
  std::unique_ptr<Database> base_;
  std::vector<Source> sources_;  ///< behind the entries of the list of tables
  std::vector<FieldDef> champs_;
  std::string tableDuFichier_;  ///< of the .dbf or .db file that was chosen; "" for none
  bool disqueDit_ = false;
};

}  // namespace talpena
