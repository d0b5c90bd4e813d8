#include "base/case.h"
#include "cardwright/face.h"
#include "cardwright/utf8.h"
#include "cardwright/vocabulary.h"
#include "face/writing/safe_property.h"
#include "face/writing/safe_texts.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>
#include <vector>

namespace cardwright {

namespace {

constexpr TextView kLabel = u"X-ABLABEL";
constexpr TextView kAddressFormat = u"X-ABADR";

/// The properties of a card in the order in which they are written.
VCardPropertyList orderedProperties(const VCard& card) {
  VCardPropertyList ordered;
  const VCardPropertyDict dict = card.propertyDict();
  for (const Text& key : card.propertiesInSortOrder()) {
    for (const auto& property : *dict.at(key)) {
      if (property != nullptr) {
        ordered.push_back(property);
      }
    }
  }
  return ordered;
}

/// The version that a reader finds stated, 0 for none.
VersionCode statedVersion(const VCardPropertyList& properties) {
  for (const auto& property : properties) {
    if (equalIgnoringCase(property->name(), cVCardProperty_VERSION) && property->textValue()) {
      const std::uint64_t version =
          VCardProperty::propertyWithName(cVCardProperty_VERSION, valueText(*property->textValue()))
              ->versionValue();
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

/// A line with the property that it is written for.
struct Entry {
  SafeLine line;
  Text group; ///< folded; empty without one
  const VCardProperty* property;
  bool isLabel;
  bool isAddressFormat;

  [[nodiscard]] bool isCompanion() const noexcept { return isLabel || isAddressFormat; }
};

/// Writes one card: labels and address formats behind the first property that they describe, and
/// in their own place where there is none.
class CardWriting {
 public:
  CardWriting(Text& output, const WritingContext& context) noexcept
      : m_output(output), m_context(context) {}

  void write(const VCardPropertyList& properties) {
    for (const auto& property : properties) {
      m_context.recorder.propertyFound();
      if (auto line = safeLine(*property, m_context)) {
        const bool hasGroup = line->group.has_value();
        Text group = hasGroup ? caseFolded(*line->group) : Text();
        const bool isLabel = hasGroup && line->key == kLabel;
        const bool isFormat = hasGroup && line->key == kAddressFormat;
        m_entries.push_back(
            {std::move(*line), std::move(group), property.get(), isLabel, isFormat});
      }
    }
    findHosts();
    m_output.append(cVCardComponent_BEGINVCARD).append(u"\r\n");
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
    m_output.append(cVCardComponent_ENDVCARD).append(u"\r\n");
  }

 private:
  void findHosts() {
    std::map<TextView, std::size_t> hosts;
    std::map<TextView, std::size_t> addresses;
    for (std::size_t at = 0; at < m_entries.size(); ++at) {
      const Entry& entry = m_entries[at];
      if (entry.line.group && !entry.isCompanion()) {
        hosts.emplace(entry.group, at);
        if (entry.line.key == cVCardProperty_ADR) {
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

  void append(const Entry& entry) {
    if (entry.isCompanion() &&
        !m_written.emplace(TextView(entry.group), TextView(entry.line.rest)).second) {
      m_context.recorder.dropped(WriteChangeKind::repeatLeftOut, *entry.property, entry.line.rest);
      return;
    }
    appendLine(m_output, entry.line);
  }

  Text& m_output;
  const WritingContext& m_context;
  std::vector<Entry> m_entries;
  std::map<std::size_t, std::vector<std::size_t>> m_companions; ///< by what they describe
  std::set<std::size_t> m_hosted;
  std::set<std::pair<TextView, TextView>> m_written;
};

} // namespace

std::string writeCards(const VCardList& cards, WriteReport* report, const WriteOptions& options) {
  WriteReport done;
  WriteRecorder recorder(report != nullptr ? &done : nullptr);
  DateFormatter formatter("en_US_POSIX");
  std::string bytes;
  Text text;
  for (const auto& card : cards) {
    if (card == nullptr) {
      continue;
    }
    recorder.cardBegins();
    const VCardPropertyList properties = orderedProperties(*card);
    const VersionCode stated = statedVersion(properties);
    const WritingContext context{syntaxFor(options, stated), stated, formatter, recorder};
    text.clear();
    CardWriting(text, context).write(properties);
    appendUtf8(bytes, text);
  }
  if (report != nullptr) {
    *report = std::move(done);
  }
  return bytes;
}

} // namespace cardwright
