#include "command_options.h"
#include "commands.h"
#include "io/card_source.h"
#include "io/input.h"
#include "json/json_text.h"
#include "output_options.h"
#include "reading_options.h"
#include "report/counts.h"
#include "text/display_width.h"
#include "text/printable.h"

#include <cardwright/utf8.h>

#include <algorithm>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace cardwright::tool {

namespace {

struct CountOptions {
  ReadingOptions reading;
  bool isJson = false;
};

constexpr const char* kExamples =
    "Examples:\n"
    "  cardwright count contacts.vcf\n"
    "  cardwright count *.vcf                     each file, and all together\n"
    "  cardwright count --json contacts.vcf | jq .total.cards\n"
    "  cardwright count --no-clean contacts.vcf   as the file stands, without repairs\n"
    "\n"
    "Counts cards, the versions that they state, properties by name, repairs by\n"
    "kind, and lines that could not be used.";

/// A table of two columns.
class CountTable {
 public:
  void heading(std::string_view name) {
    m_rows.push_back({Text(textFromUtf8(name)).append(u":"), {}, 0});
  }
  void row(std::string_view name, std::size_t count) {
    m_rows.push_back({printable(textFromUtf8(name)), std::to_string(count), m_indent});
  }
  /// The rows that follow belong to the last one.
  void indent(bool isIndented) noexcept { m_indent = isIndented ? 2 : 0; }

  void rows(const Tally& tally) {
    std::vector<std::pair<std::string_view, std::size_t>> sorted(tally.begin(), tally.end());
    std::stable_sort(sorted.begin(), sorted.end(),
                     [](const auto& a, const auto& b) { return a.second > b.second; });
    indent(true);
    for (const auto& [name, count] : sorted) {
      row(name, count);
    }
    indent(false);
  }

  void print(Output& output) {
    constexpr std::size_t kWidest = 40; // of the first column
    std::size_t names = 0;
    std::size_t counts = 0;
    for (const Row& row : m_rows) {
      if (!row.count.empty()) {
        names = std::max(names, std::min(kWidest, row.indent + m_width.columns(row.name)));
        counts = std::max(counts, row.count.size());
      }
    }
    for (const Row& row : m_rows) {
      output.write(std::string(row.indent, ' '));
      output.write(utf8FromText(row.name));
      if (!row.count.empty()) {
        const std::size_t used = row.indent + m_width.columns(row.name);
        output.write(std::string(names - std::min(names, used) + 2, ' '));
        output.write(std::string(counts - row.count.size(), ' '));
        output.write(row.count);
      }
      output.put('\n');
    }
  }

 private:
  struct Row {
    Text name;
    std::string count; ///< empty for a heading
    std::size_t indent;
  };

  std::vector<Row> m_rows;
  std::size_t m_indent = 0;
  DisplayWidth m_width;
};

void addCounts(CountTable& table, const Counts& counts) {
  table.row("cards", counts.cards);
  table.rows(counts.versions);
  table.row("properties", counts.properties);
  table.rows(counts.names);
  table.row("repairs", sumOf(counts.repairs));
  table.rows(counts.repairs);
  table.row("lines that could not be used", sumOf(counts.droppedLines));
  table.rows(counts.droppedLines);
}

using FileCounts = std::vector<std::pair<std::string, Counts>>;

/// With several files, what is in each is told in short, and then what is in all.
void printTable(const FileCounts& files, const Counts& total, Output& output) {
  CountTable table;
  if (files.size() > 1) {
    for (const auto& [path, counts] : files) {
      table.heading(displayName(path));
      table.indent(true);
      table.row("cards", counts.cards);
      table.row("properties", counts.properties);
      table.row("repairs", sumOf(counts.repairs));
      table.indent(false);
    }
    table.heading("all " + std::to_string(files.size()) + " files");
  }
  addCounts(table, total);
  table.print(output);
}

void writeTally(JsonText& json, std::string_view name, const Tally& tally) {
  json.key(name);
  json.writer().StartObject();
  for (const auto& [key, count] : tally) {
    json.number(key, count);
  }
  json.writer().EndObject();
}

void writeCounts(JsonText& json, const Counts& counts) {
  json.number("cards", counts.cards);
  writeTally(json, "versions", counts.versions);
  json.number("properties", counts.properties);
  writeTally(json, "names", counts.names);
  writeTally(json, "repairs", counts.repairs);
  writeTally(json, "droppedLines", counts.droppedLines);
}

std::string jsonOf(const FileCounts& files, const Counts& total) {
  JsonText json;
  json.writer().StartObject();
  json.key("files");
  json.writer().StartArray();
  for (const auto& [path, counts] : files) {
    json.writer().StartObject();
    json.string("file", path);
    writeCounts(json, counts);
    json.writer().EndObject();
  }
  json.writer().EndArray();
  json.key("total");
  json.writer().StartObject();
  writeCounts(json, total);
  json.writer().EndObject();
  json.writer().EndObject();
  return json.line();
}

void count(const CountOptions& options, const Session& session) {
  FileCounts files;
  Counts total;
  forEachCardFile(options.reading, session.diagnostics, [&](CardFile& file) {
    Counts counts;
    const auto add = [&](const std::shared_ptr<VCard>& card, std::size_t /*number*/) {
      counts.addCard(*card);
      return true;
    };
    takeCards(file, "counting", session.diagnostics.progress(), add);
    counts.addReading(file.report);
    total.add(counts);
    files.emplace_back(file.path, std::move(counts));
    return true;
  });
  if (options.isJson) {
    session.output.write(jsonOf(files, total));
  } else {
    printTable(files, total, session.output);
  }
}

} // namespace

void addCountCommand(Command& app, const Session& session) {
  const auto options = std::make_shared<CountOptions>();
  Command command =
      app.addCommand("count", "Count cards, versions, properties and repairs", kExamples);
  addReadingOptions(command, options->reading);
  command.addFlag("--json", options->isJson, "Write JSON for programs");
  addQuietFlag(command, session);
  command.setAction([options, session] { count(*options, session); });
}

} // namespace cardwright::tool
