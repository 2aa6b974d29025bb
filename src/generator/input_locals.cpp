#include "generator/input_locals.h"

namespace generator {

void PrintInputLocal(Printer& out, const InputRow& row) {
  out.Print(R"(
    Dim $variable$ As Double
    $variable$ = theParameters("$description$").Value
)",
            {{"variable", row.variable}, {"description", row.description}});
}

}  // namespace generator
