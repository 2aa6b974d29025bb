#include "app/session_views.h"

#include <algorithm>
#include <cstdint>
#include <string_view>
#include <vector>

#include <nlohmann/json.hpp>

#include "session/record_fields.h"
#include "vbrt/codepage.h"

namespace app {
namespace {

using session::Field;
using session::FormState;

using Json = nlohmann::ordered_json;  // keys in the order they are set

// Keys whose values are integers in their section.
bool IsGeneralInteger(std::string_view key) {
  return key == "ASYNCHRONOUS" || key == "TYPE" || key == "CLASS" || key == "COORDINATES" ||
         key == "UNITS";
}

// Display width in characters of UTF-8 text (continuation bytes take none).
std::size_t Width(std::string_view text) {
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) {
    return (static_cast<unsigned char>(c) & 0xC0) != 0x80;
  }));
}

// The text with control characters shown as "?", so that each row stays one line.
std::string Printable(std::string_view text) {
  std::string out(text);
  for (char& c : out) {
    if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F) c = '?';
  }
  return out;
}

// What a general value means, when that is not the value itself.
std::string Meaning(const FormState& form, std::string_view key) {
  const auto choice = [](const session::ComboBox& combo) {
    return combo.listIndex < 0 ? std::string("(none selected)") : "(" + combo.Text() + ")";
  };
  if (key == "ASYNCHRONOUS") {
    switch (form.chkAsync.value) {
      case 0: return "(unchecked)";
      case 1: return "(checked)";
      case 2: return "(grayed)";
    }
    return "";
  }
  if (key == "TYPE") return choice(form.cmbType);
  if (key == "CLASS") return choice(form.cmbClass);
  if (key == "COORDINATES") return choice(form.cmbCoord);
  if (key == "UNITS") return choice(form.cmbUnit);
  return "";
}

void WriteTable(std::ostream& out, const std::vector<std::vector<std::string>>& rows) {
  std::vector<std::size_t> widths(rows.front().size(), 0);
  for (const auto& row : rows) {
    for (std::size_t c = 0; c < row.size(); ++c) widths[c] = std::max(widths[c], Width(row[c]));
  }
  for (const auto& row : rows) {
    std::string line = " ";
    for (std::size_t c = 0; c < row.size(); ++c) {
      line += ' ';
      line += row[c];
      if (c + 1 < row.size()) line.append(widths[c] - Width(row[c]) + 1, ' ');
    }
    line.erase(line.find_last_not_of(' ') + 1);
    out << line << '\n';
  }
}

// The table of one list: a header of keys, then "#" and the fields of each row.
template <typename FieldsOf>
void WriteList(std::ostream& out, std::string_view title, int count, FieldsOf fieldsOf) {
  out << '\n' << title << ": " << count << '\n';
  if (count == 0) return;
  std::vector<std::vector<std::string>> rows;
  rows.reserve(static_cast<std::size_t>(count) + 1);
  std::vector<std::string> header{"#"};
  for (const Field& field : fieldsOf(0)) header.emplace_back(field.key);
  rows.push_back(std::move(header));
  for (int row = 0; row < count; ++row) {
    std::vector<std::string> cells{std::to_string(row + 1)};
    for (Field& field : fieldsOf(row)) cells.push_back(Printable(field.value));
    rows.push_back(std::move(cells));
  }
  WriteTable(out, rows);
}

// A text as a JSON string; each byte that starts no UTF-8 character becomes U+FFFD.
Json String(std::string_view text) { return vbrt::ValidUtf8(text); }

// The JSON as the command has always printed it: two-blank indentation, ASCII only, every
// other character a \u escape, a backspace and a form feed too (not \b and \f).
std::string Printed(const Json& json) {
  const std::string dumped =
      json.dump(2, ' ', /*ensure_ascii=*/true, Json::error_handler_t::replace);
  std::string text;
  text.reserve(dumped.size());
  for (std::size_t i = 0; i < dumped.size(); ++i) {
    if (dumped[i] != '\\') {
      text += dumped[i];
      continue;
    }
    const char escaped = dumped[++i];
    text += escaped == 'b' ? "\\u0008" : escaped == 'f' ? "\\u000c" : std::string{'\\', escaped};
  }
  return text;
}

}  // namespace

void WriteSessionListing(std::ostream& out, const FormState& form) {
  out << "General\n";
  std::vector<std::vector<std::string>> rows;
  for (const Field& field : session::GeneralFields(form)) {
    std::string value = Printable(field.value);
    const std::string meaning = Meaning(form, field.key);
    if (!meaning.empty()) value += " " + meaning;
    rows.push_back({std::string(field.key), value});
  }
  WriteTable(out, rows);
  WriteList(out, "Input parameters", form.InputCount(),
            [&](int row) { return session::InputFields(form, row); });
  WriteList(out, "Output parameters", form.lvOutput.Count(),
            [&](int row) { return session::OutputFields(form, row); });
}

void WriteSessionJson(std::ostream& out, const FormState& form, bool result,
                      const std::optional<std::string>& message) {
  Json json = {{"result", result}, {"message", message ? String(*message) : Json()}};
  for (const Field& field : session::GeneralFields(form)) {
    json[std::string(field.key)] =
        IsGeneralInteger(field.key) ? Json(std::stoll(field.value)) : String(field.value);
  }
  Json& inputs = json["INPUT"] = Json::array();
  for (int row = 0; row < form.InputCount(); ++row) {
    Json& input = inputs.emplace_back(Json::object());
    for (const Field& field : session::InputFields(form, row)) {
      input[std::string(field.key)] = String(field.value);
    }
  }
  Json& outputs = json["OUTPUT"] = Json::array();
  for (int row = 0; row < form.lvOutput.Count(); ++row) {
    Json& output = outputs.emplace_back(Json::object());
    const std::optional<int16_t> icon = form.lvOutput.Item(row).smallIcon;
    for (const Field& field : session::OutputFields(form, row)) {
      output[std::string(field.key)] =
          field.key != "ICON" ? String(field.value) : icon ? Json(*icon) : Json();
    }
  }
  out << Printed(json) << '\n';
}

}  // namespace app
