#include "store/windows/typed_list.h"

#include <QKeyEvent>
#include <QListView>
#include <QWheelEvent>
#include <algorithm>
#include <utility>
#include <vector>

namespace talpena {
namespace {

constexpr int pauseMs = 1200;  ///< longer ones end the text: names are typed slower than letters

/// A text as it is compared.
QString Plie(const QString& text) {
  QString folded;
  for (const QChar c : text.normalized(QString::NormalizationForm_D).toCaseFolded()) {
    if (c.category() != QChar::Mark_NonSpacing) folded += c;
  }
  return folded;
}

/// The entries that are on show, which take letters as the closed list does.
class Entrees final : public QListView {
 public:
  explicit Entrees(TypedList* list) : QListView(list), list_(list) {}

  void keyboardSearch(const QString& typed) override {
    if (const auto found = list_->Cherche(typed)) setCurrentIndex(model()->index(*found, 0));
  }

 private:
  TypedList* list_;
};

bool EstTape(const QKeyEvent& event) {
  return !event.text().isEmpty() && event.text()[0].isPrint() &&
         (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) == 0;
}

}  // namespace

TypedList::TypedList(QWidget* parent) : QComboBox(parent) {
  setView(new Entrees(this));
  setFocusPolicy(Qt::StrongFocus);
  pause_.setSingleShot(true);
  pause_.setInterval(pauseMs);
  connect(&pause_, &QTimer::timeout, this, &TypedList::Valide);
}

std::optional<int> TypedList::Cherche(const QString& typed) {
  if (!pause_.isActive()) typed_.clear();
  pause_.start();
  const QString wanted = Plie(typed_ + typed);
  const auto premiere = [&](int role) -> std::optional<int> {
    for (int i = 0; i < count(); ++i) {
      if (Plie(itemData(i, role).toString()).startsWith(wanted)) return i;
    }
    return {};
  };
  auto found = premiere(Qt::UserRole);
  if (!found) found = premiere(Qt::DisplayRole);
  if (found) typed_ += typed;
  return found;
}

void TypedList::Tape(const QString& typed) {
  const auto found = Cherche(typed);
  if (!found) return;
  if (!montree_) before_ = currentIndex();
  montree_ = *found;
  setCurrentIndex(*found);
  const QString wanted = Plie(typed_);
  int fitting = 0;
  for (int i = 0; i < count(); ++i) {
    fitting +=
        Plie(itemData(i).toString()).startsWith(wanted) || Plie(itemText(i)).startsWith(wanted);
  }
  if (fitting > 1) return;
  // What follows of its name still belongs to it.
  const int chosen = *std::exchange(montree_, {});
  if (chosen != before_) Q_EMIT activated(chosen);
}

void TypedList::Valide() {
  if (!montree_) return;
  pause_.stop();
  const int chosen = *std::exchange(montree_, {});
  if (chosen == currentIndex() && chosen != before_) Q_EMIT activated(chosen);
}

void TypedList::Abandonne() {
  pause_.stop();
  if (std::exchange(montree_, {})) setCurrentIndex(before_);
}

void TypedList::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape && montree_) return Abandonne();
  // The first blank opens the list; those of a name belong to it.
  const bool opens = event->key() == Qt::Key_Space && !pause_.isActive();
  if (EstTape(*event) && !opens) return Tape(event->text());
  pause_.stop();
  Valide();
  QComboBox::keyPressEvent(event);
}

void TypedList::focusOutEvent(QFocusEvent* event) {
  QComboBox::focusOutEvent(event);
  // Later, because boxes may be shown, and this is the middle of a change of focus.
  if (montree_ && event->reason() != Qt::PopupFocusReason)
    QMetaObject::invokeMethod(this, &TypedList::Valide, Qt::QueuedConnection);
}

bool TypedList::focusNextPrevChild(bool next) {
  Valide();
  return QComboBox::focusNextPrevChild(next);
}

// A turn of the wheel over the list is meant for the form.
void TypedList::wheelEvent(QWheelEvent* event) { event->ignore(); }

}  // namespace talpena
