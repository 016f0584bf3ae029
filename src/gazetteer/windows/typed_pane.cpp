#include "gazetteer/windows/typed_pane.h"

#include <QElapsedTimer>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QSignalBlocker>
#include <QTreeWidget>
#include <algorithm>
#include <array>

#include "common/msg_id.h"
#include "common/msg_id_gazetteer.h"
#include "common/numbers.h"
#include "common/paths.h"
#include "common/string_table.h"
#include "common/talpena_error.h"
#include "common/text.h"
#include "maps/windows/place_map_view.h"
#include "platform/commands.h"
#include "platform/qt/controls.h"

using namespace Qt::StringLiterals;

namespace talpena {
namespace {

constexpr qint64 sliceMs = 8;

enum Column { Name, Distance, Country, Province, Match, ColumnCount };
/// What a column has room for at first.
constexpr std::array samples{"Saint-Germain", "9999.9", "Deutschland", "Niederösterr.",
                             "graphie voisine"};

int TexteDe(PlaceMatch match) {
  return match == PlaceMatch::Contains ? MsgId::TypedContient : MsgId::TypedSemblable;
}

}  // namespace

TypedPane::TypedPane(GazetteerContext c, const PlaceIcons& icons, QWidget* parent)
    : QWidget(parent),
      c_(c),
      icons_(icons),
      lstTape(Nomme(new QTreeWidget(this), u"lstTape"_s)),
      lblTape(Nomme(new QLabel(this), u"lblTape"_s)),
      PicCarte(Nomme(new PlaceMapView(c.io.files, AvecSeparateur(c.state.AppDir) + "carto", this),
                     u"PicCarte"_s)),
      lblProche(Nomme(new QLabel(this), u"lblProche"_s)) {
  setObjectName(u"TypedPane"_s);
  Construit();
  Dispose();
  connect(&timer_, &QTimer::timeout, this, &TypedPane::Travaille);
  connect(lstTape, &QTreeWidget::currentItemChanged, this, [this] {
    MontreAide();
    MontreCarte();
    Q_EMIT LieuChange();
  });
}

void TypedPane::Construit() {
  lstTape->setColumnCount(ColumnCount);
  lstTape->setRootIsDecorated(false);
  lstTape->setUniformRowHeights(true);
  lstTape->setAllColumnsShowFocus(true);
  lstTape->setTabKeyNavigation(false);
  lstTape->header()->setStretchLastSection(false);
  for (int i = 0; i < ColumnCount; ++i) {
    const QString sample = QString::fromUtf8(samples.at(static_cast<std::size_t>(i)));
    lstTape->header()->resizeSection(i, fontMetrics().horizontalAdvance(sample) + 24);
  }
  for (QLabel* label : {lblTape, lblProche}) {
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
  }
}

void TypedPane::Dispose() {
  auto* found = new QVBoxLayout;
  found->addWidget(lstTape, 1);
  found->addWidget(lblTape);
  auto* map = new QVBoxLayout;
  map->addWidget(PicCarte, 1);
  map->addWidget(lblProche);
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins({});
  layout->addLayout(found, 3);
  layout->addLayout(map, 2);
}

void TypedPane::Ouvre(std::optional<GeoPoint> point) {
  point_ = point;
  attendu_ = true;
  MontreAide();
  QMetaObject::invokeMethod(
      this,
      [this] {
        if (attendu_) Relit();
      },
      Qt::QueuedConnection);
}

void TypedPane::Relit() {
  attendu_ = false;
  Commence();
  Reprend();
  Montre();
}

void TypedPane::Commence() {
  echec_ = 0;
  PicCarte->Efface();  // the records may be others
  try {
    recherche_.Commence(c_);
  } catch (const TalpenaError& error) {
    const bool givenUp = error.number() == ErrorNumber::Cancelled;
    echec_ = givenUp ? MsgId::TypedAbandon : MsgId::TypedIllisible;
  }
}

void TypedPane::Suspend() {
  attendu_ = false;
  timer_.stop();
}

void TypedPane::Reprend() {
  if (echec_ == 0) timer_.start(0);
}

void TypedPane::Travaille() {
  QElapsedTimer slice;
  slice.start();
  const bool ready = recherche_.EstPret();
  bool more = true;
  while (more && slice.elapsed() < sliceMs) more = recherche_.Avance();
  if (!more) timer_.stop();
  if (!more || ready != recherche_.EstPret()) Montre();
}

void TypedPane::Cherche(const QString& typed) {
  tape_ = typed.toStdString();
  recherche_.EstPerime(c_) ? Relit() : Montre();
}

/// The same line stays chosen where the order alone changed.
void TypedPane::Montre() {
  {
    const QSignalBlocker filling(lstTape);
    lieux_ = recherche_.Cherche(tape_, point_);
    lstTape->clear();
    for (const TypedPlace& place : lieux_) Ajoute(place);
    lstTape->setCurrentItem(lstTape->topLevelItem(0));
  }
  MontreAide();
  MontreCarte();
  Q_EMIT LieuChange();
}

void TypedPane::Ajoute(const TypedPlace& place) {
  auto* line = new QTreeWidgetItem(lstTape);
  line->setText(Name, EnQt(place.lieu.Texte(PlaceColumn::Name)));
  line->setIcon(Name, icons_.De(place.lieu));
  line->setText(Distance, Km(place.km));
  line->setTextAlignment(Distance, Qt::AlignRight | Qt::AlignVCenter);
  line->setText(Country, EnQt(place.lieu.Texte(PlaceColumn::Country)));
  line->setText(Province, EnQt(place.lieu.Texte(PlaceColumn::Province)));
  if (place.match == PlaceMatch::Begins) return;
  line->setText(Match, EnQt(Texte(c_.state.Langue, TexteDe(place.match))));
}

QString TypedPane::Km(std::optional<double> km) const {
  constexpr double coarse = 10;  // from there on whole kilometres are enough
  return km ? EnQt(Format(*km, *km < coarse ? "0.0" : "0")) : QString();
}

void TypedPane::MontreAide() {
  int text = 0;
  if (echec_ != 0) {
    text = echec_;
  } else if (!recherche_.EstPret()) {
    text = MsgId::TypedLecture;
  } else if (tape_.size() < PlaceIndex::FewestLetters) {
    text = MsgId::TypedAide;
  } else if (lieux_.empty()) {
    text = MsgId::TypedAucun;
  }
  Dit(text);
}

/// In the line under the list; 0 for nothing.
void TypedPane::Dit(int text) {
  lblTape->setText(text == 0 ? QString() : EnQt(Texte(c_.state.Langue, text)));
  lblTape->setVisible(text != 0);
}

const TypedPlace* TypedPane::Choisi() const {
  const int line = lstTape->indexOfTopLevelItem(lstTape->currentItem());
  return line < 0 ? nullptr : &lieux_[static_cast<std::size_t>(line)];
}

void TypedPane::MontreCarte() {
  const TypedPlace* place = Choisi();
  const bool known = place != nullptr && place->point;
  lblProche->setText(known && place->km ? EnQt(Remplace(Texte(c_.state.Langue, MsgId::TypedProche),
                                                        "%1", Km(place->km).toStdString()))
                                        : QString());
  if (!known) return PicCarte->Efface();
  const FileRecords& records = recherche_.Lignes();
  PicCarte->Montre({.latitude = static_cast<float>(place->point->latitude),
                    .longitude = static_cast<float>(place->point->longitude),
                    .halfHeightKm = DemiHauteurPour(place->km.value_or(-1)),
                    .latitudes = records.Latitudes(),
                    .longitudes = records.Longitudes()});
}

void TypedPane::PrendFocus() {
  if (lstTape->currentItem() == nullptr) lstTape->setCurrentItem(lstTape->topLevelItem(0));
  lstTape->setFocus();
}

const PlaceItem* TypedPane::Lieu() const {
  const TypedPlace* place = Choisi();
  return place == nullptr ? nullptr : &place->lieu;
}

const PlaceItem* TypedPane::LieuAPrendre() {
  if (recherche_.EstPerime(c_)) {
    Relit();
    return nullptr;
  }
  const TypedPlace* place = Choisi();
  if (place == nullptr) return nullptr;
  if (place->point) return &place->lieu;
  Bip(c_.state, c_.io);
  Dit(MsgId::TypedSansPoint);
  return nullptr;
}

void TypedPane::AppliqueLangue() {
  const auto texte = [this](int id) { return EnQt(Texte(c_.state.Langue, id)); };
  const auto titre = [&](PlaceColumn c) {
    return EnQt(TitresDesLieux[static_cast<std::size_t>(c)].caption);
  };
  lstTape->setHeaderLabels({titre(PlaceColumn::Name), texte(MsgId::TypedDistance),
                            titre(PlaceColumn::Country), titre(PlaceColumn::Province),
                            texte(MsgId::TypedRencontre)});
  QHeaderView& header = *lstTape->header();
  for (int i = 0; i < ColumnCount; ++i) {
    header.resizeSection(i, std::max(header.sectionSize(i), header.sectionSizeHint(i)));
  }
  lstTape->setAccessibleName(texte(MsgId::TypedOnglet));
  PicCarte->setAccessibleName(texte(MsgId::TypedCarte));
  PicCarte->setToolTip(texte(MsgId::TypedCarte));
  Montre();
}

}  // namespace talpena
