#pragma once
// The system's ANSI code page. Texts are UTF-8 inside the program; files hold the
// bytes of the code page.
#include <string>
#include <string_view>

namespace vbrt {

// The code page used by the two conversions below; "WINDOWS-1252" until set. Throws
// std::invalid_argument for a name iconv does not know.
void SetAnsiCodePage(const std::string& iconvName);
const std::string& AnsiCodePage();

// Whether `text` has the same bytes in UTF-8 and in the ANSI code page: plain ASCII, which
// the code page holds as it is. ToAnsi and FromAnsi return such a text unchanged, so a
// caller holding a large text may skip them and the copy they make.
bool IsCodePageNeutral(std::string_view text);

// UTF-8 to the ANSI code page; a character the code page cannot hold becomes "?".
// Invalid UTF-8 bytes become "?" too.
std::string ToAnsi(std::string_view utf8);
// ANSI code page bytes to UTF-8; bytes the code page leaves undefined become "?".
std::string FromAnsi(std::string_view ansi);

// Whether `bytes` are well-formed UTF-8.
bool IsUtf8(std::string_view bytes);
// `bytes` with each byte that starts no well-formed UTF-8 character replaced by U+FFFD.
std::string ValidUtf8(std::string_view bytes);

// The characters of `utf8` that the ANSI code page cannot hold (those ToAnsi turns into
// "?"), each once and in the order they first appear; "" when it holds them all. An
// invalid UTF-8 byte counts as such a character and is given as U+FFFD.
std::string UnheldCharacters(std::string_view utf8);

}  // namespace vbrt
