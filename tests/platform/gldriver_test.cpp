#include "platform/gldriver.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>
#include <string>

namespace ZOVEngine {
namespace {

constexpr const char* kVariable = "mesa_glthread";
constexpr const char* kTalk = "MESA_DEBUG";

/// A variable of the environment, unset, that gets back what it was.
class Variable {
 public:
  explicit Variable(const char* name) : m_name(name) {
    if (const char* value = std::getenv(name)) m_before = value;
    unsetenv(name);
  }
  ~Variable() {
    if (m_before) {
      setenv(m_name, m_before->c_str(), 1);
    } else {
      unsetenv(m_name);
    }
  }
  Variable(const Variable&) = delete;
  Variable& operator=(const Variable&) = delete;

 private:
  const char* m_name;
  std::optional<std::string> m_before;
};

class GLDriver : public ::testing::Test {
 private:
  Variable m_thread{kVariable};
  Variable m_talk{kTalk};
};

TEST_F(GLDriver, IsAskedForAThreadOfItsOwn) {
  PrepareGLDriver();
  EXPECT_STREQ(std::getenv(kVariable), "true");
}

TEST_F(GLDriver, WhatTheUserSetStays) {
  setenv(kVariable, "false", 1);
  PrepareGLDriver();
  EXPECT_STREQ(std::getenv(kVariable), "false");
  EXPECT_EQ(std::getenv(kTalk), nullptr);
}

TEST_F(GLDriver, IsAskedToBeSilentAboutIt) {
  PrepareGLDriver();
  EXPECT_STREQ(std::getenv(kTalk), "silent");
}

TEST_F(GLDriver, TalksAsTheUserSaid) {
  setenv(kTalk, "context", 1);
  PrepareGLDriver();
  EXPECT_STREQ(std::getenv(kTalk), "context");
}

}  // namespace
}  // namespace ZOVEngine
