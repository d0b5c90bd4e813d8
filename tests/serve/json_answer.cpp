#include "serve/json_answer.h"

#include <stdexcept>

namespace cardwright::tool {

rapidjson::Document jsonFrom(const std::string& text) {
  rapidjson::Document document;
  document.Parse<rapidjson::kParseValidateEncodingFlag>(text.data(), text.size());
  if (document.HasParseError() || !document.IsObject()) {
    throw std::runtime_error("no JSON object: " + text.substr(0, 200));
  }
  return document;
}

const rapidjson::Value& itemsOf(const rapidjson::Value& object, const char* name) {
  const auto list = object.FindMember(name);
  if (list == object.MemberEnd() || !list->value.HasMember("items")) {
    throw std::runtime_error(std::string("no list ") + name);
  }
  return list->value["items"];
}

std::size_t countOf(const rapidjson::Value& object, const char* name) {
  static_cast<void>(itemsOf(object, name));
  return object[name]["count"].GetUint64();
}

} // namespace cardwright::tool
