// Boxes and dialogs by Qt.
#pragma once
#include <QPointer>
#include <QWidget>

#include "platform/dialogues.h"

namespace talpena {

class QtDialogues : public Dialogues {
 public:
  /// Boxes stand over this window, or over the active one.
  void ChangeParent(QWidget* parent) { parent_ = parent; }

  Answer Demande(const MessageBox& box) override;
  std::string Saisie(const InputBox& box) override;
  std::string OuvreFichier(const FileDialog& dialog) override;
  std::string EnregistreFichier(const FileDialog& dialog) override;
  std::string ChoisitDossier(const std::string& title, const std::string& start) override;
  std::uint32_t ChoisitCouleur(std::uint32_t start) override;
  Font ChoisitPolice(const Font& start) override;
  void Imprime() override;

 private:
  QPointer<QWidget> parent_;
};

}  // namespace talpena
