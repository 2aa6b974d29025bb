#pragma once
// A read-only view of a file's text or of a unified diff, coloured by CodeHighlighter,
// with line numbers in a margin: a text's own, a diff's lines numbered as they stand in
// the file on disk and in the file after the generation.
#include <QPlainTextEdit>
#include <vector>

namespace wizard {

class CodeHighlighter;
enum class CodeText;

class CodeView : public QPlainTextEdit {
  Q_OBJECT

 public:
  explicit CodeView(QWidget* parent = nullptr);

  // Shows `text`, read as `kind`; a plain text gets no line numbers.
  void ShowText(const QString& text, CodeText kind);
  // Selects the next occurrence of `text` after the cursor (before it with `backward`),
  // going round at the end; false when the text holds none.
  bool FindText(const QString& text, bool backward = false);

  // The margin's text for a line (block) of the shown text: "12", "12 13", "   13".
  QString LineLabel(int block) const;

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  friend class LineNumberMargin;
  void PaintMargin(QPaintEvent* event);
  int MarginWidth() const;
  void UpdateMargin(const QRect& rect, int dy);

  QWidget* margin_;
  CodeHighlighter* highlighter_;
  CodeText kind_;
  // Of a diff: each line's number in the file on disk and after (0: none), by block.
  std::vector<int> before_;
  std::vector<int> after_;
  int digits_ = 1;
};

}  // namespace wizard
