// The controls of frmAide, where they stand, and their captions.
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QScreen>
#include <QShortcut>
#include <QStackedWidget>
#include <QToolButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "common/msg_id.h"
#include "common/string_table.h"
#include "platform/qt/controls.h"
#include "platform/qt/icons.h"
#include "platform/qt/mnemonics.h"
#include "platform/qt/window_place.h"
#include "shell/windows/frm_aide.h"
#include "shell/windows/help_hit_delegate.h"
#include "shell/windows/help_page_view.h"

using namespace Qt::StringLiterals;

namespace talpena {
namespace {

constexpr int helpMargin = 8;
constexpr QSize firstSize(1120, 740);

const QKeySequence keyBack(Qt::ALT | Qt::Key_Left), keyForward(Qt::ALT | Qt::Key_Right),
    keyHome(Qt::ALT | Qt::Key_Home), keyPrint(Qt::CTRL | Qt::Key_P),
    keySearch(Qt::CTRL | Qt::Key_F), keyNext(Qt::Key_F3), keyPrevious(Qt::SHIFT | Qt::Key_F3);

}  // namespace

void frmAide::ConstruitOutils() {
  tools_ = new QWidget(this);
  cmdRetour = Outil(tools_, "cmdRetour");
  cmdSuite = Outil(tools_, "cmdSuite");
  cmdSommaire = Outil(tools_, "cmdSommaire");
  cmdImprimer = Outil(tools_, "cmdImprimer");
  lblPlace = Nomme(new QLabel(tools_), "lblPlace");
  for (std::size_t i = 0; i < cmdTrouve.size(); ++i) {
    cmdTrouve[i] = Outil(tools_, QString("cmdTrouve_%1").arg(i));
    cmdTrouve[i]->setArrowType(i == 0 ? Qt::UpArrow : Qt::DownArrow);
    cmdTrouve[i]->setToolButtonStyle(Qt::ToolButtonIconOnly);
  }
  auto* row = new QHBoxLayout(tools_);
  row->setContentsMargins(helpMargin, helpMargin / 2, helpMargin, helpMargin / 2);
  row->setSpacing(2);
  for (QToolButton* button : {cmdRetour, cmdSuite, cmdSommaire, cmdImprimer})
    row->addWidget(button);
  row->addStretch(1);
  row->addWidget(lblPlace);
  row->addSpacing(4);
  for (QToolButton* button : cmdTrouve) row->addWidget(button);
}

void frmAide::ConstruitRecherche() {
  lblRecherche = Nomme(new QLabel(this), "lblRecherche");
  txtRecherche = Nomme(new QLineEdit(this), "txtRecherche");
  txtRecherche->setClearButtonEnabled(true);
  txtRecherche->installEventFilter(this);
  lblRecherche->setBuddy(txtRecherche);
  treeSommaire = Nomme(new QTreeWidget(this), "treeSommaire");
  treeSommaire->setHeaderHidden(true);
  treeSommaire->setUniformRowHeights(true);
  treeSommaire->setExpandsOnDoubleClick(false);
  lstTrouve = Nomme(new QListWidget(this), "lstTrouve");
  lstTrouve->setItemDelegate(new HelpHitDelegate(lstTrouve));
  lstTrouve->setUniformItemSizes(true);
  lstTrouve->setAlternatingRowColors(true);
  lstTrouve->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  lblRien = Nomme(new QLabel(this), "lblRien");
  lblRien->setTextFormat(Qt::PlainText);
  lblRien->setWordWrap(true);
  lblRien->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
  lblRien->setContentsMargins(helpMargin, 3 * helpMargin, helpMargin, helpMargin);
  pages_ = new QStackedWidget(this);
  for (QWidget* page : std::initializer_list<QWidget*>{treeSommaire, lstTrouve, lblRien}) {
    pages_->addWidget(page);
  }
}

void frmAide::Dispose() {
  auto* left = new QWidget(this);
  auto* side = new QGridLayout(left);
  side->setContentsMargins(helpMargin, 0, 0, helpMargin);
  side->setSpacing(helpMargin);
  side->addWidget(lblRecherche, 0, 0);
  side->addWidget(txtRecherche, 0, 1);
  side->addWidget(pages_, 1, 0, 1, 2);
  side->setRowStretch(1, 1);
  auto* right = new QWidget(this);
  auto* frame = new QVBoxLayout(right);
  frame->setContentsMargins(0, 0, helpMargin, helpMargin);
  frame->addWidget(page_);
  columns_ = Nomme(new QSplitter(this), "columns");
  columns_->setChildrenCollapsible(false);
  columns_->addWidget(left);
  columns_->addWidget(right);
  columns_->setStretchFactor(1, 1);
  const int letter = fontMetrics().averageCharWidth();
  columns_->setSizes({50 * letter, 110 * letter});
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(tools_);
  column->addWidget(columns_, 1);
  QWidget* before = cmdRetour;
  for (QWidget* next : std::initializer_list<QWidget*>{cmdSuite, cmdSommaire, cmdImprimer,
                                                       cmdTrouve[0], cmdTrouve[1], txtRecherche,
                                                       treeSommaire, lstTrouve, page_}) {
    setTabOrder(before, next);
    before = next;
  }
}

void frmAide::RetrouvePlace() {
  resize(TailleVisible(firstSize, screen()));
  if (lastPlace_->geometry.isValid()) setGeometry(PlaceVisible(lastPlace_->geometry));
  if (!lastPlace_->columns.isEmpty()) columns_->restoreState(lastPlace_->columns);
  page_->ChangeZoom(lastPlace_->zoom);
}

void frmAide::Relie() {
  connect(cmdRetour, &QToolButton::clicked, page_, &QTextBrowser::backward);
  connect(cmdSuite, &QToolButton::clicked, page_, &QTextBrowser::forward);
  connect(cmdSommaire, &QToolButton::clicked, this, [this] { page_->Montre({}); });
  connect(cmdImprimer, &QToolButton::clicked, this, &frmAide::cmdImprimer_Click);
  connect(cmdTrouve[0], &QToolButton::clicked, this, [this] { page_->Avance(-1); });
  connect(cmdTrouve[1], &QToolButton::clicked, this, [this] { page_->Avance(+1); });
  connect(page_, &QTextBrowser::sourceChanged, this, &frmAide::SuitPage);
  connect(page_, &QTextBrowser::historyChanged, this, &frmAide::SuitPage);
  connect(page_, &HelpPageView::PlacesChangees, this, &frmAide::AffichePlace);
  connect(txtRecherche, &QLineEdit::textChanged, this, &frmAide::Cherche);
  connect(txtRecherche, &QLineEdit::returnPressed, this, [this] { OuvreTrouvaille(0, true); });
  connect(treeSommaire, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* item) {
    if (item != nullptr) page_->Montre(item->data(0, Qt::UserRole).toString());
  });
  connect(treeSommaire, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem* item) {
    page_->Montre(item->data(0, Qt::UserRole).toString());  // again, after the page was scrolled
  });
  connect(lstTrouve, &QListWidget::currentRowChanged, this,
          [this](int row) { OuvreTrouvaille(row, false); });
  connect(lstTrouve, &QListWidget::itemActivated, this,
          [this] { OuvreTrouvaille(lstTrouve->currentRow(), true); });
}

