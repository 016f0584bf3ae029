// frmFonts: the fonts in which names of the six regions are shown.
#pragma once
#include <QDialog>
#include <array>

#include "gazetteer/state.h"
#include "platform/platform.h"
#include "platform/settings_state.h"

class QLabel;
class QPushButton;

namespace talpena {

/// Modal dialog over the table of fonts, which changes, and goes into the settings, by Ok alone. A
/// font that this computer lacks is kept, and the one that stands in for it named.
class frmFonts : public QDialog {
  Q_OBJECT

 public:
  frmFonts(const SharedState& state, Platform& io, GazetteerState& gazetteer,
           QWidget* parent = nullptr);

  void AppliqueLangue();

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void Construit();
  void Dispose();
  void Montre();
  void cmdOpen_Click(std::size_t index);
  void cmdFont_Click(int index);

  const SharedState& state_;
  Platform& io_;
  GazetteerState& gazetteer_;
  RegionFonts polices_;  ///< as chosen here

  std::array<QLabel*, RegionCount> lblRegion{};
  std::array<QLabel*, RegionCount> lblFont{};
  std::array<QLabel*, RegionCount> lblSize{};
  std::array<QLabel*, RegionCount> lblSubstitut{};
  std::array<QPushButton*, RegionCount> cmdOpen{};
  std::array<QPushButton*, 2> cmdFont{};
};

}  // namespace talpena
