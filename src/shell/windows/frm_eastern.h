// frmEastern: the about box.
#pragma once
#include <QDialog>
#include <cstdint>

namespace talpena {

/// Version of the program: major, revision and so on, "3.0.0".
QString VersionDuProgramme();

class frmEastern : public QDialog {
  Q_OBJECT

 public:
  explicit frmEastern(std::int16_t langue, QWidget* parent = nullptr);
};

}  // namespace talpena
