#include "json/card_json.h"

#include <cardwright/utf8.h>
#include <cardwright/vcard_address_value.h>
#include <cardwright/vcard_custom_value.h>
#include <cardwright/vcard_date_time_value.h>
#include <cardwright/vcard_gender_value.h>
#include <cardwright/vcard_geo_value.h>
#include <cardwright/vcard_multi_value.h>
#include <cardwright/vcard_n_value.h>
#include <cardwright/vcard_org_value.h>
#include <cardwright/vcard_property.h>
#include <cardwright/vcard_text_value.h>
#include <cardwright/vcard_utc_offset_value.h>

#include <rapidjson/prettywriter.h>
#include <rapidjson/writer.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace cardwright::tool {

namespace {

/// An Output as RapidJSON wants it.
class JsonStream {
 public:
  using Ch = char;

  explicit JsonStream(Output& output) noexcept : m_output(output) {}

  // The names are RapidJSON's.
  void Put(Ch byte) { m_output.put(byte); }
  void Flush() {}

 private:
  Output& m_output;
};

std::string_view kindName(VCardKind kind) {
  switch (kind) {
  case VCardKind::individual:
    return "individual";
  case VCardKind::org:
    return "org";
  case VCardKind::group:
    return "group";
  case VCardKind::location:
    return "location";
  case VCardKind::device:
    return "device";
  case VCardKind::application:
    return "application";
  case VCardKind::other:
    break;
  }
  return "other";
}

/// RapidJSON leaves these as they are; a terminal may take them for commands.
constexpr bool steersTerminal(char16_t unit) {
  return unit >= 0x7F && unit < 0xA0;
}

/// A JSON string, in quotes, that holds no control character raw.
std::string escapedString(TextView text) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string result = "\"";
  std::size_t at = 0;
  while (at < text.size()) {
    const auto isSpecial = [](char16_t unit) {
      return unit < 0x20 || unit == u'"' || unit == u'\\' || steersTerminal(unit);
    };
    const auto from = text.begin() + static_cast<std::ptrdiff_t>(at);
    const auto to = std::find_if(from, text.end(), isSpecial);
    const auto plain = static_cast<std::size_t>(to - from);
    appendUtf8(result, text.substr(at, plain));
    at += plain;
    if (at < text.size()) {
      const char16_t unit = text[at++];
      result += "\\u00";
      result += kDigits[unit >> 4U];
      result += kDigits[unit & 0xFU];
    }
  }
  return result += '"';
}

template <typename Writer>
class CardJsonWriterOn final : public CardJsonWriter {
 public:
  explicit CardJsonWriterOn(Output& output) : m_output(output), m_stream(output), m_json(m_stream) {
    m_json.StartObject();
    key("cards");
    m_json.StartArray();
  }

  void writeCard(std::string_view file, const VCard& card) override {
    m_json.StartObject();
    key("file");
    string(TextView(textFromUtf8(file)));
    key("version");
    m_json.Uint64(card.version());
    key("kind");
    string(kindName(card.kind()));
    key("uid");
    string(card.uid());
    key("properties");
    m_json.StartArray();
    const VCardPropertyDict dictionary = card.propertyDict();
    for (const Text& name : card.propertiesInSortOrder()) {
      for (const auto& property : *dictionary.at(name)) {
        writeProperty(*property);
      }
    }
    m_json.EndArray();
    m_json.EndObject();
  }

  void addRepairs(std::string_view file, const std::vector<std::string>& summaries) override {
    for (const std::string& summary : summaries) {
      m_repairs.push_back({std::string(file), summary});
    }
  }

  void finish() override {
    m_json.EndArray();
    key("repairs");
    m_json.StartArray();
    for (const auto& [file, summary] : m_repairs) {
      m_json.StartObject();
      key("file");
      string(TextView(textFromUtf8(file)));
      key("summary");
      string(TextView(textFromUtf8(summary)));
      m_json.EndObject();
    }
    m_json.EndArray();
    m_json.EndObject();
    m_output.put('\n');
  }

 private:
  using Slot = std::optional<TextList>;

  struct Repair {
    std::string file;
    std::string summary;
  };

  void writeProperty(const VCardProperty& property) {
    const auto value = property.value();
    m_json.StartObject();
    key("group");
    string(property.group());
    key("name");
    string(property.name());
    key("parameters");
    m_json.StartObject();
    for (const auto& [name, parameter] : property.parameterDict().value_or(VCardParameterDict())) {
      string(TextView(name)); // RapidJSON takes any string for a key
      list(parameter->values());
    }
    m_json.EndObject();
    key("type");
    string(value ? value->type() : std::nullopt);
    key("value");
    writeValue(value.get());
    m_json.EndObject();
  }

  void writeValue(const VCardValue* value) {
    if (const auto* const many = dynamic_cast<const VCardMultiValue*>(value)) {
      m_json.StartArray();
      for (const auto& element : many->values().value_or(VCardValueList())) {
        writeSingleValue(element.get());
      }
      m_json.EndArray();
      return;
    }
    writeSingleValue(value);
  }

