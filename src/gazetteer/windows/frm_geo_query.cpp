#include "gazetteer/windows/frm_geo_query.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QTabBar>
#include <QTabWidget>
#include <QTreeWidget>
#include <QWindow>
#include <utility>

#include "common/msg_id.h"
#include "common/msg_id_gazetteer.h"
#include "common/string_table.h"
#include "gazetteer/windows/place_model.h"
#include "gazetteer/windows/typed_pane.h"
#include "platform/commands.h"
#include "platform/qt/controls.h"
#include "platform/qt/mnemonics.h"
#include "store/record/record_screen.h"

namespace talpena {
namespace {

constexpr int tabTyped = 0, tabResult = 1;  // of onglets

}  // namespace

frmGeoQuery::frmGeoQuery(GazetteerContext c, QWidget* parent) : QDialog(parent), c_(c) {
  setObjectName("frmGeoQuery");
  setModal(true);
  Construit();
  Dispose();
  AppliqueLangue();
  Relie();
}

/// It belongs to the main window, but stands over the window that asks.
void frmGeoQuery::PlaceDevant() {
  QWidget* over = QApplication::activeModalWidget();
  if (over == nullptr) return;
  winId();  // makes the handle
  windowHandle()->setTransientParent(over->windowHandle());
}

void frmGeoQuery::Prepare(RecordScreen& fiche) {
  if (!charge_) Charge();
  fiche_ = &fiche;
  txt->setFocus();
  txt->selectAll();
  typed_->Ouvre(PointDeLaFiche(fiche));
}

bool frmGeoQuery::Cherche(RecordScreen& fiche) {
  Prepare(fiche);
  PlaceDevant();
  const bool chosen = exec() == Accepted;
  fiche_ = nullptr;
  typed_->Suspend();
  return chosen;
}

void frmGeoQuery::Charge() {
  place_ = ChargePlaceGeoQuery(c_.io.settings);
  PlaceFenetre();
  ecran_ = {};
  ChargeGeoQuery(c_, ecran_);
  txt->setText(EnQt(ecran_.txt));
  Montre();
  charge_ = true;
}

void frmGeoQuery::Decharge() {
  charge_ = false;
  lieux_->Vide();
  ecran_ = {};
  reject();
}

void frmGeoQuery::AppliqueLangue() {
  const auto& langue = c_.state.Langue;
  setWindowTitle(EnQt(Texte(langue, MsgId::GeoFenetre)));
  Mnemonics letters;
  lblNom->setText(letters.Marque(Texte(langue, MsgId::GeoNom)));
  lblNombre->setText(EnQt(Texte(langue, MsgId::GeoNombre)));
  onglets->setTabText(tabTyped, letters.Marque(Texte(langue, MsgId::TypedOnglet)));
  onglets->setTabText(tabResult, letters.Marque(Texte(langue, MsgId::TypedResultat)));
  onglets->tabBar()->setAccessibleName(windowTitle());
  onglets->setAccessibleName(windowTitle());
  typed_->AppliqueLangue();
  ListView1->setAccessibleName(windowTitle());
}

void frmGeoQuery::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  if (event->type() == QEvent::LanguageChange) AppliqueLangue();
  if (event->type() != QEvent::PaletteChange) return;
  icones_.Charge(palette());
  typed_->Montre();
}

/// Whoever closes the window wants another one the next time.
void frmGeoQuery::closeEvent(QCloseEvent* event) {
  Decharge();
  event->accept();
}

void frmGeoQuery::hideEvent(QHideEvent* event) {
  QDialog::hideEvent(event);
  if (!event->spontaneous()) SauvePlace();
}

bool frmGeoQuery::eventFilter(QObject* watched, QEvent* event) {
  if (watched == txt && event->type() == QEvent::FocusIn) {
    // Behind the click that brought the focus, which puts the cursor somewhere.
    QMetaObject::invokeMethod(txt, &QLineEdit::selectAll, Qt::QueuedConnection);
  }
  if (event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (watched == txt ? ToucheDeTexte(key) : ToucheDeListe(key)) return true;
  }
  return QDialog::eventFilter(watched, event);
}

/// Enter in the list is no press of the button that the dialog has for it.
bool frmGeoQuery::ToucheDeListe(int key) {
  if (key != Qt::Key_Return && key != Qt::Key_Enter) return false;
  MontreTapes() ? ChoisitTape() : ListView1_DblClick();
  return true;
}

/// Arrow down goes to what was found.
bool frmGeoQuery::ToucheDeTexte(int key) {
  if (key != Qt::Key_Down) return false;
  if (MontreTapes()) {
    typed_->PrendFocus();
  } else {
    ListView1->setFocus();
  }
  return true;
}

