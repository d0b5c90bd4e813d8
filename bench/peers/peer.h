#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <iterator>
#include <limits>
#include <string>
#include <string_view>

namespace peers {

/// What one round of a task came to.
struct Recovered {
  std::size_t cards = 0;
  std::size_t items = 0;      ///< properties; of written cards, bytes
  std::size_t characters = 0; ///< length of all that was asked for, so that it is asked for
};

/// A library that is measured. Whatever a round makes it lets go of.
class Peer {
 public:
  Peer() = default;
  Peer(const Peer&) = delete;
  Peer& operator=(const Peer&) = delete;
  virtual ~Peer() = default;

  /// Recognises all cards.
  virtual Recovered open(const std::string& bytes) = 0;
  /// The same, and asks for the name, the parameters and the value of each property.
  virtual Recovered read(const std::string& bytes) = 0;
  /// Reads the cards that are to be written, all that is in them.
  virtual void prepareWriting(const std::string& bytes) = 0;
  virtual Recovered write() = 0;
};

/// The next card from `begin` on, which is moved behind it, for libraries that take one at a time
/// and leave it to their caller where it ends.
inline std::string_view nextCard(std::string_view bytes, std::size_t& begin) {
  constexpr std::string_view kEnd = "\nEND:VCARD\r\n";
  const std::size_t end = bytes.find(kEnd, begin);
  const std::size_t length = end == bytes.npos ? bytes.npos : end + kEnd.size() - begin;
  const std::string_view card = bytes.substr(begin, length);
  begin += card.size();
  return card;
}

inline double processorSeconds() {
  timespec time{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

inline Recovered round(Peer& peer, std::string_view task, const std::string& bytes) {
  if (task == "open") {
    return peer.open(bytes);
  }
  return task == "read" ? peer.read(bytes) : peer.write();
}

/// A second at least: a processor that was idle is slower at first.
inline constexpr double kLeastSeconds = 1.0;

/// FILE open|read|write ROUNDS: after a round that does not count, prints the processor seconds of
/// the shortest round, of so many and more where they are short, then cards and items.
inline int measure(Peer& peer, int count, char** arguments) {
  const std::string_view task = count >= 4 ? arguments[2] : "";
  if (task != "open" && task != "read" && task != "write") {
    std::fputs("usage: FILE open|read|write ROUNDS\n", stderr);
    return 2;
  }
  std::ifstream file(arguments[1], std::ios::binary);
  const std::string bytes{std::istreambuf_iterator<char>(file), {}};
  if (task == "write") {
    peer.prepareWriting(bytes);
  }
  Recovered recovered = round(peer, task, bytes);
  double seconds = std::numeric_limits<double>::infinity();
  const double first = processorSeconds();
  for (int left = std::atoi(arguments[3]); left > 0 || processorSeconds() - first < kLeastSeconds;
       --left) {
    const double begin = processorSeconds();
    recovered = round(peer, task, bytes);
    seconds = std::min(seconds, processorSeconds() - begin);
  }
  [[maybe_unused]] const volatile std::size_t seen = recovered.characters;
  std::printf("%.6f %zu %zu\n", seconds, recovered.cards, recovered.items);
  return 0;
}

} // namespace peers
