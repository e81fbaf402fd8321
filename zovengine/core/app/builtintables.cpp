#include "core/app/builtintables.h"

#include "objects/gameobjfactory.h"

namespace ZOVEngine {

void GameObjFactory::RegisterBuiltInTables() {
  RegisterComponents(BuiltInTables());
}

}  // namespace ZOVEngine
