#include "render/passes/linepass.h"

#include <cmath>

namespace ZOVEngine {
namespace {

void DrawThickLine(const Vector3D& start, const Vector3D& end, float width, const Colour& colour,
                   Painter& painter) {
  static const std::string kTexture = "yellow";
  const float dx = end.x - start.x;
  const float dy = end.y - start.y;
  Placement placement;
  placement.translate = Vector3D((start.x + end.x) * 0.5f, (start.y + end.y) * 0.5f, start.z);
  placement.rotate_radians = -std::atan2(dx, dy);
  placement.scale = Vector3D(width, std::sqrt(dx * dx + dy * dy), 0.0f);
  painter.BindTexture(kTexture);
  painter.DrawQuad(Program::kDefault, placement, colour);
}

}  // namespace

void LinePass(const std::vector<LineRecord>& lines, Painter& painter) {
  for (const LineRecord& line : lines) {
    DrawThickLine(line.start, line.end, line.width, line.colour, painter);
  }
}

void TimedLinePass(float dt, std::vector<TimedLineRecord>* lines, Painter& painter) {
  for (TimedLineRecord& line : *lines) line.elapsed += dt;
  std::erase_if(*lines, [](const auto& line) { return line.life_time <= line.elapsed; });
  for (const TimedLineRecord& line : *lines) {
    const Vector3D& c = line.colour;
    DrawThickLine(line.start, line.end, line.width, {c.x, c.y, c.z, 1.0f}, painter);
  }
}

}  // namespace ZOVEngine
