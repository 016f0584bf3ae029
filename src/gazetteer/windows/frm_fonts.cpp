#include "gazetteer/windows/frm_fonts.h"

#include <QDialogButtonBox>
#include <QEvent>
#include <QFontDatabase>
#include <QFontInfo>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <string>
#include <string_view>

#include "common/msg_id.h"
#include "common/msg_id_gazetteer.h"
#include "common/numbers.h"
#include "common/string_table.h"
#include "common/text.h"
#include "gazetteer/gazetteer_settings.h"
#include "platform/commands.h"
#include "platform/qt/controls.h"
#include "platform/qt/mnemonics.h"

using namespace Qt::StringLiterals;

namespace talpena {
namespace {

/// The same in every language.
constexpr std::array<std::string_view, RegionCount> regions{"1. Western Europe and the Americas",
                                                            "2. Eastern Europe",
                                                            "3. Africa and the Middle East",
                                                            "4. Russia and Central Asia",
                                                            "5. Asia and the Pacific",
                                                            "6. Vietnam"};

QFont Police(const RegionFont& font) { return {EnQt(font.Nom), font.Taille}; }

}  // namespace

frmFonts::frmFonts(const SharedState& state, Platform& io, GazetteerState& gazetteer,
                   QWidget* parent)
    : QDialog(parent), state_(state), io_(io), gazetteer_(gazetteer) {
  setObjectName(u"frmFonts"_s);
  setModal(true);
  polices_ = ChargePolices(io.settings);
  Construit();
  Dispose();
  AppliqueLangue();
  Montre();
}

void frmFonts::Construit() {
  for (std::size_t i = 0; i < RegionCount; ++i) {
    lblRegion[i] = Nomme(new QLabel(EnQt(regions[i]), this), NomIndexe("lblRegion", i));
    lblFont[i] = Nomme(new QLabel(this), NomIndexe("lblFont", i));
    lblSize[i] = Nomme(new QLabel(this), NomIndexe("lblSize", i));
    lblSubstitut[i] = Nomme(new QLabel(this), NomIndexe("lblSubstitut", i));
    cmdOpen[i] = Nomme(new QPushButton(this), NomIndexe("cmdOpen", i));
    cmdOpen[i]->setAutoDefault(false);
    connect(cmdOpen[i], &QPushButton::clicked, this, [this, i] { cmdOpen_Click(i); });
  }
  for (std::size_t i = 0; i < cmdFont.size(); ++i) {
    cmdFont[i] = Nomme(new QPushButton(this), NomIndexe("cmdFont", i));
    connect(cmdFont[i], &QPushButton::clicked, this,
            [this, i] { cmdFont_Click(static_cast<int>(i)); });
  }
  cmdFont[0]->setDefault(true);
}

void frmFonts::Dispose() {
  auto* layout = new QVBoxLayout(this);
  auto* grid = new QGridLayout;
  for (std::size_t i = 0; i < RegionCount; ++i) {
    const int row = static_cast<int>(i);
    grid->addWidget(lblRegion[i], row, 0);
    grid->addWidget(lblFont[i], row, 1);
    grid->addWidget(lblSize[i], row, 2);
    grid->addWidget(lblSubstitut[i], row, 3);
    grid->addWidget(cmdOpen[i], row, 4);
  }
  grid->setColumnStretch(3, 1);
  grid->setHorizontalSpacing(fontMetrics().averageCharWidth() * 3);
  layout->addLayout(grid);
  auto* buttons = new QDialogButtonBox(this);
  buttons->addButton(cmdFont[0], QDialogButtonBox::AcceptRole);
  buttons->addButton(cmdFont[1], QDialogButtonBox::RejectRole);
  layout->addWidget(buttons);
}

void frmFonts::Montre() {
  for (std::size_t i = 0; i < RegionCount; ++i) {
    const QFont font = Police(polices_[i]);
    const bool there = QFontDatabase::hasFamily(EnQt(polices_[i].Nom));
    lblFont[i]->setText(EnQt(polices_[i].Nom));
    lblFont[i]->setFont(font);
    lblSize[i]->setText(EnQt(Str(std::int64_t{polices_[i].Taille})));
    lblSubstitut[i]->setText(there ? QString()
                                   : EnQt(Remplace(Texte(state_.Langue, MsgId::SetupAbsente), "%1",
                                                   QFontInfo(font).family().toStdString())));
  }
}

void frmFonts::AppliqueLangue() {
  Mnemonics letters;
  setWindowTitle(EnQt(Texte(state_.Langue, MsgId::PolicesFenetre)));
  constexpr std::array captions{MsgId::BoutonOk, MsgId::BoutonAnnuler};
  for (std::size_t i = 0; i < captions.size(); ++i) {
    cmdFont[i]->setText(letters.Marque(Texte(state_.Langue, captions[i])));
    cmdFont[i]->setAccessibleName(EnQt(SansMnemonique(Texte(state_.Langue, captions[i]))));
  }
  const std::string change = SansMnemonique(Texte(state_.Langue, MsgId::Changer));
  for (std::size_t i = 0; i < RegionCount; ++i) {
    cmdOpen[i]->setText(u"&%1 %2"_s.arg(i + 1).arg(EnQt(change)));
    cmdOpen[i]->setAccessibleName(EnQt(regions[i]) + u": "_s + EnQt(change));
  }
}

void frmFonts::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  if (event->type() != QEvent::LanguageChange) return;
  AppliqueLangue();
  Montre();
}

void frmFonts::cmdOpen_Click(std::size_t index) {
  ExecuteCommande(state_, io_, {}, [&] {
    RegionFont& font = polices_[index];
    const Font chosen = io_.dialogues.ChoisitPolice(
        {.family = font.Nom, .sizePoints = static_cast<double>(font.Taille)});
    font = {chosen.family, Arrondi16(chosen.sizePoints)};
    Montre();
  });
}

void frmFonts::cmdFont_Click(int index) {
  if (index == 1) return reject();
  ExecuteCommande(state_, io_, {}, [&] {
    SauvePolices(io_.settings, polices_);
    gazetteer_.Polices = polices_;
    accept();
  });
}

}  // namespace talpena
