// What the record editor shows, without a window: the texts of its controls as they stand.
#pragma once
#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "coords/systems.h"

namespace talpena {

/// A control of the record editor that a check can send the user back to.
enum class RecordField : std::uint8_t {
  ChampPeriode,
  ChampLatitude,
  ChampLongitude,
  ChampCh1,
  ChampCh2,
  ChampSex,
  ChampAnnee,
  EditBox0,
  EditBox1,
  EditBox2,
  Grid,
  ChampLibre
};

/// Layout of the input boxes for one coordinate system; see AdapteInputbox.
struct InputLayout {
  struct Box {
    bool visible = false;
    std::string example;  ///< shown beside the box, in the language of the interface
  };
  std::array<Box, 3> boxes;
  bool datumFixed = false;  ///< the system implies the datum: cmdChangeDatum is of no use
};

/// The form. RempliDessus and the other procedures of record_editor.h change it, the window binds
/// it to its controls: it takes the texts in before each of them and shows them all behind it.
struct RecordScreen {
  std::string ChampPeriode, ChampLatitude, ChampLongitude, ChampCh1, ChampCh2, ChampSex;
  std::string ChampAnnee = "____/__/__";  ///< ten characters, "_" in the empty places
  std::array<std::string, 3> EditBox;
  std::vector<std::string> Grid;  ///< column 1, one text per free field of the file
  std::string ChampLibre;         ///< lines end in CR LF; bare LF is taken too

  std::string lblDatum;                   ///< code of the row's datum
  std::int16_t datum = 0;                 ///< its index in the catalogue
  CoordSystem system = CoordSystem::Mgr;  ///< whose layout the boxes have: InputMode
  std::string lblSysteme;                 ///< "mgr"
  InputLayout layout;

  std::string ValeurDMS;  ///< two lines: latitude, longitude
  std::string ValeurUtmMetrique;
  std::string ValeurUtmAlpha;
  std::string ValeurLibre;
  bool valeurLibreVisible = false;
  std::string lblCpt;  ///< position of the row: "12/3245"

  /// What is odd although it may be saved: a reference that names no point, a text that the file
  /// cannot hold, ...; see MetAvis. "" when nothing is.
  std::string avis;
  bool modifie = false;              ///< a field was changed since the row was shown or saved
  bool ButOk = false;                ///< whether it is enabled
  std::optional<RecordField> focus;  ///< where the keys are to go; taken and cleared by the window

  // Kept by the procedures from one call to the next; nothing of it is shown as it stands.
  std::string avisReference;     ///< why the reference typed names no point; "" while it does
  std::string referenceLue;      ///< boxes and datum that the point was shown or computed for
  std::int16_t datumPropre = 0;  ///< the row's own datum, which modes 0 to 3 take; 0 for none
  std::string anneeLue;          ///< ChampAnnee as the row was shown
  std::string dateAutre;         ///< DATE of the row when it does not fit the mask, else ""
  std::optional<std::int64_t> datumSignale;  ///< bookmark of the row whose datum was told of
};

}  // namespace talpena
