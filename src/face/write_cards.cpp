#include "base/ascii.h"
#include "base/case.h"
#include "cardwright/face.h"
#include "cardwright/utf8.h"
#include "cardwright/vocabulary.h"
#include "face/writing/ordinary_property.h"
#include "face/writing/safe_property.h"
#include "face/writing/safe_texts.h"
#include "model/stated_version.h"
#include "model/stored_parts.h"
#include "writer/order.h"
#include "writer/unchanged/card.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>
#include <vector>

namespace cardwright {

namespace {

constexpr TextView kLabel = u"X-ABLABEL";
constexpr TextView kAddressFormat = u"X-ABADR";

using Properties = std::vector<const VCardProperty*>;

/// The properties of a card in the order in which they are written.
Properties orderedProperties(const VCard& card) {
  StoredParts::fetch(card);
  Properties ordered;
  const WrittenOrder order(StoredParts::of(card), propertyRank);
  for (std::size_t place = 0; place < order.size(); ++place) {
    for (const auto& property : **order[place].value) {
      if (property != nullptr) {
        ordered.push_back(property.get());
      }
    }
  }
  return ordered;
}

/// The version that a reader finds stated, 0 for none.
VersionCode statedVersion(const Properties& properties) {
  for (const VCardProperty* property : properties) {
    if (equalIgnoringCase(property->name(), cVCardProperty_VERSION) && property->textValue()) {
      const std::uint64_t version = versionStatedBy(valueText(*property->textValue()));
      if (version != 0) {
        return static_cast<VersionCode>(std::min<std::uint64_t>(version, 5));
      }
    }
  }
  return 0;
}

VersionCode syntaxFor(const WriteOptions& options, VersionCode stated) {
  if (options.version != 0) {
    return options.version;
  }
  return stated >= 2 && stated <= 4 ? stated : 3;
}

/// A property with the line that it is written as.
struct Entry {
  const VCardProperty* property;
  std::optional<SafeLine> line; ///< absent where the property itself writes it
  Text group;                   ///< folded; empty without one
  bool isLabel = false;
  bool isAddressFormat = false;

  [[nodiscard]] bool isCompanion() const noexcept { return isLabel || isAddressFormat; }
  [[nodiscard]] bool hasGroup() const noexcept {
    return line ? line->group.has_value() : !group.empty();
  }
  [[nodiscard]] bool isAddress() const noexcept {
    return line ? line->key == cVCardProperty_ADR : property->name() == cVCardProperty_ADR;
  }
};

/// Whether the name, once it is made harmless, may be that of a label or an address format.
bool mayBeCompanion(const VCardProperty& property) {
  const TextView name = property.name();
  if (!name.empty() && isAsciiLetter(name.front()) && asciiUpper(name.front()) != kLabel.front()) {
    return false;
  }
  return !isPlainName(name) || equalIgnoringCase(name, kLabel) ||
         equalIgnoringCase(name, kAddressFormat);
}

void appendProperty(Text& output, const VCardProperty& property, const WritingContext& context) {
  if (isOrdinary(property, context)) {
    property.generate(output, context.syntax, &context.formatter);
  } else if (const auto line = safeLine(property, context)) {
    appendLine(output, *line);
  }
}

/// Writes one card: labels and address formats behind the first property that they describe, and
/// in their own place where there is none.
class CardWriting {
 public:
  CardWriting(Text& output, const WritingContext& context) noexcept
      : m_output(output), m_context(context) {}

  void write(const Properties& properties) {
    m_output.append(cVCardComponent_BEGINVCARD).append(u"\r\n");
    if (std::none_of(properties.begin(), properties.end(),
                     [](const VCardProperty* property) { return mayBeCompanion(*property); })) {
      writeInOrder(properties);
    } else {
      writeWithCompanions(properties);
    }
    m_output.append(cVCardComponent_ENDVCARD).append(u"\r\n");
  }

 private:
  void writeInOrder(const Properties& properties) {
    for (const VCardProperty* property : properties) {
      m_context.recorder.propertyFound();
      appendProperty(m_output, *property, m_context);
    }
  }

  void writeWithCompanions(const Properties& properties) {
    m_entries.reserve(properties.size());
    for (const VCardProperty* property : properties) {
      m_context.recorder.propertyFound();
      addEntry(*property);
    }
    findHosts();
    appendEntries();
  }

  void addEntry(const VCardProperty& property) {
    Entry entry{.property = &property, .line = std::nullopt, .group = {}};
    if (!mayBeCompanion(property) && isOrdinary(property, m_context)) {
      entry.group = property.group() ? caseFolded(*property.group()) : Text();
    } else if ((entry.line = companionLine(property))) {
      entry.group = entry.line->group ? caseFolded(*entry.line->group) : Text();
      entry.isLabel = entry.line->group && entry.line->key == kLabel;
      entry.isAddressFormat = entry.line->group && entry.line->key == kAddressFormat;
    } else {
      return;
    }
    m_entries.push_back(std::move(entry));
  }

  /// safeLine, where it is ordinary without its detours. Companions have to be compared.
  [[nodiscard]] std::optional<SafeLine> companionLine(const VCardProperty& property) const {
    if (!StoredParts::of(property).empty() || !isOrdinary(property, m_context)) {
      return safeLine(property, m_context);
    }
    SafeLine line;
    line.group = property.group();
    line.key = line.rest = property.name();
    line.rest.push_back(u':');
    StoredParts::valueOf(property)->generate(line.rest, m_context.syntax, &m_context.formatter);
    return line;
  }

