#pragma once

#include <string>

#include "core/base/noncopyable.h"

namespace ZOVEngine {

/// Where in the data the program is reading: file, object, component and key.
///
/// A failure report quotes it, so that a level author finds the place. Readers set it through
/// scopes, which nest: the end of a child, or of a file that another file names, restores the place
/// before it.
class JsonTrail {
 public:
  /// Sets the file that is being read for the scope's life, with no object, component or key.
  class FileScope : private NonCopyable {
   public:
    explicit FileScope(std::string path);
    ~FileScope();

   private:
    std::string m_path;
    std::string m_object;
  };

  /// Sets the object that is being read for the scope's life.
  class ObjectScope : private NonCopyable {
   public:
    explicit ObjectScope(const std::string& name);
    ~ObjectScope();

   private:
    std::string m_outer;
  };

  /// Sets the component of the current object, and clears the key.
  static void EnterComponent(const char* name);
  /// Sets the key that is being read.
  static void EnterKey(const char* key);
  /// The place in words, for instance `Units.json: object "start": component "Render": key
  /// "m_tex"`. Empty when nothing is being read.
  static std::string Describe();
};

/// Ends the program through ZOVAssert with the current place followed by `what`.
[[noreturn]] void FailReading(const std::string& what);

}  // namespace ZOVEngine
