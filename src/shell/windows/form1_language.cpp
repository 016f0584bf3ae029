// Captions of Form1 in the current language.
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QToolButton>

#include "common/msg_id.h"
#include "common/string_table.h"
#include "platform/qt/command_actions.h"
#include "platform/qt/mnemonics.h"
#include "shell/windows/form1.h"
#include "store/windows/tdb_grid.h"

namespace talpena {
namespace {

constexpr std::array captionsTri = {
    MsgId::Periode, MsgId::ExportLatitude, MsgId::ExportLongitude,       MsgId::Nombre1,
    MsgId::Nombre2, MsgId::Ellipsoide,     MsgId::ExportCoordOriginales, MsgId::Date};

/// Has every window that is up speak the current language, and what it owns with it: the toolkit
/// hands the event on to the windows and controls below.
void ChangeLangueDesFenetres() {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->parentWidget() != nullptr) continue;
    QEvent change(QEvent::LanguageChange);
    QCoreApplication::sendEvent(window, &change);
  }
}

/// A caption, and behind it the key that does the same.
QString AvecTouche(const QString& caption, const QString& key) {
  return key.isEmpty() ? caption : QStringLiteral("%1 (%2)").arg(caption, key);
}

}  // namespace

void Form1::AppliqueLangue() {
  const auto texte = [this](int id) { return QString::fromStdString(Texte(state_.Langue, id)); };
  Parcourt(ArbreDesMenus(), [this](const MenuEntry& entry) {
    if (entry.EstSeparateur() || SansLibelle(entry)) return;
    const QString caption = QString::fromStdString(Libelle(entry, state_.Langue));
    const auto menu = menus_.find(NomObjet(entry));
    if (menu != menus_.end()) {
      menu->second->setTitle(caption);
    } else {
      actions_.at(NomObjet(entry))->setText(caption);
    }
  });
  actions_.at("MnuLang_" + std::to_string(state_.Langue / 1000))->setChecked(true);

  for (const auto& [button, entry] : outils_) {
    const QString caption = QString::fromStdString(Libelle(*entry, state_.Langue));
    const QString help =
        entry->help == 0
            ? caption
            : QString::fromStdString(SansMnemonique(Texte(state_.Langue, entry->help)));
    button->setText(caption);
    button->setAccessibleName(caption);
    button->setToolTip(AvecTouche(help, TexteTouche(RangeeDe(ArbreDesMenus(), *entry).key)));
  }
  for (std::size_t i = 0; i < cmdFirstLast.size(); ++i) {
    const QString caption = texte(MsgId::PremiereLigne + static_cast<int>(i));
    cmdFirstLast[i]->setToolTip(caption);
    cmdFirstLast[i]->setAccessibleName(caption);
  }

  SouligneLettres();
  const QSignalBlocker unsorted(CmbTri);  // other words for the order that the grid has
  CmbTri->clear();
  CmbTri->addItem(QStringLiteral("None"));
  for (const int id : captionsTri) CmbTri->addItem(texte(id));
  CmbTri->addItem(QStringLiteral("Sex"));
  CmbTri->setCurrentIndex(sortIndex_);
  CmbTri->setAccessibleName(texte(MsgId::OrdreTri));
  TDBGrid1->setAccessibleName(texte(MsgId::TableDonnees));

  const QString hint = QStringLiteral(
      "<p style='font-size:x-large'>%1</p><p><a href='open'>%2</a>"
      " &nbsp; Ctrl+O &nbsp;&nbsp;&nbsp;&nbsp; "
      "<a href='new'>%3</a> &nbsp; Ctrl+N</p>");
  lbl1->setText(
      hint.arg(texte(MsgId::AucunFichier), texte(MsgId::CmdOuvrir), texte(MsgId::CmdNouveau)));
  AjusteOutils();
}

/// The captions beside the menus, with letters that no menu has.
void Form1::SouligneLettres() {
  Mnemonics letters;
  for (const MenuEntry& entry : ArbreDesMenus()) letters.Marque(Libelle(entry, state_.Langue));
  const auto marque = [&](int id) { return letters.Marque(Texte(state_.Langue, id)); };
  LblTri->setText(marque(MsgId::Tri));
  for (std::size_t i = 0; i < OptTri.size(); ++i) {
    OptTri[i]->setText(marque(MsgId::Croissant + static_cast<int>(i)));
  }
  LabelTitre->setText(marque(MsgId::Titre));
  LabelCommentaire->setText(marque(MsgId::CommentaireTitre));
}

void Form1::InitFenetres() {
  const auto texte = [this](int id) { return QString::fromStdString(Texte(state_.Langue, id)); };
  BoxTitre_->setAccessibleName(texte(MsgId::Titre));
  Commentaire_->setAccessibleName(texte(MsgId::CommentaireTitre));
  centralWidget()->setAccessibleName(texte(MsgId::Distribution));
  AfficheFiltre();
  AffichePanneauDatum();
  ChangeLangueDesFenetres();
}

}  // namespace talpena
