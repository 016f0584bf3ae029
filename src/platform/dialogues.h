// What the user is asked and told in boxes of their own.
#pragma once
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "platform/printer.h"

namespace talpena {

enum class Icon { None, Information, Question, Exclamation, Stop };
enum class Buttons { Ok, OkCancel, YesNo, YesNoCancel };
enum class Answer { Ok, Cancel, Yes, No };

struct MessageBox {
  std::string text;
  Icon icon = Icon::None;
  Buttons buttons = Buttons::Ok;
  std::optional<Answer> defaultButton = {};  ///< the first button when empty
  std::string title = "Talpena";
  std::string detail = {};             ///< below the text: the file that it is about
  std::optional<Answer> closing = {};  ///< of Escape and the close box; Cancel or No when empty
};

struct InputBox {
  std::string prompt;
  std::string title = "Talpena";
  std::string text = {};  ///< offered at first
};

struct FileDialog {
  std::string title = {};       ///< empty: the toolkit's own
  std::string filter;           ///< "Distribution (*.deg)|*.deg", pairs joined by "|"
  std::string folder = {};      ///< where the dialog starts
  std::string name = {};        ///< name (or path) offered at first
  bool confirmReplace = false;  ///< saving only
};

struct Font {
  std::string family;
  double sizePoints = 10;
  bool bold = false;
  bool italic = false;
};

/// Cancel raises TalpenaError Cancelled (32755) in every dialog but Demande and Saisie.
class Dialogues {
 public:
  virtual ~Dialogues() = default;
  /// A message box. Closing it counts as Cancel, as No without a Cancel button, else as Ok.
  virtual Answer Demande(const MessageBox& box) = 0;
  virtual std::string Saisie(const InputBox& box) = 0;  ///< "" on Cancel
  virtual std::string OuvreFichier(const FileDialog& dialog) = 0;
  virtual std::string EnregistreFichier(const FileDialog& dialog) = 0;
  virtual std::string ChoisitDossier(const std::string& title, const std::string& start) = 0;
  virtual std::uint32_t ChoisitCouleur(std::uint32_t start) = 0;  ///< 0xBBGGRR
  virtual Font ChoisitPolice(const Font& start) = 0;
  virtual void Imprime() = 0;  ///< the print dialog; the printer that it set is the current one
  virtual Printer& Imprimante() = 0;  ///< the current printer
  /// What `dessine` prints, on the screen, where it can be printed. A failure of `dessine` closes
  /// it and goes on to the caller. Leaving it is no Cancel.
  virtual void Apercu(const std::function<void(Printer&)>& dessine) = 0;
};

}  // namespace talpena
