// frmOptionsPeriodes: how many periods, and the years between them.
#pragma once
#include <QDialog>

#include "platform/platform.h"
#include "store/state.h"

namespace talpena {

class frmOptionsPeriodes : public QDialog {
  Q_OBJECT

 public:
  frmOptionsPeriodes(StoreState& state, Platform& io, QWidget* parent = nullptr);
};

}  // namespace talpena
