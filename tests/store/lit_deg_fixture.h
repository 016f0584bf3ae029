// A load into a world of fakes, and what has to stand behind it.
#pragma once
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "store/world.h"

namespace talpena::test {

/// The free fields of a header: one.
inline const std::string oneField = "/\r\nSTAT.TOPO,Toponyme,50\r\n";

class LitDegTest : public ::testing::Test {
 protected:
  World world;
  StoreState& state = world.state;

  int Rang(const std::string& call) const {
    const auto& calls = world.vue.calls;
    const auto it = std::find(calls.begin(), calls.end(), call);
    return it == calls.end() ? -1 : static_cast<int>(it - calls.begin());
  }
  std::vector<std::string> LignesLiees() {
    std::vector<std::string> all;
    const auto rows = state.document.Data1.Clone();
    for (rows->MoveFirst(); !rows->EOF_(); rows->MoveNext()) {
      all.push_back(World::Texte(*rows));
    }
    return all;
  }
  /// What is put back behind every load, whether it succeeds or not.
  void ExpectFerme() {
    EXPECT_EQ(world.files.ouverts, 0) << "the file is closed";
    EXPECT_FALSE(state.document.WorkingDb->EnTransaction());
    EXPECT_FALSE(world.vue.barre);
    EXPECT_FALSE(world.vue.sablier);
    EXPECT_EQ(world.vue.message, "") << "the wait window is closed";
  }
};

}  // namespace talpena::test
