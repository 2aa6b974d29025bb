#pragma once
// The generated local variable that holds an input parameter's value.
#include "generator/printer.h"
#include "generator/record_values.h"

namespace generator {

// Writes the two lines "    Dim <Variable> As Double" and
// "    <Variable> = theParameters("<Description>").Value" (fetched by description).
void PrintInputLocal(Printer& out, const InputRow& row);

}  // namespace generator
