#pragma once

#include <GL/glew.h>

#include <array>
#include <memory>
#include <string>
#include <vector>

#include "core/base/matrix4x4.h"
#include "core/base/vector3d.h"
#include "render/frame.h"

namespace ZOVEngine {

/// How many lights a lit draw evaluates for each of its fragments. A sprite is drawn in the
/// smallest class that holds all lights within reach.
enum class LightClass : std::uint8_t { kNone, kTwo, kFour, kEight, kEvery };

inline constexpr int kLightClasses = 5;

/// Longest list of lights that a vertex carries.
inline constexpr int kNearLights = 8;
/// Length of the `lights` array of the shaders; lights beyond it are not seen.
inline constexpr int kMaxLights = 64;
/// The material of all sprites: the share of specular light that it mirrors, in every channel.
inline constexpr float kMaterialSpecular = 0.5f;

/// Compiles and links a program. A step that fails prints its line with up to 512 characters of the
/// driver's log on standard output when `report` is set; the later steps are still tried. Returns
/// the program's name; `*linked` tells whether it can draw.
GLuint LinkProgram(const std::string& vertex_source, const std::string& fragment_source,
                   bool report, bool* linked);

/// A linked program with the locations of its uniforms and the values that they were last set to.
///
/// Locations are looked up once. The verbs need the program to be in use. They set a uniform only
/// when its value differs from the last one, and skip a uniform that the program lacks.
class GLProgram {
 public:
  /// Takes over `name`, a linked program.
  explicit GLProgram(GLuint name);

  /// Sets the values that seldom change: white `ourColour`, material, sampler units.
  void SetConstants();
  void SetProjection(const Matrix4x4& projection);
  /// Sets `view` and `viewPos`.
  void SetView(const Matrix4x4& view, const Vector3D& view_pos);
  /// Sets the `lights` array by its members' names, and `size`.
  void SetLights(const std::vector<LightRecord>& lights);
  /// Sets `size` and the lights of a streamed program, packed by PackLights.
  void SetPackedLights(int size, const std::vector<float>& packed);
  /// Sets `translate`, `rotate` and `scale`.
  void SetPlacement(const Placement& placement);
  /// Sets `ourColour` or `textColour`, whichever there is.
  void SetColour(const float colour[4]);
  /// Sets the texture unit that a program of one texture samples.
  void SetUnit(int unit);

  /// Its name in the context.
  GLuint Name() const { return m_name; }
  /// The value of `lightReach`, 0 when the program has none (unit: world units).
  float LightReach() const;

  /// Number of the frame for which view and lights were set last.
  std::uint64_t prepared_frame = 0;
  /// Number of the resources for which SetConstants was called last.
  std::uint64_t prepared_resources = 0;

 private:
  enum Uniform {
    kView,
    kRatio,
    kTranslate,
    kRotate,
    kScale,
    kColour,
    kViewPos,
    kSpecular,
    kShine,
    kSize,
    kSampler,
    kSamplers,
    kPackedLights,
    kUniformCount
  };
  using LightLocations = std::array<GLint, 7>;

  const LightLocations& LocateLight(std::size_t light);

  GLuint m_name;
  std::array<GLint, kUniformCount> m_at;
  std::vector<LightLocations> m_lights;
  Matrix4x4 m_last_projection;
  Matrix4x4 m_last_view;
  Vector3D m_last_view_pos;
  std::array<float, 4> m_last_colour{};
  int m_last_size = 0;
  int m_last_unit = 0;
};

/// One of the four programs in all its forms, made from one pair of source texts.
///
/// The plain form is the sources as they are. The streamed forms are compiled at their first use,
/// with STREAMED, SLOTS, NEAR and EVERY_LAMP defined before the sources; sources that do not
/// mention STREAMED, or do not compile with it, have the plain form only.
class ProgramSet {
 public:
  ProgramSet() = default;
  /// Compiles the plain form and reports failures. `by_number`: streamed forms index their
  /// textures; `stream`: there are streamed forms, if the sources offer them.
  ProgramSet(const std::string& vertex_source, const std::string& fragment_source, bool by_number,
             bool stream);

  /// The plain form; null when it failed to link.
  GLProgram* Plain() { return m_plain.get(); }
  /// The form that draws streamed vertices lit by `lights`, with one texture or a choice; null when
  /// there is none.
  GLProgram* Streamed(LightClass lights, bool one_texture) {
    if (!m_streams) return nullptr;
    Form& form = m_forms[2 * static_cast<std::size_t>(lights) + (one_texture ? 1 : 0)];
    if (!form.tried) Try(lights, one_texture, &form);
    return form.program.get();
  }
  /// True when streamed forms index their textures, so that one form serves any number of them.
  bool PicksByNumber() const { return m_by_number; }
  /// The name that the plain form got, linked or not.
  GLuint Name() const { return m_name; }

 private:
  struct Form {
    bool tried = false;
    std::unique_ptr<GLProgram> program;
  };

  void Try(LightClass lights, bool one_texture, Form* form) const;
  std::string Prologue(LightClass lights, bool one_texture) const;

  std::string m_vertex_source;
  std::string m_fragment_source;
  bool m_by_number = false;
  bool m_streams = false;
  GLuint m_name = 0;
  std::unique_ptr<GLProgram> m_plain;
  std::array<Form, std::size_t{2} * kLightClasses> m_forms;
};

}  // namespace ZOVEngine
