#include "cardwright/cardwright.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <thread>

namespace cardwright {
namespace {

// What a thread keeps for itself goes when it ends, in the opposite order of its first uses.
// Objects of programs may go later, and still read and write.

std::string readAndWritten() {
  const std::string flags = "\xF0\x9F\x87\xAA\xF0\x9F\x87\xBA";
  std::string bytes = "BEGIN:VCARD\r\nVERSION:2.1\r\nFN;CHARSET=WINDOWS-1252;ENCODING="
                      "QUOTED-PRINTABLE:=E9\r\nNOTE;CHARSET=UTF-8:";
  for (int i = 0; i < 20; ++i) {
    bytes += flags;
  }
  const VCardList cards = readCards(bytes + "\r\nTEL;CELL:1\r\nEND:VCARD\r\n");
  DateFormatter formatter;
  Text text;
  cards.front()->generate(text, 3, &formatter);
  return utf8FromText(text);
}

/// Reads and writes when it goes.
class Last {
 public:
  explicit Last(std::string& result) : m_result(result) {}
  Last(const Last&) = delete;
  Last& operator=(const Last&) = delete;
  ~Last() { m_result = readAndWritten(); }

 private:
  std::string& m_result;
};

TEST(EndOfThread, isNotTheEndOfReadingAndWriting) {
  std::string before;
  std::string after;
  std::thread([&] {
    thread_local const Last last(after);
    before = readAndWritten();
  }).join();
  EXPECT_NE(before.find("TEL;TYPE=CELL:1"), std::string::npos);
  EXPECT_EQ(after, before);
}

TEST(EndOfThread, isNotTheEndForObjectsOfTheProgram) {
  struct LastOfAll {
    std::string before;
    LastOfAll() = default;
    LastOfAll(const LastOfAll&) = delete;
    LastOfAll& operator=(const LastOfAll&) = delete;
    ~LastOfAll() { std::fputs(readAndWritten() == before ? "the same" : "another", stderr); }
  };
  EXPECT_EXIT(
      {
        static LastOfAll last;
        last.before = readAndWritten();
        std::exit(0);
      },
      testing::ExitedWithCode(0), "the same");
}

} // namespace
} // namespace cardwright
