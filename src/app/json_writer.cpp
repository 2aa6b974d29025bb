#include "app/json_writer.h"

#include <cstdint>
#include <cstdio>

namespace app {
namespace {

// Decodes the UTF-8 character at `i`; advances `i`. U+FFFD for a malformed byte.
char32_t NextCharacter(std::string_view text, std::size_t& i) {
  const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(text[at]); };
  const unsigned char lead = byte(i);
  std::size_t length = 0;
  char32_t code = 0;
  unsigned char low = 0x80, high = 0xBF;  // allowed range of the second byte
  if (lead < 0x80) {
    ++i;
    return lead;
  } else if (lead >= 0xC2 && lead <= 0xDF) {
    length = 2;
    code = lead & 0x1F;
  } else if (lead >= 0xE0 && lead <= 0xEF) {
    length = 3;
    code = lead & 0x0F;
    if (lead == 0xE0) low = 0xA0;
    if (lead == 0xED) high = 0x9F;
  } else if (lead >= 0xF0 && lead <= 0xF4) {
    length = 4;
    code = lead & 0x07;
    if (lead == 0xF0) low = 0x90;
    if (lead == 0xF4) high = 0x8F;
  }
  bool valid = length != 0 && i + length <= text.size() && byte(i + 1) >= low &&
               byte(i + 1) <= high;
  for (std::size_t k = 1; valid && k < length; ++k) {
    if (byte(i + k) < 0x80 || byte(i + k) > 0xBF) valid = false;
    code = (code << 6) | (byte(i + k) & 0x3F);
  }
  if (!valid) {
    ++i;
    return 0xFFFD;
  }
  i += length;
  return code;
}

void AppendEscape(std::string& out, unsigned code) {
  char buffer[8];
  std::snprintf(buffer, sizeof buffer, "\\u%04x", code);
  out += buffer;
}

}  // namespace

std::string JsonQuote(std::string_view text) {
  std::string out = "\"";
  for (std::size_t i = 0; i < text.size();) {
    const char32_t code = NextCharacter(text, i);
    switch (code) {
      case '"': out += "\\\""; break;
      case '\\': out += "\\\\"; break;
      case '\n': out += "\\n"; break;
      case '\r': out += "\\r"; break;
      case '\t': out += "\\t"; break;
      default:
        if (code >= 0x20 && code < 0x7F) {
          out += static_cast<char>(code);
        } else if (code < 0x10000) {
          AppendEscape(out, static_cast<unsigned>(code));
        } else {  // a surrogate pair
          const char32_t offset = code - 0x10000;
          AppendEscape(out, 0xD800 + static_cast<unsigned>(offset >> 10));
          AppendEscape(out, 0xDC00 + static_cast<unsigned>(offset & 0x3FF));
        }
    }
  }
  return out + "\"";
}

void JsonWriter::NewLine() { out_ << '\n' << std::string(levels_.size() * 2, ' '); }

void JsonWriter::BeforeValue() {
  if (afterKey_) {
    afterKey_ = false;
    return;
  }
  if (!levels_.empty()) {
    if (!levels_.back().empty) out_ << ',';
    levels_.back().empty = false;
    NewLine();
  }
}

JsonWriter& JsonWriter::BeginObject() {
  BeforeValue();
  out_ << '{';
  levels_.push_back({});
  return *this;
}

JsonWriter& JsonWriter::BeginArray() {
  BeforeValue();
  out_ << '[';
  levels_.push_back({});
  return *this;
}

JsonWriter& JsonWriter::Close(char bracket) {
  const bool empty = levels_.back().empty;
  levels_.pop_back();
  if (!empty) NewLine();
  out_ << bracket;
  if (levels_.empty()) out_ << '\n';
  return *this;
}

JsonWriter& JsonWriter::EndObject() { return Close('}'); }
JsonWriter& JsonWriter::EndArray() { return Close(']'); }

JsonWriter& JsonWriter::Key(std::string_view name) {
  BeforeValue();
  out_ << JsonQuote(name) << ": ";
  afterKey_ = true;
  return *this;
}

JsonWriter& JsonWriter::String(std::string_view text) {
  BeforeValue();
  out_ << JsonQuote(text);
  return *this;
}

JsonWriter& JsonWriter::Int(long long value) {
  BeforeValue();
  out_ << value;
  return *this;
}

JsonWriter& JsonWriter::Bool(bool value) {
  BeforeValue();
  out_ << (value ? "true" : "false");
  return *this;
}

JsonWriter& JsonWriter::Null() {
  BeforeValue();
  out_ << "null";
  return *this;
}

}  // namespace app
