#include "platform/qt/mnemonics.h"

#include <map>
#include <set>

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

/// Where a caption could be marked: starts of words first.
std::vector<qsizetype> Places(const QString& text) {
  std::vector<qsizetype> places;
  for (const bool wordStart : {true, false}) {
    for (qsizetype i = 0; i < text.size(); ++i) {
      const bool starts = i == 0 || text[i - 1] == u' ';
      const bool plain = text[i].unicode() < 0x80 && text[i].isLetterOrNumber();
      if (plain && starts == wordStart) places.push_back(i);
    }
  }
  return places;
}

/// Captions and letters, each matched to one of the other kind. An augmenting path moves earlier
/// captions to other letters (Kuhn 1955).
class Matching {
 public:
  Matching(std::vector<QString> texts, QString taken)
      : texts_(std::move(texts)), taken_(std::move(taken)) {}

  bool Place(std::size_t caption, std::set<QChar>& seen) {
    for (const bool makeRoom : {false, true}) {
      for (const qsizetype at : Places(texts_[caption])) {
        const QChar letter = texts_[caption][at].toLower();
        const auto owner = owners_.find(letter);
        const bool owned = owner != owners_.end();
        if (owned != makeRoom || taken_.contains(letter)) continue;
        if (owned && (!seen.insert(letter).second || !Place(owner->second.first, seen))) continue;
        owners_[letter] = {caption, at};
        return true;
      }
    }
    return false;
  }
  /// The letters given; the texts have their marks then.
  QString Marque() {
    QString letters;
    for (const auto& [letter, owner] : owners_) {
      letters += letter;
      texts_[owner.first].insert(owner.second, u'&');
    }
    return letters;
  }
  const std::vector<QString>& Textes() const { return texts_; }

 private:
  std::vector<QString> texts_;
  QString taken_;
  std::map<QChar, std::pair<std::size_t, qsizetype>> owners_;
};

}  // namespace

std::vector<QString> Mnemonics::MarqueTous(const std::vector<std::string>& captions) {
  std::vector<QString> texts;
  texts.reserve(captions.size());
  for (const std::string& caption : captions) texts.push_back(QString::fromStdString(caption));
  Matching matching(std::move(texts), taken_);
  for (std::size_t i = 0; i < captions.size(); ++i) {
    std::set<QChar> seen;
    matching.Place(i, seen);
  }
  taken_ += matching.Marque();
  return matching.Textes();
}

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
