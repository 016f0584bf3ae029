#include "maps/windows/frm_cartes_options.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QEvent>
#include <QFormLayout>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>
#include <string>

#include "common/msg_id.h"
#include "common/string_table.h"
#include "common/text.h"
#include "maps/symbol_cover.h"
#include "maps/windows/colour_label.h"
#include "platform/commands.h"
#include "platform/qt/controls.h"
#include "platform/qt/mnemonics.h"
#include "platform/qt/one_line.h"

namespace talpena {
namespace {

/// The same in every language.
constexpr const char* captionDiametre = "Diamètre (en m):";

template <typename Widget>
Widget* Cree(QWidget* parent, const QString& name) {
  auto* widget = new Widget(parent);
  widget->setObjectName(name);
  return widget;
}

template <std::size_t N>
void CreeBoutons(std::array<QPushButton*, N>& buttons, QWidget* parent, const char* name) {
  for (std::size_t i = 0; i < N; ++i) {
    buttons[i] = Cree<QPushButton>(parent, QStringLiteral("%1_%2").arg(QLatin1String(name)).arg(i));
    buttons[i]->setAutoDefault(false);
  }
}

}  // namespace

frmCartesOptions::frmCartesOptions(const SharedState& state, Platform& io, const MapState& carte,
                                   MapOption& options, OngletCartes onglet, QWidget* parent)
    : QDialog(parent),
      state_(state),
      io_(io),
      options_(options),
      dialogue_(LitOptions(options, carte)) {
  setObjectName(QStringLiteral("frmCartesOptions"));
  setModal(true);
  Construit();
  AppliqueLangue();
  Montre();
  Relie();
  onglets_->setCurrentIndex(static_cast<int>(onglet));
  if (onglet == OngletCartes::Tlp) {
    (dialogue_.couchesPossibles ? static_cast<QWidget*>(cmdTLP[0]) : lstTLP)->setFocus();
  } else {
    cmbDiametre->setFocus();
    cmbDiametre->lineEdit()->selectAll();
  }
}

/// The list of diameters empties its text while it goes, when this is a plain dialog again.
frmCartesOptions::~frmCartesOptions() { cmbDiametre->disconnect(this); }

void frmCartesOptions::Construit() {
  onglets_ = Cree<QTabWidget>(this, QStringLiteral("TabStrip1"));
  onglets_->addTab(ConstruitSymboles(), {});
  onglets_->addTab(ConstruitTlp(), {});
  auto* buttons = new QDialogButtonBox(this);
  CreeBoutons(cmdOptCarte, this, "cmdOptCarte");
  buttons->addButton(cmdOptCarte[0], QDialogButtonBox::AcceptRole);
  buttons->addButton(cmdOptCarte[1], QDialogButtonBox::RejectRole);
  cmdOptCarte[0]->setDefault(true);
  auto* column = new QVBoxLayout(this);
  column->addWidget(onglets_, 1);
  column->addWidget(buttons);
}

QWidget* frmCartesOptions::ConstruitSymboles() {
  auto* page = Cree<QWidget>(this, QStringLiteral("symboles"));
  lblDiametre = Cree<QLabel>(page, QStringLiteral("lblDiametre"));
  cmbDiametre = Cree<QComboBox>(page, QStringLiteral("cmbDiametre"));
  cmbDiametre->setEditable(true);
  GardeUneLigne(*cmbDiametre->lineEdit());
  cmbDiametre->setInsertPolicy(QComboBox::NoInsert);
  cmbDiametre->addItem(EnQt(DiametreAutomatique));
  for (const int km : DiametresOfferts) cmbDiametre->addItem(QString::number(km * 1000));
  cmbDiametre->setMinimumWidth(fontMetrics().averageCharWidth() * 18);
  lblDiametre->setBuddy(cmbDiametre);
  lblConseil = Cree<QLabel>(page, QStringLiteral("lblConseil"));
  lblConseil->setWordWrap(true);
  lblCouleur = Cree<QLabel>(page, QStringLiteral("lblCouleur"));
  lblColor = Cree<ColourLabel>(page, QStringLiteral("lblColor"));
  lblCouleur->setBuddy(lblColor);
  auto* form = new QFormLayout(page);
  form->setFieldGrowthPolicy(QFormLayout::FieldsStayAtSizeHint);
  form->addRow(lblDiametre, cmbDiametre);
  form->addRow(lblConseil);
  form->addRow(lblCouleur, lblColor);
  return page;
}

QWidget* frmCartesOptions::ConstruitTlp() {
  auto* page = Cree<QWidget>(this, QStringLiteral("tlp"));
  lblOrdre = Cree<QLabel>(page, QStringLiteral("lblOrdre"));
  lstTLP = Cree<QListWidget>(page, QStringLiteral("lstTLP"));
  lstTLP->setDragDropMode(QAbstractItemView::InternalMove);
  lstTLP->setTextElideMode(Qt::ElideLeft);  // the file's name is what tells layers apart
  lstTLP->setMinimumSize(fontMetrics().averageCharWidth() * 56, fontMetrics().height() * 10);
  lstTLP->installEventFilter(this);
  lblOrdre->setBuddy(lstTLP);
  lblSansCouches = Cree<QLabel>(page, QStringLiteral("lblSansCouches"));
  lblSansCouches->setWordWrap(true);
  lblSansCouches->setVisible(!dialogue_.couchesPossibles);
  CreeBoutons(cmdTLP, page, "cmdTLP");
  CreeBoutons(cmdUpDown, page, "cmdUpDown");
  auto* buttons = new QVBoxLayout;
  for (QPushButton* button : cmdTLP) buttons->addWidget(button);
  buttons->addSpacing(fontMetrics().height());
  for (QPushButton* button : cmdUpDown) buttons->addWidget(button);
  buttons->addStretch(1);
  auto* grid = new QGridLayout(page);
  grid->addWidget(lblOrdre, 0, 0, 1, 2);
  grid->addWidget(lstTLP, 1, 0);
  grid->addLayout(buttons, 1, 1);
  grid->addWidget(lblSansCouches, 2, 0, 1, 2);
  grid->setRowStretch(1, 1);
  grid->setColumnStretch(0, 1);
  return page;
}

void frmCartesOptions::Relie() {
  for (std::size_t i = 0; i < 2; ++i) {
    const int index = static_cast<int>(i);
    connect(cmdTLP[i], &QPushButton::clicked, this, [this, index] { cmdTLP_Click(index); });
    connect(cmdUpDown[i], &QPushButton::clicked, this, [this, index] { cmdUpDown_Click(index); });
    connect(cmdOptCarte[i], &QPushButton::clicked, this,
            [this, index] { cmdOptCarte_Click(index); });
  }
  connect(cmbDiametre, &QComboBox::editTextChanged, this, &frmCartesOptions::MontreConseil);
  connect(lblColor, &ColourLabel::Clique, this, &frmCartesOptions::lblColor_Click);
  connect(lstTLP, &QListWidget::currentRowChanged, this, &frmCartesOptions::ActiveBoutons);
}

void frmCartesOptions::AppliqueLangue() {
  Mnemonics letters;
  const auto texte = [this](int id) { return Texte(state_.Langue, id); };
  const auto nom = [&](int id) { return EnQt(SansMnemonique(texte(id))); };
  const auto bouton = [&](QPushButton* button, int id, const char* keys = nullptr) {
    button->setText(letters.Marque(texte(id)));
    button->setAccessibleName(nom(id));
    if (keys == nullptr) return;
    const QString key = QKeySequence(QLatin1String(keys)).toString(QKeySequence::NativeText);
    button->setToolTip(QStringLiteral("%1 (%2)").arg(nom(id), key));
  };
  setWindowTitle(nom(MsgId::CartesOptionsFenetre));
  onglets_->setAccessibleName(windowTitle());
  onglets_->setTabText(0, letters.Marque(texte(MsgId::OngletSymboles)));
  onglets_->setTabText(1, letters.Marque(texte(MsgId::OngletTlp)));
  bouton(cmdOptCarte[0], MsgId::BoutonOk);
  bouton(cmdOptCarte[1], MsgId::BoutonAnnuler);
  bouton(cmdTLP[0], MsgId::AjouteCouche, "Ins");
  bouton(cmdTLP[1], MsgId::RetireCouche, "Del");
  bouton(cmdUpDown[0], MsgId::MonteCouche, "Alt+Up");
  bouton(cmdUpDown[1], MsgId::MonteCouche + 1, "Alt+Down");
  lblDiametre->setText(letters.Marque(captionDiametre));
  cmbDiametre->setAccessibleName(EnQt(captionDiametre));
  lblCouleur->setText(letters.Marque(texte(MsgId::CouleurSymboles)));
  lblColor->setAccessibleName(nom(MsgId::CouleurSymboles));
  lblOrdre->setText(letters.Marque(texte(MsgId::OrdreCouches)));
  lstTLP->setAccessibleName(nom(MsgId::OrdreCouches));
  lblSansCouches->setText(nom(MsgId::CarteSansCouches));
  MontreConseil();
}

void frmCartesOptions::Conseille(std::optional<int> km) {
  conseilKm_ = km;
  MontreConseil();
}

void frmCartesOptions::MontreConseil() {
  const bool automatic =
      Minuscules(cmbDiametre->currentText().toStdString()) == Minuscules(DiametreAutomatique);
  lblConseil->setVisible(conseilKm_ && automatic);
  if (!conseilKm_) return;
  lblConseil->setText(EnQt(Remplace(Texte(state_.Langue, MsgId::ConseilDiametre), "%1",
                                    std::to_string(*conseilKm_ * 1000))));
}

void frmCartesOptions::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  if (event->type() == QEvent::LanguageChange) AppliqueLangue();
}

