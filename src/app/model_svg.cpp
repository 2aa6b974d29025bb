// The drawing form of the model preview: the model's picture, as the wizard's basic-files
// page shows it, written as SVG at its own size.
#include <fmt/format.h>
#include <fmt/ostream.h>

#include <cmath>
#include <string>
#include <vector>

#include "app/model_preview.h"
#include "wizard/model/model_picture.h"

namespace app {
namespace {

using platform::Point2;

std::string Escape(const std::string& text) {
  std::string out;
  for (char c : text) {
    switch (c) {
      case '&': out += "&amp;"; break;
      case '<': out += "&lt;"; break;
      case '>': out += "&gt;"; break;
      case '"': out += "&quot;"; break;
      default: out += c;
    }
  }
  return out;
}

// "M x,y L x,y ...", closed with " Z" when asked.
std::string PathData(const std::vector<Point2>& points, bool closed) {
  std::string d;
  for (size_t i = 0; i < points.size(); ++i) {
    d += fmt::format("{}{:.2f},{:.2f}", i == 0 ? "M" : " L", points[i].x, points[i].y);
  }
  return closed ? d + " Z" : d;
}

// A line, or an arc as an arc (the page's y axis points down, so an arc that turns
// counter-clockwise as seen takes the negative sweep).
std::string EdgeData(const wizard::DrawnEdge& edge) {
  if (edge.radius == 0) return PathData({edge.start, edge.end}, false);
  return fmt::format("M{:.2f},{:.2f} A{:.2f},{:.2f} 0 {} {} {:.2f},{:.2f}", edge.start.x,
                     edge.start.y, edge.radius, edge.radius,
                     std::abs(edge.sweepDegrees) > 180 ? 1 : 0, edge.sweepDegrees > 0 ? 0 : 1,
                     edge.end.x, edge.end.y);
}

}  // namespace

void WriteModelSvg(std::ostream& out, const platform::BasicModel& model) {
  const wizard::Drawing drawing = wizard::ModelPicture(model).DrawNatural();
  fmt::print(out,
             "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"{0:.0f}\" height=\"{1:.0f}\" "
             "viewBox=\"0 0 {0:.0f} {1:.0f}\" font-family=\"sans-serif\" font-size=\"{2}\">\n"
             "<rect width=\"100%\" height=\"100%\" fill=\"white\"/>\n",
             drawing.size.width, drawing.size.height, wizard::Drawing::kFontPixels);

  out << "<g stroke=\"none\" fill-rule=\"evenodd\">\n";
  for (const wizard::DrawnArea& area : drawing.areas) {
    std::string d;
    for (const auto& loop : area.loops) d += PathData(loop, true) + " ";
    fmt::print(out, "<path d=\"{}\" fill=\"{}\"/>\n", d, area.fill);
  }
  out << "</g>\n<g fill=\"none\">\n";
  for (const wizard::DrawnEdge& edge : drawing.edges) {
    fmt::print(out, "<path d=\"{}\" stroke=\"{}\" stroke-width=\"{}\"/>\n", EdgeData(edge),
               edge.stroke, edge.strokeWidth);
    if (!edge.arrow) continue;
    fmt::print(out, "<path d=\"{}\" fill=\"{}\"/>\n",
               PathData({edge.arrow->begin(), edge.arrow->end()}, true), edge.stroke);
  }
  out << "</g>\n<g>\n";
  for (const wizard::DrawnVertex& vertex : drawing.vertices) {
    fmt::print(out, "<circle cx=\"{:.2f}\" cy=\"{:.2f}\" r=\"{}\" fill=\"{}\"{}/>\n", vertex.at.x,
               vertex.at.y, vertex.radius, vertex.fill,
               vertex.outline.empty()
                   ? ""
                   : fmt::format(" stroke=\"{}\" stroke-width=\"{}\"", vertex.outline,
                                 vertex.outlineWidth));
  }
  fmt::print(out, "</g>\n<g stroke=\"white\" stroke-width=\"{}\" paint-order=\"stroke\">\n",
             wizard::Drawing::kHaloWidth);
  for (const wizard::DrawnText& text : drawing.texts) {
    fmt::print(out, "<text x=\"{:.2f}\" y=\"{:.2f}\"{}{} fill=\"{}\">{}</text>\n", text.at.x,
               text.at.y,
               text.centred ? " text-anchor=\"middle\" dominant-baseline=\"middle\"" : "",
               text.bold ? " font-weight=\"bold\"" : "", text.colour, Escape(text.text));
  }
  out << "</g>\n</svg>\n";
}

}  // namespace app
