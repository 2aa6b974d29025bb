#include "session/record_check.h"

#include <algorithm>
#include <string_view>
#include <unordered_set>
#include <utility>

#include "resources/string_ids.h"
#include "resources/string_table.h"
#include "session/code_page_notice.h"
#include "session/input_rules.h"
#include "vbrt/codepage.h"
#include "vbrt/line_end.h"
#include "vbrt/numbers.h"

namespace session {
namespace {

// Length of a character that ends a line somewhere (C0 controls but the tab, DEL, NEL,
// the Unicode line and paragraph separators) at `i`, or 0.
std::size_t LineBreakAt(std::string_view text, std::size_t i) {
  const auto byte = static_cast<unsigned char>(text[i]);
  if ((byte < 0x20 && byte != '\t') || byte == 0x7F) return 1;
  const std::string_view rest = text.substr(i);
  if (rest.starts_with("\xC2\x85")) return 2;
  if (rest.starts_with("\xE2\x80\xA8") || rest.starts_with("\xE2\x80\xA9")) return 3;
  return 0;
}

bool HasLineBreak(std::string_view text) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (LineBreakAt(text, i) != 0) return true;
  }
  return false;
}

// The text in quotes for a one-line report, line breaks shown as "?".
std::string Quoted(std::string_view text) {
  std::string out = "\"";
  for (std::size_t i = 0; i < text.size();) {
    if (const std::size_t length = LineBreakAt(text, i); length != 0) {
      out += '?';
      i += length;
    } else {
      out += text[i++];
    }
  }
  return out + "\"";
}

// The name of the control character at `i`, whose length LineBreakAt gave.
std::string ControlCharacterName(std::string_view text, std::size_t i, std::size_t length) {
  static constexpr std::string_view kNames[] = {
      "NUL", "SOH", "STX", "ETX", "EOT", "ENQ", "ACK", "BEL", "BS", "HT", "LF",
      "VT",  "FF",  "CR",  "SO",  "SI",  "DLE", "DC1", "DC2", "DC3", "DC4", "NAK",
      "SYN", "ETB", "CAN", "EM",  "SUB", "ESC", "FS",  "GS",  "RS",  "US"};
  const auto byte = static_cast<unsigned char>(text[i]);
  if (byte < 0x20) return std::string(kNames[byte]) + " (code " + std::to_string(byte) + ")";
  if (length == 1) return "DEL (code 127)";
  if (length == 2) return "NEL (U+0085)";
  return text[i + 2] == '\xA8' ? "LS (U+2028)" : "PS (U+2029)";
}

class Checker {
 public:
  explicit Checker(const FormState& form) : form_(form) {}

  std::vector<std::string> Run() {
    General();
    Inputs();
    Outputs();
    return std::move(problems_);
  }

 private:
  void Add(const std::string& where, const std::string& what) {
    problems_.push_back(where + ": " + what);
  }

  // Generated code holds these texts inside string literals.
  void Literal(const std::string& where, std::string_view name, std::string_view text) {
    if (text.find('"') != std::string_view::npos) {
      Add(where, std::string(name) + " " + Quoted(text) +
                     " holds a double quote, which would end a string in the generated code");
    }
    OneLine(where, name, text);
  }

  // Every inserted text must stay on its generated line.
  void OneLine(const std::string& where, std::string_view name, std::string_view text) {
    if (HasLineBreak(text)) {
      Add(where, std::string(name) + " " + Quoted(text) +
                     " holds a line break or control character, which would break the "
                     "generated code");
    }
  }

  // The input page's text for a refusal of the input rules; nothing for 0.
  void Refused(const std::string& where, int refusal) {
    if (refusal != 0) Add(where, resources::LoadResString(refusal));
  }

  void Selected(const ComboBox& combo, std::string_view key, std::string_view what) {
    if (combo.listIndex < 0) Add(std::string(key), "no " + std::string(what) + " is selected");
  }

  void General() {
    if (form_.edLocation.empty()) Add("PROJECT", "the project path is empty");
    Literal("PROJECT", "the path", form_.edLocation);
    Literal("AUTHOR", "the author", form_.edAuthor);
    Selected(form_.cmbType, "TYPE", "problem type");
    Selected(form_.cmbClass, "CLASS", "problem class");
    Selected(form_.cmbCoord, "COORDINATES", "coordinate system");
    Selected(form_.cmbUnit, "UNITS", "length unit");
  }

  void Inputs() {
    const std::vector<std::string> types =
        resources::ListFrom(resources::kInputTypeBase, resources::kInputTypeCount);
    std::unordered_set<std::string> descriptions{kNewInputText};
    std::unordered_set<std::string> variables;
    const ListView& list = form_.lvInput;
    for (int row = 0; row < form_.InputCount(); ++row) {
      const std::string& description = list.Item(row).text;
      const std::string where = "Input " + std::to_string(row + 1) + " " + Quoted(description);
      Refused(where, DescriptionRefusal(description, !descriptions.insert(description).second));
      Literal(where, "the description", description);

      const std::string& type = list.SubItem(row, kInputType);
      if (std::find(types.begin(), types.end(), type) == types.end()) {
        Add(where, "unknown parameter type " + Quoted(type));
      }

      const std::string& variable = list.SubItem(row, kInputVariable);
      Refused(where + " VARIABLE " + Quoted(variable),
              VariableRefusal(variable, !variables.insert(variable).second));
      Literal(where, "the variable", variable);
      Literal(where, "the unit", list.SubItem(row, kInputUnit));
      Limits(where, list.SubItem(row, kInputMin), list.SubItem(row, kInputMax),
             list.SubItem(row, kInputDefault));
    }
  }

