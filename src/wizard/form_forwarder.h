#pragma once
// How the page views and their dialogs hand the user's actions to the form.
#include <functional>

#include "wizard/model/wizard_form.h"

namespace wizard {

// One thing the user did, as a call on the form.
using FormAction = std::function<void(WizardForm&)>;
// Runs the action on the form (or drops it once the form is gone) and then shows the
// form's state again, which calls the views' Show.
using FormForwarder = std::function<void(const FormAction&)>;

}  // namespace wizard
