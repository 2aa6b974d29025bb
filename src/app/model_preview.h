#pragma once
// What the generator sees of a basic model, as text and as a drawing, so that the
// engineer can check the model before generating from it.
#include <ostream>
#include <string_view>

#include "platform/analysis_application.h"

namespace app {

// Edges in enumeration order (numbered from 1 as the generator stamps them) with end
// points, centre, angle, label and the blocks on either side; isolated and labelled
// vertices; blocks with label, first boundary edge and the edges around them.
void WriteModelListing(std::ostream& out, std::string_view file, const platform::BasicModel& model);

// An SVG drawing: blocks shaded by label, edges with their direction and number, arcs as
// arcs, vertices (isolated ones hollow) and the labels.
void WriteModelSvg(std::ostream& out, const platform::BasicModel& model);

}  // namespace app
