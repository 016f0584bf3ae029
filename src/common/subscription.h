// Observers that are told of something until they are gone.
#pragma once
#include <algorithm>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace talpena {

/// Keeps an observer for as long as it lives. It may outlive what is observed.
class Subscription {
 public:
  Subscription() = default;
  explicit Subscription(std::shared_ptr<void> observer) : observer_(std::move(observer)) {}

 private:
  std::shared_ptr<void> observer_;
};

/// Those who observe one thing.
template <typename... Told>
class Observers {
 public:
  using Observer = std::function<void(Told...)>;

  [[nodiscard]] Subscription Ajoute(Observer observer) {
    auto kept = std::make_shared<Observer>(std::move(observer));
    observers_.push_back(kept);
    return Subscription(std::move(kept));
  }

  /// Tells all, in the order in which they came. Those that come meanwhile are not told.
  void Signale(Told... told) {
    std::erase_if(observers_, [](const auto& observer) { return observer.expired(); });
    const auto present = observers_;
    for (const auto& observer : present) {
      if (const auto alive = observer.lock()) (*alive)(told...);
    }
  }

 private:
  std::vector<std::weak_ptr<Observer>> observers_;
};

}  // namespace talpena
