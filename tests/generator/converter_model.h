#pragma once
// The shipped converter example's basic model (examples/converter/Converter.geo) as the
// analysis application reports it: a frame closed by an arc of more than a quarter turn
// ("Steel", block 1) around a coil window with a clockwise corner arc ("Coil", block 2),
// labelled edges and vertices, and two isolated points.
#include <cmath>

#include "fake_basic_model.h"

namespace generator::test {

inline FakeBasicModel ConverterModel() {
  FakeBasicModel model;
  const struct {
    platform::Point2 start, end, centre;
    double angle;
    const char* label;
    bool coilOnRight;
  } edges[] = {
      {{0, 0}, {40, 0}, {}, 0, "Ground", false},
      {{40, 0}, {40, 20}, {}, 0, "", false},
      {{40, 20}, {4, 32}, {20, 20}, std::atan2(12.0, -16.0), "Shell", false},
      {{4, 32}, {0, 20}, {}, 0, "", false},
      {{0, 20}, {0, 0}, {}, 0, "", false},
      {{10, 5}, {10, 13}, {}, 0, "", true},
      {{10, 13}, {28, 13}, {}, 0, "", true},
      {{28, 13}, {30, 9}, {25, 9}, -std::atan2(4.0, 3.0), "", true},
      {{30, 9}, {30, 5}, {}, 0, "", true},
      {{30, 5}, {10, 5}, {}, 0, "", true},
  };
  for (const auto& e : edges) {
    const int edge = model.AddEdge(e.start, e.end, e.centre, e.angle);
    model.edges[edge].label = e.label;
    model.edges[edge].left = 0;
    if (e.coilOnRight) model.edges[edge].right = 1;
  }
  model.AddVertex({0, 0}, "Origin");
  for (const platform::Point2& p : {platform::Point2{40, 0}, {40, 20}, {4, 32}, {0, 20}, {10, 5},
                                    {30, 5}, {30, 9}, {28, 13}, {10, 13}}) {
    model.AddVertex(p);
  }
  model.AddVertex({35.5, 2.125}, "Probe", true);
  model.AddVertex({0.5, 33.333333}, "", true);
  model.AddBlock("Steel", 0);
  model.AddBlock("Coil", 5);
  return model;
}

}  // namespace generator::test
