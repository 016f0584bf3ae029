#include "platform/qt/file_filter.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace talpena {
namespace {

QStringList Motifs(const QString& patterns) {
  QStringList out;
  for (const QString& pattern : patterns.split(u';', Qt::SkipEmptyParts)) {
    const QString trimmed = pattern.trimmed();
    out << (trimmed == u"*.*"_s ? u"*"_s : trimmed);
  }
  return out;
}

/// The description without patterns in brackets at its end: Qt reads them there, so they are
/// written anew.
QString SansMotifs(const QString& description) {
  const QString trimmed = description.trimmed();
  const qsizetype open = trimmed.lastIndexOf(u'(');
  const bool patterns = open >= 0 && trimmed.endsWith(u')') && trimmed.indexOf(u'*', open) >= 0;
  return patterns ? trimmed.left(open).trimmed() : trimmed;
}

QString Suffixe(const QStringList& patterns) {
  if (patterns.isEmpty() || !patterns.front().startsWith(u"*."_s)) return {};
  const QString suffix = patterns.front().mid(2);
  return suffix.contains(u'*') || suffix.contains(u'?') ? QString() : suffix;
}

}  // namespace

std::vector<FileFilter> LitFiltres(std::string_view filter) {
  const QStringList parts =
      QString::fromUtf8(filter.data(), static_cast<qsizetype>(filter.size())).split(u'|');
  std::vector<FileFilter> filters;
  if (parts.size() == 1 && parts[0].contains(u'*')) {  // patterns that stand for themselves
    const QStringList patterns = Motifs(parts[0]);
    if (!patterns.isEmpty()) filters.push_back({patterns.join(u' '), Suffixe(patterns)});
  }
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
    const QStringList patterns = Motifs(parts[i + 1]);
    if (patterns.isEmpty()) continue;
    filters.push_back(
        {SansMotifs(parts[i]) + u" ("_s + patterns.join(u' ') + u')', Suffixe(patterns)});
  }
  return filters;
}

}  // namespace talpena
