#pragma once
// Colours Visual Basic text in a document: keywords, comments and strings; in a unified
// diff also the added and removed lines, the hunk heads and the conflict markers a merge
// leaves ("<<<<<<<", "|||||||", "=======", ">>>>>>>").
#include <QSyntaxHighlighter>
#include <QTextCharFormat>

namespace wizard {

enum class CodeText { Plain, VisualBasic, UnifiedDiff };

class CodeHighlighter : public QSyntaxHighlighter {
 public:
  explicit CodeHighlighter(QTextDocument* document);
  // How the text that comes into the document is read (set it before the text comes).
  void SetKind(CodeText kind) { kind_ = kind; }

 protected:
  void highlightBlock(const QString& text) override;

 private:
  void HighlightCode(QStringView line, int offset);

  CodeText kind_ = CodeText::Plain;
  QTextCharFormat keyword_;
  QTextCharFormat comment_;
  QTextCharFormat string_;
  QTextCharFormat added_;
  QTextCharFormat removed_;
  QTextCharFormat hunk_;
  QTextCharFormat header_;
  QTextCharFormat marker_;
};

}  // namespace wizard
