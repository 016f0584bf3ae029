// frmGarminOptions: what rows made of waypoints get beside their position.
#pragma once
#include <QDialog>
#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "interchange/garmin_options_form.h"
#include "interchange/mapsource_reader.h"
#include "interchange/mapsource_text.h"
#include "platform/platform.h"
#include "platform/settings_state.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace talpena {

class DateEdit;
class GarminFieldBox;

/// Modal dialog over the options of the import, which change, and go into the settings, by OK
/// alone.
class frmGarminOptions : public QDialog {
  Q_OBJECT

 public:
  /// @param text, items  whose columns are offered and shown; they outlive this
  frmGarminOptions(const SharedState& state, Platform& io, objGraminImport& options,
                   const MapSourceText& text, const std::vector<WaypointChoice>& items,
                   QWidget* parent = nullptr);

  /// Captions in the current language; what was typed stays.
  void AppliqueLangue();

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void Construit();
  void Dispose();
  void Montre();
  GarminOptionsForm Releve() const;
  void SauveOptions();
  void PlaceFocus(GarminFocus focus);
  void cmdOptionGarmin_Click(int index);

  const SharedState& state_;
  Platform& io_;
  objGraminImport& options_;
  const MapSourceText& text_;
  const std::vector<WaypointChoice>& items_;

  QLabel* lblPeriod = nullptr;
  QLineEdit* txtPeriod = nullptr;
  DateEdit* txtDate = nullptr;
  QLineEdit* txtAltitude = nullptr;
  QComboBox* cmbDateFormat = nullptr;
  GarminFieldBox* date_ = nullptr;
  GarminFieldBox* altitude_ = nullptr;
  std::array<QPushButton*, 2> cmdOptionGarmin{};
};

}  // namespace talpena
