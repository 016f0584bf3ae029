// The controls of frmGeoQuery, what they are tied to, and where the window stands.
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QTabWidget>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "gazetteer/windows/frm_geo_query.h"
#include "gazetteer/windows/place_model.h"
#include "gazetteer/windows/typed_pane.h"
#include "platform/qt/controls.h"
#include "platform/qt/one_line.h"
#include "platform/qt/window_place.h"

using namespace Qt::StringLiterals;

namespace talpena {
namespace {

constexpr float listWidthTwips = 5000;  ///< a narrower window cuts the list instead of shrinking it

int Pixels(std::int32_t twips) { return EnPixels(static_cast<float>(twips)); }

/// What is kept of a length: as it was stored unless it changed by a pixel.
std::int32_t Garde(std::int32_t stored, int pixels) {
  return Pixels(stored) == pixels ? stored : static_cast<std::int32_t>(EnTwips(pixels));
}

}  // namespace

void frmGeoQuery::Construit() {
  lblNom = Nomme(new QLabel(this), u"lblNom"_s);
  txt = Nomme(new QLineEdit(this), u"txt"_s);
  GardeUneLigne(*txt);
  txt->installEventFilter(this);
  lblNom->setBuddy(txt);
  for (std::size_t i = 0; i < cmd.size(); ++i) {
    cmd[i] = Nomme(new QPushButton(this), NomIndexe("cmd", i));
  }
  // In French whatever the language, as users know them.
  cmd[0]->setText(u"Recherche exacte"_s);
  cmd[1]->setText(u"Recherche approx."_s);
  cmd[0]->setDefault(true);
  cmdSetup = Nomme(new QPushButton(u"Setup"_s, this), u"cmdSetup"_s);
  icones_.Charge(palette());
  typed_ = new TypedPane(c_, icones_, this);
  typed_->Liste()->installEventFilter(this);
  ConstruitListe();
  onglets = Nomme(new QTabWidget(this), u"onglets"_s);
  onglets->setDocumentMode(true);
  onglets->addTab(typed_, {});
  onglets->addTab(AvecAilleurs(), {});
  lblNombre = Nomme(new QLabel(this), u"lblNombre"_s);
  lblNbre = Nomme(new QLabel(this), u"lblNbre"_s);
  PicName = Nomme(new QLabel(this), u"PicName"_s);
  PicName->setTextFormat(Qt::PlainText);
  PicName->setFrameStyle(static_cast<int>(QFrame::StyledPanel) | QFrame::Sunken);
  PicName->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);  // a name may be long
}

/// The list of results, and under it a line for a search that found nothing.
QWidget* frmGeoQuery::AvecAilleurs() {
  lblAilleurs = Nomme(new QLabel(this), u"lblAilleurs"_s);
  lblAilleurs->setTextFormat(Qt::PlainText);
  lblAilleurs->setWordWrap(true);
  lblAilleurs->hide();
  auto* page = new QWidget(this);
  auto* layout = new QVBoxLayout(page);
  layout->setContentsMargins({});
  layout->addWidget(ListView1, 1);
  layout->addWidget(lblAilleurs);
  return page;
}

void frmGeoQuery::ConstruitListe() {
  lieux_ = new PlaceModel(ecran_.ListView1, icones_, this);
  ListView1 = Nomme(new QTreeView(this), u"ListView1"_s);
  ListView1->setModel(lieux_);
  ListView1->setRootIsDecorated(false);
  ListView1->setUniformRowHeights(true);
  ListView1->setAllColumnsShowFocus(true);
  ListView1->setSelectionMode(QAbstractItemView::SingleSelection);
  ListView1->setMinimumWidth(EnPixels(listWidthTwips));
  ListView1->header()->setSectionsClickable(true);
  ListView1->header()->setStretchLastSection(false);
  ListView1->installEventFilter(this);
}

void frmGeoQuery::Dispose() {
  auto* name = new QHBoxLayout;
  name->addWidget(lblNom);
  name->addWidget(txt, 1);
  auto* search = new QHBoxLayout;
  for (QPushButton* button : cmd) search->addWidget(button);
  search->addStretch();
  search->addWidget(cmdSetup);
  auto* foot = new QHBoxLayout;
  foot->addWidget(PicName, 1);
  foot->addWidget(lblNombre);
  foot->addWidget(lblNbre);
  auto* layout = new QVBoxLayout(this);
  layout->setSizeConstraint(QLayout::SetNoConstraint);
  layout->addLayout(name);
  layout->addLayout(search);
  layout->addWidget(onglets, 1);
  layout->addLayout(foot);
}

void frmGeoQuery::Relie() {
  for (std::size_t i = 0; i < cmd.size(); ++i) {
    connect(cmd[i], &QPushButton::clicked, this, [this, i] { cmd_Click(i); });
  }
  connect(cmdSetup, &QPushButton::clicked, this, &frmGeoQuery::cmdSetup_Click);
  connect(ListView1->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
          &frmGeoQuery::ListView1_ItemClick);
  connect(ListView1, &QTreeView::doubleClicked, this, &frmGeoQuery::ListView1_DblClick);
  connect(txt, &QLineEdit::textChanged, typed_, &TypedPane::Cherche);
  connect(txt, &QLineEdit::textEdited, this, &frmGeoQuery::TexteTape);
  connect(typed_, &TypedPane::LieuChange, this, &frmGeoQuery::TypedPane_LieuChange);
  connect(typed_->Liste(), &QTreeView::doubleClicked, this, &frmGeoQuery::ChoisitTape);
  connect(onglets, &QTabWidget::currentChanged, this, &frmGeoQuery::onglets_Change);
  onglets_Change();
  RelieTris();
}

void frmGeoQuery::RelieTris() {
  connect(ListView1->header(), &QHeaderView::sectionClicked, this,
          &frmGeoQuery::ListView1_ColumnClick);
  for (int i = 0; i < static_cast<int>(PlaceColumnCount); ++i) {
    // Ctrl+1 to Ctrl+9, and Ctrl+0 for the tenth.
    const QKeySequence keys(static_cast<int>(Qt::CTRL) |
                            (static_cast<int>(Qt::Key_0) + (i + 1) % 10));
    connect(new QShortcut(keys, this), &QShortcut::activated, this,
            [this, i] { ListView1_ColumnClick(i); });
  }
}

void frmGeoQuery::PlaceFenetre() {
  int buttons = 4 * fontMetrics().height();  // what stands between them
  for (const QPushButton* button : {cmd[0], cmd[1], cmdSetup}) {
    buttons += button->sizeHint().width();
  }
  setGeometry(PlaceVisible({Pixels(place_.left), Pixels(place_.top),
                            std::max(Pixels(place_.width), buttons), Pixels(place_.height)}));
  for (std::size_t i = 0; i < PlaceColumnCount; ++i) {
    ListView1->header()->resizeSection(static_cast<int>(i), Pixels(place_.columns[i]));
  }
}

void frmGeoQuery::SauvePlace() {
  place_.left = Garde(place_.left, geometry().left());
  place_.top = Garde(place_.top, geometry().top());
  place_.width = Garde(place_.width, width());
  place_.height = Garde(place_.height, height());
  for (std::size_t i = 0; i < PlaceColumnCount; ++i) {
    place_.columns[i] =
        Garde(place_.columns[i], ListView1->header()->sectionSize(static_cast<int>(i)));
  }
  SauvePlaceGeoQuery(c_.io.settings, place_);
}

}  // namespace talpena
