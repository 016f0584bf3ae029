#include "interchange/windows/frm_importation.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTimer>
#include <QVBoxLayout>

#include "common/msg_id.h"
#include "common/msg_id_import.h"
#include "common/string_table.h"
#include "interchange/windows/rehearsal_pane.h"
#include "platform/qt/controls.h"
#include "platform/qt/elided_label.h"
#include "platform/qt/mnemonics.h"
#include "platform/qt/window_place.h"

namespace talpena {
namespace {

// Labels: what they show, and the captions before them.
constexpr std::size_t lblFile = 0, lblSystemCaption = 1, lblStructureCaption = 2, lblStructure = 3,
                      lblPreviewCaption = 4, lblPreview = 5, lblFileCaption = 6;
constexpr int previewLines = 3, watchMs = 1000;
constexpr int wantedCharacters = 205, wantedLines = 42;

}  // namespace

frmImportation::frmImportation(StoreState& state, InterchangeState& interchange, Platform& io,
                               QWidget* parent)
    : QDialog(parent), state_(state), choice_(state, interchange, io) {
  setObjectName("frmImportation");
  setModal(true);
  ConstruitBouton(0);  // Tab goes from one control to the next as they are made
  ConstruitChoix();
  pane_ = new RehearsalPane(state, this);
  connect(pane_, &RehearsalPane::Avance, this, &frmImportation::OffreOk);
  for (const int index : {1, 2}) ConstruitBouton(index);
  cmdImportation[1]->setDefault(true);
  Dispose();
  AppliqueLangue();
  cboImportation->setCurrentIndex(choice_.Indice());
  connect(cboImportation, &QComboBox::currentIndexChanged, this,
          &frmImportation::cboImportation_Click);
  auto* watch = new QTimer(this);
  connect(watch, &QTimer::timeout, this, [this] {
    if (choice_.FichierAChange()) Repete();
  });
  watch->start(watchMs);
  MontreSysteme();
  Repete();
  resize(TailleVisible({wantedCharacters * fontMetrics().averageCharWidth(),
                        wantedLines * fontMetrics().lineSpacing()}));
  PlaceFocus();
}

/// Enter is Ok once a row of the list that was just chosen is seen to enter.
void frmImportation::OffreOk() {
  if (!chosen_ || pane_->Entrent() == 0) return;
  chosen_ = false;
  if (cmdImportation[0]->hasFocus() && !choice_.DejaImportee()) cmdImportation[1]->setFocus();
}

/// Enter is Ok, but for a list that is still to be chosen or has come in already.
void frmImportation::PlaceFocus() {
  if (choice_.Fichier().empty() || choice_.DejaImportee()) return cmdImportation[0]->setFocus();
  cboImportation->setFocus();
}

void frmImportation::ConstruitChoix() {
  lblImportation[lblFile] = fichier_ = new ElidedLabel(Qt::ElideMiddle, 1, this);
  lblImportation[lblStructure] = structure_ = new ElidedLabel(Qt::ElideRight, 1, this);
  lblImportation[lblPreview] = apercu_ = new ElidedLabel(Qt::ElideRight, previewLines, this);
  for (std::size_t i = 0; i < lblImportation.size(); ++i) {
    if (lblImportation[i] == nullptr) lblImportation[i] = new QLabel(this);
    Nomme(lblImportation[i], NomIndexe("lblImportation", i));
  }
  lblImportation[lblPreviewCaption]->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  cboImportation = Nomme(new QComboBox(this), "cboImportation");
  cboImportation->setMaxVisibleItems(CoordSystemCount);
  cboImportation->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  lblImportation[lblSystemCaption]->setBuddy(cboImportation);
}

void frmImportation::ConstruitBouton(int index) {
  const auto place = static_cast<std::size_t>(index);
  QPushButton* button = cmdImportation.at(place) =
      Nomme(new QPushButton(this), NomIndexe("cmdImportation", place));
  connect(button, &QPushButton::clicked, this, [this, index] { cmdImportation_Click(index); });
}

void frmImportation::Dispose() {
  auto* choice = new QGridLayout;
  choice->setColumnStretch(1, 1);
  choice->addWidget(lblImportation[lblFileCaption], 0, 0);
  choice->addWidget(lblImportation[lblFile], 0, 1);
  choice->addWidget(cmdImportation[0], 0, 2);
  choice->addWidget(lblImportation[lblPreviewCaption], 1, 0);
  choice->addWidget(lblImportation[lblPreview], 1, 1, 1, 2);
  choice->addWidget(lblImportation[lblSystemCaption], 2, 0);
  choice->addWidget(cboImportation, 2, 1, Qt::AlignLeft);
  choice->addWidget(lblImportation[lblStructureCaption], 3, 0);
  choice->addWidget(lblImportation[lblStructure], 3, 1, 1, 2);
  auto* buttons = new QDialogButtonBox(this);
  buttons->addButton(cmdImportation[1], QDialogButtonBox::AcceptRole);
  buttons->addButton(cmdImportation[2], QDialogButtonBox::RejectRole);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(choice);
  layout->addWidget(pane_, 1);
  layout->addWidget(buttons);
}

void frmImportation::AppliqueLangue() {
  const std::int16_t langue = state_.Langue;
  Mnemonics letters;
  setWindowTitle(EnQt(Texte(langue, MsgId::ImportationFenetre)));
  constexpr std::array<int, 3> captions{MsgId::Parcourir, MsgId::Ok, MsgId::Annuler};
  for (std::size_t i = 0; i < captions.size(); ++i) {
    const std::string text = Texte(langue, captions[i]);
    cmdImportation[i]->setText(letters.Marque(text));
    cmdImportation[i]->setAccessibleName(EnQt(SansMnemonique(text)));
  }
  const std::string system = Texte(langue, MsgId::TypesCoord);
  lblImportation[lblSystemCaption]->setText(letters.Marque(system));
  cboImportation->setAccessibleName(EnQt(SansMnemonique(system)));
  lblImportation[lblFileCaption]->setText(EnQt(Texte(langue, MsgId::FichierAImporter)));
  lblImportation[lblStructureCaption]->setText(EnQt(Texte(langue, MsgId::StructureAttendue)));
  lblImportation[lblPreviewCaption]->setText(EnQt(Texte(langue, MsgId::TroisLignes)));
  const QSignalBlocker quiet(cboImportation);
  cboImportation->clear();
  for (const std::string& caption : choice_.Systemes()) cboImportation->addItem(EnQt(caption));
  cboImportation->setCurrentIndex(choice_.Indice());
}

void frmImportation::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  if (event->type() == QEvent::LanguageChange) {
    AppliqueLangue();
    MontreSysteme();
  }
  if (event->type() == QEvent::ActivationChange && isActiveWindow()) MontreSysteme();
}

/// What is to be known of the chosen system.
void frmImportation::MontreSysteme() {
  const auto index = static_cast<std::size_t>(choice_.Indice());
  structure_->Montre(EnQt(choice_.StructureAttendue().at(index)));
  pane_->MontreNotes(choice_.Notes());
}

void frmImportation::MontreFichier() {
  fichier_->Montre(EnQt(choice_.Fichier()));
  apercu_->Montre(EnQt(choice_.Apercu()));
}

void frmImportation::Repete() {
  MontreFichier();
  pane_->MontreNotes(choice_.Notes());
  auto plan = choice_.Plan();
  if (plan) return pane_->Repete(std::move(*plan));
  pane_->Arrete();
}

void frmImportation::cboImportation_Click(int index) {
  choice_.ChoisitSysteme(index);
  MontreSysteme();
  Repete();
}

void frmImportation::cmdImportation_Click(int index) {
  if (index == 2) return reject();
  if (index == 0) {
    if (!choice_.Parcourt()) return;
    chosen_ = true;
    return Repete();
  }
  choice_.Ok();
  accept();
}

void frmImportation::reject() {
  choice_.Annule();
  QDialog::reject();
}

}  // namespace talpena
