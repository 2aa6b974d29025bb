#pragma once
// A small streaming JSON writer with two-blank indentation. Its output is plain ASCII:
// every character outside ASCII is written as a \u escape.
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace app {

// `text` (UTF-8) as a JSON string literal, quotes included. A byte that starts no
// well-formed UTF-8 character becomes U+FFFD.
std::string JsonQuote(std::string_view text);

class JsonWriter {
 public:
  explicit JsonWriter(std::ostream& out) : out_(out) {}

  // A value inside an object needs its Key first.
  JsonWriter& BeginObject();
  JsonWriter& EndObject();
  JsonWriter& BeginArray();
  JsonWriter& EndArray();
  JsonWriter& Key(std::string_view name);
  JsonWriter& String(std::string_view text);
  JsonWriter& Int(long long value);
  JsonWriter& Bool(bool value);
  JsonWriter& Null();

 private:
  void BeforeValue();
  JsonWriter& Close(char bracket);
  void NewLine();

  struct Level {
    bool empty = true;
  };
  std::ostream& out_;
  std::vector<Level> levels_;
  bool afterKey_ = false;
};

}  // namespace app
