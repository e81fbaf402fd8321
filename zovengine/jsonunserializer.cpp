#include "jsonunserializer.h"

#include <cmath>
#include <cstring>
#include <filesystem>
#include <iostream>
#include <limits>

#include <rapidjson/memorystream.h>
#include <rapidjson/reader.h>

#include "core/base/wholefile.h"
#include "objects/safefile.h"

namespace ZOVEngine {
namespace {

/// Hands the events of a parse on to a document and stops the parse at too deep a nesting.
class DepthLimiter {
 public:
  explicit DepthLimiter(rapidjson::Document* document) : m_document(document) {}

  bool Null() { return m_document->Null(); }
  bool Bool(bool value) { return m_document->Bool(value); }
  bool Int(int value) { return m_document->Int(value); }
  bool Uint(unsigned value) { return m_document->Uint(value); }
  bool Int64(std::int64_t value) { return m_document->Int64(value); }
  bool Uint64(std::uint64_t value) { return m_document->Uint64(value); }
  bool Double(double value) { return m_document->Double(value); }
  bool RawNumber(const char* text, unsigned length, bool copy) {
    return m_document->RawNumber(text, length, copy);
  }
  bool String(const char* text, unsigned length, bool copy) {
    return m_document->String(text, length, copy);
  }
  bool Key(const char* text, unsigned length, bool copy) {
    return m_document->Key(text, length, copy);
  }
  bool StartObject() { return Enter() && m_document->StartObject(); }
  bool EndObject(unsigned count) { return Leave() && m_document->EndObject(count); }
  bool StartArray() { return Enter() && m_document->StartArray(); }
  bool EndArray(unsigned count) { return Leave() && m_document->EndArray(count); }

 private:
  bool Enter() { return ++m_depth <= kMaxJsonDepth; }
  bool Leave() {
    --m_depth;
    return true;
  }

  rapidjson::Document* m_document;
  int m_depth = 0;
};

/// Fills a document from a text; a document is populated only when the whole text was good.
class LimitedParse {
 public:
  explicit LimitedParse(const std::string& text) : m_text(text) {}

  bool operator()(rapidjson::Document& document) {
    rapidjson::Reader reader;
    rapidjson::MemoryStream stream(m_text.data(), m_text.size());
    DepthLimiter limiter(&document);
    return !reader.Parse<rapidjson::kParseIterativeFlag>(stream, limiter).IsError();
  }

