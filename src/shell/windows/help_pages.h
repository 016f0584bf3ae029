// The user guide as chapters and sections, and the search in it.
#pragma once
#include <QString>
#include <QStringList>
#include <optional>
#include <utility>
#include <vector>

#include "platform/qt/packed_files.h"

namespace talpena {

/// From one heading of a chapter to the next.
struct HelpSection {
  QString anchor;  ///< id of the heading; empty for what stands before the first h2
  QString title;   ///< of the heading; that of the chapter before the first h2
  QString text;    ///< what is read, one line for each paragraph, list item or table cell
};

struct HelpChapter {
  QString page;  ///< file name, "table.html"
  QString title;
  std::vector<HelpSection> sections;  ///< the first one is the head of the chapter
};

/// A section that has what was searched for.
struct HelpHit {
  QString target;   ///< "table.html#find"
  QString title;    ///< of the section
  QString context;  ///< its chapter, and what stands around the first word
};

/// A text in which letter case, accents and ligatures are gone, and where its characters were.
struct FoldedText {
  QString text;
  std::vector<int> origin;  ///< position of each character in the text, and at the end its length
};

FoldedText Plie(const QString& text);

/// Where the words stand in a text: start and length, in order, none over another.
std::vector<std::pair<int, int>> TrouveMots(const QString& text, const QString& words);

/// The guide in one language: what a .HLP file holds. Its folder has "index.html", whose links
/// name the chapters in their order.
class HelpBook {
 public:
  /// Empty when the bytes are not those of a guide, or have none in this folder.
  static std::optional<HelpBook> Ouvre(const QByteArray& bytes, const QString& folder);

  /// The page of contents and the chapters behind it.
  const std::vector<HelpChapter>& Chapitres() const { return chapters_; }
  /// A file by its path in the guide, "fr/table.html"; empty when there is none.
  QByteArray Fichier(const QString& path) const { return files_.value(path); }
  QStringList Fichiers() const { return files_.keys(); }
  const QString& Dossier() const { return folder_; }

  /// Sections that hold every word, headings before texts, in the order of the guide. Parts of
  /// words count; letter case and accents do not. None for a text of blanks.
  std::vector<HelpHit> Cherche(const QString& words) const;

 private:
  PackedFiles files_;
  QString folder_;
  std::vector<HelpChapter> chapters_;
};

}  // namespace talpena
