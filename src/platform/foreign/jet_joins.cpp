#include "platform/foreign/jet_joins.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "common/text.h"

namespace talpena {
namespace {

constexpr std::array<std::string_view, 4> mots = {"", " INNER JOIN ", " LEFT JOIN ",
                                                  " RIGHT JOIN "};

JoinKind Inverse(JoinKind kind) {
  return kind == JoinKind::Left ? JoinKind::Right : kind == JoinKind::Right ? JoinKind::Left : kind;
}

}  // namespace

void JoinForest::AjouteSource(std::string_view name, std::string sql) {
  Node source;
  source.name = Minuscules(name);
  source.sql = std::move(sql);
  nodes_.push_back(std::move(source));
}

std::optional<int> JoinForest::Trouve(std::string_view name) const {
  const auto found = std::find_if(nodes_.begin(), nodes_.end(), [&](const Node& node) {
    return node.left < 0 && node.name == Minuscules(name);
  });
  if (found == nodes_.end()) return {};
  return static_cast<int>(found - nodes_.begin());
}

int JoinForest::Racine(int node) const {
  while (Noeud(node).parent >= 0) node = Noeud(node).parent;
  return node;
}

bool JoinForest::Joint(std::string_view left, std::string_view right, JoinKind kind,
                       std::string_view condition) {
  const auto a = Trouve(left);
  const auto b = Trouve(right);
  if (!a || !b || *a == *b) return false;
  const int rootA = Racine(*a);
  const int rootB = Racine(*b);
  if (rootA == rootB) return Complete(*a, *b, kind, condition);
  Node join;
  join.left = rootA;
  join.right = rootB;
  join.kind = kind;
  join.conditions.emplace_back(condition);
  nodes_.push_back(std::move(join));
  const int made = static_cast<int>(nodes_.size()) - 1;
  Noeud(rootA).parent = made;
  Noeud(rootB).parent = made;
  return true;
}

/// One more condition between two sources of one tree.
bool JoinForest::Complete(int a, int b, JoinKind kind, std::string_view condition) {
  std::vector<int> above;  // every node over a
  for (int node = a; node >= 0; node = Noeud(node).parent) above.push_back(node);
  int below = b;
  int common = Noeud(b).parent;
  while (std::find(above.begin(), above.end(), common) == above.end()) {
    below = common;
    common = Noeud(common).parent;
  }
  Node& join = Noeud(common);
  if (below == join.left) kind = Inverse(kind);
  if (join.kind != kind) return false;
  join.conditions.emplace_back(condition);
  return true;
}

void JoinForest::Ecrit(int node, std::string& sql) const {
  const Node& n = Noeud(node);
  if (n.left < 0) {
    sql += n.sql;
    return;
  }
  const auto side = [&](int child) {
    const bool join = Noeud(child).left >= 0;
    if (join) sql += '(';
    Ecrit(child, sql);
    if (join) sql += ')';
  };
  side(n.left);
  sql += mots[static_cast<std::size_t>(n.kind)];
  side(n.right);
  const bool several = n.conditions.size() > 1;
  for (std::size_t i = 0; i < n.conditions.size(); ++i) {
    sql += i == 0 ? " ON " : " AND ";
    sql += several ? "(" + n.conditions[i] + ")" : n.conditions[i];
  }
}

std::string JoinForest::Sql() const {
  std::string sql;
  for (std::size_t i = 0; i < nodes_.size(); ++i) {
    if (nodes_[i].parent >= 0) continue;
    if (!sql.empty()) sql += ", ";
    Ecrit(static_cast<int>(i), sql);
  }
  return sql;
}

}  // namespace talpena
