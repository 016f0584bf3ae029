#include "shell/windows/prefer.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCompleter>
#include <QDialogButtonBox>
#include <QEvent>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <algorithm>

#include "common/msg_id.h"
#include "common/string_table.h"
#include "common/text.h"
#include "coords/datum.h"
#include "coords/systems.h"
#include "coords/windows/frm_datum.h"
#include "platform/qt/mnemonics.h"
#include "platform/qt/scrolled.h"
#include "store/record/record_editor.h"

namespace talpena {
namespace {

constexpr int listCharacters = 40, shortCharacters = 6;
enum : std::size_t { Coordonnees, Champs, Enregistrement, Programme };  // Frame

QString Affiche(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

template <typename Widget>
Widget* Cree(QWidget* parent, const QString& name) {
  auto* widget = new Widget(parent);
  widget->setObjectName(name);
  return widget;
}

/// A box wide enough for a few characters.
void Retrecit(QLineEdit* box) {
  box->setFixedWidth(box->fontMetrics().averageCharWidth() * (shortCharacters + 4));
}

/// A list of datums: what is typed is looked for everywhere in its entries.
QComboBox* CreeListeDatums(QWidget* parent, const QString& name) {
  auto* list = Cree<QComboBox>(parent, name);
  list->setEditable(true);
  list->setInsertPolicy(QComboBox::NoInsert);
  list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  list->setMinimumContentsLength(listCharacters);
  auto* completer = new QCompleter(list->model(), list);
  completer->setFilterMode(Qt::MatchContains);
  completer->setCaseSensitivity(Qt::CaseInsensitive);
  completer->setCompletionMode(QCompleter::PopupCompletion);
  list->setCompleter(completer);
  return list;
}

/// Shows a datum by its entry; a code that the list lacks stands as it is.
void MontreDatum(QComboBox* list, const std::string& entry) {
  list->setCurrentIndex(list->findText(Affiche(entry), Qt::MatchExactly | Qt::MatchCaseSensitive));
  list->setEditText(Affiche(entry));
  list->lineEdit()->setCursorPosition(0);
}

}  // namespace

Prefer::Prefer(CommandContext contexte, QWidget* parent)
    : QDialog(parent), contexte_(contexte), state_(contexte.state), io_(contexte.io) {
  setObjectName("Prefer");
  setModal(true);
  Construit();
  Dispose();
  RemplitListes();
  AppliqueLangue();
  Montre(RempliPrefer(state_, io_));
  StatutAutoSave();
  Relie();
  resize(defilement_->TailleDeFenetre(sizeHint()));
  Combo2->setFocus();
}

void Prefer::Construit() {
  for (std::size_t i = 0; i < Frame.size(); ++i) {
    Frame[i] = Cree<QGroupBox>(this, QString("Frame_%1").arg(i));
  }
  QWidget* coords = Frame[Coordonnees];
  lblCombo2 = Cree<QLabel>(coords, "lblCombo2");
  Combo2 = Cree<QComboBox>(coords, "Combo2");
  Combo2->setMaxVisibleItems(CoordSystemCount);
  lblDatum = Cree<QLabel>(coords, "lblDatum");
  cmbDatum = CreeListeDatums(coords, "cmbDatum");
  lblSpherique = Cree<QLabel>(coords, "lblSpherique");
  lblDatumOrig = Cree<QLabel>(coords, "lblDatumOrig");
  lblDatumOrig->setTextFormat(Qt::PlainText);
  cmdChangeDatum = Cree<QPushButton>(coords, "cmdChangeDatum");
  lblDatumUTM = Cree<QLabel>(coords, "lblDatumUTM");
  cmbDatumUTM = CreeListeDatums(coords, "cmbDatumUTM");
  QWidget* fields = Frame[Champs];
  for (std::size_t i = 0; i < ChampNumerique.size(); ++i) {
    lblChampNumerique[i] = Cree<QLabel>(fields, QString("lblChampNumerique_%1").arg(i));
    ChampNumerique[i] = Cree<QLineEdit>(fields, QString("ChampNumerique_%1").arg(i));
  }
  lblSepar = Cree<QLabel>(fields, "lblSepar");
  TxtSepar = Cree<QLineEdit>(fields, "TxtSepar");
  Retrecit(TxtSepar);
  QWidget* saving = Frame[Enregistrement];
  ChkAutoSave = Cree<QCheckBox>(saving, "ChkAutoSave");
  lblAutoSave = Cree<QLabel>(saving, "lblAutoSave");
  txtSaveInterval = Cree<QLineEdit>(saving, "txtSaveInterval");
  Retrecit(txtSaveInterval);
  lblMin = Cree<QLabel>(saving, "lblMin");
  QWidget* program = Frame[Programme];
  lblWorkingDir = Cree<QLabel>(program, "lblWorkingDir");
  txtWorkingDir = Cree<QLineEdit>(program, "txtWorkingDir");
  txtWorkingDir->setReadOnly(true);
  cmdOpen = Cree<QPushButton>(program, "cmdOpen");
  OptSilence = Cree<QCheckBox>(program, "OptSilence");
  Command1 = Cree<QPushButton>(this, "Command1");
  Command1->setDefault(true);
  Command2 = Cree<QPushButton>(this, "Command2");
  for (QPushButton* button : {cmdChangeDatum, cmdOpen}) button->setAutoDefault(false);
}

void Prefer::Dispose() {
  const auto ligne = [](std::initializer_list<QWidget*> widgets, bool stretched) {
    auto* row = new QHBoxLayout;
    for (QWidget* widget : widgets) row->addWidget(widget, widget == *widgets.begin() ? 1 : 0);
    if (!stretched) {
      row->setStretch(0, 0);
      row->addStretch(1);
    }
    return row;
  };
  const auto form = [this](std::size_t frame) {
    auto* layout = new QFormLayout(Frame[frame]);
    layout->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    layout->setLabelAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    return layout;
  };
  QFormLayout* coords = form(Coordonnees);
  coords->addRow(lblCombo2, Combo2);
  coords->addRow(lblDatum, cmbDatum);
  coords->addRow(lblSpherique, ligne({lblDatumOrig, cmdChangeDatum}, true));
  coords->addRow(lblDatumUTM, cmbDatumUTM);
  QFormLayout* fields = form(Champs);
  for (std::size_t i = 0; i < ChampNumerique.size(); ++i) {
    fields->addRow(lblChampNumerique[i], ChampNumerique[i]);
    lblChampNumerique[i]->setBuddy(ChampNumerique[i]);
  }
  fields->addRow(lblSepar, TxtSepar);
  QFormLayout* saving = form(Enregistrement);
  saving->addRow(ChkAutoSave);
  saving->addRow(lblAutoSave, ligne({txtSaveInterval, lblMin}, false));
  QFormLayout* program = form(Programme);
  program->addRow(lblWorkingDir, ligne({txtWorkingDir, cmdOpen}, true));
  program->addRow(OptSilence);
  lblCombo2->setBuddy(Combo2);
  lblDatum->setBuddy(cmbDatum);
  lblDatumUTM->setBuddy(cmbDatumUTM);
  lblSepar->setBuddy(TxtSepar);
  lblAutoSave->setBuddy(txtSaveInterval);
  lblWorkingDir->setBuddy(txtWorkingDir);

  defilement_ = Cree<Scrolled>(this, "Defilement");
  auto* content = new QWidget;
  auto* frames = new QVBoxLayout(content);
  frames->setContentsMargins(0, 0, 0, 0);
  for (QGroupBox* frame : Frame) frames->addWidget(frame);
  frames->addStretch(1);
  defilement_->setWidget(content);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(defilement_, 1);
  auto* buttons = new QDialogButtonBox(this);
  buttons->addButton(Command1, QDialogButtonBox::AcceptRole);
  buttons->addButton(Command2, QDialogButtonBox::RejectRole);
  layout->addWidget(buttons);
}

void Prefer::RemplitListes() {
  for (const std::string& entry : EntreesDatums(state_.Catalogue)) {
    cmbDatum->addItem(Affiche(entry));
  }
  for (const std::string& entry : EntreesDatumsUtm(state_)) cmbDatumUTM->addItem(Affiche(entry));
}

void Prefer::Relie() {
  connect(Command1, &QPushButton::clicked, this, &Prefer::Command1_Click);
  connect(Command2, &QPushButton::clicked, this, &Prefer::reject);
  connect(cmdOpen, &QPushButton::clicked, this, &Prefer::cmdOpen_Click);
  connect(cmdChangeDatum, &QPushButton::clicked, this, &Prefer::cmdChangeDatum_Click);
  connect(ChkAutoSave, &QCheckBox::clicked, this, &Prefer::StatutAutoSave);
  for (QComboBox* list : {cmbDatum, cmbDatumUTM}) list->installEventFilter(this);
}

/// A code that was typed becomes its entry when the list is left.
bool Prefer::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusOut) {
    for (QComboBox* list : {cmbDatum, cmbDatumUTM}) {
      if (watched == list) CompleteCode(list);
    }
  }
  return QDialog::eventFilter(watched, event);
}

