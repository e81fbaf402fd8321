#pragma once

namespace ZOVEngine {

/// Base of classes that own something which must not have two owners: a file, a thread, a device,
/// a place in a list. An object of such a class is neither copied nor moved.
class NonCopyable {
 public:
  NonCopyable(const NonCopyable&) = delete;
  NonCopyable& operator=(const NonCopyable&) = delete;

 protected:
  NonCopyable() = default;
  ~NonCopyable() = default;
};

}  // namespace ZOVEngine
