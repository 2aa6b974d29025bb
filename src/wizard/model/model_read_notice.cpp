#include "wizard/model/model_read_notice.h"

#include "resources/string_ids.h"
#include "resources/string_table.h"

namespace wizard {

std::string ModelReadNotice::Caption() const {
  return resources::LoadResString(resources::kModelReadCaption);
}

std::string ModelReadNotice::Text() const {
  return resources::LoadResString(resources::kModelReadBefore) + path_ +
         resources::LoadResString(resources::kModelReadAfter);
}

}  // namespace wizard
