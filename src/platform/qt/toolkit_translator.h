// The toolkit's own texts (file, colour and font dialogs, menus of edit fields) in the language
// of the program.
#pragma once
#include <QTranslator>
#include <array>
#include <cstdint>

namespace talpena {

/// Installed once, it follows the language as that changes. The texts come with the toolkit; those
/// of a language that are not installed stay English.
class ToolkitTranslator : public QTranslator {
 public:
  /// Opens the texts of all languages: while one is translated none may be opened.
  /// @param langue  1000 x language index; outlives the translator
  explicit ToolkitTranslator(const std::int16_t& langue);

  bool isEmpty() const override { return false; }
  QString translate(const char* context, const char* sourceText, const char* disambiguation,
                    int n) const override;

 private:
  const std::int16_t& langue_;
  std::array<QTranslator, 6> texts_;  ///< by language index
};

}  // namespace talpena
