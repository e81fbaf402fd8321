#include "platform/gldriver.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>
#include <string>

namespace ZOVEngine {
namespace {

constexpr const char* kVariable = "mesa_glthread";

/// Gives the variable back what it was.
class GLDriver : public ::testing::Test {
 protected:
  GLDriver() {
    if (const char* value = std::getenv(kVariable)) m_before = value;
  }
  ~GLDriver() override {
    if (m_before) {
      setenv(kVariable, m_before->c_str(), 1);
    } else {
      unsetenv(kVariable);
    }
  }

 private:
  std::optional<std::string> m_before;
};

TEST_F(GLDriver, IsAskedForAThreadOfItsOwn) {
  unsetenv(kVariable);
  PrepareGLDriver();
  EXPECT_STREQ(std::getenv(kVariable), "true");
}

TEST_F(GLDriver, WhatTheUserSetStays) {
  setenv(kVariable, "false", 1);
  PrepareGLDriver();
  EXPECT_STREQ(std::getenv(kVariable), "false");
}

}  // namespace
}  // namespace ZOVEngine