  void Limits(const std::string& where, const std::string& min, const std::string& max,
              const std::string& defaultValue) {
    bool numeric = true;
    for (const auto& [name, text] : {std::pair<const char*, const std::string&>{"MIN", min},
                                     {"MAX", max},
                                     {"DEFAULT", defaultValue}}) {
      if (!vbrt::IsNumeric(text)) {
        Add(where, std::string(name) + " " + Quoted(text) + " is not a number");
        numeric = false;
      }
    }
    if (!numeric) return;
    const double low = vbrt::CDbl(min);
    const double high = vbrt::CDbl(max);
    const double value = vbrt::CDbl(defaultValue);
    if (low > high) {
      Add(where, "MIN " + min + " is greater than MAX " + max);
    } else if (value < low || value > high) {
      Add(where, "DEFAULT " + defaultValue + " lies outside MIN " + min + " to MAX " + max);
    }
  }

  void Outputs() {
    std::unordered_set<std::string> descriptions;
    const ListView& list = form_.lvOutput;
    for (int row = 0; row < list.Count(); ++row) {
      const std::string& description = list.Item(row).text;
      const std::string where = "Output " + std::to_string(row + 1) + " " + Quoted(description);
      if (description.empty()) {
        Add(where, "the description is empty");
      } else if (!descriptions.insert(description).second) {
        Add(where, "the description is not unique");
      }
      Literal(where, "the description", description);
      const std::string& value = list.SubItem(row, 1);
      if (value.empty()) Add(where, "the result expression (VALUE) is empty");
      // The expression is code, so a double quote in it is the user's own string literal.
      OneLine(where, "the result expression", value);
    }
  }

  const FormState& form_;
  std::vector<std::string> problems_;
};

}  // namespace

std::vector<std::string> CheckRecord(const FormState& form) { return Checker(form).Run(); }

std::string ControlCharacterPathRefusal(std::string_view path) {
  for (std::size_t i = 0; i < path.size(); ++i) {
    // A tab breaks no generated line, but no file name holds one either.
    const std::size_t length = path[i] == '\t' ? 1 : LineBreakAt(path, i);
    if (length == 0) continue;
    using resources::LoadResString;
    return LoadResString(resources::kControlCharacterBefore) +
           ControlCharacterName(path, i, length) +
           LoadResString(resources::kControlCharacterAfter);
  }
  return {};
}

std::string RefusedPathField(const FormState& form) {
  const std::pair<std::string_view, const std::string&> paths[] = {
      {"PROJECT", form.edLocation},
      {"MODEL", form.edModel},
      {"DATA", form.edData},
      {"SKETCH", form.edSketch}};
  for (const auto& [key, path] : paths) {
    const std::string refusal = ControlCharacterPathRefusal(path);
    if (!refusal.empty()) return std::string(key) + ": " + refusal;
  }
  return {};
}

std::vector<std::string> CheckFileText(std::string_view file) {
  std::vector<std::string> problems;
  const std::string& codePage = vbrt::AnsiCodePage();
  for (int number = 1; !file.empty(); ++number) {
    const std::size_t end = vbrt::FindLineEnd(file);
    const std::string_view line = file.substr(0, end);
    file.remove_prefix(end);
    if (file.starts_with("\r\n")) {
      file.remove_prefix(2);
    } else if (!file.empty()) {
      file.remove_prefix(1);
    }
    if (vbrt::IsCodePageNeutral(line)) continue;
    const std::size_t equals = line.find('=');
    const std::string where =
        "line " + std::to_string(number) +
        (equals == std::string_view::npos ? "" : " " + std::string(line.substr(0, equals)));
    const std::string_view text = equals == std::string_view::npos ? line : line.substr(equals + 1);
    const std::string read = vbrt::FromAnsi(text);
    if (vbrt::IsUtf8(text) && read != text) {
      std::string problem = where + ": \"" + std::string(text) + "\" is UTF-8 text, which " +
                            codePage + " reads as \"" + read + "\"";
      const std::string lost = CodePageWarning(text);
      problems.push_back(lost.empty() ? problem + "; save the file in " + codePage
                                      : problem + ". " + lost);
    } else if (std::count(read.begin(), read.end(), '?') >
               std::count(text.begin(), text.end(), '?')) {
      problems.push_back(where + ": bytes that are no characters of " + codePage +
                         " are read as \"?\": \"" + read + "\"");
    }
  }
  return problems;
}

}  // namespace session
