#include "coords/windows/ajustement.h"

#include <QDialogButtonBox>
#include <QEvent>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "common/msg_id.h"
#include "common/string_table.h"
#include "platform/qt/mnemonics.h"

namespace talpena {
namespace {

/// A group box with one option below the other.
template <std::size_t N>
QGroupBox* Cadre(QWidget* parent, const QString& name, std::array<QRadioButton*, N>& options,
                 const QString& optionName, std::size_t firstIndex) {
  auto* frame = new QGroupBox(parent);
  frame->setObjectName(name);
  auto* layout = new QVBoxLayout(frame);
  for (std::size_t i = 0; i < N; ++i) {
    options[i] = new QRadioButton(frame);
    options[i]->setObjectName(optionName.arg(i + firstIndex));
    layout->addWidget(options[i]);
  }
  layout->addStretch();
  return frame;
}

/// Checks an option by its place; one that is not there changes nothing.
template <std::size_t N>
void Coche(const std::array<QRadioButton*, N>& options, int place) {
  if (place >= 0 && place < static_cast<int>(N)) {
    options[static_cast<std::size_t>(place)]->setChecked(true);
  }
}

/// Place of the checked option.
template <std::size_t N>
std::int16_t Cochee(const std::array<QRadioButton*, N>& options) {
  std::int16_t place = 0;
  while (!options.at(static_cast<std::size_t>(place))->isChecked()) ++place;
  return place;
}

}  // namespace

Ajustement::Ajustement(CoordState& state, QWidget* parent) : QDialog(parent), state_(state) {
  setObjectName("Ajustement");
  setModal(true);
  Construit();
  Dispose();
  AppliqueLangue();
  Montre();
  connect(ButOk, &QPushButton::clicked, this, &Ajustement::ButOk_Click);
  connect(ButEsc, &QPushButton::clicked, this, &Ajustement::reject);
}

void Ajustement::Construit() {
  FrameAjust = Cadre(this, "FrameAjust", OptionAjust, "OptionAjust_%1", 0);
  FrameAjustGrid = Cadre(this, "FrameAjustGrid", OptionAjustGrid, "OptionAjustGrid_%1", 1);
  ButOk = new QPushButton(this);
  ButOk->setObjectName("ButOk");
  ButOk->setDefault(true);
  ButEsc = new QPushButton(this);
  ButEsc->setObjectName("ButEsc");
}

void Ajustement::Dispose() {
  auto* layout = new QVBoxLayout(this);
  auto* frames = new QHBoxLayout;
  frames->addWidget(FrameAjust, 1);
  frames->addWidget(FrameAjustGrid, 1);
  layout->addLayout(frames);
  auto* buttons = new QDialogButtonBox(this);
  buttons->addButton(ButOk, QDialogButtonBox::AcceptRole);
  buttons->addButton(ButEsc, QDialogButtonBox::RejectRole);
  layout->addWidget(buttons);
}

void Ajustement::AppliqueLangue() {
  Mnemonics letters;
  const auto pose = [&](auto* button, int caption) {
    const std::string text = Texte(state_.Langue, caption);
    button->setText(letters.Marque(text));
    button->setAccessibleName(QString::fromStdString(SansMnemonique(text)));
  };
  const auto titre = [&](int caption) {
    return QString::fromStdString(SansMnemonique(Texte(state_.Langue, caption)));
  };
  setWindowTitle(titre(MsgId::AjusterFenetre));
  FrameAjust->setTitle(titre(MsgId::Maille));
  FrameAjustGrid->setTitle(titre(MsgId::AjusterA));
  pose(ButOk, MsgId::Ok);  // the words take their letters before the numbers of metres do
  pose(ButEsc, MsgId::Annuler);
  int caption = MsgId::GrilleUtm;
  for (QRadioButton* option : OptionAjustGrid) pose(option, caption++);
  caption = MsgId::AucunAjustement;
  for (QRadioButton* option : OptionAjust) pose(option, caption++);
}

void Ajustement::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  if (event->type() == QEvent::LanguageChange) AppliqueLangue();
}

void Ajustement::Montre() {
  OptionAjust[0]->setChecked(true);
  OptionAjustGrid[0]->setChecked(true);
  Coche(OptionAjust, state_.MailleChoisie);
  Coche(OptionAjustGrid, state_.GrilleChoisie - 1);
  OptionAjust.at(static_cast<std::size_t>(Cochee(OptionAjust)))->setFocus();
}

void Ajustement::ButOk_Click() {
  state_.MailleChoisie = Cochee(OptionAjust);
  state_.GrilleChoisie = static_cast<std::int16_t>(Cochee(OptionAjustGrid) + 1);
  accept();
}

}  // namespace talpena
