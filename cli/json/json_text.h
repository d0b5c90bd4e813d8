#pragma once

#include <cardwright/utf8.h>

#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <cstddef>
#include <string>
#include <string_view>

namespace cardwright::tool {

/// JSON that is written member by member.
class JsonText {
 public:
  JsonText() : m_writer(m_buffer) {}
  JsonText(const JsonText&) = delete;
  JsonText& operator=(const JsonText&) = delete;
  ~JsonText() = default;

  void key(std::string_view name) {
    m_writer.Key(name.data(), static_cast<rapidjson::SizeType>(name.size()));
  }
  void string(std::string_view name, std::string_view value) {
    text(name, textFromUtf8(value)); // Sound UTF-8 is what RapidJSON asks for.
  }
  void text(std::string_view name, TextView value) {
    key(name);
    element(value);
  }
  /// A text within an array.
  void element(TextView value) {
    const std::string text = utf8FromText(value);
    m_writer.String(text.data(), static_cast<rapidjson::SizeType>(text.size()));
  }
  void number(std::string_view name, std::size_t value) {
    key(name);
    m_writer.Uint64(value);
  }

  /// How many bytes were written so far.
  [[nodiscard]] std::size_t size() const noexcept { return m_buffer.GetSize(); }

  [[nodiscard]] rapidjson::Writer<rapidjson::StringBuffer>& writer() noexcept { return m_writer; }

  /// What was written, as a line.
  [[nodiscard]] std::string line() const {
    return std::string(m_buffer.GetString(), m_buffer.GetSize()) + "\n";
  }

 private:
  rapidjson::StringBuffer m_buffer;
  rapidjson::Writer<rapidjson::StringBuffer> m_writer;
};

} // namespace cardwright::tool
