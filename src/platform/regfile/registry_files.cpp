#include "platform/regfile/registry_files.h"

#include <cctype>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <vector>

namespace platform {
namespace fs = std::filesystem;
namespace {

constexpr std::string_view kHiveHeader = "WINE REGISTRY Version 2";
constexpr std::string_view kExport4Header = "REGEDIT4";
constexpr std::string_view kExport5Header = "Windows Registry Editor Version 5.00";

std::string Lower(std::string_view text) {
  std::string result(text);
  for (char& c : result) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return result;
}

// A key path folded to lower case, without separators at its ends.
std::string NormalKey(std::string_view path) {
  while (!path.empty() && path.front() == '\\') path.remove_prefix(1);
  while (!path.empty() && path.back() == '\\') path.remove_suffix(1);
  return Lower(path);
}

std::string_view TrimRight(std::string_view text) {
  while (!text.empty() && std::isspace(static_cast<unsigned char>(text.back()))) {
    text.remove_suffix(1);
  }
  return text;
}

std::string_view TrimLeft(std::string_view text) {
  while (!text.empty() && std::isspace(static_cast<unsigned char>(text.front()))) {
    text.remove_prefix(1);
  }
  return text;
}

void AppendUtf8(std::string& out, uint32_t code) {
  if (code < 0x80) {
    out += static_cast<char>(code);
  } else if (code < 0x800) {
    out += static_cast<char>(0xC0 | (code >> 6));
    out += static_cast<char>(0x80 | (code & 0x3F));
  } else if (code < 0x10000) {
    out += static_cast<char>(0xE0 | (code >> 12));
    out += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (code & 0x3F));
  } else {
    out += static_cast<char>(0xF0 | (code >> 18));
    out += static_cast<char>(0x80 | ((code >> 12) & 0x3F));
    out += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (code & 0x3F));
  }
}

// UTF-16 LE (after its byte-order mark) to UTF-8; a lone surrogate becomes "?".
std::string FromUtf16(std::string_view bytes) {
  std::string out;
  auto unit = [&](std::size_t i) {
    return static_cast<uint32_t>(static_cast<unsigned char>(bytes[i])) |
           static_cast<uint32_t>(static_cast<unsigned char>(bytes[i + 1])) << 8;
  };
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
    uint32_t code = unit(i);
    if (code >= 0xD800 && code < 0xDC00 && i + 3 < bytes.size() && unit(i + 2) >= 0xDC00 &&
        unit(i + 2) < 0xE000) {
      code = 0x10000 + ((code - 0xD800) << 10) + (unit(i + 2) - 0xDC00);
      i += 2;
    } else if (code >= 0xD800 && code < 0xE000) {
      code = '?';
    }
    AppendUtf8(out, code);
  }
  return out;
}

std::string ReadText(const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  if (!in) throw std::runtime_error("cannot read registry file '" + file.string() + "'");
  std::string bytes{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  if (in.bad()) throw std::runtime_error("cannot read registry file '" + file.string() + "'");
  if (bytes.starts_with("\xFF\xFE")) return FromUtf16(std::string_view(bytes).substr(2));
  if (bytes.starts_with("\xEF\xBB\xBF")) return bytes.substr(3);
  return bytes;
}

std::vector<std::string> SplitLines(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    lines.push_back(std::move(line));
  }
  return lines;
}

class FileParser {
 public:
  FileParser(const fs::path& file, RegistryFiles::Keys& keys) : file_(file), keys_(keys) {}

  void Parse(const std::vector<std::string>& lines) {
    std::size_t first = 0;
    while (first < lines.size() && TrimRight(lines[first]).empty()) ++first;
    const std::string_view header = first < lines.size() ? TrimRight(lines[first]) : "";
    if (header == kHiveHeader) {
      hive_ = true;
      // Wine's user.reg holds the current user's keys, its other hives the machine's.
      root_ = file_.filename() == "user.reg" ? "hkcu" : "hklm";
    } else if (header != kExport4Header && header != kExport5Header) {
      Fail(first, "is not a registry file (no \"" + std::string(kHiveHeader) + "\", \"" +
                      std::string(kExport4Header) + "\" or \"" + std::string(kExport5Header) +
                      "\" header)");
    }
    for (std::size_t i = first + 1; i < lines.size(); ++i) {
      std::string line(TrimRight(lines[i]));
      const std::size_t start = i;
      // Long binary values go on over lines that end with "\".
      while (line.ends_with('\\') && (line.starts_with('"') || line.starts_with('@')) &&
             i + 1 < lines.size()) {
        line.pop_back();
        line += TrimLeft(TrimRight(lines[++i]));
      }
      ParseLine(line, start);
    }
  }