template <typename Body>
bool frmCartesOptions::Execute(Body body) {
  Releve();
  bool done = false;
  ExecuteCommande(state_, io_, {}, [&] {
    body();
    done = true;
  });
  Montre();
  return done;
}

void frmCartesOptions::Releve() {
  dialogue_.couches.clear();
  for (int i = 0; i < lstTLP->count(); ++i) {
    dialogue_.couches.push_back(lstTLP->item(i)->text().toStdString());
  }
  dialogue_.choisie = lstTLP->currentRow();
  dialogue_.diametre = cmbDiametre->currentText().toStdString();
}

void frmCartesOptions::Montre() {
  QStringList paths;
  for (const std::string& path : dialogue_.couches) paths << EnQt(path);
  lstTLP->clear();
  lstTLP->addItems(paths);
  for (int i = 0; i < lstTLP->count(); ++i) lstTLP->item(i)->setToolTip(paths[i]);
  lstTLP->setCurrentRow(dialogue_.choisie);
  cmbDiametre->setEditText(EnQt(dialogue_.diametre));
  lblColor->ChangeCouleur(dialogue_.couleur);
  ActiveBoutons();
}

void frmCartesOptions::ActiveBoutons() {
  const int row = lstTLP->currentRow();
  cmdTLP[0]->setEnabled(dialogue_.couchesPossibles);
  cmdTLP[1]->setEnabled(dialogue_.couchesPossibles && row >= 0);
  cmdUpDown[0]->setEnabled(row > 0);
  cmdUpDown[1]->setEnabled(row >= 0 && row + 1 < lstTLP->count());
}

