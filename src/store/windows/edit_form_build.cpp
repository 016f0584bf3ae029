// The controls of the record editor and what they are tied to.
#include <QFontDatabase>
#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

#include "platform/qt/controls.h"
#include "platform/qt/one_line.h"
#include "platform/qt/scrolled.h"
#include "store/record/record_editor.h"
#include "store/windows/date_edit.h"
#include "store/windows/edit_form.h"
#include "store/windows/free_fields_grid.h"
#include "store/windows/hint_label.h"
#include "store/windows/typed_list.h"

using namespace Qt::StringLiterals;

namespace talpena {
namespace {

/// A remark has a few lines.
class Remarque final : public QPlainTextEdit {
 public:
  using QPlainTextEdit::QPlainTextEdit;
  QSize sizeHint() const override { return {QPlainTextEdit::sizeHint().width(), Hauteur(4)}; }
  QSize minimumSizeHint() const override {
    return {QPlainTextEdit::minimumSizeHint().width(), Hauteur(2)};
  }

 private:
  int Hauteur(int lines) const {
    return lines * fontMetrics().lineSpacing() +
           2 * (frameWidth() + static_cast<int>(document()->documentMargin()));
  }
};

}  // namespace

QLabel* EditForm::Etiquette(QWidget* parent, const char* name) {
  auto* label = new QLabel(parent);
  label->setObjectName(QLatin1String(name));
  return label;
}

QLineEdit* EditForm::Ligne(QWidget* parent, const char* name, int characters) {
  auto* edit = new QLineEdit(parent);
  edit->setObjectName(QLatin1String(name));
  edit->setMinimumWidth(fontMetrics().averageCharWidth() * (characters + 3));
  edit->installEventFilter(this);
  GardeUneLigne(*edit);
  return edit;
}

void EditForm::Construit() {
  defilement_ = new Scrolled(this);
  defilement_->setObjectName("Defilement");
  auto* content = new QWidget;
  ConstruitChamps(content);
  ConstruitControle(content);
  Dispose(content);
  defilement_->setWidget(content);
  ConstruitBoutons();
  auto* column = new QVBoxLayout(this);
  column->addWidget(defilement_, 1);
  column->addLayout(DisposeBoutons());
  OrdonneTabulation();
  RelieBoutons();
}

void EditForm::ConstruitChamps(QWidget* parent) {
  LabelPeriode = Etiquette(parent, "LabelPeriode");
  ChampPeriode = Ligne(parent, "ChampPeriode", 6);
  LabelDate = Etiquette(parent, "LabelDate");
  ChampAnnee = new DateEdit(parent);
  ChampAnnee->setObjectName("ChampAnnee");
  ChampAnnee->installEventFilter(this);
  ConstruitCoordonnees(parent);
  for (std::size_t i = 0; i < lblAvis.size(); ++i) {
    lblAvis[i] = new HintLabel(parent);
    lblAvis[i]->setObjectName(NomIndexe("lblAvis", i));
  }
  LabelCh1 = Etiquette(parent, "LabelCh1");
  ChampCh1 = Ligne(parent, "ChampCh1", 6);
  LabelCh2 = Etiquette(parent, "LabelCh2");
  ChampCh2 = Ligne(parent, "ChampCh2", 6);
  LabelSex = Etiquette(parent, "LabelSex");
  ChampSex = Ligne(parent, "ChampSex", 1);
  ChampSex->setMaximumWidth(fontMetrics().averageCharWidth() * 8);
  ChampSex->setMaxLength(1);
  ConstruitTextes(parent);
  champs_ = {Champ{ChampPeriode, &RecordScreen::ChampPeriode},
             Champ{ChampLatitude, &RecordScreen::ChampLatitude},
             Champ{ChampLongitude, &RecordScreen::ChampLongitude},
             Champ{ChampCh1, &RecordScreen::ChampCh1},
             Champ{ChampCh2, &RecordScreen::ChampCh2},
             Champ{ChampSex, &RecordScreen::ChampSex}};
}

void EditForm::ConstruitCoordonnees(QWidget* parent) {
  LabelOriginales = Etiquette(parent, "LabelOriginales");
  LabelSysteme = Etiquette(parent, "LabelSysteme");
  cmbSystem = new TypedList(parent);
  cmbSystem->setObjectName("cmbSystem");
  cmbSystem->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  cmbSystem->setMaxVisibleItems(16);
  lblSysteme = Etiquette(parent, "lblSysteme");
  for (std::size_t i = 0; i < EditBox.size(); ++i) {
    LabelBox[i] = new QLabel(parent);
    LabelBox[i]->setObjectName(NomIndexe("LabelBox", i));
    EditBox[i] = Ligne(parent, "EditBox", 9);
    EditBox[i]->setObjectName(NomIndexe("EditBox", i));
  }
  LabelDatum = Etiquette(parent, "LabelDatum");
  lblDatum = Etiquette(parent, "lblDatum");
  lblDatum->setTextInteractionFlags(Qt::TextSelectableByMouse);
  lblDatum->setFont(EnGras(font()));
  cmdChangeDatum = new QPushButton(parent);
  cmdChangeDatum->setObjectName("cmdChangeDatum");
  cmdSearch = new QPushButton(parent);
  cmdSearch->setObjectName("cmdSearch");
  LabelLatitude = Etiquette(parent, "LabelLatitude");
  ChampLatitude = Ligne(parent, "ChampLatitude", 9);
  LabelLongitude = Etiquette(parent, "LabelLongitude");
  ChampLongitude = Ligne(parent, "ChampLongitude", 10);
}

void EditForm::ConstruitTextes(QWidget* parent) {
  LabelGrid = Etiquette(parent, "LabelGrid");
  Grid = new FreeFieldsGrid(parent);
  Grid->setObjectName("Grid");
  Grid->installEventFilter(this);
  Grid->ChangeEtiquettes(EtiquettesChampsLibres(state_));
  LabelGrid->setVisible(state_.document.Entete().FreeFieldCount > 0);
  Grid->setVisible(state_.document.Entete().FreeFieldCount > 0);
  LabelLibre = Etiquette(parent, "LabelLibre");
  ChampLibre = new Remarque(parent);
  ChampLibre->setObjectName("ChampLibre");
  ChampLibre->setTabChangesFocus(true);
  ChampLibre->installEventFilter(this);
}

EditForm::Valeur EditForm::ConstruitValeur(const char* name, const QString& caption,
                                           QGridLayout& grid, int row, int lines) {
  Valeur valeur{new QLabel(caption, FrameControle), Etiquette(FrameControle, name)};
  QFont digits = QFontDatabase::systemFont(QFontDatabase::FixedFont);  // in columns
  if (font().pointSizeF() > 0) digits.setPointSizeF(font().pointSizeF() * 1.2);
  valeur.value->setFont(digits);
  const int lower = QFontMetrics(digits).ascent() - fontMetrics().ascent();
  valeur.caption->setContentsMargins(0, std::max(lower, 0), fontMetrics().averageCharWidth(), 0);
  valeur.value->setTextInteractionFlags(Qt::TextSelectableByMouse);
  valeur.value->setTextFormat(Qt::PlainText);
  valeur.value->setText(u"0"_s + u"\n0"_s.repeated(lines - 1));
  valeur.value->setMinimumHeight(valeur.value->sizeHint().height());  // while it is empty, too
  valeur.value->clear();
  grid.addWidget(valeur.caption, row, 0, Qt::AlignTop);
  grid.addWidget(valeur.value, row, 1, Qt::AlignTop);
  return valeur;
}

void EditForm::ConstruitControle(QWidget* parent) {
  FrameControle = new QFrame(parent);
  FrameControle->setObjectName("FrameControle");
  FrameControle->setFrameShape(QFrame::StyledPanel);
  FrameControle->setBackgroundRole(QPalette::AlternateBase);
  FrameControle->setAutoFillBackground(true);
  auto* grid = new QGridLayout(FrameControle);
  grid->setVerticalSpacing(fontMetrics().height() / 2);
  LabelControle = Etiquette(FrameControle, "LabelControle");
  LabelControle->setFont(EnGras(font()));
  grid->addWidget(LabelControle, 0, 0, 1, 2);
  ValeurDMS = ConstruitValeur("ValeurDMS", u"DMS"_s, *grid, 1, 2);
  ValeurUtmMetrique = ConstruitValeur("ValeurUtmMetrique", u"UTM"_s, *grid, 2);
  ValeurUtmAlpha = ConstruitValeur("ValeurUtmAlpha", u"MGRS"_s, *grid, 3);
  ValeurLibre = ConstruitValeur("ValeurLibre", {}, *grid, 4);
  // As wide as the texts are but for points off the globe, whatever they are: nothing moves from
  // row to row.
  for (const Valeur& v : {ValeurDMS, ValeurUtmMetrique, ValeurUtmAlpha, ValeurLibre}) {
    v.value->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  }
  for (QLabel* label : {ValeurLibre.caption, ValeurLibre.value}) {
    QSizePolicy policy = label->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    label->setSizePolicy(policy);
  }
  ValeurDMS.value->setMinimumWidth(
      QFontMetrics(ValeurDMS.value->font()).horizontalAdvance(u"E=616000   N=5564000 "_s));
  grid->setColumnStretch(1, 1);
  grid->setRowStretch(5, 1);
}

void EditForm::ConstruitBoutons() {
  const auto button = [this](const QString& name) {
    auto* made = new QPushButton(this);
    made->setObjectName(name);
    return made;
  };
  for (std::size_t i = 0; i < cmdNavig.size(); ++i) cmdNavig[i] = button(NomIndexe("cmdNavig", i));
  lblCpt = Etiquette(this, "lblCpt");
  lblCpt->setTextInteractionFlags(Qt::TextSelectableByMouse);
  ButOk = button("ButOk");
  ButNew = button("ButNew");
  ButDupl = button("ButDupl");
  ButEsc = button("ButEsc");
  for (QPushButton* each : findChildren<QPushButton*>()) each->setAutoDefault(false);
}

void EditForm::Relie() {
  for (const Champ& champ : champs_) {
    connect(champ.edit, &QLineEdit::textEdited, this, &EditForm::Marque);
  }
  connect(ChampAnnee, &QLineEdit::textEdited, this, &EditForm::Marque);
  for (QLineEdit* edit : {ChampLatitude, ChampLongitude}) {
    connect(edit, &QLineEdit::textEdited, this, [this] { pointTape_ = true; });
  }
  for (std::size_t i = 0; i < EditBox.size(); ++i) {
    connect(EditBox[i], &QLineEdit::textEdited, this, [this, i] {
      boiteTapee_[i] = true;
      Marque();
    });
  }
  connect(Grid, &FreeFieldsGrid::Modifie, this, &EditForm::Grid_Modifie);
  connect(Grid, &FreeFieldsGrid::Tape, this, &EditForm::Grid_Tape);
  connect(Grid, &FreeFieldsGrid::Abandonne, this, &EditForm::Grid_Abandonne);
  connect(Grid, &FreeFieldsGrid::Quitte, this, &EditForm::Avance);
  connect(ChampLibre, &QPlainTextEdit::textChanged, this, &EditForm::Marque);
  connect(cmbSystem, &TypedList::activated, this, &EditForm::cmbSystem_Click);
}

/// A button, and a key that does the same.
void EditForm::Raccourci(QPushButton& button, const QKeySequence& keys,
                         void (EditForm::*pressed)()) {
  auto* shortcut = new QShortcut(keys, this);
  shortcut->setObjectName(button.objectName());
  connect(shortcut, &QShortcut::activated, this, pressed);
}

void EditForm::RelieBoutons() {
  struct Bouton {
    QPushButton* button;
    void (EditForm::*pressed)();
    std::initializer_list<QKeySequence> keys;
  };
  const std::initializer_list<Bouton> buttons = {
      {ButOk, &EditForm::ButOk_Click, {u"Ctrl+S"_s, u"Ctrl+Return"_s, u"Ctrl+Enter"_s}},
      {ButNew, &EditForm::ButNew_Click, {u"Ctrl+N"_s}},
      {ButDupl, &EditForm::ButDupl_Click, {u"Ctrl+D"_s}},
      {cmdNavig[0], &EditForm::Suivant, {u"PgDown"_s, u"Ctrl+Down"_s}},
      {cmdNavig[1], &EditForm::Precedent, {u"PgUp"_s, u"Ctrl+Up"_s}},
      {cmdChangeDatum, &EditForm::cmdChangeDatum_Click, {u"F4"_s}},
      {cmdSearch, &EditForm::cmdSearch_Click, {u"F3"_s}},
      {ButEsc, &EditForm::reject, {}}};
  for (const Bouton& b : buttons) {
    connect(b.button, &QPushButton::clicked, this, b.pressed);
    for (const QKeySequence& keys : b.keys) Raccourci(*b.button, keys, b.pressed);
  }
}

}  // namespace talpena
