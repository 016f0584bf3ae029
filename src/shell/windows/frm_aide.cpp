#include "shell/windows/frm_aide.h"

#include <QFile>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPrintDialog>
#include <QPrinter>
#include <QSignalBlocker>
#include <QStackedWidget>
#include <QToolButton>
#include <QTreeWidget>

#include "common/msg_id.h"
#include "common/string_table.h"
#include "platform/commands.h"
#include "shell/windows/help_hit_delegate.h"
#include "shell/windows/help_page_view.h"

using namespace Qt::StringLiterals;

namespace talpena {
namespace {

constexpr int targetRole = Qt::UserRole;

QString DossierDuGuide(const ProcessState& state) { return state.Langue == 0 ? u"fr"_s : u"en"_s; }

/// The entry of the contents for a page, or for a section of it; none when nobody has it.
QTreeWidgetItem* Entree(const QTreeWidget* tree, const QString& target) {
  for (QTreeWidgetItemIterator it(const_cast<QTreeWidget*>(tree)); *it != nullptr; ++it) {
    if ((*it)->data(0, targetRole).toString() == target) return *it;
  }
  return nullptr;
}

}  // namespace

frmAide::frmAide(const ProcessState& state, Platform& io, std::shared_ptr<HelpPlace> place,
                 QWidget* parent)
    : QWidget(parent, Qt::Window), state_(state), io_(io), lastPlace_(std::move(place)) {
  setObjectName("frmAide");
  ConstruitOutils();
  ConstruitRecherche();
  page_ = new HelpPageView(this);
  page_->setObjectName("page");
  Dispose();
  Relie();
  RelieTouches();
  ChargeIcones();
  AppliqueLangue();
  RetrouvePlace();
  if (parent != nullptr) parent->installEventFilter(this);
}

frmAide::~frmAide() { page_->ChangeGuide(nullptr); }

bool frmAide::Charge() {
  const std::string& path = state_.FichierAide;
  QFile file(QString::fromStdString(path));
  const bool there = file.open(QIODevice::ReadOnly);
  auto book = there ? HelpBook::Ouvre(file.readAll(), DossierDuGuide(state_)) : std::nullopt;
  if (!book) {
    const int text = there ? MsgId::AideAbimee : MsgId::AideIntrouvable;
    Bip(state_, io_);
    io_.dialogues.Demande({.text = QString::fromStdString(Texte(state_.Langue, text))
                                       .arg(QString::fromStdString(path))
                                       .toStdString(),
                           .icon = Icon::Exclamation});
    return false;
  }
  page_->ChangeGuide(nullptr);
  book_ = std::move(book);
  path_ = path;
  page_->ChangeGuide(&*book_);
  RempliSommaire();
  return true;
}

bool frmAide::Ouvre() { return (book_ && path_ == state_.FichierAide) || Charge(); }

void frmAide::Montre(const QString& target) {
  if (!target.isEmpty()) {
    page_->Montre(target);
  } else if (page_->source().isEmpty()) {
    page_->Montre(lastPlace_->target);
  }
  page_->setFocus();
}

void frmAide::RempliSommaire() {
  const QSignalBlocker quiet(treeSommaire);
  const QSize row(0, fontMetrics().lineSpacing() * 3 / 2);
  treeSommaire->clear();
  for (const HelpChapter& chapter : book_->Chapitres()) {
    auto* top = new QTreeWidgetItem(treeSommaire, {chapter.title});
    top->setData(0, targetRole, chapter.page);
    top->setSizeHint(0, row);
    for (const HelpSection& section : chapter.sections) {
      if (section.anchor.isEmpty()) continue;
      auto* item = new QTreeWidgetItem(top, {section.title});
      item->setData(0, targetRole, chapter.page + u'#' + section.anchor);
      item->setToolTip(0, section.title);
      item->setSizeHint(0, row);
    }
  }
  Cherche();
}

/// The contents and the buttons as they are for the page on show.
void frmAide::SuitPage() {
  cmdRetour->setEnabled(page_->isBackwardAvailable());
  cmdSuite->setEnabled(page_->isForwardAvailable());
  const QString target = page_->Cible();
  lastPlace_->target = target;
  const QSignalBlocker quiet(treeSommaire);
  QTreeWidgetItem* chapter = Entree(treeSommaire, target.section(u'#', 0, 0));
  QTreeWidgetItem* item = Entree(treeSommaire, target);
  if (item == nullptr) item = chapter;
  if (item == nullptr) return;
  for (int i = 0; i < treeSommaire->topLevelItemCount(); ++i) {
    treeSommaire->topLevelItem(i)->setExpanded(treeSommaire->topLevelItem(i) == chapter);
  }
  treeSommaire->setCurrentItem(item);
}

void frmAide::Cherche() {
  const QString words = txtRecherche->text();
  hits_ = book_ ? book_->Cherche(words) : std::vector<HelpHit>();
  page_->ChangeMots(words);
  AfficheTrouvailles();
}

void frmAide::AfficheTrouvailles() {
  const QString words = txtRecherche->text().trimmed();
  const QSignalBlocker quiet(lstTrouve);
  lstTrouve->clear();
  for (const HelpHit& hit : hits_) {
    auto* item = new QListWidgetItem(hit.title, lstTrouve);
    item->setData(HelpHitDelegate::contextRole, hit.context);
    item->setData(Qt::AccessibleDescriptionRole, hit.context);
    item->setToolTip(hit.title);  // may be cut
  }
  lblRien->setText(QString::fromStdString(Texte(state_.Langue, MsgId::AideRien)).arg(words));
  pages_->setCurrentIndex(words.isEmpty() ? 0 : hits_.empty() ? 2 : 1);
}

void frmAide::OuvreTrouvaille(int row, bool toPage) {
  if (row < 0 || row >= static_cast<int>(hits_.size())) return;
  const QSignalBlocker quiet(lstTrouve);
  lstTrouve->setCurrentRow(row);
  page_->Montre(hits_[static_cast<std::size_t>(row)].target);
  page_->AvanceDepuisLaVue();
  if (toPage) page_->setFocus();
}

void frmAide::AffichePlace() {
  const int count = page_->NombreDePlaces();
  for (QToolButton* button : cmdTrouve) button->setEnabled(count > 0);
  lblPlace->setText(count == 0           ? QString()
                    : page_->Place() < 0 ? QString::number(count)
                                         : u"%1 / %2"_s.arg(page_->Place() + 1).arg(count));
}

void frmAide::Imprime(QPrinter& printer) const { page_->PagePourImpression()->print(&printer); }

void frmAide::cmdImprimer_Click() {
  QPrinter printer(QPrinter::HighResolution);
  QPrintDialog dialog(&printer, this);
  dialog.setObjectName("PrintDialog");
  if (dialog.exec() == QDialog::Accepted) Imprime(printer);
}

/// Escape leaves the search first, then the window.
void frmAide::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Escape) return QWidget::keyPressEvent(event);
  const bool searching = txtRecherche->hasFocus() || lstTrouve->hasFocus();
  if (!searching || txtRecherche->text().isEmpty()) {
    close();
    return;
  }
  txtRecherche->clear();
  txtRecherche->setFocus();
}

bool frmAide::eventFilter(QObject* watched, QEvent* event) {
  if (watched == parent() && event->type() == QEvent::Hide) close();
  if (watched == txtRecherche && event->type() == QEvent::KeyPress &&
      static_cast<QKeyEvent*>(event)->key() == Qt::Key_Down && !hits_.empty()) {
    lstTrouve->setFocus();
    OuvreTrouvaille(0, false);
    return true;
  }
  return QWidget::eventFilter(watched, event);
}

void frmAide::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (page_ == nullptr) return;
  if (event->type() == QEvent::LanguageChange) AppliqueLangue();
  if (event->type() == QEvent::PaletteChange) ChargeIcones();
}

void frmAide::closeEvent(QCloseEvent* event) {
  lastPlace_->geometry = geometry();
  lastPlace_->columns = columns_->saveState();
  lastPlace_->zoom = page_->Zoom();
  QWidget::closeEvent(event);
}

}  // namespace talpena
