// The text merger used on this platform, from its module.
#include "app/commands.h"
#include "app/module_entries.h"
#include "app/module_loader.h"

namespace app {

platform::TextMerger& ModuleTextMerger(std::string_view need) {
  // The module hands out one merger, whatever needed it first.
  static platform::TextMerger* merger = nullptr;
  if (merger == nullptr) merger = ModuleEntry<MergeEntry>(kMergeModule, kMergeEntry, need)();
  return *merger;
}

platform::TextMerger& GenerationMerger() {
  return ModuleTextMerger("Merging your changes into the new code");
}

}  // namespace app
