#include "books.h"
#include "cardwright/date_formatter.h"
#include "cardwright/face.h"
#include "cardwright/utf8.h"
#include "cardwright/vcard.h"

#include <benchmark/benchmark.h>
#include <unicode/ustring.h>

#include <string>

namespace cardwright {
namespace {

using Work = void (*)(benchmark::State&, const std::string&);

void readAll(benchmark::State& state, const std::string& bytes, bool clean) {
  ReadOptions options;
  options.clean = clean;
  for (auto _ : state) {
    benchmark::DoNotOptimize(readCards(bytes, nullptr, options));
  }
}

void read(benchmark::State& state, const std::string& bytes) {
  readAll(state, bytes, false);
}

void cleanAndRead(benchmark::State& state, const std::string& bytes) {
  readAll(state, bytes, true);
}

void clean(benchmark::State& state, const std::string& bytes) {
  for (auto _ : state) {
    benchmark::DoNotOptimize(cleanText(bytes));
  }
}

/// What a sound book looks like after a program that repeats bookkeeping, in every third card.
std::string damaged(const std::string& bytes) {
  constexpr std::string_view kEnd = "END:VCARD\r\n";
  std::string text;
  std::size_t begin = 0;
  for (std::size_t card = 0; begin < bytes.size(); ++card) {
    const std::size_t end = bytes.find(kEnd, begin);
    text.append(bytes, begin, end - begin);
    if (card % 3 == 0) {
      text.append("TEL:+49 30 1234567EMAIL:someone@example.com\r\n")
          .append("NOTE:Met in Berlin&#13;&#10;likes tea\r\n");
    }
    text.append(kEnd);
    begin = end + kEnd.size();
  }
  return text;
}

void cleanDamaged(benchmark::State& state, const std::string& bytes) {
  clean(state, damaged(bytes));
}

void write(benchmark::State& state, const std::string& bytes) {
  const auto cards = readCards(bytes);
  DateFormatter formatter;
  for (auto _ : state) {
    std::string output;
    for (const auto& card : cards) {
      Text text;
      card->generate(text, card->version(), &formatter);
      output.append(utf8FromText(text));
    }
    benchmark::DoNotOptimize(output);
  }
}

/// The yardstick: ICU makes UTF-16 of the bytes, and nothing else.
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

struct Task {
  const char* name;
  Work work;
};

constexpr Task kTasks[] = {
    {"transcode by ICU", transcode},
    {"read", read},
    {"clean and read", cleanAndRead},
    {"clean", clean},
    {"clean with every third card damaged", cleanDamaged},
    {"write", write},
};

[[maybe_unused]] const bool kRegistered = [] {
  for (const Book book :
       {Book::plain, Book::mixed, Book::photos, Book::notes, Book::quotedPrintable}) {
    for (const Task& task : kTasks) {
      const std::string name = std::string(nameOf(book)).append("/").append(task.name);
      benchmark::RegisterBenchmark(
          name.c_str(),
          [book, work = task.work](benchmark::State& state) {
            const std::string& bytes = bookOf(book, static_cast<std::size_t>(state.range(0)));
            work(state, bytes);
            state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes.size()));
            state.SetComplexityN(state.range(0));
          })
          ->Arg(1 << 20)
          ->Arg(10 << 20)
          ->Arg(40 << 20)
          ->Unit(benchmark::kMillisecond)
          ->Complexity(benchmark::oN);
    }
  }
  return true;
}();

} // namespace
} // namespace cardwright
