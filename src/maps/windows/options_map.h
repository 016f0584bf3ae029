// OptionsMap: the look of the circles on the raster maps.
#pragma once
#include <QDialog>
#include <array>

#include "maps/raster/raster_options.h"

class QComboBox;
class QLabel;
class QPushButton;

namespace talpena {

class ColourLabel;

/// Modal dialog over the settings of the raster maps, which change by OK alone.
class OptionsMap : public QDialog {
  Q_OBJECT

 public:
  OptionsMap(SharedState& state, Platform& io, QWidget* parent = nullptr);

  /// Captions in the current language; what was typed stays.
  void AppliqueLangue();

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void Construit();
  void MontreCouleurs();
  void LabelCoulFill_Click(int index);
  void cmdOk_Click();

  SharedState& state_;
  Platform& io_;
  OptionsRaster options_;

  std::array<QLabel*, 4> lblCouleur{};
  std::array<ColourLabel*, 4> LabelCoulFill{};
  QLabel* lblDiametre = nullptr;
  QComboBox* Combo1 = nullptr;
  QPushButton* cmdOk = nullptr;
  QPushButton* cmdAnnuler = nullptr;
};

}  // namespace talpena
