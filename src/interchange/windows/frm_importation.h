// frmImportation: chooses a text file and the coordinate system that it is written in.
#pragma once
#include <QDialog>
#include <array>

#include "interchange/import_choice.h"

class QComboBox;
class QLabel;
class QPushButton;

namespace talpena {

class ElidedLabel;
class RehearsalPane;

/// Modal. Beside what it asks for it shows what the import would do, which is looked at anew when
/// another file or system is chosen and when the file changes on the disk. Closing it is Cancel.
class frmImportation : public QDialog {
  Q_OBJECT

 public:
  frmImportation(StoreState& state, InterchangeState& interchange, Platform& io,
                 QWidget* parent = nullptr);

  void reject() override;

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void OffreOk();
  void PlaceFocus();
  void ConstruitChoix();
  void ConstruitBouton(int index);
  void Dispose();
  void AppliqueLangue();

  void MontreSysteme();
  void MontreFichier();
  void Repete();
  void cboImportation_Click(int index);
  void cmdImportation_Click(int index);

  StoreState& state_;
  ImportChoice choice_;
  bool chosen_ = false;  ///< a list, and no row of it was seen to enter yet

  QComboBox* cboImportation;
  std::array<QLabel*, 7> lblImportation{};  ///< 0 the file, 3 the structure, 5 the preview
  std::array<QPushButton*, 3> cmdImportation{};
  ElidedLabel* fichier_;
  ElidedLabel* structure_;
  ElidedLabel* apercu_;
  RehearsalPane* pane_;
};

}  // namespace talpena
