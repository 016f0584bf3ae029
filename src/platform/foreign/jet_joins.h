// The FROM clause of a saved query: its sources, and what joins them.
#pragma once
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace talpena {

enum class JoinKind : std::uint8_t { Inner = 1, Left, Right };

/// A forest: each source a leaf, each join a node over two trees. Sources that nothing joins stand
/// with commas between them.
class JoinForest {
 public:
  /// @param name  by which joins call it
  /// @param sql   how it is written
  void AjouteSource(std::string_view name, std::string sql);

  /// Joins the trees that hold two sources. Where they are in one tree already the condition goes
  /// to the join that brought them together.
  ///
  /// @return false when a source is unknown, or the two are joined in another way
  bool Joint(std::string_view left, std::string_view right, JoinKind kind,
             std::string_view condition);

  /// Empty without sources.
  std::string Sql() const;

 private:
  struct Node {
    int parent = -1;
    int left = -1, right = -1;  ///< -1 of a source
    JoinKind kind = JoinKind::Inner;
    std::string name;  ///< of a source, in small letters
    std::string sql;   ///< of a source
    std::vector<std::string> conditions;
  };

  std::optional<int> Trouve(std::string_view name) const;
  Node& Noeud(int i) { return nodes_[static_cast<std::size_t>(i)]; }
  const Node& Noeud(int i) const { return nodes_[static_cast<std::size_t>(i)]; }
  int Racine(int node) const;
  bool Complete(int a, int b, JoinKind kind, std::string_view condition);
  void Ecrit(int node, std::string& sql) const;

  std::vector<Node> nodes_;
};

}  // namespace talpena