/// The count is that of the search by a button.
void frmGeoQuery::onglets_Change() {
  for (QLabel* label : {lblNombre, lblNbre}) label->setVisible(!MontreTapes());
  MontreNom();
}

/// A search that found nothing says where names like it stand.
void frmGeoQuery::MontreAilleurs() {
  const bool nothing = ecran_.lblNbre == "0" && typed_->TrouveQuelqueChose();
  lblAilleurs->setText(nothing ? EnQt(Remplace(Texte(c_.state.Langue, MsgId::TypedAilleurs), "%1",
                                               Texte(c_.state.Langue, MsgId::TypedOnglet)))
                               : QString());
  lblAilleurs->setVisible(nothing);
}

bool frmGeoQuery::MontreTapes() const { return onglets->currentIndex() == tabTyped; }

void frmGeoQuery::TexteTape(const QString& text) {
  if (!text.trimmed().isEmpty()) onglets->setCurrentIndex(tabTyped);
}

void frmGeoQuery::TypedPane_LieuChange() {
  if (MontreTapes()) MontreNom();
}

void frmGeoQuery::ChoisitTape() {
  if (fiche_ == nullptr) return;
  const PlaceItem* place = typed_->LieuAPrendre();
  if (place == nullptr) return;
  ExecuteCommande(c_.state, c_.io, {},
                  [&] { ChoisitLieu(c_, ecran_, PlaceItem(*place), *fiche_); });
  Suit();
}

template <typename Procedure>
void frmGeoQuery::Execute(Procedure procedure) {
  Releve();
  lieux_->Vide();
  typed_->Suspend();
  procedure();
  typed_->Reprend();
  Montre();
  Suit();
}

void frmGeoQuery::Releve() {
  ecran_.txt = txt->text().toStdString();
  const QModelIndex current = ListView1->currentIndex();
  if (current.isValid()) {
    ecran_.choisi = static_cast<std::size_t>(current.row());
  } else {
    ecran_.choisi.reset();
  }
}

void frmGeoQuery::Montre() {
  const QScopedValueRollback showing(montre_, true);
  lieux_->Montre();
  lblNbre->setText(EnQt(ecran_.lblNbre));
  MontreAilleurs();
  MontreChoix();
  MontreNom();
}

void frmGeoQuery::MontreChoix() {
  if (!ecran_.choisi) return ListView1->clearSelection();
  const QModelIndex index = lieux_->index(static_cast<int>(*ecran_.choisi), 0);
  ListView1->setCurrentIndex(index);
  ListView1->scrollTo(index);
}

/// Of the list on show.
void frmGeoQuery::MontreNom() {
  const PlaceItem* typed = typed_->Lieu();
  RegionFont font = ecran_.police;
  std::string name = ecran_.PicName;
  if (MontreTapes()) {
    // No letter that is typed brings up a message: a font out of the table is the first one.
    name = typed == nullptr ? std::string() : typed->Texte(PlaceColumn::Name);
    if (typed != nullptr) font = PoliceDe(c_.gazetteer, *typed).value_or(c_.gazetteer.Polices[0]);
  }
  PicName->setFont(QFont(EnQt(font.Nom), font.Taille));
  PicName->setText(EnQt(name));
}

void frmGeoQuery::Suit() {
  if (std::exchange(ecran_.focusTxt, false)) {
    txt->setFocus();
    txt->selectAll();
  }
  const GeoAfter after = std::exchange(ecran_.suite, GeoAfter::Stays);
  if (after == GeoAfter::Hides) accept();
  if (after == GeoAfter::Closes) Decharge();
}

void frmGeoQuery::cmd_Click(std::size_t index) {
  onglets->setCurrentIndex(tabResult);
  const std::string before = c_.state.GeoFile + c_.state.GeoTable;
  Execute([&] { talpena::cmd_Click(c_, ecran_, static_cast<GeoSearch>(index)); });
  if (before != c_.state.GeoFile + c_.state.GeoTable) typed_->Relit();  // the set-up came up
}

void frmGeoQuery::cmdSetup_Click() {
  typed_->Suspend();
  c_.dialogs.MontreGeoSetup();
  typed_->Relit();
  MontreNom();
}

void frmGeoQuery::ListView1_ItemClick() {
  const QModelIndex current = ListView1->currentIndex();
  if (montre_ || !current.isValid()) return;
  Releve();
  talpena::ListView1_ItemClick(c_, ecran_, *ecran_.choisi);
  MontreNom();
}

void frmGeoQuery::ListView1_DblClick() {
  if (fiche_ == nullptr) return;
  Releve();
  talpena::ListView1_DblClick(c_, ecran_, *fiche_);
  Suit();
}

void frmGeoQuery::ListView1_ColumnClick(int column) {
  Execute([&] { talpena::ListView1_ColumnClick(c_, ecran_, static_cast<PlaceColumn>(column)); });
}

}  // namespace talpena
