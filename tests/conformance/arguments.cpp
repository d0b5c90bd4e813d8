#include "conformance/arguments.h"

#include "conformance/text_notation.h"

namespace cardwright::conformance {
namespace {

[[nodiscard]] std::string_view charactersOf(const Json& value) {
  return {value.GetString(), value.GetStringLength()};
}

[[noreturn]] void failExpecting(const char* kind, const Json& value) {
  throw CaseError("no " + std::string(kind) + ": " + textOfJson(value));
}

} // namespace

bool booleanFromJson(const Json& value) {
  if (!value.IsBool()) {
    failExpecting("boolean", value);
  }
  return value.GetBool();
}

std::int64_t signedFromJson(const Json& value) {
  if (!value.IsInt64()) {
    failExpecting("signed number", value);
  }
  return value.GetInt64();
}

std::uint64_t unsignedFromJson(const Json& value) {
  if (!value.IsUint64()) {
    failExpecting("unsigned number", value);
  }
  return value.GetUint64();
}

Text textFromJson(const Json& value) {
  if (!value.IsString()) {
    failExpecting("text", value);
  }
  return textFromNotation(charactersOf(value));
}

std::string bytesFromJson(const Json& value) {
  if (!value.IsObject() || !memberOf(value, "hex").IsString()) {
    failExpecting("bytes", value);
  }
  return bytesFromHex(charactersOf(memberOf(value, "hex")));
}

const Json& memberOf(const Json& object, const char* name) {
  static const Json null;
  if (!object.IsObject()) {
    failExpecting("object", object);
  }
  return object.HasMember(name) ? object.FindMember(name)->value : null;
}

const Json& checkedList(const Json& value) {
  if (!value.IsArray()) {
    failExpecting("list", value);
  }
  return value;
}

char16_t ArgumentReader<char16_t>::read(const Json& value) {
  const Text text = textFromJson(value);
  if (text.size() != 1) {
    failExpecting("single unit", value);
  }
  return text.front();
}

const Json& Arguments::operator[](std::size_t index) const {
  expectCount(index + 1, std::numeric_limits<std::size_t>::max());
  return m_list[static_cast<rapidjson::SizeType>(index)];
}

void Arguments::expectCount(std::size_t least, std::size_t most) const {
  if (count() < least || count() > most) {
    throw CaseError("the operation does not take " + std::to_string(count()) + " arguments");
  }
}

} // namespace cardwright::conformance
