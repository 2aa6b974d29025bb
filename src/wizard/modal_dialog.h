#pragma once
// A parameter dialog as a page view runs it. The page opens its dialog inside an action;
// the view shows that action's result first and then runs the dialog modally, and while
// the dialog runs every state the page shows goes to it.
#include <QWidget>
#include <optional>
#include <utility>

#include "wizard/form_forwarder.h"

namespace wizard {

// `Dialog` is built from (FormForwarder, QWidget* parent) and has Show(const State&);
// `State` has `shown`.
template <class Dialog, class State>
class ModalDialog {
 public:
  // The page's dialog state, as shown after each action.
  void Show(const State& state) {
    if (running_ != nullptr) {
      running_->Show(state);
    } else if (state.shown) {
      toOpen_ = state;
    }
  }

  // Runs the dialog when an action has opened it; returns when it is closed.
  void RunOpened(const FormForwarder& forward, QWidget* parent) {
    if (!toOpen_) return;
    Dialog dialog(forward, parent);
    running_ = &dialog;
    dialog.Show(*std::exchange(toOpen_, std::nullopt));
    dialog.exec();
    running_ = nullptr;
  }

 private:
  std::optional<State> toOpen_;  // the state to open with, once the action is shown
  Dialog* running_ = nullptr;
};

}  // namespace wizard
