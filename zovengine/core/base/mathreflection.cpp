#include <rttr/registration>
#include "core/base/matrix4x4.h"

// The value types that fields are made of.
RTTR_REGISTRATION {
  const rttr::registration::class_<ZOVEngine::Vector3D> vector("Vector3");
  const rttr::registration::class_<ZOVEngine::Matrix4x4> matrix("Matrix4x4");
}
