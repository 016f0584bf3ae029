#include "store/record/free_text.h"

#include "common/line_breaks.h"
#include "common/text.h"

namespace talpena {
namespace {

std::string SansRetour(std::string_view text) { return Remplace(text, "\r", ""); }

/// The pieces between the first `most` separators.
std::vector<std::string> Segments(std::string_view text, std::string_view separator,
                                  std::size_t most) {
  std::vector<std::string> segments;
  while (segments.size() < most) {
    const std::size_t at = text.find(separator);
    if (at == std::string_view::npos) break;
    segments.emplace_back(text.substr(0, at));
    text.remove_prefix(at + separator.size());
  }
  segments.emplace_back(text);
  return segments;
}

}  // namespace

FreeText DecoupeTexteLibre(std::string_view comment, std::string_view separator,
                           std::size_t count) {
  FreeText text;
  text.fields.resize(count);
  // Blanks at the ends that are separators are not trimmed.
  const std::string_view whole = separator == " " ? comment : Rogne(comment);
  std::vector<std::string> segments = Segments(whole, separator, separator.empty() ? 0 : count);
  if (segments.size() == 1 || segments.size() > count) {
    text.remark = Remplace(SansRetour(segments.back()), "\n", "\r\n");
    segments.pop_back();
  }
  for (std::size_t i = 0; i < segments.size(); ++i) text.fields[i] = std::move(segments[i]);
  return text;
}

std::string AssembleTexteLibre(const std::vector<std::string>& fields, std::string_view remark,
                               std::string_view separator) {
  std::string comment;
  for (const std::string& field : fields) comment.append(SurUneLigne(field)).append(separator);
  return comment + AvecSautsLf(SansRetour(remark));
}

}  // namespace talpena
