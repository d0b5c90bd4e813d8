// What very large cards cost in time and memory, each at a size and at its double. Ends with status
// 1 when the double takes more than 2.3 times as long anywhere.

#include "cardwright/face.h"
#include "child.h"
#include "content.h"
#include "support/large_cards.h"
#include "support/written_bytes.h"

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <limits>
#include <string>

namespace cardwright {
namespace {

constexpr double kMostGrowth = 2.3;
constexpr std::size_t kMega = 1'000'000;
/// Others may want memory too, on whatever machine.
constexpr std::size_t kMostBytes = 4'000 * kMega;

class CardWork : public Work {
 public:
  CardWork(const LargeCard& card, std::size_t size) : m_card(card), m_size(size) {}

  std::size_t prepare() override {
    m_bytes = m_card.make(m_size);
    return m_bytes.size();
  }

 protected:
  const std::string& bytes() const noexcept { return m_bytes; }
  void dropBytes() { m_bytes = {}; }

 private:
  const LargeCard& m_card;
  std::size_t m_size;
  std::string m_bytes;
};

class Opening : public CardWork {
 public:
  using CardWork::CardWork;

  void run() override {
    ReadReport report;
    static_cast<void>(readCards(bytes(), &report));
  }
};

class ReadingEverything : public CardWork {
 public:
  using CardWork::CardWork;

  void run() override {
    ReadReport report;
    static_cast<void>(contentOf(readCards(bytes(), &report)));
  }
};

class Cleaning : public CardWork {
 public:
  using CardWork::CardWork;

  void run() override { static_cast<void>(cleanText(bytes())); }
};

class Writing : public CardWork {
 public:
  using CardWork::CardWork;

  std::size_t prepare() override {
    const std::size_t length = CardWork::prepare();
    m_cards = readCards(bytes());
    dropBytes();
    return length;
  }
  void run() override { static_cast<void>(writtenBytes(m_cards)); }

 private:
  VCardList m_cards;
};

template <typename AWork>
std::optional<Cost> cost(const LargeCard& card, std::size_t size) {
  AWork work(card, size);
  return costInChild(work);
}

struct Operation {
  const char* name;
  std::optional<Cost> (*cost)(const LargeCard& card, std::size_t size);
};

constexpr Operation kOperations[] = {
    {"clean and open", cost<Opening>},
    {"clean and read everything", cost<ReadingEverything>},
    {"clean", cost<Cleaning>},
    {"write", cost<Writing>},
};

std::size_t availableBytes() {
  std::ifstream info("/proc/meminfo");
  std::string word;
  std::size_t kilobytes = 0;
  while (info >> word && word != "MemAvailable:") {
  }
  info >> kilobytes;
  return kilobytes * 1024;
}

/// The size whose double every operation can take in half of the memory that is free now.
std::size_t sizeForMemory(const LargeCard& card) {
  std::size_t most = 0;
  for (const Operation& operation : kOperations) {
    if (const std::optional<Cost> cost = operation.cost(card, card.size)) {
      most = std::max(most, cost->peakBytes);
    }
  }
  if (most == 0) {
    return 0;
  }
  const std::size_t bytes = std::min(availableBytes() / 2, kMostBytes);
  return static_cast<std::size_t>(static_cast<double>(card.size) * static_cast<double>(bytes) /
                                  static_cast<double>(most) / 2);
}

/// Prints a row; false when the double took too long, or more memory than there is.
bool measure(const LargeCard& card, std::size_t size, const Operation& operation) {
  Cost once;
  Cost twice;
  once.seconds = twice.seconds = std::numeric_limits<double>::infinity();
  // What else runs on the machine fills the caches too: try again.
  for (int attempt = 0; attempt < 3 && !(twice.seconds < once.seconds * kMostGrowth); ++attempt) {
    const std::optional<Cost> small = operation.cost(card, size);
    const std::optional<Cost> large = operation.cost(card, size * 2);
    if (size == 0 || !small || !large) {
      std::printf("| %s | %s | broke |\n", card.name, operation.name);
      return false;
    }
    once.seconds = std::min(once.seconds, small->seconds);
    twice = {large->inputBytes, std::min(twice.seconds, large->seconds), large->peakBytes};
  }
  const double growth = twice.seconds / once.seconds;
  const auto length = static_cast<double>(twice.inputBytes);
  const auto peak = static_cast<double>(twice.peakBytes);
  std::printf("| %s | %s | %zu | %.1f | %.1f | %.2f | %.1f | %.0f | %.1f |\n", card.name,
              operation.name, size, once.seconds * 1e3, twice.seconds * 1e3, growth, length / kMega,
              peak / kMega, peak / length);
  std::fflush(stdout);
  return growth < kMostGrowth;
}

bool measureAll() {
  std::puts("| what | operation | N | ms for N | ms for 2N | ratio | file of 2N, MB | peak, MB "
            "| peak/file |\n|---|---|---|---|---|---|---|---|---|");
  bool isLinear = true;
  for (const LargeCard& card : kLargeCards) {
    for (const Operation& operation : kOperations) {
      isLinear = measure(card, card.size, operation) && isLinear;
    }
  }
  for (const LargeCard& card : kBoundlessCards) {
    const std::size_t size = sizeForMemory(card);
    for (const Operation& operation : kOperations) {
      isLinear = measure(card, size, operation) && isLinear;
    }
  }
  return isLinear;
}

} // namespace
} // namespace cardwright

int main() {
  return cardwright::measureAll() ? 0 : 1;
}
