#pragma once

#include "core/base/noncopyable.h"
#include "objects/jsonforward.h"

#include <rapidjson/document.h>
#include <rapidjson/prettywriter.h>
#include <rapidjson/stringbuffer.h>

#include <array>
#include <fstream>
#include <optional>
#include <string>
#include <vector>

#include "core/base/vector3d.h"
#include "objects/jsontrail.h"

namespace ZOVEngine {

/// The deepest nesting of arrays and objects that is read. A deeper file counts as malformed, so
/// that none can exhaust the stack.
inline constexpr int kMaxJsonDepth = 256;

/// One JSON file that is being read: Open, then Parse, then Root.
///
/// While the document lives, failure reports name its file. Documents nest like scopes.
/// A malformed file, one nested deeper than kMaxJsonDepth included, leaves an empty document: its
/// root is null and every key is missing.
class JsonDocument {
 public:
  /// Opens the file. An absent one ends the program with the report: path, "file not found".
  void Open(const std::string& path);
  /// Reads the opened file whole and parses it, without recursion.
  void Parse();
  /// Parses `text` in place of a file; `name` stands for the path in reports.
  void ParseText(const std::string& text, const std::string& name);

  const Value& Root() const { return m_document; }
  const std::string& Path() const { return m_path; }

 private:
  void Fill(const std::string& text);

  std::string m_path;
  std::optional<JsonTrail::FileScope> m_scope;
  std::ifstream m_file;
  rapidjson::Document m_document;
};

/// The value under `key`, or null when `object` is no JSON object or lacks the key.
const Value* FindValue(const Value& object, const char* key);
/// FindValue for fields of unusual form: prints "Cant find Key: " and the key when it is missing.
const Value* FindOrComplain(const Value& object, const char* key);
bool HasKey(const Value& object, const char* key);

/// The value of the member that must be there; without it the program ends with a report that names
/// file, object and key.
const Value& RequireValue(const Value& object, const char* key);

/// Reads the field `key` of `object` into `*out`.
///
/// A missing key prints "Cant find Key: " and the key on standard output and keeps `*out`. A bool
/// is true for JSON true only. A float takes any JSON number; an int or unsigned takes the low 32
/// bits of the number as stored, without conversion from a double. A value of another type ends the
/// program with a report that names file, object and key. Defined for bool, int, unsigned, float,
/// std::string.
template <class T>
void ReadValue(const Value& object, const char* key, T* out);

/// Arrays of exactly 2 and 4 numbers, in the manner of ReadValue.
void ReadIntPair(const Value& object, const char* key, std::array<int, 2>* out);
void ReadVector2(const Value& object, const char* key, std::array<float, 2>* out);
void ReadVector4(const Value& object, const char* key, std::array<float, 4>* out);
/// A range: an array of 2 arrays of 3 numbers, in the manner of ReadValue.
void ReadVector3DPair(const Value& object, const char* key, std::array<Vector3D, 2>* out);
/// An array of 3 numbers. A missing key prints the key and " not found", and keeps `*out`.
void ReadVector3D(const Value& object, const char* key, Vector3D* out);
/// Clears `*out` first, so a missing key, which prints "Cant find Key: " and the key, empties it.
void ReadVector3DArray(const Value& object, const char* key, std::vector<Vector3D>* out);
void ReadStringArray(const Value& object, const char* key, std::vector<std::string>* out);
void ReadBoolArray(const Value& object, const char* key, std::vector<bool>* out);
void ReadFloatArray(const Value& object, const char* key, std::vector<float>* out);
void ReadIntArray(const Value& object, const char* key, std::vector<int>* out);

/// The number held by an entry of an array, in the manner of ReadValue.
float ToFloat(const Value& value);
int ToInt(const Value& value);

/// The target of the components' writers: the pretty writer and the buffer behind it.
struct Writer {
  rapidjson::PrettyWriter<rapidjson::StringBuffer>* json;
  rapidjson::StringBuffer* buffer;
};

/// One JSON file that is being written. The text goes to the buffer; Close writes it in one piece,
/// beside the target and then over it, so that a crash leaves the old file or the new one.
class JsonWriter : private NonCopyable {
 public:
  JsonWriter();
  ~JsonWriter();

  /// Names the target. Closes a target that was open.
  void Open(const std::string& path);
  /// Writes the collected text to the target. Returns false when that failed or when the document
  /// is not complete; the old file then stands.
  bool Close();

  Writer& Out() { return m_writer; }
  std::string Text() const { return m_buffer.GetString(); }

 private:
  std::string m_path;
  rapidjson::StringBuffer m_buffer;
  rapidjson::PrettyWriter<rapidjson::StringBuffer> m_json;
  Writer m_writer;
};

void WriteKey(Writer& writer, const char* key);
/// Write `key` and the value in its JSON form. Floats are written as doubles; a float that JSON
/// cannot say (a NaN, an infinity) is written as 0 or as the largest float of its sign.
void WriteValue(Writer& writer, const char* key, bool value);
void WriteValue(Writer& writer, const char* key, int value);
void WriteValue(Writer& writer, const char* key, unsigned value);
void WriteValue(Writer& writer, const char* key, float value);
void WriteValue(Writer& writer, const char* key, const std::string& value);
void WriteIntPair(Writer& writer, const char* key, const std::array<int, 2>& value);
void WriteVector2(Writer& writer, const char* key, const std::array<float, 2>& value);
void WriteVector4(Writer& writer, const char* key, const std::array<float, 4>& value);
void WriteVector3DPair(Writer& writer, const char* key, const std::array<Vector3D, 2>& value);
void WriteVector3D(Writer& writer, const char* key, const Vector3D& value);
void WriteVector3DArray(Writer& writer, const char* key, const std::vector<Vector3D>& value);
void WriteStringArray(Writer& writer, const char* key, const std::vector<std::string>& value);
void WriteBoolArray(Writer& writer, const char* key, const std::vector<bool>& value);
void WriteFloatArray(Writer& writer, const char* key, const std::vector<float>& value);
void WriteIntArray(Writer& writer, const char* key, const std::vector<int>& value);
void WriteFloat(Writer& writer, float value);

}  // namespace ZOVEngine
