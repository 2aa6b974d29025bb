#include "wizard/code_highlighter.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace wizard {
namespace {

// Sorted, in lower case: the words the generated code and the user's edits use.
constexpr std::array<std::u16string_view, 75> kKeywords = {
    u"and",      u"as",       u"attribute", u"begin",    u"boolean",  u"byref",
    u"byval",    u"call",     u"case",      u"class",    u"const",    u"dim",
    u"do",       u"double",   u"each",      u"else",     u"elseif",   u"end",
    u"enum",     u"error",    u"event",     u"exit",     u"explicit", u"false",
    u"for",      u"friend",   u"function",  u"get",      u"global",   u"goto",
    u"if",       u"implements", u"in",      u"integer",  u"is",       u"let",
    u"like",     u"long",     u"loop",      u"me",       u"mod",      u"new",
    u"next",     u"not",      u"nothing",   u"object",   u"on",       u"option",
    u"optional", u"or",       u"private",   u"property", u"public",   u"raiseevent",
    u"redim",    u"resume",   u"select",    u"set",      u"single",   u"static",
    u"step",     u"string",   u"sub",       u"then",     u"to",       u"true",
    u"type",     u"until",    u"variant",   u"version",  u"wend",     u"while",
    u"with",     u"withevents", u"xor",
};

bool IsKeyword(QStringView word) {
  std::array<char16_t, 16> lower{};
  if (word.size() >= static_cast<qsizetype>(lower.size())) return false;
  for (qsizetype i = 0; i < word.size(); ++i) lower[i] = word[i].toLower().unicode();
  const std::u16string_view key(lower.data(), static_cast<std::size_t>(word.size()));
  return std::binary_search(kKeywords.begin(), kKeywords.end(), key);
}

bool StartsWord(QChar c) { return c.isLetter() || c == u'_'; }
bool InWord(QChar c) { return c.isLetterOrNumber() || c == u'_'; }

bool IsConflictMarker(QStringView line) {
  for (QStringView marker : {u"<<<<<<<", u"|||||||", u"=======", u">>>>>>>"}) {
    if (line.startsWith(marker) && (line.size() == 7 || line[7] == u' ')) return true;
  }
  return false;
}

QTextCharFormat Foreground(const QColor& colour, bool bold = false) {
  QTextCharFormat format;
  format.setForeground(colour);
  if (bold) format.setFontWeight(QFont::Bold);
  return format;
}

QTextCharFormat Background(const QColor& colour) {
  QTextCharFormat format;
  format.setBackground(colour);
  return format;
}

}  // namespace

CodeHighlighter::CodeHighlighter(QTextDocument* document)
    : QSyntaxHighlighter(document),
      keyword_(Foreground(QColor(0x00, 0x00, 0xa0), true)),
      comment_(Foreground(QColor(0x00, 0x80, 0x00))),
      string_(Foreground(QColor(0xa3, 0x15, 0x15))),
      added_(Background(QColor(0xdd, 0xf8, 0xdd))),
      removed_(Background(QColor(0xfb, 0xdd, 0xdd))),
      hunk_(Foreground(QColor(0x00, 0x70, 0x90), true)),
      header_(Foreground(QColor(0x30, 0x30, 0x30), true)),
      marker_(Foreground(QColor(0x90, 0x40, 0x00), true)) {
  marker_.setBackground(QColor(0xff, 0xe0, 0x99));
}

void CodeHighlighter::highlightBlock(const QString& text) {
  const QStringView line(text);
  if (kind_ == CodeText::VisualBasic) {
    if (IsConflictMarker(line)) {
      setFormat(0, static_cast<int>(line.size()), marker_);
    } else {
      HighlightCode(line, 0);
    }
    return;
  }
  if (kind_ != CodeText::UnifiedDiff || line.isEmpty()) return;
  const int length = static_cast<int>(line.size());
  if (line.startsWith(u"--- ") || line.startsWith(u"+++ ")) {
    setFormat(0, length, header_);
    return;
  }
  if (line.startsWith(u"@@")) {
    setFormat(0, length, hunk_);
    return;
  }
  const QChar sign = line[0];
  if (sign == u'+') setFormat(0, length, added_);
  if (sign == u'-') setFormat(0, length, removed_);
  if (sign != u'+' && sign != u'-' && sign != u' ') return;
  if (IsConflictMarker(line.mid(1))) {
    setFormat(1, length - 1, marker_);
    return;
  }
  HighlightCode(line.mid(1), 1);
}

// Keywords, "strings" (with "" inside) and comments from ' or Rem to the line's end. The
// diff's line colour stays behind them.
void CodeHighlighter::HighlightCode(QStringView line, int offset) {
  const auto apply = [&](qsizetype from, qsizetype count, const QTextCharFormat& colour) {
    QTextCharFormat merged = format(static_cast<int>(from) + offset);
    merged.merge(colour);
    setFormat(static_cast<int>(from) + offset, static_cast<int>(count), merged);
  };
  qsizetype i = 0;
  const qsizetype n = line.size();
  while (i < n) {
    const QChar c = line[i];
    if (c == u'\'') {
      apply(i, n - i, comment_);
      return;
    }
    if (c == u'"') {
      qsizetype end = i + 1;
      while (end < n) {
        if (line[end] == u'"') {
          if (end + 1 < n && line[end + 1] == u'"') {
            end += 2;
            continue;
          }
          ++end;
          break;
        }
        ++end;
      }
      apply(i, end - i, string_);
      i = end;
      continue;
    }
    if (StartsWord(c)) {
      qsizetype end = i + 1;
      while (end < n && InWord(line[end])) ++end;
      const QStringView word = line.mid(i, end - i);
      if (word.compare(u"Rem", Qt::CaseInsensitive) == 0) {
        apply(i, n - i, comment_);
        return;
      }
      if (IsKeyword(word)) apply(i, end - i, keyword_);
      i = end;
      continue;
    }
    ++i;
  }
}

}  // namespace wizard
