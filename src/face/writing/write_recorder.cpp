#include "face/writing/write_recorder.h"

#include "cardwright/utf8.h"

#include <algorithm>

namespace cardwright {

namespace {

/// A long name is cut: a property may have as many changes as its name has letters.
constexpr std::size_t kLongestName = 200;

} // namespace

void WriteRecorder::cardBegins() noexcept {
  if (m_report != nullptr) {
    ++m_report->cards;
  }
}

void WriteRecorder::propertyFound() noexcept {
  if (m_report != nullptr) {
    ++m_report->properties;
  }
}

void WriteRecorder::changed(WriteChangeKind kind, const PropertyName& property, TextView text) {
  if (m_report == nullptr) {
    return;
  }
  Text name(property.group.value_or(TextView()).substr(0, kLongestName));
  if (property.group) {
    name.push_back(u'.');
  }
  name.append(property.name.substr(0, kLongestName));
  name.resize(std::min(name.size(), kLongestName));
  m_report->changes.push_back({kind, m_report->cards - 1, utf8FromText(name), utf8FromText(text)});
}

void WriteRecorder::dropped(WriteChangeKind kind, const PropertyName& property, TextView text) {
  if (m_report != nullptr) {
    ++m_report->dropped;
    changed(kind, property, text);
  }
}

std::string_view writeChangeText(WriteChangeKind kind) {
  switch (kind) {
  case WriteChangeKind::groupCleaned:
    return "group cleaned";
  case WriteChangeKind::nameCleaned:
    return "name cleaned";
  case WriteChangeKind::parameterNameCleaned:
    return "name of a parameter cleaned";
  case WriteChangeKind::parameterCleaned:
    return "value of a parameter cleaned";
  case WriteChangeKind::parameterLeftOut:
    return "parameter without a name or a value left out";
  case WriteChangeKind::encodingLeftOut:
    return "encoding left out that the value is not written in";
  case WriteChangeKind::valueStated:
    return "type of the value stated";
  case WriteChangeKind::valueCleaned:
    return "characters left out that no value can hold";
  case WriteChangeKind::repeatLeftOut:
    return "repeated label left out";
  case WriteChangeKind::namelessLeftOut:
    return "property without a name left out";
  case WriteChangeKind::frameLeftOut:
    return "property left out that would begin or end a card";
  case WriteChangeKind::versionLeftOut:
    return "version left out that is no text";
  }
  return "unknown";
}

} // namespace cardwright
