// frmCartesOptions: the line layers of the map and the look of its symbols.
#pragma once
#include <QDialog>
#include <array>
#include <cstdint>
#include <optional>

#include "maps/options_dialog.h"

class QComboBox;
class QLabel;
class QListWidget;
class QPushButton;
class QTabWidget;

namespace talpena {

class ColourLabel;
class Mnemonics;

enum class OngletCartes : std::uint8_t { Symboles, Tlp };

/// Modal dialog over the options of the map view, which change by OK alone. Keys of the list of
/// layers: Insert adds, Delete removes, Alt with the arrows moves; entries can be dragged too.
class frmCartesOptions : public QDialog {
  Q_OBJECT

 public:
  frmCartesOptions(const SharedState& state, Platform& io, const MapState& carte,
                   MapOption& options, OngletCartes onglet, QWidget* parent = nullptr);
  ~frmCartesOptions() override;

  /// Captions in the current language; what was typed stays.
  void AppliqueLangue();

  /// The diameter that is advised instead of the automatic one, kilometres.
  void Conseille(std::optional<int> km);

  void reject() override;  ///< cmdOptCarte 1

 protected:
  void changeEvent(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Construit();
  QWidget* ConstruitSymboles();
  QWidget* ConstruitTlp();
  void Relie();

  template <typename Body>
  bool Execute(Body body);
  void Releve();
  void Montre();
  void ActiveBoutons();
  void MontreConseil();
  void cmdTLP_Click(int index);
  void cmdUpDown_Click(int index);
  void lblColor_Click();
  void cmdOptCarte_Click(int index);

  const SharedState& state_;
  Platform& io_;
  MapOption& options_;
  OptionsCarte dialogue_;
  std::optional<int> conseilKm_;

  QTabWidget* onglets_;
  QLabel* lblDiametre;
  QComboBox* cmbDiametre;
  QLabel* lblConseil;
  QLabel* lblCouleur;
  ColourLabel* lblColor;
  QLabel* lblOrdre;
  QListWidget* lstTLP;
  QLabel* lblSansCouches;
  std::array<QPushButton*, 2> cmdTLP;
  std::array<QPushButton*, 2> cmdUpDown;
  std::array<QPushButton*, 2> cmdOptCarte;
};

}  // namespace talpena
