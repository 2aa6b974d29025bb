#pragma once
// Reads the model Gmsh holds into a basic model's content.
#include "platform/model_snapshot.h"

namespace platform::gmsh_io {

// Reads Gmsh's current model. Points are vertices, curves edges, plane surfaces blocks,
// each in ascending tag order; physical-group names label the entities of their
// dimension (an entity in several named groups takes the lowest group's name).
// Straight edges report their start as third point and an angle of 0. Arcs report their
// centre, snapped onto the point entity at the centre when there is one (the computed
// centre is only nearly exact), and their swept angle in radians, positive when the arc
// runs counter-clockwise. A point that is an arc's centre and no curve's end is not a
// vertex. Gmsh errors escape as Gmsh throws them (std::string); curves other than lines
// and circular arcs and surfaces other than plane ones throw vbrt::VbError.
ModelContent ReadCurrentModel();

}  // namespace platform::gmsh_io
