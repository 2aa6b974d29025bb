#pragma once
// Matcher for a call that fails with a given runtime error number.
#include <gmock/gmock.h>

#include "vbrt/error.h"

inline auto RaisesError(int number) {
  return testing::Throws<vbrt::VbError>(testing::Property(&vbrt::VbError::Number, number));
}
