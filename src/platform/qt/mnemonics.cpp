#include "platform/qt/mnemonics.h"

namespace talpena {
namespace {

/// Position behind the first mark that is no doubled "&"; -1 when there is none.
qsizetype Marquee(const QString& caption) {
  for (qsizetype i = 0; i + 1 < caption.size(); ++i) {
    if (caption[i] != u'&') continue;
    if (caption[i + 1] != u'&') return i + 1;
    ++i;
  }
  return -1;
}

}  // namespace

bool Mnemonics::Prend(QChar letter) {
  const QChar lower = letter.toLower();
  if (!lower.isLetterOrNumber() || taken_.contains(lower)) return false;
  taken_ += lower;
  return true;
}

QString Mnemonics::Marque(const std::string& caption) {
  QString text = QString::fromStdString(caption);
  if (const qsizetype marked = Marquee(text); marked >= 0) {
    Prend(text[marked]);
    return text;
  }
  for (const bool wordStart : {true, false}) {
    for (qsizetype i = 0; i < text.size(); ++i) {
      if (wordStart && i > 0 && text[i - 1] != u' ') continue;
      if (Prend(text[i])) return text.insert(i, u'&');
    }
  }
  return text;
}

}  // namespace talpena
