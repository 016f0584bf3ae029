#include "platform/sqlite/rows/row_list.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace talpena::sqlite {
namespace {

/// The same list, the plain way.
struct Model {
  std::vector<RowKey> keys;
  std::vector<bool> alive;

  std::vector<std::size_t> Vivants() const {
    std::vector<std::size_t> slots;
    for (std::size_t i = 0; i < keys.size(); ++i) {
      if (alive[i]) slots.push_back(i);
    }
    return slots;
  }
};

void Verifie(const RowList& list, const Model& model) {
  const std::vector<std::size_t> slots = model.Vivants();
  ASSERT_EQ(list.Slots(), model.keys.size());
  ASSERT_EQ(list.Vivants(), static_cast<std::int64_t>(slots.size()));
  for (std::size_t rank = 0; rank < slots.size(); ++rank) {
    ASSERT_EQ(list.SlotDuRang(static_cast<std::int64_t>(rank)), slots[rank]);
    ASSERT_EQ(list.Rang(slots[rank]), static_cast<std::int64_t>(rank));
  }
  ASSERT_FALSE(list.SlotDuRang(list.Vivants()));
  ASSERT_FALSE(list.SlotDuRang(-1));
  for (std::size_t slot = 0; slot < model.keys.size(); ++slot) {
    ASSERT_EQ(list.Cle(slot), model.keys[slot]);
    ASSERT_EQ(list.Vivant(slot), model.alive[slot]);
    ASSERT_EQ(list.Place(model.keys[slot]), slot);
    const auto next = std::lower_bound(slots.begin(), slots.end(), slot);
    ASSERT_EQ(list.Suivant(slot), next == slots.end() ? std::nullopt : std::optional(*next));
    const auto behind = std::upper_bound(slots.begin(), slots.end(), slot);
    ASSERT_EQ(list.Precedent(slot),
              behind == slots.begin() ? std::nullopt : std::optional(*std::prev(behind)));
  }
  ASSERT_FALSE(list.Suivant(model.keys.size()));
  ASSERT_FALSE(list.Vivant(model.keys.size()));
}

struct Start {
  const char* name;
  std::vector<RowKey> keys;
};

std::vector<Start> Departs() {
  std::vector<RowKey> rising;
  std::vector<RowKey> falling;
  std::vector<RowKey> shuffled;
  std::vector<RowKey> sparse;
  std::mt19937 random(3);
  for (RowKey i = 1; i <= 9000; ++i) {
    rising.push_back(i);
    falling.insert(falling.begin(), i);
    shuffled.push_back(i * 2);
    sparse.push_back(i * 100003);
  }
  std::shuffle(shuffled.begin(), shuffled.end(), random);
  std::shuffle(sparse.begin(), sparse.end(), random);
  return {{"empty", {}},
          {"rising", rising},
          {"falling", falling},
          {"shuffled", shuffled},
          {"sparse", sparse}};
}

RowList Fait(const Start& start) {
  if (start.name == std::string("rising")) return RowList::Etendue(1, 9000);
  if (start.name == std::string("falling")) return RowList::Etendue(1, 9000, true);
  if (start.keys.empty()) return RowList::Etendue(1, 0);
  return RowList(start.keys);
}

TEST(RowList, KeepsItsOrderThroughDeletionsAndAdditions) {
  std::mt19937 random(17);
  for (const Start& start : Departs()) {
    SCOPED_TRACE(start.name);
    RowList list = Fait(start);
    Model model{start.keys, std::vector<bool>(start.keys.size(), true)};
    RowKey next = 1000000000;
    for (int round = 0; round < 4; ++round) {
      for (int i = 0; i < 700 && !model.keys.empty(); ++i) {
        const std::size_t slot = random() % model.keys.size();
        list.Supprime(model.keys[slot]);
        model.alive[slot] = false;
      }
      if (round == 1 && model.keys.size() > 8500) {  // a whole block at once
        for (std::size_t slot = 4000; slot < 8300; ++slot) {
          list.Supprime(model.keys[slot]);
          model.alive[slot] = false;
        }
      }
      for (int i = 0; i < 5; ++i) {
        list.Ajoute(next);
        model.keys.push_back(next++);
        model.alive.push_back(true);
      }
      list.Supprime(77777777);
      Verifie(list, model);
    }
    list.SupprimeTout();
    model.alive.assign(model.keys.size(), false);
    list.Ajoute(next);
    model.keys.push_back(next);
    model.alive.push_back(true);
    Verifie(list, model);
  }
}

TEST(RowList, ATransactionCanBeTakenBack) {
  for (const Start& start : Departs()) {
    SCOPED_TRACE(start.name);
    RowList list = Fait(start);
    Model model{start.keys, std::vector<bool>(start.keys.size(), true)};
    if (!model.keys.empty()) {
      list.Supprime(model.keys[3]);
      model.alive[3] = false;
    }
    list.Debut();
    list.Ajoute(1000000000);
    if (!model.keys.empty()) list.Supprime(model.keys[5]);
    list.SupprimeTout();
    list.Annule();
    Verifie(list, model);
    list.Debut();
    list.Ajoute(1000000001);
    list.Valide();
    model.keys.push_back(1000000001);
    model.alive.push_back(true);
    list.Annule();  // nothing is left to take back
    Verifie(list, model);
  }
}

TEST(RowList, DeadRowsLiveAgainAtTheirSlotsAndOthersAreTakenUp) {
  std::mt19937 random(23);
  for (const Start& start : Departs()) {
    SCOPED_TRACE(start.name);
    RowList list = Fait(start);
    Model model{start.keys, std::vector<bool>(start.keys.size(), true)};
    RowKey next = -1;
    for (int round = 0; round < 3; ++round) {
      for (int i = 0; i < 600 && !model.keys.empty(); ++i) {
        const std::size_t slot = random() % model.keys.size();
        const bool dies = random() % 2 == 0;
        dies ? list.Supprime(model.keys[slot]) : static_cast<void>(list.Ranime(model.keys[slot]));
        model.alive[slot] = !dies;
      }
      EXPECT_FALSE(list.Ranime(77777777));
      std::size_t cursor = model.keys.size() / 2;
      const RowKey under = model.keys.empty() ? 0 : model.keys[cursor];
      list.Inscrit(&cursor);
      std::vector<RowList::Arrival> arrivals;
      for (int i = 0; i < 40; ++i) {
        const auto rank = static_cast<std::int64_t>(random() % (model.keys.size() + 50));
        arrivals.push_back({rank, next--});
      }
      std::stable_sort(arrivals.begin(), arrivals.end(),
                       [](const auto& a, const auto& b) { return a.rank < b.rank; });
      list.Intercale(arrivals);
      std::size_t rank = 0;
      for (const RowList::Arrival& arrival : arrivals) {
        const std::vector<std::size_t> live = model.Vivants();
        rank = std::max(rank, static_cast<std::size_t>(arrival.rank));
        const std::size_t at = rank < live.size() ? live[rank] : model.keys.size();
        model.keys.insert(model.keys.begin() + static_cast<std::ptrdiff_t>(at), arrival.key);
        model.alive.insert(model.alive.begin() + static_cast<std::ptrdiff_t>(at), true);
        ++rank;
      }
      Verifie(list, model);
      EXPECT_TRUE(under == 0 || list.Cle(cursor) == under);
      list.Raye(&cursor);
    }
  }
}

TEST(RowList, ARangeGrowsAtItsEnd) {
  RowList list = RowList::Etendue(5, 7);
  list.Ajoute(8);
  EXPECT_TRUE(list.Croissant());
  EXPECT_EQ(list.Cle(3), 8);
  list.Ajoute(3);
  EXPECT_FALSE(list.Croissant());
  EXPECT_EQ(list.Place(3), 4u);
  EXPECT_EQ(list.Place(6), 1u);
  EXPECT_FALSE(list.Place(9));
}

TEST(RowList, ARangeMayReachTheEndsOfTheNumbers) {
  const RowList top = RowList::Etendue(2147483640, 2147483647);
  EXPECT_EQ(top.Cle(7), 2147483647);
  EXPECT_EQ(top.Place(2147483647), 7u);
  EXPECT_FALSE(top.Place(-2147483647 - 1));
}

}  // namespace
}  // namespace talpena::sqlite
