#include "wizard/code_view.h"

#include <QFontDatabase>
#include <QPaintEvent>
#include <QPainter>
#include <QTextBlock>
#include <QTimer>
#include <algorithm>

#include "wizard/code_highlighter.h"
#include "wizard/qt_text.h"

namespace wizard {

class LineNumberMargin : public QWidget {
 public:
  explicit LineNumberMargin(CodeView* view) : QWidget(view), view_(view) {}
  QSize sizeHint() const override { return {view_->MarginWidth(), 0}; }

 protected:
  void paintEvent(QPaintEvent* event) override { view_->PaintMargin(event); }

 private:
  CodeView* view_;
};

namespace {

// Lines shown at once (a few screens), then in each later step.
constexpr int kLinesAtOnce = 400;
constexpr int kLinesPerStep = 2000;

int Digits(int number) {
  int digits = 1;
  while (number >= 10) {
    number /= 10;
    ++digits;
  }
  return digits;
}

// "@@ -12,7 +13,8 @@": the first lines of a hunk on disk (12) and after (13).
bool ReadHunkHead(QStringView line, int& before, int& after) {
  if (!line.startsWith(u"@@ -")) return false;
  const qsizetype plus = line.indexOf(u" +");
  if (plus < 0) return false;
  const auto number = [&](qsizetype at) {
    qsizetype end = at;
    while (end < line.size() && line[end].isDigit()) ++end;
    return line.mid(at, end - at).toInt();
  };
  before = number(4);
  after = number(plus + 2);
  return true;
}

}  // namespace

CodeView::CodeView(QWidget* parent)
    : QPlainTextEdit(parent),
      margin_(new LineNumberMargin(this)),
      highlighter_(new CodeHighlighter(document())),
      kind_(CodeText::Plain),
      steps_(new QTimer(this)) {
  steps_->setInterval(0);
  connect(steps_, &QTimer::timeout, this, &CodeView::ShowNextStep);
  setReadOnly(true);
  setLineWrapMode(QPlainTextEdit::NoWrap);
  setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  connect(this, &QPlainTextEdit::updateRequest, this, &CodeView::UpdateMargin);
  connect(this, &QPlainTextEdit::blockCountChanged, this,
          [this] { setViewportMargins(MarginWidth(), 0, 0, 0); });
}

void CodeView::ShowText(std::string text, CodeText kind) {
  steps_->stop();
  kind_ = kind;
  before_.clear();
  after_.clear();
  int largest = 0;
  if (kind == CodeText::UnifiedDiff) {
    int before = 0;
    int after = 0;
    const QString diff = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    for (QStringView line : QStringView(diff).split(u'\n')) {
      int shownBefore = 0;
      int shownAfter = 0;
      if (!ReadHunkHead(line, before, after) && !line.startsWith(u"--- ") &&
          !line.startsWith(u"+++ ") && !line.isEmpty() && line[0] != u'\\') {
        if (line[0] != u'+') shownBefore = before++;
        if (line[0] != u'-') shownAfter = after++;
      }
      before_.push_back(shownBefore);
      after_.push_back(shownAfter);
    }
    largest = std::max(before, after);
  } else {
    largest = static_cast<int>(std::count(text.begin(), text.end(), '\n')) + 1;
  }
  digits_ = Digits(largest);
  highlighter_->SetKind(kind);
  pending_ = std::move(text);
  shown_ = 0;
  const std::string_view first = NextLines(kLinesAtOnce);
  shown_ = first.size();
  setPlainText(ToQt(first));  // coloured as it goes in
  if (!Complete()) steps_->start();
  setViewportMargins(MarginWidth(), 0, 0, 0);
  margin_->update();
}

std::string_view CodeView::NextLines(int lines) const {
  const std::string_view rest = std::string_view(pending_).substr(shown_);
  std::size_t end = 0;
  for (int line = 0; line < lines && end < rest.size(); ++line) {
    const std::size_t next = rest.find('\n', end);
    end = next == std::string_view::npos ? rest.size() : next + 1;
  }
  return rest.substr(0, end);
}

void CodeView::ShowNextStep() {
  const std::string_view step = NextLines(kLinesPerStep);
  QTextCursor end(document());
  end.movePosition(QTextCursor::End);
  end.insertText(ToQt(step));
  shown_ += step.size();
  if (Complete()) steps_->stop();
}

void CodeView::ShowRest() {
  if (Complete()) return;
  steps_->stop();
  QTextCursor end(document());
  end.movePosition(QTextCursor::End);
  end.insertText(ToQt(std::string_view(pending_).substr(shown_)));
  shown_ = pending_.size();
}

bool CodeView::FindText(const QString& text, bool backward) {
  if (text.isEmpty()) return false;
  ShowRest();
  const QTextDocument::FindFlags flags =
      backward ? QTextDocument::FindBackward : QTextDocument::FindFlags();
  if (find(text, flags)) return true;
  // Round the end: from the other end of the text.
  const QTextCursor kept = textCursor();
  QTextCursor from(document());
  from.movePosition(backward ? QTextCursor::End : QTextCursor::Start);
  setTextCursor(from);
  if (find(text, flags)) return true;
  setTextCursor(kept);
  return false;
}

QString CodeView::LineLabel(int block) const {
  if (kind_ == CodeText::Plain) return {};
  if (kind_ != CodeText::UnifiedDiff) return QString::number(block + 1);
  if (block < 0 || static_cast<std::size_t>(block) >= before_.size()) return {};
  const auto number = [this](int n) {
    return n == 0 ? QString(digits_, u' ') : QString::number(n).rightJustified(digits_);
  };
  return number(before_[block]) + u' ' + number(after_[block]);
}

int CodeView::MarginWidth() const {
  if (kind_ == CodeText::Plain) return 0;
  const int characters = kind_ == CodeText::UnifiedDiff ? 2 * digits_ + 1 : digits_;
  return 8 + fontMetrics().horizontalAdvance(u'9') * characters;
}

void CodeView::resizeEvent(QResizeEvent* event) {
  QPlainTextEdit::resizeEvent(event);
  const QRect area = contentsRect();
  margin_->setGeometry(QRect(area.left(), area.top(), MarginWidth(), area.height()));
}

void CodeView::UpdateMargin(const QRect& rect, int dy) {
  if (dy != 0) {
    margin_->scroll(0, dy);
  } else {
    margin_->update(0, rect.y(), margin_->width(), rect.height());
  }
}

void CodeView::PaintMargin(QPaintEvent* event) {
  QPainter painter(margin_);
  painter.fillRect(event->rect(), palette().color(QPalette::AlternateBase));
  painter.setPen(palette().color(QPalette::PlaceholderText));
  painter.setFont(font());
  QTextBlock block = firstVisibleBlock();
  int top = qRound(blockBoundingGeometry(block).translated(contentOffset()).top());
  while (block.isValid() && top <= event->rect().bottom()) {
    const int bottom = top + qRound(blockBoundingRect(block).height());
    if (block.isVisible() && bottom >= event->rect().top()) {
      painter.drawText(0, top, margin_->width() - 4, fontMetrics().height(), Qt::AlignRight,
                       LineLabel(block.blockNumber()));
    }
    block = block.next();
    top = bottom;
  }
}

}  // namespace wizard
