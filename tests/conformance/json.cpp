#include "conformance/json.h"

#include "conformance/text_notation.h"

#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

namespace cardwright::conformance {

rapidjson::CrtAllocator& jsonAllocator() {
  static rapidjson::CrtAllocator allocator;
  return allocator;
}

std::string textOfJson(const Json& value) {
  rapidjson::StringBuffer buffer;
  rapidjson::Writer<rapidjson::StringBuffer> writer(buffer);
  value.Accept(writer);
  return {buffer.GetString(), buffer.GetSize()};
}

Json toJson(TextView text) {
  return asciiToJson(notationFromText(text));
}

Json asciiToJson(std::string_view ascii) {
  return {ascii.data(), static_cast<rapidjson::SizeType>(ascii.size()), jsonAllocator()};
}

Json bytesToJson(std::string_view bytes) {
  return objectToJson("hex", asciiToJson(hexFromBytes(bytes)));
}

} // namespace cardwright::conformance
