// The controls of frmCarte, where they stand, and their captions.
#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QScrollBar>
#include <QStackedLayout>
#include <QStatusBar>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>

#include "common/msg_id.h"
#include "common/string_table.h"
#include "maps/windows/frm_carte.h"
#include "maps/windows/map_view.h"
#include "platform/qt/command_actions.h"
#include "platform/qt/controls.h"
#include "platform/qt/icons.h"

namespace talpena {
namespace {

constexpr int margin = 8;

}  // namespace

void frmCarte::ConstruitMenu(const CarteEntree& menu) {
  auto* built = Nomme(new QMenu(this), QString::fromStdString(NomObjet(menu)));
  for (const CarteEntree& entry : menu.children) {
    QAction* action = NouvelleAction(entry, built);
    built->addAction(action);
    if (entry.EstSeparateur()) continue;
    addAction(action);  // its key holds in the whole window, whatever menu it stands in
    entrees_.emplace_back(action, &entry);
    connect(action, &QAction::triggered, this, [this, &entry] { Execute(entry); });
  }
  menus_[NomObjet(menu)] = built;
}

void frmCarte::ConstruitMenus() {
  barreMenus_ = Nomme(new QMenuBar(this), QStringLiteral("menuBar"));
  for (const CarteEntree& menu : MenusCarte()) {
    ConstruitMenu(menu);
    if (menu.control != "mnuCache") barreMenus_->addMenu(menus_.at(NomObjet(menu)));
  }
}

void frmCarte::ConstruitOutils() {
  Toolbar1 = Nomme(new QWidget(this), QStringLiteral("Toolbar1"));
  Toolbar1->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  auto* row = new QHBoxLayout(Toolbar1);
  row->setSizeConstraint(QLayout::SetNoConstraint);
  row->setContentsMargins(margin, margin / 2, margin, margin / 2);
  row->setSpacing(2);
  for (const CarteEntree& outil : OutilsCarte()) {
    auto* button = Outil(Toolbar1, EnQt(outil.control));
    if (outil.control == "distri") row->addStretch(1);
    row->addWidget(button);
    outils_.emplace_back(button, &outil);
    const auto menu = menus_.find(std::string(outil.same));
    if (menu != menus_.end()) {
      button->setMenu(menu->second);
      button->setPopupMode(QToolButton::InstantPopup);
      row->addSpacing(margin);  // its arrow stands at its edge
    } else {
      connect(button, &QToolButton::clicked, this, [this, &outil] { Execute(outil); });
    }
  }
}

void frmCarte::ConstruitCentre() {
  centre_ = new QWidget(this);
  cadre_ = new QWidget(centre_);
  picCarte = Nomme(new MapView(canevas_, cadre_), QStringLiteral("picCarte"));
  HScroll1 = Nomme(new QScrollBar(Qt::Horizontal, cadre_), QStringLiteral("HScroll1"));
  VScroll1 = Nomme(new QScrollBar(Qt::Vertical, cadre_), QStringLiteral("VScroll1"));
  PetitCarre = Nomme(new QWidget(cadre_), QStringLiteral("PetitCarre"));
  auto* grid = new QGridLayout(cadre_);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setSpacing(0);
  grid->addWidget(picCarte, 0, 0);
  grid->addWidget(VScroll1, 0, 1);
  grid->addWidget(HScroll1, 1, 0);
  grid->addWidget(PetitCarre, 1, 1);
  grid->setRowStretch(0, 1);
  grid->setColumnStretch(0, 1);
  lblVide = Nomme(new QLabel(centre_), QStringLiteral("lblVide"));
  lblVide->setAlignment(Qt::AlignCenter);
  lblVide->setTextFormat(Qt::RichText);
  lblVide->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
  pages_ = new QStackedLayout(centre_);
  pages_->addWidget(lblVide);
  pages_->addWidget(cadre_);
}

void frmCarte::ConstruitBarreEtat() {
  StatusBar1 = Nomme(new QStatusBar(this), QStringLiteral("StatusBar1"));
  StatusBar1->setSizeGripEnabled(false);  // it comes late, and asks for more room then
  for (std::size_t i = 0; i < panneaux_.size(); ++i) {
    panneaux_[i] = Nomme(new QLabel(StatusBar1), NomIndexe("StatusBar1_Panel", i + 1));
    panneaux_[i]->setTextFormat(Qt::PlainText);
    panneaux_[i]->setContentsMargins(margin, 0, margin, 0);
    // As wide as the longest position, so that nothing moves with the mouse.
    panneaux_[i]->setMinimumWidth(fontMetrics().averageCharWidth() * 20);
    StatusBar1->addWidget(panneaux_[i], i == 2 ? 1 : 0);
  }
}

void frmCarte::Dispose() {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->setMenuBar(barreMenus_);
  column->addWidget(Toolbar1);
  column->addWidget(centre_, 1);
  column->addWidget(StatusBar1);
  QWidget* before = picCarte;
  for (const auto& [next, outil] : outils_) {
    setTabOrder(before, next);
    before = next;
  }
}

void frmCarte::Relie() {
  connect(picCarte, &MapView::Appuie, this, &frmCarte::picCarte_MouseDown);
  connect(picCarte, &MapView::CroixDeplacee, this, &frmCarte::MontreCroix);
  connect(picCarte, &MapView::DemandeMenu, this,
          [this](QPoint at) { menus_.at("mnuCache")->popup(at); });
  connect(picCarte, &MapView::Roule, this, [this](QPoint pixels) {
    HScroll1->setValue(HScroll1->value() - pixels.x());
    VScroll1->setValue(VScroll1->value() - pixels.y());
  });
  for (QScrollBar* bar : {HScroll1, VScroll1}) {
    connect(bar, &QScrollBar::valueChanged, this, [this] {
      picCarte->Deplace({-HScroll1->value(), -VScroll1->value()});
    });
  }
  connect(lblVide, &QLabel::linkActivated, this, &frmCarte::OuvreCarte);
  suivi_ = new QTimer(this);
  suivi_->setSingleShot(true);
  suivi_->setInterval(0);
  connect(suivi_, &QTimer::timeout, this, &frmCarte::SuitPosition);
  connect(picCarte, &MapView::Survole, this, [this](QPointF pixel) {
    position_ = pixel;
    suivi_->start();
  });
  centre_->installEventFilter(this);
  picCarte->installEventFilter(this);
}

void frmCarte::ChargeIcones() {
  for (const auto& [button, outil] : outils_) button->setIcon(Icone(EnQt(outil->icon), palette()));
  for (const auto& [action, entry] : entrees_) {
    if (!entry->icon.empty()) action->setIcon(Icone(EnQt(entry->icon), palette()));
  }
  setWindowIcon(Icone(QStringLiteral("talpena"), palette()));
}

void frmCarte::AppliqueLangue() {
  const auto texte = [this](const CarteEntree& entry) {
    return QString::fromStdString(Libelle(entry, state_.Langue));
  };
  const auto nom = [this](int base) {
    return QString::fromStdString(SansMnemonique(Texte(state_.Langue, base)));
  };
  for (const CarteEntree& menu : MenusCarte()) menus_.at(NomObjet(menu))->setTitle(texte(menu));
  for (const auto& [action, entry] : entrees_) action->setText(texte(*entry));
  for (const auto& [button, outil] : outils_) {
    const QString help = nom(outil->help).remove(QStringLiteral("..."));
    const QString keys = TexteTouche(RangeeDe(MenusCarte(), *outil).key);
    button->setText(texte(*outil));
    button->setAccessibleName(help);
    button->setToolTip(keys.isEmpty() ? help : QStringLiteral("%1 (%2)").arg(help, keys));
  }
  picCarte->setAccessibleName(nom(MsgId::Carte));
  picCarte->setAccessibleDescription(nom(MsgId::CarteTouches));
  lblVide->setText(QStringLiteral("<p style='font-size:x-large'>%1</p>"
                                  "<p><a href='open'>%2</a> &nbsp; Ctrl+O</p>")
                       .arg(nom(MsgId::AucuneCarte), nom(MsgId::CarteOuvrir)));
  lblVide->setAccessibleName(nom(MsgId::AucuneCarte));
  AppliqueTitre();
  AjusteOutils();
}

}  // namespace talpena
