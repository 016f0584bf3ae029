// The controls of Map, where they stand, and their captions.
#include <QApplication>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QScreen>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>

#include "common/msg_id.h"
#include "common/numbers.h"
#include "common/string_table.h"
#include "maps/windows/map.h"
#include "maps/windows/map_view.h"
#include "platform/qt/controls.h"
#include "platform/qt/icons.h"
#include "platform/qt/mnemonics.h"
#include "platform/qt/one_line.h"
#include "platform/qt/window_place.h"

namespace talpena {
namespace {

constexpr int edge = 8;
constexpr int yearLength = 10;     ///< characters of DATE
constexpr int settleMs = 60;       ///< a window that is being resized is drawn when it rests
const QSize desktopFrame(16, 48);  ///< borders and title of a window, more or less

/// A label that is as wide as the longest of what it says, so that nothing moves with the mouse.
QLabel* Lecture(QWidget* parent, const char* name, const char* longest) {
  auto* label = Nomme(new QLabel(parent), QLatin1String(name));
  label->setTextFormat(Qt::PlainText);
  label->setMinimumWidth(label->fontMetrics().horizontalAdvance(QLatin1String(longest)));
  return label;
}

}  // namespace

Map::Map(CommandContext contexte, RasterMap& carte, QWidget* parent)
    : QDialog(parent),
      contexte_(contexte),
      state_(contexte.state),
      io_(contexte.io),
      carte_(carte),
      canevas_(parent != nullptr ? parent->devicePixelRatioF() : qApp->devicePixelRatio()) {
  setObjectName(QStringLiteral("Map"));
  setModal(true);
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  ConstruitEntrees(*column);
  ConstruitCarte(*column);
  ConstruitLectures(*column);
  ChargeIcones();
  AppliqueLangue();
  Relie();
}

void Map::ConstruitEntrees(QBoxLayout& column) {
  lblAnnee = Nomme(new QLabel(this), QStringLiteral("lblAnnee"));
  txtAnnee = Nomme(new QLineEdit(this), QStringLiteral("txtAnnee"));
  txtAnnee->setMaxLength(yearLength);
  GardeUneLigne(*txtAnnee);
  txtAnnee->setFixedWidth(fontMetrics().averageCharWidth() * (yearLength + 4));
  lblAnnee->setBuddy(txtAnnee);
  lblPeriode = Nomme(new QLabel(this), QStringLiteral("lblPeriode"));
  ChoixPeriode = Nomme(new QComboBox(this), QStringLiteral("ChoixPeriode"));
  lblPeriode->setBuddy(ChoixPeriode);
  Command1 = Outil(this, QStringLiteral("Command1"));
  Command1->setVisible(false);
  cmdOptions = Outil(this, QStringLiteral("cmdOptions"));
  cmdFermer = Outil(this, QStringLiteral("cmdFermer"));
  auto* row = new QHBoxLayout;
  row->setContentsMargins(edge, edge / 2, edge, edge / 2);
  row->setSpacing(edge / 2);
  row->addWidget(lblAnnee);
  row->addWidget(txtAnnee);
  row->addSpacing(edge);
  row->addWidget(lblPeriode);
  row->addWidget(ChoixPeriode);
  row->addStretch(1);
  row->addWidget(Command1);
  row->addWidget(cmdOptions);
  row->addWidget(cmdFermer);
  column.addLayout(row);
}

void Map::ConstruitCarte(QBoxLayout& column) {
  Picture1 = Nomme(new MapView(canevas_, this), QStringLiteral("Picture1"));
  column.addWidget(Picture1, 1);
}

void Map::ConstruitLectures(QBoxLayout& column) {
  LblPosition = Lecture(this, "LblPosition", "Lat=+88.88 / Lon=-188.888");
  LblUTM = Lecture(this, "LblUTM", "E=888888   N=88888888");
  LblMGRS = Lecture(this, "LblMGRS", "88WWW8888888888");
  LblGrille = Nomme(new QLabel(this), QStringLiteral("LblGrille"));
  LblBNG = Lecture(this, "LblBNG", "Lat=88.88888 / Lon=-88.88888");
  auto* grid = new QGridLayout;
  grid->setContentsMargins(edge, edge / 2, edge, edge / 2);
  grid->setHorizontalSpacing(3 * edge);
  grid->setVerticalSpacing(edge / 4);
  grid->addWidget(LblPosition, 0, 0);
  grid->addWidget(LblUTM, 0, 1);
  grid->addWidget(LblMGRS, 0, 2);
  grid->addWidget(LblGrille, 1, 0);
  grid->addWidget(LblBNG, 1, 1, 1, 2);
  grid->setColumnStretch(2, 1);
  column.addLayout(grid);
}

void Map::Relie() {
  suivi_ = new QTimer(this);
  suivi_->setSingleShot(true);
  suivi_->setInterval(0);
  connect(suivi_, &QTimer::timeout, this, &Map::SuitPosition);
  ajustement_ = new QTimer(this);
  ajustement_->setSingleShot(true);
  ajustement_->setInterval(settleMs);
  connect(ajustement_, &QTimer::timeout, this, &Map::AjusteTaille);
  connect(Picture1, &MapView::Appuie, this, &Map::Picture1_MouseDown);
  connect(Picture1, &MapView::Survole, this, [this](QPointF pixel) {
    position_ = pixel;
    suivi_->start();
  });
  connect(Picture1, &MapView::Quitte, this, &Map::VideLectures);
  connect(txtAnnee, &QLineEdit::textChanged, this, &Map::txtAnnee_Change);
  connect(Command1, &QToolButton::clicked, this, &Map::Command1_Click);
  connect(cmdOptions, &QToolButton::clicked, this, &Map::cmdOptions_Click);
  connect(cmdFermer, &QToolButton::clicked, this, &Map::reject);
  Picture1->installEventFilter(this);
  setTabOrder(Picture1, txtAnnee);
  setTabOrder(txtAnnee, ChoixPeriode);
  setTabOrder(ChoixPeriode, Command1);
  setTabOrder(Command1, cmdOptions);
  setTabOrder(cmdOptions, cmdFermer);
}

void Map::ChargeIcones() {
  Command1->setIcon(Icone(QStringLiteral("grid"), palette()));
  cmdOptions->setIcon(Icone(QStringLiteral("properties"), palette()));
  cmdFermer->setIcon(Icone(QStringLiteral("close"), palette()));
  setWindowIcon(Icone(QStringLiteral("talpena"), palette()));
}

void Map::AppliqueLangue() {
  Mnemonics letters;
  const auto nom = [this](int base) { return EnQt(SansMnemonique(Texte(state_.Langue, base))); };
  const auto pose = [&](QLabel* label, int base) {
    label->setText(letters.Marque(Texte(state_.Langue, base)));
    label->buddy()->setAccessibleName(nom(base));
  };
  const auto bouton = [&](QToolButton* button, int base, int help) {
    button->setText(letters.Marque(SansMnemonique(Texte(state_.Langue, base))));
    button->setAccessibleName(nom(help));
    button->setToolTip(nom(help));
  };
  pose(lblAnnee, MsgId::RasterAnnee);
  pose(lblPeriode, MsgId::EditionPeriode);
  bouton(Command1, MsgId::GrillesPrn, MsgId::GrillesPrnAide);
  bouton(cmdOptions, MsgId::CarteOptions, MsgId::OptionsMapFenetre);
  bouton(cmdFermer, MsgId::CarteFermer, MsgId::CarteFermerAide);
  setWindowTitle(nom(legende_ != 0 ? legende_ : MsgId::Carte));
  Picture1->setAccessibleName(windowTitle());
  Picture1->setAccessibleDescription(nom(MsgId::RasterTouches));
}

/// As large as the screen has room for, and no larger than the picture needs.
void Map::PlaceFenetre() {
  const auto stored = [this](std::string_view key) {
    return EnPixels(static_cast<float>(Val(io_.settings.Lit("TLP", "Map", key, "100"))));
  };
  const QSize room = screen()->availableGeometry().size() - desktopFrame;
  layout()->activate();
  const QSize around = sizeHint() - Picture1->sizeHint();
  const QSize rest(room.width(), room.height() - around.height());
  const QSize file = canevas_.TailleFichier();
  const QSize picture =
      file.boundedTo(rest) == file ? file : file.scaled(rest, Qt::KeepAspectRatio);
  const QSize wanted(std::max(picture.width(), minimumSizeHint().width()),
                     picture.height() + around.height());
  const QRect place = PlaceVisible(QRect(QPoint(stored("Left"), stored("Top")), wanted));
  resize(place.size());
  move(place.topLeft());
}

}  // namespace talpena
