#include "support/probe.h"

namespace carapace_test {

std::vector<std::string>& ProbeLog() {
  static std::vector<std::string> log;
  return log;
}

void RegisterProbes() {
  ZOVEngine::GameObjFactory& factory = *ZOVEngine::g_game_obj_factory;
  factory.RegisterComponent<ProbeA>("ProbeA");
  factory.RegisterComponent<ProbeB>("ProbeB");
  factory.RegisterComponent<CountedData>("CountedData");
  ProbeLog().clear();
}

}  // namespace carapace_test
