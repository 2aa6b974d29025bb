// Code-page conversion through iconv. Both directions keep their iconv handles open once
// opened: a session file is converted line by line, and opening a converter per line
// would dominate the reading time of a large file.
#include "vbrt/codepage.h"

#include <iconv.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <optional>
#include <stdexcept>
#include <utility>

namespace vbrt {
namespace {

constexpr char kReplacement = '?';
// iconv is fed at most this many bytes per call: after a refused character glibc
// re-converts what it had converted ahead in that call, so a short call bounds the cost
// of every "?" in a text full of them.
constexpr std::size_t kChunk = 256;
const iconv_t kInvalidHandle = reinterpret_cast<iconv_t>(-1);

class Converter {
 public:
  Converter(const std::string& to, const std::string& from)
      : handle_(iconv_open(to.c_str(), from.c_str())) {
    if (handle_ == kInvalidHandle)
      throw std::invalid_argument("Unknown code page conversion " + from + " to " + to);
  }
  ~Converter() {
    if (handle_ != kInvalidHandle) iconv_close(handle_);
  }
  Converter(Converter&& other) noexcept : handle_(std::exchange(other.handle_, kInvalidHandle)) {}
  Converter& operator=(Converter&& other) noexcept {
    std::swap(handle_, other.handle_);
    return *this;
  }

  // Converts all of `input`; a sequence that iconv refuses is replaced by one "?" and
  // skipped by the number of bytes `skipLength` gives for it.
  template <typename SkipLength>
  std::string Convert(std::string_view input, SkipLength skipLength) {
    iconv(handle_, nullptr, nullptr, nullptr, nullptr);
    std::string output(input.size() + input.size() / 2 + 16, '\0');
    char* in = const_cast<char*>(input.data());
    std::size_t inLeft = input.size();
    std::size_t written = 0;
    while (inLeft > 0) {
      char* out = output.data() + written;
      std::size_t outLeft = output.size() - written;
      const std::size_t chunk = std::min(inLeft, kChunk);
      std::size_t chunkLeft = chunk;
      const std::size_t result = iconv(handle_, &in, &chunkLeft, &out, &outLeft);
      const bool chunkIsTheRest = chunk == inLeft;
      inLeft -= chunk - chunkLeft;
      written = output.size() - outLeft;
      if (result != static_cast<std::size_t>(-1)) continue;
      if (errno == E2BIG) {
        output.resize(output.size() * 2);
      } else if (errno == EINVAL && !chunkIsTheRest) {
        continue;  // a character cut by the chunk's end: the next chunk starts with it
      } else {  // EILSEQ, or EINVAL for a character cut off by the end of the text
        if (written == output.size()) output.resize(output.size() * 2);
        output[written++] = kReplacement;
        const std::size_t skip = std::min(inLeft, skipLength(std::string_view(in, inLeft)));
        in += skip;
        inLeft -= skip;
      }
    }
    output.resize(written);
    return output;
  }

 private:
  iconv_t handle_;
};

// Length of the well-formed UTF-8 character at the start of `text`, or 1 for a byte
// that starts no such character (each invalid byte becomes its own "?").
std::size_t Utf8CharacterLength(std::string_view text) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned char lead = byte(0);
  std::size_t length = 0;
  unsigned int low = 0x80, high = 0xBF;  // range of the second byte
  if (lead >= 0xC2 && lead <= 0xDF) {
    length = 2;
  } else if (lead >= 0xE0 && lead <= 0xEF) {
    length = 3;
    if (lead == 0xE0) low = 0xA0;   // no overlong forms
    if (lead == 0xED) high = 0x9F;  // no surrogates
  } else if (lead >= 0xF0 && lead <= 0xF4) {
    length = 4;
    if (lead == 0xF0) low = 0x90;
    if (lead == 0xF4) high = 0x8F;  // nothing beyond U+10FFFF
  } else {
    return 1;
  }
  if (text.size() < length || byte(1) < low || byte(1) > high) return 1;
  for (std::size_t i = 2; i < length; ++i)
    if (byte(i) < 0x80 || byte(i) > 0xBF) return 1;
  return length;
}

std::size_t OneByte(std::string_view) { return 1; }

bool IsAscii(std::string_view text) {
  // Eight bytes at a time: whole generated files pass through here.
  constexpr std::uint64_t kHighBits = 0x8080808080808080;
  std::size_t i = 0;
  for (; i + sizeof(std::uint64_t) <= text.size(); i += sizeof(std::uint64_t)) {
    std::uint64_t eight;
    std::memcpy(&eight, text.data() + i, sizeof eight);
    if (eight & kHighBits) return false;
  }
  for (; i < text.size(); ++i) {
    if (static_cast<unsigned char>(text[i]) >= 0x80) return false;
  }
  return true;
}

// The converters are opened on first use: most texts of a session and of generated code
// are ASCII and need none, so a run that meets no other text never loads iconv's tables.
class CodePage {
 public:
  // The default: Windows-1252 holds ASCII as it is.
  CodePage() : name_("WINDOWS-1252"), asciiAsIs_(true) {}
  // A code page named by the user, opened at once: an unknown name throws here, and
  // whether it holds ASCII as ASCII (as every ANSI code page does) is checked.
  explicit CodePage(const std::string& iconvName) : name_(iconvName) {
    std::string ascii(127, '\0');
    for (int c = 1; c < 128; ++c) ascii[c - 1] = static_cast<char>(c);
    asciiAsIs_ = FromAnsi().Convert(ascii, OneByte) == ascii &&
                 ToAnsi().Convert(ascii, OneByte) == ascii;
  }

