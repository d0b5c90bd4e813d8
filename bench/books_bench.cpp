#include "books.h"
#include "cardwright/face.h"
#include "content.h"
#include "kept_memory.h"
#include "support/written_bytes.h"

#include <benchmark/benchmark.h>
#include <unicode/ustring.h>

#include <algorithm>
#include <string>
#include <vector>

namespace cardwright {
namespace {

using Work = void (*)(benchmark::State&, const std::string&);

void openAll(benchmark::State& state, const std::string& bytes, bool clean) {
  ReadOptions options;
  options.clean = clean;
  for (auto _ : state) {
    benchmark::DoNotOptimize(readCards(bytes, nullptr, options));
  }
}

void open(benchmark::State& state, const std::string& bytes) {
  openAll(state, bytes, false);
}

void cleanAndOpen(benchmark::State& state, const std::string& bytes) {
  openAll(state, bytes, true);
}

void readAll(benchmark::State& state, const std::string& bytes, bool clean) {
  ReadOptions options;
  options.clean = clean;
  for (auto _ : state) {
    benchmark::DoNotOptimize(contentOf(readCards(bytes, nullptr, options)));
  }
}

void readEverything(benchmark::State& state, const std::string& bytes) {
  readAll(state, bytes, false);
}

void cleanAndReadEverything(benchmark::State& state, const std::string& bytes) {
  readAll(state, bytes, true);
}

void clean(benchmark::State& state, const std::string& bytes) {
  for (auto _ : state) {
    benchmark::DoNotOptimize(cleanText(bytes));
  }
}

void cleanDamaged(benchmark::State& state, const std::string& bytes) {
  clean(state, damaged(bytes));
}

void write(benchmark::State& state, const std::string& bytes) {
  const auto cards = readCards(bytes);
  static_cast<void>(contentOf(cards)); // so that the first round reads no more than the others
  for (auto _ : state) {
    benchmark::DoNotOptimize(writtenBytes(cards));
  }
}

void writeSafely(benchmark::State& state, const std::string& bytes) {
  const auto cards = readCards(bytes);
  for (auto _ : state) {
    benchmark::DoNotOptimize(writeCards(cards));
  }
}

void writeChanged(benchmark::State& state, const std::string& bytes) {
  const auto cards = readCards(bytes);
  for (const auto& card : cards) {
    card->addProperty(VCardProperty::propertyWithName(u"X-OWN", TextView(u"changed")));
  }
  static_cast<void>(contentOf(cards));
  for (auto _ : state) {
    benchmark::DoNotOptimize(writtenBytes(cards));
  }
}

/// A yardstick: ICU makes UTF-16 of the bytes, and nothing else.
void transcode(benchmark::State& state, const std::string& bytes) {
  for (auto _ : state) {
    std::u16string text(bytes.size(), u'\0');
    UErrorCode error = U_ZERO_ERROR;
    int32_t length = 0;
    u_strFromUTF8WithSub(text.data(), static_cast<int32_t>(text.size()), &length, bytes.data(),
                         static_cast<int32_t>(bytes.size()), 0xFFFD, nullptr, &error);
    benchmark::DoNotOptimize(text);
  }
}

/// The other yardstick: the bytes without folds, and where each of their lines ends.
void unfold(benchmark::State& state, const std::string& bytes) {
  for (auto _ : state) {
    std::string text;
    text.reserve(bytes.size());
    std::vector<std::size_t> ends;
    for (std::size_t begin = 0; begin < bytes.size();) {
      const std::size_t next = std::min(bytes.find('\n', begin), bytes.size() - 1) + 1;
      const bool isFolded = next < bytes.size() && (bytes[next] == ' ' || bytes[next] == '\t');
      std::size_t length = next - 1 - begin;
      length -= length > 0 && bytes[next - 2] == '\r' ? 1 : 0;
      text.append(bytes, begin, length);
      if (!isFolded) {
        ends.push_back(text.size());
      }
      begin = next + (isFolded ? 1 : 0);
    }
    benchmark::DoNotOptimize(text);
    benchmark::DoNotOptimize(ends);
  }
}

struct Task {
  const char* name;
  Work work;
};

constexpr Task kTasks[] = {
    {"transcode by ICU", transcode},
    {"unfold and split", unfold},
    {"open", open},
    {"clean and open", cleanAndOpen},
    {"read everything", readEverything},
    {"clean and read everything", cleanAndReadEverything},
    {"clean", clean},
    {"clean with every third card damaged", cleanDamaged},
    {"write", write},
    {"write by writeCards", writeSafely},
    {"write changed cards", writeChanged},
};

[[maybe_unused]] const bool kRegistered = [] {
  for (const Book book : kBooks) {
    for (const Task& task : kTasks) {
      const std::string name = std::string(nameOf(book)).append("/").append(task.name);
      benchmark::RegisterBenchmark(
          name.c_str(),
          [book, work = task.work](benchmark::State& state) {
            keepMemory();
            const std::string& bytes = bookOf(book, static_cast<std::size_t>(state.range(0)));
            work(state, bytes);
            state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes.size()));
            state.SetComplexityN(state.range(0));
          })
          ->Arg(1 << 20)
          ->Arg(16 << 20)
          ->Arg(256 << 20)
          ->Unit(benchmark::kMillisecond)
          ->Complexity(benchmark::oN);
    }
  }
  return true;
}();

} // namespace
} // namespace cardwright