  void findHosts() {
    std::map<TextView, std::size_t> hosts;
    std::map<TextView, std::size_t> addresses;
    for (std::size_t at = 0; at < m_entries.size(); ++at) {
      const Entry& entry = m_entries[at];
      if (entry.hasGroup() && !entry.isCompanion()) {
        hosts.emplace(entry.group, at);
        if (entry.isAddress()) {
          addresses.emplace(entry.group, at);
        }
      }
    }
    findHosts(hosts, &Entry::isLabel);
    findHosts(addresses, &Entry::isAddressFormat);
  }

  void findHosts(const std::map<TextView, std::size_t>& hosts, bool Entry::*isWanted) {
    for (std::size_t at = 0; at < m_entries.size(); ++at) {
      if (m_entries[at].*isWanted) {
        if (const auto host = hosts.find(m_entries[at].group); host != hosts.end()) {
          m_companions[host->second].push_back(at);
          m_hosted.insert(at);
        }
      }
    }
  }

  void appendEntries() {
    for (std::size_t at = 0; at < m_entries.size(); ++at) {
      const Entry& entry = m_entries[at];
      if (entry.isCompanion() && m_hosted.contains(at)) {
        continue;
      }
      append(entry);
      if (const auto companions = m_companions.find(at); companions != m_companions.end()) {
        for (const std::size_t companion : companions->second) {
          append(m_entries[companion]);
        }
      }
    }
  }

  void append(const Entry& entry) {
    if (!entry.line) {
      entry.property->generate(m_output, m_context.syntax, &m_context.formatter);
    } else if (entry.isCompanion() &&
               !m_written.emplace(TextView(entry.group), TextView(entry.line->rest)).second) {
      m_context.recorder.dropped(WriteChangeKind::repeatLeftOut, *entry.property, entry.line->rest);
    } else {
      appendLine(m_output, *entry.line);
    }
  }

  Text& m_output;
  const WritingContext& m_context;
  std::vector<Entry> m_entries;
  std::map<std::size_t, std::vector<std::size_t>> m_companions; ///< by what they describe
  std::set<std::size_t> m_hosted;
  std::set<std::pair<TextView, TextView>> m_written;
};

/// Takes what is written of an unchanged card from its lines, and what is not ordinary in it.
class SafeOutput final : public CardOutput {
 public:
  SafeOutput(std::string& output, const WritingContext& context) noexcept
      : m_bytes(output), m_lines(output), m_context(context) {}

  void append(std::string_view lines) override { m_lines.append(lines); }
  void appendFolded(std::string_view line) override { m_lines.appendFolded(line); }

  void append(const VCardProperty& property, VersionCode /*version*/,
              DateFormatter* /*formatter*/) override {
    Text text;
    appendProperty(text, property, m_context);
    appendUtf8(m_bytes, text);
  }

  void encodingLeftOut(TextView group, TextView name, TextView encoding) override {
    m_context.recorder.changed(WriteChangeKind::encodingLeftOut,
                               {group.empty() ? std::nullopt : std::optional(group), name},
                               encoding);
  }

 private:
  std::string& m_bytes;
  Utf8Output m_lines;
  const WritingContext& m_context;
};

class SafeWriting {
 public:
  SafeWriting(std::string& output, const WriteOptions& options, WriteRecorder& recorder)
      : m_output(output), m_options(options), m_recorder(recorder) {}

  void write(const VCard& card) {
    m_recorder.cardBegins();
    const detail::CardLines* const lines = StoredParts::unchangedLinesOf(card);
    if (lines == nullptr || !writeLines(card, *lines)) {
      writeProperties(card);
    }
  }

 private:
  bool writeLines(const VCard& card, const detail::CardLines& lines) {
    const VersionCode stated = plainlyStatedVersion(lines);
    if (stated == 0) {
      return false;
    }
    const WritingContext context = contextOf(stated);
    SafeOutput output(m_output, context);
    const bool isWritten =
        appendUnchangedSafely(output, card, lines, context.syntax, &context.formatter, stated);
    for (std::size_t i = 0; isWritten && i < lines.count; ++i) {
      m_recorder.propertyFound();
    }
    return isWritten;
  }

  void writeProperties(const VCard& card) {
    const Properties properties = orderedProperties(card);
    const WritingContext context = contextOf(statedVersion(properties));
    m_text.clear();
    CardWriting(m_text, context).write(properties);
    appendUtf8(m_output, m_text);
  }

  WritingContext contextOf(VersionCode stated) {
    return {syntaxFor(m_options, stated), stated, m_formatter, m_recorder};
  }

  std::string& m_output;
  const WriteOptions& m_options;
  WriteRecorder& m_recorder;
  DateFormatter m_formatter{"en_US_POSIX"};
  Text m_text;
};

} // namespace

std::string writeCards(const VCardList& cards, WriteReport* report, const WriteOptions& options) {
  WriteReport done;
  WriteRecorder recorder(report != nullptr ? &done : nullptr);
  std::string bytes;
  SafeWriting writing(bytes, options, recorder);
  for (const auto& card : cards) {
    if (card != nullptr) {
      writing.write(*card);
    }
  }
  if (report != nullptr) {
    *report = std::move(done);
  }
  return bytes;
}

} // namespace cardwright