void frmCartesOptions::cmdTLP_Click(int index) {
  Execute([&] {
    if (index == 0) talpena::AjouteCouche(dialogue_, state_, io_);
    if (index == 1) talpena::RetireCouche(dialogue_);
  });
}

void frmCartesOptions::cmdUpDown_Click(int index) {
  Execute([&] { DeplaceCouche(dialogue_, index); });
}

void frmCartesOptions::lblColor_Click() {
  Execute([&] { ChoisitCouleurSymbole(dialogue_, io_); });
}

void frmCartesOptions::cmdOptCarte_Click(int index) {
  if (index == 1) return reject();
  if (Execute([&] { ValideOptions(dialogue_, options_); })) return accept();
  onglets_->setCurrentIndex(static_cast<int>(OngletCartes::Symboles));
  cmbDiametre->setFocus();
  cmbDiametre->lineEdit()->selectAll();
}

void frmCartesOptions::reject() {
  AnnuleOptions(options_);
  QDialog::reject();
}

bool frmCartesOptions::eventFilter(QObject* watched, QEvent* event) {
  if (watched != lstTLP || event->type() != QEvent::KeyPress) {
    return QDialog::eventFilter(watched, event);
  }
  const auto* key = static_cast<const QKeyEvent*>(event);
  const bool alt = key->modifiers().testFlag(Qt::AltModifier);
  QPushButton* button = key->key() == Qt::Key_Insert        ? cmdTLP[0]
                        : key->key() == Qt::Key_Delete      ? cmdTLP[1]
                        : alt && key->key() == Qt::Key_Up   ? cmdUpDown[0]
                        : alt && key->key() == Qt::Key_Down ? cmdUpDown[1]
                                                            : nullptr;
  if (button == nullptr) return QDialog::eventFilter(watched, event);
  button->click();
  return true;
}

}  // namespace talpena
