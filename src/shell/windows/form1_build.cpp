// The controls of Form1 and where they stand.
#include <QActionGroup>
#include <QApplication>
#include <QButtonGroup>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QProgressBar>
#include <QRadioButton>
#include <QStackedLayout>
#include <QStatusBar>
#include <QToolButton>
#include <QVBoxLayout>

#include "platform/deg_lines.h"
#include "platform/qt/command_actions.h"
#include "platform/qt/controls.h"
#include "platform/qt/icons.h"
#include "platform/qt/one_line.h"
#include "shell/windows/form1.h"
#include "store/windows/tdb_grid.h"

namespace talpena {
namespace {

constexpr int margin = 8;

QFrame* Trait(QWidget* parent) {
  auto* line = new QFrame(parent);
  line->setFrameShape(QFrame::VLine);
  line->setFrameShadow(QFrame::Sunken);
  return line;
}

}  // namespace

QAction* Form1::ConstruitEntree(const MenuEntry& entry, QWidget& owner) {
  QAction* action = NouvelleAction(entry, &owner);
  action->setEnabled(EstActif(entry, {}));
  connect(action, &QAction::triggered, this, [this, &entry] { Execute(entry); });
  actions_[NomObjet(entry)] = action;
  return action;
}

void Form1::ConstruitMenu(QMenu& menu, std::span<const MenuEntry> entries) {
  for (const MenuEntry& entry : entries) {
    if (entry.children.empty()) {
      menu.addAction(ConstruitEntree(entry, menu));
      continue;
    }
    auto* child = Nomme(new QMenu(&menu), QString::fromStdString(NomObjet(entry)));
    ConstruitMenu(*child, entry.children);
    menu.addMenu(child);
    menus_[NomObjet(entry)] = child;
    actions_[NomObjet(entry)] = child->menuAction();
  }
}

void Form1::ConstruitMenus() {
  for (const MenuEntry& entry : ArbreDesMenus()) {
    if (entry.children.empty()) {
      menuBar()->addAction(ConstruitEntree(entry, *menuBar()));
      continue;
    }
    auto* menu = Nomme(new QMenu(menuBar()), QString::fromStdString(NomObjet(entry)));
    ConstruitMenu(*menu, entry.children);
    menuBar()->addMenu(menu);
    // Later, because the next menu may be opening.
    connect(menu, &QMenu::aboutToHide, this, &Form1::QuitteMenus, Qt::QueuedConnection);
    menus_[NomObjet(entry)] = menu;
    actions_[NomObjet(entry)] = menu->menuAction();
  }
  auto* languages = new QActionGroup(this);
  for (int i = 0; i < 6; ++i) {
    QAction* action = actions_.at("MnuLang_" + std::to_string(i));
    action->setCheckable(true);
    languages->addAction(action);
  }
  actions_.at("MnuSelection")->setCheckable(true);
  AfficheDerniersFichiers();
}

void Form1::SuitFocus(QWidget* now) {
  if (now != nullptr && now != menuBar() && now->window() == this) focusBesideMenus_ = now;
}

/// The menu bar keeps the keys when a second menu is opened by its letter and left; they go back
/// to where they were.
void Form1::QuitteMenus() {
  if (focusWidget() != menuBar() || QApplication::activePopupWidget() != nullptr) return;
  // The arrows may have gone on to an entry that opens no menu: it waits for Enter.
  const QAction* active = menuBar()->activeAction();
  if (active != nullptr && active->menu() == nullptr) return;
  if (focusBesideMenus_ != nullptr) focusBesideMenus_->setFocus(Qt::MenuBarFocusReason);
}

void Form1::ConstruitPicture1() {
  Picture1 = Nomme(new QWidget(centralWidget()), QStringLiteral("Picture1"));
  // The window may be narrower than the strip with all its captions: AjusteOutils.
  Picture1->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  auto* row = new QHBoxLayout(Picture1);
  row->setSizeConstraint(QLayout::SetNoConstraint);
  row->setContentsMargins(margin, margin / 2, margin, margin / 2);
  row->setSpacing(2);
  for (std::size_t i = 0; i < cmd.size(); ++i) {
    if (i == 3) row->addWidget(Trait(Picture1));
    cmd[i] = Outil(Picture1, NomIndexe("cmd", i));
    row->addWidget(cmd[i]);
  }
  row->addWidget(Trait(Picture1));
  cmdMap = Outil(Picture1, QStringLiteral("cmdMap"));
  row->addWidget(cmdMap);
  for (const MenuEntry& entry : OutilsForm1()) {
    const QString name = QString::fromStdString(NomObjet(entry));
    outils_.emplace_back(Picture1->findChild<QToolButton*>(name), &entry);
  }
  row->addStretch(1);

  LblTri = Nomme(new QLabel(Picture1), QStringLiteral("LblTri"));
  CmbTri = Nomme(new QComboBox(Picture1), QStringLiteral("CmbTri"));
  CmbTri->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  LblTri->setBuddy(CmbTri);
  row->addWidget(LblTri);
  row->addSpacing(4);
  row->addWidget(CmbTri);
  row->addSpacing(margin);
  auto* orders = new QButtonGroup(this);
  for (std::size_t i = 0; i < OptTri.size(); ++i) {
    OptTri[i] = Nomme(new QRadioButton(Picture1), NomIndexe("OptTri", i));
    orders->addButton(OptTri[i], static_cast<int>(i));
    row->addWidget(OptTri[i]);
    row->addSpacing(4);
  }
  OptTri[0]->setChecked(true);
  for (std::size_t i = 0; i < cmdFirstLast.size(); ++i) {
    cmdFirstLast[i] = Outil(Picture1, NomIndexe("cmdFirstLast", i));
    cmdFirstLast[i]->setToolButtonStyle(Qt::ToolButtonIconOnly);
    row->addWidget(cmdFirstLast[i]);
  }
}

void Form1::ConstruitTitres() {
  QWidget* parent = centralWidget();
  LabelTitre = Nomme(new QLabel(parent), QStringLiteral("LabelTitre"));
  BoxTitre_ = Nomme(new QLineEdit(parent), QStringLiteral("BoxTitre"));
  LabelCommentaire = Nomme(new QLabel(parent), QStringLiteral("LabelCommentaire"));
  Commentaire_ = Nomme(new QLineEdit(parent), QStringLiteral("Commentaire"));
  for (QLineEdit* box : {BoxTitre_, Commentaire_}) {
    GardeUneLigne(*box);
    box->setMaxLength(static_cast<int>(MaxHeaderLine));  // as long as a file can have them
  }
  LabelTitre->setBuddy(BoxTitre_);
  LabelCommentaire->setBuddy(Commentaire_);
  for (QWidget* widget :
       std::initializer_list<QWidget*>{LabelTitre, BoxTitre_, LabelCommentaire, Commentaire_}) {
    widget->hide();
  }
}

void Form1::ConstruitCentre() {
  auto* centre = new QWidget(this);
  setCentralWidget(centre);
  ConstruitPicture1();
  ConstruitTitres();
  lbl1 = Nomme(new QLabel(centre), QStringLiteral("lbl1"));
  lbl1->setAlignment(Qt::AlignCenter);
  lbl1->setTextFormat(Qt::RichText);
  lbl1->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
  TDBGrid1 = new TDBGrid(state_, io_, centre);

  auto* titles = new QHBoxLayout;
  titles->setContentsMargins(margin, 0, margin, margin);
  titles->setSpacing(margin);
  titles->addWidget(LabelTitre);
  titles->addWidget(BoxTitre_, 1);
  titles->addSpacing(margin);
  titles->addWidget(LabelCommentaire);
  titles->addWidget(Commentaire_, 2);
  pages_ = new QStackedLayout;
  pages_->addWidget(lbl1);
  pages_->addWidget(TDBGrid1);
  auto* column = new QVBoxLayout(centre);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(Picture1);
  column->addLayout(titles);
  column->addLayout(pages_, 1);
}

void Form1::ConstruitBarreEtat() {
  QStatusBar* bar = Nomme(statusBar(), QStringLiteral("StatusBar1"));
  for (std::size_t i = 0; i < panels_.size(); ++i) {
    panels_[i] = Nomme(new QLabel(bar), NomIndexe("StatusBar1_Panel", i + 1));
    panels_[i]->setTextFormat(Qt::PlainText);
    panels_[i]->setContentsMargins(margin, 0, margin, 0);
  }
  ProgressBar1 = Nomme(new QProgressBar(bar), QStringLiteral("ProgressBar1"));
  ProgressBar1->setRange(0, 100);
  ProgressBar1->setMaximumWidth(fontMetrics().averageCharWidth() * 36);
  ProgressBar1->hide();
  bar->addWidget(panels_[0]);
  bar->addWidget(panels_[1], 1);
  bar->addPermanentWidget(ProgressBar1);
  bar->addPermanentWidget(panels_[2]);
}

void Form1::OrdonneTabulation() {
  QWidget* before = cmd[0];
  const auto then = [&before](QWidget* widget) {
    setTabOrder(before, widget);
    before = widget;
  };
  for (std::size_t i = 1; i < cmd.size(); ++i) then(cmd[i]);
  then(cmdMap);
  then(CmbTri);
  for (QRadioButton* option : OptTri) then(option);
  for (QToolButton* button : cmdFirstLast) then(button);
  then(BoxTitre_);
  then(Commentaire_);
  then(lbl1);
  then(TDBGrid1);
}

void Form1::ChargeIcones() {
  const QPalette& colours = palette();
  for (const auto& [button, entry] : outils_) button->setIcon(Icone(EnQt(entry->icon), colours));
  cmdFirstLast[0]->setIcon(Icone(QStringLiteral("first"), colours));
  cmdFirstLast[1]->setIcon(Icone(QStringLiteral("last"), colours));
  setWindowIcon(Icone(QStringLiteral("talpena"), colours));
}

}  // namespace talpena
