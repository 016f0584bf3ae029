// Where the controls of the record editor stand, and where it stands itself.
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

#include "common/numbers.h"
#include "platform/commands.h"
#include "platform/qt/controls.h"
#include "platform/qt/scrolled.h"
#include "platform/qt/window_place.h"
#include "store/windows/date_edit.h"
#include "store/windows/edit_form.h"
#include "store/windows/free_fields_grid.h"
#include "store/windows/hint_label.h"
#include "store/windows/typed_list.h"

namespace talpena {
namespace {

constexpr std::string_view application = "TLP", section = "EditForm";

/// Columns of the grid of fields.
enum : int { Label1, Field1, Gap1, Label2, Field2, Gap2, Label3, Field3, Rest, Columns };
/// Its rows.
enum : int {
  RowPeriode,
  RowAvisPeriode,
  RowTitre,
  RowSysteme,
  RowBoites,
  RowDatum,
  RowPoint,
  RowAvisPoint,
  RowNombres,
  RowAvisNombres,
  RowLabelGrid,
  RowGrid,
  RowLabelLibre,
  RowLibre
};

}  // namespace

void EditForm::Dispose(QWidget* content) {
  auto* grid = new QGridLayout(content);
  grid->setContentsMargins(0, 0, 0, 0);
  for (const int gap : {Gap1, Gap2}) {
    grid->setColumnMinimumWidth(gap, fontMetrics().averageCharWidth());
  }
  grid->setColumnStretch(Rest, 1);
  DisposeEntete(*grid);
  DisposeCoordonnees(*grid);
  DisposeNombres(*grid);
  DisposeTextes(*grid);
}

void EditForm::DisposeEntete(QGridLayout& grid) {
  LabelPeriode->setBuddy(ChampPeriode);
  LabelDate->setBuddy(ChampAnnee);
  grid.addWidget(LabelPeriode, RowPeriode, Label1);
  grid.addWidget(ChampPeriode, RowPeriode, Field1);
  grid.addWidget(LabelDate, RowPeriode, Label2);
  grid.addWidget(ChampAnnee, RowPeriode, Field2);
  grid.addWidget(lblAvis[0], RowAvisPeriode, Label1, 1, Columns);
}

void EditForm::DisposeCoordonnees(QGridLayout& grid) {
  LabelOriginales->setFont(EnGras(font()));
  LabelSysteme->setBuddy(cmbSystem);
  LabelLatitude->setBuddy(ChampLatitude);
  LabelLongitude->setBuddy(ChampLongitude);
  grid.addWidget(LabelOriginales, RowTitre, Label1, 1, Field2 + 1);
  auto* system = new QHBoxLayout;
  system->addWidget(cmbSystem);
  system->addWidget(lblSysteme);
  system->addStretch(1);
  grid.addWidget(LabelSysteme, RowSysteme, Label1);
  grid.addLayout(system, RowSysteme, Field1, 1, Field2);
  auto* boxes = new QGridLayout;
  for (std::size_t i = 0; i < EditBox.size(); ++i) {
    LabelBox[i]->setBuddy(EditBox[i]);
    boxes->addWidget(LabelBox[i], 0, static_cast<int>(i));
    boxes->addWidget(EditBox[i], 1, static_cast<int>(i));
  }
  boxes->setColumnStretch(static_cast<int>(EditBox.size()), 1);
  grid.addLayout(boxes, RowBoites, Field1, 1, Field2);
  auto* datum = new QHBoxLayout;
  datum->addWidget(lblDatum);
  datum->addWidget(cmdChangeDatum);
  datum->addStretch(1);
  datum->addWidget(cmdSearch);
  grid.addWidget(LabelDatum, RowDatum, Label1);
  grid.addLayout(datum, RowDatum, Field1, 1, Field2);
  grid.addWidget(LabelLatitude, RowPoint, Label1);
  grid.addWidget(ChampLatitude, RowPoint, Field1);
  grid.addWidget(LabelLongitude, RowPoint, Label2);
  grid.addWidget(ChampLongitude, RowPoint, Field2);
  grid.addWidget(lblAvis[1], RowAvisPoint, Label1, 1, Columns);
  grid.addWidget(FrameControle, RowTitre, Label3, RowPoint - RowTitre + 1, Columns - Label3);
}

void EditForm::DisposeNombres(QGridLayout& grid) {
  LabelCh1->setBuddy(ChampCh1);
  LabelCh2->setBuddy(ChampCh2);
  LabelSex->setBuddy(ChampSex);
  grid.addWidget(LabelCh1, RowNombres, Label1);
  grid.addWidget(ChampCh1, RowNombres, Field1);
  grid.addWidget(LabelCh2, RowNombres, Label2);
  grid.addWidget(ChampCh2, RowNombres, Field2);
  grid.addWidget(LabelSex, RowNombres, Label3);
  grid.addWidget(ChampSex, RowNombres, Field3);
  grid.addWidget(lblAvis[2], RowAvisNombres, Label1, 1, Columns);
}

void EditForm::DisposeTextes(QGridLayout& grid) {
  LabelGrid->setBuddy(Grid);
  LabelLibre->setBuddy(ChampLibre);
  grid.addWidget(LabelGrid, RowLabelGrid, Label1, 1, Columns);
  grid.addWidget(Grid, RowGrid, Label1, 1, Columns);
  grid.addWidget(LabelLibre, RowLabelLibre, Label1, 1, Columns);
  grid.addWidget(ChampLibre, RowLibre, Label1, 1, Columns);
}

QLayout* EditForm::DisposeBoutons() {
  auto* row = new QHBoxLayout;
  row->addWidget(cmdNavig[1]);
  row->addWidget(lblCpt);
  row->addWidget(cmdNavig[0]);
  row->addStretch(1);
  row->addWidget(ButOk);
  row->addWidget(ButNew);
  row->addWidget(ButDupl);
  row->addSpacing(fontMetrics().averageCharWidth() * 2);
  row->addWidget(ButEsc);
  return row;
}

void EditForm::OrdonneTabulation() {
  QWidget* before = ChampPeriode;
  for (QWidget* widget : std::initializer_list<QWidget*>{
           ChampAnnee,     cmbSystem, EditBox[0],    EditBox[1],     EditBox[2],
           cmdChangeDatum, cmdSearch, ChampLatitude, ChampLongitude, ChampCh1,
           ChampCh2,       ChampSex,  Grid,          ChampLibre,     ButOk,
           ButNew,         ButDupl,   ButEsc,        cmdNavig[1],    cmdNavig[0]}) {
    setTabOrder(before, widget);
    before = widget;
  }
}

int EditForm::LitPixels(std::string_view key) const {
  return EnPixels(static_cast<float>(Val(io_.settings.Lit(application, section, key, ""))));
}

/// Where it stood last, in twips; at first as large as its fields like, before its parent.
void EditForm::PlaceFenetre() {
  ensurePolished();
  for (QWidget* filled : std::initializer_list<QWidget*>{FrameControle, defilement_}) {
    filled->updateGeometry();  // with the texts of the row
  }
  const auto choose = [](QSize stored, QSize wanted) {
    return QSize(stored.width() > 0 ? stored.width() : wanted.width(),
                 stored.height() > 0 ? stored.height() : wanted.height());
  };
  const QSize stored(LitPixels("Width"), LitPixels("Height"));
  tailleVoulue_ = choose(stored, sizeHint());
  QRect place(QPoint(), choose(stored, defilement_->TailleDeFenetre(sizeHint())));
  const auto known = [this](std::string_view key) {
    return !io_.settings.Lit(application, section, key, "").empty();
  };
  if (parentWidget() != nullptr) place.moveCenter(parentWidget()->window()->geometry().center());
  if (known("Top")) place.moveTop(LitPixels("Top"));
  if (known("Left")) place.moveLeft(LitPixels("Left"));
  place = PlaceVisible(place);
  tailleDonnee_ = place.size().expandedTo(minimumSizeHint());
  resize(tailleDonnee_);
  if (known("Top")) move(place.topLeft());
}

/// A size that the screen cut is none of the user's: a larger screen gets what was wanted.
void EditForm::GardePlace() {
  const auto entry = [](const char* key, int pixels) {
    return SettingEntry{std::string(section), key, Str(EnTwips(pixels))};
  };
  const QSize kept = size() == tailleDonnee_ ? tailleVoulue_ : size();
  const std::array entries = {entry("Height", kept.height()), entry("Top", y()),
                              entry("Width", kept.width()), entry("Left", x())};
  ExecuteCommande(state_, io_, {}, [&] { io_.settings.EcritTout(application, entries); });
}

}  // namespace talpena