 private:
  [[noreturn]] void Fail(std::size_t index, const std::string& what) const {
    throw std::runtime_error("registry file '" + file_.string() + "', line " +
                             std::to_string(index + 1) + ": " + what);
  }

  void ParseLine(std::string_view line, std::size_t index) {
    if (hive_ && line.starts_with(";; All keys relative to ")) {
      root_ = line.find("\\\\User") != std::string_view::npos ? "hkcu" : "hklm";
      return;
    }
    if (line.empty() || line.starts_with(';') || (hive_ && line.starts_with('#'))) return;
    if (line.starts_with('[')) return ParseSection(line, index);
    if (line.starts_with('"') || line.starts_with('@')) return ParseValue(line, index);
    Fail(index, "unexpected text");
  }

  void ParseSection(std::string_view line, std::size_t index) {
    const std::size_t close = line.rfind(']');
    if (close == std::string_view::npos) Fail(index, "key name without closing ']'");
    std::string_view name = line.substr(1, close - 1);
    if (hive_) {
      key_ = root_ + "\\" + NormalKey(Unescape(name, index));
      keys_[*key_];
      return;
    }
    const bool remove = name.starts_with('-');
    if (remove) name.remove_prefix(1);
    const std::size_t cut = name.find('\\');
    const std::string rootName = Lower(name.substr(0, cut));
    std::string root;
    if (rootName == "hkey_classes_root" || rootName == "hkcr") {
      root = "hklm\\software\\classes";
    } else if (rootName == "hkey_local_machine" || rootName == "hklm") {
      root = "hklm";
    } else if (rootName == "hkey_current_user" || rootName == "hkcu") {
      root = "hkcu";
    } else if (rootName == "hkey_users" || rootName == "hku") {
      root = "hku";
    } else {
      Fail(index, "unknown root key '" + std::string(name.substr(0, cut)) + "'");
    }
    const std::string rest = cut == std::string_view::npos ? "" : NormalKey(name.substr(cut));
    const std::string key = rest.empty() ? root : root + "\\" + rest;
    if (remove) {
      // The key goes with all its subkeys; values that follow belong to no key.
      keys_.erase(key);
      keys_.erase(keys_.lower_bound(key + "\\"), keys_.lower_bound(key + "\\\xFF"));
      key_.reset();
    } else {
      key_ = key;
      keys_[key];
    }
  }

  void ParseValue(std::string_view line, std::size_t index) {
    if (!key_) Fail(index, "value outside a key");
    std::string name;
    std::size_t pos = 0;
    if (line.front() == '@') {
      pos = 1;
    } else {
      name = QuotedString(line, pos, index);
    }
    while (pos < line.size() && line[pos] == ' ') ++pos;
    if (pos >= line.size() || line[pos] != '=') Fail(index, "value without '='");
    std::string_view data = TrimLeft(line.substr(pos + 1));
    RegistryFiles::Values& values = keys_[*key_];
    name = Lower(name);
    if (data == "-") {
      values.erase(name);
    } else if (data.starts_with('"')) {
      values[name] = TextValue(data, index);
    } else if (data.starts_with("str(")) {
      const std::size_t colon = data.find("):");
      if (colon == std::string_view::npos) Fail(index, "malformed typed string");
      const bool plain = data.substr(4, colon - 4) == "1";
      const RegistryValue text = TextValue(data.substr(colon + 2), index);
      values[name] = plain ? text : RegistryValue{};  // other string types are not REG_SZ
    } else if (data.starts_with("dword:")) {
      values[name] = Dword(data.substr(6), index);
    } else if (data.starts_with("hex")) {
      values[name] = RegistryValue{};  // binary and other types read as Empty
    } else {
      Fail(index, "unrecognised value '" + std::string(data) + "'");
    }
  }

  // A REG_SZ value: the quoted text, cut before its first NUL.
  std::string TextValue(std::string_view data, std::size_t index) {
    std::size_t pos = 0;
    std::string text = QuotedString(data, pos, index);
    if (!TrimRight(data.substr(pos)).empty()) Fail(index, "text after the closing quote");
    if (const std::size_t nul = text.find('\0'); nul != std::string::npos) text.resize(nul);
    return text;
  }

  int32_t Dword(std::string_view digits, std::size_t index) {
    if (digits.empty() || digits.size() > 8) Fail(index, "malformed dword value");
    uint32_t value = 0;
    for (char c : digits) {
      if (!std::isxdigit(static_cast<unsigned char>(c))) Fail(index, "malformed dword value");
      value = value * 16 + static_cast<uint32_t>(std::isdigit(static_cast<unsigned char>(c))
                                                      ? c - '0'
                                                      : std::tolower(c) - 'a' + 10);
    }
    return static_cast<int32_t>(value);
  }