void Prefer::CompleteCode(QComboBox* list) {
  const std::int16_t datum = DatumDuTexte(state_.Catalogue, list->currentText().toStdString());
  if (datum != 0) MontreDatum(list, EntreeDatum(state_.Catalogue.Datum(datum)));
}

void Prefer::AppliqueLangue() {
  Mnemonics letters;
  const auto nom = [this](int caption) {
    return Affiche(Rogne(SansMnemonique(Texte(state_.Langue, caption))));
  };
  const auto pose = [&](auto* widget, int caption) {
    widget->setText(letters.Marque(std::string(Rogne(Texte(state_.Langue, caption)))));
  };
  const auto etiquette = [&](QLabel* label, QWidget* field, int caption) {
    pose(label, caption);
    field->setAccessibleName(nom(caption));
    const auto* list = qobject_cast<QComboBox*>(field);
    if (list != nullptr && list->isEditable()) list->lineEdit()->setAccessibleName(nom(caption));
  };
  const auto bouton = [&](auto* button, int caption) {
    pose(button, caption);
    button->setAccessibleName(nom(caption));
  };
  setWindowTitle(nom(MsgId::Preferences));
  const int sections[] = {MsgId::SectionCoordonnees, MsgId::SectionChamps,
                          MsgId::SectionEnregistrement, MsgId::SectionProgramme};
  for (std::size_t i = 0; i < Frame.size(); ++i) Frame[i]->setTitle(nom(sections[i]));
  bouton(cmdChangeDatum, MsgId::Changer);  // the one that comes with a letter
  bouton(Command1, MsgId::BoutonOk);
  bouton(Command2, MsgId::BoutonAnnuler);
  etiquette(lblCombo2, Combo2, MsgId::ModeSaisie);
  etiquette(lblDatum, cmbDatum, MsgId::DatumCalcul);
  lblSpherique->setText(nom(MsgId::DatumSpherique));
  cmdChangeDatum->setAccessibleDescription(nom(MsgId::DatumSpherique));
  etiquette(lblDatumUTM, cmbDatumUTM, MsgId::DatumUtm);
  etiquette(lblChampNumerique[0], ChampNumerique[0], MsgId::ChampNumerique1);
  etiquette(lblChampNumerique[1], ChampNumerique[1], MsgId::ChampNumerique2);
  etiquette(lblSepar, TxtSepar, MsgId::SeparateurChamps);
  bouton(ChkAutoSave, MsgId::ActiveAutoSave);
  etiquette(lblAutoSave, txtSaveInterval, MsgId::SauveToutesLes);
  lblMin->setText(nom(MsgId::Minutes));
  etiquette(lblWorkingDir, txtWorkingDir, MsgId::DossierTravail);
  bouton(cmdOpen, MsgId::Parcourir);
  bouton(OptSilence, MsgId::SansBip);

  const int system = Combo2->currentIndex();
  Combo2->clear();
  for (const std::string& caption : NomsDesSystemes(state_.Langue)) {
    Combo2->addItem(Affiche(caption));
  }
  Combo2->setCurrentIndex(system);
  MontreDatumSpherique();
  AligneChamps();
}