void frmAide::RelieTouches() {
  const auto touche = [this](const QKeySequence& keys, auto action) {
    connect(new QShortcut(keys, this), &QShortcut::activated, this, action);
  };
  touche(keyBack, [this] { page_->backward(); });
  touche(keyForward, [this] { page_->forward(); });
  touche(keyHome, [this] { page_->Montre({}); });
  touche(keyPrint, [this] { cmdImprimer_Click(); });
  touche(keySearch, [this] {
    txtRecherche->setFocus(Qt::ShortcutFocusReason);
    txtRecherche->selectAll();
  });
  touche(keyNext, [this] { page_->Avance(+1); });
  touche(keyPrevious, [this] { page_->Avance(-1); });
  for (const auto key : {Qt::Key_Plus, Qt::Key_Equal}) {
    touche(Qt::CTRL | key, [this] { page_->ChangeZoom(page_->Zoom() + 1); });
  }
  touche(Qt::CTRL | Qt::Key_Minus, [this] { page_->ChangeZoom(page_->Zoom() - 1); });
  touche(Qt::CTRL | Qt::Key_0, [this] { page_->ChangeZoom(0); });
}

void frmAide::ChargeIcones() {
  cmdRetour->setIcon(Icone("back", palette()));
  cmdSuite->setIcon(Icone("forward", palette()));
  cmdSommaire->setIcon(Icone("home", palette()));
  cmdImprimer->setIcon(Icone("print", palette()));
  setWindowIcon(Icone("talpena", palette()));
}

void frmAide::AppliqueLangue() {
  Mnemonics letters;
  const auto texte = [this](int id) { return Texte(state_.Langue, id); };
  const auto nom = [&](int id) { return QString::fromStdString(SansMnemonique(texte(id))); };
  const auto bouton = [&](QToolButton* button, int id, const QKeySequence& keys) {
    button->setText(letters.Marque(texte(id)));
    button->setAccessibleName(nom(id));
    button->setToolTip(u"%1 (%2)"_s.arg(nom(id), keys.toString(QKeySequence::NativeText)));
  };
  setWindowTitle(nom(MsgId::AideFenetre));
  bouton(cmdRetour, MsgId::AideRetour, keyBack);
  bouton(cmdSuite, MsgId::AideSuite, keyForward);
  bouton(cmdSommaire, MsgId::AideSommaire, keyHome);
  bouton(cmdImprimer, MsgId::AideImprimer, keyPrint);
  lblRecherche->setText(letters.Marque(texte(MsgId::AideChercher)));
  txtRecherche->setAccessibleName(nom(MsgId::AideChercher));
  bouton(cmdTrouve[0], MsgId::AidePrecedent, keyPrevious);
  bouton(cmdTrouve[1], MsgId::AideSuivant, keyNext);
  treeSommaire->setAccessibleName(nom(MsgId::AideSommaire));
  lstTrouve->setAccessibleName(nom(MsgId::AideTrouvailles));
  lblPlace->setAccessibleName(nom(MsgId::AideTrouvailles));
  page_->setAccessibleName(nom(MsgId::AidePage));
  AfficheTrouvailles();
  if (book_ && path_ != state_.FichierAide) Charge();
}

}  // namespace talpena
