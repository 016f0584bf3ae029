// frmGeoSetup: which file, table and fields the gazetteer is made of.
#pragma once
#include <QDialog>
#include <array>
#include <functional>
#include <string>

#include "gazetteer/geo_setup.h"
#include "gazetteer/setup_sample.h"
#include "gazetteer/state.h"

class QComboBox;
class QGridLayout;
class QGroupBox;
class QLabel;
class QLayout;
class QPushButton;
class QRadioButton;
class QTreeWidget;

namespace talpena {

class ElidedLabel;

/// Modal dialog over GeoSetup. Beside what is set up it shows the first rows as they would be read,
/// and proposes fields in the lists in which none is chosen, in grey: a button takes them.
class frmGeoSetup : public QDialog, private GeoSetupDialogs {
  Q_OBJECT

 public:
  /// Opens the guide at the page of a window.
  using Aide = std::function<void(const QWidget* window)>;

  frmGeoSetup(CommandContext c, GazetteerState& gazetteer, Aide aide, QWidget* parent = nullptr);
  ~frmGeoSetup() override;

  /// Opens the file of the settings.
  void Charge();

  /// Captions in the current language; some are English in every one.
  void AppliqueLangue();

 protected:
  void changeEvent(QEvent* event) override;

 private:
  std::string MontreDatums(const std::string& code) override;

  void Construit();
  void ConstruitListes();
  void Dispose();
  QLayout* DisposeFichier();
  QLayout* DisposeListes();
  QLayout* DisposeChoix();
  QLayout* DisposeApercu();
  QLayout* DisposeBoutons();
  void OrdonneTabulation();
  void Relie();

  void Montre();
  void MontreListe(GeoList list);
  void MontreApercu();
  void Relit();
  void Reclame(GeoList list);

  void cmb_Click(GeoList list, int index);
  void Command1_Click(GeoCommand command);
  QPushButton* Bouton(GeoCommand command) const {
    return Command1[static_cast<std::size_t>(command)];
  }
  void cmdChangeDatum_Click();
  void cmdFonts_Click();
  void cmdPropositions_Click();
  void cmdTest_Click();

  CommandContext c_;
  GazetteerState& gazetteer_;
  Aide aide_;
  GeoSetup setup_;
  SetupSample apercu_;
  bool montre_ = false;              ///< the controls are being filled
  PerGeoList<GeoChoices> montrees_;  ///< what the lists show

  QLabel* lblTitreFile = nullptr;
  ElidedLabel* lblFile = nullptr;
  QLabel* lblDbType = nullptr;
  PerGeoList<QLabel*> lblCmb{};
  PerGeoList<QComboBox*> cmb{};
  QGroupBox* fraSort = nullptr;
  std::array<QRadioButton*, 2> Option1{};
  QGroupBox* fraCoord = nullptr;
  std::array<QRadioButton*, 2> Option2{};
  QLabel* lblTitreDatum = nullptr;
  QLabel* lblDatum = nullptr;
  QPushButton* cmdChangeDatum = nullptr;
  QPushButton* cmdFonts = nullptr;
  QPushButton* cmdHelp = nullptr;
  std::array<QPushButton*, 5> Command1{};
  QLabel* lblApercu = nullptr;
  QTreeWidget* lstApercu = nullptr;
  QPushButton* cmdPropositions = nullptr;
  QPushButton* cmdTest = nullptr;
  QLabel* lblTest = nullptr;
};

/// Shows the dialog until it is left. Its file is opened once it is up: that may last.
void MontreGeoSetup(CommandContext c, GazetteerState& gazetteer, frmGeoSetup::Aide aide,
                    QWidget* parent);

}  // namespace talpena
