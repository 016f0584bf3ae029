// The controls of frmGeoSetup: made, laid out, captioned.
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <array>
#include <cstddef>
#include <utility>
#include <vector>

#include "common/msg_id.h"
#include "common/msg_id_gazetteer.h"
#include "common/string_table.h"
#include "gazetteer/windows/frm_geo_setup.h"
#include "platform/qt/controls.h"
#include "platform/qt/elided_label.h"
#include "platform/qt/mnemonics.h"
#include "platform/qt/window_place.h"

using namespace Qt::StringLiterals;

namespace talpena {
namespace {

constexpr int linesShown = 7, sampleColumnCount = 7;
constexpr std::array listCaptions{MsgId::GeoTable,    MsgId::GeoChampRecherche, MsgId::GeoChampNom,
                                  MsgId::GeoLatitude, MsgId::GeoLongitude,      MsgId::GeoFips,
                                  MsgId::GeoProvince, MsgId::GeoNature};

}  // namespace

void frmGeoSetup::Construit() {
  setWindowTitle(u"Database setup"_s);
  lblTitreFile = Nomme(new QLabel(this), u"lblTitreFile"_s);
  lblFile = Nomme(new ElidedLabel(Qt::ElideMiddle, 1, this), u"lblFile"_s);
  lblDbType = Nomme(new QLabel(this), u"lblDbType"_s);
  ConstruitListes();
  fraSort = Nomme(new QGroupBox(this), u"fraSort"_s);
  fraCoord = Nomme(new QGroupBox(this), u"fraCoord"_s);
  for (std::size_t i = 0; i < 2; ++i) {
    Option1[i] = Nomme(new QRadioButton(fraSort), NomIndexe("Option1", i));
    Option2[i] = Nomme(new QRadioButton(fraCoord), NomIndexe("Option2", i));
  }
  lblTitreDatum = Nomme(new QLabel(this), u"lblTitreDatum"_s);
  lblDatum = Nomme(new QLabel(this), u"lblDatum"_s);
  for (QLabel* label : {lblDbType, lblDatum}) {  // a set-up file may hold anything
    label->setTextFormat(Qt::PlainText);
    label->setMaximumWidth(fontMetrics().averageCharWidth() * 20);
  }
  cmdChangeDatum = Nomme(new QPushButton(u"&Change"_s, this), u"cmdChangeDatum"_s);
  cmdFonts = Nomme(new QPushButton(u"Fonts"_s, this), u"cmdFonts"_s);
  cmdHelp = Nomme(new QPushButton(u"&Help"_s, this), u"cmdHelp"_s);
  for (std::size_t i = 0; i < Command1.size(); ++i) {
    Command1[i] = Nomme(new QPushButton(this), NomIndexe("Command1", i));
  }
  lblApercu = Nomme(new QLabel(this), u"lblApercu"_s);
  lstApercu = Nomme(new QTreeWidget(this), u"lstApercu"_s);
  lstApercu->setRootIsDecorated(false);
  lstApercu->setAlternatingRowColors(true);
  lstApercu->setUniformRowHeights(true);
  lstApercu->setTabKeyNavigation(false);
  lstApercu->setColumnCount(sampleColumnCount);
  lblApercu->setBuddy(lstApercu);
  cmdPropositions = Nomme(new QPushButton(this), u"cmdPropositions"_s);
  cmdTest = Nomme(new QPushButton(this), u"cmdTest"_s);
  lblTest = Nomme(new QLabel(this), u"lblTest"_s);
  for (QPushButton* button : findChildren<QPushButton*>()) button->setAutoDefault(false);
  Bouton(GeoCommand::Ok)->setDefault(true);
}

void frmGeoSetup::ConstruitListes() {
  for (std::size_t i = 0; i < GeoListCount; ++i) {
    lblCmb[i] = Nomme(new QLabel(this), NomIndexe("lblCmb", i));
    cmb[i] = Nomme(new QComboBox(this), NomIndexe("cmb", i));
    cmb[i]->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    cmb[i]->setMinimumContentsLength(22);
    cmb[i]->setMinimumWidth(fontMetrics().averageCharWidth() * 12);  // on a small screen
    lblCmb[i]->setBuddy(cmb[i]);
  }
}

void frmGeoSetup::Dispose() {
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(DisposeFichier());
  auto* middle = new QHBoxLayout;
  middle->addLayout(DisposeListes(), 1);
  middle->addLayout(DisposeChoix());
  layout->addLayout(middle);
  layout->addLayout(DisposeApercu(), 1);
  layout->addLayout(DisposeBoutons());
  lstApercu->setMinimumHeight(linesShown * fontMetrics().lineSpacing());
  resize(TailleVisible({fontMetrics().averageCharWidth() * 150, fontMetrics().height() * 36}));
}

QLayout* frmGeoSetup::DisposeFichier() {
  auto* row = new QHBoxLayout;
  row->addWidget(lblTitreFile);
  row->addWidget(lblFile, 1);
  row->addWidget(lblDbType);
  row->addWidget(Bouton(GeoCommand::Change));
  return row;
}

/// Table and required fields on the left, the others on the right.
QLayout* frmGeoSetup::DisposeListes() {
  auto* grid = new QGridLayout;
  for (std::size_t i = 0; i < GeoListCount; ++i) {
    const int row = static_cast<int>(i % GeoRequiredCount);
    const int column = i < GeoRequiredCount ? 0 : 2;
    grid->addWidget(lblCmb[i], row, column);
    grid->addWidget(cmb[i], row, column + 1);
  }
  grid->setColumnStretch(1, 1);
  grid->setColumnStretch(3, 1);
  return grid;
}

QLayout* frmGeoSetup::DisposeChoix() {
  auto* column = new QVBoxLayout;
  for (auto [box, options] : {std::pair{fraSort, Option1}, std::pair{fraCoord, Option2}}) {
    auto* inside = new QVBoxLayout(box);
    for (QRadioButton* option : options) inside->addWidget(option);
    column->addWidget(box);
  }
  auto* datum = new QHBoxLayout;
  datum->addWidget(lblTitreDatum);
  datum->addWidget(lblDatum, 1);
  datum->addWidget(cmdChangeDatum);
  column->addLayout(datum);
  column->addStretch(1);
  return column;
}

QLayout* frmGeoSetup::DisposeApercu() {
  auto* column = new QVBoxLayout;
  auto* row = new QHBoxLayout;
  row->addWidget(cmdPropositions);
  row->addWidget(cmdTest);
  row->addWidget(lblTest, 1);
  column->addLayout(row);
  column->addWidget(lblApercu);
  column->addWidget(lstApercu, 1);
  return column;
}

QLayout* frmGeoSetup::DisposeBoutons() {
  auto* row = new QHBoxLayout;
  for (const GeoCommand command : {GeoCommand::Open, GeoCommand::Save}) {
    row->addWidget(Bouton(command));
  }
  row->addWidget(cmdFonts);
  row->addWidget(cmdHelp);
  row->addStretch(1);
  for (const GeoCommand command : {GeoCommand::Ok, GeoCommand::Escape}) {
    row->addWidget(Bouton(command));
  }
  return row;
}

/// From top to bottom, as the window is read.
void frmGeoSetup::OrdonneTabulation() {
  std::vector<QWidget*> order{Bouton(GeoCommand::Change)};
  order.insert(order.end(), cmb.begin(), cmb.end());
  order.insert(order.end(), Option1.begin(), Option1.end());
  order.insert(order.end(), Option2.begin(), Option2.end());
  order.insert(order.end(), {cmdChangeDatum, cmdPropositions, cmdTest, lstApercu,
                             Bouton(GeoCommand::Open), Bouton(GeoCommand::Save), cmdFonts, cmdHelp,
                             Bouton(GeoCommand::Ok), Bouton(GeoCommand::Escape)});
  for (std::size_t i = 1; i < order.size(); ++i) setTabOrder(order[i - 1], order[i]);
}

void frmGeoSetup::AppliqueLangue() {
  Mnemonics letters;
  const auto legende = [&](auto* control, int id) {
    control->setText(letters.Marque(Texte(c_.state.Langue, id)));
    control->setAccessibleName(EnQt(SansMnemonique(Texte(c_.state.Langue, id))));
  };
  letters.Marque("&Change");
  letters.Marque("&Help");
  for (std::size_t i = 0; i < Command1.size(); ++i) {
    legende(Command1[i], MsgId::Changer + static_cast<int>(i));
  }
  legende(cmdTest, MsgId::SetupEssai);
  legende(cmdPropositions, MsgId::SetupPropose);
  for (std::size_t i = 0; i < listCaptions.size(); ++i) legende(lblCmb[i], listCaptions[i]);
  lblCmb[8]->setText(letters.Marque("Country Name"));
  lblCmb[9]->setText(letters.Marque("Province Name"));
  for (std::size_t i = 0; i < GeoListCount; ++i) {
    cmb[i]->setAccessibleName(lblCmb[i]->text().remove(u'&'));
  }
  cmdFonts->setText(letters.Marque("Fonts"));
  lblTitreFile->setText(EnQt(Texte(c_.state.Langue, MsgId::GeoFichier)));
  fraSort->setTitle(EnQt(Texte(c_.state.Langue, MsgId::GeoTri)));
  legende(Option1[0], MsgId::GeoLocalite);
  legende(Option1[1], MsgId::GeoFips);
  legende(Option2[0], MsgId::GeoFormatDms);
  legende(Option2[1], MsgId::GeoFormatDegres);
  lblTitreDatum->setText(EnQt(Texte(c_.state.Langue, MsgId::Datum)));
  legende(lblApercu, MsgId::SetupApercu);
  lstApercu->setAccessibleName(lblApercu->accessibleName());
  const auto nom = [&](int id) { return EnQt(Texte(c_.state.Langue, id)); };
  lstApercu->setHeaderLabels({nom(MsgId::SetupNom), nom(MsgId::Latitude), nom(MsgId::Longitude),
                              u"FIPS"_s, u"Feature"_s, u"Country"_s, u"Prov"_s});
}

}  // namespace talpena
