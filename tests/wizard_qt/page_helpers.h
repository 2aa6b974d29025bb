#pragma once
// Driving the window's lists and dialogs as a user does: clicking cells, reading rows,
// and acting inside a modal dialog that a click opens.
#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QTimer>
#include <QTreeWidget>
#include <QtTest>
#include <functional>
#include <memory>

#include "wizard_fixture.h"

namespace wizard_test {

// Clicks Next until page `page` is on view.
inline void GoToPage(WizardFixture& ui, int page) {
  while (ui.Page() < page) ui.Click("btnNext");
}

inline QPoint CellCentre(const QTreeWidget& list, int row, int column = 0) {
  return list.visualRect(list.model()->index(row, column)).center();
}

// Clicks cell (row, column) of `list`, both counted from 0.
inline void ClickCell(QTreeWidget& list, int row, int column,
                      Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
  list.scrollToItem(list.topLevelItem(row));
  QTest::mouseClick(list.viewport(), Qt::LeftButton, modifiers, CellCentre(list, row, column));
}

// Double-clicks cell (row, 0) of `list`: a click, then the second press.
inline void DoubleClickRow(QTreeWidget& list, int row) {
  ClickCell(list, row, 0);
  QTest::mouseDClick(list.viewport(), Qt::LeftButton, Qt::NoModifier, CellCentre(list, row));
}

// The texts of every column of row `row`.
inline QStringList RowTexts(const QTreeWidget& list, int row) {
  QStringList texts;
  for (int column = 0; column < list.columnCount(); ++column)
    texts << list.topLevelItem(row)->text(column);
  return texts;
}

inline QLineEdit* Field(QDialog& dialog, const char* name) {
  return dialog.findChild<QLineEdit*>(name);
}

// Runs `steps` in the modal dialog that the next action opens; a dialog the steps leave
// open is cancelled. The flag tells whether the steps ran.
inline std::shared_ptr<bool> OnNextDialog(std::function<void(QDialog&)> steps, int tries = 400) {
  auto ran = std::make_shared<bool>(false);
  auto* poll = new QTimer(qApp);
  poll->setInterval(5);
  QObject::connect(poll, &QTimer::timeout, poll, [=]() mutable {
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr && --tries > 0) return;
    poll->stop();
    poll->deleteLater();
    if (dialog == nullptr) return;
    *ran = true;
    steps(*dialog);
    if (dialog->isVisible()) dialog->reject();
  });
  poll->start();
  return ran;
}

}  // namespace wizard_test
