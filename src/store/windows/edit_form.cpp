// The record editor shows its screen and takes it back, and follows the keys.
#include "store/windows/edit_form.h"

#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextDocument>
#include <algorithm>
#include <utility>

#include "platform/commands.h"
#include "platform/qt/scrolled.h"
#include "store/record/record_editor.h"
#include "store/windows/date_edit.h"
#include "store/windows/free_fields_grid.h"
#include "store/windows/hint_label.h"
#include "store/windows/typed_list.h"

namespace talpena {
namespace {

QString Affiche(const std::string& text) { return QString::fromStdString(text); }

/// Texts that are the same already keep their cursor and what can be undone.
void Remplit(QLineEdit& edit, const std::string& text) {
  const QString shown = Affiche(text);
  if (edit.text() == shown) return;
  edit.setText(shown);
  edit.setCursorPosition(0);
  if (edit.hasFocus()) edit.selectAll();
}

/// Every character as it was typed: toPlainText would make blanks of unbreakable ones.
QString TexteDe(const QPlainTextEdit& edit) {
  QString text = edit.document()->toRawText();
  text.replace(QChar::ParagraphSeparator, QLatin1Char('\n'));
  text.replace(QChar::LineSeparator, QLatin1Char('\n'));
  return text;
}

/// Another window, a menu or a list over the form is no end of an entry.
bool QuitteLeChamp(const QEvent& event) {
  if (event.type() != QEvent::FocusOut) return false;
  const auto reason = static_cast<const QFocusEvent&>(event).reason();
  return reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason &&
         reason != Qt::MenuBarFocusReason;
}

/// Which line of hints a field has.
std::size_t LigneAvis(RecordField field) {
  switch (field) {
    case RecordField::ChampPeriode:
    case RecordField::ChampAnnee:
      return 0;
    case RecordField::ChampLatitude:
    case RecordField::ChampLongitude:
    case RecordField::EditBox0:
    case RecordField::EditBox1:
    case RecordField::EditBox2:
      return 1;
    default:
      return 2;
  }
}

constexpr std::array recordFields = {
    RecordField::ChampPeriode,   RecordField::ChampAnnee, RecordField::EditBox0,
    RecordField::EditBox1,       RecordField::EditBox2,   RecordField::ChampLatitude,
    RecordField::ChampLongitude, RecordField::ChampCh1,   RecordField::ChampCh2,
    RecordField::ChampSex,       RecordField::Grid,       RecordField::ChampLibre};

/// And which one `avis` has.
std::size_t LigneAvis(const RecordScreen& ecran) {
  if (!ecran.avisReference.empty()) return 1;
  const bool date =
      !ecran.dateAutre.empty() && ecran.avis.find(ecran.dateAutre) != std::string::npos;
  return date ? 0 : 2;
}

}  // namespace

EditForm::EditForm(CommandContext contexte, QWidget* parent)
    : QDialog(parent), contexte_(contexte), state_(contexte.state), io_(contexte.io) {
  setObjectName("EditForm");
  setModal(true);
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  CfgFreeFields(state_, ecran_);
  Construit();
  ExecuteCommande(state_, io_, {}, [&] { RempliDessus(Contexte(), ecran_); });
  Montre();  // before the captions take back what the controls show
  AppliqueLangue();
  Relie();
  PlaceFenetre();
  PlaceFocus(RecordField::ChampPeriode);
}

void EditForm::Releve() {
  for (const Champ& champ : champs_) ecran_.*champ.text = champ.edit->text().toStdString();
  ecran_.ChampAnnee = ChampAnnee->Masque().toStdString();
  for (std::size_t i = 0; i < EditBox.size(); ++i) {
    ecran_.EditBox[i] = EditBox[i]->text().toStdString();
  }
  ecran_.Grid = Grid->Textes();
  if (ChampLibre->document()->isModified()) ecran_.ChampLibre = TexteDe(*ChampLibre).toStdString();
}

void EditForm::Montre() {
  remplit_ = true;
  for (const Champ& champ : champs_) Remplit(*champ.edit, ecran_.*champ.text);
  if (ChampAnnee->Masque().toStdString() != ecran_.ChampAnnee) {
    ChampAnnee->ChangeMasque(Affiche(ecran_.ChampAnnee));
    if (ChampAnnee->hasFocus()) ChampAnnee->selectAll();
  }
  MontreBoites();
  Grid->ChangeTextes(ecran_.Grid);
  QString remark = Affiche(ecran_.ChampLibre);
  remark.remove(QLatin1Char('\r'));
  if (TexteDe(*ChampLibre) != remark) ChampLibre->setPlainText(remark);
  MontreControle();
  MontrePosition();
  remplit_ = false;
  FormeChange();
  MontreAvis();
  if (ecran_.focus) PlaceFocus(*std::exchange(ecran_.focus, {}));
}

void EditForm::MontreBoites() {
  QLineEdit* first = nullptr;
  for (std::size_t i = 0; i < EditBox.size(); ++i) {
    Remplit(*EditBox[i], ecran_.EditBox[i]);
    const bool visible = ecran_.layout.boxes[i].visible;
    LabelBox[i]->setText(Affiche(ecran_.layout.boxes[i].example));
    LabelBox[i]->setVisible(visible);
    EditBox[i]->setVisible(visible);
    if (visible && first == nullptr) first = EditBox[i];
  }
  LabelOriginales->setBuddy(first);
  NommeBoites();
  cmbSystem->setCurrentIndex(static_cast<int>(ecran_.system));
  lblSysteme->setText(Affiche(ecran_.lblSysteme));
  lblDatum->setText(Affiche(ecran_.lblDatum));
  cmdChangeDatum->setEnabled(!ecran_.layout.datumFixed);
}

void EditForm::MontreControle() {
  ValeurDMS.value->setText(Affiche(ecran_.ValeurDMS));
  ValeurUtmMetrique.value->setText(Affiche(ecran_.ValeurUtmMetrique));
  ValeurUtmAlpha.value->setText(Affiche(ecran_.ValeurUtmAlpha));
  ValeurLibre.value->setText(Affiche(ecran_.ValeurLibre));
  ValeurLibre.caption->setText(Affiche(ecran_.lblSysteme).toUpper());
  for (QLabel* label : {ValeurLibre.caption, ValeurLibre.value}) {
    label->setVisible(ecran_.valeurLibreVisible);
  }
  NommeValeurs();
}

void EditForm::MontrePosition() {
  const QString position = Affiche(ecran_.lblCpt);
  if (lblCpt->text() == position) return;
  lblCpt->setText(position);
  quittes_.reset();  // another row
  NommeFenetre();
}

/// A fault is told once its field was left, or when the row came with it.
void EditForm::MontreAvis() {
  std::array<QString, 3> hints;
  QWidget* told = nullptr;
  if (const auto fault = PremiereFaute(state_, ecran_); fault && EstADire(fault->field)) {
    hints[LigneAvis(fault->field)] = Affiche(fault->text);
    told = Controle(fault->field);
    told->setAccessibleDescription(Affiche(fault->text));
  }
  QString& hint = hints[LigneAvis(ecran_)];
  if (hint.isEmpty()) hint = Affiche(ecran_.avis);
  for (std::size_t i = 0; i < hints.size(); ++i) lblAvis[i]->Montre(hints[i]);
  for (QLineEdit* box : EditBox) {
    if (box != told) box->setAccessibleDescription(Affiche(ecran_.avisReference));
  }
  if (avise_ != nullptr && avise_ != told) avise_->setAccessibleDescription({});
  avise_ = told;
}

bool EditForm::EstADire(RecordField field) const {
  if (quittes_.test(static_cast<std::size_t>(field))) return true;
  const QWidget* control = Controle(field);
  const auto* line = qobject_cast<const QLineEdit*>(control);
  return !control->hasFocus() && (line == nullptr || !line->text().isEmpty());
}

/// The user changed a field.
void EditForm::Marque() {
  if (remplit_) return;
  NoteDebut();
  parTape_ = false;
  ecran_.modifie = true;
  ecran_.ButOk = true;
  FormeChange();
  if (avise_ == nullptr) return;
  Releve();
  MontreAvis();
}

void EditForm::FormeChange() {
  ButOk->setEnabled(ecran_.ButOk);
  setWindowModified(ecran_.modifie);
}

/// What is to be done for the fields that were typed in, once they are left. False when the user
/// is sent back to one.
bool EditForm::QuitteChamps() {
  for (std::size_t i = 0; i < boiteTapee_.size(); ++i) {
    if (!std::exchange(boiteTapee_[i], false)) continue;
    ExecuteCommande(state_, io_, {},
                    [&] { QuitteEditBox(Contexte(), ecran_, static_cast<int>(i)); });
    pointTape_ = false;
  }
  if (std::exchange(pointTape_, false)) {
    ExecuteCommande(state_, io_, {}, [&] { AfficheControle(Contexte(), ecran_); });
  }
  return !ecran_.focus;
}

bool EditForm::ApresChamp() {
  if (enCours_ || !isVisible()) return true;
  enCours_ = true;
  Releve();
  const bool stays = !QuitteChamps();
  MetAvis(state_, ecran_);
  enCours_ = false;
  Montre();
  return !stays;
}

QWidget* EditForm::Controle(RecordField field) const {
  switch (field) {
    case RecordField::ChampPeriode:
      return ChampPeriode;
    case RecordField::ChampLatitude:
      return ChampLatitude;
    case RecordField::ChampLongitude:
      return ChampLongitude;
    case RecordField::ChampCh1:
      return ChampCh1;
    case RecordField::ChampCh2:
      return ChampCh2;
    case RecordField::ChampSex:
      return ChampSex;
    case RecordField::ChampAnnee:
      return ChampAnnee;
    case RecordField::EditBox0:
      return EditBox[0];
    case RecordField::EditBox1:
      return EditBox[1];
    case RecordField::EditBox2:
      return EditBox[2];
    case RecordField::Grid:
      return Grid;
    case RecordField::ChampLibre:
      return ChampLibre;
  }
  return ChampPeriode;
}

void EditForm::PlaceFocus(RecordField field) {
  QWidget* control = Controle(field);
  control->setFocus(Qt::OtherFocusReason);
  if (auto* line = qobject_cast<QLineEdit*>(control)) line->selectAll();
  if (control == ChampLibre) ChampLibre->selectAll();
  defilement_->ensureWidgetVisible(control);
}

/// The first field that is typed in begins the record; a remark alone begins none.
void EditForm::NoteDebut() {
  const QWidget* here = focusWidget();
  if (commence_ || here == nullptr || here == ChampLibre) return;
  const auto* begun =
      std::find_if(recordFields.begin(), recordFields.end(), [&](RecordField field) {
        return Controle(field) == here || Controle(field)->isAncestorOf(here);
      });
  if (begun == recordFields.end()) return;
  commence_ = true;
  debut_ = *begun;
  debutRang_ = Grid->currentIndex().row();
}

RecordField EditForm::PremiereBoite() const {
  for (const RecordField box : {RecordField::EditBox0, RecordField::EditBox1}) {
    if (!Controle(box)->isHidden()) return box;
  }
  return RecordField::EditBox2;
}

/// Another row is on show: the keys go where the last one was begun. While rows are only looked
/// at they stay where they are, but not in the remark, with which no record begins.
void EditForm::PlaceAuDebut() {
  commence_ = false;
  if (!debut_ && !ChampLibre->hasFocus()) return;
  switch (const RecordField field = debut_.value_or(RecordField::ChampPeriode)) {
    case RecordField::EditBox0:
    case RecordField::EditBox1:
    case RecordField::EditBox2:
      return PlaceFocus(PremiereBoite());
    case RecordField::Grid:
      Grid->setCurrentIndex(Grid->model()->index(debutRang_, 1));
      return PlaceFocus(field);
    default:
      return PlaceFocus(field);
  }
}

bool EditForm::PointCalcule() const {
  return ecran_.avis.empty() && !EditBox[2]->text().trimmed().isEmpty() &&
         !ChampLatitude->text().isEmpty() && !ChampLongitude->text().isEmpty();
}

/// From field to field, as Enter goes.
void EditForm::Avance(bool forward) {
  const std::array<QWidget*, 14> order = {
      ChampPeriode,   ChampAnnee, cmbSystem, EditBox[0], EditBox[1], EditBox[2], ChampLatitude,
      ChampLongitude, ChampCh1,   ChampCh2,  ChampSex,   Grid,       ChampLibre, ButOk};
  const QWidget* here = focusWidget();
  if (!ApresChamp()) return;
  const auto* found = std::find(order.begin(), order.end(), here);
  if (found == order.end()) return;
  const bool computed = PointCalcule();
  for (auto i = found - order.begin() + (forward ? 1 : -1);
       i >= 0 && i < static_cast<std::ptrdiff_t>(order.size()); i += forward ? 1 : -1) {
    QWidget* next = order.at(static_cast<std::size_t>(i));
    if (!next->isVisibleTo(this) || !next->isEnabled()) continue;
    if (computed && (next == ChampLatitude || next == ChampLongitude)) continue;
    next->setFocus(forward ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    defilement_->ensureWidgetVisible(next);
    return;
  }
}

void EditForm::keyPressEvent(QKeyEvent* event) {
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (!enter || event->modifiers().testFlag(Qt::ControlModifier)) {
    QDialog::keyPressEvent(event);
    return;
  }
  if (auto* button = qobject_cast<QPushButton*>(focusWidget())) {
    button->click();
    return;
  }
  Avance(!event->modifiers().testFlag(Qt::ShiftModifier));
}

bool EditForm::eventFilter(QObject* watched, QEvent* event) {
  if (QuitteLeChamp(*event)) {
    for (const RecordField field : recordFields) {
      if (Controle(field) != watched) continue;
      quittes_.set(static_cast<std::size_t>(field));
      // Later, because boxes may be shown, and this is the middle of a change of focus.
      QMetaObject::invokeMethod(
          this, [this] { ApresChamp(); }, Qt::QueuedConnection);
    }
  }
  return QDialog::eventFilter(watched, event);
}

void EditForm::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  if (event->type() == QEvent::LanguageChange) AppliqueLangue();
}

}  // namespace talpena
