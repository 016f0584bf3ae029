#include "gazetteer/windows/frm_geo_setup.h"

#include <QComboBox>
#include <QEvent>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QTreeWidget>
#include <cstddef>
#include <optional>
#include <utility>

#include "common/grouped_number.h"
#include "common/msg_id.h"
#include "common/msg_id_gazetteer.h"
#include "common/string_table.h"
#include "common/text.h"
#include "coords/windows/frm_datum.h"
#include "gazetteer/windows/frm_fonts.h"
#include "platform/commands.h"
#include "platform/qt/controls.h"
#include "platform/qt/elided_label.h"
#include "platform/qt/mnemonics.h"

using namespace Qt::StringLiterals;

namespace talpena {
namespace {

constexpr std::array sampleColumns{
    PlaceColumn::Name,    PlaceColumn::LatitudeDms, PlaceColumn::LongitudeDms, PlaceColumn::Fips,
    PlaceColumn::Feature, PlaceColumn::Country,     PlaceColumn::Province};
constexpr int columnOfPoint = 1;

std::size_t Rang(GeoList list) { return static_cast<std::size_t>(list); }

}  // namespace

frmGeoSetup::frmGeoSetup(CommandContext c, GazetteerState& gazetteer, Aide aide, QWidget* parent)
    : QDialog(parent),
      c_(c),
      gazetteer_(gazetteer),
      aide_(std::move(aide)),
      setup_(c, *this),
      apercu_(c, setup_) {
  setObjectName(u"frmGeoSetup"_s);
  setModal(true);
  Construit();
  Dispose();
  OrdonneTabulation();
  AppliqueLangue();
  Relie();
}

frmGeoSetup::~frmGeoSetup() = default;

void frmGeoSetup::Charge() {
  setup_.Charge();
  Relit();
  const bool nothing = setup_.Form().Liste(GeoList::Table).entrees.empty();
  (nothing ? static_cast<QWidget*>(Bouton(GeoCommand::Change)) : cmb[0])->setFocus();
}

std::string frmGeoSetup::MontreDatums(const std::string& code) {
  frmDatum chooser(c_.state, this);
  chooser.Selectionne(code);
  chooser.exec();
  return chooser.Resultat();
}

/// Behind another file or table.
void frmGeoSetup::Relit() {
  apercu_.Oublie();
  lblTest->clear();
  Montre();
  apercu_.Lit();
  Montre();
}

void frmGeoSetup::Montre() {
  const GeoSetupForm& form = setup_.Form();
  montre_ = true;
  lblFile->Montre(EnQt(form.lblFile));
  lblDbType->setText(EnQt(form.lblDbType));
  lblDatum->setText(EnQt(form.lblDatum));
  for (std::size_t i = 0; i < GeoListCount; ++i) MontreListe(static_cast<GeoList>(i));
  for (int i = 0; i < 2; ++i) {
    Option1[static_cast<std::size_t>(i)]->setChecked(form.Option1 == i);
    Option2[static_cast<std::size_t>(i)]->setChecked(form.Option2 == i);
  }
  montre_ = false;
  cmdPropositions->setEnabled(apercu_.Propose());
  MontreApercu();
}

/// A proposal stands in grey in a list that has no choice.
void frmGeoSetup::MontreListe(GeoList list) {
  QComboBox& box = *cmb[Rang(list)];
  const GeoChoices& choices = setup_.Form().Liste(list);
  const std::string proposed = apercu_.Propose(list);
  box.setPlaceholderText(
      proposed.empty()
          ? QString()
          : EnQt(Remplace(Texte(c_.state.Langue, MsgId::SetupProposition), "%1", proposed)));
  if (choices == montrees_[Rang(list)]) return;
  montrees_[Rang(list)] = choices;
  box.clear();
  for (const std::string& entry : choices.entrees) box.addItem(EnQt(entry));
  box.setCurrentIndex(choices.choix);
}

void frmGeoSetup::MontreApercu() {
  lstApercu->clear();
  const auto rows = apercu_.Lignes();
  for (const SampleRow& row : rows) {
    auto* item = new QTreeWidgetItem(lstApercu);
    for (std::size_t i = 0; i < sampleColumns.size(); ++i) {
      item->setText(static_cast<int>(i), EnQt(Rogne(row.lieu.Texte(sampleColumns[i]))));
    }
    if (!row.utilisable) {
      item->setText(columnOfPoint, EnQt(Texte(c_.state.Langue, MsgId::SetupSansPoint)));
      item->setText(columnOfPoint + 1, {});
    }
  }
  for (int i = 0; i < lstApercu->columnCount(); ++i) lstApercu->resizeColumnToContents(i);
  cmdTest->setEnabled(apercu_.PeutEssayer());
}

void frmGeoSetup::cmb_Click(GeoList list, int index) {
  if (montre_) return;
  setup_.cmb_Click(list, index);
  lblTest->clear();
  if (list == GeoList::Table) return Relit();
  Montre();
}

void frmGeoSetup::Command1_Click(GeoCommand command) {
  const GeoSuite next = setup_.Command1_Click(command);
  if (next.ferme) return command == GeoCommand::Ok ? accept() : reject();
  if (next.focus) Reclame(*next.focus);
  if (command == GeoCommand::Change || command == GeoCommand::Open) Relit();
}

/// A list that has to be filled before Ok.
void frmGeoSetup::Reclame(GeoList list) {
  cmb[Rang(list)]->setFocus();
  QString name = cmb[Rang(list)]->accessibleName();
  while (name.endsWith(u':') || (!name.isEmpty() && name.back().isSpace())) name.chop(1);
  lblTest->setText(
      EnQt(Remplace(Texte(c_.state.Langue, MsgId::SetupReste), "%1", name.toStdString())));
}

void frmGeoSetup::cmdChangeDatum_Click() {
  setup_.cmdChangeDatum_Click();
  Montre();
}

void frmGeoSetup::cmdFonts_Click() { frmFonts(c_.state, c_.io, gazetteer_, this).exec(); }

void frmGeoSetup::cmdPropositions_Click() {
  const std::optional<int> type = apercu_.ProposeOption2();
  PerGeoList<std::string> proposed;
  for (std::size_t i = 1; i < GeoListCount; ++i) {
    proposed[i] = apercu_.Propose(static_cast<GeoList>(i));
  }
  for (std::size_t i = 1; i < GeoListCount; ++i) {
    if (proposed[i].empty()) continue;
    setup_.cmb_Click(static_cast<GeoList>(i), cmb[i]->findText(EnQt(proposed[i])));
  }
  if (type) setup_.Option2_Click(*type);
  Montre();
  Bouton(GeoCommand::Ok)->setFocus();
}

void frmGeoSetup::cmdTest_Click() {
  const auto tally = apercu_.Essaie();
  Montre();
  if (!tally) return lblTest->clear();
  const std::string text = Remplace(Texte(c_.state.Langue, MsgId::SetupBilan), "%1",
                                    NombreGroupe(c_.state.Langue, tally->utilisables));
  lblTest->setText(EnQt(Remplace(text, "%2", NombreGroupe(c_.state.Langue, tally->lignes))));
}

void frmGeoSetup::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  if (event->type() != QEvent::LanguageChange) return;
  AppliqueLangue();
  Montre();
}

