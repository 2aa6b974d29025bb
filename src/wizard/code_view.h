#pragma once
// A read-only view of a file's text or of a unified diff, coloured by CodeHighlighter,
// with line numbers in a margin: a text's own, a diff's lines numbered as they stand in
// the file on disk and in the file after the generation. A long text is shown from its
// first lines at once; the rest follows from the event loop, a few thousand lines a step.
#include <QPlainTextEdit>
#include <string>
#include <string_view>
#include <vector>

class QTimer;

namespace wizard {

class CodeHighlighter;
enum class CodeText;

class CodeView : public QPlainTextEdit {
  Q_OBJECT

 public:
  explicit CodeView(QWidget* parent = nullptr);

  // Shows `text` (UTF-8), read as `kind`; a plain text gets no line numbers.
  void ShowText(std::string text, CodeText kind);
  // Selects the next occurrence of `text` after the cursor (before it with `backward`),
  // going round at the end; false when the text holds none. The whole text is searched.
  bool FindText(const QString& text, bool backward = false);
  // The whole text is in the view (true once the last step has shown it).
  bool Complete() const { return shown_ == pending_.size(); }
  // Shows the rest of the text now.
  void ShowRest();

  // The margin's text for a line (block) of the shown text: "12", "12 13", "   13".
  QString LineLabel(int block) const;

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  friend class LineNumberMargin;
  void PaintMargin(QPaintEvent* event);
  int MarginWidth() const;
  void UpdateMargin(const QRect& rect, int dy);
  // The text from `shown_` up to the end of the next `lines` lines, or to its end.
  std::string_view NextLines(int lines) const;
  void ShowNextStep();

  QWidget* margin_;
  CodeHighlighter* highlighter_;
  CodeText kind_;
  // Of a diff: each line's number in the file on disk and after (0: none), by block.
  std::vector<int> before_;
  std::vector<int> after_;
  int digits_ = 1;
  std::string pending_;    // the whole text
  std::size_t shown_ = 0;  // how many of its bytes are in the document
  QTimer* steps_;
};

}  // namespace wizard