  /// Any value but a multi-value.
  void writeSingleValue(const VCardValue* value) {
    if (const auto* const text = dynamic_cast<const VCardTextValue*>(value)) {
      string(text->text());
    } else if (const auto* const name = dynamic_cast<const VCardNValue*>(value)) {
      writeName(*name);
    } else if (const auto* const address = dynamic_cast<const VCardAddressValue*>(value)) {
      writeAddress(*address);
    } else if (const auto* const organisation = dynamic_cast<const VCardOrgValue*>(value)) {
      list(organisation->parts());
    } else if (const auto* const gender = dynamic_cast<const VCardGenderValue*>(value)) {
      pair("sex", gender->sex(), "identity", gender->identity());
    } else if (const auto* const position = dynamic_cast<const VCardGeoValue*>(value)) {
      writePosition(*position);
    } else if (const auto* const custom = dynamic_cast<const VCardCustomValue*>(value)) {
      pair("label", custom->label(), "value", custom->value());
    } else if (const auto* const date = dynamic_cast<const VCardDateTimeValue*>(value)) {
      writeDate(date->comps());
    } else if (const auto* const offset = dynamic_cast<const VCardUTCOffsetValue*>(value)) {
      m_json.Int64(offset->offset());
    } else {
      m_json.Null();
    }
  }

  void writeName(const VCardNValue& name) {
    m_json.StartObject();
    slot("last", name.last());
    slot("first", name.first());
    slot("middle", name.middle());
    slot("prefix", name.prefix());
    slot("suffix", name.suffix());
    m_json.EndObject();
  }

  void writeAddress(const VCardAddressValue& address) {
    m_json.StartObject();
    slot("poBox", address.poBox());
    slot("extended", address.extended());
    slot("street", address.street());
    slot("locality", address.locality());
    slot("region", address.region());
    slot("postalCode", address.postalCode());
    slot("country", address.country());
    m_json.EndObject();
  }

  void writePosition(const VCardGeoValue& position) {
    m_json.StartObject();
    key("latitude");
    number(position.latitude());
    key("longitude");
    number(position.longitude());
    m_json.EndObject();
  }

  void writeDate(const DateComponents& date) {
    m_json.StartObject();
    field("year", date.year);
    field("month", date.month);
    field("day", date.day);
    field("hour", date.hour);
    field("minute", date.minute);
    field("second", date.second);
    key("zone");
    if (!date.timeZone) {
      m_json.Null();
    } else if (date.timeZone->isUniversal()) {
      string("Z");
    } else {
      m_json.Int(date.timeZone->secondsFromUtc());
    }
    m_json.EndObject();
  }

  void pair(std::string_view firstKey, std::optional<TextView> first, std::string_view secondKey,
            std::optional<TextView> second) {
    m_json.StartObject();
    key(firstKey);
    string(first);
    key(secondKey);
    string(second);
    m_json.EndObject();
  }

  void slot(std::string_view name, const Slot& texts) {
    key(name);
    if (texts) {
      list(*texts);
    } else {
      m_json.Null();
    }
  }

  void field(std::string_view name, const std::optional<std::int64_t>& number) {
    key(name);
    if (number) {
      m_json.Int64(*number);
    } else {
      m_json.Null();
    }
  }

  void list(const TextList& texts) {
    m_json.StartArray();
    for (const Text& text : texts) {
      string(TextView(text));
    }
    m_json.EndArray();
  }

  /// JSON has no word for what is not finite.
  void number(double value) {
    if (std::isfinite(value)) {
      m_json.Double(value);
    } else {
      m_json.Null();
    }
  }

  void key(std::string_view name) {
    m_json.Key(name.data(), static_cast<rapidjson::SizeType>(name.size()));
  }

  void string(std::string_view ascii) {
    m_json.String(ascii.data(), static_cast<rapidjson::SizeType>(ascii.size()));
  }

  void string(TextView text) {
    if (std::any_of(text.begin(), text.end(), steersTerminal)) {
      const std::string escaped = escapedString(text);
      m_json.RawValue(escaped.data(), escaped.size(), rapidjson::kStringType);
      return;
    }
    m_utf8.clear();
    appendUtf8(m_utf8, text);
    string(std::string_view(m_utf8));
  }

  void string(std::optional<TextView> text) {
    if (text) {
      string(*text);
    } else {
      m_json.Null();
    }
  }

  Output& m_output;
  JsonStream m_stream;
  Writer m_json;
  std::vector<Repair> m_repairs;
  std::string m_utf8; ///< kept for its room
};

} // namespace

std::unique_ptr<CardJsonWriter> makeCardJsonWriter(Output& output, bool isPretty) {
  using Compact = rapidjson::Writer<JsonStream>;
  using Pretty = rapidjson::PrettyWriter<JsonStream>;
  if (isPretty) {
    return std::make_unique<CardJsonWriterOn<Pretty>>(output);
  }
  return std::make_unique<CardJsonWriterOn<Compact>>(output);
}

} // namespace cardwright::tool
