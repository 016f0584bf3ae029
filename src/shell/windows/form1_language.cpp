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
#include "platform/qt/mnemonics.h"
#include "shell/windows/form1.h"
#include "store/windows/tdb_grid.h"

namespace talpena {
namespace {

constexpr std::array captionsTri = {182, 183, 184, 185, 186, 187, 188, 137};

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
QString AvecTouche(const QString& caption, const QKeySequence& keys) {
  const QString key = keys.toString(QKeySequence::NativeText);
  return key.isEmpty() ? caption : QStringLiteral("%1 (%2)").arg(caption, key);
}

}  // namespace

void Form1::AppliqueLangue() {
  const auto texte = [this](int id) { return QString::fromStdString(Texte(state_.Langue, id)); };
  ParcourtMenus([this](const MenuEntry& entry) {
    if (entry.EstSeparateur() || entry.command == MenuCommand::LastFile) return;
    const QString caption = QString::fromStdString(LibelleMenu(entry, state_.Langue));
    const auto menu = menus_.find(NomObjet(entry));
    if (menu != menus_.end()) {
      menu->second->setTitle(caption);
    } else {
      actions_.at(NomObjet(entry))->setText(caption);
    }
  });
  actions_.at("MnuLang_" + std::to_string(state_.Langue / 1000))->setChecked(true);

  const std::array<const char*, 3> sameCommand = {"MnuOuvrir", "MnuEnregistrer", "MnuNouveau"};
  for (std::size_t i = 0; i < cmd.size(); ++i) {
    const QString caption = texte(MsgId::CmdOuvrir + static_cast<int>(i));
    cmd[i]->setText(caption);
    cmd[i]->setAccessibleName(caption);
    cmd[i]->setToolTip(i < sameCommand.size()
                           ? AvecTouche(caption, actions_.at(sameCommand[i])->shortcut())
                           : caption);
  }
  const std::string edit = SansMnemonique(Texte(state_.Langue, MsgId::Editer));
  cmd[3]->setToolTip(AvecTouche(QString::fromStdString(edit), TouchesEdition().first()));
  cmd[4]->setToolTip(AvecTouche(cmd[4]->text(), actions_.at("mnuChercher_0")->shortcut()));
  cmd[5]->setToolTip(AvecTouche(cmd[5]->text(), actions_.at("MnuSupprimer")->shortcut()));
  cmdMap->setText(texte(MsgId::Carte));
  cmdMap->setAccessibleName(texte(MsgId::Carte));
  cmdMap->setToolTip(AvecTouche(cmdMap->text(), ToucheCarte()));
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
  for (const MenuEntry& entry : ArbreDesMenus()) letters.Marque(LibelleMenu(entry, state_.Langue));
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
  ChangeLangueDesFenetres();
}

}  // namespace talpena