/// The fields of all sections stand below each other.
void Prefer::AligneChamps() {
  const std::array<QLabel*, 8> labels = {
      lblCombo2, lblDatum,   lblSpherique, lblDatumUTM, lblChampNumerique[0], lblChampNumerique[1],
      lblSepar,  lblAutoSave};
  int width = lblWorkingDir->sizeHint().width();
  for (const QLabel* label : labels) width = std::max(width, label->sizeHint().width());
  for (QLabel* label : labels) label->setMinimumWidth(width);
  lblWorkingDir->setMinimumWidth(width);
}

void Prefer::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  if (event->type() == QEvent::LanguageChange) AppliqueLangue();
}

void Prefer::StatutAutoSave() {
  const bool on = ChkAutoSave->isChecked();
  for (QWidget* widget : std::initializer_list<QWidget*>{txtSaveInterval, lblAutoSave, lblMin}) {
    widget->setEnabled(on);
  }
}

void Prefer::MontreDatumSpherique() {
  const std::int16_t datum = ChercheDatum(state_.Catalogue, datumSpherique_);
  QString text = Affiche(datumSpherique_);
  if (datum != 0) text += " - " + Affiche(state_.Catalogue.Datum(datum).name);
  lblDatumOrig->setText(text);
  lblDatumOrig->setAccessibleName(lblSpherique->text() + ": " + text);
}

