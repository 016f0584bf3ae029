// Rows of a command table as actions of the toolkit.
#pragma once
#include <QAction>
#include <QKeySequence>
#include <QList>

#include "platform/command_table.h"
#include "platform/qt/controls.h"

namespace talpena {

/// The keys of a row; the first is the one that is told.
inline QList<QKeySequence> Touches(std::string_view keys) {
  if (keys.empty()) return {};
  return QKeySequence::listFromString(EnQt(keys), QKeySequence::PortableText);
}

/// The first key of a row as the user reads it; empty without one.
inline QString TexteTouche(std::string_view keys) {
  const QList<QKeySequence> all = Touches(keys);
  return all.empty() ? QString() : all.first().toString(QKeySequence::NativeText);
}

/// An action with the name and the keys of a row; its caption comes with the language.
template <typename Row>
QAction* NouvelleAction(const Row& row, QObject* owner) {
  auto* action = Nomme(new QAction(owner), QString::fromStdString(NomObjet(row)));
  action->setSeparator(row.EstSeparateur());
  action->setMenuRole(QAction::NoRole);
  action->setShortcuts(Touches(row.key));
  return action;
}

}  // namespace talpena