 private:
  const std::string& m_text;
};

/// A double as the nearest float; a number beyond a float's range becomes an infinity.
float Narrow(double value) {
  constexpr float kLargest = std::numeric_limits<float>::max();
  constexpr double kHalfStepAbove = static_cast<double>(kLargest) + 0x1p103;
  if (std::abs(value) <= static_cast<double>(kLargest)) return static_cast<float>(value);
  const float size =
      std::abs(value) < kHalfStepAbove ? kLargest : std::numeric_limits<float>::infinity();
  return value > 0.0 ? size : -size;
}

/// The low 32 bits of a number as it is stored, a double's bit pattern included.
std::uint32_t LowBits(const Value& value) {
  if (value.IsUint64()) return static_cast<std::uint32_t>(value.GetUint64());
  if (value.IsInt64()) return static_cast<std::uint32_t>(value.GetInt64());
  if (!value.IsDouble()) FailReading("expected a number");
  const double number = value.GetDouble();
  std::uint64_t bits = 0;
  std::memcpy(&bits, &number, sizeof bits);
  return static_cast<std::uint32_t>(bits);
}

void RequireArray(const Value& value, unsigned size, const char* what) {
  if (!value.IsArray() || value.Size() != size) FailReading(what);
}

Vector3D ToVector3D(const Value& value) {
  RequireArray(value, 3, "expected an array of 3 numbers");
  return Vector3D(ToFloat(value[0]), ToFloat(value[1]), ToFloat(value[2]));
}

std::string ToString(const Value& value) {
  if (!value.IsString()) FailReading("expected a string");
  return std::string(value.GetString(), value.GetStringLength());
}

void ReadEntry(const Value& value, bool* out) {
  *out = value.IsTrue();
}
void ReadEntry(const Value& value, int* out) {
  *out = ToInt(value);
}
void ReadEntry(const Value& value, unsigned* out) {
  *out = LowBits(value);
}
void ReadEntry(const Value& value, float* out) {
  *out = ToFloat(value);
}
void ReadEntry(const Value& value, std::string* out) {
  *out = ToString(value);
}
void ReadEntry(const Value& value, Vector3D* out) {
  *out = ToVector3D(value);
}

template <class T, std::size_t N>
void ReadEntries(const Value& object, const char* key, std::array<T, N>* out, const char* what) {
  const Value* value = FindOrComplain(object, key);
  if (value == nullptr) return;
  RequireArray(*value, N, what);
  for (unsigned i = 0; i < N; ++i) ReadEntry((*value)[i], &(*out)[i]);
}

template <class T>
void ReadArray(const Value& object, const char* key, std::vector<T>* out) {
  out->clear();
  const Value* value = FindOrComplain(object, key);
  if (value == nullptr) return;
  if (!value->IsArray()) FailReading("expected an array");
  out->reserve(value->Size());
  for (const Value& entry : value->GetArray()) {
    T item{};
    ReadEntry(entry, &item);
    out->push_back(std::move(item));
  }
}

}  // namespace

void JsonDocument::Open(const std::string& path) {
  m_path = path;
  m_scope.emplace(path);
  m_file = std::ifstream();
  std::error_code ignored;
  if (!std::filesystem::is_directory(path, ignored)) m_file.open(path, std::ios::binary);
  ZOV_ASSERT(m_file.is_open(), path + "file not found");
}

void JsonDocument::Parse() {
  const std::string text = ReadRest(m_file);
  m_file.close();
  Fill(text);
}

void JsonDocument::ParseText(const std::string& text, const std::string& name) {
  m_path = name;
  m_scope.emplace(name);
  Fill(text);
}

void JsonDocument::Fill(const std::string& text) {
  LimitedParse parse(text);
  m_document.SetNull();
  m_document.Populate(parse);
}

const Value* FindValue(const Value& object, const char* key) {
  if (!object.IsObject()) return nullptr;
  const Value::ConstMemberIterator member = object.FindMember(key);
  return member == object.MemberEnd() ? nullptr : &member->value;
}

const Value* FindOrComplain(const Value& object, const char* key) {
  const Value* value = FindValue(object, key);
  JsonTrail::EnterKey(key);
  if (value == nullptr) std::cout << "Cant find Key: " << key << '\n';
  return value;
}

bool HasKey(const Value& object, const char* key) {
  return FindValue(object, key) != nullptr;
}

const Value& RequireValue(const Value& object, const char* key) {
  const Value* value = FindValue(object, key);
  JsonTrail::EnterKey(key);
  if (value == nullptr) FailReading("the key is missing");
  return *value;
}

template <class T>
void ReadValue(const Value& object, const char* key, T* out) {
  if (const Value* value = FindOrComplain(object, key)) ReadEntry(*value, out);
}
template void ReadValue(const Value&, const char*, bool*);
template void ReadValue(const Value&, const char*, int*);
template void ReadValue(const Value&, const char*, unsigned*);
template void ReadValue(const Value&, const char*, float*);
template void ReadValue(const Value&, const char*, std::string*);

void ReadIntPair(const Value& object, const char* key, std::array<int, 2>* out) {
  ReadEntries(object, key, out, "expected an array of 2 numbers");
}

void ReadVector2(const Value& object, const char* key, std::array<float, 2>* out) {
  ReadEntries(object, key, out, "expected an array of 2 numbers");
}

void ReadVector4(const Value& object, const char* key, std::array<float, 4>* out) {
  ReadEntries(object, key, out, "expected an array of 4 numbers");
}

void ReadVector3DPair(const Value& object, const char* key, std::array<Vector3D, 2>* out) {
  ReadEntries(object, key, out, "expected an array of 2 arrays of 3 numbers");
}

void ReadVector3D(const Value& object, const char* key, Vector3D* out) {
  const Value* value = FindValue(object, key);
  JsonTrail::EnterKey(key);
  if (value == nullptr) {
    std::cout << key << " not found" << '\n';
    return;
  }
  *out = ToVector3D(*value);
}

void ReadVector3DArray(const Value& object, const char* key, std::vector<Vector3D>* out) {
  ReadArray(object, key, out);
}

void ReadStringArray(const Value& object, const char* key, std::vector<std::string>* out) {
  ReadArray(object, key, out);
}

void ReadBoolArray(const Value& object, const char* key, std::vector<bool>* out) {
  ReadArray(object, key, out);
}

void ReadFloatArray(const Value& object, const char* key, std::vector<float>* out) {
  ReadArray(object, key, out);
}

void ReadIntArray(const Value& object, const char* key, std::vector<int>* out) {
  ReadArray(object, key, out);
}

float ToFloat(const Value& value) {
  if (!value.IsNumber()) FailReading("expected a number");
  return Narrow(value.GetDouble());
}

int ToInt(const Value& value) {
  return static_cast<int>(LowBits(value));
}

JsonWriter::JsonWriter() : m_json(m_buffer), m_writer{&m_json, &m_buffer} {
  m_json.SetIndent(' ', 4);
}

JsonWriter::~JsonWriter() {
  Close();
}

void JsonWriter::Open(const std::string& path) {
  Close();
  m_path = path;
}

bool JsonWriter::Close() {
  if (m_path.empty()) return true;
  // A writer that was left in the middle, by an exception for instance, must not replace a whole
  // file.
  const bool good = m_json.IsComplete() && ReplaceFile(m_path, m_buffer.GetString());
  m_path.clear();
  m_buffer.Clear();
  m_json.Reset(m_buffer);
  return good;
}

void WriteKey(Writer& writer, const char* key) {
  writer.json->Key(key);
}

void WriteFloat(Writer& writer, float value) {
  constexpr float kLargest = std::numeric_limits<float>::max();
  if (std::isnan(value)) value = 0.0f;
  if (std::isinf(value)) value = value > 0.0f ? kLargest : -kLargest;
  writer.json->Double(static_cast<double>(value));
}

namespace {

void WriteEntry(Writer& writer, const std::string& value) {
  writer.json->String(value.data(), static_cast<unsigned>(value.size()));
}
void WriteEntry(Writer& writer, bool value) {
  writer.json->Bool(value);
}
void WriteEntry(Writer& writer, int value) {
  writer.json->Int(value);
}
void WriteEntry(Writer& writer, float value) {
  WriteFloat(writer, value);
}
void WriteEntry(Writer& writer, const Vector3D& value) {
  writer.json->StartArray();
  for (const float component : value.v) WriteFloat(writer, component);
  writer.json->EndArray();
}

template <class List>
void WriteList(Writer& writer, const char* key, const List& list) {
  WriteKey(writer, key);
  writer.json->StartArray();
  for (const auto& entry : list) WriteEntry(writer, entry);
  writer.json->EndArray();
}

}  // namespace

void WriteValue(Writer& writer, const char* key, bool value) {
  WriteKey(writer, key);
  WriteEntry(writer, value);
}

void WriteValue(Writer& writer, const char* key, int value) {
  WriteKey(writer, key);
  WriteEntry(writer, value);
}

void WriteValue(Writer& writer, const char* key, unsigned value) {
  WriteKey(writer, key);
  writer.json->Uint(value);
}

void WriteValue(Writer& writer, const char* key, float value) {
  WriteKey(writer, key);
  WriteEntry(writer, value);
}

void WriteValue(Writer& writer, const char* key, const std::string& value) {
  WriteKey(writer, key);
  WriteEntry(writer, value);
}

void WriteIntPair(Writer& writer, const char* key, const std::array<int, 2>& value) {
  WriteList(writer, key, value);
}

void WriteVector2(Writer& writer, const char* key, const std::array<float, 2>& value) {
  WriteList(writer, key, value);
}

void WriteVector4(Writer& writer, const char* key, const std::array<float, 4>& value) {
  WriteList(writer, key, value);
}

void WriteVector3DPair(Writer& writer, const char* key, const std::array<Vector3D, 2>& value) {
  WriteList(writer, key, value);
}

void WriteVector3D(Writer& writer, const char* key, const Vector3D& value) {
  WriteKey(writer, key);
  WriteEntry(writer, value);
}

void WriteVector3DArray(Writer& writer, const char* key, const std::vector<Vector3D>& value) {
  WriteList(writer, key, value);
}

void WriteStringArray(Writer& writer, const char* key, const std::vector<std::string>& value) {
  WriteList(writer, key, value);
}

void WriteBoolArray(Writer& writer, const char* key, const std::vector<bool>& value) {
  WriteList(writer, key, value);
}

void WriteFloatArray(Writer& writer, const char* key, const std::vector<float>& value) {
  WriteList(writer, key, value);
}

void WriteIntArray(Writer& writer, const char* key, const std::vector<int>& value) {
  WriteList(writer, key, value);
}

}  // namespace ZOVEngine
