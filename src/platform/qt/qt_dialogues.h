// Boxes and dialogs by Qt.
#pragma once
#include <QPointer>
#include <QWidget>
#include <memory>

#include "platform/dialogues.h"

class QDialog;
class QPrinter;

namespace talpena {

class QtPrinter;
class ToolkitTranslator;

/// Toolkit dialogs, not those of the desktop, so that they look and answer the same everywhere.
/// Object names: MessageBox, InputBox, OpenDialog, SaveDialog, FolderDialog, ColourDialog,
/// FontDialog, PrintDialog, PrintPreviewDialog. While one is up the pointer is no hourglass.
class QtDialogues : public Dialogues {
 public:
  QtDialogues();
  ~QtDialogues() override;

  /// Boxes stand over the modal window that is up, over this one, or over the active one.
  void ChangeParent(QWidget* parent) { parent_ = parent; }

  /// The buttons of message and input boxes, and all of the toolkit's own dialogs, speak this
  /// language from now on, whatever it becomes, also while they are up; until then they have the
  /// toolkit's captions.
  void SuitLangue(const std::int16_t& langue);

  Answer Demande(const MessageBox& box) override;
  std::string Saisie(const InputBox& box) override;
  /// A name that is typed need not exist. No suffix is added to it.
  std::string OuvreFichier(const FileDialog& dialog) override;
  /// The suffix of the chosen filter is added to a name without one.
  std::string EnregistreFichier(const FileDialog& dialog) override;
  std::string ChoisitDossier(const std::string& title, const std::string& start) override;
  std::uint32_t ChoisitCouleur(std::uint32_t start) override;
  Font ChoisitPolice(const Font& start) override;
  void Imprime() override;
  Printer& Imprimante() override;
  void Apercu(const std::function<void(Printer&)>& dessine) override;

  /// The current printer as the toolkit has it.
  QPrinter& ImprimanteNative();

 private:
  QWidget* Parent() const;

  QPointer<QWidget> parent_;
  const std::int16_t* langue_ = nullptr;
  std::unique_ptr<ToolkitTranslator> translator_;  ///< of the toolkit's texts, with the language
  std::unique_ptr<QtPrinter> printer_;             ///< made when first wanted
};

}  // namespace talpena
