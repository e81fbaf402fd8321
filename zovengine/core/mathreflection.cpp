#include <rttr/registration>
#include "core/matrix4x4.h"

// The value types that fields are made of.
RTTR_REGISTRATION {
  rttr::registration::class_<ZOVEngine::Vector3D>("Vector3");
  rttr::registration::class_<ZOVEngine::Matrix4x4>("Matrix4x4");
}