void frmGeoSetup::Relie() {
  for (std::size_t i = 0; i < GeoListCount; ++i) {
    connect(cmb[i], &QComboBox::activated, this,
            [this, i](int index) { cmb_Click(static_cast<GeoList>(i), index); });
  }
  for (int i = 0; i < 2; ++i) {
    connect(Option1[static_cast<std::size_t>(i)], &QRadioButton::clicked, this, [this, i] {
      setup_.Option1_Click(i);
      Montre();
    });
    connect(Option2[static_cast<std::size_t>(i)], &QRadioButton::clicked, this, [this, i] {
      setup_.Option2_Click(i);
      lblTest->clear();
      Montre();
    });
  }
  for (std::size_t i = 0; i < Command1.size(); ++i) {
    connect(Command1[i], &QPushButton::clicked, this,
            [this, i] { Command1_Click(static_cast<GeoCommand>(i)); });
  }
  connect(cmdChangeDatum, &QPushButton::clicked, this, &frmGeoSetup::cmdChangeDatum_Click);
  connect(cmdFonts, &QPushButton::clicked, this, &frmGeoSetup::cmdFonts_Click);
  connect(cmdHelp, &QPushButton::clicked, this, [this] { aide_(this); });
  connect(cmdPropositions, &QPushButton::clicked, this, &frmGeoSetup::cmdPropositions_Click);
  connect(cmdTest, &QPushButton::clicked, this, &frmGeoSetup::cmdTest_Click);
}

void MontreGeoSetup(CommandContext c, GazetteerState& gazetteer, frmGeoSetup::Aide aide,
                    QWidget* parent) {
  frmGeoSetup window(c, gazetteer, std::move(aide), parent);
  window.show();
  window.Charge();
  window.exec();
}

}  // namespace talpena
