#include "platform/qt/toolkit_translator.h"

#include <QLibraryInfo>

namespace talpena {
namespace {

/// By language index; empty where the toolkit speaks it by itself, or nobody does.
constexpr std::array<const char*, 6> codes = {"fr", "", "", "de", "it", "nl"};

}  // namespace

ToolkitTranslator::ToolkitTranslator(const std::int16_t& langue) : langue_(langue) {
  const QString folder = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
  for (std::size_t i = 0; i < codes.size(); ++i) {
    if (*codes[i] == '\0') continue;
    // Not there: what is shown is English.
    std::ignore = texts_[i].load(QStringLiteral("qtbase_") + QLatin1String(codes[i]), folder);
  }
}

QString ToolkitTranslator::translate(const char* context, const char* sourceText,
                                     const char* disambiguation, int n) const {
  const auto index = static_cast<std::size_t>(langue_ / 1000);
  if (index >= texts_.size()) return {};
  return texts_[index].translate(context, sourceText, disambiguation, n);
}

}  // namespace talpena