  // The string that starts with the quote at `pos`; `pos` ends after its closing quote.
  std::string QuotedString(std::string_view line, std::size_t& pos, std::size_t index) {
    const std::size_t open = pos;
    for (++pos; pos < line.size(); ++pos) {
      if (line[pos] == '\\') {
        ++pos;
      } else if (line[pos] == '"') {
        ++pos;
        return Unescape(line.substr(open + 1, pos - open - 2), index);
      }
    }
    Fail(index, "string without closing quote");
  }

  // Resolves "\\" and "\"" (and, in Wine's hives, the C escapes and "\xHHHH").
  std::string Unescape(std::string_view text, std::size_t index) {
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
      if (text[i] != '\\') {
        out += text[i];
        continue;
      }
      if (++i >= text.size()) Fail(index, "escape at the end of a string");
      const char c = text[i];
      if (!hive_) {
        out += c;
        continue;
      }
      switch (c) {
        case 'a': out += '\a'; break;
        case 'b': out += '\b'; break;
        case 'e': out += '\x1b'; break;
        case 'f': out += '\f'; break;
        case 'n': out += '\n'; break;
        case 'r': out += '\r'; break;
        case 't': out += '\t'; break;
        case 'v': out += '\v'; break;
        case 'x': {
          uint32_t code = 0;
          std::size_t n = 0;
          while (n < 4 && i + 1 < text.size() &&
                 std::isxdigit(static_cast<unsigned char>(text[i + 1]))) {
            const char d = text[++i];
            code = code * 16 + static_cast<uint32_t>(std::isdigit(static_cast<unsigned char>(d))
                                                         ? d - '0'
                                                         : std::tolower(d) - 'a' + 10);
            ++n;
          }
          AppendUtf8(out, code);
          break;
        }
        default:
          if (c >= '0' && c <= '7') {
            uint32_t code = static_cast<uint32_t>(c - '0');
            for (int n = 1; n < 3 && i + 1 < text.size() && text[i + 1] >= '0' && text[i + 1] <= '7';
                 ++n) {
              code = code * 8 + static_cast<uint32_t>(text[++i] - '0');
            }
            AppendUtf8(out, code);
          } else {
            out += c;
          }
      }
    }
    return out;
  }

  const fs::path& file_;
  RegistryFiles::Keys& keys_;
  bool hive_ = false;
  std::string root_;
  std::optional<std::string> key_;  // the section the values belong to
};

}  // namespace

RegistryFiles RegistryFiles::FromEnvironment() {
  RegistryFiles registry;
  fs::path prefix;
  if (const char* wine = std::getenv("WINEPREFIX"); wine && *wine) {
    prefix = wine;
  } else if (const char* home = std::getenv("HOME"); home && *home) {
    prefix = fs::path(home) / ".wine";
  }
  if (!prefix.empty()) {
    for (const char* hive : {"system.reg", "user.reg"}) {
      std::error_code ec;
      if (fs::is_regular_file(prefix / hive, ec)) registry.AddFile(prefix / hive);
    }
  }
  if (const char* list = std::getenv("EOWIZARD_REGISTRY"); list && *list) {
    std::string_view rest = list;
    while (!rest.empty()) {
      const std::size_t colon = rest.find(':');
      const std::string_view name = rest.substr(0, colon);
      if (!name.empty()) registry.AddFile(fs::path(name));
      rest = colon == std::string_view::npos ? "" : rest.substr(colon + 1);
    }
  }
  return registry;
}

void RegistryFiles::AddFile(const fs::path& file) {
  Keys staged = keys_;
  FileParser(file, staged).Parse(SplitLines(ReadText(file)));
  keys_ = std::move(staged);
}

RegistryValue RegistryFiles::QueryRegValue(RegistryRoot root, std::string_view keyPath,
                                           std::string_view valueName) const {
  const std::string key = NormalKey(keyPath);
  const std::string name = Lower(valueName);
  auto find = [&](std::string full) -> std::optional<RegistryValue> {
    if (!key.empty()) full += "\\" + key;
    const auto k = keys_.find(full);
    if (k == keys_.end()) return std::nullopt;
    const auto v = k->second.find(name);
    if (v == k->second.end()) return std::nullopt;
    return v->second;
  };
  std::optional<RegistryValue> value;
  switch (root) {
    case RegistryRoot::ClassesRoot:
      value = find("hkcu\\software\\classes");
      if (!value) value = find("hklm\\software\\classes");
      break;
    case RegistryRoot::CurrentUser: value = find("hkcu"); break;
    case RegistryRoot::LocalMachine: value = find("hklm"); break;
    case RegistryRoot::Users: value = find("hku"); break;
  }
  return value.value_or(RegistryValue{});
}

}  // namespace platform
