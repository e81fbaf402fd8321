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

/// How many lamps a lit draw evaluates for each of its fragments. A sprite is drawn in the smallest
/// class that holds all lamps within reach.
enum class LightClass : std::uint8_t { kNone, kTwo, kFour, kEight, kEvery };

inline constexpr int kLightClasses = 5;

/// Longest list of lamps that a vertex carries.
inline constexpr int kNearLamps = 8;
/// Length of the `lights` array of the shaders; lights beyond it are not seen.
inline constexpr int kMaxLights = 64;
/// The one material: share of a light's specular colour that a sprite mirrors, in every channel.
inline constexpr float kMaterialSpecular = 0.5f;

/// Compiles and links a program. A step that fails prints its line with up to 512 characters of the
/// driver's log on standard output when `report` is set; the later steps are still tried. Returns
/// the program's name; `*linked` tells whether it can draw.
GLuint LinkProgram(const std::string& vertex_source, const std::string& fragment_source,
                   bool report, bool* linked);

/// A linked program, where its uniforms are and what they were last set to.
///
/// Locations are looked up once. The verbs set a uniform only when its value is another than the
/// last one; a uniform that the program lacks is left alone. They need the program to be in use.
class GLProgram {
 public:
  /// Takes over `name`, a linked program.
  explicit GLProgram(GLuint name);

  /// Sets what never changes: projection, white `ourColour`, material, units of the samplers.
  void SetConstants(const Matrix4x4& projection);
  /// Sets `view` and `viewPos`.
  void SetView(const Matrix4x4& view, const Vector3D& view_pos);
  /// Sets the `lights` array by its members' names, and `size`.
  void SetLights(const std::vector<LightRecord>& lights);
  /// Sets `size` and the lamps, three vectors each, of a program that gets them ready for use.
  void SetLamps(int size, const std::vector<float>& lamps);
  /// Sets `translate`, `rotate` and `scale`.
  void SetPlacement(const Placement& placement);
  /// Sets `ourColour` or `textColour`, whichever there is.
  void SetColour(const float colour[4]);
  /// Sets the unit from which a program of one texture samples.
  void SetUnit(int unit);

  /// Its name in the context.
  GLuint Name() const { return m_name; }
  /// The value of `lightReach`, 0 when the program has none (unit: world units).
  float LightReach() const;

  /// Number of the frame for which view and lights were set last.
  std::uint64_t prepared_frame = 0;
  /// Number of the projection that SetConstants was given.
  std::uint64_t prepared_projection = 0;

 private:
  using LightLocations = std::array<GLint, 7>;

  const LightLocations& LocationsOf(std::size_t light);

  GLuint m_name;
  GLint m_view, m_ratio, m_translate, m_rotate, m_scale;
  GLint m_colour, m_view_pos, m_specular, m_shine, m_size, m_picture, m_pictures, m_lamps;
  std::vector<LightLocations> m_lights;
  Matrix4x4 m_last_view;
  Vector3D m_last_view_pos;
  std::array<float, 4> m_last_colour{};
  int m_last_size = 0;
  int m_last_unit = 0;
};

/// One of the four programs in all the forms it is drawn with, made from one pair of source texts.
///
/// The plain form is the sources as they are. The streamed forms are made at their first use by
/// defining STREAMED, SLOTS, NEAR and EVERY_LAMP before them; sources that do not mention STREAMED,
/// or do not compile with it, have the plain form only.
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
  GLProgram* Streamed(LightClass lights, bool one_texture);
  /// True when streamed forms index their textures, so that one form serves any number of them.
  bool PicksByNumber() const { return m_by_number; }
  /// The name that the plain form got, linked or not.
  GLuint Name() const { return m_name; }

 private:
  struct Form {
    bool tried = false;
    std::unique_ptr<GLProgram> program;
  };

  std::unique_ptr<GLProgram> Make(LightClass lights, bool one_texture) const;
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
