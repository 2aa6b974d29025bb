#pragma once
// Matcher for a call that fails with a given runtime error number (and description).
#include <gmock/gmock.h>

#include <string>

#include "vbrt/error.h"

inline auto RaisesError(int number,
                        testing::Matcher<const std::string&> description = testing::_) {
  return testing::Throws<vbrt::VbError>(
      testing::AllOf(testing::Property(&vbrt::VbError::Number, number),
                     testing::Property(&vbrt::VbError::Description, description)));
}
