#include "base/arena.h"
#include "base/slab_pool.h"
#include "support/time_growth.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <cstring>
#include <deque>
#include <memory>
#include <set>
#include <thread>
#include <vector>

namespace cardwright {
namespace {

/// Owns a pool, as a text's store does, and tells when it goes.
struct Owner {
  explicit Owner(bool& gone) : isGone(gone) {}
  Owner(const Owner&) = delete;
  Owner& operator=(const Owner&) = delete;
  ~Owner() { isGone = true; }

  SlabPool pool;
  detail::ChangeMark changes;
  bool& isGone;
};

struct Counted {
  Counted() { ++alive; }
  Counted(const Counted&) = delete;
  Counted& operator=(const Counted&) = delete;
  ~Counted() { --alive; }

  static inline int alive = 0;
  std::array<char, 40> content{};
};

TEST(Arena, keepsItsMemoryAsLongAsAnyObjectLives) {
  bool isGone = false;
  std::shared_ptr<Counted> last;
  {
    auto owner = std::make_shared<Owner>(isGone);
    const Arena::Hold arena = Arena::make(owner->pool, owner, owner->changes, 100);
    std::vector<std::shared_ptr<Counted>> objects;
    for (int i = 0; i < 1000; ++i) {
      objects.push_back(makeIn<Counted>(arena.get()));
    }
    EXPECT_EQ(Counted::alive, 1000);
    last = objects[500];
  }
  EXPECT_EQ(Counted::alive, 1);
  EXPECT_FALSE(isGone);
  last.reset();
  EXPECT_EQ(Counted::alive, 0);
  EXPECT_TRUE(isGone);
}

TEST(Arena, goesWithoutObjects) {
  bool isGone = false;
  {
    auto owner = std::make_shared<Owner>(isGone);
    const Arena::Hold arena = Arena::make(owner->pool, owner, owner->changes, 0);
  }
  EXPECT_TRUE(isGone);
}

TEST(Arena, outlivesWeakPointers) {
  bool isGone = false;
  std::weak_ptr<Counted> weak;
  {
    auto owner = std::make_shared<Owner>(isGone);
    const Arena::Hold arena = Arena::make(owner->pool, owner, owner->changes, 100);
    weak = makeIn<Counted>(arena.get());
  }
  EXPECT_TRUE(weak.expired());
  EXPECT_FALSE(isGone);
  weak.reset();
  EXPECT_TRUE(isGone);
}

TEST(Arena, letsGoOfObjectsInSeveralThreads) {
  using Plain = std::array<char, 40>;
  bool isGone = false;
  std::array<std::vector<std::shared_ptr<Plain>>, 4> shares;
  {
    auto owner = std::make_shared<Owner>(isGone);
    const Arena::Hold arena = Arena::make(owner->pool, owner, owner->changes, 100);
    for (std::size_t i = 0; i < 4000; ++i) {
      shares[i % shares.size()].push_back(makeIn<Plain>(arena.get()));
    }
  }
  EXPECT_FALSE(isGone);
  std::vector<std::thread> threads;
  for (auto& share : shares) {
    threads.emplace_back([&share] { share.clear(); });
  }
  for (std::thread& thread : threads) {
    thread.join();
  }
  EXPECT_TRUE(isGone);
}

TEST(Arena, makesObjectsByThemselvesWhereThereIsNone) {
  EXPECT_NE(makeIn<Counted>(nullptr), nullptr);
  EXPECT_EQ(Counted::alive, 0);
}

TEST(SlabPool, givesAlignedMemoryOfItsOwnToEach) {
  SlabPool pool;
  std::vector<std::pair<char*, std::size_t>> pieces;
  for (std::size_t size = 16; size < 200'000; size += size < 4096 ? 16 : 50'000) {
    auto* const memory = static_cast<char*>(pool.take(size));
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(memory) % alignof(std::max_align_t), 0U);
    std::memset(memory, static_cast<int>(pieces.size() & 0x7FU), size);
    pieces.emplace_back(memory, size);
  }
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    const auto [memory, size] = pieces[i];
    EXPECT_EQ(memory[0], static_cast<char>(i & 0x7FU));
    EXPECT_EQ(memory[size - 1], static_cast<char>(i & 0x7FU));
  }
}

TEST(SlabPool, usesWhatWasGivenBackAgain) {
  SlabPool pool;
  std::set<void*> places;
  std::deque<void*> held;
  for (int i = 0; i < 10'000; ++i) {
    void* const memory = pool.take(i % 10 == 0 ? 20'000 : 1600);
    std::memset(memory, i & 0x7F, 1600);
    places.insert(memory);
    held.push_back(memory);
    if (held.size() > 20) {
      pool.giveBack(held.front());
      held.pop_front();
    }
  }
  if (kTimesAreMeaningful) { // Sanitizers keep what was freed for a while.
    EXPECT_LT(places.size(), 5'000U);
  }
  while (!held.empty()) {
    pool.giveBack(held.back());
    held.pop_back();
  }
}

TEST(Arena, givesAllItsMemoryBack) {
  bool isGone = false;
  const auto owner = std::make_shared<Owner>(isGone);
  const auto firstPlace = [&owner] {
    const Arena::Hold arena = Arena::make(owner->pool, owner, owner->changes, 100);
    std::vector<std::shared_ptr<Counted>> objects;
    for (int i = 0; i < 40; ++i) {
      objects.push_back(makeIn<Counted>(arena.get()));
    }
    return static_cast<void*>(objects.front().get());
  };
  void* const place = firstPlace();
  for (int i = 0; i < 1000; ++i) {
    EXPECT_EQ(firstPlace(), place);
  }
}

} // namespace
} // namespace cardwright
