#include "render/passes/backgroundpass.h"

#include "render/painter.h"
#include "render/passes/placement.h"

namespace ZOVEngine {
namespace {

constexpr float kWidth = 9600.0f;   // (unit: world units)
constexpr float kHeight = 5400.0f;  // (unit: world units)
constexpr float kRepeats = 5.0f;

}  // namespace

void BackgroundPass(const std::string& texture, Painter& painter) {
  painter.Upload({0.0f, kRepeats, 0.0f, kRepeats});
  painter.BindTexture(texture);
  painter.DrawQuad(Program::kLight, UprightPlacement(Vector3D(), kWidth, kHeight), kWhite);
  painter.UploadQuad();
}

}  // namespace ZOVEngine
