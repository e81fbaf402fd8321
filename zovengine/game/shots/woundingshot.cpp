#include "game/shots/woundingshot.h"

#include "objects/fields.h"

namespace ZOVEngine {

ZOV_COMPONENT_FILE(WoundingShot)

}  // namespace ZOVEngine