void Prefer::Command1_Click() {
  PreferencesForm form = Lit();
  const PreferencesOutcome outcome = ValidePrefer(contexte_, form);
  txtSaveInterval->setText(Affiche(form.txtSaveInterval));
  if (outcome.ferme) return accept();
  if (outcome.focus == PreferencesFocus::None) return;
  QComboBox* list = outcome.focus == PreferencesFocus::cmbDatum ? cmbDatum : cmbDatumUTM;
  list->setFocus();
  list->lineEdit()->selectAll();
}

void Prefer::cmdOpen_Click() {
  PreferencesForm form = Lit();
  ChoisitWorkingDir(state_, io_, form);
  txtWorkingDir->setText(Affiche(form.txtWorkingDir));
}

void Prefer::cmdChangeDatum_Click() {
  frmDatum chooser(state_, this);
  chooser.Selectionne(datumSpherique_);
  chooser.exec();
  if (chooser.Resultat().empty()) return;
  datumSpherique_ = chooser.Resultat();
  MontreDatumSpherique();
}

void Prefer::Montre(const PreferencesForm& form) {
  Combo2->setCurrentIndex(form.Combo2);
  MontreDatum(cmbDatum, form.cmbDatum);
  MontreDatum(cmbDatumUTM, form.cmbDatumUTM);
  datumSpherique_ = form.lblDatumOrig;
  MontreDatumSpherique();
  for (std::size_t i = 0; i < ChampNumerique.size(); ++i) {
    ChampNumerique[i]->setText(Affiche(form.ChampNumerique[i]));
  }
  OptSilence->setChecked(form.OptSilence);
  TxtSepar->setText(Affiche(form.TxtSepar));
  ChkAutoSave->setChecked(form.ChkAutoSave);
  txtSaveInterval->setText(Affiche(form.txtSaveInterval));
  txtWorkingDir->setText(Affiche(form.txtWorkingDir));
}

PreferencesForm Prefer::Lit() const {
  PreferencesForm form;
  form.Combo2 = Combo2->currentIndex();
  form.cmbDatum = cmbDatum->currentText().toStdString();
  form.lblDatumOrig = datumSpherique_;
  form.cmbDatumUTM = cmbDatumUTM->currentText().toStdString();
  for (std::size_t i = 0; i < ChampNumerique.size(); ++i) {
    form.ChampNumerique[i] = ChampNumerique[i]->text().toStdString();
  }
  form.OptSilence = OptSilence->isChecked();
  form.TxtSepar = TxtSepar->text().toStdString();
  form.ChkAutoSave = ChkAutoSave->isChecked();
  form.txtSaveInterval = txtSaveInterval->text().toStdString();
  form.txtWorkingDir = txtWorkingDir->text().toStdString();
  return form;
}

}  // namespace talpena