  const std::string& Name() const { return name_; }
  // Then an ASCII text, which most lines are, needs no conversion.
  bool AsciiAsIs() const { return asciiAsIs_; }
  Converter& ToAnsi() { return Opened(toAnsi_, name_, "UTF-8"); }
  Converter& FromAnsi() { return Opened(fromAnsi_, "UTF-8", name_); }

 private:
  static Converter& Opened(std::optional<Converter>& converter, const std::string& to,
                           const std::string& from) {
    if (!converter) converter.emplace(to, from);
    return *converter;
  }

  std::string name_;
  bool asciiAsIs_ = false;
  std::optional<Converter> toAnsi_;
  std::optional<Converter> fromAnsi_;
};

CodePage& Current() {
  static CodePage codePage;
  return codePage;
}

}  // namespace

void SetAnsiCodePage(const std::string& iconvName) {
  CodePage replacement(iconvName);  // throws before anything changes
  Current() = std::move(replacement);
}

const std::string& AnsiCodePage() { return Current().Name(); }

bool IsCodePageNeutral(std::string_view text) { return Current().AsciiAsIs() && IsAscii(text); }

std::string ToAnsi(std::string_view utf8) {
  if (IsCodePageNeutral(utf8)) return std::string(utf8);
  return Current().ToAnsi().Convert(utf8, Utf8CharacterLength);
}

std::string FromAnsi(std::string_view ansi) {
  if (IsCodePageNeutral(ansi)) return std::string(ansi);
  return Current().FromAnsi().Convert(ansi, OneByte);
}

bool IsUtf8(std::string_view bytes) {
  for (std::size_t i = 0; i < bytes.size();) {
    const std::size_t length = Utf8CharacterLength(bytes.substr(i));
    if (length == 1 && static_cast<unsigned char>(bytes[i]) >= 0x80) return false;
    i += length;
  }
  return true;
}

std::string ValidUtf8(std::string_view bytes) {
  std::string valid;
  valid.reserve(bytes.size());
  for (std::size_t i = 0; i < bytes.size();) {
    const std::size_t length = Utf8CharacterLength(bytes.substr(i));
    if (length == 1 && static_cast<unsigned char>(bytes[i]) >= 0x80) {
      valid += "\xEF\xBF\xBD";
    } else {
      valid.append(bytes.substr(i, length));
    }
    i += length;
  }
  return valid;
}

std::string UnheldCharacters(std::string_view utf8) {
  std::string unheld;
  if (IsCodePageNeutral(utf8)) return unheld;
  CodePage& codePage = Current();
  for (std::size_t i = 0; i < utf8.size();) {
    const std::size_t length = Utf8CharacterLength(utf8.substr(i));
    const std::string_view character = utf8.substr(i, length);
    i += length;
    if (character == std::string_view(&kReplacement, 1)) continue;
    if (codePage.AsciiAsIs() && IsAscii(character)) continue;
    const bool invalid = length == 1 && static_cast<unsigned char>(character[0]) >= 0x80;
    if (!invalid && codePage.ToAnsi().Convert(character, Utf8CharacterLength) !=
                        std::string_view(&kReplacement, 1)) {
      continue;
    }
    const std::string_view shown = invalid ? std::string_view("\xEF\xBF\xBD") : character;
    // Whole UTF-8 characters cannot match across a boundary of others.
    if (unheld.find(shown) == std::string::npos) unheld += shown;
  }
  return unheld;
}

}  // namespace vbrt
